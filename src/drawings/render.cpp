// The redraw of a drawing and its lines, arcs, leaders and texts.
#include "drawings/render_common.h"
#include "properties/numeric.h"

namespace kestrane {

namespace {

const LayerRow& LayerOf(const Drawing& d, int16_t layer) {
  if (layer < 0 || layer >= static_cast<int16_t>(d.layers.size())) throw VbError(9);
  return d.layers[static_cast<size_t>(layer)];
}

// Rows 1..count of one table, each drawn by `draw`, giving way to pending events; false when aborted.
template <typename Table, typename Draw>
bool DrawRows(Drawing& d, const Table& table, Draw draw) {
  for (int i = 1; i <= table.count; ++i) {
    if (d.ProcessEvents) d.ProcessEvents();
    if (d.RedrawAbort != 0) return false;
    draw(d, i, 0, 0);
  }
  return true;
}

// A point of a row given in drawing scale from its base point.
Point FromBase(const Drawing& d, float x, float y, float basex, float basey) {
  return {d.DrawScale * x + basex, d.DrawScale * y + basey};
}

}  // namespace

const Pen& PenOf(int16_t pen) {
  if (pen < 1 || pen > 8) throw VbError(9);
  return kPens[static_cast<size_t>(pen)];
}

std::optional<SurfaceColour> RowColour(const Drawing& d, int16_t pen, int16_t layer, int16_t colour, int16_t erase,
                                       std::optional<int> palette) {
  if (pen <= 0) return std::nullopt;
  const LayerRow& l = LayerOf(d, layer);
  if (l.state > 1) return std::nullopt;
  SurfaceColour c = d.UseLayerColours == 1 ? l.colour : QBColor(palette ? *palette : PenOf(pen).colour);
  if (colour > 0) c = QBColor(colour);
  if (l.state == 1) c = kDimmedGrey;
  if (erase == 1) c = d.Target->BackColor();
  return c;
}

bool LayerDimmed(const Drawing& d, int16_t layer) { return LayerOf(d, layer).state == 1; }

bool BeyondView(const Drawing& d, Point p1, Point p2) {
  return (p1.x < d.ViewLeft && p2.x < d.ViewLeft) || (p1.x > d.ViewRight && p2.x > d.ViewRight) ||
         (p1.y < d.ViewBottom && p2.y < d.ViewBottom) || (p1.y > d.ViewTop && p2.y > d.ViewTop);
}

void DrawArrow(Drawing& d, Point p1, Point p2, bool both) {
  DrawingSurface& t = *d.Target;
  t.DrawStyle = kStyleSolid;
  float length = 0;
  float a = 0;
  PolarOf(p1.x, p1.y, p2.x, p2.y, length, a);
  const double barb = d.DrawScale * 0.125;
  // A closed head: the point, one barb, the other barb, back to the point.
  const auto head = [&](Point tip, double direction) {
    const Point b1 = Toward(tip, barb, direction - 8.5);
    const Point b2 = Toward(tip, barb, direction + 8.5);
    t.Line(tip.x, tip.y, b1.x, b1.y);
    t.Line(b1.x, b1.y, b2.x, b2.y);
    t.Line(b2.x, b2.y, tip.x, tip.y);
  };
  head(p1, a);
  t.Line(p1.x, p1.y, p2.x, p2.y);
  if (both) head(p2, a + 180.0);
}

void DrawAll(Drawing& d) {
  DrawingSurface& t = *d.Target;
  t.Cls();
  t.DrawStyle = kStyleSolid;
  t.DrawMode = 13;
  const SheetSize sheet = ScaledSheet(d);
  t.Box(0, 0, sheet.width, sheet.height, QBColor(7));
  DrawRows(d, d.Lines, DrawLine) && DrawRows(d, d.Arcs, DrawArc) && DrawRows(d, d.Texts, DrawTextEntity) &&
      DrawRows(d, d.Leaders, DrawLeader) && DrawRows(d, d.Dimensions, DrawDimension) &&
      DrawRows(d, d.Angles, DrawAngleDimension);
}

void PrintAll(Drawing& d) {
  DrawingSurface& t = *d.Target;
  const SheetSize sheet = ScaledSheet(d);
  t.Box(0, 0, sheet.width, sheet.height, QBColor(0));
  // Lines and arcs in their pen's number as palette colour, pen 1 (white on screen) as 2; the rest in 2.
  const auto pen_colour = [](int16_t pen) { return static_cast<int16_t>(pen == 1 ? 2 : pen); };
  for (int i = 1; i <= d.Lines.count; ++i) DrawLine(d, i, pen_colour(d.Lines(i).pen), 0);
  for (int i = 1; i <= d.Arcs.count; ++i) DrawArc(d, i, pen_colour(d.Arcs(i).pen), 0);
  for (int i = 1; i <= d.Texts.count; ++i) DrawTextEntity(d, i, 2, 0);
  for (int i = 1; i <= d.Leaders.count; ++i) DrawLeader(d, i, 2, 0);
  for (int i = 1; i <= d.Dimensions.count; ++i) DrawDimension(d, i, 2, 0);
  for (int i = 1; i <= d.Angles.count; ++i) DrawAngleDimension(d, i, 2, 0);
}

void DrawLine(Drawing& d, int i, int16_t colour, int16_t erase) {
  const LineRow& r = d.Lines(i);
  const auto c = RowColour(d, r.pen, r.layer, colour, erase);
  if (!c) return;
  Point p1{r.x1, r.y1};
  Point p2{r.x2, r.y2};
  if (r.scaled == 1) {
    p1 = FromBase(d, r.x1, r.y1, r.basex, r.basey);
    p2 = FromBase(d, r.x2, r.y2, r.basex, r.basey);
  }
  if (BeyondView(d, p1, p2)) return;
  DrawingSurface& t = *d.Target;
  t.ForeColor = d.Printing != 0 ? 0 : *c;
  t.DrawStyle = PenOf(r.pen).style;
  t.Line(p1.x, p1.y, p2.x, p2.y);
  t.DrawStyle = kStyleSolid;
}

void DrawArc(Drawing& d, int i, int16_t colour, int16_t erase) {
  const ArcRow& r = d.Arcs(i);
  const auto c = RowColour(d, r.pen, r.layer, colour, erase);
  if (!c) return;
  const Point centre = FromBase(d, r.cx, r.cy, r.basex, r.basey);
  const float radius = r.radius * (r.scaled != 0 ? d.DrawScale : 1.0f);
  if (d.ViewLeft > centre.x + radius || d.ViewBottom > centre.y + radius || d.ViewRight < centre.x - radius ||
      d.ViewTop < centre.y - radius) {
    return;
  }
  DrawingSurface& t = *d.Target;
  t.ForeColor = *c;
  t.DrawStyle = PenOf(r.pen).style;
  t.DrawMode = 13;
  const float sweep = r.a1 - r.a0;
  if (0.001f > sweep) return;  // arcs run counter-clockwise from a0 to a1
  const float step = sweep / 72.0f;
  Point from = Toward(centre, radius, r.a0);
  const float limit = static_cast<float>(r.a1 + 0.05);
  for (float a = r.a0 + step; a <= limit; a += step) {
    const Point to = Toward(centre, radius, a);
    t.Line(from.x, from.y, to.x, to.y);
    from = to;
  }
  t.DrawStyle = kStyleSolid;
}

void DrawLeader(Drawing& d, int i, int16_t colour, int16_t erase) {
  const LeaderRow& r = d.Leaders(i);
  const auto c = RowColour(d, r.pen, r.layer, colour, erase);
  if (!c) return;
  const Point p1 = FromBase(d, r.x1, r.y1, r.basex, r.basey);
  const Point p2 = FromBase(d, r.x2, r.y2, r.basex, r.basey);
  if (BeyondView(d, p1, p2)) return;
  DrawingSurface& t = *d.Target;
  t.ForeColor = *c;  // not forced to black on paper: the print's colour override stays
  t.DrawStyle = kStyleSolid;
  if (r.arrow == 1) {
    DrawArrow(d, p1, p2, false);
  } else {
    t.Line(p1.x, p1.y, p2.x, p2.y);
  }
}

void DrawTextEntity(Drawing& d, int i, int16_t colour, int16_t erase) {
  const TextRow& r = d.Texts(i);
  const auto c = RowColour(d, r.pen, r.layer, colour, erase);
  if (!c) return;
  DrawingSurface& t = *d.Target;
  t.ForeColor = d.Printing != 0 ? 0 : *c;
  t.DrawStyle = kStyleSolid;
  int16_t visible = 0;
  const Point at = FromBase(d, r.x, r.y, r.basex, r.basey);
  StrokeText(d, at.x, at.y, r.height, r.justify, r.width, r.angle, r.slant, r.frame, LayerDimmed(d, r.layer), r.text,
             d.DrawScale, visible, 0, erase);
}

}  // namespace kestrane
