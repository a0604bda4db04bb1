#include <algorithm>
#include <string>

#include "editor/comparison_window.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using document::Difference;
using document::TakeOverRefusal;

constexpr const char* kFollows = "Programming sets it from other fields.";

std::string StepName(std::size_t fields, const QString& from) {
  return "Take " + std::to_string(fields) + (fields == 1 ? " field" : " fields") + " from " +
         platform::ToUtf8(from);
}

bool Names(const std::vector<TakeOverRefusal>& refusals, const Difference& row) {
  return std::any_of(refusals.begin(), refusals.end(), [&](const TakeOverRefusal& refusal) {
    return !row.IsMemory() && refusal.at == row.at;
  });
}

}  // namespace

QString ComparisonWindow::WhyNotInto(Side side) const {
  const ComparedData& other = sides_[Opposite(side)];
  if (!sides_[side].IsOpenData()) {
    return sides_[side].kind == ComparedData::Kind::kNone
               ? tr("Choose what to compare first")
               : tr("Only the open data can be changed. Open the file or the backup in the main "
                    "window to take something into it.");
  }
  if (other.kind == ComparedData::Kind::kNone) return tr("Choose what to take from first");
  if (!model_->CanCompare()) return tr("Only data of one model can be taken over");
  if (model_->DifferencesBelow(view_->Chosen()) > 0) return {};
  return tr("Select what differs: fields, channels or groups");
}

void ComparisonWindow::TakeInto(Side side) {
  if (!host_.CheckPage()) return;
  if (timer_.isActive()) Refresh();  // the check has taken over what was being typed
  if (!WhyNotInto(side).isEmpty()) return;
  const ComparisonModel::Data theirs = DataOf(Opposite(side));
  const ComparisonModel::Data ours = DataOf(side);
  std::vector<Difference> chosen = model_->RowsBelow(view_->Chosen());
  std::erase_if(chosen,
                [&](const Difference& row) { return !document::Differs(*ours, *theirs, row); });
  std::vector<TakeOverRefusal> refusals;
  const auto edit = [&](core::RadioData& edited) {
    refusals = document::TakeOver(edited, *theirs, chosen, services_.clock.Today());
  };
  if (chosen.size() == 1 && !chosen.front().IsMemory()) {
    document_.Edit(chosen.front().at, edit);
  } else {
    document_.Edit(StepName(chosen.size(), TitleOf(Opposite(side))), edit);
  }
  const ComparisonModel::Data now = DataOf(side);
  int left = 0;
  for (const Difference& row : chosen) {
    if (!document::Differs(*now, *theirs, row)) continue;
    ++left;
    if (!Names(refusals, row)) refusals.push_back({row.at, row.name, kFollows});
  }
  Refresh();
  ShowTaken(static_cast<int>(chosen.size()), refusals, left);
}

void ComparisonWindow::ShowTaken(int wanted, const std::vector<TakeOverRefusal>& refusals,
                                 int left) {
  refusals_->clear();
  for (const TakeOverRefusal& refusal : refusals) {
    auto* row = new QTreeWidgetItem(
        refusals_, {platform::FromAnsi(refusal.name), platform::FromAnsi(refusal.reason)});
    row->setToolTip(1, platform::FromAnsi(refusal.reason));
  }
  refusals_->setVisible(!refusals.empty());
  taken_->show();
  if (left == 0) {
    taken_text_->Tell(wanted == 1 ? tr("1 field taken over.")
                                  : tr("%1 fields taken over.").arg(wanted));
  } else {
    taken_text_->Tell(tr("%1 of %2 fields taken over.").arg(wanted - left).arg(wanted));
  }
}

void ComparisonWindow::HideTaken() {
  taken_->hide();
  taken_text_->clear();
}

}  // namespace orvane::editor
