#include "editor/comparison_sources.h"

#include <QObject>
#include <QStringList>
#include <string>
#include <utility>

#include "core/text.h"
#include "editor/backups_dialog.h"
#include "files/data_file.h"
#include "link/port_name.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr const char* kFilter =
    "Data files(*.dat *.hex *.orvsnap)|*.dat *.hex *.orvsnap|All files(*.*)|*.*";

}  // namespace

ComparisonSources::ComparisonSources(const WindowServices& services, CommandHost& host,
                                     ReadRadio read_radio)
    : services_(services), host_(host), read_radio_(std::move(read_radio)) {}

ComparedData ComparisonSources::AskFile() const {
  const std::string path =
      services_.dialogs.AskOpen({.filter = kFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) return {};
  auto data = std::make_shared<core::RadioData>();
  // What becomes of this file concerns no command of the window, and none runs meanwhile.
  core::RunState state;
  core::NoEvents pump;
  const bool read = files::ReadDataFile(path, std::nullopt, *data,
                                        {.state = state,
                                         .files = services_.files,
                                         .prompts = services_.prompts,
                                         .pump = pump,
                                         .log = services_.log,
                                         .today = services_.clock.Today()});
  if (!read) return {};
  return {.kind = ComparedData::Kind::kFile,
          .title = platform::FromUtf8(core::WithoutFolder(path)),
          .about = platform::FromUtf8(path),
          .data = std::move(data)};
}

ComparedData ComparisonSources::AskBackup(QWidget& parent) const {
  BackupsDialog dialog(services_, BackupsDialog::Purpose::kChoose, &parent);
  if (dialog.exec() != QDialog::Accepted) return {};
  return OfBackup(dialog.TakeCompared());
}

ComparedData ComparisonSources::AskRadio(const core::RadioData& like) const {
  if (!host_.CheckPage()) return {};
  std::shared_ptr<core::RadioData> data = read_radio_(like);
  if (data == nullptr) return {};
  const std::string port = link::LabelOfPort(services_.ports, host_.PortNumber()).Text();
  return {.kind = ComparedData::Kind::kRadio,
          .title =
              QObject::tr("Radio, read at %1").arg(platform::FromUtf8(services_.clock.TimeOfDay())),
          .about = platform::FromUtf8(port),
          .data = std::move(data)};
}

QString ComparisonSources::WhyNoBackups() const {
  return services_.backups_folder.empty() ? QObject::tr("No backups are kept") : QString();
}

ComparedData ComparisonSources::OfBackup(files::Snapshot snapshot) {
  QStringList about;
  for (const std::string& part :
       {snapshot.heading.origin, snapshot.heading.port, snapshot.heading.file}) {
    if (!part.empty()) about << platform::FromUtf8(part);
  }
  return {.kind = ComparedData::Kind::kBackup,
          .title = QObject::tr("Backup of %1").arg(platform::FromUtf8(snapshot.heading.made)),
          .about = about.join(QLatin1String(", ")),
          .data = std::move(snapshot.data)};
}

}  // namespace orvane::editor
