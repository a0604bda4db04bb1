#include "cli/data_tree.h"

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>

#include "core/field_ref.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::cli {
namespace {

using Json = nlohmann::ordered_json;
using core::ChannelRecord;
using core::Field;
using core::Table;
using core::TableKind;

Json ToJson(const core::Value& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return platform::AnsiToUtf8(*text);
  return std::visit([](const auto& plain) { return Json(plain); }, value);
}

// "available_group/usa" is an item of the list "available_group", "pos_request/hi" the member "hi"
// of the object "pos_request". The items of a list stand one behind the other in the catalogue.
void AddField(Json& node, const Field& field, const core::Value& value, std::string_view& item) {
  const std::vector<std::string_view> parts = core::Split(field.id, '/');
  Json& member = node[std::string(parts[0])];
  if (parts.size() == 1) {
    member = ToJson(value);
  } else if (!field.in_list) {
    member[std::string(parts[1])] = ToJson(value);
  } else if (parts.size() == 2) {
    member.push_back(ToJson(value));
  } else {
    if (member.empty() || item != parts[1]) member.push_back(Json::object());
    member.back()[std::string(parts[2])] = ToJson(value);
    item = parts[1];
  }
}

// Settings are listed whole, channels with the fields that their table has. Weather channels are
// listed with those of a marine channel.
bool IsListed(const core::ModelProfile& profile, const Table& table, const Field& field) {
  if (core::IsMember<&ChannelRecord::Position>(field) ||
      core::IsMember<&ChannelRecord::SelectedPlan>(field) ||
      core::IsMember<&ChannelRecord::DispayA>(field) ||
      core::IsMember<&ChannelRecord::LMR_EXP>(field)) {
    return false;
  }
  switch (table.kind) {
    case TableKind::kMarine:
    case TableKind::kWeather:
      return field.presence.In(profile, TableKind::kMarine);
    case TableKind::kExtra:
      return field.presence.In(profile, TableKind::kExtra);
    default:
      return true;
  }
}

Json RecordTree(const core::ModelProfile& profile, const Table& table, const void* record,
                Json node = Json::object()) {
  std::string_view item;
  for (const Field& field : table.fields) {
    if (IsListed(profile, table, field)) AddField(node, field, field.get(record), item);
  }
  return node;
}

// What names an entry of a list: the label of a marine channel, the number of any other.
Json EntryHead(const Table& table, int entry) {
  switch (table.kind) {
    case TableKind::kMarine:
      return {{"channel", table.entry_name(entry)}};
    case TableKind::kWeather:
    case TableKind::kExtra:
      return {{"channel", entry + 1}};
    default:
      return table.fields.size() == core::catalogue::kFieldsOf<core::DirectoryEntry>.size()
                 ? Json{{"number", entry + 1}}
                 : Json::object();
  }
}

Json ListTree(const core::RadioData& data, const Table& table) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  Json list = Json::array();
  for (int entry = 0; entry < table.count; ++entry) {
    const void* const record = table.record(data, entry);
    list.push_back(RecordTree(profile, table, record, EntryHead(table, entry)));
    if (table.kind == TableKind::kExtra) {
      list.back()["kind"] = profile.GroupWord(static_cast<const ChannelRecord*>(record)->IsLmr());
    }
  }
  return list;
}

Json GroupsTree(const core::RadioData& data, const Table& table) {
  Json groups = Json::object();
  for (int entry = 0; entry < table.count; ++entry) {
    groups[table.entry_name(entry)] =
        RecordTree(core::ProfileOf(data), table, table.record(data, entry));
  }
  return groups;
}

Json ModelTree(const core::RadioData& data) {
  return {{"type", data.MODELTYPE},
          {"name", platform::AnsiToUtf8(image::ModelName(data))},
          {"code", core::ProfileOf(data).code},
          {"sel1", image::Sel1(data.Image)},
          {"sel2", image::Sel2(data.Image)}};
}

bool IsChannelTable(const Table& table) {
  return table.kind == TableKind::kMarine || table.kind == TableKind::kWeather ||
         table.kind == TableKind::kExtra;
}

}  // namespace

Json DataTree(const core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  Json tree;
  tree["model"] = ModelTree(data);
  for (const Table& table : core::Catalogue()) {
    const std::string id(table.id);
    if (tree.contains(id) || table.kind == TableKind::kMemory) continue;
    if (!core::Has(profile, table.when)) continue;
    if (IsChannelTable(table)) {
      tree["channels"][id] = ListTree(data, table);
    } else if (table.kind == TableKind::kDirectory) {
      tree[id] = ListTree(data, table);
    } else if (table.entry_name != nullptr) {
      tree[id] = GroupsTree(data, table);
    } else if (table.fields.size() == 1) {
      tree[id] = ToJson(table.fields.front().get(table.record(data, 0)));
    } else {
      tree[id] = RecordTree(profile, table, table.record(data, 0));
    }
  }
  return tree;
}

}  // namespace orvane::cli
