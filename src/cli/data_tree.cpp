#include "cli/data_tree.h"

#include <array>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>
#include <variant>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::cli {
namespace {

using Json = nlohmann::ordered_json;

// Which channels have the field.
enum class Kind { kAll, kMarine, kNamed, kExtra };

template <class Record>
struct Field {
  const char* name;
  std::variant<core::Flag Record::*, std::uint8_t Record::*, std::int16_t Record::*,
               std::int32_t Record::*, double Record::*, std::string Record::*>
      member;
  Kind kind = Kind::kAll;
};

Json ToJson(core::Flag value) {
  return static_cast<bool>(value);
}
Json ToJson(const std::string& value) {
  return platform::AnsiToUtf8(value);
}
Json ToJson(core::FlagPair value) {
  return {{"on", ToJson(value.On)}, {"hi", ToJson(value.Hi)}};
}
template <class Number>
Json ToJson(Number value) requires std::is_arithmetic_v<Number> {
  return value;
}
template <class T, std::size_t N>
Json ToJson(const std::array<T, N>& values) {
  Json list = Json::array();
  for (const T& value : values) list.push_back(ToJson(value));
  return list;
}

template <class Record>
void AddField(Json& node, const Record& record, const Field<Record>& field) {
  node[field.name] = std::visit([&](auto member) { return ToJson(record.*member); }, field.member);
}

template <class Record, std::size_t N>
Json RecordTree(const Record& record, const std::array<Field<Record>, N>& fields) {
  Json node = Json::object();
  for (const Field<Record>& field : fields) AddField(node, record, field);
  return node;
}

using core::ChannelRecord;
constexpr std::array<Field<ChannelRecord>, 25> kChannelFields = {{
    {"enable", &ChannelRecord::Enable},
    {"name", &ChannelRecord::ChTag, Kind::kNamed},
    {"rx_frequency", &ChannelRecord::Rxfreq, Kind::kExtra},
    {"tx_frequency", &ChannelRecord::Txfreq, Kind::kExtra},
    {"tx_enable", &ChannelRecord::TxEnable},
    {"tx_power", &ChannelRecord::TXPower},
    {"low_power", &ChannelRecord::LowPower},
    {"power_up", &ChannelRecord::PowUp},
    {"duplex", &ChannelRecord::Duplex, Kind::kMarine},
    {"duplex_allowed", &ChannelRecord::DuplexAllowed, Kind::kMarine},
    {"rx_only", &ChannelRecord::RxOnly, Kind::kMarine},
    {"scan_memory", &ChannelRecord::ScanMemory},
    {"scramble", &ChannelRecord::Scramble, Kind::kNamed},
    {"narrow", &ChannelRecord::Narrow, Kind::kExtra},
    {"rx_ctcss", &ChannelRecord::RxCTCSS, Kind::kExtra},
    {"tx_ctcss", &ChannelRecord::TxCTCSS, Kind::kExtra},
    {"rx_dcs", &ChannelRecord::RxDCS, Kind::kExtra},
    {"tx_dcs", &ChannelRecord::TxDCS, Kind::kExtra},
    {"rx_comp", &ChannelRecord::RxComp, Kind::kExtra},
    {"clock_shift", &ChannelRecord::ClockShift, Kind::kExtra},
    {"display_left", &ChannelRecord::CHDisplayL, Kind::kExtra},
    {"display_right", &ChannelRecord::CHDisplayR, Kind::kExtra},
    {"usa_group", &ChannelRecord::USA_Group, Kind::kExtra},
    {"int_group", &ChannelRecord::INT_Group, Kind::kExtra},
    {"can_group", &ChannelRecord::CAN_Group, Kind::kExtra},
}};

using core::UsableGroup;
constexpr std::array<Field<UsableGroup>, 6> kGroupFields = {{
    {"enable", &UsableGroup::Enable},
    {"tx_tot", &UsableGroup::TX_TOT},
    {"priority_ch", &UsableGroup::Priority_CH},
    {"status_icon", &UsableGroup::Status_Icon},
    {"status_name", &UsableGroup::Status_name},
    {"backup", &UsableGroup::Backup},
}};

using core::CommonSettings;
constexpr std::array<Field<CommonSettings>, 14> kCommonFields = {{
    {"tx_po_display", &CommonSettings::TX_Po_Display},
    {"last_tx_power", &CommonSettings::Last_TX_Power},
    {"sql", &CommonSettings::SQL},
    {"last_ch_group", &CommonSettings::Last_CH_Group},
    {"last_display_ch", &CommonSettings::Last_Display_CH},
    {"marine_lmr_ch", &CommonSettings::Marine_LMR_CH},
    {"scan", &CommonSettings::SCAN},
    {"resume_time", &CommonSettings::Resume_Time},
    {"ptt_scan_clear", &CommonSettings::PTT_SCAN_Clear},
    {"dual_watch", &CommonSettings::Dual_Watch},
    {"offset_time", &CommonSettings::Offset_Time},
    {"magnetic_variation", &CommonSettings::Magnetic_Variation},
    {"weather_alert", &CommonSettings::Weater},
    {"rotary_beep", &CommonSettings::RotaryBeep},
}};

using core::DirectoryEntry;
constexpr std::array<Field<DirectoryEntry>, 3> kDirectoryFields = {{
    {"enable", &DirectoryEntry::Enable},
    {"name", &DirectoryEntry::TagName},
    {"mmsi", &DirectoryEntry::Mmsid},
}};

constexpr std::array<const char*, core::kUsableGroups> kGroupNames = {"usa", "intl", "canada",
                                                                      "extra"};

Json DscTree(const core::DscSettings& dsc) {
  return {{"available_group", ToJson(dsc.AvailableGroup)},
          {"user_mmsi", ToJson(dsc.UserMmsi)},
          {"distress_cancel_call", ToJson(dsc.DistressCancelCall)},
          {"stanby_mode", ToJson(dsc.StanbyMode)},
          {"pos_request", ToJson(dsc.PosRequest)},
          {"pos_send", ToJson(dsc.PosSend)},
          {"beep_output", ToJson(dsc.BeepOutput)},
          {"all_ships_call", ToJson(dsc.AllShipsCall)},
          {"group_call", ToJson(dsc.GroupCall)},
          {"individual_call", ToJson(dsc.IndividualCall)},
          {"individual_ack_menu", ToJson(dsc.IndividualAckMenu)},
          {"individual_ack_message_menu", ToJson(dsc.IndividualAckMessageMenu)},
          {"pos_request_ack_menu", ToJson(dsc.PosRequestAckMenu)}};
}

Json CallSignTree(const core::RadioData& data) {
  Json list = Json::array();
  for (const core::AtisCallSign& sign : data.CallSigns) {
    list.push_back({{"mid", ToJson(sign.Mid)}, {"display", ToJson(sign.Display)}});
  }
  return list;
}

template <std::size_t N>
Json DirectoryTree(const core::OneBasedArray<DirectoryEntry, N>& directory) {
  Json list = Json::array();
  int number = 0;
  for (const DirectoryEntry& entry : directory) {
    Json node = {{"number", ++number}};
    node.update(RecordTree(entry, kDirectoryFields));
    list.push_back(std::move(node));
  }
  return list;
}

bool HasField(Kind field, Kind table, const core::ModelProfile& profile) {
  if (field == Kind::kNamed) return profile.has_channel_names;
  return field == Kind::kAll || field == table;
}

Json ChannelTree(const Json& label, const ChannelRecord& channel, Kind table,
                 const core::ModelProfile& profile) {
  Json node = {{"channel", label}};
  for (const Field<ChannelRecord>& field : kChannelFields) {
    if (HasField(field.kind, table, profile)) AddField(node, channel, field);
  }
  if (table == Kind::kExtra) node["kind"] = profile.GroupWord(channel.IsLmr());
  return node;
}

Json ChannelTables(const core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  Json tables = Json::object();
  for (const core::MarineGroup group : core::kMarineGroups) {
    Json& list = tables[kGroupNames[static_cast<std::size_t>(group)]] = Json::array();
    int position = 0;
    for (const ChannelRecord& channel : data.Table(group)) {
      list.push_back(ChannelTree(core::PlanLabel(position++), channel, Kind::kMarine, profile));
    }
  }
  Json& weather = tables["wx"] = Json::array();
  for (const ChannelRecord& channel : data.WX) {
    weather.push_back(ChannelTree(weather.size() + 1, channel, Kind::kMarine, profile));
  }
  Json& extra = tables["extra"] = Json::array();
  for (const ChannelRecord& channel : data.EXP) {
    extra.push_back(ChannelTree(extra.size() + 1, channel, Kind::kExtra, profile));
  }
  return tables;
}

}  // namespace

Json DataTree(const core::RadioData& data) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  Json tree;
  tree["model"] = {{"type", data.MODELTYPE},
                   {"name", platform::AnsiToUtf8(data.ModelName)},
                   {"code", profile.code},
                   {"sel1", image::Sel1(data.Image)},
                   {"sel2", image::Sel2(data.Image)}};
  for (std::size_t group = 0; group < kGroupNames.size(); ++group) {
    tree["usable_groups"][kGroupNames[group]] = RecordTree(data.Usable[group], kGroupFields);
  }
  tree["exp_present"] = ToJson(data.ExpPresent);
  tree["common"] = RecordTree(data.Common, kCommonFields);
  if (profile.has_dsc) tree["dsc"] = DscTree(data.Dsc);
  tree["atis"] = {{"usable_group", ToJson(data.Atis.UsableGroup)},
                  {"code", ToJson(data.Atis.Code)},
                  {"killer_group", ToJson(data.Atis.KillerGroup)}};
  if (profile.has_call_signs) tree["call_signs"] = CallSignTree(data);
  tree["channels"] = ChannelTables(data);
  if (profile.has_dsc) {
    tree["stations"] = DirectoryTree(data.Stations);
    tree["station_groups"] = DirectoryTree(data.StationGroups);
  }
  return tree;
}

}  // namespace orvane::cli
