#include <cstddef>
#include <utility>

#include "core/model_profile.h"
#include "files/settings_file.h"
#include "files/settings_file_keys.h"
#include "files/settings_file_values.h"
#include "image/codec.h"
#include "image/raw_areas.h"

namespace orvane::files {
namespace {

constexpr std::size_t kUsualLength = 160'000;  ///< bytes; a file of the largest model
constexpr std::size_t kChannelsPerYield = 30;

class SettingWriter {
 public:
  SettingWriter(const core::RadioData& data, core::EventPump& pump)
      : data_(data), profile_(core::ProfileOf(data)), pump_(pump) {
    text_.reserve(kUsualLength);
  }

  std::string Run() {
    WriteMain();
    WriteUsableGroups();
    Section(kCommonSection);
    for (const auto& row : kCommonRows) WriteRow(row.key, row, data_.Common);
    Section(kAtisSection);
    for (const auto& row : kAtisRows) WriteRow(row.key, row, data_.Atis);
    for (std::size_t group = 0; group < kMarineSections.size(); ++group) WriteMarineTable(group);
    WriteWxTable();
    WriteExtraTable();
    WritePriSetCh();
    return std::move(text_);
  }

 private:
  void Section(std::string_view name) { text_.append("[").append(name).append("]\r\n"); }

  void Entry(std::string_view key, std::string_view value) {
    text_.append(key).append("=").append(value).append("\r\n");
  }

  void EntryOf(std::string_view key, const GroupFlags& flags, Form form) {
    for (int group = 0; group < core::kUsableGroups; ++group) {
      Entry(Numbered(key, group), ValueText(flags[static_cast<std::size_t>(group)], form));
    }
  }
  template <class Value>
  void EntryOf(std::string_view key, const Value& value, Form form) {
    Entry(key, ValueText(value, form));
  }

  template <class Record>
  void WriteRow(std::string_view key, const KeyRow<Record>& row, const Record& record,
                core::TableKind table = core::TableKind::kOnce) {
    if (!row.written.In(profile_, table)) return;
    std::visit([&](auto member) { EntryOf(key, record.*member, row.form); }, row.member);
  }

  void WriteMain() {
    Section(kMainSection);
    Entry(kModelNameKey, ValueText(image::ModelName(data_), Form::kMarked));
    Entry(kTypeKey, ValueText(std::string(kTypeValue), Form::kMarked));
    Entry(kVersionKey, ValueText(std::string(kVersionValue), Form::kMarked));
    Entry(kModelTypeKey, ValueText(data_.MODELTYPE, Form::kPlain));
    Entry(kSel1Key, ValueText(core::Flag(image::Sel1(data_.Image)), Form::kPlain));
    Entry(kSel2Key, ValueText(core::Flag(image::Sel2(data_.Image)), Form::kPlain));
  }

  void WriteUsableGroups() {
    Section(kUsableSection);
    for (std::size_t group = 0; group < kGroupKeys.size(); ++group) {
      Entry(kGroupKeys[group], ValueText(data_.Usable[group].Enable, Form::kPlain));
    }
    Entry(kExtraGroupKey,
          ValueText(core::Flag(data_.LmrPresent() || data_.ExpPresent), Form::kPlain));
    WriteForGroups(kTimeOutRow);
    for (int group = 0; group < image::kStoredChannelGroups; ++group) WritePriority(group);
    WriteForGroups(kStatusIconRow);
    WriteForGroups(kStatusNameRow);
  }

  void WriteForGroups(const KeyRow<core::UsableGroup>& row) {
    for (int group = 0; group < core::kUsableGroups; ++group) {
      WriteRow(SpacedNumber(row.key, group), row, data_.Usable[static_cast<std::size_t>(group)]);
    }
  }

  void WritePriority(int group) {
    const core::UsableGroup& usable = data_.Usable[static_cast<std::size_t>(group)];
    const std::string key = SpacedNumber(kPriorityRow.key, group);
    WriteRow(key, kPriorityRow, usable);
    int place = 0;
    for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
      const int channel = image::StoredChannel(data_.Image, group, slot);
      if (channel >= core::kChannelIndexEnd) continue;
      ++place;
      Entry(SpacedNumber(key + std::string(kStoredChannelSuffix), place), std::to_string(channel));
    }
    WriteRow(key + std::string(kBackupRow.key), kBackupRow, usable);
  }

  void WriteMarineTable(std::size_t group) {
    const core::MarineTable& table = data_.Marine[group];
    for (std::size_t i = 0; i < table.size(); ++i) {
      if (i % kChannelsPerYield == 0) pump_.ProcessEvents();
      Section(Numbered(kMarineSections[group], static_cast<int>(i)));
      WriteChannel(table[i], core::TableKind::kMarine);
    }
  }

  void WriteWxTable() {
    for (std::size_t i = 0; i < data_.WX.size(); ++i) {
      Section(Numbered(kWxSection, static_cast<int>(i)));
      WriteChannel(data_.WX[i], core::TableKind::kWeather);
    }
  }

  /// A channel of a group that is not in use is written as not enabled.
  void WriteExtraTable() {
    for (int number = 1; number <= core::kExtraChannels; ++number) {
      Section(Numbered(kExtraSection, number));
      core::ChannelRecord channel = data_.EXP[number];
      channel.Enable = channel.Enable && ((channel.IsLmr() && data_.LmrPresent()) ||  //
                                          (channel.IsExp() && data_.ExpPresent));
      WriteChannel(channel, core::TableKind::kExtra, !channel.IsLmr() && !channel.IsExp());
    }
  }

  void WriteChannel(const core::ChannelRecord& channel, core::TableKind table,
                    bool without_enable = false) {
    for (const auto& row : kChannelRows) {
      if (without_enable && row.key == kEnableKey) continue;
      WriteRow(row.key, row, channel, table);
    }
  }

  void WritePriSetCh() {
    Section(kPriSetChSection);
    for (int k = 0; k < image::kPriSetChLength; ++k) {
      Entry(Numbered(kPriSetChKey, k), HexByteText(data_.Image[image::kPriSetChOffset + k]));
    }
  }

  const core::RadioData& data_;
  const core::ModelProfile& profile_;
  core::EventPump& pump_;
  std::string text_;
};

}  // namespace

std::string SettingFileText(const core::RadioData& data, core::EventPump& pump) {
  return SettingWriter(data, pump).Run();
}

std::string SettingFileText(const core::RadioData& data) {
  core::NoEvents pump;
  return SettingFileText(data, pump);
}

std::optional<core::SystemError> WriteSettingFile(const core::RadioData& data,
                                                  const std::string& path, core::FileStore& store,
                                                  core::EventPump& pump) {
  return store.WriteFile(path, SettingFileText(data, pump));
}

}  // namespace orvane::files
