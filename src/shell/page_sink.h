// A printer page as the reports drive it: font, lines printed one under the other, the current position and page ends.
#pragma once

#include <cstdint>
#include <string>

#include "shell/drawing_surface.h"

namespace kestrane {

// The report font: fixed pitch, sizes 8, 10 and 12 points.
struct PrintFont {
  std::string name = "Courier New";
  float size = 10;
  bool bold = false;
};

// Line height of the report font in twips: its ascent and descent, 1.1328 em (2320/2048).
float LineHeightTwips(float size_pt);
// Advance of one character of the report font in twips: 0.6 em (1229/2048).
float CharWidthTwips(float size_pt);

// A Letter page in twips (1440 a inch), portrait.
inline constexpr float kPageWidthTwips = 12240.0f;
inline constexpr float kPageHeightTwips = 15840.0f;

// The printer: reports print lines at the current position, which moves down a line each time; EndDoc closes
// the page. Positions are in twips from the page's upper left corner (scale mode 1), or in inches (scale mode 5).
// A sink turns what is printed into pages: plain text, PDF, a printer.
class PageSink {
 public:
  virtual ~PageSink() = default;

  PrintFont font;
  int16_t orientation = 1;  // 1 portrait, 2 landscape
  int16_t scale_mode = 1;   // 1 twips, 5 inches

  // Current position in the scale mode's unit.
  float CurrentX() const { return FromTwips(x_); }
  float CurrentY() const { return FromTwips(y_); }
  void SetCurrentX(float x) { x_ = ToTwips(x); }
  void SetCurrentY(float y) { y_ = ToTwips(y); }

  // Page size in the scale mode's unit, by orientation.
  float Height() const { return FromTwips(orientation == 2 ? kPageWidthTwips : kPageHeightTwips); }
  float Width() const { return FromTwips(orientation == 2 ? kPageHeightTwips : kPageWidthTwips); }

  // One line at the current position, then the position goes to the start of the next line.
  void Print(const std::string& text);
  // Two texts joined on one line.
  void Print(const std::string& a, const std::string& b) { Print(a + b); }

  // Ends the print job: the page printed since the last EndDoc goes out; with nothing printed, nothing does.
  void EndDoc();

  // Pages sent so far.
  int pages() const { return pages_; }

  // Marks the page as printed on (a drawing drawn on it, without text), so that EndDoc sends it.
  void Touch() { printed_ = true; }

  // Where drawings print on the present page, in the user scale that the caller sets on it; none on a sink that
  // prints text only.
  virtual DrawingSurface* DrawingTarget() { return nullptr; }

 protected:
  // One line of text with its upper left corner at (x, y) twips.
  virtual void Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) = 0;
  // The page is complete; `bottom_twips` is the lower edge of its last line, which may pass the page's height.
  virtual void EndPage(float bottom_twips) = 0;

 private:
  float ToTwips(float v) const { return scale_mode == 5 ? v * 1440.0f : v; }
  float FromTwips(float v) const { return scale_mode == 5 ? v / 1440.0f : v; }

  float x_ = 0, y_ = 0;
  float bottom_ = 0;
  bool printed_ = false;
  int pages_ = 0;
};

}  // namespace kestrane
