#include "editor/weather_page.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>

#include "core/channel_plan.h"
#include "editor/controls.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::ChannelRecord;

constexpr const char* kEnableHint = "Select[x]Enable/[]Disable.";
constexpr int kEnableHelp = 1028;
constexpr int kScanHelp = 1033;
constexpr int kNameHelp = 1034;

enum Column { kLabel, kEnable, kScan, kName };

}  // namespace

WeatherPage::WeatherPage(PageServices services, QWidget* parent) : Page(services, parent) {
  setObjectName(QStringLiteral("pictD"));
  setAccessibleName(PlainNodeName(NodeKind::kWeather));
  auto* grid = new QGridLayout(this);
  grid->setHorizontalSpacing(2 * grid->spacing());
  grid->addWidget(new QLabel(tr("Enable"), this), 0, kEnable, Qt::AlignHCenter);
  grid->addWidget(new QLabel(tr("Scan"), this), 0, kScan, Qt::AlignHCenter);
  grid->addWidget(new QLabel(tr("CH Name"), this), 0, kName);
  for (int i = 0; i < core::kWxChannels; ++i) BuildRow(i);
  grid->setColumnStretch(kName + 1, 1);
  grid->setRowStretch(core::kWxChannels + 1, 1);
  ExplainControls(*this);
}

void WeatherPage::BuildRow(int index) {
  auto* grid = static_cast<QGridLayout*>(layout());
  auto* maker = new ControlMaker(*this, Host());
  const auto i = static_cast<std::size_t>(index);
  const QString label = platform::FromAnsi(core::WxPlan()[i].display);

  Row& row = rows_[i];
  row.enable = new QCheckBox(QStringLiteral(" "), this);
  maker->Adopt(*row.enable, MemberName("chkDEnable", index), tr("Enable"), kEnableHint,
               kEnableHelp);
  row.enable->installEventFilter(this);
  row.scan = maker->Check(MemberName("chkDScan", index), QString(), kScanHelp);
  row.scan->setAccessibleName(tr("Scan"));
  const FieldRule& rule = RuleOf(Field::kWeatherName);
  row.name = new FieldBox(rule, this);
  maker->Adopt(*row.name, MemberName(rule.control, index), tr("CH Name"), rule.hint, kNameHelp);
  SetDigits(*row.name, rule.max_length + rule.max_length / 2);  // capitals are wide
  for (QWidget* control : {static_cast<QWidget*>(row.enable), static_cast<QWidget*>(row.scan),
                           static_cast<QWidget*>(row.name)}) {
    control->setAccessibleDescription(label);
  }

  const int line = index + 1;
  grid->addWidget(new QLabel(label, this), line, kLabel);
  grid->addWidget(row.enable, line, kEnable, Qt::AlignHCenter);
  grid->addWidget(row.scan, line, kScan, Qt::AlignHCenter);
  grid->addWidget(row.name, line, kName);
  ConnectRow(index);
}

void WeatherPage::ConnectRow(int index) {
  const Row& row = rows_[static_cast<std::size_t>(index)];
  connect(row.enable, &QCheckBox::toggled, this, [this, index, row](bool on) {
    if (!MayWrite()) return;
    Store(core::RefTo<&ChannelRecord::Enable>(Data(), Channel(index)), on);
    FollowEnable(row);
  });
  connect(row.scan, &QCheckBox::toggled, this, [this, index](bool on) {
    if (MayWrite()) Store(core::RefTo<&ChannelRecord::ScanMemory>(Data(), Channel(index)), on);
  });
  connect(row.name, &FieldBox::Edited, this, [this, index, row] {
    if (!MayWrite()) return;
    StoreTyped(core::RefTo<&ChannelRecord::ChTag>(Data(), Channel(index)),
               platform::ToAnsi(row.name->text()));
  });
}

void WeatherPage::Fill(const NodeRef& /*node*/) {
  const core::BusyScope busy(State());
  for (int i = 0; i < core::kWxChannels; ++i) {
    const Row& row = rows_[static_cast<std::size_t>(i)];
    row.enable->setChecked(Channel(i).Enable);
    row.scan->setChecked(Channel(i).ScanMemory);
    row.name->ShowText(platform::FromAnsi(Channel(i).ChTag));
    FollowEnable(row);
  }
}

QWidget* WeatherPage::ControlOf(core::FieldRef at) const {
  if (core::TableOf(at).kind != core::TableKind::kWeather) return nullptr;
  const Row& row = rows_[at.entry];
  if (core::IsMember<&ChannelRecord::Enable>(at)) return row.enable;
  if (core::IsMember<&ChannelRecord::ScanMemory>(at)) return row.scan;
  return core::IsMember<&ChannelRecord::ChTag>(at) ? row.name : nullptr;
}

const ChannelRecord& WeatherPage::Channel(int index) const {
  return Data().WX[static_cast<std::size_t>(index)];
}

void WeatherPage::FollowEnable(const Row& row) {
  row.scan->setEnabled(row.enable->isChecked());
  row.name->setEnabled(row.enable->isChecked());
}

// The Enable box that has the focus is marked.
bool WeatherPage::eventFilter(QObject* watched, QEvent* event) {
  const bool focused = event->type() == QEvent::FocusIn;
  if (focused || event->type() == QEvent::FocusOut) {
    static_cast<QCheckBox*>(watched)->setText(focused ? QStringLiteral(">") : QStringLiteral(" "));
  }
  return Page::eventFilter(watched, event);
}

}  // namespace orvane::editor
