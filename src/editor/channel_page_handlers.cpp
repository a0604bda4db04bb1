#include <algorithm>
#include <string>

#include "core/extra_channel.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "editor/channel_page.h"
#include "files/columns.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::ChannelRecord;

// Transmit power codes of a channel with and without "Low Power Only".
constexpr std::uint8_t kLowPowerCode = 1;
constexpr std::uint8_t kFullPowerCode = 3;

struct ToneFields {
  std::int16_t ChannelRecord::*ctcss;
  std::int16_t ChannelRecord::*dcs;
};
// By direction: transmit, receive.
constexpr std::array<ToneFields, 2> kToneFields = {
    {{&ChannelRecord::TxCTCSS, &ChannelRecord::TxDCS},
     {&ChannelRecord::RxCTCSS, &ChannelRecord::RxDCS}}};

}  // namespace

void ChannelPage::Connect() {
  connect(enable_, &QCheckBox::toggled, this, &ChannelPage::EnableClicked);
  for (QCheckBox* box : groups_) {
    connect(box, &QCheckBox::toggled, this, [this, box](bool on) { GroupClicked(*box, on); });
  }
  connect(tx_enable_, &QCheckBox::toggled, this, &ChannelPage::HandleTxEnable);
  connect(low_power_, &QCheckBox::toggled, this, &ChannelPage::HandleLowPower);
  ConnectFlag(*power_up_, &ChannelRecord::PowUp);
  ConnectFlag(*scan_, &ChannelRecord::ScanMemory);
  ConnectFlag(*complement_, &ChannelRecord::RxComp);
  ConnectFlag(*duplex_, &ChannelRecord::Duplex);
  connect(duplex_, &QCheckBox::toggled, this, &ChannelPage::ShowPlanReceiveFrequency);
  for (QRadioButton* button : {wide_, narrow_}) {
    connect(button, &QRadioButton::toggled, this, [this](bool chosen) {
      if (!chosen || !MayWrite()) return;
      Channel().Narrow = narrow_->isChecked();
      Changed();
    });
  }
  connect(scrambler_, &PickBox::Picked, this, [this] {
    if (!MayWrite()) return;
    Channel().Scramble = static_cast<std::int16_t>(scrambler_->currentData().toInt());
    Changed();
  });
  for (const Direction direction : {kTransmit, kReceive}) {
    connect(tones_[direction].ctcss, &PickBox::Picked, this,
            [this, direction] { HandleCtcss(direction); });
    connect(tones_[direction].dcs, &PickBox::Picked, this,
            [this, direction] { HandleDcs(direction); });
  }
  ConnectFields();
}

void ChannelPage::ConnectFlag(QCheckBox& box, core::Flag ChannelRecord::*flag) {
  connect(&box, &QCheckBox::toggled, this, [this, flag](bool on) {
    if (!MayWrite()) return;
    Channel().*flag = on;
    Changed();
  });
}

void ChannelPage::ConnectFields() {
  connect(name_, &FieldBox::Edited, this, [this] {
    if (!MayWrite()) return;
    Channel().ChTag = platform::ToAnsi(name_->text());
    Changed();
  });
  connect(display_left_, &FieldBox::Edited, this,
          [this] { StoreDisplay(*display_left_, &ChannelRecord::CHDisplayL); });
  connect(display_right_, &FieldBox::Edited, this,
          [this] { StoreDisplay(*display_right_, &ChannelRecord::CHDisplayR); });
  for (const Frequency& frequency : frequencies_) {
    FrequencyBox* box = frequency.box;
    box->SetAcceptor([this, &frequency] { return !MayWrite() || TakeOver(frequency); });
    connect(box, &FieldBox::Edited, this, [this, box] {
      if (MayWrite() && !box->IsLocked()) Changed();
    });
    connect(box, &FrequencyBox::Refused, this, [this, box] { TellWrongFrequency(*box); });
    connect(box, &FrequencyBox::Abandoned, this, [this, &frequency] { Abandon(frequency); });
  }
}

void ChannelPage::EnableClicked(bool on) {
  if (!MayWrite()) return;
  if (!on && IsLastEnabled()) {
    ShowChecked(*enable_, true);
    TellLastEnabled();
    return;
  }
  SetChannelEnable(on);
  enable_->setFocus();
}

void ChannelPage::SetChannelEnable(bool on) {
  ChannelRecord& channel = Channel();
  channel.Enable = on;
  if (on && !IsMarine()) {
    channel.SetLmr(UnderLmrRoot());
    StoreGroups();
  }
  FollowEnable();
  if (on) {
    FollowEntry();
    if (!IsMarine()) ApplyNarrowbandRule();
    HandleTxEnable();
  }
  Changed();
  Host().RefreshMarks();
}

void ChannelPage::GroupClicked(QCheckBox& box, bool on) {
  if (!MayWrite()) return;
  const bool last = !on && std::none_of(groups_.begin(), groups_.end(),
                                        [](const QCheckBox* group) { return group->isChecked(); });
  if (last && IsLastEnabled()) {
    ShowChecked(box, true);
    TellLastEnabled();
    return;
  }
  StoreGroups();
  Changed();
  if (!on && !last) return;
  ShowChecked(*enable_, on);
  SetChannelEnable(on);
}

void ChannelPage::StoreGroups() {
  ChannelRecord& channel = Channel();
  channel.USA_Group = groups_[0]->isChecked();
  channel.INT_Group = groups_[1]->isChecked();
  channel.CAN_Group = groups_[2]->isChecked();
}

/// Whether switching this channel off would leave a group of the radio without any channel.
bool ChannelPage::IsLastEnabled() const {
  if (!Channel().Enable) return false;
  if (IsMarine()) return files::EnabledMarineRows(Data().Table(node_.group)).size() == 1;
  const bool group_in_use = UnderLmrRoot() ? Data().LmrPresent() : Data().ExpPresent;
  if (!group_in_use) return false;
  for (int n = core::ExtraTable::kFirst; n <= core::ExtraTable::kLast; ++n) {
    if (n != node_.number && core::MarkedEnabled(Data(), n, UnderLmrRoot())) return false;
  }
  return true;
}

void ChannelPage::TellLastEnabled() {
  const auto group = [this]() -> QString {
    if (!IsMarine()) {
      return platform::FromAnsi(core::ProfileOf(Data()).GroupWord(UnderLmrRoot()));
    }
    return MarineGroupName(node_.group);
  };
  Host().ShowNotice(tr("Stays on: the last %1 channel in use.").arg(group()));
}

void ChannelPage::HandleTxEnable() {
  if (!MayWrite()) return;
  FollowTxEnable();
  HandleLowPower();
}

void ChannelPage::HandleLowPower() {
  if (!MayWrite()) return;
  FollowLowPower();
  ChannelRecord& channel = Channel();
  channel.TxEnable = tx_enable_->isChecked();
  channel.LowPower = low_power_->isChecked();
  channel.TXPower = low_power_->isChecked() ? kLowPowerCode : kFullPowerCode;
  Changed();
}

void ChannelPage::HandleCtcss(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const ToneFields& fields = kToneFields[direction];
  const auto tone = static_cast<std::int16_t>(lists.ctcss->currentData().toInt());
  Channel().*fields.ctcss = tone;
  if (tone != 0) {
    Channel().*fields.dcs = 0;
    lists.dcs->ShowItem(0);
  }
  FollowReceiveDcs();
  Changed();
}

void ChannelPage::HandleDcs(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const ToneFields& fields = kToneFields[direction];
  const auto code = static_cast<std::int16_t>(lists.dcs->currentData().toInt());
  Channel().*fields.dcs = code;
  if (code != 0) {
    Channel().*fields.ctcss = 0;
    lists.ctcss->ShowItem(0);
  }
  FollowReceiveDcs();
  Changed();
}

void ChannelPage::StoreDisplay(const FieldBox& box, std::string ChannelRecord::*half) {
  if (!MayWrite() || box.IsLocked()) return;
  Channel().*half = core::UpperCase(platform::ToAnsi(box.text()));
  Changed();
}

/// After an edit the record holds what the page shows. Where the page does not show the record's
/// bandwidth, the user's choice stays.
void ChannelPage::ApplyNarrowbandRule() {
  if (MustBeNarrow()) Channel().Narrow = true;
  if (core::ProfileOf(Data()).shows_bandwidth) ShowBandwidth();
  FollowNarrowbandRule();
}

}  // namespace orvane::editor
