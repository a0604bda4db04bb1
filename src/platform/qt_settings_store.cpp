#include "platform/qt_settings_store.h"

#include <QVariant>

#include "platform/ansi_text.h"

namespace orvane::platform {
namespace {

QString SettingsKey(std::string_view section, std::string_view key) {
  return FromUtf8(section) + "/" + FromUtf8(key);
}

}  // namespace

QtSettingsStore::QtSettingsStore(const std::string& path)
    : settings_(FromUtf8(path), QSettings::IniFormat) {}

std::optional<std::string> QtSettingsStore::Read(std::string_view section,
                                                 std::string_view key) const {
  settings_.sync();
  const QVariant value = settings_.value(SettingsKey(section, key));
  if (!value.isValid()) return std::nullopt;
  // An unquoted comma, as a hand-edited file may hold, makes a list of the text.
  if (value.typeId() == QMetaType::QStringList) return ToUtf8(value.toStringList().join(", "));
  return ToUtf8(value.toString());
}

void QtSettingsStore::WriteAll(const std::vector<core::SettingsEntry>& entries) {
  for (const core::SettingsEntry& entry : entries) {
    settings_.setValue(SettingsKey(entry.section, entry.key), FromUtf8(entry.value));
  }
  settings_.sync();  // puts a whole new file in the place of the old one
}

}  // namespace orvane::platform
