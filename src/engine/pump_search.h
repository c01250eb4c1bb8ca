// The liquid ring pump as last stage of the train: alone, or behind stage B with the B-C pressure searched for the pump.
#pragma once

#include <cstdint>

#include "engine/design_context.h"

namespace kestrane {

// Stage C is a pump from pin to pout (mmHgA) for the loads. The pump alone sets no suction or
// discharge temperature: those of the record stand. false on a pump error (LRVPERR 1).
bool PumpSingleStage(DesignContext& ctx, float pin, float pout, float ve, const LoadVector& loads);

// Stage B from pin and the pump as stage C to pout: the B-C pressure starts where the pump's
// seal water cannot cavitate and is bisected until the pump's capacity ratio lies between
// LRVPMLMIN and 1.15 times it. `best` is stage B's motive; err 1 on a pump error.
void PumpTwoStage(DesignContext& ctx, float ve, float pin, float pout, float t, LoadVector& loads, float& best,
                  int16_t& err);

}  // namespace kestrane
