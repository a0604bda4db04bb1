#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QTemporaryDir>
#include <csignal>
#include <memory>

#include "platform/ansi_text.h"
#include "platform/qt_recovery_store.h"

/// Work that was kept is found after its program was killed, and only then.
namespace orvane::platform {
namespace {

class RecoveryStore : public ::testing::Test {
 protected:
  [[nodiscard]] std::string Folder() const { return ToUtf8(folder_.filePath("recovery")); }
  [[nodiscard]] QStringList Files() const {
    return QDir(folder_.filePath("recovery")).entryList({"*.orvsnap"}, QDir::Files);
  }
  [[nodiscard]] static std::vector<std::string> Texts(QtRecoveryStore& store) {
    std::vector<std::string> texts;
    for (const auto& left : store.LeftBehind()) texts.push_back(left.text);
    return texts;
  }
  /// A program that keeps the text and is killed as soon as it is on the disk.
  void KeepAndBeKilled(const std::string& text) const {
    const pid_t child = ::fork();
    if (child == 0) {
      QtRecoveryStore store(Folder());
      store.Keep(text);
      store.Wait();
      ::raise(SIGKILL);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFSIGNALED(status));
  }

  QTemporaryDir folder_;
};

TEST_F(RecoveryStore, WorkOfAKilledProgramIsFoundAndThatOfARunningOneIsNot) {
  // First: a child of a process with threads may wait for a lock that nobody holds there.
  KeepAndBeKilled("killed");
  QtRecoveryStore running(Folder());
  running.Keep("running");
  running.Wait();
  QtRecoveryStore next(Folder());
  QtRecoveryStore third(Folder());
  EXPECT_EQ(Texts(next), std::vector<std::string>{"killed"});
  EXPECT_TRUE(Texts(third).empty()) << "offered to two programs at once";
  next.Release();
  next.Wait();
  EXPECT_EQ(Texts(third), std::vector<std::string>{"killed"}) << "kept for later";
  EXPECT_EQ(Files().size(), 2);
}

TEST_F(RecoveryStore, WhatIsLeftStandsBesideWhatIsKeptNext) {
  QtRecoveryStore store(Folder());
  store.Keep("replaced");
  store.Leave();
  store.Keep("next");
  store.Forget();
  store.Wait();
  QtRecoveryStore later(Folder());
  EXPECT_EQ(Texts(later), std::vector<std::string>{"replaced"});
}

TEST_F(RecoveryStore, ADiscardedOneGoesOnlyWhenTheNewCopyIsThere) {
  KeepAndBeKilled("old");
  QtRecoveryStore store(Folder());
  const std::string path = store.LeftBehind().at(0).path;
  store.Keep("new");
  store.Discard(path);
  store.Wait();
  EXPECT_EQ(Files().size(), 1);
  store.Forget();
  store.Wait();
  EXPECT_TRUE(Files().isEmpty());
}

TEST_F(RecoveryStore, AFolderThatCannotBeMadeIsToldAndLosesNothing) {
  QFile in_the_way(folder_.filePath("recovery"));
  ASSERT_TRUE(in_the_way.open(QIODevice::WriteOnly));
  QtRecoveryStore store(Folder());
  store.Keep("text");
  store.Discard(ToUtf8(in_the_way.fileName()));
  store.Wait();
  EXPECT_TRUE(in_the_way.exists());
}

}  // namespace
}  // namespace orvane::platform
