#pragma once

#include <QElapsedTimer>

#include "core/services.h"

namespace orvane::platform {

class QtClock : public core::Clock {
 public:
  QtClock() { elapsed_.start(); }
  [[nodiscard]] double Now() const override;
  [[nodiscard]] core::Date Today() const override;
  [[nodiscard]] std::string Timestamp() const override;
  void Pause(double seconds) override;

 private:
  QElapsedTimer elapsed_;
};

}  // namespace orvane::platform
