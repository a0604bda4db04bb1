#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/model_profile.h"
#include "core/records.h"

/// What a search for channels can ask of them. Texts are 8-bit Windows-1252.
namespace orvane::document {

/// Whether a user of the radio can come to a channel.
enum class Use : std::uint8_t {
  kInUse,
  kSwitchedOff,  ///< the channel itself
  kGroupOff      ///< its whole group: the window has no page for it
};

/// A channel as a search sees it. Words to compare are in capitals.
struct Candidate {
  const core::ChannelRecord& channel;
  bool lmr = false;  ///< EXP/LMR: the heading it stands under
  Use use = Use::kInUse;
  std::string group;    ///< "USA", "LMR", "WEATHER"
  std::string number;   ///< "22A", "WX01"; EXP/LMR: the place, "7"
  std::string display;  ///< EXP/LMR: what the radio shows as its number; "" for none
  std::string name;     ///< "" on models without names
  double receive = 0;   ///< MHz; 0 for none
  double transmit = 0;  ///< MHz; 0 for none and for channels that only receive
};

/// A word that asks for one property: "scan" of "scan:yes".
struct FindWord {
  std::string_view word;
  std::string_view values;   ///< to be put behind "takes": "yes or no"
  std::string_view example;  ///< "scan:yes"
  std::string_view finds;    ///< to be put behind "channels ": "in the scan memory"
  /// The member it is about, which tables have or have not (see core::kMemberTag); null where
  /// every channel has an answer.
  const char* member = nullptr;
  /// Whether it is a value, or the beginning of one: searches run while they are typed.
  bool (*takes)(std::string_view value) = nullptr;
  bool (*matches)(const Candidate& candidate, std::string_view value) = nullptr;
};

[[nodiscard]] std::span<const FindWord> FindWords();
/// Null for another word; letter case is ignored.
[[nodiscard]] const FindWord* FindWordOf(std::string_view word);

/// How much of a frequency was typed.
enum class Agreement : std::uint8_t { kNone, kBeginning, kWhole };
/// MHz with a point or a comma: "156.8" is all of 156.800 and the beginning of 156.825.
[[nodiscard]] Agreement CompareFrequency(double mhz, std::string_view typed);
/// Digits with at most one point or comma.
[[nodiscard]] bool IsDecimal(std::string_view typed);

}  // namespace orvane::document
