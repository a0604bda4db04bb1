#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/radio_data.h"
#include "core/run_state.h"
#include "files/settings_file.h"
#include "support/fakes.h"
#include "support/image_fixtures.h"

namespace orvane::testing {

/// A settings file and everything that reading and writing it needs.
class SettingsFileBench {
 public:
  static core::RadioData Fresh(int model) { return NewData(model); }
  void Read(core::RadioData& data) {
    files::ReadSettingFile(data, state, kPath, files, prompts, pump);
  }

  static constexpr const char* kPath = "/boat.dat";
  core::RunState state;
  ManualClock clock;
  ManualPump pump{clock};
  ScriptedPrompts prompts;
  MemoryFiles files;
};

/// Without their CR LF, which every one must have.
inline std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    EXPECT_NE(end, std::string::npos) << "last line not ended";
    if (end == std::string::npos) break;
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

/// Lines of one section, "|" between them.
inline std::string SectionText(const std::string& text, const std::string& name) {
  std::string result;
  bool inside = false;
  for (const std::string& line : Lines(text)) {
    if (inside && line.starts_with("[")) break;
    if (inside) result += (result.empty() ? "" : "|") + line;
    inside = inside || line == "[" + name + "]";
  }
  return result;
}

}  // namespace orvane::testing
