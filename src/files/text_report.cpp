#include "files/text_report.h"

#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "core/model_profile.h"
#include "files/columns.h"
#include "files/text_report_lines.h"

namespace orvane::files {
namespace {

using core::RadioData;

constexpr std::size_t kUsualLength = 32768;  // bytes a full report takes

/// The text so far. A line break stands before each line, so that none follows the last.
class ReportText {
 public:
  ReportText() { text_.reserve(kUsualLength); }

  void BeginLine() { text_ += "\r\n"; }
  void Add(std::string_view text) { text_ += text; }
  void AddCell(std::string_view text, int width) {
    text_ += text.substr(0, static_cast<std::size_t>(width));
    if (static_cast<std::size_t>(width) > text.size()) {
      text_.append(static_cast<std::size_t>(width) - text.size(), ' ');
    }
  }
  void AddTitle(const std::string& title) {
    BeginLine();
    BeginLine();
    Add(TitleLine(title));
  }

  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  std::string text_;
};

void AddSection(ReportText& report, const ReportSection& section) {
  report.AddTitle(section.title);
  for (const ReportLine& line : section.lines) {
    report.BeginLine();
    for (const ReportCell& cell : line.cells) report.AddCell(cell.text, cell.width);
  }
}

/// The heading and dash lines. Neither is filled at its end.
template <class Row>
void AddHeading(ReportText& report, const std::vector<Column<Row>>& columns) {
  constexpr std::size_t kGap = 2;
  std::string headings;
  std::string dashes;
  for (const Column<Row>& column : columns) {
    if (!dashes.empty()) dashes.append(kGap, ' ');
    headings.resize(dashes.size() - static_cast<std::size_t>(column.heading_early), ' ');
    headings += column.heading;
    dashes.append(static_cast<std::size_t>(column.dash_width), '-');
  }
  report.BeginLine();
  report.Add(headings);
  report.BeginLine();
  report.Add(dashes);
}

template <class Row>
void AddRow(ReportText& report, const std::vector<Column<Row>>& columns, const Row& row) {
  report.BeginLine();
  for (const Column<Row>& column : columns) report.AddCell(column.text(row), column.cell_width);
}

void AddMarineTable(ReportText& report, const RadioData& data, core::MarineGroup group) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const std::vector<ChannelColumn> columns = MarineReportColumns(profile);
  const core::MarineTable& table = data.Table(group);
  report.AddTitle(MarineTitle(group));
  AddHeading(report, columns);
  for (const int index : EnabledMarineRows(table)) {
    AddRow(report, columns,
           ChannelRow{.profile = profile,
                      .channel = table[static_cast<std::size_t>(index)],
                      .number = index});
  }
}

void AddWxTable(ReportText& report, const RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const std::vector<ChannelColumn> columns = WxReportColumns(profile);
  report.AddTitle(WxTitle(/*printed=*/false));
  AddHeading(report, columns);
  int number = 0;
  for (const core::ChannelRecord& channel : data.WX) {
    AddRow(report, columns, ChannelRow{.profile = profile, .channel = channel, .number = ++number});
  }
}

template <class Directory>
void AddDirectory(ReportText& report, const std::string& title,
                  const std::vector<DirectoryColumn>& columns, const Directory& directory) {
  report.AddTitle(title);
  AddHeading(report, columns);
  int number = 0;
  for (const core::DirectoryEntry& entry : directory) {
    AddRow(report, columns, DirectoryRow{.entry = entry, .number = ++number});
  }
}

void AddExtraTable(ReportText& report, const RadioData& data, bool lmr_pass) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const std::vector<ChannelColumn> lmr_columns = ExtraReportColumns(profile, true);
  const std::vector<ChannelColumn> exp_columns = ExtraReportColumns(profile, false);
  report.AddTitle(ExtraTitle(profile, lmr_pass));
  AddHeading(report, lmr_pass ? lmr_columns : exp_columns);
  int number = 0;
  for (const core::ChannelRecord& channel : data.EXP) {
    AddRow(report, RowInLmrForm(profile, channel) ? lmr_columns : exp_columns,
           ChannelRow{
               .profile = profile, .channel = channel, .number = ++number, .lmr_form = lmr_pass});
  }
}

}  // namespace

std::string BuildTextReport(const RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  ReportText report;
  AddSection(report, GroupSection(data, /*printed=*/false));
  AddSection(report, CommonSection(data));
  if (profile.has_dsc) {
    for (const ReportSection& section : DscSections(data)) AddSection(report, section);
  }
  if (profile.reports_atis) AddSection(report, AtisSection(data));
  if (profile.has_call_signs) AddSection(report, CallSignSection(data));
  for (const core::MarineGroup group : core::kMarineGroups) {
    if (data.Usable[static_cast<std::size_t>(group)].Enable) AddMarineTable(report, data, group);
  }
  AddWxTable(report, data);
  if (profile.has_dsc) {
    AddDirectory(report, "Memory ID Setting", StationColumns(), data.Stations);
    AddDirectory(report, "Group ID Setting", StationGroupColumns(), data.StationGroups);
  }
  if (data.LmrPresent()) AddExtraTable(report, data, /*lmr_pass=*/true);
  if (profile.splits_lmr_and_exp && data.ExpPresent) {
    AddExtraTable(report, data, /*lmr_pass=*/false);
  }
  return report.Take();
}

}  // namespace orvane::files
