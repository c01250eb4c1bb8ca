// Rows added to a drawing's tables by program, and the parts of a general arrangement drawing built from them.
#include "drawings/drawing_builder.h"

#include <array>
#include <cmath>
#include <utility>

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

void AddNozzle(Drawing& d, float x, float y, float angle, float length, float bore, const std::string& name,
               const std::string& service) {
  float fx, fy, tx, ty;
  AddBand(d, x, y, angle, bore, length, false);
  Along(x, y, angle, length, fx, fy);
  const float thick = 0.12f;
  AddFlange(d, fx, fy, bore * 1.8f, thick, angle);
  // The centre line stops short of the name beyond the flange, which stands off it whichever way the nozzle points.
  AddCentreLine(d, x, y, fx + static_cast<float>(thick * std::cos(angle * kRadiansPerDegree)),
                fy + static_cast<float>(thick * std::sin(angle * kRadiansPerDegree)), 0.08f);
  Along(fx, fy, angle, thick + 0.15f, tx, ty);
  const auto quadrant = static_cast<int>(std::lround(std::fmod(angle + 360.0f, 360.0f) / 90.0f)) % 4;
  static constexpr std::array<int16_t, 4> kJustify = {2, 4, 8, 6};  // right: left-middle; up: bottom-centre...
  const int16_t justify = kJustify[static_cast<size_t>(quadrant)];
  AddText(d, tx, ty, 0.1f, justify, name);
  // The service goes on past the name: above it on a nozzle pointing up, below it on all others.
  if (!service.empty()) AddText(d, tx, ty + (quadrant == 1 ? 0.17f : -0.17f), 0.1f, justify, service);
}

void AddNote(Drawing& d, float x, float y, float to_x, float to_y, const std::string& text) {
  AddText(d, x, y, 0.1f, to_x < x ? 1 : 7, text);
  AddLeader(d, to_x, to_y, x + (to_x < x ? -0.05f : 0.05f), y + 0.1f, true);  // the head at the point named
}

void AddSheetBorder(Drawing& d) {
  const SheetSize sheet = kSheets.at(static_cast<size_t>(d.SheetNo));
  AddBox(d, 0.15f, 0.15f, sheet.width * d.DrawScale - 0.15f, sheet.height * d.DrawScale - 0.15f);
}

void AddTitleBlock(Drawing& d, const std::string& maker, const std::string& description, const std::string& note) {
  const SheetSize sheet = kSheets.at(static_cast<size_t>(d.SheetNo));
  const float right = sheet.width * d.DrawScale - 0.15f, left = right - 3.85f, top = 1.2f, split = left + 2.2f;
  AddSheetBorder(d);
  AddBox(d, left, 0.15f, right, top);
  AddLine(d, left, 0.8f, right, 0.8f, 1);
  AddLine(d, left, 0.45f, right, 0.45f, 1);
  AddLine(d, split, 0.15f, split, 0.45f, 1);
  AddText(d, (left + right) / 2, 1.0f, 0.14f, 5, maker);
  AddText(d, (left + right) / 2, 0.625f, 0.12f, 5, description);
  AddText(d, left + 0.1f, 0.3f, 0.1f, 2, "PRELIMINARY DRAWING");
  AddText(d, (split + right) / 2, 0.3f, 0.1f, 5, note);
}

void AddMeasure(Drawing& d, float x1, float y1, float x2, float y2, float offset, const std::string& label) {
  const double angle = std::atan2(y2 - y1, x2 - x1);
  const auto nx = static_cast<float>(-std::sin(angle)), ny = static_cast<float>(std::cos(angle));
  // Extension lines leave a small gap at the outline and run a little past the dimension line.
  const float gap = offset > 0 ? 0.06f : -0.06f, past = offset > 0 ? 0.08f : -0.08f;
  for (const auto& [px, py] : {std::pair{x1, y1}, std::pair{x2, y2}})
    AddLine(d, px + gap * nx, py + gap * ny, px + (offset + past) * nx, py + (offset + past) * ny, 2);
  AddDimension(d, x1 + offset * nx, y1 + offset * ny, x2 + offset * nx, y2 + offset * ny, 1, label, 1);
}

void AxisPoint(const Axis& a, float u, float v, float& x, float& y) {
  const double c = std::cos(a.angle * kRadiansPerDegree), s = std::sin(a.angle * kRadiansPerDegree);
  x = a.x + static_cast<float>(u * c - v * s);
  y = a.y + static_cast<float>(u * s + v * c);
}

namespace {

void AxisLine(Drawing& d, const Axis& a, float u1, float v1, float u2, float v2, int16_t pen) {
  float x1, y1, x2, y2;
  AxisPoint(a, u1, v1, x1, y1);
  AxisPoint(a, u2, v2, x2, y2);
  AddLine(d, x1, y1, x2, y2, pen);
}

// An arc about the axis point (u, v), its angles given against the axis. Pen 8 draws solid, and dark grey on paper,
// where a print colours an arc by its pen's number.
void AxisArc(Drawing& d, const Axis& a, float u, float v, float radius, float a0, float a1) {
  float cx, cy;
  AxisPoint(a, u, v, cx, cy);
  AddArc(d, cx, cy, radius, a0 + a.angle, a1 + a.angle, 8);
}

}  // namespace

void AddCylinder(Drawing& d, const Axis& a, float u1, float u2, float diameter, int16_t pen) {
  const float r = diameter / 2;
  AxisLine(d, a, u1, r, u2, r, pen);
  AxisLine(d, a, u1, -r, u2, -r, pen);
  AxisLine(d, a, u1, -r, u1, r, pen);
  AxisLine(d, a, u2, -r, u2, r, pen);
}

void AddCone(Drawing& d, const Axis& a, float u1, float d1, float u2, float d2, int16_t pen) {
  AxisLine(d, a, u1, d1 / 2, u2, d2 / 2, pen);
  AxisLine(d, a, u1, -d1 / 2, u2, -d2 / 2, pen);
}

void AddBodyFlange(Drawing& d, const Axis& a, float u, float diameter, float thick) {
  AddCylinder(d, a, u - thick, u, diameter + 0.3f);
  AddCylinder(d, a, u, u + thick, diameter + 0.3f);
}

void AddDishedHead(Drawing& d, const Axis& a, float u, float diameter, float dir) {
  // The usual torispherical stand-in for a 2:1 ellipse: crown radius 0.9 D, knuckle radius 0.17 D.
  const float half = diameter / 2, crown = 0.9f * diameter, knuckle = 0.17f * diameter;
  const auto s = static_cast<float>(std::sqrt((crown - knuckle) * (crown - knuckle) - (half - knuckle) * (half - knuckle)));
  const auto t = static_cast<float>(std::atan2(half - knuckle, s) / kRadiansPerDegree);
  if (dir > 0) {
    AxisArc(d, a, u - s, 0, crown, -t, t);
    AxisArc(d, a, u, half - knuckle, knuckle, t, 90);
    AxisArc(d, a, u, knuckle - half, knuckle, -90, -t);
  } else {
    AxisArc(d, a, u + s, 0, crown, 180 - t, 180 + t);
    AxisArc(d, a, u, half - knuckle, knuckle, 90, 180 - t);
    AxisArc(d, a, u, knuckle - half, knuckle, 180 + t, 270);
  }
}

void AddExchangerHead(Drawing& d, const Axis& a, float u, float diameter, float length, float dir, bool cover) {
  const float thick = 0.1f, r = diameter / 2, end = u + dir * (thick + length);
  AddCylinder(d, a, u, u + dir * thick, diameter + 0.3f);
  AxisLine(d, a, u + dir * thick, r, end, r, 1);
  AxisLine(d, a, u + dir * thick, -r, end, -r, 1);
  if (cover) {
    AddBodyFlange(d, a, end, diameter, dir * thick);
  } else {
    AxisLine(d, a, end, -r, end, r, 1);
    AddDishedHead(d, a, end, diameter, dir);
  }
}

void AddTubeBundle(Drawing& d, const Axis& a, float u1, float u2, float diameter, int tubes) {
  for (int i = 0; i < tubes; ++i) {
    const float v = diameter * (-0.4f + 0.8f * static_cast<float>(i) / static_cast<float>(tubes - 1));
    AxisLine(d, a, u1, v, u2, v, 5);
  }
}

void AddSaddle(Drawing& d, float x, float shell_bottom, float floor, float width) {
  const float plate = 0.06f, web = 0.35f * width;
  AddBox(d, x - width / 2 - 0.1f, floor, x + width / 2 + 0.1f, floor + plate);
  AddLine(d, x - width / 2, floor + plate, x - web, shell_bottom - plate, 1);
  AddLine(d, x + width / 2, floor + plate, x + web, shell_bottom - plate, 1);
  AddBox(d, x - web - 0.08f, shell_bottom - plate, x + web + 0.08f, shell_bottom);  // wear plate
  AddCentreLine(d, x, floor - 0.1f, x, floor + 0.25f, 0.05f);
}

void AddLug(Drawing& d, float x, float y, float reach, float dir) {
  const float plate = 0.06f, outer = x + dir * reach;
  AddBox(d, x, y, outer, y + plate);
  AddLine(d, outer - dir * 0.05f, y + plate, x, y + plate + reach, 1);
  AddCentreLine(d, x + dir * reach * 0.6f, y - 0.1f, x + dir * reach * 0.6f, y + plate + 0.1f, 0.05f);
}

void AddMotor(Drawing& d, float x, float y, float length, float diameter, float floor) {
  const float r = diameter / 2, shaft = 0.25f, bracket = x + shaft + 0.12f, body_end = x + 0.72f * length;
  AddBox(d, x, y - 0.06f, x + shaft, y + 0.06f);
  AddBox(d, x + shaft, y - 0.8f * r, bracket, y + 0.8f * r);
  AddBox(d, bracket, y - r, body_end, y + r);
  for (float v : {-0.6f, -0.2f, 0.2f, 0.6f}) AddLine(d, bracket + 0.05f, y + v * r, body_end - 0.05f, y + v * r, 1);
  AddBox(d, body_end, y - 0.9f * r, x + length, y + 0.9f * r);  // fan cover
  const float box_x = (bracket + body_end) / 2;
  AddBox(d, box_x - 0.18f, y + r, box_x + 0.18f, y + r + 0.22f);  // terminal box
  AddBox(d, bracket + 0.05f, floor, body_end - 0.05f, floor + 0.06f);  // feet
  AddLine(d, bracket + 0.15f, floor + 0.06f, bracket + 0.15f, y - r, 1);
  AddLine(d, body_end - 0.15f, floor + 0.06f, body_end - 0.15f, y - r, 1);
  AddCentreLine(d, x, y, x + length, y, 0.15f);
}

void AddBasePlate(Drawing& d, float x1, float x2, float top, float depth) {
  AddBox(d, x1, top - depth, x2, top);
  AddLine(d, x1, top - 0.06f, x2, top - 0.06f, 5);
  AddLine(d, x1, top - depth + 0.06f, x2, top - depth + 0.06f, 5);
  for (float x : {x1 + 0.2f, x2 - 0.2f}) AddCentreLine(d, x, top - depth - 0.1f, x, top + 0.1f, 0.05f);
}

void AddPipeBreak(Drawing& d, float x, float y, float bore) {
  for (float g : {0.15f, -0.15f}) {
    AddLine(d, x - bore / 2, y + g, x - bore / 6, y + g + 0.06f, 1);
    AddLine(d, x - bore / 6, y + g + 0.06f, x + bore / 6, y + g - 0.06f, 1);
    AddLine(d, x + bore / 6, y + g - 0.06f, x + bore / 2, y + g, 1);
  }
}

void AddDiagramTitleBlock(Drawing& d, const std::string& maker, const std::string& title, const std::string& item,
                          const std::string& description) {
  const SheetSize sheet = kSheets.at(static_cast<size_t>(d.SheetNo));
  const float right = sheet.width * d.DrawScale - 0.15f, left = right - 4.0f, middle = (left + right) / 2;
  AddSheetBorder(d);
  AddBox(d, left, 0.15f, right, 1.35f);
  for (float y : {1.05f, 0.75f, 0.45f}) AddLine(d, left, y, right, y, 1);
  AddText(d, middle, 1.2f, 0.12f, 5, maker);
  AddText(d, middle, 0.9f, 0.12f, 5, title);
  AddText(d, left + 0.1f, 0.6f, 0.09f, 2, "ITEM: " + item);
  // The description as far as it fits, a stroked character being a little wider than the text is high.
  const float height = 0.09f;
  const auto fits = static_cast<size_t>((right - left - 0.2f) / (1.1f * height));
  AddText(d, left + 0.1f, 0.3f, height, 2, description.substr(0, fits));
}

namespace {

// An arc of `chords` straight lines from a0 to a1 degrees, counter-clockwise: lines print black where arcs keep
// their pen's colour.
void AddChords(Drawing& d, float cx, float cy, float radius, float a0, float a1, int chords, int16_t layer) {
  float px, py;
  Along(cx, cy, a0, radius, px, py);
  for (int i = 1; i <= chords; ++i) {
    float nx, ny;
    Along(cx, cy, a0 + (a1 - a0) * static_cast<float>(i) / static_cast<float>(chords), radius, nx, ny);
    AddLine(d, px, py, nx, ny, 1, layer);
    px = nx;
    py = ny;
  }
}

}  // namespace

void AddEjectorSymbol(Drawing& d, float x, float y, float length, float height, int16_t layer) {
  const float l = length / 2, h = height / 2;
  const float chamber = x - 0.2f * length, throat_in = x + 0.05f * length, throat_out = x + 0.15f * length;
  const float nozzle = x - 0.35f * length, throat = h / 3;
  // The suction chamber, open at its right side to the diffuser.
  AddLine(d, x - l, y - h, x - l, y + h, 1, layer);
  AddLine(d, x - l, y + h, chamber, y + h, 1, layer);
  AddLine(d, x - l, y - h, chamber, y - h, 1, layer);
  for (float side : {1.0f, -1.0f}) {
    AddLine(d, chamber, y + side * h, throat_in, y + side * throat, 1, layer);
    AddLine(d, throat_in, y + side * throat, throat_out, y + side * throat, 1, layer);
    AddLine(d, throat_out, y + side * throat, x + l, y + side * h * 0.7f, 1, layer);
  }
  AddLine(d, x + l, y - h * 0.7f, x + l, y + h * 0.7f, 1, layer);
  // The motive nozzle: down from the steam inlet, then a cone pointing into the diffuser.
  AddLine(d, nozzle, y + h, nozzle, y + throat, 1, layer);
  AddLine(d, nozzle, y + throat, chamber - 0.02f, y, 1, layer);
  AddLine(d, nozzle - 0.04f, y + h, nozzle - 0.04f, y - throat, 1, layer);
  AddLine(d, nozzle - 0.04f, y - throat, chamber - 0.02f, y, 1, layer);
}

void AddSurfaceCondenserSymbol(Drawing& d, float x, float y, float length, float diameter, int16_t layer) {
  const float r = diameter / 2, sheet = length / 2 - r;
  AddLine(d, x - sheet, y + r, x + sheet, y + r, 1, layer);
  AddLine(d, x - sheet, y - r, x + sheet, y - r, 1, layer);
  AddChords(d, x - sheet, y, r, 90, 270, 12, layer);
  AddChords(d, x + sheet, y, r, -90, 90, 12, layer);
  AddLine(d, x - sheet, y - r, x - sheet, y + r, 1, layer);
  AddLine(d, x + sheet, y - r, x + sheet, y + r, 1, layer);
  // The tube bundle from head to head.
  constexpr int kBends = 6;
  const float step = (2 * sheet + 2 * r) / kBends;
  float px = x - sheet - r, py = y;
  for (int i = 1; i <= kBends; ++i) {
    const float nx = x - sheet - r + i * step;
    const float ny = i == kBends ? y : y + ((i % 2 == 1) ? r / 2 : -r / 2);
    AddLine(d, px, py, nx, ny, 1, layer);
    px = nx;
    py = ny;
  }
}

void AddBarometricCondenserSymbol(Drawing& d, float x, float y, float width, float height, int16_t layer) {
  const float w = width / 2, top = y + height / 2, bottom = y - height / 2, cone = bottom + 0.2f * height;
  AddLine(d, x - w, cone, x - w, top, 1, layer);
  AddLine(d, x + w, cone, x + w, top, 1, layer);
  AddLine(d, x - w, top, x + w, top, 1, layer);
  AddLine(d, x - w, cone, x - w / 5, bottom, 1, layer);
  AddLine(d, x + w, cone, x + w / 5, bottom, 1, layer);
  // Cascade trays from alternate walls.
  for (int i = 0; i < 3; ++i) {
    const float side = i % 2 == 0 ? -1.0f : 1.0f, ty = top - (0.3f + 0.17f * i) * height;
    AddLine(d, x + side * w, ty, x - side * w * 0.3f, ty, 1, layer);
  }
}

void AddLiquidRingPumpSymbol(Drawing& d, float x, float y, float radius, int16_t layer) {
  AddChords(d, x, y, radius, 0, 360, 32, layer);
  // The rotor sits high in the casing: the ring of liquid is thickest below it.
  const float rotor = 0.55f * radius, ry = y + 0.25f * radius;
  AddChords(d, x, ry, rotor, 0, 360, 24, layer);
  AddChords(d, x, ry, 0.15f * radius, 0, 360, 12, layer);
  for (int i = 0; i < 6; ++i) {
    float x1, y1, x2, y2;
    Along(x, ry, 60.0f * i, 0.15f * radius, x1, y1);
    Along(x, ry, 60.0f * i, rotor, x2, y2);
    AddLine(d, x1, y1, x2, y2, 1, layer);
  }
}

void AddStreamArrow(Drawing& d, const std::vector<DrawingPoint>& points) {
  for (size_t i = 1; i < points.size(); ++i) {
    AddLine(d, points[i - 1].first, points[i - 1].second, points[i].first, points[i].second, 1);
  }
  if (points.size() < 2) return;
  const auto [tx, ty] = points.back();
  const auto [fx, fy] = points[points.size() - 2];
  const auto back = static_cast<float>(std::atan2(fy - ty, fx - tx) / kRadiansPerDegree);
  float ax, ay, bx, by;
  Along(tx, ty, back + 20, 0.12f, ax, ay);
  Along(tx, ty, back - 20, 0.12f, bx, by);
  AddLine(d, tx, ty, ax, ay, 1);
  AddLine(d, ax, ay, bx, by, 1);
  AddLine(d, bx, by, tx, ty, 1);
}

namespace {

constexpr float kLabelMargin = 0.05f;  // between a label's text and its box

// The text's justification for a label's alignment: left, centre or right on the first line's base.
int16_t LabelJustify(int16_t align) { return static_cast<int16_t>((align - 1) / 3 * 3 + 1); }

// How far a label's text is moved up from y = 0 to stand where its alignment puts its box.
float LabelLift(const Drawing& d, float y, int16_t align, float height, const std::string& text) {
  const TextBoxResult box = TextBox(d, 0, 0, height, LabelJustify(align), 0, 500, text);
  const float top = box.y[2] + kLabelMargin, bottom = box.y[0] - kLabelMargin;
  switch ((align - 1) % 3) {
    case 0: return y - bottom;
    case 1: return y - (top + bottom) / 2;
    default: return y - top;
  }
}

}  // namespace

LabelBox StreamLabelBox(const Drawing& d, float x, float y, int16_t align, float height, const std::string& text) {
  const float lift = LabelLift(d, y, align, height, text);
  const TextBoxResult box = TextBox(d, x, lift, height, LabelJustify(align), 0, 500, text);
  return {box.x[0] - kLabelMargin, box.y[0] - kLabelMargin, box.x[1] + kLabelMargin, box.y[2] + kLabelMargin};
}

void AddStreamLabel(Drawing& d, float x, float y, int16_t align, float height, const std::string& text) {
  const LabelBox b = StreamLabelBox(d, x, y, align, height, text);
  AddText(d, x, LabelLift(d, y, align, height, text), height, LabelJustify(align), text);
  AddBox(d, b.x1, b.y1, b.x2, b.y2, 1);
}

}  // namespace kestrane
