#include "files/sheet_edits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <utility>

#include "core/field_ref.h"
#include "core/text.h"
#include "document/edits.h"
#include "document/in_use.h"
#include "document/step_name.h"

namespace orvane::files {
namespace {

using core::ChannelRecord;

constexpr char kTab = '\t';
constexpr std::string_view kOff = "Off";
constexpr std::string_view kOn = "On";
constexpr int kScramblerCode = 3;  // bits of a scrambler value

std::string Counted(int count, std::string_view thing) {
  return std::to_string(count) + " " + std::string(thing) + (count == 1 ? "" : "s");
}

std::string In(const core::RadioData& data, const Sheet& sheet) {
  return " in " + SheetName(data, sheet);
}

// Some fields can be set only while others are on. So what switches those on comes first and what
// switches them off comes last, and the order of the columns decides nothing.
enum Phase : std::size_t { kOpens, kBetween, kCloses };

Phase PhaseOf(const ChannelColumn& column, std::string_view text) {
  static constexpr std::array kOpeners = {
      &core::kMemberTag<&ChannelRecord::Enable>,    &core::kMemberTag<&ChannelRecord::USA_Group>,
      &core::kMemberTag<&ChannelRecord::INT_Group>, &core::kMemberTag<&ChannelRecord::CAN_Group>,
      &core::kMemberTag<&ChannelRecord::TxEnable>,  &core::kMemberTag<&ChannelRecord::LowPower>};
  const Members& shown = column.Shows();
  const bool shows_code = shown[1] == &core::kMemberTag<&ChannelRecord::RxDCS>;
  if (!shows_code && std::find(kOpeners.begin(), kOpeners.end(), shown[0]) == kOpeners.end()) {
    return kBetween;
  }
  if (SaysNone(text)) return kCloses;
  if (shows_code) {
    return core::notation::kDcs.parse(core::Trim(text)).value_or(0) == core::Value(0) ? kCloses
                                                                                      : kOpens;
  }
  return core::notation::kOnOff.parse(text).value_or(true) == core::Value(true) ? kOpens : kCloses;
}

/// Does what is wished on a copy, and writes down what that took.
class Planner {
 public:
  Planner(const core::RadioData& data, const Sheet& sheet, core::Date today)
      : copy_(std::make_unique<core::RadioData>(data)), sheet_(sheet), today_(today) {}

  void Take(const CellText& wish) {
    Typed typed = Understand(*copy_, sheet_, wish.at, wish.text, today_);
    if (typed.refusal.empty()) typed.refusal = Set(typed.parts);
    if (typed.refusal.empty()) return;
    edit_.refused.push_back({.cell = CellName(*copy_, sheet_, wish.at),
                             .text = wish.text,
                             .reason = std::move(typed.refusal)});
  }

  void TakeAll(const std::vector<CellText>& wishes) {
    for (const Phase phase : {kOpens, kBetween, kCloses}) {
      for (const CellText& wish : wishes) {
        if (PhaseOf(sheet_.Column(wish.at.column), wish.text) == phase) Take(wish);
      }
    }
  }

  /// The refusal; "" when they were set, or are so already.
  std::string Set(const std::vector<Typed::Part>& parts) {
    if (parts.empty()) return {};
    const document::ChannelPlace place = parts.front().place;
    const ChannelRecord before = document::ChannelAt(*copy_, place);
    for (const Typed::Part& part : parts) {
      std::string refusal = document::SetField(*copy_, part.place, part.member, part.text, today_);
      if (!refusal.empty()) return refusal;
    }
    if (document::ChannelAt(*copy_, place) == before) return {};
    edit_.parts.insert(edit_.parts.end(), parts.begin(), parts.end());
    ++edit_.cells;
    return {};
  }

  void Refuse(RefusedCell refused) { edit_.refused.push_back(std::move(refused)); }
  [[nodiscard]] int Cells() const { return edit_.cells; }

  SheetEdit Named(std::string name) {
    edit_.name = std::move(name);
    return std::move(edit_);
  }
  SheetEdit NamedByCells(const core::RadioData& data, std::string_view verb,
                         std::string_view thing = "cell") {
    return Named(std::string(verb) + " " + Counted(edit_.cells, thing) + In(data, sheet_));
  }

 private:
  std::unique_ptr<core::RadioData> copy_;
  const Sheet& sheet_;
  core::Date today_;
  SheetEdit edit_;
};

bool IsSwitch(const ChannelColumn& column) {
  const CellKind kind = KindOf(column);
  return kind == CellKind::kSwitch || kind == CellKind::kCode;
}

bool IsOn(const core::RadioData& data, const Sheet& sheet, Cell cell) {
  const ChannelColumn& column = sheet.Column(cell.column);
  if (column.checked != nullptr) return column.checked(RowOf(data, sheet, cell.row));
  return !SaysNone(TextOf(data, sheet, cell));
}

// A scrambler that was off comes on with the code it had.
std::string SwitchedOn(const core::RadioData& data, const Sheet& sheet, Cell cell) {
  if (KindOf(sheet.Column(cell.column)) == CellKind::kSwitch) return std::string(kOn);
  const ChannelRecord& channel = document::ChannelAt(data, sheet.Place(cell.row));
  return std::to_string(channel.Scramble & kScramblerCode);
}

std::string SwitchName(const core::RadioData& data, const Sheet& sheet,
                       const std::vector<CellText>& wishes, int cells) {
  const Cell first = wishes.front().at;
  if (wishes.size() == 1) return document::StepName(data, FieldOf(sheet, first));
  const bool one_column = std::all_of(wishes.begin(), wishes.end(), [&](const CellText& wish) {
    return wish.at.column == first.column;
  });
  if (!one_column) return "Switch " + Counted(cells, "cell") + In(data, sheet);
  return "Switch " + std::string(sheet.Column(first.column).caption) + " of " +
         Counted(cells, "channel");
}

// The row whose texts are filled in, and those that they are filled into.
struct Fill {
  int from;
  int first;
  int end;
};
Fill FillOf(Area area) {
  const int above = area.rows == 1 ? 1 : 0;
  return {.from = area.row - above, .first = area.row + 1 - above, .end = area.row + area.rows};
}

/// text: of a column and the steps below the first row; nothing leaves the cell alone.
template <class Text>
std::vector<CellText> Filled(Area area, const Text& text) {
  const Fill fill = FillOf(area);
  std::vector<CellText> wishes;
  if (fill.from < 0) return wishes;
  for (int row = fill.first; row < fill.end; ++row) {
    for (int column = area.column; column < area.column + area.columns; ++column) {
      const std::optional<std::string> filled = text(column, row - fill.from);
      if (filled) wishes.push_back({{row, column}, *filled});
    }
  }
  return wishes;
}

}  // namespace

std::string CopiedText(const core::RadioData& data, const Sheet& sheet, Area area) {
  TextRows rows;
  for (int row = area.row; row < area.row + area.rows; ++row) {
    std::vector<std::string>& cells = rows.emplace_back();
    for (int column = area.column; column < area.column + area.columns; ++column) {
      cells.push_back(TextOf(data, sheet, {row, column}));
    }
  }
  return JoinText(rows, kTab);
}

Pasted Place(const Sheet& sheet, Area area, const TextRows& rows) {
  Pasted pasted;
  const auto height = static_cast<int>(rows.size());
  int width = 0;
  for (const std::vector<std::string>& row : rows) {
    width = std::max(width, static_cast<int>(row.size()));
  }
  if (width == 0) return pasted;
  const bool repeats = area.rows % height == 0 && area.columns % width == 0;
  const int all_rows = repeats ? area.rows : height;
  const int all_columns = repeats ? area.columns : width;
  for (int i = 0; i < all_rows; ++i) {
    const std::vector<std::string>& texts = rows[static_cast<std::size_t>(i % height)];
    for (int j = 0; j < all_columns; ++j) {
      const auto place = static_cast<std::size_t>(j % width);
      if (place >= texts.size()) continue;
      const Cell at{area.row + i, area.column + j};
      if (at.row < sheet.Rows() && at.column < sheet.Columns()) {
        pasted.cells.push_back({at, texts[place]});
      } else {
        ++pasted.beyond;
      }
    }
  }
  return pasted;
}

SheetEdit PlanPaste(const core::RadioData& data, const Sheet& sheet, Area area,
                    const TextRows& rows, core::Date today) {
  Planner planner(data, sheet, today);
  const Pasted pasted = Place(sheet, area, rows);
  planner.TakeAll(pasted.cells);
  if (pasted.beyond > 0) {
    planner.Refuse({.cell = Counted(pasted.beyond, "cell"),
                    .text = {},
                    .reason = "The table ends before them."});
  }
  return planner.NamedByCells(data, "Paste");
}

SheetEdit PlanTyped(const core::RadioData& data, const Sheet& sheet, const CellText& typed,
                    core::Date today) {
  Planner planner(data, sheet, today);
  planner.Take(typed);
  return planner.Named(document::StepName(data, FieldOf(sheet, typed.at)));
}

SheetEdit PlanSwitch(const core::RadioData& data, const Sheet& sheet, std::span<const Cell> cells,
                     Cell first, core::Date today) {
  Planner planner(data, sheet, today);
  std::vector<CellText> wishes;
  std::optional<Cell> example;  // what is done to it is done to all
  for (const Cell cell : cells) {
    if (!IsSwitch(sheet.Column(cell.column))) continue;
    wishes.push_back({cell, {}});
    if ((!example || cell == first) && LockOf(data, sheet, cell, today).empty()) example = cell;
  }
  if (wishes.empty()) return planner.Named({});
  const bool on = !IsOn(data, sheet, example.value_or(wishes.front().at));
  for (CellText& wish : wishes) {
    wish.text = on ? SwitchedOn(data, sheet, wish.at) : std::string(kOff);
  }
  // Those that are so already keep their scrambler code.
  std::vector<CellText> others = wishes;
  std::erase_if(others, [&](const CellText& wish) { return IsOn(data, sheet, wish.at) == on; });
  planner.TakeAll(others);
  return planner.Named(SwitchName(data, sheet, wishes, planner.Cells()));
}

SheetEdit PlanFillDown(const core::RadioData& data, const Sheet& sheet, Area area,
                       core::Date today) {
  Planner planner(data, sheet, today);
  const int from = FillOf(area).from;
  planner.TakeAll(Filled(area, [&](int column, int /*steps*/) -> std::optional<std::string> {
    if (KindOf(sheet.Column(column)) == CellKind::kFixed) return {};
    return TextOf(data, sheet, {from, column});
  }));
  return planner.NamedByCells(data, "Fill");
}

SheetEdit PlanCountUp(const core::RadioData& data, const Sheet& sheet, Area area,
                      core::Date today) {
  Planner planner(data, sheet, today);
  const int from = FillOf(area).from;
  planner.TakeAll(Filled(area, [&](int column, int steps) -> std::optional<std::string> {
    const CellKind kind = KindOf(sheet.Column(column));
    if (kind != CellKind::kName && kind != CellKind::kDisplay) return {};
    return CountedUp(TextOf(data, sheet, {from, column}), steps);
  }));
  return planner.NamedByCells(data, "Count up");
}

SheetEdit PlanEmpty(const core::RadioData& data, const Sheet& sheet, std::span<const Cell> cells,
                    std::string_view verb, core::Date today) {
  Planner planner(data, sheet, today);
  for (const Cell cell : cells) {
    if (KindOf(sheet.Column(cell.column)) == CellKind::kName) planner.Take({cell, {}});
  }
  return planner.NamedByCells(data, verb, "name");
}

SheetEdit PlanUse(const core::RadioData& data, const Sheet& sheet, std::span<const int> rows,
                  core::Date today) {
  Planner planner(data, sheet, today);
  if (rows.empty()) return planner.Named({});
  const bool on = !IsRowInUse(data, sheet, rows.front());
  for (const int row : rows) {
    if (IsRowInUse(data, sheet, row) == on) continue;
    const document::ChannelPlace place = sheet.Place(row);
    std::string refusal = planner.Set({{.place = place,
                                        .member = &core::kMemberTag<&ChannelRecord::Enable>,
                                        .text = std::string(on ? kOn : kOff)}});
    if (refusal.empty()) continue;
    planner.Refuse({.cell = document::ChannelName(data, place),
                    .text = std::string(on ? kOn : kOff),
                    .reason = std::move(refusal)});
  }
  return planner.NamedByCells(data, on ? "Switch on" : "Switch off", "channel");
}

void Run(core::RadioData& data, const SheetEdit& edit, core::Date today) {
  for (const Typed::Part& part : edit.parts) {
    static_cast<void>(document::SetField(data, part.place, part.member, part.text, today));
  }
}

std::optional<std::string> CountedUp(std::string_view text, int by) {
  constexpr std::size_t kMostDigits = 9;
  std::size_t begin = text.find_last_not_of("0123456789") + 1;  // npos + 1 is 0
  if (begin == text.size()) return std::nullopt;
  begin = std::max(begin, text.size() - std::min(text.size(), kMostDigits));
  const std::string_view digits = text.substr(begin);
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  std::string counted = std::to_string(number + by);
  if (counted.size() < digits.size()) counted.insert(0, digits.size() - counted.size(), '0');
  return std::string(text.substr(0, begin)) + counted;
}

}  // namespace orvane::files
