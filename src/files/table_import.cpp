#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "core/utf8.h"
#include "document/compare.h"
#include "document/edits.h"
#include "files/table_cells.h"
#include "files/table_file.h"

namespace orvane::files {
namespace {

using core::FieldRef;
using core::RadioData;
using Verdict = ImportPlan::Verdict;

std::string TextOf(const RadioData& data, FieldRef at) {
  return core::AnsiToUtf8(core::FieldOf(at).notation->show(core::Get(data, at)));
}

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char sign) { return static_cast<unsigned char>(sign) < ' '; });
}

/// A cell as a value of its field, or why it is none.
struct Reading {
  std::optional<core::Value> value;
  std::string refusal;
};
Reading Refused(std::string refusal) {
  return {{}, std::move(refusal)};
}

/// One planning: the lines are read, what they give is tried on a copy, and lines that are refused
/// fall away until the rest goes.
class Planner {
 public:
  Planner(const TableRows& text, std::uint8_t table, const RadioData& data, core::Date today)
      : text_(text),
        table_(table),
        data_(data),
        today_(today),
        wanted_(std::make_unique<RadioData>(data)),
        result_(std::make_unique<RadioData>(data)) {}

  ImportPlan Run() {
    TakeHeadings();
    for (std::size_t row = 1; row < text_.split.rows.size(); ++row) TakeLine(row);
    while (SetAll()) {
    }
    TellChanges();
    TellDerived();
    return std::move(plan_);
  }

 private:
  struct Column {
    std::optional<std::uint8_t> field;  ///< what is taken from it
    std::optional<std::uint8_t> derived;
  };

  [[nodiscard]] const core::Table& Table() const { return core::Catalogue()[table_]; }
  [[nodiscard]] const core::ModelProfile& Profile() const { return core::ProfileOf(data_); }
  [[nodiscard]] FieldRef At(int entry, std::uint8_t field) const {
    return {.table = table_, .field = field, .entry = static_cast<std::uint16_t>(entry)};
  }

  void TakeHeadings() {
    const std::vector<std::string>& headings = text_.split.rows.front();
    columns_.resize(headings.size());
    for (std::size_t i = 1; i < headings.size(); ++i) {
      std::string reason = WhyUnused(headings[i], columns_[i]);
      if (!reason.empty()) plan_.unused.push_back({headings[i], std::move(reason)});
    }
  }

  std::string WhyUnused(const std::string& heading, Column& column) {
    const std::optional<int> found = FindField(Table(), heading);
    if (!found) return "No field of " + std::string(Table().label) + " has that name.";
    const core::Field& field = Table().fields[static_cast<std::size_t>(*found)];
    if (!core::HasField(Profile(), Table(), field)) {
      return "A " + std::string(Profile().model) + " has no such field.";
    }
    const auto number = static_cast<std::uint8_t>(*found);
    if (field.derived) {
      column.derived = number;
      return {};
    }
    for (const Column& other : columns_) {
      if (other.field == number) return "The heading stands there twice; the first column counts.";
    }
    column.field = number;
    return {};
  }

  void TakeLine(std::size_t row) {
    const std::vector<std::string>& cells = text_.split.rows[row];
    const auto is_empty = [](const std::string& cell) { return core::Trim(cell).empty(); };
    if (std::all_of(cells.begin(), cells.end(), is_empty)) return;
    ImportPlan::Line& line = plan_.lines.emplace_back();
    line.number = text_.split.lines[row];
    line.entry = cells.front();
    const std::optional<int> entry = FindEntry(Table(), cells.front());
    rows_.push_back({row, entry, {}});
    line.refusal = WhyRefused(cells, entry);
    if (entry) line.entry = EntryText(Table(), *entry);
    if (line.refusal.empty()) {
      line_of_[static_cast<std::size_t>(*entry)] = plan_.lines.size();
      TakeCells(cells, *entry, line, rows_.back().given);
    }
    if (!line.refusal.empty() || !line.cells.empty()) line.verdict = Verdict::kRefused;
  }

  std::string WhyRefused(const std::vector<std::string>& cells, std::optional<int> entry) const {
    if (!entry) return "There is no such entry in " + std::string(Table().label) + ".";
    const std::size_t before = line_of_[static_cast<std::size_t>(*entry)];
    if (before > 0) {
      return "Line " + std::to_string(plan_.lines[before - 1].number) + " is for the same entry.";
    }
    const std::size_t wanted = columns_.size();
    const bool beyond = cells.size() > wanted &&
                        std::any_of(cells.begin() + static_cast<std::ptrdiff_t>(wanted),
                                    cells.end(), [](const auto& cell) { return !cell.empty(); });
    if (cells.size() >= wanted && !beyond) return {};
    return "It has " + std::to_string(cells.size()) + " cells, the headings have " +
           std::to_string(wanted) + ".";
  }

  void TakeCells(const std::vector<std::string>& cells, int entry, ImportPlan::Line& line,
                 std::vector<FieldRef>& given) {
    for (std::size_t i = 1; i < columns_.size(); ++i) {
      if (!columns_[i].field) continue;
      const FieldRef at = At(entry, *columns_[i].field);
      Reading reading = Read(at, cells[i]);
      if (reading.value) {
        core::Set(*wanted_, at, *reading.value);
        given.push_back(at);
      } else {
        line.cells.push_back({at, TextOf(data_, at), cells[i], std::move(reading.refusal)});
      }
    }
  }

  [[nodiscard]] Reading Read(FieldRef at, std::string_view cell) const {
    const std::optional<std::string> ansi = core::Utf8ToAnsi(Unmarked(cell));
    if (!ansi) return Refused("It has a character that a radio cannot store.");
    const core::Notation& notation = *core::FieldOf(at).notation;
    std::optional<core::Value> value = notation.parse(*ansi);
    if (!value && text_.separator != TableSeparator::kComma) {
      std::string with_point = *ansi;
      std::replace(with_point.begin(), with_point.end(), ',', '.');
      value = notation.parse(with_point);
    }
    if (!value) return Refused("It must be " + std::string(notation.expects) + ".");
    if (*value == core::Get(data_, at)) return {value, {}};
    value = document::AsKept(at, *std::move(value));
    std::string refusal = core::RefusalOf(Profile(), at, *value);
    if (refusal.empty() && HasControls(*ansi)) refusal = "It has a line break or the like in it.";
    return refusal.empty() ? Reading{value, {}} : Refused(std::move(refusal));
  }

  // Sets what the lines give that are not refused. Returns whether one has been refused for it.
  bool SetAll() {
    std::vector<FieldRef> given;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      if (plan_.lines[i].verdict == Verdict::kRefused) continue;
      given.insert(given.end(), rows_[i].given.begin(), rows_[i].given.end());
    }
    *result_ = data_;
    bool refused = false;
    for (document::TakeOverRefusal& refusal :
         document::TakeGiven(*result_, *wanted_, given, today_)) {
      const FieldRef at = refusal.at;
      LineOf(at.entry).verdict = Verdict::kRefused;
      LineOf(at.entry).cells.push_back(
          {at, TextOf(data_, at), TextOf(*wanted_, at), std::move(refusal.reason)});
      refused = true;
    }
    return refused || RefuseIncomplete();
  }

  ImportPlan::Line& LineOf(int entry) {
    return plan_.lines[line_of_[static_cast<std::size_t>(entry)] - 1];
  }

  // As the window does not let a user leave a channel that the radio could not use.
  bool RefuseIncomplete() {
    bool refused = false;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
      ImportPlan::Line& line = plan_.lines[i];
      if (line.verdict == Verdict::kRefused || IsSame(*rows_[i].entry)) continue;
      const FieldRef at = At(*rows_[i].entry, 0);
      const std::optional<document::ChannelPlace> place = document::PlaceOf(*result_, at);
      if (!place) return false;
      const document::Missing missing = document::MissingOf(*result_, *place);
      if (!missing.Any()) continue;
      line.refusal = core::MeaningOf(
          core::MessageId::kIncompleteChannel,
          core::MissingFacts(missing.frequency, missing.display, core::WayOut::kSwitchOff));
      line.verdict = Verdict::kRefused;
      refused = true;
    }
    return refused;
  }

  [[nodiscard]] bool IsSame(int entry) const {
    return Table().same(Table().record(data_, entry), Table().record(*result_, entry));
  }

  void TellChanges() {
    plan_.changes = core::Differences(data_, *result_);
    for (const core::Change& change : plan_.changes) {
      const core::Table& table = core::TableOf(change.at);
      const core::Field& field = core::FieldOf(change.at);
      if (field.derived || !core::HasField(Profile(), table, field)) continue;
      std::vector<ImportPlan::Cell>* cells = &plan_.elsewhere;
      if (change.at.table == table_ && line_of_[change.at.entry] > 0) {
        ImportPlan::Line& line = LineOf(change.at.entry);
        // What the other lines bring about in an entry whose own line is refused.
        if (line.verdict != Verdict::kRefused) {
          line.verdict = Verdict::kChanges;
          cells = &line.cells;
        }
      }
      cells->push_back({change.at, TextOf(data_, change.at), TextOf(*result_, change.at), {}});
    }
  }

  // A text that was exported has these columns too; they count when they say something else.
  void TellDerived() {
    for (std::size_t i = 1; i < columns_.size(); ++i) {
      if (!columns_[i].derived) continue;
      for (const Row& row : rows_) {
        const std::vector<std::string>& cells = text_.split.rows[row.number];
        if (!row.entry || cells.size() <= i) continue;
        const std::string ours = TextOf(*result_, At(*row.entry, *columns_[i].derived));
        if (core::EqualsIgnoringCase(Unmarked(cells[i]), ours)) continue;
        plan_.unused.push_back(
            {text_.split.rows.front()[i], "It follows from other data and is not set: line " +
                                              std::to_string(text_.split.lines[row.number]) +
                                              " says otherwise."});
        break;
      }
    }
  }

  struct Row {
    std::size_t number;
    std::optional<int> entry;
    std::vector<FieldRef> given;
  };

  const TableRows& text_;
  std::uint8_t table_;
  const RadioData& data_;
  core::Date today_;
  std::unique_ptr<RadioData> wanted_;  ///< the data with what the lines give
  std::unique_ptr<RadioData> result_;
  std::vector<Column> columns_;
  std::vector<Row> rows_;  ///< by line of the plan
  /// By entry: the number of its line in the plan, from 1; 0 where there is none.
  std::vector<std::size_t> line_of_ =
      std::vector<std::size_t>(static_cast<std::size_t>(Table().count));
  ImportPlan plan_;
};

}  // namespace

int ImportPlan::Count(Verdict verdict) const {
  return static_cast<int>(std::count_if(lines.begin(), lines.end(),
                                        [=](const Line& line) { return line.verdict == verdict; }));
}

std::string SummaryOf(const ImportPlan& plan) {
  const struct {
    Verdict verdict;
    const char* one;
    const char* many;
  } parts[] = {{Verdict::kChanges, "changes", "change"},
               {Verdict::kRefused, "is refused", "are refused"},
               {Verdict::kSame, "stays as it is", "stay as they are"}};
  std::string text;
  for (const auto& part : parts) {
    const int count = plan.Count(part.verdict);
    if (count == 0) continue;
    const bool first = text.empty();
    text += (first ? "" : ", ") + std::to_string(count);
    if (first) text += count == 1 ? " line" : " lines";
    text += std::string(" ") + (count == 1 ? part.one : part.many);
  }
  return text.empty() ? "There is no line in it" : text;
}

ImportPlan PlanImport(std::string_view text, std::uint8_t table, const core::RadioData& data,
                      core::Date today) {
  const TableRows rows = SplitTable(text);
  ImportPlan plan;
  plan.unreadable = rows.unreadable;
  return plan.unreadable.empty() ? Planner(rows, table, data, today).Run() : plan;
}

}  // namespace orvane::files
