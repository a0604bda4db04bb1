#include "document/find_words.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

#include "core/catalogue_row.h"
#include "core/number_text.h"
#include "core/rendering.h"
#include "core/text.h"
#include "core/tones.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;

constexpr double kResolution = 0.0001;  // MHz, the radio's own unit

bool Begins(std::string_view text, std::string_view typed) {
  return core::EqualsIgnoringCase(text.substr(0, typed.size()), typed);
}

/// A value out of two, as far as it is typed; "on" and "off" are whole words.
std::optional<bool> Choice(std::string_view typed, std::string_view yes, std::string_view no) {
  if (Begins(yes, typed)) return true;
  if (Begins(no, typed)) return false;
  return std::nullopt;
}
std::optional<bool> YesOrNo(std::string_view typed) {
  for (const bool on : {false, true}) {
    if (core::EqualsIgnoringCase(typed, core::OnOffText(on))) return on;
  }
  return Choice(typed, "yes", "no");
}
bool TakesYesOrNo(std::string_view typed) {
  return YesOrNo(typed).has_value();
}
std::optional<bool> LowOrHigh(std::string_view typed) {
  return Choice(typed, "low", "high");
}

std::string WithPoint(std::string_view typed) {
  std::string text(typed);
  std::replace(text.begin(), text.end(), ',', '.');
  return text;
}

template <core::Flag ChannelRecord::*kFlag>
bool IsSet(const Candidate& candidate, std::string_view typed) {
  return YesOrNo(typed) == bool{candidate.channel.*kFlag};
}

template <double Candidate::*kFrequency>
bool Agrees(const Candidate& candidate, std::string_view typed) {
  return CompareFrequency(candidate.*kFrequency, typed) != Agreement::kNone;
}

/// A word about a switch of the channel.
template <core::Flag ChannelRecord::*kFlag>
constexpr FindWord Switch(std::string_view word, std::string_view example, std::string_view finds) {
  return {.word = word,
          .values = "yes or no",
          .example = example,
          .finds = finds,
          .member = &core::kMemberTag<kFlag>,
          .takes = &TakesYesOrNo,
          .matches = &IsSet<kFlag>};
}

using IndexText = std::string (*)(int);
std::string ToneOf(int index) {
  return index < 1 ? std::string() : std::string(core::CtcssText(index));
}

/// The text of a tone or code begins so. Inverted codes begin as the plain ones do.
template <IndexText kText, int kLast>
bool TakesIndex(std::string_view typed) {
  if (TakesYesOrNo(typed)) return true;
  for (int index = 1; index <= kLast; ++index) {
    if (Begins(kText(index), WithPoint(typed))) return true;
  }
  return false;
}
template <IndexText kText, std::int16_t ChannelRecord::*kTx, std::int16_t ChannelRecord::*kRx>
bool HasIndex(const Candidate& candidate, std::string_view typed) {
  const std::array<std::string, 2> texts = {kText(candidate.channel.*kTx),
                                            kText(candidate.channel.*kRx)};
  const auto any = [&](std::string_view beginning) {
    return std::any_of(texts.begin(), texts.end(), [&](const std::string& text) {
      return !text.empty() && Begins(text, beginning);
    });
  };
  const std::optional<bool> wanted = YesOrNo(typed);
  return wanted ? any("") == *wanted : any(WithPoint(typed));
}

/// A model with one kind of extra channels calls them all EXP, or all LMR.
constexpr std::array<std::string_view, 6> kGroups = {"USA", "INTL", "CANADA",
                                                     "LMR", "EXP",  "WEATHER"};

// clang-format off
constexpr std::array kWords = {
    FindWord{.word = "group", .values = "usa, intl, canada, lmr, exp or weather",
             .example = "group:usa", .finds = "of the channel group",
             .takes = [](std::string_view typed) {
               return std::any_of(kGroups.begin(), kGroups.end(), [&](std::string_view group) {
                 return Begins(group, typed);
               });
             },
             .matches = [](const Candidate& candidate, std::string_view typed) {
               return Begins(candidate.group, typed);
             }},
    FindWord{.word = "name", .values = "a part of the name", .example = "name:port",
             .finds = "with that in their name", .member = &core::kMemberTag<&ChannelRecord::ChTag>,
             .takes = [](std::string_view) { return true; },
             .matches = [](const Candidate& candidate, std::string_view typed) {
               return candidate.name.find(core::UpperCase(typed)) != std::string::npos;
             }},
    FindWord{.word = "used", .values = "yes or no", .example = "used:no",
             .finds = "in use, or not: switched on, in a group that is",
             .member = &core::kMemberTag<&ChannelRecord::Enable>, .takes = &TakesYesOrNo,
             .matches = [](const Candidate& candidate, std::string_view typed) {
               return YesOrNo(typed) == (candidate.use == Use::kInUse);
             }},
    FindWord{.word = "rx", .values = "a frequency in MHz", .example = "rx:160.9",
             .finds = "that listen there", .takes = &IsDecimal,
             .matches = &Agrees<&Candidate::receive>},
    FindWord{.word = "tx", .values = "yes, no or a frequency in MHz", .example = "tx:no",
             .finds = "that may transmit (Tx Enable), or not, or transmit there",
             .member = &core::kMemberTag<&ChannelRecord::TxEnable>,
             .takes = [](std::string_view typed) { return TakesYesOrNo(typed) || IsDecimal(typed); },
             .matches = [](const Candidate& candidate, std::string_view typed) {
               return IsDecimal(typed) ? Agrees<&Candidate::transmit>(candidate, typed)
                                       : IsSet<&ChannelRecord::TxEnable>(candidate, typed);
             }},
    FindWord{.word = "power", .values = "low or high", .example = "power:low",
             .finds = "with low power only, or with all of it",
             .member = &core::kMemberTag<&ChannelRecord::LowPower>,
             .takes = [](std::string_view typed) { return LowOrHigh(typed).has_value(); },
             .matches = [](const Candidate& candidate, std::string_view typed) {
               return LowOrHigh(typed) == bool{candidate.channel.LowPower};
             }},
    Switch<&ChannelRecord::PowUp>("up", "up:yes", "with Power Up, or without"),
    Switch<&ChannelRecord::Duplex>("dup", "dup:yes", "that work duplex, or do not"),
    Switch<&ChannelRecord::ScanMemory>("scan", "scan:yes", "in the scan memory, or not in it"),
    FindWord{.word = "scrambler", .values = "yes, no or a code 0 to 3", .example = "scrambler:yes",
             .finds = "with a voice scrambler, without, or with that code",
             .member = &core::kMemberTag<&ChannelRecord::Scramble>,
             .takes = [](std::string_view typed) {
               constexpr std::string_view kCodes = "0123";
               return TakesYesOrNo(typed) || (typed.size() == 1 && kCodes.find(typed[0]) < 4);
             },
             .matches = [](const Candidate& candidate, std::string_view typed) {
               const std::string text = core::ScramblerText(candidate.channel.Scramble);
               const std::optional<bool> wanted = YesOrNo(typed);
               return wanted ? (text != core::ScramblerText(0)) == *wanted : text == typed;
             }},
    Switch<&ChannelRecord::Narrow>("narrow", "narrow:no", "with narrow bandwidth, or with wide"),
    FindWord{.word = "tone", .values = "yes, no or a CTCSS tone such as 97.4",
             .example = "tone:97.4", .finds = "with a CTCSS tone, without, or with that tone",
             .member = &core::kMemberTag<&ChannelRecord::RxCTCSS>,
             .takes = &TakesIndex<&ToneOf, core::kLastCtcss>,
             .matches = &HasIndex<&ToneOf, &ChannelRecord::TxCTCSS, &ChannelRecord::RxCTCSS>},
    FindWord{.word = "dcs", .values = "yes, no or a DCS code such as 023 or 023I",
             .example = "dcs:023", .finds = "with a DCS code, without, or with that code",
             .member = &core::kMemberTag<&ChannelRecord::RxDCS>,
             .takes = &TakesIndex<&core::DcsText, 2 * core::kLastDcs>,
             .matches = &HasIndex<&core::DcsText, &ChannelRecord::TxDCS, &ChannelRecord::RxDCS>},
};
// clang-format on

}  // namespace

std::span<const FindWord> FindWords() {
  return kWords;
}

const FindWord* FindWordOf(std::string_view word) {
  const auto* const found = std::find_if(kWords.begin(), kWords.end(), [&](const FindWord& row) {
    return core::EqualsIgnoringCase(row.word, word);
  });
  return found == kWords.end() ? nullptr : found;
}

bool IsDecimal(std::string_view typed) {
  const auto is_mark = [](char c) { return c == '.' || c == ','; };
  const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
  return std::any_of(typed.begin(), typed.end(), is_digit) &&
         std::count_if(typed.begin(), typed.end(), is_mark) <= 1 &&
         std::all_of(typed.begin(), typed.end(), [&](char c) { return is_mark(c) || is_digit(c); });
}

Agreement CompareFrequency(double mhz, std::string_view typed) {
  if (!IsDecimal(typed) || !(mhz > 0)) return Agreement::kNone;
  const std::string text = WithPoint(typed);
  const std::optional<double> number = core::ParseNumber(text);
  if (number && std::abs(*number - mhz) < kResolution / 2) return Agreement::kWhole;
  return core::FrequencyText(mhz).starts_with(text) ? Agreement::kBeginning : Agreement::kNone;
}

}  // namespace orvane::document
