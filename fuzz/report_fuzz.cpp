#include <array>
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
  for (const files::PrintedPage& page :
       files::BuildPrintedPages(data, lines_per_page, {{}, kToday})) {
    for (const files::PlacedText& placed : page.texts) {
      Require(!placed.text.empty() && placed.text.back() != ' ');
      Require(placed.line >= 0 && placed.line < std::max(lines_per_page, kFewestLines));
      const double width = static_cast<double>(placed.text.size()) * files::kPrintCharacterMm;
      Require(placed.x_mm + width <= files::kPrintRightMm + kRounding);
    }
  }
}

void RequireReport(const core::RadioData& data) {
  const std::string report = files::BuildTextReport(data);
  Require(report.starts_with("\r\n\r\n#####"));
  Require(!report.ends_with("\r\n"));
}

/// A full radio's report is the same few lines hundreds of times: nearly all inputs show a bare one
/// and what they add to it.
void Show(std::span<const std::uint8_t> input) {
  const Choice choice(input);
  constexpr std::array kFull = {Start::kNew, Start::kUsed, Start::kErased};
  const bool full = choice.rest < kFull.size();
  core::RadioData& data =
      PatchedImage(choice.model, full ? kFull[choice.rest] : Start::kBare, input);
  image::DecodeAll(data);
  if (choice.rest == kFull.size()) return Require(!image::MemoryMap(data).empty());
  switch (choice.rest % 3) {
    case 0:
      return RequireReport(data);
    case 1:
      return RequireOnThePage(data, 0);  // as many pages as there can be
    default:
      return RequireOnThePage(data, files::LinesPerPage(297));
  }
}

}  // namespace
}  // namespace orvane::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  orvane::fuzz::Show({bytes, size});
  return 0;
}
