#pragma once

#include <string>
#include <string_view>

#include "core/services.h"

namespace orvane::platform {

/// Appends to err.log in debug mode, otherwise never touches the file. The folder is created. A
/// log that cannot be written is no failure of what it reports about.
class FileErrorLog : public core::ErrorLog {
 public:
  FileErrorLog(std::string path, bool debug) : path_(std::move(path)), debug_(debug) {}
  /// Date and time in the short and long form of the user's locale. Line breaks in the message
  /// become blanks: an entry is one line.
  void Write(std::string_view routine, std::string_view message) override;

 private:
  std::string path_;
  bool debug_;
};

}  // namespace orvane::platform
