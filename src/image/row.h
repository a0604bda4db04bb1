#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>

#include "core/calendar.h"
#include "core/catalogue_fields.h"
#include "core/member_path.h"
#include "core/model_profile.h"
#include "core/presence.h"
#include "core/radio_data.h"
#include "image/bits.h"
#include "image/value_text.h"

/// The engine of the layout tables. A row describes one field: its name, its place, the form its
/// value takes in memory and the record member it belongs to. Decoder, encoder and memory map walk
/// the same rows.
namespace orvane::image {

using core::Has;
using core::kFieldAt;
using core::When;

/// Two fields that claim the same bits do so only where both say so: the one beneath is written
/// first, the one above prevails.
enum class Overlap { kNone, kBeneath, kAbove };

/// Where a value lies. A few values have their upper part elsewhere.
struct Place {
  Bits bits;
  Bits head{};  ///< upper part; count 0 when there is none

  constexpr Place(Bits low) : bits(low) {}  // NOLINT(google-explicit-constructor)
  constexpr Place(Bits low, Bits high) : bits(low), head(high) {}
};

/// What encoding needs to know beyond the record.
struct EncodeContext {
  const core::RadioData& data;
  const core::ModelProfile& profile;
  core::Date today;
};

template <class Record>
struct Row {
  std::string_view name;
  Place place;
  /// Null: the decoder leaves the field alone.
  void (*decode)(Record&, const std::uint8_t* base, const Place&) = nullptr;
  /// Null: the memory keeps the bits as they are.
  void (*encode)(const Record&, std::uint8_t* base, const Place&, const EncodeContext&) = nullptr;
  std::string (*text)(const std::uint8_t* base, const Place&) = nullptr;
  When read = When::kAlways;
  When written = When::kAlways;
  Overlap overlap = Overlap::kNone;
  std::string_view of{};  ///< said before the name: the channel group of a field that each has
  /// Radio or program write it as they need it, so that it tells nothing of what a user set.
  bool housekeeping = false;

  [[nodiscard]] constexpr Row Only(When when) const {
    Row row = WrittenBy(when);
    row.read = when;
    return row;
  }
  [[nodiscard]] constexpr Row WrittenBy(When when) const {
    Row row = *this;
    row.written = when;
    return row;
  }
  [[nodiscard]] constexpr Row Lies(Overlap how) const {
    Row row = *this;
    row.overlap = how;
    return row;
  }
  [[nodiscard]] constexpr Row Of(std::string_view group) const {
    Row row = *this;
    row.of = group;
    return row;
  }
  [[nodiscard]] constexpr Row Housekeeping() const {
    Row row = *this;
    row.housekeeping = true;
    return row;
  }
};

template <class Record, class Form, auto... Path>
void DecodeField(Record& record, const std::uint8_t* base, const Place& place) {
  Form::Read(base, place, core::Follow<Path...>(record));
}

template <class Record, class Form, auto... Path>
void EncodeField(const Record& record, std::uint8_t* base, const Place& place,
                 const EncodeContext& context) {
  const auto& member = core::Follow<Path...>(record);
  if constexpr (requires { Form::Write(base, place, member, context); }) {
    Form::Write(base, place, member, context);
  } else {
    Form::Write(base, place, member);
  }
}

template <class Record, class Form, auto... Path>
std::string FieldText(const std::uint8_t* base, const Place& place) {
  if constexpr (requires { Form::Text(base, place); }) {
    return Form::Text(base, place);
  } else {
    std::remove_cvref_t<decltype(core::Follow<Path...>(std::declval<Record&>()))> value{};
    Form::Read(base, place, value);
    return ValueText(value);
  }
}

/// A row both of whose directions go through the same member of the record. The models that have
/// it are the catalogue's. Without a path the form works on the whole record of any model.
template <class Record, class Form, auto... Path>
constexpr Row<Record> Field(std::string_view name, Place place) {
  const Row<Record> row{name, place, &DecodeField<Record, Form, Path...>,
                        &EncodeField<Record, Form, Path...>, &FieldText<Record, Form, Path...>};
  if constexpr (sizeof...(Path) == 0) {
    return row;
  } else {
    return row.Only(kFieldAt<Path...>.presence.when);
  }
}
/// Under the member's own name.
template <class Record, class Form, auto... Path>
constexpr Row<Record> Field(Place place) {
  return Field<Record, Form, Path...>(kFieldAt<Path...>.name, place);
}

/// Bits the radio wants to be 0 whenever the record is written.
template <class Record>
constexpr Row<Record> AlwaysZero(Place place) {
  return {.name = "(always 0)",
          .place = place,
          .encode = [](const Record&, std::uint8_t* base, const Place& at,
                       const EncodeContext&) { WriteBits(base, at.bits, 0); },
          .text = &NumberText};
}

/// Known memory that no record holds: carried through as it came.
template <class Record>
constexpr Row<Record> Carried(std::string_view name, Place place,
                              std::string (*text)(const std::uint8_t*, const Place&)) {
  return {.name = name, .place = place, .text = text};
}

/// What an area's base is counted from.
enum class Anchor { kStart, kToneByte, kEnd };
/// How the entries of an area are called in the memory map.
enum class Label { kNone, kPlan, kFromOne };

/// Equal records, one after the other.
template <class Record>
struct Area {
  std::string_view name{};
  int base = 0;
  int stride = 0;
  int count = 1;
  std::span<const Row<Record>> rows{};
  Record& (*entry)(core::RadioData&, int index) = nullptr;
  Label label = Label::kNone;
  When when = When::kAlways;
  Anchor anchor = Anchor::kStart;

  [[nodiscard]] constexpr int Size() const { return stride * count; }  ///< bytes of all entries
  [[nodiscard]] constexpr int EntryOffset(const core::ModelProfile& profile, int index) const {
    int offset = base + stride * index;
    if (anchor == Anchor::kToneByte) offset += profile.tone_byte.value_or(0);
    if (anchor == Anchor::kEnd) offset += profile.image_size;
    return offset;
  }
};

}  // namespace orvane::image
