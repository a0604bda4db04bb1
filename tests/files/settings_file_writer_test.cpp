#include <gtest/gtest.h>

#include "core/model_profile.h"
#include "image/raw_areas.h"
#include "settings_file_bench.h"

namespace orvane::files {
namespace {

using core::RadioData;
using Fixture = testing::SettingsFileBench;
using testing::Lines;
using testing::SectionText;

TEST(SettingsFileWriter, WritesTheSectionsInOrder) {
  Fixture f;
  std::vector<std::string> expected = {"[MAIN]", "[Usable CH Group Setup]", "[Common Setup]",
                                       "[ATIS Setup (Common)]"};
  for (const char* name : {"[CHUSA", "[CHINT", "[CHCAN"}) {
    for (int i = 0; i < 240; ++i) expected.push_back(name + std::to_string(i) + "]");
  }
  for (int i = 0; i < 10; ++i) expected.push_back("[CHWX" + std::to_string(i) + "]");
  for (int i = 1; i <= 40; ++i) expected.push_back("[CHEXP" + std::to_string(i) + "]");
  expected.emplace_back("[PRISETCH]");

  std::vector<std::string> sections;
  for (const std::string& line : Lines(SettingFileText(f.Fresh(5), f.pump))) {
    if (line.starts_with("[")) sections.push_back(line);
  }
  EXPECT_EQ(sections, expected);
  EXPECT_EQ(f.pump.yields, 3 * 8);
}

TEST(SettingsFileWriter, WritesEveryKeyInItsOrderAndForm) {
  Fixture f;
  RadioData data = f.Fresh(5);
  image::SetDestinationBits(data.Image, true, false);
  for (int slot = 0; slot < image::kStoredChannelSlots; ++slot) {
    for (int group = 0; group < image::kStoredChannelGroups; ++group) {
      image::SetStoredChannel(data.Image, group, slot, image::kEmptyStoredChannel);
    }
  }
  image::SetStoredChannel(data.Image, 0, 3, 289);
  image::SetStoredChannel(data.Image, 0, 5, 290);  // no channel: skipped
  image::SetStoredChannel(data.Image, 0, 7, 0);
  data.Usable[0] = {true, false, -1, true, " A#", -5};
  data.Usable[1] = {false, true, 259, false, "", 255};
  data.Usable[2] = {true, true, -7, false, "C", 0};
  data.Usable[3] = {true, false, 0, true, "D", 0};
  data.Common = {.TX_Po_Display = -2,
                 .Last_TX_Power = 1,
                 .SQL = 15,
                 .Last_CH_Group = 2,
                 .Last_Display_CH = -1,
                 .Marine_LMR_CH = 65536 + 32,
                 .SCAN = true,
                 .Resume_Time = -3,
                 .PTT_SCAN_Clear = false,
                 .Dual_Watch = true,
                 .Offset_Time = -4,
                 .Magnetic_Variation = 1,
                 .Weater = 3,
                 .RotaryBeep = true};
  data.Atis = {{true, false, false, true}, "0123456789", {}};
  core::ChannelRecord& marine = data.Table(core::MarineGroup::kIntl)[33] = {};
  marine.Position = 33;
  marine.Enable = marine.TxEnable = true;
  marine.TXPower = 255;
  marine.Scramble = -7;
  marine.ChTag = "  VTS";
  data.WX[9] = {};
  data.WX[9].ChTag = "WX";
  core::ChannelRecord& extra = data.EXP[40] = {};
  extra.Enable = extra.Narrow = extra.USA_Group = true;
  extra.LMR_EXP = -1;
  extra.ClockShift = true;
  extra.ChTag = "NET";
  extra.CHDisplayL = "L";
  extra.Rxfreq = 156.8;
  extra.Txfreq = 157.0125;
  extra.TxDCS = 208;
  extra.RxCTCSS = 50;
  for (int k = 0; k < image::kPriSetChLength; ++k) {
    data.Image[image::kPriSetChOffset + k] = static_cast<std::uint8_t>(15 + 16 * k);
  }
  const std::string text = SettingFileText(data, f.pump);

  EXPECT_EQ(SectionText(text, "MAIN"),
            "MODEL=#KT740|TYPE=#KIV|VERSION=#2.00|MODELTYPE=5|SEL1=1|SEL2=0");
  EXPECT_EQ(SectionText(text, "Usable CH Group Setup"),
            "USA=1|INTL=0|Canada=1|EXP CH=1|TX TOT 0=0|TX TOT 1=1|TX TOT 2=1|TX TOT 3=0|"
            "Priority CH 0=-1|Priority CH 0-Cmb 1=289|Priority CH 0-Cmb 2=0|Priority CH 0Backup=5|"
            "Priority CH 1=259|Priority CH 1Backup=255|Priority CH 2=7|Priority CH 2Backup=0|"
            "Status Icon 0=1|Status Icon 1=0|Status Icon 2=0|Status Icon 3=1|"
            "Status name 0= A#|Status name 1=|Status name 2=C|Status name 3=D");
  EXPECT_EQ(SectionText(text, "Common Setup"),
            "TX Po Display=2|Last TX Power=1|Last CH Group=2|SQL=15|Last Display CH=-1|"
            "Marine_LMR CH=32|SCAN=1|Resume Time=-3|PTT SCAN Clear=0|Dual Watch=1|Offset Time=-4|"
            "Magnetic Variation=1|Weater=3");
  EXPECT_EQ(SectionText(text, "ATIS Setup (Common)"),
            "Usable ATIS CH Group0=1|Usable ATIS CH Group1=0|Usable ATIS CH Group2=0|"
            "Usable ATIS CH Group3=1|Atis Code=#0123456789");
  EXPECT_EQ(SectionText(text, "CHINT33"),
            "Position=33|Enable=1|LowPower=0|TXPower=255|PowUp=0|Duplex=0|TxEnable=1|DispayA=0|"
            "ScanMemory=0|Scramble=-7|ChTag=#  VTS");
  EXPECT_EQ(SectionText(text, "CHWX9"), "Enable=0|ScanMemory=0|ChTag=#WX");
  EXPECT_EQ(SectionText(text, "CHEXP40"),
            "Enable=1|LMR EXP=1|CHDisplayL=L|CHDisplayR=|Rxfreq=156.8|Txfreq=157.0125|LowPower=0|"
            "TXPower=0|PowUp=0|ScanMemory=0|ClockShift=1|USA Group=0|INT Group=1|CAN Group=1|"
            "Scramble=0|ChTag=#NET|Narrow=1|TxDCS=208|RxDCS=0|RxComp=0|TxCTCSS=0|RxCTCSS=50");
  EXPECT_EQ(SectionText(text, "PRISETCH"),
            "A0=&H0F|A1=&H1F|A2=&H2F|A3=&H3F|A4=&H4F|A5=&H5F|A6=&H6F|A7=&H7F");
}

struct KeyCase {
  const char* section;
  const char* line;  ///< the only one that differs from those of empty records
  void (*set)(RadioData&);
};

core::ChannelRecord& Usa12(RadioData& data) {
  return data.Marine[0][12];
}
core::ChannelRecord& Extra1(RadioData& data) {
  return data.EXP[1];
}

// clang-format off
const KeyCase kKeyCases[] = {
    {"Usable CH Group Setup", "TX TOT 2=1", [](RadioData& d) { d.Usable[2].TX_TOT = true; }},
    {"Usable CH Group Setup", "Status Icon 1=1", [](RadioData& d) { d.Usable[1].Status_Icon = true; }},
    {"Common Setup", "TX Po Display=1", [](RadioData& d) { d.Common.TX_Po_Display = 1; }},
    {"Common Setup", "Last TX Power=1", [](RadioData& d) { d.Common.Last_TX_Power = 1; }},
    {"Common Setup", "Last CH Group=1", [](RadioData& d) { d.Common.Last_CH_Group = 1; }},
    {"Common Setup", "SCAN=1", [](RadioData& d) { d.Common.SCAN = true; }},
    {"Common Setup", "PTT SCAN Clear=1", [](RadioData& d) { d.Common.PTT_SCAN_Clear = true; }},
    {"Common Setup", "Dual Watch=1", [](RadioData& d) { d.Common.Dual_Watch = true; }},
    {"Common Setup", "Magnetic Variation=1", [](RadioData& d) { d.Common.Magnetic_Variation = 1; }},
    {"ATIS Setup (Common)", "Usable ATIS CH Group1=1", [](RadioData& d) { d.Atis.UsableGroup[1] = true; }},
    {"ATIS Setup (Common)", "Usable ATIS Kikker CH Group2=1", [](RadioData& d) { d.Atis.KillerGroup[2] = true; }},
    {"CHUSA12", "Enable=1", [](RadioData& d) { Usa12(d).Enable = true; }},
    {"CHUSA12", "LowPower=1", [](RadioData& d) { Usa12(d).LowPower = true; }},
    {"CHUSA12", "PowUp=1", [](RadioData& d) { Usa12(d).PowUp = true; }},
    {"CHUSA12", "Duplex=1", [](RadioData& d) { Usa12(d).Duplex = true; }},
    {"CHUSA12", "TxEnable=1", [](RadioData& d) { Usa12(d).TxEnable = true; }},
    {"CHUSA12", "DispayA=1", [](RadioData& d) { Usa12(d).DispayA = true; }},
    {"CHUSA12", "ScanMemory=1", [](RadioData& d) { Usa12(d).ScanMemory = true; }},
    {"CHEXP1", "CHDisplayR=x", [](RadioData& d) { Extra1(d).CHDisplayR = "x"; }},
    {"CHEXP1", "LowPower=1", [](RadioData& d) { Extra1(d).LowPower = true; }},
    {"CHEXP1", "PowUp=1", [](RadioData& d) { Extra1(d).PowUp = true; }},
    {"CHEXP1", "ScanMemory=1", [](RadioData& d) { Extra1(d).ScanMemory = true; }},
    {"CHEXP1", "ClockShift=1", [](RadioData& d) { Extra1(d).ClockShift = true; }},
    {"CHEXP1", "USA Group=0", [](RadioData& d) { Extra1(d).USA_Group = true; }},
    {"CHEXP1", "INT Group=0", [](RadioData& d) { Extra1(d).INT_Group = true; }},
    {"CHEXP1", "CAN Group=0", [](RadioData& d) { Extra1(d).CAN_Group = true; }},
    {"CHEXP1", "Narrow=1", [](RadioData& d) { Extra1(d).Narrow = true; }},
    {"CHEXP1", "RxDCS=1", [](RadioData& d) { Extra1(d).RxDCS = 1; }},
    {"CHEXP1", "RxComp=1", [](RadioData& d) { Extra1(d).RxComp = true; }},
    {"CHEXP1", "TxCTCSS=1", [](RadioData& d) { Extra1(d).TxCTCSS = 1; }},
};
// clang-format on

/// Every line of a file behind its section.
std::vector<std::string> PlacedLines(const std::string& text) {
  std::vector<std::string> lines = Lines(text);
  std::string section;
  for (std::string& line : lines) {
    if (line.starts_with("[")) section = line;
    line.insert(0, section);
  }
  return lines;
}

/// Members of one type next to one another are easily exchanged, and what was exchanged both ways
/// comes back whole: each that has no value of its own above is looked at alone.
TEST(SettingsFileWriter, EveryMemberHasItsOwnKey) {
  for (const KeyCase& c : kKeyCases) {
    SCOPED_TRACE(c.line);
    Fixture f;
    const bool killer = std::string_view(c.line).find("Kikker") != std::string_view::npos;
    RadioData data = f.Fresh(killer ? 0 : 5);
    data.Usable = {};
    data.Common = {};
    data.Atis = {};
    Usa12(data) = Extra1(data) = {};
    const std::vector<std::string> before = PlacedLines(SettingFileText(data, f.pump));
    c.set(data);
    const std::vector<std::string> after = PlacedLines(SettingFileText(data, f.pump));
    std::vector<std::string> changed;
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i) {
      if (after[i] != before[i]) changed.push_back(after[i]);
    }
    EXPECT_EQ(changed, std::vector{"[" + std::string(c.section) + "]" + c.line});
  }
}

TEST(SettingsFileWriter, KeepsOnlyTheKeysOfTheModel) {
  const auto keeps = [](const std::string& text, const char* section, const char* key) {
    return ("|" + SectionText(text, section)).find(std::string("|") + key) != std::string::npos;
  };
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    SCOPED_TRACE(profile.model);
    Fixture f;
    const std::string text = SettingFileText(f.Fresh(profile.model_type), f.pump);
    const bool names = profile.model_type != 1;
    const bool tones = profile.model_type == 2 || profile.model_type >= 4;
    EXPECT_EQ(keeps(text, "Usable CH Group Setup", "Status name 0="), names);
    EXPECT_EQ(keeps(text, "CHUSA0", "Scramble="), names);
    EXPECT_EQ(keeps(text, "CHUSA0", "ChTag="), names);
    EXPECT_EQ(keeps(text, "CHWX0", "ChTag="), names);
    EXPECT_EQ(keeps(text, "CHEXP1", "ChTag="), tones);
    EXPECT_EQ(keeps(text, "CHEXP1", "RxCTCSS="), tones);
    EXPECT_EQ(keeps(text, "ATIS Setup (Common)", "Usable ATIS Kikker CH Group3="),
              profile.model_type == 0);
  }
}

TEST(SettingsFileWriter, EnablesExtraChannelsOnlyWithTheirGroup) {
  Fixture f;
  RadioData data = f.Fresh(5);
  data.LmrPresent() = false;
  data.ExpPresent = true;
  for (int number = 1; number <= 3; ++number) data.EXP[number].Enable = true;
  data.EXP[1].LMR_EXP = -1;
  data.EXP[2].LMR_EXP = 0;
  data.EXP[3].LMR_EXP = 5;
  const std::string text = SettingFileText(data, f.pump);
  EXPECT_TRUE(SectionText(text, "CHEXP1").starts_with("Enable=0|LMR EXP=1|"));
  EXPECT_TRUE(SectionText(text, "CHEXP2").starts_with("Enable=1|LMR EXP=0|"));
  EXPECT_TRUE(SectionText(text, "CHEXP3").starts_with("LMR EXP=1|"));
  EXPECT_TRUE(data.EXP[1].Enable);
}

TEST(SettingsFileWriter, ALineEndInATextCannotStartALine) {
  Fixture f;
  RadioData data = f.Fresh(5);
  data.WX[0].ChTag = "A\r\n[MAIN]\rB\nC";
  EXPECT_EQ(SectionText(SettingFileText(data, f.pump), "CHWX0"),
            "Enable=1|ScanMemory=0|ChTag=#A  [MAIN] B C");
}

TEST(SettingsFileWriter, AWriteThatFailsIsReportedToTheCaller) {
  Fixture f;
  RadioData data = f.Fresh(5);
  f.files.failing[f.kPath] = {28, "No space left on device"};
  const auto error = WriteSettingFile(data, f.kPath, f.files, f.pump);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, 28);
  EXPECT_TRUE(f.prompts.messages.empty());
}

}  // namespace
}  // namespace orvane::files
