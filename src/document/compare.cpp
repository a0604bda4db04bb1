#include "document/compare.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <tuple>
#include <utility>

#include "core/model_profile.h"
#include "core/text.h"
#include "document/edits.h"
#include "image/codec.h"
#include "image/memory_differences.h"

namespace orvane::document {
namespace {

using core::FieldRef;
using core::RadioData;

// The memory is the last table.
std::span<const core::Table> RecordTables() {
  return core::Catalogue().first(core::Catalogue().size() - 1);
}

std::string TextOf(const RadioData& data, FieldRef at) {
  return core::FieldOf(at).notation->show(core::Get(data, at));
}

bool IsSame(const RadioData& a, const RadioData& b, FieldRef at) {
  return core::Get(a, at) == core::Get(b, at);
}

bool AreOfOneModel(const RadioData& a, const RadioData& b) {
  return &core::ProfileOf(a) == &core::ProfileOf(b);
}

/// The fields of one table that the model has and a user sets.
std::vector<std::uint8_t> FieldsToCompare(const core::ModelProfile& profile,
                                          const core::Table& table) {
  std::vector<std::uint8_t> fields;
  for (std::size_t i = 0; i < table.fields.size(); ++i) {
    const core::Field& field = table.fields[i];
    if (!field.derived && core::HasField(profile, table, field)) {
      fields.push_back(static_cast<std::uint8_t>(i));
    }
  }
  return fields;
}

/// One taking over, field by field until nothing moves any more: a field may be refused until
/// another one has come, and a rule may change one that has come already.
class Taking {
 public:
  Taking(RadioData& data, const RadioData& theirs, core::Date today)
      : data_(data), theirs_(theirs), today_(today), before_(std::make_unique<RadioData>(data)) {}

  void Want(FieldRef at) {
    if (known_.insert({at.table, at.entry, at.field}).second) wanted_.push_back({at, {}});
  }

  /// What a rule drags along is put back where both were equal before, or follows.
  enum class DraggedAlong : std::uint8_t { kPutBack, kFollows };
  void Run(DraggedAlong dragged_along) {
    // Two fields that exclude each other push each other out without end.
    constexpr int kRounds = 6;
    for (int round = 0; round < kRounds; ++round) {
      const bool moved = SetAll();
      const bool more = dragged_along == DraggedAlong::kPutBack && WantDraggedAlong();
      if (!moved && !more) return;
    }
  }

  [[nodiscard]] std::vector<TakeOverRefusal> Refusals() const {
    std::vector<TakeOverRefusal> refusals;
    for (const Wanted& each : wanted_) {
      if (IsSame(data_, theirs_, each.at)) continue;
      refusals.push_back({each.at, core::NameOf(each.at), ReasonOf(each)});
    }
    return refusals;
  }

 private:
  struct Wanted {
    FieldRef at;
    std::string refusal;  ///< of the last try
  };

  bool SetAll() {
    bool moved = false;
    for (Wanted& each : wanted_) {
      if (IsSame(data_, theirs_, each.at)) continue;
      const core::Value value = core::Get(data_, each.at);
      each.refusal = SetField(data_, each.at, TextOf(theirs_, each.at), today_);
      moved = moved || core::Get(data_, each.at) != value;
    }
    return moved;
  }

  bool WantDraggedAlong() {
    const std::size_t count = wanted_.size();
    for (const core::Change& change : core::Differences(*before_, data_)) {
      const bool settable =
          change.at.table < RecordTables().size() && !core::FieldOf(change.at).derived;
      if (settable && change.before == core::Get(theirs_, change.at)) Want(change.at);
    }
    return wanted_.size() > count;
  }

  [[nodiscard]] std::string ReasonOf(const Wanted& wanted) const {
    if (!wanted.refusal.empty()) return wanted.refusal;
    if (core::EqualsIgnoringCase(TextOf(data_, wanted.at), TextOf(theirs_, wanted.at))) {
      return "It is kept in capitals.";
    }
    return "It does not go together with the other fields.";
  }

  RadioData& data_;
  const RadioData& theirs_;
  core::Date today_;
  std::unique_ptr<const RadioData> before_;
  std::vector<Wanted> wanted_;
  std::set<std::tuple<int, int, int>> known_;
};

}  // namespace

std::vector<ComparedField> CompareFields(const RadioData& ours, const RadioData& theirs,
                                         Listed listed) {
  std::vector<ComparedField> compared;
  if (!AreOfOneModel(ours, theirs)) return compared;
  FieldRef at;
  for (const core::Table& table : RecordTables()) {
    const std::vector<std::uint8_t> fields = FieldsToCompare(core::ProfileOf(ours), table);
    for (int entry = 0; entry < table.count; ++entry) {
      const void* const a = table.record(ours, entry);
      const void* const b = table.record(theirs, entry);
      const bool same = table.same(a, b);
      if (same && listed == Listed::kDifferences) continue;
      at.entry = static_cast<std::uint16_t>(entry);
      for (const std::uint8_t field : fields) {
        at.field = field;
        const core::Field& row = table.fields[field];
        const bool differs = !same && row.get(a) != row.get(b);
        if (differs || listed == Listed::kAll) compared.push_back({at, differs});
      }
    }
    ++at.table;
  }
  return compared;
}

Difference RowOf(const RadioData& ours, const RadioData& theirs, FieldRef at) {
  return {at, core::NameOf(at), TextOf(ours, at), TextOf(theirs, at)};
}

bool Differs(const RadioData& ours, const RadioData& theirs, const Difference& row) {
  if (!row.IsMemory()) return !IsSame(ours, theirs, row.at);
  core::MemoryImage taken = ours.Image;
  image::CopyBits(taken, theirs.Image, row.bits);
  return !(taken == ours.Image);
}

std::vector<Difference> CompareMemory(const RadioData& ours, const RadioData& theirs) {
  std::vector<Difference> rows;
  FieldRef at{.table = static_cast<std::uint8_t>(RecordTables().size())};
  for (image::MemoryDifference& each :
       image::MemoryDifferences(core::ProfileOf(ours), ours.Image, theirs.Image)) {
    at.entry = static_cast<std::uint16_t>(each.bits.FirstByte() / core::kRunLength);
    rows.push_back(
        {at, std::move(each.name), std::move(each.ours), std::move(each.theirs), each.bits});
  }
  return rows;
}

Comparison Compare(const RadioData& ours, const RadioData& theirs) {
  if (!AreOfOneModel(ours, theirs)) return {true, {}};
  Comparison comparison;
  for (const ComparedField& field : CompareFields(ours, theirs, Listed::kDifferences)) {
    comparison.rows.push_back(RowOf(ours, theirs, field.at));
  }
  for (Difference& row : CompareMemory(ours, theirs)) comparison.rows.push_back(std::move(row));
  return comparison;
}

std::unique_ptr<RadioData> AfterProgramming(const RadioData& data, core::Date today) {
  auto after = std::make_unique<RadioData>(data);
  image::EncodeForRadio(*after, today);
  image::DecodeAll(*after);
  return after;
}

std::vector<TakeOverRefusal> TakeOver(RadioData& data, const RadioData& theirs,
                                      std::span<const Difference> chosen, core::Date today) {
  const bool sel1 = image::Sel1(data.Image);
  Taking taking(data, theirs, today);
  for (const Difference& row : chosen) {
    if (row.IsMemory()) {
      image::CopyBits(data.Image, theirs.Image, row.bits);
    } else {
      taking.Want(row.at);
    }
  }
  if (image::Sel1(data.Image) != sel1) image::CopyPlanSelection(data);
  taking.Run(Taking::DraggedAlong::kPutBack);
  return taking.Refusals();
}

std::vector<TakeOverRefusal> TakeGiven(RadioData& data, const RadioData& wanted,
                                       std::span<const FieldRef> given, core::Date today) {
  Taking taking(data, wanted, today);
  for (const FieldRef at : given) taking.Want(at);
  taking.Run(Taking::DraggedAlong::kFollows);
  return taking.Refusals();
}

}  // namespace orvane::document
