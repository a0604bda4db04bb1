#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// What can go wrong between PC and radio, and where: the faults that a simulated radio shows.
namespace orvane::link {

/// One thing the PC sends: a single byte of the handshake or of an abort, or a line with its
/// CR LF. Everything that comes back for it belongs to the same exchange. Exchanges are numbered
/// from 1 since the radio was switched on: 1 "P", 2 "0", 3 "ACMD:002", 4 and 5 "#CMDSY",
/// 6 "#WJDSR", 7 the PC's "#CMDOK" for it, 8 the first "#WJDRD", 9 the "#CMDOK" for it ...
enum class ExchangeKind {
  kHandshake,  ///< "P"
  kConfirm,    ///< "0"
  kMode,       ///< "ACMD:002"
  kSync,       ///< "#CMDSY"
  kStatus,     ///< "#WJDSR"
  kRead,       ///< "#WJDRD"
  kWrite,      ///< "#WJDWR"
  kClosing,    ///< the PC's "#CMDOK", "#CMDSM", "#CMDER" or "#CMDUN"; never answered
  kCancel,     ///< CAN
  kOther       ///< a line that is none of these
};
inline constexpr int kExchangeKinds = 10;
[[nodiscard]] std::string_view ExchangeName(ExchangeKind kind);

/// Byte numbers count from 1; one beyond the end means the last byte. Of an exchange named by its
/// kind no byte is spoilt before the bytes received tell the kind.
enum class FaultKind {
  kWrongEcho,      ///< value: number of the PC's byte that comes back changed (default 1)
  kMissingEcho,    ///< value: the PC's bytes from this number on do not come back (1)
  kGarbledReply,   ///< value: number of the radio's byte that arrives changed (1)
  kShortReply,     ///< value: bytes of the radio's answer that arrive (1)
  kLateReply,      ///< value: seconds before the radio answers (15)
  kMissingReply,   ///< the radio does as told but does not answer
  kWrongChecksum,  ///< of a data or status frame
  kWrongAddress,   ///< in a data frame whose checksum is right
  kWrongLength,    ///< length field one too high in a data frame whose checksum is right
  kShortData,      ///< one byte less in a data frame than its length field says; checksum right
  kRefusal,        ///< "ERROR" in place of the answer; a write stores nothing
  kUnknown,        ///< "#CMDUN" in place of the answer; a write stores nothing
  kBusy,           ///< status 01
  kOtherStatus,    ///< value: the status, 0..255 (2)
  kUnplug,         ///< value: bytes of the exchange, both ways, that still travel (0)
  // Lies: the write is acknowledged as if it had been carried out.
  kNotStored,      ///< nothing is stored
  kOtherStored,    ///< value: number of the byte that is stored changed (1)
  kForgottenBlock  ///< the 16 bytes around the write are erased
};
inline constexpr int kFaultKinds = 18;
/// The first of them, which a session notices by itself.
inline constexpr int kNoticedFaultKinds = 15;
/// Only reading the memory again shows it.
[[nodiscard]] constexpr bool IsLie(FaultKind kind) {
  return static_cast<int>(kind) >= kNoticedFaultKinds;
}

struct FaultInfo {
  FaultKind kind;
  std::string_view name;  ///< "wrong-echo": as written in a fault's text
  std::string_view help;  ///< what the PC sees, and the value's meaning
  double default_value;
  double max_value;  ///< 0: the fault takes no value
};
/// All kinds, in the order of the enumeration.
[[nodiscard]] const std::array<FaultInfo, kFaultKinds>& Faults();
[[nodiscard]] const FaultInfo& InfoOf(FaultKind kind);
/// Whether an exchange of that kind can show the fault; a fault elsewhere does nothing.
[[nodiscard]] bool Affects(FaultKind fault, ExchangeKind exchange);

/// A fault and its place: exchange number, or the n-th exchange of a kind.
struct Fault {
  FaultKind kind = FaultKind::kMissingReply;
  std::optional<ExchangeKind> exchange{};  ///< counts only exchanges of this kind
  int number = 0;                          ///< from 1; 0 is every one
  double value = 0;

  bool operator==(const Fault&) const = default;
};

/// A fault with its kind's default value.
[[nodiscard]] Fault MakeFault(FaultKind kind, int number);
[[nodiscard]] Fault MakeFault(FaultKind kind, ExchangeKind exchange, int number);

struct ParsedFault {
  std::optional<Fault> fault;
  std::string error;  ///< a sentence that says what is wrong, when there is no fault
};
/// KIND@PLACE or KIND@PLACE=VALUE. The place is an exchange number ("12"), the n-th exchange of a
/// kind ("write:3"), every one of a kind ("status") or "all".
[[nodiscard]] ParsedFault ParseFault(std::string_view text);

/// The faults of one radio: listed ones, and ones that a seed scatters over the exchanges; it
/// scatters no lies.
class FaultPlan {
 public:
  FaultPlan() = default;
  explicit FaultPlan(std::vector<Fault> faults) : faults_(std::move(faults)) {}

  void Add(const Fault& fault) { faults_.push_back(fault); }
  /// The same seed gives the same faults at the same exchanges, whatever was asked before.
  void Scatter(std::uint64_t seed, double percent_of_exchanges);

  /// Where in its run an exchange stands.
  struct Position {
    int number = 0;                      ///< of all exchanges, from 1
    std::optional<ExchangeKind> kind{};  ///< as soon as the bytes received tell
    int occurrence = 0;                  ///< of that kind, from 1
  };
  /// The fault of that exchange whose kind is among those asked for: a listed one before a
  /// scattered one, and none that the exchange cannot show.
  [[nodiscard]] std::optional<Fault> Find(const Position& position,
                                          std::span<const FaultKind> among) const;

 private:
  [[nodiscard]] std::optional<Fault> Scattered(int number) const;

  std::vector<Fault> faults_;
  std::uint64_t seed_ = 0;
  double percent_ = 0;
};

}  // namespace orvane::link
