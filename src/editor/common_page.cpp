#include "editor/common_page.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <variant>

#include "core/model_profile.h"
#include "core/rendering.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::CommonSettings;
using core::Flag;

enum SettingIndex : std::size_t {
  kTxPo,
  kScan,
  kResume,
  kPttScan,
  kDualWatch,
  kRotary,
  kWeatherAlert
};

// A list shows a setting's value as one of its items.
struct Setting {
  const char* name;
  const char* caption;
  int frame;
  core::FieldRef (*at)(const core::RadioData&);
  int (*item)(const core::Value&);  ///< -1 for none
  core::Value (*value)(int item);
};

int FlagItem(const core::Value& value) {
  return std::get<bool>(value) ? 1 : 0;
}
core::Value FlagValue(int item) {
  return item == 1;
}
int NumberItem(const core::Value& value) {
  return std::get<std::int32_t>(value);
}
core::Value NumberValue(int item) {
  return std::int32_t{item};
}

// The radio takes the alert as on only when both bits of it are set.
constexpr std::int32_t kAlertOn = 3;
int AlertItem(const core::Value& value) {
  return std::get<std::int32_t>(value) == kAlertOn ? 1 : 0;
}
core::Value AlertValue(int item) {
  return item == 1 ? kAlertOn : 0;
}

template <auto kMember>
core::FieldRef At(const core::RadioData& data) {
  return core::RefTo<kMember>(data, data.Common);
}
template <Flag CommonSettings::*kMember>
constexpr Setting OnOff(const char* name, const char* caption, int frame) {
  return {name, caption, frame, &At<kMember>, &FlagItem, &FlagValue};
}
template <std::int16_t CommonSettings::*kMember>
constexpr Setting Number(const char* name, const char* caption, int frame) {
  return {name, caption, frame, &At<kMember>, &NumberItem, &NumberValue};
}

// In the order of SettingIndex, which is the order on the page.
constexpr std::array<Setting, 7> kTable = {{
    Number<&CommonSettings::TX_Po_Display>("cmbCommonTXPo", QT_TR_NOOP("TX &Po Display"), 0),
    OnOff<&CommonSettings::SCAN>("cmbCommonScan", QT_TR_NOOP("&SCAN"), 1),
    Number<&CommonSettings::Resume_Time>("cmbCommonResume", QT_TR_NOOP("&Resume Time"), 1),
    OnOff<&CommonSettings::PTT_SCAN_Clear>("cmbCommonPTTSCAN", QT_TR_NOOP("PTT SCAN &Clear"), 1),
    OnOff<&CommonSettings::Dual_Watch>("cmbCommonDual", QT_TR_NOOP("Dual &Watch"), 2),
    OnOff<&CommonSettings::RotaryBeep>("cmbCommonRotary", QT_TR_NOOP("Rotary &Beep"), 3),
    {"cmbCommonWeater", QT_TR_NOOP("Weather &Alert"), 3, &At<&CommonSettings::Weater>, &AlertItem,
     &AlertValue},
}};

// All lists are as wide as the longest text needs.
constexpr int kListCharacters = 20;

QStringList ItemsOf(std::size_t index) {
  QStringList items;
  if (index == kTxPo) {
    for (int i = 0; i < 3; ++i) items << platform::FromAnsi(core::TxPoDisplayText(i));
    return items;
  }
  items << platform::FromAnsi(core::OnOffText(false));
  if (index == kResume) {
    for (int i = 1; i <= 3; ++i) items << platform::FromAnsi(core::ResumeTimeText(i));
  } else {
    items << platform::FromAnsi(core::OnOffText(true));
  }
  return items;
}

}  // namespace

CommonPage::CommonPage(PageServices services, QWidget* parent)
    : Page(services, parent), maker_(new ControlMaker(*this, Host())) {
  static_assert(kTable.size() == kSettings);
  setObjectName(QStringLiteral("pictCommon"));
  setAccessibleName(PlainNodeName(NodeKind::kCommon));
  const std::array<QString, kFrames> titles = {tr("Starting TX Mode"), tr("Scanning Function"),
                                               QString(), tr("Weather CH Function")};
  auto* column = new QVBoxLayout;
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    frames_[i] = new GreyableFrame(titles[i], this);
    frames_[i]->setFlat(titles[i].isEmpty());
    (new QGridLayout(frames_[i]))->setColumnStretch(0, 1);
    column->addWidget(frames_[i]);
  }
  column->addStretch();
  auto* row = new QHBoxLayout(this);
  row->addLayout(column);
  row->addStretch();
  for (std::size_t i = 0; i < kSettings; ++i) BuildSetting(i);
  lists_[kRotary]->hide();
  captions_[kRotary]->hide();
  ExplainControls(*this);
}

void CommonPage::BuildSetting(std::size_t index) {
  const Setting& setting = kTable[index];
  const QString caption = tr(setting.caption);
  PickBox* list = maker_->List(QLatin1String(setting.name), caption, ItemsOf(index));
  list->setMinimumContentsLength(kListCharacters);
  QLabel* label = maker_->Caption(caption, list);
  auto* grid =
      static_cast<QGridLayout*>(frames_[static_cast<std::size_t>(setting.frame)]->layout());
  const int line = grid->rowCount();
  grid->addWidget(label, line, 0);
  grid->addWidget(list, line, 1);
  lists_[index] = list;
  captions_[index] = label;
  connect(list, &PickBox::Picked, this, [this, index](int item) {
    Store(kTable[index].at(Data()), kTable[index].value(item));
    if (index == kScan) FollowScan();
  });
}

void CommonPage::Fill(const NodeRef& /*node*/) {
  const core::BusyScope busy(State());
  for (std::size_t i = 0; i < kSettings; ++i) {
    lists_[i]->ShowItem(kTable[i].item(core::Get(Data(), kTable[i].at(Data()))));
  }
  FollowScan();
  ShowForModel();
}

QWidget* CommonPage::ControlOf(core::FieldRef at) const {
  for (std::size_t i = 0; i < kSettings; ++i) {
    if (kTable[i].at(Data()) == at) return lists_[i];
  }
  return nullptr;
}

void CommonPage::ShowForModel() {
  const core::ModelProfile& profile = core::ProfileOf(Data());
  for (const Frame frame : {kStarting, kScanning, kDual}) {
    frames_[frame]->setVisible(profile.shows_common_settings);
  }
  lists_[kRotary]->setVisible(profile.shows_rotary_beep);
  captions_[kRotary]->setVisible(profile.shows_rotary_beep);
}

void CommonPage::FollowScan() {
  const bool on = lists_[kScan]->currentIndex() == 1;
  frames_[kScanning]->SetGrey(!on);
  for (const SettingIndex setting : {kResume, kPttScan}) {
    lists_[setting]->setEnabled(on);
    captions_[setting]->setEnabled(on);
  }
}

}  // namespace orvane::editor
