#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "link/receipt.h"

/// A program run's receipt as it is shown, saved and printed. Lines end in CR LF; port and file are
/// UTF-8 as they came, and what is decoded from a radio's memory is ASCII.
namespace orvane::files {

/// What a radio holds otherwise than it was sent.
struct DifferingField {
  std::string name;  ///< "USA 22A CH Name"; "Memory 005F" for a byte that no field shows
  std::string sent;  ///< in the field's notation
  std::string found;
};
/// In catalogue order. Empty exactly when the receipt has no mismatches.
[[nodiscard]] std::vector<DifferingField> DifferingFields(const link::Receipt& receipt);

/// "USA 22A CH Name: sent HAILING, the radio holds HAIL", one a line, none after the last; of more
/// than `most` the rest is counted.
[[nodiscard]] std::string FieldLines(const std::vector<DifferingField>& fields, std::size_t most);

/// The whole receipt, every field named.
[[nodiscard]] std::string ReceiptText(const link::Receipt& receipt,
                                      const std::vector<DifferingField>& fields);

}  // namespace orvane::files
