#include "platform/file_dialogs.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QRegularExpression>
#include <QUrl>

#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

std::optional<std::string> Ask(QFileDialog& dialog, const FileDialogRequest& request) {
  dialog.setObjectName("fileDialog");
  dialog.setDirectory(FromUtf8(request.folder));
  dialog.setNameFilters(NameFilters(request.filter));
  QList<QUrl> places = dialog.sidebarUrls();
  for (const std::string& folder : request.last_folders) {
    const QUrl place = QUrl::fromLocalFile(FromUtf8(folder));
    if (QFileInfo(place.toLocalFile()).isDir() && !places.contains(place)) places.append(place);
  }
  dialog.setSidebarUrls(places);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return ToUtf8(dialog.selectedFiles().constFirst());
}

}  // namespace

std::optional<std::string> QtFileDialogs::AskOpen(const FileDialogRequest& request) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptOpen);
  dialog.setFileMode(QFileDialog::ExistingFile);
  return Ask(dialog, request);
}

std::optional<std::string> QtFileDialogs::AskSave(const FileDialogRequest& request) {
  QFileDialog dialog(QApplication::activeWindow());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setDefaultSuffix(DefaultExtension(request.filter));
  return Ask(dialog, request);
}

QStringList NameFilters(std::string_view filter) {
  static const QRegularExpression kPatternInBrackets("\\s*\\([^)]*\\)\\s*$");
  const QStringList parts = FromUtf8(filter).split('|');
  QStringList filters;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    // "*.*" means every file, also one without a point in its name.
    const QString pattern = parts[i + 1] == "*.*" ? "*" : parts[i + 1];
    filters.append(QString(parts[i]).remove(kPatternInBrackets) + " (" + pattern + ")");
  }
  return filters;
}

QString DefaultExtension(std::string_view filter) {
  const QString pattern = FromUtf8(filter).section('|', 1, 1);
  const QString extension = pattern.section('.', -1);
  return pattern.contains('.') && !extension.contains('*') ? extension : QString();
}

}  // namespace orvane::platform
