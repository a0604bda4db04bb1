#include "editor/contrast.h"

#include <algorithm>
#include <cmath>

namespace orvane::editor {
namespace {

// Of an sRGB component, 0 to 1.
double Linear(double component) {
  return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

double LuminanceOf(const QColor& colour) {
  return 0.2126 * Linear(colour.redF()) + 0.7152 * Linear(colour.greenF()) +
         0.0722 * Linear(colour.blueF());
}

double LeastContrast(const QColor& colour, std::initializer_list<QColor> grounds) {
  double least = 21;
  for (const QColor& ground : grounds) least = std::min(least, ContrastOf(colour, ground));
  return least;
}

QColor Blended(const QColor& from, const QColor& to, double share) {
  const auto mix = [share](int a, int b) { return qRound(a + share * (b - a)); };
  return {mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue())};
}

}  // namespace

double ContrastOf(const QColor& one, const QColor& other) {
  const double a = LuminanceOf(one);
  const double b = LuminanceOf(other);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QColor StandingOut(const QColor& colour, const QColor& clear_colour,
                   std::initializer_list<QColor> grounds) {
  constexpr int kSteps = 20;
  for (int step = 0; step <= kSteps; ++step) {
    const QColor blended = Blended(colour, clear_colour, static_cast<double>(step) / kSteps);
    if (LeastContrast(blended, grounds) >= kGraphicsContrast) return blended;
  }
  const QColor black(Qt::black);
  const QColor white(Qt::white);
  return LeastContrast(black, grounds) > LeastContrast(white, grounds) ? black : white;
}

QColor FaintText(const QPalette& palette) {
  return StandingOut(palette.color(QPalette::Disabled, QPalette::Text),
                     palette.color(QPalette::Text),
                     {palette.color(QPalette::Base), palette.color(QPalette::AlternateBase)});
}

}  // namespace orvane::editor
