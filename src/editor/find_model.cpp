#include "editor/find_model.h"

#include <QGuiApplication>
#include <algorithm>
#include <utility>

#include "editor/contrast.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

void FindModel::Take(std::vector<document::Hit> hits) {
  beginResetModel();
  hits_ = std::move(hits);
  endResetModel();
}

const document::Hit* FindModel::At(int row) const {
  return row < 0 || row >= rowCount() ? nullptr : &hits_[static_cast<std::size_t>(row)];
}

std::optional<int> FindModel::RowOf(core::FieldRef channel) const {
  const auto found = std::find_if(hits_.begin(), hits_.end(),
                                  [=](const document::Hit& hit) { return hit.channel == channel; });
  if (found == hits_.end()) return std::nullopt;
  return static_cast<int>(found - hits_.begin());
}

int FindModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(hits_.size());
}

QVariant FindModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const document::Hit& hit = *At(index.row());
  if (role == Qt::DisplayRole) return platform::FromAnsi(document::TextOf(hit));
  if (role == kNameRole) return platform::FromAnsi(document::NameTextOf(hit));
  if (role == kFrequencyRole) return platform::FromAnsi(hit.frequency);
  // Its text says so as well.
  if (role == Qt::ForegroundRole && hit.use != document::Use::kInUse) {
    return FaintText(QGuiApplication::palette());
  }
  return {};
}

}  // namespace orvane::editor
