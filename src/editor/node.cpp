#include "editor/node.h"

#include <array>
#include <utility>

namespace orvane::editor {
namespace {

using core::MarineGroup;

// Keys that stand for one node each.
constexpr std::array<std::pair<const char*, NodeKind>, 7> kPlainKeys = {{
    {"General", NodeKind::kGeneral},
    {"Usable", NodeKind::kUsable},
    {"Common", NodeKind::kCommon},
    {"Program", NodeKind::kProgram},
    {"PW", NodeKind::kWeather},
    {"LMRChannel", NodeKind::kLmrRoot},
    {"ExpChannel", NodeKind::kExpRoot},
}};

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
  for (const auto& [key, kind] : kPlainKeys) {
    if (kind == node.kind) return QLatin1String(key);
  }
  return {};
}

QString MarineGroupName(core::MarineGroup group) {
  constexpr std::array kNames = {"USA", "INTL", "CANADA"};
  return QLatin1String(kNames[static_cast<std::size_t>(group)]);
}

QString ExtraGroupDescription(bool lmr_root) {
  return lmr_root ? QStringLiteral("Extra channels that are each switched on by themselves")
                  : QStringLiteral("Extra channels that go with the groups USA, INTL and CAN");
}

std::optional<NodeRef> NodeOfKey(const QString& key) {
  for (const auto& [plain, kind] : kPlainKeys) {
    if (key.compare(QLatin1String(plain), Qt::CaseInsensitive) == 0) return NodeRef{.kind = kind};
  }
  if (const auto node = MarineNodeOfKey(key)) return node;
  const bool lmr = key.startsWith(QLatin1Char('L'), Qt::CaseInsensitive);
  if (!lmr && !key.startsWith(QLatin1Char('E'), Qt::CaseInsensitive)) return std::nullopt;
  const auto number = NumberAfter(key, 1, core::ExtraTable::kFirst, core::ExtraTable::kLast);
  if (!number) return std::nullopt;
  return NodeRef{.kind = lmr ? NodeKind::kLmrChannel : NodeKind::kExpChannel, .number = *number};
}

}  // namespace orvane::editor
