#pragma once

#include <QLineEdit>
#include <QTimer>
#include <QWidget>

#include "document/document.h"
#include "editor/find_model.h"
#include "editor/live_label.h"
#include "editor/quiet_list_view.h"

namespace orvane::editor {

/// The box over the navigation tree in which channels are looked for: one line to type into, what
/// came of it in words, and the channels found. It keeps what was typed while it is hidden, and
/// looks again when the data changed. The document outlives it.
class FindBox : public QWidget, private document::Watcher {
  Q_OBJECT

 public:
  FindBox(document::Document& document, QWidget* parent);
  ~FindBox() override;
  FindBox(const FindBox&) = delete;
  FindBox& operator=(const FindBox&) = delete;

  /// Shows the box, its text selected; hides it again when the control that has the focus does not
  /// let go of it.
  void Open();
  [[nodiscard]] bool HasFocusInside() const;

  /// The hit to go to from here, which becomes the current one: the next (step 1) or the one before
  /// (-1), beyond the ends from the other end. A current one that nobody has gone to yet is the
  /// next. Null when there is none.
  [[nodiscard]] const document::Hit* Step(int step);
  /// The current hit, to go to now; null when there is none.
  [[nodiscard]] const document::Hit* Current();
  /// "2 of 7", and whether Step began again from the other end.
  [[nodiscard]] QString PlaceText() const;

 signals:
  /// The user wants to go to the current hit; by Enter, which is the end of the search.
  void HitChosen(bool by_enter);
  /// Back to where the user was.
  void Cancelled();
  /// Out of the way, wherever the user is.
  void CloseAsked();
  void FocusGained();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  // document::Watcher
  void Changed(std::span<const core::Change> /*changes*/) override { timer_.start(); }
  void Replaced() override { timer_.start(); }
  void StatusChanged() override {}

  void Build();
  [[nodiscard]] bool TakeKey(const QObject& target, QKeyEvent& event);
  void Type();
  /// Looks for what is typed, now.
  void Look();
  /// When the data changed: the current hit stays, or the one behind it comes next.
  void LookAgain();
  void CatchUp();
  void ShowRow(int row);
  /// How many were found, or what was not understood.
  [[nodiscard]] QString FoundText() const;
  void TellRow();
  void FitList();

  document::Document& document_;
  FindModel* model_;
  QLineEdit* line_;
  LiveLabel* told_;
  QuietListView* view_;
  QTimer timer_;
  std::string advice_;
  int row_ = 0;
  bool fresh_ = true;  ///< nobody has gone to the current row yet
  bool again_ = false;
};

}  // namespace orvane::editor
