#include "editor/channel_page.h"

#include "core/message_facts.h"
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

core::WayOut ChannelPage::WayOut() const {
  if (document::IsLastEnabled(Data(), Place())) return core::WayOut::kNone;
  return enable_->isChecked() ? core::WayOut::kSwitchOff : core::WayOut::kSwitchOnAndOff;
}

core::ChannelRecord& ChannelPage::Channel() const {
  if (IsMarine()) return Data().Table(node_.group)[static_cast<std::size_t>(node_.number)];
  if (!ShowsChannel()) return no_channel_;
  return Data().EXP[node_.number];
}

bool ChannelPage::Check() {
  if (!isEnabled() || !ShowsChannel()) return true;
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
  (void)Services().prompts.Show(
      core::MakeMessage(core::MessageId::kIncompleteChannel, Data().ProgramTitle,
                        core::MissingFacts(!has_frequency, !has_number, WayOut())));
  return false;
}

bool ChannelPage::TakeOver(const Frequency& frequency) {
  FrequencyBox& box = *frequency.box;
  const std::optional<double> mhz = box.Rule().check(box.text(), core::ProfileOf(Data()));
  if (!mhz) return false;
  const bool transmit = &frequency == &frequencies_[kTransmit];
  document::SetFrequency(Data(), Place(), WayOf(transmit ? kTransmit : kReceive), *mhz, Today());
  ShowFrequency(frequency);
  if (transmit) ShowNarrowbandRule();
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
  const std::string_view field = box.Rule().hint;
  (void)Services().prompts.Show(core::MakeMessage(
      core::MessageId::kWrongFrequency, field,
      core::FrequencyFacts(platform::ToUtf8(box.text()), field, core::ProfileOf(Data()))));
}

}  // namespace orvane::editor
