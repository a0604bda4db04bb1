#pragma once

#include <QTimer>
#include <optional>

#include "core/services.h"

namespace orvane::platform {

/// The application's event loop, one pass at a time. Needs a QCoreApplication and belongs to its
/// thread. It sleeps in the system until a byte, a user event or the deadline comes, and adds no
/// delay of its own.
class QtEventPump : public core::EventPump {
 public:
  explicit QtEventPump(const core::Clock& clock);
  void WaitForEvents(double deadline) override;
  void ProcessEvents() override;

 private:
  void Arm(double deadline, double now);

  const core::Clock& clock_;
  QTimer alarm_;
  /// What the running alarm was set for. One wait asks for the same deadline byte after byte, so
  /// that the alarm is rarely set anew.
  std::optional<double> armed_for_;
};

}  // namespace orvane::platform
