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
#include "image/codec.h"

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

void AddFooters(std::vector<PrintedPage>& pages, const std::string& file_name,
                const std::string& date) {
  const std::string count = std::to_string(pages.size());
  for (std::size_t i = 0; i < pages.size(); ++i) {
    pages[i].footer_left = file_name;
    std::string& right = pages[i].footer_right;
    right = date;
    right.append("   Page ").append(std::to_string(i + 1)).append(" of ").append(count);
  }
}

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
      const double end =
          i + 1 < texts.size() ? texts[i + 1].x - kPrintGapMm : kPrintRightMm - kPrintLeftMm;
      const std::string_view whole = texts[i].text;
      const std::string_view text = core::TrimRight(whole.substr(0, Room(texts[i].x, end)));
      if (text.empty()) continue;
      pages_.back().texts.push_back(
          {.x_mm = texts[i].x + kPrintLeftMm, .line = line_, .text = std::string(text)});
    }
    ++line_;
  }

  /// The pages, each with its footer.
  [[nodiscard]] std::vector<PrintedPage> Take(const std::string& file_name,
                                              const std::string& date) {
    AddFooters(pages_, file_name, date);
    return std::move(pages_);
  }

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

std::string ContinuedTitle(const std::string& title) {
  return TitleLine(title) + " (continued)";
}

void WriteSection(PageWriter& writer, const ReportSection& section) {
  bool begun = false;
  const auto write = [&](const std::vector<LineText>& texts) {
    if (writer.PageFull()) {
      writer.NewPage();
      if (begun) writer.WriteLine({{.x = 0, .text = ContinuedTitle(section.title)}});
    }
    writer.WriteLine(texts);
  };
  write({});
  write({{.x = 0, .text = TitleLine(section.title)}});
  begun = true;
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

/// Positions of more texts than the headings have there: spread with equal gaps from the text
/// before them to the one behind, for the room of the headings alone would let them touch.
std::vector<double> SpreadOut(std::span<const ChannelColumn> columns, double start, double end) {
  double gap = end - start;
  for (const ChannelColumn& column : columns) gap -= column.dash_width * kPrintCharacterMm;
  gap /= static_cast<double>(columns.size() + 1);
  std::vector<double> x;
  for (const ChannelColumn& column : columns) {
    x.push_back(start + gap);
    start = x.back() + column.dash_width * kPrintCharacterMm;
  }
  return x;
}

/// The columns of the other form under these headings: what the forms share keeps its place, the
/// rest stands in that of what it replaces.
PlacedColumns PlaceOtherForm(const PlacedColumns& headings, std::vector<ChannelColumn> columns) {
  const auto first = static_cast<std::size_t>(
      std::find_if(columns.begin(), columns.end(), DependsOnForm) - columns.begin());
  const auto own =
      static_cast<std::size_t>(std::count_if(columns.begin(), columns.end(), DependsOnForm));
  const auto replaced = static_cast<std::size_t>(
      std::count_if(headings.columns.begin(), headings.columns.end(), DependsOnForm));

  std::vector<double> x = headings.x;
  if (own > replaced) {
    const double start = x[first - 1] + columns[first - 1].dash_width * kPrintCharacterMm;
    const std::vector<double> spread =
        SpreadOut(std::span(columns).subspan(first, own), start, x[first + replaced]);
    const auto at = x.begin() + static_cast<std::ptrdiff_t>(first);
    x.insert(x.erase(at, at + static_cast<std::ptrdiff_t>(replaced)), spread.begin(), spread.end());
  } else {
    const auto at = x.begin() + static_cast<std::ptrdiff_t>(first + own);
    x.erase(at, at + static_cast<std::ptrdiff_t>(replaced - own));
  }
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
  TableWriter(PageWriter& writer, std::string title, const PlacedColumns& headings)
      : writer_(writer), title_(std::move(title)), headings_(headings) {
    WriteHeadings(TitleLine(title_));
  }

  void WriteRow(const PlacedColumns& placed, const ChannelRow& row) {
    if (writer_.PageFull()) {
      writer_.NewPage();
      WriteHeadings(ContinuedTitle(title_));
    }
    WriteCells(writer_, placed, [&row](const ChannelColumn& column) {
      return column.text(row).substr(0, static_cast<std::size_t>(column.cell_width));
    });
  }

 private:
  void WriteHeadings(const std::string& title_line) {
    writer_.WriteLine({{.x = 0, .text = title_line}});
    WriteCells(writer_, headings_,
               [](const ChannelColumn& column) { return std::string(column.heading); });
    WriteCells(writer_, headings_, [](const ChannelColumn& column) {
      return std::string(static_cast<std::size_t>(column.dash_width), '-');
    });
  }

  PageWriter& writer_;
  std::string title_;
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

std::string FileName(const std::string& path) {
  return path.empty() ? "Not saved in a file" : core::WithoutFolder(path);
}

/// "2026-06-15"
std::string DateText(core::Date date) {
  const auto two = [](unsigned number) {
    return (number < 10 ? "-0" : "-") + std::to_string(number);
  };
  return std::to_string(static_cast<int>(date.year())) + two(static_cast<unsigned>(date.month())) +
         two(static_cast<unsigned>(date.day()));
}

}  // namespace

std::vector<PrintedPage> BuildPrintedPages(const RadioData& data, int lines_per_page,
                                           const Imprint& imprint) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  PageWriter writer(image::ModelName(data) + " Kivomatic", lines_per_page);

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
  return writer.Take(FileName(imprint.file), DateText(imprint.date));
}

std::vector<PrintedPage> BuildTextPages(std::string_view text, int lines_per_page,
                                        const Imprint& imprint) {
  constexpr auto kLongest =
      static_cast<std::size_t>((kPrintRightMm - kPrintLeftMm) / kPrintCharacterMm);
  const int most = std::max(lines_per_page, kFewestLines);
  std::vector<PrintedPage> pages;
  int line = most;
  for (std::string_view rest : core::Split(text, '\n')) {
    if (rest.ends_with('\r')) rest.remove_suffix(1);
    do {
      if (line == most) {
        pages.emplace_back();
        line = 0;
      }
      const std::string_view part = core::TrimRight(rest.substr(0, kLongest));
      if (!part.empty()) pages.back().texts.push_back({kPrintLeftMm, line, std::string(part)});
      ++line;
      rest.remove_prefix(std::min(rest.size(), kLongest));
    } while (!rest.empty());
  }
  AddFooters(pages, FileName(imprint.file), DateText(imprint.date));
  return pages;
}

}  // namespace orvane::files
