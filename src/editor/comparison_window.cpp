#include "editor/comparison_window.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "core/catalogue.h"
#include "editor/dialog_parts.h"
#include "editor/save_as.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(640, 420);
constexpr int kNameShare = 2;  ///< of the names' width against a value's, in halves

QString VerdictText(const document::Comparison& comparison, const ComparisonWindow::Names& names) {
  if (comparison.different_models) return QObject::tr("The models are not the same.");
  const auto count = comparison.rows.size();
  if (count == 0)
    return QObject::tr("No difference: %1 and %2 are the same.")
        .arg(names.ours.toLower(), names.theirs.toLower());
  return count == 1 ? QObject::tr("1 field differs.") : QObject::tr("%1 fields differ.").arg(count);
}

}  // namespace

ComparisonWindow::ComparisonWindow(const WindowServices& services, document::Comparison comparison,
                                   const Names& names, QWidget* parent)
    : QDialog(parent),
      services_(services),
      comparison_(std::move(comparison)),
      rows_(new QTreeWidget(this)) {
  setObjectName(QStringLiteral("frmComparison"));
  setWindowTitle(tr("Comparison"));
  auto* column = new QVBoxLayout(this);
  auto* verdict = new QLabel(VerdictText(comparison_, names), this);
  verdict->setObjectName(QStringLiteral("lblVerdict"));
  QFont bold = verdict->font();
  bold.setBold(true);
  verdict->setFont(bold);
  column->addWidget(verdict);
  rows_->setObjectName(QStringLiteral("lstDifferences"));
  rows_->setAccessibleName(tr("Differences"));
  rows_->setUniformRowHeights(true);
  rows_->setHeaderLabels({tr("Field"), names.ours, names.theirs});
  rows_->headerItem()->setToolTip(1, names.about_ours);
  AddRows();
  column->addWidget(rows_);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption, auto command) {
    QPushButton* const button = AddButton(*this, *row, name, caption);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, command);
    return button;
  };
  add("cmdSaveAs", tr("Save &As..."), [this] {
    SaveAs(services_, kTextFilter,
           [this](const std::string& /*path*/) { return platform::ToUtf8(Text()); });
  });
  add("cmdCopy", tr("C&opy"), [this] { QApplication::clipboard()->setText(Text()); });
  add("cmdClose", tr("&Close"), [this] { close(); })->setDefault(true);
  resize(kFirstSize);
}

// Rows of one table stand together, under its name.
void ComparisonWindow::AddRows() {
  QTreeWidgetItem* group = nullptr;
  int table = -1;
  for (const document::Difference& difference : comparison_.rows) {
    if (difference.at.table != table) {
      table = difference.at.table;
      group = new QTreeWidgetItem(rows_, {platform::FromAnsi(core::TableOf(difference.at).label)});
      group->setFirstColumnSpanned(true);
      group->setExpanded(true);
    }
    new QTreeWidgetItem(group,
                        {platform::FromAnsi(difference.name), platform::FromAnsi(difference.ours),
                         platform::FromAnsi(difference.theirs)});
  }
  rows_->header()->resizeSection(0, kFirstSize.width() / kNameShare);
}

QString ComparisonWindow::Text() const {
  const QTreeWidgetItem& titles = *rows_->headerItem();
  QString text = titles.text(0) + '\t' + titles.text(1) + '\t' + titles.text(2) + '\n';
  for (const document::Difference& difference : comparison_.rows) {
    text += platform::FromAnsi(difference.name) + '\t' + platform::FromAnsi(difference.ours) +
            '\t' + platform::FromAnsi(difference.theirs) + '\n';
  }
  return text;
}

}  // namespace orvane::editor
