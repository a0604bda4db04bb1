#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <initializer_list>

#include "core/rendering.h"
#include "core/tones.h"
#include "editor/channel_page.h"
#include "platform/ansi_text.h"

// The controls are made in reading order, which makes it the tab order.
namespace orvane::editor {
namespace {

using core::ChannelRecord;

/// Help context numbers; those of a control that serves both kinds of channel come in pairs.
namespace help {
constexpr int kGroups = 1028;
constexpr int kTxEnable = 1029;
constexpr int kDuplex = 1030;
constexpr int kLowPower = 1031;
constexpr int kPowerUp = 1032;
constexpr int kScan = 1033;
constexpr int kName = 1034;
constexpr int kScrambler = 1064;
constexpr int kMarineEnable = 1028;
constexpr int kExtraEnable = 2500;
constexpr int kDisplay = 2501;
constexpr int kReceive = 2502;
constexpr int kTransmit = 2503;
}  // namespace help

// Item data of the scrambler list; the value of every item but "Off" has bit 2 set.
constexpr int kFirstScrambler = 4;
constexpr int kLastScrambler = 7;
constexpr int kFrequencyDigits = 10;
constexpr int kDisplayDigits = 4;

void AddTone(PickBox& list, const QString& text) {
  list.addItem(text, list.count());
}

}  // namespace

void ChannelPage::Build() {
  BuildSwitches();
  auto* page = new QVBoxLayout(this);
  auto* top = new QHBoxLayout;
  top->addWidget(enable_);
  top->addSpacing(fontMetrics().height());
  top->addWidget(groups_area_);
  top->addStretch();
  page->addLayout(top);

  body_ = new QWidget(this);
  page->addWidget(body_);
  page->addStretch();
  auto* body = new QGridLayout(body_);
  body->setContentsMargins({});
  auto* fields = new QGridLayout;
  body->addLayout(fields, 0, 0, Qt::AlignTop);
  BuildFields(*fields);
  auto* column = new QVBoxLayout;
  body->addLayout(column, 0, 2, Qt::AlignTop);
  BuildSwitchColumn(*column);
  body->addWidget(BuildTones(), 1, 0, 1, 3);
  body->setColumnStretch(3, 1);
  flags_ = {{tx_enable_, &ChannelRecord::TxEnable}, {low_power_, &ChannelRecord::LowPower},
            {power_up_, &ChannelRecord::PowUp},     {duplex_, &ChannelRecord::Duplex},
            {scan_, &ChannelRecord::ScanMemory},    {complement_, &ChannelRecord::RxComp}};
}

void ChannelPage::BuildSwitches() {
  enable_ = maker_->Check(QStringLiteral("chkCEnable"), tr("CH Ena&ble"));
  groups_area_ = new QWidget(this);
  auto* row = new QHBoxLayout(groups_area_);
  row->setContentsMargins({});
  const std::array<QString, 3> captions = {tr("[&USA]"), tr("[&INTL]"), tr("[&CAN]")};
  for (std::size_t i = 0; i < groups_.size(); ++i) {
    groups_[i] =
        maker_->Check(MemberName("chkCGroup", static_cast<int>(i)), captions[i], help::kGroups);
    row->addWidget(groups_[i]);
  }
}

void ChannelPage::BuildFields(QGridLayout& grid) {
  BuildDisplay(grid);
  frequencies_[kReceive] = {BuildFrequency(grid, Field::kReceiveFrequency, tr("&Rx Frequency")),
                            &ChannelRecord::Rxfreq};
  frequencies_[kTransmit] = {BuildFrequency(grid, Field::kTransmitFrequency, tr("Tx Fre&quency")),
                             &ChannelRecord::Txfreq};
  BuildNameAndScrambler(grid);
}

void ChannelPage::BuildDisplay(QGridLayout& grid) {
  const FieldRule& left = RuleOf(Field::kDisplayLeft);
  const FieldRule& right = RuleOf(Field::kDisplayRight);
  const QString caption = tr("CH Displa&y");
  display_left_ = new FieldBox(left, body_);
  maker_->Adopt(*display_left_, QLatin1String(left.control), caption, left.hint);
  display_right_ = new FieldBox(right, body_);
  maker_->Adopt(*display_right_, QLatin1String(right.control), caption, right.hint);
  display_left_->setAccessibleDescription(tr("left"));
  display_right_->setAccessibleDescription(tr("right"));
  auto* display = new QHBoxLayout;
  for (FieldBox* box : {display_left_, display_right_}) {
    SetDigits(*box, kDisplayDigits);
    display->addWidget(box);
  }
  display->addStretch();
  grid.addWidget(maker_->Caption(caption, display_left_), 0, 0);
  grid.addLayout(display, 0, 1, 1, 2);
}

FrequencyBox* ChannelPage::BuildFrequency(QGridLayout& grid, Field field, const QString& caption) {
  const FieldRule& rule = RuleOf(field);
  auto* box = new FrequencyBox(rule, body_);
  maker_->Adopt(*box, QLatin1String(rule.control), caption, rule.hint);
  SetDigits(*box, kFrequencyDigits);
  const int line = grid.rowCount();
  grid.addWidget(maker_->Caption(caption, box), line, 0);
  grid.addWidget(box, line, 1);
  grid.addWidget(new QLabel(tr("MHz"), body_), line, 2);
  return box;
}

QWidget* ChannelPage::BuildTransmit() {
  auto* frame = new QGroupBox(body_);
  auto* column = new QVBoxLayout;
  frame->setLayout(column);
  tx_enable_ = maker_->Check(QStringLiteral("chkCTXEnable"), tr("T&x Enable"), help::kTxEnable);
  low_power_ = maker_->Check(QStringLiteral("chkCTXOnly"), tr("&Low Power Only"), help::kLowPower);
  power_up_ = maker_->Check(QStringLiteral("chkCTXPower"), tr("&Power Up"), help::kPowerUp);
  for (QCheckBox* box : {tx_enable_, low_power_, power_up_}) column->addWidget(box);
  return frame;
}

void ChannelPage::BuildNameAndScrambler(QGridLayout& grid) {
  const QString scrambler = tr("Scr&ambler");
  scrambler_ = maker_->List(QStringLiteral("cmbScramble"), scrambler, {}, help::kScrambler);
  scrambler_->addItem(platform::FromAnsi(core::OnOffText(false)), 0);
  for (int value = kFirstScrambler; value <= kLastScrambler; ++value) {
    scrambler_->addItem(platform::FromAnsi(core::ScramblerText(value)), value);
  }
  scrambler_caption_ = maker_->Caption(scrambler, scrambler_);
  const FieldRule& rule = RuleOf(Field::kChannelName);
  const QString name = tr("CH Na&me");
  name_ = new FieldBox(rule, body_);
  maker_->Adopt(*name_, QLatin1String(rule.control), name, rule.hint, help::kName);
  SetDigits(*name_, rule.max_length + rule.max_length / 2);  // capitals are wide
  name_caption_ = maker_->Caption(name, name_);
  int line = grid.rowCount();
  grid.addWidget(scrambler_caption_, line, 0);
  grid.addWidget(scrambler_, line, 1, 1, 2, Qt::AlignLeft);
  ++line;
  grid.addWidget(name_caption_, line, 0);
  grid.addWidget(name_, line, 1, 1, 2, Qt::AlignLeft);
}

void ChannelPage::BuildSwitchColumn(QVBoxLayout& column) {
  column.addWidget(BuildTransmit());
  duplex_ = maker_->Check(QStringLiteral("chkCDup"), tr("D&uplex"), help::kDuplex);
  scan_ = maker_->Check(QStringLiteral("chkCScan"), tr("&Scan Memory"), help::kScan);
  wide_ = new OptionButton(tr("&Wide"), body_);
  narrow_ = new OptionButton(tr("&Narrow"), body_);
  maker_->Adopt(*wide_, QStringLiteral("optCWide_0"), wide_->text(), kOptionHint);
  maker_->Adopt(*narrow_, QStringLiteral("optCWide_1"), narrow_->text(), kOptionHint);
  for (QWidget* control : std::initializer_list<QWidget*>{duplex_, scan_, wide_, narrow_}) {
    column.addWidget(control);
  }
}

QWidget* ChannelPage::BuildTones() {
  tone_frame_ = new QGroupBox(body_);
  auto* grid = new QGridLayout(tone_frame_);
  const std::array<QString, 2> captions = {tr("TX Tone"), tr("RX Tone")};
  for (const Direction direction : {kTransmit, kReceive}) {
    const int member = static_cast<int>(direction);
    grid->addWidget(new QLabel(captions[direction], tone_frame_), member, 0);
    int column = 1;
    // A screen reader takes the name of a list from the caption beside it.
    const auto add = [&, heading = captions[direction]](const char* array, const QString& caption) {
      const QString name = heading + QLatin1Char(' ') + caption;
      PickBox* list = maker_->List(MemberName(array, member), name, {});
      QLabel* label = maker_->Caption(caption, list);
      label->setAccessibleName(name);
      grid->addWidget(label, member, column++, Qt::AlignRight);
      grid->addWidget(list, member, column++);
      return list;
    };
    PickBox* ctcss = add("cmbCTCSS", tr("CTCSS"));
    for (const std::string_view text : core::CtcssList()) {
      AddTone(*ctcss, platform::FromAnsi(text));
    }
    PickBox* dcs = add("cmbDCS", tr("DCS"));
    for (const std::string_view text : core::DcsList()) AddTone(*dcs, platform::FromAnsi(text));
    for (int code = core::kLastDcs + 1; code <= 2 * core::kLastDcs; ++code) {
      AddTone(*dcs, platform::FromAnsi(core::DcsText(code)));
    }
    tones_[direction] = {ctcss, dcs};
  }
  complement_ = maker_->Check(QStringLiteral("chkComp"), tr("COMP"));
  grid->addWidget(complement_, 1, 5);
  grid->setColumnStretch(6, 1);
  return tone_frame_;
}

/// Marine channels take number and frequencies from the plan and have no tones.
void ChannelPage::ShowForm() {
  const bool marine = IsMarine();
  groups_area_->setVisible(node_.kind == NodeKind::kExpChannel);
  display_right_->setVisible(!marine);
  tone_frame_->setVisible(!marine);
  wide_->setVisible(!marine);
  narrow_->setVisible(!marine);
  duplex_->setVisible(marine);
  for (FieldBox* box :
       {display_left_, display_right_, static_cast<FieldBox*>(frequencies_[kReceive].box),
        static_cast<FieldBox*>(frequencies_[kTransmit].box)}) {
    box->SetLocked(marine);
  }
}

void ChannelPage::SetHelpContexts() {
  const auto number = [marine = IsMarine()](int extra) { return marine ? 0 : extra; };
  SetHelpContext(*enable_, IsMarine() ? help::kMarineEnable : help::kExtraEnable);
  SetHelpContext(*display_left_, number(help::kDisplay));
  SetHelpContext(*display_right_, number(help::kDisplay));
  SetHelpContext(*frequencies_[kReceive].box, number(help::kReceive));
  SetHelpContext(*frequencies_[kTransmit].box, number(help::kTransmit));
}

}  // namespace orvane::editor
