#include <QApplication>
#include <QDialog>
#include <QDirIterator>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QLineEdit>
#include <QListWidget>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSet>
#include <QSysInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QTextDocument>
#include <functional>
#include <memory>
#include <utility>

#include "core/explanations.h"
#include "help/help_folder.h"
#include "help/help_viewer.h"
#include "platform/ansi_text.h"

namespace orvane::help {
namespace {

constexpr const char* kHelpFile = ORVANE_HELP_FILE;

// The numbers that the controls of the window and the transfer dialog carry.
constexpr int kContexts[] = {kProgramContext,
                             kGroupsPageContext,
                             kCommonPageContext,
                             kTablePageContext,
                             kChannelPageContext,
                             kWeatherPageContext,
                             kTransferContext,
                             kFindCableContext,
                             kProblemsContext,
                             kTablesAsTextContext,
                             kFindContext,
                             kCompareContext,
                             1028,
                             1029,
                             1030,
                             1031,
                             1032,
                             1033,
                             1034,
                             1064,
                             2500,
                             2501,
                             2502,
                             2503};

// Messages with a name filled in, and those that end unlike any other.
constexpr const char* kOtherMessages[] = {
    "The radio now holds a partly written image. Do not use it until it has been programmed again.",
    "Do yo want to program the KT520 series?",
    "Do yo want to change to KT740-usa?",
    "Your Data was changed Wide CHs to Narrow.",
    "No : It will start downloading (w/o changing the bandwidth)",
    "(not exist)",
};

QString CacheFolder() {
  static const QTemporaryDir kFolder;
  return kFolder.path();
}

/// The texts in the source files that end as messages do, in "!!" or a question mark, those of the
/// table of messages or the others. Texts that only a line break parts are one text; line breaks in
/// them are blanks, places for names have their general words.
QStringList MessagesInSources(bool in_table) {
  static const QRegularExpression kComment("^\\s*//.*$", QRegularExpression::MultilineOption);
  static const QRegularExpression kSeam("\"\\s*\n\\s*\"");
  static const QRegularExpression kPlace("\\{[a-z]+\\|([^}]*)\\}");
  static const QRegularExpression kText("\"((?:[^\"\\\\\n]|\\\\.)*(?:!!|[^\"]\\?))\"");
  QStringList messages;
  QDirIterator files(ORVANE_SOURCES, {"*.cpp", "*.h"}, QDir::Files, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    QFile file(files.next());
    if (file.fileName().contains("/message_rows_") != in_table) continue;
    if (!file.open(QIODevice::ReadOnly)) continue;
    QString source = QString::fromUtf8(file.readAll());
    source.remove(kComment).remove(kSeam).replace(kPlace, "\\1");
    auto texts = kText.globalMatch(source);
    while (texts.hasNext()) {
      messages += texts.next().captured(1).replace("\\r", " ").replace("\\n", " ").simplified();
    }
  }
  return messages;
}

class Pages {
 public:
  Pages() {
    if (const auto failure = library.Load(QLatin1String(kHelpFile))) {
      qFatal("%s", failure->c_str());
    }
    urls = library.Engine().files(QStringLiteral("orvane"), QStringList(), QStringLiteral("html"));
  }
  [[nodiscard]] QString Html(QUrl page) const {
    page.setFragment({});
    return QString::fromUtf8(library.File(page));
  }
  [[nodiscard]] bool Leads(const QUrl& place) const {
    const QString html = Html(place);
    return !html.isEmpty() && (!place.hasFragment() ||
                               html.contains(QStringLiteral("name=\"%1\"").arg(place.fragment())));
  }
  HelpLibrary library{CacheFolder()};
  QList<QUrl> urls;
};

/// A viewer with its window open on the first page.
struct OpenViewer {
  OpenViewer() { failure = viewer.Open(owner, kProgramContext); }
  template <class Widget>
  [[nodiscard]] Widget* Find(const char* name) const {
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == QLatin1String("frmHelp")) return window->findChild<Widget*>(name);
    }
    return nullptr;
  }
  [[nodiscard]] QTextBrowser& Page() const { return *Find<QTextBrowser>("txtHelp"); }
  QWidget owner;
  HelpViewer viewer{kHelpFile, CacheFolder().toStdString()};
  std::optional<std::string> failure;
};

}  // namespace

class HelpTest : public QObject {
  Q_OBJECT

 private slots:
  void EveryContextNumberHasItsTopic() {
    const Pages pages;
    QSet<QUrl> places;
    for (const int context : kContexts) {
      const QUrl place = pages.library.TopicOf(context);
      QVERIFY2(pages.Leads(place), qPrintable(QString::number(context)));
      places.insert(place);
    }
    QCOMPARE(places.size(), std::size(kContexts));
    QVERIFY(!pages.library.TopicOf(1).isValid());
  }

  void EveryLinkLeadsSomewhere() {
    const Pages pages;
    QVERIFY(pages.urls.size() > 10);
    static const QRegularExpression kLink(QStringLiteral("href=\"([^\"]+)\""));
    for (const QUrl& page : pages.urls) {
      auto links = kLink.globalMatch(pages.Html(page));
      while (links.hasNext()) {
        const QString link = links.next().captured(1);
        QVERIFY2(pages.Leads(page.resolved(QUrl(link))), qPrintable(page.path() + " -> " + link));
      }
    }
  }

  void ContentsAndIndexLeadToPagesAndContentsLeaveNoneOut() {
    const Pages pages;
    QHelpContentModel& model = *pages.library.Engine().contentModel();
    model.createContents({});
    QTRY_VERIFY(model.rowCount() > 0);
    QSet<QUrl> listed;
    const std::function<void(const QModelIndex&)> walk = [&](const QModelIndex& parent) {
      for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        listed.insert(model.contentItemAt(index)->url());
        walk(index);
      }
    };
    walk({});
    QCOMPARE(listed, QSet<QUrl>(pages.urls.begin(), pages.urls.end()));
    for (const QString& word : pages.library.Engine().indexModel()->stringList()) {
      for (const QHelpLink& link : pages.library.Engine().documentsForKeyword(word)) {
        QVERIFY2(pages.Leads(link.url), qPrintable(word));
      }
    }
  }

  void EveryShortWordIsExplained() {
    const Pages pages;
    QTextDocument document;
    QString text;
    for (const QUrl& page : pages.urls) {
      document.setHtml(pages.Html(page));
      text += document.toPlainText();
    }
    for (const core::Explanation& row : core::Explanations()) {
      for (const std::string_view word : {row.word, row.column}) {
        QVERIFY2(text.contains(platform::FromUtf8(word)), qPrintable(platform::FromUtf8(word)));
      }
    }
  }

  void EveryMessageIsExplained() {
    const Pages pages;
    QTextDocument document;
    document.setHtml(pages.Html(QUrl("qthelp://orvane/help/messages.html")));
    const QString text = document.toPlainText().simplified();
    QStringList messages = MessagesInSources(true);
    QVERIFY2(messages.contains("Communication Error!!"), "the source files are not found");
    for (const char* message : kOtherMessages) messages += message;
    for (const QString& message : messages) {
      QVERIFY2(text.contains(message), qPrintable(message));
    }
    // What stands outside the table has no remedy: it may only be a step shown in debug mode.
    const QString steps = text.section("Steps shown in debug mode", 1);
    const QStringList others = MessagesInSources(false);
    QVERIFY(others.contains("sync failed!!"));
    for (const QString& other : others) QVERIFY2(steps.contains(other), qPrintable(other));
  }

  void SearchFindsPagesByTheirWords() {
    const OpenViewer help;
    auto* words = help.Find<QLineEdit>("txtHelpSearch");
    auto* results = help.Find<QListWidget>("lstHelpResults");
    QTest::keyClicks(words, "narrowband");
    QTest::keyClick(words, Qt::Key_Return);
    QTRY_VERIFY(!results->findItems("The narrowband rule", Qt::MatchExactly).isEmpty());
    // Marks are no part of the words.
    words->setText("\"Data Error!!\" (input*");
    QTest::keyClick(words, Qt::Key_Return);
    QTRY_COMPARE(results->count(), 1);
    emit results->itemActivated(results->item(0));
    QCOMPARE(help.Page().source().fileName(), "messages.html");
    words->setText("xyzzy");
    QTest::keyClick(words, Qt::Key_Return);
    QTRY_COMPARE(results->count(), 0);
  }

  void BackReturnsToThePageBefore() {
    OpenViewer help;
    QCOMPARE(help.Page().source().fileName(), "index.html");
    QCOMPARE(help.viewer.Open(help.owner, 2502), std::nullopt);
    QCOMPARE(help.Page().source().toString(), "qthelp://orvane/help/channel.html#context-2502");
    auto* contents = help.Find<QHelpContentWidget>("tvHelpContents");
    QTRY_COMPARE(contents->currentIndex().data().toString(), "A single channel");
    help.Page().backward();
    QCOMPARE(help.Page().source().fileName(), "index.html");
  }

  void TopicIsMarkedAndAtTheTopHoweverNearTheEnd() {
    for (const auto& [context, heading] :
         {std::pair(2502, "Rx Frequency of an extra channel"), {1034, "CH Name"}}) {
      OpenViewer help;
      QTextBrowser& page = help.Page();
      const auto at_top = [&page, heading = QString(heading)] {
        if (page.extraSelections().size() != 1) return false;
        QTextCursor mark = page.extraSelections().constFirst().cursor;
        if (mark.selectedText() != heading) return false;
        mark.setPosition(mark.selectionStart());
        const int top = page.cursorRect(mark).top();
        return top >= 0 && top < 2 * page.cursorRect(mark).height();
      };
      QCOMPARE(help.viewer.Open(help.owner, context), std::nullopt);
      QTRY_VERIFY(at_top());
      page.window()->resize(640, 400);
      QTRY_VERIFY(at_top());
      page.verticalScrollBar()->setValue(0);
      QCOMPARE(help.viewer.Open(help.owner, context), std::nullopt);  // asked for once more
      QTRY_VERIFY(at_top());
    }
  }

  void FolderOfAKilledProgramIsTakenOver() {
    const QTemporaryDir root;
    QProcess dead;
    dead.start(QCoreApplication::applicationFilePath(), {"-help"});
    QVERIFY(dead.waitForStarted());
    const QByteArray number = QByteArray::number(dead.processId());
    QVERIFY(dead.waitForFinished());
    QFile lock(root.filePath("help-1.lock"));
    QVERIFY(lock.open(QIODevice::WriteOnly));
    lock.write(number + "\nOrvane\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    lock.close();
    QVERIFY(QDir(root.path()).mkpath("help-1/left"));
    {
      const HelpFolder first(root.path());
      const HelpFolder second(root.path());
      QCOMPARE(first.Path(), root.filePath("help-1"));
      QVERIFY(QDir(first.Path()).isEmpty());
      QCOMPARE(second.Path(), root.filePath("help-2"));
    }
    QVERIFY(QDir(root.path()).isEmpty());
    // Where there is no place for it, a temporary folder.
    const HelpFolder temporary(QLatin1String(kHelpFile) + "/none");
    QVERIFY(QFileInfo(temporary.Path()).isDir());
  }

  void ModalOwnerLeavesTheHelpUsableAndTakesItAlong() {
    OpenViewer help;
    {
      QDialog dialog;
      dialog.setModal(true);
      dialog.show();
      QCOMPARE(help.viewer.Open(dialog, kTransferContext), std::nullopt);
      QCOMPARE(help.Page().window()->parentWidget(), &dialog);
      QVERIFY(help.Page().isVisible());
    }
    QVERIFY(help.Find<QTextBrowser>("txtHelp") == nullptr);
    QCOMPARE(help.viewer.Open(help.owner, kTransferContext), std::nullopt);
    QVERIFY(help.Page().isVisible());
    const QUrl page = help.Page().source();
    help.viewer.Close();
    QVERIFY(!help.Page().isVisible());
    help.viewer.Reopen();
    QVERIFY(help.Page().isVisible());
    QCOMPARE(help.Page().source(), page);
    help.Page().window()->close();  // by the user: stays closed
    help.viewer.Close();
    help.viewer.Reopen();
    QVERIFY(!help.Page().isVisible());
  }

  void NumberZeroOpensNothing() {
    HelpViewer viewer(kHelpFile, CacheFolder().toStdString());
    QWidget owner;
    QCOMPARE(viewer.Open(owner, 0), std::nullopt);
    QVERIFY(QApplication::topLevelWidgets() == QWidgetList{&owner});
  }

  void FailuresAreReported() {
    QWidget owner;
    QVERIFY(!HelpViewer("", "").HasHelp());
    QVERIFY(!HelpViewer("/nowhere/Orvane.qch", CacheFolder().toStdString()).HasHelp());
    QVERIFY(HelpViewer("/nowhere/Orvane.qch", CacheFolder().toStdString())
                .Open(owner, kProgramContext)
                .has_value());
    HelpViewer viewer(kHelpFile, CacheFolder().toStdString());
    QVERIFY(viewer.HasHelp());
    QCOMPARE(viewer.Open(owner, 4711), "The help has no topic 4711.");
    const QTemporaryDir folder;
    QFile damaged(folder.filePath("Orvane.qch"));
    QVERIFY(damaged.open(QIODevice::WriteOnly) && damaged.write("no help") > 0);
    damaged.close();
    const auto failure = HelpViewer(damaged.fileName().toStdString(), CacheFolder().toStdString())
                             .Open(owner, kProgramContext);
    QVERIFY(failure.has_value());
    QVERIFY(failure->find("Orvane.qch") != std::string::npos);
  }
};

}  // namespace orvane::help

QTEST_MAIN(orvane::help::HelpTest)
#include "help_test.moc"
