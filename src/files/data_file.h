#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "core/calendar.h"
#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"

/// A data set in whichever file holds one, by the ending of its name in either letter case: .dat a
/// settings file, .orvsnap a snapshot, anything else an image.
namespace orvane::files {

/// What reading takes beside the path. Everything outlives the call.
struct DataFileServices {
  core::RunState& state;
  core::FileStore& files;
  core::Prompts& prompts;
  core::EventPump& pump;
  core::ErrorLog& log;
  core::Date today;
};

/// Of the given model, else of the one that the file names. What the file does not hold is as in a
/// fresh data set. False when it cannot be read or is of another model, which has been told; the
/// data is then not to be used.
[[nodiscard]] bool ReadDataFile(const std::string& path, std::optional<std::int16_t> model_type,
                                core::RadioData& data, const DataFileServices& services);

}  // namespace orvane::files
