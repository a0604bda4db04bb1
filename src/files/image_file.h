#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"

/// Image files: the used bytes of a memory image, nothing before or after them. Destination
/// templates beside the program are image files too.
namespace orvane::files {

inline constexpr std::string_view kImageEnding = ".hex";

/// Encodes the records, repairs references, stores the checksum; afterwards data.Image is what
/// SaveHexFileAs writes.
void PrepareImageForSaving(core::RadioData& data, core::Date today);

/// The same for a data set out of a snapshot. What came from a radio goes out byte for byte:
/// encoding would change names, for one. The product byte, which a radio's memory has, is there in
/// any case: without it no reader takes the file.
void PrepareKeptImage(core::RadioData& data, core::Date today);
/// The bytes of the file that SaveHexFileAs writes.
[[nodiscard]] std::string ImageFileBytes(const core::RadioData& data);

/// Writes the image as it stands, whole or not at all. On failure: log line, "FileSave Error!!",
/// cancel flag. Busy while it runs.
void SaveHexFileAs(const core::RadioData& data, core::RunState& state, const std::string& path,
                   core::FileStore& store, core::Prompts& prompts, core::ErrorLog& log);

/// Loads an image file of the current model into image and records. Length, model and product are
/// tested first. Clears the error flag first; a refused file sets it, tells the user and changes
/// nothing else. A file that cannot be read also sets the cancel flag and is logged. Busy while it
/// runs.
void LoadHexFile(core::RadioData& data, core::RunState& state, const std::string& path,
                 core::FileStore& store, core::Prompts& prompts, core::ErrorLog& log);

/// Model named by the code at bytes 64-65 of an image file that has that model's length.
/// Otherwise the message that refuses it: "bad file!!" or "ModelType Error !!".
struct ImageModel {
  std::optional<std::int16_t> model_type;
  core::Message refusal{};
};
[[nodiscard]] ImageModel DetectImageModel(std::string_view bytes);

}  // namespace orvane::files
