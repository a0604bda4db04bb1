#pragma once

#include <QColor>
#include <QPalette>
#include <initializer_list>

namespace orvane::editor {

/// What the lines of a drawing need to be made out, as WCAG 2 asks of graphics.
inline constexpr double kGraphicsContrast = 3.0;

/// Contrast of two opaque colours, from 1 (none) to 21 (black and white).
[[nodiscard]] double ContrastOf(const QColor& one, const QColor& other);

/// The colour, moved towards clear_colour only as far as it takes to stand out from every ground.
/// Where not even clear_colour stands out, that is black or white instead.
[[nodiscard]] QColor StandingOut(const QColor& colour, const QColor& clear_colour,
                                 std::initializer_list<QColor> grounds);

/// Of a text in a list that tells of what is not in use: stepping back, and still to be read.
[[nodiscard]] QColor FaintText(const QPalette& palette);

}  // namespace orvane::editor
