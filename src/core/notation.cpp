#include "core/notation.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "core/channel_plan.h"
#include "core/number_text.h"
#include "core/radio_data.h"
#include "core/rendering.h"
#include "core/text.h"
#include "core/tones.h"

namespace orvane::core::notation {
namespace {

// A number that has no word is shown as the bare number behind this mark.
constexpr char kBareMark = '#';

std::string BareText(std::int32_t value) {
  return kBareMark + std::to_string(value);
}

std::optional<Value> ParseWhole(std::string_view text) {
  text = Trim(text);
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (text.empty() || error != std::errc() || end != text.data() + text.size()) return {};
  return value;
}

// Words for the numbers kFirst..kLast; "" where a number has none.
template <std::string (*kWord)(std::int32_t), std::int32_t kFirst, std::int32_t kLast>
constexpr Notation Words(std::string_view expects) {
  return {.show =
              [](const Value& value) {
                const std::int32_t number = std::get<std::int32_t>(value);
                const bool has_word = number >= kFirst && number <= kLast;
                std::string word = has_word ? kWord(number) : std::string();
                return word.empty() ? BareText(number) : word;
              },
          .parse = [](std::string_view text) -> std::optional<Value> {
            text = Trim(text);
            if (text.starts_with(kBareMark)) return ParseWhole(text.substr(1));
            for (std::int32_t number = kFirst; number <= kLast; ++number) {
              const std::string word = kWord(number);
              if (!word.empty() && EqualsIgnoringCase(word, text)) return number;
            }
            return {};
          },
          .expects = expects};
}

std::string OffOr(bool off, std::string_view word) {
  return std::string(off ? OnOffText(false) : word);
}

std::string CtcssWord(std::int32_t index) {
  return std::string(CtcssText(index));
}
std::string DcsWord(std::int32_t index) {
  return OffOr(index == 0, DcsText(index));
}
// Without its "on" bit a scrambler keeps its code.
std::string ScramblerWord(std::int32_t scramble) {
  constexpr std::int32_t kOnBit = 4;
  if ((scramble & kOnBit) != 0) return ScramblerText(scramble);
  return OffOr(true, {}) + (scramble == 0 ? "" : " " + std::to_string(scramble));
}
std::string ChannelWord(std::int32_t channel) {
  if (channel >= kFirstWxChannelIndex) {
    return "WX " + std::to_string(channel - kFirstWxChannelIndex + 1);
  }
  if (channel >= kFirstExtraChannelIndex) {
    return "EXP/LMR " + std::to_string(channel - kFirstExtraChannelIndex + 1);
  }
  return OffOr(channel == kNoChannel, PlanLabel(channel));
}
std::string TxPoWord(std::int32_t value) {
  return std::string(TxPoDisplayText(value));
}
std::string ResumeWord(std::int32_t value) {
  return OffOr(value == 0, ResumeTimeText(value));
}
std::string OffsetWord(std::int32_t value) {
  return std::string(Trim(OffsetTimeText(value)));
}
std::string VariationWord(std::int32_t value) {
  return std::string(MagneticVariationText(value));
}
std::string AlertWord(std::int32_t value) {
  return std::string(WeatherAlertText(value));
}
std::string KindWord(std::int32_t value) {
  return value == 0 ? "EXP" : "LMR";
}

// The shortest text that reads back as the same number.
std::string ShowFrequency(const Value& value) {
  const double mhz = std::get<double>(value);
  if (mhz == 0 || !std::isfinite(mhz)) return OffOr(true, {});
  std::array<char, 32> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), mhz);
  return {buffer.data(), result.ptr};
}

std::optional<Value> ParseFrequency(std::string_view text) {
  if (EqualsIgnoringCase(Trim(text), OnOffText(false))) return 0.0;
  const std::optional<double> mhz = ParseNumber(text);
  if (!mhz) return {};
  return *mhz;
}

template <std::string_view (*kWord)(bool)>
constexpr Notation Switch(std::string_view expects) {
  return {.show = [](const Value& value) { return std::string(kWord(std::get<bool>(value))); },
          .parse = [](std::string_view text) -> std::optional<Value> {
            text = Trim(text);
            for (const bool on : {false, true}) {
              if (EqualsIgnoringCase(text, kWord(on)) || text == (on ? "1" : "0")) return on;
            }
            return {};
          },
          .expects = expects};
}

constexpr int kHexDigits = 2;  // of a byte

std::string ShowBytes(const Value& value) {
  std::string text;
  for (const char byte : std::get<std::string>(value)) {
    text += HexText(static_cast<unsigned char>(byte), kHexDigits);
  }
  return text;
}

std::optional<Value> ParseBytes(std::string_view text) {
  text = Trim(text);
  std::string bytes;
  for (; !text.empty(); text.remove_prefix(kHexDigits)) {
    const std::string_view digits = text.substr(0, kHexDigits);
    const std::optional<unsigned> byte = ParseHex(digits);
    if (!byte || digits.size() != kHexDigits) return {};
    bytes += static_cast<char>(*byte);
  }
  return bytes;
}

constexpr std::int32_t kLastHour = 24;
constexpr std::int32_t kLastScramble = 7;

}  // namespace

const Notation kOnOff = Switch<&OnOffText>("On or Off");
const Notation kHiLow = Switch<&HiLowText>("Hi or Low");
const Notation kNumber = {
    .show = [](const Value& value) { return std::to_string(std::get<std::int32_t>(value)); },
    .parse = &ParseWhole,
    .expects = "a whole number"};
const Notation kText = {
    .show = [](const Value& value) { return std::get<std::string>(value); },
    .parse = [](std::string_view text) -> std::optional<Value> { return std::string(text); },
    .expects = "a text"};
const Notation kFrequency = {
    .show = &ShowFrequency, .parse = &ParseFrequency, .expects = "a frequency in MHz, or Off"};
const Notation kCtcss =
    Words<&CtcssWord, 0, static_cast<std::int32_t>(kLastCtcss)>("a tone such as 88.5Hz, or Off");
const Notation kDcs =
    Words<&DcsWord, 0, 2 * kLastDcs>("a code such as 023N, 023I when inverted, or Off");
const Notation kScrambler = Words<&ScramblerWord, 0, kLastScramble>("a code 0 to 3, or Off");
const Notation kChannelNumber = Words<&ChannelWord, kNoChannel, kChannelIndexEnd - 1>(
    "a channel such as 22A, EXP/LMR 7 or WX 3, or Off");
const Notation kTxPoDisplay =
    Words<&TxPoWord, 0, 2>("Lo Po Only, Lo Po on Changing CH or Last TX Po");
const Notation kResumeTime = Words<&ResumeWord, 0, 3>("Off, 1Sec, 2Sec or 3Sec");
const Notation kOffsetTime = Words<&OffsetWord, 0, kLastHour>("-12:00 to +12:00");
const Notation kMagneticVariation = Words<&VariationWord, 0, 1>("True or Mag");
const Notation kWeatherAlert = Words<&AlertWord, 0, 3>("On or Off");
const Notation kChannelKind = Words<&KindWord, -1, 0>("LMR or EXP");
const Notation kBytes = {
    .show = &ShowBytes, .parse = &ParseBytes, .expects = "bytes in hexadecimal digits"};

}  // namespace orvane::core::notation
