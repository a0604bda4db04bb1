/// The main window over real files, edited without a pause until it is killed. For the test that
/// kills it:
///
///   edited_program FOLDER NUMBER INTERVAL
///
/// Each edit writes its own number, counted from NUMBER * 1,000,000, into a name of two tables. The
/// window keeps copies each INTERVAL milliseconds in FOLDER, and now and then the data are saved in
/// FOLDER/boat_NUMBER.dat, which is opened at the start. What happens is told on standard output:
/// what the file held ("opened"), what was "restored", then "ready", and each "edit" before it is
/// made, each copy "kept" and each file "saved"; all with the number of the last edit.
#include <QAction>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>

#include "files/settings_file.h"
#include "platform/qt_file_store.h"
#include "platform/qt_recovery_store.h"
#include "support/image_fixtures.h"
#include "window_desk.h"

namespace {

using namespace orvane;

constexpr int kTraced = 50;  ///< the last edits that the data tell of
constexpr int kCopiesPerSave =
    4;  ///< on any machine most kills find a copy that is newer than the file

void Tell(const char* what, int edit) {
  std::printf("%s %d\n", what, edit);
  std::fflush(stdout);
}

std::size_t PlaceOf(int edit) {
  return static_cast<std::size_t>(edit % kTraced);
}

/// The number of the last edit of the data; -1 when they are not what that edit left.
int LastEdit(const core::RadioData& data, int first) {
  int last = first;
  for (std::size_t place = 0; place < kTraced; ++place) {
    const std::string& name = data.Marine[0][place].ChTag;
    if (name.starts_with("E")) last = std::max(last, std::atoi(name.c_str() + 1));
  }
  for (int edit = std::max(first + 1, last - kTraced + 1); edit <= last; ++edit) {
    const std::string name = "E" + std::to_string(edit);
    for (const std::size_t table : {0U, 1U}) {
      if (data.Marine[table][PlaceOf(edit)].ChTag != name) return -1;
    }
  }
  return last;
}

/// Restores what belongs to its own file, and leaves the rest to the others.
class OwnPrompts : public core::Prompts {
 public:
  explicit OwnPrompts(std::string file) : file_(std::move(file)) {}
  core::Answer Show(const core::Message& message) override {
    if (message.buttons != core::Buttons::kRestoreKeepDiscard) return core::Answer::kOk;
    const bool own = message.details.find(file_) != std::string::npos;
    restored = restored || own;
    return own ? core::Answer::kRestore : core::Answer::kKeep;
  }
  bool restored = false;

 private:
  std::string file_;
};

/// Tells of copies that are on the disk.
class ToldRecovery : public platform::QtRecoveryStore {
 public:
  using QtRecoveryStore::QtRecoveryStore;
  void WhenKept(std::function<void(const std::optional<core::SystemError>&)> told) override {
    QtRecoveryStore::WhenKept([this, told = std::move(told)](const auto& failure) {
      if (!failure) {
        Tell("kept", on_their_way_.front());
        ++copies;
      }
      on_their_way_.pop_front();
      told(failure);
    });
  }
  void Keep(std::string text) override {
    on_their_way_.push_back(edit);
    QtRecoveryStore::Keep(std::move(text));
  }
  int edit = 0;
  int copies = 0;  ///< kept since the last save

 private:
  std::deque<int> on_their_way_;
};

/// What a saved file holds, -1 for a damaged one; the start when there is none.
int LastEditOfFile(core::FileStore& files, const std::string& path, int first,
                   core::EventPump& pump) {
  if (!files.FileSize(path)) return first;
  core::RadioData data = testing::NewData(core::kDefaultModelType);
  const core::FileBytes bytes = files.ReadFile(path);
  const bool whole = !bytes.error && files::ApplySettingText(data, bytes.bytes, pump);
  return whole ? LastEdit(data, first) : -1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const QApplication application(argc, argv);
  const std::string folder = argv[1];
  const int first = std::atoi(argv[2]) * 1'000'000;
  const std::string file = folder + "/boat_" + argv[2] + ".dat";

  platform::QtFileStore files;
  ToldRecovery recovery(folder + "/recovery");
  OwnPrompts prompts(file);
  testing::WindowDesk desk(&files);
  const editor::WindowServices of_desk = desk.Services();
  desk.window = std::make_unique<editor::MainWindow>(editor::WindowServices{of_desk.document,
                                                                            of_desk.state,
                                                                            prompts,
                                                                            of_desk.clock,
                                                                            of_desk.pump,
                                                                            of_desk.settings,
                                                                            of_desk.files,
                                                                            of_desk.log,
                                                                            of_desk.ports,
                                                                            of_desk.dialogs,
                                                                            of_desk.make_port,
                                                                            of_desk.printer,
                                                                            of_desk.help,
                                                                            &recovery,
                                                                            nullptr,
                                                                            "/program",
                                                                            "",
                                                                            "",
                                                                            folder + "/marks",
                                                                            "/share"});
  if (files.FileSize(file)) desk.window->OpenAtStart(file);
  desk.window->show();
  if (!QTest::qWaitFor([&] { return desk.window->AutosaveTimer() != nullptr; })) return 3;
  desk.window->AutosaveTimer()->setInterval(std::atoi(argv[3]));

  const int opened = LastEditOfFile(files, file, first, desk.pump);
  Tell("opened", opened);
  int edit = LastEdit(desk.document.Data(), first);
  if (prompts.restored) Tell("restored", edit);
  if (edit < 0 || opened < 0) return 4;
  // A copy that the save after it had no time to remove is taken back.
  if (edit < opened) desk.Item("mnuEditUndo").trigger();
  edit = std::max(edit, opened);
  recovery.edit = edit;
  Tell("ready", edit);
  const auto save = [&] {
    desk.dialogs.paths = {file};
    desk.Item("mnuFileSave").trigger();
    if (desk.document.IsSaved()) Tell("saved", edit);
    recovery.copies = 0;
  };
  if (desk.document.FileName().empty()) save();
  QElapsedTimer running;
  running.start();
  QTimer script;
  QObject::connect(&script, &QTimer::timeout, [&] {
    Tell("edit", ++edit);
    Tell("at", static_cast<int>(running.elapsed()));
    desk.document.Edit("Edit", [&](core::RadioData& data) {
      for (const std::size_t table : {0U, 1U}) {
        data.Marine[table][PlaceOf(edit)].ChTag = "E" + std::to_string(edit);
      }
    });
    recovery.edit = edit;
    if (recovery.copies >= kCopiesPerSave) save();
  });
  script.start(1);
  return QApplication::exec();
}
