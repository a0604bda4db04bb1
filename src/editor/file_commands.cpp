#include "editor/file_commands.h"

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include "core/app_settings.h"
#include "core/message_facts.h"
#include "core/narrowband.h"
#include "core/product.h"
#include "core/text.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/snapshot.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr std::chrono::milliseconds kMenuCloses{100};
constexpr const char* kFilter = "dat files(*.dat)|*.dat|All files(*.*)|*.*";
constexpr const char* kHexFilter = "hex files(*.hex)|*.hex|All files(*.*)|*.*";

}  // namespace

FileCommands::FileCommands(const WindowServices& services, CommandHost& host)
    : services_(services),
      document_(services.document),
      state_(services.state),
      host_(host),
      new_timer_(&host.Widget()) {
  new_timer_.setObjectName(QStringLiteral("TimerNew"));
  new_timer_.setSingleShot(true);
  new_timer_.setInterval(kMenuCloses);
  connect(&new_timer_, &QTimer::timeout, this, &FileCommands::Reset);
}

void FileCommands::New() {
  if (host_.CheckPage()) NewUnchecked(document_.Data().MODELTYPE, "New");
}

void FileCommands::NewUnchecked(std::int16_t model_type, std::string step) {
  new_model_ = model_type;
  new_step_ = std::move(step);
  resetting_ = std::make_unique<Working>(host_.Widget());
  new_timer_.start();
}

void FileCommands::Reset() {
  host_.ShowGeneralPage();
  host_.Wait(kCommandPause);
  document_.Replace(new_step_, document::NewContents(new_model_, services_.clock.Today()), false);
  host_.RebuildDestinations();
  host_.ShowHint({});
  document_.ForgetChange();
  resetting_.reset();
}

void FileCommands::Open() {
  if (!host_.CheckPage()) return;
  state_.Cancel = true;
  const auto path = services_.dialogs.AskOpen(Request(kFilter));
  if (path && !path->empty()) ReadFile(*path);
}

void FileCommands::OpenFile(const std::string& path) {
  if (!host_.CheckPage()) return;
  state_.Cancel = true;
  const std::string ending = core::Extension(path);
  if (ending == files::kImageEnding) {
    LoadImageFile(path);
  } else if (ending == files::kSnapshotEnding) {
    OpenSnapshot(path);
  } else {
    ReadFile(path);
  }
}

void FileCommands::ReadFile(const std::string& path) {
  const Working working(host_.Widget());
  document::Contents opened{.data = document_.Data(),
                            .file_name = path,
                            .origin = document::Origin::kOpened,
                            .file_print = PrintOfFile(path)};
  files::ReadSettingFile(opened.data, state_, path, services_.files, services_.prompts,
                         services_.pump);
  if (state_.Error) return;
  state_.Cancel = false;
  Replace("Open ", std::move(opened));
}

void FileCommands::OpenSnapshot(const std::string& path) {
  constexpr std::size_t kDateAndMinutes = 16;
  const Working working(host_.Widget());
  const core::FileBytes file = services_.files.ReadFile(path);
  files::Snapshot snapshot = file.error ? files::Snapshot{} : files::ParseSnapshot(file.bytes);
  if (snapshot.data == nullptr) {
    TellFailure(core::MessageId::kFileRead, path,
                file.error.value_or(core::SystemError{0, snapshot.error}));
    return;
  }
  state_.Cancel = false;
  document_.Replace("Backup of " + snapshot.heading.made,
                    {.data = std::move(*snapshot.data),
                     .origin = document::Origin::kBackup,
                     .time = snapshot.heading.made.substr(0, kDateAndMinutes)},
                    false);
  host_.CheckDestinationOfImage();
  document_.ForgetChange();
}

void FileCommands::Replace(const char* verb, document::Contents contents) {
  std::string step = verb + core::WithoutFolder(contents.file_name);
  core::AppSettings(services_.settings).AddRecentFile(contents.file_name);
  overtaking_told_ = false;
  document_.Replace(std::move(step), std::move(contents), true);
  host_.CheckDestinationOfImage();
}

void FileCommands::SaveSettings(bool reuse_name) {
  state_.Cancel = true;
  if (!host_.CheckPage()) return;
  NoticeNarrowband();
  const std::string path = PathToSave(reuse_name);
  if (path.empty()) return;
  files::PreviousVersion previous(services_.files, services_.previous_folder, path);
  const QString not_kept = KeepPrevious(previous, path);
  SaveFileAs(path);
  if (state_.Error) return previous.TakeBack();
  core::AppSettings(services_.settings).AddRecentFile(path);
  overtaking_told_ = false;
  document_.MarkSaved(path, services_.clock.TimeOfDay(),
                      document::PrintOf(files::SettingFileText(document_.Data())));
  state_.Cancel = false;
  // After the hint of the control that got the focus back.
  if (!not_kept.isEmpty()) host_.ShowNotice(not_kept);
}

std::string FileCommands::PathToSave(bool reuse_name) {
  if (reuse_name && !document_.FileName().empty()) {
    if (!IsOvertaken()) return document_.FileName();
    const core::Answer answer = services_.prompts.Show(core::MakeMessage(
        core::MessageId::kFileOvertaken, core::kProgramTitle, {{"path", document_.FileName()}}));
    if (answer == core::Answer::kOverwrite) return document_.FileName();
    if (answer != core::Answer::kSaveAs) return {};
  }
  return services_.dialogs.AskSave(Request(kFilter)).value_or(std::string());
}

bool FileCommands::IsOvertaken() const {
  if (document_.FileName().empty() || document_.FilePrint() == 0) return false;
  const std::size_t print = PrintOfFile(document_.FileName());
  return print != 0 && print != document_.FilePrint();
}

void FileCommands::LookAtFile() {
  if (overtaking_told_ || !IsOvertaken()) return;
  overtaking_told_ = true;
  host_.ShowNotice(tr("Another program has changed %1.")
                       .arg(platform::FromUtf8(core::WithoutFolder(document_.FileName()))));
}

// 0 for a file that cannot be read: one that has gone was not changed.
std::size_t FileCommands::PrintOfFile(const std::string& path) const {
  const core::BusyScope busy(state_);
  const core::FileBytes file = services_.files.ReadFile(path);
  return file.error ? 0 : document::PrintOf(file.bytes);
}

platform::FileDialogRequest FileCommands::Request(const char* filter) const {
  platform::FileDialogRequest request{.filter = filter, .folder = services_.program_folder};
  for (const std::string& path : core::AppSettings(services_.settings).RecentFiles()) {
    const std::string folder = path.substr(0, path.find_last_of("/\\"));
    const auto& known = request.last_folders;
    if (std::find(known.begin(), known.end(), folder) == known.end()) {
      request.last_folders.push_back(folder);
    }
  }
  return request;
}

void FileCommands::NoticeNarrowband() {
  const core::Date today = services_.clock.Today();
  if (core::WideChannelState(document_.Data(), today) == core::WideState::kNone) return;
  document_.Adjust("Narrow channels", [&](core::RadioData& data) {
    // Saving goes on whatever the notice says; only a download may be declined.
    static_cast<void>(
        core::NarrowbandCheck(data, core::NarrowbandDirection::kSave, today, services_.prompts));
  });
}

void FileCommands::SaveFileAs(const std::string& path) {
  state_.Error = false;
  std::optional<core::SystemError> failure;
  {
    const Working working(host_.Widget());
    const core::BusyScope busy(state_);
    failure = files::WriteSettingFile(document_.Data(), path, services_.files, services_.pump);
    host_.Wait(kCommandPause);
  }
  if (!failure) return;
  state_.Error = true;
  state_.Cancel = true;
  services_.log.Write("frmMain.SaveFileAs", std::to_string(failure->number) + failure->description);
  TellFailure(core::MessageId::kFileSave, path, *failure);
}

void FileCommands::TellFailure(core::MessageId id, const std::string& path,
                               const core::SystemError& failure) {
  services_.prompts.Show(
      core::MakeMessage(id, core::kProgramTitle, core::FileFacts(path, failure)));
}

QString FileCommands::KeepPrevious(files::PreviousVersion& previous, const std::string& path) {
  if (services_.previous_folder.empty()) return {};
  const core::BusyScope busy(state_);
  const std::optional<core::SystemError> failure =
      previous.Keep(files::SettingFileText(document_.Data()));
  if (!failure) return {};
  return tr("The previous version of %1 was not kept: %2")
      .arg(platform::FromUtf8(core::WithoutFolder(path)), platform::FromUtf8(failure->description));
}

void FileCommands::SaveImage() {
  if (!state_.Debug || !host_.CheckPage()) return;
  state_.Cancel = true;
  const std::string path = services_.dialogs.AskSave(Request(kHexFilter)).value_or(std::string());
  if (path.empty()) return;
  // Encoding adjusts the records to what the radio can hold.
  document_.Adjust("Save " + core::WithoutFolder(path), [&](core::RadioData& data) {
    files::PrepareImageForSaving(data, services_.clock.Today());
  });
  const Working working(host_.Widget());
  const core::BusyScope busy(state_);
  state_.Cancel = false;
  files::SaveHexFileAs(document_.Data(), state_, path, services_.files, services_.prompts,
                       services_.log);
  if (!state_.Cancel) host_.Wait(kCommandPause);
}

void FileCommands::LoadImage() {
  if (!state_.Debug) return;
  state_.Cancel = true;
  const std::string path = services_.dialogs.AskOpen(Request(kHexFilter)).value_or(std::string());
  if (!path.empty()) LoadImageFile(path);
}

void FileCommands::LoadImageFile(const std::string& path) {
  const Working working(host_.Widget());
  state_.Cancel = false;
  document::Contents loaded{.data = document_.Data(),
                            .file_name = path,
                            .origin = document::Origin::kImage,
                            .file_print = PrintOfFile(path)};
  {
    const core::BusyScope busy(state_);
    files::LoadHexFile(loaded.data, state_, path, services_.files, services_.prompts,
                       services_.log);
    if (state_.Error) return;
    host_.Wait(kCommandPause);
  }
  Replace("Load ", std::move(loaded));
  document_.ForgetChange();
}

bool FileCommands::AskBeforeClosing() {
  if (!document_.HasChanged()) return true;
  const core::Answer answer =
      services_.prompts.Show(core::MakeMessage(core::MessageId::kSaveChanges, core::kProgramTitle));
  if (answer == core::Answer::kNo) return true;
  if (answer != core::Answer::kYes || !host_.CheckPage()) return false;
  SaveSettings(true);
  return !state_.Error && !state_.Cancel;
}

QString WindowTitle(const std::string& file_name) {
  QString title = QLatin1String(core::kProductName.data()) + QLatin1String("  ") +
                  QLatin1String(core::kProgramTitle.data());
  if (file_name.empty()) return title;
  return title + QLatin1String(" - ") +
         platform::FromUtf8(core::WithoutFolder(file_name)).toLower();
}

}  // namespace orvane::editor
