#pragma once

#include "document/document.h"

/// What the window offers beside its first page for as long as nothing has been opened.
namespace orvane::document {

enum class StartOffer {
  kNothing,
  kRecentFiles,
  kFirstSteps  ///< and the recent files, if there are any
};

/// earlier_settings: an earlier run has left any; who comes for the second time knows the way.
[[nodiscard]] StartOffer OfferFor(const Document& document, bool earlier_settings);

}  // namespace orvane::document
