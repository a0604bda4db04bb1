#pragma once

#include <QDialog>
#include <QWidget>
#include <string>

#include "editor/window_services.h"
#include "link/receipt.h"

namespace orvane::editor {

/// Asks where, and writes the receipt there as a text. What goes wrong is told.
void SaveReceipt(const WindowServices& services, const link::Receipt& receipt);

/// `frmReceipt`: the account of a program run, to read, save and print. It stands beside the window
/// and goes with it, or when it is closed.
class ReceiptWindow : public QDialog {
  Q_OBJECT

 public:
  ReceiptWindow(const WindowServices& services, link::Receipt receipt, QWidget* parent);

 private:
  void Print();

  const WindowServices services_;
  const link::Receipt receipt_;
};

}  // namespace orvane::editor
