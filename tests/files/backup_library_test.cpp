#include "files/backup_library.h"

#include <gtest/gtest.h>

#include "core/text.h"
#include "support/fakes.h"
#include "support/random_data.h"

namespace orvane::files {
namespace {

using testing::NewData;

class Backups : public ::testing::Test {
 protected:
  /// Data of the model that differ by the number.
  static core::RadioData Data(int model, int number) {
    core::RadioData data = NewData(model);
    data.Image[0x100] = static_cast<std::uint8_t>(number);
    return data;
  }
  BackupLibrary::Kept Keep(int model, int number, const std::string& day) {
    return library.Keep(Data(model, number),
                        {.made = "2026-11-" + day + " 23:40:12", .origin = "before programming"});
  }
  static std::vector<std::string> Days(const std::vector<Backup>& backups) {
    std::vector<std::string> days;
    for (const Backup& backup : backups) days.push_back(backup.heading.made.substr(8, 2));
    return days;
  }
  using Words = std::vector<std::string>;

  testing::MemoryFiles files;
  BackupLibrary library{files, "/b"};
};

TEST_F(Backups, AreFoundByTheirIdsNewestFirstAndLoadWhole) {
  EXPECT_TRUE(library.Entries().empty());
  ASSERT_TRUE(Keep(5, 1, "24").anew);
  ASSERT_TRUE(Keep(5, 2, "26").anew);
  ASSERT_TRUE(Keep(0, 1, "25").anew);
  files.files["/b/boat.dat"] = "of somebody else";
  const std::vector<Backup> entries = library.Entries();
  EXPECT_EQ(Days(entries), (Words{"26", "25", "24"}));
  EXPECT_EQ(entries[1].path,
            "/b/20261125-234012-before_programming-0-" + entries[1].id + ".orvsnap");
  EXPECT_EQ(entries[1].heading.origin, "before programming");
  EXPECT_EQ(entries[1].size, files.files[entries[1].path].size());
  EXPECT_TRUE(*library.Load(entries[0]).data == Data(5, 2));

  ASSERT_EQ(library.Find(core::LowerCase(entries[2].id)).size(), 1U);
  EXPECT_EQ(library.Find(entries[2].id.substr(0, 5)).at(0).path, entries[2].path);
  EXPECT_TRUE(library.Find(entries[2].id.substr(0, 3)).empty());

  EXPECT_FALSE(library.Delete(entries[0]));
  EXPECT_FALSE(library.Delete(entries[0])) << "gone already";
  EXPECT_EQ(Days(library.Entries()), (Words{"25", "24"}));
  EXPECT_EQ(library.Load(entries[0]).error, "No such file or directory");
}

TEST_F(Backups, EqualDataAreKeptOnceUnlessTheFileIsDamaged) {
  const BackupLibrary::Kept first = Keep(5, 1, "24");
  const std::string bytes = files.files[first.path];
  const BackupLibrary::Kept again = Keep(5, 1, "25");
  EXPECT_FALSE(again.anew);
  EXPECT_EQ(again.path, first.path);
  EXPECT_EQ(files.files[first.path], bytes);

  files.files[first.path].pop_back();
  const BackupLibrary::Kept whole = Keep(5, 1, "24");
  EXPECT_TRUE(whole.anew);
  EXPECT_TRUE(whole.path.ends_with("-2.orvsnap")) << whole.path;
  EXPECT_EQ(files.files[first.path] + '\n', bytes) << "never changed";
  EXPECT_FALSE(Keep(5, 1, "26").anew);
  const std::vector<Backup> entries = library.Entries();
  ASSERT_EQ(entries.size(), 2U);
  EXPECT_NE(library.Find(entries[0].id).at(0).path, library.Find(entries[1].id).at(0).path);
}

TEST_F(Backups, DamagedFilesAreListedByWhatTheirNamesSay) {
  files.files["/b/20261123-010203-read-2-0000ABCD.orvsnap"] = "ORVANE SNAPSHOT 9\n";
  files.files["/b/boat.orvsnap"] = "";
  files.failing["/b/20261124-010203-read-3-0000ABCE.orvsnap"] = {13, "Permission denied"};
  files.files["/b/20261124-010203-read-3-0000ABCE.orvsnap"] = "";
  const std::vector<Backup> entries = library.Entries();
  ASSERT_EQ(entries.size(), 3U);
  EXPECT_EQ(entries[0].damage, "Permission denied");
  EXPECT_EQ(entries[0].id, "0000ABCE");
  EXPECT_EQ(entries[1].heading.made, "2026-11-23 01:02:03");
  EXPECT_EQ(entries[1].heading.model_type, 2);
  EXPECT_TRUE(entries[1].damage.starts_with("line 1, column 17: ")) << entries[1].damage;
  EXPECT_EQ(entries[2].heading.made, "");
  EXPECT_EQ(library.Find(entries[2].id).size(), 1U);
}

TEST_F(Backups, AFailureToKeepIsReturned) {
  files.failing["/b"] = {13, "Permission denied"};
  EXPECT_EQ(Keep(5, 1, "24").error->number, 13);
  files.failing.clear();
  const std::string path = Keep(5, 1, "24").path;
  files.files.clear();
  files.failing[path] = {28, "No space left on device"};
  EXPECT_EQ(Keep(5, 1, "24").error->number, 28);
}

TEST_F(Backups, TheOldestGoButNeverTheFirstOfAModel) {
  for (const auto& [model, day] : std::vector<std::pair<int, std::string>>{
           {5, "20"}, {5, "21"}, {0, "22"}, {5, "23"}, {0, "24"}, {5, "25"}}) {
    ASSERT_TRUE(Keep(model, std::stoi(day), day).anew);
  }
  // The first of model 5 is no good any more, so the second one is.
  files.files[library.Entries().back().path].pop_back();
  const Words spared = {library.Entries()[4].path, library.Entries()[2].path};
  std::uint64_t all = 0;
  for (const Backup& backup : library.Entries()) all += backup.size;
  EXPECT_TRUE(library.Trim().empty());
  EXPECT_TRUE(BackupLibrary(files, "/b", all).Trim().empty());
  EXPECT_EQ(Days(BackupLibrary(files, "/b", all - 1).Trim()), Words{"20"});
  files.failing[library.Entries()[1].path] = {1, "Operation not permitted"};
  EXPECT_EQ(Days(BackupLibrary(files, "/b", 0).Trim(spared)), Words{"25"});
  EXPECT_EQ(Days(library.Entries()), (Words{"24", "23", "22", "21"}));
}

}  // namespace
}  // namespace orvane::files
