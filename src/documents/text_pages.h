// Pages as plain text: each printed line with its indent, LF line ends, a form feed between pages.
#pragma once

#include <string>

#include "shell/page_sink.h"

namespace kestrane {

// The indent of a line is its distance from the left edge in characters of its font; a move down the page
// leaves as many blank lines as would fit in the gap at the font of the next line.
class TextPages : public PageSink {
 public:
  // Everything printed so far, the pages ended by EndDoc.
  const std::string& text() const { return text_; }

 protected:
  void Text(float x_twips, float y_twips, const std::string& text, const PrintFont& font) override;
  void EndPage(float bottom_twips) override;

 private:
  std::string page_;
  std::string text_;
  float next_y_ = 0;  // where the line after the last one would stand
};

}  // namespace kestrane
