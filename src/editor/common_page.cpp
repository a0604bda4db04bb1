#include "editor/common_page.h"

#include <QGridLayout>
#include <QVBoxLayout>

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

struct Setting {
  const char* name;
  const char* caption;
  int frame;
  int (*item)(const CommonSettings&);  ///< which item shows the value; -1 for none
  void (*store)(CommonSettings&, int item);
};

template <Flag CommonSettings::*kFlag>
int FlagItem(const CommonSettings& settings) {
  return settings.*kFlag ? 1 : 0;
}
template <Flag CommonSettings::*kFlag>
void StoreFlag(CommonSettings& settings, int item) {
  settings.*kFlag = item == 1;
}
template <std::int16_t CommonSettings::*kNumber>
int NumberItem(const CommonSettings& settings) {
  return settings.*kNumber;
}
template <std::int16_t CommonSettings::*kNumber>
void StoreNumber(CommonSettings& settings, int item) {
  settings.*kNumber = static_cast<std::int16_t>(item);
}

// The radio takes the alert as on only when both bits of it are set.
constexpr std::int16_t kAlertOn = 3;
int AlertItem(const CommonSettings& settings) {
  return settings.Weater == kAlertOn ? 1 : 0;
}
void StoreAlert(CommonSettings& settings, int item) {
  settings.Weater = item == 1 ? kAlertOn : std::int16_t{0};
}

// In the order of SettingIndex, which is the order on the page.
constexpr std::array<Setting, 7> kTable = {{
    {"cmbCommonTXPo", QT_TR_NOOP("TX &Po Display"), 0, NumberItem<&CommonSettings::TX_Po_Display>,
     StoreNumber<&CommonSettings::TX_Po_Display>},
    {"cmbCommonScan", QT_TR_NOOP("&SCAN"), 1, FlagItem<&CommonSettings::SCAN>,
     StoreFlag<&CommonSettings::SCAN>},
    {"cmbCommonResume", QT_TR_NOOP("&Resume Time"), 1, NumberItem<&CommonSettings::Resume_Time>,
     StoreNumber<&CommonSettings::Resume_Time>},
    {"cmbCommonPTTSCAN", QT_TR_NOOP("PTT SCAN &Clear"), 1,
     FlagItem<&CommonSettings::PTT_SCAN_Clear>, StoreFlag<&CommonSettings::PTT_SCAN_Clear>},
    {"cmbCommonDual", QT_TR_NOOP("Dual &Watch"), 2, FlagItem<&CommonSettings::Dual_Watch>,
     StoreFlag<&CommonSettings::Dual_Watch>},
    {"cmbCommonRotary", QT_TR_NOOP("Rotary &Beep"), 3, FlagItem<&CommonSettings::RotaryBeep>,
     StoreFlag<&CommonSettings::RotaryBeep>},
    {"cmbCommonWeater", QT_TR_NOOP("Weather &Alert"), 3, AlertItem, StoreAlert},
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
  setAccessibleName(tr("Common Setup"));
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
    kTable[index].store(Data().Common, item);
    if (index == kScan) FollowScan();
    Host().DataChanged();
  });
}

void CommonPage::Fill(const NodeRef& /*node*/) {
  const BusyScope busy(Data());
  for (std::size_t i = 0; i < kSettings; ++i) {
    lists_[i]->ShowItem(kTable[i].item(Data().Common));
  }
  FollowScan();
  ShowForModel();
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
