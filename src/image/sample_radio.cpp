#include "image/sample_radio.h"

#include <array>
#include <cmath>
#include <string>
#include <string_view>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "image/codec.h"
#include "image/layout_channels.h"
#include "image/layout_places.h"

namespace orvane::image {
namespace {

constexpr std::uint8_t kLow = 1;
constexpr std::uint8_t kFull = 3;

struct SampleChannel {
  std::string_view name;
  double receive;   ///< MHz, multiples of 50 kHz: every model takes them
  double transmit;  ///< 0: receive only
  bool wide;        ///< only outside 150..174 MHz, where land-mobile channels must be narrow
  std::uint8_t power;
  std::int16_t tx_ctcss;
  std::int16_t rx_ctcss;
  std::int16_t tx_dcs;
  std::int16_t rx_dcs;
};

// The last four are the EXP channels of radios that have both kinds. Tones beyond the third, and
// inverted codes, are left out where the tones lie over the end of the transmit frequency.
constexpr std::array<SampleChannel, 12> kSampleChannels = {{
    {"HARBOR", 151.60, 151.60, false, kFull, 12, 3, 0, 0},
    {"DOCK CREW", 151.70, 151.70, false, kFull, 3, 3, 0, 0},
    {"TUG 1", 154.60, 154.60, false, kFull, 0, 0, 5, 5},
    {"TUG 2", 154.65, 154.65, false, kFull, 0, 0, 109, 109},
    {"YARD", 158.40, 158.40, false, kLow, 20, 20, 0, 0},
    {"REPEATER", 160.90, 155.20, false, kFull, 30, 0, 0, 0},
    {"FERRY", 147.00, 147.00, true, kFull, 0, 0, 0, 0},
    {"ISLAND", 149.90, 149.90, true, kFull, 1, 1, 0, 0},
    {"LOCK", 156.00, 156.00, false, kLow, 0, 0, 0, 0},
    {"MARINA", 157.55, 157.55, false, kFull, 0, 0, 0, 0},
    {"REGATTA", 161.30, 161.30, true, kLow, 0, 0, 0, 0},
    {"SHORE NEWS", 162.00, 0, true, 0, 0, 0, 0, 0},
}};
constexpr int kFirstExpSample = 9;

constexpr std::array<std::string_view, 4> kScannedChannels = {"09", "13", "16", "68"};

bool IsScanned(std::string_view label) {
  for (const std::string_view scanned : kScannedChannels) {
    if (label == scanned) return true;
  }
  return false;
}

// A new data set may transmit nowhere: its power codes are 0 until someone chooses them.
void SetTransmitPower(core::RadioData& data) {
  for (core::MarineTable& table : data.Marine) {
    for (core::ChannelRecord& channel : table) {
      if (channel.Enable && channel.TxEnable) channel.TXPower = channel.LowPower ? kLow : kFull;
    }
  }
}

core::RadioData NewDataSetThatTransmits(std::int16_t model_type, core::Date today) {
  core::RadioData data;
  data.MODELTYPE = model_type;
  ResetToDefaults(data, today);
  SetTransmitPower(data);
  StoreProduct(data.Image, core::ProfileOf(data));
  return data;
}

void CompleteImage(core::RadioData& data, core::Date today) {
  EncodeAll(data, today);
  ConsistencyPass(data);
  StoreCommonChecksum(data.Image);
}

void SetTones(core::ChannelRecord& channel, const SampleChannel& sample,
              const core::ModelProfile& profile) {
  const bool share_byte = *profile.tone_byte <= layout::kTransmitFrequency.LastByte();
  constexpr std::int16_t kLastToneInOneByte = 3;
  constexpr std::int16_t kLastPlainCode = 104;
  if (share_byte && (sample.rx_ctcss > kLastToneInOneByte || sample.tx_dcs > kLastPlainCode ||
                     sample.rx_dcs > kLastPlainCode)) {
    return;
  }
  channel.TxCTCSS = sample.tx_ctcss;
  channel.RxCTCSS = sample.rx_ctcss;
  channel.TxDCS = sample.tx_dcs;
  channel.RxDCS = sample.rx_dcs;
}

void AddExtraChannel(core::RadioData& data, int number) {
  const core::ModelProfile& profile = core::ProfileOf(data);
  const SampleChannel& sample = kSampleChannels[static_cast<std::size_t>(number - 1)];
  const bool is_lmr =
      profile.extra_word == "LMR" && (!profile.splits_lmr_and_exp || number < kFirstExpSample);
  core::ChannelRecord& channel = data.EXP[number];
  channel.Enable = true;
  channel.SetLmr(is_lmr);
  channel.ChTag = sample.name;
  channel.Rxfreq = sample.receive;
  channel.Txfreq = sample.transmit;
  channel.Narrow = !sample.wide;
  channel.TXPower = sample.power;
  channel.LowPower = sample.power == kLow;
  channel.ScanMemory = number <= 2;
  channel.USA_Group = channel.INT_Group = channel.CAN_Group = true;
  channel.CHDisplayL = is_lmr ? "L0" : "E0";
  channel.CHDisplayR = (number < 10 ? "0" : "") + std::to_string(number);
  if (profile.HasTones()) SetTones(channel, sample, profile);
}

void AddExtraChannels(core::RadioData& data) {
  for (int number = 1; number <= static_cast<int>(kSampleChannels.size()); ++number) {
    AddExtraChannel(data, number);
  }
  data.LmrPresent() = true;
  data.ExpPresent = true;
}

void AddMarineUse(core::RadioData& data) {
  for (core::UsableGroup& group : data.Usable) group.Enable = true;
  for (core::MarineTable& table : data.Marine) {
    for (core::ChannelRecord& channel : table) {
      channel.ScanMemory = channel.Enable && IsScanned(core::PlanLabel(channel.Position));
    }
  }
  // A point ends a name when the radio is read, so the frequency texts of the plan would come
  // back cut.
  int number = 0;
  for (core::ChannelRecord& channel : data.WX) channel.ChTag = "WX-" + std::to_string(++number);
  data.Common.Last_CH_Group = static_cast<std::int16_t>(core::MarineGroup::kUsa);
  data.Common.Last_Display_CH = core::kChannel16;
  data.Common.Marine_LMR_CH = core::kChannel16;
  data.Common.SQL = 5;
}

void AddCallNumbers(core::RadioData& data) {
  data.Dsc.UserMmsi = "338123456";
  data.Stations[1] = {true, "SEA BREEZE", "338000101"};
  data.Stations[2] = {true, "NORTHWIND", "338000102"};
  data.StationGroups[1] = {true, "REGATTA", "033800010"};
}

}  // namespace

core::RadioData MakeSampleRadio(std::int16_t model_type, core::Date today) {
  core::RadioData data = NewDataSetThatTransmits(model_type, today);
  const core::ModelProfile& profile = core::ProfileOf(data);
  AddMarineUse(data);
  AddExtraChannels(data);
  if (profile.has_dsc) AddCallNumbers(data);
  CompleteImage(data, today);
  if (profile.radio_code_address == places::kRadioModelCode.FirstByte()) {
    WriteBits(data.Image.All().data(), places::kRadioModelCode, profile.code);
  }
  DecodeAll(data);
  return data;
}

core::MemoryImage MakeDestinationTemplate(std::int16_t model_type, bool sel1, core::Date today) {
  core::RadioData data = NewDataSetThatTransmits(model_type, today);
  constexpr double kKilohertzPerMegahertz = 1000;
  for (core::ChannelRecord& channel : data.WX) {
    const long khz = std::lround(channel.Rxfreq * kKilohertzPerMegahertz);
    channel.ChTag = std::to_string(khz) + "KHZ";
  }
  SetDestinationBits(data.Image, sel1, Sel2(data.Image));
  CompleteImage(data, today);
  return data.Image;
}

}  // namespace orvane::image
