#include "files/settings_file_values.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

#include "core/number_text.h"
#include "core/radio_data.h"
#include "core/text.h"

namespace orvane::files {
namespace {

template <class Number>
std::string NumberText(Number value, Form form) {
  const bool none = form == Form::kAbsoluteOrNone && value == core::kNoChannel;
  if (none || (form != Form::kAbsolute && form != Form::kAbsoluteOrNone)) {
    return std::to_string(value);
  }
  // The smallest number has no counterpart that would read back; the largest is the nearest.
  const std::int64_t absolute = std::abs(std::int64_t{value});
  return std::to_string(std::min<std::int64_t>(absolute, std::numeric_limits<Number>::max()));
}

std::optional<bool> ParseTruth(std::string_view text) {
  if (const std::optional<double> number = core::ParseNumber(text)) return *number != 0;
  if (core::EqualsIgnoringCase(core::Trim(text), "True")) return true;
  if (core::EqualsIgnoringCase(core::Trim(text), "False")) return false;
  return std::nullopt;
}

template <class Field, class Number>
void StoreIfNumber(Field& field, const std::optional<Number>& number) {
  if (number) field = *number;
}

}  // namespace

std::string ValueText(core::Flag value, Form form) {
  return value != (form == Form::kInverted) ? "1" : "0";
}

std::string ValueText(std::int16_t value, Form form) {
  return form == Form::kTruth ? ValueText(core::Flag(value != 0), Form::kPlain)
                              : NumberText(value, form);
}

std::string ValueText(std::int32_t value, Form form) {
  return form == Form::kShortOrNone
             ? NumberText(static_cast<std::int16_t>(value), Form::kAbsoluteOrNone)
             : NumberText(value, form);
}

std::string ValueText(std::uint8_t value, Form /*form*/) {
  return std::to_string(value);
}

std::string ValueText(double value, Form /*form*/) {
  return core::ShortestText(value);
}

std::string ValueText(const std::string& value, Form form) {
  std::string text = form == Form::kMarked ? "#" + value : value;
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return text;
}

void StoreValue(std::string_view text, Form form, core::Flag& field) {
  if (form == Form::kInverted) {
    field = text == "0";
  } else {
    StoreIfNumber(field, ParseTruth(text));
  }
}

void StoreValue(std::string_view text, Form form, std::int16_t& field) {
  if (form == Form::kTruth) {
    if (const std::optional<bool> truth = ParseTruth(text)) field = core::Flag(*truth).Wire();
  } else {
    StoreIfNumber(field, core::ParseInt16(text));
  }
}

void StoreValue(std::string_view text, Form /*form*/, std::int32_t& field) {
  StoreIfNumber(field, core::ParseInt32(text));
}

void StoreValue(std::string_view text, Form /*form*/, std::uint8_t& field) {
  StoreIfNumber(field, core::ParseByte(text));
}

void StoreValue(std::string_view text, Form /*form*/, double& field) {
  StoreIfNumber(field, core::ParseNumber(text));
}

void StoreValue(std::string_view text, Form /*form*/, std::string& field) {
  field = text;
}

std::string HexByteText(std::uint8_t value) {
  return std::string(kHexPrefix) + core::HexText(value, 2);
}

void StoreHexByte(std::string_view text, std::uint8_t& field) {
  constexpr int kMaxByte = std::numeric_limits<std::uint8_t>::max();
  if (!core::EqualsIgnoringCase(text.substr(0, kHexPrefix.size()), kHexPrefix)) {
    if (!core::ParseNumber(text)) {
      field = 0;
    } else {
      StoreIfNumber(field, core::ParseByte(text));
    }
    return;
  }
  std::string_view digits = text.substr(kHexPrefix.size());
  // Digits beyond what ParseHex can hold are no byte either, but still a number.
  const bool is_number = !digits.empty() && digits.find_first_not_of("0123456789ABCDEFabcdef") ==
                                                std::string_view::npos;
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  const std::optional<unsigned> value = digits.empty() ? 0U : core::ParseHex(digits);
  if (!is_number) {
    field = 0;
  } else if (value && *value <= unsigned{kMaxByte}) {
    field = static_cast<std::uint8_t>(*value);
  }
}

}  // namespace orvane::files
