#include "cli_bench.h"
#include "files/settings_file.h"

namespace orvane::cli {
namespace {

class TableCommands : public CliBench {
 protected:
  TableCommands() {
    files.files["boat.dat"] = files::SettingFileText(sample, bench.pump);
    files.files["names.csv"] = "Channel,Colour,CH Name\n16,red,hailing\n22A,blue,COAST GUARD\n";
    files.files["bad.csv"] = "Channel,CH Name\n16,HAILING\n161,X\n67,THIRTEEN_SIGN\n";
    files.files["open.csv"] = "Channel,CH Name\n16,\"HAILING\n";
  }

  int Import(const char* table_file, std::vector<std::string> more, const char* table = "usa",
             const std::string& typed = {}) {
    std::vector<std::string> words = {"import", "boat.dat", table_file, "--table", table};
    words.insert(words.end(), more.begin(), more.end());
    return Run(words, typed);
  }
  std::string NameOf16() {
    EXPECT_EQ(Run({"get", "out.dat", "usa/16/name"}), kDone) << err_;
    return out_;
  }
};

constexpr const char* kRefusals =
    "line 3: refused: 161: There is no such entry in USA.\n"
    "line 4: refused: usa/67/name: BRG/BRG | THIRTEEN_SIGN: At most 12 characters fit.\n";

TEST_F(TableCommands, WhatIsExportedIsImportedAsItIs) {
  ASSERT_EQ(Run({"export", "boat.dat", "--table", "EXTRA", "-o", "extra.csv"}), kDone) << err_;
  EXPECT_TRUE(files.files["extra.csv"].starts_with("EXP/LMR,CH Enable,CH Name,Rx Frequency"));
  ASSERT_EQ(Import("extra.csv", {"--dry-run"}, "extra"), kDone) << err_;
  EXPECT_EQ(out_, "40 lines stay as they are\n");
}

TEST_F(TableCommands, ADryRunTellsAndWritesNothing) {
  ASSERT_EQ(Import("names.csv", {"--dry-run", "-o", "out.dat"}), kDone) << err_;
  EXPECT_EQ(out_,
            "column \"Colour\": No field of USA has that name.\n"
            "line 2: usa/16/name: DISTRESS | HAILING\n"
            "line 3: usa/22A/name: USCG | COAST GUARD\n"
            "2 lines change\n");
  EXPECT_EQ(Import("bad.csv", {"--dry-run"}), kFailed);
  EXPECT_NE(out_.find(kRefusals), std::string::npos) << out_;
  EXPECT_FALSE(files.files.contains("out.dat"));
}

TEST_F(TableCommands, WithRefusedLinesTheRestIsTakenOnlyByConsent) {
  ASSERT_EQ(Import("names.csv", {"-o", "out.dat"}), kDone) << err_;
  EXPECT_EQ(NameOf16(), "HAILING\n");
  files.files.erase("out.dat");
  EXPECT_EQ(Import("bad.csv", {"-o", "out.dat"}), kFailed);
  EXPECT_TRUE(ErrHas(kRefusals)) << err_;
  EXPECT_TRUE(ErrHas("1 line changes, 2 are refused.\nImport the rest?\n")) << err_;
  EXPECT_FALSE(files.files.contains("out.dat"));
  services.terminals = {.in = true, .out = true, .err = true};
  EXPECT_EQ(Import("bad.csv", {"-o", "out.dat"}, "usa", "\n"), kFailed) << "Enter is No";
  EXPECT_EQ(Import("bad.csv", {"-o", "out.dat", "--yes"}), kDone) << err_;
  EXPECT_EQ(NameOf16(), "HAILING\n");
}

TEST_F(TableCommands, WhatCannotBeDoneIsToldAndNothingIsWritten) {
  files.failing["full.dat"] = {28, "No space left on device"};
  const struct {
    std::vector<std::string> words;
    ExitStatus status;
    const char* said;
  } rows[] = {
      {{"import", "boat.dat", "open.csv", "--table", "usa", "-o", "out.dat"},
       kFailed,
       "open.csv: The table cannot be read.\nline 2: A cell that begins with a quotation mark"},
      {{"import", "boat.dat", "none.csv", "--table", "usa", "-o", "out.dat"}, kFailed, "none.csv"},
      {{"import", "boat.dat", "names.csv", "--table", "usa", "-o", "full.dat"},
       kFailed,
       "No space left"},
      {{"import", "boat.dat", "names.csv", "--table", "dsc", "-o", "out.dat"},
       kFailed,
       "dsc: A KT740 has no such table."},
      {{"export", "boat.dat", "--table", "stations", "-o", "out.csv"},
       kFailed,
       "stations: A KT740 has no such table."},
      {{"export", "boat.dat", "--table", "image", "-o", "out.csv"},
       kWrongUsage,
       "--table \"image\" is no table. Tables: usable_groups, exp_present, common"},
      {{"export", "boat.dat", "--table", "usa", "-o", "out.xls"}, kWrongUsage, "must end in .csv"},
      {{"export", "boat.dat", "-o", "out.csv"}, kWrongUsage, "--table is required"},
      {{"import", "boat.dat", "names.csv", "--table", "usa"}, kWrongUsage, "import needs -o"},
      {{"import", "boat.dat", "names.dat", "--table", "usa", "--dry-run"},
       kWrongUsage,
       "must end in .csv, .tsv or .txt"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Run(row.words), row.status) << row.said;
    EXPECT_TRUE(ErrHas(row.said)) << err_;
    EXPECT_FALSE(files.files.contains("out.dat") || files.files.contains("out.csv"));
  }
}

}  // namespace
}  // namespace orvane::cli
