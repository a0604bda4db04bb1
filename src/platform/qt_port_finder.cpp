#include "platform/qt_port_finder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSerialPortInfo>
#include <algorithm>
#include <optional>
#include <tuple>

#include "link/port_links.h"
#include "link/port_name.h"
#include "link/radio_program.h"
#include "platform/ansi_text.h"
#include "platform/system_devices.h"

namespace orvane::platform {
namespace {

struct Device {
  link::FoundPort port;
  bool is_usb = false;
  QString order;  ///< among devices of one sort
};

// A kernel reserves ttyS names for UARTs that the machine may not have; their type is 0.
bool ReallyExists(const QString& name) {
  QFile type("/sys/class/tty/" + name + "/type");
  return !type.open(QIODevice::ReadOnly) || type.readAll().trimmed() != "0";
}

QString Description(const QSerialPortInfo& info) {
  const QString description = info.description().simplified();
  return description.isEmpty() ? "Serial port " + info.portName() : description;
}

Device Describe(const QSerialPortInfo& info) {
  const QString name = info.portName();
  const QString socket = QFileInfo("/sys/class/tty/" + name + "/device").canonicalFilePath();
  const bool is_usb = socket.contains("/usb") || info.hasVendorIdentifier();
  return {{ToUtf8(name), ToUtf8(Description(info)), ToUtf8(info.systemLocation())},
          is_usb,
          is_usb && !socket.isEmpty() ? socket : name};
}

bool ComesBefore(const Device& a, const Device& b) {
  // By length first: ttyS2 before ttyS10.
  return std::tuple(a.is_usb, a.order.size(), a.order) <
         std::tuple(b.is_usb, b.order.size(), b.order);
}

std::vector<link::FoundPort> MachineDevices() {
  std::vector<Device> devices;
  for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
    if (ReallyExists(info.portName())) devices.push_back(Describe(info));
  }
  std::sort(devices.begin(), devices.end(), ComesBefore);
  std::vector<link::FoundPort> ports;
  ports.reserve(devices.size());
  for (Device& device : devices) ports.push_back(std::move(device.port));
  return ports;
}

#ifndef Q_OS_WIN

// What a linked device is called that the system does not list.
std::string LinkedDescription(const std::string& device) {
  if (device.starts_with("/dev/pts/")) return std::string(link::kSimulatedRadio);
  return "Serial port " + device;
}

std::vector<link::PinnedPort> ReadLinks(const std::string& folder) {
  std::vector<link::PinnedPort> pins;
  const QFileInfoList entries =
      QDir(FromUtf8(folder)).entryInfoList(QDir::Files | QDir::System | QDir::NoDotAndDotDot);
  for (const QFileInfo& entry : entries) {
    const std::optional<int> number = link::ParsePortLinkName(ToUtf8(entry.fileName()));
    const std::string device = ToUtf8(entry.canonicalFilePath());
    if (number && IsTerminal(device)) pins.push_back({*number, device, LinkedDescription(device)});
  }
  return pins;
}

#endif

}  // namespace

std::vector<link::FoundPort> QtPortFinder::FindPorts() {
  std::vector<link::FoundPort> devices = MachineDevices();
#ifdef Q_OS_WIN
  for (link::FoundPort& port : devices) port.friendly_name += " (" + port.name + ")";
  return devices;
#else
  return link::NumberDevices(devices, ReadLinks(links_folder_));
#endif
}

std::string DeviceOfPort(link::PortFinder& finder, int number) {
  link::CComList ports(finder);
  ports.Create();
  const int index = ports.FindPortIndex(number);
  if (index < 0) return link::PortName(number);
  return ports.PortItem(index).device;
}

}  // namespace orvane::platform
