#include "files/channel_names.h"

#include <algorithm>

namespace orvane::files {

std::vector<std::string> ChannelNamesInUse(const core::RadioData& data) {
  std::vector<std::string> names;
  const auto add = [&names](const auto& table) {
    for (const core::ChannelRecord& channel : table) {
      if (!channel.Enable || channel.ChTag.empty()) continue;
      if (std::find(names.begin(), names.end(), channel.ChTag) == names.end()) {
        names.push_back(channel.ChTag);
      }
    }
  };
  for (std::size_t group = 0; group < data.Marine.size(); ++group) {
    if (data.Usable[group].Enable) add(data.Marine[group]);
  }
  if (data.LmrPresent() || data.ExpPresent) add(data.EXP);
  return names;
}

}  // namespace orvane::files
