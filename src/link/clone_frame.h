#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// The wire format of the clone protocol. Pure: bytes in, frames out, no port and no time.
///
/// A frame is the command word, TAB, each non-empty field followed by TAB, two upper-case
/// hexadecimal digits of the XOR of all bytes before them, CR, LF. Both sides use it.
namespace orvane::link {

inline constexpr std::string_view kCommandSync = "#CMDSY";
inline constexpr std::string_view kCommandOk = "#CMDOK";
inline constexpr std::string_view kCommandChecksumWrong = "#CMDSM";
inline constexpr std::string_view kCommandError = "#CMDER";
inline constexpr std::string_view kCommandUnknown = "#CMDUN";
inline constexpr std::string_view kCommandStatusRequest = "#WJDSR";
inline constexpr std::string_view kCommandStatusReply = "#WJDSD";
inline constexpr std::string_view kCommandRead = "#WJDRD";
inline constexpr std::string_view kCommandData = "#WJDDT";
inline constexpr std::string_view kCommandWrite = "#WJDWR";
inline constexpr std::string_view kModeRequest = "ACMD:002";
inline constexpr std::string_view kRefusal = "ERROR";

inline constexpr std::uint8_t kHandshakeByte = 0x50;     ///< "P", sent by the PC and answered
inline constexpr std::uint8_t kHandshakeConfirm = 0x30;  ///< "0"
inline constexpr std::uint8_t kCancelByte = 0x18;        ///< CAN
inline constexpr std::uint8_t kAcknowledgeByte = 0x06;   ///< ACK
inline constexpr std::uint8_t kTab = 0x09;
inline constexpr std::uint8_t kCr = 0x0D;
inline constexpr std::uint8_t kLf = 0x0A;

[[nodiscard]] std::uint8_t XorChecksum(std::string_view bytes);

/// A whole frame with its CR LF. Empty fields are left out together with their TAB.
[[nodiscard]] std::string BuildFrame(std::string_view command, std::string_view field1 = {},
                                     std::string_view field2 = {}, std::string_view field3 = {});

[[nodiscard]] std::string AddressField(int address);  ///< 4 hexadecimal digits
[[nodiscard]] std::string LengthField(int length);    ///< 2 hexadecimal digits
[[nodiscard]] std::string HexData(std::span<const std::uint8_t> bytes);

/// The line from its "#" up to, not including, CR.
[[nodiscard]] bool VerifyLineChecksum(std::string_view line);

}  // namespace orvane::link
