#pragma once

#include <string>

#include "help/help_opener.h"
#include "platform/report_printer.h"

/// What the module offers to the program. Both are built together, by one compiler.
namespace orvane::app {

/// The caller owns what is made.
using MakeHelpFunction = help::HelpOpener* (*)(const std::string& help_file,
                                               const std::string& cache_folder);
inline constexpr const char* kMakeHelp = "OrvaneMakeHelp";
using MakePrinterFunction = platform::ReportPrinter* (*)();
inline constexpr const char* kMakePrinter = "OrvaneMakePrinter";

}  // namespace orvane::app
