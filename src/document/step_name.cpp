#include "document/step_name.h"

#include <optional>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/field_ref.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "document/edits.h"

namespace orvane::document {
std::string PlaceName(const core::RadioData& data, core::FieldRef at) {
  const core::Table& table = core::TableOf(at);
  const core::ModelProfile& profile = core::ProfileOf(data);
  if (const std::optional<ChannelPlace> place = PlaceOf(data, at)) {
    return place->IsMarine() ? "CH" + table.entry_name(at.entry)
                             : core::ExtraChannelName(profile, place->number, place->IsLmr());
  }
  if (table.kind == core::TableKind::kWeather) {
    const std::string& display = core::WxPlan()[at.entry].display;
    return display.substr(0, display.find('['));
  }
  if (core::IsMember<&core::RadioData::ExpPresent>(at)) return std::string(table.label);
  if (table.entry_name == nullptr) return {};
  if (table.kind != core::TableKind::kOnce) {
    return std::string(table.label) + " " + table.entry_name(at.entry);
  }
  return at.entry == core::kExtraGroup ? std::string(profile.extra_word) + " CH"
                                       : core::UpperCase(table.entry_name(at.entry));
}

std::string StepName(const core::RadioData& data, core::FieldRef at) {
  const std::string place = PlaceName(data, at);
  const std::string label(core::FieldOf(at).label);
  return place.empty() ? label : place + " " + label;
}

}  // namespace orvane::document
