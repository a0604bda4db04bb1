#pragma once

#include <cstddef>
#include <string_view>

#include "core/memory_image.h"
#include "core/messages.h"
#include "core/radio_data.h"
#include "core/services.h"
#include "link/clone_protocol.h"
#include "link/serial_link.h"

namespace orvane::link {

enum class SessionKind { kRead = 0, kProgram = 1, kClear = 2 };

/// Caption of the transfer dialog and title of the protocol's messages.
[[nodiscard]] std::string_view ModeTitle(SessionKind kind);

/// What to tell the user whose program run did not end in "Complete!!".
inline constexpr std::string_view kPartlyWrittenNote = core::kPartlyWrittenText;

/// One press of OK in the transfer dialog: connect, check that the radio is ready and is the
/// data's model, product and destination, then read, program or clear.
///
/// A read that fails or is cancelled leaves image and records exactly as they were. A failed or
/// cancelled program run leaves the radio with a partly written image and says so.
class TransferSession {
 public:
  TransferSession(core::RadioData& data, LinkServices services, core::Prompts& prompts);

  enum class End {
    kStay,  ///< failed: the dialog stays open and OK may be pressed again
    kClose  ///< done, declined, or a read cancelled in good order: the dialog closes
  };
  /// Runs the session to its end. Never throws. Busy flag set meanwhile; the port is closed
  /// afterwards.
  End Run(SessionKind kind);

  /// The last Run completed its job.
  [[nodiscard]] bool TransferDone() const { return transfer_done_; }
  /// The last Run began to write to the radio and did not complete. After a cancelled run, which
  /// shows no message, the caller shows kPartlyWrittenNote.
  [[nodiscard]] bool PartlyWritten() const { return writing_begun_ && !transfer_done_; }

 private:
  End RunSession(SessionKind kind, CloneProtocol& protocol);
  /// Tells the user of a failure that no exchange accounts for.
  void ReportUnexpected(const core::SystemError& error);
  void ReadFromRadio(CloneProtocol& protocol);
  void ProgramToRadio(CloneProtocol& protocol);
  [[nodiscard]] bool RadioIsReady(CloneProtocol& protocol);
  [[nodiscard]] bool OpenForBlocks(std::string_view routine);
  [[nodiscard]] bool HasStopped() const { return data_.Flags.Error || data_.Flags.Cancel; }
  [[nodiscard]] bool Cancelled();
  void Complete();
  void Refuse(core::MessageId id, std::string_view title, const core::Facts& facts = {});

  void ReadDataChkModel(CloneProtocol& protocol, std::string_view title);
  void CompareRadio(const core::MemoryImage& scratch, std::string_view title);
  void ReadData(CloneProtocol& protocol, core::MemoryImage& buffer);
  void WriteData(CloneProtocol& protocol);
  void TakeOverRadioBytes(CloneProtocol& protocol);
  void WriteRow(CloneProtocol& protocol, int block_address);

  core::RadioData& data_;
  LinkServices services_;
  core::Prompts& prompts_;
  SerialLink link_;
  SessionKind kind_ = SessionKind::kRead;
  std::string_view routine_;  ///< the step under way, as the error log names it
  std::size_t bytes_done_ = 0;
  std::size_t bytes_total_ = 0;
  bool writing_begun_ = false;
  bool transfer_done_ = false;
};

}  // namespace orvane::link
