#include "platform/printed_report.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>
#include <cmath>
#include <map>
#include <vector>

#include "files/printed_pages.h"
#include "platform/ansi_text.h"
#include "support/full_data.h"

namespace orvane::platform {
namespace {

constexpr double kRounding = 0.01;  // mm
constexpr core::Date kToday{std::chrono::year{2026}, std::chrono::month{6}, std::chrono::day{5}};

/// Notes where texts land on the paper.
class TextRecorder : public QPaintEngine {
 public:
  struct Text {
    int page;
    QPointF baseline;  // dots from the paper's corner
    QFont font;
    QString text;
  };
  TextRecorder() : QPaintEngine(AllFeatures) {}
  bool begin(QPaintDevice* /*device*/) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState& now) override {
    if (now.state().testFlag(DirtyTransform)) transform_ = now.transform();
  }
  void drawPixmap(const QRectF& /*to*/, const QPixmap& /*pixmap*/,
                  const QRectF& /*from*/) override {}
  void drawTextItem(const QPointF& at, const QTextItem& item) override {
    texts.push_back({page, transform_.map(at), item.font(), item.text()});
  }
  [[nodiscard]] Type type() const override { return User; }

  int page = 0;
  std::vector<Text> texts;

 private:
  QTransform transform_;
};

/// A paper of which nothing but the texts is kept.
class Paper : public QPdfWriter {
 public:
  explicit Paper(QIODevice* unused) : QPdfWriter(unused) {}
  bool newPage() override {
    ++recorder.page;
    return recorder.page < pages_before_failure;
  }
  mutable TextRecorder recorder;
  int pages_before_failure = 1000;

 protected:
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &recorder; }
};

class PrintedReport : public ::testing::TestWithParam<QPageLayout> {
 protected:
  PrintedReport() {
    buffer_.open(QIODevice::WriteOnly);
    paper_.setPageLayout(GetParam());
  }
  [[nodiscard]] double Mm(double dots) const { return dots / paper_.resolution() * 25.4; }

  QBuffer buffer_;
  Paper paper_{&buffer_};
  core::RadioData data_ = testing::FullData(5);
};

/// Without a font Qt paints boxes instead of characters and calls that success. The fonts of a
/// process cannot be taken from it: the test runs once more, where there are none.
TEST(PrintedReportWithoutFonts, IsRefusedAndTheRemedyNamed) {
  if (!qEnvironmentVariableIsSet("ORVANE_TEST_WITHOUT_FONTS")) {
    QTemporaryDir folder;
    QFile config(folder.filePath("fonts.conf"));
    ASSERT_TRUE(config.open(QIODevice::WriteOnly));
    config.write("<fontconfig></fontconfig>");
    config.close();
    QProcess again;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("FONTCONFIG_FILE", config.fileName());
    environment.insert("ORVANE_TEST_WITHOUT_FONTS", "1");
    again.setProcessEnvironment(environment);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=PrintedReportWithoutFonts.*"});
    ASSERT_TRUE(again.waitForFinished());
    EXPECT_EQ(again.exitCode(), 0) << again.readAll().toStdString();
    return;
  }
  const core::FileBytes pdf = PdfReport(testing::FullData(5), {{}, kToday});
  ASSERT_TRUE(pdf.error);
  EXPECT_NE(pdf.error->description.find("fonts-dejavu-core"), std::string::npos);
  EXPECT_TRUE(pdf.bytes.empty());
}

TEST_P(PrintedReport, TextsStandWhereThePagesPlaceThem) {
  ASSERT_FALSE(PaintReport(data_, {{}, kToday}, paper_));
  const double height = GetParam().fullRect(QPageLayout::Millimeter).height();
  const auto pages = files::BuildPrintedPages(data_, files::LinesPerPage(height), {{}, kToday});
  const auto& painted = paper_.recorder.texts;
  const QPointF shift = GetParam().mode() == QPageLayout::FullPageMode
                            ? QPointF()
                            : GetParam().margins(QPageLayout::Millimeter).left() * QPointF(1, 0) +
                                  GetParam().margins(QPageLayout::Millimeter).top() * QPointF(0, 1);
  std::size_t next = 0;
  for (std::size_t page = 0; page < pages.size(); ++page) {
    for (const files::PlacedText& placed : pages[page].texts) {
      ASSERT_LT(next, painted.size());
      const TextRecorder::Text& text = painted[next++];
      EXPECT_EQ(text.text, FromAnsi(placed.text));
      EXPECT_EQ(text.page, static_cast<int>(page));
      const double top = files::kPrintTopMm + placed.line * files::kPrintLineMm;
      const double ascent = Mm(QFontMetricsF(text.font, &paper_).ascent());
      EXPECT_NEAR(Mm(text.baseline.x()) + shift.x(), placed.x_mm, 0.05) << placed.text;
      EXPECT_NEAR(Mm(text.baseline.y()) + shift.y(), top + ascent, 0.05) << placed.text;
    }
    for (const std::string& footer : {pages[page].footer_left, pages[page].footer_right}) {
      ASSERT_LT(next, painted.size());
      const TextRecorder::Text& text = painted[next++];
      EXPECT_EQ(text.text, FromUtf8(footer));
      const double left = Mm(text.baseline.x()) + shift.x();
      const double width = Mm(QFontMetricsF(text.font, &paper_).horizontalAdvance(text.text));
      if (footer == pages[page].footer_left) {
        EXPECT_NEAR(left, files::kPrintLeftMm, 0.05);
      } else {
        EXPECT_NEAR(left + width, files::kPrintRightMm, 0.05);
      }
      EXPECT_GT(Mm(text.baseline.y()) + shift.y(), height - files::kPrintBottomMm);
    }
  }
  EXPECT_EQ(next, painted.size());
}

// With the font that really paints, which may be another than the one asked for.
TEST_P(PrintedReport, NoTextReachesTheNextOrLeavesThePaper) {
  ASSERT_FALSE(PaintReport(data_, {{}, kToday}, paper_));
  const QRectF paper = GetParam().fullRect(QPageLayout::Millimeter);
  using Line = std::map<double, double>;  // left to right edge
  std::map<std::pair<int, double>, Line> lines;
  for (const TextRecorder::Text& text : paper_.recorder.texts) {
    const QFontMetricsF metrics(text.font, &paper_);
    const double left = Mm(text.baseline.x());
    EXPECT_LT(Mm(text.baseline.y() + metrics.descent()), paper.height());
    EXPECT_LE(Mm(metrics.height()), files::kPrintLineMm);
    lines[{text.page, text.baseline.y()}][left] = left + Mm(metrics.horizontalAdvance(text.text));
  }
  for (const auto& [place, line] : lines) {
    double end = -kRounding;
    for (const auto& [left, right] : line) {
      EXPECT_GE(left, end - kRounding) << "page " << place.first;
      end = right;
    }
    EXPECT_LE(end, paper.width());
  }
}

TEST_P(PrintedReport, DeviceThatTakesNoMorePagesIsAFailure) {
  paper_.pages_before_failure = 2;
  EXPECT_TRUE(PaintReport(data_, {{}, kToday}, paper_));
}

INSTANTIATE_TEST_SUITE_P(
    Papers, PrintedReport,
    ::testing::Values(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF()),
                      QPageLayout(QPageSize(QPageSize::Letter), QPageLayout::Portrait,
                                  QMarginsF(10, 5, 10, 10), QPageLayout::Millimeter)));

}  // namespace
}  // namespace orvane::platform
