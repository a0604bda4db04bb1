#include <QCoreApplication>
#include <QGuiApplication>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#ifdef Q_OS_UNIX
#include <unistd.h>
#else
#include <io.h>
#endif

#include "cli/options.h"
#include "cli/run.h"
#include "platform/file_error_log.h"
#include "platform/interrupts.h"
#include "platform/paths.h"
#include "platform/printed_report.h"
#include "platform/qt_clock.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_file_store.h"
#include "platform/qt_port_finder.h"
#include "platform/qt_serial_port.h"
#include "platform/system_devices.h"

namespace {

using namespace orvane;

bool IsTerminal(int descriptor) {
#ifdef Q_OS_UNIX
  return ::isatty(descriptor) == 1;
#else
  return ::_isatty(descriptor) != 0;
#endif
}

// What Qt notes about its surroundings is not for the user; messages come from the commands.
void KeepQuiet(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  if (type == QtFatalMsg) std::cerr << text.toStdString() << std::endl;
}

// Painting pages needs fonts, and with them the graphical half of Qt, but never a display.
std::unique_ptr<QCoreApplication> MakeApplication(int& argc, char** argv,
                                                  const std::vector<std::string>& words) {
  const bool paints = std::any_of(words.begin(), words.end(), [](const std::string& word) {
    return cli::Extension(word) == ".pdf";
  });
  if (!paints) return std::make_unique<QCoreApplication>(argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen");
  return std::make_unique<QGuiApplication>(argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  const std::vector<std::string> words(argv + 1, argv + argc);
  qInstallMessageHandler(KeepQuiet);
  const std::unique_ptr<QCoreApplication> application = MakeApplication(argc, argv, words);

  platform::QtFileStore files(platform::CopiesFolder());
  platform::QtClock clock;
  platform::QtEventPump pump(clock);
  platform::FileErrorLog log(platform::ErrorLogPath(), true);
  platform::QtPortFinder ports(platform::PortLinksFolder());
  platform::SystemDevices devices;
  platform::SignalInterrupts interrupts;
  cli::Services services{
      files,
      clock,
      pump,
      log,
      ports,
      interrupts,
      [](const std::string& device) { return std::make_unique<platform::QtSerialPort>(device); },
      [&clock](const core::RadioData& data) {
        return platform::PdfReport(data, {{}, clock.Today()});
      },
      {IsTerminal(0), IsTerminal(1), IsTerminal(2)},
      platform::BackupsFolder(),
      &devices,
      platform::MarksFolder()};
  return cli::Run(words, std::cin, std::cout, std::cerr, services);
}
