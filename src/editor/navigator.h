#pragma once

#include <QObject>
#include <QString>
#include <array>

#include "editor/nav_tree.h"
#include "editor/page_area.h"

namespace orvane::editor {

/// Keyboard hint of the navigation tree.
inline constexpr const char* kTreeHint = "[Up]/[Down]/[Left]/[Right]:Change of a Selection item.";

/// Keeps tree and page area together: choosing a node shows its page, unless the page being left
/// holds input that must not be left.
class Navigator : public QObject {
  Q_OBJECT

 public:
  struct Pages {
    Page* general;
    Page* grey;
    Page* usable;
    Page* common;
    Page* grid;
    Page* channel;
    Page* weather;
  };
  Navigator(NavTree& tree, PageArea& area, const Pages& pages, PageHost& host);

  /// As if the user had chosen the node. Nothing happens for a key that names no node.
  void Select(const QString& key);
  /// Shows the node's page without checking the one left.
  void SelectUnchecked(const QString& key);
  /// Fills the page on show anew.
  void ShowAgain();
  [[nodiscard]] bool CheckPage();
  /// Empty until a node was chosen.
  [[nodiscard]] const QString& CurrentKey() const { return current_key_; }

 private:
  void Choose(const QString& key);
  [[nodiscard]] Page* PageOf(NodeKind kind) const;

  NavTree& tree_;
  PageArea& area_;
  Pages pages_;
  PageHost& host_;
  QString current_key_;
};

}  // namespace orvane::editor
