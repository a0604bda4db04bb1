#include <algorithm>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/model_profile.h"
#include "core/narrowband.h"
#include "core/rendering.h"
#include "document/field_locks.h"
#include "editor/channel_page.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::ChannelRecord;

// Bits of a scrambler value.
constexpr int kScramblerOn = 4;
constexpr int kScramblerCode = 3;

QString DisplayHalf(std::string_view half) {
  return platform::FromAnsi(core::DisplayLetters(half));
}

}  // namespace

void ChannelPage::Fill(const NodeRef& node) {
  const core::BusyScope busy(State());
  node_ = node;
  ShowForm();
  SetHelpContexts();
  FillFlags();
  FillScrambler();
  name_->ShowText(platform::FromAnsi(Channel().ChTag));
  if (IsMarine()) {
    FillMarine();
  } else {
    FillExtra();
  }
  FollowEntry();
  FollowEnable();
}

void ChannelPage::ShowChecked(QAbstractButton& button, bool checked) {
  const core::BusyScope busy(State());
  button.setChecked(checked);
}

void ChannelPage::FillFlags() {
  for (const auto& [box, flag] : flags_) box->setChecked(Channel().*flag);
}

void ChannelPage::FillScrambler() {
  const int scramble = Channel().Scramble;
  const bool on = (scramble & kScramblerOn) != 0;
  scrambler_->ShowItem(on ? (scramble & kScramblerCode) + 1 : 0);
}

void ChannelPage::FillMarine() {
  const core::ChannelPlanEntry& plan = Plan();
  const QString label = platform::FromAnsi(plan.text);
  // Two digits, three from channel 100 on; channels "A" have their letter behind them.
  display_left_->setMaxLength(static_cast<int>(label.size()));
  display_left_->ShowText(label);
  ShowPlanReceiveFrequency();
  frequencies_[kTransmit].box->ShowText(
      platform::FromAnsi(core::PlanFrequencyText(plan.tx_frequency)));
  for (const Frequency& frequency : frequencies_) frequency.box->SetEdited(false);
  enable_->setChecked(Channel().Enable);
}

void ChannelPage::FillExtra() {
  const ChannelRecord& channel = Channel();
  const std::string& right = channel.CHDisplayR;
  const auto length = static_cast<std::size_t>(display_right_->maxLength());
  display_left_->setMaxLength(display_left_->Rule().max_length);
  display_left_->ShowText(DisplayHalf(std::string_view(channel.CHDisplayL).substr(0, length)));
  display_right_->ShowText(
      DisplayHalf(std::string_view(right).substr(right.size() - std::min(length, right.size()))));
  for (const Frequency& frequency : frequencies_) ShowFrequency(frequency);

  const bool of_kind = OfShownKind();
  enable_->setChecked(document::ShowsEnabled(Data(), Place()));
  const std::array<bool, 3> member = {channel.USA_Group, channel.INT_Group, channel.CAN_Group};
  for (std::size_t i = 0; i < groups_.size(); ++i) groups_[i]->setChecked(of_kind && member[i]);
  ShowBandwidth();
  ShowTones();
}

const core::ChannelPlanEntry& ChannelPage::Plan() const {
  const int position = Channel().Position;
  const bool in_plan = position >= 0 && position < core::kMarineChannels;
  return core::ChannelPlan()[static_cast<std::size_t>(in_plan ? position : node_.number)];
}

document::ChannelPlace ChannelPage::Place() const {
  return PlaceOfNode(node_).value_or(document::ChannelPlace());
}

bool ChannelPage::OfShownKind() const {
  return core::OfKind(core::ProfileOf(Data()), Channel(), UnderLmrRoot());
}

void ChannelPage::ShowPlanReceiveFrequency() {
  const double mhz = Plan().Receive(Channel().Duplex);
  frequencies_[kReceive].box->ShowText(platform::FromAnsi(core::PlanFrequencyText(mhz)));
}

void ChannelPage::ShowBandwidth() {
  const core::BusyScope busy(State());
  if (core::ProfileOf(Data()).shows_bandwidth) {
    (Channel().Narrow ? narrow_ : wide_)->setChecked(true);
    return;
  }
  // Neither is chosen until the user chooses one; buttons that exclude each other never let go.
  for (QRadioButton* button : {wide_, narrow_}) {
    button->setAutoExclusive(false);
    button->setChecked(false);
  }
  for (QRadioButton* button : {wide_, narrow_}) button->setAutoExclusive(true);
}

void ChannelPage::ShowTones() {
  const ChannelRecord& channel = Channel();
  // The index of an item is the tone's index; a value without an item shows nothing and stays.
  tones_[kTransmit].ctcss->ShowItem(channel.TxCTCSS);
  tones_[kTransmit].dcs->ShowItem(channel.TxDCS);
  tones_[kReceive].ctcss->ShowItem(channel.RxCTCSS);
  tones_[kReceive].dcs->ShowItem(channel.RxDCS);
}

// The rules of the single entry. They hold for controls that CH Enable has greyed as well.
void ChannelPage::FollowEntry() {
  const ChannelRecord& channel = Channel();
  duplex_->setEnabled(channel.DuplexAllowed);
  tx_enable_->setEnabled(!IsMarine() || !channel.RxOnly);
  const bool may_scramble = document::MayScramble(Data(), Place());
  scrambler_->setEnabled(may_scramble);
  scrambler_caption_->setEnabled(may_scramble);
  FollowTxEnable();
  FollowReceiveDcs();
  FollowNarrowbandRule();
}

void ChannelPage::FollowEnable() {
  body_->setEnabled(enable_->isChecked());
}

void ChannelPage::FollowTxEnable() {
  low_power_->setEnabled(tx_enable_->isChecked() && tx_enable_->isEnabledTo(body_));
  FollowLowPower();
}

void ChannelPage::FollowLowPower() {
  power_up_->setEnabled(low_power_->isChecked() && low_power_->isEnabledTo(body_));
}

void ChannelPage::FollowReceiveDcs() {
  complement_->setEnabled(Channel().RxDCS != 0);
}

void ChannelPage::FollowNarrowbandRule() {
  const bool forced = MustBeNarrow();
  if (forced) ShowChecked(*narrow_, true);
  wide_->setEnabled(!forced);
  narrow_->setEnabled(!forced);
}

}  // namespace orvane::editor
