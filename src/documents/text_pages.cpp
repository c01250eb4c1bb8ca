// Plain text pages: line positions turned into blank lines and indents.
#include "documents/text_pages.h"

#include <algorithm>
#include <cmath>

namespace kestrane {

void TextPages::Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) {
  const float line = LineHeightTwips(font.size);
  const int gap = static_cast<int>(std::floor((y_twips - next_y_) / line + 0.5f));
  for (int i = 0; i < gap; ++i) page_ += '\n';
  const int indent = static_cast<int>(std::floor(x_twips / CharWidthTwips(font.size) + 0.5f));
  page_ += std::string(static_cast<size_t>(std::max(indent, 0)), ' ') + text + '\n';
  next_y_ = y_twips + line;
}

void TextPages::EndPage(float /*bottom_twips*/) {
  if (!text_.empty()) text_ += '\f';
  text_ += page_;
  page_.clear();
  next_y_ = 0;
}

}  // namespace kestrane
