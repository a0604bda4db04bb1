#include "cli/documents.h"

#include "cli/options.h"
#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/narrowband.h"
#include "core/product.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/text_report.h"
#include "image/codec.h"

namespace orvane::cli {
namespace {

std::optional<std::int16_t> ModelOfSettings(std::string_view text) {
  const std::optional<double> named = files::SettingFileModel(text);
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    if (named == profile.model_type) return profile.model_type;
  }
  return std::nullopt;
}

}  // namespace

core::RadioData Documents::Fresh(std::int16_t model_type) const {
  core::RadioData data;
  data.MODELTYPE = model_type;
  image::ResetToDefaults(data, services_.clock.Today());
  return data;
}

bool Documents::Load(const std::string& path, std::optional<std::int16_t> model_type,
                     core::RadioData& data) {
  if (Extension(path) == files::kSnapshotEnding) return LoadSnapshot(path, model_type, data);
  return Extension(path) == ".dat" ? LoadSettingFile(path, model_type, data)
                                   : LoadImageFile(path, model_type, data);
}

bool Documents::LoadSnapshot(const std::string& path, std::optional<std::int16_t> model_type,
                             core::RadioData& data) {
  const core::FileBytes file = services_.files.ReadFile(path);
  const files::Snapshot snapshot =
      file.error ? files::Snapshot{} : files::ParseSnapshot(file.bytes);
  if (!snapshot.data) {
    const core::SystemError reason = file.error.value_or(core::SystemError{0, snapshot.error});
    prompts_.Show(core::MakeMessage(core::MessageId::kFileRead, core::kProgramTitle,
                                    core::FileFacts(path, reason)));
    return false;
  }
  if (model_type && *model_type != snapshot.heading.model_type) {
    const auto [id, facts] =
        core::OtherModelOfSettings(snapshot.heading.model_type, core::ProfileOf(*model_type));
    prompts_.Show(core::MakeMessage(id, core::kProgramTitle, facts));
    return false;
  }
  data = *snapshot.data;
  return true;
}

// A file that cannot be read, or that names no model, goes on to the loader as if it were of the
// default model: it refuses the file in its own words.
bool Documents::LoadImageFile(const std::string& path, std::optional<std::int16_t> model_type,
                              core::RadioData& data) {
  if (!model_type) {
    const core::FileBytes file = services_.files.ReadFile(path);
    const files::ImageModel named = files::DetectImageModel(file.bytes);
    if (!file.error && !named.model_type) {
      prompts_.Show(named.refusal);
      return false;
    }
    model_type = named.model_type;
  }
  data = Fresh(model_type.value_or(core::kDefaultModelType));
  files::LoadHexFile(data, state_, path, services_.files, prompts_, log_);
  return !state_.Error;
}

bool Documents::LoadSettingFile(const std::string& path, std::optional<std::int16_t> model_type,
                                core::RadioData& data) {
  if (!model_type) model_type = ModelOfSettings(services_.files.ReadFile(path).bytes);
  data = Fresh(model_type.value_or(core::kDefaultModelType));
  files::ReadSettingFile(data, state_, path, services_.files, prompts_, services_.pump);
  return !state_.Error;
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
  if (extension == ".dat") return SaveSettingFile(path, data);
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
  if (Extension(path) == ".dat") {
    bytes = files::SettingFileText(radio);
  } else if (Extension(path) != ".hex") {
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
