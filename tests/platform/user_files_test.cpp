#include <gtest/gtest.h>

#include <QDate>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include "platform/ansi_text.h"
#include "platform/file_dialogs.h"
#include "platform/file_error_log.h"
#include "platform/paths.h"
#include "platform/qt_settings_store.h"

namespace orvane::platform {
namespace {

TEST(SettingsStore, KeepsValuesForTheNextRun) {
  const QTemporaryDir folder;
  const std::string path = ToUtf8(folder.filePath("sub/settings.ini"));
  {
    QtSettingsStore store(path);
    EXPECT_FALSE(store.Read("ComPath", "ComNum"));
    store.Write("ComPath", "ComNum", "16");
    store.Write("IniFilePath", "IniFileName_5", "KT740, \u00E9 = \"x\"");
  }
  const QtSettingsStore store(path);
  EXPECT_EQ(store.Read("ComPath", "ComNum"), "16");
  EXPECT_EQ(store.Read("IniFilePath", "IniFileName_5"), "KT740, \u00E9 = \"x\"");
}

TEST(SettingsStore, SeesWhatAnotherProgramHasWritten) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("settings.ini");
  QtSettingsStore store(ToUtf8(path));
  store.Write("RecentFiles", "File1", "mine.dat");
  {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[RecentFiles]\nFile1=another.dat\nFile2=mine.dat\n");
  }
  EXPECT_EQ(store.Read("RecentFiles", "File1"), "another.dat");
  EXPECT_EQ(store.Read("RecentFiles", "File2"), "mine.dat");
}

TEST(SettingsStore, AnUnreadableFileCountsAsEmpty) {
  const QTemporaryDir folder;
  const QtSettingsStore store(ToUtf8(folder.path()));
  EXPECT_FALSE(store.Read("ComPath", "ComNum"));
}

TEST(ErrorLog, AppendsOneLineForEachFailure) {
  const QTemporaryDir folder;
  const QString path = folder.filePath("err.log");
  FileErrorLog log(ToUtf8(path), true);
  log.Write("frmRadio102.PortOpen", "2No such file\r\nConnect the cable.");
  log.Write("frmMain.SaveFileAs", "28No space");
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QList<QByteArray> lines = file.readAll().split('\n');
  ASSERT_EQ(lines.size(), 3);
  const QByteArray date =
      QLocale::system().toString(QDate::currentDate(), QLocale::ShortFormat).toLatin1();
  EXPECT_TRUE(lines[0].startsWith(date + ",")) << lines[0].toStdString();
  EXPECT_TRUE(lines[0].endsWith(":frmRadio102.PortOpen -> 2No such file Connect the cable.\r"))
      << lines[0].toStdString();
  EXPECT_TRUE(lines[1].endsWith(":frmMain.SaveFileAs -> 28No space\r"));
  EXPECT_TRUE(lines[2].isEmpty());
}

TEST(ErrorLog, OutsideDebugModeThereIsNoFile) {
  const QTemporaryDir folder;
  FileErrorLog(ToUtf8(folder.filePath("err.log")), false).Write("a", "b");
  EXPECT_FALSE(QFile::exists(folder.filePath("err.log")));
}

TEST(Paths, AConfigurationFolderThatIsNotAbsoluteIsIgnored) {
  const QByteArray before = qgetenv("XDG_CONFIG_HOME");
  qputenv("XDG_CONFIG_HOME", "/somewhere");
  EXPECT_EQ(PortLinksFolder(), "/somewhere/Orvane/ports");
  EXPECT_EQ(SettingsPath(), "/somewhere/Orvane/settings.ini");
  qputenv("XDG_CONFIG_HOME", "relative");
  EXPECT_TRUE(PortLinksFolder().ends_with("/.config/Orvane/ports")) << PortLinksFolder();
  before.isNull() ? qunsetenv("XDG_CONFIG_HOME") : qputenv("XDG_CONFIG_HOME", before);
}

TEST(FileDialogs, FiltersBecomeThoseOfTheDialog) {
  constexpr auto kFilter = "dat files(*.dat)|*.dat|All files(*.*)|*.*";
  EXPECT_EQ(NameFilters(kFilter), (QStringList{"dat files (*.dat)", "All files (*)"}));
  EXPECT_EQ(DefaultExtension(kFilter), "dat");
  EXPECT_EQ(DefaultExtension("All files(*.*)|*.*"), "");
}

}  // namespace
}  // namespace orvane::platform
