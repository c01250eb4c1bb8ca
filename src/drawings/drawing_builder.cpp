// Rows added to a drawing's tables by program, and the parts of a general arrangement drawing built from them.
#include "drawings/drawing_builder.h"

#include <array>
#include <cmath>

#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr double kRadiansPerDegree = 0.017453292522;

// The next free row of a table; error 9 when it is full.
template <typename Table>
auto& NextRow(Table& table) {
  if (table.count >= Table::kMax) throw VbError(9);
  ++table.count;
  return table(table.count);
}

// A point `length` from (x, y) along `angle` degrees.
void Along(float x, float y, float angle, float length, float& ax, float& ay) {
  ax = x + static_cast<float>(length * std::cos(angle * kRadiansPerDegree));
  ay = y + static_cast<float>(length * std::sin(angle * kRadiansPerDegree));
}

std::string Padded(const std::string& text, size_t width) {
  std::string t = text.substr(0, width);
  t.resize(width, ' ');
  return t;
}

}  // namespace

Drawing NewDrawing(int16_t sheet, float scale, float text_height, int16_t dim_mode) {
  Drawing d;
  d.SheetNo = sheet;
  d.DrawScale = scale;
  d.TextHeight = text_height;
  d.DimMode = dim_mode;
  d.SlantAngle = 15.0f;
  d.MmRound = 1;
  d.UseLayerColours = 0;
  for (LayerRow& layer : d.layers) layer = LayerRow{0, 0xFFFFFF};
  return d;
}

void AddLine(Drawing& d, float x1, float y1, float x2, float y2, int16_t pen, int16_t layer) {
  LineRow& r = NextRow(d.Lines);
  r = LineRow{x1, y1, x2, y2, 0, 0, pen, layer, 1};
}

void AddArc(Drawing& d, float cx, float cy, float radius, float a0, float a1, int16_t pen, int16_t layer) {
  ArcRow& r = NextRow(d.Arcs);
  r = ArcRow{0, 0, cx, cy, radius, a0, a1, pen, layer, 1};
}

void AddLeader(Drawing& d, float x1, float y1, float x2, float y2, bool arrow, int16_t pen) {
  LeaderRow& r = NextRow(d.Leaders);
  r = LeaderRow{x1, y1, x2, y2, 0, 0, pen, 1, static_cast<int16_t>(arrow ? 1 : 0)};
}

void AddText(Drawing& d, float x, float y, float height, int16_t justify, const std::string& text, float angle,
             int16_t pen, int16_t frame, int16_t width) {
  TextRow& r = NextRow(d.Texts);
  r = TextRow{0, 0, x, y, height, angle, 0, pen, 1, justify, frame, width, Padded(text, 80)};
}

void AddDimension(Drawing& d, float x1, float y1, float x2, float y2, int16_t kind, const std::string& label,
                  int16_t textonly, int16_t format) {
  DimensionRow& r = NextRow(d.Dimensions);
  r = DimensionRow{x1, y1, x2, y2, 2, 1, kind, format, textonly, Padded(label, 32)};
}

void AddAngle(Drawing& d, float cx, float cy, float radius, float a0, float a1, int16_t kind, const std::string& label,
              int16_t noangle) {
  AngleRow& r = NextRow(d.Angles);
  r = AngleRow{cx, cy, a0, a1, radius, 2, 1, kind, noangle, Padded(label, 32)};
}

void AddBox(Drawing& d, float x1, float y1, float x2, float y2, int16_t pen) {
  AddLine(d, x1, y1, x2, y1, pen);
  AddLine(d, x2, y1, x2, y2, pen);
  AddLine(d, x2, y2, x1, y2, pen);
  AddLine(d, x1, y2, x1, y1, pen);
}

void AddCentreLine(Drawing& d, float x1, float y1, float x2, float y2, float overshoot) {
  const double angle = std::atan2(y2 - y1, x2 - x1);
  const auto dx = static_cast<float>(overshoot * std::cos(angle));
  const auto dy = static_cast<float>(overshoot * std::sin(angle));
  AddLine(d, x1 - dx, y1 - dy, x2 + dx, y2 + dy, 3);
}

namespace {

// A band from (x, y) along `angle` for `length`, `width` across: its two long sides, and its ends when `closed`.
void AddBand(Drawing& d, float x, float y, float angle, float width, float length, bool closed) {
  float ax, ay, bx, by, cx, cy, ex, ey;
  Along(x, y, angle + 90, width / 2, ax, ay);
  Along(x, y, angle - 90, width / 2, bx, by);
  Along(ax, ay, angle, length, cx, cy);
  Along(bx, by, angle, length, ex, ey);
  AddLine(d, ax, ay, cx, cy, 1);
  AddLine(d, bx, by, ex, ey, 1);
  if (!closed) return;
  AddLine(d, ax, ay, bx, by, 1);
  AddLine(d, cx, cy, ex, ey, 1);
}

}  // namespace

void AddFlange(Drawing& d, float x, float y, float width, float thick, float angle) {
  AddBand(d, x, y, angle, width, thick, true);
}

void AddNozzle(Drawing& d, float x, float y, float angle, float length, float bore, const std::string& name) {
  float fx, fy, tx, ty;
  AddBand(d, x, y, angle, bore, length, false);
  Along(x, y, angle, length, fx, fy);
  const float thick = 0.12f;
  AddFlange(d, fx, fy, bore * 1.8f, thick, angle);
  AddCentreLine(d, x, y, fx + static_cast<float>(thick * std::cos(angle * kRadiansPerDegree)),
                fy + static_cast<float>(thick * std::sin(angle * kRadiansPerDegree)));
  // The name beyond the flange, standing off it whichever way the nozzle points.
  Along(fx, fy, angle, thick + 0.15f, tx, ty);
  const auto quadrant = static_cast<int>(std::lround(std::fmod(angle + 360.0f, 360.0f) / 90.0f)) % 4;
  static constexpr std::array<int16_t, 4> kJustify = {2, 4, 8, 6};  // right: left-middle; up: bottom-centre...
  AddText(d, tx, ty, 0.1f, kJustify[static_cast<size_t>(quadrant)], name);
}

void AddNote(Drawing& d, float x, float y, float to_x, float to_y, const std::string& text) {
  AddText(d, x, y, 0.09f, to_x < x ? 1 : 7, text);
  AddLeader(d, x + (to_x < x ? -0.05f : 0.05f), y + 0.09f, to_x, to_y, true);
}

void AddTitleBlock(Drawing& d, const std::string& maker, const std::string& description) {
  const SheetSize sheet = kSheets.at(static_cast<size_t>(d.SheetNo));
  const float right = sheet.width * d.DrawScale, left = right - 4.0f, top = 1.2f;
  AddBox(d, 0.15f, 0.15f, right - 0.15f, sheet.height * d.DrawScale - 0.15f);
  AddBox(d, left, 0.15f, right - 0.15f, top);
  AddLine(d, left, 0.8f, right - 0.15f, 0.8f, 1);
  AddLine(d, left, 0.45f, right - 0.15f, 0.45f, 1);
  AddText(d, (left + right - 0.15f) / 2, 1.0f, 0.14f, 5, maker);
  AddText(d, (left + right - 0.15f) / 2, 0.625f, 0.1f, 5, description);
  AddText(d, left + 0.1f, 0.3f, 0.07f, 4, "PRELIMINARY - NOT FOR CONSTRUCTION");
}

}  // namespace kestrane
