// Helpers of the drawing tests: a surface that records what is drawn, a font that shows character codes.
#pragma once

#include <cmath>
#include <vector>

#include "drawings/drawing.h"

namespace kestrane::testing {

struct RecordedLine {
  float x1, y1, x2, y2;
  SurfaceColour colour;
  int16_t style;
};
struct RecordedBox {
  float x1, y1, x2, y2;
  SurfaceColour colour;
};

// A surface of 4 by 3 units (aspect 4:3) unless told otherwise, keeping every call.
class RecordingSurface : public DrawingSurface {
 public:
  RecordingSurface(float width = 4, float height = 3) : width_(width), height_(height) {}
  void Cls() override { ++clears; }
  void Line(float x1, float y1, float x2, float y2) override {
    lines.push_back({x1, y1, x2, y2, ForeColor, DrawStyle});
  }
  void Box(float x1, float y1, float x2, float y2, SurfaceColour colour) override {
    boxes.push_back({x1, y1, x2, y2, colour});
  }
  SurfaceColour BackColor() const override { return kBack; }
  float Width() const override { return width_; }
  float Height() const override { return height_; }

  static constexpr SurfaceColour kBack = 0x123456;
  std::vector<RecordedLine> lines;
  std::vector<RecordedBox> boxes;
  int clears = 0;

 private:
  float width_, height_;
};

// A font whose character c is one upright stroke c font units tall at the left of its cell, so that a stroke's
// length tells its character.
inline DrawFont CodeFont() {
  DrawFont font;
  for (int c = 1; c <= 216; ++c) font.glyphs[static_cast<size_t>(c)] = {{0, 0, 0, static_cast<float>(c)}};
  return font;
}

// The characters of upright strokes drawn with unit u (font unit in drawing units).
inline std::string Decode(const std::vector<RecordedLine>& lines, float u) {
  std::string text;
  for (const RecordedLine& l : lines) {
    text += static_cast<char>(std::lround(std::hypot(l.x2 - l.x1, l.y2 - l.y1) / u));
  }
  return text;
}

// A drawing on the recording surface with the code font, its view showing (0, 0)-(40, 30).
struct TestDrawing {
  TestDrawing() {
    d.font = &font;
    d.Target = &surface;
    d.ReqX2 = 40;
    d.ReqY2 = 30;
    ApplyView(d);
  }
  DrawFont font = CodeFont();
  RecordingSurface surface;
  Drawing d;
};

}  // namespace kestrane::testing
