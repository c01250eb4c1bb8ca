// Lengths in inches as drawings print them: feet and inches with fractions, or decimals.
#include "drawings/format_inches.h"

#include <cmath>

#include "properties/vb.h"

namespace kestrane {

namespace {

// A fraction below one in decimals without the leading zero, as a mask ".000" shows it: ".50000".
std::string DecimalFraction(float frac, std::string_view mask) {
  std::string text = Format(frac, mask);
  if (text.starts_with("0.")) text.erase(0, 1);
  return Trim(text);
}

// The fraction text of `frac` (0 < frac < 1); `format` 3 falls back to 0 when no sixty-fourth fits.
std::string FractionText(float frac, int16_t& format) {
  if (format == 3) {
    for (int den : {2, 4, 8, 16, 32, 64}) {
      const float num = Int(static_cast<float>(den) * frac);
      if (std::fabs(num / static_cast<float>(den) - frac) < 0.001f) {
        if (num == 0) return DecimalFraction(RoundPow10(frac, -6), "0.00000");
        return " " + std::to_string(static_cast<int>(num)) + "/" + std::to_string(den);
      }
    }
    format = 0;
  }
  switch (format) {
    case 1: return DecimalFraction(RoundPow10(frac, -3), "0.00");
    case 2: return DecimalFraction(RoundPow10(frac, -4), "0.000");
    default: return DecimalFraction(RoundPow10(frac, -6), "0.00000");
  }
}

}  // namespace

std::string FormatInches(float value, int16_t& format, int16_t nofeet) {
  float feet = Int(value / 12.0f);
  if (feet < 2 || nofeet == 1) feet = 0;
  value -= 12.0f * feet;

  float frac = value - Int(value);
  if (std::fabs(1.0f - frac) <= 0.0001f || std::fabs(frac) < 0.0001f) frac = 0;
  const float whole = value - frac;

  std::string fraction;
  if (frac > 0.0001f) fraction = FractionText(frac, format);

  std::string whole_text = std::to_string(static_cast<long>(Int(static_cast<double>(whole) + 0.01)));
  if (format == 3 && Int(whole) <= 0) whole_text.clear();
  if (Int(whole) == 0 && feet > 0) whole_text = "0";
  // The blank before a fraction separates it from the whole inches; alone it is not written.
  if (whole_text.empty() && fraction.starts_with(' ')) fraction.erase(0, 1);

  std::string out = whole_text + fraction + "\"";
  if (feet > 0) out = std::to_string(static_cast<long>(feet)) + "'-" + out;
  return out;
}

float RoundPow10(float x, int16_t n) {
  const float p = static_cast<float>(std::pow(10.0, n));
  // The quotient is a single; the half added to it is a double.
  return static_cast<float>(Fix(static_cast<double>(x / p) + 0.5) * p);
}

}  // namespace kestrane
