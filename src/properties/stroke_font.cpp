// Reads the stroke font DRAWTEXT.DTA: 216 blocks of code and stroke count, each followed by its strokes.
#include "properties/stroke_font.h"

#include <algorithm>

#include "properties/list_input.h"
#include "properties/vb.h"

namespace kestrane {

namespace {
constexpr int kBlocks = 216;
constexpr int kMaxStrokes = 15;
}  // namespace

bool LoadDrawingFont(const std::filesystem::path& path, DrawFont& font) {
  try {
    ListInput in(path);
    for (int block = 0; block < kBlocks; ++block) {
      const int16_t code = in.Integer();
      if (code < 1 || code > kBlocks) throw VbError(9);
      const int16_t n = in.Integer();
      // The count stands as soon as it is read; strokes not read stay zero. A 16th stroke has no place.
      std::vector<FontStroke>& glyph = font.glyphs[static_cast<size_t>(code)];
      glyph.assign(static_cast<size_t>(std::clamp<int>(n, 0, kMaxStrokes)), FontStroke{0, 0, 0, 0});
      for (int s = 1; s <= n; ++s) {
        if (s > kMaxStrokes) throw VbError(9);
        FontStroke& stroke = glyph[static_cast<size_t>(s - 1)];
        stroke.x1 = in.Single();
        stroke.y1 = in.Single();
        stroke.x2 = in.Single();
        stroke.y2 = in.Single();
      }
    }
    return true;
  } catch (const VbError&) {
    return false;  // closed without a message; the font stays as far as it was read
  }
}

}  // namespace kestrane
