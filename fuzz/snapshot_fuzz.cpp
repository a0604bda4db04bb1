#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "core/crc32.h"
#include "files/snapshot.h"
#include "hostile_world.h"
#include "patched_image.h"

/// Any bytes are refused, with a reason, or give data that are written and read back equal.
namespace orvane::fuzz {
namespace {

constexpr std::string_view kChecksumMark = "\nchecksum: ";
constexpr std::size_t kChecksumDigits = 8;

/// Erased memory has no rows, and with records that agree with it there are no fields: a text of a
/// few hundred bytes, that leaves the time to what an input adds.
const std::string& Valid(std::size_t model) {
  static const std::array<std::string, kModels> texts = [] {
    std::array<std::string, kModels> made;
    for (std::size_t m = 0; m < kModels; ++m) {
      core::RadioData data;
      data.MODELTYPE = static_cast<std::int16_t>(m);
      data.Image.SetLastIndex(core::ProfileOf(data).LastIndex());
      for (std::uint8_t& byte : data.Image.All()) byte = 0xFF;
      image::DecodeAll(data);
      made[m] = files::SnapshotText(data, {.made = "2026-11-24 23:40:12", .origin = "read"});
    }
    return made;
  }();
  return texts[model];
}

/// A damaged text gets no further than its checksum, so most inputs have theirs made good.
void MendChecksum(std::string& text) {
  const std::size_t mark = text.find(kChecksumMark);
  const std::size_t digits = mark + kChecksumMark.size();
  const std::size_t guarded = digits + kChecksumDigits + 1;
  if (mark == std::string::npos || guarded > text.size()) return;
  text.replace(digits, kChecksumDigits,
               files::ChecksumText(core::Crc32(std::string_view(text).substr(guarded))));
}

/// Puts what the input holds in the place of [fields] and [end], or of the end alone.
std::string Around(std::string_view input, std::size_t model, bool fields) {
  const std::string& valid = Valid(model);
  std::string text = valid.substr(0, valid.find(fields ? "[end]" : "[fields]"));
  text += input;
  text += fields ? "\n[end]\n" : "\n[fields]\n[end]\n";
  return text;
}

void Check(const std::string& text) {
  const files::Snapshot snapshot = files::ParseSnapshot(text);
  const files::Snapshot heading = files::ParseSnapshotHeading(text);
  Require((snapshot.data == nullptr) == !snapshot.error.empty());
  if (snapshot.data == nullptr) return;
  Require(heading.error.empty() && heading.heading.checksum == snapshot.heading.checksum);
  const std::string written = files::SnapshotText(*snapshot.data, snapshot.heading);
  const files::Snapshot again = files::ParseSnapshot(written);
  Require(again.data != nullptr && *again.data == *snapshot.data);
  Require(again.heading.file == snapshot.heading.file);
}

}  // namespace
}  // namespace orvane::fuzz

/// The first byte picks the model and what the rest of the input is: a whole file, the rows of the
/// memory, or the fields.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace orvane::fuzz;
  if (size == 0) return 0;
  const Choice choice({bytes, size});
  const std::string_view input(reinterpret_cast<const char*>(bytes + 1), size - 1);
  enum Part { kFile, kRows, kFields, kParts };
  const std::size_t part = choice.rest % kParts;
  std::string text =
      part == kFile ? std::string(input) : Around(input, choice.model, part == kFields);
  // Of whole files some keep the checksum they came with.
  if (part != kFile || choice.rest % 2 == 0) MendChecksum(text);
  Check(text);
  return 0;
}
