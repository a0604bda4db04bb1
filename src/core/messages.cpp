#include "core/messages.h"

#include <algorithm>

#include "core/message_rows.h"

namespace orvane::core {
namespace {

/// The words of a link "[words](page)".
struct Link {
  std::string_view words;
  std::size_t length = 0;  ///< of the whole link; 0 where the text does not begin with one
};

Link LinkAt(std::string_view text) {
  if (!text.starts_with('[')) return {};
  const std::size_t turn = text.find(']');
  const std::size_t end = text.find(')', turn);
  if (end == std::string_view::npos || text[turn + 1] != '(') return {};
  return {text.substr(1, turn - 1), end + 1};
}

std::string WithoutLinks(std::string_view text) {
  std::string plain;
  while (!text.empty()) {
    const Link link = LinkAt(text);
    plain += link.length > 0 ? link.words : text.substr(0, 1);
    text.remove_prefix(std::max<std::size_t>(link.length, 1));
  }
  return plain;
}

/// What stands for the places {name|words} of a text, told by a function of name and words; the
/// text between the places is told by another.
template <class Place, class Between>
std::string Replaced(std::string_view text, Place place, Between between) {
  std::string replaced;
  for (std::size_t open = text.find('{'); open != std::string_view::npos; open = text.find('{')) {
    const std::size_t bar = text.find('|', open);
    const std::size_t close = text.find('}', bar);
    replaced += between(text.substr(0, open));
    replaced += place(text.substr(open + 1, bar - open - 1), text.substr(bar + 1, close - bar - 1));
    text.remove_prefix(close + 1);
  }
  return replaced + std::string(between(text));
}

}  // namespace

std::span<const MessageRow> MessageRows() {
  static const std::vector<MessageRow> kRows = [] {
    std::vector<MessageRow> rows;
    for (const auto& part : {TransferMessageRows(), EditorMessageRows()}) {
      rows.insert(rows.end(), part.begin(), part.end());
    }
    return rows;
  }();
  return kRows;
}

const MessageRow& RowOf(MessageId id) {
  return MessageRows()[static_cast<std::size_t>(id)];
}

std::string GeneralText(std::string_view text) {
  return Replaced(
      text, [](std::string_view, std::string_view words) { return words; },
      [](std::string_view words) { return words; });
}

std::string FilledText(std::string_view text, const Facts& facts) {
  // What a fact says is left alone, even where it looks like a link.
  const auto fact_or_words = [&](std::string_view name, std::string_view words) {
    const auto fact = std::find_if(facts.begin(), facts.end(),
                                   [&](const Fact& known) { return known.name == name; });
    return fact != facts.end() ? fact->value : WithoutLinks(words);
  };
  return Replaced(text, fact_or_words, WithoutLinks);
}

std::string TextOf(MessageId id, const Facts& facts) {
  std::string text;
  for (const std::string_view part : RowOf(id).text) text += FilledText(part, facts);
  return text;
}

std::string MeaningOf(MessageId id, const Facts& facts) {
  return FilledText(RowOf(id).meaning, facts);
}

Message MakeMessage(MessageId id, std::string_view title, const Facts& facts) {
  const MessageRow& row = RowOf(id);
  Message message{std::string(title), TextOf(id, facts), row.icon, row.buttons};
  if (row.explained) {
    message.details = MeaningOf(id, facts) + "\r\n" + FilledText(row.remedy, facts);
  }
  return message;
}

}  // namespace orvane::core
