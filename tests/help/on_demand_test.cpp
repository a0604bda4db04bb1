#include "app/on_demand.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTest>

using namespace orvane;

namespace {

/// The windows on show, but for the owner of the help.
int Windows(const QWidget& owner) {
  int shown = 0;
  for (const QWidget* widget : QApplication::topLevelWidgets()) {
    shown += widget->isVisible() && widget != &owner ? 1 : 0;
  }
  return shown;
}

}  // namespace

class OnDemandTest : public QObject {
  Q_OBJECT

 private slots:
  void TheModuleShowsTheHelpAndClosesItWithItself() {
    const QTemporaryDir cache;
    app::OnDemand module;
    QWidget owner;
    owner.show();
    {
      app::HelpOnDemand help(module,
                             QCoreApplication::applicationDirPath().toStdString() + "/Orvane.qch",
                             cache.path().toStdString());
      QVERIFY(help.HasHelp());
      help.Close();  // nothing was opened
      help.Reopen();
      QCOMPARE(Windows(owner), 0);
      QCOMPARE(help.Open(owner, help::kTransferContext), std::nullopt);
      QCOMPARE(Windows(owner), 1);
      help.Close();
      QCOMPARE(Windows(owner), 0);
      help.Reopen();
      QCOMPARE(Windows(owner), 1);
      QVERIFY(help.Open(owner, 999).has_value());
    }
    QCOMPARE(Windows(owner), 0);
    QVERIFY(module.MakePrinter() != nullptr);
  }

  void WithoutTheModuleNothingIsPrintedAndTheReasonIsTold() {
    app::OnDemand module("/nowhere/module.so");
    app::PrinterOnDemand printer(module);
    QWidget owner;
    QVERIFY(!printer.HasPrinter() && !printer.Ask(owner));
    const auto failure = printer.PrintText("text", {});
    QVERIFY(failure && failure->description.find("/nowhere/module.so") != std::string::npos);

    app::HelpOnDemand help(module, QCoreApplication::applicationFilePath().toStdString(), {});
    QVERIFY(help.HasHelp());
    QVERIFY(help.Open(owner, help::kProgramContext)->find("/nowhere/module.so") !=
            std::string::npos);
    QVERIFY(!app::HelpOnDemand(module, "/nowhere/Orvane.qch", {}).HasHelp());
  }
};

QTEST_MAIN(OnDemandTest)
#include "on_demand_test.moc"
