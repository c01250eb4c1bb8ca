// Shared number helpers: table interpolation, two-point lines, rounding, extremes, fixed-width text.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "properties/arrays.h"

namespace kestrane {

// Linear interpolation in a curve table T(point, column) with a rising or
// falling abscissa column. `rows` and `cols` are the declared sizes; the used
// length ends at the first row (from row 3) whose two chosen cells are blank.
// An `xcol` outside 1..cols is replaced by 1 and written back. Outside the
// table the end segment is continued and `status` is 1, else 0.
// `layout` 1 reads a table stored the other way round, T(column, point).
void TableInterp(const Array2D<float>& table, int16_t rows, int16_t cols, float x, int16_t& status,
                 int16_t& xcol, int16_t ycol, float& result, int16_t layout = 0);

// Value at x of the straight line through (x1, y1) and (x2, y2).
float TwoPointLine(float x1, float y1, float x2, float y2, float x);

// Value at x of the straight line through two points on logarithmic axes.
float LogLogLine(float x1, float y1, float x2, float y2, float x);

// Common logarithm, in double precision.
double Log10(double x);

// To the nearest multiple, ties upward.
void RoundTo(float& value, float multiple);

// To the next multiple at or above the value.
void RoundUpTo(float& value, float multiple);

namespace detail {
template <typename Better>
float Extreme(float a, float b, std::initializer_list<std::optional<float>> rest, Better better) {
  float v = better(a, b) ? a : b;
  for (const auto& o : rest) {
    if (o && better(*o, v)) v = *o;
  }
  return v;
}
}  // namespace detail

// Largest of two values and up to eight optional ones; a missing optional
// value (std::nullopt) is skipped, never read as zero. Ties keep the earlier.
template <typename... Rest>
  requires(sizeof...(Rest) <= 8)
float MaxOf(float a, float b, Rest... rest) {
  return detail::Extreme(a, b, {std::optional<float>(rest)...}, [](float p, float q) { return p > q; });
}

// Smallest of two values and up to eight optional ones, as MaxOf.
template <typename... Rest>
  requires(sizeof...(Rest) <= 8)
float MinOf(float a, float b, Rest... rest) {
  return detail::Extreme(a, b, {std::optional<float>(rest)...}, [](float p, float q) { return p < q; });
}

// A number in a field: spec 8.2 means width 8 with 2 decimals, right-justified;
// a width below 1 (spec 0.3) gives the number alone, trimmed.
std::string FormatFixed(float value, float spec);
// FormatFixed of a Double: its 15-digit decimal form is rounded, not a Single's.
std::string FormatFixedDouble(double value, float spec);

// A number right-justified in a field of the given width, its decimals chosen by its size.
std::string FormatBySize(float value, float width);

// Writes trimmed text into a fixed-width line at a 1-based column:
// alignment -1 starts there, 1 ends there, 0 centres on it. The line never grows.
void PlaceInField(int16_t alignment, std::string& line, const std::string& text, int16_t column);

// Distance and direction in degrees (0 to 360) from the first point to the second.
void PolarOf(float x1, float y1, float x2, float y2, float& distance, float& angle);

}  // namespace kestrane
