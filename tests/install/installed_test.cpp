#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtEndian>

namespace orvane {
namespace {

/// What "cmake --install" makes of the build, under a prefix that nothing was built for.
class Installed : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(folder_.isValid());
    const Result install =
        Run(ORVANE_CMAKE, {"--install", ORVANE_BUILD, "--prefix", Path(QString())});
    ASSERT_EQ(install.status, 0) << install.text.constData();
  }

  struct Result {
    int status;
    QByteArray text;  ///< both outputs
  };
  [[nodiscard]] static Result Run(const QString& program, const QStringList& words) {
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, words);
    const bool ended = process.waitForFinished();
    return {ended ? process.exitCode() : -1, process.readAll()};
  }

  /// A path below the prefix.
  [[nodiscard]] QString Path(const QString& name) const {
    return folder_.filePath("an other place/") + name;
  }
  /// A path outside it.
  [[nodiscard]] QString UserFile(const QString& name) const { return folder_.filePath(name); }
  [[nodiscard]] QByteArray Contents(const QString& path) const {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }
  void Write(const QString& path, const QByteArray& contents) const {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
  }
  /// The value of a key of the menu entry.
  [[nodiscard]] QString Entry(const QString& key) const {
    const QString text = QString::fromUtf8(Contents(Path("share/applications/orvane.desktop")));
    return QRegularExpression("^" + key + "=(.*)$", QRegularExpression::MultilineOption)
        .match(text)
        .captured(1);
  }

 private:
  QTemporaryDir folder_;
};

TEST_F(Installed, ProgramsFindTheirDataAndWriteNothingBesideThemselves) {
  ASSERT_TRUE(QFile::copy(ORVANE_DATA_FOLDER, Path("bin/data_folder")));
  qputenv("XDG_STATE_HOME", UserFile("state").toUtf8());
  const QList<QByteArray> lines = Run(Path("bin/data_folder"), {}).text.split('\n');
  ASSERT_GE(lines.size(), 2);
  EXPECT_EQ(lines[0].toStdString(), Path("share/orvane").toStdString());
  EXPECT_EQ(lines[1].toStdString(), UserFile("state/Orvane/err.log").toStdString());
  for (const char* name : {"Orvane.qch", "Keldrin.gif", "KT740-usa_02E4.ini"}) {
    EXPECT_TRUE(QFile::exists(QString::fromUtf8(lines[0]) + "/" + name)) << name;
  }
  for (const char* program : {"orvane", "orvane-cli", "orvane-radio"}) {
    EXPECT_EQ(Run(Path(QString("bin/") + program), {"--help"}).status, 0) << program;
  }
}

TEST_F(Installed, FilesAreKnownByTheirContents) {
  qputenv("XDG_DATA_HOME", UserFile("data").toUtf8());
  qputenv("XDG_DATA_DIRS", Path("share").toUtf8());
  for (const char* model : {"0", "6"}) {
    const QString file = UserFile(QString("model%1.dat").arg(model));
    ASSERT_EQ(Run(Path("bin/orvane-cli"), {"new", "--model", model, "-o", file}).status, 0);
  }
  const QByteArray settings = Contents(UserFile("model6.dat"));
  const QByteArray snapshot =
      Contents(ORVANE_GOLDEN_DIR "/backups_1_0/20261125-120000-read-5-5203747B.orvsnap");
  Write(UserFile("marked.dat"), "\xEF\xBB\xBF" + settings);
  Write(UserFile("unix.dat"), QByteArray(settings).replace("\r\n", "\n"));
  Write(UserFile("no_ending"), settings);
  Write(UserFile("backup.orvsnap"), snapshot);
  Write(UserFile("backup"), snapshot);
  Write(UserFile("other.dat"), "[MAIN]\r\nMODEL=#KT740\r\nTYPE=#OTHER\r\n");
  Write(UserFile("later.dat"), "[MAIN]\r\n" + QByteArray(400, 'x') + "\r\nTYPE=#KIV\r\n");
  Write(UserFile("bytes.dat"), QByteArray::fromHex("00FF10800044"));
  const struct {
    const char* file;
    const char* type;  ///< null: not one of this program's
  } rows[] = {
      {"model0.dat", "application/x-orvane-settings"},
      {"model6.dat", "application/x-orvane-settings"},
      {"marked.dat", "application/x-orvane-settings"},
      {"unix.dat", "application/x-orvane-settings"},
      {"no_ending", "application/x-orvane-settings"},
      {"backup.orvsnap", "application/x-orvane-snapshot"},
      {"backup", "application/x-orvane-snapshot"},
      {"other.dat", nullptr},
      {"later.dat", nullptr},
      {"bytes.dat", nullptr},
  };
  const QStringList opened = Entry("MimeType").split(';', Qt::SkipEmptyParts);
  EXPECT_EQ(opened.size(), 2);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file);
    const QMimeType type = QMimeDatabase().mimeTypeForFile(UserFile(row.file));
    if (row.type == nullptr) {
      EXPECT_FALSE(opened.contains(type.name())) << type.name().toStdString();
      continue;
    }
    EXPECT_EQ(type.name(), row.type);
    EXPECT_TRUE(opened.contains(type.name()));
    EXPECT_TRUE(type.inherits("text/plain"));
    const QString icons = Path("share/icons/hicolor/");
    EXPECT_TRUE(QFile::exists(icons + "scalable/mimetypes/" + type.iconName() + ".svg"));
    EXPECT_TRUE(QFile::exists(icons + "16x16/mimetypes/" + type.iconName() + ".png"));
  }
}

TEST_F(Installed, EachIconIsAsLargeAsItsFolderSays) {
  const QDir theme(Path("share/icons/hicolor"));
  int icons = 0;
  for (const QString& folder : theme.entryList({"*x*"}, QDir::Dirs)) {
    const quint32 size = folder.section('x', 0, 0).toUInt();
    for (const char* context : {"apps", "mimetypes"}) {
      const QDir files(theme.filePath(folder + "/" + context));
      for (const QString& name : files.entryList({"*.png"}, QDir::Files)) {
        const QByteArray png = Contents(files.filePath(name));
        ASSERT_GT(png.size(), 24);  // width and height stand at 16 and 20
        EXPECT_EQ(qFromBigEndian<quint32>(png.constData() + 16), size) << name.toStdString();
        EXPECT_EQ(qFromBigEndian<quint32>(png.constData() + 20), size) << name.toStdString();
        ++icons;
      }
    }
  }
  EXPECT_EQ(icons, 24);
  EXPECT_TRUE(theme.exists("48x48/apps/" + Entry("Icon") + ".png"));
  EXPECT_TRUE(QFile::exists(Path("bin/" + Entry("TryExec"))));
}

}  // namespace
}  // namespace orvane
