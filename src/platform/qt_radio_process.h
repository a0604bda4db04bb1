#pragma once

#include <QProcess>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "link/radio_process.h"

namespace orvane::platform {

/// Its standard input is a pipe of this process: the program ends when that does.
class QtRadioProcess final : public link::RadioProcess {
 public:
  /// folder: where the program is looked for.
  explicit QtRadioProcess(const std::string& folder);
  ~QtRadioProcess() override;

  [[nodiscard]] std::string WhyNone() const override;
  void Start(std::int16_t model_type, const std::vector<int>& numbers) override;
  [[nodiscard]] std::optional<int> PortNumber() const override { return port_number_; }
  [[nodiscard]] bool IsRunning() const override;
  [[nodiscard]] std::string WhyEnded() const override { return why_ended_; }
  void Stop() override;
  void WhenLost(std::function<void()> told) override { told_ = std::move(told); }

 private:
  void TakeOutput();
  void TakeEnd(const QString& system_reason);

  std::string path_;
  QProcess process_;
  std::optional<int> port_number_;
  std::string why_ended_;
  std::function<void()> told_;
};

}  // namespace orvane::platform
