// The printer's current position, line advance and page ends.
#include "shell/page_sink.h"

#include <algorithm>

namespace kestrane {

namespace {
// Ascent plus descent of the report font (Courier New, and the metric-compatible Liberation Mono), in em.
constexpr float kLineEm = 2320.0f / 2048.0f;
// Advance width of every character of the report font, in em.
constexpr float kCharEm = 1229.0f / 2048.0f;
}  // namespace

float LineHeightTwips(float size_pt) { return size_pt * 20.0f * kLineEm; }
float CharWidthTwips(float size_pt) { return size_pt * 20.0f * kCharEm; }

void PageSink::Print(const std::string& text) {
  Text(x_, y_, text, font);
  printed_ = true;
  y_ += LineHeightTwips(font.size);
  bottom_ = std::max(bottom_, y_);
  x_ = 0;
}

void PageSink::EndDoc() {
  if (printed_) {
    EndPage(bottom_);
    ++pages_;
  }
  printed_ = false;
  x_ = y_ = bottom_ = 0;
}

}  // namespace kestrane
