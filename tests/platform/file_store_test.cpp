#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cerrno>

#include "platform/ansi_text.h"
#include "platform/qt_file_store.h"

namespace orvane::platform {
namespace {

class FileStore : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Path(const char* name) const { return ToUtf8(folder_.filePath(name)); }
  [[nodiscard]] QStringList Names() const {
    return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }

  QTemporaryDir folder_;
  QtFileStore store_;
};

TEST_F(FileStore, KeepsAllBytesUnderNamesOutsideAscii) {
  const std::string path = Path("B\u00F6otchen \u03A9.dat");
  const std::string bytes("a\0\r\n\xFF", 5);
  EXPECT_FALSE(store_.WriteFile(path, bytes));
  EXPECT_EQ(store_.ReadFile(path).bytes, bytes);
  EXPECT_EQ(store_.FileSize(path), 5U);
  EXPECT_EQ(store_.ListFolder(ToUtf8(folder_.path())),
            std::vector<std::string>{"B\u00F6otchen \u03A9.dat"});
}

TEST_F(FileStore, TellsBeforehandWhatCannotBeWrittenAndChangesNothing) {
  ASSERT_FALSE(store_.WriteFile(Path("file"), "x"));
  ASSERT_TRUE(QDir(folder_.path()).mkdir("folder"));
  const struct {
    std::string path;
    int number;
  } cases[] = {{"", ENOENT},
               {Path("missing/boat.dat"), ENOENT},
               {Path("file/boat.dat"), ENOTDIR},
               {Path("folder"), EISDIR},
               {Path("B\xF6tchen.dat"), EILSEQ},
               {Path("B\xEF\xBF\xBDtchen.dat"), EILSEQ},
               {"/dev/full", EINVAL}};
  for (const auto& expected : cases) {
    const auto check = store_.CheckWritable(expected.path);
    ASSERT_TRUE(check) << expected.path;
    EXPECT_EQ(check->number, expected.number) << expected.path;
    const auto write = store_.WriteFile(expected.path, "x");
    ASSERT_TRUE(write) << expected.path;
    EXPECT_EQ(write->number, expected.number) << expected.path;
  }
  EXPECT_FALSE(store_.CheckWritable(Path("new")));
  EXPECT_FALSE(store_.CheckWritable(Path("file")));
  EXPECT_EQ(Names(), (QStringList{"file", "folder"}));
}

TEST_F(FileStore, ReplacesWhatALinkPointsAtAndKeepsTheLink) {
  ASSERT_FALSE(store_.WriteFile(Path("target"), "old"));
  ASSERT_TRUE(QFile::link(folder_.filePath("target"), folder_.filePath("link")));
  EXPECT_FALSE(store_.WriteFile(Path("link"), "new"));
  EXPECT_EQ(store_.ReadFile(Path("target")).bytes, "new");
  EXPECT_TRUE(QFileInfo(folder_.filePath("link")).isSymLink());
}

TEST_F(FileStore, ReadingReportsTheSystemsReason) {
  EXPECT_EQ(store_.ReadFile(Path("missing")).error.value().number, ENOENT);
  EXPECT_TRUE(store_.ReadFile(ToUtf8(folder_.path())).error);
  // Each of these would otherwise keep the reader waiting, or busy, for ever.
  ASSERT_EQ(::mkfifo(Path("fifo").c_str(), 0600), 0);
  for (const std::string& path : {std::string("/dev/zero"), Path("fifo")}) {
    EXPECT_EQ(store_.ReadFile(path).error.value().number, EINVAL) << path;
  }
  QFile large(folder_.filePath("large"));
  ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(QtFileStore::kLargestFile + 1));
  EXPECT_EQ(store_.ReadFile(Path("large")).error.value().number, EFBIG);
  EXPECT_EQ(store_.ReadFile(Path("B\xF6tchen.dat")).error.value().number, EILSEQ);
  EXPECT_FALSE(store_.FileSize(Path("missing")));
}

TEST_F(FileStore, MakesFoldersAndRemovesFiles) {
  EXPECT_FALSE(store_.MakeFolder(Path("a/b")));
  EXPECT_FALSE(store_.MakeFolder(Path("a/b"))) << "is there";
  ASSERT_FALSE(store_.WriteFile(Path("a/b/file"), "contents"));
  EXPECT_EQ(store_.ReadStart(Path("a/b/file"), 3).bytes, "con");
  EXPECT_EQ(store_.ReadStart(Path("a/b/file"), 99).bytes, "contents");
  EXPECT_EQ(store_.ReadStart(Path("a/none"), 3).error.value().number, ENOENT);
  EXPECT_EQ(store_.MakeFolder(Path("a/b/file/c")).value().number, ENOTDIR);
  EXPECT_TRUE(store_.RemoveFile(Path("a/b"))) << "no file";
  EXPECT_FALSE(store_.RemoveFile(Path("a/b/file")));
  EXPECT_FALSE(store_.RemoveFile(Path("a/b/file"))) << "is gone";
  EXPECT_TRUE(store_.ListFolder(Path("a/b")).empty());
}

}  // namespace
}  // namespace orvane::platform
