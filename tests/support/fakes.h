#pragma once

#include <algorithm>
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/services.h"
#include "support/dates.h"

/// Scripted stand-ins for the services. No time passes and nothing touches the disk.
namespace orvane::testing {

/// Records every message; answers from the script, then with the fallback.
class ScriptedPrompts : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override {
    messages.push_back(message);
    if (answers.empty()) return fallback;
    const core::Answer answer = answers.front();
    answers.pop_front();
    return answer;
  }
  [[nodiscard]] std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const core::Message& message : messages) texts.push_back(message.text);
    return texts;
  }

  std::vector<core::Message> messages;
  std::deque<core::Answer> answers;
  core::Answer fallback = core::Answer::kOk;
};

/// Time moves only when something waits or pauses.
class ManualClock : public core::Clock {
 public:
  [[nodiscard]] double Now() const override { return now; }
  [[nodiscard]] core::Date Today() const override { return today; }
  [[nodiscard]] std::string Timestamp() const override {
    return "2026-11-24 " + time_of_day + ":12";
  }
  void Pause(double seconds) override { now += seconds; }

  double now = 1000;
  core::Date today = kAfterCutOver;
  std::string time_of_day = "14:02";
};

/// Waiting jumps the clock just past the deadline, unless the hook (a simulated device) has
/// something that happens earlier: it gets the deadline and returns the time to move to, or
/// nothing.
class ManualPump : public core::EventPump {
 public:
  explicit ManualPump(ManualClock& clock) : clock_(clock) {}
  void WaitForEvents(double deadline) override {
    ++waits;
    if (on_wait) {
      if (const std::optional<double> until = on_wait(deadline)) {
        if (*until > clock_.now) clock_.now = *until;
        return;
      }
    }
    if (clock_.now <= deadline) clock_.now = deadline + 0.001;
  }
  void ProcessEvents() override {
    ++yields;
    if (on_yield) on_yield();
  }

  std::function<std::optional<double>(double deadline)> on_wait;
  std::function<void()> on_yield;
  int waits = 0;
  int yields = 0;

 private:
  ManualClock& clock_;
};

class MemorySettings : public core::SettingsStore {
 public:
  [[nodiscard]] std::optional<std::string> Read(std::string_view section,
                                                std::string_view key) const override {
    const auto it = values.find({std::string(section), std::string(key)});
    if (it == values.end()) return std::nullopt;
    return it->second;
  }
  void WriteAll(const std::vector<core::SettingsEntry>& entries) override {
    for (const auto& entry : entries) values[{entry.section, entry.key}] = entry.value;
    if (on_write) on_write();
  }

  std::function<void()> on_write;  ///< the values are on the disk

  std::map<std::pair<std::string, std::string>, std::string> values;
};

/// Files by full path. A path in `failing` can be neither read nor written.
class MemoryFiles : public core::FileStore {
 public:
  [[nodiscard]] core::FileBytes ReadFile(const std::string& path) override {
    if (on_use) on_use();
    const auto it = files.find(path);
    if (failing.contains(path)) return {failing[path], {}};
    if (it == files.end()) return {core::SystemError{2, "No such file or directory"}, {}};
    return {std::nullopt, it->second};
  }
  [[nodiscard]] core::FileBytes ReadStart(const std::string& path, std::size_t most) override {
    core::FileBytes file = ReadFile(path);
    file.bytes.resize(std::min(file.bytes.size(), most));
    return file;
  }
  [[nodiscard]] std::optional<std::uint64_t> FileSize(const std::string& path) override {
    const auto it = files.find(path);
    if (it == files.end()) return std::nullopt;
    return it->second.size();
  }
  [[nodiscard]] std::optional<core::SystemError> WriteFile(const std::string& path,
                                                           std::string_view bytes) override {
    if (on_use) on_use();
    if (failing.contains(path)) return failing[path];
    files[path] = std::string(bytes);
    return std::nullopt;
  }
  [[nodiscard]] std::optional<core::SystemError> CheckWritable(const std::string& path) override {
    if (failing.contains(path)) return failing[path];
    return std::nullopt;
  }
  [[nodiscard]] std::vector<std::string> ListFolder(const std::string& folder) override {
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files) {
      if (path.size() > folder.size() + 1 && path.starts_with(folder + "/")) {
        names.push_back(path.substr(folder.size() + 1));
      }
    }
    return names;
  }
  [[nodiscard]] std::optional<core::SystemError> MakeFolder(const std::string& folder) override {
    if (failing.contains(folder)) return failing[folder];
    return std::nullopt;
  }
  [[nodiscard]] std::optional<core::SystemError> RemoveFile(const std::string& path) override {
    if (failing.contains(path)) return failing[path];
    files.erase(path);
    return std::nullopt;
  }

  std::map<std::string, std::string> files;
  std::map<std::string, core::SystemError> failing;
  std::function<void()> on_use;  ///< when a file is read or written
};

class RecordingLog : public core::ErrorLog {
 public:
  void Write(std::string_view routine, std::string_view message) override {
    lines.push_back(std::string(routine) + " -> " + std::string(message));
  }

  std::vector<std::string> lines;
};

}  // namespace orvane::testing
