// The tail leg height: how tall a condensate leg must be so that the receiver's pressure cannot flood the condenser.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace kestrane {

inline constexpr std::string_view kTailLegNote =
    "Calculate the height required to ensure condensate receiver pressure does not cause the condenser to flood.";
inline constexpr std::string_view kTailLegAdvice =
    "\"Tessel recommends vacuum condenser operating pressure is full vacuum (0 psia) to be conservative.  Vacuum "
    "condenser operating pressure varies based on cooling water temperature, fouling, and process loading.  It is "
    "best to err on the conservative side.\"";

// The window: receiver pressure (mmHgA, "760" at first), condenser pressure (mmHgA), specific gravity, the two answers.
struct TailLegScreen {
  std::array<std::string, 3> txtTailLeg{"760", "", ""};
  std::array<std::string, 2> lblAns;
  int16_t error = 0;  // the run-time error the last Calculate absorbed, 0 when it calculated
};

// Calculate: the height in feet and meters, each to the nearest 0.1. A run-time
// error on the way (a specific gravity of 0 divides by zero, 1E-40 overflows the
// height) is absorbed by the window: the answers stay as they were, `error` holds
// its number; false then.
bool CalculateTailLeg(TailLegScreen& screen);

}  // namespace kestrane
