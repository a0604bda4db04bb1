#include "editor/channel_page.h"

#include "core/model_profile.h"
#include "core/rendering.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

ChannelPage::ChannelPage(PageServices services, QWidget* parent)
    : Page(services, parent), maker_(new ControlMaker(*this, Host())) {
  setObjectName(QStringLiteral("pictC"));
  setAccessibleName(tr("Channel"));
  Build();
  Connect();
  ChannelPage::ModelChanged();
  ExplainControls(*this);
}

void ChannelPage::ModelChanged() {
  const core::ModelProfile& profile = core::ProfileOf(Data());
  name_->setVisible(profile.has_channel_names);
  name_caption_->setVisible(profile.has_channel_names);
  scrambler_->setVisible(profile.shows_scrambler);
  scrambler_caption_->setVisible(profile.shows_scrambler);
}

std::string ChannelPage::WayOut(bool has_frequency, bool has_number) const {
  std::string text = "The channel is in use, but ";
  if (!has_frequency) text += "Rx Frequency is empty";
  if (!has_frequency && !has_number) text += " and ";
  if (!has_number) text += "CH Display has fewer than two characters on the left";
  text += ". ";
  if (IsLastEnabled()) return text + "Fill it in: the last channel in use cannot be switched off.";
  if (!enable_->isChecked()) {
    return text + "Switch CH Enable on to fill it in; on and off again to leave it unused.";
  }
  return text + "Fill it in, or switch CH Enable off to leave it unused.";
}

core::ChannelRecord& ChannelPage::Channel() const {
  if (IsMarine()) return Data().Table(node_.group)[static_cast<std::size_t>(node_.number)];
  // Before its first filling the page shows no channel; what it writes then is nobody's.
  if (!core::ExtraTable::Contains(node_.number)) return no_channel_;
  return Data().EXP[node_.number];
}

bool ChannelPage::Check() {
  if (!isEnabled()) return true;
  bool passed = true;
  for (const Direction direction : {kReceive, kTransmit}) {
    const Frequency& frequency = frequencies_[direction];
    if (!frequency.box->IsEdited()) continue;
    if (!TakeOver(frequency)) {
      TellWrongFrequency(*frequency.box);
      passed = false;
    }
    break;
  }
  return CheckCompleteness() && passed;
}

bool ChannelPage::CheckCompleteness() {
  // The stored flag: the box may show that the channel belongs to a group.
  if (IsMarine() || !Channel().Enable || !OfShownKind()) return true;
  const bool has_frequency = !frequencies_[kReceive].box->text().contains(QLatin1String("---"));
  const bool has_number = display_left_->text().size() >= display_left_->Rule().min_length;
  if (has_frequency && has_number) return true;
  (void)Services().prompts.Show({.title = Data().ProgramTitle,
                                 .text = "Data Error!!\r\nPlease input correct data.",
                                 .icon = core::Icon::kExclamation,
                                 .details = WayOut(has_frequency, has_number)});
  return false;
}

bool ChannelPage::TakeOver(const Frequency& frequency) {
  FrequencyBox& box = *frequency.box;
  const std::optional<double> mhz = box.Rule().check(box.text(), core::ProfileOf(Data()));
  if (!mhz) return false;
  Channel().*frequency.value = *mhz;
  ShowFrequency(frequency);
  if (&frequency == &frequencies_[kTransmit]) ApplyNarrowbandRule();
  return true;
}

void ChannelPage::Abandon(const Frequency& frequency) {
  if (MayWrite() && !TakeOver(frequency)) ShowFrequency(frequency);
}

void ChannelPage::ShowFrequency(const Frequency& frequency) {
  const double mhz = Channel().*frequency.value;
  frequency.box->ShowText(platform::FromAnsi(core::FrequencyText(mhz)));
  frequency.box->SetEdited(false);
}

void ChannelPage::TellWrongFrequency(const FrequencyBox& box) {
  (void)Services().prompts.Show(
      {.title = box.Rule().hint, .text = "Data Error!!", .icon = core::Icon::kExclamation});
}

}  // namespace orvane::editor
