#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/catalogue.h"
#include "core/radio_data.h"
#include "document/find_words.h"

/// Finds channels of all groups. Texts are 8-bit Windows-1252.
namespace orvane::document {

/// What was typed into a search: pieces between blanks, all of which a channel must answer to.
struct Query {
  struct Term {
    const FindWord* word = nullptr;  ///< null: a number, a name, a frequency or a group
    std::string value;
  };
  std::vector<Term> terms;
  /// What is not understood, or what else a word without its value takes, as a sentence. "" when
  /// all is clear.
  std::string advice;
  /// Finds nothing when false: a piece left out would show channels that were not asked for.
  bool understood = true;
};
/// "16", "distress", "156,8", "usa 22a", "ch 16", "tx:no power:low".
[[nodiscard]] Query ParseQuery(std::string_view typed);

struct Hit {
  core::FieldRef channel;  ///< its CH Enable; tells one channel from another
  /// Where to go: the field that the query is about, else CH Enable; the switch of the group while
  /// that is off.
  core::FieldRef at;
  Use use = Use::kInUse;
  std::string group;      ///< "USA", "LMR", "Weather"
  std::string number;     ///< "22A", "7 L007", "WX01"
  std::string name;       ///< "" for none
  std::string frequency;  ///< MHz, "156.800"; "161.600/157.000" to listen and to send; "" for none
};
/// "USA 16 DISTRESS (not in use)".
[[nodiscard]] std::string NameTextOf(const Hit& hit);
/// The same with the frequency: "USA 16 DISTRESS 156.800 (not in use)".
[[nodiscard]] std::string TextOf(const Hit& hit);

/// Best first: the number itself, or the frequency; the beginning of a number; the beginning of a
/// name or of a word in it; anything else. Among equals those in use, then in the window's order.
/// Nothing for a query without terms.
[[nodiscard]] std::vector<Hit> Find(const core::RadioData& data, const Query& query);

/// "No channel found", "3 channels", "12 channels, 9 of them not in use", "2 channels,
/// none of them in use".
[[nodiscard]] std::string CountText(const std::vector<Hit>& hits);

}  // namespace orvane::document
