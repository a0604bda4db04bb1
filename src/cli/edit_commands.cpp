#include <optional>
#include <string>
#include <string_view>

#include "cli/commands.h"
#include "core/catalogue.h"
#include "core/message_facts.h"
#include "core/model_profile.h"
#include "document/edits.h"
#include "platform/ansi_text.h"

namespace orvane::cli {
namespace {

constexpr char kAssign = '=';

std::optional<core::FieldRef> FindField(Workplace& place, const std::string& path) {
  const std::optional<core::FieldRef> at = core::RefOf(path);
  if (!at) {
    static_cast<void>(
        Refuse(place, path, "There is no such field. \"show IN --json\" lists them."));
  }
  return at;
}

bool SetOne(Workplace& place, core::RadioData& data, const std::string& assignment) {
  const std::size_t assign = assignment.find(kAssign);
  const std::string path = assignment.substr(0, assign);
  if (assign == std::string::npos) return Refuse(place, path, "A value must follow: PATH=VALUE.");
  const std::optional<core::FieldRef> at = FindField(place, path);
  if (!at) return false;
  const std::string refusal = document::SetField(
      data, *at, platform::ToAnsi(platform::FromUtf8(assignment.substr(assign + 1))),
      place.services.clock.Today());
  return refusal.empty() || Refuse(place, path, refusal);
}

// As the window does not let a user leave a channel that the radio could not use.
bool IsComplete(Workplace& place, const core::RadioData& data, const std::string& assignment) {
  const std::string path = assignment.substr(0, assignment.find(kAssign));
  const std::optional<core::FieldRef> at = core::RefOf(path);
  const std::optional<document::ChannelPlace> channel =
      at ? document::PlaceOf(data, *at) : std::nullopt;
  const document::Missing missing =
      channel ? document::MissingOf(data, *channel) : document::Missing();
  if (!missing.Any()) return true;
  place.prompts.Show(core::MakeMessage(
      core::MessageId::kIncompleteChannel, path,
      core::MissingFacts(missing.frequency, missing.display, core::WayOut::kSwitchOff)));
  return false;
}

}  // namespace

bool RunSet(Workplace& place) {
  core::RadioData data;
  const Options& options = place.options;
  if (!place.documents.Load(options.input, std::nullopt, data)) return false;
  for (const std::string& assignment : options.fields) {
    if (!SetOne(place, data, assignment)) return false;
  }
  for (const std::string& assignment : options.fields) {
    if (!IsComplete(place, data, assignment)) return false;
  }
  return place.documents.CheckOutput(options.output, data) &&
         place.documents.Save(options.output, data);
}

bool RunGet(Workplace& place) {
  core::RadioData data;
  const Options& options = place.options;
  if (!place.documents.Load(options.input, std::nullopt, data)) return false;
  std::string lines;
  for (const std::string& path : options.fields) {
    const std::optional<core::FieldRef> at = FindField(place, path);
    if (!at) return false;
    if (options.fields.size() > 1) lines += core::PathOf(*at) + kAssign;
    lines += platform::AnsiToUtf8(core::FieldOf(*at).notation->show(core::Get(data, *at))) + '\n';
  }
  place.out << lines;
  return true;
}

}  // namespace orvane::cli
