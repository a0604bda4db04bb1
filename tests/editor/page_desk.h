#pragma once

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QtTest>
#include <memory>
#include <random>

#include "arranged_document.h"
#include "editor/controls.h"
#include "editor/page.h"
#include "image/codec.h"
#include "image/sample_radio.h"
#include "support/fakes.h"
#include "support/row.h"

namespace orvane::testing {

/// Stands for the window around a page: writes down what the page asks for.
class RecordingHost : public editor::PageHost {
 public:
  explicit RecordingHost(document::Document& document) : document_(document) {}
  void Edit(core::FieldRef at, const document::Document::Body& edit,
            document::Document::Manner manner) override {
    document_.Edit(at, edit, manner);
  }
  void EditMany(const std::string& name, const document::Document::Body& edit) override {
    document_.Edit(name, edit);
  }
  void DataChanged() override { ++changes; }
  void RebuildTree() override { ++rebuilds; }
  void RefreshMarks() override { ++marks; }
  void ShowHint(const QString& text) override { hint = text; }
  void ShowNotice(const QString& text) override { notice = text; }
  void SelectNode(const QString& key) override { selected = key; }
  void Forget() {
    changes = rebuilds = marks = 0;
    hint.clear();
    notice.clear();
    selected.clear();
  }

  int changes = 0;
  int rebuilds = 0;
  int marks = 0;
  QString hint;
  QString notice;
  QString selected;

 private:
  document::Document& document_;
};

/// One page in a window of its own, over a radio in use.
template <class PageType>
struct PageDesk : ArrangedDocument {
  explicit PageDesk(int model_type, const char* key = "General") {
    data = image::MakeSampleRadio(static_cast<std::int16_t>(model_type), clock.Today());
    page = std::make_unique<PageType>(editor::PageServices{.data = document.Data(),
                                                           .state = state,
                                                           .prompts = prompts,
                                                           .clock = clock,
                                                           .host = host},
                                      nullptr);
    page->show();
    page->activateWindow();
    (void)QTest::qWaitForWindowActive(page.get());
    Open(key);
  }
  /// Nothing that the page shows then stems from what it showed before.
  void Open(const char* key) {
    for (auto* control : page->template findChildren<QWidget*>()) {
      const QSignalBlocker quiet(control);
      if (auto* list = qobject_cast<QComboBox*>(control)) list->setCurrentIndex(-1);
      if (auto* box = qobject_cast<QLineEdit*>(control)) box->clear();
      if (auto* button = qobject_cast<QAbstractButton*>(control)) button->toggle();
    }
    page->Fill(*editor::NodeOfKey(QLatin1String(key)));
    host.Forget();
  }
  template <class Control>
  [[nodiscard]] Control* Find(const char* name) const {
    return page->template findChild<Control*>(QLatin1String(name));
  }
  [[nodiscard]] QWidget* operator[](const char* name) const { return Find<QWidget>(name); }
  [[nodiscard]] bool On(const char* name) const { return (*this)[name]->isEnabled(); }
  [[nodiscard]] bool Checked(const char* name) const {
    return Find<QAbstractButton>(name)->isChecked();
  }
  [[nodiscard]] QString Text(const char* name) const { return Find<QLineEdit>(name)->text(); }
  [[nodiscard]] QString Item(const char* name) const {
    return Find<QComboBox>(name)->currentText();
  }

  QWidget* Focused(const char* name) {
    QWidget* control = (*this)[name];
    control->setFocus();
    return control;
  }
  [[nodiscard]] QString HintOf(const char* name) {
    page->setFocus();
    host.hint = QStringLiteral("none");
    Focused(name);
    return host.hint;
  }
  /// The user works a check box or option button.
  void Press(const char* name) { QTest::keyClick(Focused(name), Qt::Key_Space); }
  /// The user picks an item of a list that is not the current one.
  void Pick(const char* name, int item) {
    auto* list = static_cast<editor::PickBox*>(Focused(name));
    list->ShowItem(item == 0 ? 1 : item - 1);
    QTest::keyClick(list, item == 0 ? Qt::Key_Up : Qt::Key_Down);
  }
  /// The user works every control there is.
  void WorkAll() {
    for (QWidget* control : page->template findChildren<QWidget*>()) control->setEnabled(true);
    for (auto* button : page->template findChildren<QAbstractButton*>()) button->click();
    for (auto* list : page->template findChildren<QComboBox*>()) {
      QTest::keyClick(list, list->currentIndex() == 0 ? Qt::Key_Down : Qt::Key_Up);
    }
    for (auto* box : page->template findChildren<QLineEdit*>()) {
      box->setFocus();
      box->selectAll();
      QTest::keyClicks(box, "150");
    }
  }
  void Type(const char* name, const QString& text) {
    QTest::keyClick(Focused(name), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks((*this)[name], text);
  }
  void Paste(const char* name, const QString& text) {
    Type(name, {});
    QGuiApplication::clipboard()->setText(text);
    QTest::keyClick((*this)[name], Qt::Key_V, Qt::ControlModifier);
  }
  /// The text comes from an input method.
  void Commit(const char* name, const QString& text) {
    Type(name, {});
    QInputMethodEvent commit;
    commit.setCommitString(text);
    QCoreApplication::sendEvent((*this)[name], &commit);
  }
  /// Fills the page from contents that no program made, for every key; true when that changed
  /// nothing and asked nothing of the window.
  [[nodiscard]] bool FillsWithoutTrace(const QStringList& keys) {
    std::minstd_rand random(static_cast<unsigned>(data.MODELTYPE) + 1);
    for (std::uint8_t& byte : data.Image.Used()) byte = static_cast<std::uint8_t>(random());
    image::DecodeAll(data);
    const core::RadioData before = data;
    host.Forget();
    for (const QString& key : keys) page->Fill(*editor::NodeOfKey(key));
    return data == before && !document.HasChanged() && !state.Busy &&
           host.changes + host.marks + host.rebuilds == 0;
  }

  core::RunState state;
  ScriptedPrompts prompts;
  ManualClock clock;
  RecordingHost host{document};
  std::unique_ptr<PageType> page;
};

}  // namespace orvane::testing
