// The stroke font DRAWTEXT.DTA: character blocks of code, stroke count and strokes.
#include "drawings/drawing.h"
#include "drawings/list_input.h"

namespace kestrane {

namespace {
constexpr int kGlyphStrokes = 15;
constexpr int kBlocks = 216;
}  // namespace

bool LoadDrawingFont(const std::filesystem::path& path, DrawFont& font) {
  try {
    ListInput in(path);
    for (int block = 0; block < kBlocks; ++block) {
      const int16_t code = in.Integer();
      if (code < 1 || code >= static_cast<int16_t>(font.glyphs.size())) throw VbError(9);
      const int16_t n = in.Integer();
      auto& glyph = font.glyphs[static_cast<size_t>(code)];
      glyph.clear();
      for (int s = 1; s <= n; ++s) {
        if (s > kGlyphStrokes) throw VbError(9);
        FontStroke stroke{};
        stroke.x1 = in.Single();
        stroke.y1 = in.Single();
        stroke.x2 = in.Single();
        stroke.y2 = in.Single();
        glyph.push_back(stroke);
      }
    }
    return true;
  } catch (const VbError&) {
    return false;  // closed without a message; the font stays as far as it was read
  }
}

}  // namespace kestrane
