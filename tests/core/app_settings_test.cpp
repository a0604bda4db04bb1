#include "core/app_settings.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/fakes.h"

namespace orvane::core {
namespace {

using Names = std::vector<std::string>;

TEST(StartWords, AreReadInEitherLetterCaseAndTheOthersNamed) {
  const struct {
    std::vector<std::string> words;
    bool debug, help, version;
    std::vector<std::string> unknown;
    std::string file{};
    std::vector<std::string> refused{};
    bool read = false, simulated_radio = false;
  } cases[] = {
      {{}, false, false, false, {}},
      {{"my boat.dat", "/d"}, true, false, false, {}, "my boat.dat"},
      {{"/home/a", "b", "/c.dat"}, false, false, false, {}, "/home/a", {"b", "/c.dat"}},
      {{"/DEBUG", "-D", "x /d"}, true, false, false, {"/DEBUG", "-D", "x /d"}},
      {{"/d --help"}, true, true, false, {}},
      {{"--HELP", "/D"}, true, true, false, {}},
      {{"-h"}, false, true, false, {}},
      {{"--version"}, false, false, true, {}},
      {{"--read", "a"}, false, false, false, {}, "a", {}, true},
      {{"--Simulated-Radio", "--reads"}, false, false, false, {"--reads"}, "", {}, false, true},
  };
  for (const auto& c : cases) {
    const StartWords read = ReadStartWords(c.words);
    EXPECT_EQ(read.debug, c.debug);
    EXPECT_EQ(read.help, c.help);
    EXPECT_EQ(read.version, c.version);
    EXPECT_EQ(read.unknown, c.unknown);
    EXPECT_EQ(read.file, c.file);
    EXPECT_EQ(read.refused, c.refused);
    EXPECT_EQ(read.read, c.read);
    EXPECT_EQ(read.simulated_radio, c.simulated_radio);
  }
}

TEST(AppSettings, EmptyStoreGivesTheDefaults) {
  testing::MemorySettings store;
  const AppSettings settings(store);
  EXPECT_EQ(settings.PortNumber(), 1);
  EXPECT_EQ(settings.ModelType(), 5);
  EXPECT_EQ(settings.Destination(4), "KT740-usa");
  EXPECT_FALSE(settings.MainWindow());
}

TEST(AppSettings, EachValueThatWasKeptShowsThatThereWasARunBefore) {
  const std::function<void(AppSettings&)> keeps[] = {
      [](AppSettings& settings) { settings.SetPortNumber(1); },
      [](AppSettings& settings) { settings.SetModelType(5); },
      [](AppSettings& settings) { settings.AddRecentFile("a"); },
      [](AppSettings& settings) { settings.SetKeepsCopyFirst(true); },
      [](AppSettings& settings) { settings.SetReadsBack(true); },
      [](AppSettings& settings) { settings.SetMainWindow({}); },
  };
  for (const auto& keep : keeps) {
    testing::MemorySettings store;
    AppSettings settings(store);
    EXPECT_FALSE(settings.WereKept());
    keep(settings);
    EXPECT_TRUE(settings.WereKept()) << &keep - keeps;
  }
}

TEST(AppSettings, KeepsTheLastTenFilesOnceEach) {
  testing::MemorySettings store;
  AppSettings settings(store);
  EXPECT_TRUE(settings.RecentFiles().empty());
  for (const char* name : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "c"}) {
    settings.AddRecentFile(name);
  }
  EXPECT_EQ(settings.RecentFiles(), Names({"c", "k", "j", "i", "h", "g", "f", "e", "d", "b"}));
}

TEST(AppSettings, AProgramEndedWhileItKeepsThemLosesNothing) {
  testing::MemorySettings store;
  AppSettings settings(store);
  const WindowGeometry narrow{.left = 1, .top = 2, .width = 3, .height = 4};
  const WindowGeometry wide{.left = 5, .top = 6, .width = 7, .height = 8};
  for (const char* name : {"c", "b", "a"}) settings.AddRecentFile(name);
  settings.SetMainWindow(narrow);

  int writes = 0;
  store.on_write = [&] {
    ++writes;
    const Names files = settings.RecentFiles();
    EXPECT_TRUE(files == Names({"a", "b", "c"}) || files == Names({"c", "a", "b"})) << writes;
    EXPECT_TRUE(settings.MainWindow() == narrow || settings.MainWindow() == wide) << writes;
  };
  settings.AddRecentFile("c");
  settings.SetMainWindow(wide);
  EXPECT_GT(writes, 0);
}

TEST(AppSettings, UnreadableValuesGiveTheDefaults) {
  testing::MemorySettings store;
  const AppSettings settings(store);
  store.Write("ComPath", "ComNum", "COM3");
  EXPECT_EQ(settings.PortNumber(), 1);
  for (const std::string_view model : {"7", "-1", "", "KT740", "65536"}) {
    store.Write("ModelPath", "ModelNum", model);
    EXPECT_EQ(settings.ModelType(), 5) << model;
  }
  for (const std::string_view key : {"MainLeft", "MainTop", "MainWidth"}) {
    store.Write("Settings", key, "10");
  }
  EXPECT_FALSE(settings.MainWindow()) << "a height is missing";
}

TEST(AppSettings, ValuesStandUnderTheirKeysAndComeBack) {
  testing::MemorySettings store;
  AppSettings settings(store);
  settings.SetPortNumber(16);
  settings.SetModelType(0);
  settings.SetDestination(6, "KT740E-euro");
  settings.SetMainWindow({.left = -15, .top = 30, .width = 9105, .height = 7200});
  EXPECT_EQ(store.Read("ComPath", "ComNum"), "16");
  EXPECT_EQ(store.Read("ModelPath", "ModelNum"), "0");
  EXPECT_EQ(store.Read("IniFilePath", "IniFileName_6"), "KT740E-euro");
  EXPECT_EQ(store.Read("Settings", "MainLeft"), "-15");
  EXPECT_EQ(store.Read("Settings", "MainTop"), "30");
  EXPECT_EQ(store.Read("Settings", "MainWidth"), "9105");
  EXPECT_EQ(store.Read("Settings", "MainHeight"), "7200");
  EXPECT_EQ(settings.PortNumber(), 16);
  EXPECT_EQ(settings.ModelType(), 0);
  EXPECT_EQ(settings.Destination(6), "KT740E-euro");
  EXPECT_EQ(settings.Destination(5), "KT740-usa") << "each model remembers its own";
  ASSERT_TRUE(settings.MainWindow());
  EXPECT_EQ(settings.MainWindow()->height, 7200);
}

Names Templates(int count) {
  Names names;
  for (int i = 1; i <= count; ++i) names.push_back("KT" + std::to_string(i) + "_02E4.ini");
  return names;
}

TEST(Destinations, BuiltInOnesFillFreePlacesOnly) {
  struct Case {
    std::string_view what;
    Names files, names;
  };
  const Names nine{"KT1", "KT2", "KT3", "KT4", "KT5", "KT6", "KT7", "KT8", "KT9"};
  const Names ten{"KT1", "KT10", "KT2", "KT3", "KT4", "KT5", "KT6", "KT7", "KT8", "KT9"};
  const Names of_eleven{"KT1", "KT10", "KT11", "KT2", "KT3", "KT4", "KT5", "KT6", "KT7", "KT8"};
  Names nine_and_one = nine;
  nine_and_one.push_back("KT740-usa");
  const Case cases[] = {{"no file", {}, {"KT740-usa", "KT520-usa"}},
                        {"nine files", Templates(9), nine_and_one},
                        {"ten files", Templates(10), ten},
                        {"eleven files", Templates(11), of_eleven},
                        {"sorted whatever the case and what follows the name",
                         {"KTb_02E4.ini", "KTC_02E4.ini", "KTa-1_02E4.ini", "KTa_02E4.ini"},
                         {"KTa", "KTa-1", "KTb", "KTC", "KT740-usa", "KT520-usa"}},
                        {"a built-in one as file",
                         {"kt520-USA_02E4.ini", "KT520-USA_02E4.ini"},
                         {"KT520-USA", "KT740-usa"}},
                        {"name ends at the first underscore",
                         {"KT740_euro_02E4.ini"},
                         {"KT740", "KT740-usa", "KT520-usa"}},
                        {"strangers",
                         {"KT740-usa_02E5.ini", "KT740-usa_02e4.ini", "KT740-usa02E4.ini",
                          "AB_02E4.ini", "KT740-usa_02E4.ini.bak", "_02E4.ini"},
                         {"KT740-usa", "KT520-usa"}}};
  for (const Case& c : cases) EXPECT_EQ(DestinationNames(c.files, 5), c.names) << c.what;
}

TEST(Destinations, FileNameCarriesTheModelCode) {
  EXPECT_EQ(DestinationFileName("KT740-usa", 5), "KT740-usa_02E4.ini");
  EXPECT_EQ(DestinationFileName("KT310-x", 1), "KT310-x_0136.ini");
}

}  // namespace
}  // namespace orvane::core
