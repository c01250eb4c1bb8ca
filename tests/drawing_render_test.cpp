// Rendering of drawing rows: colours and skips, lines, arcs, leaders, stroked texts, dimensions and angles.
#include <gtest/gtest.h>

#include "drawing_support.h"
#include "properties/list_input.h"

namespace kestrane {
namespace {

using testing::Decode;
using testing::RecordedLine;
using testing::RecordingSurface;
using testing::TestDrawing;

std::string FixedWidthLabel(const std::string& text) { return FixedWidth(text, kLabelWidth); }

void ExpectStart(const RecordedLine& l, float x, float y) {
  EXPECT_NEAR(l.x1, x, 1e-4);
  EXPECT_NEAR(l.y1, y, 1e-4);
}
void ExpectEnd(const RecordedLine& l, float x, float y) {
  EXPECT_NEAR(l.x2, x, 1e-4);
  EXPECT_NEAR(l.y2, y, 1e-4);
}

class DrawingRows : public ::testing::Test {
 protected:
  void SetUp() override {
    d.layers[2].state = 1;
    d.layers[3].state = 2;
    d.layers[4].colour = 0x0000AA;
  }
  const std::vector<RecordedLine>& lines() const { return t.surface.lines; }
  TestDrawing t;
  Drawing& d = t.d;
};

TEST_F(DrawingRows, ALineTakesItsPensColourAndStyleThenSolidAgain) {
  d.Lines.count = 1;
  d.Lines(1) = {1, 2, 3, 4, 0, 0, 3, 1, 0};
  DrawLine(d, 1, 0, 0);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0].colour, 0xFFFF00);  // pen 3: light cyan, dash-dot
  EXPECT_EQ(lines()[0].style, kStyleDashDot);
  EXPECT_EQ(t.surface.DrawStyle, kStyleSolid);
}

TEST_F(DrawingRows, ColourOverridesDimmedLayersLayerColoursErasingAndPaper) {
  d.Lines.count = 1;
  d.Lines(1) = {1, 2, 3, 4, 0, 0, 1, 1, 0};
  DrawLine(d, 1, 4, 0);  // override: red
  d.Lines(1).layer = 2;  // dimmed, even over an override
  DrawLine(d, 1, 4, 0);
  d.Lines(1).layer = 4;
  d.UseLayerColours = 1;
  DrawLine(d, 1, 0, 0);
  DrawLine(d, 1, 0, 1);
  d.Printing = -1;
  DrawLine(d, 1, 4, 0);
  ASSERT_EQ(lines().size(), 5u);
  EXPECT_EQ(lines()[0].colour, 0x000080);
  EXPECT_EQ(lines()[1].colour, kDimmedGrey);
  EXPECT_EQ(lines()[2].colour, 0x0000AA);
  EXPECT_EQ(lines()[3].colour, RecordingSurface::kBack);
  EXPECT_EQ(lines()[4].colour, 0);
}

TEST_F(DrawingRows, HiddenLayersPenZeroAndRowsBeyondOneViewEdgeAreSkipped) {
  d.Lines.count = 4;
  d.Lines(1) = {1, 2, 3, 4, 0, 0, 1, 3, 0};      // hidden layer
  d.Lines(2) = {1, 2, 3, 4, 0, 0, 0, 1, 0};      // pen 0
  d.Lines(3) = {-5, 2, -1, 40, 0, 0, 1, 1, 0};   // both left of the view
  d.Lines(4) = {-5, 2, 50, 40, 0, 0, 1, 1, 0};   // across it
  for (int i = 1; i <= 4; ++i) DrawLine(d, i, 0, 0);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_FLOAT_EQ(lines()[0].x1, -5);
}

TEST_F(DrawingRows, AScaledLineIsScaledAndMovedToItsBase) {
  d.DrawScale = 2;
  d.Lines.count = 1;
  d.Lines(1) = {1, 2, 3, 4, 5, 6, 1, 1, 1};
  DrawLine(d, 1, 0, 0);
  d.Lines(1).scaled = 0;
  DrawLine(d, 1, 0, 0);
  ExpectStart(lines()[0], 7, 10);
  ExpectEnd(lines()[0], 11, 14);
  ExpectStart(lines()[1], 1, 2);
}

TEST_F(DrawingRows, AnArcIsSeventyTwoChordsCounterClockwise) {
  d.Arcs.count = 1;
  d.Arcs(1) = {10, 10, 0, 0, 2, 0, 90, 4, 1, 0};
  DrawArc(d, 1, 0, 0);
  ASSERT_EQ(lines().size(), 72u);
  ExpectStart(lines()[0], 12, 10);
  ExpectEnd(lines()[0], 10 + 2 * std::cos(1.25 * M_PI / 180), 10 + 2 * std::sin(1.25 * M_PI / 180));
  ExpectEnd(lines().back(), 10, 12);
  EXPECT_EQ(lines()[0].style, kStyleDot);
  EXPECT_EQ(lines()[0].colour, 0x00FF00);

  t.surface.lines.clear();
  d.Arcs(1) = {0, 0, 5, 5, 2, 0, 360, 1, 1, 1};  // scaled: centre and radius times the scale
  d.DrawScale = 2;
  DrawArc(d, 1, 0, 0);
  ASSERT_EQ(lines().size(), 72u);
  ExpectStart(lines()[0], 14, 10);
  ExpectEnd(lines().back(), 14, 10);
}

TEST_F(DrawingRows, AnArcWithoutSweepOrOutOfViewDrawsNothing) {
  d.Arcs.count = 1;
  for (float a1 : {30.0f, 30.0005f, 10.0f}) {
    d.Arcs(1) = {10, 10, 0, 0, 2, 30, a1, 1, 1, 0};
    DrawArc(d, 1, 0, 0);
  }
  d.Arcs(1) = {50, 10, 0, 0, 2, 0, 90, 1, 1, 0};  // left of the circle lies right of the view
  DrawArc(d, 1, 0, 0);
  EXPECT_TRUE(lines().empty());
}

TEST_F(DrawingRows, ALeaderArrowHasAClosedHeadAtItsFirstPointAndKeepsItsColourOnPaper) {
  d.Leaders.count = 1;
  d.Leaders(1) = {0, 0, 5, 0, 1, 1, 1, 1, 1};
  d.Printing = -1;
  DrawLeader(d, 1, 2, 0);
  ASSERT_EQ(lines().size(), 4u);
  const float bx = 1 + 0.125f * static_cast<float>(std::cos(8.5 * M_PI / 180));
  const float by = 0.125f * static_cast<float>(std::sin(8.5 * M_PI / 180));
  ExpectStart(lines()[0], 1, 1);
  ExpectEnd(lines()[0], bx, 1 - by);
  ExpectEnd(lines()[1], bx, 1 + by);
  ExpectEnd(lines()[2], 1, 1);
  ExpectEnd(lines()[3], 6, 1);
  EXPECT_EQ(lines()[0].colour, 0x008000);
}

// Strokes of "text" with the code font at (10, 20), height 1, width 500, scale 1.
class DrawingStrokes : public DrawingRows {
 protected:
  void Stroke(const std::string& text, int16_t justify, float angle = 0, float slant = 0, int16_t frame = 0,
              int16_t width = 500) {
    int16_t visible = -1;
    StrokeText(d, 10, 20, 1, justify, width, angle, slant, frame, false, text, 1, visible, 0, 0);
    last_visible = visible;
  }
  int16_t last_visible = 0;
  static constexpr float kU = 0.125f;  // font unit at height 1
  static constexpr float kPitch = 7 * 0.125f * 1.15f;
};

TEST_F(DrawingStrokes, JustificationMovesTheStartByTheLineLengthAndHeight) {
  struct Case {
    int16_t justify;
    float x, y;
  };
  // Line length 2 x 1.03; heights -0.33, 0.5, 1.33 text heights.
  for (const Case& c : {Case{1, 10, 20.33f}, Case{2, 10, 19.5f}, Case{3, 10, 18.67f}, Case{5, 8.97f, 19.5f},
                        Case{6, 8.97f, 18.67f}, Case{7, 7.94f, 20.33f}, Case{9, 7.94f, 18.67f}}) {
    t.surface.lines.clear();
    Stroke("II", c.justify);
    SCOPED_TRACE(c.justify);
    ASSERT_EQ(lines().size(), 2u);
    ExpectStart(lines()[0], c.x, c.y);
    ExpectStart(lines()[1], c.x + kPitch, c.y);
    EXPECT_EQ(Decode(lines(), kU), "II");
  }
  EXPECT_EQ(last_visible, 1);
}

TEST_F(DrawingStrokes, SlantRotationAndLineBreaks) {
  Stroke("A", 1, 0, 15);
  ExpectStart(lines()[0], 10, 20.33f);
  ExpectEnd(lines()[0], 10 + 65 * kU * static_cast<float>(std::sin(15 * M_PI / 180)), 20.33f + 65 * kU);
  t.surface.lines.clear();
  Stroke("AB", 1, 90);
  ExpectStart(lines()[0], 9.67f, 20);
  ExpectEnd(lines()[0], 9.67f - 65 * kU, 20);
  ExpectStart(lines()[1], 9.67f, 20 + kPitch);
  t.surface.lines.clear();
  Stroke("AB  ||C||D", 5);  // each line justified on its own, right-trimmed
  ASSERT_EQ(lines().size(), 4u);
  ExpectStart(lines()[0], 10 - 1.03f, 19.5f);
  ExpectStart(lines()[2], 10 - 0.515f, 17.5f);
  ExpectStart(lines()[3], 10 - 0.515f, 15.5f);
  EXPECT_EQ(Decode(lines(), kU), "ABCD");
}

TEST_F(DrawingStrokes, ACodeAbove216IsABlankCellOfTheSameWidth) {
  Stroke("\xC3\xA9I", 1);  // e acute, code 233
  ASSERT_EQ(lines().size(), 2u);
  EXPECT_EQ(Decode(lines(), kU), " I");
  ExpectStart(lines()[1], 10 + kPitch, 20.33f);
}

TEST_F(DrawingStrokes, ALineHoldsAtMost1500Strokes) {
  DrawFont dense;
  for (auto& glyph : dense.glyphs) glyph.assign(15, FontStroke{0, 0, 1, 1});
  d.font = &dense;
  Stroke(std::string(101, 'M'), 1);
  EXPECT_EQ(lines().size(), 1500u);
}

TEST_F(DrawingStrokes, ATinyTextOnTheScreenIsOneMarkAtTheOriginButWholeOnPaper) {
  d.ReqY2 = 1000;
  d.ReqX2 = 1000;
  ApplyView(d);  // 500 text heights are below the view's height
  Stroke("II", 1, 0, 0, 1);
  ASSERT_EQ(lines().size(), 1u);
  EXPECT_EQ(lines()[0].x1, 0);
  EXPECT_EQ(lines()[0].x2, 0);
  EXPECT_EQ(lines()[0].y2, 0);
  EXPECT_EQ(lines()[0].colour, 0xFF0000);
  EXPECT_EQ(last_visible, 0);
  d.Printing = -1;
  t.surface.lines.clear();
  Stroke("II", 1);
  EXPECT_EQ(lines().size(), 2u);
}

TEST_F(DrawingStrokes, AFrameIsTwoHalfCirclesJoinedByTheLongSides) {
  Stroke("II", 1, 0, 0, 1);
  ASSERT_EQ(lines().size(), 2u + 10 + 10 + 2);
  // Box: 2 wide (2 characters of 1), from (10, 20) one line of 2 up; end circles of radius 1.
  ExpectStart(lines()[2], 10, 22);
  ExpectEnd(lines()[6], 9, 21);
  ExpectEnd(lines()[11], 10, 20);
  ExpectStart(lines()[12], 12, 20);
  ExpectEnd(lines()[16], 13, 21);
  ExpectEnd(lines()[21], 12, 22);
  ExpectStart(lines()[22], 10, 20);
  ExpectEnd(lines()[22], 12, 20);
  ExpectStart(lines()[23], 10, 22);
  ExpectEnd(lines()[23], 12, 22);
}

TEST(DrawingTextBox, CornersByJustificationAndAngle) {
  Drawing d;
  const TextBoxResult left = TextBox(d, 0, 0, 1, 1, 0, 500, " AB ||CDE");
  EXPECT_EQ(left.longest, 3);
  EXPECT_EQ(left.x, (std::array<float, 4>{0, 3, 3, 0}));
  EXPECT_EQ(left.y, (std::array<float, 4>{-2, -2, 2, 2}));
  const TextBoxResult middle = TextBox(d, 0, 0, 1, 5, 0, 500, "AB||CDE");
  EXPECT_EQ(middle.x, (std::array<float, 4>{-1.5f, 1.5f, 1.5f, -1.5f}));
  EXPECT_EQ(middle.y, (std::array<float, 4>{-3, -3, 1, 1}));
  const TextBoxResult right = TextBox(d, 0, 0, 1, 9, 0, 500, "AB||CDE");
  EXPECT_EQ(right.x, (std::array<float, 4>{-3, 0, 0, -3}));
  EXPECT_EQ(right.y, (std::array<float, 4>{-4, -4, 0, 0}));
  const TextBoxResult turned = TextBox(d, 1, 1, 1, 1, 90, 500, "AB||CDE");
  EXPECT_NEAR(turned.x[0], 3, 1e-5);
  EXPECT_NEAR(turned.y[0], 1, 1e-5);
  EXPECT_NEAR(turned.x[1], 3, 1e-5);
  EXPECT_NEAR(turned.y[1], 4, 1e-5);
}

// Dimensions with text height 0.125 at scale 1 and the code font; u is the font unit of that height.
class DrawingDimensions : public DrawingRows {
 protected:
  void SetUp() override {
    DrawingRows::SetUp();
    d.TextHeight = 0.125f;
    d.SlantAngle = 0;
    d.Dimensions.count = 1;
  }
  void Dimension(int16_t kind, float x1, float x2, const std::string& label = "", int16_t textonly = 0) {
    d.Dimensions(1) = {x1, 1, x2, 1, 1, 1, kind, 3, textonly, label};
    t.surface.lines.clear();
    DrawDimension(d, 1, 0, 0);
  }
  // The strokes after the first n lines.
  std::vector<RecordedLine> After(size_t n) const { return {lines().begin() + static_cast<long>(n), lines().end()}; }
  static constexpr float kU = 0.125f * 0.125f;
  static constexpr float kUp = 0.33f * 0.125f;  // a baseline text's start above its point
};

TEST_F(DrawingDimensions, KindOneHasHeadsAtBothEndsAndTheTextInTheMiddle) {
  Dimension(1, 10, 20);
  ASSERT_EQ(lines().size(), 7u + 3);
  ExpectStart(lines()[0], 10, 1);
  ExpectStart(lines()[4], 20, 1);
  ExpectEnd(lines()[3], 20, 1);
  EXPECT_EQ(Decode(After(7), kU), "10\"");
  ExpectStart(lines()[7], 15 - 3 * 0.125f * 1.03f / 2, 1 + kUp);
  EXPECT_EQ(lines()[7].colour, 0x00FFFF);  // pen 2's colour for every dimension
}

TEST_F(DrawingDimensions, OutwardAndBackwardArrowsHaveTheirHeadsAtTheDimensionPoints) {
  // Text "10\"" has 3 characters: the long arrow is (3 + 2) text heights.
  Dimension(2, 10, 20);
  ASSERT_EQ(lines().size(), 8u + 3);
  ExpectStart(lines()[0], 20, 1);
  ExpectEnd(lines()[3], 20.625f, 1);
  ExpectStart(lines()[4], 10, 1);
  ExpectEnd(lines()[7], 9.625f, 1);
  ExpectStart(lines()[8], 20.375f - 3 * 0.125f * 1.03f / 2, 1 + kUp);

  Dimension(3, 10, 20);
  ExpectStart(lines()[0], 10, 1);
  ExpectEnd(lines()[3], 9.375f, 1);
  ExpectStart(lines()[4], 20, 1);
  ExpectEnd(lines()[7], 20.375f, 1);
  ExpectStart(lines()[8], 9.625f - 3 * 0.125f * 1.03f / 2, 1 + kUp);

  Dimension(4, 10, 20);
  EXPECT_EQ(lines().size(), 4u + 3);
  Dimension(5, 10, 20);
  ExpectEnd(lines()[3], 9.375f, 1);
}

TEST_F(DrawingDimensions, KindsSixAndSevenPointAtTheSecondEnd) {
  Dimension(6, 10, 20);
  ASSERT_EQ(lines().size(), 4u + 3);
  ExpectStart(lines()[0], 20, 1);
  ExpectEnd(lines()[3], 10, 1);
  Dimension(7, 10, 20);
  ASSERT_EQ(lines().size(), 5u + 3);
  ExpectStart(lines()[4], 20, 1);
  ExpectEnd(lines()[4], 20.5f, 1);
  ExpectStart(lines()[5], 20.25f - 3 * 0.125f * 1.03f / 2, 1 + kUp);
  Dimension(8, 10, 20);  // no graphics: the text at the origin
  ASSERT_EQ(lines().size(), 3u);
  ExpectStart(lines()[0], -3 * 0.125f * 1.03f / 2, kUp);
}

TEST_F(DrawingDimensions, TextTurnsOverWhenTheDimensionPointsLeft) {
  Dimension(1, 20, 10);
  ExpectStart(lines()[7], 15 - 3 * 0.125f * 1.03f / 2, 1 + kUp);
  EXPECT_NEAR(lines()[7].x2, lines()[7].x1, 1e-5);  // upright, not upside down
}

TEST_F(DrawingDimensions, LabelsFeetAndTextOnly) {
  Dimension(8, 10, 40);
  EXPECT_EQ(Decode(lines(), kU), "2'-6\"");
  Dimension(8, 10, 40, FixedWidthLabel("R."));
  EXPECT_EQ(Decode(lines(), kU), "R.30\"");
  Dimension(8, 10, 40, FixedWidthLabel("\xC3\x98"));
  EXPECT_EQ(Decode(lines(), kU), "\xD8" "30\"");
  Dimension(8, 10, 40, FixedWidthLabel("A?"), 1);
  EXPECT_EQ(Decode(lines(), kU), "A?");
  Dimension(8, 10, 40, FixedWidthLabel("()"), 1);
  EXPECT_TRUE(lines().empty());
  Dimension(8, 10, 10.3278f);  // within 0.001 of 21/64, below it
  EXPECT_EQ(Decode(lines(), kU), "21/64\"");
}

TEST_F(DrawingDimensions, MetricModesAddASecondTextOfWidthZero) {
  d.DimMode = 1;
  d.MmRound = 1;
  Dimension(8, 10, 11);
  ASSERT_EQ(lines().size(), 2u + 6);
  EXPECT_EQ(Decode(lines(), kU), "1\"(25.4)");
  for (size_t i = 2; i < 8; ++i) ExpectStart(lines()[i], 0, -1.33f * 0.125f);  // one narrow column

  d.DimMode = 2;
  d.MmRound = 0;
  Dimension(8, 10, 11);
  EXPECT_EQ(Decode(lines(), kU), "(1\")25");
  ExpectStart(lines()[0], -4 * 0.125f * 1.03f / 2, -1.33f * 0.125f);
  ExpectStart(lines()[4], 0, kUp);
  ExpectStart(lines()[5], 0, kUp);

  d.DimMode = 3;
  Dimension(8, 10, 11, FixedWidthLabel(" L "));
  EXPECT_EQ(Decode(lines(), kU), "L25");
}

TEST_F(DrawingDimensions, DimensionsAreBlackOnPaperAndNeverGreeked) {
  d.Printing = -1;
  Dimension(1, 10, 20);
  for (const auto& l : lines()) EXPECT_EQ(l.colour, 0);
  d.Printing = 0;
  d.ReqX2 = 1000;
  d.ReqY2 = 1000;
  ApplyView(d);
  Dimension(1, 10, 20);
  EXPECT_EQ(lines().size(), 7u + 3);
}

// An angle of 0 to 90 degrees about the origin, radius 2, text height 0.125 at scale 1.
class DrawingAngles : public DrawingDimensions {
 protected:
  void Angle(int16_t kind, int16_t noangle, const std::string& label = "") {
    d.Angles.count = 1;
    d.Angles(1) = {0, 0, 0, 90, 2, 1, 1, kind, noangle, label};
    t.surface.lines.clear();
    DrawAngleDimension(d, 1, 0, 0);
  }
  struct XY {
    float x, y;
  };
  static XY OnArc(double degrees) {
    return {static_cast<float>(2 * std::cos(degrees * M_PI / 180)), static_cast<float>(2 * std::sin(degrees * M_PI / 180))};
  }
  static constexpr double kHead = 0.125 / (2 * 2 * M_PI) * 360;  // degrees of arc an arrow head spans
};

TEST_F(DrawingAngles, ArrowsOutsideWithShortArcsBeyondTheEnds) {
  Angle(1, 0);
  ASSERT_EQ(lines().size(), 2u + 4 + 20 + 20 + 4);
  EXPECT_EQ(Decode({lines().begin(), lines().begin() + 2}, kU), "90");
  ExpectStart(lines()[0], 1.414214f - 0.2575f / 2, 1.414214f - 0.0625f);
  ExpectStart(lines()[2], 2, 0);
  ExpectEnd(lines()[5], OnArc(-kHead).x, OnArc(-kHead).y);
  const double beyond = 0.375 / (2 * M_PI) * 180;
  ExpectStart(lines()[6], OnArc(-beyond).x, OnArc(-beyond).y);
  ExpectEnd(lines()[25], 2, 0);
  ExpectStart(lines()[26], 0, 2);
  ExpectStart(lines()[46], 0, 2);
  ExpectEnd(lines()[49], OnArc(90 + kHead).x, OnArc(90 + kHead).y);
}

TEST_F(DrawingAngles, ArrowsInsideBreakTheArcRoundTheText) {
  Angle(0, 0);
  ASSERT_EQ(lines().size(), 2u + 4 + 20 + 20 + 4);
  ExpectEnd(lines()[5], OnArc(kHead).x, OnArc(kHead).y);
  // The gap: the text box's corners seen from the centre, 38.66 to 51.34 degrees.
  const double g0 = std::atan2(1.414214 - 0.15625, 1.414214 + 0.15625) * 180 / M_PI;
  ExpectStart(lines()[6], 2, 0);
  EXPECT_NEAR(lines()[25].x2, OnArc(g0).x, 1e-3);
  EXPECT_NEAR(lines()[25].y2, OnArc(g0).y, 1e-3);
  EXPECT_NEAR(lines()[26].x1, OnArc(90 - g0).x, 1e-3);
  ExpectEnd(lines()[45], 0, 2);
  ExpectEnd(lines()[49], OnArc(90 - kHead).x, OnArc(90 - kHead).y);
}

TEST_F(DrawingAngles, NoAngleShowsTheLabelAloneInLightRed) {
  Angle(1, 1, FixedWidthLabel(" R "));
  EXPECT_EQ(Decode({lines().begin(), lines().begin() + 1}, kU), "R");
  EXPECT_EQ(lines()[0].colour, 0x0000FF);
  EXPECT_EQ(lines().size(), 1u + 48);
}

}  // namespace
}  // namespace kestrane
