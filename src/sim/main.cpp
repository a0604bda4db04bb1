#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "core/model_profile.h"
#include "link/port_links.h"
#include "sim/options.h"
#include "sim/radio_host.h"
#include "sim/radio_source.h"

namespace orvane::sim {
namespace {

constexpr int kFailed = 1;

int Fail(const std::string& sentence) {
  std::cerr << "orvane-radio: " << sentence << std::endl;
  return kFailed;
}

std::string Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

RadioContents ContentsOfFile(const std::string& path, const core::FileBytes& file,
                             const Options& options) {
  if (file.error) return {{}, "\"" + path + "\" cannot be read: " + file.error->description};
  return ContentsOfImage(path, file.bytes, options.model);
}

/// What was kept, else what the image says, else a sample.
RadioContents Contents(const Options& options) {
  if (!options.keep.empty()) {
    const core::FileBytes kept = ReadWholeFile(options.keep);
    const bool first_time = kept.error && kept.error->number == kNoSuchFile;
    if (!first_time) return ContentsOfFile(options.keep, kept, options);
  }
  if (!options.image.empty()) {
    return ContentsOfFile(options.image, ReadWholeFile(options.image), options);
  }
  return SampleContents(options.model.value_or(core::kDefaultModelType), Today());
}

std::string_view AsText(std::span<const std::uint8_t> bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

int RunRadio(const Options& options) {
  const std::string config_root =
      link::ConfigRoot(Environment("XDG_CONFIG_HOME"), Environment("HOME"));
  if (config_root.empty()) return Fail("neither XDG_CONFIG_HOME nor HOME says where to register");
  const RadioContents contents = Contents(options);
  if (!contents.error.empty()) return Fail(contents.error);

  link::FaultPlan faults(options.faults);
  faults.Scatter(options.seed, options.fault_percent);
  link::SimulatedRadio radio(contents.memory, std::move(faults));
  const std::unique_ptr<Terminal> terminal =
      MakeTerminal(options.until_input_ends ? StopsAt::kEndOfInput : StopsAt::kSignals);
  const std::unique_ptr<PortRegistration> registration =
      MakePortRegistration(link::PortsFolder(config_root), options.ports);

  RadioHost::Services services{*terminal, *registration, {}, std::cout, std::cerr, {}};
  if (!options.keep.empty()) {
    services.save = [&options](std::span<const std::uint8_t> memory) {
      return ReplaceFile(options.keep, AsText(memory));
    };
    // Shows before any work whether the memory can be kept.
    if (const std::optional<core::SystemError> error = services.save(radio.Memory())) {
      return Fail("\"" + options.keep + "\" cannot be written: " + error->description);
    }
  }
  std::ofstream log_file;
  if (!options.log.empty()) {
    log_file.open(options.log, std::ios::trunc);
    if (!log_file) return Fail("\"" + options.log + "\" cannot be written");
    services.log = [&log_file](const std::string& line) { log_file << line << std::endl; };
  } else if (!options.quiet) {
    services.log = [](const std::string& line) { std::cout << line << std::endl; };
  }
  RadioHost host(radio, {options.baud, options.replug_seconds}, services);
  return host.Run();
}

}  // namespace
}  // namespace orvane::sim

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  const orvane::sim::ParsedOptions parsed = orvane::sim::ParseOptions(words, std::cout, std::cerr);
  if (!parsed.options) return parsed.exit_status;
  return orvane::sim::RunRadio(*parsed.options);
}
