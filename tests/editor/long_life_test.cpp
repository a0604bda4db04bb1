// One process that works on and on: what a round of every command takes, it gives back.

#include <QAction>
#include <QCheckBox>
#include <QFile>
#include <QPlainTextEdit>
#include <QTemporaryDir>

#include "command_desk.h"
#include "platform/qt_file_store.h"
#include "support/open_descriptors.h"

#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#if __GLIBC_PREREQ(2, 33)
#include <malloc.h>
#define ORVANE_COUNTS_MEMORY
#endif
#endif

using namespace orvane;

namespace {

constexpr std::size_t kHistoryBytes = 2'000'000;  // full after the first rounds
constexpr int kRounds = 200;
constexpr int kFirstRounds = 10;  // fill the caches of the toolkit
constexpr std::int64_t kMostGrowth = 1'000'000;
constexpr int kExchangesBetweenPaints = 100;
constexpr int kRoundsBetweenPrintouts = 10;

/// What the process has in use. Where the system does not tell, a figure stays 0.
struct InUse {
  std::int64_t bytes = 0;
  std::ptrdiff_t descriptors = 0;
  qsizetype windows = 0;
  qsizetype objects = 0;
};

std::int64_t BytesInUse() {
#ifdef ORVANE_COUNTS_MEMORY
  const struct mallinfo2 info = mallinfo2();
  return static_cast<std::int64_t>(info.uordblks + info.hblkhd);
#else
  return 0;
#endif
}

InUse Count(const QWidget& window) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  return {.bytes = BytesInUse(),
          .descriptors = testing::OpenDescriptors(),
          .windows = QApplication::topLevelWidgets().size(),
          .objects = window.findChildren<QObject*>().size()};
}

}  // namespace

class LongLifeTest : public QObject {
  Q_OBJECT

 private slots:
  void TwoHundredRoundsOfEveryCommandLeaveNothingBehind() {
    const QTemporaryDir folder;
    platform::QtFileStore disk;
    testing::CommandDesk desk(&disk, kHistoryBytes);
    desk.user_folder = folder.path().toStdString();
    desk.on_exchange = [&](const link::Exchange& /*exchange*/) {
      if (desk.asked.size() % kExchangesBetweenPaints == 0) QCoreApplication::processEvents();
    };
    desk.printer.has_printer = false;
    desk.Start();
    desk.Find<QTimer>("TimerNew")->setInterval(0);
    InUse early;
    for (int round = 1; round <= kRounds; ++round) {
      Round(desk, folder.path().toStdString());
      if (round % kRoundsBetweenPrintouts == 0) PrintAsPdf(desk, folder.path().toStdString());
      if (QTest::currentTestFailed()) return;
      Forget(desk);
      if (round == kFirstRounds) early = Count(*desk.window);
    }
    const InUse late = Count(*desk.window);
    qInfo(
        "Memory in use after %d rounds: %lld bytes, %lld more after %d; %lld descriptors, %lld "
        "windows, %lld objects",
        kFirstRounds, static_cast<long long>(early.bytes),
        static_cast<long long>(late.bytes - early.bytes), kRounds,
        static_cast<long long>(late.descriptors), static_cast<long long>(late.windows),
        static_cast<long long>(late.objects));
#ifdef ORVANE_COUNTS_MEMORY
    QVERIFY(early.bytes > kMostGrowth);
#endif
    QVERIFY(late.bytes - early.bytes < kMostGrowth);
    QCOMPARE(late.descriptors, early.descriptors);
    QCOMPARE(late.windows, early.windows);
    QCOMPARE(late.objects, early.objects);
  }

 private:
  static void Round(testing::CommandDesk& desk, const std::string& folder) {
    Edit(desk);
    desk.dialogs.paths = {folder + "/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    desk.TriggerAndWait("mnuFileNew");
    QVERIFY(desk.document.FileName().empty());
    desk.dialogs.paths = {folder + "/boat.dat"};
    desk.Item("mnuFileOpen").trigger();
    desk.Item("mnuFileSave").trigger();
    QCOMPARE(desk.document.FileName(), folder + "/boat.dat");
    QVERIFY(desk.Transfer("mnuTransferProgram"));
    QVERIFY(desk.Transfer("mnuTransferRead"));
    Report(desk, folder);
    QCOMPARE(desk.Messages(), QStringList({"Complete!!", "Complete!!"}));
  }

  /// What the stand-ins wrote down is none of the program's.
  static void Forget(testing::CommandDesk& desk) {
    QVERIFY(desk.log.lines.empty());
    desk.prompts.messages.clear();
    desk.dialogs.requests.clear();
    desk.asked.clear();
    desk.opened_ports.clear();
  }

  /// Shows every kind of page; nodes come and go.
  static void Edit(testing::CommandDesk& desk) {
    for (const char* key : {"PU", "PU32", "PW", "Common", "Usable"}) {
      desk.window->SelectNode(key);
      QCoreApplication::processEvents();
    }
    for (int times = 0; times < 2; ++times) {
      QTest::keyClick(desk.Find<QCheckBox>("chkUsable_2"), Qt::Key_Space);
    }
    QVERIFY(desk.document.HasChanged());
  }

  static void Report(testing::CommandDesk& desk, const std::string& folder) {
    desk.dialogs.paths = {folder + "/report.txt"};
    desk.InWindowOf("mnuFilePrintFile", [](QDialog& window) {
      const auto* text = window.findChild<QPlainTextEdit*>("txtPrn");
      QVERIFY(QTest::qWaitFor([&] { return !text->toPlainText().startsWith("Now, "); }));
      window.findChild<QAction*>("mnuFileSave")->trigger();
    });
    QVERIFY(QFile::remove(QString::fromStdString(folder) + "/report.txt"));
  }

  static void PrintAsPdf(testing::CommandDesk& desk, const std::string& folder) {
    desk.dialogs.paths = {folder + "/report.pdf"};
    desk.Item("mnuFilePrint").trigger();
    QVERIFY(QFile::remove(QString::fromStdString(folder) + "/report.pdf"));
  }
};

QTEST_MAIN(LongLifeTest)
#include "long_life_test.moc"
