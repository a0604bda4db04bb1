#include "editor/receipt_window.h"

#include <QFontDatabase>
#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "editor/dialog_parts.h"
#include "editor/print_text.h"
#include "editor/save_as.h"
#include "files/receipt_text.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

constexpr QSize kFirstSize(520, 360);

std::string TextOf(const link::Receipt& receipt) {
  return files::ReceiptText(receipt, files::DifferingFields(receipt));
}

}  // namespace

void SaveReceipt(const WindowServices& services, const link::Receipt& receipt) {
  SaveAs(services, kTextFilter, [&](const std::string& /*path*/) { return TextOf(receipt); });
}

ReceiptWindow::ReceiptWindow(const WindowServices& services, link::Receipt receipt, QWidget* parent)
    : QDialog(parent), services_(services), receipt_(std::move(receipt)) {
  setObjectName(QStringLiteral("frmReceipt"));
  setWindowTitle(tr("Receipt"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* column = new QVBoxLayout(this);
  auto* text = new QPlainTextEdit(platform::FromUtf8(TextOf(receipt_)), this);
  text->setObjectName(QStringLiteral("txtReceipt"));
  text->setAccessibleName(tr("Receipt"));
  text->setReadOnly(true);
  text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  column->addWidget(text);
  auto* row = new QHBoxLayout;
  column->addLayout(row);
  row->addStretch();
  const auto add = [&](const char* name, const QString& caption, auto command) {
    QPushButton* const button = AddButton(*this, *row, name, caption);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, command);
    return button;
  };
  add("cmdSaveAs", tr("Save &As..."), [this] { SaveReceipt(services_, receipt_); });
  add("cmdPrint", tr("&Print..."), [this] { Print(); });
  add("cmdClose", tr("&Close"), [this] { close(); })->setDefault(true);
  resize(kFirstSize);
}

void ReceiptWindow::Print() {
  PrintText(services_, *this, TextOf(receipt_), receipt_.file);
}

}  // namespace orvane::editor
