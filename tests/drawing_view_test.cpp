// The view window of a drawing: aspect fitting, fitting the sheet, pan and zoom commands, keys, clicks, redraw.
#include <gtest/gtest.h>

#include "drawing_support.h"

namespace kestrane {
namespace {

using testing::RecordingSurface;
using testing::TestDrawing;

void ExpectView(const Drawing& d, float left, float bottom, float right, float top) {
  EXPECT_NEAR(d.ViewLeft, left, 1e-4);
  EXPECT_NEAR(d.ViewBottom, bottom, 1e-4);
  EXPECT_NEAR(d.ViewRight, right, 1e-4);
  EXPECT_NEAR(d.ViewTop, top, 1e-4);
}

TEST(DrawingView, TheWindowWidensToTheSurfacesAspectAboutItsCentre) {
  TestDrawing t;
  t.d.ReqX1 = 10;  // reversed corners
  t.d.ReqY1 = 10;
  t.d.ReqX2 = 0;
  t.d.ReqY2 = 0;
  ApplyView(t.d);
  ExpectView(t.d, -1.666667f, 0, 11.666667f, 10);
  EXPECT_NEAR(t.surface.ScaleLeft, -1.666667f, 1e-4);
  EXPECT_FLOAT_EQ(t.surface.ScaleTop, 10);
  EXPECT_NEAR(t.surface.ScaleWidth, 13.333333f, 1e-4);
  EXPECT_FLOAT_EQ(t.surface.ScaleHeight, -10);

  t.d.ReqX1 = 0;
  t.d.ReqX2 = 12;
  t.d.ReqY1 = 0;
  t.d.ReqY2 = 3;
  ApplyView(t.d);
  ExpectView(t.d, 0, -3, 12, 6);
  EXPECT_FLOAT_EQ(t.d.ViewHeight, 9);
}

TEST(DrawingView, TheWindowIsNeverSmallerThanASixteenthOfAnInch) {
  TestDrawing t;
  t.d.ReqX1 = 5;
  t.d.ReqX2 = 5.01f;
  t.d.ReqY1 = 5;
  t.d.ReqY2 = 5;
  ApplyView(t.d);
  EXPECT_NEAR(t.d.ViewBottom, 4.96875f, 1e-5);
  EXPECT_NEAR(t.d.ViewTop, 5.03125f, 1e-5);
  EXPECT_NEAR(t.d.ViewWidth, 0.0833333f, 1e-5);
  EXPECT_NEAR(t.d.ViewLeft, 5.005f - 0.0416667f, 1e-5);
}

TEST(DrawingView, ZoomFitLeavesTwoPercentOnTheSideThatFillsTheSurface) {
  TestDrawing t;
  t.d.SheetNo = 1;  // 9.75 x 6.75
  t.d.DrawScale = 2;
  ZoomFit(t.d);
  EXPECT_NEAR(t.d.ReqX1, -0.39f, 1e-5);
  EXPECT_NEAR(t.d.ReqX2, 19.89f, 1e-4);
  EXPECT_FLOAT_EQ(t.d.ReqY2, 13.5f);
  ExpectView(t.d, -0.39f, -0.855f, 19.89f, 14.355f);
  EXPECT_EQ(t.surface.clears, 1);
  ASSERT_EQ(t.surface.boxes.size(), 1u);
  EXPECT_FLOAT_EQ(t.surface.boxes[0].x2, 19.5f);
  EXPECT_FLOAT_EQ(t.surface.boxes[0].y2, 13.5f);
  EXPECT_EQ(t.surface.boxes[0].colour, 0xC0C0C0);

  RecordingSurface wide(2, 1);
  t.d.Target = &wide;
  ZoomFit(t.d);
  EXPECT_FLOAT_EQ(t.d.ReqX1, 0);
  EXPECT_NEAR(t.d.ReqY1, -0.27f, 1e-5);
  EXPECT_NEAR(t.d.ReqY2, 13.77f, 1e-4);
}

TEST(DrawingView, EachCommandMovesOrZoomsByATenth) {
  struct Case {
    int16_t op;
    float left, bottom, right, top;
  };
  for (const Case& c : {Case{0, 0, -3, 40, 27}, Case{1, -4, 0, 36, 30}, Case{2, 0, 3, 40, 33},
                        Case{3, 4, 0, 44, 30}, Case{4, 4, 3, 36, 27}, Case{5, -4, -3, 44, 33}}) {
    TestDrawing t;
    ViewCommand(t.d, c.op);
    SCOPED_TRACE(c.op);
    ExpectView(t.d, c.left, c.bottom, c.right, c.top);
    EXPECT_EQ(t.surface.clears, 1);
  }
  TestDrawing t;
  t.d.SheetNo = 1;
  ViewCommand(t.d, 6);  // the whole sheet, no margin
  ExpectView(t.d, 0, -0.28125f, 9.75f, 7.03125f);
}

TEST(DrawingView, ZoomAtCentresOnTheClickThenZoomsInOrOut) {
  TestDrawing t;
  ZoomAt(t.d, 10, 10, 1);
  ExpectView(t.d, -6, -2, 26, 22);
  TestDrawing u;
  ZoomAt(u.d, 10, 10, 2);
  ExpectView(u.d, -14, -8, 34, 28);
}

TEST(DrawingView, ViewEventRunsTheKeyOrClickAndClearsThePendingEvent) {
  struct Case {
    int16_t code;
    float left, bottom, right, top;
  };
  for (const Case& c : {Case{33, 0, -0.28125f, 9.75f, 7.03125f}, Case{36, 0, -0.28125f, 9.75f, 7.03125f},
                        Case{37, -4, 0, 36, 30}, Case{38, 0, 3, 40, 33}, Case{39, 4, 0, 44, 30},
                        Case{40, 0, -3, 40, 27}, Case{45, 4, 3, 36, 27}, Case{46, -4, -3, 44, 33},
                        Case{999, -6, -2, 26, 22}}) {
    TestDrawing t;
    t.d.SheetNo = 1;
    t.d.ViewCode = c.code;
    t.d.RedrawAbort = 1;
    t.d.ClickX = 10;
    t.d.ClickY = 10;
    t.d.ClickButton = 1;
    ViewEvent(t.d);
    SCOPED_TRACE(c.code);
    ExpectView(t.d, c.left, c.bottom, c.right, c.top);
    EXPECT_EQ(t.d.ViewCode, 0);
    EXPECT_EQ(t.d.RedrawAbort, 0);
  }
  TestDrawing t;
  t.d.ViewCode = 12;
  ViewEvent(t.d);
  EXPECT_EQ(t.surface.clears, 0);
}

TEST(DrawingView, ResetPrinterRestoresThePageInTwips) {
  RecordingSurface printer;
  printer.ScaleLeft = 3;
  printer.ScaleTop = 4;
  printer.DrawWidth = 3;
  ResetPrinter(printer);
  EXPECT_FLOAT_EQ(printer.ScaleHeight, 15120.0f);
  EXPECT_FLOAT_EQ(printer.ScaleWidth, 11520.0f);
  EXPECT_FLOAT_EQ(printer.ScaleLeft, 0);
  EXPECT_FLOAT_EQ(printer.ScaleTop, 0);
  EXPECT_EQ(printer.DrawWidth, 1);
}

// Three lines on layers 1..3, each layer with its own colour.
void ThreeLines(Drawing& d) {
  d.UseLayerColours = 1;
  d.Lines.count = 3;
  for (int i = 1; i <= 3; ++i) {
    d.layers[static_cast<size_t>(i)].colour = i;
    d.Lines(i) = {static_cast<float>(i), 1, static_cast<float>(i), 2, 0, 0, 1, static_cast<int16_t>(i), 0};
  }
}

std::vector<SurfaceColour> Colours(const RecordingSurface& s) {
  std::vector<SurfaceColour> colours;
  for (const auto& l : s.lines) colours.push_back(l.colour);
  return colours;
}

TEST(DrawingRedraw, TablesAreDrawnLinesArcsTextsLeadersDimensionsAngles) {
  TestDrawing t;
  Drawing& d = t.d;
  d.SheetNo = 1;
  d.TextHeight = 0.5f;
  d.UseLayerColours = 1;
  for (int i = 1; i <= 6; ++i) d.layers[static_cast<size_t>(i)].colour = 100 + i;
  d.Lines.count = 1;
  d.Lines(1) = {1, 1, 2, 2, 0, 0, 1, 1, 0};
  d.Arcs.count = 1;
  d.Arcs(1) = {0, 0, 5, 5, 1, 0, 90, 1, 2, 0};
  d.Texts.count = 1;
  d.Texts(1) = {0, 0, 5, 5, 0.5f, 0, 0, 1, 3, 1, 0, 500, "X"};
  d.Leaders.count = 1;
  d.Leaders(1) = {1, 1, 3, 3, 0, 0, 1, 4, 0};
  d.Dimensions.count = 1;
  d.Dimensions(1) = {1, 1, 5, 1, 1, 5, 0, 3, 1, "D"};
  d.Angles.count = 1;
  d.Angles(1) = {5, 5, 0, 90, 2, 1, 6, 1, 1, "A"};
  DrawAll(d);
  std::vector<SurfaceColour> order;
  for (SurfaceColour c : Colours(t.surface)) {
    if (order.empty() || order.back() != c) order.push_back(c);
  }
  EXPECT_EQ(order, (std::vector<SurfaceColour>{101, 102, 103, 104, 105, 106}));
}

TEST(DrawingRedraw, ASetAbortStopsTheRedrawBeforeTheNextRow) {
  TestDrawing t;
  ThreeLines(t.d);
  int calls = 0;
  t.d.ProcessEvents = [&] {
    if (++calls == 2) t.d.RedrawAbort = 1;
  };
  DrawAll(t.d);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(Colours(t.surface), (std::vector<SurfaceColour>{1}));
}

TEST(DrawingRedraw, ARedrawOvertakenByAnEventResumesAfterTheNestedRedraw) {
  TestDrawing t;
  ThreeLines(t.d);
  bool nested = false;
  t.d.ProcessEvents = [&] {
    if (nested || !t.surface.lines.empty()) return;
    nested = true;
    t.d.ViewCode = 37;
    t.d.RedrawAbort = 1;
    ViewEvent(t.d);
  };
  DrawAll(t.d);
  EXPECT_EQ(t.surface.clears, 2);
  EXPECT_EQ(Colours(t.surface), (std::vector<SurfaceColour>{1, 2, 3, 1, 2, 3}));
  EXPECT_NEAR(t.d.ViewLeft, -4, 1e-5);
}

}  // namespace
}  // namespace kestrane
