// The fixed tables of the drawing engine: sheet sizes, pens and the 16-colour palette.
#include "drawings/drawing.h"

namespace kestrane {

const std::array<SheetSize, 11> kSheets = {{{0.0f, 0.0f},
                                            {9.75f, 6.75f},
                                            {15.0f, 9.75f},
                                            {19.75f, 15.75f},
                                            {32.0f, 20.75f},
                                            {42.0f, 32.75f},
                                            {10.0f, 7.5f},
                                            {16.0f, 10.0f},
                                            {21.0f, 15.75f},
                                            {32.5f, 21.0f},
                                            {42.0f, 32.75f}}};

const std::array<Pen, 9> kPens = {{{0, kStyleSolid},
                                   {15, kStyleSolid},
                                   {14, kStyleSolid},
                                   {11, kStyleDashDot},
                                   {10, kStyleDot},
                                   {13, kStyleDash},
                                   {11, kStyleDot},
                                   {13, kStyleDashDotDot},
                                   {9, kStyleSolid}}};

SurfaceColour QBColor(int n) {
  // 0x00BBGGRR: black, blue, green, cyan, red, magenta, brown, light grey, then the light forms.
  static constexpr std::array<SurfaceColour, 16> kPalette = {
      0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
      0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  if (n < 0 || n > 15) throw VbError(5);
  return kPalette[static_cast<size_t>(n)];
}

}  // namespace kestrane
