#include "document/find.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

#include "core/text.h"
#include "document/find_channels.h"

namespace orvane::document {
namespace {

using core::RadioData;

/// How well a channel answers a piece of the query, the smaller the better; its rank is their sum.
using Rank = int;
constexpr Rank kItself = 0;
constexpr Rank kNumberBegins = 1;
constexpr Rank kNameBegins = 2;
constexpr Rank kInside = 3;

constexpr char kValueMark = ':';
constexpr std::string_view kChannelWord = "ch";  // as the tree has it: "CH16"

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The piece without a "CH" before its number.
std::string_view WithoutChannelWord(std::string_view piece) {
  const std::string_view rest = piece.substr(std::min(kChannelWord.size(), piece.size()));
  const bool has_word =
      core::EqualsIgnoringCase(piece.substr(0, kChannelWord.size()), kChannelWord);
  return has_word && !rest.empty() && IsDigit(rest[0]) ? rest : piece;
}

std::vector<std::string_view> Pieces(std::string_view typed) {
  std::vector<std::string_view> pieces;
  for (const std::string_view piece : core::Split(typed, ' ')) {
    if (piece.empty()) continue;
    const bool number_of_word = !pieces.empty() && IsDigit(piece[0]) &&
                                core::EqualsIgnoringCase(pieces.back(), kChannelWord);
    if (number_of_word) pieces.pop_back();
    pieces.push_back(WithoutChannelWord(piece));
  }
  return pieces;
}

std::string NoSuchWord(std::string_view word) {
  std::string text = "There is no word \"" + std::string(word) + "\". The words are ";
  for (const FindWord& row : FindWords()) {
    if (&row != &FindWords().front()) text += &row == &FindWords().back() ? " and " : ", ";
    text += row.word;
  }
  return text + ".";
}

std::string Takes(const FindWord& word) {
  return "\"" + std::string(word.word) + "\" takes " + std::string(word.values);
}

void AddWord(std::string_view piece, std::size_t mark, Query& query) {
  const std::string_view value = piece.substr(mark + 1);
  const FindWord* const word = FindWordOf(piece.substr(0, mark));
  if (word == nullptr) {
    query.understood = false;
    query.advice = NoSuchWord(piece.substr(0, mark));
  } else if (value.empty()) {
    query.advice = Takes(*word) + ": " + std::string(word->example) + ".";
  } else if (!word->takes(value)) {
    query.understood = false;
    query.advice = Takes(*word) + ", not \"" + std::string(value) + "\".";
  } else {
    query.terms.push_back({word, std::string(value)});
  }
}

/// Without the zeros before its first digit: "6A" of "06A", "WX1" of "WX01".
std::string WithoutZeros(std::string_view number) {
  const std::size_t letters = std::min(number.find_first_of("0123456789"), number.size());
  const std::size_t digits = std::min(number.find_first_not_of('0', letters), number.size());
  return std::string(number.substr(0, letters)).append(number.substr(digits));
}

std::optional<Rank> RankOfNumber(const Candidate& candidate, std::string_view value) {
  const std::string& number = candidate.number;
  const std::string_view digits =
      std::string_view(number).substr(std::min(number.find_first_of("0123456789"), number.size()));
  const std::string bare = WithoutZeros(digits);
  if (value == number || value == digits || value == bare || value == WithoutZeros(number) ||
      value == candidate.group + number || value == candidate.display ||
      value == WithoutZeros(candidate.display)) {
    return kItself;
  }
  const bool begins = number.starts_with(value) || WithoutZeros(number).starts_with(value) ||
                      candidate.display.starts_with(value);
  return begins ? std::optional(kNumberBegins) : std::nullopt;
}

std::optional<Rank> RankOfName(const Candidate& candidate, std::string_view value) {
  std::size_t at = candidate.name.find(value);
  if (at == std::string::npos) return std::nullopt;
  for (; at != std::string::npos; at = candidate.name.find(value, at + 1)) {
    constexpr std::string_view kParts = " -/,_.";
    if (at == 0 || kParts.find(candidate.name[at - 1]) != std::string_view::npos) {
      return kNameBegins;
    }
  }
  return kInside;
}

/// Two digits are a channel's number, and the beginning of half of all frequencies.
std::optional<Rank> RankOfFrequency(const Candidate& candidate, std::string_view value) {
  constexpr std::size_t kShortest = 3;
  if (value.size() < kShortest) return std::nullopt;
  const Agreement agreement = std::max(CompareFrequency(candidate.receive, value),
                                       CompareFrequency(candidate.transmit, value));
  if (agreement == Agreement::kWhole) return kItself;
  return agreement == Agreement::kBeginning ? std::optional(kInside) : std::nullopt;
}

/// As far as it tells groups from names.
std::optional<Rank> RankOfGroup(const Candidate& candidate, std::string_view value) {
  constexpr std::size_t kShortest = 3;
  const bool is_group = value.size() >= kShortest && candidate.group.starts_with(value);
  return is_group ? std::optional(kInside) : std::nullopt;
}

std::optional<Rank> RankOf(const Candidate& candidate, const Query::Term& term) {
  if (term.word != nullptr) {
    return term.word->matches(candidate, term.value) ? std::optional(kItself) : std::nullopt;
  }
  const std::string value = core::UpperCase(term.value);
  std::optional<Rank> best;
  for (const auto rank_of : {&RankOfNumber, &RankOfName, &RankOfFrequency, &RankOfGroup}) {
    const std::optional<Rank> rank = rank_of(candidate, value);
    if (rank && (!best || *rank < *best)) best = rank;
  }
  return best;
}

std::optional<Rank> RankOf(const Candidate& candidate, const Query& query) {
  Rank sum = 0;
  for (const Query::Term& term : query.terms) {
    const std::optional<Rank> rank = RankOf(candidate, term);
    if (!rank) return std::nullopt;
    sum += *rank;
  }
  return sum;
}

struct Ranked {
  Rank rank;
  Hit hit;
};

void FindIn(const ChannelTable& table, const Query& query, std::vector<Ranked>& found) {
  std::optional<std::uint8_t> asked;
  for (const Query::Term& term : query.terms) {
    const char* const member = term.word == nullptr ? nullptr : term.word->member;
    if (member == nullptr) continue;
    const std::optional<std::uint8_t> field = table.FieldOf(member);
    if (!field) return;
    if (!asked) asked = field;
  }
  for (int entry = 0; entry < table.Count(); ++entry) {
    const Candidate candidate = table.CandidateAt(entry);
    if (const std::optional<Rank> rank = RankOf(candidate, query)) {
      found.push_back({*rank, table.HitOf(entry, candidate, asked)});
    }
  }
}

std::string Joined(const Hit& hit, std::string_view frequency) {
  std::string text = hit.group + " " + hit.number;
  for (const std::string_view part : {std::string_view(hit.name), frequency}) {
    if (!part.empty()) text.append(" ").append(part);
  }
  if (hit.use == Use::kSwitchedOff) text += " (not in use)";
  if (hit.use == Use::kGroupOff) text += " (group not in use)";
  return text;
}

}  // namespace

Query ParseQuery(std::string_view typed) {
  Query query;
  for (const std::string_view piece : Pieces(typed)) {
    const std::size_t mark = piece.find(kValueMark);
    if (mark == std::string_view::npos) {
      query.terms.push_back({nullptr, std::string(piece)});
    } else if (query.understood) {
      AddWord(piece, mark, query);
    }
  }
  return query;
}

std::string NameTextOf(const Hit& hit) {
  return Joined(hit, {});
}

std::string TextOf(const Hit& hit) {
  return Joined(hit, hit.frequency);
}

std::vector<Hit> Find(const RadioData& data, const Query& query) {
  std::vector<Hit> hits;
  if (!query.understood || query.terms.empty()) return hits;
  std::vector<Ranked> found;
  for (const ChannelTable& table : ChannelTables(data)) FindIn(table, query, found);
  std::stable_sort(found.begin(), found.end(), [](const Ranked& a, const Ranked& b) {
    return std::pair(a.rank, a.hit.use) < std::pair(b.rank, b.hit.use);
  });
  hits.reserve(found.size());
  for (Ranked& ranked : found) hits.push_back(std::move(ranked.hit));
  return hits;
}

std::string CountText(const std::vector<Hit>& hits) {
  if (hits.empty()) return "No channel found";
  const auto unused = std::count_if(hits.begin(), hits.end(),
                                    [](const Hit& hit) { return hit.use != Use::kInUse; });
  std::string count = hits.size() == 1 ? "1 channel" : std::to_string(hits.size()) + " channels";
  if (unused == 0) return count;
  if (hits.size() == 1) return count + ", not in use";
  if (unused == std::ssize(hits)) return count + ", none of them in use";
  return count + ", " + std::to_string(unused) + " of them not in use";
}

}  // namespace orvane::document
