#pragma once

#include <QString>
#include <optional>

#include "core/catalogue.h"
#include "core/model_profile.h"
#include "core/radio_data.h"
#include "document/edits.h"

namespace orvane::editor {

/// What a node of the navigation tree stands for. Its key is what tests and commands name it by.
enum class NodeKind {
  kGeneral,        ///< "General"
  kUsable,         ///< "Usable"
  kCommon,         ///< "Common"
  kProgram,        ///< "Program"
  kMarineGroup,    ///< "PU", "PI", "PC"
  kMarineChannel,  ///< "PU0" .. "PC239"
  kWeather,        ///< "PW"
  kLmrRoot,        ///< "LMRChannel"
  kLmrChannel,     ///< "L1" .. "L40"
  kExpRoot,        ///< "ExpChannel"
  kExpChannel      ///< "E1" .. "E40"
};

struct NodeRef {
  NodeKind kind = NodeKind::kGeneral;
  core::MarineGroup group = core::MarineGroup::kUsa;  ///< marine nodes only
  int number = 0;  ///< marine channel: table index 0..239; EXP/LMR channel: 1..40

  bool operator==(const NodeRef&) const = default;
};

[[nodiscard]] QString KeyOf(const NodeRef& node);
/// Name of a node that every model has, by its kind: "Common Setup". Marine groups: see below.
[[nodiscard]] QString PlainNodeName(NodeKind kind);
/// Name of a marine group's node.
[[nodiscard]] QString MarineGroupName(core::MarineGroup group);
/// Name of the node above the extra channels of that kind: "LMR Channel".
[[nodiscard]] QString ExtraGroupName(const core::ModelProfile& profile, bool lmr_root);
/// What the channels under either heading of the one extra table have in common; models without
/// LMR channels call both of them "EXP".
[[nodiscard]] QString ExtraGroupDescription(bool lmr_root);
/// The channel that a node stands for, as the rules of editing call it; nothing for other nodes.
[[nodiscard]] std::optional<document::ChannelPlace> PlaceOfNode(const NodeRef& node);
/// The node whose page shows the field; nothing where no page does.
[[nodiscard]] std::optional<NodeRef> NodeOfField(const core::RadioData& data, core::FieldRef at);
/// Letter case is ignored; nothing for a key that names no node.
[[nodiscard]] std::optional<NodeRef> NodeOfKey(const QString& key);

}  // namespace orvane::editor
