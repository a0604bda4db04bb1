#include "editor/plain_pages.h"

#include <QPainter>
#include <QPixmap>
#include <QVBoxLayout>
#include <utility>

namespace orvane::editor {
namespace {

/// A picture that looks the same while the window takes no input: greying it would only flicker.
/// Where there is no room for all of it, it is smaller.
class Logo : public QLabel {
 public:
  using QLabel::QLabel;

  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint() / 2; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    const QPixmap picture = Fitting(contentsRect().size());
    QRect place(QPoint(), picture.deviceIndependentSize().toSize());
    place.moveCenter(contentsRect().center());
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(place, picture);
  }

 private:
  // Made smaller once for each size: a painter that does it shares the lines out among threads,
  // and waits for them at each paint.
  QPixmap Fitting(const QSize& room) {
    QPixmap whole = pixmap();
    const QSize size = whole.deviceIndependentSize().toSize();
    if (size.boundedTo(room) == size) return whole;
    const QSize fitting = size.scaled(room, Qt::KeepAspectRatio) * devicePixelRatio();
    if (smaller_.size() != fitting) {
      smaller_ = whole.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
      smaller_.setDevicePixelRatio(devicePixelRatio());
    }
    return smaller_;
  }

  QPixmap smaller_;
};

}  // namespace

GeneralPage::GeneralPage(PageServices services, QWidget* parent)
    : Page(services, parent), logo_(new Logo(this)) {
  setObjectName(QStringLiteral("pictGeneral"));
  setAccessibleName(PlainNodeName(NodeKind::kGeneral));
  logo_->setObjectName(QStringLiteral("pictLogo"));
  logo_->setAccessibleName(tr("Logo"));
  logo_->hide();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(logo_);
}

void GeneralPage::PutBeside(FirstSteps* steps) {
  beside_ = steps;
  static_cast<QBoxLayout*>(layout())->addWidget(steps);
}

// Below the logo where there is no room for both side by side.
void GeneralPage::resizeEvent(QResizeEvent* event) {
  Page::resizeEvent(event);
  if (beside_ == nullptr) return;
  auto& box = static_cast<QBoxLayout&>(*layout());
  const QMargins margins = box.contentsMargins();
  const int room = width() - margins.left() - margins.right() - box.spacing();
  const bool side_by_side = room >= logo_->sizeHint().width() + beside_->ColumnWidth();
  box.setDirection(side_by_side ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  beside_->SetShape(side_by_side ? FirstSteps::Shape::kColumn : FirstSteps::Shape::kSquare);
}

void GeneralPage::Fill(const NodeRef& /*node*/) {}

void GeneralPage::ShowLogo(QImage picture) {
  shown_ = true;
  logo_->setPixmap(QPixmap::fromImage(std::move(picture), Qt::NoFormatConversion));
  logo_->show();
}

GreyPage::GreyPage(PageServices services, QWidget* parent) : Page(services, parent) {
  setObjectName(QStringLiteral("pictGrey"));
  setAccessibleName(PlainNodeName(NodeKind::kProgram));
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Window);
}

void GreyPage::Fill(const NodeRef& /*node*/) {}

}  // namespace orvane::editor
