#pragma once

#include "core/model_profile.h"

/// Who has a field: the words in which the catalogue, the memory and the settings file say it.
namespace orvane::core {

/// What a model must have.
enum class When {
  kAlways,
  kDsc,
  kAtisCallSigns,
  kDscOnly,
  kNames,
  kTones,
  kCodeAtStart,
  kFullImage
};

[[nodiscard]] constexpr bool Has(const ModelProfile& profile, When when) {
  switch (when) {
    case When::kAlways:
      return true;
    case When::kDsc:
      return profile.has_dsc;
    case When::kAtisCallSigns:
      return profile.has_call_signs;
    case When::kDscOnly:
      return profile.has_dsc && !profile.has_call_signs;
    case When::kNames:
      return profile.has_channel_names;
    case When::kTones:
      return profile.HasTones();
    case When::kCodeAtStart:
      return profile.radio_code_address == 0;
    case When::kFullImage:
      return profile.image_size == MemoryImage::kSize;
  }
  return false;
}

/// Channel tables share one record, but not each field of it.
enum class TableKind { kOnce, kMarine, kWeather, kExtra, kDirectory, kMemory };

/// The channel tables that have a field.
enum class Tables { kEvery, kMarine, kExtra, kTransmitting, kMarineAndWeather };

/// Tables of other kinds have all their fields.
[[nodiscard]] constexpr bool Has(TableKind kind, Tables tables) {
  switch (kind) {
    case TableKind::kMarine:
      return tables != Tables::kExtra;
    case TableKind::kWeather:
      return tables == Tables::kEvery || tables == Tables::kMarineAndWeather;
    case TableKind::kExtra:
      return tables != Tables::kMarine && tables != Tables::kMarineAndWeather;
    default:
      return true;
  }
}

struct Presence {
  When when = When::kAlways;
  Tables tables = Tables::kEvery;

  [[nodiscard]] constexpr bool In(const ModelProfile& profile, TableKind kind) const {
    return Has(profile, when) && Has(kind, tables);
  }
};

}  // namespace orvane::core
