#include "editor/node.h"

#include <array>
#include <utility>

#include "core/field_ref.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using core::MarineGroup;

// Kinds that stand for one node each.
struct PlainNode {
  const char* key;
  NodeKind kind;
  const char* name = "";  ///< "" where the model decides
};
constexpr std::array kPlainNodes = {
    PlainNode{"General", NodeKind::kGeneral, "General"},
    PlainNode{"Usable", NodeKind::kUsable, "Available CH Group Setup"},
    PlainNode{"Common", NodeKind::kCommon, "Common Setup"},
    PlainNode{"Program", NodeKind::kProgram, "Programmable Channel"},
    PlainNode{"PW", NodeKind::kWeather, "Weather"},
    PlainNode{"LMRChannel", NodeKind::kLmrRoot},
    PlainNode{"ExpChannel", NodeKind::kExpRoot},
};

// Prefixes of the marine nodes, by MarineGroup.
constexpr std::array<const char*, 3> kMarineKeys = {"PU", "PI", "PC"};

// The whole rest of the key after the prefix as a number without superfluous zeros.
std::optional<int> NumberAfter(const QString& key, qsizetype prefix_length, int first, int last) {
  const QString digits = key.mid(prefix_length);
  bool ok = false;
  const int number = digits.toInt(&ok);
  if (!ok || number < first || number > last || QString::number(number) != digits) return {};
  return number;
}

std::optional<NodeRef> MarineNodeOfKey(const QString& key) {
  for (const MarineGroup group : core::kMarineGroups) {
    const QString prefix = QLatin1String(kMarineKeys[static_cast<std::size_t>(group)]);
    if (!key.startsWith(prefix, Qt::CaseInsensitive)) continue;
    if (key.size() == prefix.size()) return NodeRef{NodeKind::kMarineGroup, group, 0};
    if (const auto number = NumberAfter(key, prefix.size(), 0, core::kMarineChannels - 1)) {
      return NodeRef{NodeKind::kMarineChannel, group, *number};
    }
  }
  return std::nullopt;
}

}  // namespace

QString KeyOf(const NodeRef& node) {
  QString marine = QLatin1String(kMarineKeys[static_cast<std::size_t>(node.group)]);
  switch (node.kind) {
    case NodeKind::kMarineGroup:
      return marine;
    case NodeKind::kMarineChannel:
      return marine + QString::number(node.number);
    case NodeKind::kLmrChannel:
      return QLatin1String("L") + QString::number(node.number);
    case NodeKind::kExpChannel:
      return QLatin1String("E") + QString::number(node.number);
    default:
      break;
  }
  for (const PlainNode& plain : kPlainNodes) {
    if (plain.kind == node.kind) return QLatin1String(plain.key);
  }
  return {};
}

QString PlainNodeName(NodeKind kind) {
  for (const PlainNode& plain : kPlainNodes) {
    if (plain.kind == kind) return QLatin1String(plain.name);
  }
  return {};
}

QString MarineGroupName(core::MarineGroup group) {
  constexpr std::array kNames = {"USA", "INTL", "CANADA"};
  return QLatin1String(kNames[static_cast<std::size_t>(group)]);
}

QString ExtraGroupName(const core::ModelProfile& profile, bool lmr_root) {
  return platform::FromAnsi(profile.GroupWord(lmr_root)) + QLatin1String(" Channel");
}

QString ExtraGroupDescription(bool lmr_root) {
  return lmr_root ? QStringLiteral("Extra channels that are each switched on by themselves")
                  : QStringLiteral("Extra channels that go with the groups USA, INTL and CAN");
}

std::optional<document::ChannelPlace> PlaceOfNode(const NodeRef& node) {
  using Kind = document::ChannelPlace::Kind;
  switch (node.kind) {
    case NodeKind::kMarineChannel:
      return document::ChannelPlace{static_cast<Kind>(node.group), node.number};
    case NodeKind::kLmrChannel:
      return document::ChannelPlace{Kind::kLmr, node.number};
    case NodeKind::kExpChannel:
      return document::ChannelPlace{Kind::kExp, node.number};
    default:
      return std::nullopt;
  }
}

std::optional<NodeRef> NodeOfField(const core::RadioData& data, core::FieldRef at) {
  if (const std::optional<document::ChannelPlace> place = document::PlaceOf(data, at)) {
    if (place->IsMarine()) {
      return NodeRef{NodeKind::kMarineChannel, static_cast<MarineGroup>(place->kind),
                     place->number};
    }
    return NodeRef{.kind = place->IsLmr() ? NodeKind::kLmrChannel : NodeKind::kExpChannel,
                   .number = place->number};
  }
  const void* const record = core::TableOf(at).record(data, at.entry);
  if (core::TableOf(at).kind == core::TableKind::kWeather) {
    return NodeRef{.kind = NodeKind::kWeather};
  }
  if (record == &data.Common) return NodeRef{.kind = NodeKind::kCommon};
  if (core::IsMember<&core::RadioData::ExpPresent>(at) ||
      (at.entry < data.Usable.size() && record == &data.Usable[at.entry])) {
    return NodeRef{.kind = NodeKind::kUsable};
  }
  return std::nullopt;
}

std::optional<NodeRef> NodeOfKey(const QString& key) {
  for (const PlainNode& plain : kPlainNodes) {
    if (key.compare(QLatin1String(plain.key), Qt::CaseInsensitive) == 0) {
      return NodeRef{.kind = plain.kind};
    }
  }
  if (const auto node = MarineNodeOfKey(key)) return node;
  const bool lmr = key.startsWith(QLatin1Char('L'), Qt::CaseInsensitive);
  if (!lmr && !key.startsWith(QLatin1Char('E'), Qt::CaseInsensitive)) return std::nullopt;
  const auto number = NumberAfter(key, 1, core::ExtraTable::kFirst, core::ExtraTable::kLast);
  if (!number) return std::nullopt;
  return NodeRef{.kind = lmr ? NodeKind::kLmrChannel : NodeKind::kExpChannel, .number = *number};
}

}  // namespace orvane::editor
