#pragma once

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTimer>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "arranged_document.h"
#include "editor/main_window.h"
#include "platform/ansi_text.h"
#include "support/fakes.h"
#include "support/scripted_devices.h"

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

class ScriptedPrinter : public platform::ReportPrinter {
 public:
  [[nodiscard]] bool HasPrinter() const override { return has_printer; }
  [[nodiscard]] bool Ask(QWidget& /*parent*/) override { return chosen; }
  [[nodiscard]] std::optional<core::SystemError> Print(const core::RadioData& /*data*/,
                                                       const files::Imprint& imprint) override {
    printed.push_back(imprint.file);
    return failure;
  }
  [[nodiscard]] std::optional<core::SystemError> PrintText(
      const std::string& text, const files::Imprint& /*imprint*/) override {
    printed.push_back(text);
    return failure;
  }
  bool has_printer = true;
  bool chosen = true;
  std::optional<core::SystemError> failure;
  std::vector<std::string> printed;  ///< files that the footers named, and texts
};

/// Keeps in memory; what was left behind is the script's.
class MemoryRecovery : public core::RecoveryStore {
 public:
  void Keep(std::string text) override {
    if (!failure) kept = std::move(text);
    if (told_) told_(failure);
  }
  void Forget() override { kept.clear(); }
  void Leave() override { left.push_back({"/left", std::exchange(kept, {})}); }
  void WhenKept(std::function<void(const std::optional<core::SystemError>&)> told) override {
    told_ = std::move(told);
  }
  [[nodiscard]] std::vector<Left> LeftBehind() override { return left; }
  void Discard(const std::string& path) override { discarded.push_back(path); }
  void Release() override {}

  std::string kept;
  std::optional<core::SystemError> failure;
  std::vector<Left> left;
  std::vector<std::string> discarded;

 private:
  std::function<void(const std::optional<core::SystemError>&)> told_;
};

class RecordingHelp : public help::HelpOpener {
 public:
  [[nodiscard]] bool HasHelp() const override { return has_help; }
  [[nodiscard]] std::optional<std::string> Open(QWidget& owner, int context) override {
    opened << QStringLiteral("%1 %2").arg(owner.objectName()).arg(context);
    return failure;
  }
  void Close() override { opened << QStringLiteral("closed"); }
  void Reopen() override { opened << QStringLiteral("reopened"); }
  bool has_help = true;
  std::optional<std::string> failure;
  QStringList opened;
};

/// The main window over scripted services: prompts and dialogs answer from their scripts, files
/// live in memory and pauses take no time.
struct WindowDesk : ArrangedDocument {
  /// Over other files than those in memory, if any are given.
  explicit WindowDesk(core::FileStore* other_files = nullptr,
                      std::size_t history_bytes = document::Document::kHistoryBytes)
      : ArrangedDocument(history_bytes),
        used_files(other_files == nullptr ? &files : other_files) {}
  WindowDesk(const WindowDesk&) = delete;
  WindowDesk& operator=(const WindowDesk&) = delete;

  core::RunState state;
  ScriptedPrompts prompts;
  ManualClock clock;
  ManualPump pump{clock};
  MemorySettings settings;
  MemoryFiles files;
  core::FileStore* used_files;
  std::string user_folder;  ///< of what the program keeps by itself
  RecordingLog log;
  ListedPorts ports;
  ScriptedDialogs dialogs;
  ScriptedPrinter printer;
  RecordingHelp help;
  MemoryRecovery recovery;
  platform::Interrupts* interrupts = nullptr;
  ScriptedDevices devices;
  link::RadioProcess* radio_process = nullptr;
  std::function<std::unique_ptr<link::SerialPort>(int)> make_port;
  core::Clock* used_clock = &clock;
  core::EventPump* used_pump = &pump;
  std::unique_ptr<editor::MainWindow> window;

  [[nodiscard]] editor::WindowServices Services() {
    return {document,
            state,
            prompts,
            *used_clock,
            *used_pump,
            settings,
            *used_files,
            log,
            ports,
            dialogs,
            make_port,
            printer,
            &help,
            &recovery,
            interrupts,
            "/program",
            user_folder + "/backups",
            user_folder + "/previous",
            user_folder + "/marks",
            "/share",
            &devices,
            radio_process};
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
  /// The window follows what a test arranged in the data, past the document.
  void ShowArranged() {
    document::Contents contents{.data = data, .file_name = document.FileName()};
    document.Begin(std::move(contents));
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
  /// Second panel, without the count of problems.
  [[nodiscard]] QString Saved() const {
    static const QRegularExpression kCount("; \\d+ problems?");
    return Find<QLabel>("sbStatusBar_2")->text().remove(kCount);
  }
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
