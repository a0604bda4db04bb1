#include "editor/comparison_groups.h"

#include "core/model_profile.h"
#include "document/step_name.h"
#include "editor/node.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using platform::FromAnsi;

// Behind all groups that stand in the navigation tree.
constexpr int kFirstRankWithoutNode = 100;

int RankOf(const NodeRef& node) {
  constexpr auto kGroups = static_cast<int>(core::kMarineGroups.size());
  return static_cast<int>(node.kind) * kGroups + static_cast<int>(node.group);
}

}  // namespace

ComparisonPlace PlaceInComparison(const core::RadioData& data, core::FieldRef at) {
  const core::Table& table = core::TableOf(at);
  const core::ModelProfile& profile = core::ProfileOf(data);
  const bool is_memory = table.kind == core::TableKind::kMemory;
  const QString entry = is_memory ? QString() : FromAnsi(document::PlaceName(data, at));
  const NodeRef node = NodeOfField(data, at).value_or(NodeRef{});
  switch (node.kind) {
    case NodeKind::kGeneral:  // no page shows it
      return {kFirstRankWithoutNode + at.table, FromAnsi(table.label), entry};
    case NodeKind::kMarineChannel:
      return {RankOf(node), MarineGroupName(node.group), entry};
    case NodeKind::kLmrChannel:
    case NodeKind::kExpChannel: {
      // Models with channels of one kind have one group, whatever mark a record has.
      const bool lmr = node.kind == NodeKind::kLmrChannel || !profile.splits_lmr_and_exp;
      const NodeKind kind = lmr ? NodeKind::kLmrChannel : NodeKind::kExpChannel;
      return {RankOf({.kind = kind}), ExtraGroupName(profile, lmr), entry};
    }
    default:
      return {RankOf(node), PlainNodeName(node.kind), entry};
  }
}

}  // namespace orvane::editor
