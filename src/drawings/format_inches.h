// Lengths in inches as drawings print them: feet and inches with fractions, or decimals.
#pragma once

#include <cstdint>
#include <string>

namespace kestrane {

// The text of `value` inches: feet when 24 inches or more (never with `nofeet` 1), the fraction in sixty-fourths
// or coarser with `format` 3, else decimals (0: five places, 1: two, 2: three); a fraction that is no multiple
// of 1/64 within 0.001 turns `format` to 0. Ends with the inch sign.
std::string FormatInches(float value, int16_t& format, int16_t nofeet);

// x rounded to a multiple of 10^n.
float RoundPow10(float x, int16_t n);

}  // namespace kestrane
