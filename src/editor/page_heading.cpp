#include "editor/page_heading.h"

#include <QHBoxLayout>
#include <QVBoxLayout>
#include <utility>

#include "core/channel_plan.h"
#include "core/extra_channel.h"
#include "core/model_profile.h"
#include "core/rendering.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::RadioData;
using platform::FromAnsi;

constexpr const char* kInside = " > ";

bool IsExtraChannel(const NodeRef& node) {
  return node.kind == NodeKind::kLmrChannel || node.kind == NodeKind::kExpChannel;
}

QString WithName(QString text, const core::ChannelRecord& channel, const RadioData& data) {
  if (core::ProfileOf(data).has_channel_names && !channel.ChTag.empty()) {
    text += QLatin1Char(' ') + FromAnsi(channel.ChTag).trimmed();
  }
  return text;
}

QString ExtraWord(const RadioData& data, bool lmr) {
  return FromAnsi(core::ProfileOf(data).GroupWord(lmr));
}

QString MarineText(const RadioData& data, const NodeRef& node) {
  const core::ChannelRecord& channel =
      data.Table(node.group)[static_cast<std::size_t>(node.number)];
  QString text = QLatin1String("CH ") + FromAnsi(core::PlanLabel(channel.Position));
  text = WithName(std::move(text), channel, data);
  const core::ChannelPlanEntry* const plan = core::PlanOf(channel);
  if (plan == nullptr) return text;
  const std::string frequency = core::PlanFrequencyText(plan->Receive(channel.Duplex));
  return text + QLatin1Char(' ') + FromAnsi(frequency).trimmed();
}

QString ExtraText(const RadioData& data, int number, bool lmr) {
  return WithName(FromAnsi(core::ExtraChannelName(core::ProfileOf(data), number, lmr)),
                  data.EXP[number], data);
}

// Each of the forty places can hold a channel of either kind.
QString SharedPlaceNote(const RadioData& data, const NodeRef& node) {
  const bool lmr = node.kind == NodeKind::kLmrChannel;
  const core::ModelProfile& profile = core::ProfileOf(data);
  const core::ChannelRecord& channel = data.EXP[node.number];
  if (!channel.Enable || core::OfKind(profile, channel, lmr)) return {};
  return QStringLiteral("Place %1 is used as %2. Switching it on here makes it an %3 channel.")
      .arg(node.number)
      .arg(ExtraText(data, node.number, !lmr), ExtraWord(data, lmr));
}

// The image has no such switch for these channels: after reading, it shows off.
QString PowerNote(const RadioData& data, const NodeRef& node) {
  const core::ChannelRecord& channel = data.EXP[node.number];
  const bool lmr = node.kind == NodeKind::kLmrChannel;
  if (!channel.Enable || !core::OfKind(core::ProfileOf(data), channel, lmr)) return {};
  if (channel.TxEnable || channel.TXPower == 0) return {};
  return QStringLiteral(
             "The radio does not store Tx Enable for %1 channels: with power code %2 it may "
             "transmit here.")
      .arg(ExtraWord(data, lmr))
      .arg(channel.TXPower);
}

bool IsInUse(const RadioData& data, const NodeRef& node) {
  if (node.kind == NodeKind::kMarineChannel) {
    return data.Table(node.group)[static_cast<std::size_t>(node.number)].Enable;
  }
  return core::MarkedEnabled(data, node.number, node.kind == NodeKind::kLmrChannel);
}

}  // namespace

QString HeadingText(const RadioData& data, const NodeRef& node) {
  switch (node.kind) {
    case NodeKind::kMarineGroup:
      return MarineGroupName(node.group);
    case NodeKind::kMarineChannel:
      return MarineGroupName(node.group) + QLatin1String(kInside) + MarineText(data, node);
    case NodeKind::kLmrRoot:
    case NodeKind::kExpRoot:
      return ExtraWord(data, node.kind == NodeKind::kLmrRoot);
    case NodeKind::kLmrChannel:
    case NodeKind::kExpChannel: {
      const bool lmr = node.kind == NodeKind::kLmrChannel;
      return ExtraWord(data, lmr) + QLatin1String(kInside) + ExtraText(data, node.number, lmr);
    }
    default:
      return PlainNodeName(node.kind);
  }
}

QString HeadingNote(const RadioData& data, const NodeRef& node) {
  if (!IsExtraChannel(node)) return {};
  const QString shared = SharedPlaceNote(data, node);
  return shared.isEmpty() ? PowerNote(data, node) : shared;
}

std::optional<NodeRef> NextInUse(const RadioData& data, const NodeRef& channel, int step) {
  const bool marine = channel.kind == NodeKind::kMarineChannel;
  if (!marine && !IsExtraChannel(channel)) return std::nullopt;
  const int first = marine ? 0 : core::ExtraTable::kFirst;
  const int last = marine ? core::kMarineChannels - 1 : core::ExtraTable::kLast;
  NodeRef next = channel;
  for (next.number += step; next.number >= first && next.number <= last; next.number += step) {
    if (IsInUse(data, next)) return next;
  }
  return std::nullopt;
}

std::optional<NodeRef> TableOfChannel(const NodeRef& channel) {
  switch (channel.kind) {
    case NodeKind::kMarineChannel:
      return NodeRef{.kind = NodeKind::kMarineGroup, .group = channel.group};
    case NodeKind::kLmrChannel:
      return NodeRef{.kind = NodeKind::kLmrRoot};
    case NodeKind::kExpChannel:
      return NodeRef{.kind = NodeKind::kExpRoot};
    default:
      return std::nullopt;
  }
}

PageHeading::PageHeading(const RadioData& radio, QWidget* parent)
    : QWidget(parent), data_(radio), text_(new CutLabel(this)), note_(new QLabel(this)) {
  setObjectName(QStringLiteral("pageHeading"));
  text_->setObjectName(QStringLiteral("lblHeading"));
  text_->setTextFormat(Qt::PlainText);
  text_->setAccessibleDescription(tr("Where you are"));
  // A long name must not keep the page wide.
  text_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  QFont bold = text_->font();
  bold.setBold(true);
  text_->setFont(bold);
  note_->setObjectName(QStringLiteral("lblHeadingNote"));
  note_->setTextFormat(Qt::PlainText);
  note_->setWordWrap(true);
  note_->hide();

  auto* line = new QHBoxLayout;
  line->addWidget(text_, 1);
  auto* all = new QVBoxLayout(this);
  all->setSpacing(0);
  QMargins margins = all->contentsMargins();
  margins.setTop(margins.top() / 2);
  margins.setBottom(0);
  all->setContentsMargins(margins);
  all->addLayout(line);
  all->addWidget(note_);
  const auto next = [this](int step) {
    return [this, step](const NodeRef& from) { return NextInUse(data_, from, step); };
  };
  ways_.push_back(AddWay("cmdPrevious", Qt::LeftArrow, tr("Previous channel in use (Alt+PgUp)"),
                         Qt::ALT | Qt::Key_PageUp, next(-1)));
  ways_.push_back(AddWay("cmdNext", Qt::RightArrow, tr("Next channel in use (Alt+PgDown)"),
                         Qt::ALT | Qt::Key_PageDown, next(1)));
  ways_.push_back(AddWay("cmdTable", Qt::UpArrow, tr("Back to the table (Alt+Up)"),
                         Qt::ALT | Qt::Key_Up, TableOfChannel));
}

PageHeading::Way PageHeading::AddWay(const char* name, Qt::ArrowType arrow, const QString& tool_tip,
                                     const QKeySequence& shortcut, Target target) {
  auto* action = new QAction(tool_tip, this);
  action->setObjectName(QLatin1String(name));
  action->setToolTip(tool_tip);
  action->setShortcut(shortcut);
  addAction(action);
  auto* button = new QToolButton(this);
  button->setDefaultAction(action);
  button->setArrowType(arrow);
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::NoFocus);  // by keyboard there are the shortcuts
  button->setAccessibleName(tool_tip);
  static_cast<QHBoxLayout*>(layout()->itemAt(0)->layout())->addWidget(button);
  connect(action, &QAction::triggered, this, [this, target] {
    if (const std::optional<NodeRef> node = target(node_)) emit NodeAsked(KeyOf(*node));
  });
  return {action, button, std::move(target)};
}

void PageHeading::Show(const NodeRef& node) {
  node_ = node;
  text_->setText(HeadingText(data_, node));
  const QString note = HeadingNote(data_, node);
  note_->setText(note);
  note_->setVisible(!note.isEmpty());
  const bool channel = TableOfChannel(node).has_value();
  for (const Way& way : ways_) {
    way.button->setVisible(channel);
    way.action->setEnabled(way.target(node).has_value());
  }
}

}  // namespace orvane::editor
