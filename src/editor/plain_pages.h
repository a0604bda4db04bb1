#pragma once

#include <QImage>
#include <QLabel>
#include <QString>

#include "editor/first_steps.h"
#include "editor/page.h"

namespace orvane::editor {

/// `pictGeneral`: the logo, and beside it, while nothing has been opened, what the window offers.
class GeneralPage : public Page {
  Q_OBJECT

 public:
  explicit GeneralPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;

  /// The picture stays hidden until this; one that could not be read leaves the page empty.
  void ShowLogo(QImage picture);
  [[nodiscard]] bool LogoShown() const { return shown_; }
  /// Takes the widget over.
  void PutBeside(FirstSteps* steps);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QLabel* logo_;
  FirstSteps* beside_ = nullptr;
  bool shown_ = false;
};

/// `pictGrey`: an empty page for a node that only groups others.
class GreyPage : public Page {
  Q_OBJECT

 public:
  explicit GreyPage(PageServices services, QWidget* parent = nullptr);
  void Fill(const NodeRef& node) override;
};

}  // namespace orvane::editor
