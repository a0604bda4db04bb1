#pragma once

#include <QAction>
#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <functional>
#include <optional>
#include <vector>

#include "core/radio_data.h"
#include "editor/node.h"
#include "editor/tool_tips.h"

namespace orvane::editor {

/// Where the user is: "USA > CH 16 DISTRESS 156.800", "LMR > LMR1 HARBOR".
[[nodiscard]] QString HeadingText(const core::RadioData& data, const NodeRef& node);
/// What the page alone would let the user misunderstand; empty for most nodes.
[[nodiscard]] QString HeadingNote(const core::RadioData& data, const NodeRef& node);
/// The channel in use before (step -1) or behind (1) that one in its table; nothing at the ends
/// and for nodes that are no channel.
[[nodiscard]] std::optional<NodeRef> NextInUse(const core::RadioData& data, const NodeRef& channel,
                                               int step);
/// The node whose table lists the channel.
[[nodiscard]] std::optional<NodeRef> TableOfChannel(const NodeRef& channel);

/// The line above the pages, with the ways to the neighbours of a channel and back to its table.
class PageHeading : public QWidget {
  Q_OBJECT

 public:
  explicit PageHeading(const core::RadioData& radio, QWidget* parent);

  /// The page of that node is on show.
  void Show(const NodeRef& node);
  /// The data changed.
  void Refresh() { Show(node_); }

 signals:
  /// The user wants to go to that node.
  void NodeAsked(const QString& key);

 private:
  using Target = std::function<std::optional<NodeRef>(const NodeRef& from)>;
  struct Way {
    QAction* action;
    QToolButton* button;
    Target target;
  };
  [[nodiscard]] Way AddWay(const char* name, Qt::ArrowType arrow, const QString& tool_tip,
                           const QKeySequence& shortcut, Target target);

  const core::RadioData& data_;
  NodeRef node_;
  CutLabel* text_;
  QLabel* note_;
  std::vector<Way> ways_;
};

}  // namespace orvane::editor
