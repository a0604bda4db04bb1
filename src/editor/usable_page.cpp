#include "editor/usable_page.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <algorithm>
#include <span>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "core/rendering.h"
#include "document/edits.h"
#include "editor/tool_tips.h"
#include "files/columns.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

QStringList OffOn() {
  return {platform::FromAnsi(core::OnOffText(false)), platform::FromAnsi(core::OnOffText(true))};
}

}  // namespace

UsablePage::UsablePage(PageServices services, QWidget* parent)
    : Page(services, parent), maker_(new ControlMaker(*this, Host())) {
  setObjectName(QStringLiteral("pictUsable"));
  setAccessibleName(PlainNodeName(NodeKind::kUsable));
  auto* grid = new QGridLayout(this);
  const std::array<QString, core::kUsableGroups> captions = {tr("&USA"), tr("&INTL"), tr("&CANADA"),
                                                             QString()};
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    BuildGroup(i, captions[i]);
    grid->addWidget(groups_[i].frame, static_cast<int>(i) / 2, static_cast<int>(i) % 2);
  }
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(2, 1);
  connect(exp_, &QCheckBox::toggled, this, &UsablePage::SwitchExp);
  for (QCheckBox* box : {groups_[core::kExtraGroup].enable, exp_}) {
    box->setAccessibleDescription(ExtraGroupDescription(box != exp_));
  }
  UsablePage::ModelChanged();
  ExplainControls(*this);
}

void UsablePage::BuildGroup(std::size_t index, const QString& caption) {
  Group& group = groups_[index];
  const int i = static_cast<int>(index);
  group.frame = new GreyableFrame(this);
  group.enable = maker_->Check(MemberName("chkUsable", i), caption);
  auto* switches = new QHBoxLayout;
  switches->addWidget(group.enable);
  if (index == core::kExtraGroup) {
    exp_ = maker_->Check(QStringLiteral("chkUsableEXP"), tr("E&XP CH"));
    switches->addWidget(exp_);
  }
  switches->addStretch();

  group.time_out = maker_->List(MemberName("cmbUsableTot", i), tr("TX TOT"), OffOn());
  group.priority = maker_->List(MemberName("cmbUsablePri", i), tr("Priority CH"), {});
  group.icon = maker_->List(MemberName("cmbUsableSts", i), tr("Status Icon"), OffOn());
  group.priority->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  group.priority->setMinimumContentsLength(6);
  auto* fields = new QGridLayout(group.frame);
  fields->addLayout(switches, 0, 0, 1, 2);
  int line = 0;
  for (PickBox* list : {group.time_out, group.priority, group.icon}) {
    QLabel* label = maker_->Caption(list->accessibleName(), list);
    group.captions[static_cast<std::size_t>(line)] = label;
    ++line;
    fields->addWidget(label, line, 0);
    fields->addWidget(list, line, 1);
  }
  fields->setColumnStretch(1, 1);

  // Status names are shown in the tree; their boxes are not offered.
  auto* status_name = new QLineEdit(group.frame);
  status_name->setAcceptDrops(false);
  status_name->setObjectName(MemberName("txtUsable", i));
  status_name->setAccessibleName(tr("Status Name"));
  status_name->setEnabled(false);
  status_name->hide();
  NameGroup(index, group.enable->accessibleName());
  ConnectGroup(index);
}

// The lists of the groups bear the same captions.
void UsablePage::NameGroup(std::size_t index, const QString& caption) {
  const Group& group = groups_[index];
  group.frame->setAccessibleName(caption);
  for (PickBox* list : {group.time_out, group.priority, group.icon}) {
    list->setAccessibleDescription(caption);
  }
}

void UsablePage::ConnectGroup(std::size_t index) {
  const Group& group = groups_[index];
  connect(group.enable, &QCheckBox::toggled, this,
          [this, index](bool on) { SwitchGroup(index, on); });
  connect(group.time_out, &PickBox::Picked, this, [this, index](int item) {
    Store(core::RefTo<&core::UsableGroup::TX_TOT>(Data(), Data().Usable[index]), item == 1);
  });
  connect(group.icon, &PickBox::Picked, this, [this, index](int item) {
    Store(core::RefTo<&core::UsableGroup::Status_Icon>(Data(), Data().Usable[index]), item == 1);
  });
  connect(group.priority, &PickBox::Picked, this, [this, index] {
    Store(core::RefTo<&core::UsableGroup::Priority_CH>(Data(), Data().Usable[index]),
          std::int32_t{groups_[index].priority->currentData().toInt()});
  });
}

void UsablePage::ModelChanged() {
  const QString caption = tr("%1 CH").arg(platform::FromAnsi(core::ProfileOf(Data()).extra_word));
  QCheckBox& box = *groups_[core::kExtraGroup].enable;
  // The word's last letter: the first is the access key of a menu for one of the two words.
  box.setText(QString(caption).insert(caption.indexOf(QLatin1Char(' ')) - 1, QLatin1Char('&')));
  box.setAccessibleName(caption);
  NameGroup(core::kExtraGroup, caption);
}

void UsablePage::Fill(const NodeRef& /*node*/) {
  const core::BusyScope busy(State());
  exp_->setChecked(Data().ExpPresent);
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    const core::UsableGroup& usable = Data().Usable[i];
    const Group& group = groups_[i];
    group.enable->setChecked(usable.Enable);
    group.time_out->ShowItem(usable.TX_TOT ? 1 : 0);
    group.icon->ShowItem(usable.Status_Icon ? 1 : 0);
    ListPriorityChannels(i);
    FollowEnable(i);
  }
}

QWidget* UsablePage::ControlOf(core::FieldRef at) const {
  if (core::IsMember<&core::RadioData::ExpPresent>(at)) return exp_;
  if (core::IsMember<&core::UsableGroup::Enable>(at)) return groups_[at.entry].enable;
  if (core::IsMember<&core::UsableGroup::TX_TOT>(at)) return groups_[at.entry].time_out;
  if (core::IsMember<&core::UsableGroup::Priority_CH>(at)) return groups_[at.entry].priority;
  if (core::IsMember<&core::UsableGroup::Status_Icon>(at)) return groups_[at.entry].icon;
  return nullptr;
}

void UsablePage::ListPriorityChannels(std::size_t index) {
  PickBox& list = *groups_[index].priority;
  const QSignalBlocker quiet(list);
  list.clear();
  list.addItem(platform::FromAnsi(core::OnOffText(false)), core::kNoChannel);
  const auto add = [&list](const std::string& text, std::int32_t channel) {
    list.addItem(platform::FromAnsi(text), channel);
  };
  if (index == core::kExtraGroup) {
    for (int n = core::ExtraTable::kFirst; n <= core::ExtraTable::kLast; ++n) {
      const core::ChannelRecord& channel = Data().EXP[n];
      if (channel.Enable) {
        add(core::DisplayText(channel),
            core::kFirstExtraChannelIndex + n - core::ExtraTable::kFirst);
      }
    }
  } else {
    for (const int i : files::EnabledMarineRows(Data().Marine[index])) {
      add(std::string(core::PlanLabel(Data().Marine[index][static_cast<std::size_t>(i)].Position)),
          i);
    }
  }
  // A channel that is no longer in use leaves the list without a choice.
  list.ShowItem(list.findData(Data().Usable[index].Priority_CH));
}

void UsablePage::FollowEnable(std::size_t index) {
  const Group& group = groups_[index];
  const bool on = group.enable->isChecked() || (index == core::kExtraGroup && exp_->isChecked());
  group.frame->SetGrey(!on);
  for (QLabel* caption : group.captions) caption->setEnabled(on);
  for (PickBox* list : {group.time_out, group.priority, group.icon}) list->setEnabled(on);
}

void UsablePage::SwitchGroup(std::size_t index, bool on) {
  if (!MayWrite()) return;
  Edit(core::RefTo<&core::UsableGroup::Enable>(Data(), Data().Usable[index]),
       [&](core::RadioData& radio) { document::SwitchGroup(radio, index, on); });
  if (on && index != core::kExtraGroup) ListPriorityChannels(index);
  FollowEnable(index);
  Host().RebuildTree();
}

void UsablePage::SwitchExp(bool on) {
  if (!MayWrite()) return;
  Edit(core::RefTo<&core::RadioData::ExpPresent>(Data(), Data()),
       [&](core::RadioData& radio) { document::SwitchExp(radio, on); });
  ListPriorityChannels(core::kExtraGroup);
  FollowEnable(core::kExtraGroup);
  Host().RebuildTree();
}

}  // namespace orvane::editor
