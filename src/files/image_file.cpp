#include "files/image_file.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "core/model_profile.h"
#include "core/product.h"
#include "image/codec.h"
#include "image/image_check.h"

namespace orvane::files {
namespace {

constexpr std::string_view kBadFile = "bad file!!";
constexpr std::string_view kModelTypeError = "ModelType Error !!";
constexpr std::string_view kProductTypeError = "ProductType Error !!";

std::vector<std::uint8_t> ToBytes(std::string_view text) {
  std::vector<std::uint8_t> bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](char c) { return static_cast<std::uint8_t>(c); });
  return bytes;
}

std::string ToText(std::span<const std::uint8_t> bytes) {
  std::string text(bytes.size(), '\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(),
                 [](std::uint8_t byte) { return static_cast<char>(byte); });
  return text;
}

void ReportFailure(core::RadioData& data, const core::SystemError& error, std::string_view routine,
                   std::string_view text, const std::string& path, core::Prompts& prompts,
                   core::ErrorLog& log) {
  data.Flags.Cancel = true;
  log.Write(routine, std::to_string(error.number) + error.description);
  prompts.Show({.title = data.ProgramTitle,
                .text = std::string(text),
                .icon = core::Icon::kExclamation,
                .details = path + ": " + error.description});
}

void Refuse(core::RadioData& data, core::Prompts& prompts, std::string_view title,
            std::string_view text) {
  data.Flags.Error = true;
  prompts.Show(
      {.title = std::string(title), .text = std::string(text), .icon = core::Icon::kCritical});
}

/// Tells every fault. False when there is one.
bool BelongsToModel(core::RadioData& data, std::span<const std::uint8_t> bytes,
                    core::Prompts& prompts) {
  const image::ImageFaults faults = image::CheckImage(bytes, core::ProfileOf(data));
  if (faults.length) Refuse(data, prompts, data.ProgramTitle, kBadFile);
  if (faults.model) Refuse(data, prompts, core::kReadFromRadio, kModelTypeError);
  if (faults.product) Refuse(data, prompts, core::kReadFromRadio, kProductTypeError);
  return !faults.Any();
}

void LoadTestedFile(core::RadioData& data, const std::string& path, core::FileStore& store,
                    core::Prompts& prompts, core::ErrorLog& log) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const std::optional<std::uint64_t> length = store.FileSize(path);
  if (length && !core::ImageLengthMatches(profile, *length)) {
    Refuse(data, prompts, data.ProgramTitle, kBadFile);
    return;
  }
  const core::FileBytes file = store.ReadFile(path);
  if (file.error) {
    data.Flags.Error = true;
    ReportFailure(data, *file.error, "frmMain.ReadHexFileAs", "FileRead Error!!", path, prompts,
                  log);
    return;
  }
  const std::vector<std::uint8_t> bytes = ToBytes(file.bytes);
  if (!BelongsToModel(data, bytes, prompts)) return;

  core::RadioData fresh = data;
  fresh.Image.SetLastIndex(profile.LastIndex());
  std::copy(bytes.begin(), bytes.end(), fresh.Image.Used().begin());
  image::DecodeAll(fresh);
  fresh.ModelName = core::ModelDisplayName(fresh.MODELTYPE, image::Sel1(fresh.Image));
  data = std::move(fresh);
}

}  // namespace

void PrepareImageForSaving(core::RadioData& data, core::Date today) {
  image::EncodeAll(data, today);
  image::ConsistencyPass(data);
  image::StoreCommonChecksum(data.Image);
}

void SaveHexFileAs(core::RadioData& data, const std::string& path, core::FileStore& store,
                   core::Prompts& prompts, core::ErrorLog& log) {
  const core::Flag was_busy = std::exchange(data.Flags.Busy, true);
  const std::optional<core::SystemError> error = store.WriteFile(path, ToText(data.Image.Used()));
  data.Flags.Busy = was_busy;
  if (error) {
    ReportFailure(data, *error, "frmMain.SaveHexFileAs", "FileSave Error!!", path, prompts, log);
  }
}

void LoadHexFile(core::RadioData& data, const std::string& path, core::FileStore& store,
                 core::Prompts& prompts, core::ErrorLog& log) {
  data.Flags.Error = false;
  const core::Flag was_busy = std::exchange(data.Flags.Busy, true);
  LoadTestedFile(data, path, store, prompts, log);
  data.Flags.Busy = was_busy;
}

ImageModel DetectImageModel(std::string_view bytes) {
  const auto& profiles = core::ModelProfiles();
  const bool known_length =
      std::any_of(profiles.begin(), profiles.end(), [&](const core::ModelProfile& profile) {
        return core::ImageLengthMatches(profile, bytes.size());
      });
  if (!known_length) return {std::nullopt, kBadFile, core::kProgramTitle};
  const std::vector<std::uint8_t> image = ToBytes(bytes);
  const core::ModelProfile* const profile = image::NamedModel(image);
  if (profile == nullptr) return {std::nullopt, kModelTypeError, core::kReadFromRadio};
  const image::ImageFaults faults = image::CheckImage(image, *profile);
  if (faults.length) return {std::nullopt, kBadFile, core::kProgramTitle};
  if (faults.model) return {std::nullopt, kModelTypeError, core::kReadFromRadio};
  return {profile->model_type, {}, {}};
}

}  // namespace orvane::files
