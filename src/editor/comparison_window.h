#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTimer>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "document/compare.h"
#include "document/document.h"
#include "editor/command_host.h"
#include "editor/compared_data.h"
#include "editor/comparison_model.h"
#include "editor/comparison_sources.h"
#include "editor/comparison_view.h"
#include "editor/live_label.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// `frmComparison`: two data sets side by side, each chosen by its button. What differs can be
/// taken over into the open data, as one step; nothing else is ever changed. It stands beside the
/// main window, which stays usable; the side of the open data follows the document. Services, host
/// and sources outlive it.
class ComparisonWindow : public QDialog, private document::Watcher {
  Q_OBJECT

 public:
  ComparisonWindow(const WindowServices& services, CommandHost& host,
                   const ComparisonSources& sources, QWidget* parent);
  ~ComparisonWindow() override;
  ComparisonWindow(const ComparisonWindow&) = delete;
  ComparisonWindow& operator=(const ComparisonWindow&) = delete;

  /// left: of a kind. right: kNone while it has not been chosen.
  void ShowSides(ComparedData left, ComparedData right);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum Side : std::uint8_t { kLeft, kRight };
  static constexpr std::array<Side, 2> kSides = {kLeft, kRight};
  [[nodiscard]] static Side Opposite(Side side) { return side == kLeft ? kRight : kLeft; }
  /// As one of its widgets or commands is called: "cmdLeft".
  [[nodiscard]] static QString NameOf(const char* prefix, Side side);

  // document::Watcher
  void Changed(std::span<const core::Change> /*changes*/) override { Follow(); }
  void Replaced() override { Follow(); }
  void StatusChanged() override { Follow(); }
  void Follow();

  // comparison_window_build.cpp
  void Build();
  void BuildSides();
  void AddMenu(Side side);
  void BuildFilter();
  void BuildList();
  void BuildRefusals();
  void BuildTakeButtons();
  void BuildListButtons();
  QBoxLayout& AddRow();

  /// Replaces a side by what was chosen for it, if anything was.
  void Choose(Side side, ComparedData chosen);
  void ChooseOpenData(Side side);
  void ChooseRadio(Side side);
  void Refresh();
  [[nodiscard]] ComparisonModel::Data DataOf(Side side) const;
  [[nodiscard]] QString TitleOf(Side side) const;
  [[nodiscard]] QString AboutOf(Side side) const;
  void ShowTitles();
  void ShowVerdict();
  [[nodiscard]] QString VerdictText() const;
  [[nodiscard]] QString CountText() const;
  void FollowSelection();
  void GoToDifference(bool forward);
  void ShowField(const QModelIndex& node);

  // comparison_window_take.cpp
  /// Why nothing can be taken into that side; "" when the selected rows can.
  [[nodiscard]] QString WhyNotInto(Side side) const;
  void TakeInto(Side side);
  void ShowTaken(int wanted, const std::vector<document::TakeOverRefusal>& refusals, int left);
  void HideTaken();

  // comparison_window_list.cpp
  /// Tab-separated lines, headings first, UTF-8.
  [[nodiscard]] std::string Text(const std::vector<document::Difference>& rows) const;
  void SaveList();
  void CopyRows();
  void PrintList();

  const WindowServices services_;
  document::Document& document_;
  CommandHost& host_;
  const ComparisonSources& sources_;
  std::array<ComparedData, kSides.size()> sides_;
  ComparisonModel* model_;
  ComparisonView* view_;
  QVBoxLayout* column_;
  std::array<QPushButton*, kSides.size()> side_buttons_{};
  std::array<QPushButton*, kSides.size()> take_buttons_{};
  QLineEdit* filter_ = nullptr;
  QCheckBox* differences_only_ = nullptr;
  LiveLabel* verdict_ = nullptr;
  QWidget* taken_ = nullptr;  ///< account of the last taking over, hidden before
  LiveLabel* taken_text_ = nullptr;
  QTreeWidget* refusals_ = nullptr;
  QPushButton* previous_ = nullptr;
  QPushButton* next_ = nullptr;
  QTimer timer_;  ///< the document changed
};

}  // namespace orvane::editor
