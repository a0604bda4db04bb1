#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "core/radio_data.h"

/// A data set kept whole, records and image, for recovery and the backup library: lossless where a
/// settings file (no DSC) and an image file (encoding changes records) are not. A text of ASCII
/// characters, so that it can be read when all else fails: a heading, the image in hexadecimal
/// without its erased rows, then "path=value" for each field that differs from what the image
/// alone decodes to. A checksum (CRC-32) guards everything below its own line.
namespace orvane::files {

/// Ending of a snapshot's file name.
inline constexpr std::string_view kSnapshotEnding = ".orvsnap";

/// How the data of a snapshot came to where it was made.
inline constexpr const char* kOriginRead = "read";
inline constexpr const char* kOriginBefore = "before programming";  ///< what the radio held
inline constexpr const char* kOriginMixed = "partly written";       ///< the same, of a broken run
inline constexpr const char* kOriginProgrammed = "programmed";
inline constexpr const char* kOriginRecovered = "recovered";  ///< left behind by a crash
inline constexpr const char* kOriginReplaced = "replaced";    ///< on the screen, and in no file

struct SnapshotHeading {
  std::string made{};    ///< local time, "2026-11-24 23:40:12"
  std::string origin{};  ///< one of those above, "saved" or "autosave"
  std::string port{};    ///< where the radio was; "" when none was involved
  std::string file{};    ///< full path of the document, UTF-8; "" for one without a file
  std::string print{};   ///< document::PrintOf that file when the document was last one with it
  std::string edited{};  ///< paths of fields that the user has set, with blanks between
  std::int16_t model_type = 0;
  std::uint32_t checksum = 0;  ///< of the contents: equal for equal data
};

/// heading.model_type and heading.checksum are found out, not asked for.
[[nodiscard]] std::string SnapshotText(const core::RadioData& data, const SnapshotHeading& heading);

/// As it stands in the heading: eight hexadecimal digits.
[[nodiscard]] std::string ChecksumText(std::uint32_t checksum);

struct Snapshot {
  SnapshotHeading heading;
  std::unique_ptr<core::RadioData> data;  ///< null: see error
  /// "line 12, column 9: two hexadecimal digits are missing"
  std::string error;
};
/// Whole or not at all. Any bytes may come in.
[[nodiscard]] Snapshot ParseSnapshot(std::string_view text);
/// The heading alone, without a look at what follows. error tells of a heading that is damaged.
[[nodiscard]] Snapshot ParseSnapshotHeading(std::string_view text);

}  // namespace orvane::files
