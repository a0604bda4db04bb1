#pragma once

#include <QCheckBox>
#include <optional>
#include <set>

#include "editor/cell_delegate.h"
#include "editor/channel_grid.h"
#include "editor/grid_commands.h"
#include "editor/grid_model.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictB`: the channels of a group, to look at, to jump from and to change in place. Each change
/// is one step of the history, however many cells it is about.
class GridPage : public Page {
  Q_OBJECT

 public:
  explicit GridPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;
  /// Takes what an open cell holds. An EXP/LMR channel in use that was changed here must be
  /// complete, as on its own page.
  [[nodiscard]] bool Check() override;
  /// The grid, for a channel that it lists.
  [[nodiscard]] QWidget* ControlOf(core::FieldRef at) const override;

 private:
  /// Where the user is, by channel.
  struct Position {
    int number = -1;
    int column = 0;
    std::optional<files::Area> area{};
    std::vector<int> numbers{};  ///< of the area's rows
  };
  [[nodiscard]] Position Where() const;
  void GoTo(const Position& position);

  void BuildSwitch(ControlMaker& maker);
  /// Shows the data as they are now; cursor and selection stay with their channels.
  void Follow();
  void FitColumns(bool keep_wide);
  void ShowUnused(bool shown);

  void Do(const files::SheetEdit& edit);
  void TakeCell(GoOn go_on);
  /// What the open editor would set; nothing when the text is refused, which `Refuse` tells.
  [[nodiscard]] std::optional<files::SheetEdit> TakenFrom(const QWidget& editor) const;
  /// Sets what the open editor holds and closes it, or leaves it open and returns false.
  [[nodiscard]] bool TakeEditor();
  void Refuse();
  void OpenEditor(const QModelIndex& index);
  /// The next cell that can be edited there; invalid at the end.
  [[nodiscard]] QModelIndex NextCell(const QModelIndex& from, GoOn go_on) const;
  [[nodiscard]] bool CheckCompleteness();
  [[nodiscard]] core::Date Today() const { return Services().clock.Today(); }

  GridModel* model_;
  ChannelGrid* grid_;
  CellDelegate* delegate_ = nullptr;
  GridCommands* commands_;
  QCheckBox* unused_ = nullptr;
  NodeRef shown_;
  std::set<int> changed_;  ///< EXP/LMR channels that were changed since the table came on show
  bool untold_ = false;    ///< what the open cell holds was refused, and the user waits to hear so
};

}  // namespace orvane::editor
