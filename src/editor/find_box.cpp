#include "editor/find_box.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "editor/find_delegate.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr int kLongestQuery = 80;
constexpr int kGap = 3;  // pixels, towards the tree
constexpr int kFewestLines = 6;
constexpr int kShareOfHeight = 3;  // the list takes one of so many parts; the tree keeps the rest

/// All words there are, with an example and what it finds.
QString WordsToolTip() {
  QString text = FindBox::tr(
      "<p>Finds the channels of all groups by number, name or frequency: 16, distress, 156.8. "
      "Words ask for more; each of several must hold:</p><table>");
  for (const document::FindWord& word : document::FindWords()) {
    text += QStringLiteral("<tr><td><b>%1</b>&nbsp;</td><td>%2</td></tr>")
                .arg(platform::FromAnsi(word.example).toHtmlEscaped(),
                     platform::FromAnsi(word.finds).toHtmlEscaped());
  }
  return text + QLatin1String("</table>");
}

}  // namespace

FindBox::FindBox(document::Document& document, QWidget* parent)
    : QWidget(parent),
      document_(document),
      model_(new FindModel(this)),
      line_(new QLineEdit(this)),
      told_(new LiveLabel(this)),
      view_(new QuietListView(this)) {
  setObjectName(QStringLiteral("findBox"));
  Build();
  timer_.setSingleShot(true);
  timer_.setInterval(0);
  connect(&timer_, &QTimer::timeout, this, &FindBox::LookAgain);
  connect(line_, &QLineEdit::textEdited, this, &FindBox::Type);
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (!current.isValid() || current.row() == row_) return;
            row_ = current.row();
            fresh_ = true;
            again_ = false;
            TellRow();
          });
  connect(view_, &QListView::clicked, this, [this] { emit HitChosen(false); });
  document_.Watch(*this);
}

FindBox::~FindBox() {
  document_.Unwatch(*this);
}

void FindBox::Build() {
  line_->setObjectName(QStringLiteral("txtFind"));
  line_->setAccessibleName(tr("Find channels"));
  line_->setPlaceholderText(tr("16, port, tx:no"));
  line_->setMaxLength(kLongestQuery);
  line_->setToolTip(WordsToolTip());
  told_->setObjectName(QStringLiteral("lblFind"));
  told_->setAccessibleDescription(tr("What was found"));
  told_->setWordWrap(true);
  told_->setMargin(2);
  told_->hide();
  view_->setObjectName(QStringLiteral("lstFind"));
  view_->setAccessibleName(tr("Channels found"));
  view_->setUniformItemSizes(true);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  view_->setModel(model_);
  view_->setItemDelegate(new FindDelegate(view_));
  view_->hide();
  for (QWidget* part : {static_cast<QWidget*>(line_), static_cast<QWidget*>(view_)}) {
    part->installEventFilter(this);
  }

  auto* caption = new QLabel(tr("Find:"), this);
  caption->setBuddy(line_);
  auto* close = new QToolButton(this);
  close->setObjectName(QStringLiteral("cmdFindClose"));
  close->setText(QStringLiteral("\u00d7"));
  close->setAutoRaise(true);
  close->setFocusPolicy(Qt::NoFocus);  // by keyboard there is Esc
  close->setToolTip(tr("Closes the box (Esc goes back as well)"));
  close->setAccessibleName(tr("Close Find"));
  connect(close, &QToolButton::clicked, this, &FindBox::CloseAsked);

  auto* row = new QHBoxLayout;
  row->setContentsMargins(4, 2, 2, 2);
  row->setSpacing(4);
  row->addWidget(caption);
  row->addWidget(line_, 1);
  row->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->setSpacing(0);
  column->addLayout(row);
  column->addWidget(told_);
  column->addWidget(view_);
  column->addSpacing(kGap);
}

void FindBox::Open() {
  const bool was_hidden = isHidden();
  CatchUp();
  show();
  FitList();
  line_->setFocus(Qt::ShortcutFocusReason);
  line_->selectAll();
  if (was_hidden && !HasFocusInside()) hide();
}

bool FindBox::HasFocusInside() const {
  const QWidget* const focus = window()->focusWidget();
  return focus != nullptr && isAncestorOf(focus);
}

bool FindBox::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) emit FocusGained();
  if (event->type() == QEvent::KeyPress) return TakeKey(*watched, static_cast<QKeyEvent&>(*event));
  return QWidget::eventFilter(watched, event);
}

bool FindBox::TakeKey(const QObject& target, QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  switch (event.key()) {
    case Qt::Key_Escape:
      emit Cancelled();
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (Current() != nullptr) {
        emit HitChosen(true);
      } else {
        told_->Announce();
      }
      return true;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
      if (&target != line_) return false;
      CatchUp();
      QCoreApplication::sendEvent(view_, &event);
      return true;
    default:
      return false;
  }
}

const document::Hit* FindBox::Step(int step) {
  CatchUp();
  const int count = model_->rowCount();
  if (count == 0) return nullptr;
  const int row = fresh_ && step > 0 ? row_ : row_ + step;
  again_ = row < 0 || row >= count;
  ShowRow((row + count) % count);
  return Current();
}

const document::Hit* FindBox::Current() {
  CatchUp();
  if (model_->At(row_) == nullptr) ShowRow(0);  // the last one is gone
  const document::Hit* const hit = model_->At(row_);
  if (hit != nullptr) fresh_ = false;
  return hit;
}

QString FindBox::PlaceText() const {
  QString place = tr("%1 of %2").arg(row_ + 1).arg(model_->rowCount());
  if (!again_) return place;
  return place + (row_ == 0 ? tr(", from the first one again") : tr(", from the last one again"));
}

void FindBox::Type() {
  timer_.stop();
  Look();
  ShowRow(0);
  fresh_ = true;
  again_ = false;
  const document::Hit* const first = model_->At(0);
  told_->setVisible(!FoundText().isEmpty());
  told_->Tell(FoundText(),
              first == nullptr ? QString() : platform::FromAnsi(document::TextOf(*first)));
}

void FindBox::Look() {
  const document::Query query = document::ParseQuery(platform::ToAnsi(line_->text()));
  advice_ = query.advice;
  model_->Take(document::Find(document_.Data(), query));
  FitList();
}

void FindBox::LookAgain() {
  const document::Hit* const hit = model_->At(row_);
  const std::optional<core::FieldRef> before =
      hit == nullptr ? std::nullopt : std::optional(hit->channel);
  Look();
  const std::optional<int> row = before ? model_->RowOf(*before) : std::nullopt;
  // What took the place of one that is gone comes next.
  if (!row) fresh_ = true;
  again_ = false;
  ShowRow(row.value_or(row_));
  // The count follows each edit: nobody wants to listen to that.
  told_->setText(FoundText());
}

void FindBox::CatchUp() {
  if (!timer_.isActive()) return;
  timer_.stop();
  LookAgain();
}

void FindBox::ShowRow(int row) {
  row_ = std::min(row, model_->rowCount());
  view_->setCurrentIndex(model_->index(row_));
}

QString FindBox::FoundText() const {
  if (line_->text().trimmed().isEmpty()) return {};
  return platform::FromAnsi(advice_.empty() ? document::CountText(model_->Hits()) : advice_);
}

void FindBox::TellRow() {
  told_->Tell(PlaceText(), platform::FromAnsi(document::TextOf(*model_->At(row_))));
}

void FindBox::FitList() {
  const int count = model_->rowCount();
  view_->setVisible(count > 0);
  if (count == 0) return;
  const int line = std::max(view_->sizeHintForRow(0), 1);
  const int room = parentWidget()->height() / kShareOfHeight / line;
  const int lines = std::min(count, std::max(room, kFewestLines));
  view_->setFixedHeight(lines * line + 2 * view_->frameWidth());
}

}  // namespace orvane::editor
