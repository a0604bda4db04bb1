#pragma once

#include <QAction>
#include <QKeySequence>
#include <QObject>
#include <functional>
#include <vector>

#include "editor/channel_grid.h"
#include "editor/grid_model.h"
#include "editor/page.h"

namespace orvane::editor {

/// What can be done to the cells that are selected in a grid, by key and by the grid's own menu. A
/// command that cannot be done says why: greyed in the menu, otherwise in the status bar. Grid and
/// model outlive it.
class GridCommands : public QObject {
  Q_OBJECT

 public:
  GridCommands(const PageServices& services, ChannelGrid& grid, const GridModel& model,
               QObject* parent);

  /// Further items of the menu.
  void Append(QAction& action) { appended_.push_back(&action); }
  /// Tells in the status bar what a plan leaves as it is.
  void TellRefused(const files::SheetEdit& edit) const;

 signals:
  /// A plan to be carried out as one step.
  void Planned(const orvane::files::SheetEdit& edit) const;
  /// An editor is wanted in the current cell.
  void EditorAsked() const;

 private:
  /// "" when the command can be done.
  using WhyNot = std::function<QString()>;
  struct Command {
    QAction* action;
    QString tool_tip;
    WhyNot why_not;
  };
  struct Words {
    const char* name;
    QString caption;
    QString tool_tip;
    QKeySequence keys{};
  };
  QAction* Add(const Words& words, const std::function<void()>& run, const WhyNot& why_not);
  void AddSeparator();
  void AddEditing();
  void AddExchange();
  void AddFilling();
  void ShowMenu(const QPoint& at);

  void Copy() const;
  void Cut() const;
  void Paste() const;
  void Switch() const;
  void Use() const;
  /// Does the plan at once when nothing is refused, else after asking.
  void DoAsking(const files::SheetEdit& edit, const QString& title) const;
  /// Does the plan and tells what is refused.
  void DoTelling(const files::SheetEdit& edit) const;

  [[nodiscard]] core::Date Today() const { return services_.clock.Today(); }
  /// The cells that Space is meant for: of whole rows those in the current column.
  [[nodiscard]] std::vector<files::Cell> CellsToSwitch() const;
  [[nodiscard]] bool HasKind(const std::vector<files::Cell>& cells, files::CellKind kind) const;
  [[nodiscard]] QString WhyNoEditor() const;
  [[nodiscard]] QString WhyNoSwitch() const;
  [[nodiscard]] QString WhyNoArea() const;
  [[nodiscard]] QString WhyNoPaste() const;
  [[nodiscard]] QString WhyNoFill() const;
  [[nodiscard]] QString WhyNoNames() const;
  [[nodiscard]] QString WhyNoUse() const;

  const PageServices services_;
  ChannelGrid& grid_;
  const GridModel& model_;
  std::vector<Command> commands_;  ///< without an action: a separator
  std::vector<QAction*> appended_;
};

}  // namespace orvane::editor
