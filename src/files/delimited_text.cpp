#include "files/delimited_text.h"

#include <cstddef>
#include <utility>

namespace orvane::files {
namespace {

constexpr char kQuote = '"';
constexpr char kLineFeed = '\n';
constexpr char kReturn = '\r';

class Splitter {
 public:
  Splitter(std::string_view text, char separator) : text_(text), separator_(separator) {}

  DelimitedText Run() {
    while (place_ < text_.size()) TakeRow();
    return std::move(result_);
  }

 private:
  void TakeRow() {
    result_.lines.push_back(line_);
    std::vector<std::string>& row = result_.rows.emplace_back();
    do row.push_back(TakeCell());
    while (Skip(separator_));
    if (AtLineEnd()) SkipLineEnd();
  }

  std::string TakeCell() {
    std::string cell;
    if (Skip(kQuote)) TakeQuoted(cell);
    while (place_ < text_.size() && text_[place_] != separator_ && !AtLineEnd()) {
      cell += text_[place_++];
    }
    return cell;
  }

  void TakeQuoted(std::string& cell) {
    while (place_ < text_.size()) {
      if (Skip(kQuote)) {
        if (!Skip(kQuote)) return;
        cell += kQuote;
      } else if (AtLineEnd()) {
        const std::size_t begin = place_;
        SkipLineEnd();
        cell += text_.substr(begin, place_ - begin);
      } else {
        cell += text_[place_++];
      }
    }
    result_.quote_left_open = true;
  }

  bool Skip(char sign) {
    if (place_ == text_.size() || text_[place_] != sign) return false;
    ++place_;
    return true;
  }
  [[nodiscard]] bool AtLineEnd() const {
    return place_ < text_.size() && (text_[place_] == kReturn || text_[place_] == kLineFeed);
  }
  void SkipLineEnd() {
    static_cast<void>(Skip(kReturn));  // alone, or before a line feed
    static_cast<void>(Skip(kLineFeed));
    ++line_;
  }

  std::string_view text_;
  char separator_;
  std::size_t place_ = 0;
  int line_ = 1;
  DelimitedText result_;
};

}  // namespace

DelimitedText SplitText(std::string_view text, char separator) {
  return Splitter(text, separator).Run();
}

std::string QuotedCell(std::string_view cell, char separator) {
  const bool plain =
      cell.find_first_of(std::string{separator, kLineFeed, kReturn}) == std::string_view::npos &&
      !cell.starts_with(kQuote);
  if (plain) return std::string(cell);
  std::string quoted(1, kQuote);
  for (const char sign : cell) {
    quoted += sign;
    if (sign == kQuote) quoted += kQuote;
  }
  return quoted + kQuote;
}

std::string JoinText(const TextRows& rows, char separator) {
  std::string text;
  for (const std::vector<std::string>& row : rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (i > 0) text += separator;
      text += QuotedCell(row[i], separator);
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace orvane::files
