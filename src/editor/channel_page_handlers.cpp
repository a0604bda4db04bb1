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
  ConnectFlag<&ChannelRecord::PowUp>(*power_up_);
  ConnectFlag<&ChannelRecord::ScanMemory>(*scan_);
  ConnectFlag<&ChannelRecord::RxComp>(*complement_);
  ConnectFlag<&ChannelRecord::Duplex>(*duplex_);
  connect(duplex_, &QCheckBox::toggled, this, &ChannelPage::ShowPlanReceiveFrequency);
  for (QRadioButton* button : {wide_, narrow_}) {
    connect(button, &QRadioButton::toggled, this, [this](bool chosen) {
      if (!chosen || !MayWrite()) return;
      Store(At<&ChannelRecord::Narrow>(), narrow_->isChecked());
    });
  }
  connect(scrambler_, &PickBox::Picked, this, [this] {
    if (!MayWrite()) return;
    Store(At<&ChannelRecord::Scramble>(), std::int32_t{scrambler_->currentData().toInt()});
  });
  for (const Direction direction : {kTransmit, kReceive}) {
    connect(tones_[direction].ctcss, &PickBox::Picked, this,
            [this, direction] { HandleCtcss(direction); });
    connect(tones_[direction].dcs, &PickBox::Picked, this,
            [this, direction] { HandleDcs(direction); });
  }
  ConnectFields();
}

template <core::Flag ChannelRecord::*kFlag>
void ChannelPage::ConnectFlag(QCheckBox& box) {
  connect(&box, &QCheckBox::toggled, this, [this](bool on) {
    if (MayWrite()) Store(At<kFlag>(), on);
  });
}

void ChannelPage::ConnectFields() {
  connect(name_, &FieldBox::Edited, this, [this] {
    if (MayWrite()) StoreTyped(At<&ChannelRecord::ChTag>(), platform::ToAnsi(name_->text()));
  });
  connect(display_left_, &FieldBox::Edited, this,
          [this] { StoreDisplay<&ChannelRecord::CHDisplayL>(*display_left_); });
  connect(display_right_, &FieldBox::Edited, this,
          [this] { StoreDisplay<&ChannelRecord::CHDisplayR>(*display_right_); });
  for (const Frequency& frequency : frequencies_) {
    FrequencyBox* box = frequency.box;
    box->SetAcceptor([this, &frequency] { return !MayWrite() || TakeOver(frequency); });
    connect(box, &FieldBox::Edited, this, [this, box] {
      if (MayWrite() && !box->IsLocked()) Host().DataChanged();
    });
    connect(box, &FrequencyBox::Refused, this, [this, box] { TellWrongFrequency(*box); });
    connect(box, &FrequencyBox::Abandoned, this, [this, &frequency] { Abandon(frequency); });
  }
}

void ChannelPage::EnableClicked(bool on) {
  if (!MayWrite()) return;
  const bool done = EditUnlessLast(At<&ChannelRecord::Enable>(), [&](core::RadioData& radio) {
    return document::EnableChannel(radio, Place(), on, Today());
  });
  if (!done) {
    ShowChecked(*enable_, true);
    TellLastEnabled();
    return;
  }
  ShowChannelEnable(on);
  enable_->setFocus();
}

/// False, and nothing changed, when the rule refused to switch the last channel of a group off.
bool ChannelPage::EditUnlessLast(core::FieldRef at,
                                 const std::function<bool(core::RadioData&)>& edit) {
  bool done = false;
  Host().Edit(
      at, [&](core::RadioData& radio) { done = edit(radio); }, Manner::kChoice);
  if (done) Host().DataChanged();
  return done;
}

/// CH Enable has been switched in the data.
void ChannelPage::ShowChannelEnable(bool on) {
  FollowEnable();
  if (on) {
    FollowEntry();
    if (!IsMarine()) ShowNarrowbandRule();
  }
  Host().RefreshMarks();
}

void ChannelPage::GroupClicked(QCheckBox& box, bool on) {
  if (!MayWrite()) return;
  const document::GroupMembership groups = ShownGroups();
  const core::FieldRef at = &box == groups_[0]   ? At<&ChannelRecord::USA_Group>()
                            : &box == groups_[1] ? At<&ChannelRecord::INT_Group>()
                                                 : At<&ChannelRecord::CAN_Group>();
  const bool done = EditUnlessLast(at, [&](core::RadioData& radio) {
    return document::SetGroups(radio, Place(), groups, Today());
  });
  if (!done) {
    ShowChecked(box, true);
    TellLastEnabled();
    return;
  }
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
  StoreTransmit(At<&ChannelRecord::TxEnable>());
}

void ChannelPage::HandleLowPower() {
  if (!MayWrite()) return;
  FollowLowPower();
  StoreTransmit(At<&ChannelRecord::LowPower>());
}

void ChannelPage::StoreTransmit(core::FieldRef at) {
  Edit(at, [&](core::RadioData& radio) {
    document::SetTransmit(radio, Place(), tx_enable_->isChecked(), low_power_->isChecked());
  });
}

void ChannelPage::HandleCtcss(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const int tone = lists.ctcss->currentData().toInt();
  Edit(direction == kTransmit ? At<&ChannelRecord::TxCTCSS>() : At<&ChannelRecord::RxCTCSS>(),
       [&](core::RadioData& radio) { document::SetCtcss(radio, Place(), WayOf(direction), tone); });
  if (tone != 0) lists.dcs->ShowItem(0);
  FollowReceiveDcs();
}

void ChannelPage::HandleDcs(Direction direction) {
  if (!MayWrite()) return;
  const ToneLists& lists = tones_[direction];
  const int code = lists.dcs->currentData().toInt();
  Edit(direction == kTransmit ? At<&ChannelRecord::TxDCS>() : At<&ChannelRecord::RxDCS>(),
       [&](core::RadioData& radio) { document::SetDcs(radio, Place(), WayOf(direction), code); });
  if (code != 0) lists.ctcss->ShowItem(0);
  FollowReceiveDcs();
}

template <std::string ChannelRecord::*kHalf>
void ChannelPage::StoreDisplay(const FieldBox& box) {
  if (!MayWrite() || box.IsLocked()) return;
  StoreTyped(At<kHalf>(), core::UpperCase(platform::ToAnsi(box.text())));
}

/// After an edit the record holds what the page shows. Where the page does not show the record's
/// bandwidth, the user's choice stays.
void ChannelPage::ShowNarrowbandRule() {
  if (core::ProfileOf(Data()).shows_bandwidth) ShowBandwidth();
  FollowNarrowbandRule();
}

}  // namespace orvane::editor
