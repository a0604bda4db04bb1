#include "files/snapshot.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <optional>
#include <utility>
#include <variant>

#include "core/catalogue.h"
#include "core/crc32.h"
#include "core/model_profile.h"
#include "core/number_text.h"
#include "image/codec.h"

namespace orvane::files {
namespace {

using core::MemoryImage;
using core::RadioData;
using core::Value;

constexpr std::string_view kKind = "ORVANE SNAPSHOT ";
constexpr std::string_view kVersion = "1";
constexpr std::string_view kImageMark = "[image]";
constexpr std::string_view kFieldsMark = "[fields]";
constexpr std::string_view kEndMark = "[end]";
constexpr int kRowLength = 32;
constexpr int kAddressDigits = 4;
constexpr int kChecksumDigits = 8;
constexpr std::uint8_t kErased = 0xFF;

/// The keys of the heading, in their order.
struct TextKey {
  std::string_view key;
  std::string SnapshotHeading::*text;
};
constexpr std::array<TextKey, 4> kTextKeys = {{{"made", &SnapshotHeading::made},
                                               {"origin", &SnapshotHeading::origin},
                                               {"port", &SnapshotHeading::port},
                                               {"file", &SnapshotHeading::file}}};
/// Those that stand below only where there is something to say.
constexpr std::array<TextKey, 2> kFurtherKeys = {
    {{"file print", &SnapshotHeading::print}, {"edited", &SnapshotHeading::edited}}};
constexpr std::string_view kModelKey = "model";
constexpr std::string_view kLastByteKey = "last byte";
constexpr std::string_view kChecksumKey = "checksum";

bool IsPlain(char c) {
  return c >= ' ' && c <= '~' && c != '"' && c != '\\';
}

/// In quotes; what is no plain ASCII character becomes \xHH.
void AppendQuoted(std::string& out, std::string_view text) {
  out += '"';
  for (const char c : text) {
    if (IsPlain(c)) {
      out += c;
    } else {
      out += "\\x" + core::HexText(static_cast<unsigned char>(c), 2);
    }
  }
  out += '"';
}

template <class Number>
void AppendNumber(std::string& out, Number number) {
  std::array<char, 32> digits{};  // enough for any 32-bit number and the shortest form of a double
  const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
  out.append(digits.begin(), end);
}

void AppendValue(std::string& out, const Value& value) {
  if (const auto* flag = std::get_if<bool>(&value)) {
    out += *flag ? "on" : "off";
  } else if (const auto* number = std::get_if<std::int32_t>(&value)) {
    AppendNumber(out, *number);
  } else if (const auto* real = std::get_if<double>(&value)) {
    AppendNumber(out, *real);
  } else {
    AppendQuoted(out, std::get<std::string>(value));
  }
}

void AppendImage(std::string& out, const MemoryImage& image) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  for (int first = 0; first < MemoryImage::kSize; first += kRowLength) {
    const auto row = image.All().subspan(static_cast<std::size_t>(first), kRowLength);
    if (std::all_of(row.begin(), row.end(), [](std::uint8_t byte) { return byte == kErased; })) {
      continue;
    }
    out += core::HexText(static_cast<unsigned>(first), kAddressDigits) + " ";
    for (const std::uint8_t byte : row) {
      out += kDigits[byte >> 4];
      out += kDigits[byte & 0xF];
    }
    out += '\n';
  }
}

/// Everything that the checksum guards.
std::string Body(const RadioData& data) {
  std::string body = std::string(kModelKey) + ": " + std::to_string(data.MODELTYPE) + '\n' +
                     std::string(kLastByteKey) + ": " + std::to_string(data.Image.LastIndex()) +
                     '\n' + std::string(kImageMark) + '\n';
  AppendImage(body, data.Image);
  body += kFieldsMark;
  body += '\n';
  for (const core::Change& change :
       core::Differences(*image::Decoded(data.MODELTYPE, data.Image), data)) {
    body += core::PathOf(change.at) + '=';
    AppendValue(body, change.after);
    body += '\n';
  }
  body += kEndMark;
  body += '\n';
  return body;
}

/// Reads line by line and knows where it is.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  /// The next line without its end; nothing behind the last one, and an error when a line has no
  /// end.
  bool Next() {
    const std::size_t end = rest_.find('\n');
    ++number_;
    if (end == std::string_view::npos) {
      line_ = rest_;
      return Fail(line_.size(), "the file ends here");
    }
    line_ = rest_.substr(0, end);
    rest_ = rest_.substr(end + 1);
    return true;
  }
  [[nodiscard]] std::string_view Line() const { return line_; }
  /// What follows the line.
  [[nodiscard]] std::string_view Rest() const { return rest_; }

  /// Always false.
  bool Fail(std::size_t column, std::string_view why) {
    error_ = "line " + std::to_string(number_) + ", column " + std::to_string(column + 1) + ": " +
             std::string(why);
    return false;
  }
  [[nodiscard]] const std::string& Error() const { return error_; }

 private:
  std::string_view rest_;
  std::string_view line_;
  int number_ = 0;
  std::string error_;
};

/// Nothing when the text is no quoted one; column is where it went wrong.
std::optional<std::string> Unquoted(std::string_view text, std::size_t& column) {
  column = 0;
  if (text.empty() || text.front() != '"') return std::nullopt;
  std::string plain;
  for (column = 1; column < text.size(); ++column) {
    const char c = text[column];
    if (c == '"') return column + 1 == text.size() ? std::optional(plain) : std::nullopt;
    if (IsPlain(c)) {
      plain += c;
      continue;
    }
    constexpr std::size_t kCodeLength = 4;  // \xHH
    const std::string_view code = text.substr(column, kCodeLength);
    const std::optional<unsigned> byte = code.starts_with("\\x") && code.size() == kCodeLength
                                             ? core::ParseHex(code.substr(2))
                                             : std::nullopt;
    if (!byte) return std::nullopt;
    plain += static_cast<char>(*byte);
    column += kCodeLength - 1;
  }
  return std::nullopt;
}

template <class Number>
std::optional<Number> ParseExactly(std::string_view text) {
  Number number{};
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  return error == std::errc() && stopped == end ? std::optional(number) : std::nullopt;
}

/// A value of the type that another one of the field has.
std::optional<Value> ParseValue(std::string_view text, const Value& like, std::size_t& column) {
  column = 0;
  if (std::holds_alternative<bool>(like)) {
    if (text != "on" && text != "off") return std::nullopt;
    return text == "on";
  }
  if (std::holds_alternative<std::int32_t>(like)) return ParseExactly<std::int32_t>(text);
  if (std::holds_alternative<double>(like)) return ParseExactly<double>(text);
  return Unquoted(text, column);
}

/// The next line is KEY: and something.
bool Follows(const Reader& reader, std::string_view key) {
  return reader.Rest().starts_with(key) && reader.Rest().substr(key.size()).starts_with(": ");
}

/// The line is KEY: VALUE; nothing but an error otherwise.
std::optional<std::string_view> ValueOf(Reader& reader, std::string_view key) {
  if (!reader.Next()) return std::nullopt;
  const std::string_view line = reader.Line();
  if (!line.starts_with(key) || !line.substr(key.size()).starts_with(": ")) {
    reader.Fail(0, "\"" + std::string(key) + ": \" is missing");
    return std::nullopt;
  }
  return line.substr(key.size() + 2);
}

bool ReadKind(Reader& reader) {
  if (!reader.Next()) return false;
  if (!reader.Line().starts_with(kKind)) return reader.Fail(0, "this is no snapshot");
  if (reader.Line().substr(kKind.size()) == kVersion) return true;
  return reader.Fail(kKind.size(), "this version of the program does not know such snapshots");
}

bool ReadText(Reader& reader, const TextKey& row, SnapshotHeading& heading) {
  const std::optional<std::string_view> value = ValueOf(reader, row.key);
  if (!value) return false;
  std::size_t column = 0;
  std::optional<std::string> text = Unquoted(*value, column);
  if (!text) return reader.Fail(row.key.size() + 2 + column, "the text is damaged");
  heading.*row.text = std::move(*text);
  return true;
}

/// What stands above the checksum, and the checksum.
bool ReadOrigin(Reader& reader, SnapshotHeading& heading) {
  if (!ReadKind(reader)) return false;
  for (const TextKey& row : kTextKeys) {
    if (!ReadText(reader, row, heading)) return false;
  }
  for (const TextKey& row : kFurtherKeys) {
    if (Follows(reader, row.key) && !ReadText(reader, row, heading)) return false;
  }
  const std::optional<std::string_view> checksum = ValueOf(reader, kChecksumKey);
  if (!checksum) return false;
  const std::optional<unsigned> sum =
      checksum->size() == kChecksumDigits ? core::ParseHex(*checksum) : std::nullopt;
  if (!sum) return reader.Fail(kChecksumKey.size() + 2, "eight hexadecimal digits are missing");
  heading.checksum = *sum;
  return true;
}

bool ReadModel(Reader& reader, SnapshotHeading& heading, std::int32_t& last_byte) {
  const std::optional<std::string_view> model = ValueOf(reader, kModelKey);
  if (!model) return false;
  const auto number = ParseExactly<std::int16_t>(*model);
  if (!number || *number < 0 || *number >= static_cast<int>(core::ModelProfiles().size())) {
    return reader.Fail(kModelKey.size() + 2, "there is no such model");
  }
  heading.model_type = *number;
  const std::optional<std::string_view> last = ValueOf(reader, kLastByteKey);
  if (!last) return false;
  const auto index = ParseExactly<std::int32_t>(*last);
  if (!index || *index < 0 || *index >= MemoryImage::kSize) {
    return reader.Fail(kLastByteKey.size() + 2, "no memory ends there");
  }
  last_byte = *index;
  return true;
}

bool ReadRow(Reader& reader, MemoryImage& image, int& next_row) {
  constexpr std::size_t kFirstDigit = kAddressDigits + 1;
  constexpr std::size_t kRowEnd = kFirstDigit + std::size_t{2} * kRowLength;
  const std::string_view line = reader.Line();
  const std::optional<unsigned> address = core::ParseHex(line.substr(0, kAddressDigits));
  if (!address || line.size() < kFirstDigit || line[kAddressDigits] != ' ') {
    return reader.Fail(0, "an address is missing");
  }
  const int first = static_cast<int>(*address);
  if (first % kRowLength != 0 || first < next_row || first >= MemoryImage::kSize) {
    return reader.Fail(0, "no row of the memory begins there");
  }
  for (int i = 0; i < kRowLength; ++i) {
    const std::size_t column = kFirstDigit + 2 * static_cast<std::size_t>(i);
    const std::string_view digits = line.substr(std::min(column, line.size()), 2);
    const std::optional<unsigned> byte = digits.size() == 2 ? core::ParseHex(digits) : std::nullopt;
    if (!byte) return reader.Fail(column, "two hexadecimal digits are missing");
    image[first + i] = static_cast<std::uint8_t>(*byte);
  }
  next_row = first + kRowLength;
  return line.size() == kRowEnd || reader.Fail(kRowEnd, "the end of the row is missing");
}

bool ReadImage(Reader& reader, MemoryImage& image) {
  if (!reader.Next()) return false;
  if (reader.Line() != kImageMark) return reader.Fail(0, "[image] is missing");
  std::fill(image.All().begin(), image.All().end(), kErased);
  int next_row = 0;
  while (reader.Next()) {
    if (reader.Line() == kFieldsMark) return true;
    if (!ReadRow(reader, image, next_row)) return false;
  }
  return false;
}

bool ReadFields(Reader& reader, RadioData& data) {
  while (reader.Next()) {
    const std::string_view line = reader.Line();
    if (line == kEndMark) return reader.Rest().empty() || reader.Fail(0, "more follows the end");
    const std::size_t assign = line.find('=');
    const std::optional<core::FieldRef> at = core::RefOf(line.substr(0, assign));
    if (assign == std::string_view::npos || !at) return reader.Fail(0, "there is no such field");
    // What the image says stands in the image alone.
    if (core::TableOf(*at).kind == core::TableKind::kMemory) {
      return reader.Fail(0, "there is no such field");
    }
    std::size_t column = 0;
    const Value before = core::Get(data, *at);
    const std::optional<Value> value = ParseValue(line.substr(assign + 1), before, column);
    if (!value) return reader.Fail(assign + 1 + column, "the value is damaged");
    core::Set(data, *at, *value);
    if (core::Get(data, *at) != *value) return reader.Fail(assign + 1, "the value is too large");
  }
  return false;
}

}  // namespace

std::string SnapshotText(const RadioData& data, const SnapshotHeading& heading) {
  const std::string body = Body(data);
  std::string text(kKind);
  text += kVersion;
  text += '\n';
  const auto append = [&](const TextKey& row) {
    text += std::string(row.key) + ": ";
    AppendQuoted(text, heading.*row.text);
    text += '\n';
  };
  for (const TextKey& row : kTextKeys) append(row);
  for (const TextKey& row : kFurtherKeys) {
    if (!(heading.*row.text).empty()) append(row);
  }
  text += std::string(kChecksumKey) + ": " + ChecksumText(core::Crc32(body)) + '\n';
  return text + body;
}

std::string ChecksumText(std::uint32_t checksum) {
  return core::HexText(checksum, kChecksumDigits);
}

Snapshot ParseSnapshot(std::string_view text) {
  Snapshot snapshot;
  Reader reader(text);
  std::int32_t last_byte = 0;
  MemoryImage image;
  std::unique_ptr<RadioData> data;
  const auto read = [&] {
    if (!ReadOrigin(reader, snapshot.heading)) return false;
    const std::uint32_t checksum = core::Crc32(reader.Rest());
    if (!ReadModel(reader, snapshot.heading, last_byte)) return false;
    image.SetLastIndex(last_byte);
    if (!ReadImage(reader, image)) return false;
    data = image::Decoded(snapshot.heading.model_type, image);
    if (!ReadFields(reader, *data)) return false;
    return checksum == snapshot.heading.checksum ||
           reader.Fail(0, "the checksum above does not fit what follows it");
  };
  if (read()) {
    snapshot.data = std::move(data);
  } else {
    snapshot.error = reader.Error();
  }
  return snapshot;
}

Snapshot ParseSnapshotHeading(std::string_view text) {
  Snapshot snapshot;
  Reader reader(text);
  std::int32_t last_byte = 0;
  if (!ReadOrigin(reader, snapshot.heading) || !ReadModel(reader, snapshot.heading, last_byte)) {
    snapshot.error = reader.Error();
  }
  return snapshot;
}

}  // namespace orvane::files
