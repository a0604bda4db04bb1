#pragma once

#include <QGridLayout>
#include <QPushButton>
#include <QWidget>
#include <vector>

#include "document/start_offer.h"
#include "editor/menus.h"

namespace orvane::editor {

/// `boxFirstSteps`, beside the logo: the ways to begin, and the recent files. Each button is
/// another way to choose a menu item, and is enabled, or says why not, as that is.
class FirstSteps : public QWidget {
  Q_OBJECT

 public:
  FirstSteps(const Menus& menus, QWidget* parent);

  /// Takes the recent files from their menu. Hidden when there is nothing to offer.
  void Show(document::StartOffer offer);
  /// One below the other, or in two columns that take less height.
  enum class Shape { kColumn, kSquare };
  void SetShape(Shape shape);
  [[nodiscard]] int ColumnWidth() const;

 private:
  /// A heading with buttons under it.
  struct Box {
    QWidget* widget;
    QGridLayout* grid;
    std::vector<QPushButton*> buttons;
  };

  [[nodiscard]] Box MakeBox(const char* name, const QString& heading);
  static QPushButton* Add(Box& box, const QString& name, const QString& caption,
                          const QString& tool_tip);
  void AddSteps();
  void AddSimulated();
  void AddFiles();
  void ShowFiles();
  static void Arrange(const Box& box, Shape shape);

  const Menus menus_;
  Box steps_;
  Box recent_;  ///< without buttons as long as there was no file
  Shape shape_ = Shape::kSquare;
};

}  // namespace orvane::editor
