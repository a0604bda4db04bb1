#pragma once

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "editor/main_window.h"
#include "platform/ansi_text.h"
#include "support/fakes.h"

namespace orvane::testing {

class ListedPorts : public link::PortFinder {
 public:
  [[nodiscard]] std::vector<link::FoundPort> FindPorts() override { return ports; }
  void Add(int number, const std::string& description) {
    const std::string name = "COM" + std::to_string(number);
    ports.push_back({name, description + " (" + name + ")", "/dev/" + name});
  }
  std::vector<link::FoundPort> ports;
};

/// Answers with the paths of the script, then as if cancelled.
class ScriptedDialogs : public platform::FileDialogs {
 public:
  [[nodiscard]] std::optional<std::string> AskOpen(
      const platform::FileDialogRequest& request) override {
    return Next(request);
  }
  [[nodiscard]] std::optional<std::string> AskSave(
      const platform::FileDialogRequest& request) override {
    return Next(request);
  }
  std::deque<std::string> paths;
  std::vector<platform::FileDialogRequest> requests;

 private:
  std::optional<std::string> Next(const platform::FileDialogRequest& request) {
    requests.push_back(request);
    if (paths.empty()) return std::nullopt;
    const std::string path = paths.front();
    paths.pop_front();
    return path;
  }
};

class RecordingCommands : public editor::Commands {
 public:
  void Print(editor::CommandHost& /*host*/) override { ran << "Print"; }
  void PrintToFile(editor::CommandHost& /*host*/) override { ran << "PrintToFile"; }
  void Program(editor::CommandHost& /*host*/) override { ran << "Program"; }
  void Read(editor::CommandHost& /*host*/) override { ran << "Read"; }
  void SaveHex(editor::CommandHost& /*host*/) override { ran << "SaveHex"; }
  void LoadHex(editor::CommandHost& /*host*/) override { ran << "LoadHex"; }
  void Help(editor::CommandHost& /*host*/, int context) override {
    ran << QStringLiteral("Help %1").arg(context);
  }
  void HelpContents(editor::CommandHost& /*host*/) override { ran << "HelpContents"; }
  void CloseHelp() override { ran << "CloseHelp"; }
  void ReopenHelp() override { ran << "ReopenHelp"; }
  void About(editor::CommandHost& /*host*/) override { ran << "About"; }
  QStringList ran;
};

/// The main window over scripted services: prompts and dialogs answer from their scripts, files
/// live in memory and pauses take no time.
struct WindowDesk {
  /// Over other files than those in memory, if any are given.
  explicit WindowDesk(core::FileStore* other_files = nullptr)
      : used_files(other_files == nullptr ? &files : other_files) {}
  WindowDesk(const WindowDesk&) = delete;
  WindowDesk& operator=(const WindowDesk&) = delete;

  core::RadioData data;
  ScriptedPrompts prompts;
  ManualClock clock;
  ManualPump pump{clock};
  MemorySettings settings;
  MemoryFiles files;
  core::FileStore* used_files;
  RecordingLog log;
  ListedPorts ports;
  ScriptedDialogs dialogs;
  RecordingCommands commands;
  editor::Commands* used_commands = &commands;
  core::Clock* used_clock = &clock;
  core::EventPump* used_pump = &pump;
  std::unique_ptr<editor::MainWindow> window;

  [[nodiscard]] editor::WindowServices Services() {
    return {data, prompts, *used_clock, *used_pump,    settings,   *used_files,
            log,  ports,   dialogs,     used_commands, "/program", "/share"};
  }

  /// Shows the window and lets its start come to an end.
  void Start() {
    window = std::make_unique<editor::MainWindow>(Services());
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitFor(
        [this] { return !Find<QTimer>("Timer1")->isActive() && window->isEnabled(); }));
  }
  template <class T>
  [[nodiscard]] T* Find(const char* name) const {
    return window->findChild<T*>(QLatin1String(name));
  }
  /// A menu item or toolbar button by name.
  [[nodiscard]] QAction& Item(const char* name) const { return *Find<QAction>(name); }
  /// Runs a command that works behind a timer to its end.
  void TriggerAndWait(const char* name) const {
    Item(name).trigger();
    QVERIFY(QTest::qWaitFor([this] { return window->isEnabled(); }));
  }
  /// Runs a command that opens a modal window, and works in that window. What is still open
  /// afterwards is closed.
  void InWindowOf(const char* item, const std::function<void(QDialog&)>& work) const {
    QTimer::singleShot(0, window.get(), [&work] {
      auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      QVERIFY(dialog != nullptr);
      work(*dialog);
      dialog->close();
    });
    Item(item).trigger();
  }
  /// Presses OK in the transfer dialog of that menu item and closes it should it stay.
  /// True when it closed by itself.
  bool Transfer(const char* item) const {
    bool closed = false;
    InWindowOf(item, [&closed](QDialog& dialog) {
      dialog.findChild<QPushButton*>("cmdOK")->click();
      closed = !dialog.isVisible();
    });
    return closed;
  }
  [[nodiscard]] editor::NavTree& Tree() const { return *Find<editor::NavTree>("tvTreeView"); }
  [[nodiscard]] QString Hint() const { return Find<QLabel>("sbStatusBar_1")->text(); }
  [[nodiscard]] QString Model() const { return Find<QLabel>("sbStatusBar_3")->text(); }
  /// Object name of the page on show.
  [[nodiscard]] QString PageName() const {
    const auto* area = window->findChild<editor::PageArea*>();
    return area->Current() == nullptr ? QString() : area->Current()->objectName();
  }
  [[nodiscard]] QStringList Messages() const {
    QStringList texts;
    for (const std::string& text : prompts.Texts()) texts << platform::FromUtf8(text);
    return texts;
  }
};

}  // namespace orvane::testing
