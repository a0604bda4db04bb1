#include <string>

#include "core/model_profile.h"
#include "core/text.h"
#include "editor/channel_page.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
using core::ChannelRecord;

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
  if (!document::EnableChannel(Data(), Place(), on, Today())) {
    ShowChecked(*enable_, true);
    TellLastEnabled();
    return;
  }
  ShowChannelEnable(on);
  enable_->setFocus();
}

/// CH Enable has been switched in the data.
void ChannelPage::ShowChannelEnable(bool on) {
  FollowEnable();
  if (on) {
    FollowEntry();
    if (!IsMarine()) ShowNarrowbandRule();
  }
  Changed();
  Host().RefreshMarks();
}

void ChannelPage::GroupClicked(QCheckBox& box, bool on) {
  if (!MayWrite()) return;
  const document::GroupMembership groups = ShownGroups();
  if (!document::SetGroups(Data(), Place(), groups, Today())) {
    ShowChecked(box, true);
    TellLastEnabled();
    return;
  }
  Changed();
  if (!on && groups.Any()) return;
  ShowChecked(*enable_, on);
  ShowChannelEnable(on);
}

document::GroupMembership ChannelPage::ShownGroups() const {
  return {groups_[0]->isChecked(), groups_[1]->isChecked(), groups_[2]->isChecked()};
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
  document::SetTransmit(Data(), Place(), tx_enable_->isChecked(), low_power_->isChecked());
  Changed();
}

void ChannelPage::HandleCtcss(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const int tone = lists.ctcss->currentData().toInt();
  document::SetCtcss(Data(), Place(), WayOf(direction), tone);
  if (tone != 0) lists.dcs->ShowItem(0);
  FollowReceiveDcs();
  Changed();
}

void ChannelPage::HandleDcs(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const int code = lists.dcs->currentData().toInt();
  document::SetDcs(Data(), Place(), WayOf(direction), code);
  if (code != 0) lists.ctcss->ShowItem(0);
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
void ChannelPage::ShowNarrowbandRule() {
  if (core::ProfileOf(Data()).shows_bandwidth) ShowBandwidth();
  FollowNarrowbandRule();
}

}  // namespace orvane::editor
