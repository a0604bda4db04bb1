#include "editor/report_window.h"

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <optional>

#include "core/messages.h"
#include "core/product.h"
#include "editor/working.h"
#include "files/text_report.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(558, 409);
constexpr std::chrono::milliseconds kWindowPaints{10};
constexpr const char* kWaitingText = "Now, making text image. Please wait...";
constexpr const char* kFilter = "Text files(*.txt)|*.txt|All files(*.*)|*.*";
constexpr const char* kLineEnd = "\r\n";

}  // namespace

ReportWindow::ReportWindow(const WindowServices& services, CommandHost& host)
    : QDialog(&host.Widget()),
      services_(services),
      state_(services.state),
      host_(host),
      text_(new QPlainTextEdit(QLatin1String(kWaitingText), this)),
      timer_(new QTimer(this)) {
  setObjectName(QStringLiteral("frmPrn"));
  setWindowTitle(QStringLiteral("Print to File"));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  setModal(true);

  text_->setObjectName(QStringLiteral("txtPrn"));
  text_->setAccessibleName(tr("Report"));
  text_->setReadOnly(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text_->setLineWrapMode(QPlainTextEdit::NoWrap);
  normal_font_ = QFont(QStringLiteral("Courier New"), font().pointSize());
  normal_font_.setStyleHint(QFont::TypeWriter);
  normal_font_.setFixedPitch(true);
  text_->setFont(normal_font_);
  // What was found is marked while the search text has the focus.
  QPalette marked = text_->palette();
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText}) {
    marked.setBrush(QPalette::Inactive, role, marked.brush(QPalette::Active, role));
  }
  text_->setPalette(marked);

  auto* ok = new QPushButton(tr("OK"), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setAutoDefault(false);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);

  auto* all = new QVBoxLayout(this);
  all->setMenuBar(BuildMenus());
  all->addWidget(text_, 1);
  all->addWidget(BuildFindBar());
  all->addWidget(ok, 0, Qt::AlignHCenter);
  resize(kFirstSize);

  timer_->setObjectName(QStringLiteral("Timer1"));
  timer_->setSingleShot(true);
  timer_->setInterval(kWindowPaints);
  connect(timer_, &QTimer::timeout, this, &ReportWindow::BuildReport);
}

QMenuBar* ReportWindow::BuildMenus() {
  auto* bar = new QMenuBar(this);
  const auto add = [](QMenu& menu, const char* name, const QString& caption,
                      const QKeySequence& shortcut) {
    QAction* item = menu.addAction(caption);
    item->setObjectName(QLatin1String(name));
    item->setShortcut(shortcut);
    return item;
  };
  QMenu& file = *bar->addMenu(QStringLiteral("&File"));
  connect(add(file, "mnuFileSave", QStringLiteral("&Save As..."), Qt::CTRL | Qt::Key_S),
          &QAction::triggered, this, &ReportWindow::SaveAs);
  connect(add(file, "mnuFileExit", QStringLiteral("&Exit"), {}), &QAction::triggered, this,
          &QDialog::accept);

  QMenu& edit = *bar->addMenu(tr("&Edit"));
  connect(add(edit, "mnuEditCopyAll", tr("&Copy All"), Qt::CTRL | Qt::SHIFT | Qt::Key_C),
          &QAction::triggered, this, &ReportWindow::CopyAll);
  connect(add(edit, "mnuEditFind", tr("&Find..."), Qt::CTRL | Qt::Key_F), &QAction::triggered, this,
          &ReportWindow::ShowFindBar);
  connect(add(edit, "mnuEditFindNext", tr("Find &Next"), Qt::Key_F3), &QAction::triggered, this,
          [this] { Find({}); });
  connect(add(edit, "mnuEditFindPrevious", tr("Find &Previous"), Qt::SHIFT | Qt::Key_F3),
          &QAction::triggered, this, [this] { Find(QTextDocument::FindBackward); });

  QMenu& view = *bar->addMenu(tr("&View"));
  connect(add(view, "mnuViewZoomIn", tr("Zoom &In"), QKeySequence::ZoomIn), &QAction::triggered,
          text_, [this] { text_->zoomIn(); });
  connect(add(view, "mnuViewZoomOut", tr("Zoom &Out"), QKeySequence::ZoomOut), &QAction::triggered,
          text_, [this] { text_->zoomOut(); });
  connect(add(view, "mnuViewZoomNormal", tr("&Normal Size"), Qt::CTRL | Qt::Key_0),
          &QAction::triggered, this, &ReportWindow::ResetZoom);
  return bar;
}

QWidget* ReportWindow::BuildFindBar() {
  find_bar_ = new QWidget(this);
  find_bar_->setObjectName(QStringLiteral("pictFind"));
  find_text_ = new QLineEdit(find_bar_);
  find_text_->setObjectName(QStringLiteral("txtFind"));
  find_text_->setAccessibleName(tr("Text to find"));
  find_text_->setClearButtonEnabled(true);
  auto* caption = new QLabel(tr("Fin&d:"), find_bar_);
  caption->setBuddy(find_text_);
  auto* row = new QHBoxLayout(find_bar_);
  row->setContentsMargins({});
  row->addWidget(caption);
  row->addWidget(find_text_, 1);
  const auto add = [&](const char* name, Qt::ArrowType arrow, const QString& tool_tip,
                       QTextDocument::FindFlags direction) {
    auto* button = new QToolButton(find_bar_);
    button->setObjectName(QLatin1String(name));
    button->setArrowType(arrow);
    button->setToolTip(tool_tip);
    button->setAccessibleName(tool_tip);
    row->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, direction] { Find(direction); });
  };
  add("cmdFindPrevious", Qt::UpArrow, tr("Find previous"), QTextDocument::FindBackward);
  add("cmdFindNext", Qt::DownArrow, tr("Find next"), {});
  found_ = new QLabel(find_bar_);
  found_->setObjectName(QStringLiteral("lblFind"));
  row->addWidget(found_);
  connect(find_text_, &QLineEdit::textChanged, found_, &QLabel::clear);
  find_bar_->hide();
  return find_bar_;
}

void ReportWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (report_.empty()) timer_->start();
}

void ReportWindow::closeEvent(QCloseEvent* event) {
  if (!isEnabled()) {
    event->ignore();
    return;
  }
  QDialog::closeEvent(event);
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
  const bool finding = find_text_->hasFocus();
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (finding) {
        Find({});
      } else if (auto* button = qobject_cast<QAbstractButton*>(focusWidget())) {
        button->click();
      }
      return;
    case Qt::Key_Escape:
      if (!find_bar_->isHidden()) {
        HideFindBar();
        return;
      }
      [[fallthrough]];
    default:
      QDialog::keyPressEvent(event);
  }
}

void ReportWindow::BuildReport() {
  {
    const Working working(*this);
    report_ = files::BuildTextReport(services_.document.Data());
    text_->setPlainText(platform::FromAnsi(report_));
    FitWidth();
    host_.Wait(kCommandPause);
  }
  text_->setFocus();
}

// The first size is too narrow for most reports; the screen's width is the limit.
void ReportWindow::FitWidth() {
  if (isMaximized()) return;
  // The box lays out, and measures, only the lines that it shows.
  double longest = 0;
  const QFontMetricsF metrics(text_->font());
  for (const QString& line : text_->toPlainText().split(QLatin1Char('\n'))) {
    longest = std::max(longest, metrics.horizontalAdvance(line));
  }
  const int scroll_bar =
      text_->verticalScrollBar()->isVisible() ? 0 : text_->verticalScrollBar()->sizeHint().width();
  const int around = width() - text_->viewport()->width() + scroll_bar;
  const int wanted =
      static_cast<int>(std::ceil(longest + 2 * text_->document()->documentMargin())) + around;
  const QRect room = screen()->availableGeometry();
  const int fitting = std::clamp(wanted, width(), std::max(width(), room.width()));
  resize(fitting, height());
  move(std::clamp(x(), room.left(), std::max(room.left(), room.right() + 1 - frameSize().width())),
       y());
}

void ReportWindow::SaveAs() {
  const std::string path =
      services_.dialogs.AskSave({.filter = kFilter, .folder = services_.program_folder})
          .value_or(std::string());
  if (path.empty()) {
    state_.Cancel = true;
    return;
  }
  state_.Error = false;
  std::optional<core::SystemError> failure;
  {
    const Working working(*this);
    failure = services_.files.WriteFile(path, report_ + kLineEnd);
    if (!failure) host_.Wait(kCommandPause);
  }
  if (!failure) return;
  state_.Error = true;
  services_.prompts.Show(core::MakeMessage(
      core::MessageId::kReportSave,
      image::ModelName(services_.document.Data()) + " " + std::string(core::kProgramTitle),
      {{"reason", failure->description}, {"path", path}}));
  state_.Cancel = true;
}

void ReportWindow::CopyAll() {
  QGuiApplication::clipboard()->setText(text_->toPlainText());
}

void ReportWindow::ShowFindBar() {
  find_bar_->show();
  const QString selected = text_->textCursor().selectedText();
  if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) {
    find_text_->setText(selected);
  }
  find_text_->setFocus();
  find_text_->selectAll();
}

void ReportWindow::HideFindBar() {
  find_bar_->hide();
  text_->setFocus();
}

// Goes on from the other end where nothing more is found.
void ReportWindow::Find(QTextDocument::FindFlags direction) {
  const QString wanted = find_text_->text();
  if (wanted.isEmpty()) {
    ShowFindBar();
    return;
  }
  found_->clear();
  if (text_->find(wanted, direction)) return;
  const QTextCursor before = text_->textCursor();
  text_->moveCursor(direction == QTextDocument::FindBackward ? QTextCursor::End
                                                             : QTextCursor::Start);
  if (text_->find(wanted, direction)) return;
  text_->setTextCursor(before);
  find_bar_->show();  // Find Next may come from the menu
  found_->setText(tr("Not found"));
  QAccessibleEvent told(found_, QAccessible::Alert);
  QAccessible::updateAccessibility(&told);
  QApplication::beep();
}

void ReportWindow::ResetZoom() {
  text_->setFont(normal_font_);
}

}  // namespace orvane::editor
