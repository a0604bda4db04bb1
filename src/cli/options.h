#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/text.h"

namespace orvane::cli {

enum class Command {
  kNew,
  kConvert,
  kReport,
  kMap,
  kShow,
  kGet,
  kSet,
  kPorts,
  kRead,
  kProgram,
  kBackups,
  kDoctor,
  kCheck,
  kDiff,
  kExport,
  kImport
};

/// A port number 1..16, or the path of a device.
using PortChoice = std::variant<int, std::string>;

struct Options {
  Command command = Command::kNew;
  bool yes = false;
  bool debug = false;
  bool json = false;
  bool raw = false;
  std::optional<std::int16_t> model;
  PortChoice port = 0;  ///< 0: none was named
  std::string input;
  std::string other;  ///< diff: what the input is compared with; import: the table
  std::string output;
  std::string base;
  std::string keep;                 ///< program: file for what the radio held before
  std::string receipt;              ///< program: file for the receipt
  bool verify = false;              ///< program: read back what was written
  std::string action = "list";      ///< backups: list, show or restore
  std::string id;                   ///< of a backup
  std::uint8_t table = 0;           ///< export, import: its place in the catalogue
  bool dry_run = false;             ///< import: show and write nothing
  std::vector<std::string> fields;  ///< get: paths; set: PATH=VALUE
};

/// What the words mean: options, or what to say instead of working. Exactly one of the three is
/// set.
struct Parsed {
  std::optional<Options> options;
  std::string help;   ///< asked for
  std::string error;  ///< what is wrong and what would be right
};
[[nodiscard]] Parsed ParseWords(const std::vector<std::string>& words);

/// "16", "COM16" in either letter case, or a device path.
[[nodiscard]] std::optional<PortChoice> ParsePort(const std::string& text);

using core::Extension;

/// The ID of a backup, or the beginning of one. No document's name looks so: it has an extension.
[[nodiscard]] bool IsBackupId(std::string_view word);

}  // namespace orvane::cli
