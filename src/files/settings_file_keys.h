#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

#include "core/catalogue_fields.h"
#include "core/radio_data.h"

/// The keys of the settings file. The rows drive the writer and the reader alike; section names
/// and key texts stand nowhere else, those of the fields in the catalogue. Slips in the texts
/// ("DispayA", "Kikker", "Weater") are the file format's.
namespace orvane::files {

using core::AtisSettings;
using core::ChannelRecord;
using core::CommonSettings;
using core::DirectoryEntry;
using core::UsableGroup;

/// How a value is written, where the member's type does not say it already.
enum class Form {
  kPlain,           ///< numbers signed, texts as they are
  kMarked,          ///< text behind a "#", which keeps its leading blanks
  kAbsolute,        ///< number without its sign
  kAbsoluteOrNone,  ///< as kAbsolute, but -1 (no channel) stays -1
  kShortOrNone,     ///< as kAbsoluteOrNone, after conversion to 16 bits
  kTruth,           ///< number that is -1 or 0, kept as a flag
  kInverted         ///< flag: "0" when set; read as set from "0" only
};

/// Four flags under one key, each with its number 0..3 behind it.
using GroupFlags = std::array<core::Flag, core::kUsableGroups>;

template <class Record>
using Member = std::variant<core::Flag Record::*, std::int16_t Record::*, std::int32_t Record::*,
                            std::uint8_t Record::*, double Record::*, std::string Record::*,
                            GroupFlags Record::*>;

template <class Record>
struct KeyRow {
  std::string_view key;
  Member<Record> member;
  Form form = Form::kPlain;
  core::Presence written{};
  core::Presence read{};

  /// For what the file keeps of other models or tables than the catalogue says.
  [[nodiscard]] constexpr KeyRow Kept(core::Presence presence) const {
    KeyRow row = *this;
    row.written = row.read = presence;
    return row;
  }
  [[nodiscard]] constexpr KeyRow ReadBy(core::Presence presence) const {
    KeyRow row = *this;
    row.read = presence;
    return row;
  }
};

/// A member under a key of the file's own, kept where the catalogue has it.
template <auto kMember>
constexpr auto Key(std::string_view key, Form form = Form::kPlain) {
  using Record = decltype(core::catalogue::RecordOf(kMember));
  if constexpr (std::is_same_v<decltype(kMember), GroupFlags Record::*>) {
    constexpr core::Presence kPresence = core::kFieldAt<kMember, 0>.presence;
    return KeyRow<Record>{key, kMember, form, kPresence, kPresence};
  } else {
    constexpr core::Presence kPresence = core::kFieldAt<kMember>.presence;
    return KeyRow<Record>{key, kMember, form, kPresence, kPresence};
  }
}
/// Under the member's own name.
template <auto kMember>
constexpr auto Key(Form form = Form::kPlain) {
  return Key<kMember>(core::kFieldAt<kMember>.name, form);
}

inline constexpr core::Presence kEverywhere{};
inline constexpr core::Presence kExtraWithTones{core::When::kTones, core::Tables::kExtra};

inline constexpr std::string_view kMainSection = "MAIN";
inline constexpr std::string_view kModelNameKey = "MODEL";
inline constexpr std::string_view kTypeKey = "TYPE";
inline constexpr std::string_view kTypeValue = "KIV";
inline constexpr std::string_view kVersionKey = "VERSION";
inline constexpr std::string_view kVersionValue = "2.00";
inline constexpr std::string_view kModelTypeKey = "MODELTYPE";
inline constexpr std::string_view kSel1Key = "SEL1";
inline constexpr std::string_view kSel2Key = "SEL2";

inline constexpr std::string_view kUsableSection = "Usable CH Group Setup";
/// Availability of the marine groups.
inline constexpr std::array<std::string_view, 3> kGroupKeys = {"USA", "INTL", "Canada"};
/// Availability of the EXP and LMR channels together.
inline constexpr std::string_view kExtraGroupKey = "EXP CH";
// The keys of the usable groups carry a blank and the group's number.
inline constexpr auto kTimeOutRow = Key<&UsableGroup::TX_TOT>();
inline constexpr auto kPriorityRow = Key<&UsableGroup::Priority_CH>(Form::kAbsoluteOrNone);
/// Stands behind the priority channel's key, before a blank and the place in the stored
/// list, 1..10.
inline constexpr std::string_view kStoredChannelSuffix = "-Cmb";
/// Stands behind the priority channel's key.
inline constexpr auto kBackupRow = Key<&UsableGroup::Backup>(Form::kAbsolute);
inline constexpr auto kStatusIconRow = Key<&UsableGroup::Status_Icon>();
inline constexpr auto kStatusNameRow = Key<&UsableGroup::Status_name>();

inline constexpr std::string_view kCommonSection = "Common Setup";
inline constexpr KeyRow<CommonSettings> kCommonRows[] = {
    Key<&CommonSettings::TX_Po_Display>(Form::kAbsolute),
    Key<&CommonSettings::Last_TX_Power>(Form::kAbsolute),
    Key<&CommonSettings::Last_CH_Group>(Form::kAbsolute),
    Key<&CommonSettings::SQL>(Form::kAbsolute),
    Key<&CommonSettings::Last_Display_CH>(Form::kShortOrNone),
    Key<&CommonSettings::Marine_LMR_CH>(Form::kShortOrNone),
    Key<&CommonSettings::SCAN>(),
    Key<&CommonSettings::Resume_Time>(),
    Key<&CommonSettings::PTT_SCAN_Clear>(),
    Key<&CommonSettings::Dual_Watch>(),
    Key<&CommonSettings::Offset_Time>().Kept(kEverywhere),
    Key<&CommonSettings::Magnetic_Variation>(Form::kAbsolute).Kept(kEverywhere),
    Key<&CommonSettings::Weater>(Form::kAbsolute),
};

inline constexpr std::string_view kAtisSection = "ATIS Setup (Common)";
inline constexpr KeyRow<AtisSettings> kAtisRows[] = {
    Key<&AtisSettings::UsableGroup>("Usable ATIS CH Group"),
    Key<&AtisSettings::Code>("Atis Code", Form::kMarked),
    Key<&AtisSettings::KillerGroup>("Usable ATIS Kikker CH Group")
        .ReadBy({.when = core::When::kDsc}),
};

// One section per channel: these texts and the channel's number.
inline constexpr std::array<std::string_view, 3> kMarineSections = {"CHUSA", "CHINT", "CHCAN"};
inline constexpr std::string_view kWxSection = "CHWX";
inline constexpr std::string_view kExtraSection = "CHEXP";
inline constexpr std::string_view kEnableKey = core::kFieldAt<&ChannelRecord::Enable>.name;
inline constexpr std::string_view kPositionKey = core::kFieldAt<&ChannelRecord::Position>.name;

/// One order of keys serves all tables.
inline constexpr KeyRow<ChannelRecord> kChannelRows[] = {
    Key<&ChannelRecord::Position>().Kept(core::catalogue::kInMarine),
    Key<&ChannelRecord::Enable>(),
    Key<&ChannelRecord::LMR_EXP>(Form::kTruth),
    Key<&ChannelRecord::CHDisplayL>(),
    Key<&ChannelRecord::CHDisplayR>(),
    Key<&ChannelRecord::Rxfreq>(),
    Key<&ChannelRecord::Txfreq>(),
    Key<&ChannelRecord::LowPower>(),
    Key<&ChannelRecord::TXPower>(),
    Key<&ChannelRecord::PowUp>(),
    Key<&ChannelRecord::Duplex>(),
    Key<&ChannelRecord::TxEnable>().Kept(core::catalogue::kInMarine),
    Key<&ChannelRecord::DispayA>(),
    Key<&ChannelRecord::ScanMemory>(),
    Key<&ChannelRecord::ClockShift>(),
    Key<&ChannelRecord::USA_Group>(Form::kInverted),
    Key<&ChannelRecord::INT_Group>(Form::kInverted),
    Key<&ChannelRecord::CAN_Group>(Form::kInverted),
    Key<&ChannelRecord::Scramble>().Kept({core::When::kNames, core::Tables::kMarine}),
    Key<&ChannelRecord::Scramble>().Kept(kExtraWithTones),
    Key<&ChannelRecord::ChTag>(Form::kMarked)
        .Kept({core::When::kNames, core::Tables::kMarineAndWeather}),
    Key<&ChannelRecord::ChTag>(Form::kMarked).Kept(kExtraWithTones),
    Key<&ChannelRecord::Narrow>().Kept(kExtraWithTones),
    Key<&ChannelRecord::TxDCS>().Kept(kExtraWithTones),
    Key<&ChannelRecord::RxDCS>().Kept(kExtraWithTones),
    Key<&ChannelRecord::RxComp>().Kept(kExtraWithTones),
    Key<&ChannelRecord::TxCTCSS>().Kept(kExtraWithTones),
    Key<&ChannelRecord::RxCTCSS>().Kept(kExtraWithTones),
};

// The directories are looked for, but never written.
inline constexpr std::string_view kStationSection = "CHMMSID";
inline constexpr std::string_view kStationGroupSection = "CHGRPID";
inline constexpr KeyRow<DirectoryEntry> kDirectoryRows[] = {
    Key<&DirectoryEntry::Enable>(),
    Key<&DirectoryEntry::TagName>(),
    Key<&DirectoryEntry::Mmsid>(),
};

inline constexpr std::string_view kPriSetChSection = "PRISETCH";
inline constexpr std::string_view kPriSetChKey = "A";  ///< and the byte's number, 0..7
inline constexpr std::string_view kHexPrefix = "&H";

/// A key or section with its number, without and with a blank between them.
[[nodiscard]] inline std::string Numbered(std::string_view text, int number) {
  return std::string(text) + std::to_string(number);
}
[[nodiscard]] inline std::string SpacedNumber(std::string_view text, int number) {
  return std::string(text) + " " + std::to_string(number);
}

}  // namespace orvane::files
