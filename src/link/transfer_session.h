#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/memory_image.h"
#include "core/messages.h"
#include "core/radio_data.h"
#include "core/run_state.h"
#include "core/services.h"
#include "link/clone_protocol.h"
#include "link/receipt.h"
#include "link/serial_link.h"
#include "link/transfer_options.h"
#include "link/transfer_outcome.h"
#include "link/transfer_plan.h"

namespace orvane::link {

enum class SessionKind { kRead = 0, kProgram = 1, kClear = 2 };

/// Caption of the transfer dialog and title of the protocol's messages.
[[nodiscard]] std::string_view ModeTitle(SessionKind kind);

/// One press of OK in the transfer dialog: connect, check that the radio is ready and is the
/// data's model, product and destination, then read, program or clear.
///
/// A read that fails or is cancelled leaves image and records exactly as they were. A failed or
/// cancelled program run leaves the radio with a partly written image and says so, or says that
/// nothing was written; the data are then as they were going to be written.
class TransferSession {
 public:
  TransferSession(core::RadioData& data, core::RunState& state, const LinkServices& services,
                  core::Prompts& prompts);

  /// Runs the session to its end. Never throws. Busy flag set meanwhile; the port is closed
  /// afterwards. With the error flag set, the dialog stays open and OK may be pressed again. After
  /// a program run that was cancelled while it wrote, which shows no message, the caller shows
  /// core::kPartlyWrittenText; after kDiffers it shows which fields differ. The witness may be
  /// null: a copy is read then and kept by nobody.
  TransferOutcome Run(SessionKind kind, const TransferOptions& options = {},
                      ProgramWitness* witness = nullptr);

 private:
  /// Knows whether the user has been told anything.
  class NotedPrompts : public core::Prompts {
   public:
    explicit NotedPrompts(core::Prompts& prompts) : prompts_(prompts) {}
    core::Answer Show(const core::Message& message) override;

    bool told = false;  ///< a statement; a question is none

   private:
    core::Prompts& prompts_;
  };

  void Start(SessionKind kind, const TransferOptions& options, ProgramWitness* witness);
  Ending RunSession(SessionKind kind, CloneProtocol& protocol);
  [[nodiscard]] Ending EndingWithoutTransfer() const;
  /// Tells the user of a failure that no exchange accounts for.
  void ReportUnexpected(const core::SystemError& error);
  /// What a run that breaks off here has done to the radio.
  [[nodiscard]] std::string_view NoteOnRadio() const;
  void EncodeForRadio();
  void ReadFromRadio(CloneProtocol& protocol);
  void ProgramToRadio(CloneProtocol& protocol);
  /// What the options ask of the radio before anything is written. False when that went wrong.
  [[nodiscard]] bool ReadBeforeWriting(CloneProtocol& protocol);
  [[nodiscard]] bool KeepCopy(const core::RadioData& radio);
  [[nodiscard]] bool RadioIsReady(CloneProtocol& protocol);
  [[nodiscard]] bool OpenForBlocks(std::string_view routine);
  [[nodiscard]] bool HasStopped() const { return state_.Error || state_.Cancel; }
  [[nodiscard]] bool Cancelled();
  void Complete();
  void Refuse(core::MessageId id, std::string_view title, const core::Facts& facts = {});

  void ReadDataChkModel(CloneProtocol& protocol, std::string_view title);
  void CompareRadio(const core::MemoryImage& scratch, std::string_view title);
  void ReadData(CloneProtocol& protocol, core::MemoryImage& buffer);
  bool ReadNextBlock(CloneProtocol& protocol, core::MemoryImage& buffer, int address);
  void WriteData(CloneProtocol& protocol);
  void TakeOverRadioBytes(CloneProtocol& protocol);
  void WriteRow(CloneProtocol& protocol, int block_address);
  void BeginWriting();
  [[nodiscard]] std::vector<Piece> PiecesAt(int block_address) const;

  void StartReceipt();
  /// Nothing of what is to be filled in has changed in the radio since it was written there by a
  /// run that did not complete.
  [[nodiscard]] bool HoldsBrokenRun(const core::RadioData& radio) const;
  void ReadBack(CloneProtocol& protocol);
  /// False when not everything could be read.
  [[nodiscard]] bool CompareBlocks(CloneProtocol& protocol);
  void Compare(const core::MemoryImage& radio, const std::vector<Piece>& pieces);
  void EndProgram();

  void BeginPhase(std::string_view name, std::string_view monitor);
  void ShowWay(int address);
  [[nodiscard]] bool HasSeveralPhases() const;

  core::RadioData& data_;
  core::RunState& state_;
  LinkServices services_;
  NotedPrompts prompts_;
  SerialLink link_;
  SessionKind kind_ = SessionKind::kRead;
  TransferOptions options_;
  ProgramWitness* witness_ = nullptr;
  Channels channels_ = Channels::kOfAvailableGroups;
  bool fills_ = false;        ///< the data are to be filled from the radio
  std::string_view routine_;  ///< the step under way, as the error log names it
  std::size_t bytes_done_ = 0;
  std::size_t bytes_total_ = 0;
  std::optional<int> block_;  ///< address of the block under way
  bool writing_begun_ = false;
  bool transfer_done_ = false;
  bool not_read_back_ = false;
  std::string began_;
  std::optional<core::MemoryImage> before_;  ///< the radio's memory, when it was read whole
  std::optional<Receipt> receipt_;
};

}  // namespace orvane::link
