#include "core/narrowband.h"

#include <chrono>
#include <string>

#include "core/model_profile.h"

namespace orvane::core {
namespace {

constexpr double kBandLow = 150.0;   // MHz, inclusive
constexpr double kBandHigh = 174.0;  // MHz, inclusive
constexpr Date kCutOver{std::chrono::year{2013}, std::chrono::January, std::chrono::day{1}};

constexpr std::string_view kCaution = "FCC Rule Caution!\r\n\r\n";
constexpr std::string_view kIncludesWide =
    "Your Data includes some Wide bandwidth CHs in 150 - 174 MHz band.\r\n"
    "After Jan.1, 2013, You must change their CHs to Narrow bandwidth.\r\n\r\n";
constexpr std::string_view kAskToConvert =
    "Do you change their CHs to Narrow bandwidth automatically, and start Do you start "
    "downloading them?\r\n"
    "    Yes : It will be change the bandwidth into Narrow and start downloading.\r\n"
    "    No : It will start downloading (w/o changing the bandwidth)";
constexpr std::string_view kAskToStart =
    "Your Data was changed Wide CHs to Narrow, and Do you start downloading them?";
constexpr std::string_view kMustChange =
    "After Jan.1, 2013, You must change some Wide CHs to Narrow in the 150 - 174 MHz "
    "band.\r\n\r\n";
constexpr std::string_view kChanged = "Your Data was changed Wide CHs to Narrow.";

bool IsTouched(const RadioData& data, const ChannelRecord& channel, Date today) {
  return channel.Enable && WideTest(data, channel, today) != WideState::kNone;
}

bool AskYes(Prompts& prompts, std::string_view question) {
  const std::string text =
      std::string(kCaution) + std::string(kIncludesWide) + std::string(question);
  return prompts.Show({.title = "Download", .text = text, .buttons = Buttons::kYesNo}) ==
         Answer::kYes;
}

bool CheckDownload(RadioData& data, Date today, Prompts& prompts) {
  switch (WideChannelState(data, today)) {
    case WideState::kNone:
      return true;
    case WideState::kAllowed:
      if (AskYes(prompts, kAskToConvert)) SetNarrow(data, today);
      return true;
    case WideState::kForbidden: {
      const bool go_on = AskYes(prompts, kAskToStart);
      SetNarrow(data, today);
      return go_on;
    }
  }
  return true;
}

void ConvertAndTell(RadioData& data, std::string_view title, Date today, Prompts& prompts) {
  if (WideChannelState(data, today) != WideState::kForbidden) return;
  const std::string text = std::string(kCaution) + std::string(kMustChange) + std::string(kChanged);
  (void)prompts.Show({.title = std::string(title), .text = text});
  SetNarrow(data, today);
}

}  // namespace

WideState WideTest(const RadioData& data, const ChannelRecord& channel, Date today) {
  const bool in_band = channel.Txfreq >= kBandLow && channel.Txfreq <= kBandHigh;
  if (!ProfileOf(data).narrowband_rule || !channel.IsLmr() || !in_band) {
    return WideState::kNone;
  }
  return today < kCutOver ? WideState::kAllowed : WideState::kForbidden;
}

WideState WideChannelState(const RadioData& data, Date today) {
  if (!data.LmrPresent()) return WideState::kNone;
  for (const ChannelRecord& channel : data.EXP) {
    if (!channel.Narrow && IsTouched(data, channel, today)) return WideTest(data, channel, today);
  }
  return WideState::kNone;
}

void SetNarrow(RadioData& data, Date today) {
  for (ChannelRecord& channel : data.EXP) {
    if (IsTouched(data, channel, today)) channel.Narrow = true;
  }
}

bool NarrowbandCheck(RadioData& data, NarrowbandDirection direction, Date today, Prompts& prompts) {
  switch (direction) {
    case NarrowbandDirection::kDownload:
      return CheckDownload(data, today, prompts);
    case NarrowbandDirection::kUpload:
      ConvertAndTell(data, "Upload", today, prompts);
      return true;
    case NarrowbandDirection::kSave:
      ConvertAndTell(data, "Save", today, prompts);
      return true;
  }
  return true;
}

}  // namespace orvane::core
