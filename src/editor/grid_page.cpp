#include "editor/grid_page.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/message_facts.h"
#include "core/model_profile.h"
#include "core/number_text.h"
#include "core/product.h"
#include "document/field_locks.h"
#include "editor/tool_tips.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr const char* kGridHint = "[Double click],[Enter]:Jump the Setting screen.";

}  // namespace

GridPage::GridPage(PageServices services, QWidget* parent)
    : Page(services, parent),
      model_(new GridModel(Data(), services.clock, this)),
      grid_(new ChannelGrid(this)),
      commands_(new GridCommands(services, *grid_, *model_, this)) {
  setObjectName(QStringLiteral("pictB"));
  setAccessibleName(tr("Channels"));
  auto* maker = new ControlMaker(*this, Host());
  delegate_ = new CellDelegate(*grid_, *model_, *maker, grid_);
  grid_->setItemDelegate(delegate_);
  grid_->setModel(model_);
  maker->Adopt(*grid_, QStringLiteral("MSFlexGrid1"), tr("Channels"), kGridHint);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  BuildSwitch(*maker);
  layout->addWidget(grid_);
  connect(grid_, &ChannelGrid::JumpAsked, this, [this](int row) {
    if (isEnabled()) Host().SelectNode(KeyOf(model_->ChannelOf(row)));
  });
  connect(commands_, &GridCommands::Planned, this, [this](const files::SheetEdit& edit) {
    Host().ShowHint(QLatin1String(kGridHint));  // why something could not be done is over
    Do(edit);
  });
  connect(commands_, &GridCommands::EditorAsked, this,
          [this] { OpenEditor(grid_->currentIndex()); });
  connect(delegate_, &CellDelegate::Begun, this, [this] { Host().DataChanged(); });
  connect(delegate_, &CellDelegate::TakeAsked, this, &GridPage::TakeCell);
}

void GridPage::BuildSwitch(ControlMaker& maker) {
  unused_ = maker.Check(QStringLiteral("chkShowUnused"), tr("Show &Unused Channels"));
  unused_->setFocusPolicy(Qt::NoFocus);  // the table comes first; by keyboard there are the keys
  auto* line = new QHBoxLayout;
  QMargins margins = layout()->contentsMargins();
  margins.setLeft(fontMetrics().averageCharWidth());
  line->setContentsMargins(margins);
  line->addWidget(unused_);
  line->addStretch();
  static_cast<QVBoxLayout*>(layout())->addLayout(line);
  auto* item = new QAction(tr("Show &Unused Channels"), this);
  item->setObjectName(QStringLiteral("cmdShowUnused"));
  item->setCheckable(true);
  item->setShortcut(Qt::CTRL | Qt::Key_U);
  item->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(item);
  commands_->Append(*item);
  connect(item, &QAction::toggled, this, &GridPage::ShowUnused);
  connect(unused_, &QCheckBox::toggled, item, &QAction::setChecked);
  connect(item, &QAction::changed, unused_, [this, item] {
    unused_->setChecked(item->isChecked());
    unused_->setEnabled(item->isEnabled());
    unused_->setToolTip(item->toolTip());
  });
}

void GridPage::ShowUnused(bool shown) {
  const Position position = Where();
  model_->SetShowsUnused(shown);
  FitColumns(false);
  GoTo(position);
}

// Of the table on show the cursor stays with its channel.
void GridPage::Fill(const NodeRef& node) {
  if (node == shown_) {
    Follow();
  } else {
    shown_ = node;
    changed_.clear();
    model_->SetNode(node);
    FitColumns(false);
    grid_->setCurrentIndex(model_->index(0, 0));
    grid_->scrollToTop();
  }
  const bool marine = node.kind == NodeKind::kMarineGroup;
  auto* item = findChild<QAction*>(QStringLiteral("cmdShowUnused"));
  item->setEnabled(marine);
  item->setToolTip(ToolTipText(marine
                                   ? "Lists all positions of the channel plan (Ctrl+U). A channel "
                                     "that is not in use is switched on with Ctrl+E."
                                   : "This table always lists all its places."));
  const QSignalBlocker quiet(unused_);
  unused_->setChecked(model_->ShowsUnused());
}

GridPage::Position GridPage::Where() const {
  const QModelIndex current = grid_->currentIndex();
  if (!current.isValid()) return {};
  Position position{.number = model_->ChannelOf(current.row()).number,
                    .column = current.column(),
                    .area = grid_->SelectedArea()};
  if (position.area) {
    for (int row = 0; row < position.area->rows; ++row) {
      position.numbers.push_back(model_->ChannelOf(position.area->row + row).number);
    }
  }
  return position;
}

void GridPage::GoTo(const Position& position) {
  const int row = std::max(model_->RowOf(position.number), 0);
  grid_->setCurrentIndex(model_->index(row, std::min(position.column, model_->columnCount() - 1)));
  if (row == 0) grid_->scrollToTop();
  if (!position.area) return;
  const int first = position.area->column;
  const int last = std::min(first + position.area->columns, model_->columnCount()) - 1;
  for (const int number : position.numbers) {
    const int selected = model_->RowOf(number);
    if (selected < 0 || first > last) continue;
    grid_->selectionModel()->select(
        QItemSelection(model_->index(selected, first), model_->index(selected, last)),
        QItemSelectionModel::Select);
  }
}

void GridPage::Follow() {
  const Position position = Where();
  const bool same = model_->Refresh();
  FitColumns(same);
  if (!same) GoTo(position);
}

void GridPage::FitColumns(bool keep_wide) {
  const QFontMetrics metrics = grid_->fontMetrics();
  const int margin = 2 * metrics.averageCharWidth();
  for (int column = 0; column < model_->columnCount(); ++column) {
    int text = grid_->horizontalHeader()->sectionSizeHint(column) - margin;
    for (int row = 0; row < model_->rowCount(); ++row) {
      text = std::max(text, metrics.horizontalAdvance(model_->CellText(row, column)));
    }
    const int width = std::max(model_->ColumnWidth(column), text + margin);
    if (!keep_wide || width > grid_->columnWidth(column)) grid_->setColumnWidth(column, width);
  }
  const int height = metrics.height() + metrics.height() / 3;
  grid_->verticalHeader()->setMinimumSectionSize(height);
  grid_->verticalHeader()->setDefaultSectionSize(height);
}

void GridPage::Do(const files::SheetEdit& edit) {
  Host().EditMany(edit.name, [&](core::RadioData& radio) { files::Run(radio, edit, Today()); });
  Host().DataChanged();
  for (const files::Typed::Part& part : edit.parts) {
    if (!part.place.IsMarine()) changed_.insert(part.place.number);
  }
  Follow();
  const bool marks =
      std::any_of(edit.parts.begin(), edit.parts.end(),
                  [](const files::Typed::Part& part) { return document::PutsInUse(part.member); });
  if (marks) Host().RefreshMarks();
}

std::optional<files::SheetEdit> GridPage::TakenFrom(const QWidget& editor) const {
  const QModelIndex index = delegate_->Index();
  std::string text = platform::ToAnsi(CellDelegate::TextOf(editor));
  const auto* box = qobject_cast<const FieldBox*>(&editor);
  if (box != nullptr && box->Rule().check != nullptr) {
    const std::optional<double> mhz = box->Rule().check(box->text(), core::ProfileOf(Data()));
    if (!mhz) return std::nullopt;
    text = *mhz == 0 ? std::string() : core::ShortestText(*mhz);
  }
  files::SheetEdit edit = files::PlanTyped(
      Data(), model_->Sheet(), {{index.row(), index.column()}, std::move(text)}, Today());
  return edit.refused.empty() ? std::optional(std::move(edit)) : std::nullopt;
}

bool GridPage::TakeEditor() {
  QWidget* const editor = delegate_->Editor();
  if (editor == nullptr || !grid_->IsEditing()) return true;
  if (!isEnabled() || !CellDelegate::IsChanged(*editor)) {
    delegate_->Close();
    return true;
  }
  const std::optional<files::SheetEdit> edit = TakenFrom(*editor);
  if (!edit) return false;
  delegate_->Close();
  if (edit->cells > 0) Do(*edit);
  return true;
}

void GridPage::TakeCell(GoOn go_on) {
  const QModelIndex index = delegate_->Index();
  if (!TakeEditor()) {
    // The message waits until a change of focus is over, which a page check may follow.
    untold_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (untold_) Refuse();
        },
        Qt::QueuedConnection);
    return;
  }
  if (go_on == GoOn::kStay) return;
  const QModelIndex next = NextCell(index, go_on);
  grid_->setCurrentIndex(next.isValid() ? next : index);
  if (next.isValid()) OpenEditor(next);
}

// As on the page of a channel, the focus stays in a field whose value is wrong.
void GridPage::Refuse() {
  untold_ = false;
  auto* const box = qobject_cast<FieldBox*>(delegate_->Editor());
  if (box == nullptr || !grid_->IsEditing() || !isEnabled()) return;
  if (box->Rule().check != nullptr) {
    const std::string_view field = box->Rule().hint;
    (void)Services().prompts.Show(core::MakeMessage(
        core::MessageId::kWrongFrequency, field,
        core::FrequencyFacts(platform::ToUtf8(box->text()), field, core::ProfileOf(Data()))));
  } else {
    const QModelIndex index = delegate_->Index();
    commands_->TellRefused(
        files::PlanTyped(Data(), model_->Sheet(),
                         {{index.row(), index.column()}, platform::ToAnsi(box->text())}, Today()));
  }
  box->setFocus();
}

void GridPage::OpenEditor(const QModelIndex& index) {
  grid_->scrollTo(index);
  grid_->edit(index);
}

QModelIndex GridPage::NextCell(const QModelIndex& from, GoOn go_on) const {
  const int columns = model_->columnCount();
  const int cells = model_->rowCount() * columns;
  const int step = go_on == GoOn::kDown   ? columns
                   : go_on == GoOn::kUp   ? -columns
                   : go_on == GoOn::kNext ? 1
                                          : -1;
  for (int cell = from.row() * columns + from.column() + step; cell >= 0 && cell < cells;
       cell += step) {
    const QModelIndex next = model_->index(cell / columns, cell % columns);
    if ((next.flags() & Qt::ItemIsEditable) != 0) return next;
  }
  return {};
}

bool GridPage::Check() {
  if (!isEnabled()) return true;
  const bool taken = TakeEditor();
  if (!taken) Refuse();
  return CheckCompleteness() && taken;
}

bool GridPage::CheckCompleteness() {
  const std::set<int> changed = std::exchange(changed_, {});
  for (const int number : changed) {
    const int row = model_->RowOf(number);
    if (row < 0) continue;
    const document::ChannelPlace place = model_->Sheet().Place(row);
    const document::Missing missing = document::MissingOf(Data(), place);
    if (!missing.Any()) continue;
    const core::Field& field = missing.frequency ? core::kFieldAt<&core::ChannelRecord::Rxfreq>
                                                 : core::kFieldAt<&core::ChannelRecord::CHDisplayL>;
    changed_ = changed;
    grid_->setCurrentIndex(model_->index(row, files::ColumnOf(model_->Sheet(), field)));
    const core::WayOut way = document::IsLastEnabled(Data(), place) ? core::WayOut::kNone
                             : document::ShowsEnabled(Data(), place)
                                 ? core::WayOut::kSwitchOff
                                 : core::WayOut::kSwitchOnAndOff;
    (void)Services().prompts.Show(
        core::MakeMessage(core::MessageId::kIncompleteChannel, core::kProgramTitle,
                          core::MissingFacts(missing.frequency, missing.display, way)));
    return false;
  }
  return true;
}

QWidget* GridPage::ControlOf(core::FieldRef at) const {
  const std::optional<document::ChannelPlace> place = document::PlaceOf(Data(), at);
  const files::Sheet& sheet = model_->Sheet();
  if (!place || sheet.Rows() == 0) return nullptr;
  const bool same = sheet.IsMarine() ? place->kind == sheet.heading : !place->IsMarine();
  return same && model_->RowOf(place->number) >= 0 ? grid_ : nullptr;
}

}  // namespace orvane::editor
