#pragma once

class QModelIndex;
class QTreeView;

/// What assistive technologies learn of the navigation tree: its nodes as far as they are shown,
/// one below the other, each with name, description, state and actions. Qt's own account of a tree
/// lists the header too, though it is hidden.
namespace orvane::editor {

/// Of every tree from now on; once, however often it is asked for. Nothing is made before somebody
/// asks for a tree.
void InstallNavTreeText();

/// Place of a node among those that are shown; -1 for none and below a node that is not expanded.
[[nodiscard]] int ShownRow(const QTreeView& tree, const QModelIndex& node);

}  // namespace orvane::editor
