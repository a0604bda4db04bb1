#include <QApplication>
#include <QFileInfo>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "app/on_demand.h"
#include "core/app_settings.h"
#include "core/product.h"
#include "editor/main_window.h"
#include "editor/program_style.h"
#include "editor/window_commands.h"
#include "platform/ansi_text.h"
#include "platform/file_dialogs.h"
#include "platform/file_error_log.h"
#include "platform/interrupts.h"
#include "platform/message_box_prompts.h"
#include "platform/paths.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_file_store.h"
#include "platform/qt_port_finder.h"
#include "platform/qt_radio_process.h"
#include "platform/qt_recovery_store.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_settings_store.h"
#include "platform/system_devices.h"

namespace {

/// What follows the program's name.
std::vector<std::string> ArgumentsOf(const QStringList& arguments) {
  std::vector<std::string> texts;
  for (const QString& argument : arguments.mid(1)) {
    texts.push_back(orvane::platform::ToUtf8(argument));
  }
  return texts;
}

constexpr int kWrongUsage = 2;

constexpr const char* kHelpText =
    "Usage: orvane [/D] [--read] [--simulated-radio] [FILE]\n"
    "Opens the window that programs the radios of the KT740 series, and the file in it.\n\n"
    "  /D                 debug mode: image files by Ctrl+F2 and Ctrl+F3, failures written to "
    "err.log\n"
    "  --read             goes on to reading a radio\n"
    "  --simulated-radio  starts a simulated radio and chooses its port\n"
    "  --help             this text\n"
    "  --version          the program's version\n\n"
    "Options of Qt, such as -style and -platform, are taken too. orvane-cli does without a "
    "window.\n";

/// The text asked for in place of a window. That needs no display, so it is told apart before one
/// is looked for.
std::string TextInsteadOfWindow(int argc, char** argv) {
  QStringList arguments;
  for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
  const orvane::core::StartWords words = orvane::core::ReadStartWords(ArgumentsOf(arguments));
  if (words.help) return kHelpText;
  if (!words.version) return {};
  return std::string(orvane::core::kProductName) + " " + ORVANE_VERSION + "\n";
}

void TellUnknown(const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    std::cerr << "orvane: \"" << word << "\" is not known and is ignored; see orvane --help."
              << std::endl;
  }
}

}  // namespace

int main(int argc, char** argv) {
  namespace platform = orvane::platform;
  const std::string text = TextInsteadOfWindow(argc, argv);
  if (!text.empty()) {
    std::cout << text << std::flush;
    return std::cout.good() ? 0 : 1;
  }
  QApplication application(argc, argv);
  QApplication::setStyle(new orvane::editor::ProgramStyle);
  QApplication::setApplicationName(QLatin1String(orvane::core::kProductName.data()));
  QApplication::setDesktopFileName(QStringLiteral("orvane"));  // the menu entry, whose icon it has

  const orvane::core::StartWords words =
      orvane::core::ReadStartWords(ArgumentsOf(QApplication::arguments()));
  TellUnknown(words.unknown);
  if (!words.refused.empty()) {
    std::cerr << "orvane: only one file can be opened; see orvane --help." << std::endl;
    return kWrongUsage;
  }
  orvane::document::Document document(std::make_unique<orvane::document::Contents>());
  orvane::core::RunState state;
  state.Debug = words.debug;

  platform::MessageBoxPrompts prompts;
  platform::QtClock clock;
  platform::QtEventPump pump(clock);
  platform::QtSettingsStore settings(platform::SettingsPath());
  platform::QtFileStore files(platform::CopiesFolder());
  platform::FileErrorLog log(platform::ErrorLogPath(), state.Debug);
  platform::QtPortFinder ports(platform::PortLinksFolder());
  platform::SystemDevices devices;
  platform::QtRadioProcess radio(platform::ProgramFolder());
  platform::QtFileDialogs dialogs;

  platform::QtRecoveryStore recovery(platform::RecoveryFolder());
  platform::DesktopInterrupts interrupts;
  orvane::app::OnDemand on_demand;
  orvane::app::PrinterOnDemand printer(on_demand);
  orvane::app::HelpOnDemand help(on_demand, platform::DataFolder() + "/Orvane.qch",
                                 platform::CacheFolder());

  const auto make_port = [&ports](int number) {
    return std::make_unique<platform::QtSerialPort>(platform::DeviceOfPort(ports, number));
  };
  const orvane::editor::WindowServices services{.document = document,
                                                .state = state,
                                                .prompts = prompts,
                                                .clock = clock,
                                                .pump = pump,
                                                .settings = settings,
                                                .files = files,
                                                .log = log,
                                                .ports = ports,
                                                .dialogs = dialogs,
                                                .make_port = make_port,
                                                .printer = printer,
                                                .help = &help,
                                                .recovery = &recovery,
                                                .interrupts = &interrupts,
                                                .program_folder = platform::ProgramFolder(),
                                                .backups_folder = platform::BackupsFolder(),
                                                .previous_folder = platform::PreviousFolder(),
                                                .marks_folder = platform::MarksFolder(),
                                                .data_folder = platform::DataFolder(),
                                                .devices = &devices,
                                                .radio = &radio};
  orvane::editor::MainWindow window(services);
  window.show();
  if (!words.file.empty()) {
    window.OpenAtStart(
        platform::ToUtf8(QFileInfo(platform::FromUtf8(words.file)).absoluteFilePath()));
  }
  if (words.simulated_radio) window.TrySimulatedRadioAtStart();
  if (words.read) window.ReadAtStart();
  return QApplication::exec();
}
