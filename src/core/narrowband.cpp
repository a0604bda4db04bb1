#include "core/narrowband.h"

#include <chrono>
#include <string_view>

#include "core/messages.h"
#include "core/model_profile.h"

namespace orvane::core {
namespace {

constexpr double kBandLow = 150.0;   // MHz, inclusive
constexpr double kBandHigh = 174.0;  // MHz, inclusive
constexpr Date kCutOver{std::chrono::year{2013}, std::chrono::January, std::chrono::day{1}};

bool IsTouched(const RadioData& data, const ChannelRecord& channel, Date today) {
  return channel.Enable && WideTest(data, channel, today) != WideState::kNone;
}

bool AskYes(Prompts& prompts, MessageId question) {
  return prompts.Show(MakeMessage(question, "Download")) == Answer::kYes;
}

bool CheckDownload(RadioData& data, Date today, Prompts& prompts) {
  switch (WideChannelState(data, today)) {
    case WideState::kNone:
      return true;
    case WideState::kAllowed:
      if (AskYes(prompts, MessageId::kWideAllowed)) SetNarrow(data, today);
      return true;
    case WideState::kForbidden: {
      const bool go_on = AskYes(prompts, MessageId::kWideForbidden);
      SetNarrow(data, today);
      return go_on;
    }
  }
  return true;
}

void ConvertAndTell(RadioData& data, std::string_view title, Date today, Prompts& prompts) {
  if (WideChannelState(data, today) != WideState::kForbidden) return;
  (void)prompts.Show(MakeMessage(MessageId::kMadeNarrow, title));
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
