// Texts stroked with the drawing font: greeking, lines, justification, slant and rotation; their box and frame.
#include <algorithm>

#include "drawings/render_common.h"
#include "properties/text_codec.h"

namespace kestrane {

namespace {

constexpr size_t kMaxTextLines = 50;
constexpr size_t kMaxLineStrokes = 1500;
constexpr float kCellWidth = 7.0f;  // font units per character

// The horizontal justification factor: left, centre, right.
float HorizontalFactor(int16_t justify) {
  if (justify < 4) return 0;
  return justify <= 6 ? 0.5f : 1.0f;
}

// The vertical justification factor: middle rows 2, 5, 8; top rows 3, 6, 9; else the baseline row.
float VerticalFactor(int16_t justify) {
  switch (justify) {
    case 2:
    case 5:
    case 8: return 0.5f;
    case 3:
    case 6:
    case 9: return 1.33f;
    default: return -0.33f;
  }
}

// The strokes of one line of text in its own coordinates: cells of 7 font units, stretched by k.
std::vector<FontStroke> LineStrokes(const DrawFont* font, const std::string& line, float u, float k) {
  std::vector<FontStroke> strokes;
  if (font == nullptr) return strokes;  // no font: empty characters
  for (size_t c = 0; c < line.size(); ++c) {
    int code = static_cast<unsigned char>(line[c]);
    if (code < 1 || code > 216) code = 32;
    const float offset = static_cast<float>(c) * kCellWidth;
    for (const FontStroke& s : font->glyphs[static_cast<size_t>(code)]) {
      if (strokes.size() >= kMaxLineStrokes) return strokes;
      strokes.push_back({(s.x1 + offset) * u * k, s.y1 * u, (s.x2 + offset) * u * k, s.y2 * u});
    }
  }
  return strokes;
}

}  // namespace

std::vector<std::string> TextLines(const std::string& bytes) {
  std::vector<std::string> lines;
  size_t from = 0;
  for (size_t bar = bytes.find("||"); bar != std::string::npos; bar = bytes.find("||", from)) {
    lines.push_back(bytes.substr(from, bar - from));
    from = bar + 2;
  }
  lines.push_back(bytes.substr(from));
  return lines;
}

void StrokeText(Drawing& d, float x, float y, float height, int16_t justify, int16_t width, float angle, float slant,
                int16_t frame, bool dimmed, const std::string& text, float scale, int16_t& visible, int16_t nogreek,
                int16_t erase) {
  DrawingSurface& t = *d.Target;
  visible = 0;
  // Too small to read on the screen: one zero-length mark at the origin instead of the characters.
  if (d.Printing == 0 && nogreek != 1 && height * 500.0f * scale < d.ViewHeight) {
    t.ForeColor = erase == 1 ? t.BackColor() : dimmed ? kDimmedGrey : QBColor(9);
    t.Line(0, 0, 0, 0);
    return;
  }
  visible = 1;
  const float h = std::fabs(height);
  const float advance = 2.0f * (h * 1.0f * static_cast<float>(width) / 1000.0f);
  const float u = h * 0.125f * scale;
  const float k = (1.15f + 1.15f) * static_cast<float>(width) / 1000.0f;
  const float pitch = 2.0f * h * scale;
  const double slant_sin = SinD(slant);
  const double cos_a = CosD(angle);
  const double sin_a = SinD(angle);

  std::vector<std::string> lines = TextLines(Utf8ToCp1252(text));
  if (lines.size() > kMaxTextLines) lines.resize(kMaxTextLines);
  for (size_t n = 0; n < lines.size(); ++n) {
    const std::string line = RTrim(lines[n]);
    const Point line_start = Toward({x, y}, static_cast<double>(n) * pitch, angle - 90.0);
    const float length = static_cast<float>(static_cast<double>(line.size()) * advance * 1.0 * 1.03);
    const Point along = Toward(line_start, -HorizontalFactor(justify) * length * scale, angle);
    const Point start = Toward(along, -VerticalFactor(justify) * h * scale, angle + 90.0);
    // Slant on the font coordinates, then rotation about the origin, then to the start point.
    const auto place = [&](float px, float py) {
      double sx = px + py * slant_sin;
      double sy = py;
      if (angle != 0) {
        const double rx = sx * cos_a - sy * sin_a;
        sy = sx * sin_a + sy * cos_a;
        sx = rx;
      }
      return Point{static_cast<float>(sx + start.x), static_cast<float>(sy + start.y)};
    };
    for (const FontStroke& s : LineStrokes(d.font, line, u, k)) {
      const Point a = place(s.x1, s.y1);
      const Point b = place(s.x2, s.y2);
      t.Line(a.x, a.y, b.x, b.y);
    }
  }
  if (frame == 1) FrameText(d, x, y, height, justify, angle, width, text);
}

TextBoxResult TextBox(const Drawing& d, float x, float y, float height, int16_t justify, float angle, int16_t width,
                      const std::string& text) {
  TextBoxResult box;
  const float line_height = 2.0f * std::fabs(height) * d.DrawScale;
  const float char_width = static_cast<float>(width) * line_height / 1000.0f;
  const std::vector<std::string> lines = TextLines(Utf8ToCp1252(text));
  for (const std::string& line : lines) box.longest = std::max(box.longest, static_cast<int>(Trim(line).size()));
  const float w = static_cast<float>(box.longest) * char_width;
  const float total = static_cast<float>(lines.size()) * line_height;

  float left = x;
  if (justify >= 4) left = justify <= 6 ? x - w / 2.0f : x - w;
  float top = y + line_height;
  if (justify == 2 || justify == 5 || justify == 8) top = y + line_height / 2.0f;
  if (justify == 3 || justify == 6 || justify == 9) top = y;
  const float bottom = top - total;

  box.x = {left, left + w, left + w, left};
  box.y = {bottom, bottom, top, top};
  if (angle != 0) {
    const double c = CosD(angle);
    const double s = SinD(angle);
    for (size_t i = 0; i < 4; ++i) {
      const double dx = box.x[i] - x;
      const double dy = box.y[i] - y;
      box.x[i] = static_cast<float>(x + dx * c - dy * s);
      box.y[i] = static_cast<float>(y + dx * s + dy * c);
    }
  }
  return box;
}

void FrameText(Drawing& d, float x, float y, float height, int16_t justify, float angle, int16_t width,
               const std::string& text) {
  DrawingSurface& t = *d.Target;
  const TextBoxResult box = TextBox(d, x, y, height, justify, angle, width, text);
  const auto segment = [&](Point a, Point b) {
    if (!BeyondView(d, a, b)) t.Line(a.x, a.y, b.x, b.y);
  };
  const Point bl{box.x[0], box.y[0]};
  const Point br{box.x[1], box.y[1]};
  const Point tr{box.x[2], box.y[2]};
  const Point tl{box.x[3], box.y[3]};
  const float radius = std::hypot(tl.x - bl.x, tl.y - bl.y) / 2.0f;
  // Half circles in steps of 18 degrees about the midpoints of the two end sides.
  const auto half_circle = [&](Point centre, double from) {
    Point p = Toward(centre, radius, from);
    for (double a = from + 18.0; a <= from + 180.01; a += 18.0) {
      const Point q = Toward(centre, radius, a);
      segment(p, q);
      p = q;
    }
  };
  half_circle({(bl.x + tl.x) / 2.0f, (bl.y + tl.y) / 2.0f}, angle + 90.0);
  half_circle({(br.x + tr.x) / 2.0f, (br.y + tr.y) / 2.0f}, angle - 90.0 + 360.0);
  segment(bl, br);
  segment(tl, tr);
}

}  // namespace kestrane
