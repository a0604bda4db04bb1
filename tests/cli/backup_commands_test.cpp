#include "cli_bench.h"
#include "core/text.h"
#include "files/backup_library.h"
#include "files/settings_file.h"
#include "support/random_data.h"

namespace orvane::cli {
namespace {

class BackupCommands : public CliBench {
 protected:
  /// The ID.
  std::string Keep(const core::RadioData& data, const files::SnapshotHeading& heading) {
    const std::string path = library.Keep(data, heading).path;
    for (const files::Backup& backup : library.Entries()) {
      if (backup.path == path) return backup.id;
    }
    return {};
  }

  files::BackupLibrary library{files, "/backups"};
  const files::SnapshotHeading kRead{
      .made = "2026-11-24 23:40:12", .origin = "read", .port = "COM16 Cable"};
};

TEST_F(BackupCommands, TheListHasALineForEachNewestFirst) {
  ASSERT_EQ(Run({"backups"}), kDone);
  EXPECT_EQ(out_, "");
  EXPECT_EQ(err_, "There are no backups in /backups.\n");
  const std::string first = Keep(sample, kRead);
  const std::string second =
      Keep(testing::NewData(0), {.made = "2026-11-25 01:02:03",
                                 .origin = "replaced",
                                 .file = "/boats/B\xC3\xB6otchen\x1B[2J.dat"});
  files.files["/backups/20261123-010203-read-2-0000ABCD.orvsnap"] = "ORVANE SNAPSHOT 9\n";
  ASSERT_EQ(Run({"backups", "list"}), kDone);
  EXPECT_EQ(out_, second +
                      "  2026-11-25 01:02:03  RB6100S  replaced  -  B\xC3\xB6otchen?[2J.dat\n" +
                      first + "  2026-11-24 23:40:12  KT740  read  COM16 Cable  -\n" +
                      "0000ABCD  2026-11-23 01:02:03  damaged: "
                      "/backups/20261123-010203-read-2-0000ABCD.orvsnap: line 1, column 17: this "
                      "version of the program does not know such snapshots\n");
}

TEST_F(BackupCommands, EitherSideOfAComparisonMayBeOne) {
  const std::string read = Keep(sample, kRead);
  sample.Common.SQL = 9;
  const std::string edited = Keep(sample, kRead);
  files.files["edited.orvsnap"] = files::SnapshotText(sample, kRead);
  const struct {
    std::string a, b;
    int status;
    const char* out;
    const char* err;
  } rows[] = {{read, edited, kDifferent, "common/sql: 5 | 9\n", ""},
              {edited, read.substr(0, 4), kDifferent, "common/sql: 9 | 5\n", ""},
              {"edited.orvsnap", core::LowerCase(edited), kDone, "", ""},
              {"edited.orvsnap", "00000000", kTrouble, "", "00000000: There is no such backup."}};
  for (const auto& row : rows) {
    EXPECT_EQ(Run({"diff", row.a, row.b}), row.status) << row.a << ' ' << row.b;
    EXPECT_EQ(out_, row.out);
    EXPECT_TRUE(ErrHas(row.err)) << err_;
  }
}

TEST_F(BackupCommands, OneIsShownOrRestoredByTheEndingOfTheFile) {
  const std::string read = Keep(sample, kRead);
  core::RadioData changed = sample;
  changed.EXP[3].ChTag = "CHANGED";
  const std::string edited = Keep(changed, kRead);

  ASSERT_EQ(Run({"backups", "show", edited}), kDone) << err_;
  EXPECT_TRUE(out_.starts_with("made: 2026-11-24 23:40:12\norigin: read\nmodel: KT740\n")) << out_;
  EXPECT_NE(out_.find("CHANGED"), std::string::npos);

  for (const char* output : {"a.hex", "a.dat", "a.orvsnap", "a"}) {
    ASSERT_EQ(Run({"backups", "restore", edited.substr(0, 6), "-o", output}), kDone) << err_;
  }
  EXPECT_EQ(files.files["a.dat"], files::SettingFileText(changed, bench.pump));
  EXPECT_EQ(files.files["a.orvsnap"], files.files[library.Find(edited).at(0).path]);
  EXPECT_EQ(files.files["a"], files.files["a.orvsnap"]);
  ASSERT_EQ(Run({"get", "a.hex", "extra/3/name"}), kDone) << err_;
  EXPECT_EQ(out_, "CHANGED\n");

  files.failing["full.hex"] = {28, "No space left on device"};
  EXPECT_EQ(Run({"backups", "restore", read, "-o", "full.hex"}), kFailed);
  EXPECT_EQ(Run({"backups", "show", "0123ABCD"}), kFailed);
  EXPECT_TRUE(ErrHas("0123ABCD: There is no such backup.")) << err_;
  files.files[library.Find(read).at(0).path].pop_back();
  EXPECT_EQ(Run({"backups", "restore", read, "-o", "b.hex"}), kFailed);
  EXPECT_TRUE(ErrHas(": the file ends here")) << err_;
  EXPECT_FALSE(files.files.contains("b.hex"));
}

TEST_F(BackupCommands, WhatCameFromARadioIsRestoredByteForByte) {
  core::RadioData data = sample;
  // A lower-case name, which encoding would turn into capitals.
  const std::string_view image(reinterpret_cast<const char*>(data.Image.All().data()), 16384);
  const std::size_t name = image.find("DISTRESS");
  ASSERT_NE(name, std::string::npos);
  data.Image[static_cast<int>(name)] = 'd';
  image::DecodeAll(data);
  core::RadioData read;
  read.MODELTYPE = data.MODELTYPE;
  read.Image = data.Image;
  image::DecodeAll(read);
  ASSERT_EQ(Run({"backups", "restore", Keep(read, kRead), "-o", "a.hex"}), kDone) << err_;
  EXPECT_TRUE(files.files["a.hex"] ==
              std::string(data.Image.Used().begin(), data.Image.Used().end()));
}

TEST_F(BackupCommands, EveryCommandTakesASnapshot) {
  const core::RadioData data = testing::RandomData(1).Of(0);
  files.files["a.orvsnap"] = files::SnapshotText(data, kRead);
  ASSERT_EQ(Run({"convert", "a.orvsnap", "b.orvsnap"}), kDone) << err_;
  const files::Snapshot copy = files::ParseSnapshot(files.files["b.orvsnap"]);
  EXPECT_TRUE(*copy.data == data);
  EXPECT_EQ(copy.heading.made + copy.heading.origin, "2026-11-24 14:02:12saved");
  for (const char* command : {"report", "show", "map"}) {
    EXPECT_EQ(Run({command, "a.orvsnap"}), kDone) << err_;
  }
  EXPECT_EQ(Run({"map", "--model", "4", "a.orvsnap"}), kFailed);
  EXPECT_TRUE(ErrHas("different model!!")) << err_;

  files.files["bad.orvsnap"] = files.files["a.orvsnap"] + "more\n";
  EXPECT_EQ(Run({"convert", "bad.orvsnap", "c.dat"}), kFailed);
  EXPECT_TRUE(ErrHas("FileRead Error!!\nbad.orvsnap: line ")) << err_;
  EXPECT_EQ(Run({"convert", "none.orvsnap", "c.dat"}), kFailed);
  EXPECT_TRUE(ErrHas("none.orvsnap: No such file")) << err_;
  EXPECT_FALSE(files.files.contains("c.dat"));

  ASSERT_EQ(Run({"read", "--model", "5", "--port", "COM16", "-o", "got.orvsnap"}), kDone) << err_;
  const files::Snapshot got = files::ParseSnapshot(files.files["got.orvsnap"]);
  EXPECT_EQ(got.heading.origin + " " + got.heading.port, "read COM16 Simulated radio");
  EXPECT_EQ(Run({"program", "--port", "COM16", "got.orvsnap"}), kDone) << err_;
}

}  // namespace
}  // namespace orvane::cli
