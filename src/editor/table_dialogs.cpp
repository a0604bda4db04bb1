#include "editor/table_dialogs.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLocale>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/app_settings.h"
#include "core/model_profile.h"
#include "core/text.h"
#include "editor/dialog_parts.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(820, 460);
constexpr std::array<const char*, 3> kSeparatorNames = {  // by TableSeparator
    "Comma, with decimal points", "Semicolon, with decimal commas", "Tab, with decimal points"};

/// Rows that change something or are refused, or all.
class MattersFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetOnlyMatters(bool only) {
    only_ = only;
    invalidateFilter();
  }

 protected:
  [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    return !only_ || sourceModel()->index(row, 0, parent).data(ImportList::kMattersRole).toBool();
  }

 private:
  bool only_ = true;
};

// Spreadsheets expect semicolons where the comma is the decimal sign.
int UsualSeparator() {
  const bool decimal_comma = QLocale::system().decimalPoint() == QLatin1Char(',');
  return static_cast<int>(decimal_comma ? files::TableSeparator::kSemicolon
                                        : files::TableSeparator::kComma);
}

void AddHelp(QDialog& dialog, QBoxLayout& row, const WindowServices& services) {
  QPushButton* const help = AddButton(dialog, row, "cmdHelp", QObject::tr("&Help"));
  help->setShortcut(Qt::Key_F1);
  QObject::connect(help, &QPushButton::clicked, &dialog, [&dialog, services] {
    OpenTopic(dialog, services.help, services.prompts, help::kTablesAsTextContext);
  });
}

}  // namespace

TableBox::TableBox(const core::ModelProfile& profile, QWidget* parent) : QComboBox(parent) {
  setObjectName(QStringLiteral("cboTable"));
  setAccessibleName(tr("Table"));
  for (const std::uint8_t table : files::TextTables(profile)) {
    addItem(platform::FromAnsi(core::Catalogue()[table].label), table);
  }
}

void TableBox::Choose(std::uint8_t table) {
  setCurrentIndex(std::max(findData(table), 0));
}

std::uint8_t TableBox::Table() const {
  return static_cast<std::uint8_t>(currentData().toInt());
}

ExportTableDialog::ExportTableDialog(const WindowServices& services, std::uint8_t table,
                                     QWidget* parent)
    : QDialog(parent),
      tables_(new TableBox(core::ProfileOf(services.document.Data()), this)),
      separators_(new QComboBox(this)) {
  setObjectName(QStringLiteral("frmExportTable"));
  setWindowTitle(tr("Export Table"));
  auto* column = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  column->addLayout(form);
  tables_->Choose(table);
  form->addRow(tr("&Table:"), tables_);
  separators_->setObjectName(QStringLiteral("cboSeparator"));
  separators_->setAccessibleName(tr("Cells are parted by"));
  separators_->setToolTip(
      tr("What the spreadsheet expects: semicolons where 156,8 is written for 156.8"));
  for (const char* name : kSeparatorNames) separators_->addItem(tr(name));
  const int kept = core::AppSettings(services.settings).TableSeparator().value_or(-1);
  separators_->setCurrentIndex(kept >= 0 && kept < separators_->count() ? kept : UsualSeparator());
  form->addRow(tr("&Cells are parted by:"), separators_);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addStretch();
  QPushButton* const export_button = AddButton(*this, *row, "cmdExport", tr("&Export..."));
  export_button->setDefault(true);
  export_button->setToolTip(tr("Asks for the file"));
  connect(export_button, &QPushButton::clicked, this, &QDialog::accept);
  connect(AddButton(*this, *row, "cmdCancel", tr("Cancel")), &QPushButton::clicked, this,
          &QDialog::reject);
  AddHelp(*this, *row, services);
  tables_->setFocus();
}

files::TableSeparator ExportTableDialog::Separator() const {
  return static_cast<files::TableSeparator>(separators_->currentIndex());
}

ImportTableDialog::ImportTableDialog(const WindowServices& services, const std::string& path,
                                     std::string bytes, std::uint8_t table, QWidget* parent)
    : QDialog(parent),
      services_(services),
      bytes_(std::move(bytes)),
      tables_(new TableBox(core::ProfileOf(services.document.Data()), this)),
      summary_(new QLabel(this)),
      unused_(new QLabel(this)),
      only_matters_(new QCheckBox(tr("&Only changes and refusals"), this)),
      list_(new ImportList(this)),
      shown_(new MattersFilter(this)),
      view_(new QTreeView(this)) {
  setObjectName(QStringLiteral("frmImportTable"));
  setWindowTitle(tr("Import Table"));
  new QVBoxLayout(this);
  tables_->Choose(table);
  AddTables(path);
  AddList();
  AddButtons();
  resize(kFirstSize);
  ShowPlan();
  connect(tables_, &QComboBox::currentIndexChanged, this, &ImportTableDialog::ShowPlan);
  connect(only_matters_, &QCheckBox::toggled, this, &ImportTableDialog::Filter);
  import_->setFocus();
}

void ImportTableDialog::AddTables(const std::string& path) {
  auto* row = new QHBoxLayout;
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  auto* caption = new QLabel(tr("&Table:"), this);
  caption->setBuddy(tables_);
  row->addWidget(caption);
  row->addWidget(tables_);
  auto* file = new QLabel(tr("from %1").arg(platform::FromUtf8(core::WithoutFolder(path))), this);
  file->setObjectName(QStringLiteral("lblFile"));
  file->setTextFormat(Qt::PlainText);
  file->setToolTip(platform::FromUtf8(path).toHtmlEscaped());
  row->addWidget(file);
  row->addStretch();
  only_matters_->setObjectName(QStringLiteral("chkOnlyMatters"));
  only_matters_->setChecked(true);
  row->addWidget(only_matters_);
}

void ImportTableDialog::AddList() {
  summary_->setObjectName(QStringLiteral("lblSummary"));
  QFont bold = summary_->font();
  bold.setBold(true);
  summary_->setFont(bold);
  layout()->addWidget(summary_);
  list_->SetIcons(palette());
  shown_->setSourceModel(list_);
  view_->setObjectName(QStringLiteral("lstLines"));
  view_->setAccessibleName(tr("What would change"));
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setModel(shown_);
  layout()->addWidget(view_);
  unused_->setObjectName(QStringLiteral("lblUnused"));
  unused_->setTextFormat(Qt::PlainText);
  unused_->setWordWrap(true);
  unused_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout()->addWidget(unused_);
}

void ImportTableDialog::AddButtons() {
  auto* row = new QHBoxLayout;
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  row->addStretch();
  import_ = AddButton(*this, *row, "cmdImport", tr("&Import"));
  import_->setDefault(true);
  connect(import_, &QPushButton::clicked, this, &QDialog::accept);
  connect(AddButton(*this, *row, "cmdCancel", tr("Cancel")), &QPushButton::clicked, this,
          &QDialog::reject);
  AddHelp(*this, *row, services_);
}

void ImportTableDialog::ShowPlan() {
  plan_ = files::PlanImport(bytes_, tables_->Table(), services_.document.Data(),
                            services_.clock.Today());
  list_->Show(plan_);
  Filter();
  summary_->setText(platform::FromUtf8(files::SummaryOf(plan_)) + QLatin1Char('.'));
  QStringList unused;
  for (const files::ImportPlan::UnusedColumn& column : plan_.unused) {
    unused << tr("Column \"%1\" is not taken over. %2")
                  .arg(platform::FromUtf8(column.heading), platform::FromUtf8(column.reason));
  }
  unused_->setText(unused.join(QLatin1Char('\n')));
  unused_->setVisible(!unused.isEmpty());
  for (int column = 0; column < ImportList::kColumns; ++column)
    view_->resizeColumnToContents(column);
  const bool changes = !plan_.changes.empty();
  const bool refuses = plan_.Count(files::ImportPlan::Verdict::kRefused) > 0;
  import_->setEnabled(changes);
  import_->setText(changes && refuses ? tr("&Import the Rest") : tr("&Import"));
  import_->setToolTip(changes ? tr("Takes the changes over as one step; Undo takes them back")
                              : tr("There is nothing in it that would change the data"));
}

void ImportTableDialog::Filter() {
  static_cast<MattersFilter*>(shown_)->SetOnlyMatters(only_matters_->isChecked());
  if (shown_->rowCount() > 0) view_->setCurrentIndex(shown_->index(0, 0));
}

void ImportTableDialog::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) list_->SetIcons(palette());
}

}  // namespace orvane::editor
