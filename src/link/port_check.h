#pragma once

#include <string>

#include "core/model_profile.h"
#include "core/run_state.h"
#include "core/services.h"
#include "link/doctor.h"
#include "link/serial_port.h"

namespace orvane::link {

/// Tests one port up to the radio at its end: who has it, whether it opens, whether the cable sends
/// back what is sent, whether a radio answers and of which model it is.
///
/// A port that another program has open is not touched. Nothing is ever written into the radio: it
/// is asked for its state and for the codes of its model, then told to give up, so that a transfer
/// can follow. The port is closed afterwards. The program's run state stays as it is.
class PortCheck {
 public:
  struct Services {
    core::Clock& clock;
    core::EventPump& pump;  ///< processes events during every wait
    core::ErrorLog& log;
    DeviceFacts* devices;  ///< null: the system tells nothing
  };
  explicit PortCheck(const Services& services) : services_(services) {}

  /// Never throws. device: what the port opens; wanted: as with Diagnose().
  [[nodiscard]] Diagnosis Run(SerialPort& port, const std::string& device,
                              const core::ModelProfile* wanted);
  /// Ends the run at its next wait.
  void Cancel();

 private:
  void TryPort(SerialPort& port, const core::ModelProfile* wanted, Observations& seen);

  const Services services_;
  core::RunState state_;
  bool cancelled_ = false;
};

}  // namespace orvane::link
