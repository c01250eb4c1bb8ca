// Free-format reading of list files: values separated by commas or line ends, and whole lines.
#include "properties/list_input.h"

#include <cmath>

#include "properties/text_codec.h"
#include "properties/vb.h"

namespace kestrane {

std::string ListInput::Field(bool& quoted) {
  for (;;) {
    if (!in_line_) {
      rest_ = file_.LineInput();
      in_line_ = true;
    }
    const size_t first = rest_.find_first_not_of(' ');
    if (first == std::string::npos) {  // nothing left on this line: the list goes on on the next
      in_line_ = false;
      continue;
    }
    quoted = rest_[first] == '"';
    size_t end = first;  // where the field's text ends
    size_t from = first;  // where its separating comma is looked for
    if (quoted) {
      const size_t close = rest_.find('"', first + 1);
      end = close == std::string::npos ? rest_.size() : close;
      from = close == std::string::npos ? rest_.size() : close + 1;
    }
    const size_t comma = rest_.find(',', from);
    if (!quoted) end = comma == std::string::npos ? rest_.size() : comma;
    std::string field = quoted ? rest_.substr(first + 1, end - first - 1) : Trim(rest_.substr(first, end - first));
    if (comma == std::string::npos) {
      in_line_ = false;
    } else {
      rest_.erase(0, comma + 1);
    }
    return field;
  }
}

double ListInput::Number() {
  bool quoted = false;
  const std::string field = Field(quoted);
  if (field.empty() && !quoted) return 0;
  if (!IsPlainNumber(field)) throw VbError(13);
  return Val(field);
}

std::string ListInput::Text() {
  bool quoted = false;
  return Field(quoted);
}

int16_t ListInput::Integer() { return CInt(Number()); }

int32_t ListInput::Long() {
  const double v = std::nearbyint(Number());  // half to even
  if (!(v >= -2147483648.0 && v <= 2147483647.0)) throw VbError(6);
  return static_cast<int32_t>(v);
}

float ListInput::Single() { return CSng(Number()); }

std::string ListInput::Line() {
  if (in_line_) {
    in_line_ = false;
    return rest_;
  }
  return file_.LineInput();
}

std::string FixedWidth(const std::string& text, size_t width) {
  std::u32string points = ToCodePoints(text);
  points.resize(width, U' ');
  return FromCodePoints(points);
}

std::string CutTo(const std::string& text, size_t width) {
  const std::u32string points = ToCodePoints(text);
  return points.size() <= width ? text : FromCodePoints(std::u32string_view(points).substr(0, width));
}

}  // namespace kestrane
