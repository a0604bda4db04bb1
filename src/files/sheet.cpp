#include "files/sheet.h"

#include <algorithm>
#include <numeric>
#include <optional>

#include "core/extra_channel.h"
#include "core/field_ref.h"
#include "core/model_profile.h"
#include "core/number_text.h"
#include "core/text.h"
#include "document/field_locks.h"
#include "document/in_use.h"

namespace orvane::files {
namespace {

using core::ChannelRecord;
using document::ChannelPlace;
using Kind = ChannelPlace::Kind;

constexpr std::string_view kOff = "Off";
constexpr std::string_view kOn = "On";
constexpr std::size_t kDisplayPlaces = std::size_t{2} * core::kDisplayLength;

core::FieldRef FieldOfMember(ChannelPlace place, const char* member) {
  return document::FieldOfChannel(place, member);
}

// What the cell would show with its switch on, in the grid or in the report.
bool SaysOn(const ChannelRow& row, const ChannelColumn& column, const core::Field& field,
            std::string_view text) {
  ChannelRecord on = row.channel;
  on.SetLmr(row.lmr_form);
  field.set(&on, true);
  const ChannelRow shown{
      .profile = row.profile, .channel = on, .number = row.number, .lmr_form = row.lmr_form};
  return core::EqualsIgnoringCase(core::Trim(column.GridText(shown)), text) ||
         core::EqualsIgnoringCase(core::Trim(column.text(shown)), text);
}

Typed Refused(std::string reason) {
  return {.parts = {}, .refusal = std::move(reason)};
}

Typed OnePart(ChannelPlace place, const core::Field& field, std::string_view text) {
  if (!field.notation->parse(text)) {
    return Refused("It must be " + std::string(field.notation->expects) + ".");
  }
  return {.parts = {{place, field.member, std::string(text)}}, .refusal = {}};
}

Typed UnderstandTone(ChannelPlace place, const core::Field& tone, const core::Field& code,
                     std::string_view text) {
  if (SaysNone(text) || core::EqualsIgnoringCase(text, kOff)) {
    return {
        .parts = {{place, tone.member, std::string(kOff)}, {place, code.member, std::string(kOff)}},
        .refusal = {}};
  }
  for (const std::string_view unit : {"", "Hz"}) {
    const std::string with_unit = std::string(text) + std::string(unit);
    if (tone.notation->parse(with_unit)) return OnePart(place, tone, with_unit);
  }
  if (code.notation->parse(text)) return OnePart(place, code, text);
  return Refused(
      "It must be a tone such as 88.5Hz, a code such as 023N, 023I when inverted, or "
      "Off.");
}

Typed UnderstandDisplay(const core::ModelProfile& profile, ChannelPlace place,
                        const Members& members, std::string_view text) {
  text = core::TrimRight(text);
  if (text.size() > kDisplayPlaces) {
    return Refused("At most " + std::to_string(kDisplayPlaces) + " characters fit.");
  }
  const std::string_view left = text.substr(0, core::kDisplayLength);
  const std::string_view halves[] = {left, text.substr(left.size())};
  Typed typed;
  for (std::size_t i = 0; i < members.size(); ++i) {
    std::string half = core::UpperCase(core::Trim(halves[i]));
    typed.refusal = core::RefusalOf(profile, FieldOfMember(place, members[i]), half);
    if (!typed.refusal.empty()) return typed;
    typed.parts.push_back({place, members[i], std::move(half)});
  }
  return typed;
}

bool IsShown(const core::RadioData& data, const Sheet& sheet, Cell cell, std::string_view text) {
  const std::string shown = TextOf(data, sheet, cell);
  const CellKind kind = KindOf(sheet.Column(cell.column));
  if (kind == CellKind::kName) return shown == text;
  if (core::EqualsIgnoringCase(shown, core::Trim(text))) return true;
  if (kind != CellKind::kFixed && kind != CellKind::kFrequency) return false;
  // A spreadsheet drops zeros at either end.
  const std::optional<double> number = core::ParseNumber(text);
  return number && number == core::ParseNumber(shown);
}

Typed UnderstandNew(const core::RadioData& data, const Sheet& sheet, Cell cell,
                    std::string_view text) {
  const ChannelColumn& column = sheet.Column(cell.column);
  const CellKind kind = KindOf(column);
  const ChannelPlace place = sheet.Place(cell.row);
  const Members& members = column.Shows();
  const core::Field& field = core::FieldOf(FieldOfMember(place, members[0]));
  if (kind == CellKind::kName) return OnePart(place, field, text);
  if (kind == CellKind::kDisplay) {
    return UnderstandDisplay(core::ProfileOf(data), place, members, text);
  }
  text = core::Trim(text);
  if (kind == CellKind::kTone) {
    return UnderstandTone(place, field, core::FieldOf(FieldOfMember(place, members[1])), text);
  }
  if (SaysNone(text)) return OnePart(place, field, kOff);
  if (kind == CellKind::kSwitch && SaysOn(RowOf(data, sheet, cell.row), column, field, text)) {
    return OnePart(place, field, kOn);
  }
  return OnePart(place, field, text);
}

// Making an EXP channel of an LMR channel's place takes the LMR channel away, and the other way
// round. An empty one is no loss.
std::string OtherKindsPlace(const core::RadioData& data, ChannelPlace place) {
  if (place.IsMarine()) return {};
  const ChannelRecord& channel = document::ChannelAt(data, place);
  if (!channel.Enable || !(channel.Rxfreq > 0) ||
      core::OfKind(core::ProfileOf(data), channel, place.IsLmr()))
    return {};
  ChannelPlace other = place;
  other.kind = place.IsLmr() ? Kind::kExp : Kind::kLmr;
  return "The place is used as " + document::ChannelName(data, other) +
         ". Only the channel's own page makes it another one.";
}

}  // namespace

Sheet MarineSheet(const core::RadioData& data, core::MarineGroup group, bool with_unused) {
  Sheet sheet{.heading = static_cast<Kind>(group),
              .columns = MarineGridColumns(core::ProfileOf(data)),
              .numbers = {}};
  if (with_unused) {
    sheet.numbers.resize(core::kMarineChannels);
    std::iota(sheet.numbers.begin(), sheet.numbers.end(), 0);
  } else {
    sheet.numbers = EnabledMarineRows(data.Table(group));
  }
  return sheet;
}

Sheet ExtraSheet(const core::RadioData& data, bool lmr_form) {
  Sheet sheet{.heading = lmr_form ? Kind::kLmr : Kind::kExp,
              .columns = ExtraGridColumns(core::ProfileOf(data), lmr_form),
              .numbers = std::vector<int>(core::ExtraTable::size())};
  std::iota(sheet.numbers.begin(), sheet.numbers.end(), core::ExtraTable::kFirst);
  return sheet;
}

std::string SheetName(const core::RadioData& data, const Sheet& sheet) {
  if (sheet.heading > Kind::kCanada) {
    return std::string(core::ProfileOf(data).GroupWord(sheet.heading == Kind::kLmr));
  }
  return std::string(document::GroupWord(static_cast<std::size_t>(sheet.heading)));
}

ChannelRow RowOf(const core::RadioData& data, const Sheet& sheet, int row) {
  const ChannelPlace place = sheet.Place(row);
  return {.profile = core::ProfileOf(data),
          .channel = document::ChannelAt(data, place),
          .number = place.number,
          .lmr_form = place.IsLmr()};
}

bool IsRowInUse(const core::RadioData& data, const Sheet& sheet, int row) {
  const ChannelPlace place = sheet.Place(row);
  if (place.IsMarine()) return document::ChannelAt(data, place).Enable;
  return core::MarkedEnabled(data, place.number, place.IsLmr());
}

CellKind KindOf(const ChannelColumn& column) {
  const Members& members = column.Shows();
  if (members[0] == nullptr) return CellKind::kFixed;
  const core::FieldRef at = FieldOfMember({Kind::kExp, core::ExtraTable::kFirst}, members[0]);
  const core::Notation* const notation = core::FieldOf(at).notation;
  if (notation == &core::notation::kOnOff) return CellKind::kSwitch;
  if (notation == &core::notation::kFrequency) return CellKind::kFrequency;
  if (notation == &core::notation::kScrambler) return CellKind::kCode;
  if (notation == &core::notation::kCtcss) return CellKind::kTone;
  return members[1] == nullptr ? CellKind::kName : CellKind::kDisplay;
}

std::string CellName(const core::RadioData& data, const Sheet& sheet, Cell cell) {
  return document::ChannelName(data, sheet.Place(cell.row)) + ", " +
         std::string(sheet.Column(cell.column).caption);
}

std::string TextOf(const core::RadioData& data, const Sheet& sheet, Cell cell) {
  const ChannelColumn& column = sheet.Column(cell.column);
  std::string text = column.GridText(RowOf(data, sheet, cell.row));
  return KindOf(column) == CellKind::kName ? text : std::string(core::Trim(text));
}

std::string TextToEdit(const core::RadioData& data, const Sheet& sheet, Cell cell) {
  std::string text = TextOf(data, sheet, cell);
  const bool none = KindOf(sheet.Column(cell.column)) != CellKind::kName && SaysNone(text);
  return none ? std::string() : text;
}

bool SaysNone(std::string_view text) {
  return core::Trim(text).find_first_not_of("-.") == std::string_view::npos;
}

core::FieldRef FieldOf(const Sheet& sheet, Cell cell) {
  return FieldOfMember(sheet.Place(cell.row), sheet.Column(cell.column).Shows()[0]);
}

int ColumnOf(const Sheet& sheet, const core::Field& field) {
  const auto found =
      std::find_if(sheet.columns.begin(), sheet.columns.end(), [&](const ChannelColumn& column) {
        const Members& shown = column.Shows();
        return std::find(shown.begin(), shown.end(), field.member) != shown.end();
      });
  return found == sheet.columns.end() ? -1 : static_cast<int>(found - sheet.columns.begin());
}

std::string LockOf(const core::RadioData& data, const Sheet& sheet, Cell cell, core::Date today) {
  const ChannelColumn& column = sheet.Column(cell.column);
  if (KindOf(column) == CellKind::kFixed) {
    return cell.column == 0 ? "It is the number of the channel's place."
                            : "It follows from the channel plan.";
  }
  const ChannelPlace place = sheet.Place(cell.row);
  std::string taken = OtherKindsPlace(data, place);
  if (!taken.empty()) return taken;
  return document::LockOf(data, place, core::FieldOf(FieldOf(sheet, cell)), today);
}

Typed Understand(const core::RadioData& data, const Sheet& sheet, Cell cell, std::string_view text,
                 core::Date today) {
  if (IsShown(data, sheet, cell, text)) return {};
  std::string lock = LockOf(data, sheet, cell, today);
  return lock.empty() ? UnderstandNew(data, sheet, cell, text) : Refused(std::move(lock));
}

}  // namespace orvane::files
