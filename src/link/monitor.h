#pragma once

#include <cstddef>
#include <string_view>

namespace orvane::link {

/// What a running transfer shows of itself: the dialog and the command line each have one.
class TransferView {
 public:
  virtual ~TransferView() = default;
  /// Debug mode only: a line about the step under way.
  virtual void Monitor(std::string_view text) = 0;
  /// A phase of the run begins: "Reading", "Keeping a copy", "Writing", "Reading back".
  virtual void Phase(std::string_view /*name*/) {}
  /// Percent 0..100 of the way, and the block under way where there is one.
  virtual void ShowProgress(int percent) = 0;
  /// Called after each block: its address and how many bytes have travelled on the wire so far, of
  /// how many.
  virtual void BlockDone(int address, std::size_t bytes_so_far, std::size_t bytes_total) = 0;
  /// An echo is due and for seconds not one byte has come. What comes later is shown as usual.
  virtual void NothingComesBack() = 0;
};

}  // namespace orvane::link
