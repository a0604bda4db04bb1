#include "editor/channel_page.h"

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/product.h"
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

const core::ChannelRecord& ChannelPage::Channel() const {
  static const core::ChannelRecord kNoChannel;
  return ShowsChannel() ? document::ChannelAt(Data(), Place()) : kNoChannel;
}

bool ChannelPage::Check() {
  if (!isEnabled() || !ShowsChannel()) return true;
  const bool passed = TakePending();
  return CheckCompleteness() && passed;
}

bool ChannelPage::TakePending() {
  if (!isEnabled() || !ShowsChannel()) return true;
  for (const Direction direction : {kReceive, kTransmit}) {
    const Frequency& frequency = frequencies_[direction];
    if (!frequency.box->IsEdited()) continue;
    if (TakeOver(frequency)) return true;
    TellWrongFrequency(*frequency.box);
    return false;
  }
  return true;
}

bool ChannelPage::CheckCompleteness() {
  document::Missing missing = document::MissingOf(Data(), Place());
  // A wrong frequency has been told as such.
  if (frequencies_[kReceive].box->IsEdited()) missing.frequency = false;
  if (!missing.Any()) return true;
  (void)Services().prompts.Show(
      core::MakeMessage(core::MessageId::kIncompleteChannel, core::kProgramTitle,
                        core::MissingFacts(missing.frequency, missing.display, WayOut())));
  return false;
}

QWidget* ChannelPage::ControlOf(core::FieldRef at) const {
  if (!ShowsChannel() || &Channel() != core::TableOf(at).record(Data(), at.entry)) return nullptr;
  for (const auto& [field, control] : Controls()) {
    if (field == at) return control;
  }
  return nullptr;
}

std::vector<std::pair<core::FieldRef, QWidget*>> ChannelPage::Controls() const {
  using Record = core::ChannelRecord;
  return {{At<&Record::Enable>(), enable_},
          {At<&Record::ChTag>(), name_},
          {At<&Record::Rxfreq>(), frequencies_[kReceive].box},
          {At<&Record::Txfreq>(), frequencies_[kTransmit].box},
          {At<&Record::CHDisplayL>(), display_left_},
          {At<&Record::CHDisplayR>(), display_right_},
          {At<&Record::TxEnable>(), tx_enable_},
          {At<&Record::LowPower>(), low_power_},
          {At<&Record::PowUp>(), power_up_},
          {At<&Record::Duplex>(), duplex_},
          {At<&Record::ScanMemory>(), scan_},
          {At<&Record::Scramble>(), scrambler_},
          {At<&Record::Narrow>(), narrow_->isChecked() ? narrow_ : wide_},
          {At<&Record::TxCTCSS>(), tones_[kTransmit].ctcss},
          {At<&Record::RxCTCSS>(), tones_[kReceive].ctcss},
          {At<&Record::TxDCS>(), tones_[kTransmit].dcs},
          {At<&Record::RxDCS>(), tones_[kReceive].dcs},
          {At<&Record::RxComp>(), complement_},
          {At<&Record::USA_Group>(), groups_[0]},
          {At<&Record::INT_Group>(), groups_[1]},
          {At<&Record::CAN_Group>(), groups_[2]}};
}

bool ChannelPage::TakeOver(const Frequency& frequency) {
  FrequencyBox& box = *frequency.box;
  const std::optional<double> mhz = box.Rule().check(box.text(), core::ProfileOf(Data()));
  if (!mhz) return false;
  const bool transmit = &frequency == &frequencies_[kTransmit];
  Edit(transmit ? At<&core::ChannelRecord::Txfreq>() : At<&core::ChannelRecord::Rxfreq>(),
       [&](core::RadioData& radio) {
         document::SetFrequency(radio, Place(), WayOf(transmit ? kTransmit : kReceive), *mhz,
                                Today());
       });
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
