#include "files/receipt_text.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>

#include "core/number_text.h"
#include "document/compare.h"
#include "files/snapshot.h"
#include "image/codec.h"

namespace orvane::files {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string Shown(const std::string& value) {
  return value.empty() ? "nothing" : value;
}

std::string ByteText(std::uint8_t byte) {
  constexpr int kDigits = 2;
  return core::HexText(byte, kDigits);
}

// Bits that no field reads, such as what lies behind the end of a name.
std::vector<DifferingField> DifferingBytes(const link::Receipt& receipt) {
  constexpr int kAddressDigits = 4;
  std::vector<DifferingField> bytes;
  for (const link::Mismatch& mismatch : receipt.mismatches) {
    const auto address = static_cast<unsigned>(mismatch.address);
    bytes.push_back({"Memory " + core::HexText(address, kAddressDigits), ByteText(mismatch.written),
                     ByteText(mismatch.found)});
  }
  return bytes;
}

std::string LineOf(const DifferingField& field) {
  return field.name + ": sent " + field.sent + ", the radio holds " + field.found;
}

std::string Count(std::size_t number, const std::string& what) {
  return std::to_string(number) + " " + what + (number == 1 ? "" : "s");
}

std::string Amount(std::size_t bytes, std::size_t blocks) {
  if (bytes == 0) return "nothing";
  return Count(bytes, "byte") + " in " + Count(blocks, "block");
}

std::string CrcText(std::optional<std::uint32_t> crc) {
  return crc ? ChecksumText(*crc) : "not read";
}

std::string Verdict(const link::Receipt& receipt) {
  if (!receipt.mismatches.empty()) return Count(receipt.mismatches.size(), "byte");
  return receipt.compared_all ? "none" : "not known, not everything was read back";
}

}  // namespace

std::vector<DifferingField> DifferingFields(const link::Receipt& receipt) {
  if (receipt.mismatches.empty()) return {};
  const auto sent = image::Decoded(receipt.model_type, receipt.sent);
  const auto found = image::Decoded(receipt.model_type, receipt.found);
  std::vector<DifferingField> fields;
  for (const document::Difference& row : document::Compare(*sent, *found).rows) {
    fields.push_back({row.name, Shown(row.ours), Shown(row.theirs)});
  }
  return fields.empty() ? DifferingBytes(receipt) : fields;
}

std::string FieldLines(const std::vector<DifferingField>& fields, std::size_t most) {
  std::string lines;
  for (std::size_t i = 0; i < std::min(fields.size(), most); ++i) {
    lines += std::string(i == 0 ? "" : kLineEnd) + LineOf(fields[i]);
  }
  if (fields.size() > most) {
    lines += std::string(kLineEnd) + "and " + std::to_string(fields.size() - most) + " more";
  }
  return lines;
}

std::string ReceiptText(const link::Receipt& receipt, const std::vector<DifferingField>& fields) {
  std::string text =
      "Receipt of programming a radio" + std::string(kLineEnd) + std::string(kLineEnd);
  const auto line = [&](std::string_view name, const std::string& value) {
    constexpr std::size_t kNameWidth = 16;
    std::string caption(name);
    caption.resize(kNameWidth, ' ');
    text += caption + value + std::string(kLineEnd);
  };
  line("Began", receipt.began);
  line("Ended", receipt.ended);
  line("Port", receipt.port);
  line("Model", receipt.model);
  line("Destination", receipt.destination);
  line("File", receipt.file.empty() ? "none, unsaved data" : receipt.file);
  line("Written", Amount(receipt.bytes_written, receipt.blocks_written));
  line("Compared", Amount(receipt.bytes_compared, receipt.blocks_compared));
  line("CRC-32 before", CrcText(receipt.crc_before));
  line("CRC-32 after", CrcText(receipt.crc_after));
  line("Differences", Verdict(receipt));
  for (const DifferingField& field : fields) text += "  " + LineOf(field) + std::string(kLineEnd);
  return text;
}

}  // namespace orvane::files
