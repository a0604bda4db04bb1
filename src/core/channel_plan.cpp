#include "core/channel_plan.h"

#include "core/channel_plan_rows.h"

namespace orvane::core {
namespace {

/// Frequencies are computed in whole kilohertz, so that each is the double nearest to its decimal.
constexpr double Megahertz(int kilohertz) {
  return kilohertz / 1000.0;
}

constexpr int kDuplexOffsetKhz = 4600;

/// Transmit frequency of a marine channel: channels from 60 on lie between those below 60.
constexpr int ChannelKhz(int channel) {
  return channel < 60 ? 156000 + 50 * channel : 156025 + 50 * (channel - 60);
}

std::string TwoDigits(int number) {
  const std::string digits = std::to_string(number);
  return digits.size() < 2 ? "0" + digits : digits;
}

ChannelPlanEntry MarineEntry(int position) {
  const int channel = position / 2;
  const bool base_channel = position % 2 == 0;
  const int khz = ChannelKhz(channel);
  return {.number = 0,
          .text = TwoDigits(channel) + (base_channel ? "" : "A"),
          .tx_frequency = Megahertz(khz),
          .rx_simplex = Megahertz(khz),
          .rx_duplex = base_channel ? Megahertz(khz + kDuplexOffsetKhz) : 0,
          .duplex_allowed = base_channel,
          .second_flag = false,
          .display = {}};
}

std::array<ChannelPlanEntry, kMarineChannels> MakeChannelPlan() {
  std::array<ChannelPlanEntry, kMarineChannels> plan;
  int position = 0;
  for (ChannelPlanEntry& entry : plan) entry = MarineEntry(position++);
  return plan;
}

std::array<ChannelPlanEntry, kWxChannels> MakeWxPlan() {
  constexpr std::array<int, kWxChannels> kWxKhz = {162550, 162400, 162475, 162425, 162450,
                                                   162500, 162525, 161650, 161775, 163275};
  std::array<ChannelPlanEntry, kWxChannels> plan;
  for (std::size_t i = 0; i < kWxKhz.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const std::string khz = std::to_string(kWxKhz[i]);
    const std::string mhz = khz.substr(0, 3) + "." + khz.substr(3);
    plan[i] = {.number = static_cast<std::int16_t>(number),
               .text = mhz + "MHZ",
               .tx_frequency = Megahertz(kWxKhz[i]),
               .rx_simplex = Megahertz(kWxKhz[i]),
               .rx_duplex = 0,
               .duplex_allowed = true,
               .second_flag = false,
               .display = "WX" + TwoDigits(number) + "[" + mhz + "MHz]"};
  }
  return plan;
}

void ApplyDefault(const MarineDefault& row, ChannelRecord& channel) {
  const auto has = [&row](MarineDefault::Flags flag) { return (row.flags & flag) != 0; };
  channel.Enable = !has(MarineDefault::kDisabled);
  channel.ChTag = row.name;
  channel.PowUp = has(MarineDefault::kPowUp);
  channel.LowPower = has(MarineDefault::kLowPower);
  channel.Duplex = has(MarineDefault::kDuplex);
  channel.RxOnly = has(MarineDefault::kRxOnly);
  if (channel.RxOnly) {
    channel.DuplexAllowed = false;
    channel.TxEnable = false;
  }
}

}  // namespace

const std::array<ChannelPlanEntry, kMarineChannels>& ChannelPlan() {
  static const std::array<ChannelPlanEntry, kMarineChannels> kPlan = MakeChannelPlan();
  return kPlan;
}

const std::array<ChannelPlanEntry, kWxChannels>& WxPlan() {
  static const std::array<ChannelPlanEntry, kWxChannels> kPlan = MakeWxPlan();
  return kPlan;
}

void ResetMarineTable(MarineGroup group, MarineTable& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    table[i] = ChannelRecord{};
    table[i].Position = static_cast<std::int16_t>(i);
    table[i].DuplexAllowed = ChannelPlan()[i].duplex_allowed;
    table[i].TxEnable = true;
  }
  for (const MarineDefault& row : MarineDefaults(group)) {
    ApplyDefault(row, table[static_cast<std::size_t>(row.position)]);
  }
}

void ResetWxTable(WxTable& table) {
  for (std::size_t i = 0; i < table.size(); ++i) {
    const ChannelPlanEntry& plan = WxPlan()[i];
    table[i] = ChannelRecord{};
    table[i].Position = plan.number;
    table[i].Enable = true;
    table[i].ChTag = plan.text;
    table[i].Txfreq = plan.tx_frequency;
    table[i].Rxfreq = plan.rx_simplex;
  }
}

const ChannelPlanEntry* PlanOf(const ChannelRecord& marine) {
  if (marine.Position < 0 || marine.Position >= kMarineChannels) return nullptr;
  return &ChannelPlan()[static_cast<std::size_t>(marine.Position)];
}

std::string_view PlanLabel(int position) {
  if (position < 0 || position >= kMarineChannels) return {};
  return ChannelPlan()[static_cast<std::size_t>(position)].text;
}

std::string ChannelLabel(std::int32_t channel, std::string_view extra_word) {
  if (channel >= 0 && channel < kFirstExtraChannelIndex) return std::string(PlanLabel(channel));
  if (channel >= kFirstExtraChannelIndex && channel < kFirstWxChannelIndex) {
    return std::string(extra_word) + std::to_string(channel - kFirstExtraChannelIndex + 1);
  }
  return "Off";
}

}  // namespace orvane::core
