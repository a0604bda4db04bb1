#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/data_tree.h"

namespace orvane::cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kIndent = 2;

std::string ValueText(const Json& value) {
  if (value.is_boolean()) return value.get<bool>() ? "on" : "off";
  if (value.is_array() || value.is_object()) {
    std::string text;
    for (const auto& [key, each] : value.items()) {
      text += (text.empty() ? "" : " ") + (value.is_object() ? key + " " : std::string()) +
              ValueText(each);
    }
    return "(" + text + ")";
  }
  return value.dump();
}

bool IsDefault(const Json& value) {
  if (value.is_boolean()) return !value.get<bool>();
  if (value.is_number()) return value.get<double>() == 0;
  return value.is_string() && value.get_ref<const std::string&>().empty();
}

// A record on one line. Entries of a list are named by their first field and leave out what is at
// its default.
std::string EntryText(const Json& entry) {
  std::string text;
  bool first = true;
  for (const auto& [key, value] : entry.items()) {
    if (first) {
      text = value.is_string() ? value.get<std::string>() : ValueText(value);
      text += ":";
      first = false;
    } else if (!IsDefault(value)) {
      text += " " + key + " " + ValueText(value);
    }
  }
  return text;
}

std::string FieldsText(const Json& record) {
  std::string text;
  for (const auto& [key, value] : record.items()) {
    text += (text.empty() ? "" : ", ") + key + " " + ValueText(value);
  }
  return text;
}

bool IsUnused(const Json& entry) {
  if (entry.contains("enable")) return entry["enable"] == false;
  return std::all_of(entry.begin(), entry.end(), IsDefault);
}

std::string ListText(const Json& list, const std::string& margin) {
  std::string text;
  for (const Json& entry : list) {
    if (!IsUnused(entry)) text += margin + EntryText(entry) + "\n";
  }
  return text;
}

// A table; the pairs of one field ("on" and "hi") are no table.
bool IsTable(const Json& node) {
  return node.is_array() && !node.empty() && node.front().is_object() &&
         !node.front().contains("hi");
}

void AddLines(const std::string& name, const Json& node, int depth, std::string& text) {
  const std::string margin(static_cast<std::size_t>(depth * kIndent), ' ');
  text += margin + name + ":";
  if (IsTable(node)) {
    text += "\n" + ListText(node, margin + std::string(kIndent, ' '));
  } else if (node.is_object() && depth == 0) {
    text += "\n";
    for (const auto& [key, child] : node.items()) AddLines(key, child, depth + 1, text);
  } else {
    text += " " + (node.is_object() ? FieldsText(node) : ValueText(node)) + "\n";
  }
}

}  // namespace

std::string JsonText(const Json& tree) {
  // Paths and descriptions of the system may hold bytes that are no UTF-8.
  return tree.dump(kIndent, ' ', false, Json::error_handler_t::replace) + '\n';
}

void PrintJson(std::ostream& out, const Json& tree) {
  out << JsonText(tree);
}

std::string TreeText(const Json& tree) {
  std::string text;
  for (const auto& [key, node] : tree.items()) AddLines(key, node, 0, text);
  return text;
}

}  // namespace orvane::cli
