#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

/// How single values read and are typed, one at a time: by path on the command line, in the list
/// of undo steps, in comparisons. Reports and grids have renderings of their own (rendering.h),
/// which cut and fill and are not read back.
namespace orvane::core {

/// A field's value, whatever its type in the record. Texts are 8-bit Windows-1252.
using Value = std::variant<bool, std::int32_t, double, std::string>;

/// Parse(Show(v)) is v, for every value that the member can hold. Letter case is ignored in words.
struct Notation {
  std::string (*show)(const Value&);
  /// Nothing for a text that is no such value.
  std::optional<Value> (*parse)(std::string_view);
  /// What may be typed, to be put behind "must be ".
  std::string_view expects;
};

namespace notation {

extern const Notation kOnOff;
extern const Notation kHiLow;
extern const Notation kNumber;
extern const Notation kText;
extern const Notation kFrequency;  ///< MHz; "Off" for 0
extern const Notation kCtcss;      ///< "88.5Hz", "Off"
extern const Notation kDcs;        ///< "023N", "023I", "Off"
extern const Notation kScrambler;  ///< "0".."3", "Off"
extern const Notation
    kChannelNumber;  ///< combined channel number: "22A", "EXP/LMR 7", "WX 3", "Off"
extern const Notation kTxPoDisplay;
extern const Notation kResumeTime;
extern const Notation kOffsetTime;
extern const Notation kMagneticVariation;
extern const Notation kWeatherAlert;
extern const Notation kChannelKind;  ///< "LMR", "EXP"
extern const Notation kBytes;        ///< a text of raw bytes as hexadecimal digits

}  // namespace notation

}  // namespace orvane::core
