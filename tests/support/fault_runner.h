#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/radio_data.h"
#include "core/services.h"
#include "link/radio_faults.h"
#include "link/simulated_radio.h"
#include "link/transfer_session.h"

namespace orvane::testing {

/// Cancel, pressed while the PC waits for what belongs to an exchange.
struct CancelPress {
  int exchange = 0;  ///< from 1
  int waits = 0;     ///< times the user interface got to work since the exchange began
};

/// One session against a radio that misbehaves, and how the user takes it.
struct FaultCase {
  std::vector<link::Fault> faults{};
  std::uint64_t seed = 0;  ///< scatters faults over this share of the exchanges
  double percent = 0;
  std::optional<CancelPress> cancel{};
  bool agree = true;  ///< the user answers questions with OK or Retry, else with Cancel
  double baud = 0;    ///< 0: bytes take no time
};
[[nodiscard]] std::string CaseText(const FaultCase& fault_case);

/// What a single fault must lead to.
enum class Outcome { kSuccess, kFailure, kEither };

/// Runs sessions of one kind between one data set and one radio, with faults, and looks for broken
/// promises: every run ends by itself, in time, with success or a known message; a read that does
/// not complete changes nothing; a program run never writes a byte that is not the image's; the
/// same session succeeds once the fault is gone.
class FaultRunner {
 public:
  FaultRunner(core::RadioData desk, std::vector<std::uint8_t> radio_memory, link::SessionKind kind,
              const link::TransferOptions& options = {});

  /// The exchanges of a run without faults.
  [[nodiscard]] const std::vector<link::Exchange>& Exchanges() const { return ideal_.asked; }
  /// Broken promises of a run and of the faultless run after it, "" when all are kept.
  [[nodiscard]] std::string Check(const FaultCase& fault_case) const;

  /// The one fault of the case strikes at that index of Exchanges().
  [[nodiscard]] Outcome Expected(const FaultCase& fault_case, std::size_t index) const;
  /// As Check, and that the run of a single fault ends as expected, says why and takes no longer
  /// than the time-outs that this fault runs into.
  [[nodiscard]] std::string CheckSingle(const FaultCase& fault_case, std::size_t index) const;

 private:
  struct Run {
    core::RadioData data;
    core::RunState state;
    std::vector<std::uint8_t> memory;
    std::vector<link::Exchange> asked;
    std::vector<core::Message> messages;
    std::size_t asked_before_cancel = 0;  ///< exchanges made when Cancel was pressed
    bool cancelled = false;               ///< Cancel was pressed before the session ended
    link::TransferOutcome outcome;
    bool done = false;
    bool port_open = false;
    double seconds = 0;
    double seconds_after_cancel = 0;
  };
  enum class Phase { kConnect, kStatus, kModelCheck, kRadioBytes, kBlocks };

  [[nodiscard]] Run RunOnce(const core::RadioData& data, const std::vector<std::uint8_t>& memory,
                            const FaultCase& fault_case) const;
  [[nodiscard]] std::string BrokenPromises(const Run& run) const;
  [[nodiscard]] std::string CheckEnding(const Run& run) const;
  [[nodiscard]] std::string CheckContents(const Run& run) const;
  [[nodiscard]] std::string CheckWrites(const Run& run) const;
  [[nodiscard]] std::string CheckCancelled(const Run& run) const;
  [[nodiscard]] std::string CheckRecovery(const Run& run) const;
  [[nodiscard]] std::string CheckReason(const Run& run, const link::Fault& fault,
                                        Phase phase) const;
  [[nodiscard]] Phase PhaseAt(std::size_t index) const;

  core::RadioData desk_;
  std::vector<std::uint8_t> radio_memory_;
  link::SessionKind kind_;
  link::TransferOptions options_;
  Run ideal_;
};

}  // namespace orvane::testing
