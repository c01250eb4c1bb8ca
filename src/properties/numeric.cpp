// Shared number helpers: table interpolation, two-point lines, rounding, extremes, fixed-width text.
#include "properties/numeric.h"

#include <cmath>

#include "properties/text_codec.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// A cell counts as blank when it lies in 0 .. 0.000002; the test is made in double.
bool IsBlankCell(float v) { return std::fabs(static_cast<double>(v) - 0.000001) <= 0.000001; }

float CheckedSingle(float v) {
  if (!std::isfinite(v)) throw VbError(6);
  return v;
}

}  // namespace

void TableInterp(const Array2D<float>& table, int16_t rows, int16_t cols, float x, int16_t& status,
                 int16_t& xcol, int16_t ycol, float& result, int16_t layout) {
  const bool transposed = layout == 1;
  // Point i, column c, whichever way the table is stored.
  auto cell = [&](int i, int c) -> float { return transposed ? table(c, i) : table(i, c); };
  const int column_bound = transposed ? rows : cols;
  const int point_bound = transposed ? cols : rows;

  status = 0;
  if (xcol <= 0 || xcol > column_bound) xcol = 1;

  // Used length: rows 1 and 2 always count; from row 3 on, the first row
  // whose two chosen cells are both blank ends the table.
  int i = 3;
  if (transposed) {
    // This form reads the point after the bound before it tests the bound.
    while (true) {
      const bool filled = !IsBlankCell(cell(i, xcol)) || !IsBlankCell(cell(i, ycol));
      if (!(i <= point_bound && filled)) break;
      ++i;
    }
  } else {
    while (i <= point_bound && (!IsBlankCell(cell(i, xcol)) || !IsBlankCell(cell(i, ycol)))) ++i;
  }
  const int n = i - 1;

  int step = 1, lo = 1, hi = n;
  if (cell(1, xcol) > cell(n, xcol)) {
    step = -1;
    lo = n;
    hi = 1;
  }
  auto X = [&](int k) { return cell(k, xcol); };
  auto Y = [&](int k) { return cell(k, ycol); };

  // Outside: continue the end segment, no limit.
  if (x > X(hi) || x < X(lo)) {
    const int a = x > X(hi) ? hi : lo + step;
    const int b = a - step;
    const float slope = Divide(Y(a) - Y(b), X(a) - X(b));
    const float intercept = Y(a) - slope * X(a);
    result = CheckedSingle(intercept + slope * x);
    status = 1;
    return;
  }
  if (x == X(hi)) {
    result = Y(hi);
    return;
  }
  for (int k = lo; k != hi; k += step) {
    if (x >= X(k) && x < X(k + step)) {
      const int j = k + step;
      const float fraction = Divide(X(j) - x, X(j) - X(k));
      result = CheckedSingle(Y(j) - fraction * (Y(j) - Y(k)));
      return;
    }
  }
  // Only an abscissa column that is not monotonic, or an x that is not a number, gets here.
  throw VbError(5);
}

float TwoPointLine(float x1, float y1, float x2, float y2, float x) {
  const float slope = Divide(y1 - y2, x1 - x2);
  const float intercept = y1 - slope * x1;
  return CheckedSingle(intercept + slope * x);
}

float LogLogLine(float x1, float y1, float x2, float y2, float x) {
  if (x1 <= 0 || y1 <= 0 || x2 <= 0 || y2 <= 0 || x <= 0) throw VbError(5);
  const double lx1 = std::log(static_cast<double>(x1));
  const double ly1 = std::log(static_cast<double>(y1));
  const double lx2 = std::log(static_cast<double>(x2));
  const double ly2 = std::log(static_cast<double>(y2));
  const double slope = Divide(ly1 - ly2, lx1 - lx2);
  const double intercept = ly1 - slope * lx1;
  return CheckedSingle(static_cast<float>(std::exp(intercept + slope * std::log(static_cast<double>(x)))));
}

double Log10(double x) {
  if (x <= 0) throw VbError(5);
  return std::log(x) / std::log(10.0);
}

void RoundTo(float& value, float multiple) {
  // The quotient is a single; the half added to it is a double, as in the original.
  const float quotient = Divide(value, multiple);
  value = CheckedSingle(static_cast<float>(Int(static_cast<double>(quotient) + 0.5) * multiple));
}

void RoundUpTo(float& value, float multiple) {
  const float old = value;
  RoundTo(value, multiple);
  if (value < old) value += multiple;
}

namespace {

// The field of FormatFixed for a Single or a Double.
template <typename T>
std::string FixedField(T value, float spec) {
  float width = Int(spec);
  const int16_t decimals = CInt((spec - width) * 10.0f);
  bool trim = false;
  if (width < 1) {
    width = 20;
    trim = true;
  }
  const std::string mask = decimals > 0 ? "0." + std::string(static_cast<size_t>(decimals), '0') : "0";
  std::string text = Format(value, mask);
  if (static_cast<float>(text.size()) < width) text.insert(0, static_cast<size_t>(width) - text.size(), ' ');
  return trim ? Trim(text) : text;
}

}  // namespace

std::string FormatFixed(float value, float spec) { return FixedField(value, spec); }
std::string FormatFixedDouble(double value, float spec) { return FixedField(value, spec); }

std::string FormatBySize(float value, float width) {
  const float w = Int(width);
  // Each later test overrides the earlier; the limits are doubles.
  const double v = value;
  int decimals = 0;
  if (v < 1000) decimals = 1;
  if (v < 100) decimals = 2;
  if (v < 10) decimals = 3;
  if (v < 1) decimals = 4;
  if (v < 0.1) decimals = 5;
  if (v < 0.01) decimals = 6;
  if (v == 0) decimals = 1;
  if (decimals > w - 1) decimals = static_cast<int>(w - 1);
  const std::string mask = decimals > 0 ? "0." + std::string(static_cast<size_t>(decimals), '0') : "0";
  std::string text = Format(value, mask);
  if (static_cast<float>(text.size()) < w) text.insert(0, static_cast<size_t>(w) - text.size(), ' ');
  return text;
}

void PlaceInField(int16_t alignment, std::string& line, const std::string& text, int16_t column) {
  const std::u32string t = ToCodePoints(Trim(text));
  if (t.empty()) return;
  const int len = static_cast<int>(t.size());
  int start = 0;
  switch (alignment) {
    case -1: start = column; break;
    case 1: start = column - len + 1; break;
    case 0: start = column - static_cast<int>(Int(len / 2.0)); break;
    default: return;
  }
  if (start < 1) return;
  std::u32string l = ToCodePoints(line);
  for (int k = 0; k < len && start - 1 + k < static_cast<int>(l.size()); ++k) l[static_cast<size_t>(start - 1 + k)] = t[static_cast<size_t>(k)];
  line = FromCodePoints(l);
}

void PolarOf(float x1, float y1, float x2, float y2, float& distance, float& angle) {
  const float dx = x2 - x1;
  const float dy = y2 - y1;
  distance = static_cast<float>(std::sqrt(static_cast<double>(dx) * dx + static_cast<double>(dy) * dy));
  if (std::fabs(dx) > 0.000001) {
    // 57.295777918682 is the factor to use here, not the exact 180/pi.
    angle = static_cast<float>(std::atan(static_cast<double>(dy / dx)) * 57.295777918682);
    if (dx < 0) angle += 180;
    if (angle < 0) angle += 360;
  } else {
    angle = 90;
    if (dy < 0) angle = 270;
    if (std::fabs(dy) < 0.000001) angle = 0;
  }
}

}  // namespace kestrane
