#include "editor/find_cable_dialog.h"

#include <QAccessible>
#include <QClipboard>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>
#include <string>

#include "editor/dialog_parts.h"
#include "link/port_name.h"
#include "platform/ansi_text.h"

namespace orvane::editor {
namespace {

using Stage = link::Replug::Stage;

constexpr QSize kFirstSize(620, 380);
constexpr int kStateLines = 4;
constexpr int kLookEvery = 300;     // ms; a port is believed in after two looks
constexpr int kLooksToHolders = 7;  // who has a port is looked for less often

enum Column { kPortColumn, kDescriptionColumn, kUseColumn };
constexpr int kNumberRole = Qt::UserRole;

constexpr const char* kAtFirst =
    "Find by Unplugging tells which port is that of the cable. Test tells what is wrong between a "
    "port and the radio at it; put the radio into clone mode first.";

QString Text(std::string_view text) {
  return platform::FromUtf8(text);
}

QString PortText(const link::PortEntry& port) {
  return Text(link::LabelOf(port).Text());
}

}  // namespace

FindCableDialog::FindCableDialog(const FindCableServices& services, QWidget* parent)
    : QDialog(parent),
      services_(services),
      list_(new QTreeWidget(this)),
      state_(new LiveLabel(this)),
      timer_(new QTimer(this)) {
  setObjectName(QStringLiteral("frmFindCable"));
  setWindowTitle(tr("Find my Cable"));
  setModal(true);
  new QVBoxLayout(this);
  BuildList();
  state_->setObjectName(QStringLiteral("lblState"));
  state_->setAccessibleDescription(tr("What to do, or what was found"));
  state_->setWordWrap(true);
  state_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  state_->setMinimumHeight(kStateLines * fontMetrics().lineSpacing());
  layout()->addWidget(state_);
  BuildCommand();
  BuildButtons();

  timer_->setObjectName(QStringLiteral("tmrLook"));
  timer_->setInterval(kLookEvery);
  connect(timer_, &QTimer::timeout, this, &FindCableDialog::LookAtPorts);
  LookAtPorts();
  SelectPort(services_.chosen());
  Tell(tr(kAtFirst));
  resize(sizeHint().expandedTo(kFirstSize));
  timer_->start();
}

void FindCableDialog::BuildList() {
  list_->setObjectName(QStringLiteral("lstPorts"));
  list_->setAccessibleName(tr("Serial ports"));
  list_->setRootIsDecorated(false);
  list_->setUniformRowHeights(true);
  list_->setAllColumnsShowFocus(true);
  list_->setHeaderLabels({tr("Port"), tr("Description"), tr("Use")});
  list_->header()->setSectionResizeMode(kPortColumn, QHeaderView::ResizeToContents);
  list_->header()->setSectionResizeMode(kDescriptionColumn, QHeaderView::ResizeToContents);
  connect(list_, &QTreeWidget::itemSelectionChanged, this, &FindCableDialog::SetControls);
  static_cast<QVBoxLayout*>(layout())->addWidget(list_, 1);
}

void FindCableDialog::BuildCommand() {
  command_row_ = new QWidget(this);
  auto* row = new QHBoxLayout(command_row_);
  row->setContentsMargins({});
  command_ = new QLineEdit(command_row_);
  command_->setObjectName(QStringLiteral("txtCommand"));
  command_->setAccessibleName(tr("Command for a terminal"));
  command_->setReadOnly(true);
  command_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  row->addWidget(command_);
  copy_ = AddButton(*this, *row, "cmdCopy", tr("&Copy"));
  copy_->setToolTip(tr("The command, to be pasted into a terminal"));
  connect(copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(command_->text()); });
  layout()->addWidget(command_row_);
  command_row_->hide();
}

void FindCableDialog::BuildButtons() {
  auto* row = new QHBoxLayout;
  find_ = AddButton(*this, *row, "cmdFind", tr("&Find by Unplugging"));
  test_ = AddButton(*this, *row, "cmdTest", tr("&Test"));
  use_ = AddButton(*this, *row, "cmdUse", tr("&Use This Port"));
  row->addStretch();
  help_ = AddButton(*this, *row, "cmdHelp", tr("Help"));
  help_->setShortcut(Qt::Key_F1);
  close_ = AddButton(*this, *row, "cmdClose", tr("Close"));
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
  connect(find_, &QPushButton::clicked, this,
          [this] { search_ ? EndSearch(tr(kAtFirst)) : BeginSearch(); });
  connect(test_, &QPushButton::clicked, this, &FindCableDialog::Test);
  connect(use_, &QPushButton::clicked, this, &FindCableDialog::UseSelected);
  connect(help_, &QPushButton::clicked, this,
          [this] { OpenTopic(*this, services_.help, services_.prompts, help::kFindCableContext); });
  connect(close_, &QPushButton::clicked, this, &FindCableDialog::reject);
  setTabOrder(list_, command_);
  find_->setFocus();
}

void FindCableDialog::LookAtPorts() {
  std::vector<link::PortEntry> ports = link::PortsNow(services_.ports);
  const bool changed = ports != ports_;
  ports_ = std::move(ports);
  if (search_) {
    const Stage before = search_->Where();
    if (search_->Look(ports_) != before) FollowSearch();
  }
  if (changed || looks_++ % kLooksToHolders == 0) {
    holders_ = link::HoldersOf(services_.devices, ports_);
  }
  ShowPorts();
}

// Rows are written over in place, so that nothing is told anew that has not changed.
void FindCableDialog::ShowPorts() {
  struct Row {
    int number;
    QStringList texts;
  };
  std::vector<Row> rows;
  const int chosen = services_.chosen();
  bool chosen_is_there = false;
  const auto name = [chosen](int number) {
    return Text(link::PortName(number)) + (number == chosen ? tr(" (chosen)") : QString());
  };
  for (std::size_t i = 0; i < ports_.size(); ++i) {
    const int number = ports_[i].port_number;
    chosen_is_there = chosen_is_there || number == chosen;
    rows.push_back({number,
                    {name(number), Text(link::LabelOf(ports_[i]).description),
                     Text(link::UseText(holders_[i]))}});
  }
  if (!chosen_is_there) rows.push_back({chosen, {name(chosen), tr("(not connected)"), {}}});

  const int selected = SelectedPort().port_number;
  while (list_->topLevelItemCount() > static_cast<int>(rows.size())) {
    delete list_->takeTopLevelItem(list_->topLevelItemCount() - 1);
  }
  while (list_->topLevelItemCount() < static_cast<int>(rows.size())) {
    list_->addTopLevelItem(new QTreeWidgetItem);
  }
  for (int i = 0; i < list_->topLevelItemCount(); ++i) {
    const Row& row = rows[static_cast<std::size_t>(i)];
    QTreeWidgetItem& item = *list_->topLevelItem(i);
    item.setData(kPortColumn, kNumberRole, row.number);
    for (int column = kPortColumn; column <= kUseColumn; ++column) {
      if (item.text(column) != row.texts[column]) item.setText(column, row.texts[column]);
    }
  }
  if (SelectedPort().port_number != selected) SelectPort(selected);
  SetControls();
}

QTreeWidgetItem* FindCableDialog::RowOf(int number) const {
  for (int i = 0; i < list_->topLevelItemCount(); ++i) {
    QTreeWidgetItem* const item = list_->topLevelItem(i);
    if (item->data(kPortColumn, kNumberRole).toInt() == number) return item;
  }
  return nullptr;
}

void FindCableDialog::SelectPort(int number) {
  QTreeWidgetItem* const row = RowOf(number);
  list_->setCurrentItem(row != nullptr ? row : RowOf(services_.chosen()));
}

link::PortEntry FindCableDialog::SelectedPort() const {
  const QTreeWidgetItem* const item = list_->currentItem();
  const int number =
      item != nullptr ? item->data(kPortColumn, kNumberRole).toInt() : services_.chosen();
  for (const link::PortEntry& port : ports_) {
    if (port.port_number == number) return port;
  }
  link::PortEntry absent;
  absent.port_number = static_cast<std::int16_t>(number);
  absent.device = link::PortName(number);
  return absent;
}

void FindCableDialog::SetControls() {
  if (use_ == nullptr) return;  // the list is filled first
  const bool testing = check_ != nullptr;
  const link::PortEntry port = SelectedPort();
  find_->setEnabled(!testing);
  find_->setText(search_ ? tr("Stop &Finding") : tr("&Find by Unplugging"));
  test_->setEnabled(!testing && !search_);
  use_->setEnabled(!testing && !search_ && port.found && port.port_number != services_.chosen());
  help_->setEnabled(!testing);
  close_->setText(testing ? tr("Cancel") : tr("Close"));
}

void FindCableDialog::Tell(const QString& text, const QString& command) {
  command_->setText(command);
  command_row_->setVisible(!command.isEmpty());
  state_->Tell(text);
}

void FindCableDialog::BeginSearch() {
  search_.emplace(ports_);
  Tell(tr("Unplug the cable now, at the computer. If it is not plugged in, plug it in."));
  SetControls();
}

void FindCableDialog::EndSearch(const QString& text) {
  search_.reset();
  Tell(text);
  SetControls();
}

void FindCableDialog::FollowSearch() {
  switch (search_->Where()) {
    case Stage::kUnplug:
      return;
    case Stage::kPlugIn:
      Tell(tr("Plug it in again."));
      return;
    case Stage::kSeveral: {
      QStringList names;
      for (const link::PortEntry& port : search_->Came()) names << PortText(port);
      EndSearch(tr("Several ports came at once: %1. Unplug the cable alone, without a hub or "
                   "other devices, and find it again.")
                    .arg(names.join(QStringLiteral(", "))));
      return;
    }
    case Stage::kFound: {
      const link::PortEntry port = search_->Came().front();
      services_.choose(port.port_number);
      ShowPorts();
      SelectPort(port.port_number);
      EndSearch(tr("The cable is at %1, which is chosen now. Test tells whether the radio answers.")
                    .arg(PortText(port)));
      test_->setFocus();
      return;
    }
  }
}

void FindCableDialog::UseSelected() {
  const link::PortEntry port = SelectedPort();
  services_.choose(port.port_number);
  ShowPorts();
  Tell(tr("%1 is chosen now.").arg(PortText(port)));
  test_->setFocus();
}

void FindCableDialog::Test() {
  const link::PortEntry port = SelectedPort();
  const core::BusyScope busy(services_.state);
  link::PortCheck check({services_.clock, services_.pump, services_.log, services_.devices});
  check_ = &check;
  SetControls();
  close_->setFocus();
  Tell(tr("Testing %1...").arg(PortText(port)));
  const std::unique_ptr<link::SerialPort> serial = services_.make_port(port.port_number);
  link::Diagnosis found;
  if (services_.interrupts == nullptr) {
    found = check.Run(*serial, port.device, &services_.model);
  } else {
    const platform::WhileInterruptible cancel(*services_.interrupts, [&check] { check.Cancel(); });
    found = check.Run(*serial, port.device, &services_.model);
  }
  check_ = nullptr;
  Tell(PortText(port) + QStringLiteral(": ") + Text(found.text) + QLatin1Char('\n') +
           Text(found.remedy),
       Text(found.command));
  SetControls();
  (found.command.empty() ? test_ : copy_)->setFocus();
}

void FindCableDialog::reject() {
  if (check_ != nullptr) {
    check_->Cancel();
  } else if (search_) {
    EndSearch(tr(kAtFirst));
  } else {
    QDialog::reject();
  }
}

void FindCableDialog::closeEvent(QCloseEvent* event) {
  if (check_ == nullptr) {
    search_.reset();
    QDialog::closeEvent(event);
    return;
  }
  check_->Cancel();
  event->ignore();
}

}  // namespace orvane::editor
