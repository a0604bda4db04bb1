#pragma once

#include <cstdint>
#include <string>

#include "core/channel_plan.h"
#include "core/model_profile.h"
#include "core/radio_data.h"

namespace orvane::testing {

/// LMR channels 1..12 and EXP channels 13..18, the rest not programmed.
inline void FillExtraChannels(core::ExtraTable& table) {
  for (int n = core::ExtraTable::kFirst; n <= core::ExtraTable::kLast; ++n) {
    core::ChannelRecord& channel = table[n];
    channel.Position = static_cast<std::int16_t>(n);
    channel.LMR_EXP = n <= 12 ? std::int16_t{-1} : std::int16_t{0};
    if (n > 18) continue;
    channel.Enable = true;
    channel.USA_Group = n > 12;
    channel.INT_Group = n % 2 == 0;
    channel.CAN_Group = n % 3 == 0;
    channel.CHDisplayL = n <= 12 ? "LR" : "BD";
    channel.CHDisplayR = std::to_string(n);
    channel.Rxfreq = 150 + 0.0125 * n;
    channel.Txfreq = n % 4 == 0 ? 0 : 155 + 0.005 * n;
    channel.LowPower = n % 5 == 0;
    channel.PowUp = n % 2 == 1;
    channel.ScanMemory = n % 3 == 1;
    channel.Scramble = static_cast<std::int16_t>(n % 8);
    channel.ChTag = n % 6 == 0 ? "" : "CREW " + std::to_string(n);
    channel.Narrow = n % 2 == 0;
    channel.RxCTCSS = static_cast<std::int16_t>(n % 3 == 0 ? 7 * n % 51 : 0);
    channel.TxCTCSS = static_cast<std::int16_t>(n % 3 == 1 ? 34 : 0);
    channel.RxDCS = static_cast<std::int16_t>(n % 3 == 2 ? 11 * n : 0);
    channel.TxDCS = static_cast<std::int16_t>(n % 3 == 2 ? 105 : 0);
    channel.RxComp = n % 3 == 2;
  }
}

inline void FillSettings(core::RadioData& data) {
  data.Common.TX_Po_Display = 1;
  data.Common.SCAN = true;
  data.Common.Resume_Time = 2;
  data.Common.Dual_Watch = true;
  data.Common.Offset_Time = 12;
  data.Common.Magnetic_Variation = 1;
  data.Common.Weater = 3;
  data.Common.RotaryBeep = true;
  data.Dsc.AvailableGroup = {true, false, true};
  data.Dsc.UserMmsi = "211234560";
  data.Dsc.StanbyMode = true;
  data.Dsc.PosRequest = {.On = true, .Hi = false};
  data.Dsc.PosSend = {.On = false, .Hi = true};
  data.Dsc.BeepOutput = {true, false, true, false, true, false, true, false};
  data.Dsc.AllShipsCall[0] = {.On = true, .Hi = true};
  data.Dsc.GroupCall[1] = {.On = true, .Hi = false};
  data.Dsc.IndividualCall[3] = {.On = false, .Hi = true};
  data.Dsc.IndividualAckMessageMenu = true;
  data.Atis = {.UsableGroup = {true, false, false, true},
               .Code = "9211234560",
               .KillerGroup = {false, true, true, false}};
  data.Image[501] = 7;
}

/// A data set with something in every table, of any model.
inline core::RadioData FullData(std::int16_t model_type) {
  core::RadioData data;
  data.MODELTYPE = model_type;
  data.Image[168] = 0x20;  // SEL1
  for (const core::MarineGroup group : core::kMarineGroups) {
    core::ResetMarineTable(group, data.Table(group));
  }
  core::MarineTable& usa = data.Table(core::MarineGroup::kUsa);
  usa[32].Scramble = 6;  // channel 16
  usa[32].ScanMemory = true;
  usa[144].Scramble = 2;  // channel 72: a code, but switched off
  core::ResetWxTable(data.WX);
  data.WX[3].Enable = false;
  data.WX[4].ScanMemory = true;
  FillExtraChannels(data.EXP);
  data.ExpPresent = true;
  // Enable, TX TOT, Priority CH, Status Icon, Status name, Backup
  data.Usable[0] = {true, true, 32, false, "USA", 0};
  data.Usable[1] = {true, false, 245, true, " ", 0};
  data.Usable[2] = {true, false, -1, false, "CAN", 0};
  data.Usable[3] = {true, true, -1, true, "LAND", 0};
  FillSettings(data);
  for (int n = 1; n <= core::kCallSigns; ++n) {
    data.CallSigns[n] = {.Mid = std::to_string(200 + n), .Display = "S" + std::to_string(n)};
  }
  data.Stations[1] = {.Enable = true, .TagName = "SEA ROVER", .Mmsid = "211000001"};
  data.Stations[2] = {.Enable = true, .TagName = "", .Mmsid = "2110000029"};
  data.StationGroups[1] = {.Enable = true, .TagName = "REGATTA", .Mmsid = "021100001"};
  return data;
}

}  // namespace orvane::testing
