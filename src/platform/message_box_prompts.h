#pragma once

#include "core/services.h"

namespace orvane::platform {

/// Message boxes over whichever window is in front. The box is named "messageBox"; the event loop
/// keeps running while it is open.
class MessageBoxPrompts : public core::Prompts {
 public:
  core::Answer Show(const core::Message& message) override;
};

}  // namespace orvane::platform
