#include "files/data_file.h"

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/product.h"
#include "core/text.h"
#include "document/document.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "files/snapshot.h"

namespace orvane::files {
namespace {

using core::RadioData;

std::optional<std::int16_t> ModelOfSettings(std::string_view text) {
  const std::optional<double> named = SettingFileModel(text);
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    if (named == profile.model_type) return profile.model_type;
  }
  return std::nullopt;
}

bool ReadSnapshot(const std::string& path, std::optional<std::int16_t> model_type, RadioData& data,
                  const DataFileServices& services) {
  const core::FileBytes file = services.files.ReadFile(path);
  const Snapshot snapshot = file.error ? Snapshot{} : ParseSnapshot(file.bytes);
  if (!snapshot.data) {
    const core::SystemError reason = file.error.value_or(core::SystemError{0, snapshot.error});
    services.prompts.Show(core::MakeMessage(core::MessageId::kFileRead, core::kProgramTitle,
                                            core::FileFacts(path, reason)));
    return false;
  }
  if (model_type && *model_type != snapshot.heading.model_type) {
    const auto [id, facts] =
        core::OtherModelOfSettings(snapshot.heading.model_type, core::ProfileOf(*model_type));
    services.prompts.Show(core::MakeMessage(id, core::kProgramTitle, facts));
    return false;
  }
  data = *snapshot.data;
  return true;
}

// A file that cannot be read, or that names no model, goes on to the loader as if it were of the
// default model: it refuses the file in its own words.
bool ReadImage(const std::string& path, std::optional<std::int16_t> model_type, RadioData& data,
               const DataFileServices& services) {
  if (!model_type) {
    const core::FileBytes file = services.files.ReadFile(path);
    const ImageModel named = DetectImageModel(file.bytes);
    if (!file.error && !named.model_type) {
      services.prompts.Show(named.refusal);
      return false;
    }
    model_type = named.model_type;
  }
  data = document::NewContents(model_type.value_or(core::kDefaultModelType), services.today).data;
  LoadHexFile(data, services.state, path, services.files, services.prompts, services.log);
  return !services.state.Error;
}

bool ReadSettings(const std::string& path, std::optional<std::int16_t> model_type, RadioData& data,
                  const DataFileServices& services) {
  if (!model_type) model_type = ModelOfSettings(services.files.ReadFile(path).bytes);
  data = document::NewContents(model_type.value_or(core::kDefaultModelType), services.today).data;
  ReadSettingFile(data, services.state, path, services.files, services.prompts, services.pump);
  return !services.state.Error;
}

}  // namespace

bool ReadDataFile(const std::string& path, std::optional<std::int16_t> model_type, RadioData& data,
                  const DataFileServices& services) {
  const std::string extension = core::Extension(path);
  if (extension == kSnapshotEnding) return ReadSnapshot(path, model_type, data, services);
  return extension == kSettingsEnding ? ReadSettings(path, model_type, data, services)
                                      : ReadImage(path, model_type, data, services);
}

}  // namespace orvane::files
