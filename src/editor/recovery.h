#pragma once

#include <string>
#include <string_view>

#include "core/recovery_store.h"
#include "editor/autosave.h"
#include "editor/window_services.h"

namespace orvane::editor {

/// Offers what killed programs left behind, one after the other, the newest first: Restore (a step
/// of the history; ends the offers), Keep for later, Discard.
void OfferRecovery(const WindowServices& services, core::RecoveryStore& store, Autosave& autosave);

/// What would be restored: "12 changes since boat.dat was saved".
[[nodiscard]] std::string LossText(const WindowServices& services, const core::RadioData& found,
                                   const std::string& file);

}  // namespace orvane::editor
