#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "core/records.h"

/// How values read in reports, grids and on the editor's pages. Each rendering stands here once.
namespace orvane::core {

[[nodiscard]] std::string_view OnOffText(bool flag);   ///< "On" / "Off"
[[nodiscard]] std::string_view HiLowText(bool flag);   ///< "Hi" / "Low"
[[nodiscard]] std::string_view EnableText(bool flag);  ///< "ENABLE" / "------"
[[nodiscard]] std::string_view TxText(bool flag);      ///< "TX" / "--"
[[nodiscard]] std::string_view LowText(bool flag);     ///< "LOW" / "---"
[[nodiscard]] std::string_view UpText(bool flag);      ///< "UP" / "--"
[[nodiscard]] std::string_view DupText(bool flag);     ///< "DUP" / "---"
[[nodiscard]] std::string_view MemText(bool flag);     ///< "MEM" / "---"
[[nodiscard]] std::string_view CmpText(bool flag);     ///< "CMP" / "---"
[[nodiscard]] std::string_view NarrowText(bool flag);  ///< "N " / "--"
[[nodiscard]] std::string_view UseText(bool flag);     ///< "USE" / "---"

/// "Lo Po Only", "Lo Po on Changing CH", "Last TX Po"; "" for any other value.
[[nodiscard]] std::string_view TxPoDisplayText(int value);
/// "--", "1Sec", "2Sec", "3Sec"; "" for any other value.
[[nodiscard]] std::string_view ResumeTimeText(int value);
/// "True" or "Mag"; "" for any other value.
[[nodiscard]] std::string_view MagneticVariationText(int value);
/// 0 "Off", 3 "On"; "" for any other value.
[[nodiscard]] std::string_view WeatherAlertText(int value);
/// 0..24 as "-12:00" .. " 0:00" .. "+12:00"; "" for any other value.
[[nodiscard]] std::string OffsetTimeText(int value);
/// The text, or "----" when it is empty or blank.
[[nodiscard]] std::string StatusNameText(std::string_view name);

/// "000.000" MHz; "---.---" for 0 or less.
[[nodiscard]] std::string PlanFrequencyText(double mhz);
/// "000.0000" MHz; "---.----" for 0 or less.
[[nodiscard]] std::string FrequencyText(double mhz);
/// As FrequencyText, after a value on neither the 5 kHz nor the 12.5 kHz raster has been lowered
/// to the 5 kHz raster.
[[nodiscard]] std::string RasterFrequencyText(double mhz);

/// Scrambler code 0..3 as decimal digit when the scrambler is on, "--" otherwise.
[[nodiscard]] std::string ScramblerText(int scramble);

/// Letters as a seven-segment display shows them: B D N O Q R T Y become lower case.
[[nodiscard]] std::string DisplayLetters(std::string_view text);
/// The four places of an EXP/LMR channel number as the radio shows them.
[[nodiscard]] std::string DisplayText(const ChannelRecord& channel);

/// Cut or filled with blanks on the right to the width.
[[nodiscard]] std::string Cell(std::string_view text, std::size_t width);

}  // namespace orvane::core
