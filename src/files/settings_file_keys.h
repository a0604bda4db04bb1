#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "core/model_profile.h"
#include "core/radio_data.h"

/// The keys of the settings file. The rows drive the writer and the reader alike; section names
/// and key texts stand nowhere else. Slips in the texts ("DispayA", "Kikker", "Weater") are the
/// file format's.
namespace orvane::files {

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

/// Which models a key is kept for.
enum class Kept {
  kNever,
  kAlways,
  kNames,  ///< models with channel names
  kTones,  ///< models with tones
  kKiller  ///< written for models with call signs, read for all models with DSC
};
[[nodiscard]] constexpr bool IsWritten(Kept kept, const core::ModelProfile& profile) {
  switch (kept) {
    case Kept::kNever:
      return false;
    case Kept::kAlways:
      return true;
    case Kept::kNames:
      return profile.has_channel_names;
    case Kept::kTones:
      return profile.HasTones();
    case Kept::kKiller:
      return profile.has_call_signs;
  }
  return false;
}
[[nodiscard]] constexpr bool IsRead(Kept kept, const core::ModelProfile& profile) {
  return kept == Kept::kKiller ? profile.has_dsc : IsWritten(kept, profile);
}

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
  Kept kept = Kept::kAlways;
};

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
inline constexpr KeyRow<core::UsableGroup> kTimeOutRow{"TX TOT", &core::UsableGroup::TX_TOT};
inline constexpr KeyRow<core::UsableGroup> kPriorityRow{
    "Priority CH", &core::UsableGroup::Priority_CH, Form::kAbsoluteOrNone};
/// Stands behind the priority channel's key, before a blank and the place in the stored
/// list, 1..10.
inline constexpr std::string_view kStoredChannelSuffix = "-Cmb";
/// Stands behind the priority channel's key.
inline constexpr KeyRow<core::UsableGroup> kBackupRow{"Backup", &core::UsableGroup::Backup,
                                                      Form::kAbsolute};
inline constexpr KeyRow<core::UsableGroup> kStatusIconRow{"Status Icon",
                                                          &core::UsableGroup::Status_Icon};
inline constexpr KeyRow<core::UsableGroup> kStatusNameRow{
    "Status name", &core::UsableGroup::Status_name, Form::kPlain, Kept::kNames};

inline constexpr std::string_view kCommonSection = "Common Setup";
inline constexpr KeyRow<core::CommonSettings> kCommonRows[] = {
    {"TX Po Display", &core::CommonSettings::TX_Po_Display, Form::kAbsolute},
    {"Last TX Power", &core::CommonSettings::Last_TX_Power, Form::kAbsolute},
    {"Last CH Group", &core::CommonSettings::Last_CH_Group, Form::kAbsolute},
    {"SQL", &core::CommonSettings::SQL, Form::kAbsolute},
    {"Last Display CH", &core::CommonSettings::Last_Display_CH, Form::kShortOrNone},
    {"Marine_LMR CH", &core::CommonSettings::Marine_LMR_CH, Form::kShortOrNone},
    {"SCAN", &core::CommonSettings::SCAN},
    {"Resume Time", &core::CommonSettings::Resume_Time},
    {"PTT SCAN Clear", &core::CommonSettings::PTT_SCAN_Clear},
    {"Dual Watch", &core::CommonSettings::Dual_Watch},
    {"Offset Time", &core::CommonSettings::Offset_Time},
    {"Magnetic Variation", &core::CommonSettings::Magnetic_Variation, Form::kAbsolute},
    {"Weater", &core::CommonSettings::Weater, Form::kAbsolute},
};

inline constexpr std::string_view kAtisSection = "ATIS Setup (Common)";
inline constexpr KeyRow<core::AtisSettings> kAtisRows[] = {
    {"Usable ATIS CH Group", &core::AtisSettings::UsableGroup},
    {"Atis Code", &core::AtisSettings::Code, Form::kMarked},
    {"Usable ATIS Kikker CH Group", &core::AtisSettings::KillerGroup, Form::kPlain, Kept::kKiller},
};

// One section per channel: these texts and the channel's number.
inline constexpr std::array<std::string_view, 3> kMarineSections = {"CHUSA", "CHINT", "CHCAN"};
inline constexpr std::string_view kWxSection = "CHWX";
inline constexpr std::string_view kExtraSection = "CHEXP";
inline constexpr std::string_view kEnableKey = "Enable";
inline constexpr std::string_view kPositionKey = "Position";

/// The channel tables that keep a field.
struct Tables {
  Kept marine = Kept::kNever;
  Kept wx = Kept::kNever;
  Kept extra = Kept::kNever;
};
inline constexpr Tables kEveryTable{Kept::kAlways, Kept::kAlways, Kept::kAlways};
inline constexpr Tables kMarine{Kept::kAlways, Kept::kNever, Kept::kNever};
inline constexpr Tables kMarineExtra{Kept::kAlways, Kept::kNever, Kept::kAlways};
inline constexpr Tables kExtra{Kept::kNever, Kept::kNever, Kept::kAlways};
inline constexpr Tables kExtraTones{Kept::kNever, Kept::kNever, Kept::kTones};

struct ChannelKeyRow {
  KeyRow<core::ChannelRecord> field;
  Tables tables;
};

/// One order of keys serves all tables.
inline constexpr ChannelKeyRow kChannelRows[] = {
    {{kPositionKey, &core::ChannelRecord::Position}, kMarine},
    {{kEnableKey, &core::ChannelRecord::Enable}, kEveryTable},
    {{"LMR EXP", &core::ChannelRecord::LMR_EXP, Form::kTruth}, kExtra},
    {{"CHDisplayL", &core::ChannelRecord::CHDisplayL}, kExtra},
    {{"CHDisplayR", &core::ChannelRecord::CHDisplayR}, kExtra},
    {{"Rxfreq", &core::ChannelRecord::Rxfreq}, kExtra},
    {{"Txfreq", &core::ChannelRecord::Txfreq}, kExtra},
    {{"LowPower", &core::ChannelRecord::LowPower}, kMarineExtra},
    {{"TXPower", &core::ChannelRecord::TXPower}, kMarineExtra},
    {{"PowUp", &core::ChannelRecord::PowUp}, kMarineExtra},
    {{"Duplex", &core::ChannelRecord::Duplex}, kMarine},
    {{"TxEnable", &core::ChannelRecord::TxEnable}, kMarine},
    {{"DispayA", &core::ChannelRecord::DispayA}, kMarine},
    {{"ScanMemory", &core::ChannelRecord::ScanMemory}, kEveryTable},
    {{"ClockShift", &core::ChannelRecord::ClockShift}, kExtra},
    {{"USA Group", &core::ChannelRecord::USA_Group, Form::kInverted}, kExtra},
    {{"INT Group", &core::ChannelRecord::INT_Group, Form::kInverted}, kExtra},
    {{"CAN Group", &core::ChannelRecord::CAN_Group, Form::kInverted}, kExtra},
    {{"Scramble", &core::ChannelRecord::Scramble}, {Kept::kNames, Kept::kNever, Kept::kTones}},
    {{"ChTag", &core::ChannelRecord::ChTag, Form::kMarked},
     {Kept::kNames, Kept::kNames, Kept::kTones}},
    {{"Narrow", &core::ChannelRecord::Narrow}, kExtraTones},
    {{"TxDCS", &core::ChannelRecord::TxDCS}, kExtraTones},
    {{"RxDCS", &core::ChannelRecord::RxDCS}, kExtraTones},
    {{"RxComp", &core::ChannelRecord::RxComp}, kExtraTones},
    {{"TxCTCSS", &core::ChannelRecord::TxCTCSS}, kExtraTones},
    {{"RxCTCSS", &core::ChannelRecord::RxCTCSS}, kExtraTones},
};

// The directories are looked for, but never written.
inline constexpr std::string_view kStationSection = "CHMMSID";
inline constexpr std::string_view kStationGroupSection = "CHGRPID";
inline constexpr KeyRow<core::DirectoryEntry> kDirectoryRows[] = {
    {kEnableKey, &core::DirectoryEntry::Enable},
    {"TagName", &core::DirectoryEntry::TagName},
    {"Mmsid", &core::DirectoryEntry::Mmsid},
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
