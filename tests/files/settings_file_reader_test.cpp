#include <gtest/gtest.h>

#include <random>

#include "core/model_profile.h"
#include "core/product.h"
#include "files/settings_file_table.h"
#include "image/codec.h"
#include "image/raw_areas.h"
#include "settings_file_bench.h"

namespace orvane::files {
namespace {

using core::RadioData;
using Fixture = testing::SettingsFileBench;
using testing::SectionText;

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
    {"NumberedKeyNeedsItsBlank", kUsable, "TX TOT0=0", "TX TOT 0=1"},
    {"MissingTextIsEmptied", kUsable, "", "Status name 1="},
    {"ByteOutOfRangeIsKept", "CHUSA0", "Position=12\nTXPower=256", "TXPower=77", "CHUSA12"},
    {"MarkerKeepsLeadingBlanks", "CHUSA0", "Position=12\nChTag=#  VTS  ", "ChTag=#  VTS",
     "CHUSA12"},
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
