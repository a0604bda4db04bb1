#include "sim/options.h"

#include <CLI/CLI.hpp>
#include <cmath>
#include <iomanip>
#include <sstream>

#include "core/model_profile.h"
#include "core/number_text.h"
#include "link/port_name.h"
#include "link/radio_program.h"

namespace orvane::sim {
namespace {

constexpr int kWrongUsage = 2;
constexpr double kLongestUnplugged = 3600;  ///< seconds

std::string Models() {
  std::string text;
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    if (!text.empty()) text += ", ";
    text += std::to_string(profile.model_type) + " " + std::string(profile.model);
  }
  return text;
}

std::string FaultHelp() {
  std::ostringstream text;
  text << "Faults (--fault KIND@PLACE or KIND@PLACE=N):\n";
  for (const link::FaultInfo& info : link::Faults()) {
    text << "  " << std::left << std::setw(16) << info.name << info.help << "\n";
  }
  text << "\nPLACE is the number of an exchange since the radio was started (12: line 12 of a log\n"
          "file), the n-th exchange of a kind (write:3), every exchange of a kind (status), or\n"
          "all. Kinds: handshake, confirm, mode, sync, status, read, write, closing (the PC's\n"
          "word after a reply), cancel, other.\n"
          "\n"
          "Examples:\n"
          "  orvane-radio --model 5\n"
          "  orvane-radio boat.hex --keep radio.hex --log radio.log\n"
          "  orvane-radio --fault wrong-checksum@12 --fault busy@status:1\n"
          "  orvane-radio --baud 0 --faults 3 --seed 7\n";
  return text.str();
}

CLI::Validator NumberFrom(double low, double high, bool whole = false) {
  const auto check = [low, high, whole](const std::string& text) {
    const std::optional<double> value = core::ParseNumber(text);
    const bool fits = value && *value >= low && *value <= high;
    if (fits && (!whole || std::floor(*value) == *value)) return std::string();
    return "\"" + text + "\" is not a number from " + core::ShortestText(low) + " to " +
           core::ShortestText(high);
  };
  return CLI::Validator(check, "", "number");
}

CLI::Validator AFault() {
  const auto check = [](const std::string& text) { return link::ParseFault(text).error; };
  return CLI::Validator(check, "", "fault");
}

/// Numbers are read as text and converted with the program's own rules.
struct Texts {
  std::string model, baud, percent, replug;
  std::vector<std::string> ports, faults;
};

void Declare(CLI::App& app, Options& options, Texts& texts) {
  constexpr double kFastest = 4000000;
  const auto last_model = static_cast<int>(core::ModelProfiles().size()) - 1;
  app.get_formatter()->column_width(20);
  app.add_option("IMAGE", options.image, "Image file with the radio's memory (default: a sample)")
      ->type_name("");
  app.add_option(std::string(link::kModelOption), texts.model,
                 "Model: " + Models() + "\n(default: the image's own, or 5)")
      ->check(NumberFrom(0, last_model, true))
      ->type_name("M");
  app.add_option(std::string(link::kPortOption), texts.ports,
                 "Port number 1 to 16 (default 16); of several, with commas\nbetween them, the "
                 "first that is free")
      ->check(NumberFrom(link::kFirstPortNumber, link::kLastPortNumber, true))
      ->delimiter(link::kBetweenPorts)
      ->allow_extra_args(false)
      ->type_name("N");
  app.add_option("--baud", texts.baud,
                 "Speed of the wire (default 9600, the radio's own);\n0: bytes take no time")
      ->check(NumberFrom(0, kFastest))
      ->type_name("B");
  app.add_option("--keep", options.keep,
                 "File to keep the memory in: loaded at the start when it\nexists (instead of "
                 "IMAGE), saved when the PC has stopped\nwriting and at the end")
      ->type_name("FILE");
  app.add_option("--log", options.log,
                 "File for one line about each exchange\n(default: standard output)")
      ->type_name("FILE");
  app.add_flag(std::string(link::kQuietOption), options.quiet,
               "No lines about exchanges on standard output");
  app.add_option("--fault", texts.faults, "A fault and its place, see below; may be repeated")
      ->check(AFault())
      ->allow_extra_args(false)
      ->type_name("FAULT");
  app.add_option("--faults", texts.percent,
                 "Faults of all kinds but the last three below at P of a\nhundred exchanges")
      ->check(NumberFrom(0, 100))
      ->type_name("P");
  app.add_option("--seed", options.seed,
                 "Decides where and which (default 1); the same seed\ngives the same faults")
      ->type_name("SEED");
  app.add_option("--replug", texts.replug, "Seconds until a pulled plug is put back (default 3)")
      ->check(NumberFrom(0, kLongestUnplugged))
      ->type_name("S");
  app.add_flag(std::string(link::kUntilInputEndsOption), options.until_input_ends,
               "End when standard input ends: with the program that\nstarted this one");
  app.footer(FaultHelp());
}

void Convert(const Texts& texts, Options& options) {
  if (!texts.model.empty()) options.model = core::ParseInt16(texts.model);
  if (!texts.ports.empty()) options.ports.clear();
  for (const std::string& port : texts.ports) {
    if (const auto number = core::ParseInt16(port)) options.ports.push_back(*number);
  }
  options.baud = core::ParseNumber(texts.baud).value_or(options.baud);
  options.fault_percent = core::ParseNumber(texts.percent).value_or(options.fault_percent);
  options.replug_seconds = core::ParseNumber(texts.replug).value_or(options.replug_seconds);
  for (const std::string& text : texts.faults) {
    if (const std::optional<link::Fault> fault = link::ParseFault(text).fault) {
      options.faults.push_back(*fault);
    }
  }
}

}  // namespace

ParsedOptions ParseOptions(const std::vector<std::string>& words, std::ostream& out,
                           std::ostream& err) {
  Options options;
  Texts texts;
  CLI::App app("Plays a radio in clone mode at a serial port of its own, until stopped (Ctrl-C).",
               "orvane-radio");
  Declare(app, options, texts);
  try {
    app.parse(
        std::vector<std::string>(words.rbegin(), words.rend()));  // CLI11 takes the last first
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    return {std::nullopt, 0};
  } catch (const CLI::ParseError& error) {
    err << "orvane-radio: " << error.what() << "\nRun \"orvane-radio --help\" for the options.\n";
    return {std::nullopt, kWrongUsage};
  }
  Convert(texts, options);
  return {options, 0};
}

}  // namespace orvane::sim
