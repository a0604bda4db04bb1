#pragma once

#include <QByteArray>
#include <QIcon>
#include <QPalette>

namespace orvane::editor {

/// One of the program's own line drawings in the palette's colours, sharp at every scale and in
/// contrast enough to be made out. name is that of a drawing in the resources, without folder and
/// ".svg".
[[nodiscard]] QIcon DrawnIcon(const char* name, const QPalette& palette);

/// The drawing itself, as SVG in the palette's colours; empty when there is none of that name.
[[nodiscard]] QByteArray DrawingFor(const char* name, const QPalette& palette);

}  // namespace orvane::editor
