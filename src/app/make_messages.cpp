// Fills a page of the help: each comment <!-- messages: GROUP --> of the page given is replaced by
// the table rows of that group, <!-- verdicts --> by those of the connection's verdicts,
// <!-- find words --> by those of the words that a search knows.

#include <array>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>

#include "core/messages.h"
#include "document/find_words.h"
#include "link/doctor.h"

namespace {

namespace core = orvane::core;

constexpr std::array<std::pair<std::string_view, core::MessageGroup>, 6> kGroups = {
    {{"transfer", core::MessageGroup::kTransfer},
     {"files", core::MessageGroup::kFiles},
     {"editing", core::MessageGroup::kEditing},
     {"narrowband", core::MessageGroup::kNarrowband},
     {"help", core::MessageGroup::kHelp},
     {"command line", core::MessageGroup::kCommandLine}}};

void Replace(std::string& text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos;
       at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

std::string Html(std::string_view text) {
  std::string html(text);
  Replace(html, "&", "&amp;");
  Replace(html, "<", "&lt;");
  Replace(html, ">", "&gt;");
  Replace(html, "\r\n", "<br>");
  return html;
}

/// The general words of a text, with its links [words](page) as links.
std::string Linked(std::string_view text) {
  std::string html = Html(core::GeneralText(text));
  for (std::size_t turn = html.find("]("); turn != std::string::npos; turn = html.find("](")) {
    const std::size_t open = html.rfind('[', turn);
    const std::size_t end = html.find(')', turn);
    const std::string words = html.substr(open + 1, turn - open - 1);
    const std::string page = html.substr(turn + 2, end - turn - 2);
    std::string link = "<a href=\"";
    link.append(page).append("\">").append(words).append("</a>");
    html.replace(open, end + 1 - open, link);
  }
  return html;
}

std::string Rows(core::MessageGroup group) {
  std::string rows = "<tr><th>Message</th><th>Cause</th><th>What to do</th></tr>\n";
  for (const core::MessageRow& row : core::MessageRows()) {
    if (row.group != group) continue;
    rows += "<tr><td><b>" + Html(core::TextOf(row.id)) + "</b>";
    if (!row.where.empty()) rows += "<br>" + Html(row.where);
    rows += "</td><td>" + Linked(row.meaning) + "</td><td>" + Linked(row.remedy) + "</td></tr>\n";
  }
  return rows;
}

std::string Verdicts() {
  std::string rows = "<tr><th>Verdict</th><th>What to do</th></tr>\n";
  for (const orvane::link::VerdictRow& row : orvane::link::VerdictRows()) {
    rows += "<tr><td>" + Linked(row.text) + "</td><td>" + Linked(row.remedy);
    if (!row.command.empty()) rows += "<br><code>" + Linked(row.command) + "</code>";
    rows += "</td></tr>\n";
  }
  return rows;
}

std::string FindWordRows() {
  std::string rows = "<tr><th>Word</th><th>What it takes</th><th>What it finds</th></tr>\n";
  for (const orvane::document::FindWord& word : orvane::document::FindWords()) {
    rows += "<tr><td><b>" + Html(word.word) + "</b></td><td>" + Html(word.values) + ": <i>" +
            Html(word.example) + "</i></td><td>channels " + Html(word.finds) + "</td></tr>\n";
  }
  return rows;
}

/// True when the page had the place.
bool Fill(std::string& page, std::string_view place, const std::string& rows) {
  const std::string mark = "<!-- " + std::string(place) + " -->\n";
  const std::size_t at = page.find(mark);
  if (at == std::string::npos) return false;
  page.replace(at, mark.size(), rows);
  return true;
}

/// A page has the places of all groups of messages, or that of another table.
bool Fill(std::string& page) {
  if (Fill(page, "find words", FindWordRows())) return true;
  if (Fill(page, "verdicts", Verdicts())) return true;
  for (const auto& [name, group] : kGroups) {
    if (Fill(page, "messages: " + std::string(name), Rows(group))) continue;
    std::cerr << "the page has no place for the messages: " << name << '\n';
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: make_messages PAGE OUT\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::string page{std::istreambuf_iterator<char>(in), {}};
  if (!in || !Fill(page)) return 1;
  std::ofstream out(argv[2], std::ios::binary);
  out << page;
  out.close();
  if (!out) std::cerr << argv[2] << ": cannot be written\n";
  return out ? 0 : 1;
}
