#include "editor/field_rules.h"

#include <array>
#include <cstddef>
#include <cstring>

#include "core/field_rules.h"
#include "core/number_text.h"

namespace orvane::editor {
namespace {

constexpr const char* kFrequencyKeys = "0123456789.";
constexpr const char* kDisplayKeys = core::kDisplayCharacters.data();
constexpr const char* kFirstPlaceKeys = core::kFirstDisplayCharacters.data();
constexpr const char* kNameKeys = core::kNameCharacters.data();
constexpr const char* kDisplayHint = "Indispensable 2 figures.";
constexpr const char* kDisplayCellHint = "2 figures on the left, up to 2 on the right.";
constexpr const char* kNameHint = "A maximum of 12 characters";

// Blanks part the halves where the left one is short.
constexpr auto kDisplayCellKeys = [] {
  std::array<char, core::kDisplayCharacters.size() + 2> keys{};
  std::size_t end = 0;
  for (const char key : core::kDisplayCharacters) keys[end++] = key;
  keys[end] = ' ';
  return keys;
}();

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
              .max_length = core::kDisplayLength,
              .hint = kDisplayHint},
    FieldRule{.control = "txtCN_1",
              .allowed = kDisplayKeys,
              .head = kFirstPlaceKeys,
              .backspace = false,
              .max_length = core::kDisplayLength,
              .hint = kDisplayHint},
    FieldRule{.control = "txtCTag",
              .allowed = kNameKeys,
              .upper_case = true,
              .max_length = core::kNameLength,
              .hint = kNameHint},
    FieldRule{.control = "txtDTagName",
              .allowed = kNameKeys,
              .upper_case = true,
              .max_length = core::kNameLength,
              .hint = kNameHint},
    FieldRule{.control = "txtCell",
              .allowed = kDisplayCellKeys.data(),
              .head = kFirstPlaceKeys,
              .head_length = 1,
              .max_length = 2 * core::kDisplayLength,
              .hint = kDisplayCellHint},
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
  if (!core::TakesFrequency(profile, mhz)) return std::nullopt;
  return mhz;
}

}  // namespace orvane::editor
