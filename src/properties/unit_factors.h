// The program's factors between standard and metric units.
#pragma once

namespace kestrane {

inline constexpr double kLbPerKg = 2.2045993805;     // pounds per kilogram, as the program has always taken it
inline constexpr double kPsiPerBar = 14.5037994385;  // psi per bar

// The same factors in single precision, for the result screens' single arithmetic.
inline constexpr float kLbPerKgSingle = static_cast<float>(kLbPerKg);
inline constexpr float kPsiPerBarSingle = static_cast<float>(kPsiPerBar);
static_assert(kLbPerKgSingle == 2.2045993805f && kPsiPerBarSingle == 14.5037994385f);

// Factors of the metric result screens.
inline constexpr float kM3hPerGpm = 0.22712470704f;  // US gallons per minute in cubic metres per hour
inline constexpr float kM2PerFt2 = 0.09290304f;      // square feet in square metres
inline constexpr float kM3hPerCfm = 1.69901082f;     // 0.3048^3 m3/ft3 * 60 min/hr
inline constexpr float kKwPerHp = 0.7457f;           // horsepower in kilowatts, as the annual power cost takes it

// The specification sheet's own, shorter factors: its flows and surfaces differ from the result screens' in the
// seventh digit.
inline constexpr double kGpmPerM3h = 4.4029;      // US gallons per minute in a cubic metre per hour
inline constexpr float kM2PerFt2Sheet = 0.092903f;  // square feet in square metres

}  // namespace kestrane
