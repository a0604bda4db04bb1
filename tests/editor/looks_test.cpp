#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QProxyStyle>
#include <QRadioButton>
#include <QScrollBar>
#include <QSet>
#include <QSplitter>
#include <QStyleFactory>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTableView>
#include <QToolBar>
#include <QToolTip>
#include <QWheelEvent>
#include <array>

#include "core/explanations.h"
#include "editor/contrast.h"
#include "editor/drawn_icon.h"
#include "editor/program_style.h"
#include "image/sample_radio.h"
#include "support/row.h"
#include "window_desk.h"

using namespace orvane;
using testing::Row;
using testing::WindowDesk;

namespace {

constexpr std::array kToolBarIcons = {"new", "open", "save", "print", "program", "read"};
constexpr std::array kPages = {"Usable",     "Common", "PU",         "PU32", "PW",
                               "LMRChannel", "L1",     "ExpChannel", "E9"};

QPalette Colours(QColor ground, QColor text, QColor highlight) {
  QPalette palette(ground, ground);
  for (const auto role : {QPalette::WindowText, QPalette::ButtonText}) palette.setColor(role, text);
  palette.setColor(QPalette::Highlight, highlight);
  return palette;
}

QImage Drawn(const char* icon, const QPalette& palette) {
  constexpr QSize kSize(96, 96);
  return editor::DrawnIcon(icon, palette).pixmap(kSize).toImage();
}

/// Where the icon has ink, whatever its colour.
QSet<int> InkOf(const QImage& image) {
  QSet<int> ink;
  for (int i = 0; i < image.width() * image.height(); ++i) {
    if (qAlpha(image.pixel(i % image.width(), i / image.width())) > 127) ink.insert(i);
  }
  return ink;
}

/// How much of two icons' ink is the same, 0 to 1.
double Likeness(const QImage& one, const QImage& other) {
  const QSet<int> a = InkOf(one);
  const QSet<int> b = InkOf(other);
  const auto common = static_cast<double>((QSet<int>(a) & b).size());
  return common / static_cast<double>((QSet<int>(a) | b).size());
}

/// The main window over a radio in use; the page of a node is on show.
struct LooksDesk : WindowDesk {
  explicit LooksDesk(int model = 5) : sample_model(model) {}
  void Open(const char* key) {
    if (window == nullptr) {
      settings.Write("ModelPath", "ModelNum", std::to_string(sample_model));
      Start();
      core::RadioData sample =
          image::MakeSampleRadio(static_cast<std::int16_t>(sample_model), clock.Today());
      data = sample;
      data.ExpPresent = true;
      ShowArranged();
    }
    window->SelectNode(QLatin1String(key));
    QCoreApplication::processEvents();
  }
  [[nodiscard]] editor::Page& Page() const {
    return *window->findChild<editor::PageArea*>()->Current();
  }
  [[nodiscard]] QTableView& Grid() const { return *Find<QTableView>("MSFlexGrid1"); }
  int sample_model;
};

template <class View>
QString ToolTipAt(View& view, const QModelIndex& index) {
  QToolTip::hideText();
  if (!QTest::qWaitFor([] { return !QToolTip::isVisible(); })) return QStringLiteral("stays");
  const QRect shown = view.visualRect(index) & view.viewport()->rect();
  QHelpEvent event(QEvent::ToolTip, shown.center(), view.viewport()->mapToGlobal(shown.center()));
  QCoreApplication::sendEvent(view.viewport(), &event);
  return QToolTip::isVisible() ? QToolTip::text() : QString();
}

/// The room that a control has for text, and the widest text it may show.
std::pair<int, int> RoomAndNeed(const QWidget& widget) {
  const QFontMetrics metrics(widget.font());
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) {
    QStyleOptionComboBox option;
    option.initFrom(list);
    option.editable = false;
    int need = 0;
    for (int i = 0; i < list->count(); ++i) {
      need = std::max(need, metrics.horizontalAdvance(list->itemText(i)));
    }
    return {list->style()
                ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, list)
                .width(),
            need};
  }
  if (const auto* box = qobject_cast<const QLineEdit*>(&widget)) {
    const QString longest = QString(std::max(1, std::min(box->maxLength(), 12)), QLatin1Char('0'));
    constexpr int kMargins = 4;
    QStyleOptionFrame option;
    option.initFrom(box);
    option.lineWidth = box->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, box);
    const int room =
        box->style()->subElementRect(QStyle::SE_LineEditContents, &option, box).width();
    return {room - kMargins, metrics.horizontalAdvance(longest)};
  }
  return {widget.width(), widget.minimumSizeHint().width()};
}

bool MayBeCut(const QWidget& widget) {
  return widget.isVisible() && (qobject_cast<const QLabel*>(&widget) != nullptr ||
                                qobject_cast<const QComboBox*>(&widget) != nullptr ||
                                qobject_cast<const QLineEdit*>(&widget) != nullptr ||
                                qobject_cast<const QCheckBox*>(&widget) != nullptr ||
                                qobject_cast<const QRadioButton*>(&widget) != nullptr);
}

}  // namespace

class LooksTest : public QObject {
  Q_OBJECT

 private slots:
  void DrawingsStandOutInEveryPalette() {
    const std::pair<const char*, QPalette> palettes[] = {
        {"as found", QApplication::palette()},
        {"dark", Colours(qRgb(45, 45, 48), qRgb(240, 240, 240), qRgb(42, 130, 218))},
        {"dark, highlight darker",
         Colours(qRgb(35, 38, 41), qRgb(252, 252, 252), qRgb(20, 60, 110))},
        {"light, highlight pale",
         Colours(qRgb(245, 245, 245), qRgb(30, 30, 30), qRgb(200, 220, 255))},
        {"text like its ground",
         Colours(qRgb(120, 120, 120), qRgb(125, 120, 120), qRgb(118, 118, 200))}};
    for (const auto& [name, palette] : palettes) {
      for (const char* icon : {"new", "open", "save", "print", "program", "read", "handheld",
                               "transfer", "computer"}) {
        const Row row(name, icon);
        const QImage image = Drawn(icon, palette);
        QSet<QRgb> inks;
        for (int i = 0; i < image.width() * image.height(); ++i) {
          const QColor pixel = image.pixelColor(i % image.width(), i / image.width());
          if (pixel.alpha() == 255) inks.insert(pixel.rgb());
        }
        QVERIFY(!inks.isEmpty());
        for (const QRgb ink : inks) {
          for (const auto ground : {QPalette::Window, QPalette::Button}) {
            QVERIFY(editor::ContrastOf(QColor(ink), palette.color(QPalette::Active, ground)) >=
                    2.99);
          }
        }
      }
    }
  }

  void ToolBarIconsAreToldApartByShape() {
    for (const char* one : kToolBarIcons) {
      for (const char* other : kToolBarIcons) {
        if (one == other) continue;
        const Row row(one, other);
        const QImage drawn = Drawn(one, QPalette());
        const QImage turned = Drawn(other, QPalette());
        for (const auto& seen : {turned, turned.mirrored(true, false), turned.mirrored(false, true),
                                 turned.mirrored(true, true)}) {
          QVERIFY(Likeness(drawn, seen) < 0.5);
        }
      }
    }
  }

  void ToolBarInPiecesLooksLikeAWholeOne() {
    QMainWindow window;
    QToolBar* const bar = window.addToolBar(QStringLiteral("Bar"));
    bar->setMovable(false);
    bar->addWidget(new QLabel(QStringLiteral("Of some height")));
    editor::ProgramStyle in_pieces;
    in_pieces.setBaseStyle(QStyleFactory::create(QStringLiteral("fusion")));
    QProxyStyle whole(QStringLiteral("fusion"));
    for (const int width : {300, 607, 640, 641}) {
      window.resize(width, 200);
      window.show();
      bar->setStyle(&whole);
      const QImage expected = bar->grab().toImage();
      bar->setStyle(&in_pieces);
      QCOMPARE(expected.width(), width);
      QCOMPARE(bar->grab().toImage(), expected);
    }
  }

  void EveryControlCaptionAndColumnIsExplained() {
    for (const int model : {0, 5}) {
      LooksDesk desk(model);
      for (const char* key : kPages) {
        const Row row(model, key);
        desk.Open(key);
        for (const QWidget* widget : desk.Page().findChildren<QWidget*>()) {
          const auto* caption = qobject_cast<const QLabel*>(widget);
          if (!MayBeCut(*widget) || (caption != nullptr && caption->buddy() == nullptr)) continue;
          QVERIFY2(!widget->toolTip().isEmpty(), qPrintable(widget->objectName()));
          for (const QString& line : widget->toolTip().split('\n')) QVERIFY(line.size() <= 60);
        }
        if (desk.PageName() != "pictB") continue;
        const QAbstractItemModel& grid = *desk.Grid().model();
        for (int i = 0; i < grid.columnCount(); ++i) {
          QVERIFY(!grid.headerData(i, Qt::Horizontal, Qt::ToolTipRole).toString().isEmpty());
        }
      }
      auto* power = desk.Find<QComboBox>("cmbCommonTXPo");
      QVERIFY(power->itemData(1, Qt::ToolTipRole).toString().startsWith("Low power on changing"));
    }
    QSet<QString> texts;
    for (const core::Explanation& row : core::Explanations()) {
      texts.insert(platform::FromUtf8(row.text));
    }
    QVERIFY(texts.size() >= static_cast<qsizetype>(core::Explanations().size()) - 1);
    QCOMPARE(core::ExplainControl("chkUsable_1"), core::ExplainWord("INTL"));
    QVERIFY(core::ExplainControl("").empty() && core::ExplainColumn("TOT").empty());
  }

  void CutTextsAreToldWhole() {
    LooksDesk desk;
    desk.Open("ExpChannel");
    editor::NavTree& tree = desk.Tree();
    tree.setMinimumWidth(0);
    desk.Find<QSplitter>("imgSplitter")->setSizes({90, 500});
    QCoreApplication::processEvents();
    const QModelIndex general = tree.model()->index(0, 0);
    QCOMPARE(ToolTipAt(tree, general.model()->index(0, 0, general)), "Available CH Group Setup");
    QCOMPARE(ToolTipAt(tree, general), QString());

    QTableView& grid = desk.Grid();
    const QAbstractItemModel& rows = *grid.model();
    int cut = -1;  // the column at the edge
    for (int i = 0; i < rows.columnCount(); ++i) {
      const QRect cell = grid.visualRect(rows.index(8, i));
      if (cell.left() < grid.viewport()->width() && cell.right() > grid.viewport()->width())
        cut = i;
    }
    QVERIFY(cut > 0);
    QCOMPARE(ToolTipAt(grid, rows.index(8, 0)), QString());
    QCOMPARE(ToolTipAt(grid, rows.index(8, cut)), rows.index(8, cut).data().toString());

    auto* hint = desk.Find<QLabel>("sbStatusBar_1");
    desk.window->ShowHint(QString(400, 'x'));
    QHelpEvent event(QEvent::ToolTip, {5, 5}, hint->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(hint, &event);
    QCOMPARE(QToolTip::text(), QString(400, 'x'));
  }

  void LastColumnsAreReachedByKeyAndWheel() {
    LooksDesk desk;
    desk.Open("PU");
    QTableView& grid = desk.Grid();
    const int last = grid.model()->columnCount() - 1;
    const auto shown = [&](int column) {
      const QRect cell = grid.visualRect(grid.model()->index(0, column));
      return grid.viewport()->rect().contains(cell);
    };
    const auto turn = [&](QPoint eighths, Qt::KeyboardModifiers keys) {
      QWheelEvent event(QPointF(9, 9), QPointF(9, 9), {}, eighths, Qt::NoButton, keys,
                        Qt::NoScrollPhase, false);
      for (int i = 0; i <= last; ++i) QCoreApplication::sendEvent(grid.viewport(), &event);
    };
    QVERIFY(shown(0) && !shown(last));
    grid.setFocus();
    QTest::keyClick(&grid, Qt::Key_End);
    QVERIFY(shown(last) && !shown(0));
    QTest::keyClick(&grid, Qt::Key_Home);
    QVERIFY(shown(0));
    for (int i = 0; i < last; ++i) QTest::keyClick(&grid, Qt::Key_Right);
    QVERIFY(shown(last));
    turn({0, 120}, Qt::ShiftModifier);
    QVERIFY(shown(0));
    turn({0, -120}, Qt::ShiftModifier);
    QVERIFY(shown(last));
    turn({120, 0}, {});
    QVERIFY(shown(0));
    turn({-120, 0}, {});
    QVERIFY(shown(last));
    QCOMPARE(grid.verticalScrollBar()->value(), 0);
  }

  void NothingIsCutInALargeFont() {
    const QFont usual = QApplication::font();
    for (const int percent : {100, 150, 200}) {
      QFont large = usual;
      large.setPointSizeF(usual.pointSizeF() * percent / 100);
      QApplication::setFont(large);
      LooksDesk desk;
      for (const char* key : kPages) {
        desk.Open(key);
        const editor::Page& page = desk.Page();
        QTRY_VERIFY(page.height() >= page.minimumSizeHint().height());
        for (const QWidget* widget : page.findChildren<QWidget*>()) {
          if (!MayBeCut(*widget) || widget->parentWidget() == nullptr) continue;
          const Row row(percent, key, widget->objectName());
          const auto [room, need] = RoomAndNeed(*widget);
          QVERIFY2(room >= need, qPrintable(QString("%1 < %2").arg(room).arg(need)));
          QVERIFY(widget->height() >= widget->minimumSizeHint().height());
          QVERIFY(page.rect().contains(QRect(widget->mapTo(&page, QPoint()), widget->size())));
        }
      }
      const QTableView& grid = desk.Grid();
      for (int i = 0; i < grid.model()->columnCount(); ++i) {
        QVERIFY(grid.columnWidth(i) >= grid.horizontalHeader()->sectionSizeHint(i));
      }
      QVERIFY(grid.rowHeight(0) >= QFontMetrics(large).height());
    }
    QApplication::setFont(usual);
  }
};

QTEST_MAIN(LooksTest)
#include "looks_test.moc"
