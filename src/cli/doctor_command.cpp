#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <variant>
#include <vector>

#include "cli/commands.h"
#include "cli/data_tree.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "link/doctor.h"
#include "link/port_check.h"

namespace orvane::cli {
namespace {

using Json = nlohmann::ordered_json;
using link::PortHolder;

Json HoldersTree(const std::vector<PortHolder>& holders) {
  Json tree = Json::array();
  for (const PortHolder& holder : holders) {
    tree.push_back({{"program", holder.program}, {"process", holder.process}});
  }
  return tree;
}

bool ListPorts(Workplace& place) {
  const std::vector<link::PortEntry> ports = link::PortsNow(place.services.ports);
  const std::vector<std::vector<PortHolder>> holders =
      link::HoldersOf(place.services.devices, ports);
  Json list = Json::array();
  for (std::size_t i = 0; i < ports.size(); ++i) {
    const link::PortLabel label = link::LabelOf(ports[i]);
    list.push_back({{"number", ports[i].port_number},
                    {"name", label.name},
                    {"description", label.description},
                    {"device", ports[i].device},
                    {"holders", HoldersTree(holders[i])}});
    if (place.options.json) continue;
    place.out << label.Text() << ' ' << ports[i].device << ": " << link::UseText(holders[i])
              << '\n';
  }
  if (place.options.json) {
    PrintJson(place.out, {{"ports", list}});
  } else if (list.empty()) {
    place.out << "(not exist)\n";
  }
  return true;
}

bool TestPort(Workplace& place) {
  const PortChoice& choice = place.options.port;
  Services& services = place.services;
  const std::string device = DeviceToOpen(choice, services.ports);
  const link::PortLabel label = LabelOf(choice, services.ports);
  const core::ModelProfile* const wanted =
      place.options.model ? &core::ProfileOf(*place.options.model) : nullptr;
  if (services.terminals.err) place.err.Update("testing " + label.Text() + "...");
  const std::unique_ptr<link::SerialPort> port = services.make_port(device);
  link::PortCheck check({services.clock, services.pump, place.log, services.devices});
  link::Diagnosis found;
  {
    const platform::WhileInterruptible cancel(services.interrupts, [&check] { check.Cancel(); });
    found = check.Run(*port, device, wanted);
  }
  place.err.Finish();
  if (place.options.json) {
    PrintJson(place.out, {{"port", label.name},
                          {"description", label.description},
                          {"device", device},
                          {"verdict", link::RowOf(found.verdict).name},
                          {"text", found.text},
                          {"remedy", found.remedy},
                          {"command", found.command}});
  } else {
    place.out << label.Text() << ": " << found.text << '\n' << found.remedy << '\n';
    if (!found.command.empty()) place.out << "  " << found.command << '\n';
  }
  return found.verdict == link::Verdict::kReady;
}

}  // namespace

bool RunDoctor(Workplace& place) {
  const int* const number = std::get_if<int>(&place.options.port);
  return number != nullptr && *number == 0 ? ListPorts(place) : TestPort(place);
}

}  // namespace orvane::cli
