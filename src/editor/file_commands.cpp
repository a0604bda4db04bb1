#include "editor/file_commands.h"

#include <algorithm>
#include <chrono>
#include <optional>

#include "core/message_facts.h"
#include "core/narrowband.h"
#include "files/settings_file.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr std::chrono::milliseconds kMenuCloses{100};
constexpr const char* kFilter = "dat files(*.dat)|*.dat|All files(*.*)|*.*";

}  // namespace

FileCommands::FileCommands(const WindowServices& services, CommandHost& host)
    : services_(services), data_(services.data), host_(host), new_timer_(&host.Widget()) {
  new_timer_.setObjectName(QStringLiteral("TimerNew"));
  new_timer_.setSingleShot(true);
  new_timer_.setInterval(kMenuCloses);
  connect(&new_timer_, &QTimer::timeout, this, &FileCommands::Reset);
}

void FileCommands::New() {
  if (host_.CheckPage()) NewUnchecked();
}

void FileCommands::NewUnchecked() {
  resetting_ = std::make_unique<Working>(host_.Widget());
  new_timer_.start();
}

void FileCommands::Reset() {
  host_.ShowGeneralPage();
  host_.Wait(kCommandPause);
  host_.ResetData(true);
  data_.Flags.DataChanged = false;
  resetting_.reset();
}

void FileCommands::Open() {
  if (!host_.CheckPage()) return;
  data_.Flags.Cancel = true;
  const auto path =
      services_.dialogs.AskOpen({.filter = kFilter, .folder = services_.program_folder});
  if (path && !path->empty()) ReadFile(*path);
}

void FileCommands::OpenFile(const std::string& path) {
  if (!host_.CheckPage()) return;
  data_.Flags.Cancel = true;
  ReadFile(path);
}

void FileCommands::ReadFile(const std::string& path) {
  const Working working(host_.Widget());
  files::ReadSettingFile(data_, path, services_.files, services_.prompts, services_.pump);
  if (data_.Flags.Error) return;
  data_.CurrentFileName = path;
  data_.Flags.Cancel = false;
  host_.DataReplaced();
  host_.ShowGeneralPage();
  host_.CheckDestinationOfImage();
}

void FileCommands::SaveSettings(bool reuse_name) {
  data_.Flags.Cancel = true;
  if (!host_.CheckPage()) return;
  NoticeNarrowband();
  std::string path = reuse_name ? data_.CurrentFileName : std::string();
  if (path.empty()) {
    path = services_.dialogs.AskSave({.filter = kFilter, .folder = services_.program_folder})
               .value_or(std::string());
  }
  if (path.empty()) return;
  SaveFileAs(path);
  if (data_.Flags.Error) return;
  data_.CurrentFileName = path;
  host_.RefreshTitle();
  data_.Flags.Cancel = false;
}

void FileCommands::NoticeNarrowband() {
  const core::Date today = services_.clock.Today();
  if (core::WideChannelState(data_, today) == core::WideState::kNone) return;
  // Saving goes on whatever the notice says; only a download may be declined.
  static_cast<void>(
      core::NarrowbandCheck(data_, core::NarrowbandDirection::kSave, today, services_.prompts));
  host_.ShowPageAgain();
}

void FileCommands::SaveFileAs(const std::string& path) {
  std::optional<core::SystemError> failure;
  {
    const Working working(host_.Widget());
    data_.Flags.Busy = true;
    failure = files::WriteSettingFile(data_, path, services_.files, services_.pump);
    host_.Wait(kCommandPause);
    data_.Flags.Busy = false;
  }
  if (!failure) return;
  data_.Flags.Error = true;
  data_.Flags.Cancel = true;
  services_.log.Write("frmMain.SaveFileAs", std::to_string(failure->number) + failure->description);
  services_.prompts.Show(core::MakeMessage(core::MessageId::kFileSave, data_.ProgramTitle,
                                           core::FileFacts(path, *failure)));
}

bool FileCommands::AskBeforeClosing() {
  if (!data_.Flags.DataChanged) return true;
  const core::Answer answer =
      services_.prompts.Show(core::MakeMessage(core::MessageId::kSaveChanges, data_.ProgramTitle));
  if (answer == core::Answer::kNo) return true;
  if (answer != core::Answer::kYes || !host_.CheckPage()) return false;
  SaveSettings(true);
  return !data_.Flags.Error && !data_.Flags.Cancel;
}

QString WindowTitle(const core::RadioData& data) {
  QString title = platform::FromUtf8(data.ProductName) + QLatin1String("  ") +
                  platform::FromUtf8(data.ProgramTitle);
  if (data.CurrentFileName.empty()) return title;
  const QString path = platform::FromUtf8(data.CurrentFileName);
  const qsizetype folder_end =
      std::max(path.lastIndexOf(QLatin1Char('/')), path.lastIndexOf(QLatin1Char('\\')));
  return title + QLatin1String(" - ") + path.mid(folder_end + 1).toLower();
}

}  // namespace orvane::editor
