#include "core/catalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <unordered_map>
#include <utility>

#include "core/catalogue_fields.h"
#include "core/channel_plan.h"
#include "core/number_text.h"
#include "core/text.h"

namespace orvane::core {
namespace {

constexpr char kSeparator = '/';

std::string PlanName(int entry) {
  return std::string(PlanLabel(entry));
}
std::string FromOne(int entry) {
  return std::to_string(entry + 1);
}
std::string GroupName(int entry) {
  static constexpr std::array<std::string_view, kUsableGroups> kNames = {"usa", "intl", "canada",
                                                                         "extra"};
  return std::string(kNames[static_cast<std::size_t>(entry)]);
}
std::string AddressName(int entry) {
  constexpr int kAddressDigits = 4;
  return HexText(static_cast<unsigned>(entry * kRunLength), kAddressDigits);
}

template <class Record>
bool SameRecord(const void* a, const void* b) {
  return *static_cast<const Record*>(a) == *static_cast<const Record*>(b);
}

// Where the entries of a table stand, to read and to write.
struct Entries {
  const void* (*record)(const RadioData&, int entry);
  void* (*record_to_write)(RadioData&, int entry);
};
template <class Find>
constexpr Entries EntriesBy(Find /*find*/) {
  return {[](const RadioData& data, int entry) -> const void* { return Find{}(data, entry); },
          [](RadioData& data, int entry) -> void* { return Find{}(data, entry); }};
}

// In a member that is the record, or a list of records.
template <auto kMember>
constexpr Entries EntriesOf() {
  return EntriesBy([](auto& data, int entry) {
    auto& member = data.*kMember;
    if constexpr (requires { member.Items(); }) {
      return &member.Items()[static_cast<std::size_t>(entry)];
    } else if constexpr (requires { member.size(); }) {
      return &member[static_cast<std::size_t>(entry)];
    } else {
      return &member;
    }
  });
}

template <MarineGroup kGroup>
constexpr Entries MarineEntries() {
  return EntriesBy(
      [](auto& data, int entry) { return &data.Table(kGroup)[static_cast<std::size_t>(entry)]; });
}

constexpr Entries kWhole = EntriesBy([](auto& data, int /*entry*/) { return &data; });

// The memory beyond the last used byte never travels, but comes back with an undone step.
constexpr Entries kRuns =
    EntriesBy([](auto& data, int entry) { return &data.Image[entry * kRunLength]; });

bool SameRun(const void* a, const void* b) {
  return std::memcmp(a, b, kRunLength) == 0;
}
Value GetRun(const void* run) {
  return std::string(static_cast<const char*>(run), kRunLength);
}
void SetRun(void* run, const Value& value) {
  std::memcpy(run, std::get<std::string>(value).data(), kRunLength);
}

constexpr std::array kMemoryFields = {Field{.id = "",
                                            .label = "Bytes",
                                            .name = "Bytes",
                                            .member = nullptr,
                                            .get = &GetRun,
                                            .set = &SetRun,
                                            .notation = &notation::kBytes,
                                            .derived = true}};

Value GetLastIndex(const void* data) {
  return static_cast<const RadioData*>(data)->Image.LastIndex();
}
void SetLastIndex(void* data, const Value& value) {
  static_cast<RadioData*>(data)->Image.SetLastIndex(std::get<std::int32_t>(value));
}

// Model number and memory size go together; no edit changes them, another data set does.
constexpr std::array kModelFields = {catalogue::kModelField, Field{.id = "last_byte",
                                                                   .label = "Memory Size",
                                                                   .name = "Memory Size",
                                                                   .member = nullptr,
                                                                   .get = &GetLastIndex,
                                                                   .set = &SetLastIndex,
                                                                   .notation = &notation::kNumber,
                                                                   .derived = true}};

bool SameModel(const void* a, const void* b) {
  return std::all_of(kModelFields.begin(), kModelFields.end(),
                     [=](const Field& field) { return field.get(a) == field.get(b); });
}
bool SameExpPresent(const void* a, const void* b) {
  const Field& field = catalogue::kExpPresentFields[0];
  return field.get(a) == field.get(b);
}

template <MarineGroup kGroup>
constexpr Table Marine(std::string_view id, std::string_view label) {
  return {.id = id,
          .label = label,
          .kind = TableKind::kMarine,
          .count = kMarineChannels,
          .fields = catalogue::kFieldsOf<ChannelRecord>,
          .record = MarineEntries<kGroup>().record,
          .record_to_write = MarineEntries<kGroup>().record_to_write,
          .same = &SameRecord<ChannelRecord>,
          .entry_name = &PlanName};
}

template <class Record, auto kMember>
constexpr Table Records(std::string_view id, std::string_view label, TableKind kind, int count,
                        std::string (*entry_name)(int), When when = When::kAlways) {
  return {.id = id,
          .label = label,
          .kind = kind,
          .count = count,
          .fields = catalogue::kFieldsOf<Record>,
          .record = EntriesOf<kMember>().record,
          .record_to_write = EntriesOf<kMember>().record_to_write,
          .same = &SameRecord<Record>,
          .entry_name = entry_name,
          .when = when};
}

constexpr std::array kTables = {
    Table{.id = "model",
          .label = "Model",
          .fields = kModelFields,
          .record = kWhole.record,
          .record_to_write = kWhole.record_to_write,
          .same = &SameModel},
    Records<UsableGroup, &RadioData::Usable>("usable_groups", "Available CH Group",
                                             TableKind::kOnce, kUsableGroups, &GroupName),
    Table{.id = "exp_present",
          .label = "EXP CH",
          .fields = catalogue::kExpPresentFields,
          .record = kWhole.record,
          .record_to_write = kWhole.record_to_write,
          .same = &SameExpPresent},
    Records<CommonSettings, &RadioData::Common>("common", "Common Setup", TableKind::kOnce, 1,
                                                nullptr),
    Records<DscSettings, &RadioData::Dsc>("dsc", "DSC", TableKind::kOnce, 1, nullptr, When::kDsc),
    Records<AtisSettings, &RadioData::Atis>("atis", "ATIS", TableKind::kOnce, 1, nullptr),
    Records<AtisCallSign, &RadioData::CallSigns>("call_signs", "ATIS Call Sign",
                                                 TableKind::kDirectory, kCallSigns, &FromOne,
                                                 When::kAtisCallSigns),
    Marine<MarineGroup::kUsa>("usa", "USA"),
    Marine<MarineGroup::kIntl>("intl", "INTL"),
    Marine<MarineGroup::kCanada>("canada", "CANADA"),
    Records<ChannelRecord, &RadioData::WX>("wx", "Weather", TableKind::kWeather, kWxChannels,
                                           &FromOne),
    Records<ChannelRecord, &RadioData::EXP>("extra", "EXP/LMR", TableKind::kExtra, kExtraChannels,
                                            &FromOne),
    Records<DirectoryEntry, &RadioData::Stations>("stations", "Station", TableKind::kDirectory,
                                                  kStations, &FromOne, When::kDsc),
    Records<DirectoryEntry, &RadioData::StationGroups>("station_groups", "Station Group",
                                                       TableKind::kDirectory, kStationGroups,
                                                       &FromOne, When::kDsc),
    Table{.id = "image",
          .label = "Memory",
          .kind = TableKind::kMemory,
          .count = MemoryImage::kSize / kRunLength,
          .fields = kMemoryFields,
          .record = kRuns.record,
          .record_to_write = kRuns.record_to_write,
          .same = &SameRun,
          .entry_name = &AddressName},
};

// A record with another member does not compile here: give the member a row above all.
[[maybe_unused]] void EveryMemberHasARow(const ChannelRecord& channel, const UsableGroup& group,
                                         const CommonSettings& common, const DscSettings& dsc,
                                         const AtisSettings& atis, const AtisCallSign& sign,
                                         const DirectoryEntry& directory, const RadioData& data) {
  [[maybe_unused]] const auto& [c1, c2, c3, c4, c5, c6, c7, c8, c9, c10, c11, c12, c13, c14, c15,
                                c16, c17, c18, c19, c20, c21, c22, c23, c24, c25, c26, c27, c28,
                                c29] = channel;
  static_assert(catalogue::kFieldsOf<ChannelRecord>.size() == 29);
  [[maybe_unused]] const auto& [g1, g2, g3, g4, g5, g6] = group;
  static_assert(catalogue::kFieldsOf<UsableGroup>.size() == 6);
  [[maybe_unused]] const auto& [o1, o2, o3, o4, o5, o6, o7, o8, o9, o10, o11, o12, o13, o14] =
      common;
  static_assert(catalogue::kFieldsOf<CommonSettings>.size() == 14);
  [[maybe_unused]] const auto& [d1, d2, d3, d4, d5, d6, d7, d8, d9, d10, d11, d12, d13] = dsc;
  // Single members, pairs, three groups, eight beeps and three lists of four pairs.
  static_assert(catalogue::kFieldsOf<DscSettings>.size() == 6 + 2 * 2 + 3 + 8 + 3 * 4 * 2);
  [[maybe_unused]] const auto& [a1, a2, a3] = atis;
  static_assert(catalogue::kFieldsOf<AtisSettings>.size() == 4 + 1 + 4);
  [[maybe_unused]] const auto& [s1, s2] = sign;
  static_assert(catalogue::kFieldsOf<AtisCallSign>.size() == 2);
  [[maybe_unused]] const auto& [e1, e2, e3] = directory;
  static_assert(catalogue::kFieldsOf<DirectoryEntry>.size() == 3);
  // The three marine tables are one member; the model is a table of its own.
  [[maybe_unused]] const auto& [r1, r2, r3, r4, r5, r6, r7, r8, r9, r10, r11, r12, r13] = data;
  static_assert(kTables.size() == 13 + 2);
}

// The first part of a path, taken off it.
std::string_view TakePart(std::string_view& path) {
  const std::size_t end = path.find(kSeparator);
  const std::string_view part = path.substr(0, end);
  path.remove_prefix(end == std::string_view::npos ? path.size() : end + 1);
  return part;
}

/// Where the entries of each table stand, by their names in small letters: a snapshot has some
/// thousand paths.
using EntriesByName = std::unordered_map<std::string, std::uint16_t>;
const std::vector<EntriesByName>& EntryNames() {
  static const std::vector<EntriesByName> kNames = [] {
    std::vector<EntriesByName> tables;
    for (const Table& table : kTables) {
      EntriesByName& names = tables.emplace_back();
      for (int entry = 0; table.entry_name != nullptr && entry < table.count; ++entry) {
        names.emplace(LowerCase(table.entry_name(entry)), static_cast<std::uint16_t>(entry));
      }
    }
    return tables;
  }();
  return kNames;
}

void AddDifferences(const RadioData& before, const RadioData& after, FieldRef at,
                    std::vector<Change>& changes) {
  const Table& table = TableOf(at);
  const void* const old_record = table.record(before, at.entry);
  const void* const new_record = table.record(after, at.entry);
  if (table.same(old_record, new_record)) return;
  for (const Field& field : table.fields) {
    Value old_value = field.get(old_record);
    Value new_value = field.get(new_record);
    if (old_value != new_value) {
      changes.push_back({at, std::move(old_value), std::move(new_value)});
    }
    ++at.field;
  }
}

}  // namespace

std::span<const Table> Catalogue() {
  return kTables;
}

const Table& TableOf(FieldRef at) {
  return kTables[at.table];
}

const Field& FieldOf(FieldRef at) {
  return TableOf(at).fields[at.field];
}

bool HasField(const ModelProfile& profile, const Table& table, const Field& field) {
  return Has(profile, table.when) && field.presence.In(profile, table.kind);
}

std::string PathOf(FieldRef at) {
  const Table& table = TableOf(at);
  std::string path(table.id);
  if (table.entry_name != nullptr) path += kSeparator + table.entry_name(at.entry);
  const std::string_view id = FieldOf(at).id;
  return id.empty() ? path : path + kSeparator + std::string(id);
}

std::optional<FieldRef> RefOf(std::string_view path) {
  const std::string_view table_id = TakePart(path);
  const auto* const table = std::find_if(
      kTables.begin(), kTables.end(),
      [&](const Table& candidate) { return EqualsIgnoringCase(candidate.id, table_id); });
  if (table == kTables.end()) return {};
  FieldRef at{.table = static_cast<std::uint8_t>(table - kTables.begin())};
  if (table->entry_name != nullptr) {
    const EntriesByName& names = EntryNames()[at.table];
    const auto found = names.find(LowerCase(TakePart(path)));
    if (found == names.end()) return {};
    at.entry = found->second;
  }
  for (const Field& field : table->fields) {
    if (EqualsIgnoringCase(field.id, path)) return at;
    ++at.field;
  }
  return {};
}

FieldRef RefOf(const RadioData& data, const void* record, const char* member) {
  FieldRef at;
  for (const Table& table : kTables) {
    at.field = 0;
    for (const Field& field : table.fields) {
      if (field.member == member) {
        for (at.entry = 0; at.entry < table.count; ++at.entry) {
          if (table.record(data, at.entry) == record) return at;
        }
      }
      ++at.field;
    }
    ++at.table;
  }
  return {};
}

std::string NameOf(FieldRef at) {
  const Table& table = TableOf(at);
  std::string name(table.label);
  if (table.entry_name != nullptr) name += " " + table.entry_name(at.entry);
  return name + " " + std::string(FieldOf(at).label);
}

Value Get(const RadioData& data, FieldRef at) {
  return FieldOf(at).get(TableOf(at).record(data, at.entry));
}

void Set(RadioData& data, FieldRef at, const Value& value) {
  FieldOf(at).set(TableOf(at).record_to_write(data, at.entry), value);
}

std::string RefusalOf(const ModelProfile& profile, FieldRef at, const Value& value) {
  const Field& field = FieldOf(at);
  const auto* const number = std::get_if<std::int32_t>(&value);
  if (number != nullptr && (*number < field.limits.lowest || *number > field.limits.highest)) {
    const std::string lowest = field.notation->show(field.limits.lowest);
    return "It goes from " + lowest + " to " + field.notation->show(field.limits.highest) + ".";
  }
  return field.refusal != nullptr ? field.refusal(profile, value) : std::string();
}

std::vector<Change> Differences(const RadioData& before, const RadioData& after) {
  std::vector<Change> changes;
  FieldRef at;
  for (const Table& table : kTables) {
    for (int entry = 0; entry < table.count; ++entry) {
      at.entry = static_cast<std::uint16_t>(entry);
      AddDifferences(before, after, at, changes);
    }
    ++at.table;
  }
  return changes;
}

void Apply(RadioData& data, std::span<const Change> changes) {
  for (const Change& change : changes) Set(data, change.at, change.after);
}

void Revert(RadioData& data, std::span<const Change> changes) {
  std::for_each(changes.rbegin(), changes.rend(),
                [&](const Change& change) { Set(data, change.at, change.before); });
}

}  // namespace orvane::core
