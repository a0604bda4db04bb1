#include <QClipboard>
#include <QGuiApplication>

#include "editor/comparison_window.h"
#include "editor/print_text.h"
#include "editor/save_as.h"
#include "files/comparison_text.h"
#include "files/delimited_text.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr char kTab = '\t';

}  // namespace

std::string ComparisonWindow::Text(const std::vector<document::Difference>& rows) const {
  files::TextRows cells = {{platform::ToUtf8(tr("Field")), platform::ToUtf8(TitleOf(kLeft)),
                            platform::ToUtf8(TitleOf(kRight))}};
  for (const document::Difference& row : rows) {
    cells.push_back({platform::AnsiToUtf8(row.name), platform::AnsiToUtf8(row.ours),
                     platform::AnsiToUtf8(row.theirs)});
  }
  return files::JoinText(cells, kTab);
}

void ComparisonWindow::SaveList() {
  SaveAs(services_, kTextFilter,
         [this](const std::string& /*path*/) { return Text(model_->AllRows()); });
}

void ComparisonWindow::CopyRows() {
  const QModelIndexList chosen = view_->Chosen();
  QGuiApplication::clipboard()->setText(
      platform::FromUtf8(Text(chosen.isEmpty() ? model_->AllRows() : model_->RowsBelow(chosen))));
}

void ComparisonWindow::PrintList() {
  PrintText(
      services_, *this,
      files::ComparisonListing({platform::ToAnsi(tr("Field")), platform::ToAnsi(TitleOf(kLeft)),
                                platform::ToAnsi(TitleOf(kRight))},
                               model_->AllRows()),
      document_.FileName());
}

}  // namespace orvane::editor
