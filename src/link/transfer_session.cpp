#include "link/transfer_session.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/narrowband.h"
#include "core/product.h"
#include "image/codec.h"
#include "image/image_check.h"
#include "image/layout_places.h"
#include "link/fill_from_radio.h"

namespace orvane::link {
namespace {

namespace places = image::places;
using core::MessageId;

constexpr double kBeforeWritingPause = 0.010;

// The image keeps its own bytes 0 and 1 whatever the radio holds.
constexpr int kFirstTakenByte = 2;
constexpr int kPercentAddressBeforeWriting = 32;

std::string_view ModelCheckTitle(SessionKind kind) {
  return kind == SessionKind::kClear ? "Radio Clear" : ModeTitle(kind);
}

}  // namespace

std::string_view ModeTitle(SessionKind kind) {
  switch (kind) {
    case SessionKind::kRead:
      return core::kReadFromRadio;
    case SessionKind::kProgram:
      return core::kProgramToRadio;
    case SessionKind::kClear:
      return "Clear Distress Log Data";
  }
  return {};
}

TransferSession::TransferSession(core::RadioData& data, core::RunState& state,
                                 const LinkServices& services, core::Prompts& prompts)
    : data_(data), state_(state), services_(services), prompts_(prompts), link_(state, services) {}

core::Answer TransferSession::NotedPrompts::Show(const core::Message& message) {
  told = told || message.buttons == core::Buttons::kOk;
  return prompts_.Show(message);
}

TransferOutcome TransferSession::Run(SessionKind kind, const TransferOptions& options,
                                     ProgramWitness* witness) {
  Start(kind, options, witness);
  TransferOutcome outcome;
  try {
    CloneProtocol protocol(link_, prompts_, std::string(ModeTitle(kind)));
    outcome.ending = RunSession(kind, protocol);
  } catch (const LinkFailure& failure) {
    ReportUnexpected(failure.Error());
  } catch (const std::exception& failure) {
    ReportUnexpected({0, failure.what()});
  }
  link_.PortClose();
  services_.view.ShowProgress(0);
  const bool differs = receipt_ && !receipt_->mismatches.empty();
  if (transfer_done_) outcome.ending = differs ? Ending::kDiffers : Ending::kDone;
  outcome.partly_written = writing_begun_ && (!transfer_done_ || differs);
  if (outcome.ending == Ending::kCancelled && HasSeveralPhases() && !writing_begun_) {
    prompts_.Show(core::MakeMessage(MessageId::kNothingWritten, ModeTitle(kind_)));
  }
  state_.Busy = false;
  outcome.said = prompts_.told;
  outcome.block = block_;
  outcome.not_read_back = not_read_back_;
  outcome.receipt = std::move(receipt_);
  return outcome;
}

void TransferSession::Start(SessionKind kind, const TransferOptions& options,
                            ProgramWitness* witness) {
  kind_ = kind;
  options_ =
      kind == SessionKind::kProgram ? options : TransferOptions{.only_look = options.only_look};
  witness_ = witness;
  channels_ = options_.put_back ? Channels::kOfAllGroups : Channels::kOfAvailableGroups;
  fills_ =
      options_.fill_from_radio && !options_.put_back && FileLacksSomething(core::ProfileOf(data_));
  routine_ = "frmRadio102.Connect";
  block_.reset();
  prompts_.told = false;
  writing_begun_ = false;
  transfer_done_ = false;
  not_read_back_ = false;
  bytes_done_ = 0;
  began_ = services_.clock.Timestamp();
  before_.reset();
  receipt_.reset();
  state_.Busy = true;
}

Ending TransferSession::EndingWithoutTransfer() const {
  if (link_.CancelRequested()) return Ending::kCancelled;
  return state_.Error ? Ending::kFailed : Ending::kDeclined;
}

std::string_view TransferSession::NoteOnRadio() const {
  if (writing_begun_) return core::kPartlyWrittenText;
  return kind_ == SessionKind::kProgram ? core::kNothingWrittenText : "";
}

void TransferSession::ReportUnexpected(const core::SystemError& error) {
  link_.WriteErrLog(routine_, error);
  prompts_.Show(core::MakeMessage(
      MessageId::kUnexpectedFailure, core::kProductName,
      link_.PortFacts({{"failure", std::to_string(error.number) + "\r\r" + error.description},
                       {"note", std::string(NoteOnRadio())}})));
  state_.Error = true;
  state_.Cancel = true;
}

Ending TransferSession::RunSession(SessionKind kind, CloneProtocol& protocol) {
  link_.Monitor("startsync...");
  if (!protocol.Connect()) {
    link_.Monitor("can not syncing!!");
    state_.Error = true;
    return EndingWithoutTransfer();
  }
  link_.Monitor("sync ok");
  switch (kind) {
    case SessionKind::kRead:
      ReadFromRadio(protocol);
      break;
    case SessionKind::kProgram: {
      const bool goes =
          options_.put_back || core::NarrowbandCheck(data_, core::NarrowbandDirection::kDownload,
                                                     services_.clock.Today(), prompts_);
      if (!goes) return Ending::kDeclined;
      if (!fills_) EncodeForRadio();
      ProgramToRadio(protocol);
      break;
    }
    case SessionKind::kClear:
      static_cast<void>(RadioIsReady(protocol));
      break;
  }
  return EndingWithoutTransfer();
}

bool TransferSession::RadioIsReady(CloneProtocol& protocol) {
  if (!protocol.StatusCheck()) {
    Refuse(MessageId::kRadioNotReady, ModeTitle(kind_));
    return false;
  }
  ReadDataChkModel(protocol, ModelCheckTitle(kind_));
  return !state_.Error;
}

void TransferSession::EncodeForRadio() {
  if (!options_.put_back) image::EncodeForRadio(data_, services_.clock.Today());
}

void TransferSession::ReadFromRadio(CloneProtocol& protocol) {
  if (!RadioIsReady(protocol)) return;
  BeginPhase("Reading", "radio reading...");
  core::MemoryImage buffer = data_.Image;
  ReadData(protocol, buffer);
  if (HasStopped()) return;

  // Decoded aside, so that the data set changes at one stroke or not at all.
  core::RadioData received = data_;
  const auto taken = buffer.Used().subspan(kFirstTakenByte);
  std::copy(taken.begin(), taken.end(), received.Image.Used().begin() + kFirstTakenByte);
  image::DecodeAll(received);
  data_ = std::move(received);
  if (options_.only_look) {
    transfer_done_ = true;
    return;
  }
  Complete();
  static_cast<void>(core::NarrowbandCheck(data_, core::NarrowbandDirection::kUpload,
                                          services_.clock.Today(), prompts_));
}

void TransferSession::ProgramToRadio(CloneProtocol& protocol) {
  if (!RadioIsReady(protocol) || !ReadBeforeWriting(protocol)) return;
  BeginPhase("Writing", "radio writing...");
  WriteData(protocol);
  if (HasStopped()) return;
  transfer_done_ = true;
  StartReceipt();
  if (options_.read_back) ReadBack(protocol);
  EndProgram();
}

// A press of Cancel may have fallen into an exchange that failed for another reason.
bool TransferSession::Cancelled() {
  if (state_.Error && link_.CancelRequested()) state_.Cancel = true;
  return state_.Cancel;
}

void TransferSession::Complete() {
  transfer_done_ = true;
  link_.Monitor("");
  prompts_.Show(core::MakeMessage(MessageId::kComplete, ModeTitle(kind_)));
}

void TransferSession::Refuse(MessageId id, std::string_view title, const core::Facts& facts) {
  state_.Error = true;
  prompts_.Show(core::MakeMessage(id, title, facts));
}

bool TransferSession::OpenForBlocks(std::string_view routine) {
  routine_ = routine;
  if (link_.PortOpen()) return true;
  Refuse(MessageId::kPortFailed, ModeTitle(kind_),
         link_.PortFacts({{"reason", link_.OpenFailure().description}}));
  return false;
}

void TransferSession::ReadDataChkModel(CloneProtocol& protocol, std::string_view title) {
  if (!OpenForBlocks("frmRadio102.ReadDataChkModel")) return;
  link_.Monitor("model check...");
  core::MemoryImage scratch;
  scratch.SetLastIndex(data_.Image.LastIndex());
  const int first_code = core::ProfileOf(data_).radio_code_address;
  const int second_code = data_.Image.LastIndex() - 1;
  // A memory that ends before the product byte has none to ask for.
  const bool has_product = image::kProductOffset <= data_.Image.LastIndex();
  const bool complete =
      protocol.ReadBlock(scratch.All(), first_code, 2) &&
      protocol.ReadBlock(scratch.All(), second_code, 2) &&
      (!has_product || protocol.ReadBlock(scratch.All(), image::kProductOffset, 1)) &&
      protocol.ReadBlock(scratch.All(), image::kDestinationOffset, 1);
  if (Cancelled()) return;
  if (!complete) return Refuse(MessageId::kExchangeFailed, "Model Check");
  CompareRadio(scratch, title);
}

void TransferSession::CompareRadio(const core::MemoryImage& scratch, std::string_view title) {
  const core::ModelProfile& profile = core::ProfileOf(data_);
  const image::ImageFaults faults =
      image::CheckImage(scratch.Used(), profile, profile.radio_code_address);
  if (faults.length || faults.model) {
    const core::MessageCase other = core::OtherModelOfRadio(faults.codes, profile);
    Refuse(other.id, title, other.facts);
  }
  if (faults.product) {
    Refuse(MessageId::kProductOfRadio, title, core::ProductFacts(faults.product_byte, profile));
  }
  if (state_.Error) return;
  const core::DestinationBits theirs{image::Sel1(scratch), image::Sel2(scratch)};
  const core::DestinationBits ours{image::Sel1(data_.Image), image::Sel2(data_.Image)};
  if (theirs != ours) {
    Refuse(MessageId::kDestinationOfRadio, title, core::DestinationFacts(theirs, ours));
  }
}

// A program run goes on with the port as it is.
void TransferSession::ReadData(CloneProtocol& protocol, core::MemoryImage& buffer) {
  if (!OpenForBlocks("frmRadio102.ReadData")) return;
  const bool programs = kind_ == SessionKind::kProgram;
  const std::int32_t last = buffer.LastIndex();
  ShowWay(0);
  for (int address = kFirstBlock; address <= last && !HasStopped(); address += kBlockSize) {
    ShowWay(address);
    if (!IsBlockRead(address)) continue;
    if (!ReadNextBlock(protocol, buffer, address)) break;
  }
  const bool cancelled = Cancelled();
  if (cancelled) protocol.AbortTransfer();
  if (!programs || HasStopped()) link_.PortClose();
  if (cancelled) return;
  if (state_.Error) {
    return Refuse(programs ? MessageId::kCopyFailed : MessageId::kExchangeFailed, ModeTitle(kind_));
  }
  services_.clock.Pause(kEndOfPhasePause);
}

bool TransferSession::ReadNextBlock(CloneProtocol& protocol, core::MemoryImage& buffer,
                                    int address) {
  if (!link_.CancelRequested()) block_ = address;
  if (!protocol.ReadBlock(buffer.All(), address, kBlockSize)) return false;
  bytes_done_ += WireBytesOfRead(kBlockSize);
  services_.view.BlockDone(address, bytes_done_, bytes_total_);
  return true;
}

// The byte and the bit that are the radio's own keep its values. Whether these two reads succeed
// does not matter: what was not received leaves the image's own value to be written.
void TransferSession::TakeOverRadioBytes(CloneProtocol& protocol) {
  static_cast<void>(protocol.ReadBlock(data_.Image.All(), places::kRadioOwnByte.FirstByte(), 1));
  std::uint8_t& destination = data_.Image[image::kDestinationOffset];
  const std::uint8_t own = destination;
  static_cast<void>(protocol.ReadBlock(data_.Image.All(), image::kDestinationOffset, 1));
  std::uint8_t* const bytes = data_.Image.All().data();
  const std::uint32_t radio_own = image::ReadBits(bytes, places::kRadioOwnBit);
  destination = own;
  image::WriteBits(bytes, places::kRadioOwnBit, radio_own);
}

void TransferSession::WriteData(CloneProtocol& protocol) {
  if (!OpenForBlocks("frmRadio102.WriteData")) return;
  const std::int32_t last = data_.Image.LastIndex();
  ShowWay(0);
  TakeOverRadioBytes(protocol);
  ShowWay(kPercentAddressBeforeWriting);
  services_.clock.Pause(kBeforeWritingPause);
  if (!options_.put_back) {
    image::WriteBits(data_.Image.All().data(), places::kWrittenMark, places::kWrittenMarkValue);
  }

  for (int address = kFirstBlock; address <= last; address += kBlockSize) {
    ShowWay(address);
    WriteRow(protocol, address);
    if (HasStopped()) break;
  }
  const bool cancelled = Cancelled();
  if (!options_.read_back || HasStopped()) link_.PortClose();
  if (cancelled) {
    state_.Error = true;  // also when Cancel was pressed between two blocks that went well
    return;
  }
  if (!state_.Error) return services_.clock.Pause(kEndOfPhasePause);
  Refuse(MessageId::kWritingFailed, core::kProgramToRadio,
         {{"note", std::string(core::kPartlyWrittenText)}});
}

// A byte that fails does not stop the row, but the next one's success must not hide it.
void TransferSession::WriteRow(CloneProtocol& protocol, int block_address) {
  const std::vector<Piece> pieces = PiecesAt(block_address);
  if (!pieces.empty() && !link_.CancelRequested()) block_ = block_address;
  bool failed = false;
  for (const Piece& piece : pieces) {
    if (!link_.CancelRequested()) BeginWriting();
    if (protocol.WriteBlock(data_.Image.All(), piece.address, piece.length)) {
      bytes_done_ += WireBytesOfWrite(piece.length);
    } else {
      failed = true;
    }
  }
  state_.Error = failed;
  if (!pieces.empty() && !failed)
    services_.view.BlockDone(block_address, bytes_done_, bytes_total_);
}

std::vector<Piece> TransferSession::PiecesAt(int block_address) const {
  return PiecesToWrite(block_address, data_, channels_);
}

void TransferSession::BeginWriting() {
  if (!std::exchange(writing_begun_, true) && witness_ != nullptr) witness_->WritingBegins(data_);
}

bool TransferSession::HasSeveralPhases() const {
  return options_.keep_copy || options_.read_back || fills_;
}

// What is still to come is counted anew: filling the data may change which groups are available.
void TransferSession::BeginPhase(std::string_view name, std::string_view monitor) {
  services_.view.Phase(name);
  link_.Monitor(monitor);
  if (kind_ == SessionKind::kRead) {
    bytes_total_ = LoadOfReading(data_.Image.LastIndex()).bytes;
    return;
  }
  if (receipt_) return;
  bytes_total_ = bytes_done_ + LoadOfWriting(data_, channels_).bytes;
  if ((options_.keep_copy || fills_) && !before_) {
    bytes_total_ += LoadOfReading(data_.Image.LastIndex()).bytes;
  }
  if (options_.read_back) bytes_total_ += LoadOfReadingBack(data_, channels_).bytes;
}

// Over several phases the bytes tell how far the run has come, else the address does.
void TransferSession::ShowWay(int address) {
  services_.view.ShowProgress(HasSeveralPhases()
                                  ? static_cast<int>(100 * bytes_done_ / bytes_total_)
                                  : PercentAt(address, data_.Image.LastIndex()));
}

}  // namespace orvane::link
