#include "editor/first_steps.h"

#include <QFileInfo>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

namespace orvane::editor {
namespace {

constexpr int kFiles = 4;
constexpr int kFileNameWidth = 24;  // average letters; more are cut in the middle

// A button is disabled with its item, and then says what the item says.
void Follow(QPushButton& button, const QAction& item, const QString& tool_tip) {
  button.setEnabled(item.isEnabled());
  button.setToolTip(item.isEnabled() ? tool_tip : item.toolTip());
}

}  // namespace

FirstSteps::FirstSteps(const Menus& menus, QWidget* parent)
    : QWidget(parent),
      menus_(menus),
      steps_(MakeBox("lblFirstSteps", tr("First steps"))),
      recent_(MakeBox("lblRecentFiles", tr("Recent files"))) {
  setObjectName(QStringLiteral("boxFirstSteps"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins({});
  column->addStretch();
  column->addWidget(steps_.widget);
  column->addWidget(recent_.widget);
  column->addStretch();
  AddSteps();
  AddSimulated();
  recent_.widget->hide();
  SetShape(Shape::kSquare);
}

FirstSteps::Box FirstSteps::MakeBox(const char* name, const QString& heading) {
  auto* widget = new QWidget(this);
  auto* grid = new QGridLayout(widget);
  grid->setContentsMargins({});
  auto* label = new QLabel(heading, widget);
  label->setObjectName(QLatin1String(name));
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  grid->addWidget(label, 0, 0, 1, 2);
  return {widget, grid, {}};
}

QPushButton* FirstSteps::Add(Box& box, const QString& name, const QString& caption,
                             const QString& tool_tip) {
  auto* button = new QPushButton(caption, box.widget);
  button->setObjectName(name);
  button->setToolTip(tool_tip);
  box.buttons.push_back(button);
  return button;
}

void FirstSteps::AddSteps() {
  QPushButton* const read = Add(steps_, QStringLiteral("cmdStepRead"), tr("&Read from Radio"),
                                tr("Fetches what your radio holds, over the programming cable"));
  connect(read, &QPushButton::clicked, menus_.read, &QAction::trigger);
  QPushButton* const open = Add(steps_, QStringLiteral("cmdStepOpen"), tr("O&pen"),
                                tr("Opens a settings file that was saved before"));
  connect(open, &QPushButton::clicked, menus_.file_open, &QAction::trigger);
  QPushButton* const fresh =
      Add(steps_, QStringLiteral("cmdStepNew"), tr("&New from a Destination"),
          tr("Begins with the channels of a country or region"));
  connect(fresh, &QPushButton::clicked, this, [this, fresh] {
    menus_.destination->popup(fresh->mapToGlobal(fresh->rect().bottomLeft()));
  });
}

void FirstSteps::AddSimulated() {
  const QAction& item = *menus_.simulated_radio;
  QPushButton* const button = Add(steps_, QStringLiteral("cmdStepSimulated"),
                                  tr("Try the &Simulated Radio"), item.toolTip());
  connect(button, &QPushButton::clicked, &item, &QAction::trigger);
  button->setEnabled(item.isEnabled());
}

void FirstSteps::AddFiles() {
  for (int place = 0; place < kFiles; ++place) {
    QPushButton* const button =
        Add(recent_, QStringLiteral("cmdRecent_%1").arg(place), QString(), QString());
    connect(button, &QPushButton::clicked, menus_.recent_files[static_cast<std::size_t>(place)],
            &QAction::trigger);
  }
  Arrange(recent_, shape_);
}

void FirstSteps::ShowFiles() {
  const bool any = menus_.recent_files.front()->isVisible();
  recent_.widget->setVisible(any);
  if (!any) return;
  if (recent_.buttons.empty()) AddFiles();
  const QFontMetrics font = fontMetrics();
  for (std::size_t place = 0; place < recent_.buttons.size(); ++place) {
    const QAction& item = *menus_.recent_files[place];
    QPushButton& button = *recent_.buttons[place];
    button.setVisible(item.isVisible());
    if (!item.isVisible()) continue;
    const QString path = item.data().toString();
    const QString name = QFileInfo(path).fileName();
    button.setText(PlainCaption(
        font.elidedText(name, Qt::ElideMiddle, kFileNameWidth * font.averageCharWidth())));
    button.setAccessibleName(tr("Open %1").arg(name));
    button.setAccessibleDescription(path);
    Follow(button, item, path);
  }
}

void FirstSteps::Show(document::StartOffer offer) {
  steps_.widget->setVisible(offer == document::StartOffer::kFirstSteps);
  ShowFiles();
  setVisible(offer != document::StartOffer::kNothing);
}

void FirstSteps::SetShape(Shape shape) {
  shape_ = shape;
  for (const Box* box : {&steps_, &recent_}) Arrange(*box, shape);
}

int FirstSteps::ColumnWidth() const {
  int width = 0;
  for (const Box* box : {&steps_, &recent_}) {
    for (const QPushButton* button : box->buttons) {
      width = std::max(width, button->sizeHint().width());
    }
  }
  return width;
}

void FirstSteps::Arrange(const Box& box, Shape shape) {
  const int columns = shape == Shape::kColumn ? 1 : 2;
  for (int place = 0; place < static_cast<int>(box.buttons.size()); ++place) {
    QPushButton* const button = box.buttons[static_cast<std::size_t>(place)];
    box.grid->removeWidget(button);
    box.grid->addWidget(button, 1 + place / columns, place % columns);
  }
}

}  // namespace orvane::editor
