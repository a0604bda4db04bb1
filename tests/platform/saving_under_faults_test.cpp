#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <csignal>
#include <random>
#include <set>

#include "platform/ansi_text.h"
#include "platform/qt_file_store.h"

/// Whatever happens while a file is saved, it is the old one or the new one, whole.
namespace orvane::platform {
namespace {

// As long as an image, each of a single letter, so that a mixture shows.
const std::string kOld(16384, 'o');
const std::string kNew(16384, 'n');

class SavingUnderFaults : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Path(const char* name) const { return ToUtf8(folder_.filePath(name)); }
  [[nodiscard]] QStringList Names() const {
    return QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
  }
  /// Runs the work in a process of its own; its exit status.
  template <class Work>
  static int InChild(Work work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  QTemporaryDir folder_;
  QtFileStore store_;
};

TEST_F(SavingUnderFaults, ADiskThatIsFullAtAnyByteLeavesTheOldFile) {
  const std::string path = Path("boat.hex");
  ASSERT_FALSE(store_.WriteFile(path, kOld));
  for (rlim_t limit = 0; limit < kNew.size(); limit += limit < 64 ? 1 : 509) {
    const int failure = InChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit size{limit, limit};
      ::setrlimit(RLIMIT_FSIZE, &size);
      const auto error = store_.WriteFile(path, kNew);
      return error ? error->number : 0;
    });
    EXPECT_EQ(failure, EFBIG) << limit;
    ASSERT_TRUE(store_.ReadFile(path).bytes == kOld)
        << limit << " left " << store_.ReadFile(path).bytes.size();
    ASSERT_EQ(Names(), QStringList{"boat.hex"}) << limit;
  }
}

TEST_F(SavingUnderFaults, AFolderThatIsGoneOrNoFolderAnyMoreIsToldOf) {
  ASSERT_TRUE(QDir(folder_.path()).mkdir("boats"));
  ASSERT_FALSE(store_.WriteFile(Path("boats/boat.hex"), kOld));
  ASSERT_TRUE(QDir(folder_.filePath("boats")).removeRecursively());
  const auto gone = store_.WriteFile(Path("boats/boat.hex"), kNew);
  ASSERT_TRUE(gone);
  EXPECT_EQ(gone->number, ENOENT);
  ASSERT_FALSE(store_.WriteFile(Path("boats"), "a file"));
  const auto replaced = store_.WriteFile(Path("boats/boat.hex"), kNew);
  ASSERT_TRUE(replaced);
  EXPECT_EQ(replaced->number, ENOTDIR);
  EXPECT_EQ(Names(), QStringList{"boats"});
  EXPECT_EQ(store_.ReadFile(Path("boats")).bytes, "a file");
}

TEST_F(SavingUnderFaults, AProgramKilledWhileItSavesLeavesOneWholeFile) {
  constexpr int kKills = 200;
  const std::string path = Path("boat.hex");
  ASSERT_FALSE(store_.WriteFile(path, kOld));
  std::mt19937 random(16384);
  std::set<char> survivors;
  for (int i = 0; i < kKills; ++i) {
    const pid_t child = ::fork();
    if (child == 0) {
      for (bool fresh = true;; fresh = !fresh) {
        static_cast<void>(store_.WriteFile(path, fresh ? kNew : kOld));
      }
    }
    // The moment is what is tested; nothing is waited for.
    ::usleep(static_cast<useconds_t>(random() % 8000));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    const std::string bytes = store_.ReadFile(path).bytes;
    ASSERT_TRUE(bytes == kOld || bytes == kNew) << "after kill " << i;
    survivors.insert(bytes.front());
  }
  EXPECT_EQ(survivors.size(), 2U) << "the kills came too early to test anything";
}

}  // namespace
}  // namespace orvane::platform
