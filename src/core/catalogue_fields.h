#pragma once

#include <array>
#include <cstddef>
#include <initializer_list>
#include <string_view>
#include <type_traits>

#include "core/catalogue_row.h"
#include "core/field_rules.h"
#include "core/tones.h"

/// The rows of the catalogue, by record.
namespace orvane::core {

namespace catalogue {

template <class Record>
inline constexpr Rows<> kRowsOf{};

inline constexpr Presence kInMarine{.tables = Tables::kMarine};
inline constexpr Presence kInExtra{.tables = Tables::kExtra};
inline constexpr Presence kTransmitting{.tables = Tables::kTransmitting};
inline constexpr Presence kNamed{.when = When::kNames};
inline constexpr Presence kNamedTransmitting{.when = When::kNames, .tables = Tables::kTransmitting};
inline constexpr Presence kWithDsc{.when = When::kDsc};
inline constexpr Presence kWithCallSigns{.when = When::kAtisCallSigns};

template <auto... kPath>
constexpr auto Channel(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<ChannelRecord, kPath...>(id, label, more);
}

constexpr Limits kPowerCodes{0, 3};
constexpr Limits kByte{0, 255};
constexpr Limits kCtcssIndexes{0, kLastCtcss};
constexpr Limits kDcsIndexes{0, 2 * kLastDcs};

template <>
inline constexpr auto kRowsOf<ChannelRecord> = Rows{
    Channel<&ChannelRecord::Enable>("enable", "CH Enable", {.name = "Enable"}),
    Channel<&ChannelRecord::ChTag>(
        "name", "CH Name", {.name = "ChTag", .refusal = &ChannelNameRefusal, .presence = kNamed}),
    Channel<&ChannelRecord::Rxfreq>(
        "rx_frequency", "Rx Frequency",
        {.name = "Rxfreq", .refusal = &FrequencyRefusal, .presence = kInExtra}),
    Channel<&ChannelRecord::Txfreq>(
        "tx_frequency", "Tx Frequency",
        {.name = "Txfreq", .refusal = &FrequencyRefusal, .presence = kInExtra}),
    Channel<&ChannelRecord::TxEnable>("tx_enable", "Tx Enable",
                                      {.name = "TxEnable", .presence = kTransmitting}),
    Channel<&ChannelRecord::TXPower>(
        "tx_power", "Power Code",
        {.name = "TXPower", .limits = kPowerCodes, .presence = kTransmitting}),
    Channel<&ChannelRecord::LowPower>("low_power", "Low Power Only",
                                      {.name = "LowPower", .presence = kTransmitting}),
    Channel<&ChannelRecord::PowUp>("power_up", "Power Up",
                                   {.name = "PowUp", .presence = kTransmitting}),
    Channel<&ChannelRecord::Duplex>("duplex", "Duplex", {.presence = kInMarine}),
    Channel<&ChannelRecord::DuplexAllowed>("duplex_allowed", "Duplex Allowed",
                                           {.presence = kInMarine, .derived = true}),
    Channel<&ChannelRecord::RxOnly>("rx_only", "Receive Only",
                                    {.presence = kInMarine, .derived = true}),
    Channel<&ChannelRecord::ScanMemory>("scan_memory", "Scan Memory", {.name = "ScanMemory"}),
    Channel<&ChannelRecord::Scramble>("scramble", "Scrambler",
                                      {.name = "Scramble",
                                       .notation = &notation::kScrambler,
                                       .limits = {0, 7},
                                       .presence = kNamedTransmitting}),
    Channel<&ChannelRecord::Narrow>("narrow", "Narrow", {.presence = kInExtra}),
    Channel<&ChannelRecord::RxCTCSS>("rx_ctcss", "RX CTCSS",
                                     {.name = "RxCTCSS",
                                      .notation = &notation::kCtcss,
                                      .limits = kCtcssIndexes,
                                      .presence = kInExtra}),
    Channel<&ChannelRecord::TxCTCSS>("tx_ctcss", "TX CTCSS",
                                     {.name = "TxCTCSS",
                                      .notation = &notation::kCtcss,
                                      .limits = kCtcssIndexes,
                                      .presence = kInExtra}),
    Channel<&ChannelRecord::RxDCS>("rx_dcs", "RX DCS",
                                   {.name = "RxDCS",
                                    .notation = &notation::kDcs,
                                    .limits = kDcsIndexes,
                                    .presence = kInExtra}),
    Channel<&ChannelRecord::TxDCS>("tx_dcs", "TX DCS",
                                   {.name = "TxDCS",
                                    .notation = &notation::kDcs,
                                    .limits = kDcsIndexes,
                                    .presence = kInExtra}),
    Channel<&ChannelRecord::RxComp>("rx_comp", "COMP", {.name = "RxComp", .presence = kInExtra}),
    Channel<&ChannelRecord::ClockShift>("clock_shift", "Clock Shift",
                                        {.name = "ClockShift", .presence = kInExtra}),
    Channel<&ChannelRecord::CHDisplayL>(
        "display_left", "CH Display (left)",
        {.name = "CHDisplayL", .refusal = &LeftDisplayRefusal, .presence = kInExtra}),
    Channel<&ChannelRecord::CHDisplayR>(
        "display_right", "CH Display (right)",
        {.name = "CHDisplayR", .refusal = &RightDisplayRefusal, .presence = kInExtra}),
    Channel<&ChannelRecord::USA_Group>("usa_group", "[USA]",
                                       {.name = "USA Group", .presence = kInExtra}),
    Channel<&ChannelRecord::INT_Group>("int_group", "[INTL]",
                                       {.name = "INT Group", .presence = kInExtra}),
    Channel<&ChannelRecord::CAN_Group>("can_group", "[CAN]",
                                       {.name = "CAN Group", .presence = kInExtra}),
    Channel<&ChannelRecord::LMR_EXP>("kind", "Kind",
                                     {.name = "LMR EXP",
                                      .notation = &notation::kChannelKind,
                                      .limits = {kLmrMark, kExpMark},
                                      .presence = kInExtra}),
    Channel<&ChannelRecord::DispayA>("display_flag", "Display Flag",
                                     {.name = "DispayA", .presence = kInMarine}),
    Channel<&ChannelRecord::Position>("position", "Position", {.derived = true}),
    Channel<&ChannelRecord::SelectedPlan>("selected_plan", "Selected Plan", {.derived = true}),
};

template <>
inline constexpr auto kRowsOf<UsableGroup> = Rows{
    Row<UsableGroup, &UsableGroup::Enable>("enable", "In Use", {.name = "Enable"}),
    Row<UsableGroup, &UsableGroup::TX_TOT>("tx_tot", "TX TOT"),
    Row<UsableGroup, &UsableGroup::Priority_CH>(
        "priority_ch", "Priority CH",
        {.notation = &notation::kChannelNumber, .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Row<UsableGroup, &UsableGroup::Status_Icon>("status_icon", "Status Icon"),
    Row<UsableGroup, &UsableGroup::Status_name>(
        "status_name", "Status Name",
        {.name = "Status name", .refusal = &StatusNameRefusal, .presence = kNamed}),
    Row<UsableGroup, &UsableGroup::Backup>("backup", "Backup", {.limits = kByte}),
};

template <auto... kPath>
constexpr auto Common(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<CommonSettings, kPath...>(id, label, more);
}

template <>
inline constexpr auto kRowsOf<CommonSettings> = Rows{
    Common<&CommonSettings::TX_Po_Display>("tx_po_display", "TX Po Display",
                                           {.notation = &notation::kTxPoDisplay, .limits = {0, 2}}),
    Common<&CommonSettings::Last_TX_Power>("last_tx_power", "Last TX Power", {.limits = kByte}),
    Common<&CommonSettings::SQL>("sql", "SQL", {.limits = {0, 15}}),
    Common<&CommonSettings::Last_CH_Group>("last_ch_group", "Last CH Group", {.limits = kByte}),
    Common<&CommonSettings::Last_Display_CH>(
        "last_display_ch", "Last Display CH",
        {.notation = &notation::kChannelNumber, .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Common<&CommonSettings::Marine_LMR_CH>("marine_lmr_ch", "Marine/LMR CH",
                                           {.name = "Marine_LMR CH",
                                            .notation = &notation::kChannelNumber,
                                            .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Common<&CommonSettings::SCAN>("scan", "SCAN"),
    Common<&CommonSettings::Resume_Time>("resume_time", "Resume Time",
                                         {.notation = &notation::kResumeTime, .limits = {0, 3}}),
    Common<&CommonSettings::PTT_SCAN_Clear>("ptt_scan_clear", "PTT SCAN Clear"),
    Common<&CommonSettings::Dual_Watch>("dual_watch", "Dual Watch"),
    Common<&CommonSettings::Offset_Time>(
        "offset_time", "Offset Time",
        {.notation = &notation::kOffsetTime, .limits = {0, 24}, .presence = kWithDsc}),
    Common<&CommonSettings::Magnetic_Variation>(
        "magnetic_variation", "Magnetic Variation",
        {.notation = &notation::kMagneticVariation, .limits = {0, 1}, .presence = kWithDsc}),
    Common<&CommonSettings::Weater>(
        "weather_alert", "Weather Alert",
        {.name = "Weater", .notation = &notation::kWeatherAlert, .limits = {0, 3}}),
    Common<&CommonSettings::RotaryBeep>("rotary_beep", "Rotary Beep", {.presence = kWithCallSigns}),
};

template <auto... kPath>
constexpr auto DscRow(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<DscSettings, kPath...>(id, label, more);
}
// The second flag of a pair, shown "Hi" or "Low".
template <auto... kPath>
constexpr auto DscPower(std::string_view id, std::string_view label, std::string_view name) {
  return DscRow<kPath..., &FlagPair::Hi>(id, label, {.name = name, .notation = &notation::kHiLow});
}

/// The three lists of calls, and the kinds of call of each.
template <auto kList>
inline constexpr std::string_view kCallList{};
template <>
inline constexpr std::string_view kCallList<&DscSettings::AllShipsCall> = "All Ships Call";
template <>
inline constexpr std::string_view kCallList<&DscSettings::GroupCall> = "Group Call";
template <>
inline constexpr std::string_view kCallList<&DscSettings::IndividualCall> = "Individual Call";
inline constexpr std::array<std::string_view, 4> kCalls = {"Distress", "Urgency", "Safty",
                                                           "Routine"};

/// A text put together while compiling.
class Joined {
 public:
  constexpr Joined(std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) {
      for (const char sign : part) signs_[size_++] = sign;
    }
  }
  /// As words of a path: small letters, "_" for a blank.
  [[nodiscard]] constexpr Joined AsId() const {
    Joined id = *this;
    for (char& sign : id.signs_) {
      if (sign == ' ') sign = '_';
      if (sign >= 'A' && sign <= 'Z') sign = static_cast<char>(sign - 'A' + 'a');
    }
    return id;
  }
  [[nodiscard]] constexpr std::string_view View() const { return {signs_.data(), size_}; }

 private:
  std::array<char, 40> signs_{};
  std::size_t size_ = 0;
};

template <auto kList, int kCall>
struct CallTexts {
  static constexpr Joined kLabel{kCallList<kList>, " ", kCalls[kCall]};
  static constexpr Joined kPowerLabel{kLabel.View(), " Power"};
  static constexpr Joined kHiName{kLabel.View(), " Hi"};
  static constexpr Joined kOnId = Joined{kCallList<kList>, "/", kCalls[kCall], "/on"}.AsId();
  static constexpr Joined kHiId = Joined{kCallList<kList>, "/", kCalls[kCall], "/hi"}.AsId();
};

template <auto kList, int kCall>
constexpr auto DscCall() {
  using Texts = CallTexts<kList, kCall>;
  return Rows{DscRow<kList, kCall, &FlagPair::On>(Texts::kOnId.View(), Texts::kLabel.View()),
              DscPower<kList, kCall>(Texts::kHiId.View(), Texts::kPowerLabel.View(),
                                     Texts::kHiName.View())};
}
template <auto kList>
constexpr auto DscCalls() {
  return Rows{DscCall<kList, 0>(), DscCall<kList, 1>(), DscCall<kList, 2>(), DscCall<kList, 3>()};
}

template <>
inline constexpr auto kRowsOf<DscSettings> = Rows{
    DscRow<&DscSettings::AvailableGroup, 0>("available_group/usa", "Available Group USA"),
    DscRow<&DscSettings::AvailableGroup, 1>("available_group/intl", "Available Group INTL"),
    DscRow<&DscSettings::AvailableGroup, 2>("available_group/canada", "Available Group Canada"),
    DscRow<&DscSettings::UserMmsi>("user_mmsi", "User MMSI", {.refusal = &DigitsRefusal}),
    DscRow<&DscSettings::DistressCancelCall>("distress_cancel_call", "Distress Cancel Call"),
    DscRow<&DscSettings::StanbyMode>("stanby_mode", "Stanby Mode"),
    DscRow<&DscSettings::PosRequest, &FlagPair::On>("pos_request/on", "POS Request"),
    DscPower<&DscSettings::PosRequest>("pos_request/hi", "POS Request Power", "POS Request Hi"),
    DscRow<&DscSettings::PosSend, &FlagPair::On>("pos_send/on", "POS Send"),
    DscPower<&DscSettings::PosSend>("pos_send/hi", "POS Send Power", "POS Send Hi"),
    DscRow<&DscSettings::BeepOutput, 0>("beep_output/distress_alert", "Beep Send Distress Alert"),
    DscRow<&DscSettings::BeepOutput, 1>("beep_output/all_ships", "Beep Received All Ships"),
    DscRow<&DscSettings::BeepOutput, 2>("beep_output/group", "Beep Received Group"),
    DscRow<&DscSettings::BeepOutput, 3>("beep_output/individual", "Beep Received Individual"),
    DscRow<&DscSettings::BeepOutput, 4>("beep_output/pos_request", "Beep Received POS Request"),
    DscRow<&DscSettings::BeepOutput, 5>("beep_output/pos_send", "Beep Received POS Send"),
    DscRow<&DscSettings::BeepOutput, 6>("beep_output/geografic", "Beep Received Geografic"),
    DscRow<&DscSettings::BeepOutput, 7>("beep_output/8", "Beep 8"),
    DscCalls<&DscSettings::AllShipsCall>(),
    DscCalls<&DscSettings::GroupCall>(),
    DscCalls<&DscSettings::IndividualCall>(),
    DscRow<&DscSettings::IndividualAckMenu>("individual_ack_menu", "Individual ACK Menu"),
    DscRow<&DscSettings::IndividualAckMessageMenu>("individual_ack_message_menu",
                                                   "Individual ACK Message Menu"),
    DscRow<&DscSettings::PosRequestAckMenu>("pos_request_ack_menu", "POS Request ACK Menu"),
};

template <auto... kPath>
constexpr auto Atis(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<AtisSettings, kPath...>(id, label, more);
}

template <>
inline constexpr auto kRowsOf<AtisSettings> = Rows{
    Atis<&AtisSettings::UsableGroup, 0>("usable_group/usa", "Usable Group USA"),
    Atis<&AtisSettings::UsableGroup, 1>("usable_group/intl", "Usable Group INTL"),
    Atis<&AtisSettings::UsableGroup, 2>("usable_group/canada", "Usable Group Canada"),
    Atis<&AtisSettings::UsableGroup, 3>("usable_group/extra", "Usable Group EXP/LMR"),
    Atis<&AtisSettings::Code>("code", "Code", {.refusal = &DigitsRefusal}),
    Atis<&AtisSettings::KillerGroup, 0>("killer_group/usa", "Killer Group USA",
                                        {.presence = kWithCallSigns}),
    Atis<&AtisSettings::KillerGroup, 1>("killer_group/intl", "Killer Group INTL",
                                        {.presence = kWithCallSigns}),
    Atis<&AtisSettings::KillerGroup, 2>("killer_group/canada", "Killer Group Canada",
                                        {.presence = kWithCallSigns}),
    Atis<&AtisSettings::KillerGroup, 3>("killer_group/extra", "Killer Group EXP/LMR",
                                        {.presence = kWithCallSigns}),
};

template <>
inline constexpr auto kRowsOf<AtisCallSign> = Rows{
    Row<AtisCallSign, &AtisCallSign::Mid>("mid", "MID", {.refusal = &ThreeCharactersRefusal}),
    Row<AtisCallSign, &AtisCallSign::Display>("display", "Display",
                                              {.refusal = &ThreeCharactersRefusal}),
};

template <>
inline constexpr auto kRowsOf<DirectoryEntry> = Rows{
    Row<DirectoryEntry, &DirectoryEntry::Enable>("enable", "In Use",
                                                 {.name = "Enable", .derived = true}),
    Row<DirectoryEntry, &DirectoryEntry::TagName>(
        "name", "Name", {.name = "TagName", .refusal = &DirectoryNameRefusal}),
    Row<DirectoryEntry, &DirectoryEntry::Mmsid>("mmsi", "MMSI",
                                                {.name = "Mmsid", .refusal = &DigitsRefusal}),
};

inline constexpr Field kModelField =
    Row<RadioData, &RadioData::MODELTYPE>("type", "Model", {.limits = {0, 6}, .derived = true})
        .field;

inline constexpr std::array kExpPresentFields = {
    Row<RadioData, &RadioData::ExpPresent>("", "In Use").field};

template <class Record>
inline constexpr auto kFieldsOf = FieldsOf(kRowsOf<Record>);

template <class Record, class Member>
Record RecordOf(Member Record::*);

template <auto kFirst, auto... kRest>
constexpr Field FieldAt() {
  if constexpr (!std::is_member_pointer_v<decltype(kFirst)>) {
    return FieldAt<kRest...>();
  } else {
    using Record = decltype(RecordOf(kFirst));
    if constexpr (std::is_same_v<Record, RadioData>) {
      return FieldAt<kRest...>();
    } else {
      constexpr bool kHasRow = std::is_base_of_v<RowOf<kFirst, kRest...>,
                                                 std::remove_const_t<decltype(kRowsOf<Record>)>>;
      static_assert(kHasRow, "the catalogue has no row for this member");
      if constexpr (kHasRow) {
        return static_cast<const RowOf<kFirst, kRest...>&>(kRowsOf<Record>).field;
      } else {
        return {};
      }
    }
  }
}

}  // namespace catalogue

/// The row of a member, found while compiling: one without a row does not compile. A path may
/// begin at the data set; what leads from there to the record is passed over.
///
///     kFieldAt<&ChannelRecord::ChTag>.name
///     kFieldAt<&RadioData::Usable, 0, &UsableGroup::TX_TOT>.name
template <auto... kPath>
inline constexpr Field kFieldAt = catalogue::FieldAt<kPath...>();

}  // namespace orvane::core
