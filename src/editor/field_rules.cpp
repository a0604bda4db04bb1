#include "editor/field_rules.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstring>

#include "core/number_text.h"

namespace orvane::editor {
namespace {

constexpr double kUnitsPerMegahertz = 10000.0;  // 100 Hz, the radio's own unit
constexpr double kRaster = 250.0;               // 25 kHz in these units

constexpr const char* kFrequencyKeys = "0123456789.";
// What a seven-segment display can show, in the case in which it shows it.
constexpr const char* kDisplayKeys = "0123456789AbCdEFGHIJLnoPqrtSUy";
// Shapes that only the first place of the display has the segments for.
constexpr const char* kFirstPlaceKeys = "MK";
constexpr const char* kNameKeys = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-/, _.";
constexpr const char* kDisplayHint = "Indispensable 2 figures.";
constexpr const char* kNameHint = "A maximum of 12 characters";

// In the order of Field.
constexpr std::array kRules = {
    FieldRule{.control = "txtCRF",
              .allowed = kFrequencyKeys,
              .max_length = 8,
              .check = FrequencyOf,
              .hint = "Rx frequency"},
    FieldRule{.control = "txtCTF",
              .allowed = kFrequencyKeys,
              .max_length = 8,
              .check = FrequencyOf,
              .hint = "Tx frequency"},
    FieldRule{.control = "txtCN_0",
              .allowed = kDisplayKeys,
              .head = kFirstPlaceKeys,
              .head_length = 1,
              .backspace = false,
              .max_length = 2,
              .min_length = 2,
              .hint = kDisplayHint},
    FieldRule{.control = "txtCN_1",
              .allowed = kDisplayKeys,
              .head = kFirstPlaceKeys,
              .backspace = false,
              .max_length = 2,
              .hint = kDisplayHint},
    FieldRule{.control = "txtCTag",
              .allowed = kNameKeys,
              .upper_case = true,
              .max_length = 12,
              .hint = kNameHint},
    FieldRule{.control = "txtDTagName",
              .allowed = kNameKeys,
              .upper_case = true,
              .max_length = 12,
              .hint = kNameHint},
};

bool Contains(const char* characters, QChar c) {
  const char byte = c.toLatin1();
  return byte != '\0' && std::strchr(characters, byte) != nullptr;
}

QChar Capital(QChar c) {
  return c >= u'a' && c <= u'z' ? QChar(c.unicode() - u'a' + u'A') : c;
}

}  // namespace

const FieldRule& RuleOf(Field field) {
  return kRules[static_cast<std::size_t>(field)];
}

QString PassedText(const FieldRule& rule, const QString& inserted, int position) {
  QString passed;
  for (QChar c : inserted) {
    if (rule.upper_case) c = Capital(c);
    const bool in_head = position + passed.size() < rule.head_length;
    if (Contains(rule.allowed, c) || (in_head && Contains(rule.head, c))) passed.append(c);
  }
  return passed;
}

QString SweptText(const FieldRule& rule, const QString& text) {
  QString swept;
  for (const QChar c : text) {
    if (swept.size() < rule.head_length || !Contains(rule.head, c)) swept.append(c);
  }
  return swept;
}

std::optional<double> FrequencyOf(const QString& text, const core::ModelProfile& profile) {
  if (text.isEmpty()) return 0.0;
  const double mhz = core::LeadingNumber(text.toStdString());
  if (!(mhz >= profile.min_frequency && mhz <= core::kMaxFrequency)) return std::nullopt;
  const double units = core::RoundHalfEven(mhz * kUnitsPerMegahertz);
  if (profile.raster_25khz && std::fmod(units, kRaster) != 0) return std::nullopt;
  return mhz;
}

}  // namespace orvane::editor
