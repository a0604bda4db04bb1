#include "editor/refused_cells.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "editor/dialog_parts.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(760, 300);

QString Heading(int refused, int rest) {
  const QString stay =
      refused == 1 ? RefusedCells::tr("This cell cannot take its text:")
                   : RefusedCells::tr("These %1 cells cannot take their texts:").arg(refused);
  return rest == 0 ? stay + QLatin1Char('\n') + RefusedCells::tr("No other cell would change.")
                   : stay;
}

}  // namespace

RefusedCells::RefusedCells(const files::SheetEdit& edit, const QString& title, QWidget* parent)
    : QDialog(parent) {
  setObjectName(QStringLiteral("frmRefused"));
  setWindowTitle(title);
  auto* column = new QVBoxLayout(this);
  auto* heading = new QLabel(Heading(static_cast<int>(edit.refused.size()), edit.cells), this);
  heading->setObjectName(QStringLiteral("lblRefused"));
  column->addWidget(heading);

  auto* list = new QTreeWidget(this);
  list->setObjectName(QStringLiteral("lstRefused"));
  list->setAccessibleName(tr("Cells that stay as they are"));
  list->setRootIsDecorated(false);
  list->setHeaderLabels({tr("Cell"), tr("Text"), tr("Reason")});
  for (const files::RefusedCell& refused : edit.refused) {
    auto* item = new QTreeWidgetItem(
        list, {platform::FromAnsi(refused.cell), platform::FromAnsi(refused.text),
               platform::FromAnsi(refused.reason)});
    for (int i = 0; i < item->columnCount(); ++i) item->setToolTip(i, item->text(i));
  }
  list->setCurrentItem(list->topLevelItem(0));
  list->resizeColumnToContents(0);
  list->resizeColumnToContents(1);
  list->setColumnWidth(1, qMin(list->columnWidth(1), kFirstSize.width() / 4));
  column->addWidget(list);

  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption, auto slot) {
    QPushButton* const button = AddButton(*this, *row, name, caption);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, slot);
    return button;
  };
  if (edit.cells > 0) {
    const QString rest = edit.cells == 1 ? tr("Change the &Other Cell")
                                         : tr("Change the &Other %1 Cells").arg(edit.cells);
    add("cmdRest", rest, &QDialog::accept)->setToolTip(tr("The cells above stay as they are"));
  }
  QPushButton* const nothing =
      add("cmdNothing", edit.cells > 0 ? tr("Change &Nothing") : tr("&Close"), &QDialog::reject);
  nothing->setDefault(true);
  nothing->setFocus();
  resize(kFirstSize);
}

}  // namespace orvane::editor
