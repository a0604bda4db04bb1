#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "core/model_profile.h"
#include "core/radio_data.h"

/// One column table per kind of row. The editor's grids, the text report and the printed pages
/// are walks over these tables; headings, widths and cell texts stand here once.
///
/// Each function below picks from a table the columns that one view of one model shows, in the
/// order in which they are shown.
namespace orvane::files {

/// A row of a marine, weather or EXP/LMR table.
struct ChannelRow {
  const core::ModelProfile& profile;
  const core::ChannelRecord& channel;
  int number = 0;        ///< weather and EXP/LMR: the number that counts from 1
  bool lmr_form = true;  ///< EXP/LMR: seen as LMR channels, else as EXP channels
};

/// A row of a directory.
struct DirectoryRow {
  const core::DirectoryEntry& entry;
  int number = 0;  ///< from 1
};

/// Which views show a column; the picking functions turn it into a choice by model.
enum class ColumnKind {
  kCommon,         ///< every view
  kMemory,         ///< scan memory
  kScrambler,      ///< scrambler code
  kName,           ///< channel name
  kTone,           ///< bandwidth and tones
  kEnable,         ///< EXP/LMR in LMR form
  kGroup,          ///< EXP/LMR in EXP form
  kReportDisplay,  ///< displayed number, report and printout
  kGridDisplay,    ///< displayed number, grid
};

/// Members of a row's record that the catalogue has (core::Field::member); null for none.
using Members = std::array<const char*, 2>;

/// How a cell reads, and which members of the record it shows. A cell that shows none follows from
/// elsewhere, as a plan frequency does.
template <class Row>
struct ColumnText {
  using Function = std::string (*)(const Row&);

  constexpr ColumnText() = default;
  // NOLINTNEXTLINE(google-explicit-constructor)
  constexpr ColumnText(Function function, Members members = {})
      : compose(function), shows(members) {}

  [[nodiscard]] std::string operator()(const Row& row) const { return compose(row); }

  Function compose = nullptr;
  Members shows{};
};

template <class Row>
struct Column {
  ColumnKind kind = ColumnKind::kCommon;

  std::string_view heading{};  ///< in report and printout; "" for a column of the grid only
  int dash_width = 0;          ///< dashes under the heading, characters
  int heading_early = 0;       ///< characters by which the heading starts left of its dashes
  int cell_width = 0;          ///< report cell with the gap behind it, characters
  ColumnText<Row> text{};      ///< not yet cut or filled

  std::string_view caption{};   ///< in the grid
  int width_twips = 0;          ///< in the grid: 1/1440 inch, 15 to a device-independent pixel
  bool centered = false;        ///< in the grid; other cells are left-aligned
  ColumnText<Row> grid_text{};  ///< composes nothing: as `text`
  bool (*checked)(const Row&) = nullptr;  ///< not null: the grid draws a check mark or an empty box

  int print_step = 0;  ///< EXP/LMR: which step of the printer's position list the column takes

  [[nodiscard]] std::string GridText(const Row& row) const { return InGrid()(row); }
  /// In the grid.
  [[nodiscard]] const Members& Shows() const { return InGrid().shows; }

 private:
  [[nodiscard]] const ColumnText<Row>& InGrid() const {
    return grid_text.compose != nullptr ? grid_text : text;
  }
};

using ChannelColumn = Column<ChannelRow>;
using DirectoryColumn = Column<DirectoryRow>;

/// Indexes of the enabled entries: the rows of a marine grid, report or printed table.
[[nodiscard]] std::vector<int> EnabledMarineRows(const core::MarineTable& table);

[[nodiscard]] std::vector<ChannelColumn> MarineGridColumns(const core::ModelProfile& profile);
/// Columns of the EXP/LMR grid; its rows are the entries 1..40.
[[nodiscard]] std::vector<ChannelColumn> ExtraGridColumns(const core::ModelProfile& profile,
                                                          bool lmr_form);

/// Report columns. Those of the marine and weather tables serve the printed page as well.
[[nodiscard]] std::vector<ChannelColumn> MarineReportColumns(const core::ModelProfile& profile);
[[nodiscard]] std::vector<ChannelColumn> WxReportColumns(const core::ModelProfile& profile);
[[nodiscard]] std::vector<ChannelColumn> ExtraReportColumns(const core::ModelProfile& profile,
                                                            bool lmr_form);
[[nodiscard]] std::vector<ChannelColumn> ExtraPrintColumns(const core::ModelProfile& profile,
                                                           bool lmr_form);
[[nodiscard]] std::vector<DirectoryColumn> StationColumns();
[[nodiscard]] std::vector<DirectoryColumn> StationGroupColumns();

/// Whether the cells of an entry's row are those of the LMR form. Models that keep both kinds in
/// one table show every row in the form of its own kind, whatever the heading above it.
[[nodiscard]] bool RowInLmrForm(const core::ModelProfile& profile,
                                const core::ChannelRecord& channel);

}  // namespace orvane::files
