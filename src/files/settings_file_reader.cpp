#include <cstddef>
#include <utility>

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/number_text.h"
#include "core/product.h"
#include "files/byte_order_mark.h"
#include "files/settings_file.h"
#include "files/settings_file_keys.h"
#include "files/settings_file_table.h"
#include "files/settings_file_values.h"
#include "image/codec.h"
#include "image/raw_areas.h"

namespace orvane::files {
namespace {

/// Fills the records of one data set from a parsed file.
class SettingReader {
 public:
  SettingReader(const SettingTable& table, core::RadioData& data, core::EventPump& pump)
      : table_(table), data_(data), profile_(core::ProfileOf(data)), pump_(pump) {}

  void Run() {
    ReadUsableGroups();
    const SectionView common = table_.Find(kCommonSection);
    for (const auto& row : kCommonRows) ReadRow(common, row.key, row, data_.Common);
    const SectionView atis = table_.Find(kAtisSection);
    for (const auto& row : kAtisRows) ReadRow(atis, row.key, row, data_.Atis);
    for (std::size_t group = 0; group < kMarineSections.size(); ++group) {
      ReadMarineTable(kMarineSections[group], data_.Marine[group]);
    }
    for (std::size_t i = 0; i < data_.WX.size(); ++i) {
      ReadChannel(table_.Find(Numbered(kWxSection, static_cast<int>(i))), data_.WX[i],
                  core::TableKind::kWeather);
    }
    ReadDirectory(kStationSection, data_.Stations);
    ReadDirectory(kStationGroupSection, data_.StationGroups);
    ReadExtraTable();
    ReadPriSetCh();
  }

 private:
  static void ReadEntry(const SectionView& section, std::string_view key, Form form,
                        GroupFlags& flags) {
    for (int group = 0; group < core::kUsableGroups; ++group) {
      StoreValue(section.Value(Numbered(key, group)), form, flags[static_cast<std::size_t>(group)]);
    }
  }
  template <class Value>
  static void ReadEntry(const SectionView& section, std::string_view key, Form form, Value& field) {
    StoreValue(section.Value(key), form, field);
  }

  template <class Record>
  void ReadRow(const SectionView& section, std::string_view key, const KeyRow<Record>& row,
               Record& record, core::TableKind table = core::TableKind::kOnce) {
    if (!row.read.In(profile_, table)) return;
    std::visit([&](auto member) { ReadEntry(section, key, row.form, record.*member); }, row.member);
  }

  void ReadUsableGroups() {
    const SectionView section = table_.Find(kUsableSection);
    for (std::size_t group = 0; group < kGroupKeys.size(); ++group) {
      StoreValue(section.Value(kGroupKeys[group]), Form::kPlain, data_.Usable[group].Enable);
    }
    ReadForGroups(section, kTimeOutRow);
    for (int group = 0; group < image::kStoredChannelGroups; ++group) ReadPriority(section, group);
    ReadForGroups(section, kStatusIconRow);
    ReadForGroups(section, kStatusNameRow);
  }

  void ReadForGroups(const SectionView& section, const KeyRow<core::UsableGroup>& row) {
    for (int group = 0; group < core::kUsableGroups; ++group) {
      ReadRow(section, SpacedNumber(row.key, group), row,
              data_.Usable[static_cast<std::size_t>(group)]);
    }
  }

  void ReadPriority(const SectionView& section, int group) {
    core::UsableGroup& usable = data_.Usable[static_cast<std::size_t>(group)];
    const std::string key = SpacedNumber(kPriorityRow.key, group);
    ReadRow(section, key, kPriorityRow, usable);
    for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
      const std::optional<std::int16_t> channel = core::ParseInt16(
          section.Value(SpacedNumber(key + std::string(kStoredChannelSuffix), slot + 1)));
      image::SetStoredChannel(data_.Image, group, slot,
                              channel && *channel >= 0 ? static_cast<std::uint16_t>(*channel)
                                                       : image::kEmptyStoredChannel);
    }
    ReadRow(section, key + std::string(kBackupRow.key), kBackupRow, usable);
  }

  void ReadChannel(const SectionView& section, core::ChannelRecord& channel,
                   core::TableKind table) {
    for (const auto& row : kChannelRows) ReadRow(section, row.key, row, channel, table);
  }

  /// The sections are numbered without a gap; which entry one fills is said by its position.
  void ReadMarineTable(std::string_view prefix, core::MarineTable& table) {
    for (int number = 0;; ++number) {
      const SectionView section = table_.Find(Numbered(prefix, number));
      const std::string_view position_text = section.Value(kPositionKey);
      if (position_text.empty()) return;
      const std::optional<std::int16_t> position = core::ParseInt16(position_text);
      if (position && *position >= 0 && *position < core::kMarineChannels) {
        core::ChannelRecord& channel = table[static_cast<std::size_t>(*position)];
        ReadChannel(section, channel, core::TableKind::kMarine);
        channel.Duplex = channel.Duplex && channel.DuplexAllowed;
      }
      pump_.ProcessEvents();
    }
  }

  template <class Directory>
  void ReadDirectory(std::string_view prefix, Directory& directory) {
    for (int number = Directory::kFirst; number <= Directory::kLast; ++number) {
      const SectionView section = table_.Find(Numbered(prefix, number));
      for (const auto& row : kDirectoryRows) ReadRow(section, row.key, row, directory[number]);
    }
  }

  /// A group is in use when the file says so and at least one of its channels is enabled.
  void ReadExtraTable() {
    core::Flag in_use;
    StoreValue(table_.Find(kUsableSection).Value(kExtraGroupKey), Form::kPlain, in_use);
    bool any_lmr = false;
    bool any_exp = false;
    for (int number = 1; number <= core::kExtraChannels; ++number) {
      core::ChannelRecord& channel = data_.EXP[number];
      ReadChannel(table_.Find(Numbered(kExtraSection, number)), channel, core::TableKind::kExtra);
      if (channel.Enable) (channel.IsLmr() ? any_lmr : any_exp) = true;
    }
    data_.LmrPresent() = in_use && any_lmr;
    data_.ExpPresent = in_use && any_exp;
  }

  void ReadPriSetCh() {
    const SectionView section = table_.Find(kPriSetChSection);
    for (int k = 0; k < image::kPriSetChLength; ++k) {
      StoreHexByte(section.Value(Numbered(kPriSetChKey, k)),
                   data_.Image[image::kPriSetChOffset + k]);
    }
  }

  const SettingTable& table_;
  core::RadioData& data_;
  const core::ModelProfile& profile_;
  core::EventPump& pump_;
};

/// A destination bit: "0" and "1" stand for themselves, everything else for the default.
bool IsSelected(std::string_view text, std::string_view key, bool by_default) {
  const std::string value = ReadMainValue(text, kMainSection, key);
  return value == "1" || (value != "0" && by_default);
}

void Refuse(core::RunState& state, core::Prompts& prompts, const core::MessageCase& refusal) {
  state.Error = true;
  prompts.Show(core::MakeMessage(refusal.id, core::kProgramTitle, refusal.facts));
}

bool IsOfModel(std::string_view text, const core::RadioData& data) {
  return SettingFileModel(text) == static_cast<double>(data.MODELTYPE);
}

}  // namespace

std::optional<double> SettingFileModel(std::string_view text) {
  const std::optional<std::string> unmarked = WithoutByteOrderMark(text);
  if (unmarked) text = *unmarked;
  return core::ParseNumber(ReadMainValue(text, kMainSection, kModelTypeKey));
}

bool ApplySettingText(core::RadioData& data, std::string_view text, core::EventPump& pump) {
  const std::optional<std::string> unmarked = WithoutByteOrderMark(text);
  if (unmarked) text = *unmarked;
  if (!IsOfModel(text, data)) return false;
  core::RadioData fresh = data;
  const SettingTable table = ParseSettingFile(text);
  SettingReader(table, fresh, pump).Run();
  image::SetDestinationBits(fresh.Image, IsSelected(text, kSel1Key, true),
                            IsSelected(text, kSel2Key, false));
  image::CopyPlanSelection(fresh);
  data = std::move(fresh);
  return true;
}

void ReadSettingFile(core::RadioData& data, core::RunState& state, const std::string& path,
                     core::FileStore& store, core::Prompts& prompts, core::EventPump& pump) {
  state.Error = false;
  const core::BusyScope busy(state);
  const core::FileBytes first = store.ReadFile(path);
  if (first.error || !IsOfModel(first.bytes, data)) {
    const core::MessageCase unreadable{
        core::MessageId::kUnreadableSettings,
        core::FileFacts(path, first.error.value_or(core::SystemError{}))};
    Refuse(state, prompts,
           first.error
               ? unreadable
               : core::OtherModelOfSettings(SettingFileModel(first.bytes), core::ProfileOf(data)));
    return;
  }
  // Files live on sticks and shares that go away or change: what is loaded is read anew, after the
  // check, and must still be the same.
  const core::FileBytes file = store.ReadFile(path);
  if (file.error) {
    Refuse(state, prompts, {core::MessageId::kFileRead, core::FileFacts(path, *file.error)});
  } else if (!ApplySettingText(data, file.bytes, pump)) {
    Refuse(state, prompts, {core::MessageId::kFileChanged, {}});
  }
}

}  // namespace orvane::files
