#pragma once

#include <QString>
#include <optional>

#include "core/model_profile.h"

/// What may be typed into the text fields of the editor, and which values they take.
namespace orvane::editor {

enum class Field {
  kReceiveFrequency,
  kTransmitFrequency,
  kDisplayLeft,
  kDisplayRight,
  kChannelName,
  kWeatherName,
  kDisplayCell  ///< both halves in a cell of a table
};

/// The value of the text, or nothing when the model does not take it.
using FieldCheck = std::optional<double> (*)(const QString& text,
                                             const core::ModelProfile& profile);

struct FieldRule {
  const char* control;    ///< object name; the weather names have one box for each channel
  const char* allowed;    ///< characters passed
  const char* head = "";  ///< characters passed in the first head_length places only
  int head_length = 0;
  bool upper_case = false;  ///< small letters count as capitals
  bool backspace = true;    ///< whether the Backspace key works
  int max_length;
  FieldCheck check = nullptr;  ///< null: every text is taken over at once
  const char* hint;            ///< also the title of the message about a wrong value
};

[[nodiscard]] const FieldRule& RuleOf(Field field);

/// What of the inserted text may stand there, position being the place of its first character.
[[nodiscard]] QString PassedText(const FieldRule& rule, const QString& inserted, int position);
/// The text without head characters that slipped out of their places.
[[nodiscard]] QString SweptText(const FieldRule& rule, const QString& text);

/// MHz. An empty text is 0, no frequency; otherwise the number the text starts with, when it lies
/// in the model's band and on its raster.
[[nodiscard]] std::optional<double> FrequencyOf(const QString& text,
                                                const core::ModelProfile& profile);

}  // namespace orvane::editor
