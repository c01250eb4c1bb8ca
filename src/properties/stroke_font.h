// The stroke font of the drawings: straight strokes of each character in a 7 x 8 unit cell, and its file.
#pragma once

#include <array>
#include <filesystem>
#include <string_view>
#include <vector>

namespace kestrane {

// The stroke font's file among the program's data.
inline constexpr std::string_view kDrawingFontFile = "DRAWTEXT.DTA";

// One stroke of a character, in font units: the cell is 7 wide, the nominal height 8.
struct FontStroke {
  float x1, y1, x2, y2;
};
// The stroke font: strokes of character codes 1..216 (index 0 unused), at most 15 each.
struct DrawFont {
  std::array<std::vector<FontStroke>, 217> glyphs;
};

// Reads the stroke font DRAWTEXT.DTA: blocks of code, count and strokes, in any order. A failure closes the file
// without a message; what was read stands. False when the file could not be read whole.
bool LoadDrawingFont(const std::filesystem::path& path, DrawFont& font);

}  // namespace kestrane
