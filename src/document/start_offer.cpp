#include "document/start_offer.h"

namespace orvane::document {

StartOffer OfferFor(const Document& document, bool earlier_settings) {
  const bool nothing_open =
      document.FileName().empty() && document.ComesFrom() == Origin::kNew && document.IsAsItCame();
  if (!nothing_open) return StartOffer::kNothing;
  return earlier_settings ? StartOffer::kRecentFiles : StartOffer::kFirstSteps;
}

}  // namespace orvane::document
