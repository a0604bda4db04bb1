#pragma once

#include <string>
#include <vector>

#include "core/memory_image.h"
#include "core/model_profile.h"
#include "image/bits.h"

namespace orvane::image {

/// A stretch of the memory that no record tells of, in which two images differ.
struct MemoryDifference {
  Bits bits;         ///< whole bytes, or at most 24 bits of one field
  std::string name;  ///< the layout's ("USA 3 stored channel"), else the address ("Memory 1F00")
  std::string ours;
  std::string theirs;
};

/// In address order. What decodes into the records or is written from them is left out, as are
/// model codes, checksum and whatever else radio and program write by themselves, and the memory
/// beyond the model's last byte.
[[nodiscard]] std::vector<MemoryDifference> MemoryDifferences(const core::ModelProfile& profile,
                                                              const core::MemoryImage& ours,
                                                              const core::MemoryImage& theirs);

/// The bits of another image, and no others. REQUIRES: bits of a MemoryDifference.
void CopyBits(core::MemoryImage& to, const core::MemoryImage& from, Bits bits);

}  // namespace orvane::image
