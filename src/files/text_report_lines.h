#pragma once

#include <string>
#include <vector>

#include "core/model_profile.h"
#include "core/radio_data.h"

/// Titles and labelled lines of the reports, outside the channel tables. The text report fills the
/// cells to their widths; the printed pages place the same cells in millimetres.
namespace orvane::files {

struct ReportCell {
  std::string text;
  int width = 0;  ///< characters in the text report, cut or filled
};

/// No cells: an empty line. One cell: a sub-heading. Otherwise a label and its values.
struct ReportLine {
  std::vector<ReportCell> cells;
  bool printed = true;  ///< false: in the text report only
};

struct ReportSection {
  std::string title;  ///< without the marks around it
  std::vector<ReportLine> lines;
};

/// "##### Common Setup #####"
[[nodiscard]] std::string TitleLine(const std::string& title);
[[nodiscard]] std::string MarineTitle(core::MarineGroup group);
/// "Wx" in the text report, "WX" on the printed page.
[[nodiscard]] std::string WxTitle(bool printed);
[[nodiscard]] std::string ExtraTitle(const core::ModelProfile& profile, bool lmr_pass);

/// The last line reads "Status Name" in the text report, "Status name" on the printed page.
[[nodiscard]] ReportSection GroupSection(const core::RadioData& data, bool printed);
[[nodiscard]] ReportSection CommonSection(const core::RadioData& data);
[[nodiscard]] ReportSection AtisSection(const core::RadioData& data);
/// Models with call signs only.
[[nodiscard]] ReportSection CallSignSection(const core::RadioData& data);
/// Basic, advanced and display setup; models with DSC only.
[[nodiscard]] std::vector<ReportSection> DscSections(const core::RadioData& data);

}  // namespace orvane::files
