#pragma once

#include <QWidget>
#include <string>

#include "editor/window_services.h"

namespace orvane::editor {

/// Asks for a printer and prints the text, Windows-1252. That there is no printer, or that it
/// failed, is told. file: path that the footers name, "" for none.
void PrintText(const WindowServices& services, QWidget& parent, const std::string& text,
               const std::string& file);

}  // namespace orvane::editor
