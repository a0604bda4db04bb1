#include "files/image_file.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/product.h"
#include "image/codec.h"
#include "image/image_check.h"

namespace orvane::files {
namespace {

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

void ReportFailure(core::RunState& state, const core::SystemError& error, std::string_view routine,
                   core::MessageId id, const std::string& path, core::Prompts& prompts,
                   core::ErrorLog& log) {
  state.Cancel = true;
  log.Write(routine, std::to_string(error.number) + error.description);
  prompts.Show(core::MakeMessage(id, core::kProgramTitle, core::FileFacts(path, error)));
}

core::Message LengthRefusal(std::uint64_t length, const core::ModelProfile* profile) {
  return core::MakeMessage(core::MessageId::kImageLength, core::kProgramTitle,
                           core::LengthFacts(length, profile));
}

core::Message ModelRefusal(core::CodePair codes, const core::ModelProfile* profile) {
  const core::MessageCase other = core::OtherModelOfImage(codes, profile);
  return core::MakeMessage(other.id, core::kReadFromRadio, other.facts);
}

core::Message ProductRefusal(std::uint8_t product, const core::ModelProfile& profile) {
  return core::MakeMessage(core::MessageId::kProductOfImage, core::kReadFromRadio,
                           core::ProductFacts(product, profile));
}

void Refuse(core::RunState& state, core::Prompts& prompts, const core::Message& refusal) {
  state.Error = true;
  prompts.Show(refusal);
}

/// Tells every fault. False when there is one.
bool BelongsToModel(const core::ModelProfile& profile, core::RunState& state,
                    std::span<const std::uint8_t> bytes, core::Prompts& prompts) {
  const image::ImageFaults faults = image::CheckImage(bytes, profile);
  if (faults.length) Refuse(state, prompts, LengthRefusal(bytes.size(), &profile));
  if (faults.model) Refuse(state, prompts, ModelRefusal(faults.codes, &profile));
  if (faults.product) Refuse(state, prompts, ProductRefusal(faults.product_byte, profile));
  return !faults.Any();
}

void LoadTestedFile(core::RadioData& data, core::RunState& state, const std::string& path,
                    core::FileStore& store, core::Prompts& prompts, core::ErrorLog& log) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const std::optional<std::uint64_t> length = store.FileSize(path);
  if (length && !core::ImageLengthMatches(profile, *length)) {
    Refuse(state, prompts, LengthRefusal(*length, &profile));
    return;
  }
  const core::FileBytes file = store.ReadFile(path);
  if (file.error) {
    state.Error = true;
    ReportFailure(state, *file.error, "frmMain.ReadHexFileAs", core::MessageId::kFileRead, path,
                  prompts, log);
    return;
  }
  const std::vector<std::uint8_t> bytes = ToBytes(file.bytes);
  if (!BelongsToModel(profile, state, bytes, prompts)) return;

  core::RadioData fresh = data;
  fresh.Image.SetLastIndex(profile.LastIndex());
  std::copy(bytes.begin(), bytes.end(), fresh.Image.Used().begin());
  image::DecodeAll(fresh);
  data = std::move(fresh);
}

}  // namespace

void PrepareImageForSaving(core::RadioData& data, core::Date today) {
  image::EncodeForRadio(data, today);
  image::StoreCommonChecksum(data.Image);
}

void PrepareKeptImage(core::RadioData& data, core::Date today) {
  if (*image::Decoded(data.MODELTYPE, data.Image) != data) PrepareImageForSaving(data, today);
  image::StoreProduct(data.Image, core::ProfileOf(data));
}

std::string ImageFileBytes(const core::RadioData& data) {
  return ToText(data.Image.Used());
}

void SaveHexFileAs(const core::RadioData& data, core::RunState& state, const std::string& path,
                   core::FileStore& store, core::Prompts& prompts, core::ErrorLog& log) {
  const core::BusyScope busy(state);
  const std::optional<core::SystemError> error = store.WriteFile(path, ImageFileBytes(data));
  if (error) {
    ReportFailure(state, *error, "frmMain.SaveHexFileAs", core::MessageId::kFileSave, path, prompts,
                  log);
  }
}

void LoadHexFile(core::RadioData& data, core::RunState& state, const std::string& path,
                 core::FileStore& store, core::Prompts& prompts, core::ErrorLog& log) {
  state.Error = false;
  const core::BusyScope busy(state);
  LoadTestedFile(data, state, path, store, prompts, log);
}

ImageModel DetectImageModel(std::string_view bytes) {
  const core::ModelProfile* same_length = nullptr;
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    if (core::ImageLengthMatches(profile, bytes.size())) same_length = &profile;
  }
  if (same_length == nullptr) return {std::nullopt, LengthRefusal(bytes.size(), nullptr)};
  const std::vector<std::uint8_t> image = ToBytes(bytes);
  const core::ModelProfile* const named = image::NamedModel(image);
  const core::ModelProfile& profile = named != nullptr ? *named : *same_length;
  const image::ImageFaults faults = image::CheckImage(image, profile);
  if (faults.length) return {std::nullopt, LengthRefusal(bytes.size(), &profile)};
  if (faults.model) return {std::nullopt, ModelRefusal(faults.codes, nullptr)};
  return {profile.model_type};
}

}  // namespace orvane::files
