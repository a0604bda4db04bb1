#include "editor/backups_dialog.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>

#include "core/message_facts.h"
#include "core/product.h"
#include "core/text.h"
#include "editor/dialog_parts.h"
#include "editor/save_as.h"
#include "editor/words.h"
#include "files/image_file.h"
#include "files/settings_file.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr const char* kFilter =
    "dat files(*.dat)|*.dat|Backups(*.orvsnap)|*.orvsnap|hex files(*.hex)|*.hex|All files(*.*)|*.*";
constexpr QSize kFirstSize(820, 420);
constexpr int kNamesWidth = 220;
constexpr qint64 kSlice = 8;  // milliseconds of the window's thread at a time

class WordFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;
  void SetWords(const QString& text) {
    words_ = WordsOf(text);
    invalidateFilter();
  }

 protected:
  [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex& parent) const override {
    QString all;
    for (int column = 0; column < sourceModel()->columnCount(parent); ++column) {
      all += sourceModel()->index(row, column, parent).data().toString() + QLatin1Char('\n');
    }
    return HasEachWord(all, words_);
  }

 private:
  QStringList words_;
};

/// The bytes of a file of that name.
std::string BytesFor(const std::string& path, files::Snapshot& snapshot, core::Date today) {
  core::RadioData& data = *snapshot.data;
  const std::string ending = core::Extension(path);
  if (ending == files::kSnapshotEnding) return files::SnapshotText(data, snapshot.heading);
  if (ending != files::kImageEnding) return files::SettingFileText(data);
  files::PrepareKeptImage(data, today);
  return files::ImageFileBytes(data);
}

}  // namespace

BackupsDialog::BackupsDialog(const WindowServices& services, Purpose purpose, QWidget* parent)
    : QDialog(parent),
      services_(services),
      purpose_(purpose),
      library_(services.files, services.backups_folder),
      list_(new BackupList(library_, this)),
      shown_(new WordFilter(this)) {
  setObjectName(QStringLiteral("frmBackups"));
  setWindowTitle(purpose == Purpose::kManage ? tr("Backups") : tr("Compare with a Backup"));
  new QVBoxLayout(this);
  AddFilter();
  AddList();
  AddButtons();
  resize(kFirstSize);
  connect(&names_timer_, &QTimer::timeout, this, &BackupsDialog::ReadNames);
  names_timer_.start(0);
  ShowState();
  filter_->setFocus();
}

void BackupsDialog::AddFilter() {
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel(tr("&Filter:"), this);
  filter_ = new QLineEdit(this);
  filter_->setObjectName(QStringLiteral("txtFilter"));
  filter_->setClearButtonEnabled(true);
  filter_->setPlaceholderText(tr("time, model, origin, port, file or channel name"));
  caption->setBuddy(filter_);
  row->addWidget(caption);
  row->addWidget(filter_);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(filter_, &QLineEdit::textChanged, this, &BackupsDialog::Filter);
}

void BackupsDialog::AddList() {
  shown_->setSourceModel(list_);
  shown_->setSortRole(BackupList::kSortRole);
  view_ = new QTreeView(this);
  view_->setObjectName(QStringLiteral("lstBackups"));
  view_->setAccessibleName(tr("Backups"));
  view_->setRootIsDecorated(false);
  view_->setUniformRowHeights(true);
  view_->setAllColumnsShowFocus(true);
  view_->setModel(shown_);
  view_->setSortingEnabled(true);
  view_->sortByColumn(BackupList::kTime, Qt::DescendingOrder);
  for (int column = 0; column < BackupList::kColumns; ++column)
    view_->resizeColumnToContents(column);
  view_->header()->resizeSection(BackupList::kNames, kNamesWidth);
  layout()->addWidget(view_);
  connect(view_, &QTreeView::activated, this,
          purpose_ == Purpose::kManage ? &BackupsDialog::OpenChosen : &BackupsDialog::Compare);
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &BackupsDialog::ShowState);
  state_ = new QLabel(this);
  state_->setObjectName(QStringLiteral("lblState"));
  state_->setWordWrap(true);
  state_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout()->addWidget(state_);
}

void BackupsDialog::AddButtons() {
  auto* row = new QHBoxLayout;
  const bool manages = purpose_ == Purpose::kManage;
  if (manages) AddManagingButtons(*row);
  compare_ = AddButton(*this, *row, "cmdCompare", tr("Co&mpare"));
  compare_->setToolTip(manages
                           ? tr("How the data on the screen and the backup differ, field by field")
                           : tr("Takes the backup into the comparison"));
  compare_->setDefault(!manages);
  connect(compare_, &QPushButton::clicked, this, &BackupsDialog::Compare);
  if (manages) {
    delete_ = AddButton(*this, *row, "cmdDelete", tr("De&lete"));
    connect(delete_, &QPushButton::clicked, this, &BackupsDialog::Delete);
  }
  row->addStretch();
  connect(AddButton(*this, *row, "cmdFolder", tr("Show Fol&der")), &QPushButton::clicked, this,
          &BackupsDialog::ShowFolder);
  connect(AddButton(*this, *row, "cmdClose", tr("&Close")), &QPushButton::clicked, this,
          &BackupsDialog::reject);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void BackupsDialog::AddManagingButtons(QBoxLayout& row) {
  open_ = AddButton(*this, row, "cmdOpen", tr("&Open"));
  open_->setDefault(true);
  open_->setToolTip(
      tr("Puts the backup in the place of the data on the screen; Undo takes it back"));
  connect(open_, &QPushButton::clicked, this, &BackupsDialog::OpenChosen);
  save_as_ = AddButton(*this, row, "cmdSaveAs", tr("Save &As..."));
  connect(save_as_, &QPushButton::clicked, this, &BackupsDialog::SaveAs);
}

void BackupsDialog::ReadNames() {
  QElapsedTimer time;
  time.start();
  bool more = true;
  while (more && time.elapsed() < kSlice) more = list_->ReadNames();
  if (!more) names_timer_.stop();
}

void BackupsDialog::Filter(const QString& words) {
  static_cast<WordFilter*>(shown_)->SetWords(words);
  ShowState();
}

void BackupsDialog::ShowState() {
  if (!view_->currentIndex().isValid() && shown_->rowCount() > 0) {
    view_->setCurrentIndex(shown_->index(0, 0));
  }
  const bool chosen = Chosen().has_value();
  for (QPushButton* button : {open_, save_as_, compare_, delete_}) {
    if (button != nullptr) button->setEnabled(chosen);
  }
  const int all = list_->rowCount();
  const int shown = shown_->rowCount();
  QString text = all == 1 ? tr("1 backup") : tr("%1 backups").arg(all);
  if (shown != all) text = tr("%1 of %2").arg(shown).arg(text);
  text += tr(", %1 of the %2 up to which all are kept. They stand in %3.")
              .arg(SizeText(list_->TotalSize()), SizeText(files::BackupLibrary::kLimit),
                   platform::FromUtf8(services_.backups_folder));
  state_->setText(text);
}

std::optional<files::Backup> BackupsDialog::Chosen() const {
  const QModelIndex current = shown_->mapToSource(view_->currentIndex());
  if (!current.isValid()) return std::nullopt;
  return list_->At(current.row());
}

files::Snapshot BackupsDialog::Load(const files::Backup& backup) {
  files::Snapshot snapshot = library_.Load(backup);
  if (snapshot.data == nullptr) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kBackupDamaged, core::kProgramTitle,
                                             {{"reason", snapshot.error}}));
  }
  return snapshot;
}

void BackupsDialog::OpenChosen() {
  const std::optional<files::Backup> backup = Chosen();
  if (!backup || Load(*backup).data == nullptr) return;
  path_to_open_ = backup->path;
  accept();
}

void BackupsDialog::SaveAs() {
  const std::optional<files::Backup> backup = Chosen();
  if (!backup) return;
  files::Snapshot snapshot = Load(*backup);
  if (snapshot.data == nullptr) return;
  editor::SaveAs(services_, kFilter, [&](const std::string& path) {
    return BytesFor(path, snapshot, services_.clock.Today());
  });
}

void BackupsDialog::Compare() {
  const std::optional<files::Backup> backup = Chosen();
  if (!backup) return;
  to_compare_ = Load(*backup);
  if (to_compare_.data != nullptr) accept();
}

void BackupsDialog::Delete() {
  const std::optional<files::Backup> backup = Chosen();
  if (!backup) return;
  core::Message question = core::MakeMessage(core::MessageId::kDeleteBackup, core::kProgramTitle,
                                             {{"what", "the backup of " + backup->heading.made}});
  question.default_answer = core::Answer::kNo;
  if (services_.prompts.Show(question) != core::Answer::kYes) return;
  if (const auto failure = library_.Delete(*backup)) {
    services_.prompts.Show(core::MakeMessage(core::MessageId::kFileSave, core::kProgramTitle,
                                             core::FileFacts(backup->path, *failure)));
  }
  const int row = view_->currentIndex().row();
  list_->Refresh();
  names_timer_.start(0);
  view_->setCurrentIndex(shown_->index(std::min(row, shown_->rowCount() - 1), 0));
  ShowState();
}

void BackupsDialog::ShowFolder() {
  static_cast<void>(services_.files.MakeFolder(services_.backups_folder));
  QDesktopServices::openUrl(QUrl::fromLocalFile(platform::FromUtf8(services_.backups_folder)));
}

}  // namespace orvane::editor
