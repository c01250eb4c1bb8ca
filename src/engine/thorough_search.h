// The thorough interstage search: all interstage pressures of a two, three or four stage train searched together over their whole feasible range.
#pragma once

#include <array>

#include "engine/design_context.h"
#include "engine/stage_trial.h"

namespace kestrane {

// A whole train of ejector stages at one set of interstage pressures.
struct TrainTrial {
  int stages = 0;
  std::array<StageTrial, kStageColumns + 1> stage;  // by stage column, 1 (C) to `stages`
  std::array<LoadVector, kStageColumns + 1> loads;  // the suction loads of each stage column
  float motive = 0;     // total motive steam, lb/hr
  float size = 0;       // summed model sizes of the ejectors
  bool failed = false;  // a stage whose jet balance failed
};

// The train of `stages` ejectors from pin to pout (mmHgA) for suction loads at
// t (degF), discharging at `interstage` (flow order: the first stage's
// discharge first), each stage sized and its load handed on as the original
// search does: the same margins, the last stage's floor, the same
// intercondensers.
TrainTrial TryTrain(const DesignContext& ctx, int stages, float pin, float pout, float t, const LoadVector& loads,
                    const std::array<float, 3>& interstage);

// What the search minimises: total motive steam, or, when the case optimises
// capital (OptionOptimize), the summed ejector model sizes, which set the
// ejector bodies. A train with a failed stage is never chosen.
float TrainObjective(const DesignContext& ctx, const TrainTrial& train);

// The lowest A-B pressure a search may use (mmHgA): saturated water at the
// first intercondenser's highest water temperature plus 6 degF; 0 when beyond the table.
float InterstageFloor(const DesignContext& ctx);

// The best train over the whole feasible range of interstage pressures,
// from pin to pout for the suction loads at t; `found` is false when every
// train tried had a failed stage.
TrainTrial ThoroughTrain(const DesignContext& ctx, int stages, float pin, float pout, float t, const LoadVector& loads,
                         bool& found);

// After the original search has stored its train in the record: searches
// thoroughly from the same suction and stores the better train, keeping the
// original one unless the thorough one is strictly better or the original has
// a failed stage. Returns true when the thorough train was stored.
bool ImproveByThoroughSearch(DesignContext& ctx, float pin, float pout, float t);

// The train the record holds: its total motive and ejector sizes; failed
// when a stage was never stored or its jet balance fails.
TrainTrial StoredTrain(const DesignContext& ctx);

// The stored stage column c's jet balance failed at its pressures.
bool StageBalanceFails(const DesignContext& ctx, int c);

}  // namespace kestrane
