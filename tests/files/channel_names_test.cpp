#include "files/channel_names.h"

#include <gtest/gtest.h>

#include <memory>

namespace orvane::files {
namespace {

TEST(ChannelNames, AreThoseOfChannelsInUseEachOnce) {
  using Names = std::vector<std::string>;
  const auto data = std::make_unique<core::RadioData>();
  const auto put = [](core::ChannelRecord& channel, bool on, const char* name) {
    channel.Enable = on;
    channel.ChTag = name;
  };
  put(data->Marine[0][3], true, "FERRY");
  put(data->Marine[0][4], false, "OFF");
  put(data->Marine[0][5], true, "");
  put(data->Marine[1][3], true, "PILOT");
  put(data->Marine[2][3], true, "FERRY");
  put(data->EXP[7], true, "CREW");
  EXPECT_EQ(ChannelNamesInUse(*data), Names{});
  data->Usable[0].Enable = data->Usable[2].Enable = true;
  EXPECT_EQ(ChannelNamesInUse(*data), Names{"FERRY"});
  data->Usable[1].Enable = true;
  data->ExpPresent = true;
  EXPECT_EQ(ChannelNamesInUse(*data), Names({"FERRY", "PILOT", "CREW"}));
}

}  // namespace
}  // namespace orvane::files
