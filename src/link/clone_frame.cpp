#include "link/clone_frame.h"

#include "core/number_text.h"

namespace orvane::link {

std::uint8_t XorChecksum(std::string_view bytes) {
  unsigned sum = 0;
  for (const char c : bytes) sum ^= static_cast<unsigned char>(c);
  return static_cast<std::uint8_t>(sum);
}

std::string BuildFrame(std::string_view command, std::string_view field1, std::string_view field2,
                       std::string_view field3) {
  std::string frame(command);
  frame += static_cast<char>(kTab);
  for (const std::string_view field : {field1, field2, field3}) {
    if (field.empty()) continue;
    frame += field;
    frame += static_cast<char>(kTab);
  }
  frame += core::HexText(XorChecksum(frame), 2);
  frame += "\r\n";
  return frame;
}

std::string AddressField(int address) {
  return core::HexText(static_cast<unsigned>(address), 4);
}

std::string LengthField(int length) {
  return core::HexText(static_cast<unsigned>(length), 2);
}

std::string HexData(std::span<const std::uint8_t> bytes) {
  std::string text;
  text.reserve(2 * bytes.size());
  for (const std::uint8_t byte : bytes) text += core::HexText(byte, 2);
  return text;
}

bool VerifyLineChecksum(std::string_view line) {
  constexpr std::size_t kDigits = 2;
  if (line.size() <= kDigits) return false;
  const std::string_view body = line.substr(0, line.size() - kDigits);
  return core::ParseHex(line.substr(body.size())) == XorChecksum(body);
}

}  // namespace orvane::link
