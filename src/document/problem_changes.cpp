#include <algorithm>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <tuple>

#include "core/field_ref.h"
#include "core/field_rules.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "document/compare.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/problem_rules.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::FieldRef;
using core::RadioData;

// What a name may have to come back from a radio: what may be typed, but for the point.
constexpr std::string_view kEnding = ".";

// Of a channel that nobody comes to, nobody asks.
bool IsAskedFor(const RadioData& data, FieldRef at) {
  const core::Table& table = core::TableOf(at);
  const core::ModelProfile& profile = core::ProfileOf(data);
  const core::Field& field = core::FieldOf(at);
  if (field.derived || !core::HasField(profile, table, field)) return false;
  // Radios with DSC keep the middle of their own MMSI there.
  if (profile.has_dsc && core::IsMember<&core::UsableGroup::Backup>(field)) return false;
  if (table.kind == core::TableKind::kWeather) return data.WX[at.entry].Enable;
  const std::optional<ChannelPlace> place = PlaceOf(data, at);
  if (!place) return true;
  // Without Tx Enable the page says already what power code 0 does.
  const bool silent = place->IsMarine() && !ChannelAt(data, *place).TxEnable &&
                      core::IsMember<&ChannelRecord::TXPower>(field);
  return !silent && IsInUse(data, *place);
}

// An entry of a directory without a number goes as a whole.
bool IsDropped(const RadioData& after, FieldRef at) {
  const core::Table& table = core::TableOf(at);
  return table.kind == core::TableKind::kDirectory &&
         static_cast<const core::DirectoryEntry*>(table.record(after, at.entry))->Mmsid.empty();
}

std::string Quoted(std::string_view text) {
  return "\"" + std::string(text) + "\"";
}

/// The fields that a problem tells of, and those that follow from them.
class Told {
 public:
  void Add(const RadioData& data, const Problem& problem) {
    Add(problem.at);
    if (problem.kind == ProblemKind::kPowerCodeZero) {
      const std::optional<ChannelPlace> place = PlaceOf(data, problem.at);
      if (place) Add(FieldOfChannel<&ChannelRecord::TXPower>(*place));
    }
    if (problem.kind == ProblemKind::kLastNotInUse) {
      Add(core::RefTo<&core::CommonSettings::Last_Display_CH>(data, data.Common));
      Add(core::RefTo<&core::CommonSettings::Marine_LMR_CH>(data, data.Common));
    }
  }
  [[nodiscard]] bool Has(FieldRef at) const {
    return told_.contains({at.table, at.entry, at.field});
  }

 private:
  void Add(FieldRef at) { told_.insert({at.table, at.entry, at.field}); }

  std::set<std::tuple<int, int, int>> told_;
};

Problem CutName(FieldRef at, const std::string& name, const std::string& after) {
  const bool by_point =
      name.find(kEnding) != std::string::npos &&
      core::EqualsIgnoringCase(core::TrimRight(name.substr(0, name.find(kEnding))), after);
  return {.kind = ProblemKind::kNameCut,
          .severity = Severity::kWarning,
          .at = at,
          .text = "It comes back from the radio as " + Quoted(after) +
                  (by_point ? ": a name ends at a point when it is read."
                            : ": names have letters, digits, blanks and - / , _ only, and no more "
                              "of them than fit."),
          .remedy = "Make it " + Quoted(MendedName(at, name))};
}

Problem SilentChange(FieldRef at, const core::Value& before, const core::Value& after) {
  const core::Notation& notation = *core::FieldOf(at).notation;
  return {.kind = ProblemKind::kSilentChange,
          .severity = Severity::kNote,
          .at = at,
          .text = "Programming changes it from " + Quoted(notation.show(before)) + " to " +
                  Quoted(notation.show(after)) + ".",
          .remedy = {}};
}

}  // namespace

bool IsName(const core::Field& field) {
  return core::IsMember<&ChannelRecord::ChTag>(field) ||
         core::IsMember<&core::DirectoryEntry::TagName>(field);
}

std::string MendedName(FieldRef at, std::string_view name) {
  constexpr std::size_t kDirectoryLength = 11;
  std::string mended;
  for (const char sign : name) {
    const char capital = core::UpperCase(sign);
    if (kEnding.find(capital) != std::string_view::npos) {
      mended += ',';
    } else if (core::kNameCharacters.find(capital) != std::string_view::npos) {
      mended += capital;
    }
  }
  const bool of_channel = core::IsMember<&ChannelRecord::ChTag>(at);
  mended.resize(
      std::min(mended.size(), of_channel ? std::size_t{core::kNameLength} : kDirectoryLength));
  return std::string(core::TrimRight(mended));
}

void AddSilentChanges(const RadioData& data, core::Date today, Problems& problems) {
  Told told;
  for (const Problem& problem : problems) told.Add(data, problem);
  const std::unique_ptr<const RadioData> after = AfterProgramming(data, today);
  for (const core::Change& change : core::Differences(data, *after)) {
    const FieldRef at = change.at;
    if (!IsAskedFor(data, at) || told.Has(at)) continue;
    if (!IsName(core::FieldOf(at))) {
      problems.push_back(SilentChange(at, change.before, change.after));
      continue;
    }
    const auto& name = std::get<std::string>(change.before);
    const auto& kept = std::get<std::string>(change.after);
    if (core::TrimRight(name) == kept) continue;
    const bool same = core::EqualsIgnoringCase(core::TrimRight(name), kept);
    problems.push_back(same || IsDropped(*after, at) ? SilentChange(at, change.before, change.after)
                                                     : CutName(at, name, kept));
  }
}

}  // namespace orvane::document
