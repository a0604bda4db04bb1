#pragma once

#include <array>
#include <concepts>
#include <cstddef>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "core/catalogue.h"
#include "core/field_rules.h"
#include "core/member_path.h"
#include "core/tones.h"

/// The rows of the catalogue, by record.
namespace orvane::core {

/// Its address tells members apart: Field::member of the row that the path leads to.
template <auto... kPath>
inline constexpr char kMemberTag = 0;

namespace catalogue {

/// Which alternative of Value a member's type travels in.
template <class Member>
using Carrier = std::conditional_t<
    std::is_same_v<Member, Flag>, bool,
    std::conditional_t<std::is_same_v<Member, std::string>, std::string,
                       std::conditional_t<std::is_floating_point_v<Member>, double, std::int32_t>>>;

template <class Member>
constexpr const Notation* DefaultNotation() {
  if constexpr (std::is_same_v<Member, Flag>) return &notation::kOnOff;
  if constexpr (std::is_same_v<Member, std::string>) return &notation::kText;
  if constexpr (std::is_floating_point_v<Member>) return &notation::kFrequency;
  return &notation::kNumber;
}

template <class Member>
constexpr Limits DefaultLimits() {
  if constexpr (std::is_integral_v<Member>) {
    return {std::numeric_limits<Member>::min(), std::numeric_limits<Member>::max()};
  }
  return {};
}

/// How a row differs from what the member's type says.
struct More {
  std::optional<const Notation*> notation{};
  Limits limits{1, 0};  ///< lowest above highest: those of the member's type
  Refusal refusal = nullptr;
  Exists exists = nullptr;
  bool derived = false;
};

template <class Record, auto... kPath>
constexpr Field Row(std::string_view id, std::string_view label, const More& more = {}) {
  using Member = std::remove_cvref_t<decltype(Follow<kPath...>(std::declval<Record&>()))>;
  using C = Carrier<Member>;
  return {
      .id = id,
      .label = label,
      .member = &kMemberTag<kPath...>,
      .get = [](const void* record) -> Value {
        return static_cast<C>(Follow<kPath...>(*static_cast<const Record*>(record)));
      },
      .set =
          [](void* record, const Value& value) {
            Follow<kPath...>(*static_cast<Record*>(record)) =
                static_cast<Member>(std::get<C>(value));
          },
      .notation = more.notation.value_or(DefaultNotation<Member>()),
      .limits = more.limits.lowest <= more.limits.highest ? more.limits : DefaultLimits<Member>(),
      .refusal = more.refusal,
      .exists = more.exists,
      .in_list = (std::is_integral_v<decltype(kPath)> || ...),
      .derived = more.derived};
}

constexpr bool OfMarine(const ModelProfile& /*profile*/, TableKind kind) {
  return kind == TableKind::kMarine;
}
constexpr bool OfExtra(const ModelProfile& /*profile*/, TableKind kind) {
  return kind == TableKind::kExtra;
}
constexpr bool OfTransmitting(const ModelProfile& /*profile*/, TableKind kind) {
  return kind != TableKind::kWeather;
}
constexpr bool Named(const ModelProfile& profile, TableKind /*kind*/) {
  return profile.has_channel_names;
}
constexpr bool NamedTransmitting(const ModelProfile& profile, TableKind kind) {
  return Named(profile, kind) && OfTransmitting(profile, kind);
}
constexpr bool Dsc(const ModelProfile& profile, TableKind /*kind*/) {
  return profile.has_dsc;
}
constexpr bool CallSigns(const ModelProfile& profile, TableKind /*kind*/) {
  return profile.has_call_signs;
}

template <auto... kPath>
constexpr Field Channel(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<ChannelRecord, kPath...>(id, label, more);
}

constexpr Limits kPowerCodes{0, 3};
constexpr Limits kByte{0, 255};
constexpr Limits kCtcssIndexes{0, kLastCtcss};
constexpr Limits kDcsIndexes{0, 2 * kLastDcs};

inline constexpr std::array kChannelFields = {
    Channel<&ChannelRecord::Enable>("enable", "CH Enable"),
    Channel<&ChannelRecord::ChTag>("name", "CH Name",
                                   {.refusal = &ChannelNameRefusal, .exists = &Named}),
    Channel<&ChannelRecord::Rxfreq>("rx_frequency", "Rx Frequency",
                                    {.refusal = &FrequencyRefusal, .exists = &OfExtra}),
    Channel<&ChannelRecord::Txfreq>("tx_frequency", "Tx Frequency",
                                    {.refusal = &FrequencyRefusal, .exists = &OfExtra}),
    Channel<&ChannelRecord::TxEnable>("tx_enable", "Tx Enable", {.exists = &OfTransmitting}),
    Channel<&ChannelRecord::TXPower>("tx_power", "Power Code",
                                     {.limits = kPowerCodes, .exists = &OfTransmitting}),
    Channel<&ChannelRecord::LowPower>("low_power", "Low Power Only", {.exists = &OfTransmitting}),
    Channel<&ChannelRecord::PowUp>("power_up", "Power Up", {.exists = &OfTransmitting}),
    Channel<&ChannelRecord::Duplex>("duplex", "Duplex", {.exists = &OfMarine}),
    Channel<&ChannelRecord::DuplexAllowed>("duplex_allowed", "Duplex Allowed",
                                           {.exists = &OfMarine, .derived = true}),
    Channel<&ChannelRecord::RxOnly>("rx_only", "Receive Only",
                                    {.exists = &OfMarine, .derived = true}),
    Channel<&ChannelRecord::ScanMemory>("scan_memory", "Scan Memory"),
    Channel<&ChannelRecord::Scramble>(
        "scramble", "Scrambler",
        {.notation = &notation::kScrambler, .limits = {0, 7}, .exists = &NamedTransmitting}),
    Channel<&ChannelRecord::Narrow>("narrow", "Narrow", {.exists = &OfExtra}),
    Channel<&ChannelRecord::RxCTCSS>(
        "rx_ctcss", "RX CTCSS",
        {.notation = &notation::kCtcss, .limits = kCtcssIndexes, .exists = &OfExtra}),
    Channel<&ChannelRecord::TxCTCSS>(
        "tx_ctcss", "TX CTCSS",
        {.notation = &notation::kCtcss, .limits = kCtcssIndexes, .exists = &OfExtra}),
    Channel<&ChannelRecord::RxDCS>(
        "rx_dcs", "RX DCS",
        {.notation = &notation::kDcs, .limits = kDcsIndexes, .exists = &OfExtra}),
    Channel<&ChannelRecord::TxDCS>(
        "tx_dcs", "TX DCS",
        {.notation = &notation::kDcs, .limits = kDcsIndexes, .exists = &OfExtra}),
    Channel<&ChannelRecord::RxComp>("rx_comp", "COMP", {.exists = &OfExtra}),
    Channel<&ChannelRecord::ClockShift>("clock_shift", "Clock Shift", {.exists = &OfExtra}),
    Channel<&ChannelRecord::CHDisplayL>("display_left", "CH Display (left)",
                                        {.refusal = &LeftDisplayRefusal, .exists = &OfExtra}),
    Channel<&ChannelRecord::CHDisplayR>("display_right", "CH Display (right)",
                                        {.refusal = &RightDisplayRefusal, .exists = &OfExtra}),
    Channel<&ChannelRecord::USA_Group>("usa_group", "[USA]", {.exists = &OfExtra}),
    Channel<&ChannelRecord::INT_Group>("int_group", "[INTL]", {.exists = &OfExtra}),
    Channel<&ChannelRecord::CAN_Group>("can_group", "[CAN]", {.exists = &OfExtra}),
    Channel<&ChannelRecord::LMR_EXP>(
        "kind", "Kind",
        {.notation = &notation::kChannelKind, .limits = {kLmrMark, kExpMark}, .exists = &OfExtra}),
    Channel<&ChannelRecord::DispayA>("display_flag", "Display Flag", {.exists = &OfMarine}),
    Channel<&ChannelRecord::Position>("position", "Position", {.derived = true}),
    Channel<&ChannelRecord::SelectedPlan>("selected_plan", "Selected Plan", {.derived = true}),
};

inline constexpr std::array kGroupFields = {
    Row<UsableGroup, &UsableGroup::Enable>("enable", "In Use"),
    Row<UsableGroup, &UsableGroup::TX_TOT>("tx_tot", "TX TOT"),
    Row<UsableGroup, &UsableGroup::Priority_CH>(
        "priority_ch", "Priority CH",
        {.notation = &notation::kChannelNumber, .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Row<UsableGroup, &UsableGroup::Status_Icon>("status_icon", "Status Icon"),
    Row<UsableGroup, &UsableGroup::Status_name>("status_name", "Status Name",
                                                {.refusal = &StatusNameRefusal, .exists = &Named}),
    Row<UsableGroup, &UsableGroup::Backup>("backup", "Backup", {.limits = kByte}),
};

template <auto... kPath>
constexpr Field Common(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<CommonSettings, kPath...>(id, label, more);
}

inline constexpr std::array kCommonFields = {
    Common<&CommonSettings::TX_Po_Display>("tx_po_display", "TX Po Display",
                                           {.notation = &notation::kTxPoDisplay, .limits = {0, 2}}),
    Common<&CommonSettings::Last_TX_Power>("last_tx_power", "Last TX Power", {.limits = kByte}),
    Common<&CommonSettings::SQL>("sql", "SQL", {.limits = {0, 15}}),
    Common<&CommonSettings::Last_CH_Group>("last_ch_group", "Last CH Group", {.limits = kByte}),
    Common<&CommonSettings::Last_Display_CH>(
        "last_display_ch", "Last Display CH",
        {.notation = &notation::kChannelNumber, .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Common<&CommonSettings::Marine_LMR_CH>(
        "marine_lmr_ch", "Marine/LMR CH",
        {.notation = &notation::kChannelNumber, .limits = {kNoChannel, kChannelIndexEnd - 1}}),
    Common<&CommonSettings::SCAN>("scan", "SCAN"),
    Common<&CommonSettings::Resume_Time>("resume_time", "Resume Time",
                                         {.notation = &notation::kResumeTime, .limits = {0, 3}}),
    Common<&CommonSettings::PTT_SCAN_Clear>("ptt_scan_clear", "PTT SCAN Clear"),
    Common<&CommonSettings::Dual_Watch>("dual_watch", "Dual Watch"),
    Common<&CommonSettings::Offset_Time>(
        "offset_time", "Offset Time",
        {.notation = &notation::kOffsetTime, .limits = {0, 24}, .exists = &Dsc}),
    Common<&CommonSettings::Magnetic_Variation>(
        "magnetic_variation", "Magnetic Variation",
        {.notation = &notation::kMagneticVariation, .limits = {0, 1}, .exists = &Dsc}),
    Common<&CommonSettings::Weater>("weather_alert", "Weather Alert",
                                    {.notation = &notation::kWeatherAlert, .limits = {0, 3}}),
    Common<&CommonSettings::RotaryBeep>("rotary_beep", "Rotary Beep", {.exists = &CallSigns}),
};

template <auto... kPath>
constexpr Field DscRow(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<DscSettings, kPath...>(id, label, more);
}
// The second flag of a pair, shown "Hi" or "Low".
template <auto... kPath>
constexpr Field DscPower(std::string_view id, std::string_view label) {
  return DscRow<kPath..., &FlagPair::Hi>(id, label, {.notation = &notation::kHiLow});
}

inline constexpr std::array kDscFields = {
    DscRow<&DscSettings::AvailableGroup, 0>("available_group/usa", "Available Group USA"),
    DscRow<&DscSettings::AvailableGroup, 1>("available_group/intl", "Available Group INTL"),
    DscRow<&DscSettings::AvailableGroup, 2>("available_group/canada", "Available Group Canada"),
    DscRow<&DscSettings::UserMmsi>("user_mmsi", "User MMSI", {.refusal = &DigitsRefusal}),
    DscRow<&DscSettings::DistressCancelCall>("distress_cancel_call", "Distress Cancel Call"),
    DscRow<&DscSettings::StanbyMode>("stanby_mode", "Stanby Mode"),
    DscRow<&DscSettings::PosRequest, &FlagPair::On>("pos_request/on", "POS Request"),
    DscPower<&DscSettings::PosRequest>("pos_request/hi", "POS Request Power"),
    DscRow<&DscSettings::PosSend, &FlagPair::On>("pos_send/on", "POS Send"),
    DscPower<&DscSettings::PosSend>("pos_send/hi", "POS Send Power"),
    DscRow<&DscSettings::BeepOutput, 0>("beep_output/distress_alert", "Beep Send Distress Alert"),
    DscRow<&DscSettings::BeepOutput, 1>("beep_output/all_ships", "Beep Received All Ships"),
    DscRow<&DscSettings::BeepOutput, 2>("beep_output/group", "Beep Received Group"),
    DscRow<&DscSettings::BeepOutput, 3>("beep_output/individual", "Beep Received Individual"),
    DscRow<&DscSettings::BeepOutput, 4>("beep_output/pos_request", "Beep Received POS Request"),
    DscRow<&DscSettings::BeepOutput, 5>("beep_output/pos_send", "Beep Received POS Send"),
    DscRow<&DscSettings::BeepOutput, 6>("beep_output/geografic", "Beep Received Geografic"),
    DscRow<&DscSettings::BeepOutput, 7>("beep_output/8", "Beep 8"),
    DscRow<&DscSettings::AllShipsCall, 0, &FlagPair::On>("all_ships_call/distress/on",
                                                         "All Ships Call Distress"),
    DscPower<&DscSettings::AllShipsCall, 0>("all_ships_call/distress/hi",
                                            "All Ships Call Distress Power"),
    DscRow<&DscSettings::AllShipsCall, 1, &FlagPair::On>("all_ships_call/urgency/on",
                                                         "All Ships Call Urgency"),
    DscPower<&DscSettings::AllShipsCall, 1>("all_ships_call/urgency/hi",
                                            "All Ships Call Urgency Power"),
    DscRow<&DscSettings::AllShipsCall, 2, &FlagPair::On>("all_ships_call/safty/on",
                                                         "All Ships Call Safty"),
    DscPower<&DscSettings::AllShipsCall, 2>("all_ships_call/safty/hi",
                                            "All Ships Call Safty Power"),
    DscRow<&DscSettings::AllShipsCall, 3, &FlagPair::On>("all_ships_call/routine/on",
                                                         "All Ships Call Routine"),
    DscPower<&DscSettings::AllShipsCall, 3>("all_ships_call/routine/hi",
                                            "All Ships Call Routine Power"),
    DscRow<&DscSettings::GroupCall, 0, &FlagPair::On>("group_call/distress/on",
                                                      "Group Call Distress"),
    DscPower<&DscSettings::GroupCall, 0>("group_call/distress/hi", "Group Call Distress Power"),
    DscRow<&DscSettings::GroupCall, 1, &FlagPair::On>("group_call/urgency/on",
                                                      "Group Call Urgency"),
    DscPower<&DscSettings::GroupCall, 1>("group_call/urgency/hi", "Group Call Urgency Power"),
    DscRow<&DscSettings::GroupCall, 2, &FlagPair::On>("group_call/safty/on", "Group Call Safty"),
    DscPower<&DscSettings::GroupCall, 2>("group_call/safty/hi", "Group Call Safty Power"),
    DscRow<&DscSettings::GroupCall, 3, &FlagPair::On>("group_call/routine/on",
                                                      "Group Call Routine"),
    DscPower<&DscSettings::GroupCall, 3>("group_call/routine/hi", "Group Call Routine Power"),
    DscRow<&DscSettings::IndividualCall, 0, &FlagPair::On>("individual_call/distress/on",
                                                           "Individual Call Distress"),
    DscPower<&DscSettings::IndividualCall, 0>("individual_call/distress/hi",
                                              "Individual Call Distress Power"),
    DscRow<&DscSettings::IndividualCall, 1, &FlagPair::On>("individual_call/urgency/on",
                                                           "Individual Call Urgency"),
    DscPower<&DscSettings::IndividualCall, 1>("individual_call/urgency/hi",
                                              "Individual Call Urgency Power"),
    DscRow<&DscSettings::IndividualCall, 2, &FlagPair::On>("individual_call/safty/on",
                                                           "Individual Call Safty"),
    DscPower<&DscSettings::IndividualCall, 2>("individual_call/safty/hi",
                                              "Individual Call Safty Power"),
    DscRow<&DscSettings::IndividualCall, 3, &FlagPair::On>("individual_call/routine/on",
                                                           "Individual Call Routine"),
    DscPower<&DscSettings::IndividualCall, 3>("individual_call/routine/hi",
                                              "Individual Call Routine Power"),
    DscRow<&DscSettings::IndividualAckMenu>("individual_ack_menu", "Individual ACK Menu"),
    DscRow<&DscSettings::IndividualAckMessageMenu>("individual_ack_message_menu",
                                                   "Individual ACK Message Menu"),
    DscRow<&DscSettings::PosRequestAckMenu>("pos_request_ack_menu", "POS Request ACK Menu"),
};

template <auto... kPath>
constexpr Field Atis(std::string_view id, std::string_view label, const More& more = {}) {
  return Row<AtisSettings, kPath...>(id, label, more);
}

inline constexpr std::array kAtisFields = {
    Atis<&AtisSettings::UsableGroup, 0>("usable_group/usa", "Usable Group USA"),
    Atis<&AtisSettings::UsableGroup, 1>("usable_group/intl", "Usable Group INTL"),
    Atis<&AtisSettings::UsableGroup, 2>("usable_group/canada", "Usable Group Canada"),
    Atis<&AtisSettings::UsableGroup, 3>("usable_group/extra", "Usable Group EXP/LMR"),
    Atis<&AtisSettings::Code>("code", "Code", {.refusal = &DigitsRefusal}),
    Atis<&AtisSettings::KillerGroup, 0>("killer_group/usa", "Killer Group USA",
                                        {.exists = &CallSigns}),
    Atis<&AtisSettings::KillerGroup, 1>("killer_group/intl", "Killer Group INTL",
                                        {.exists = &CallSigns}),
    Atis<&AtisSettings::KillerGroup, 2>("killer_group/canada", "Killer Group Canada",
                                        {.exists = &CallSigns}),
    Atis<&AtisSettings::KillerGroup, 3>("killer_group/extra", "Killer Group EXP/LMR",
                                        {.exists = &CallSigns}),
};

inline constexpr std::array kCallSignFields = {
    Row<AtisCallSign, &AtisCallSign::Mid>("mid", "MID", {.refusal = &ThreeCharactersRefusal}),
    Row<AtisCallSign, &AtisCallSign::Display>("display", "Display",
                                              {.refusal = &ThreeCharactersRefusal}),
};

inline constexpr std::array kDirectoryFields = {
    Row<DirectoryEntry, &DirectoryEntry::Enable>("enable", "In Use", {.derived = true}),
    Row<DirectoryEntry, &DirectoryEntry::TagName>("name", "Name",
                                                  {.refusal = &DirectoryNameRefusal}),
    Row<DirectoryEntry, &DirectoryEntry::Mmsid>("mmsi", "MMSI", {.refusal = &DigitsRefusal}),
};

inline constexpr std::array kModelFields = {
    Row<RadioData, &RadioData::MODELTYPE>("type", "Model", {.limits = {0, 6}, .derived = true}),
};

inline constexpr std::array kExpPresentFields = {
    Row<RadioData, &RadioData::ExpPresent>("", "In Use"),
};

// Which rows belong to a record.
template <class Record>
inline constexpr std::span<const Field> kFieldsOf{};
template <>
inline constexpr std::span<const Field> kFieldsOf<ChannelRecord>{kChannelFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<UsableGroup>{kGroupFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<CommonSettings>{kCommonFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<DscSettings>{kDscFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<AtisSettings>{kAtisFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<AtisCallSign>{kCallSignFields};
template <>
inline constexpr std::span<const Field> kFieldsOf<DirectoryEntry>{kDirectoryFields};

}  // namespace catalogue

}  // namespace orvane::core
