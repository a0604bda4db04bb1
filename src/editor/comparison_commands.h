#pragma once

#include <QAction>
#include <QList>
#include <QPointer>

#include "editor/command_host.h"
#include "editor/comparison_sources.h"
#include "editor/comparison_window.h"
#include "editor/window_services.h"
#include "files/snapshot.h"

namespace orvane::editor {

/// The commands that compare. There is one comparison at a time, in a window beside the main one,
/// which goes with this object.
class ComparisonCommands {
 public:
  /// in_window_too: commands of the main window that its keys shall reach from the comparison.
  ComparisonCommands(const WindowServices& services, CommandHost& host,
                     ComparisonSources::ReadRadio read_radio, QList<QAction*> in_window_too);
  ~ComparisonCommands();
  ComparisonCommands(const ComparisonCommands&) = delete;
  ComparisonCommands& operator=(const ComparisonCommands&) = delete;

  /// The comparison that there is, or the open data and a choice of what to compare them with.
  void Compare();
  /// Reads a radio into a copy first. Changes nothing.
  void CompareWithRadio();
  /// REQUIRES: the snapshot has been read whole.
  void CompareWithBackup(files::Snapshot snapshot);

 private:
  void Show(ComparedData right);

  const WindowServices services_;
  CommandHost& host_;
  const ComparisonSources sources_;
  const QList<QAction*> in_window_too_;
  QPointer<ComparisonWindow> window_;  ///< while it is on show
};

}  // namespace orvane::editor
