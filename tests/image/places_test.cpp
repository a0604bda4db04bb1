#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "image/codec.h"
#include "image/memory_map.h"
#include "support/full_data.h"
#include "support/golden.h"
#include "support/image_fixtures.h"

/// Where in the memory each field lies, told by absolute bytes. Decoder and encoder share their
/// tables, so that no round trip sees a field in a wrong place.
namespace orvane::image {
namespace {

using core::RadioData;
using ::orvane::testing::kAfterCutOver;
using ::orvane::testing::NewData;
using D = RadioData;

// A new data set whose weather channels have no names.
RadioData Unnamed(int model) {
  RadioData data = NewData(model);
  for (core::ChannelRecord& channel : data.WX) channel.ChTag.clear();
  EncodeAll(data, kAfterCutOver);
  return data;
}

// What differs, as runs of "first-last:bits": "84:01 85:02", "3072-3083:BE".
std::string Changes(const core::MemoryImage& before, const core::MemoryImage& after) {
  std::ostringstream text;
  const auto bits = [&](int i) { return before[i] ^ after[i]; };
  for (int i = 0; i < core::MemoryImage::kSize; ++i) {
    if (bits(i) == 0) continue;
    const int first = i;
    while (i + 1 < core::MemoryImage::kSize && bits(i + 1) == bits(first)) ++i;
    text << (text.tellp() > 0 ? " " : "") << std::dec << first;
    if (i > first) text << '-' << i;
    text << ':' << std::hex << std::uppercase << (bits(first) < 16 ? "0" : "") << bits(first);
  }
  return text.str();
}

void Flip(core::Flag& flag) {
  flag = !flag;
}

struct Field {
  int model;
  std::string name;
  std::function<void(D&)> change;
  std::string changes;
};

void ExpectPlaces(const std::vector<Field>& fields) {
  for (const Field& field : fields) {
    RadioData data = Unnamed(field.model);
    const core::MemoryImage before = data.Image;
    field.change(data);
    EncodeAll(data, kAfterCutOver);
    EXPECT_EQ(Changes(before, data.Image), field.changes) << field.model << ' ' << field.name;
  }
}

TEST(Places, OfGroupsAndCommonSettings) {
  std::vector<Field> fields = {
      {5, "TX Po Display", [](D& d) { d.Common.TX_Po_Display ^= 0xFF; }, "68:FF"},
      {5, "Last TX Power", [](D& d) { d.Common.Last_TX_Power ^= 0xFF; }, "69:FF"},
      {5, "Last CH Group", [](D& d) { d.Common.Last_CH_Group ^= 0xFF; }, "70:FF"},
      {5, "SQL", [](D& d) { d.Common.SQL ^= 15; }, "74:F0"},
      {3, "Offset Time", [](D& d) { d.Common.Offset_Time = 7; }, "76:15"},
      {3, "Magnetic Variation", [](D& d) { d.Common.Magnetic_Variation ^= 1; }, "76:40"},
      {5, "Last Display CH", [](D& d) { d.Common.Last_Display_CH ^= 0x102; }, "80:01 81:02"},
      {5, "Marine_LMR CH", [](D& d) { d.Common.Marine_LMR_CH ^= 0x102; }, "82:01 83:02"},
      {3, "Rotary Beep", [](D& d) { Flip(d.Common.RotaryBeep); }, "90:01"},
      {5, "SCAN", [](D& d) { Flip(d.Common.SCAN); }, "91:80"},
      {5, "PTT SCAN Clear", [](D& d) { Flip(d.Common.PTT_SCAN_Clear); }, "91:08"},
      {5, "Resume Time", [](D& d) { d.Common.Resume_Time ^= 3; }, "91:06"},
      {5, "Dual Watch", [](D& d) { Flip(d.Common.Dual_Watch); }, "93:80"},
      {5, "Weater", [](D& d) { d.Common.Weater ^= 3; }, "93:30"},
      {5, "EXP present", [](D& d) { Flip(d.ExpPresent); }, "93:01"},
  };
  const std::vector<std::vector<std::string>> places = {
      {"93:08", "94:08", "94:80", "84:01 85:02", "497:FF"},
      {"93:04", "94:04", "94:40", "86:01 87:02", "498:FF"},
      {"93:02", "94:02", "94:20", "88:01 89:02", "499:FF"},
      {"93:01", "94:01", "94:10", "", ""}};
  for (std::size_t k = 0; k < places.size(); ++k) {
    const std::vector<std::function<void(core::UsableGroup&)>> changes = {
        [](auto& group) { Flip(group.Enable); }, [](auto& group) { Flip(group.TX_TOT); },
        [](auto& group) { Flip(group.Status_Icon); },
        [](auto& group) { group.Priority_CH ^= 0x102; }, [](auto& group) { group.Backup ^= 0xFF; }};
    for (std::size_t i = 0; i < changes.size(); ++i) {
      fields.push_back({5, "group " + std::to_string(k) + " field " + std::to_string(i),
                        [=](D& d) { changes[i](d.Usable[k]); }, places[k][i]});
    }
  }
  ExpectPlaces(fields);
}

TEST(Places, OfDscAndAtisSettings) {
  std::vector<Field> fields = {
      {3, "available USA", [](D& d) { Flip(d.Dsc.AvailableGroup[0]); }, "160:80"},
      {3, "available INTL", [](D& d) { Flip(d.Dsc.AvailableGroup[1]); }, "160:40"},
      {3, "available Canada", [](D& d) { Flip(d.Dsc.AvailableGroup[2]); }, "160:20"},
      {3, "POS Request", [](D& d) { Flip(d.Dsc.PosRequest.On); }, "164:80"},
      {3, "POS Request Hi", [](D& d) { Flip(d.Dsc.PosRequest.Hi); }, "164:40"},
      {3, "POS Send", [](D& d) { Flip(d.Dsc.PosSend.On); }, "164:20"},
      {3, "POS Send Hi", [](D& d) { Flip(d.Dsc.PosSend.Hi); }, "164:10"},
      {3, "Stanby Mode", [](D& d) { Flip(d.Dsc.StanbyMode); }, "164:08"},
      {3, "Distress Cancel Call", [](D& d) { Flip(d.Dsc.DistressCancelCall); }, "164:04"},
      {3, "ACK", [](D& d) { Flip(d.Dsc.IndividualAckMenu); }, "166:80"},
      {3, "ACK Message", [](D& d) { Flip(d.Dsc.IndividualAckMessageMenu); }, "166:40"},
      {3, "POS ACK", [](D& d) { Flip(d.Dsc.PosRequestAckMenu); }, "166:02"},
      {3, "User MMSI", [](D& d) { d.Dsc.UserMmsi = "123456789"; },
       "496:ED 497:CB 498:A9 499:87 500:60"},
      {5, "ATIS code", [](D& d) { d.Atis.Code = "1234567890"; },
       "507:ED 508:CB 509:A9 510:87 511:6F"},
      {0, "first call sign",
       [](D& d) {
         d.CallSigns[1] = {"ABC", "DEF"};
       },
       "12544:BE 12545:BD 12546:BC 12547:BB 12548:BA 12549:B9"},
      {0, "last call sign", [](D& d) { d.CallSigns[20].Mid = "AAA"; }, "12696-12698:BE"},
  };
  const std::string bits[] = {"80", "40", "20", "10", "08", "04", "02", "01"};
  for (std::size_t i = 0; i < 8; ++i) {
    fields.push_back({3, "beep", [=](D& d) { Flip(d.Dsc.BeepOutput[i]); }, "165:" + bits[i]});
    const auto flag = i < 4 ? &core::FlagPair::On : &core::FlagPair::Hi;
    const auto call = [&](int byte, std::array<core::FlagPair, 4> core::DscSettings::*kind) {
      fields.push_back({3, "call", [=](D& d) { Flip((d.Dsc.*kind)[i % 4].*flag); },
                        std::to_string(byte) + ":" + bits[i]});
    };
    call(161, &core::DscSettings::AllShipsCall);
    call(162, &core::DscSettings::GroupCall);
    call(163, &core::DscSettings::IndividualCall);
    fields.push_back(
        {0, "ATIS group",
         [=](D& d) { Flip(i < 4 ? d.Atis.UsableGroup[i] : d.Atis.KillerGroup[i - 4]); },
         "505:" + bits[i]});
  }
  ExpectPlaces(fields);
}

TEST(Places, OfChannelsAndDirectories) {
  const std::string name(12, 'A');
  std::vector<Field> fields = {
      {6, "WX 10 Enable", [](D& d) { Flip(d.WX[9].Enable); }, "449:40"},
      {6, "WX 1 Scan", [](D& d) { Flip(d.WX[0].ScanMemory); }, "464:80"},
      {6, "WX 1 name", [=](D& d) { d.WX[0].ChTag = name; }, "11712-11723:BE"},
      {6, "WX 10 name", [=](D& d) { d.WX[9].ChTag = name; }, "11820-11831:BE"},
      {6, "EXP 1 Enable", [](D& d) { Flip(d.EXP[1].Enable); }, "450:80"},
      {6, "EXP 40 Enable", [](D& d) { Flip(d.EXP[40].Enable); }, "454:01"},
      {6, "EXP 1 Scan", [](D& d) { Flip(d.EXP[1].ScanMemory); }, "466:80"},
      {6, "EXP 40 Scan", [](D& d) { Flip(d.EXP[40].ScanMemory); }, "470:01"},
      {6, "EXP 1 name", [=](D& d) { d.EXP[1].ChTag = name; }, "11840-11851:BE"},
      {6, "EXP 40 name", [=](D& d) { d.EXP[40].ChTag = name; }, "12308-12319:BE"},
      {6, "TXPower", [](D& d) { d.EXP[40].TXPower = 3; }, "2928:C0"},
      {6, "LowPower", [](D& d) { Flip(d.EXP[1].LowPower); }, "2304:40"},
      {6, "ClockShift", [](D& d) { Flip(d.EXP[1].ClockShift); }, "2304:20"},
      {6, "PowUp", [](D& d) { Flip(d.EXP[1].PowUp); }, "2304:10"},
      {6, "Scramble", [](D& d) { d.EXP[1].Scramble = 7; }, "2304:0E"},
      {6, "Narrow", [](D& d) { Flip(d.EXP[1].Narrow); }, "2304:01"},
      {6, "CHDisplayL", [](D& d) { d.EXP[1].CHDisplayL = "AB"; }, "2305:61 2306:62"},
      {6, "CHDisplayR", [](D& d) { d.EXP[1].CHDisplayR = "CD"; }, "2307:63 2308:64"},
      {6, "Rxfreq", [](D& d) { d.EXP[1].Rxfreq = 156.825; }, "2309:56 2310:82 2311:50"},
      {6, "Txfreq", [](D& d) { d.EXP[1].Txfreq = 154.3125; }, "2312:54 2313:31 2314:25"},
      {6, "LMR EXP", [](D& d) { d.EXP[1].SetLmr(true); }, "2319:80"},
      {6, "USA Group", [](D& d) { Flip(d.EXP[1].USA_Group); }, "2319:08"},
      {6, "INT Group", [](D& d) { Flip(d.EXP[1].INT_Group); }, "2319:04"},
      {6, "CAN Group", [](D& d) { Flip(d.EXP[1].CAN_Group); }, "2319:02"},
      {2, "RxCTCSS", [](D& d) { d.EXP[1].RxCTCSS = 45; }, "2314:0B 2315:40"},
      {6, "RxCTCSS", [](D& d) { d.EXP[1].RxCTCSS = 45; }, "2315:0B 2316:40"},
      {6, "TxCTCSS", [](D& d) { d.EXP[1].TxCTCSS = 45; }, "2316:2D"},
      {6, "RxDCS", [](D& d) { d.EXP[1].RxDCS = 109; }, "2315:10 2317:05"},
      {6, "RxComp", [](D& d) { Flip(d.EXP[1].RxComp); }, "2315:20"},
      {6, "TxDCS", [](D& d) { d.EXP[1].TxDCS = 110; }, "2315:80 2318:06"},
      {3, "station 1 MMSI", [](D& d) { d.Stations[1].Mmsid = "1234"; }, "12800:ED 12801:CB"},
      {3, "station 40", [=](D& d) { d.Stations[40].TagName = name; }, "13429-13439:BE"},
      {3, "group 1 MMSI", [](D& d) { d.StationGroups[1].Mmsid = "1234"; }, "13568:ED 13569:CB"},
      {3, "group 10", [=](D& d) { d.StationGroups[10].TagName = name; }, "13717-13727:BE"},
  };
  const std::vector<std::vector<std::string>> marine = {
      {"256:80", "317:01", "768:10", "1246:C0", "768:0E", "788:20", "3072-3083:BE", "5940-5951:BE"},
      {"320:80", "381:01", "1280:10", "1758:C0", "1280:0E", "1300:20", "5952-5963:BE",
       "8820-8831:BE"},
      {"384:80", "445:01", "1792:10", "2270:C0", "1792:0E", "1812:20", "8832-8843:BE",
       "11700-11711:BE"}};
  const std::vector<std::function<void(core::MarineTable&)>> changes = {
      [](auto& table) { Flip(table[0].Enable); },  [](auto& table) { Flip(table[239].ScanMemory); },
      [](auto& table) { Flip(table[0].PowUp); },   [](auto& table) { table[239].TXPower = 3; },
      [](auto& table) { table[0].Scramble = 7; },  [](auto& table) { Flip(table[10].Duplex); },
      [=](auto& table) { table[0].ChTag = name; }, [=](auto& table) { table[239].ChTag = name; }};
  for (std::size_t k = 0; k < marine.size(); ++k) {
    for (std::size_t i = 0; i < changes.size(); ++i) {
      fields.push_back({6, "table " + std::to_string(k) + " field " + std::to_string(i),
                        [=](D& d) { changes[i](d.Marine[k]); }, marine[k][i]});
    }
  }
  ExpectPlaces(fields);
}

// The rows between the first and the last entries of the long tables look like those.
bool IsAtAnEdge(int offset) {
  constexpr std::pair<int, int> kBetween[] = {{772, 1246},    {1284, 1758},   {1796, 2270},
                                              {2336, 2912},   {3084, 5940},   {5964, 8820},
                                              {8844, 11700},  {11724, 11820}, {11852, 12308},
                                              {12552, 12696}, {12816, 13424}, {13584, 13712}};
  return std::none_of(std::begin(kBetween), std::end(kBetween), [=](const auto& between) {
    return offset >= between.first && offset < between.second;
  });
}

TEST(MemoryMap, OfRadiosOfEveryKindIsAsPrinted) {
  for (const int model : {0, 1, 2, 5}) {
    RadioData data = ::orvane::testing::FullData(static_cast<std::int16_t>(model));
    data.Image = NewData(model).Image;
    EncodeAll(data, kAfterCutOver);
    std::istringstream lines(MemoryMapText(data));
    std::string kept;
    for (std::string line; std::getline(lines, line);) {
      if (line[0] == 'o' || IsAtAnEdge(std::stoi(line))) kept += line + '\n';
    }
    ::orvane::testing::ExpectGolden("memory_map_model" + std::to_string(model) + ".txt", kept);
  }
}

}  // namespace
}  // namespace orvane::image
