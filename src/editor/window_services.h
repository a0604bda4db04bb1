#pragma once

#include <string>

#include "core/app_settings.h"
#include "core/radio_data.h"
#include "core/services.h"
#include "link/port_list.h"
#include "platform/file_dialogs.h"

namespace orvane::editor {

class Commands;

/// What the main window is built from. Everything outlives the window.
struct WindowServices {
  core::RadioData& data;
  core::Prompts& prompts;
  core::Clock& clock;
  core::EventPump& pump;
  core::SettingsStore& settings;
  core::FileStore& files;
  core::ErrorLog& log;
  link::PortFinder& ports;
  platform::FileDialogs& dialogs;
  Commands* commands;          ///< null: their menu items are disabled
  std::string program_folder;  ///< where file dialogs start
  std::string data_folder;     ///< destination templates and logo
};

}  // namespace orvane::editor
