#include "cli/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "cli/same_file.h"
#include "core/catalogue.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/snapshot.h"
#include "files/table_file.h"
#include "link/port_name.h"

namespace orvane::cli {
namespace {

constexpr std::string_view kProgram = "orvane-cli";

struct CommandInfo {
  Command command;
  std::string_view name;
  std::string_view usage;  ///< behind the program's name
  std::string_view help;
};
constexpr auto kCommands = std::to_array<CommandInfo>({
    {Command::kNew, "new", "[--yes] new --model M -o OUT", "a fresh data set, saved"},
    {Command::kConvert, "convert", "[--yes] convert IN OUT",
     "between .hex, .dat, .orvsnap and to .txt, .pdf, by extension"},
    {Command::kReport, "report", "report IN", "the text report on standard output"},
    {Command::kMap, "map", "map [--model M] [IN.hex]",
     "every field of the image: offset, bits, name, bytes, value"},
    {Command::kShow, "show", "show IN [--json]", "the decoded data set"},
    {Command::kGet, "get", "get IN PATH...", "single fields, such as usa/16/name"},
    {Command::kSet, "set", "[--yes] set IN PATH=VALUE... -o OUT",
     "changes single fields by the rules of the window"},
    {Command::kPorts, "ports", "ports [--json]", "the serial ports"},
    {Command::kRead, "read", "[--yes] read --model M --port P -o OUT [--raw] [--base FILE]",
     "the radio's contents into a file"},
    {Command::kProgram, "program",
     "[--yes] program [--model M] --port P IN [--keep FILE] [--verify] [--receipt FILE] "
     "[--base FILE]",
     "a file's contents into the radio"},
    {Command::kCheck, "check", "check IN [--json]",
     "what is wrong with a data set; exit status 0: nothing worse than notes, 1: something is"},
    {Command::kDiff, "diff", "diff A B [--json]",
     "how two data sets differ, each a file or the ID of a backup; exit status 0: not at all, 1: "
     "they do, 2: trouble"},
    {Command::kExport, "export", "export IN --table T -o OUT.csv",
     "one table for a spreadsheet, with every field that the model has"},
    {Command::kImport, "import", "[--yes] import IN TABLE.csv --table T -o OUT [--dry-run]",
     "takes a table over by the rules of the window; --dry-run only tells what would change"},
    {Command::kBackups, "backups", "backups [list|show ID|restore ID -o OUT]",
     "data sets that the window kept when it read, programmed or replaced them"},
    {Command::kDoctor, "doctor", "doctor [--port P] [--model M] [--json]",
     "the serial ports and who has them; with --port, what is wrong there up to the radio"},
});

// The words as they stand, before their values are looked at.
struct RawOptions {
  Options options;
  std::optional<std::string> model;
  std::optional<std::string> port;
  std::optional<std::string> table;
};

std::string UsageLine(const CommandInfo& info) {
  return std::string(kProgram) + " " + std::string(info.usage);
}

std::string ModelNumbers() {
  std::string text;
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    text += (text.empty() ? "" : ", ") + std::to_string(profile.model_type) + " " +
            core::ModelDisplayName(profile.model_type, true);
  }
  return text;
}

std::string TableNames() {
  std::string text;
  for (std::uint8_t table = 0; table < core::Catalogue().size(); ++table) {
    if (!files::IsTextTable(table)) continue;
    text += (text.empty() ? "" : ", ") + std::string(core::Catalogue()[table].id);
  }
  return text;
}

void AddOptions(CLI::App& app, const CommandInfo& info, RawOptions& raw) {
  // An empty word is a word, and a wrong one.
  const auto word = [&](const char* name, std::optional<std::string>& value, const char* help) {
    return app.add_option_function<std::string>(
        name, [&value](const std::string& given) { value = given; }, help);
  };
  const auto model = [&] { return word("--model", raw.model, "MODELTYPE 0 to 6"); };
  const auto port = [&] {
    return word("--port", raw.port, "port number, COM and number, or device path");
  };
  const auto input = [&](const char* help) {
    return app.add_option("IN", raw.options.input, help);
  };
  constexpr const char* kOutput = "file to write: .dat, .hex, .orvsnap, .txt or .pdf";
  const auto output = [&] {
    app.add_option("-o,--output", raw.options.output, kOutput)->required();
  };
  const auto table = [&] {
    const std::string help = "which table: " + TableNames();
    word("--table", raw.table, help.c_str())->required();
  };
  const auto json = [&] { app.add_flag("--json", raw.options.json, "as JSON"); };
  constexpr const char* kDocument = ".dat, .hex or .orvsnap file";
  switch (info.command) {
    case Command::kNew:
      model()->required();
      output();
      break;
    case Command::kConvert:
      input(kDocument)->required();
      app.add_option("OUT", raw.options.output, kOutput)->required();
      break;
    case Command::kReport:
      input(kDocument)->required();
      break;
    case Command::kMap:
      model();
      input(".hex or .orvsnap file; a fresh image when left out");
      break;
    case Command::kShow:
      input(kDocument)->required();
      json();
      break;
    case Command::kGet:
      input(kDocument)->required();
      app.add_option("PATH", raw.options.fields, "which field")->required();
      break;
    case Command::kSet:
      input(kDocument)->required();
      app.add_option("PATH=VALUE", raw.options.fields, "which field, and what it shall be")
          ->required();
      output();
      break;
    case Command::kPorts:
      json();
      break;
    case Command::kRead:
      model()->required();
      port()->required();
      output();
      app.add_flag("--raw", raw.options.raw, "write the image exactly as received (.hex)");
      app.add_option("--base", raw.options.base,
                     "start from this .dat, .hex, .orvsnap or template .ini file");
      break;
    case Command::kProgram:
      model();
      port()->required();
      input(kDocument)->required();
      app.add_option("--keep", raw.options.keep,
                     "first read what the radio holds into this file: .hex the memory, .dat, else "
                     "a snapshot");
      app.add_flag("--verify", raw.options.verify, "read back what was written and compare it");
      app.add_option("--receipt", raw.options.receipt,
                     "file for an account of the run: .json, else a text");
      app.add_option("--base", raw.options.base,
                     "take what a .dat file has no place for (MMSI, DSC, call signs) from this "
                     ".dat, .hex, .orvsnap or template .ini file, not from the radio");
      break;
    case Command::kCheck:
      input(kDocument)->required();
      json();
      break;
    case Command::kDiff:
      app.add_option("A", raw.options.input, kDocument)->required();
      app.add_option("B", raw.options.other, kDocument)->required();
      json();
      break;
    case Command::kExport:
      input(kDocument)->required();
      table();
      app.add_option("-o,--output", raw.options.output, "file to write: .csv")->required();
      break;
    case Command::kImport:
      input(kDocument)->required();
      app.add_option("TABLE", raw.options.other, "table as text: .csv, .tsv or .txt")->required();
      table();
      app.add_option("-o,--output", raw.options.output, kOutput);
      app.add_flag("--dry-run", raw.options.dry_run, "tell what would change and write nothing");
      break;
    case Command::kBackups:
      app.add_option("ACTION", raw.options.action, "list, show or restore; list when left out");
      app.add_option("ID", raw.options.id, "which one, as the list names it");
      app.add_option("-o,--output", raw.options.output,
                     "restore: file to write; .hex the memory, .dat, else a snapshot");
      break;
    case Command::kDoctor:
      port();
      model();
      json();
      break;
  }
}

std::string OneOf(const std::vector<std::string_view>& extensions) {
  std::string text;
  for (std::size_t i = 0; i < extensions.size(); ++i) {
    if (i > 0) text += i + 1 == extensions.size() ? " or " : ", ";
    text += extensions[i];
  }
  return text;
}

std::optional<std::string> WrongExtension(const std::string& path, std::string_view what,
                                          const std::vector<std::string_view>& extensions) {
  const std::string extension = Extension(path);
  if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
    return std::nullopt;
  }
  return std::string(what) + " \"" + path + "\" must end in " + OneOf(extensions) + ".";
}

std::optional<std::string> WrongDocument(const std::string& path) {
  return WrongExtension(path, "The file to read",
                        {files::kSettingsEnding, files::kImageEnding, files::kSnapshotEnding});
}

std::optional<std::string> WrongCompared(const std::string& word) {
  return IsBackupId(word) ? std::nullopt : WrongDocument(word);
}

std::optional<std::string> WrongInput(const Options& options) {
  if (options.command == Command::kMap) {
    if (options.input.empty()) return std::nullopt;
    return WrongExtension(options.input, "The image file",
                          {files::kImageEnding, files::kSnapshotEnding});
  }
  if (options.command == Command::kNew || options.command == Command::kPorts ||
      options.command == Command::kRead || options.command == Command::kBackups ||
      options.command == Command::kDoctor) {
    return std::nullopt;
  }
  return options.command == Command::kDiff ? WrongCompared(options.input)
                                           : WrongDocument(options.input);
}

std::optional<std::string> WrongOutput(const Options& options) {
  if (options.raw) {
    return WrongExtension(options.output, "With --raw the file to write", {files::kImageEnding});
  }
  if (options.command == Command::kExport) {
    return WrongExtension(options.output, "The file to write", {".csv"});
  }
  const bool imports = options.command == Command::kImport && !options.output.empty();
  if (options.command == Command::kNew || options.command == Command::kConvert ||
      options.command == Command::kSet || options.command == Command::kRead || imports) {
    return WrongExtension(
        options.output, "The file to write",
        {files::kSettingsEnding, files::kImageEnding, files::kSnapshotEnding, ".txt", ".pdf"});
  }
  return std::nullopt;
}

std::optional<std::string> WrongBackups(const Options& options) {
  const bool restores = options.action == "restore";
  const bool lists = options.action == "list";
  if (!lists && !restores && options.action != "show") {
    return "\"" + options.action + "\" must be list, show or restore.";
  }
  if (lists != options.id.empty()) {
    return lists ? "list takes no ID." : options.action + " needs the ID of a backup.";
  }
  if (restores != options.output.empty()) return std::nullopt;
  return restores ? "restore needs -o and the file to write." : "Only restore takes -o.";
}

std::optional<std::string> WrongImport(const Options& options) {
  if (options.output.empty() && !options.dry_run) {
    return "import needs -o and the file to write, or --dry-run.";
  }
  return WrongExtension(options.other, "The table", {".csv", ".tsv", ".txt"});
}

// Brings the values of model, port and table over. Returns what is wrong with them.
std::optional<std::string> TakeValues(RawOptions& raw) {
  if (raw.model) {
    const std::string& model = *raw.model;
    const bool known = model.size() == 1 && model[0] >= '0' && model[0] <= '6';
    if (!known) return "--model \"" + model + "\" is no model. Models: " + ModelNumbers() + ".";
    raw.options.model = static_cast<std::int16_t>(model[0] - '0');
  }
  if (raw.port) {
    const std::optional<PortChoice> port = ParsePort(*raw.port);
    if (!port) {
      return "--port \"" + *raw.port +
             "\" is no port. Give a number 1 to 16, COM1 to COM16 or the path of a device.";
    }
    raw.options.port = *port;
  }
  if (raw.table) {
    const std::optional<std::uint8_t> table = files::FindTextTable(*raw.table);
    if (!table) return "--table \"" + *raw.table + "\" is no table. Tables: " + TableNames() + ".";
    raw.options.table = *table;
  }
  return std::nullopt;
}

// A file that is written must be no other file of the command: it would be lost.
std::optional<std::string> WrongFiles(const Options& options) {
  if (!options.base.empty() && Extension(options.input) != files::kSettingsEnding) {
    return "--base goes with a .dat file; \"" + options.input + "\" holds everything itself.";
  }
  std::vector<std::string> files = {options.input, options.base};
  for (const std::string& written : {options.keep, options.receipt}) {
    if (written.empty()) continue;
    const auto is_same = [&](const std::string& file) {
      return !file.empty() && IsSameFile(file, written);
    };
    if (std::any_of(files.begin(), files.end(), is_same)) {
      return "\"" + written + "\" stands for two files.";
    }
    files.push_back(written);
  }
  return std::nullopt;
}

std::optional<std::string> FindMistake(RawOptions& raw) {
  if (std::optional<std::string> wrong = TakeValues(raw)) return wrong;
  if (raw.options.command == Command::kBackups) return WrongBackups(raw.options);
  if (std::optional<std::string> wrong = WrongInput(raw.options)) return wrong;
  if (std::optional<std::string> wrong = WrongOutput(raw.options)) return wrong;
  if (raw.options.command == Command::kProgram) {
    if (std::optional<std::string> wrong = WrongFiles(raw.options)) return wrong;
  }
  if (raw.options.command == Command::kImport) return WrongImport(raw.options);
  if (raw.options.command == Command::kDiff) return WrongCompared(raw.options.other);
  if (raw.options.base.empty()) return std::nullopt;
  return WrongExtension(
      raw.options.base, "The --base file",
      {files::kSettingsEnding, files::kImageEnding, files::kSnapshotEnding, ".ini"});
}

std::string WithUsage(std::string sentence, const CommandInfo* info) {
  while (!sentence.empty() && (sentence.back() == '\n' || sentence.back() == '.')) {
    sentence.pop_back();
  }
  std::string text = std::string(kProgram) + ": " + sentence + ".\nUsage: ";
  if (info != nullptr) return text + UsageLine(*info) + "\n";
  for (const CommandInfo& each : kCommands) {
    text += (&each == kCommands.data() ? "" : "       ") + UsageLine(each) + "\n";
  }
  return text;
}

const CommandInfo* FindCommand(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    const auto* const found =
        std::find_if(kCommands.begin(), kCommands.end(),
                     [&](const CommandInfo& info) { return info.name == word; });
    if (found != kCommands.end()) return found;
  }
  return nullptr;
}

std::string ParserMessage(const CLI::ParseError& error, const CommandInfo* info) {
  if (info == nullptr) return "the first word must be one of the commands below";
  const std::string text = error.what();
  return text.substr(0, text.find('\n'));
}

}  // namespace

Parsed ParseWords(const std::vector<std::string>& words) {
  RawOptions raw;
  CLI::App app("Reads, keeps and programs the contents of handheld marine VHF radios",
               std::string(kProgram));
  app.require_subcommand(1);
  app.fallthrough();
  app.add_flag("--yes", raw.options.yes, "answer every question with Yes or OK");
  app.add_flag("--debug", raw.options.debug, "show each step of a transfer and write err.log");
  app.footer("Models: " + ModelNumbers() +
             ".\nExit status: 0 done, 1 refused or failed, 2 wrong usage, unless said otherwise.");
  for (const CommandInfo& info : kCommands) {
    CLI::App* const command = app.add_subcommand(std::string(info.name), std::string(info.help));
    AddOptions(*command, info, raw);
    command->callback([&raw, &info] { raw.options.command = info.command; });
  }

  const CommandInfo* const info = FindCommand(words);
  std::vector<std::string> reversed(words.rbegin(), words.rend());
  try {
    app.parse(reversed);
  } catch (const CLI::CallForHelp&) {
    return {{}, app.help(), {}};
  } catch (const CLI::ParseError& error) {
    return {{}, {}, WithUsage(ParserMessage(error, info), info)};
  }
  if (const std::optional<std::string> mistake = FindMistake(raw)) {
    return {{}, {}, WithUsage(*mistake, info)};
  }
  return {raw.options, {}, {}};
}

bool IsBackupId(std::string_view word) {
  constexpr std::size_t kShortest = 4;
  constexpr std::string_view kSigns = "0123456789ABCDEFabcdef-";
  return word.size() >= kShortest && word.find_first_not_of(kSigns) == std::string_view::npos;
}

std::optional<PortChoice> ParsePort(const std::string& text) {
  if (text.find('/') != std::string::npos || text.starts_with("\\\\")) return text;
  const std::string upper = core::UpperCase(text);
  for (int number = link::kFirstPortNumber; number <= link::kLastPortNumber; ++number) {
    if (upper == std::to_string(number) || upper == link::PortName(number)) return number;
  }
  return std::nullopt;
}

}  // namespace orvane::cli
