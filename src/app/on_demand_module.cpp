#include "app/on_demand_module.h"

#include <QtGlobal>

#include "help/help_viewer.h"
#include "platform/qt_report_printer.h"

extern "C" {

Q_DECL_EXPORT orvane::help::HelpOpener* OrvaneMakeHelp(const std::string& help_file,
                                                       const std::string& cache_folder) {
  return new orvane::help::HelpViewer(help_file, cache_folder);
}

Q_DECL_EXPORT orvane::platform::ReportPrinter* OrvaneMakePrinter() {
  return new orvane::platform::QtReportPrinter;
}

}  // extern "C"
