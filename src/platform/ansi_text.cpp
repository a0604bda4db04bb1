#include "platform/ansi_text.h"

#include <QList>

#include "core/ansi.h"

namespace orvane::platform {

QString FromAnsi(std::string_view bytes) {
  QString text;
  text.reserve(static_cast<qsizetype>(bytes.size()));
  for (const char byte : bytes) {
    text.append(QChar(static_cast<char16_t>(core::AnsiCodePoint(byte))));
  }
  return text;
}

std::string ToAnsi(const QString& text) {
  std::string bytes;
  for (const char32_t code_point : text.toUcs4()) bytes.push_back(core::AnsiByte(code_point));
  return bytes;
}

QString FromUtf8(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string ToUtf8(const QString& text) {
  return text.toUtf8().toStdString();
}

std::string AnsiToUtf8(std::string_view bytes) {
  return ToUtf8(FromAnsi(bytes));
}

}  // namespace orvane::platform
