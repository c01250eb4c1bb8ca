// A vapor's pressures over a temperature range, for the vapor pressure window and command.
#pragma once

#include <cstdint>
#include <vector>

#include "properties/vapors.h"

namespace kestrane {

struct VaporTableRow {
  float t = 0;         // degF, or degC in a table made in degC
  float pressure = 0;  // mmHgA
  int16_t flag = 0;    // 1 outside the vapor's range of data
};

// A range a table can have: a step above 0, tmax not below tmin, at most 10000 rows.
bool VaporTableRange(float tmin, float tmax, float step);

// From tmin to tmax (degF, or degC when `celsius`) in steps of `step`: false,
// with no rows past it, when the range is not one a table can have or the
// vapor cannot be evaluated (its notice has been shown). A degC table steps in
// degC, so that its last row falls on tmax as a degF table's does.
bool VaporPressureTable(const Vapors& vapors, int16_t id, float tmin, float tmax, float step,
                        std::vector<VaporTableRow>& rows, bool celsius = false);

}  // namespace kestrane
