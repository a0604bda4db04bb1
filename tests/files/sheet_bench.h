#pragma once

#include <string>
#include <string_view>

#include "files/sheet_edits.h"
#include "support/full_data.h"
#include "support/image_fixtures.h"

namespace orvane::testing {

/// A full data set and one of its sheets; cells are named by their channel's number and caption.
struct SheetBench {
  explicit SheetBench(std::string_view name, std::int16_t model = 5)
      : data(FullData(model)), sheet(SheetOf(name)) {}

  [[nodiscard]] files::Sheet SheetOf(std::string_view name) const {
    if (name == "LMR" || name == "EXP") return files::ExtraSheet(data, name == "LMR");
    const auto group = name == "USA"    ? core::MarineGroup::kUsa
                       : name == "INTL" ? core::MarineGroup::kIntl
                                        : core::MarineGroup::kCanada;
    return files::MarineSheet(data, group, true);
  }
  [[nodiscard]] int Column(std::string_view caption) const {
    int column = 0;
    while (sheet.Column(column).caption != caption) ++column;
    return column;
  }
  [[nodiscard]] files::Cell At(int number, std::string_view caption) const {
    int row = 0;
    while (sheet.Place(row).number != number) ++row;
    return {row, Column(caption)};
  }
  [[nodiscard]] std::string Text(int number, std::string_view caption) const {
    return files::TextOf(data, sheet, At(number, caption));
  }
  void Do(const files::SheetEdit& edit) { files::Run(data, edit, kAfterCutOver); }
  /// The refusal.
  std::string Type(int number, std::string_view caption, const std::string& text) {
    const files::SheetEdit edit =
        files::PlanTyped(data, sheet, {At(number, caption), text}, kAfterCutOver);
    Do(edit);
    return edit.refused.empty() ? std::string() : edit.refused[0].reason;
  }

  core::RadioData data;
  files::Sheet sheet;
};

}  // namespace orvane::testing
