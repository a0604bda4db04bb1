#pragma once

#include <QTreeWidget>

#include "editor/channel_grid.h"
#include "image/sample_radio.h"
#include "window_desk.h"

namespace orvane::testing {

inline constexpr Qt::KeyboardModifiers kControl = Qt::ControlModifier;

/// The main window over a radio in use, with the focus in the table of a node.
struct GridDesk : WindowDesk {
  explicit GridDesk(const char* key = "PU") {
    Start();
    data = image::MakeSampleRadio(5, clock.Today());
    data.ExpPresent = true;
    ShowArranged();
    Open(key);
  }
  void Open(const char* key) {
    window->SelectNode(QLatin1String(key));
    Grid().setFocus();
  }
  [[nodiscard]] editor::ChannelGrid& Grid() const {
    return *Find<editor::ChannelGrid>("MSFlexGrid1");
  }
  [[nodiscard]] QAbstractItemModel& Rows() const { return *Grid().model(); }
  [[nodiscard]] int Column(const char* caption) const {
    int column = 0;
    while (Rows().headerData(column, Qt::Horizontal).toString() != QLatin1String(caption)) ++column;
    return column;
  }
  void GoTo(int row, const char* caption) const {
    Grid().setCurrentIndex(Rows().index(row, Column(caption)));
  }
  [[nodiscard]] QString Text(int row, const char* caption) const {
    return Rows().index(row, Column(caption)).data().toString();
  }
  /// To whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers = {}) {
    QVERIFY(QTest::qWaitForWindowActive(window.get()));  // without it there are no shortcuts
    QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key), modifiers);
    ++keys;
  }
  void Type(const QString& text) {
    QTest::keyClicks(window->focusWidget(), text);
    keys += static_cast<int>(text.size());
  }
  [[nodiscard]] QString Focus() const { return window->focusWidget()->objectName(); }
  [[nodiscard]] QString LastStep() const {
    const std::size_t done = document.DoneCount();
    return done == 0 ? QString() : platform::FromUtf8(document.Steps()[done - 1].name);
  }
  /// Presses the keys that open the dialog of refused cells, and a button in it. What it lists.
  QStringList Refused(int key, Qt::KeyboardModifiers modifiers, const char* button) {
    QStringList rows;
    window->activateWindow();  // again after a dialog
    (void)QTest::qWaitForWindowActive(window.get());
    QTimer::singleShot(0, window.get(), [&] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      const auto* list = dialog->findChild<QTreeWidget*>("lstRefused");
      for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem& item = *list->topLevelItem(i);
        rows << item.text(0) + "|" + item.text(1) + "|" + item.text(2);
      }
      dialog->findChild<QPushButton*>(button)->click();
    });
    Press(key, modifiers);
    return rows;
  }
  int keys = 0;
};

}  // namespace orvane::testing
