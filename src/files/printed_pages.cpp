#include "files/printed_pages.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <span>
#include <string_view>
#include <utility>

#include "core/model_profile.h"
#include "core/text.h"
#include "files/columns.h"
#include "files/text_report_lines.h"

namespace orvane::files {
namespace {

using core::RadioData;

/// Steps from column to column, mm. The position of a column is the sum of the steps before it.
constexpr std::array<int, 10> kMarineSteps = {0, 12, 17, 17, 8, 9, 8, 9, 9, 8};
constexpr std::array<int, 4> kWxSteps = {0, 9, 19, 12};
/// Not every table has a column for each of these; ChannelColumn::print_step names a column's own.
constexpr std::array<int, 17> kExtraSteps = {0,  8,  10, 17, 19, 19, 8, 10, 7,
                                             10, 10, 7,  22, 7,  15, 7, 15};
constexpr int kFirstValueMm = 50;
constexpr int kValueStepMm = 30;

constexpr int kFewestLines = 8;  // page header, title, headings and a few rows

/// A text and its position on the line, before the left margin is added.
struct LineText {
  double x;
  std::string text;
};

/// Fills pages line by line from the top.
class PageWriter {
 public:
  explicit PageWriter(std::string header, int lines_per_page)
      : header_(std::move(header)), lines_per_page_(std::max(lines_per_page, kFewestLines)) {}

  void NewPage() {
    pages_.emplace_back();
    line_ = 0;
    WriteLine({{.x = 0, .text = header_}});
    WriteLine({});
  }
  [[nodiscard]] bool PageFull() const { return line_ >= lines_per_page_; }

  /// A text that would run into its neighbour or off the page is cut.
  void WriteLine(const std::vector<LineText>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) {
      const double end = i + 1 < texts.size() ? texts[i + 1].x : kPrintRightMm - kPrintLeftMm;
      const std::string_view whole = texts[i].text;
      const std::string_view text = core::TrimRight(whole.substr(0, Room(texts[i].x, end)));
      if (text.empty()) continue;
      pages_.back().texts.push_back(
          {.x_mm = texts[i].x + kPrintLeftMm, .line = line_, .text = std::string(text)});
    }
    ++line_;
  }

  [[nodiscard]] std::vector<PrintedPage> Take() { return std::move(pages_); }

 private:
  /// Characters that fit between two positions.
  static std::size_t Room(double x, double next_x) {
    constexpr double kRounding = 1e-9;
    return static_cast<std::size_t>((next_x - x) / kPrintCharacterMm + kRounding);
  }

  std::string header_;
  int lines_per_page_;
  int line_ = 0;
  std::vector<PrintedPage> pages_;
};

void WriteSection(PageWriter& writer, const ReportSection& section) {
  const auto write = [&writer](const std::vector<LineText>& texts) {
    if (writer.PageFull()) writer.NewPage();
    writer.WriteLine(texts);
  };
  write({});
  write({{.x = 0, .text = TitleLine(section.title)}});
  for (const ReportLine& line : section.lines) {
    if (!line.printed) continue;
    std::vector<LineText> texts;
    double x = 0;
    for (const ReportCell& cell : line.cells) {
      texts.push_back({.x = x, .text = cell.text.substr(0, static_cast<std::size_t>(cell.width))});
      x = texts.size() == 1 ? kFirstValueMm : x + kValueStepMm;
    }
    write(texts);
  }
}

struct PlacedColumns {
  std::vector<ChannelColumn> columns;
  std::vector<double> x;  ///< mm, one for each column
};

/// Columns at the running sum of the steps, one step each.
PlacedColumns PlaceInOrder(std::vector<ChannelColumn> columns, std::span<const int> steps) {
  std::vector<double> x(columns.size());
  std::partial_sum(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(x.size()), x.begin());
  return {.columns = std::move(columns), .x = std::move(x)};
}

/// Columns that each take the width the given function names.
template <class Width>
PlacedColumns PlaceByWidth(std::vector<ChannelColumn> columns, Width width) {
  std::vector<double> x;
  double next = 0;
  for (const ChannelColumn& column : columns) {
    x.push_back(next);
    next += width(column);
  }
  return {.columns = std::move(columns), .x = std::move(x)};
}

/// The three group columns do not fit into the printer's position list. The EXP form is set as
/// in the text report: each column as wide as its cell.
PlacedColumns PlaceExtra(const core::ModelProfile& profile, bool lmr_form) {
  if (lmr_form) {
    return PlaceByWidth(ExtraPrintColumns(profile, true), [](const ChannelColumn& column) {
      return kExtraSteps[static_cast<std::size_t>(column.print_step)];
    });
  }
  return PlaceByWidth(ExtraReportColumns(profile, false), [](const ChannelColumn& column) {
    return column.cell_width * kPrintCharacterMm;
  });
}

bool DependsOnForm(const ChannelColumn& column) {
  return column.kind == ColumnKind::kEnable || column.kind == ColumnKind::kGroup;
}

/// The columns of the other form under these headings: what the forms share keeps its place, the
/// rest divides the room of what it replaces.
PlacedColumns PlaceOtherForm(const PlacedColumns& headings, std::vector<ChannelColumn> columns) {
  const auto first = std::find_if(columns.begin(), columns.end(), DependsOnForm) - columns.begin();
  const auto own = std::count_if(columns.begin(), columns.end(), DependsOnForm);
  const auto replaced =
      std::count_if(headings.columns.begin(), headings.columns.end(), DependsOnForm);
  const auto shared = headings.x.begin() + first + replaced;
  const double start = headings.x[static_cast<std::size_t>(first)];

  std::vector<double> x(headings.x.begin(), headings.x.begin() + first);
  for (std::ptrdiff_t i = 0; i < own; ++i) {
    x.push_back(start + (*shared - start) * static_cast<double>(i) / static_cast<double>(own));
  }
  x.insert(x.end(), shared, headings.x.end());
  return {.columns = std::move(columns), .x = std::move(x)};
}

template <class CellText>
void WriteCells(PageWriter& writer, const PlacedColumns& placed, CellText text) {
  std::vector<LineText> texts;
  for (std::size_t i = 0; i < placed.columns.size(); ++i) {
    texts.push_back({.x = placed.x[i], .text = text(placed.columns[i])});
  }
  writer.WriteLine(texts);
}

/// One table: title and headings, then rows over as many pages as they take.
class TableWriter {
 public:
  TableWriter(PageWriter& writer, const std::string& title, const PlacedColumns& headings)
      : writer_(writer), headings_(headings) {
    writer_.WriteLine({{.x = 0, .text = TitleLine(title)}});
    WriteHeadings();
  }

  void WriteRow(const PlacedColumns& placed, const ChannelRow& row) {
    if (writer_.PageFull()) {
      writer_.NewPage();
      WriteHeadings();
    }
    WriteCells(writer_, placed, [&row](const ChannelColumn& column) {
      return column.text(row).substr(0, static_cast<std::size_t>(column.cell_width));
    });
  }

 private:
  void WriteHeadings() {
    WriteCells(writer_, headings_,
               [](const ChannelColumn& column) { return std::string(column.heading); });
    WriteCells(writer_, headings_, [](const ChannelColumn& column) {
      return std::string(static_cast<std::size_t>(column.dash_width), '-');
    });
  }

  PageWriter& writer_;
  const PlacedColumns& headings_;
};

void WriteMarineTable(PageWriter& writer, const RadioData& data, core::MarineGroup group) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const PlacedColumns placed = PlaceInOrder(MarineReportColumns(profile), kMarineSteps);
  const core::MarineTable& channels = data.Table(group);
  TableWriter table(writer, MarineTitle(group), placed);
  for (const int index : EnabledMarineRows(channels)) {
    table.WriteRow(placed, {.profile = profile,
                            .channel = channels[static_cast<std::size_t>(index)],
                            .number = index});
  }
}

void WriteWxTable(PageWriter& writer, const RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const PlacedColumns placed = PlaceInOrder(WxReportColumns(profile), kWxSteps);
  TableWriter table(writer, WxTitle(/*printed=*/true), placed);
  int number = 0;
  for (const core::ChannelRecord& channel : data.WX) {
    table.WriteRow(placed, {.profile = profile, .channel = channel, .number = ++number});
  }
}

void WriteExtraTable(PageWriter& writer, const RadioData& data, bool lmr_pass) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const PlacedColumns headings = PlaceExtra(profile, lmr_pass);
  const PlacedColumns other = profile.splits_lmr_and_exp
                                  ? PlaceOtherForm(headings, PlaceExtra(profile, !lmr_pass).columns)
                                  : headings;
  TableWriter table(writer, ExtraTitle(profile, lmr_pass), headings);
  int number = 0;
  for (const core::ChannelRecord& channel : data.EXP) {
    const bool as_headings = RowInLmrForm(profile, channel) == lmr_pass;
    table.WriteRow(
        as_headings ? headings : other,
        {.profile = profile, .channel = channel, .number = ++number, .lmr_form = lmr_pass});
  }
}

}  // namespace

std::vector<PrintedPage> BuildPrintedPages(const RadioData& data, int lines_per_page) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  PageWriter writer(data.ModelName + " Kivomatic", lines_per_page);

  writer.NewPage();
  WriteSection(writer, GroupSection(data, /*printed=*/true));
  WriteSection(writer, CommonSection(data));
  if (profile.reports_atis) WriteSection(writer, AtisSection(data));
  for (const core::MarineGroup group : core::kMarineGroups) {
    if (!data.Usable[static_cast<std::size_t>(group)].Enable) continue;
    writer.NewPage();
    WriteMarineTable(writer, data, group);
  }
  writer.NewPage();
  WriteWxTable(writer, data);
  if (data.LmrPresent()) {
    writer.NewPage();
    WriteExtraTable(writer, data, /*lmr_pass=*/true);
  }
  if (profile.splits_lmr_and_exp && data.ExpPresent) {
    writer.NewPage();
    WriteExtraTable(writer, data, /*lmr_pass=*/false);
  }
  return writer.Take();
}

}  // namespace orvane::files
