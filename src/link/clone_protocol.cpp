#include "link/clone_protocol.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "core/number_text.h"
#include "core/text.h"
#include "link/clone_frame.h"

namespace orvane::link {
namespace {

using core::Answer;
using core::MessageId;

constexpr double kReplySeconds = 10;
constexpr double kHandshakeSeconds = 1;
constexpr double kModeReplySeconds = 1;
constexpr double kSettleSeconds = 1;
constexpr double kAbortSeconds = 10;
constexpr int kHandshakeTries = 3;
constexpr int kSyncPasses = 2;

// Fields of a reply behind its command word.
constexpr std::size_t kAddressAt = 1;
constexpr std::size_t kStatusAt = 1;
constexpr std::size_t kLengthAt = 2;
constexpr std::size_t kDataAt = 3;
constexpr std::size_t kChecksumAt = 4;

std::string_view FieldAt(const std::vector<std::string_view>& fields, std::size_t index) {
  return index < fields.size() ? fields[index] : std::string_view();
}

bool FieldIs(std::string_view field, int number) {
  return core::ParseHex(field) == static_cast<unsigned>(number);
}

// The bytes of a data field that must hold exactly that many.
std::optional<std::vector<std::uint8_t>> ParseHexData(std::string_view text, int length) {
  if (text.size() != 2 * static_cast<std::size_t>(length)) return std::nullopt;
  std::vector<std::uint8_t> bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const std::optional<unsigned> byte = core::ParseHex(text.substr(i, 2));
    if (!byte) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(*byte));
  }
  return bytes;
}

}  // namespace

CloneProtocol::CloneProtocol(SerialLink& link, core::Prompts& prompts, std::string title,
                             std::int16_t retry_count)
    : state_(link.State()),
      link_(link),
      prompts_(prompts),
      title_(std::move(title)),
      retry_count_(retry_count) {}

void CloneProtocol::Tell(MessageId id, const core::Facts& facts) {
  prompts_.Show(core::MakeMessage(id, title_, facts));
}

bool CloneProtocol::PortFailed() {
  Tell(MessageId::kPortFailed, link_.PortFacts({{"reason", link_.OpenFailure().description}}));
  return false;
}

bool CloneProtocol::Connect() {
  link_.ForgetCancel();
  if (!link_.PortInit()) return PortFailed();
  if (!Handshake() || !RequestMode()) return false;
  if (!link_.PortInitCP()) return PortFailed();
  link_.Rest(kSettleSeconds);
  link_.FlushInput();  // an answer to the mode request that came too late
  return Sync();
}

bool CloneProtocol::Handshake() {
  for (int attempt = 0; attempt < kHandshakeTries && !link_.CancelRequested(); ++attempt) {
    link_.SendByte(kHandshakeByte);
    if (state_.Error) {
      LetLineRunDry();
      continue;
    }
    if (link_.WaitByte(kHandshakeByte, kHandshakeSeconds) != WaitStatus::kArrived) continue;
    link_.SendByte(kHandshakeConfirm);
    if (state_.Error) LetLineRunDry();
    return true;
  }
  if (!link_.CancelRequested()) {
    link_.Monitor("sync failed!!");
    Tell(MessageId::kNoAnswer, link_.PortFacts());
  }
  link_.PortClose();
  return false;
}

// A wrong echo means that the radio still sends what an earlier program, ended in the middle of an
// exchange, has asked it for: at most one data reply. Its last bytes would be taken for echoes and
// answers of this session.
void CloneProtocol::LetLineRunDry() {
  link_.Rest(kHandshakeSeconds);
  link_.FlushInput();
}

bool CloneProtocol::RequestMode() {
  if (link_.CancelRequested()) return false;
  link_.Monitor("sending 'ACMD:002'...");
  link_.SendFixedLine(kModeRequest);
  const ReceivedText reply = link_.ReadLineBinary(kModeReplySeconds);
  switch (reply.status) {
    case WaitStatus::kTimedOut:
      return true;  // a radio that needs no mode request does not answer it
    case WaitStatus::kMismatch:
      Tell(MessageId::kModeUnknown);
      return true;
    case WaitStatus::kArrived:
      break;
    default:
      return false;
  }
  if (reply.text == "OK" || reply.text == kCommandUnknown) return true;
  Tell(reply.text == kRefusal ? MessageId::kModeRefused : MessageId::kModeUnknown);
  return false;
}

WaitStatus CloneProtocol::WaitCmdOK() {
  const ReceivedText reply = link_.ReadText(kCommandOk.size(), kReplySeconds);
  if (reply.status != WaitStatus::kArrived) return reply.status;
  if (reply.text != kCommandOk || !link_.WaitCrLf()) return WaitStatus::kMismatch;
  state_.Error = false;
  return WaitStatus::kArrived;
}

template <class Send>
WaitStatus CloneProtocol::Exchange(Send send) {
  send();
  const bool echoed = !state_.Error;
  state_.Error = true;
  const WaitStatus status = WaitCmdOK();
  if (status != WaitStatus::kArrived || echoed) return status;
  state_.Error = true;
  return WaitStatus::kMismatch;
}

bool CloneProtocol::Sync() {
  int passed = 0;
  for (int pass = 1; pass <= kSyncPasses; ++pass) {
    const WaitStatus status = SyncPass(pass);
    if (status == WaitStatus::kArrived) ++passed;
    if (status == WaitStatus::kCancelled || status == WaitStatus::kMismatch) break;
  }
  if (passed == kSyncPasses) return true;
  link_.Monitor("can'not Receive '#CMDOK' !!");
  return false;
}

WaitStatus CloneProtocol::SyncPass(int pass) {
  WaitStatus status = WaitStatus::kTimedOut;
  for (int attempts = retry_count_; attempts > 0; --attempts) {
    if (link_.CancelRequested()) return WaitStatus::kCancelled;
    link_.Monitor("sending '#CMDSY'...(" + std::to_string(pass) + ")");
    status = Exchange([&] { link_.SendLine(kCommandSync); });
    if (status != WaitStatus::kTimedOut && status != WaitStatus::kRefused) break;
  }
  return status;
}

// The user decides after a refused command. The line end behind "ERROR" has not been read, and
// after a quick answer it may still be on the wire; it must not be taken for the echo of what is
// sent next.
bool CloneProtocol::Resynchronise() {
  const core::Message question = core::MakeMessage(MessageId::kConfirmSync, title_);
  if (prompts_.Show(question) != Answer::kOk) return false;
  static_cast<void>(link_.WaitCrLf());
  link_.FlushInput();
  return Sync();
}

bool CloneProtocol::Acknowledged(std::string_view frame, Flush flush) {
  if (flush == Flush::kOnce) link_.FlushInput();
  int attempts = retry_count_;
  while (attempts > 0) {
    state_.Error = true;
    if (link_.CancelRequested()) {
      state_.Cancel = true;
      return false;
    }
    if (flush == Flush::kEachAttempt) link_.FlushInput();
    const WaitStatus status = Exchange([&] { link_.SendText(frame); });
    if (status == WaitStatus::kArrived) return true;
    if (status != WaitStatus::kTimedOut && status != WaitStatus::kRefused) return false;
    --attempts;
    if (status == WaitStatus::kRefused && attempts == 0 && Resynchronise()) attempts = 1;
  }
  return false;
}

bool CloneProtocol::ReadBlock(std::span<std::uint8_t> target, int address, int length) {
  const std::string frame = BuildFrame(kCommandRead, AddressField(address), LengthField(length));
  const bool acknowledged = Acknowledged(frame, Flush::kOnce);
  if (acknowledged) ReceiveDataReply(target, address, length);
  // Synchronising again or a line sent to complain may have cleared the flag with its echo.
  if (!acknowledged) state_.Error = true;
  return !state_.Error;
}

bool CloneProtocol::WriteBlock(std::span<const std::uint8_t> image, int address, int length) {
  const std::span<const std::uint8_t> bytes =
      image.subspan(static_cast<std::size_t>(address), static_cast<std::size_t>(length));
  const std::string frame =
      BuildFrame(kCommandWrite, AddressField(address), LengthField(length), HexData(bytes));
  const bool acknowledged = Acknowledged(frame, Flush::kEachAttempt);
  state_.Error = !acknowledged;
  return acknowledged;
}

ReceivedText CloneProtocol::ReadHeader() {
  ReceivedText header = link_.ReadText(kCommandData.size(), kReplySeconds);
  if (header.status == WaitStatus::kCancelled) Tell(MessageId::kCancelled);
  if (header.status == WaitStatus::kTimedOut) Tell(MessageId::kTimeOut);
  return header;
}

void CloneProtocol::ReceiveDataReply(std::span<std::uint8_t> target, int address, int length) {
  state_.Error = true;
  link_.ClearCancel();
  const ReceivedText header = ReadHeader();
  if (header.status != WaitStatus::kArrived) return;
  if (header.text != kCommandData) {
    link_.SendLine(kCommandError);
    state_.Error = true;
    return;
  }
  ParseDataReply(target, address, length);
}

void CloneProtocol::ParseDataReply(std::span<std::uint8_t> target, int address, int length) {
  const ReceivedText rest = link_.ReadLine(kReplySeconds);
  if (rest.status == WaitStatus::kTimedOut) Tell(MessageId::kTimeOut);
  if (rest.status != WaitStatus::kArrived) return;
  if (!VerifyLineChecksum(std::string(kCommandData) + rest.text)) {
    link_.SendLine(kCommandChecksumWrong);
    state_.Error = true;
    return;
  }
  const std::vector<std::string_view> fields = core::Split(rest.text, static_cast<char>(kTab));
  if (!FieldIs(FieldAt(fields, kAddressAt), address)) return Tell(MessageId::kWrongAddress);
  if (!FieldIs(FieldAt(fields, kLengthAt), length)) return Tell(MessageId::kWrongLength);
  // An empty data field is left out with its TAB; the checksum in its place is no data.
  const bool has_data = fields.size() > kChecksumAt;
  const auto bytes = ParseHexData(has_data ? FieldAt(fields, kDataAt) : "", length);
  if (!bytes) return Tell(MessageId::kWrongLength);
  std::copy(bytes->begin(), bytes->end(), target.begin() + address);
  link_.SendLine(kCommandOk);  // its echo decides the error flag
}

bool CloneProtocol::StatusCheck() {
  Status status = Status::kBusy;
  while (status == Status::kBusy) {
    status = AskStatus();
    if (status != Status::kBusy) break;
    core::Message busy = core::MakeMessage(MessageId::kRadioBusy, title_);
    busy.default_answer = Answer::kCancel;
    if (prompts_.Show(busy) != Answer::kRetry) {
      link_.Monitor("status check.. NG!!");
      status = Status::kFailed;
    }
  }
  state_.Error = status != Status::kReady;
  return status == Status::kReady;
}

CloneProtocol::Status CloneProtocol::AskStatus() {
  link_.Monitor("status check..");
  if (!Acknowledged(BuildFrame(kCommandStatusRequest, "00"), Flush::kNever)) {
    return Status::kFailed;
  }
  const Status status = ReadStatusReply();
  if (status == Status::kReady) link_.Monitor("status check.. OK");
  if (status == Status::kFailed) link_.Monitor("status check.. NG!!");
  return status;
}

CloneProtocol::Status CloneProtocol::ReadStatusReply() {
  const ReceivedText header = ReadHeader();
  if (header.status != WaitStatus::kArrived) return Status::kFailed;
  if (header.text != kCommandStatusReply) {
    link_.SendLine(kCommandUnknown);
    return Status::kFailed;
  }
  const ReceivedText rest = link_.ReadLine(kReplySeconds);
  if (rest.status == WaitStatus::kCancelled) Tell(MessageId::kCancelled);
  if (rest.status == WaitStatus::kTimedOut) Tell(MessageId::kTimeOut);
  if (rest.status != WaitStatus::kArrived) return Status::kFailed;
  if (!VerifyLineChecksum(std::string(kCommandStatusReply) + rest.text)) {
    link_.SendLine(kCommandChecksumWrong);
    return Status::kFailed;
  }
  link_.SendLine(kCommandOk);
  if (state_.Error) return Status::kFailed;
  const std::vector<std::string_view> fields = core::Split(rest.text, static_cast<char>(kTab));
  const std::string_view status = FieldAt(fields, kStatusAt);
  if (status == "00") return Status::kReady;
  return status == "01" ? Status::kBusy : Status::kFailed;
}

void CloneProtocol::AbortTransfer() {
  // Cancel may have fallen into an answer; a radio that sends does not listen.
  link_.AwaitSilence();
  link_.SendByte(kCancelByte);
  // The answer is waited for so that the radio has let go of the line; without one nothing is lost.
  static_cast<void>(link_.WaitByte(kAcknowledgeByte, kAbortSeconds));
  state_.Cancel = true;
}

}  // namespace orvane::link
