#include "document/find_channels.h"

#include <algorithm>

#include "core/channel_plan.h"
#include "core/field_ref.h"
#include "core/rendering.h"
#include "core/text.h"

namespace orvane::document {
namespace {

using core::ChannelRecord;
using core::RadioData;
using core::TableKind;

/// As the window heads them. A place that nobody uses stands under the first heading on show.
bool StandsUnderLmr(const RadioData& data, const ChannelRecord& channel) {
  if (core::ProfileOf(data).splits_lmr_and_exp && channel.Enable) return channel.IsLmr();
  return data.LmrPresent() || !data.ExpPresent;
}

bool HoldsChannels(const core::Table& table) {
  return table.kind == TableKind::kMarine || table.kind == TableKind::kWeather ||
         table.kind == TableKind::kExtra;
}

std::string_view NameOf(const RadioData& data, const ChannelRecord& channel) {
  if (!core::ProfileOf(data).has_channel_names) return {};
  return core::Trim(channel.ChTag);
}

std::string DisplayOf(const ChannelRecord& channel) {
  return std::string(core::Trim(core::DisplayText(channel)));
}

}  // namespace

std::vector<ChannelTable> ChannelTables(const RadioData& data) {
  std::vector<ChannelTable> tables;
  std::size_t marine_group = 0;
  for (const core::Table& table : core::Catalogue()) {
    if (HoldsChannels(table)) tables.emplace_back(data, table, marine_group);
    if (table.kind == TableKind::kMarine) ++marine_group;
  }
  return tables;
}

std::optional<std::uint8_t> ChannelTable::FieldOf(const char* member) const {
  const auto field = std::find_if(table_.fields.begin(), table_.fields.end(),
                                  [=](const core::Field& each) { return each.member == member; });
  if (field == table_.fields.end()) return std::nullopt;
  if (!core::HasField(core::ProfileOf(data_), table_, *field)) return std::nullopt;
  return static_cast<std::uint8_t>(field - table_.fields.begin());
}

core::FieldRef ChannelTable::RefTo(std::uint8_t field, int entry) const {
  return {.table = static_cast<std::uint8_t>(&table_ - core::Catalogue().data()),
          .field = field,
          .entry = static_cast<std::uint16_t>(entry)};
}

const core::Flag& ChannelTable::GroupSwitch(bool lmr) const {
  if (table_.kind == TableKind::kMarine) return data_.Usable[marine_group_].Enable;
  return lmr ? data_.LmrPresent() : data_.ExpPresent;
}

core::FieldRef ChannelTable::GroupSwitchRef(bool lmr) const {
  const bool marine = table_.kind == TableKind::kMarine;
  if (!marine && !lmr) return core::RefTo<&RadioData::ExpPresent>(data_, data_);
  return core::RefTo<&core::UsableGroup::Enable>(
      data_, data_.Usable[marine ? marine_group_ : core::kExtraGroup]);
}

Use ChannelTable::UseOf(const ChannelRecord& channel, bool lmr) const {
  if (table_.kind != TableKind::kWeather && !GroupSwitch(lmr)) return Use::kGroupOff;
  return channel.Enable ? Use::kInUse : Use::kSwitchedOff;
}

std::string ChannelTable::GroupName(bool lmr) const {
  const bool extra = table_.kind == TableKind::kExtra;
  return std::string(extra ? core::ProfileOf(data_).GroupWord(lmr) : table_.label);
}

Candidate ChannelTable::CandidateAt(int entry) const {
  const auto& channel = *static_cast<const ChannelRecord*>(table_.record(data_, entry));
  const bool lmr = StandsUnderLmr(data_, channel);
  Candidate candidate{.channel = channel,
                      .lmr = lmr,
                      .use = UseOf(channel, lmr),
                      .group = core::UpperCase(GroupName(lmr)),
                      .number = {},
                      .display = {},
                      .name = {}};
  candidate.name = core::UpperCase(NameOf(data_, channel));
  AddNumbers(entry, candidate);
  return candidate;
}

void ChannelTable::AddNumbers(int entry, Candidate& candidate) const {
  const ChannelRecord& channel = candidate.channel;
  switch (table_.kind) {
    case TableKind::kMarine: {
      candidate.number = core::PlanLabel(channel.Position);
      const core::ChannelPlanEntry* const plan = core::PlanOf(channel);
      if (plan == nullptr) return;
      candidate.receive = plan->Receive(channel.Duplex);
      candidate.transmit = channel.RxOnly ? 0 : plan->tx_frequency;
      return;
    }
    case TableKind::kWeather: {
      const core::ChannelPlanEntry& plan = core::WxPlan()[static_cast<std::size_t>(entry)];
      candidate.number = plan.display.substr(0, plan.display.find('['));
      candidate.receive = plan.rx_simplex;
      return;
    }
    default:
      candidate.number = table_.entry_name(entry);
      candidate.display = core::UpperCase(DisplayOf(channel));
      candidate.receive = channel.Rxfreq;
      candidate.transmit = channel.Txfreq;
  }
}

std::string ChannelTable::FrequencyOf(const Candidate& candidate) const {
  if (!(candidate.receive > 0) && !(candidate.transmit > 0)) return {};
  std::string (*const text)(double) =
      table_.kind == TableKind::kExtra ? &core::FrequencyText : &core::PlanFrequencyText;
  std::string frequency = text(candidate.receive);
  if (candidate.transmit > 0 && candidate.transmit != candidate.receive) {
    frequency += "/" + text(candidate.transmit);
  }
  return frequency;
}

Hit ChannelTable::HitOf(int entry, const Candidate& candidate,
                        std::optional<std::uint8_t> asked) const {
  const std::uint8_t enable = *FieldOf(&core::kMemberTag<&ChannelRecord::Enable>);
  Hit hit{.channel = RefTo(enable, entry),
          .at = {},
          .use = candidate.use,
          .group = GroupName(candidate.lmr),
          .number = candidate.number,
          .name = std::string(NameOf(data_, candidate.channel)),
          .frequency = FrequencyOf(candidate)};
  if (!candidate.display.empty()) hit.number += " " + DisplayOf(candidate.channel);
  // The other fields of a channel that is off cannot be set.
  const std::uint8_t field = candidate.channel.Enable ? asked.value_or(enable) : enable;
  hit.at = candidate.use == Use::kGroupOff ? GroupSwitchRef(candidate.lmr) : RefTo(field, entry);
  return hit;
}

}  // namespace orvane::document
