// The surface a drawing is rendered on: lines in a user scale, colours, line styles; a window, a printer, an image.
#pragma once

#include <cstdint>

namespace kestrane {

// Colours are long values as the surfaces of the original take them: 0x00BBGGRR (red in the low byte).
using SurfaceColour = int32_t;

// The classic 16-colour palette: 0 black, 1 blue, ... 7 light grey, 8 dark grey, ... 15 white.
SurfaceColour QBColor(int n);

// Grey of a dimmed layer.
inline constexpr SurfaceColour kDimmedGrey = 0x808080;

// Line styles.
enum : int16_t { kStyleSolid = 0, kStyleDash = 1, kStyleDot = 2, kStyleDashDot = 3, kStyleDashDotDot = 4 };

// A drawing surface. Coordinates of Line and Box are in the user scale: x from ScaleLeft over ScaleWidth, y from
// ScaleTop over ScaleHeight (negative when y grows upward). Width and Height are the surface's size in its own
// units; only their ratio matters to the view.
class DrawingSurface {
 public:
  virtual ~DrawingSurface() = default;

  // Clears the surface to its background colour.
  virtual void Cls() = 0;
  // A line from (x1, y1) to (x2, y2) in ForeColor with DrawStyle and DrawWidth.
  virtual void Line(float x1, float y1, float x2, float y2) = 0;
  // The outline of the box with corners (x1, y1) and (x2, y2) in `colour`.
  virtual void Box(float x1, float y1, float x2, float y2, SurfaceColour colour) = 0;
  virtual SurfaceColour BackColor() const = 0;
  virtual float Width() const = 0;
  virtual float Height() const = 0;

  SurfaceColour ForeColor = 0;
  int16_t DrawStyle = kStyleSolid;
  int16_t DrawMode = 13;  // copy pen, the only mode used
  int16_t DrawWidth = 1;
  float ScaleLeft = 0, ScaleTop = 0, ScaleWidth = 1, ScaleHeight = 1;
};

}  // namespace kestrane
