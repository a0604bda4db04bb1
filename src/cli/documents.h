#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "cli/services.h"
#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"
#include "files/snapshot.h"

namespace orvane::cli {

/// Data sets in files, by extension: .dat settings file, .hex image file (.ini: a destination
/// template, which is one too), .orvsnap snapshot, .txt report, .pdf printed report. Failures have
/// been told when a call returns false.
class Documents {
 public:
  Documents(Services& services, core::Prompts& prompts, core::ErrorLog& log, core::RunState& state)
      : services_(services), prompts_(prompts), log_(log), state_(state) {}

  [[nodiscard]] core::RadioData Fresh(std::int16_t model_type) const;
  /// See files::ReadDataFile.
  [[nodiscard]] bool Load(const std::string& path, std::optional<std::int16_t> model_type,
                          core::RadioData& data);
  /// Whether Save could write there.
  [[nodiscard]] bool CheckOutput(const std::string& path, const core::RadioData& data);
  [[nodiscard]] bool Save(const std::string& path, core::RadioData& data);
  /// Nothing encoded, nothing repaired.
  [[nodiscard]] bool SaveSnapshot(const std::string& path, const core::RadioData& data,
                                  const files::SnapshotHeading& heading);
  /// What a radio held, by extension: .hex the memory as it was read, .dat, else a snapshot. The
  /// failure has not been told.
  [[nodiscard]] std::optional<core::SystemError> SaveCopy(const std::string& path,
                                                          const core::RadioData& radio,
                                                          const files::SnapshotHeading& heading);
  /// Text that is no data set.
  [[nodiscard]] bool SaveText(const std::string& path, const std::string& text);
  /// The image as it stands.
  [[nodiscard]] bool SaveImage(const std::string& path, core::RadioData& data);

 private:
  [[nodiscard]] bool SaveSettingFile(const std::string& path, core::RadioData& data);
  [[nodiscard]] bool SaveBytes(const std::string& path, const core::RadioData& data,
                               const core::FileBytes& made);
  void TellSaveFailure(const std::string& path, const core::RadioData& data,
                       const core::SystemError& error);

  Services& services_;
  core::Prompts& prompts_;
  core::ErrorLog& log_;
  core::RunState& state_;
};

/// The report as it is saved: the text and one line break.
[[nodiscard]] std::string ReportFileText(const core::RadioData& data);

}  // namespace orvane::cli
