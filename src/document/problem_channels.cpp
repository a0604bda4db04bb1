#include <algorithm>
#include <map>
#include <string>
#include <tuple>
#include <utility>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "core/narrowband.h"
#include "core/rendering.h"
#include "core/text.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/problem_rules.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;
using Kind = ChannelPlace::Kind;

Problem Warning(ProblemKind kind, core::FieldRef at, std::string text, std::string remedy = {}) {
  return {.kind = kind,
          .severity = Severity::kWarning,
          .at = at,
          .text = std::move(text),
          .remedy = std::move(remedy)};
}

void AddPower(ChannelPlace place, const ChannelRecord& channel, Problems& problems) {
  // Whatever the power code, programming writes 1 for Low Power Only.
  if (!channel.TxEnable || channel.LowPower || channel.TXPower != 0) return;
  problems.push_back(
      Warning(ProblemKind::kPowerCodeZero, FieldOfChannel<&ChannelRecord::TxEnable>(place),
              "Tx Enable is ticked, but power code 0 lets nothing out. It takes power code 3, or "
              "Low Power Only.",
              "Let it transmit"));
}

void AddChannel16(const RadioData& data, Kind kind, Problems& problems) {
  const ChannelPlace place{kind, core::kChannel16};
  const ChannelRecord& channel = ChannelAt(data, place);
  // A group without any channel is a problem of its own.
  const auto group = static_cast<std::size_t>(kind);
  if (!data.Usable[group].Enable || FirstChoice(data, group) == core::kNoChannel) return;
  if (!channel.Enable) {
    problems.push_back(Warning(
        ProblemKind::kChannel16, FieldOfChannel<&ChannelRecord::Enable>(place),
        "Channel 16, for distress and calling, is off. It belongs in each group.", "Switch it on"));
  } else if (!channel.TxEnable) {
    problems.push_back(
        Warning(ProblemKind::kChannel16, FieldOfChannel<&ChannelRecord::TxEnable>(place),
                "Channel 16, for distress and calling, cannot transmit. Tx Enable lets it.",
                channel.RxOnly ? "" : "Let it transmit"));
  }
}

void AddMissing(const RadioData& data, ChannelPlace place, Problems& problems) {
  const Missing missing = MissingOf(data, place);
  const std::string remedy = IsLastEnabled(data, place) ? "" : "Switch the channel off";
  if (missing.frequency) {
    problems.push_back({.kind = ProblemKind::kNoFrequency,
                        .severity = Severity::kError,
                        .at = FieldOfChannel<&ChannelRecord::Rxfreq>(place),
                        .text = "The channel is on, but has no receive frequency. Give it one, or "
                                "switch it off.",
                        .remedy = remedy});
  }
  if (missing.display) {
    problems.push_back({.kind = ProblemKind::kNoDisplay,
                        .severity = Severity::kError,
                        .at = FieldOfChannel<&ChannelRecord::CHDisplayL>(place),
                        .text = "The channel is on, but has no two characters on the left of CH "
                                "Display. Give it some, or switch it off.",
                        .remedy = remedy});
  }
}

// LMR channels are a group of their own.
void AddGroups(const RadioData& data, ChannelPlace place, const ChannelRecord& channel,
               Problems& problems) {
  const bool has_lmr = !core::ProfileOf(data).GroupWord(true).starts_with("EXP");
  if (has_lmr && channel.IsLmr()) return;
  if (channel.USA_Group || channel.INT_Group || channel.CAN_Group) return;
  problems.push_back(Warning(ProblemKind::kNoGroup,
                             FieldOfChannel<&ChannelRecord::USA_Group>(place),
                             "The channel is on, but belongs to none of the groups [USA], [INTL] "
                             "and [CAN], so that nobody comes to it. Tick one.",
                             "Put it into the groups in use"));
}

void AddBandwidth(const RadioData& data, ChannelPlace place, const ChannelRecord& channel,
                  core::Date today, Problems& problems) {
  if (channel.Narrow || !MustBeNarrow(data, place, today)) return;
  problems.push_back(Warning(ProblemKind::kWide, FieldOfChannel<&ChannelRecord::Narrow>(place),
                             "LMR channels from 150 to 174 MHz are narrow, by rule of the FCC. "
                             "Programming makes it narrow.",
                             "Make it narrow"));
}

/// The EXP/LMR channels seen so far, of one heading, to find the second of two.
class Seen {
 public:
  explicit Seen(const RadioData& data) : data_(data) {}

  void Add(ChannelPlace place, const ChannelRecord& channel, Problems& problems) {
    const bool lmr = core::ProfileOf(data_).splits_lmr_and_exp && place.IsLmr();
    const std::string display(core::Trim(core::DisplayText(channel)));
    if (!display.empty()) {
      const auto [first, is_new] = displays_.try_emplace({lmr, display}, place);
      if (!is_new) {
        problems.push_back(Warning(ProblemKind::kSameDisplay,
                                   FieldOfChannel<&ChannelRecord::CHDisplayL>(place),
                                   ChannelName(data_, first->second) +
                                       " shows the same number. Give one of the two another one."));
      }
    }
    if (!(channel.Rxfreq > 0)) return;
    const auto [first, is_new] =
        tuned_.try_emplace({lmr, channel.Rxfreq, channel.Txfreq, channel.RxCTCSS, channel.TxCTCSS,
                            channel.RxDCS, channel.TxDCS, channel.RxComp},
                           place);
    if (!is_new) {
      problems.push_back(
          Warning(ProblemKind::kSameFrequency, FieldOfChannel<&ChannelRecord::Rxfreq>(place),
                  ChannelName(data_, first->second) +
                      " has the same frequencies and tones. One of the two is enough."));
    }
  }

 private:
  using Tuned = std::tuple<bool, double, double, int, int, int, int, bool>;

  const RadioData& data_;
  std::map<std::pair<bool, std::string>, ChannelPlace> displays_;
  std::map<Tuned, ChannelPlace> tuned_;
};

}  // namespace

void AddChannelProblems(const RadioData& data, core::Date today, Problems& problems) {
  for (const Kind kind : {Kind::kUsa, Kind::kIntl, Kind::kCanada}) {
    AddChannel16(data, kind, problems);
  }
  Seen seen(data);
  ForEachInUse(data, [&](ChannelPlace place, const ChannelRecord& channel) {
    AddPower(place, channel, problems);
    if (place.IsMarine()) return;
    AddMissing(data, place, problems);
    AddGroups(data, place, channel, problems);
    AddBandwidth(data, place, channel, today, problems);
    seen.Add(place, channel, problems);
  });
}

}  // namespace orvane::document
