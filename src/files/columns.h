#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/model_profile.h"
#include "core/radio_data.h"

/// One column table per kind of channel row. The editor's grids, the text report and the printed
/// pages are walks over these tables; headings, widths and cell texts stand here once.
namespace orvane::files {}  // namespace orvane::files
