#pragma once

#include "image/forms.h"
#include "image/layout_places.h"

/// Settings that exist once: channel groups, common, DSC and ATIS settings; and the ATIS call
/// signs.
namespace orvane::image::layout {

using core::AtisSettings;
using core::CommonSettings;
using core::DscSettings;
using core::FlagPair;
using core::RadioData;
using core::UsableGroup;

inline RadioData& Whole(RadioData& data, int /*index*/) {
  return data;
}

template <class Form, int Group, auto Member>
constexpr Row<RadioData> GroupField(std::string_view name, Place place) {
  return Field<RadioData, Form, &RadioData::Usable, Group, Member>(name, place);
}

inline constexpr std::array kGroupRows = {
    GroupField<FlagForm, 0, &UsableGroup::Enable>("USA Enable", places::GroupEnable(0)),
    GroupField<FlagForm, 1, &UsableGroup::Enable>("INTL Enable", places::GroupEnable(1)),
    GroupField<FlagForm, 2, &UsableGroup::Enable>("Canada Enable", places::GroupEnable(2)),
    GroupField<ExtraGroupEnableForm, 3, &UsableGroup::Enable>("EXP/LMR Enable",
                                                              places::GroupEnable(3)),
    GroupField<FlagForm, 0, &UsableGroup::TX_TOT>("USA TX TOT", BitAt(94, 3)),
    GroupField<FlagForm, 1, &UsableGroup::TX_TOT>("INTL TX TOT", BitAt(94, 2)),
    GroupField<FlagForm, 2, &UsableGroup::TX_TOT>("Canada TX TOT", BitAt(94, 1)),
    GroupField<FlagForm, 3, &UsableGroup::TX_TOT>("EXP/LMR TX TOT", BitAt(94, 0)),
    GroupField<FlagForm, 0, &UsableGroup::Status_Icon>("USA Status Icon", BitAt(94, 7)),
    GroupField<FlagForm, 1, &UsableGroup::Status_Icon>("INTL Status Icon", BitAt(94, 6)),
    GroupField<FlagForm, 2, &UsableGroup::Status_Icon>("Canada Status Icon", BitAt(94, 5)),
    GroupField<FlagForm, 3, &UsableGroup::Status_Icon>("EXP/LMR Status Icon", BitAt(94, 4)),
    GroupField<ChannelNumberForm, 0, &UsableGroup::Priority_CH>("USA Priority CH",
                                                                places::PriorityChannel(0)),
    GroupField<ChannelNumberForm, 1, &UsableGroup::Priority_CH>("INTL Priority CH",
                                                                places::PriorityChannel(1)),
    GroupField<ChannelNumberForm, 2, &UsableGroup::Priority_CH>("Canada Priority CH",
                                                                places::PriorityChannel(2)),
    // Radios with DSC keep the middle of their own MMSI in these bytes.
    GroupField<NumberForm, 0, &UsableGroup::Backup>("USA Backup", BytesAt(497, 1))
        .Lies(Overlap::kBeneath),
    GroupField<NumberForm, 1, &UsableGroup::Backup>("INTL Backup", BytesAt(498, 1))
        .Lies(Overlap::kBeneath),
    GroupField<NumberForm, 2, &UsableGroup::Backup>("Canada Backup", BytesAt(499, 1))
        .Lies(Overlap::kBeneath),
};

template <class Form, auto Member>
constexpr Row<RadioData> CommonField(std::string_view name, Place place) {
  return Field<RadioData, Form, &RadioData::Common, Member>(name, place);
}

inline constexpr std::array kCommonRows = {
    CommonField<NumberForm, &CommonSettings::TX_Po_Display>("TX Po Display", BytesAt(68, 1)),
    CommonField<NumberForm, &CommonSettings::Last_TX_Power>("Last TX Power", BytesAt(69, 1)),
    CommonField<NumberForm, &CommonSettings::Last_CH_Group>("Last CH Group",
                                                            places::kLastChannelGroup),
    CommonField<NumberForm, &CommonSettings::SQL>("SQL", BitRange(74, 7, 4)),
    CommonField<OffsetTimeForm, &CommonSettings::Offset_Time>("Offset Time", BitRange(76, 4, 0))
        .Only(When::kDsc),
    CommonField<NumberForm, &CommonSettings::Magnetic_Variation>("Magnetic Variation", BitAt(76, 6))
        .Only(When::kDsc),
    CommonField<ChannelNumberForm, &CommonSettings::Last_Display_CH>("Last Display CH",
                                                                     places::kLastDisplayChannel),
    CommonField<ChannelNumberForm, &CommonSettings::Marine_LMR_CH>("Marine_LMR CH",
                                                                   places::kMarineLmrChannel),
    // Every radio with DSC takes the beep bit; only one with call signs gives it back.
    CommonField<FlagForm, &CommonSettings::RotaryBeep>("Rotary Beep", places::kRotaryBeep)
        .ReadWritten(When::kCallSigns, When::kDsc),
    CommonField<FlagForm, &CommonSettings::SCAN>("SCAN", BitAt(91, 7)),
    CommonField<FlagForm, &CommonSettings::PTT_SCAN_Clear>("PTT SCAN Clear", BitAt(91, 3)),
    CommonField<NumberForm, &CommonSettings::Resume_Time>("Resume Time", BitRange(91, 2, 1)),
    CommonField<FlagForm, &CommonSettings::Dual_Watch>("Dual Watch", BitAt(93, 7)),
    CommonField<NumberForm, &CommonSettings::Weater>("Weater", BitRange(93, 5, 4)),
};

template <class Form, auto... Path>
constexpr Row<RadioData> DscField(std::string_view name, Place place) {
  return Field<RadioData, Form, &RadioData::Dsc, Path...>(name, place);
}

inline constexpr std::array kDscRows = {
    DscField<FlagForm, &DscSettings::AvailableGroup, 0>("USA Available", BitAt(160, 7)),
    DscField<FlagForm, &DscSettings::AvailableGroup, 1>("INTL Available", BitAt(160, 6)),
    DscField<FlagForm, &DscSettings::AvailableGroup, 2>("Canada Available", BitAt(160, 5)),
    DscField<FlagForm, &DscSettings::PosRequest, &FlagPair::On>("POS Request", BitAt(164, 7)),
    DscField<FlagForm, &DscSettings::PosRequest, &FlagPair::Hi>("POS Request Hi", BitAt(164, 6)),
    DscField<FlagForm, &DscSettings::PosSend, &FlagPair::On>("POS Send", BitAt(164, 5)),
    DscField<FlagForm, &DscSettings::PosSend, &FlagPair::Hi>("POS Send Hi", BitAt(164, 4)),
    DscField<FlagForm, &DscSettings::StanbyMode>("Stanby Mode", BitAt(164, 3)),
    DscField<FlagForm, &DscSettings::DistressCancelCall>("Distress Cancel Call", BitAt(164, 2)),
    DscField<FlagForm, &DscSettings::BeepOutput, 0>("Beep Send Distress Alert", BitAt(165, 7)),
    DscField<FlagForm, &DscSettings::BeepOutput, 1>("Beep Received All Ships", BitAt(165, 6)),
    DscField<FlagForm, &DscSettings::BeepOutput, 2>("Beep Received Group", BitAt(165, 5)),
    DscField<FlagForm, &DscSettings::BeepOutput, 3>("Beep Received Individual", BitAt(165, 4)),
    DscField<FlagForm, &DscSettings::BeepOutput, 4>("Beep Received POS Request", BitAt(165, 3)),
    DscField<FlagForm, &DscSettings::BeepOutput, 5>("Beep Received POS Send", BitAt(165, 2)),
    DscField<FlagForm, &DscSettings::BeepOutput, 6>("Beep Received Geografic", BitAt(165, 1)),
    DscField<FlagForm, &DscSettings::BeepOutput, 7>("Beep 8", BitAt(165, 0)),
    DscField<FlagForm, &DscSettings::IndividualAckMenu>("Individual ACK Menu", BitAt(166, 7)),
    DscField<FlagForm, &DscSettings::IndividualAckMessageMenu>("Individual ACK Message Menu",
                                                               BitAt(166, 6)),
    DscField<FlagForm, &DscSettings::PosRequestAckMenu>("POS Request ACK Menu", BitAt(166, 1)),
    DscField<DigitsForm, &DscSettings::UserMmsi>("User MMSI", BytesAt(496, 5))
        .Lies(Overlap::kAbove),
};

using CallTypes = std::array<FlagPair, 4>;
template <int Type, auto Member>
constexpr Row<CallTypes> CallField(std::string_view name, Place place) {
  return Field<CallTypes, FlagForm, Type, Member>(name, place);
}

inline constexpr std::array kCallTypeRows = {
    CallField<0, &FlagPair::On>("Distress", BitAt(0, 7)),
    CallField<1, &FlagPair::On>("Urgency", BitAt(0, 6)),
    CallField<2, &FlagPair::On>("Safty", BitAt(0, 5)),
    CallField<3, &FlagPair::On>("Routine", BitAt(0, 4)),
    CallField<0, &FlagPair::Hi>("Distress Hi", BitAt(0, 3)),
    CallField<1, &FlagPair::Hi>("Urgency Hi", BitAt(0, 2)),
    CallField<2, &FlagPair::Hi>("Safty Hi", BitAt(0, 1)),
    CallField<3, &FlagPair::Hi>("Routine Hi", BitAt(0, 0)),
};

template <class Form, auto Member, int Group>
constexpr Row<RadioData> AtisField(std::string_view name, Place place) {
  return Field<RadioData, Form, &RadioData::Atis, Member, Group>(name, place);
}

inline constexpr std::array kAtisRows = {
    AtisField<FlagForm, &AtisSettings::UsableGroup, 0>("USA", places::AtisGroup(0)),
    AtisField<FlagForm, &AtisSettings::UsableGroup, 1>("INTL", places::AtisGroup(1)),
    AtisField<FlagForm, &AtisSettings::UsableGroup, 2>("Canada", places::AtisGroup(2)),
    AtisField<FlagForm, &AtisSettings::UsableGroup, 3>("EXP/LMR", places::AtisGroup(3)),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 0>("Killer USA", BitAt(505, 3))
        .Only(When::kCallSigns),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 1>("Killer INTL", BitAt(505, 2))
        .Only(When::kCallSigns),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 2>("Killer Canada", BitAt(505, 1))
        .Only(When::kCallSigns),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 3>("Killer EXP/LMR", BitAt(505, 0))
        .Only(When::kCallSigns),
    Field<RadioData, DigitsForm, &RadioData::Atis, &AtisSettings::Code>("Code", BytesAt(507, 5)),
};

inline constexpr std::array kCallSignRows = {
    Field<core::AtisCallSign, CallSignForm, &core::AtisCallSign::Mid>("MID", places::kCallSignMid),
    Field<core::AtisCallSign, CallSignForm, &core::AtisCallSign::Display>("Display", BytesAt(3, 3)),
};

inline constexpr Area<RadioData> kGroups = {
    .name = "Usable group", .rows = kGroupRows, .entry = &Whole};
inline constexpr Area<RadioData> kCommon = {.rows = kCommonRows, .entry = &Whole};
inline constexpr Area<RadioData> kDsc = {
    .name = "DSC", .rows = kDscRows, .entry = &Whole, .when = When::kDsc};
inline constexpr Area<CallTypes> kAllShipsCall = {
    .name = "DSC All Ships Call",
    .base = 161,
    .rows = kCallTypeRows,
    .entry = [](RadioData& data, int) -> CallTypes& { return data.Dsc.AllShipsCall; },
    .when = When::kDsc};
inline constexpr Area<CallTypes> kGroupCall = {
    .name = "DSC Group Call",
    .base = 162,
    .rows = kCallTypeRows,
    .entry = [](RadioData& data, int) -> CallTypes& { return data.Dsc.GroupCall; },
    .when = When::kDsc};
inline constexpr Area<CallTypes> kIndividualCall = {
    .name = "DSC Individual Call",
    .base = 163,
    .rows = kCallTypeRows,
    .entry = [](RadioData& data, int) -> CallTypes& { return data.Dsc.IndividualCall; },
    .when = When::kDsc};
inline constexpr Area<RadioData> kAtis = {.name = "ATIS", .rows = kAtisRows, .entry = &Whole};
inline constexpr Area<core::AtisCallSign> kCallSigns = {
    .name = "ATIS call sign",
    .base = places::kCallSignBase,
    .stride = places::kCallSignStride,
    .count = core::kCallSigns,
    .rows = kCallSignRows,
    .entry = [](RadioData& data, int index) -> core::AtisCallSign& {
      return data.CallSigns.Items()[static_cast<std::size_t>(index)];
    },
    .label = Label::kFromOne,
    .when = When::kCallSigns};

/// In the order in which they are written: the user's MMSI after the backup bytes it covers.
template <class Visitor>
constexpr void VisitSettings(Visitor&& visit) {
  visit(kGroups);
  visit(kCommon);
  visit(kDsc);
  visit(kAllShipsCall);
  visit(kGroupCall);
  visit(kIndividualCall);
  visit(kAtis);
  visit(kCallSigns);
}

}  // namespace orvane::image::layout
