// One stage as the interstage searches try it, and the load it hands to the next stage.
#pragma once

#include "engine/design_context.h"
#include "engine/stage_model.h"

namespace kestrane {

// One stage as the search evaluates it.
struct StageTrial {
  float pin = 0, pout = 0, ve = 0, ts = 0, td = 0, motive = 0;
  StageDesign design;
};

// Sizes a stage, its motive with the margin, and its discharge temperature by mass weighting.
StageTrial TryStage(const DesignContext& ctx, float pin, float pout, float ve, float ts, float margin, bool last);

// Writes the trial into stage column `col` and clears its velocity flags.
void StoreStage(DesignCase& dc, int col, const StageTrial& trial);

void StoreLoads(DesignCase& dc, int col, const LoadVector& loads);
LoadVector LoadsOf(const DesignCase& dc, int col);

struct NextLoad {
  float p2 = 0, ve2 = 0, t2 = 0;
};

// The load of the next stage: the stage's motive joins load 1; through the
// condenser when present (5% pressure loss, flashed at its temperature),
// else with 10% more steam counted for the equivalent only.
NextLoad NextStageLoad(const DesignContext& ctx, LoadVector& loads, float pc, float motive, float td, bool condenser,
                       int vp_row, float tsat);

}  // namespace kestrane
