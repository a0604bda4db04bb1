#pragma once

#include "image/layout_places.h"
#include "image/layout_settings.h"

/// Known memory that is neither decoded nor encoded. It stands here for the memory map; the
/// radio's or the file's own bytes are carried through.
namespace orvane::image::layout {

constexpr Row<RadioData> CarriedNumber(std::string_view name, Place place) {
  return Carried<RadioData>(name, place, &NumberText);
}
constexpr Row<RadioData> CarriedText(std::string_view name, int offset) {
  return Carried<RadioData>(name, BytesAt(offset, 16), &CharactersText);
}
constexpr Row<RadioData> CarriedTable(std::string_view name, int offset, int length = 16) {
  return Carried<RadioData>(name, BytesAt(offset, length), &NoText);
}

inline constexpr std::array kCarriedRows = {
    CarriedNumber("model code in clone mode", places::kRadioModelCode)
        .Only(When::kCodeAtStart)
        .Housekeeping(),
    CarriedNumber("model code", places::kModelCode).Housekeeping(),
    CarriedNumber("current channel mode", places::kChannelMode),
    CarriedNumber("last WX channel", places::kLastWxChannel),
    CarriedNumber("radio's own bits", BitRange(90, 7, 1)).Housekeeping(),
    CarriedNumber("checksum of the common settings", places::kCommonChecksum).Housekeeping(),
    CarriedNumber("SEL1", places::kSel1),
    CarriedNumber("SEL2", places::kSel2),
    CarriedNumber("radio's own bit", places::kRadioOwnBit).Housekeeping(),
    CarriedTable("bytes set by New", 170, 20),
    CarriedNumber("User MMSI count", places::kMmsiCount),
    CarriedNumber("mark of a programmed image", places::kWrittenMark).Housekeeping(),
    CarriedNumber("ATIS mode USA", places::AtisMode(0)).Housekeeping(),
    CarriedNumber("ATIS mode INTL", places::AtisMode(1)).Housekeeping(),
    CarriedNumber("ATIS mode Canada", places::AtisMode(2)).Housekeeping(),
    CarriedNumber("ATIS mode EXP/LMR", places::AtisMode(3)).Housekeeping(),
    CarriedText("text 1", 512),
    CarriedText("text 2", 528),
    CarriedText("text 3", 544),
    CarriedTable("table 1", 560),
    CarriedTable("table 2", 576),
    CarriedTable("table 3", 592),
    CarriedTable("table 4", 608),
    CarriedTable("table 5", 624),
    CarriedTable("table 6", 752),
    CarriedNumber("product byte", places::kProduct).Only(When::kFullImage).Housekeeping(),
};

inline constexpr std::array kStoredChannelRows = {
    Carried<RadioData>("stored channel", places::StoredChannel(0, 0), &StoredChannelText),
};
// The consistency pass looks for a call sign in every radio with DSC, also where none can be set.
inline constexpr std::array kCarriedCallSignRows = {
    Carried<RadioData>("MID", places::kCallSignMid, &CharactersText),
};
inline constexpr std::array kModelCodeRows = {
    CarriedNumber("model code, second copy", places::kModelCodeFromEnd).Housekeeping(),
};

inline constexpr Area<RadioData> kCarried = {.rows = kCarriedRows, .entry = &Whole};
inline constexpr Area<RadioData> kModelCodeCopy = {
    .rows = kModelCodeRows, .entry = &Whole, .anchor = Anchor::kEnd};

inline constexpr Area<RadioData> kCarriedCallSigns = {.name = "ATIS call sign",
                                                      .base = places::kCallSignBase,
                                                      .stride = places::kCallSignStride,
                                                      .count = core::kCallSigns,
                                                      .rows = kCarriedCallSignRows,
                                                      .entry = &Whole,
                                                      .label = Label::kFromOne,
                                                      .when = When::kDscOnly};

constexpr Area<RadioData> StoredChannels(std::string_view group_name, int group) {
  const int stride = (places::StoredChannel(0, 1).first - places::StoredChannel(0, 0).first) / 8;
  return {
      .name = group_name,
      .base = places::StoredChannel(group, 0).FirstByte() - places::StoredChannel(0, 0).FirstByte(),
      .stride = stride,
      .count = places::kStoredChannelsPerGroup,
      .rows = kStoredChannelRows,
      .entry = &Whole,
      .label = Label::kFromOne};
}
inline constexpr std::array kStoredChannels = {StoredChannels("USA", 0), StoredChannels("INTL", 1),
                                               StoredChannels("Canada", 2)};

template <class Visitor>
constexpr void VisitCarried(Visitor&& visit) {
  visit(kCarried);
  visit(kModelCodeCopy);
  visit(kCarriedCallSigns);
  for (const auto& area : kStoredChannels) visit(area);
}

}  // namespace orvane::image::layout
