// What the renderers of a drawing share: angles, the colour rule, the view test, arrows and chords.
#pragma once

#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "drawings/drawing.h"

namespace kestrane {

// Degrees to radians as the drawings convert them.
inline constexpr double kRadians = 0.017453292522;
inline double CosD(double degrees) { return std::cos(degrees * kRadians); }
inline double SinD(double degrees) { return std::sin(degrees * kRadians); }

struct Point {
  float x = 0, y = 0;
};

// The point `length` away from `p` in the direction `degrees`.
inline Point Toward(Point p, double length, double degrees) {
  return {static_cast<float>(p.x + length * CosD(degrees)), static_cast<float>(p.y + length * SinD(degrees))};
}

// The pen table's row of a pen 1..8.
const Pen& PenOf(int16_t pen);

// The colour a row is drawn in, or none when it is skipped (pen 0 or less, hidden layer). Without the layer's
// colour it is the palette number `palette`, by default the pen table's colour of `pen`; `colour` above 0
// overrides it, a dimmed layer greys it, `erase` 1 gives the background.
std::optional<SurfaceColour> RowColour(const Drawing& d, int16_t pen, int16_t layer, int16_t colour, int16_t erase,
                                       std::optional<int> palette = std::nullopt);

// Whether the row's layer is dimmed to grey.
bool LayerDimmed(const Drawing& d, int16_t layer);

// Whether both ends lie beyond one and the same edge of the view window.
bool BeyondView(const Drawing& d, Point p1, Point p2);

// The lines of a text (Windows-1252 bytes), split at each "||".
std::vector<std::string> TextLines(const std::string& bytes);

// The stadium-shaped outline round a text, each segment drawn unless wholly beyond one view edge.
void FrameText(Drawing& d, float x, float y, float height, int16_t justify, float angle, int16_t width,
               const std::string& text);

// An arrow head at p1 with the shaft to p2; `both` adds a head at p2.
void DrawArrow(Drawing& d, Point p1, Point p2, bool both);

}  // namespace kestrane
