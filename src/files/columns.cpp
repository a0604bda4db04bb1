#include "files/columns.h"

#include <array>
#include <cstddef>

#include "core/catalogue_fields.h"
#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/rendering.h"
#include "core/tones.h"

namespace orvane::files {
namespace {

using core::ChannelRecord;
using core::ModelProfile;

constexpr std::size_t kNameWidth = 12;
constexpr std::size_t kMmsiWidth = 9;

std::string PlanReceiveText(const ChannelRow& row) {
  const core::ChannelPlanEntry* plan = core::PlanOf(row.channel);
  return core::PlanFrequencyText(plan == nullptr ? 0 : plan->Receive(row.channel.Duplex));
}

std::string PlanTransmitText(const ChannelRow& row) {
  const core::ChannelPlanEntry* plan = core::PlanOf(row.channel);
  const bool transmits = plan != nullptr && !row.channel.RxOnly;
  return core::PlanFrequencyText(transmits ? plan->tx_frequency : 0);
}

std::string DashesWhenEmpty(std::string_view text, std::size_t width) {
  return text.empty() ? std::string(width, '-') : core::Cell(text, width);
}

std::string PlanLabelText(const ChannelRow& row) {
  return std::string(core::PlanLabel(row.channel.Position));
}

std::string NumberText(const ChannelRow& row) {
  return std::to_string(row.number);
}

using ChannelText = ColumnText<ChannelRow>;

/// Members of the channel that have their rows in the catalogue.
template <auto... kMember>
constexpr ChannelText Showing(ChannelText::Function compose) {
  static_assert((!core::kFieldAt<kMember>.id.empty() && ...));
  return {compose, {&core::kMemberTag<kMember>...}};
}

/// One of the word pairs of core/rendering.h, applied to a flag of the record.
template <core::Flag ChannelRecord::*kFlag, std::string_view (*kWords)(bool)>
constexpr ChannelText kWord = Showing<kFlag>([](const ChannelRow& row) {
  return std::string(kWords(row.channel.*kFlag));
});

/// The code stands under the "S" of its heading.
constexpr auto kIndentedCode = Showing<&ChannelRecord::Scramble>([](const ChannelRow& row) {
  const std::string text = core::ScramblerText(row.channel.Scramble);
  return text.starts_with('-') ? text : " " + text;
});
constexpr auto kCode = Showing<&ChannelRecord::Scramble>(
    [](const ChannelRow& row) { return core::ScramblerText(row.channel.Scramble); });

constexpr auto kName =
    Showing<&ChannelRecord::ChTag>([](const ChannelRow& row) { return row.channel.ChTag; });
constexpr auto kNameOrDashes = Showing<&ChannelRecord::ChTag>(
    [](const ChannelRow& row) { return DashesWhenEmpty(row.channel.ChTag, kNameWidth); });

std::string WxNameText(const ChannelRow& row) {
  return row.profile.wx_name_dashed ? std::string(kNameWidth, '-') : row.channel.ChTag;
}

/// The EXP form shows the three groups instead. Models without channel names have one short grid
/// for both forms.
bool GridHasEnable(const ModelProfile& profile, bool lmr_form) {
  return lmr_form || !profile.has_channel_names;
}

std::string EnabledMarkText(const ChannelRow& row) {
  const bool marked = core::MarkedEnabled(row.profile, row.channel, row.lmr_form);
  return marked ? std::string(core::kEnabledMark) : std::string();
}

/// Carries the mark where no column of its own does.
std::string ExtraNumberGridText(const ChannelRow& row) {
  std::string text = core::ExtraChannelName(row.profile, row.number, row.lmr_form);
  if (!GridHasEnable(row.profile, row.lmr_form)) text += EnabledMarkText(row);
  return text;
}

constexpr auto kDisplayedNumber = Showing<&ChannelRecord::CHDisplayL, &ChannelRecord::CHDisplayR>(
    [](const ChannelRow& row) { return core::DisplayText(row.channel); });

constexpr auto kEnabled = Showing<&ChannelRecord::Enable>([](const ChannelRow& row) {
  return std::string(core::EnableText(core::MarkedEnabled(row.profile, row.channel, row.lmr_form)));
});
constexpr auto kEnabledMark = Showing<&ChannelRecord::Enable>(EnabledMarkText);

template <core::Flag ChannelRecord::*kFlag>
constexpr ChannelText kGroup = Showing<kFlag>([](const ChannelRow& row) {
  return std::string(
      core::UseText(row.channel.*kFlag && core::OfKind(row.profile, row.channel, row.lmr_form)));
});

template <core::Flag ChannelRecord::*kFlag>
bool InGroup(const ChannelRow& row) {
  return row.channel.*kFlag;
}

template <double ChannelRecord::*kFrequency>
constexpr ChannelText kRaster = Showing<kFrequency>([](const ChannelRow& row) {
  return core::RasterFrequencyText(row.channel.*kFrequency);
});

template <double ChannelRecord::*kFrequency>
constexpr ChannelText kExact = Showing<kFrequency>([](const ChannelRow& row) {
  return core::FrequencyText(row.channel.*kFrequency);
});

constexpr auto kReceiveTone =
    Showing<&ChannelRecord::RxCTCSS, &ChannelRecord::RxDCS>([](const ChannelRow& row) {
      return core::ToneText(row.channel, core::ToneDirection::kReceive);
    });
constexpr auto kTransmitTone =
    Showing<&ChannelRecord::TxCTCSS, &ChannelRecord::TxDCS>([](const ChannelRow& row) {
      return core::ToneText(row.channel, core::ToneDirection::kTransmit);
    });

constexpr std::string_view kNameHeading = core::kFieldAt<&ChannelRecord::ChTag>.label;

constexpr auto kLowCell = kWord<&ChannelRecord::LowPower, core::LowText>;
constexpr auto kUpCell = kWord<&ChannelRecord::PowUp, core::UpText>;
constexpr auto kMemCell = kWord<&ChannelRecord::ScanMemory, core::MemText>;

// clang-format off
constexpr std::array kMarineColumns = {
    ChannelColumn{.heading = "CH", .dash_width = 3, .cell_width = 5, .text = PlanLabelText,
                  .caption = "CH", .width_twips = 800},
    ChannelColumn{.heading = "RX(MHz)", .dash_width = 7, .cell_width = 9, .text = PlanReceiveText,
                  .caption = "RX[MHz]", .width_twips = 1000},
    ChannelColumn{.heading = "TX(MHz)", .dash_width = 7, .cell_width = 9, .text = PlanTransmitText,
                  .caption = "TX[MHz]", .width_twips = 1000},
    ChannelColumn{.heading = "TX", .dash_width = 2, .cell_width = 4,
                  .text = kWord<&ChannelRecord::TxEnable, core::TxText>,
                  .caption = "TX", .width_twips = 600, .centered = true},
    ChannelColumn{.heading = "LOW", .dash_width = 3, .cell_width = 5, .text = kLowCell,
                  .caption = "LOW", .width_twips = 600, .centered = true},
    ChannelColumn{.heading = "UP", .dash_width = 2, .cell_width = 4, .text = kUpCell,
                  .caption = "UP", .width_twips = 600, .centered = true},
    ChannelColumn{.heading = "DUP", .dash_width = 3, .cell_width = 5,
                  .text = kWord<&ChannelRecord::Duplex, core::DupText>,
                  .caption = "DUP", .width_twips = 600, .centered = true},
    ChannelColumn{.kind = ColumnKind::kMemory,
                  .heading = "MEM", .dash_width = 3, .cell_width = 5, .text = kMemCell,
                  .caption = "MEM", .width_twips = 600, .centered = true},
    ChannelColumn{.kind = ColumnKind::kScrambler,
                  .heading = "VS", .dash_width = 2, .cell_width = 4, .text = kIndentedCode,
                  .caption = "VS", .width_twips = 600, .centered = true,
                  .grid_text = kCode},
    ChannelColumn{.kind = ColumnKind::kName,
                  .heading = kNameHeading, .dash_width = 12, .cell_width = 12, .text = kName,
                  .caption = kNameHeading, .width_twips = 2000},
};

constexpr std::array kWxColumns = {
    ChannelColumn{.heading = "CH", .dash_width = 2, .cell_width = 4, .text = NumberText},
    ChannelColumn{.heading = "ENABLE", .dash_width = 6, .cell_width = 8,
                  .text = kWord<&ChannelRecord::Enable, core::EnableText>},
    ChannelColumn{.kind = ColumnKind::kMemory,
                  .heading = "MEM", .dash_width = 3, .cell_width = 5, .text = kMemCell},
    ChannelColumn{.kind = ColumnKind::kName,
                  .heading = kNameHeading, .dash_width = 12, .cell_width = 12, .text = WxNameText},
};

constexpr std::array kExtraColumns = {
    ChannelColumn{.heading = "CH", .dash_width = 2, .cell_width = 4, .text = NumberText,
                  .caption = "CH", .width_twips = 800, .grid_text = ExtraNumberGridText,
                  .print_step = 1},
    ChannelColumn{.kind = ColumnKind::kReportDisplay,
                  .heading = "CHD", .dash_width = 4, .cell_width = 6, .text = kDisplayedNumber,
                  .caption = "CHD", .width_twips = 800, .print_step = 2},
    ChannelColumn{.kind = ColumnKind::kEnable,
                  .heading = "ENABLE", .dash_width = 6, .cell_width = 8, .text = kEnabled,
                  .caption = "ENABLE", .width_twips = 1000, .grid_text = kEnabledMark,
                  .print_step = 3},
    ChannelColumn{.kind = ColumnKind::kGroup,
                  .heading = "USA", .dash_width = 3, .cell_width = 5,
                  .text = kGroup<&ChannelRecord::USA_Group>,
                  .caption = "USA", .width_twips = 600, .centered = true,
                  .checked = InGroup<&ChannelRecord::USA_Group>},
    ChannelColumn{.kind = ColumnKind::kGroup,
                  .heading = "INT", .dash_width = 3, .cell_width = 5,
                  .text = kGroup<&ChannelRecord::INT_Group>,
                  .caption = "INTL", .width_twips = 600, .centered = true,
                  .checked = InGroup<&ChannelRecord::INT_Group>},
    ChannelColumn{.kind = ColumnKind::kGroup,
                  .heading = "CAN", .dash_width = 3, .cell_width = 5,
                  .text = kGroup<&ChannelRecord::CAN_Group>,
                  .caption = "CAN", .width_twips = 600, .centered = true,
                  .checked = InGroup<&ChannelRecord::CAN_Group>},
    ChannelColumn{.kind = ColumnKind::kGridDisplay, .text = kDisplayedNumber,
                  .caption = "DISP", .width_twips = 800},
    ChannelColumn{.heading = "RX(MHz)", .dash_width = 8, .cell_width = 10,
                  .text = kRaster<&ChannelRecord::Rxfreq>,
                  .caption = "RX[MHz]", .width_twips = 1000,
                  .grid_text = kExact<&ChannelRecord::Rxfreq>, .print_step = 4},
    ChannelColumn{.heading = "TX(MHz)", .dash_width = 8, .cell_width = 10,
                  .text = kRaster<&ChannelRecord::Txfreq>,
                  .caption = "TX[MHz]", .width_twips = 1000,
                  .grid_text = kExact<&ChannelRecord::Txfreq>, .print_step = 5},
    ChannelColumn{.heading = "LOW", .dash_width = 3, .cell_width = 5, .text = kLowCell,
                  .caption = "LOW", .width_twips = 600, .centered = true, .print_step = 7},
    ChannelColumn{.heading = "UP", .dash_width = 2, .cell_width = 4, .text = kUpCell,
                  .caption = "UP", .width_twips = 600, .centered = true, .print_step = 8},
    ChannelColumn{.kind = ColumnKind::kMemory,
                  .heading = "MEM", .dash_width = 3, .cell_width = 5, .text = kMemCell,
                  .caption = "MEM", .width_twips = 600, .centered = true, .print_step = 9},
    ChannelColumn{.kind = ColumnKind::kScrambler,
                  .heading = "VS", .dash_width = 2, .cell_width = 4, .text = kIndentedCode,
                  .caption = "VS", .width_twips = 600, .centered = true,
                  .grid_text = kCode, .print_step = 11},
    ChannelColumn{.kind = ColumnKind::kName,
                  .heading = kNameHeading, .dash_width = 12, .cell_width = 14,
                  .text = kNameOrDashes,
                  .caption = kNameHeading, .width_twips = 2000, .grid_text = kName,
                  .print_step = 12},
    // Three letters over two dashes: the heading starts one place early.
    ChannelColumn{.kind = ColumnKind::kTone,
                  .heading = "W/N", .dash_width = 2, .heading_early = 1, .cell_width = 4,
                  .text = kWord<&ChannelRecord::Narrow, core::NarrowText>,
                  .caption = "W/N", .width_twips = 600, .centered = true, .print_step = 13},
    ChannelColumn{.kind = ColumnKind::kTone,
                  .heading = "RXT", .dash_width = 7, .cell_width = 9,
                  .text = kReceiveTone,
                  .caption = "RxTone", .width_twips = 800, .print_step = 14},
    ChannelColumn{.kind = ColumnKind::kTone,
                  .heading = "CMP", .dash_width = 3, .cell_width = 5,
                  .text = kWord<&ChannelRecord::RxComp, core::CmpText>,
                  .caption = "Comp", .width_twips = 600, .centered = true, .print_step = 15},
    ChannelColumn{.kind = ColumnKind::kTone,
                  .heading = "TXT", .dash_width = 7, .cell_width = 7,
                  .text = kTransmitTone,
                  .caption = "TxTone", .width_twips = 800, .print_step = 16},
};

constexpr DirectoryColumn kDirectoryNumber = {
    .heading = "No.", .dash_width = 3, .cell_width = 5,
    .text = +[](const DirectoryRow& row) { return std::to_string(row.number); }};
constexpr DirectoryColumn kDirectoryName = {
    .heading = "Station Name", .dash_width = 12, .cell_width = 14,
    .text = +[](const DirectoryRow& row) { return DashesWhenEmpty(row.entry.TagName, kNameWidth); }};
constexpr DirectoryColumn kDirectoryMmsi = {
    .heading = "MMSI", .dash_width = 9, .cell_width = 9,
    .text = +[](const DirectoryRow& row) { return DashesWhenEmpty(row.entry.Mmsid, kMmsiWidth); }};
// clang-format on

template <class Columns, class Shows>
std::vector<ChannelColumn> Pick(const Columns& columns, Shows shows) {
  std::vector<ChannelColumn> picked;
  for (const ChannelColumn& column : columns) {
    if (shows(column.kind)) picked.push_back(column);
  }
  return picked;
}

bool Chosen(ColumnKind kind, const core::ColumnChoice& choice) {
  switch (kind) {
    case ColumnKind::kCommon:
      return true;
    case ColumnKind::kMemory:
      return choice.scan_memory;
    case ColumnKind::kScrambler:
      return choice.scrambler;
    case ColumnKind::kName:
      return choice.name;
    default:
      return false;
  }
}

/// A view of the EXP/LMR table.
struct ExtraView {
  core::ColumnChoice choice;
  bool tones;
  bool lmr_form;
  ColumnKind display;
};

std::vector<ChannelColumn> PickExtra(const ExtraView& view) {
  return Pick(kExtraColumns, [&](ColumnKind kind) {
    if (kind == ColumnKind::kTone) return view.tones;
    if (kind == ColumnKind::kEnable) return view.lmr_form;
    if (kind == ColumnKind::kGroup) return !view.lmr_form;
    return kind == view.display || Chosen(kind, view.choice);
  });
}

core::ColumnChoice GridChoice(const ModelProfile& profile) {
  const bool full = profile.has_channel_names;
  return {.scan_memory = true, .scrambler = full, .name = full};
}

}  // namespace

std::vector<int> EnabledMarineRows(const core::MarineTable& table) {
  std::vector<int> rows;
  for (int i = 0; i < core::kMarineChannels; ++i) {
    if (table[static_cast<std::size_t>(i)].Enable) rows.push_back(i);
  }
  return rows;
}

std::vector<ChannelColumn> MarineGridColumns(const ModelProfile& profile) {
  return Pick(kMarineColumns,
              [choice = GridChoice(profile)](ColumnKind kind) { return Chosen(kind, choice); });
}

std::vector<ChannelColumn> ExtraGridColumns(const ModelProfile& profile, bool lmr_form) {
  return PickExtra({.choice = GridChoice(profile),
                    .tones = profile.has_channel_names,
                    .lmr_form = GridHasEnable(profile, lmr_form),
                    .display = ColumnKind::kGridDisplay});
}

std::vector<ChannelColumn> MarineReportColumns(const ModelProfile& profile) {
  return Pick(kMarineColumns,
              [&](ColumnKind kind) { return Chosen(kind, profile.marine_columns); });
}

std::vector<ChannelColumn> WxReportColumns(const ModelProfile& profile) {
  return Pick(kWxColumns, [&](ColumnKind kind) { return Chosen(kind, profile.wx_columns); });
}

std::vector<ChannelColumn> ExtraReportColumns(const ModelProfile& profile, bool lmr_form) {
  std::vector<ChannelColumn> columns = PickExtra({.choice = profile.extra_columns,
                                                  .tones = profile.HasTones(),
                                                  .lmr_form = lmr_form,
                                                  .display = ColumnKind::kReportDisplay});
  for (ChannelColumn& column : columns) {
    if (column.kind == ColumnKind::kReportDisplay) column.dash_width = profile.display_dashes;
  }
  // A name that ends the row has no gap behind it.
  ChannelColumn& last = columns.back();
  if (last.kind == ColumnKind::kName) last.cell_width = last.dash_width;
  return columns;
}

std::vector<ChannelColumn> ExtraPrintColumns(const ModelProfile& profile, bool lmr_form) {
  const bool full = profile.HasTones();
  return PickExtra({.choice = {.scan_memory = profile.extra_columns.scan_memory,
                               .scrambler = full,
                               .name = full},
                    .tones = full,
                    .lmr_form = lmr_form,
                    .display = ColumnKind::kReportDisplay});
}

std::vector<DirectoryColumn> StationColumns() {
  return {kDirectoryNumber, kDirectoryName, kDirectoryMmsi};
}

std::vector<DirectoryColumn> StationGroupColumns() {
  std::vector<DirectoryColumn> columns = StationColumns();
  columns[1].heading = "Group Name";
  return columns;
}

bool RowInLmrForm(const ModelProfile& profile, const ChannelRecord& channel) {
  return !profile.splits_lmr_and_exp || channel.IsLmr();
}

}  // namespace orvane::files
