// Liquid ring pump selection for the last stage of a train.
#pragma once

#include <cstdint>

#include "engine/design_context.h"

namespace kestrane {

// Tries the pump catalogue for suction p (mmHgA), discharge pd (psig) and the
// loads, keeping the pumps that do the job in LRVPRES sorted by power.
// Outcome: 0 at least one pump kept, 1 none kept, 2 load too large.
// `pump` restricts the trial to one catalogue row (0: all); `count` returns the pumps kept.
int16_t AnalysePump(DesignContext& ctx, float p, float pd, const LoadVector& loads, int16_t pump, int16_t& count);

}  // namespace kestrane
