// screenshots FOLDER: one picture of each page of the real window, over the contents of a radio
// in use. packaging/screenshots.sh runs it.

#include <QApplication>
#include <QDir>
#include <QTextStream>
#include <array>

#include "core/model_profile.h"
#include "image/sample_radio.h"
#include "window_desk.h"

namespace {

using namespace orvane;

struct Shot {
  const char* key;   // node of the navigation tree
  const char* file;  // picture without its extension
};
constexpr std::array kShots = {
    Shot{"General", "general"},         Shot{"Usable", "channel-groups"},
    Shot{"Common", "common-settings"},  Shot{"PU", "marine-channels"},
    Shot{"PU32", "marine-channel"},     Shot{"PW", "weather"},
    Shot{"LMRChannel", "lmr-channels"}, Shot{"L1", "lmr-channel"},
    Shot{"ExpChannel", "exp-channels"}, Shot{"E9", "exp-channel"},
};
constexpr QSize kWindowSize(900, 600);

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  const QStringList words = QApplication::arguments();
  if (words.size() != 2) {
    QTextStream(stderr) << "usage: screenshots FOLDER\n";
    return 2;
  }
  orvane::testing::WindowDesk desk;
  editor::WindowServices services = desk.Services();
  services.data_folder = platform::ToUtf8(QApplication::applicationDirPath());  // the logo
  desk.window = std::make_unique<editor::MainWindow>(services);
  desk.window->show();
  if (!QTest::qWaitFor([&] { return desk.window->isEnabled(); })) return 1;
  core::RadioData sample = image::MakeSampleRadio(core::kDefaultModelType, desk.clock.Today());
  sample.ProductName = desk.data.ProductName;
  sample.ProgramTitle = desk.data.ProgramTitle;
  desk.data = sample;
  desk.window->RefreshAfterLoad();
  desk.window->resize(kWindowSize);
  for (const Shot& shot : kShots) {
    desk.window->SelectNode(QLatin1String(shot.key));
    QTest::qWait(0);
    const QString path = QDir(words[1]).filePath(QLatin1String(shot.file) + ".png");
    if (!desk.window->grab().save(path)) {
      QTextStream(stderr) << "cannot write " << path << "\n";
      return 1;
    }
  }
  return 0;
}
