#include <algorithm>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "image/codec.h"
#include "image/decode_settings.h"
#include "image/layout_fresh.h"
#include "image/layout_places.h"

namespace orvane::image {
namespace {

constexpr std::uint8_t kErased = 255;

void WriteFreshBytes(core::MemoryImage& image, const core::ModelProfile& profile) {
  for (const layout::FreshRun& run : layout::kFreshRuns) {
    std::copy_n(run.bytes.begin(), run.length, image.All().begin() + run.offset);
  }
  for (const layout::FreshFill& fill : layout::kFreshFills) {
    if ((fill.models >> profile.model_type & 1) == 0) continue;
    for (int i = fill.offset; i < fill.offset + fill.length; ++i) {
      image[i] = static_cast<std::uint8_t>((image[i] & fill.keep) | fill.set);
    }
  }
}

}  // namespace

void StoreModelCodes(core::MemoryImage& image, const core::ModelProfile& profile) {
  std::uint8_t* const bytes = image.All().data();
  WriteBits(bytes, places::kModelCode, profile.code);
  WriteBits(bytes, places::kModelCodeFromEnd.MovedBy(profile.image_size), profile.code);
}

void StoreProduct(core::MemoryImage& image, const core::ModelProfile& profile) {
  if (profile.product_byte) WriteBits(image.All().data(), places::kProduct, *profile.product_byte);
}

void MakeFreshImage(core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  std::fill(data.Image.All().begin(), data.Image.All().end(), kErased);
  data.Image.SetLastIndex(profile.LastIndex());
  WriteFreshBytes(data.Image, profile);
  StoreModelCodes(data.Image, profile);
  DecodeSettings(data);
}

void ResetToDefaults(core::RadioData& data, core::Date today) {
  const std::int16_t model_type = data.MODELTYPE;
  data = {};
  data.MODELTYPE = model_type;

  for (const core::MarineGroup group : core::kMarineGroups) {
    core::ResetMarineTable(group, data.Table(group));
  }
  core::ResetWxTable(data.WX);
  MakeFreshImage(data);
  DecodeExtraChannels(data);
  EncodeAll(data, today);
  CopyPlanSelection(data);
}

std::string ModelName(const core::RadioData& data) {
  return core::ModelDisplayName(data.MODELTYPE, Sel1(data.Image));
}

void CopyPlanSelection(core::RadioData& data) {
  const core::Flag selected = Sel1(data.Image);
  for (core::MarineTable& table : data.Marine) {
    for (core::ChannelRecord& channel : table) channel.SelectedPlan = selected;
  }
}

bool Sel1(const core::MemoryImage& image) {
  return ReadBits(image.All().data(), places::kSel1) != 0;
}

bool Sel2(const core::MemoryImage& image) {
  return ReadBits(image.All().data(), places::kSel2) != 0;
}

void SetDestinationBits(core::MemoryImage& image, bool sel1, bool sel2) {
  WriteBits(image.All().data(), places::kSel1, sel1 ? 1 : 0);
  WriteBits(image.All().data(), places::kSel2, sel2 ? 1 : 0);
}

std::uint8_t CommonChecksum(const core::MemoryImage& image) {
  unsigned sum = 0;
  for (int i = places::kCommonSettings.FirstByte(); i <= places::kCommonSettings.LastByte(); ++i) {
    sum += image[i];
  }
  return static_cast<std::uint8_t>(sum);
}

void StoreCommonChecksum(core::MemoryImage& image) {
  WriteBits(image.All().data(), places::kCommonChecksum, CommonChecksum(image));
}

}  // namespace orvane::image
