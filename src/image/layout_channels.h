#pragma once

#include "image/forms.h"
#include "image/layout_places.h"

/// Channel tables and directories.
namespace orvane::image::layout {

using core::ChannelRecord;
using core::DirectoryEntry;
using core::MarineTable;
using core::RadioData;

template <class Table>
constexpr auto& EntryOf(Table& table, int index) {
  return table[static_cast<std::size_t>(index)];
}

// Bitmaps of a table; offsets count from the enable bitmap.
inline constexpr std::array kMarineBitmapRows = {
    Field<MarineTable, BitmapForm<&ChannelRecord::Enable>>(kFieldAt<&ChannelRecord::Enable>.name,
                                                           places::MarineEnable(0)),
    Field<MarineTable, BitmapForm<&ChannelRecord::ScanMemory>>(
        kFieldAt<&ChannelRecord::ScanMemory>.name, places::MarineEnable(0).MovedBy(32)),
};
inline constexpr std::array kWxBitmapRows = {
    Field<core::WxTable, BitmapForm<&ChannelRecord::Enable>>(kFieldAt<&ChannelRecord::Enable>.name,
                                                             places::kWxEnable),
    Field<core::WxTable, BitmapForm<&ChannelRecord::ScanMemory>>(
        kFieldAt<&ChannelRecord::ScanMemory>.name, places::kWxEnable.MovedBy(16)),
};
inline constexpr std::array kExtraBitmapRows = {
    Field<core::ExtraTable, ExtraEnableForm>(kFieldAt<&ChannelRecord::Enable>.name,
                                             places::kExtraEnable),
    Field<core::ExtraTable, BitmapForm<&ChannelRecord::ScanMemory>>(
        kFieldAt<&ChannelRecord::ScanMemory>.name, places::kExtraEnable.MovedBy(16)),
};

inline constexpr int kNameLength = 12;
inline constexpr When kNamesWhen = kFieldAt<&ChannelRecord::ChTag>.presence.when;
inline constexpr std::array kNameRows = {
    Field<ChannelRecord, NameForm, &ChannelRecord::ChTag>(BytesAt(0, kNameLength)),
};

// Radios that name no channel have no scrambler to set, but keep its bits.
inline constexpr std::array kMarineFlagRows = {
    Field<ChannelRecord, MarinePowerForm>("power code", BitRange(0, 7, 6)),
    Field<ChannelRecord, DuplexForm>(kFieldAt<&ChannelRecord::Duplex>.name, BitAt(0, 5)),
    Field<ChannelRecord, FlagForm, &ChannelRecord::PowUp>(BitAt(0, 4)),
    Field<ChannelRecord, NumberForm, &ChannelRecord::Scramble>(BitRange(0, 3, 1))
        .Only(When::kAlways),
    AlwaysZero<ChannelRecord>(BitAt(0, 0)),
    Carried<ChannelRecord>("second flag byte", BytesAt(1, 1), &NumberText),
};

inline constexpr Bits kTransmitFrequency = BytesAt(8, 3);
// The last byte of the transmit frequency is also the first of the tone block on one model: the
// tone bits are written over it.
inline constexpr std::array kExtraRows = {
    Field<ChannelRecord, ExtraPowerForm>("power code", BitRange(0, 7, 6)),
    Field<ChannelRecord, FlagForm, &ChannelRecord::ClockShift>(BitAt(0, 5)),
    Field<ChannelRecord, FlagForm, &ChannelRecord::PowUp>(BitAt(0, 4)),
    Field<ChannelRecord, NumberForm, &ChannelRecord::Scramble>(BitRange(0, 3, 1))
        .Only(When::kAlways),
    Field<ChannelRecord, NarrowForm>(kFieldAt<&ChannelRecord::Narrow>.name, BitAt(0, 0)),
    Field<ChannelRecord, DisplayForm, &ChannelRecord::CHDisplayL>(BytesAt(1, 2)),
    Field<ChannelRecord, DisplayForm, &ChannelRecord::CHDisplayR>(BytesAt(3, 2)),
    Field<ChannelRecord, FrequencyForm, &ChannelRecord::Rxfreq>(BytesAt(5, 3)),
    Field<ChannelRecord, FrequencyForm, &ChannelRecord::Txfreq>(kTransmitFrequency)
        .Lies(Overlap::kBeneath),
    Field<ChannelRecord, LmrMarkForm, &ChannelRecord::LMR_EXP>(BitAt(15, 7)),
    AlwaysZero<ChannelRecord>(BitRange(15, 6, 4)),
    Field<ChannelRecord, InvertedFlagForm, &ChannelRecord::USA_Group>(BitAt(15, 3)),
    Field<ChannelRecord, InvertedFlagForm, &ChannelRecord::INT_Group>(BitAt(15, 2)),
    Field<ChannelRecord, InvertedFlagForm, &ChannelRecord::CAN_Group>(BitAt(15, 1)),
    AlwaysZero<ChannelRecord>(BitAt(15, 0)),
};

// Offsets count from the record's first tone byte.
inline constexpr std::array kToneRows = {
    Field<ChannelRecord, CtcssForm, &ChannelRecord::RxCTCSS>(Bits{4, 6}).Lies(Overlap::kAbove),
    Field<ChannelRecord, CtcssForm, &ChannelRecord::TxCTCSS>(BitRange(1, 5, 0)),
    Field<ChannelRecord, ReceiveDcsForm>(kFieldAt<&ChannelRecord::RxDCS>.name,
                                         {BytesAt(2, 1), BitRange(0, 5, 4)})
        .Lies(Overlap::kAbove),
    Field<ChannelRecord, TransmitDcsForm, &ChannelRecord::TxDCS>({BytesAt(3, 1), BitAt(0, 7)})
        .Lies(Overlap::kAbove),
};

inline constexpr std::array kDirectoryRows = {
    Field<DirectoryEntry, DigitsForm, &DirectoryEntry::Mmsid>("MMSI", BytesAt(0, 5)),
    Field<DirectoryEntry, NameForm, &DirectoryEntry::TagName>(BytesAt(5, 11)),
};

inline ChannelRecord& WxEntry(RadioData& data, int index) {
  return EntryOf(data.WX, index);
}
inline ChannelRecord& ExtraEntry(RadioData& data, int index) {
  return EntryOf(data.EXP.Items(), index);
}
template <int Group>
ChannelRecord& MarineEntry(RadioData& data, int index) {
  return EntryOf(EntryOf(data.Marine, Group), index);
}
template <int Group>
MarineTable& MarineTableOf(RadioData& data, int /*index*/) {
  return EntryOf(data.Marine, Group);
}

template <int Group>
constexpr Area<MarineTable> MarineBitmaps(std::string_view name) {
  return {.name = name,
          .base = 64 * Group,  // the rows start at the first group's place
          .rows = kMarineBitmapRows,
          .entry = &MarineTableOf<Group>};
}
template <int Group>
constexpr Area<ChannelRecord> MarineFlags(std::string_view name) {
  return {.name = name,
          .base = 768 + 512 * Group,
          .stride = 2,
          .count = core::kMarineChannels,
          .rows = kMarineFlagRows,
          .entry = &MarineEntry<Group>,
          .label = Label::kPlan};
}
template <int Group>
constexpr Area<ChannelRecord> MarineNames(std::string_view name) {
  return {.name = name,
          .base = 3072 + kNameLength * core::kMarineChannels * Group,
          .stride = kNameLength,
          .count = core::kMarineChannels,
          .rows = kNameRows,
          .entry = &MarineEntry<Group>,
          .label = Label::kPlan,
          .when = kNamesWhen};
}

inline constexpr std::array kMarineBitmaps = {MarineBitmaps<0>("USA"), MarineBitmaps<1>("INTL"),
                                              MarineBitmaps<2>("Canada")};
inline constexpr std::array kMarineFlags = {MarineFlags<0>("USA"), MarineFlags<1>("INTL"),
                                            MarineFlags<2>("Canada")};
inline constexpr std::array kMarineNames = {MarineNames<0>("USA"), MarineNames<1>("INTL"),
                                            MarineNames<2>("Canada")};

inline constexpr Area<core::WxTable> kWxBitmaps = {
    .name = "WX", .rows = kWxBitmapRows, .entry = [](RadioData& data, int) -> core::WxTable& {
      return data.WX;
    }};
inline constexpr Area<ChannelRecord> kWxNames = {.name = "WX",
                                                 .base = 11712,
                                                 .stride = kNameLength,
                                                 .count = core::kWxChannels,
                                                 .rows = kNameRows,
                                                 .entry = &WxEntry,
                                                 .label = Label::kFromOne,
                                                 .when = kNamesWhen};

inline constexpr int kExtraBase = 2304;
inline constexpr int kExtraStride = 16;
inline constexpr Area<core::ExtraTable> kExtraBitmaps = {
    .name = "EXP/LMR",
    .rows = kExtraBitmapRows,
    .entry = [](RadioData& data, int) -> core::ExtraTable& { return data.EXP; }};
inline constexpr Area<ChannelRecord> kExtraNames = {.name = "EXP/LMR",
                                                    .base = 11840,
                                                    .stride = kNameLength,
                                                    .count = core::kExtraChannels,
                                                    .rows = kNameRows,
                                                    .entry = &ExtraEntry,
                                                    .label = Label::kFromOne,
                                                    .when = kNamesWhen};
inline constexpr Area<ChannelRecord> kExtraRecords = {.name = "EXP/LMR",
                                                      .base = kExtraBase,
                                                      .stride = kExtraStride,
                                                      .count = core::kExtraChannels,
                                                      .rows = kExtraRows,
                                                      .entry = &ExtraEntry,
                                                      .label = Label::kFromOne};
inline constexpr Area<ChannelRecord> kExtraTones = {.name = "EXP/LMR",
                                                    .base = kExtraBase,
                                                    .stride = kExtraStride,
                                                    .count = core::kExtraChannels,
                                                    .rows = kToneRows,
                                                    .entry = &ExtraEntry,
                                                    .label = Label::kFromOne,
                                                    .when = When::kTones,
                                                    .anchor = Anchor::kToneByte};

inline constexpr Area<DirectoryEntry> kStations = {
    .name = "Station",
    .base = 12800,
    .stride = 16,
    .count = core::kStations,
    .rows = kDirectoryRows,
    .entry = [](RadioData& data, int index) -> DirectoryEntry& {
      return EntryOf(data.Stations.Items(), index);
    },
    .label = Label::kFromOne,
    .when = When::kDsc};
inline constexpr Area<DirectoryEntry> kStationGroups = {
    .name = "Station group",
    .base = 13568,
    .stride = 16,
    .count = core::kStationGroups,
    .rows = kDirectoryRows,
    .entry = [](RadioData& data, int index) -> DirectoryEntry& {
      return EntryOf(data.StationGroups.Items(), index);
    },
    .label = Label::kFromOne,
    .when = When::kDsc};

template <class Visitor>
constexpr void VisitMarineAndWx(Visitor&& visit) {
  for (const auto& area : kMarineBitmaps) visit(area);
  for (const auto& area : kMarineNames) visit(area);
  for (const auto& area : kMarineFlags) visit(area);
  visit(kWxBitmaps);
  visit(kWxNames);
}

template <class Visitor>
constexpr void VisitDirectories(Visitor&& visit) {
  visit(kStations);
  visit(kStationGroups);
}

/// Frequencies before tones: see kExtraRows.
template <class Visitor>
constexpr void VisitExtra(Visitor&& visit) {
  visit(kExtraBitmaps);
  visit(kExtraNames);
  visit(kExtraRecords);
  visit(kExtraTones);
}

}  // namespace orvane::image::layout
