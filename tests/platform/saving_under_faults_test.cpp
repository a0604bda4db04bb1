#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <iostream>
#include <random>
#include <set>
#include <thread>

#include "files/backup_library.h"
#include "platform/ansi_text.h"
#include "platform/qt_file_store.h"
#include "platform/qt_recovery_store.h"
#include "support/full_data.h"

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
  const int status = InChild([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit size = {};
    ::getrlimit(RLIMIT_FSIZE, &size);
    size.rlim_cur = 0;
    // Beyond the first bytes only more of the same can happen, but for the ends of buffers.
    constexpr rlim_t kEach = 2048;
    while (size.rlim_cur < kNew.size()) {
      ::setrlimit(RLIMIT_FSIZE, &size);
      const auto error = store_.WriteFile(path, kNew);
      const bool told = error && error->number == EFBIG;
      const bool whole = store_.ReadFile(path).bytes == kOld && Names() == QStringList{"boat.hex"};
      if (!told || !whole) {
        std::cerr << size.rlim_cur << " bytes: told " << told << ", whole " << whole << "\n";
        return 1;
      }
      size.rlim_cur += size.rlim_cur < kEach || kNew.size() - size.rlim_cur <= kEach / 16 ? 1 : 61;
    }
    return 0;
  });
  EXPECT_EQ(status, 0);
}

// The copy of unsaved work and the backup that were there before stay whole, and stay alone.
TEST_F(SavingUnderFaults, ADiskThatIsFullAtAnyByteOfACopyLeavesTheOlderOnes) {
  constexpr rlim_t kEach = 4096;
  const core::RadioData old = testing::FullData(5);
  const core::RadioData fresh = testing::FullData(2);
  const files::SnapshotHeading heading{.made = "2026-11-24 23:40:12", .origin = "read"};
  const std::string kept = files::SnapshotText(old, heading);
  const std::string later = files::SnapshotText(fresh, heading);
  ASSERT_GT(later.size(), kEach);
  const int status = InChild([&] {
    files::BackupLibrary library(store_, Path("backups"));
    QtRecoveryStore recovery(Path("recovery"));
    recovery.Keep(kept);
    recovery.Wait();
    if (library.Keep(old, heading).error) return 1;
    const auto names = [this](const char* folder) {
      return QDir(folder_.filePath(folder)).entryList({"*.orvsnap*"}, QDir::Files | QDir::Hidden);
    };
    const QStringList copy = names("recovery");
    const QStringList backup = names("backups");
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit size = {};
    ::getrlimit(RLIMIT_FSIZE, &size);
    for (size.rlim_cur = 0; size.rlim_cur < kEach; ++size.rlim_cur) {
      ::setrlimit(RLIMIT_FSIZE, &size);
      recovery.Keep(later);
      recovery.Wait();
      const auto refused = library.Keep(fresh, heading).error;
      const bool whole =
          store_.ReadFile(Path(("recovery/" + ToUtf8(copy.value(0))).c_str())).bytes == kept &&
          store_.ReadFile(Path(("backups/" + ToUtf8(backup.value(0))).c_str())).bytes == kept;
      if (!refused || !whole || names("recovery") != copy || names("backups") != backup) {
        std::cerr << size.rlim_cur << " bytes: whole " << whole << "\n";
        return 2;
      }
    }
    return copy.size() == 1 && backup.size() == 1 ? 0 : 3;
  });
  EXPECT_EQ(status, 0);
}

/// What may be written in a folder that may not cannot be replaced by a rename. As root, who may
/// do everything, the child becomes somebody else.
TEST_F(SavingUnderFaults, AFolderThatTakesNoNewFileHasTheOldOneOverwrittenAfterACopy) {
  constexpr uid_t kNobody = 65534;
  const std::string path = Path("boats/boat.hex");
  const std::string copies = Path("copies");
  const QString folder = folder_.filePath("boats");
  ASSERT_TRUE(QDir(folder_.path()).mkdir("boats") && QDir(folder_.path()).mkdir("copies"));
  ASSERT_FALSE(store_.WriteFile(path, kOld + "longer"));
  for (const std::string& each : {path, copies, ToUtf8(folder_.path())}) {
    ASSERT_EQ(::chmod(each.c_str(), 0777), 0);
  }
  ASSERT_EQ(::chmod(ToUtf8(folder).c_str(), 0555), 0);
  const int status = InChild([&] {
    if (::geteuid() == 0 && ::setuid(kNobody) != 0) return 1;
    if (store_.WriteFile(path, kNew).value().number != EACCES) return 2;  // nowhere for a copy
    QtFileStore copying(copies);
    if (copying.CheckWritable(path) || copying.WriteFile(path, kNew)) return 3;
    if (copying.ReadFile(path).bytes != kNew) return 4;
    if (!copying.WriteFile(Path("boats/new.hex"), kNew)) return 5;
    // The disk takes no more: the file is what it was.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit size = {kNew.size(), kNew.size()};
    ::setrlimit(RLIMIT_FSIZE, &size);
    const auto error = copying.WriteFile(path, kOld + "longer");
    if (!error || error->number != EFBIG || copying.ReadFile(path).bytes != kNew) return 6;
    // Where no copy can be kept, nothing is overwritten.
    QtFileStore nowhere(Path("boats/copies"));
    return !nowhere.WriteFile(path, kOld) || copying.ReadFile(path).bytes != kNew ? 7 : 0;
  });
  EXPECT_EQ(status, 0);
  const QDir kept(FromUtf8(copies));
  const QStringList names = kept.entryList(QDir::Files);
  ASSERT_EQ(names.size(), 1);
  EXPECT_TRUE(names[0].endsWith("%boats%boat.hex")) << ToUtf8(names[0]);
  EXPECT_EQ(store_.ReadFile(ToUtf8(kept.filePath(names[0]))).bytes, kNew);
  ASSERT_EQ(::chmod(ToUtf8(folder).c_str(), 0777), 0);
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

/// Saves the new and the old text by turns for ever, and tells of every save that is done.
[[noreturn]] void SaveForEver(QtFileStore& store, const std::string& path, int told) {
  for (bool fresh = true;; fresh = !fresh) {
    const bool saved = !store.WriteFile(path, fresh ? kNew : kOld);
    if (!saved || ::write(told, "s", 1) != 1) ::_exit(1);
  }
}

// How long a save takes is the disk's affair: a kill comes a random part of one save's time after
// none, one or two saves that the child has told of, so that it strikes at every step of a save.
TEST_F(SavingUnderFaults, AProgramKilledWhileItSavesLeavesOneWholeFile) {
  using Clock = std::chrono::steady_clock;
  constexpr int kKills = 200;
  const std::string path = Path("boat.hex");
  const auto before = Clock::now();
  ASSERT_FALSE(store_.WriteFile(path, kOld));
  auto one_save = Clock::now() - before;
  std::mt19937 random(16384);
  std::set<char> survivors;
  for (int i = 0; i < kKills; ++i) {
    int told[2] = {};
    ASSERT_EQ(::pipe(told), 0);
    const auto start = Clock::now();
    const pid_t child = ::fork();
    if (child == 0) SaveForEver(store_, path, told[1]);
    ::close(told[1]);
    char mark = 0;
    for (int saves = i % 3; saves > 0; --saves) ASSERT_EQ(::read(told[0], &mark, 1), 1);
    if (i % 3 == 1) one_save = Clock::now() - start;
    // The moment is what is tested; nothing is waited for.
    std::this_thread::sleep_for(one_save * (random() % 1000) / 1000);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(told[0]);
    const std::string bytes = store_.ReadFile(path).bytes;
    ASSERT_TRUE(bytes == kOld || bytes == kNew) << "after kill " << i;
    survivors.insert(bytes.front());
  }
  EXPECT_EQ(survivors.size(), 2U);
}

}  // namespace
}  // namespace orvane::platform
