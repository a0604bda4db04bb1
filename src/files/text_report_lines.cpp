#include "files/text_report_lines.h"

#include <array>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>

#include "core/channel_plan.h"
#include "core/rendering.h"
#include "image/raw_areas.h"

namespace orvane::files {
namespace {

using core::RadioData;

constexpr int kLabelWidth = 35;
constexpr int kValueWidth = 18;
constexpr int kWideValueWidth = 35;

ReportLine Empty() {
  return {};
}

ReportLine SubHeading(std::string_view text) {
  return {.cells = {{.text = std::string(text), .width = static_cast<int>(text.size())}}};
}

/// A label with its values, all of one width.
class Line {
 public:
  explicit Line(std::string_view label, int value_width = kValueWidth) : width_(value_width) {
    line_.cells.push_back({.text = std::string(label), .width = kLabelWidth});
  }
  Line(std::string_view label, std::string_view value, int value_width = kValueWidth)
      : Line(label, value_width) {
    Add(value);
  }

  Line& Add(std::string_view value) {
    line_.cells.push_back({.text = std::string(value), .width = width_});
    return *this;
  }
  Line& AddOnOff(std::span<const core::Flag> flags) {
    for (const core::Flag flag : flags) Add(core::OnOffText(flag));
    return *this;
  }
  Line& TextReportOnly() {
    line_.printed = false;
    return *this;
  }

  operator ReportLine() const { return line_; }  // NOLINT(google-explicit-constructor)

 private:
  ReportLine line_;
  int width_;
};

Line OnOffLine(std::string_view label, bool flag) {
  return {label, core::OnOffText(flag)};
}

Line PairLine(std::string_view label, const core::FlagPair& pair) {
  return OnOffLine(label, pair.On).Add(core::HiLowText(pair.Hi));
}

ReportLine TextReportOnly(ReportLine line) {
  line.printed = false;
  return line;
}

/// The four channel groups as column heads.
Line GroupHeads(const core::ModelProfile& profile) {
  Line line("");
  line.Add("USA").Add("INTL").Add("Canada").Add(std::string(profile.extra_word) + " CH");
  return line;
}

/// One value for each of the four groups. Models that split the fourth group repeat its value for
/// the EXP channels, where the line has one for them.
template <class Value>
ReportLine GroupLine(const RadioData& data, std::string_view label, bool with_exp, Value value) {
  Line line(label);
  for (const core::UsableGroup& group : data.Usable) line.Add(value(group));
  if (with_exp) line.Add(value(data.Usable[core::kExtraGroup]));
  return line;
}

ReportLine EnableLine(const RadioData& data, bool with_exp) {
  Line line("Enable");
  for (const core::UsableGroup& group : data.Usable) line.Add(core::OnOffText(group.Enable));
  if (with_exp) line.Add(core::OnOffText(data.ExpPresent));
  return line;
}

ReportLine PriorityLine(const RadioData& data, const core::ModelProfile& profile) {
  Line line("Priority CH");
  for (std::size_t group = 0; group < core::kExtraGroup; ++group) {
    line.Add(core::ChannelLabel(data.Usable[group].Priority_CH, profile.extra_word));
  }
  return line;
}

ReportSection DscBasicSection(const RadioData& data) {
  constexpr int kGroupValueWidth = 20;
  constexpr int kMmsiCellWidth = 12;
  const core::DscSettings& dsc = data.Dsc;
  ReportLine mmsi = Line("User MMSI:", dsc.UserMmsi, kMmsiCellWidth);
  const std::string count = "----- " + core::Cell("Count", 6) + ": " +
                            std::to_string(data.Image[image::kMmsiCountOffset]);
  mmsi.cells.push_back({.text = count, .width = static_cast<int>(count.size())});

  ReportSection section{
      .title = "DSC Setup (Basic Setup)",
      .lines = {SubHeading("[Available DSC CH Group]"),
                Line("USA:", core::OnOffText(dsc.AvailableGroup[0]), kGroupValueWidth),
                Line("INTL:", core::OnOffText(dsc.AvailableGroup[1]), kGroupValueWidth),
                Line("Canada:", core::OnOffText(dsc.AvailableGroup[2]), kGroupValueWidth), Empty(),
                mmsi, OnOffLine("Distress Cancel Call:", dsc.DistressCancelCall),
                OnOffLine("Stanby Mode:", dsc.StanbyMode), PairLine("POS Request:", dsc.PosRequest),
                PairLine("POS Send:", dsc.PosSend), Empty(), SubHeading("[DSC Beep Output]")}};
  // The report's order, each with its place among the stored flags.
  constexpr std::array<std::pair<std::string_view, std::size_t>, 7> kBeeps = {
      {{"Send Distress Alert:", 0},
       {"Received All Ships:", 1},
       {"Received Individual:", 3},
       {"Received Group:", 2},
       {"Received Geografic:", 6},
       {"Received POS Request:", 4},
       {"Received POS Send:", 5}}};
  for (const auto& [label, index] : kBeeps) {
    section.lines.push_back(OnOffLine(label, dsc.BeepOutput[index]));
  }
  return section;
}

void AddCallTypes(ReportSection& section, std::string_view heading,
                  const std::array<core::FlagPair, 4>& calls) {
  constexpr std::array<std::string_view, 4> kLabels = {
      "Distress:", "Urgency:", "Safty:", "Routine:"};
  if (!section.lines.empty()) section.lines.push_back(Empty());
  section.lines.push_back(SubHeading(heading));
  for (std::size_t i = 0; i < kLabels.size(); ++i) {
    section.lines.push_back(PairLine(kLabels[i], calls[i]));
  }
}

ReportSection DscAdvancedSection(const RadioData& data) {
  ReportSection section{.title = "DSC Setup (Advanced Setup)", .lines = {}};
  AddCallTypes(section, "[All Ships Call]", data.Dsc.AllShipsCall);
  AddCallTypes(section, "[Group Call]", data.Dsc.GroupCall);
  AddCallTypes(section, "[Individual Call]", data.Dsc.IndividualCall);
  return section;
}

ReportSection DscDisplaySection(const RadioData& data) {
  return {.title = "DSC Setup (Display Setup)",
          .lines = {OnOffLine("Individual ACK Menu:", data.Dsc.IndividualAckMenu),
                    OnOffLine("Individual ACK Message Menu:", data.Dsc.IndividualAckMessageMenu),
                    OnOffLine("POS Request ACK Menu:", data.Dsc.PosRequestAckMenu)}};
}

}  // namespace

std::string TitleLine(const std::string& title) {
  return "##### " + title + " #####";
}

std::string MarineTitle(core::MarineGroup group) {
  constexpr std::array<std::string_view, 3> kNames = {"USA", "International", "Canada"};
  return "Programable " + std::string(kNames[static_cast<std::size_t>(group)]) + " Channel";
}

std::string WxTitle(bool printed) {
  return std::string("Programable ") + (printed ? "WX" : "Wx") + " Channel";
}

std::string ExtraTitle(const core::ModelProfile& profile, bool lmr_pass) {
  return "Programable " + std::string(profile.GroupWord(lmr_pass)) + " Channel";
}

ReportSection GroupSection(const RadioData& data, bool printed) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const bool with_exp = profile.splits_lmr_and_exp;
  Line heads = GroupHeads(profile);
  if (with_exp) heads.Add("EXP CH");
  ReportSection section{
      .title = "Available CH Group Setup",
      .lines = {heads, EnableLine(data, with_exp),
                GroupLine(data, "TX TOT", with_exp,
                          [](const auto& group) { return core::OnOffText(group.TX_TOT); }),
                PriorityLine(data, profile),
                GroupLine(data, "Status Icon", false,
                          [](const auto& group) { return core::OnOffText(group.Status_Icon); })}};
  if (profile.has_channel_names) {
    section.lines.push_back(
        GroupLine(data, printed ? "Status name" : "Status Name", with_exp,
                  [](const auto& group) { return core::StatusNameText(group.Status_name); }));
  }
  return section;
}

ReportSection CommonSection(const RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const core::CommonSettings& common = data.Common;
  ReportSection section{
      .title = "Common Setup",
      .lines = {
          SubHeading("[Starting TX Mode]"),
          Line("TX Po Display:", core::TxPoDisplayText(common.TX_Po_Display), kWideValueWidth),
          Empty(), SubHeading("[Scanning Function]"), OnOffLine("SCAN:", common.SCAN),
          Line("Resume Time:", core::ResumeTimeText(common.Resume_Time)),
          OnOffLine("PTT SCAN Clear:", common.PTT_SCAN_Clear),
          OnOffLine("Dual Watch:", common.Dual_Watch)}};
  std::vector<ReportLine>& lines = section.lines;
  if (profile.has_dsc) {
    lines.push_back(TextReportOnly(Empty()));
    lines.push_back(TextReportOnly(SubHeading("[NMEA Data Input]")));
    lines.push_back(
        Line("Offset Time:", core::OffsetTimeText(common.Offset_Time)).TextReportOnly());
    lines.push_back(
        Line("Magnetic Variation:", core::MagneticVariationText(common.Magnetic_Variation))
            .TextReportOnly());
  }
  lines.push_back(Empty());
  lines.push_back(SubHeading("[Weather CH Function]"));
  lines.push_back(Line("Weather Alert:", core::WeatherAlertText(common.Weater), kWideValueWidth));
  if (profile.has_call_signs) {
    lines.push_back(OnOffLine("Rotary Beep:", common.RotaryBeep).TextReportOnly());
  }
  return section;
}

ReportSection AtisSection(const RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const core::AtisSettings& atis = data.Atis;
  ReportSection section{
      .title = "ATIS Setup (Common)",
      .lines = {GroupHeads(profile), Line("Usable ATIS CH Group:").AddOnOff(atis.UsableGroup),
                Line("ATIS Code:", atis.Code)}};
  if (profile.has_call_signs) {
    section.lines.push_back(
        Line("Usable ATIS Killer CH Group:").AddOnOff(atis.KillerGroup).TextReportOnly());
  }
  return section;
}

ReportSection CallSignSection(const RadioData& data) {
  constexpr int kHalf = core::kCallSigns / 2;
  ReportSection section{
      .title = "ATIS Setup (Call Sign)",
      .lines = {
          {.cells = {
               {"", 10}, {"MID", 10}, {"Display", 18}, {"", 10}, {"MID", 10}, {"Display", 10}}}}};
  for (int n = 1; n <= kHalf; ++n) {
    const core::AtisCallSign& left = data.CallSigns[n];
    const core::AtisCallSign& right = data.CallSigns[n + kHalf];
    section.lines.push_back({.cells = {{"No." + std::to_string(n), 10},
                                       {left.Mid, 10},
                                       {left.Display, 20},
                                       {"No." + std::to_string(n + kHalf), 10},
                                       {right.Mid, 10},
                                       {right.Display, 10}}});
  }
  return section;
}

std::vector<ReportSection> DscSections(const RadioData& data) {
  return {DscBasicSection(data), DscAdvancedSection(data), DscDisplaySection(data)};
}

}  // namespace orvane::files
