#include "cli/documents.h"

#include "cli/options.h"
#include "core/message_facts.h"
#include "core/narrowband.h"
#include "core/product.h"
#include "document/document.h"
#include "files/data_file.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/text_report.h"
#include "image/codec.h"

namespace orvane::cli {

core::RadioData Documents::Fresh(std::int16_t model_type) const {
  return document::NewContents(model_type, services_.clock.Today()).data;
}

bool Documents::Load(const std::string& path, std::optional<std::int16_t> model_type,
                     core::RadioData& data) {
  return files::ReadDataFile(path, model_type, data,
                             {.state = state_,
                              .files = services_.files,
                              .prompts = prompts_,
                              .pump = services_.pump,
                              .log = log_,
                              .today = services_.clock.Today()});
}

bool Documents::CheckOutput(const std::string& path, const core::RadioData& data) {
  const std::optional<core::SystemError> error = services_.files.CheckWritable(path);
  if (error) TellSaveFailure(path, data, *error);
  return !error;
}

bool Documents::Save(const std::string& path, core::RadioData& data) {
  const std::string extension = Extension(path);
  if (extension == files::kSnapshotEnding) {
    return SaveSnapshot(path, data, {services_.clock.Timestamp(), "saved"});
  }
  if (extension == files::kSettingsEnding) return SaveSettingFile(path, data);
  if (extension == ".txt") return SaveBytes(path, data, {std::nullopt, ReportFileText(data)});
  if (extension == ".pdf") return SaveBytes(path, data, services_.make_pdf(data));
  files::PrepareImageForSaving(data, services_.clock.Today());
  // Data that never came from a radio would make an image file that no reader takes.
  image::StoreProduct(data.Image, core::ProfileOf(data));
  return SaveImage(path, data);
}

bool Documents::SaveSnapshot(const std::string& path, const core::RadioData& data,
                             const files::SnapshotHeading& heading) {
  return SaveBytes(path, data, {std::nullopt, files::SnapshotText(data, heading)});
}

std::optional<core::SystemError> Documents::SaveCopy(const std::string& path,
                                                     const core::RadioData& radio,
                                                     const files::SnapshotHeading& heading) {
  const auto memory = radio.Image.Used();
  std::string bytes(memory.begin(), memory.end());
  if (Extension(path) == files::kSettingsEnding) {
    bytes = files::SettingFileText(radio);
  } else if (Extension(path) != files::kImageEnding) {
    bytes = files::SnapshotText(radio, heading);
  }
  return services_.files.WriteFile(path, bytes);
}

bool Documents::SaveText(const std::string& path, const std::string& text) {
  const std::optional<core::SystemError> error = services_.files.WriteFile(path, text);
  if (error) {
    prompts_.Show(core::MakeMessage(core::MessageId::kFileSave, core::kProgramTitle,
                                    core::FileFacts(path, *error)));
  }
  return !error;
}

bool Documents::SaveImage(const std::string& path, core::RadioData& data) {
  state_.Cancel = false;
  files::SaveHexFileAs(data, state_, path, services_.files, prompts_, log_);
  return !state_.Cancel;
}

bool Documents::SaveSettingFile(const std::string& path, core::RadioData& data) {
  static_cast<void>(core::NarrowbandCheck(data, core::NarrowbandDirection::kSave,
                                          services_.clock.Today(), prompts_));
  const std::optional<core::SystemError> error =
      files::WriteSettingFile(data, path, services_.files, services_.pump);
  if (error) {
    log_.Write("frmMain.SaveFileAs", std::to_string(error->number) + error->description);
    TellSaveFailure(path, data, *error);
  }
  return !error;
}

bool Documents::SaveBytes(const std::string& path, const core::RadioData& data,
                          const core::FileBytes& made) {
  const std::optional<core::SystemError> error =
      made.error ? made.error : services_.files.WriteFile(path, made.bytes);
  if (error) TellSaveFailure(path, data, *error);
  return !error;
}

void Documents::TellSaveFailure(const std::string& path, const core::RadioData& data,
                                const core::SystemError& error) {
  if (Extension(path) == ".txt") {
    prompts_.Show(core::MakeMessage(core::MessageId::kReportSave,
                                    image::ModelName(data) + " " + std::string(core::kProgramTitle),
                                    {{"reason", error.description}, {"path", path}}));
    return;
  }
  prompts_.Show(core::MakeMessage(core::MessageId::kFileSave, core::kProgramTitle,
                                  core::FileFacts(path, error)));
}

std::string ReportFileText(const core::RadioData& data) {
  return files::BuildTextReport(data) + "\r\n";
}

}  // namespace orvane::cli
