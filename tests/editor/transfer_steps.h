#pragma once

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <cstdint>
#include <utility>
#include <vector>

#include "command_desk.h"
#include "link/radio_faults.h"
#include "link/transfer_plan.h"

/// What a user does in the transfer dialog, which is the active modal window, and what becomes of
/// the radio.
namespace orvane::testing {

inline constexpr const char* kRead = "mnuTransferRead";
inline constexpr const char* kProgram = "mnuTransferProgram";
inline constexpr const char* kCompare = "mnuTransferCompare";

template <class T>
T* Child(const char* name) {
  return QApplication::activeModalWidget()->findChild<T*>(QLatin1String(name));
}

inline void Click(const char* button) {
  Child<QPushButton>(button)->click();
}

inline link::FaultPlan Fault(const char* text) {
  return link::FaultPlan({*link::ParseFault(text).fault});
}

inline core::ChannelRecord& Channel16(core::RadioData& data) {
  return data.Table(core::MarineGroup::kUsa)[32];
}

/// What of the radio's memory a program run of those data writes.
inline std::vector<std::uint8_t> Written(CommandDesk& desk) {
  std::vector<std::uint8_t> bytes;
  const auto memory = std::as_const(desk.radio).Memory();
  for (int block = 0; block < static_cast<int>(memory.size()); block += link::kBlockSize) {
    for (const link::Piece& piece : link::PiecesToWrite(block, desk.sample)) {
      for (int at = piece.address; at < piece.address + piece.length; ++at) {
        bytes.push_back(memory[static_cast<std::size_t>(at)]);
      }
    }
  }
  return bytes;
}

/// Cancels at the n-th write.
inline void BreakAt(CommandDesk& desk, int number) {
  desk.on_exchange = [&desk, number](const link::Exchange& exchange) {
    if (exchange.kind == link::ExchangeKind::kWrite && desk.Asked(exchange.kind) == number) {
      desk.state.Cancel = true;
    }
  };
}

inline void Settled(const WindowDesk& desk) {
  QVERIFY(QTest::qWaitFor([&] { return desk.window->AutosaveTimer() != nullptr; }));
}

}  // namespace orvane::testing
