#pragma once

#include <span>

#include "core/catalogue.h"
#include "core/model_profile.h"
#include "core/radio_data.h"

/// Data from a settings file, and what the file had no place for.
namespace orvane::link {

/// Whether radios of the model hold anything that their settings file has no place for: DSC and
/// MMSI, directories, call signs; of extra channels without tones names, scrambler and width; of
/// channels without names the scrambler.
[[nodiscard]] bool FileLacksSomething(const core::ModelProfile& profile);

/// Gives data that came from a settings file everything else as the radio has it: those fields, and
/// the memory that neither records nor the file hold. To be encoded afterwards. The group
/// directory, which no read covers, stays the data's, and so do the fields named. REQUIRES: both
/// are of one model.
void FillFromRadio(core::RadioData& data, const core::RadioData& radio,
                   std::span<const core::FieldRef> but_not = {});

}  // namespace orvane::link
