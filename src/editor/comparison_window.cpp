#include "editor/comparison_window.h"

#include <QKeyEvent>
#include <utility>

#include "editor/dialog_parts.h"
#include "editor/menus.h"
#include "help/help_opener.h"
#include "image/codec.h"
#include "platform/ansi_text.h"

namespace orvane::editor {

ComparisonWindow::ComparisonWindow(const WindowServices& services, CommandHost& host,
                                   const ComparisonSources& sources, QWidget* parent)
    : QDialog(parent),
      services_(services),
      document_(services.document),
      host_(host),
      sources_(sources),
      model_(new ComparisonModel(this)),
      view_(new ComparisonView(*model_, this)),
      column_(new QVBoxLayout(this)) {
  Build();
  timer_.setSingleShot(true);
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, [this] {
    HideTaken();  // what was taken over may have been changed again, or taken back
    Refresh();
  });
  document_.Watch(*this);
}

ComparisonWindow::~ComparisonWindow() {
  document_.Unwatch(*this);
}

// Steps in a row cost one comparison.
void ComparisonWindow::Follow() {
  if (sides_[kLeft].IsOpenData() || sides_[kRight].IsOpenData()) timer_.start();
}

void ComparisonWindow::ShowSides(ComparedData left, ComparedData right) {
  sides_ = {std::move(left), std::move(right)};
  HideTaken();
  Refresh();
  if (sides_[kRight].kind == ComparedData::Kind::kNone) {
    side_buttons_[kRight]->setFocus();
  } else {
    view_->setFocus();
  }
}

void ComparisonWindow::Choose(Side side, ComparedData chosen) {
  if (chosen.kind == ComparedData::Kind::kNone) return;
  std::array<ComparedData, kSides.size()> sides = sides_;
  sides[side] = std::move(chosen);
  ShowSides(std::move(sides[kLeft]), std::move(sides[kRight]));
}

// The open data against themselves would be no comparison.
void ComparisonWindow::ChooseOpenData(Side side) {
  if (sides_[side].IsOpenData()) return;
  if (sides_[Opposite(side)].IsOpenData()) {
    ShowSides(sides_[kRight], sides_[kLeft]);
  } else {
    Choose(side, {.kind = ComparedData::Kind::kOpenData});
  }
}

void ComparisonWindow::ChooseRadio(Side side) {
  const ComparisonModel::Data other = DataOf(Opposite(side));
  Choose(side, sources_.AskRadio(other == nullptr ? document_.Data() : *other));
}

ComparisonModel::Data ComparisonWindow::DataOf(Side side) const {
  if (!sides_[side].IsOpenData()) return sides_[side].data;
  if (sides_[Opposite(side)].kind != ComparedData::Kind::kRadio) {
    return std::make_shared<const core::RadioData>(document_.Data());
  }
  return document::AfterProgramming(document_.Data(), services_.clock.Today());
}

QString ComparisonWindow::TitleOf(Side side) const {
  const ComparedData& shown = sides_[side];
  const ComparedData& other = sides_[Opposite(side)];
  if (shown.kind == ComparedData::Kind::kNone) return tr("(not chosen)");
  if (!shown.IsOpenData()) return shown.title == other.title ? shown.about : shown.title;
  if (other.kind == ComparedData::Kind::kRadio) return tr("Open data, as programmed");
  return tr("Open data");
}

QString ComparisonWindow::AboutOf(Side side) const {
  if (!sides_[side].IsOpenData()) return sides_[side].about;
  if (sides_[Opposite(side)].kind == ComparedData::Kind::kRadio) {
    return tr("As the radio would hold it after programming");
  }
  return document_.FileName().empty() ? tr("In no file yet")
                                      : platform::FromUtf8(document_.FileName());
}

void ComparisonWindow::Refresh() {
  timer_.stop();
  const ComparisonView::Place place = view_->Keep();
  ShowTitles();
  model_->Compare(DataOf(kLeft), DataOf(kRight));
  view_->Restore(place);
  ShowVerdict();
  FollowSelection();
}

void ComparisonWindow::ShowTitles() {
  model_->SetTitles(TitleOf(kLeft), TitleOf(kRight), AboutOf(kLeft), AboutOf(kRight));
  const std::array<QString, kSides.size()> captions = {tr("&Left: %1"), tr("&Right: %1")};
  for (const Side side : kSides) {
    side_buttons_[side]->setText(captions[side].arg(PlainCaption(TitleOf(side))));
    const QString about = AboutOf(side);
    side_buttons_[side]->setToolTip(about.isEmpty() ? tr("What to compare") : about);
  }
}

void ComparisonWindow::ShowVerdict() {
  const QString text = VerdictText();
  // Nobody wants to hear of each letter that is typed in the main window.
  isActiveWindow() ? verdict_->Tell(text) : verdict_->setText(text);
}

QString ComparisonWindow::VerdictText() const {
  const ComparisonModel::Data left = DataOf(kLeft);
  const ComparisonModel::Data right = DataOf(kRight);
  if (left == nullptr || right == nullptr) {
    return tr("Choose what to compare by the buttons above: Alt+L the left side, Alt+R the right.");
  }
  if (!model_->CanCompare()) {
    const auto model = [](const core::RadioData& each) {
      return platform::FromAnsi(image::ModelName(each));
    };
    return tr("%1 is for the model %2, %3 for the model %4. Only data of one model can be "
              "compared.")
        .arg(TitleOf(kLeft), model(*left), TitleOf(kRight), model(*right));
  }
  if (model_->DifferenceCount() == 0) {
    return tr("No difference: %1 and %2 are the same.").arg(TitleOf(kLeft), TitleOf(kRight));
  }
  return CountText();
}

QString ComparisonWindow::CountText() const {
  const int all = model_->DifferenceCount();
  const int listed = model_->ListedDifferences();
  QString text = all == 1 ? tr("1 field differs.") : tr("%1 fields differ.").arg(all);
  if (listed < all) text += QLatin1Char(' ') + tr("The filter leaves %1 of them.").arg(listed);
  return text;
}

void ComparisonWindow::FollowSelection() {
  const bool any = model_->ListedDifferences() > 0;
  for (QPushButton* button : {previous_, next_}) button->setEnabled(any);
  for (const Side side : kSides) {
    QPushButton& button = *take_buttons_[side];
    const QString why_not = WhyNotInto(side);
    // A button that is greyed would hand the focus on to the next one.
    if (!why_not.isEmpty() && button.hasFocus()) view_->setFocus();
    button.setEnabled(why_not.isEmpty());
    button.setToolTip(why_not.isEmpty() ? tr("Makes the selected fields of the open data as they "
                                             "are in %1, as one step that Undo takes back")
                                              .arg(TitleOf(Opposite(side)))
                                        : why_not);
  }
}

void ComparisonWindow::GoToDifference(bool forward) {
  view_->setFocus();
  if (view_->GoToDifference(forward)) return;
  verdict_->Announce();  // the last one, or the first: the count tells that there are no more
}

void ComparisonWindow::ShowField(const QModelIndex& node) {
  const bool shows_open_data = sides_[kLeft].IsOpenData() || sides_[kRight].IsOpenData();
  if (!shows_open_data || model_->hasChildren(node.siblingAtColumn(0)) || !host_.CheckPage()) {
    return;
  }
  host_.ShowField(model_->RowsBelow({node}).front().at);
  host_.Widget().activateWindow();
}

void ComparisonWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_F1) return QDialog::keyPressEvent(event);
  OpenTopic(*this, services_.help, services_.prompts, help::kCompareContext);
}

}  // namespace orvane::editor
