#pragma once

#include <nlohmann/json_fwd.hpp>
#include <ostream>
#include <string>

#include "core/radio_data.h"

/// The decoded data set for other programs and for reading in a terminal.
namespace orvane::cli {

/// Everything the model has, in a fixed order. Keys are the records' field names in small letters;
/// texts are UTF-8, frequencies MHz, channel references combined channel numbers (-1 none).
[[nodiscard]] nlohmann::ordered_json DataTree(const core::RadioData& data);

[[nodiscard]] std::string JsonText(const nlohmann::ordered_json& tree);
void PrintJson(std::ostream& out, const nlohmann::ordered_json& tree);

/// The tree as indented lines, one for each record. Of channels and directories only the enabled
/// entries are listed, and of them only what is neither off, 0 nor empty.
[[nodiscard]] std::string TreeText(const nlohmann::ordered_json& tree);

}  // namespace orvane::cli
