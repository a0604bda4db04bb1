#include "cli/options.h"

#include <gtest/gtest.h>

#include "cli_bench.h"

namespace orvane::cli {
namespace {

using Words = std::vector<std::string>;

TEST_F(CliBench, WrongUsageSaysWhatIsWrongAndWhatIsRight) {
  const struct {
    Words words;
    const char* wrong;
    const char* right;
  } cases[] = {
      {{}, "the first word must be one of", "orvane-cli ports [--json]"},
      {{"frobnicate"}, "the first word must be one of", "orvane-cli report IN"},
      {{"new", "-o", "a.dat"}, "--model is required", "Usage: orvane-cli [--yes] new --model M"},
      {{"new", "--model", "7", "-o", "a.dat"}, "\"7\" is no model", "5 KT740"},
      {{"new", "--model", "five", "-o", "a.dat"}, "\"five\" is no model", "0 RB6100S"},
      {{"new", "--model", "5", "-o", "a.doc"},
       "\"a.doc\" must end in",
       ".dat, .hex, .orvsnap, .txt or .pdf"},
      {{"convert", "a.txt", "a.dat"}, "\"a.txt\" must end in", ".dat, .hex or .orvsnap."},
      {{"convert", "a.dat"}, "OUT is required", "convert IN OUT"},
      {{"convert", "dat", "b.hex"}, "\"dat\" must end in", ".dat, .hex or .orvsnap."},
      {{"report", "a.dat", "more"}, "not expected: more", "Usage: orvane-cli report IN"},
      {{"map", "a.dat"}, "\"a.dat\" must end in .hex or .orvsnap.", "map [--model M] [IN.hex]"},
      {{"show", "a.dat", "--xml"}, "not expected: --xml", "show IN [--json]"},
      {{"read", "--model", "5", "-o", "a.hex"}, "--port is required", "--port P"},
      {{"read", "--model", "5", "--port", "COM17", "-o", "a.hex"},
       "\"COM17\" is no port",
       "COM1 to COM16"},
      {{"read", "--model", "5", "--port", "", "-o", "a.hex"}, "\"\" is no port", "--port P"},
      {{"program", "--model", "", "--port", "1", "a.hex"}, "\"\" is no model", "Models: 0 "},
      {{"read", "--model", "5", "--port", "1", "-o", "a.dat", "--raw"}, "With --raw", ".hex."},
      {{"read", "--model", "5", "--port", "1", "-o", "a.hex", "--base", "a.txt"},
       "--base",
       ".dat, .hex, .orvsnap or .ini."},
      {{"backups", "drop"}, "\"drop\" must be list, show or restore", "backups [list|show ID|"},
      {{"backups", "list", "0123ABCD"}, "list takes no ID", "backups ["},
      {{"backups", "show"}, "show needs the ID", "show ID"},
      {{"backups", "restore", "0123ABCD"}, "restore needs -o", "restore ID -o OUT"},
      {{"backups", "show", "0123ABCD", "-o", "a.dat"}, "Only restore takes -o", "backups ["},
      {{"check", "a.txt"}, "\"a.txt\" must end in", "check IN [--json]"},
      {{"diff", "a.dat"}, "B is required", "diff A B [--json]"},
      {{"diff", "a.dat", "b.txt"}, "\"b.txt\" must end in", "diff A B [--json]"},
      {{"diff", "ABC", "1A2B"}, "\"ABC\" must end in", "diff A B [--json]"},
      {{"program", "--port", "1"}, "IN is required", "program [--model M] --port P IN"},
      {{"program", "--port", "1", "a.hex", "--base", "b.dat"},
       "--base goes with a .dat file",
       "[--base FILE]"},
      {{"program", "--port", "1", "a.dat", "--keep", "a.dat"}, "stands for two", "[--keep FILE]"},
      {{"program", "--port", "1", "./b.dat", "--receipt", "x/../b.dat"}, "two files", "[--receipt"},
      {{"program", "--port", "1", "a.dat", "--keep", "b", "--receipt", "b"},
       "for two",
       "--receipt"},
  };
  for (const auto& expected : cases) {
    EXPECT_EQ(Run(expected.words), kWrongUsage);
    EXPECT_TRUE(ErrHas(expected.wrong)) << err_;
    EXPECT_TRUE(ErrHas(expected.right)) << err_;
    EXPECT_TRUE(out_.empty());
  }
  EXPECT_TRUE(files.files.empty());
  EXPECT_TRUE(opened.empty());
}

TEST_F(CliBench, HelpIsNoMistake) {
  EXPECT_EQ(Run({"--help"}), kDone);
  EXPECT_NE(out_.find("convert"), std::string::npos);
  EXPECT_EQ(Run({"read", "--help"}), kDone);
  EXPECT_NE(out_.find("--base"), std::string::npos);
}

TEST(Options, GlobalSwitchesMayStandOnEitherSideOfTheCommand) {
  for (const Words& words :
       {Words{"--yes", "--debug", "ports"}, Words{"ports", "--debug", "--yes"}}) {
    const Options options = ParseWords(words).options.value();
    EXPECT_TRUE(options.yes);
    EXPECT_TRUE(options.debug);
    EXPECT_EQ(options.command, Command::kPorts);
  }
}

TEST(Options, PortsAreNumbersNamesOrDevicePaths) {
  EXPECT_EQ(ParsePort("16"), PortChoice(16));
  EXPECT_EQ(ParsePort("com3"), PortChoice(3));
  EXPECT_EQ(ParsePort("/dev/ttyUSB0"), PortChoice("/dev/ttyUSB0"));
  for (const char* text : {"0", "17", "COM", "COM03", "-1", "1x", "ttyUSB0", ""}) {
    EXPECT_FALSE(ParsePort(text)) << text;
  }
}

TEST(Options, TheExtensionIsThatOfTheNameNotOfItsFolder) {
  EXPECT_EQ(Extension("/boats.dat/Boat.HEX"), ".hex");
  EXPECT_EQ(Extension("/boats.dat/boat"), "");
}

}  // namespace
}  // namespace orvane::cli
