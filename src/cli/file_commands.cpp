#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "cli/data_tree.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "image/memory_map.h"
#include "link/port_list.h"
#include "platform/ansi_text.h"

namespace orvane::cli {
bool RunNew(Workplace& place) {
  core::RadioData data = place.documents.Fresh(*place.options.model);
  return place.documents.CheckOutput(place.options.output, data) &&
         place.documents.Save(place.options.output, data);
}

bool RunConvert(Workplace& place) {
  core::RadioData data;
  return place.documents.Load(place.options.input, std::nullopt, data) &&
         place.documents.CheckOutput(place.options.output, data) &&
         place.documents.Save(place.options.output, data);
}

bool RunReport(Workplace& place) {
  core::RadioData data;
  if (!place.documents.Load(place.options.input, std::nullopt, data)) return false;
  // The bytes of a .txt file, so that the output can become one; a terminal shows UTF-8.
  const std::string text = ReportFileText(data);
  place.out << (place.services.terminals.out ? platform::AnsiToUtf8(text) : text);
  return true;
}

bool RunMap(Workplace& place) {
  const std::optional<std::int16_t> model = place.options.model;
  core::RadioData data = place.documents.Fresh(model.value_or(core::kDefaultModelType));
  if (!place.options.input.empty() && !place.documents.Load(place.options.input, model, data)) {
    return false;
  }
  place.out << platform::AnsiToUtf8(image::MemoryMapText(data));
  return true;
}

bool RunShow(Workplace& place) {
  core::RadioData data;
  if (!place.documents.Load(place.options.input, std::nullopt, data)) return false;
  const nlohmann::ordered_json tree = DataTree(data);
  if (place.options.json) {
    PrintJson(place.out, tree);
  } else {
    place.out << TreeText(tree);
  }
  return true;
}

bool RunPorts(Workplace& place) {
  link::CComList ports(place.services.ports);
  nlohmann::ordered_json list = nlohmann::ordered_json::array();
  for (int index = 0, count = ports.Create(); index < count; ++index) {
    const link::PortEntry port = ports.PortItem(index);
    // Both end in the blank that parted them from the port's number.
    const std::string full_name = ports.RefComName(index);
    const std::string_view name = core::TrimRight(full_name);
    const std::string_view description = core::TrimRight(port.description);
    list.push_back({{"number", port.port_number},
                    {"name", name},
                    {"description", description},
                    {"device", port.device}});
    if (!place.options.json) place.out << name << ' ' << port.device << '\n';
  }
  if (place.options.json) {
    PrintJson(place.out, list);
  } else if (list.empty()) {
    place.out << "(not exist)\n";
  }
  return true;
}

}  // namespace orvane::cli
