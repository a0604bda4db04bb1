#pragma once

#include <QString>
#include <cstdint>
#include <memory>

#include "core/radio_data.h"

namespace orvane::editor {

/// What stands on one side of a comparison.
struct ComparedData {
  enum class Kind : std::uint8_t { kNone, kOpenData, kFile, kBackup, kRadio };

  Kind kind = Kind::kNone;
  QString title{};  ///< "boat.dat", "Backup of 2026-11-24 11:12:13"; "" for none and the open data
  QString about{};  ///< full path, or where it came from
  /// Null for none, and for the open data, which are the document's.
  std::shared_ptr<const core::RadioData> data{};

  [[nodiscard]] bool IsOpenData() const { return kind == Kind::kOpenData; }
};

}  // namespace orvane::editor
