// The limits of the main design values and their notices, shared by the check on leaving a box and the input check.
#pragma once

#include <optional>
#include <string_view>

namespace kestrane {

struct InputLimit {
  float low;
  float high;
  std::string_view message;
};

// The limit of main input row 0 (suction pressure), 1 (suction temperature),
// 2 (discharge pressure), 3 (motive pressure) or 5 (water temperature); none for the others.
std::optional<InputLimit> MainInputLimit(int row);

// Fouling factor limits, checked for shell and tube condensers.
inline constexpr InputLimit kFoulingLimit{0.001f, 0.1f, "Overall fouling factor outside the range."};

inline constexpr std::string_view kWaterOutletMessage = "Cooling Water Outlet Temperature is outside allowed range";

}  // namespace kestrane
