#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <utility>

#include "editor/nav_tree.h"
#include "editor/page_area.h"

namespace orvane::editor {

/// Keyboard hint of the navigation tree.
inline constexpr const char* kTreeHint = "[Up]/[Down]/[Left]/[Right]:Change of a Selection item.";

/// A page that is made when it is first shown.
class LazyPage {
 public:
  explicit LazyPage(std::function<Page*()> make) : make_(std::move(make)) {}
  explicit LazyPage(Page* page) : page_(page) {}
  [[nodiscard]] Page* Get() {
    if (page_ == nullptr) page_ = make_();
    return page_;
  }

 private:
  std::function<Page*()> make_;
  Page* page_ = nullptr;
};

/// Keeps tree and page area together: choosing a node shows its page, unless the page being left
/// holds input that must not be left.
class Navigator : public QObject {
  Q_OBJECT

 public:
  struct Pages {
    LazyPage general;
    LazyPage grey;
    LazyPage usable;
    LazyPage common;
    LazyPage grid;
    LazyPage channel;
    LazyPage weather;
  };
  Navigator(NavTree& tree, PageArea& area, Pages pages, PageHost& host);

  /// Makes the pages that were not shown yet, so that the first change to one is as quick as the
  /// next.
  void MakePages();

  /// As if the user had chosen the node. Nothing happens for a key that names no node.
  void Select(const QString& key);
  /// Shows the node's page without checking the one left.
  void SelectUnchecked(const QString& key);
  /// The same in silence, under the hands of a user who works elsewhere: the hint stays.
  void Show(const QString& key);
  [[nodiscard]] bool CheckPage();
  /// What is being typed on the page; see Page.
  [[nodiscard]] bool TakePending();
  /// Empty until a node was chosen.
  [[nodiscard]] const QString& CurrentKey() const { return current_key_; }

 signals:
  /// A page was filled for the node and stands in front.
  void PageShown(const NodeRef& node);

 private:
  void Choose(const QString& key);
  void FillPage();
  [[nodiscard]] LazyPage& PageOf(NodeKind kind);

  NavTree& tree_;
  PageArea& area_;
  Pages pages_;
  PageHost& host_;
  QString current_key_;
};

}  // namespace orvane::editor
