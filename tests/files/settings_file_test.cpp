#include "files/settings_file.h"

#include <gtest/gtest.h>

#include <random>

#include "core/model_profile.h"
#include "core/product.h"
#include "files/settings_file_table.h"
#include "image/codec.h"
#include "image/raw_areas.h"
#include "support/fakes.h"
#include "support/image_fixtures.h"

namespace orvane::files {
namespace {

using core::RadioData;

class Fixture {
 public:
  static RadioData Fresh(int model) { return testing::NewData(model); }
  void Read(RadioData& data) { ReadSettingFile(data, state, kPath, files, prompts, pump); }

  static constexpr const char* kPath = "/boat.dat";
  core::RunState state;
  testing::ManualClock clock;
  testing::ManualPump pump{clock};
  testing::ScriptedPrompts prompts;
  testing::MemoryFiles files;
};

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = text.find("\r\n", at);
    EXPECT_NE(end, std::string::npos) << "last line not ended";
    if (end == std::string::npos) break;
    lines.push_back(text.substr(at, end - at));
    at = end + 2;
  }
  return lines;
}

/// Lines of one section, blank-separated.
std::string SectionText(const std::string& text, const std::string& name) {
  std::string result;
  bool inside = false;
  for (const std::string& line : Lines(text)) {
    if (inside && line.starts_with("[")) break;
    if (inside) result += (result.empty() ? "" : "|") + line;
    inside = inside || line == "[" + name + "]";
  }
  return result;
}

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
    {"Usable CH Group Setup", "Priority CH 0=2", [](RadioData& d) { d.Usable[0].Priority_CH = 2; }},
    {"Usable CH Group Setup", "Priority CH 0Backup=2", [](RadioData& d) { d.Usable[0].Backup = 2; }},
    {"Common Setup", "TX Po Display=1", [](RadioData& d) { d.Common.TX_Po_Display = 1; }},
    {"Common Setup", "Last TX Power=1", [](RadioData& d) { d.Common.Last_TX_Power = 1; }},
    {"Common Setup", "Last CH Group=1", [](RadioData& d) { d.Common.Last_CH_Group = 1; }},
    {"Common Setup", "SQL=1", [](RadioData& d) { d.Common.SQL = 1; }},
    {"Common Setup", "Last Display CH=1", [](RadioData& d) { d.Common.Last_Display_CH = 1; }},
    {"Common Setup", "Marine_LMR CH=1", [](RadioData& d) { d.Common.Marine_LMR_CH = 1; }},
    {"Common Setup", "SCAN=1", [](RadioData& d) { d.Common.SCAN = true; }},
    {"Common Setup", "Resume Time=1", [](RadioData& d) { d.Common.Resume_Time = 1; }},
    {"Common Setup", "PTT SCAN Clear=1", [](RadioData& d) { d.Common.PTT_SCAN_Clear = true; }},
    {"Common Setup", "Dual Watch=1", [](RadioData& d) { d.Common.Dual_Watch = true; }},
    {"Common Setup", "Offset Time=1", [](RadioData& d) { d.Common.Offset_Time = 1; }},
    {"Common Setup", "Magnetic Variation=1", [](RadioData& d) { d.Common.Magnetic_Variation = 1; }},
    {"Common Setup", "Weater=1", [](RadioData& d) { d.Common.Weater = 1; }},
    {"ATIS Setup (Common)", "Usable ATIS CH Group1=1", [](RadioData& d) { d.Atis.UsableGroup[1] = true; }},
    {"ATIS Setup (Common)", "Usable ATIS Kikker CH Group2=1", [](RadioData& d) { d.Atis.KillerGroup[2] = true; }},
    {"CHUSA12", "Enable=1", [](RadioData& d) { Usa12(d).Enable = true; }},
    {"CHUSA12", "LowPower=1", [](RadioData& d) { Usa12(d).LowPower = true; }},
    {"CHUSA12", "TXPower=1", [](RadioData& d) { Usa12(d).TXPower = 1; }},
    {"CHUSA12", "PowUp=1", [](RadioData& d) { Usa12(d).PowUp = true; }},
    {"CHUSA12", "Duplex=1", [](RadioData& d) { Usa12(d).Duplex = true; }},
    {"CHUSA12", "TxEnable=1", [](RadioData& d) { Usa12(d).TxEnable = true; }},
    {"CHUSA12", "DispayA=1", [](RadioData& d) { Usa12(d).DispayA = true; }},
    {"CHUSA12", "ScanMemory=1", [](RadioData& d) { Usa12(d).ScanMemory = true; }},
    {"CHUSA12", "Scramble=1", [](RadioData& d) { Usa12(d).Scramble = 1; }},
    {"CHEXP1", "CHDisplayL=x", [](RadioData& d) { Extra1(d).CHDisplayL = "x"; }},
    {"CHEXP1", "CHDisplayR=x", [](RadioData& d) { Extra1(d).CHDisplayR = "x"; }},
    {"CHEXP1", "Rxfreq=1", [](RadioData& d) { Extra1(d).Rxfreq = 1; }},
    {"CHEXP1", "Txfreq=1", [](RadioData& d) { Extra1(d).Txfreq = 1; }},
    {"CHEXP1", "LowPower=1", [](RadioData& d) { Extra1(d).LowPower = true; }},
    {"CHEXP1", "PowUp=1", [](RadioData& d) { Extra1(d).PowUp = true; }},
    {"CHEXP1", "ScanMemory=1", [](RadioData& d) { Extra1(d).ScanMemory = true; }},
    {"CHEXP1", "ClockShift=1", [](RadioData& d) { Extra1(d).ClockShift = true; }},
    {"CHEXP1", "USA Group=0", [](RadioData& d) { Extra1(d).USA_Group = true; }},
    {"CHEXP1", "INT Group=0", [](RadioData& d) { Extra1(d).INT_Group = true; }},
    {"CHEXP1", "CAN Group=0", [](RadioData& d) { Extra1(d).CAN_Group = true; }},
    {"CHEXP1", "Narrow=1", [](RadioData& d) { Extra1(d).Narrow = true; }},
    {"CHEXP1", "TxDCS=1", [](RadioData& d) { Extra1(d).TxDCS = 1; }},
    {"CHEXP1", "RxDCS=1", [](RadioData& d) { Extra1(d).RxDCS = 1; }},
    {"CHEXP1", "RxComp=1", [](RadioData& d) { Extra1(d).RxComp = true; }},
    {"CHEXP1", "TxCTCSS=1", [](RadioData& d) { Extra1(d).TxCTCSS = 1; }},
    {"CHEXP1", "RxCTCSS=1", [](RadioData& d) { Extra1(d).RxCTCSS = 1; }},
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
/// comes back whole: each is looked at alone.
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

struct ReadCase {
  const char* name;
  const char* section;
  const char* lines;              ///< of the section
  const char* expected;           ///< in the file written afterwards
  const char* written = nullptr;  ///< section there, when it is another
};

class SettingsFileReading : public ::testing::TestWithParam<ReadCase> {};

/// Before, the records hold values that no case expects but those in which they are kept.
TEST_P(SettingsFileReading, GivesTheValue) {
  Fixture f;
  RadioData data = f.Fresh(5);
  data.Common.SQL = 9;
  data.Common.SCAN = true;
  data.Common.PTT_SCAN_Clear = false;
  data.Common.Last_Display_CH = 7;
  data.Usable[0].TX_TOT = true;
  data.Usable[1] = {true, true, 5, true, "OLD", 0};
  data.Marine[0][12].TXPower = 77;
  data.EXP[1].Rxfreq = 150.5;
  data.EXP[1].USA_Group = true;
  for (int k = 0; k < image::kPriSetChLength; ++k) data.Image[image::kPriSetChOffset + k] = 0x55;
  f.files.files[f.kPath] =
      std::string("[MAIN]\r\nMODELTYPE=5\r\n[") + GetParam().section + "]\n" + GetParam().lines;
  f.Read(data);
  EXPECT_TRUE(f.prompts.messages.empty());
  const std::string section =
      SectionText(SettingFileText(data, f.pump),
                  GetParam().written != nullptr ? GetParam().written : GetParam().section);
  EXPECT_NE(("|" + section + "|").find("|" + std::string(GetParam().expected) + "|"),
            std::string::npos)
      << section;
}

constexpr const char* kUsable = "Usable CH Group Setup";
constexpr const char* kCommon = "Common Setup";

const ReadCase kReadCases[] = {
    {"IntRoundsHalvesToEven", kCommon, "SQL=2.5", "SQL=2"},
    {"IntOutOfRangeIsKept", kCommon, "SQL=32768", "SQL=9"},
    {"IntWithLettersIsKept", kCommon, "SQL=5abc", "SQL=9"},
    {"IntEmptyIsKept", kCommon, "SQL=", "SQL=9"},
    {"IntBehindMarker", kCommon, "SQL= # 4", "SQL=4"},
    {"NamesIgnoreCase", "[MAIN]", "[common SETUP ]junk\n sql = 3", "SQL=3", kCommon},
    {"FirstKeyWins", kCommon, "SQL=3\nSQL=4\n[Common Setup]\nSQL=5", "SQL=3"},
    {"LaterSectionCounts", kCommon, "SCAN=0\n[Common Setup]\nSQL=5", "SQL=5"},
    {"LoneCarriageReturnsEndLines", kCommon, "SQL=3\rSCAN=0", "SQL=3"},
    {"LongBeyond16Bits", kUsable, "Priority CH 2=70000", "Priority CH 2=70000"},
    {"LongOutOfRangeIsKept", kCommon, "Last Display CH=1e10", "Last Display CH=7"},
    {"NoChannel", kCommon, "Last Display CH=-1", "Last Display CH=-1"},
    {"FlagFromWord", kCommon, "SCAN=fALSE", "SCAN=0"},
    {"FlagFromTrue", kCommon, "PTT SCAN Clear=tRUE", "PTT SCAN Clear=1"},
    {"FlagFromAnyNumber", kCommon, "Dual Watch=-0.1", "Dual Watch=1"},
    {"FlagFromOtherWordIsKept", kCommon, "SCAN=no", "SCAN=1"},
    {"NumberedKey", kUsable, "TX TOT 0=0", "TX TOT 0=0"},
    {"NumberedKeyNeedsItsBlank", kUsable, "TX TOT0=0", "TX TOT 0=1"},
    {"MissingTextIsEmptied", kUsable, "", "Status name 1="},
    {"ByteOutOfRangeIsKept", "CHUSA0", "Position=12\nTXPower=256", "TXPower=77", "CHUSA12"},
    {"MarkerKeepsLeadingBlanks", "CHUSA0", "Position=12\nChTag=#  VTS  ", "ChTag=#  VTS",
     "CHUSA12"},
    {"EntryIsChosenByPosition", "CHUSA0", "Position=12\nTXPower=2", "TXPower=2", "CHUSA12"},
    {"GapEndsTheTable", "CHUSA1", "Position=12\nTXPower=2", "TXPower=77", "CHUSA12"},
    {"PositionsOutsideAreSkipped", "CHUSA0",
     "Position=240\n[CHUSA1]\nPosition=-1\n[CHUSA2]\nPosition=x\n"
     "[CHUSA3]\nPosition=12\nTXPower=2",
     "TXPower=2", "CHUSA12"},
    {"DuplexWhereAllowed", "CHUSA0", "Position=12\nDuplex=1", "Duplex=1", "CHUSA12"},
    {"DuplexWhereNotAllowed", "CHUSA0", "Position=13\nDuplex=1", "Duplex=0", "CHUSA13"},
    {"DoubleWithExponent", "CHEXP1", "Rxfreq=1.5e2", "Rxfreq=150"},
    {"DoubleWithCommaIsKept", "CHEXP1", "Rxfreq=156,8", "Rxfreq=150.5"},
    {"GroupFromZero", "CHEXP1", "INT Group=0", "INT Group=0"},
    {"GroupFromOtherTextIsFalse", "CHEXP1", "USA Group=true", "USA Group=1"},
    {"GroupMissingIsFalse", "CHEXP1", "Enable=1", "USA Group=1"},
    {"ExtraChannelWithItsGroup", kUsable, "EXP CH=1\n[CHEXP1]\nEnable=1\nLMR EXP=65535",
     "Enable=1|LMR EXP=1", "CHEXP1"},
    {"ExtraChannelWithoutItsGroup", "CHEXP1", "Enable=1\nLMR EXP=0", "Enable=0|LMR EXP=0"},
    {"ExtraGroupWithoutChannels", kUsable, "EXP CH=1", "EXP CH=0"},
    {"StoredChannelsArePacked", kUsable, "Priority CH 1-Cmb 4=3\nPriority CH 1-Cmb 10=289",
     "Priority CH 1-Cmb 1=3|Priority CH 1-Cmb 2=289|Priority CH 1Backup=0"},
    {"StoredChannelNegativeIsNone", kUsable, "Priority CH 1-Cmb 1=-2",
     "Priority CH 1=5|Priority CH 1Backup=0"},
    {"StoredChannelTooLargeIsNone", kUsable, "Priority CH 1-Cmb 1=65536",
     "Priority CH 1=5|Priority CH 1Backup=0"},
    {"HexBytes", "PRISETCH", "A0=&HfF\nA1=&H000000000000A\nA2=&H00\nA3=17",
     "A0=&HFF|A1=&H0A|A2=&H00|A3=&H11"},
    {"HexBytesThatAreNoNumberAreZero", "PRISETCH", "A0=&HG0\nA1=&H\nA2=x",
     "A0=&H00|A1=&H00|A2=&H00|A3=&H00"},
    {"HexBytesAboveAreKept", "PRISETCH", "A0=&H100\nA1=&H10000000000\nA2=256\nA3=-1",
     "A0=&H55|A1=&H55|A2=&H55|A3=&H55"},
    {"DestinationFromTheFile", "MAIN", "SEL1=0\nSEL2=1", "SEL1=0|SEL2=1"},
    {"DestinationReplaced", "MAIN", "SEL1=2\nSEL2=x", "SEL1=1|SEL2=0"},
    {"BytesOutsideAsciiPass", "CHWX0", "ChTag=#\xC4\x80\xFF", "ChTag=#\xC4\x80\xFF"},
};

INSTANTIATE_TEST_SUITE_P(Table, SettingsFileReading, ::testing::ValuesIn(kReadCases),
                         [](const auto& param) { return std::string(param.param.name); });

/// Some editors put the mark there, and write other bytes then.
TEST(SettingsFile, OpensWithAByteOrderMark) {
  const std::u16string text =
      u"[MAIN]\r\nMODELTYPE=5\r\nSEL1=0\r\n[CHWX0]\nChTag=#\u00C4\u20AC\u03A9";
  std::string little = "\xFF\xFE";
  std::string big = "\xFE\xFF";
  for (const char16_t c : text) {
    const char high = static_cast<char>(c >> 8);
    const char low = static_cast<char>(c & 0xFF);
    little += {low, high};
    big += {high, low};
  }
  const std::string utf8 =
      "\xEF\xBB\xBF[MAIN]\r\nMODELTYPE=5\r\nSEL1=0\r\n[CHWX0]\nChTag=#\xC3\x84\xE2\x82\xAC\xCE";
  for (const std::string& file : {utf8, utf8 + "\xA9", little, big}) {
    Fixture f;
    RadioData data = f.Fresh(5);
    f.files.files[f.kPath] = file;
    f.Read(data);
    EXPECT_TRUE(f.prompts.messages.empty());
    EXPECT_EQ(data.WX[0].ChTag, "\xC4\x80?");
    EXPECT_FALSE(image::Sel1(data.Image));
  }
}

TEST(SettingsFile, MarineChannelsFollowTheDestinationOfNewDataAndOfTheFile) {
  Fixture f;
  RadioData data = f.Fresh(5);
  EXPECT_TRUE(data.Marine[2][239].SelectedPlan);
  ASSERT_TRUE(ApplySettingText(data, "[MAIN]\nMODELTYPE=5\nSEL1=0", f.pump));
  EXPECT_FALSE(data.Marine[2][239].SelectedPlan);
}

TEST(SettingsFile, ModelsWithoutNamesKeepTheOnesTheyHave) {
  Fixture f;
  RadioData data = f.Fresh(1);
  data.Usable[1].Status_name = data.Marine[0][12].ChTag = data.WX[0].ChTag = data.EXP[1].ChTag =
      "OLD";
  ASSERT_TRUE(ApplySettingText(data,
                               "[MAIN]\nMODELTYPE=1\n[CHUSA0]\nPosition=12\nScramble=3\nChTag=N\n"
                               "[CHWX0]\nChTag=N\n[CHEXP1]\nChTag=N",
                               f.pump));
  EXPECT_EQ(data.Usable[1].Status_name, "OLD");
  EXPECT_EQ(data.Marine[0][12].ChTag, "OLD");
  EXPECT_EQ(data.Marine[0][12].Scramble, 0);
  EXPECT_EQ(data.WX[0].ChTag, "OLD");
  EXPECT_EQ(data.EXP[1].ChTag, "OLD");
}

TEST(SettingsFile, DirectoriesAreReadButForgottenWhenTheFileHasNone) {
  Fixture f;
  RadioData data = f.Fresh(0);
  data.Stations[40] = {true, "OLD", "123456789"};
  ASSERT_TRUE(ApplySettingText(
      data, "[MAIN]\nMODELTYPE=0\n[CHGRPID10]\nTagName=#FLEET\nMmsid=012345678", f.pump));
  EXPECT_EQ(data.Stations[40], (core::DirectoryEntry{true, "", ""}));
  EXPECT_EQ(data.StationGroups[10], (core::DirectoryEntry{false, "FLEET", "012345678"}));
}

TEST(SettingsFile, KillerGroupsAreReadForModelsWithDscOnly) {
  for (const core::ModelProfile& profile : core::ModelProfiles()) {
    Fixture f;
    RadioData data = f.Fresh(profile.model_type);
    data.Atis.KillerGroup[3] = false;
    ASSERT_TRUE(ApplySettingText(data,
                                 "[MAIN]\nMODELTYPE=" + std::to_string(profile.model_type) +
                                     "\n[ATIS Setup (Common)]\nUsable ATIS Kikker CH Group3=1",
                                 f.pump));
    EXPECT_EQ(data.Atis.KillerGroup[3], profile.model_type == 0 || profile.model_type == 3);
  }
}

TEST(SettingsFileTable, FollowsTheGrammarOfLines) {
  const struct {
    const char* text;
    const char* table;
  } cases[] = {
      {"", ""},
      {"a=1\nb=2", ""},
      {"[A]\na=1\r\n\r\nB = 2 = 3 ", "[A]a=1;B=2 = 3;"},
      {" [A]\na=1", ""},
      {"[A\n[]\nx=1\n[B]", "[B]"},
      {"[ a b ] tail\nk=#", "[a b]k=;"},
      {"[A]\n=5\nabc\nk=1", "[A]k=1;"},
      {"[A]\nx=1\nabc[def\ny=2\n[B]\nz=3", "[A]x=1;[B]z=3;"},
      {"[A]\n[k]=1\n=[B]\nz=3", "[A][k]=1;"},
      {"[A]\nk=##x ", "[A]k=#x;"},
      {"[A]\nx=1\n[A]\nx=2", "[A]x=1;[A]x=2;"},
  };
  for (const auto& c : cases) {
    std::string dump;
    const SettingTable table = ParseSettingFile(c.text);
    for (const SettingSection& section : table.Sections()) {
      dump += "[" + std::string(section.name) + "]";
      for (std::size_t i = section.first; i < section.first + section.count; ++i) {
        const SettingEntry& entry = table.Entries()[i];
        dump += std::string(entry.key) + "=" + std::string(entry.value) + ";";
      }
    }
    EXPECT_EQ(dump, c.table) << c.text;
  }
}

TEST(SettingsFileTable, MainValuesAreReadAsProfileFilesAre) {
  const struct {
    std::string text;
    std::string value;
  } cases[] = {
      {"[MAIN]\nSEL1=1", "1"},
      {"  [main] x\n ; SEL1=3\n sel1 = #2 ", "2"},
      {"[OTHER]\nSEL1=1\n[MAIN]\nSEL2=0", ""},
      {"[MAIN\nSEL1=1", ""},
      {"[MAIN]\nSEL1=\"1\"", "1"},
      {"[MAIN]\nSEL1=" + std::string(200, '7'), std::string(127, '7')},
      {"[MAIN]\rSEL1=1\rSEL1=2", "1"},
      {"[MAIN]\nSEL1\nSEL1=1", "1"},
  };
  for (const auto& c : cases) EXPECT_EQ(ReadMainValue(c.text, "MAIN", "SEL1"), c.value) << c.text;
}

TEST(SettingsFile, RefusesOtherModelsAndChangesNothing) {
  constexpr const char* kMissing = "no such file";
  for (const char* text :
       {"[MAIN]\nMODELTYPE=4\nSEL1=0\n[Common Setup]\nSQL=1", "[MAIN]\nSEL1=0", "MODELTYPE=5",
        "[MAIN]\nMODELTYPE=5x", "[MAIN]\nMODELTYPE=5.4", "", kMissing}) {
    SCOPED_TRACE(text);
    Fixture f;
    RadioData data = f.Fresh(5);
    const RadioData before = data;
    if (text != kMissing) f.files.files[f.kPath] = text;
    f.Read(data);
    ASSERT_EQ(f.prompts.Texts(), std::vector<std::string>{"different model!!"});
    EXPECT_EQ(f.prompts.messages[0].icon, core::Icon::kCritical);
    EXPECT_EQ(f.prompts.messages[0].title, core::kProgramTitle);
    EXPECT_EQ(f.state.Error.Wire(), -1);
    EXPECT_TRUE(data == before);
  }
}

/// A stick that is pulled out, or changed, after the file was looked at.
class PassingFiles : public testing::MemoryFiles {
 public:
  core::FileBytes ReadFile(const std::string& path) override {
    core::FileBytes result = MemoryFiles::ReadFile(path);
    if (replacement.empty()) {
      files.erase(path);
    } else {
      files[path] = replacement;
    }
    return result;
  }
  std::string replacement;
};

TEST(SettingsFile, AFileThatGoesAwayAfterTheCheckIsAReadError) {
  for (const char* replacement : {"", "[MAIN]\nMODELTYPE=4"}) {
    Fixture f;
    RadioData data = f.Fresh(5);
    const RadioData before = data;
    PassingFiles files;
    files.files[f.kPath] = "[MAIN]\nMODELTYPE=5\n[Common Setup]\nSQL=1";
    files.replacement = replacement;
    ReadSettingFile(data, f.state, f.kPath, files, f.prompts, f.pump);
    ASSERT_EQ(f.prompts.Texts(), std::vector<std::string>{"FileRead Error!!"});
    EXPECT_EQ(f.prompts.messages[0].icon, core::Icon::kExclamation);
    EXPECT_EQ(f.prompts.messages[0].title, core::kProgramTitle);
    EXPECT_EQ(f.state.Error.Wire(), -1);
    EXPECT_TRUE(data == before);
  }
}

TEST(SettingsFile, AWriteThatFailsIsReportedToTheCaller) {
  Fixture f;
  RadioData data = f.Fresh(5);
  f.files.failing[f.kPath] = {28, "No space left on device"};
  const auto error = WriteSettingFile(data, f.kPath, f.files, f.pump);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number, 28);
  EXPECT_TRUE(f.prompts.messages.empty());
}

/// A good file with bytes and lines damaged by chance: it loads, and what it gave is written and
/// read without loss from then on.
TEST(SettingsFile, DamagedFilesLoadToSomethingThatCanBeSaved) {
  Fixture f;
  std::mt19937 random(4);
  RadioData good = f.Fresh(0);
  for (std::uint8_t& byte : good.Image.All()) byte = static_cast<std::uint8_t>(random());
  image::DecodeAll(good);
  const std::string text = SettingFileText(good, f.pump);
  const auto at = [&](std::size_t size) {
    return std::uniform_int_distribution<std::size_t>(0, size - 1)(random);
  };
  for (int round = 0; round < 20; ++round) {
    std::string damaged = text;
    for (int i = 0; i < 300; ++i) damaged[at(damaged.size())] = static_cast<char>(at(256));
    damaged.erase(at(damaged.size()), at(2000));
    damaged.insert(0, "[MAIN]\nMODELTYPE=0\n");
    RadioData data = f.Fresh(0);
    ASSERT_TRUE(ApplySettingText(data, damaged, f.pump));
    const std::string saved = SettingFileText(data, f.pump);
    RadioData again = data;
    ASSERT_TRUE(ApplySettingText(again, saved, f.pump));
    EXPECT_EQ(SettingFileText(again, f.pump), saved);
  }
}

}  // namespace
}  // namespace orvane::files
