#include "core/extra_channel.h"

namespace orvane::core {

bool OfKind(const ModelProfile& profile, const ChannelRecord& channel, bool lmr_root) {
  return !profile.splits_lmr_and_exp || (lmr_root ? channel.IsLmr() : channel.IsExp());
}

bool MarkedEnabled(const ModelProfile& profile, const ChannelRecord& channel, bool lmr_root) {
  return channel.Enable && OfKind(profile, channel, lmr_root);
}

bool MarkedEnabled(const RadioData& data, int number, bool lmr_root) {
  return MarkedEnabled(ProfileOf(data), data.EXP[number], lmr_root);
}

std::string ExtraChannelName(const ModelProfile& profile, int number, bool lmr_root) {
  return std::string(profile.GroupWord(lmr_root)) + std::to_string(number);
}

}  // namespace orvane::core
