#include "platform/file_error_log.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QRegularExpression>

#include "platform/ansi_text.h"

namespace orvane::platform {

void FileErrorLog::Write(std::string_view routine, std::string_view message) {
  if (!debug_) return;
  const QDateTime now = QDateTime::currentDateTime();
  const QLocale locale = QLocale::system();
  static const QRegularExpression kLineBreaks("[\\r\\n]+");
  const QString line = locale.toString(now.date(), QLocale::ShortFormat) + "," +
                       locale.toString(now.time(), QLocale::LongFormat) + ":" + FromUtf8(routine) +
                       " -> " + FromUtf8(message).replace(kLineBreaks, " ");
  QDir().mkpath(QFileInfo(FromUtf8(path_)).path());
  QFile file(FromUtf8(path_));
  if (!file.open(QIODevice::Append)) return;
  file.write(QByteArray::fromStdString(ToAnsi(line) + "\r\n"));
}

}  // namespace orvane::platform
