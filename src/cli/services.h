#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/radio_data.h"
#include "core/services.h"
#include "link/doctor.h"
#include "link/port_list.h"
#include "link/serial_port.h"
#include "platform/interrupts.h"

namespace orvane::cli {

/// Which of the three streams is a terminal that a person looks at.
struct Terminals {
  bool in = false;
  bool out = false;
  bool err = false;
};

/// The world as the command line needs it. All of it outlives the run.
struct Services {
  core::FileStore& files;
  core::Clock& clock;
  core::EventPump& pump;
  core::ErrorLog& log;  ///< used in debug mode only
  link::PortFinder& ports;
  platform::Interrupts& interrupts;
  std::function<std::unique_ptr<link::SerialPort>(const std::string& device)> make_port;
  /// The printed report as PDF bytes, or why it cannot be made.
  std::function<core::FileBytes(const core::RadioData& data)> make_pdf;
  Terminals terminals;
  std::string backups_folder;            ///< of the backup library
  link::DeviceFacts* devices = nullptr;  ///< null: the system tells nothing about them
  std::string marks_folder{};            ///< of partly written radios
};

}  // namespace orvane::cli
