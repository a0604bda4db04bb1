#include "help/help_window.h"

#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QHelpLink>
#include <QLineEdit>
#include <QShortcut>
#include <QSplitter>
#include <QStyle>
#include <QVBoxLayout>
#include <utility>

namespace orvane::help {
namespace {

constexpr QSize kFirstSize(900, 640);
constexpr int kListWidth = 270;

}  // namespace

HelpWindow::HelpWindow(std::unique_ptr<HelpLibrary> library)
    : library_(std::move(library)),
      tabs_(new QTabWidget(this)),
      browser_(new HelpBrowser(*library_, this)) {
  setObjectName(QStringLiteral("frmHelp"));
  setContextMenuPolicy(Qt::PreventContextMenu);
  tabs_->setObjectName(QStringLiteral("tabHelp"));
  tabs_->addTab(BuildContents(), tr("&Contents"));
  tabs_->addTab(BuildIndex(), tr("&Index"));
  tabs_->addTab(BuildSearch(), tr("&Search"));
  auto* splitter = new QSplitter(this);
  splitter->setChildrenCollapsible(false);
  splitter->addWidget(tabs_);
  splitter->addWidget(browser_);
  splitter->setStretchFactor(1, 1);
  setCentralWidget(splitter);
  BuildToolBar();
  BuildSizeKeys();
  connect(browser_, &QTextBrowser::sourceChanged, this, [this] {
    setWindowTitle(browser_->documentTitle() + tr(" - Help"));
    MarkPage();
  });
  resize(kFirstSize);
  splitter->setSizes({kListWidth, kFirstSize.width() - kListWidth});
}

// The lists of the help engine are children of this window; they go while the engine still lives.
HelpWindow::~HelpWindow() {
  delete takeCentralWidget();
}

QAction* HelpWindow::AddTool(QToolBar& bar, const char* name, const QString& caption,
                             const QKeySequence& shortcut) {
  QAction* tool = bar.addAction(caption);
  tool->setObjectName(QLatin1String(name));
  tool->setShortcut(shortcut);
  tool->setToolTip(caption +
                   QStringLiteral(" (%1)").arg(shortcut.toString(QKeySequence::NativeText)));
  return tool;
}

void HelpWindow::BuildToolBar() {
  QToolBar& bar = *addToolBar(tr("Help"));
  bar.setObjectName(QStringLiteral("tbHelp"));
  bar.setMovable(false);
  bar.setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  QAction* back = AddTool(bar, "back", tr("Back"), Qt::ALT | Qt::Key_Left);
  back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
  back->setEnabled(false);
  connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
  connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
  QAction* forward = AddTool(bar, "forward", tr("Forward"), Qt::ALT | Qt::Key_Right);
  forward->setIcon(style()->standardIcon(QStyle::SP_ArrowForward));
  forward->setEnabled(false);
  connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
  connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
  QAction* search = AddTool(bar, "search", tr("Search"), Qt::CTRL | Qt::Key_F);
  search->setIcon(style()->standardIcon(QStyle::SP_FileDialogContentsView));
  connect(search, &QAction::triggered, this, [this] {
    tabs_->setCurrentWidget(search_);
    search_->Begin();
  });
}

QWidget* HelpWindow::BuildContents() {
  QHelpContentWidget* contents = library_->Engine().contentWidget();
  contents->setObjectName(QStringLiteral("tvHelpContents"));
  contents->setAccessibleName(tr("Contents"));
  contents->setHeaderHidden(true);
  connect(contents, &QHelpContentWidget::linkActivated, this, &HelpWindow::GoTo);
  QHelpContentModel* const model = library_->Engine().contentModel();
  connect(contents, &QAbstractItemView::clicked, this, [this, model](const QModelIndex& row) {
    if (const QHelpContentItem* item = model->contentItemAt(row)) GoTo(item->url());
  });
  // The list fills some time after the window was made.
  connect(model, &QHelpContentModel::contentsCreated, this, [this, contents] {
    contents->expandAll();
    MarkPage();
  });
  return contents;
}

QWidget* HelpWindow::BuildIndex() {
  auto* page = new QWidget(this);
  auto* filter = new QLineEdit(page);
  filter->setObjectName(QStringLiteral("txtHelpIndex"));
  filter->setAccessibleName(tr("Word to look up"));
  filter->setPlaceholderText(tr("Word to look up"));
  filter->setClearButtonEnabled(true);
  QHelpIndexWidget* list = library_->Engine().indexWidget();
  list->setObjectName(QStringLiteral("lstHelpIndex"));
  list->setAccessibleName(tr("Index"));
  auto* column = new QVBoxLayout(page);
  column->addWidget(filter);
  column->addWidget(list, 1);
  connect(filter, &QLineEdit::textChanged, list,
          [list](const QString& text) { list->filterIndices(text); });
  connect(filter, &QLineEdit::returnPressed, list, &QHelpIndexWidget::activateCurrentItem);
  connect(list, &QAbstractItemView::clicked, list, &QHelpIndexWidget::activateCurrentItem);
  connect(list, &QHelpIndexWidget::documentActivated, this,
          [this](const QHelpLink& link) { GoTo(link.url); });
  connect(list, &QHelpIndexWidget::documentsActivated, this,
          [this](const QList<QHelpLink>& links) { GoTo(links.constFirst().url); });
  return page;
}

QWidget* HelpWindow::BuildSearch() {
  search_ = new HelpSearch(*library_->Engine().searchEngine(), this);
  connect(search_, &HelpSearch::PageChosen, this, [this](const QUrl& page, const QString& word) {
    GoTo(page);
    browser_->moveCursor(QTextCursor::Start);
    browser_->find(word);
  });
  return search_;
}

void HelpWindow::BuildSizeKeys() {
  const auto on_key = [this](const QKeySequence& key, auto action) {
    connect(new QShortcut(key, this), &QShortcut::activated, browser_, action);
  };
  on_key(QKeySequence::ZoomIn, [this] { browser_->zoomIn(); });
  on_key(QKeySequence::ZoomOut, [this] { browser_->zoomOut(); });
  connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
}

bool HelpWindow::ShowTopic(int context) {
  const QUrl topic = library_->TopicOf(context);
  if (!topic.isValid()) return false;
  GoTo(topic);
  browser_->ShowTopic();  // also when it is on show, scrolled away
  return true;
}

void HelpWindow::ComeToFront() {
  if (isMinimized()) showNormal();
  show();
  raise();
  activateWindow();
  browser_->setFocus();
}

void HelpWindow::MarkPage() {
  QHelpContentWidget* const contents = library_->Engine().contentWidget();
  QUrl page = browser_->source();
  QModelIndex row = contents->indexOf(page);
  if (!row.isValid()) {
    page.setFragment({});
    row = contents->indexOf(page);
  }
  if (row.isValid()) contents->setCurrentIndex(row);
}

}  // namespace orvane::help
