#pragma once

#include <string>
#include <vector>

#include "files/receipt_text.h"

namespace orvane::cli {

/// The receipt for other programs: what the text says and each byte that differs. One object, ended
/// by a line break.
[[nodiscard]] std::string ReceiptJson(const link::Receipt& receipt,
                                      const std::vector<files::DifferingField>& fields);

}  // namespace orvane::cli
