#include <optional>
#include <string>
#include <utility>

#include "core/app_settings.h"
#include "image/codec.h"
#include "link/transfer_session.h"

/// What a program run does after the last block was acknowledged: the receipt and reading back.
namespace orvane::link {

using core::MessageId;

void TransferSession::StartReceipt() {
  receipt_.emplace();
  Receipt& receipt = *receipt_;
  receipt.began = began_;
  receipt.port = services_.port_label.Text();
  receipt.model_type = data_.MODELTYPE;
  receipt.model = image::ModelName(data_);
  receipt.destination = core::BuiltInDestination(image::Sel1(data_.Image));
  for (int address = kFirstBlock; address <= data_.Image.LastIndex(); address += kBlockSize) {
    const std::vector<Piece> pieces = PiecesAt(address);
    if (!pieces.empty()) ++receipt.blocks_written;
    for (const Piece& piece : pieces)
      receipt.bytes_written += static_cast<std::size_t>(piece.length);
  }
  if (before_) receipt.crc_before = MemoryCrc(*before_);
  receipt.sent = data_.Image;
  receipt.found = data_.Image;
}

// Everything has been acknowledged. Whatever happens here, it is no failed write.
void TransferSession::ReadBack(CloneProtocol& protocol) {
  BeginPhase("Reading back", "radio reading back...");
  routine_ = "frmRadio102.ReadBack";
  try {
    receipt_->compared_all = CompareBlocks(protocol);
  } catch (const LinkFailure& failure) {
    link_.WriteErrLog(routine_, failure.Error());
  }
  link_.PortClose();
  not_read_back_ = !receipt_->compared_all;
  state_.Error = false;
  link_.ForgetCancel();
}

bool TransferSession::CompareBlocks(CloneProtocol& protocol) {
  core::MemoryImage radio;
  for (int address = kFirstBlock; address <= data_.Image.LastIndex(); address += kBlockSize) {
    const std::vector<Piece> pieces = PiecesAt(address);
    ShowWay(address);
    if (pieces.empty()) continue;
    if (!ReadNextBlock(protocol, radio, address) || HasStopped()) {
      if (Cancelled()) protocol.AbortTransfer();
      return false;
    }
    Compare(radio, pieces);
  }
  ShowWay(data_.Image.LastIndex());
  services_.clock.Pause(kEndOfPhasePause);
  return true;
}

void TransferSession::Compare(const core::MemoryImage& radio, const std::vector<Piece>& pieces) {
  ++receipt_->blocks_compared;
  for (const Piece& piece : pieces) {
    for (int address = piece.address; address < piece.address + piece.length; ++address) {
      const auto own = RadioOwnBits(address);
      if (own == 0xFF) continue;
      ++receipt_->bytes_compared;
      const std::uint8_t sent = data_.Image[address];
      const auto found = static_cast<std::uint8_t>((radio[address] & ~own) | (sent & own));
      if (found == sent) continue;
      receipt_->mismatches.push_back({address, sent, found});
      receipt_->found[address] = found;
    }
  }
}

void TransferSession::EndProgram() {
  Receipt& receipt = *receipt_;
  receipt.ended = services_.clock.Timestamp();
  core::MemoryImage after = before_.value_or(receipt.found);
  for (int address = kFirstBlock; address <= after.LastIndex(); address += kBlockSize) {
    for (const Piece& piece : PiecesAt(address)) {
      for (int at = piece.address; at < piece.address + piece.length; ++at) {
        after[at] = receipt.found[at];
      }
    }
  }
  receipt.crc_after = MemoryCrc(after);

  if (!receipt.mismatches.empty()) {
    state_.Error = true;
  } else if (not_read_back_) {
    prompts_.Show(core::MakeMessage(MessageId::kNotReadBack, ModeTitle(kind_)));
  } else {
    Complete();
  }
}

}  // namespace orvane::link
