#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/calendar.h"
#include "core/model_profile.h"
#include "core/radio_data.h"

/// Conversion between the memory image and the records, both ways. The layout tables drive both
/// directions, so that only bits that belong to a field ever change in the image.
namespace orvane::image {

/// Fills the image with the model's factory contents and decodes the usable groups and the
/// common, DSC and ATIS settings from it. Channel tables are left alone.
void MakeFreshImage(core::RadioData& data);

/// Image to records, everything the model has. The image is not changed.
void DecodeAll(core::RadioData& data);
/// What an image alone says of a data set: nothing that the image does not hold.
[[nodiscard]] std::unique_ptr<core::RadioData> Decoded(std::int16_t model_type,
                                                       const core::MemoryImage& image);
/// Image to the EXP/LMR table, with the LMR and EXP present flags.
void DecodeExtraChannels(core::RadioData& data);

/// Records to image. Also changes the records where the radio wants it so: channel names become
/// upper case, groups without channels are switched off (models with DSC). The date decides
/// whether the narrowband rule forces channels to narrow.
void EncodeAll(core::RadioData& data, core::Date today);

/// Repairs channel references in the image that point at channels that are not enabled. Run after
/// EncodeAll before the image leaves the program. Writes repaired priority channels back to the
/// usable groups.
void ConsistencyPass(core::RadioData& data);

/// Both: data and image are then as a radio takes them.
void EncodeForRadio(core::RadioData& data, core::Date today);

/// Sum of bytes 66..94 modulo 256; stands at byte 95 of a saved image file.
[[nodiscard]] std::uint8_t CommonChecksum(const core::MemoryImage& image);
void StoreCommonChecksum(core::MemoryImage& image);

/// Writes the model code at both of its places.
void StoreModelCodes(core::MemoryImage& image, const core::ModelProfile& profile);

/// Writes the product byte that the model's images must carry, where there is one. A fresh image
/// has none; one that came from a radio has it.
void StoreProduct(core::MemoryImage& image, const core::ModelProfile& profile);

/// Destination bits of the image.
[[nodiscard]] bool Sel1(const core::MemoryImage& image);
[[nodiscard]] bool Sel2(const core::MemoryImage& image);
void SetDestinationBits(core::MemoryImage& image, bool sel1, bool sel2);
/// Gives every marine record its copy of SEL1; due after each change of the destination bits.
void CopyPlanSelection(core::RadioData& data);

/// Display name of the data's model.
[[nodiscard]] std::string ModelName(const core::RadioData& data);

/// New: every record and the image of the current MODELTYPE at their defaults, nothing of the
/// data before kept.
void ResetToDefaults(core::RadioData& data, core::Date today);

}  // namespace orvane::image
