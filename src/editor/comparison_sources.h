#pragma once

#include <QWidget>
#include <functional>
#include <memory>

#include "editor/command_host.h"
#include "editor/compared_data.h"
#include "editor/window_services.h"
#include "files/snapshot.h"

namespace orvane::editor {

/// Asks what a comparison shall have on a side, and reads it into a copy: nothing here changes the
/// document. What goes wrong is told. Services and host outlive this object.
class ComparisonSources {
 public:
  /// Reads a radio of the given data's model. Null when the user gave up or it failed.
  using ReadRadio = std::function<std::unique_ptr<core::RadioData>(const core::RadioData& like)>;

  ComparisonSources(const WindowServices& services, CommandHost& host, ReadRadio read_radio);

  /// Each is of the kind kNone when nothing came of it.
  [[nodiscard]] ComparedData AskFile() const;
  [[nodiscard]] ComparedData AskBackup(QWidget& parent) const;
  [[nodiscard]] ComparedData AskRadio(const core::RadioData& like) const;
  /// Why there are no backups to choose from; "" when there may be some.
  [[nodiscard]] QString WhyNoBackups() const;

  /// REQUIRES: the snapshot has been read whole.
  [[nodiscard]] static ComparedData OfBackup(files::Snapshot snapshot);

 private:
  const WindowServices services_;
  CommandHost& host_;
  const ReadRadio read_radio_;
};

}  // namespace orvane::editor
