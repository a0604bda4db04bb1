#include "editor/import_list.h"

#include <array>

#include "editor/drawn_icon.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using files::ImportPlan;
using Verdict = ImportPlan::Verdict;

constexpr std::array<const char*, ImportList::kColumns> kTitles = {
    "Line", "Entry", "Outcome", "Field", "Now", "In the file", "Why"};

// By verdict.
constexpr std::array<const char*, 3> kOutcomes = {"same", "changes", "refused"};

QString LabelOf(core::FieldRef at) {
  return platform::FromAnsi(core::FieldOf(at).label);
}

}  // namespace

void ImportList::Show(const ImportPlan& plan) {
  beginResetModel();
  rows_.clear();
  for (const ImportPlan::Line& line : plan.lines) {
    const std::array<QString, 3> head = {QString::number(line.number),
                                         platform::FromUtf8(line.entry),
                                         tr(kOutcomes[static_cast<std::size_t>(line.verdict)])};
    if (line.cells.empty() || !line.refusal.empty()) {
      rows_.push_back({line.verdict,
                       {head[0], head[1], head[2], {}, {}, {}, platform::FromUtf8(line.refusal)}});
    }
    for (const ImportPlan::Cell& cell : line.cells) {
      rows_.push_back(
          {line.verdict,
           {head[0], head[1], head[2], LabelOf(cell.at), platform::FromUtf8(cell.before),
            platform::FromUtf8(cell.after), platform::FromUtf8(cell.refusal)}});
    }
  }
  for (const ImportPlan::Cell& cell : plan.elsewhere) {
    rows_.push_back(
        {Verdict::kChanges,
         {QString(), platform::FromAnsi(core::NameOf(cell.at)), tr("follows"), LabelOf(cell.at),
          platform::FromUtf8(cell.before), platform::FromUtf8(cell.after), QString()}});
  }
  endResetModel();
}

void ImportList::SetIcons(const QPalette& palette) {
  refused_ = DrawnIcon("error", palette);
  if (rowCount() > 0) {
    emit dataChanged(index(0, kOutcome), index(rowCount() - 1, kOutcome), {Qt::DecorationRole});
  }
}

int ImportList::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int ImportList::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QVariant ImportList::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const QString& text = row.texts[static_cast<std::size_t>(index.column())];
  if (role == Qt::DisplayRole) return text;
  if (role == Qt::ToolTipRole && !text.isEmpty()) return text;
  if (role == kMattersRole) return row.verdict != Verdict::kSame;
  if (role == Qt::DecorationRole && index.column() == kOutcome &&
      row.verdict == Verdict::kRefused) {
    return refused_;
  }
  if (role == Qt::TextAlignmentRole && index.column() == kLine) {
    return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
  }
  return {};
}

QVariant ImportList::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return tr(kTitles[static_cast<std::size_t>(section)]);
}

}  // namespace orvane::editor
