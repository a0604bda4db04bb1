#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "core/model_profile.h"
#include "image/codec.h"
#include "image/sample_radio.h"

namespace orvane::fuzz {

inline constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6},
                                   std::chrono::day{15}};
inline constexpr std::size_t kModels = 7;

/// Where an image starts before it is patched: a new data set, a radio in use, erased memory, or a
/// radio in use of whose channels hardly any is programmed.
enum class Start { kNew, kUsed, kErased, kBare };
inline constexpr std::size_t kStarts = 4;

/// The first byte of an input: the model, and a number that the target gives a meaning.
struct Choice {
  explicit Choice(std::span<const std::uint8_t> input)
      : model((input.empty() ? 0U : input[0]) % kModels),
        rest((input.empty() ? 0U : input[0]) / kModels) {}

  std::size_t model;
  std::size_t rest;  ///< 0..36
};

template <class Table>
void KeepFirstChannel(Table& table) {
  bool first = true;
  for (core::ChannelRecord& channel : table) {
    channel.Enable = first;
    first = false;
  }
}

inline core::RadioData MakeStart(std::size_t model, Start start) {
  core::RadioData data;
  data.MODELTYPE = static_cast<std::int16_t>(model);
  if (start == Start::kUsed || start == Start::kBare) {
    data = image::MakeSampleRadio(data.MODELTYPE, kToday);
  } else {
    image::ResetToDefaults(data, kToday);
  }
  if (start == Start::kErased) {
    for (std::uint8_t& byte : data.Image.All()) byte = 0xFF;
  }
  if (start == Start::kBare) {
    for (core::MarineTable& table : data.Marine) KeepFirstChannel(table);
    KeepFirstChannel(data.EXP);
    image::EncodeAll(data, kToday);
  }
  return data;
}

/// A data set with any image of any model; its records do not belong to the image yet. Behind the
/// first byte three bytes each change the image: address, high byte first, and value. So a short
/// input reaches every byte, and one changed byte of the input moves one field.
///
/// The data set is used again for the next input of that model and start: a copy of all records
/// takes as long as decoding them, and decoding fills each that depends on the image anew.
inline core::RadioData& PatchedImage(std::size_t model, Start start,
                                     std::span<const std::uint8_t> input) {
  struct Prepared {
    core::MemoryImage image;
    core::RadioData data;
  };
  static const auto prepared = [] {
    static std::array<std::array<Prepared, kStarts>, kModels> made;
    for (std::size_t m = 0; m < kModels; ++m) {
      for (std::size_t s = 0; s < kStarts; ++s) {
        made[m][s].data = MakeStart(m, static_cast<Start>(s));
        made[m][s].image = made[m][s].data.Image;
      }
    }
    return std::span(made);
  }();
  Prepared& chosen = prepared[model][static_cast<std::size_t>(start)];
  chosen.data.Image = chosen.image;
  for (std::size_t i = 1; i + 2 < input.size(); i += 3) {
    const int address = (input[i] << 8 | input[i + 1]) % core::MemoryImage::kSize;
    chosen.data.Image[address] = input[i + 2];
  }
  return chosen.data;
}

}  // namespace orvane::fuzz
