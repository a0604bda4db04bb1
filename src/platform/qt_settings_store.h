#pragma once

#include <QSettings>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/services.h"

namespace orvane::platform {

/// The user's settings in one INI file (UTF-8), which several programs may use at once: what the
/// others have written is seen. A file that cannot be read counts as empty; one that cannot be
/// written keeps the values for this run only.
class QtSettingsStore : public core::SettingsStore {
 public:
  explicit QtSettingsStore(const std::string& path);
  [[nodiscard]] std::optional<std::string> Read(std::string_view section,
                                                std::string_view key) const override;
  void WriteAll(const std::vector<core::SettingsEntry>& entries) override;

 private:
  mutable QSettings settings_;  // reading looks whether the file is another one
};

}  // namespace orvane::platform
