#pragma once

#include <functional>
#include <string>

#include "editor/window_services.h"

namespace orvane::editor {

inline constexpr const char* kTextFilter = "text files(*.txt)|*.txt|All files(*.*)|*.*";

/// Asks where to save something that is no document, and writes it whole or not at all. The bytes
/// may depend on the path's ending. What goes wrong is told.
void SaveAs(const WindowServices& services, const char* filter,
            const std::function<std::string(const std::string& path)>& bytes);

}  // namespace orvane::editor
