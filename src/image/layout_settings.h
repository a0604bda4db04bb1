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

inline constexpr std::array<std::string_view, core::kUsableGroups> kGroupWords = {
    "USA", "INTL", "Canada", "EXP/LMR"};

template <class Form, int Group, auto Member>
constexpr Row<RadioData> GroupField(Place place) {
  return Field<RadioData, Form, &RadioData::Usable, Group, Member>(place).Of(kGroupWords[Group]);
}

inline constexpr std::array kGroupRows = {
    GroupField<FlagForm, 0, &UsableGroup::Enable>(places::GroupEnable(0)),
    GroupField<FlagForm, 1, &UsableGroup::Enable>(places::GroupEnable(1)),
    GroupField<FlagForm, 2, &UsableGroup::Enable>(places::GroupEnable(2)),
    GroupField<ExtraGroupEnableForm, 3, &UsableGroup::Enable>(places::GroupEnable(3)),
    GroupField<FlagForm, 0, &UsableGroup::TX_TOT>(BitAt(94, 3)),
    GroupField<FlagForm, 1, &UsableGroup::TX_TOT>(BitAt(94, 2)),
    GroupField<FlagForm, 2, &UsableGroup::TX_TOT>(BitAt(94, 1)),
    GroupField<FlagForm, 3, &UsableGroup::TX_TOT>(BitAt(94, 0)),
    GroupField<FlagForm, 0, &UsableGroup::Status_Icon>(BitAt(94, 7)),
    GroupField<FlagForm, 1, &UsableGroup::Status_Icon>(BitAt(94, 6)),
    GroupField<FlagForm, 2, &UsableGroup::Status_Icon>(BitAt(94, 5)),
    GroupField<FlagForm, 3, &UsableGroup::Status_Icon>(BitAt(94, 4)),
    GroupField<ChannelNumberForm, 0, &UsableGroup::Priority_CH>(places::PriorityChannel(0)),
    GroupField<ChannelNumberForm, 1, &UsableGroup::Priority_CH>(places::PriorityChannel(1)),
    GroupField<ChannelNumberForm, 2, &UsableGroup::Priority_CH>(places::PriorityChannel(2)),
    // Radios with DSC keep the middle of their own MMSI in these bytes.
    GroupField<NumberForm, 0, &UsableGroup::Backup>(BytesAt(497, 1)).Lies(Overlap::kBeneath),
    GroupField<NumberForm, 1, &UsableGroup::Backup>(BytesAt(498, 1)).Lies(Overlap::kBeneath),
    GroupField<NumberForm, 2, &UsableGroup::Backup>(BytesAt(499, 1)).Lies(Overlap::kBeneath),
};

template <class Form, auto Member>
constexpr Row<RadioData> CommonField(Place place) {
  return Field<RadioData, Form, &RadioData::Common, Member>(place);
}

inline constexpr std::array kCommonRows = {
    CommonField<NumberForm, &CommonSettings::TX_Po_Display>(BytesAt(68, 1)),
    CommonField<NumberForm, &CommonSettings::Last_TX_Power>(BytesAt(69, 1)),
    CommonField<NumberForm, &CommonSettings::Last_CH_Group>(places::kLastChannelGroup),
    CommonField<NumberForm, &CommonSettings::SQL>(BitRange(74, 7, 4)),
    CommonField<OffsetTimeForm, &CommonSettings::Offset_Time>(BitRange(76, 4, 0)),
    CommonField<NumberForm, &CommonSettings::Magnetic_Variation>(BitAt(76, 6)),
    CommonField<ChannelNumberForm, &CommonSettings::Last_Display_CH>(places::kLastDisplayChannel),
    CommonField<ChannelNumberForm, &CommonSettings::Marine_LMR_CH>(places::kMarineLmrChannel),
    // Every radio with DSC takes the beep bit; only one with call signs gives it back.
    CommonField<FlagForm, &CommonSettings::RotaryBeep>(places::kRotaryBeep).WrittenBy(When::kDsc),
    CommonField<FlagForm, &CommonSettings::SCAN>(BitAt(91, 7)),
    CommonField<FlagForm, &CommonSettings::PTT_SCAN_Clear>(BitAt(91, 3)),
    CommonField<NumberForm, &CommonSettings::Resume_Time>(BitRange(91, 2, 1)),
    CommonField<FlagForm, &CommonSettings::Dual_Watch>(BitAt(93, 7)),
    CommonField<NumberForm, &CommonSettings::Weater>(BitRange(93, 5, 4)),
};

template <class Form, auto... Path>
constexpr Row<RadioData> DscField(Place place) {
  return Field<RadioData, Form, &RadioData::Dsc, Path...>(place);
}
template <int Group>
constexpr Row<RadioData> DscGroup(Place place) {
  constexpr auto kMember = &DscSettings::AvailableGroup;
  return Field<RadioData, FlagForm, &RadioData::Dsc, kMember, Group>("Available", place)
      .Of(kGroupWords[Group]);
}

inline constexpr std::array kDscRows = {
    DscGroup<0>(BitAt(160, 7)),
    DscGroup<1>(BitAt(160, 6)),
    DscGroup<2>(BitAt(160, 5)),
    DscField<FlagForm, &DscSettings::PosRequest, &FlagPair::On>(BitAt(164, 7)),
    DscField<FlagForm, &DscSettings::PosRequest, &FlagPair::Hi>(BitAt(164, 6)),
    DscField<FlagForm, &DscSettings::PosSend, &FlagPair::On>(BitAt(164, 5)),
    DscField<FlagForm, &DscSettings::PosSend, &FlagPair::Hi>(BitAt(164, 4)),
    DscField<FlagForm, &DscSettings::StanbyMode>(BitAt(164, 3)),
    DscField<FlagForm, &DscSettings::DistressCancelCall>(BitAt(164, 2)),
    DscField<FlagForm, &DscSettings::BeepOutput, 0>(BitAt(165, 7)),
    DscField<FlagForm, &DscSettings::BeepOutput, 1>(BitAt(165, 6)),
    DscField<FlagForm, &DscSettings::BeepOutput, 2>(BitAt(165, 5)),
    DscField<FlagForm, &DscSettings::BeepOutput, 3>(BitAt(165, 4)),
    DscField<FlagForm, &DscSettings::BeepOutput, 4>(BitAt(165, 3)),
    DscField<FlagForm, &DscSettings::BeepOutput, 5>(BitAt(165, 2)),
    DscField<FlagForm, &DscSettings::BeepOutput, 6>(BitAt(165, 1)),
    DscField<FlagForm, &DscSettings::BeepOutput, 7>(BitAt(165, 0)),
    DscField<FlagForm, &DscSettings::IndividualAckMenu>(BitAt(166, 7)),
    DscField<FlagForm, &DscSettings::IndividualAckMessageMenu>(BitAt(166, 6)),
    DscField<FlagForm, &DscSettings::PosRequestAckMenu>(BitAt(166, 1)),
    DscField<DigitsForm, &DscSettings::UserMmsi>(BytesAt(496, 5)).Lies(Overlap::kAbove),
};

// One byte a list of calls.
template <auto List>
inline constexpr std::array kCallRows = {
    DscField<FlagForm, List, 0, &FlagPair::On>(BitAt(0, 7)),
    DscField<FlagForm, List, 1, &FlagPair::On>(BitAt(0, 6)),
    DscField<FlagForm, List, 2, &FlagPair::On>(BitAt(0, 5)),
    DscField<FlagForm, List, 3, &FlagPair::On>(BitAt(0, 4)),
    DscField<FlagForm, List, 0, &FlagPair::Hi>(BitAt(0, 3)),
    DscField<FlagForm, List, 1, &FlagPair::Hi>(BitAt(0, 2)),
    DscField<FlagForm, List, 2, &FlagPair::Hi>(BitAt(0, 1)),
    DscField<FlagForm, List, 3, &FlagPair::Hi>(BitAt(0, 0)),
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
    AtisField<FlagForm, &AtisSettings::KillerGroup, 0>("Killer USA", BitAt(505, 3)),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 1>("Killer INTL", BitAt(505, 2)),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 2>("Killer Canada", BitAt(505, 1)),
    AtisField<FlagForm, &AtisSettings::KillerGroup, 3>("Killer EXP/LMR", BitAt(505, 0)),
    Field<RadioData, DigitsForm, &RadioData::Atis, &AtisSettings::Code>(BytesAt(507, 5)),
};

inline constexpr std::array kCallSignRows = {
    Field<core::AtisCallSign, CallSignForm, &core::AtisCallSign::Mid>(places::kCallSignMid),
    Field<core::AtisCallSign, CallSignForm, &core::AtisCallSign::Display>(BytesAt(3, 3)),
};

inline constexpr Area<RadioData> kGroups = {
    .name = "Usable group", .rows = kGroupRows, .entry = &Whole};
inline constexpr Area<RadioData> kCommon = {.rows = kCommonRows, .entry = &Whole};
inline constexpr Area<RadioData> kDsc = {
    .name = "DSC", .rows = kDscRows, .entry = &Whole, .when = When::kDsc};
template <auto List>
constexpr Area<RadioData> CallArea(int base) {
  return {
      .name = kDsc.name, .base = base, .rows = kCallRows<List>, .entry = &Whole, .when = kDsc.when};
}
inline constexpr Area<RadioData> kAllShipsCall = CallArea<&DscSettings::AllShipsCall>(161);
inline constexpr Area<RadioData> kGroupCall = CallArea<&DscSettings::GroupCall>(162);
inline constexpr Area<RadioData> kIndividualCall = CallArea<&DscSettings::IndividualCall>(163);
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
    .when = When::kAtisCallSigns};

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
