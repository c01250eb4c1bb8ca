// The condenser run: flows, heat loads, water balance and the sizing of one condenser of the train.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/design_context.h"

namespace kestrane {

// The condenser input rows of a run: water in, water out at its limit, the
// fouling factor of the input and a margin of 1; the rest not specified.
void SetCondenserInputs(DesignContext& ctx);

// Designs condenser `col` (3 C1, 2 C2, 1 AC) of a train of `nstages` stages.
// dia1 and dia2 are the fallback vapor nozzles at its inlet and outlet.
// err becomes 1 on a trapped failure, and `reason`, when given, says in a few
// words what ended the run (empty when err is 0); `warnings` collects the warning codes.
void CondenserDesign(DesignContext& ctx, int nstages, int col, float dia1, float dia2, int16_t& err,
                     std::array<int16_t, 14>& warnings, std::string* reason = nullptr);

}  // namespace kestrane
