#include "editor/navigator.h"

namespace orvane::editor {

Navigator::Navigator(NavTree& tree, PageArea& area, Pages pages, PageHost& host)
    : tree_(tree), area_(area), pages_(std::move(pages)), host_(host) {
  connect(&tree_, &NavTree::NodeChosen, this, &Navigator::Choose);
  connect(&tree_, &NavTree::FocusGained, this,
          [this] { host_.ShowHint(QLatin1String(kTreeHint)); });
}

void Navigator::MakePages() {
  for (LazyPage* page : {&pages_.general, &pages_.grey, &pages_.usable, &pages_.common,
                         &pages_.grid, &pages_.channel, &pages_.weather}) {
    static_cast<void>(page->Get());
  }
}

void Navigator::Select(const QString& key) {
  if (!tree_.Contains(key)) return;
  tree_.SetCurrentKey(key);
  Choose(tree_.CurrentKey());
}

void Navigator::SelectUnchecked(const QString& key) {
  host_.ShowHint(QLatin1String(kTreeHint));
  Show(key);
}

void Navigator::Show(const QString& key) {
  if (!tree_.Contains(key)) return;
  tree_.SetCurrentKey(key);
  current_key_ = tree_.CurrentKey();
  FillPage();
}

void Navigator::FillPage() {
  const NodeRef node = NodeOfKey(current_key_).value_or(NodeRef{});
  area_.Show(PageOf(node.kind).Get(), node);
  emit PageShown(node);
}

bool Navigator::CheckPage() {
  return area_.Current() == nullptr || area_.Current()->Check();
}

bool Navigator::TakePending() {
  return area_.Current() == nullptr || area_.Current()->TakePending();
}

void Navigator::Choose(const QString& key) {
  host_.ShowHint(QLatin1String(kTreeHint));
  if (key == current_key_) return;
  if (!CheckPage()) {
    tree_.SetCurrentKey(current_key_);
    return;
  }
  current_key_ = key;
  FillPage();
}

LazyPage& Navigator::PageOf(NodeKind kind) {
  switch (kind) {
    case NodeKind::kProgram:
      return pages_.grey;
    case NodeKind::kUsable:
      return pages_.usable;
    case NodeKind::kCommon:
      return pages_.common;
    case NodeKind::kMarineGroup:
    case NodeKind::kLmrRoot:
    case NodeKind::kExpRoot:
      return pages_.grid;
    case NodeKind::kMarineChannel:
    case NodeKind::kLmrChannel:
    case NodeKind::kExpChannel:
      return pages_.channel;
    case NodeKind::kWeather:
      return pages_.weather;
    case NodeKind::kGeneral:
      break;
  }
  return pages_.general;
}

}  // namespace orvane::editor
