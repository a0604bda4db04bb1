#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/memory_image.h"
#include "core/model_profile.h"
#include "link/radio_faults.h"

namespace orvane::link {

/// What the radio was asked, told when the exchange is complete (or the plug is pulled in it).
struct Exchange {
  int number = 0;  ///< from 1
  ExchangeKind kind = ExchangeKind::kOther;
  int address = 0;  ///< reads and writes
  int length = 0;
  bool refused = false;              ///< answered "ERROR"
  std::optional<FaultKind> fault{};  ///< the first fault that showed in it
  std::string line{};                ///< as received, without CR LF; empty for single bytes
};
/// "read 0x0040 16", "write 0x0042 1", "sync"; then "refused" and the fault, if any.
[[nodiscard]] std::string ExchangeText(const Exchange& exchange);

/// What happens on the PC's side of the cable after one byte of the PC.
struct CableReaction {
  std::optional<std::uint8_t> echo{};  ///< the cable's, when the byte's own time is over
  std::string answer{};                ///< the radio's bytes behind the echo
  double answer_delay = 0;             ///< seconds between echo and answer
  bool unplugged = false;              ///< after these bytes the cable is gone
};

/// The bytes a radio of that model holds for an image: the used ones, with the model code also
/// where the radio itself is asked for it.
[[nodiscard]] std::vector<std::uint8_t> RadioMemory(const core::ModelProfile& profile,
                                                    std::span<const std::uint8_t> image);

/// The far end of the cable: a radio in clone mode with its memory, byte in, bytes out.
///
/// "P" at the start of a line opens a session at any time, "0" confirms it; lines outside a
/// session get no answer. After "#CMDSY" status, reads and writes are answered; a command that is
/// malformed, out of the memory or before "#CMDSY" gets "ERROR". CAN ends the session and gets
/// ACK. A line that stops arriving is forgotten after kLineTimeout.
class SimulatedRadio {
 public:
  static constexpr double kLineTimeout = 0.5;  ///< seconds between two bytes of a line

  /// Memory: 1..16384 bytes. Addresses behind them read as 255 and cannot be written.
  explicit SimulatedRadio(std::span<const std::uint8_t> memory, FaultPlan faults = {});

  /// One byte from the PC, completely received at that time (seconds, never going back).
  [[nodiscard]] CableReaction Receive(std::uint8_t byte, double now);

  [[nodiscard]] std::span<const std::uint8_t> Memory() const {
    return std::span<const std::uint8_t>(memory_).first(used_size_);
  }
  [[nodiscard]] std::span<std::uint8_t> Memory() {
    return std::span<std::uint8_t>(memory_).first(used_size_);
  }

  void SetFaults(FaultPlan faults) { faults_ = std::move(faults); }
  void SetObserver(std::function<void(const Exchange&)> observer) {
    observer_ = std::move(observer);
  }

  [[nodiscard]] bool Plugged() const { return plugged_; }
  /// Puts the cable back after it was unplugged. A new session must be opened.
  void PlugIn();

 private:
  enum class Session { kNone, kGreeted, kOpen, kSynchronized };
  struct Answer;

  void BeginExchange();
  [[nodiscard]] std::optional<ExchangeKind> SingleByteKind(std::uint8_t byte) const;
  [[nodiscard]] std::optional<Fault> FindFault(std::optional<ExchangeKind> kind,
                                               std::span<const FaultKind> among) const;
  void Echo(std::uint8_t byte, bool last, std::optional<ExchangeKind> kind,
            CableReaction& reaction);
  void Complete(ExchangeKind kind, CableReaction& reaction);
  [[nodiscard]] Answer AnswerTo(ExchangeKind kind);
  [[nodiscard]] Answer Execute(ExchangeKind kind);
  [[nodiscard]] Answer AnswerStatus(const std::vector<std::string_view>& fields);
  [[nodiscard]] Answer AnswerRead(const std::vector<std::string_view>& fields);
  [[nodiscard]] Answer AnswerWrite(const std::vector<std::string_view>& fields);
  void Store(int address, std::vector<std::uint8_t> bytes);
  void SpoilDelivery(CableReaction& reaction);
  void Struck(FaultKind fault);
  void Unplug(CableReaction& reaction);

  std::array<std::uint8_t, core::MemoryImage::kSize> memory_{};
  std::size_t used_size_;
  FaultPlan faults_;
  std::function<void(const Exchange&)> observer_;

  Session session_ = Session::kNone;
  bool plugged_ = true;
  int count_ = 0;
  std::array<int, kExchangeKinds> occurrences_{};
  Exchange exchange_;       ///< the one under way
  int bytes_received_ = 0;  ///< of the exchange under way; 0 between exchanges
  bool echo_spoilt_ = false;
  double last_byte_at_ = 0;
};

}  // namespace orvane::link
