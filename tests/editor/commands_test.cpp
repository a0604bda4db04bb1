#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>

#include "command_desk.h"
#include "core/messages.h"
#include "files/image_file.h"
#include "files/text_report.h"
#include "image/codec.h"
#include "support/row.h"

using namespace orvane;
using core::Answer;
using core::Icon;
using testing::CommandDesk;

namespace {

constexpr const char* kReport = "mnuFilePrintFile";
const core::SystemError kDiskFull = {28, "No space left on device"};

void Choose(const QDialog& window, const char* item) {
  window.findChild<QAction*>(QLatin1String(item))->trigger();
}

QPlainTextEdit& Text(const QDialog& window) {
  return *window.findChild<QPlainTextEdit*>("txtPrn");
}

/// Opens the report window and works in it when the report stands.
void InReport(CommandDesk& desk, const std::function<void(QDialog&)>& work) {
  desk.InWindowOf(kReport, [&](QDialog& window) {
    QVERIFY(QTest::qWaitFor([&] { return !Text(window).toPlainText().startsWith("Now, "); }));
    work(window);
  });
}

void PressDebugKey(CommandDesk& desk, Qt::Key key) {
  QTest::keyClick(&desk.Tree(), key, Qt::ControlModifier);
}

/// What a file manager does that would rather move the file: dragged over a control and let go
/// there. The answer of the window, or none when it took nothing.
Qt::DropAction Drop(const CommandDesk& desk, const QWidget& control, const QString& path) {
  QMimeData dropped;
  dropped.setUrls({QUrl::fromLocalFile(path)});
  QWindow* const window = desk.window->windowHandle();
  const QPoint place = control.mapTo(desk.window.get(), control.rect().center());
  const Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(place, offered, &dropped, Qt::LeftButton, Qt::NoModifier);
  enter.setDropAction(Qt::MoveAction);
  QApplication::sendEvent(window, &enter);
  QDropEvent drop(place, offered, &dropped, Qt::LeftButton, Qt::NoModifier);
  drop.setDropAction(Qt::MoveAction);
  QApplication::sendEvent(window, &drop);
  QCoreApplication::processEvents();  // whoever dropped it is not kept waiting
  return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

std::string HexBytes(const core::RadioData& data) {
  const auto used = data.Image.Used();
  return {used.begin(), used.end()};
}

}  // namespace

class CommandsTest : public QObject {
  Q_OBJECT

 private slots:
  void ReportReplacesTheWaitingText() {
    CommandDesk desk;
    desk.Start();
    desk.InWindowOf(kReport, [&](QDialog& window) {
      QCOMPARE(window.objectName(), "frmPrn");
      QCOMPARE(window.windowTitle(), "Print to File");
      QCOMPARE(window.size(), QSize(558, 409));
      QCOMPARE(Text(window).toPlainText(), "Now, making text image. Please wait...");
      const double began = desk.clock.now;
      QTRY_VERIFY(desk.clock.now > began && window.isEnabled());
      QVERIFY(desk.clock.now - began >= 0.5);
      QString report = Text(window).toPlainText();
      QCOMPARE(platform::ToAnsi(report.replace("\n", "\r\n")), files::BuildTextReport(desk.data));
      QVERIFY(window.isEnabled() && Text(window).isReadOnly());
      // As wide as its lines, or as the screen where that is narrower.
      QVERIFY(Text(window).horizontalScrollBar()->maximum() == 0 ||
              window.width() >= window.screen()->availableGeometry().width());
      auto* ok = window.findChild<QPushButton*>("cmdOK");
      ok->setFocus();
      QTest::keyClick(ok, Qt::Key_Return);
      QVERIFY(!window.isVisible());
    });
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "OTHERWISE";
    InReport(desk, [](QDialog& window) {
      QVERIFY(Text(window).toPlainText().contains("OTHERWISE"));
      Choose(window, "mnuFileExit");
      QVERIFY(!window.isVisible());
    });
  }

  void ReportIsSavedWithOneMoreLineEndOrElseSetsTheFlags() {
    CommandDesk desk;
    desk.Start();
    desk.data.Usable[0].Status_name = "\xA0\xC4";  // a blank that must not break, and an umlaut
    desk.files.failing["/full/r.txt"] = kDiskFull;
    InReport(desk, [&](QDialog& window) {
      desk.dialogs.paths = {"/out/report.txt"};
      Choose(window, "mnuFileSave");
      QCOMPARE(desk.files.files["/out/report.txt"], files::BuildTextReport(desk.data) + "\r\n");
      QCOMPARE(desk.dialogs.requests[0].filter, "Text files(*.txt)|*.txt|All files(*.*)|*.*");
      QVERIFY(!desk.state.Error && !desk.state.Cancel);
      Choose(window, "mnuFileSave");  // the dialog is cancelled
      QVERIFY(desk.state.Cancel && desk.prompts.messages.empty());
      desk.state.Cancel = false;
      desk.dialogs.paths = {"/full/r.txt"};
      Choose(window, "mnuFileSave");
      QVERIFY(window.isVisible() && window.isEnabled());
      QVERIFY(Text(window).toPlainText().contains("#####"));
    });
    QCOMPARE(desk.Messages(), QStringList{"No space left on device"});
    QCOMPARE(desk.prompts.messages[0].title, "KT740 PC Program for KT740 Series");
    QVERIFY(desk.prompts.messages[0].icon == Icon::kExclamation);
    QVERIFY(desk.state.Error && desk.state.Cancel);
  }

  void ReportCanBeSearchedCopiedAndZoomed() {
    CommandDesk desk;
    desk.Start();
    InReport(desk, [](QDialog& window) {
      QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
      auto* wanted = window.findChild<QLineEdit*>("txtFind");
      QVERIFY(wanted->isVisible());
      QTest::keyClicks(wanted, "setup");
      QTest::keyClick(wanted, Qt::Key_Return);
      const int first = Text(window).textCursor().position();
      QCOMPARE(Text(window).textCursor().selectedText().toLower(), "setup");
      window.findChild<QToolButton*>("cmdFindNext")->click();
      QVERIFY(Text(window).textCursor().position() > first);
      window.findChild<QToolButton*>("cmdFindPrevious")->click();
      window.findChild<QToolButton*>("cmdFindPrevious")->click();  // round from the end
      QVERIFY(Text(window).textCursor().position() > first);
      wanted->setText("nowhere to be found");
      const int before = Text(window).textCursor().position();
      Choose(window, "mnuEditFindNext");
      QCOMPARE(Text(window).textCursor().position(), before);
      QCOMPARE(window.findChild<QLabel*>("lblFind")->text(), "Not found");
      wanted->setText("setup");
      QCOMPARE(window.findChild<QLabel*>("lblFind")->text(), "");
      QTest::keyClick(wanted, Qt::Key_Escape);
      QVERIFY(window.isVisible() && !wanted->isVisible());

      Choose(window, "mnuEditCopyAll");
      QCOMPARE(QGuiApplication::clipboard()->text(), Text(window).toPlainText());

      const double size = Text(window).font().pointSizeF();
      Choose(window, "mnuViewZoomIn");
      QVERIFY(Text(window).font().pointSizeF() > size);
      Choose(window, "mnuViewZoomNormal");
      QCOMPARE(Text(window).font().pointSizeF(), size);
    });
  }

  void PrintGoesToTheChosenPrinter() {
    CommandDesk desk;
    desk.Start();
    desk.printer.chosen = false;
    desk.Item("mnuFilePrint").trigger();
    QCOMPARE(desk.printer.printed.size(), 0U);
    desk.printer.chosen = true;
    desk.Item("mnuFilePrint").trigger();
    QCOMPARE(desk.printer.printed.size(), 1U);
    QVERIFY(desk.prompts.messages.empty());
    desk.printer.failure = core::SystemError{0, "Laser: The printer reports an error."};
    desk.Item("mnuFilePrint").trigger();
    QCOMPARE(desk.Messages(), QStringList{"Print Error!!"});
    QVERIFY(
        desk.prompts.messages[0].details.starts_with("Laser: The printer reports an error.\r\n"));
    QVERIFY(desk.window->isEnabled());
  }

  void WithoutAPrinterThePagesGoToAPdfFile() {
    CommandDesk desk;
    desk.Start();
    desk.printer.has_printer = false;
    desk.prompts.answers = {Answer::kCancel};
    desk.Item("mnuFilePrint").trigger();
    QVERIFY(desk.files.files.empty());
    desk.dialogs.paths = {"/out/radio.pdf", "/full/radio.pdf"};
    desk.files.failing["/full/radio.pdf"] = kDiskFull;
    desk.Item("mnuFilePrint").trigger();
    const std::string& pdf = desk.files.files["/out/radio.pdf"];
    QVERIFY(pdf.starts_with("%PDF-"));
    // General page, three marine tables, weather: no EXP/LMR group is in use.
    const QRegularExpression page("/Type\\s*/Page\\b");
    QCOMPARE(QString::fromLatin1(pdf.data(), static_cast<qsizetype>(pdf.size())).count(page), 5);
    desk.prompts.messages.clear();
    desk.Item("mnuFilePrint").trigger();
    QCOMPARE(desk.Messages().last(), "Print Error!!");
    QVERIFY(desk.prompts.messages.back().details.starts_with("No space left on device\r\n"));
  }

  void ImageFileKeysNeedDebugMode() {
    CommandDesk desk;
    desk.Start();
    PressDebugKey(desk, Qt::Key_F3);
    PressDebugKey(desk, Qt::Key_F2);
    QVERIFY(desk.dialogs.requests.empty());
  }

  void ImageFileRoundTripRefreshesEverything() {
    CommandDesk desk;
    desk.state.Debug = true;
    desk.Start();
    desk.data.Image = desk.sample.Image;  // a fresh one has no product code and would be refused
    image::DecodeAll(desk.data);
    desk.data.Table(core::MarineGroup::kUsa)[32].ChTag = "harbour";
    desk.data.Usable[1].Enable = false;
    image::SetDestinationBits(desk.data.Image, false, false);
    desk.dialogs.paths = {"/out/Boat.hex", "/out/Boat.hex"};
    const double began = desk.clock.now;
    PressDebugKey(desk, Qt::Key_F3);
    QVERIFY(desk.clock.now - began >= 0.5);
    QCOMPARE(desk.dialogs.requests[0].filter, "hex files(*.hex)|*.hex|All files(*.*)|*.*");
    QCOMPARE(desk.files.files["/out/Boat.hex"].size(), std::size_t{16384});
    QCOMPARE(desk.files.files["/out/Boat.hex"], HexBytes(desk.data));
    QVERIFY(!desk.window->windowTitle().contains("boat"));

    desk.TriggerAndWait("mnuFileNew");
    desk.document.NoteChange();
    desk.window->SelectNode("PI3");
    PressDebugKey(desk, Qt::Key_F2);
    QVERIFY(desk.prompts.messages.empty());
    QCOMPARE(desk.data.Table(core::MarineGroup::kUsa)[32].ChTag, "HARBOUR");
    QVERIFY(desk.window->windowTitle().endsWith(" - boat.hex"));
    QCOMPARE(desk.PageName(), "pictGeneral");
    QVERIFY(!desk.Tree().Contains("PI"));
    QCOMPARE(desk.Model(), "KT520");
    QVERIFY(!desk.document.HasChanged() && !desk.state.Busy && !desk.state.Cancel);
  }

  void ImageFileThatCannotBeReadOrWrittenIsTold() {
    CommandDesk desk;
    desk.state.Debug = true;
    desk.Start();
    desk.files.files["/in/short.hex"] = HexBytes(desk.sample).substr(1);
    desk.files.failing["/full/a.hex"] = kDiskFull;
    desk.dialogs.paths = {"/in/short.hex", "/full/a.hex"};
    const core::RadioData before = desk.data;
    PressDebugKey(desk, Qt::Key_F2);
    QVERIFY(desk.data == before);
    QVERIFY(desk.window->isEnabled() && !desk.state.Busy);
    PressDebugKey(desk, Qt::Key_F3);
    QCOMPARE(desk.Messages(), QStringList({"bad file!!", "FileSave Error!!"}));
    QVERIFY(desk.state.Cancel && !desk.state.Busy && desk.window->isEnabled());
  }

  void WindowIsBusyWhileAFileIsReadOrWritten() {
    CommandDesk desk;
    desk.state.Debug = true;
    desk.Start();
    desk.data.Image = desk.sample.Image;
    desk.dialogs.paths = {"/out/a.dat", "/out/a.dat", "/out/a.hex", "/out/a.hex"};
    int looks = 0;
    const auto look = [&] {
      ++looks;
      QVERIFY(desk.state.Busy);
      QVERIFY(!desk.window->isEnabled());
    };
    const auto looked = [&](const char* what) {
      const testing::Row row(what);
      QVERIFY(std::exchange(looks, 0) > 0);
      QVERIFY(!desk.state.Busy && !desk.state.Cancel && desk.window->isEnabled());
    };
    desk.pump.on_yield = look;
    desk.Item("mnuFileSaveAs").trigger();
    looked("settings file, written");
    desk.Item("mnuFileOpen").trigger();
    looked("settings file, read");
    desk.files.on_use = look;
    PressDebugKey(desk, Qt::Key_F3);
    looked("image file, written");
    PressDebugKey(desk, Qt::Key_F2);
    looked("image file, read");
    desk.files.on_use = desk.pump.on_yield = nullptr;
  }

  void AboutBoxNamesProgramAndVersion() {
    CommandDesk desk;
    desk.Start();
    desk.InWindowOf("mnuHelpAbout", [](QDialog& box) {
      QCOMPARE(box.objectName(), "frmAbout");
      QCOMPARE(box.windowTitle(), "Version Infomation");
      QCOMPARE(box.findChild<QLabel*>("lblTitle")->text(), "Orvane  PC Program for KT740 Series");
      const QString version = box.findChild<QLabel*>("lblVersion")->text();
      QVERIFY(QRegularExpression("^Version \\d+\\.\\d+\\.\\d+$").match(version).hasMatch());
      box.findChild<QPushButton*>("cmdOK")->click();
      QVERIFY(!box.isVisible());
    });
  }

  void HelpFollowsTheFocusAndClosesWithTheWindow() {
    CommandDesk desk;
    desk.Start();
    desk.Item("mnuHelpContents").trigger();
    desk.window->SelectNode("Common");
    desk.help.failure = "The help file is damaged.";
    QTest::keyClick(desk.Find<QWidget>("cmbCommonScan"), Qt::Key_F1);
    QCOMPARE(desk.Messages(), QStringList{"The help file is damaged."});
    desk.help.has_help = false;
    QTest::keyClick(&desk.Tree(), Qt::Key_F1);  // says nothing
    desk.Item("mnuHelpContents").trigger();
    QCOMPARE(desk.Messages().mid(1),
             QStringList{QString::fromStdString(core::TextOf(core::MessageId::kNoHelp))});
    QVERIFY(desk.window->close());
    QCOMPARE(desk.help.opened, QStringList({"frmMain 1000", "frmMain 1002", "closed"}));
  }

  void DroppedFileOpens() {
    CommandDesk desk;
    desk.Start();
    desk.dialogs.paths = {"/out/boat.dat"};
    desk.Item("mnuFileSaveAs").trigger();
    desk.TriggerAndWait("mnuFileNew");
    QCOMPARE(Drop(desk, desk.Tree(), "/out/boat.dat"), Qt::CopyAction);
    QVERIFY(desk.window->windowTitle().endsWith(" - boat.dat"));
    for (const char* key : {"General", "PU32", "L1", "E1", "Usable", "Common"}) {
      desk.window->SelectNode(QLatin1String(key));
      for (const auto* box : desk.window->findChildren<QLineEdit*>()) {
        const testing::Row row(key, box->objectName());
        QVERIFY(!box->acceptDrops());
        if (!box->isVisible()) continue;
        desk.TriggerAndWait("mnuFileNew");
        desk.window->SelectNode(QLatin1String(key));
        const QString before = box->text();
        QCOMPARE(Drop(desk, *box, "/out/boat.dat"), Qt::CopyAction);
        QCOMPARE(box->text(), before);
        QVERIFY(desk.window->windowTitle().endsWith(" - boat.dat"));
      }
    }
    desk.InWindowOf("mnuHelpAbout", [&](QDialog& /*box*/) {
      QCOMPARE(Drop(desk, desk.Tree(), "/out/boat.dat"), Qt::IgnoreAction);
    });
  }

  void BadPageStopsEveryCommandAndStaysOnShow() {
    // A frequency outside the band, and none at all on a channel in use.
    for (const char* frequency : {"120", ""}) {
      CommandDesk desk;
      desk.state.Debug = true;
      desk.Start();
      desk.data.EXP = desk.sample.EXP;
      desk.data.LmrPresent() = true;
      desk.window->RebuildTree();
      desk.window->SelectNode("L1");
      auto* box = desk.Find<QLineEdit>("txtCRF");
      box->setFocus();
      QTest::keyClick(box, Qt::Key_Delete);
      QTest::keyClicks(box, frequency);
      QVERIFY(!desk.window->CheckPage());
      const core::RadioData before = desk.data;
      QTimer closer;
      QWidget* opened = nullptr;
      closer.callOnTimeout([&opened] {
        if (QWidget* modal = QApplication::activeModalWidget()) (opened = modal)->close();
      });
      closer.start(0);
      const auto stopped = [&](const char* way) {
        const testing::Row row(frequency, way);
        QVERIFY(desk.prompts.messages.back().text.starts_with("Data Error!!"));
        desk.prompts.messages = {{}};
        QCOMPARE(desk.Tree().CurrentKey(), "L1");
        QCOMPARE(desk.PageName(), "pictC");
        QVERIFY(desk.data == before && desk.window->isVisible());
        QVERIFY(desk.window->isEnabled() && desk.dialogs.requests.empty() && opened == nullptr);
        QCOMPARE(desk.printer.printed.size(), 0U);
      };
      desk.Item("mnuEditModel_1").setEnabled(true);
      for (const char* item :
           {"mnuFileNew", "mnuFileOpen", "mnuFileSave", "mnuFileSaveAs", "mnuFilePrint", kReport,
            "mnuFileExit", "mnuTransferRead", "mnuTransferProgram", "mnuEditModel_1"}) {
        desk.Item(item).trigger();
        stopped(item);
      }
      PressDebugKey(desk, Qt::Key_F3);
      stopped("image file");
      QCOMPARE(Drop(desk, *box, "/out/boat.dat"), Qt::CopyAction);
      stopped("dropped file");
      desk.window->SelectNode("General");
      stopped("another node");
      desk.prompts.answers = {Answer::kYes};
      QVERIFY(!desk.window->close());
      stopped("closing");
    }
  }
};

QTEST_MAIN(CommandsTest)
#include "commands_test.moc"
