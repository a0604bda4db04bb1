#pragma once

#include <cstdint>
#include <string>

#include "editor/command_host.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// The commands of the File menu that take a table to a spreadsheet and back.
class TableCommands {
 public:
  TableCommands(const WindowServices& services, CommandHost& host)
      : services_(services), host_(host) {}

  /// Asks for table and file; the data stay as they are.
  void ExportTable();
  /// Asks for the file, shows what it would change and takes that over as one step.
  void ImportTable();

 private:
  /// The table that the page on show is about, or the first channel table.
  [[nodiscard]] std::uint8_t ShownTable() const;
  /// The one that the file seems to be meant for; among several that fit, the one on show.
  [[nodiscard]] std::uint8_t TableFor(const std::string& bytes) const;

  const WindowServices services_;
  CommandHost& host_;
};

}  // namespace orvane::editor
