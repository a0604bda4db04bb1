#include "editor/serial_port_menu.h"

#include <cstddef>
#include <utility>

#include "platform/ansi_text.h"

namespace orvane::editor {

SerialPortMenu::SerialPortMenu(const Menus& menus, link::PortFinder& finder,
                               core::SettingsStore& settings)
    : menus_(menus),
      list_(finder),
      settings_(settings),
      own_port_(settings_.PortNumber()),
      port_number_(own_port_) {
  connect(menus_.serial_port, &QMenu::aboutToShow, this, &SerialPortMenu::UpdateComList);
}

void SerialPortMenu::MakeItems() {
  for (int index = 0; index < kPorts; ++index) {
    auto* item = new QAction(menus_.serial_port);
    item->setObjectName(QStringLiteral("mnuOptionsSerialPort1_%1").arg(index));
    item->setMenuRole(QAction::NoRole);
    item->setCheckable(true);
    item->setVisible(false);
    connect(item, &QAction::triggered, this, [this, index] { Pick(index); });
    items_.push_back(item);
  }
  menus_.serial_port->insertActions(menus_.gone_port, {items_.begin(), items_.end()});
}

void SerialPortMenu::UpdateComList() {
  if (items_.empty()) MakeItems();
  const int count = list_.Create();
  menus_.no_port->setVisible(count == 0);
  for (int index = 0; index < kPorts; ++index) {
    QAction* item = items_[static_cast<std::size_t>(index)];
    item->setVisible(index < count);
    if (index < count) {
      item->setText(PlainCaption(platform::FromUtf8(list_.RefComName(index))));
    }
  }
  const bool gone = !chosen_.isEmpty() && list_.FindPortIndex(port_number_) < 0;
  menus_.gone_port->setVisible(gone);
  if (gone) menus_.gone_port->setText(chosen_ + tr(" (not connected)"));
}

void SerialPortMenu::SelectStoredPort() {
  const int index = list_.FindPortIndex(port_number_);
  if (index >= 0) CheckOnly(index);
}

void SerialPortMenu::Choose(int number) {
  UpdateComList();
  const int index = list_.FindPortIndex(number);
  if (index >= 0) Pick(index);
}

void SerialPortMenu::Pick(int index) {
  CheckOnly(index);
  port_number_ = list_.PortItem(index).port_number;
  if (port_number_ == borrowed_) return;
  own_port_ = port_number_;
  settings_.SetPortNumber(own_port_);
}

bool SerialPortMenu::Borrow(int number) {
  borrowed_ = number;
  Choose(number);
  if (port_number_ == number) return true;
  borrowed_ = 0;
  return false;
}

void SerialPortMenu::GiveBack() {
  const int given_back = std::exchange(borrowed_, 0);
  if (given_back != 0 && port_number_ == given_back) {
    CheckOnly(-1);
    port_number_ = own_port_;
  }
  UpdateComList();
  SelectStoredPort();
}

void SerialPortMenu::CheckOnly(int index) {
  chosen_ = index < 0 ? QString() : items_[static_cast<std::size_t>(index)]->text().trimmed();
  for (int other = 0; other < kPorts; ++other) {
    items_[static_cast<std::size_t>(other)]->setChecked(other == index);
  }
}

}  // namespace orvane::editor
