#include "platform/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

#include "core/product.h"
#include "link/port_links.h"
#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

QString ProductFolderName() {
  return FromUtf8(core::kProductName);
}

// The folder an environment variable names, else the given one below the home folder. A relative
// path in the variable is ignored.
QString UserFolder(const char* variable, const QString& below_home) {
  const QString named = qEnvironmentVariable(variable);
  return QDir::isAbsolutePath(named) ? named : QDir::homePath() + "/" + below_home;
}

QString ConfigRoot() {
#ifdef Q_OS_WIN
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
#else
  return FromUtf8(
      link::ConfigRoot(qgetenv("XDG_CONFIG_HOME").toStdString(), ToUtf8(QDir::homePath())));
#endif
}

QString StateFolder() {
  return UserFolder("XDG_STATE_HOME", ".local/state") + "/" + ProductFolderName();
}

bool MayWriteErrorLog(const QString& folder) {
  const QFileInfo log(folder + "/err.log");
  return log.exists() ? log.isFile() && log.isWritable() : QFileInfo(folder).isWritable();
}

QString UserDataFolder() {
#ifdef Q_OS_WIN
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/" +
         ProductFolderName();
#else
  return UserFolder("XDG_DATA_HOME", ".local/share") + "/" + ProductFolderName();
#endif
}

}  // namespace

std::string ProgramFolder() {
  return ToUtf8(QCoreApplication::applicationDirPath());
}

std::string DataFolder() {
  const QString program = QCoreApplication::applicationDirPath();
  const QDir share(QDir::cleanPath(program + "/../share/" + ProductFolderName().toLower()));
  return ToUtf8(share.exists() ? share.path() : program);
}

std::string ConfigFolder() {
  return ToUtf8(ConfigRoot() + "/" + ProductFolderName());
}

std::string SettingsPath() {
  return ConfigFolder() + "/settings.ini";
}

std::string PortLinksFolder() {
  return link::PortsFolder(ToUtf8(ConfigRoot()));
}

std::string CacheFolder() {
#ifdef Q_OS_WIN
  return ToUtf8(QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + "/" +
                ProductFolderName());
#else
  return ToUtf8(UserFolder("XDG_CACHE_HOME", ".cache") + "/" + ProductFolderName());
#endif
}

std::string BackupsFolder() {
  return ToUtf8(UserDataFolder() + "/backups");
}

std::string PreviousFolder() {
  return ToUtf8(UserDataFolder() + "/previous");
}

std::string CopiesFolder() {
  return ToUtf8(StateFolder() + "/copies");
}

std::string MarksFolder() {
  return ToUtf8(StateFolder() + "/partly_written");
}

std::string RecoveryFolder() {
  return ToUtf8(StateFolder() + "/recovery");
}

std::string ErrorLogPath() {
  const QString program = QCoreApplication::applicationDirPath();
  // An installed program shares its folder with all others.
  const bool installed = DataFolder() != ToUtf8(program);
  if (!installed && MayWriteErrorLog(program)) return ToUtf8(program + "/err.log");
  return ToUtf8(StateFolder() + "/err.log");
}

}  // namespace orvane::platform
