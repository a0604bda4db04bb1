#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/flag.h"
#include "files/settings_file_keys.h"

/// The value forms of the settings file: one pair of routines per member type. A text that cannot
/// be converted leaves the field unchanged, except as Form says.
namespace orvane::files {

[[nodiscard]] std::string ValueText(core::Flag value, Form form);
[[nodiscard]] std::string ValueText(std::int16_t value, Form form);
[[nodiscard]] std::string ValueText(std::int32_t value, Form form);
[[nodiscard]] std::string ValueText(std::uint8_t value, Form form);
[[nodiscard]] std::string ValueText(double value, Form form);
/// Line ends inside a text become blanks: they would end the entry.
[[nodiscard]] std::string ValueText(const std::string& value, Form form);

void StoreValue(std::string_view text, Form form, core::Flag& field);
void StoreValue(std::string_view text, Form form, std::int16_t& field);
void StoreValue(std::string_view text, Form form, std::int32_t& field);
void StoreValue(std::string_view text, Form form, std::uint8_t& field);
void StoreValue(std::string_view text, Form form, double& field);
void StoreValue(std::string_view text, Form form, std::string& field);

/// "&H" and two digits.
[[nodiscard]] std::string HexByteText(std::uint8_t value);
/// Hexadecimal behind "&H", decimal otherwise; what is no number stores 0, what is no byte leaves
/// the field unchanged.
void StoreHexByte(std::string_view text, std::uint8_t& field);

}  // namespace orvane::files
