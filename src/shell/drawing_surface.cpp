// The 16-colour palette of the drawing surfaces.
#include "shell/drawing_surface.h"

#include <array>

#include "properties/vb.h"

namespace kestrane {

SurfaceColour QBColor(int n) {
  // 0x00BBGGRR: black, blue, green, cyan, red, magenta, brown, light grey, then the light forms.
  static constexpr std::array<SurfaceColour, 16> kPalette = {
      0x000000, 0x800000, 0x008000, 0x808000, 0x000080, 0x800080, 0x008080, 0xC0C0C0,
      0x808080, 0xFF0000, 0x00FF00, 0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
  if (n < 0 || n > 15) throw VbError(5);
  return kPalette[static_cast<size_t>(n)];
}

}  // namespace kestrane
