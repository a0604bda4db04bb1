#include "editor/backup_list.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "core/model_profile.h"
#include "core/text.h"
#include "files/channel_names.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr std::array<const char*, BackupList::kColumns> kTitles = {
    "Time", "Model", "Origin", "Port", "File", "Channel names in use", "Size"};

QString NamesOf(const core::RadioData& data) {
  QStringList names;
  for (const std::string& name : files::ChannelNamesInUse(data)) {
    names << platform::FromAnsi(core::TrimRight(name));
  }
  return names.join(QStringLiteral(", "));
}

}  // namespace

QString SizeText(std::uint64_t bytes) {
  constexpr double kUnit = 1024;
  constexpr double kManyDigits = 100;
  const double kilobytes = static_cast<double>(bytes) / kUnit;
  if (kilobytes < kUnit) return QStringLiteral("%1 kB").arg(kilobytes, 0, 'f', 0);
  const double megabytes = kilobytes / kUnit;
  return QStringLiteral("%1 MB").arg(megabytes, 0, 'f', megabytes < kManyDigits ? 1 : 0);
}

BackupList::BackupList(const files::BackupLibrary& library, QObject* parent)
    : QAbstractTableModel(parent), library_(library) {
  Refresh();
}

void BackupList::Refresh() {
  beginResetModel();
  rows_.clear();
  for (files::Backup& backup : library_.Entries()) rows_.push_back({std::move(backup)});
  next_ = 0;
  endResetModel();
}

bool BackupList::ReadNames() {
  if (next_ == rows_.size()) return false;
  Row& row = rows_[next_];
  const files::Snapshot snapshot = library_.Load(row.backup);
  row.names = snapshot.data == nullptr ? QString() : NamesOf(*snapshot.data);
  if (snapshot.data == nullptr) row.backup.damage = snapshot.error;
  const int place = static_cast<int>(next_++);
  emit dataChanged(index(place, 0), index(place, kColumns - 1));
  return true;
}

std::uint64_t BackupList::TotalSize() const {
  return std::accumulate(rows_.begin(), rows_.end(), std::uint64_t{0},
                         [](std::uint64_t sum, const Row& row) { return sum + row.backup.size; });
}

int BackupList::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int BackupList::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kColumns;
}

QString BackupList::Text(const Row& row, int column) {
  const files::SnapshotHeading& heading = row.backup.heading;
  switch (column) {
    case kTime:
      return platform::FromUtf8(heading.made);
    case kModel:
      return platform::FromUtf8(core::ModelDisplayName(heading.model_type, true));
    case kOrigin:
      return platform::FromUtf8(heading.origin);
    case kPort:
      return platform::FromUtf8(heading.port);
    case kFile:
      return platform::FromUtf8(core::WithoutFolder(heading.file));
    case kNames:
      if (!row.backup.damage.empty()) {
        return tr("(damaged: %1)").arg(platform::FromUtf8(row.backup.damage));
      }
      return row.names.value_or(QStringLiteral("..."));
    default:
      return SizeText(row.backup.size);
  }
}

QVariant BackupList::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const Row& row = rows_[static_cast<std::size_t>(index.row())];
  const int column = index.column();
  if (role == kSortRole && column == kSize) return static_cast<qulonglong>(row.backup.size);
  if (role == Qt::DisplayRole || role == kSortRole) return Text(row, column);
  if (role == Qt::ToolTipRole && column == kFile)
    return platform::FromUtf8(row.backup.heading.file);
  if (role == Qt::ToolTipRole) return Text(row, column);
  if (role == Qt::TextAlignmentRole && column == kSize) {
    return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
  }
  return {};
}

QVariant BackupList::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return tr(kTitles[static_cast<std::size_t>(section)]);
}

}  // namespace orvane::editor
