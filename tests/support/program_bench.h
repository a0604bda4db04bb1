#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "image/codec.h"
#include "link/fill_from_radio.h"
#include "link/transfer_plan.h"
#include "link/transfer_session.h"
#include "support/random_data.h"
#include "support/scripted_port.h"
#include "support/simulated_bench.h"

namespace orvane::testing {

/// Keeps what it is told, and how many writes the radio had been asked by then.
class RecordingWitness : public link::ProgramWitness {
 public:
  explicit RecordingWitness(const std::vector<link::Exchange>& asked) : asked_(asked) {}
  std::optional<core::SystemError> RadioWasRead(const core::RadioData& radio) override {
    kept = radio;
    writes_before += Writes();
    return failure;
  }
  void WritingBegins(const core::RadioData& data) override {
    sent = data;
    writes_before += Writes();
  }
  [[nodiscard]] std::ptrdiff_t Writes() const {
    return std::count_if(asked_.begin(), asked_.end(), [](const link::Exchange& exchange) {
      return exchange.kind == link::ExchangeKind::kWrite;
    });
  }

  std::optional<core::SystemError> failure;
  std::optional<core::RadioData> kept;
  std::optional<core::RadioData> sent;
  std::ptrdiff_t writes_before = 0;  ///< of both calls together

 private:
  const std::vector<link::Exchange>& asked_;
};

/// Data on the desk, a simulated radio, and program runs between them. The user says yes.
struct ProgramBench {
  ProgramBench(core::RadioData desk, std::span<const std::uint8_t> memory, double baud = 0,
               link::FaultPlan faults = {})
      : data(std::move(desk)), radio(memory, baud, std::move(faults)) {
    prompts.fallback = core::Answer::kYes;
  }
  link::TransferOutcome Run(const link::TransferOptions& options = {},
                            link::SessionKind kind = link::SessionKind::kProgram) {
    link::TransferSession session(
        data, state, {radio.port, radio.clock, radio.pump, log, view, {"COM3", "Cable"}}, prompts);
    return session.Run(kind, options, &witness);
  }
  [[nodiscard]] std::vector<std::uint8_t> Memory() const {
    return {radio.radio.Memory().begin(), radio.radio.Memory().end()};
  }

  core::RadioData data;
  core::RunState state;
  SimulatedBench radio;
  RecordingLog log;
  RecordingView view;
  ScriptedPrompts prompts;
  RecordingWitness witness{radio.asked};
};

/// Any contents that the data's checks let a radio of its model and destination have.
inline std::vector<std::uint8_t> RandomMemory(RandomData& random, const core::RadioData& desk) {
  const core::ModelProfile& profile = core::ProfileOf(desk);
  core::RadioData radio = random.Of(desk.MODELTYPE);
  for (std::uint8_t& byte : radio.Image.Used()) {
    if (random.Below(4) == 0) byte = static_cast<std::uint8_t>(random.Below(256));
  }
  image::StoreModelCodes(radio.Image, profile);
  image::StoreProduct(radio.Image, profile);
  image::SetDestinationBits(radio.Image, image::Sel1(desk.Image), image::Sel2(desk.Image));
  return link::RadioMemory(profile, radio.Image.Used());
}

/// Where a radio does not hold the bytes that were sent, apart from what is its own.
inline std::vector<link::Mismatch> TrueDifferences(const core::RadioData& sent,
                                                   std::span<const std::uint8_t> memory) {
  std::vector<link::Mismatch> differences;
  for (int block = 64; block <= sent.Image.LastIndex(); block += 16) {
    for (const link::Piece& piece : link::PiecesToWrite(block, sent)) {
      for (int at = piece.address; at < piece.address + piece.length; ++at) {
        const int own = at == 90 ? 0xFF : (at == 168 ? 0x04 : 0);
        const int held = memory[static_cast<std::size_t>(at)];
        const auto found = static_cast<std::uint8_t>((held & ~own) | (sent.Image[at] & own));
        if (found != sent.Image[at]) differences.push_back({at, sent.Image[at], found});
      }
    }
  }
  return differences;
}

}  // namespace orvane::testing
