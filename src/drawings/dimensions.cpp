// Linear dimensions (arrows and a length in inches and mm) and angular dimensions (an arc and its degrees).
#include <algorithm>

#include "drawings/format_inches.h"
#include "drawings/render_common.h"
#include "properties/numeric.h"
#include "properties/text_codec.h"

namespace kestrane {

namespace {

constexpr int kDimensionPen = 2;
constexpr int kNoAnglePalette = 12;

// A dimension text at `at`, in the dimension text height and slant, never greeked; "()" is not drawn.
void DimensionText(Drawing& d, Point at, const std::string& text, int16_t justify, int16_t width, float angle,
                   bool dimmed, int16_t erase) {
  if (text == "()") return;
  int16_t visible = 0;
  StrokeText(d, at.x, at.y, d.TextHeight, justify, width, angle, d.SlantAngle, 0, dimmed, text, d.DrawScale,
             visible, 1, erase);
}

Point Middle(Point a, Point b) { return {(a.x + b.x) / 2.0f, (a.y + b.y) / 2.0f}; }

// The graphics of a linear dimension of `kind` from p1 to p2 in direction a; returns the text point.
Point DimensionGraphics(Drawing& d, int16_t kind, Point p1, Point p2, float a, int n) {
  const double e = (n + 2) * d.TextHeight * d.DrawScale;
  const double tail = 3.0 * d.TextHeight * d.DrawScale;
  const double nudge = 0.0625 * d.DrawScale;
  switch (kind) {
    case 1:
      DrawArrow(d, p1, p2, true);
      return Middle(p1, p2);
    case 2:
    case 4: {  // outward from p2, the head at p2
      const Point q = Toward(p2, e, a);
      DrawArrow(d, p2, q, false);
      if (kind == 2) DrawArrow(d, p1, Toward(p1, tail, a + 180.0), false);
      return Toward(Middle(p2, q), nudge, a);
    }
    case 3:
    case 5: {  // backward from p1, the head at p1
      const Point q = Toward(p1, e, a + 180.0);
      DrawArrow(d, p1, q, false);
      if (kind == 3) DrawArrow(d, p2, Toward(p2, tail, a), false);
      return Toward(Middle(p1, q), nudge, a + 180.0);
    }
    case 6:
    case 7: {
      DrawArrow(d, p2, p1, false);
      if (kind == 6) return Middle(p1, p2);
      const Point q = Toward(p2, (n + 1) * d.TextHeight * d.DrawScale, a);
      d.Target->Line(p2.x, p2.y, q.x, q.y);
      return Middle(p2, q);
    }
    default: return {0, 0};
  }
}

// 20 chords of the circle about c from angle `from` to `to`.
void Chords(Drawing& d, Point c, float radius, float from, float to) {
  const float step = ((to - from) - 0.0001f) * 0.05f;
  float a = from;
  Point p = Toward(c, radius, a);
  for (int i = 0; i < 20; ++i) {
    a += step;
    const Point q = Toward(c, radius, a);
    d.Target->Line(p.x, p.y, q.x, q.y);
    p = q;
  }
}

}  // namespace

void DrawDimension(Drawing& d, int i, int16_t colour, int16_t erase) {
  const DimensionRow& r = d.Dimensions(i);
  const auto c = RowColour(d, r.pen, r.layer, colour, erase, PenOf(kDimensionPen).colour);
  if (!c) return;
  const Point p1{r.x1, r.y1};
  const Point p2{r.x2, r.y2};
  if (BeyondView(d, p1, p2)) return;
  DrawingSurface& t = *d.Target;
  t.ForeColor = d.Printing != 0 ? 0 : *c;
  t.DrawStyle = kStyleSolid;

  float length = 0;
  float a = 0;
  PolarOf(p1.x, p1.y, p2.x, p2.y, length, a);
  length = RoundPow10(length, -4);
  const float mm = RoundPow10(length * 25.4f, d.MmRound == 1 ? int16_t{-1} : int16_t{0});
  float sixty_fourths = length;
  RoundTo(sixty_fourths, 0.015625f);
  if (std::fabs(length - sixty_fourths) < 0.001f) length = sixty_fourths;

  std::string text = r.label;
  if (r.textonly != 1) {
    const std::string bytes = Utf8ToCp1252(r.label);
    const int16_t nofeet = bytes.find("R.") != std::string::npos || bytes.find('\xD8') != std::string::npos;
    int16_t format = r.format;
    text = RTrim(r.label) + FormatInches(length, format, nofeet);
  }
  text = RTrim(text);

  int n = TextBox(d, 0, 0, d.TextHeight, 1, 0, 500, text).longest;
  if (n == 0) n = 3;
  const Point at = DimensionGraphics(d, r.kind, p1, p2, a, n);
  // Text never stands on its head.
  const float text_angle = a > 90 && a <= 270 ? a - 180.0f : a;
  const bool dimmed = LayerDimmed(d, r.layer);
  const std::string mm_text = GeneralText(mm);

  if (r.textonly == 1) {
    DimensionText(d, at, text, 4, 500, text_angle, dimmed, erase);
    return;
  }
  if (d.DimMode == 0 || d.DimMode == 1) DimensionText(d, at, text, 4, 500, text_angle, dimmed, erase);
  if (d.DimMode == 2) DimensionText(d, at, "(" + text + ")", 6, 500, text_angle, dimmed, erase);
  // The second text takes width 0 by design: it collapses to a narrow column.
  if (d.DimMode == 1) DimensionText(d, at, "(" + mm_text + ")", 6, 0, text_angle, dimmed, erase);
  if (d.DimMode == 2) DimensionText(d, at, mm_text, 4, 0, text_angle, dimmed, erase);
  if (d.DimMode == 3) DimensionText(d, at, Trim(Trim(r.label) + mm_text), 4, 0, text_angle, dimmed, erase);
}

void DrawAngleDimension(Drawing& d, int i, int16_t colour, int16_t erase) {
  const AngleRow& r = d.Angles(i);
  const int palette = r.noangle == 1 ? kNoAnglePalette : PenOf(kDimensionPen).colour;
  const auto c = RowColour(d, r.pen, r.layer, colour, erase, palette);
  if (!c) return;
  DrawingSurface& t = *d.Target;
  t.ForeColor = *c;
  t.DrawStyle = kStyleSolid;

  float a0 = r.a0;
  float a1 = r.a1;
  std::string text = Trim(r.label);
  if (r.noangle != 1) text += GeneralText(RoundPow10(a1 - a0, -1));
  const float head = static_cast<float>((d.DrawScale * 0.125 / (r.radius * 6.283185308)) * 360.0);
  if (std::fabs(a1 - a0) > 360) {
    if (a1 > a0) a1 -= 360;
    if (a0 > a1) a0 -= 360;
  }
  float m = a1 - (a1 - a0) / 2.0f;
  while (m < 0) m += 360;
  while (m > 360) m -= 360;
  const Point centre{r.cx, r.cy};
  const Point at = Toward(centre, r.radius, m);
  const bool dimmed = LayerDimmed(d, r.layer);
  if (!text.empty()) {
    int16_t visible = 0;
    StrokeText(d, at.x, at.y, d.TextHeight, 5, 500, 0, d.SlantAngle, 0, dimmed, text, d.DrawScale, visible, 1,
               erase);
  }
  const auto arc_point = [&](float angle) { return Toward(centre, r.radius, angle); };

  if (r.kind == 0) {  // arrows inside, the arc broken round the text
    const float line_height = 2.0f * std::fabs(d.TextHeight) * d.DrawScale;
    const float half_w = static_cast<float>(Utf8ToCp1252(text).size()) * line_height / 2.0f / 2.0f + 0.03125f;
    const float half_h = line_height / 2.0f + 0.03125f;
    float g0 = 0;
    float g1 = 0;
    bool first = true;
    for (const Point corner : {Point{at.x - half_w, at.y - half_h}, Point{at.x + half_w, at.y - half_h},
                               Point{at.x + half_w, at.y + half_h}, Point{at.x - half_w, at.y + half_h}}) {
      float distance = 0;
      float g = 0;
      PolarOf(centre.x, centre.y, corner.x, corner.y, distance, g);
      if (g < a0) g += 360;
      g0 = first ? g : std::min(g0, g);
      g1 = first ? g : std::max(g1, g);
      first = false;
    }
    g1 = std::min(g1, a1);
    DrawArrow(d, arc_point(a0), arc_point(a0 + head), false);
    Chords(d, centre, r.radius, a0, g0);
    Chords(d, centre, r.radius, g1, a1);
    DrawArrow(d, arc_point(a1), arc_point(a1 - head), false);
  } else {  // arrows outside, short arcs beyond the ends
    const float beyond = static_cast<float>((d.DrawScale * 0.375 / (r.radius * 3.141592654)) * 180.0);
    DrawArrow(d, arc_point(a0), arc_point(a0 - head), false);
    Chords(d, centre, r.radius, a0 - beyond, a0);
    Chords(d, centre, r.radius, a1, a1 + beyond);
    DrawArrow(d, arc_point(a1), arc_point(a1 + head), false);
  }
}

}  // namespace kestrane
