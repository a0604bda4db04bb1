#include <QAction>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>

#include "editor/comparison_window.h"
#include "editor/dialog_parts.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(860, 600);
constexpr int kNameWidth = 320;
constexpr int kValueWidth = 240;
constexpr int kRefusalLines = 5;  // on show

}  // namespace

QString ComparisonWindow::NameOf(const char* prefix, Side side) {
  return QLatin1String(prefix) + (side == kLeft ? QLatin1String("Left") : QLatin1String("Right"));
}

void ComparisonWindow::Build() {
  setObjectName(QStringLiteral("frmComparison"));
  setWindowTitle(tr("Comparison"));
  setAttribute(Qt::WA_DeleteOnClose);
  BuildSides();
  BuildFilter();
  BuildList();
  BuildRefusals();
  BuildTakeButtons();
  BuildListButtons();
  resize(kFirstSize);
}

QBoxLayout& ComparisonWindow::AddRow() {
  auto* row = new QHBoxLayout;
  column_->addLayout(row);
  return *row;
}

void ComparisonWindow::BuildSides() {
  QBoxLayout& row = AddRow();
  for (const Side side : kSides) {
    side_buttons_[side] =
        AddButton(*this, row, NameOf("cmd", side).toLatin1().constData(), QString());
    side_buttons_[side]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    AddMenu(side);
  }
}

void ComparisonWindow::AddMenu(Side side) {
  auto* menu = new QMenu(side_buttons_[side]);
  menu->setToolTipsVisible(true);
  const auto add = [&](const char* name, const QString& caption, auto command) {
    QAction* const item = menu->addAction(caption);
    item->setObjectName(NameOf("mnu", side) + QLatin1String(name));
    connect(item, &QAction::triggered, this, command);
    return item;
  };
  add("OpenData", tr("&Open Data"), [this, side] { ChooseOpenData(side); });
  add("File", tr("&File..."), [this, side] { Choose(side, sources_.AskFile()); });
  QAction* const backup =
      add("Backup", tr("&Backup..."), [this, side] { Choose(side, sources_.AskBackup(*this)); });
  backup->setEnabled(sources_.WhyNoBackups().isEmpty());
  backup->setToolTip(sources_.WhyNoBackups());
  add("Radio", tr("&Radio..."), [this, side] {
    ChooseRadio(side);
  })->setToolTip(tr("Reads the radio into a copy; nothing is changed"));
  side_buttons_[side]->setMenu(menu);
}

void ComparisonWindow::BuildFilter() {
  QBoxLayout& row = AddRow();
  auto* caption = new QLabel(tr("&Filter:"), this);
  filter_ = new QLineEdit(this);
  filter_->setObjectName(QStringLiteral("txtFilter"));
  filter_->setClearButtonEnabled(true);
  filter_->setPlaceholderText(tr("words of group, channel, field or value"));
  caption->setBuddy(filter_);
  differences_only_ = new QCheckBox(tr("&Differences only"), this);
  differences_only_->setObjectName(QStringLiteral("chkDifferencesOnly"));
  differences_only_->setToolTip(tr("Without the tick all fields are listed, what differs in bold"));
  differences_only_->setChecked(true);
  row.addWidget(caption);
  row.addWidget(filter_);
  row.addWidget(differences_only_);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& words) {
    model_->SetFilter(words);
    view_->Unfold();
    view_->scrollToTop();
    ShowVerdict();
    FollowSelection();
  });
  connect(filter_, &QLineEdit::returnPressed, view_, qOverload<>(&QWidget::setFocus));
  connect(differences_only_, &QCheckBox::toggled, this, [this](bool only) {
    const ComparisonView::Place place = view_->Keep();
    model_->SetListed(only ? document::Listed::kDifferences : document::Listed::kAll);
    view_->Restore(place);
    FollowSelection();
  });
}

void ComparisonWindow::BuildList() {
  verdict_ = new LiveLabel(this);
  verdict_->setObjectName(QStringLiteral("lblVerdict"));
  verdict_->setWordWrap(true);
  QFont bold = verdict_->font();
  bold.setBold(true);
  verdict_->setFont(bold);
  column_->addWidget(verdict_);
  view_->setObjectName(QStringLiteral("lstDifferences"));
  view_->setAccessibleName(tr("Differences"));
  view_->header()->resizeSection(ComparisonModel::kField, kNameWidth);
  view_->header()->resizeSection(ComparisonModel::kLeft, kValueWidth);
  column_->addWidget(view_, 1);
  auto* copy = new QAction(tr("Copy"), view_);
  copy->setShortcut(QKeySequence::Copy);
  copy->setShortcutContext(Qt::WidgetShortcut);
  view_->addAction(copy);
  connect(copy, &QAction::triggered, this, &ComparisonWindow::CopyRows);
  connect(view_, &ComparisonView::SelectionChanged, this, &ComparisonWindow::FollowSelection);
  connect(view_, &QTreeView::activated, this, &ComparisonWindow::ShowField);
}

void ComparisonWindow::BuildRefusals() {
  taken_ = new QWidget(this);
  auto* column = new QVBoxLayout(taken_);
  column->setContentsMargins({});
  taken_text_ = new LiveLabel(taken_);
  taken_text_->setObjectName(QStringLiteral("lblTaken"));
  taken_text_->setWordWrap(true);
  column->addWidget(taken_text_);
  refusals_ = new QTreeWidget(taken_);
  refusals_->setObjectName(QStringLiteral("lstRefusals"));
  refusals_->setAccessibleName(tr("Refused"));
  refusals_->setHeaderLabels({tr("Refused"), tr("Why")});
  refusals_->setRootIsDecorated(false);
  refusals_->setAllColumnsShowFocus(true);
  refusals_->header()->resizeSection(0, kNameWidth);
  refusals_->setFixedHeight(kRefusalLines * fontMetrics().lineSpacing() +
                            refusals_->header()->sizeHint().height());
  column->addWidget(refusals_);
  column_->addWidget(taken_);
  taken_->hide();
}

void ComparisonWindow::BuildTakeButtons() {
  QBoxLayout& row = AddRow();
  const std::array<QString, kSides.size()> captions = {tr("&Take to the Left"),
                                                       tr("Take to the Ri&ght")};
  for (const Side side : kSides) {
    take_buttons_[side] =
        AddButton(*this, row, NameOf("cmdTake", side).toLatin1().constData(), captions[side]);
    connect(take_buttons_[side], &QPushButton::clicked, this, [this, side] { TakeInto(side); });
  }
  row.addStretch();
  const auto add = [&](const char* name, const QString& caption, const QKeySequence& key,
                       const QString& tip, bool forward) {
    QPushButton* const button = AddButton(*this, row, name, caption);
    // As a button's own it would take the place of the letter in its caption.
    auto* command = new QAction(button);
    command->setShortcut(key);
    addAction(command);
    button->setToolTip(tip.arg(key.toString(QKeySequence::NativeText)));
    const auto go = [this, forward] { GoToDifference(forward); };
    connect(button, &QPushButton::clicked, this, go);
    connect(command, &QAction::triggered, this, go);
    return button;
  };
  previous_ = add("cmdPrevious", tr("&Previous Difference"), QKeySequence(Qt::SHIFT | Qt::Key_F3),
                  tr("Selects the field before that differs (%1)"), false);
  next_ = add("cmdNext", tr("&Next Difference"), QKeySequence(Qt::Key_F3),
              tr("Selects the next field that differs (%1)"), true);
}

void ComparisonWindow::BuildListButtons() {
  QBoxLayout& row = AddRow();
  row.addStretch();
  const auto add = [&](const char* name, const QString& caption, auto command) {
    QPushButton* const button = AddButton(*this, row, name, caption);
    connect(button, &QPushButton::clicked, this, command);
    return button;
  };
  add("cmdSaveAs", tr("Save &As..."), &ComparisonWindow::SaveList)
      ->setToolTip(tr("The list as it is shown, as a text that spreadsheets read"));
  add("cmdCopy", tr("C&opy"), &ComparisonWindow::CopyRows)
      ->setToolTip(tr("The selected rows; all of them while none is selected"));
  add("cmdPrint", tr("Pr&int..."), &ComparisonWindow::PrintList)
      ->setToolTip(tr("The list as it is shown"));
  add("cmdClose", tr("&Close"), &QDialog::close);
}

}  // namespace orvane::editor
