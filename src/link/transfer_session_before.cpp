#include <memory>
#include <optional>

#include "image/codec.h"
#include "image/layout_places.h"
#include "link/fill_from_radio.h"
#include "link/transfer_plan.h"
#include "link/transfer_session.h"

/// What a program run does before it writes: it keeps what the radio holds, and takes from it what
/// a settings file has no place for.
namespace orvane::link {

namespace places = image::places;

using core::MessageId;

bool TransferSession::ReadBeforeWriting(CloneProtocol& protocol) {
  if (!options_.keep_copy && !fills_) return true;
  BeginPhase(options_.keep_copy ? "Keeping a copy" : "Reading", "radio reading...");
  core::RadioData radio;
  radio.MODELTYPE = data_.MODELTYPE;
  image::ResetToDefaults(radio, services_.clock.Today());
  ReadData(protocol, radio.Image);
  if (HasStopped()) return false;
  block_.reset();  // what is refused from here on did not fail at one
  image::DecodeAll(radio);
  before_ = radio.Image;
  if (options_.keep_copy && !KeepCopy(radio)) return false;
  if (fills_) {
    if (!HoldsBrokenRun(radio)) {
      Refuse(MessageId::kRadioMixed, ModeTitle(kind_));
      return false;
    }
    FillFromRadio(data_, radio, options_.edited);
    EncodeForRadio();
  }
  return true;
}

bool TransferSession::KeepCopy(const core::RadioData& radio) {
  if (witness_ == nullptr) return true;
  const std::optional<core::SystemError> failure = witness_->RadioWasRead(radio);
  if (!failure) return true;
  Refuse(MessageId::kCopyNotKept, ModeTitle(kind_), {{"reason", failure->description + "."}});
  return false;
}

bool TransferSession::HoldsBrokenRun(const core::RadioData& radio) const {
  const core::RadioData* const broken = options_.broken_run.get();
  if (broken == nullptr || broken->MODELTYPE != data_.MODELTYPE) return true;
  const auto filled = [this](const core::RadioData& from) {
    auto data = std::make_unique<core::RadioData>(data_);
    FillFromRadio(*data, from, options_.edited);
    image::EncodeForRadio(*data, services_.clock.Today());
    // What a run leaves to the radio, or writes anew.
    for (const image::Bits& bits :
         {places::kRadioOwnByte, places::kRadioOwnBit, places::kWrittenMark}) {
      image::WriteBits(data->Image.All().data(), bits, 0);
    }
    return data;
  };
  const auto now = filled(radio);
  const auto then = filled(*broken);
  for (int address = kFirstBlock; address <= data_.Image.LastIndex(); address += kBlockSize) {
    for (const Piece& piece : PiecesToWrite(address, *now, channels_)) {
      for (int at = piece.address; at < piece.address + piece.length; ++at) {
        if (now->Image[at] != then->Image[at]) return false;
      }
    }
  }
  return true;
}

}  // namespace orvane::link
