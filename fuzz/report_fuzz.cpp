#include <cstddef>
#include <cstdint>
#include <string>

#include "files/printed_pages.h"
#include "files/text_report.h"
#include "hostile_world.h"
#include "image/memory_map.h"
#include "patched_image.h"

/// Whatever an image decodes to can be shown: text report, printed pages, memory map.
namespace orvane::fuzz {
namespace {

void RequireOnThePage(const core::RadioData& data, int lines_per_page) {
  constexpr int kFewestLines = 8;
  constexpr double kRounding = 1e-6;
  for (const files::PrintedPage& page : files::BuildPrintedPages(data, lines_per_page)) {
    for (const files::PlacedText& placed : page.texts) {
      Require(!placed.text.empty() && placed.text.back() != ' ');
      Require(placed.line >= 0 && placed.line < std::max(lines_per_page, kFewestLines));
      const double width = static_cast<double>(placed.text.size()) * files::kPrintCharacterMm;
      Require(placed.x_mm + width <= files::kPrintRightMm + kRounding);
    }
  }
}

/// Pages cut to a few lines are many, and the map is long: one of the three an input.
void Show(core::RadioData data, int what) {
  image::DecodeAll(data);
  const std::string report = files::BuildTextReport(data);
  Require(report.starts_with("\r\n\r\n#####"));
  Require(!report.ends_with("\r\n"));
  switch (what) {
    case 0:
      return Require(!image::MemoryMap(data).empty());
    case 1:
      return RequireOnThePage(data, 0);
    default:
      return RequireOnThePage(data, files::LinesPerPage(297));
  }
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Show(orvane::fuzz::PatchedImage({bytes, size}), size == 0 ? 0 : bytes[0] / 21 % 6);
  return 0;
}
