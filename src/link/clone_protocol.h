#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "core/messages.h"
#include "link/serial_link.h"

namespace orvane::link {

/// Attempts an exchange gets before the user is asked to synchronise again. With 1 a time-out is
/// not repeated.
inline constexpr std::int16_t kRetryCount = 1;

/// The command language spoken with a radio in clone mode. The PC asks, the radio answers.
///
/// Outcomes are the data set's error and cancel flags, as with SerialLink: after a failed exchange
/// the error flag is set. An exchange does not begin once the user has cancelled.
class CloneProtocol {
 public:
  /// The title is that of the protocol's message boxes.
  CloneProtocol(SerialLink& link, core::Prompts& prompts, std::string title,
                std::int16_t retry_count = kRetryCount);

  /// Opens the port, shakes hands and synchronises. False after telling the user why; silent when
  /// the user cancelled.
  bool Connect();
  bool StatusCheck();
  /// Two rounds of asking for a sign of life; both must succeed.
  bool Sync();

  /// Reads length bytes at a radio address into target, at the same index. Nothing is stored
  /// unless the reply is whole and its checksum, address and length are right.
  bool ReadBlock(std::span<std::uint8_t> target, int address, int length);
  /// Writes length bytes of the image to the radio, from and to the same address.
  bool WriteBlock(std::span<const std::uint8_t> image, int address, int length);

  /// Tells the radio to give up, and sets the cancel flag.
  void AbortTransfer();

  [[nodiscard]] WaitStatus WaitCmdOK();

 private:
  enum class Flush { kNever, kOnce, kEachAttempt };

  bool Handshake();
  void LetLineRunDry();
  bool RequestMode();
  bool PortFailed();
  void Tell(core::MessageId id, const core::Facts& facts = {});
  /// Sends and awaits "#CMDOK". An acknowledgement after a wrong echo does not count.
  template <class Send>
  WaitStatus Exchange(Send send);
  bool Acknowledged(std::string_view frame, Flush flush);
  bool Resynchronise();
  WaitStatus SyncPass(int pass);
  [[nodiscard]] ReceivedText ReadHeader();
  void ReceiveDataReply(std::span<std::uint8_t> target, int address, int length);
  void ParseDataReply(std::span<std::uint8_t> target, int address, int length);
  enum class Status { kReady, kBusy, kFailed };
  Status AskStatus();
  Status ReadStatusReply();

  core::RunState& state_;
  SerialLink& link_;
  core::Prompts& prompts_;
  std::string title_;
  std::int16_t retry_count_;
};

}  // namespace orvane::link
