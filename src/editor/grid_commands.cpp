#include "editor/grid_commands.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <algorithm>

#include "editor/refused_cells.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using files::CellKind;

constexpr char kTab = '\t';

QModelIndex IndexOf(const GridModel& model, files::Cell cell) {
  return model.index(cell.row, cell.column);
}

}  // namespace

GridCommands::GridCommands(const PageServices& services, ChannelGrid& grid, const GridModel& model,
                           QObject* parent)
    : QObject(parent), services_(services), grid_(grid), model_(model) {
  AddEditing();
  AddSeparator();
  AddExchange();
  AddSeparator();
  AddFilling();
  grid_.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&grid_, &QWidget::customContextMenuRequested, this, &GridCommands::ShowMenu);
}

void GridCommands::AddEditing() {
  // Their keys are the grid's: a blank may belong to a search.
  QAction* const edit = Add(
      {"cmdCellEdit", tr("&Edit Cell\tF2"),
       tr("Opens the cell; Enter and Tab take the text and go on, Esc leaves "
          "the cell as it was")},
      [this] { emit EditorAsked(); }, [this] { return WhyNoEditor(); });
  QAction* const toggle = Add(
      {"cmdCellSwitch", tr("&Switch On or Off\tSpace"),
       tr("Switches all selected cells the other way than the current one")},
      [this] { Switch(); }, [this] { return WhyNoSwitch(); });
  connect(&grid_, &ChannelGrid::EditAsked, edit, &QAction::trigger);
  connect(&grid_, &ChannelGrid::SwitchAsked, toggle, &QAction::trigger);
  Add(
      {"cmdCellUse", tr("Switch Channels On or &Off"),
       tr("CH Enable of the selected channels, the other way than the first one stands"),
       Qt::CTRL | Qt::Key_E},
      [this] { Use(); }, [this] { return WhyNoUse(); });
}

void GridCommands::AddExchange() {
  Add(
      {"cmdCellCut", tr("Cu&t"), tr("Copies the selected cells and empties their names"),
       QKeySequence::Cut},
      [this] { Cut(); }, [this] { return WhyNoArea(); });
  Add(
      {"cmdCellCopy", tr("&Copy"), tr("Copies the selected cells, for this table or a spreadsheet"),
       QKeySequence::Copy},
      [this] { Copy(); }, [this] { return WhyNoArea(); });
  Add(
      {"cmdCellPaste", tr("&Paste"), tr("Puts copied cells here; what is refused is shown first"),
       QKeySequence::Paste},
      [this] { Paste(); }, [this] { return WhyNoPaste(); });
}

void GridCommands::AddFilling() {
  const auto plan = [this](auto make, const QString& title) {
    return [this, make, title] {
      const files::Area area = *grid_.SelectedArea();
      DoAsking(make(services_.data, model_.Sheet(), area, Today()), title);
    };
  };
  Add({"cmdCellFill", tr("Fill &Down"),
       tr("The first selected row into those below; a single row takes the one above"),
       Qt::CTRL | Qt::Key_D},
      plan(&files::PlanFillDown, tr("Fill Down")), [this] { return WhyNoFill(); });
  Add({"cmdCellCount", tr("Count &Up"),
       tr("As Fill Down, with the number at the end of a name one higher in each row"),
       Qt::CTRL | Qt::SHIFT | Qt::Key_D},
      plan(&files::PlanCountUp, tr("Count Up")), [this] { return WhyNoFill(); });
  Add(
      {"cmdCellEmpty", tr("E&mpty Names"), tr("Empties the names among the selected cells"),
       QKeySequence::Delete},
      [this] {
        DoTelling(files::PlanEmpty(services_.data, model_.Sheet(), grid_.SelectedCells(), "Empty",
                                   Today()));
      },
      [this] { return WhyNoNames(); });
}

QAction* GridCommands::Add(const Words& words, const std::function<void()>& run,
                           const WhyNot& why_not) {
  auto* action = new QAction(words.caption, this);
  action->setObjectName(QLatin1String(words.name));
  action->setShortcut(words.keys);
  action->setShortcutContext(Qt::WidgetShortcut);
  action->setToolTip(words.tool_tip);
  grid_.addAction(action);
  commands_.push_back({action, words.tool_tip, why_not});
  connect(action, &QAction::triggered, this, [this, run, why_not] {
    const QString reason = why_not();
    if (reason.isEmpty()) return run();
    services_.host.ShowNotice(reason);
  });
  return action;
}

void GridCommands::AddSeparator() {
  auto* line = new QAction(this);
  line->setSeparator(true);
  commands_.push_back({line, {}, [] { return QString(); }});
}

void GridCommands::ShowMenu(const QPoint& at) {
  QMenu menu(&grid_);
  menu.setObjectName(QStringLiteral("mnuCells"));
  menu.setToolTipsVisible(true);
  for (const Command& command : commands_) {
    const QString reason = command.why_not();
    command.action->setEnabled(reason.isEmpty());
    command.action->setToolTip(reason.isEmpty() ? command.tool_tip : reason);
    menu.addAction(command.action);
  }
  menu.addSeparator();
  for (QAction* action : appended_) menu.addAction(action);
  const QRect cell = grid_.visualRect(grid_.currentIndex());
  const bool by_key = !grid_.indexAt(at).isValid() && cell.isValid();
  menu.exec(grid_.viewport()->mapToGlobal(by_key ? cell.bottomLeft() : at));
  // By key they tell in the status bar why they cannot be done.
  for (const Command& command : commands_) command.action->setEnabled(true);
}

void GridCommands::Copy() const {
  const files::Area area = *grid_.SelectedArea();
  QString text = platform::FromAnsi(files::CopiedText(services_.data, model_.Sheet(), area));
  // A single text may be meant for a text field; without a line end nothing would be no cell.
  const QString line_end = QStringLiteral("\r\n");
  if (area.rows == 1 && area.columns == 1 && text != line_end) text.chop(line_end.size());
  QApplication::clipboard()->setText(text);
}

void GridCommands::Cut() const {
  Copy();
  if (!WhyNoNames().isEmpty()) return;
  DoTelling(
      files::PlanEmpty(services_.data, model_.Sheet(), grid_.SelectedCells(), "Cut", Today()));
}

void GridCommands::Paste() const {
  const std::string text = platform::ToAnsi(QApplication::clipboard()->text());
  DoAsking(files::PlanPaste(services_.data, model_.Sheet(), *grid_.SelectedArea(),
                            files::SplitText(text, kTab).rows, Today()),
           tr("Paste"));
}

void GridCommands::Switch() const {
  const QModelIndex current = grid_.currentIndex();
  DoTelling(files::PlanSwitch(services_.data, model_.Sheet(), CellsToSwitch(),
                              {current.row(), current.column()}, Today()));
}

void GridCommands::Use() const {
  std::vector<int> rows;
  for (const files::Cell& cell : grid_.SelectedCells()) {
    if (rows.empty() || rows.back() != cell.row) rows.push_back(cell.row);
  }
  DoTelling(files::PlanUse(services_.data, model_.Sheet(), rows, Today()));
}

void GridCommands::DoAsking(const files::SheetEdit& edit, const QString& title) const {
  if (!edit.refused.empty()) {
    RefusedCells dialog(edit, title, &grid_);
    if (dialog.exec() != QDialog::Accepted) return;
  }
  if (edit.cells > 0) return emit Planned(edit);
  services_.host.ShowNotice(tr("Nothing to change: the cells say so already."));
}

void GridCommands::DoTelling(const files::SheetEdit& edit) const {
  if (edit.cells > 0) emit Planned(edit);
  TellRefused(edit);
}

void GridCommands::TellRefused(const files::SheetEdit& edit) const {
  if (edit.refused.empty()) return;
  const files::RefusedCell& first = edit.refused.front();
  const auto more = edit.refused.size() - 1;
  QString text = QStringLiteral("%1: %2").arg(platform::FromAnsi(first.cell),
                                              platform::FromAnsi(first.reason));
  if (more > 0) text += tr(" (and %1 more)").arg(more);
  services_.host.ShowNotice(text);
}

std::vector<files::Cell> GridCommands::CellsToSwitch() const {
  std::vector<files::Cell> cells = grid_.SelectedCells();
  const std::optional<files::Area> area = grid_.SelectedArea();
  if (area && area->columns == model_.columnCount()) {
    std::erase_if(cells, [this](const files::Cell& cell) {
      return cell.column != grid_.currentIndex().column();
    });
  }
  return cells;
}

bool GridCommands::HasKind(const std::vector<files::Cell>& cells, CellKind kind) const {
  return std::any_of(cells.begin(), cells.end(), [&](const files::Cell& cell) {
    return model_.KindOf(IndexOf(model_, cell)) == kind;
  });
}

QString GridCommands::WhyNoEditor() const {
  const QModelIndex current = grid_.currentIndex();
  if (!current.isValid()) return tr("There is no cell.");
  QString lock = model_.LockOf(current);
  if (!lock.isEmpty()) return lock;
  return model_.KindOf(current) == CellKind::kSwitch ? tr("[Space] switches this cell.")
                                                     : QString();
}

QString GridCommands::WhyNoSwitch() const {
  const std::vector<files::Cell> cells = CellsToSwitch();
  if (HasKind(cells, CellKind::kSwitch) || HasKind(cells, CellKind::kCode)) return {};
  return tr("No selected cell is a switch. Of whole rows, the current column is switched.");
}

QString GridCommands::WhyNoArea() const {
  return grid_.SelectedArea() ? QString() : tr("This takes one rectangle of selected cells.");
}

QString GridCommands::WhyNoPaste() const {
  if (QApplication::clipboard()->text().isEmpty()) return tr("The clipboard holds no text.");
  return WhyNoArea();
}

QString GridCommands::WhyNoFill() const {
  const std::optional<files::Area> area = grid_.SelectedArea();
  if (!area) return WhyNoArea();
  return area->rows == 1 && area->row == 0 ? tr("There is no row above to fill in.") : QString();
}

QString GridCommands::WhyNoNames() const {
  return HasKind(grid_.SelectedCells(), CellKind::kName) ? QString() : tr("No name is selected.");
}

QString GridCommands::WhyNoUse() const {
  if (!model_.Sheet().IsMarine()) {
    return tr("The channels of this table are switched in their own columns.");
  }
  return grid_.SelectedCells().empty() ? tr("No channel is selected.") : QString();
}

}  // namespace orvane::editor
