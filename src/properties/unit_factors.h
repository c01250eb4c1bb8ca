// The program's factors between standard and metric units.
#pragma once

namespace kestrane {

inline constexpr double kLbPerKg = 2.2045993805;     // pounds per kilogram, as the program has always taken it
inline constexpr double kPsiPerBar = 14.5037994385;  // psi per bar

// The same factors in single precision, for the result screens' single arithmetic.
inline constexpr float kLbPerKgSingle = static_cast<float>(kLbPerKg);
inline constexpr float kPsiPerBarSingle = static_cast<float>(kPsiPerBar);
static_assert(kLbPerKgSingle == 2.2045993805f && kPsiPerBarSingle == 14.5037994385f);

}  // namespace kestrane
