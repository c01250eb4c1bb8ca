// The stroke font DRAWTEXT.DTA: its generator, its shape within the character cell, and its reader.
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <map>

#include "properties/stroke_font.h"
#include "test_support.h"

namespace kestrane {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;
namespace fs = std::filesystem;

const fs::path kSource = KESTRANE_SOURCE_DIR;
const fs::path kFontFile = kSource / "pgmfiles" / "DRAWTEXT.DTA";

// The cell: 7 units wide with a side bearing of 0.5; descenders to 7/21 of the cap height of 8, accents to 10.
constexpr float kCellWidth = 7.0f, kBearing = 0.5f, kDescender = -2.667f, kAscender = 10.0f;

struct Stroke {
  double x1, y1, x2, y2;
};
// code -> strokes, in the order of the file's blocks; a code met twice counts twice in `seen`.
struct ParsedFont {
  std::map<int, std::vector<Stroke>> glyphs;
  std::map<int, int> seen;
};

// The test's own reading of the file: every value split off at commas and line ends, then taken block by block.
ParsedFont ParseFont(const std::string& bytes) {
  std::vector<double> values;
  std::string field;
  for (char ch : bytes + "\n") {
    if (ch == ',' || ch == '\r' || ch == '\n') {
      if (!field.empty()) values.push_back(std::stod(field));
      field.clear();
    } else {
      field += ch;
    }
  }
  ParsedFont font;
  for (size_t i = 0; i + 1 < values.size();) {
    const int code = static_cast<int>(values[i]), n = static_cast<int>(values[i + 1]);
    i += 2;
    ++font.seen[code];
    std::vector<Stroke>& g = font.glyphs[code];
    for (int k = 0; k < n && i + 3 < values.size(); ++k, i += 4) g.push_back({values[i], values[i + 1], values[i + 2], values[i + 3]});
  }
  return font;
}

const ParsedFont& Font() {
  static const ParsedFont font = ParseFont(ReadBytes(kFontFile));
  return font;
}

double Top(const std::vector<Stroke>& g) {
  double y = -1e9;
  for (const Stroke& s : g) y = std::max({y, s.y1, s.y2});
  return y;
}
double Bottom(const std::vector<Stroke>& g) {
  double y = 1e9;
  for (const Stroke& s : g) y = std::min({y, s.y1, s.y2});
  return y;
}

// The shortest distance between two segments: 0 when they cross, else the least of the end points' distances to
// the other segment.
double PointToSegment(double px, double py, const Stroke& s) {
  const double dx = s.x2 - s.x1, dy = s.y2 - s.y1, len2 = dx * dx + dy * dy;
  const double t = len2 == 0 ? 0 : std::clamp(((px - s.x1) * dx + (py - s.y1) * dy) / len2, 0.0, 1.0);
  return std::hypot(px - s.x1 - t * dx, py - s.y1 - t * dy);
}
double Side(const Stroke& s, double px, double py) { return (s.x2 - s.x1) * (py - s.y1) - (s.y2 - s.y1) * (px - s.x1); }
double SegmentGap(const Stroke& a, const Stroke& b) {
  if (Side(a, b.x1, b.y1) * Side(a, b.x2, b.y2) < 0 && Side(b, a.x1, a.y1) * Side(b, a.x2, a.y2) < 0) return 0;
  return std::min({PointToSegment(a.x1, a.y1, b), PointToSegment(a.x2, a.y2, b), PointToSegment(b.x1, b.y1, a),
                   PointToSegment(b.x2, b.y2, a)});
}

TEST(DrawingFont, GeneratorReproducesTheCommittedFontByteForByte) {
  if (!fs::exists("/usr/share/hershey-fonts/rowmans.jhf")) GTEST_SKIP() << "hershey-fonts-data is not installed";
  const fs::path out = fs::temp_directory_path() / ("kestrane_drawtext_" + std::to_string(::getpid()) + ".DTA");
  const std::string cmd = "/usr/bin/python3 '" + (kSource / "tools" / "make_drawtext.py").string() + "' '" +
                          out.string() + "' 2> /dev/null";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  EXPECT_TRUE(ReadBytes(out) == ReadBytes(kFontFile));
  fs::remove(out);
}

TEST(DrawingFont, DefinesEveryCodeOnceWithAtMostFifteenStrokesInsideTheCell) {
  ASSERT_EQ(Font().seen.size(), 216u);
  EXPECT_EQ(Font().seen.begin()->first, 1);
  EXPECT_EQ(Font().seen.rbegin()->first, 216);
  for (const auto& [code, times] : Font().seen) EXPECT_EQ(times, 1) << code;
  for (const auto& [code, g] : Font().glyphs) {
    EXPECT_LE(g.size(), 15u) << code;
    for (const Stroke& s : g) {
      for (double x : {s.x1, s.x2}) EXPECT_TRUE(x >= kBearing && x <= kCellWidth - kBearing) << code << " x " << x;
      for (double y : {s.y1, s.y2}) EXPECT_TRUE(y >= kDescender && y <= kAscender) << code << " y " << y;
      EXPECT_FALSE(s.x1 == s.x2 && s.y1 == s.y2) << code << ": a stroke of no length";
    }
  }
}

TEST(DrawingFont, PrintableCharactersAndTheDrawingSignsAreDrawnControlCodesAndSpaceAreNot) {
  for (int code = 1; code <= 32; ++code) EXPECT_TRUE(Font().glyphs.at(code).empty()) << code;
  for (int code = 33; code <= 126; ++code) EXPECT_FALSE(Font().glyphs.at(code).empty()) << code;
  // Degree, plus-minus, squared, cubed, micro, middle dot, the three fractions, times, diameter.
  for (int code : {176, 177, 178, 179, 181, 183, 188, 189, 190, 215, 216}) EXPECT_FALSE(Font().glyphs.at(code).empty()) << code;
}

TEST(DrawingFont, CapitalsStandOnTheBaselineAtTheNominalHeightAndDescendersGoBelow) {
  for (int code = 'A'; code <= 'Z'; ++code) {
    const std::vector<Stroke>& g = Font().glyphs.at(code);
    EXPECT_NEAR(Top(g), 8.0, 1e-3) << static_cast<char>(code);
    EXPECT_NEAR(Bottom(g), code == 'Q' ? -0.762 : 0.0, 1e-3) << static_cast<char>(code);
  }
  for (char c : std::string("0123456789")) EXPECT_NEAR(Bottom(Font().glyphs.at(c)), 0.0, 1e-3) << c;
  // Decimal points and commas sit on the baseline, so that 2.50 does not read 2 middle-dot 50.
  EXPECT_NEAR(Bottom(Font().glyphs.at('.')), 0.0, 1e-3);
  EXPECT_NEAR(Top(Font().glyphs.at(',')), Top(Font().glyphs.at('.')), 1e-3);
  for (char c : std::string("gjpqy")) EXPECT_NEAR(Bottom(Font().glyphs.at(c)), kDescender, 1e-3) << c;
  // The superscripts and the degree sign stand in the upper half.
  for (int code : {178, 179, 176}) EXPECT_GE(Bottom(Font().glyphs.at(code)), 4.0 - 1e-3) << code;
}

TEST(DrawingFont, ALineOfEveryPrintableCharacterKeepsEachGlyphClearOfItsNeighbours) {
  // Laid out as the text renderer does, one cell of 7 units after another: no stroke comes nearer than the two
  // side bearings to a stroke of the next character.
  std::vector<std::vector<Stroke>> line;
  for (int code = 33; code <= 126; ++code) {
    std::vector<Stroke> placed;
    const double left = static_cast<double>(line.size()) * kCellWidth;
    for (const Stroke& s : Font().glyphs.at(code)) placed.push_back({s.x1 + left, s.y1, s.x2 + left, s.y2});
    line.push_back(placed);
  }
  for (size_t c = 0; c + 1 < line.size(); ++c) {
    double gap = 1e9;
    for (const Stroke& a : line[c])
      for (const Stroke& b : line[c + 1]) gap = std::min(gap, SegmentGap(a, b));
    EXPECT_GE(gap, 2 * kBearing - 1e-6) << static_cast<char>(33 + c) << static_cast<char>(34 + c);
  }
}

TEST(DrawingFont, LoaderReadsEveryGlyphOfTheCommittedFont) {
  DrawFont font;
  ASSERT_TRUE(LoadDrawingFont(kFontFile, font));
  for (const auto& [code, g] : Font().glyphs) {
    const std::vector<FontStroke>& loaded = font.glyphs.at(static_cast<size_t>(code));
    ASSERT_EQ(loaded.size(), g.size()) << code;
    for (size_t k = 0; k < g.size(); ++k) {
      EXPECT_EQ(loaded[k].x1, static_cast<float>(g[k].x1));
      EXPECT_EQ(loaded[k].y1, static_cast<float>(g[k].y1));
      EXPECT_EQ(loaded[k].x2, static_cast<float>(g[k].x2));
      EXPECT_EQ(loaded[k].y2, static_cast<float>(g[k].y2));
    }
  }
}

TEST(DrawingFont, LoaderTakesBlocksInAnyOrderAndKeepsWhatWasReadBeforeAFailure) {
  const fs::path dir = fs::temp_directory_path() / ("kestrane_font_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  // All 216 blocks from the last code down, blanks and a comma-ended line mixed in.
  std::string reversed;
  for (int code = 216; code >= 1; --code) reversed += std::to_string(code) + (code == 65 ? ", 1,\r\n 1, 2.5 ,3,-4\r\n" : ",0\r\n");
  WriteBytes(dir / "REVERSED.DTA", reversed);
  DrawFont font;
  ASSERT_TRUE(LoadDrawingFont(dir / "REVERSED.DTA", font));
  ASSERT_EQ(font.glyphs[65].size(), 1u);
  EXPECT_EQ(font.glyphs[65][0].x1, 1.0f);
  EXPECT_EQ(font.glyphs[65][0].y1, 2.5f);
  EXPECT_EQ(font.glyphs[65][0].y2, -4.0f);

  // Cut inside the second block's strokes: the first block stands, the second has its count with zero strokes
  // past the cut, and nothing after it is read.
  WriteBytes(dir / "SHORT.DTA", "66,1\r\n1,2,3,4\r\n67,2\r\n5,6,7,8\r\n9,10\r\n");
  DrawFont part;
  EXPECT_FALSE(LoadDrawingFont(dir / "SHORT.DTA", part));
  ASSERT_EQ(part.glyphs[66].size(), 1u);
  ASSERT_EQ(part.glyphs[67].size(), 2u);
  EXPECT_EQ(part.glyphs[67][0].y2, 8.0f);
  EXPECT_EQ(part.glyphs[67][1].x1, 9.0f);
  EXPECT_EQ(part.glyphs[67][1].x2, 0.0f);

  // A code outside 1..216, a count over 15 or a value that is no number stops the reading there.
  for (const char* bad : {"217,0\r\n", "0,0\r\n", "68,16\r\n", "68,1\r\n1,x,3,4\r\n"}) {
    WriteBytes(dir / "BAD.DTA", std::string("70,1\r\n1,1,2,2\r\n") + bad + "71,1\r\n1,1,2,2\r\n");
    DrawFont f;
    EXPECT_FALSE(LoadDrawingFont(dir / "BAD.DTA", f)) << bad;
    EXPECT_EQ(f.glyphs[70].size(), 1u) << bad;
    EXPECT_TRUE(f.glyphs[71].empty()) << bad;
  }
  DrawFont none;
  EXPECT_FALSE(LoadDrawingFont(dir / "MISSING.DTA", none));
  fs::remove_all(dir);
}

}  // namespace
}  // namespace kestrane
