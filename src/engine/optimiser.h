// The interstage pressure searches: one to four stages, each searched for the least total motive steam.
#pragma once

#include <cstdint>

#include "engine/design_context.h"

namespace kestrane {

// Motive margins by stage position, and the floor of the last stage.
inline constexpr float kMarginC = 1.05f;
inline constexpr float kMarginB = 1.04f;
inline constexpr float kMarginA = 1.07f;  // stages A and AA
inline constexpr float kMotiveFloor = 55.0f;
inline constexpr float kFlooredMotive = 57.749996185303f;  // 55 * 1.05 in single precision
inline constexpr float kNoBest = 8999999488.0f;

// Motive of the last stage: ML * VE * 1.05, at least the floor.
float LastStageMotive(float ml, float ve);

// A single stage C from pin to pout at gas temperature t.
void DesignSingleStage(DesignContext& ctx, float pin, float pout, float t, LoadVector& loads);

// Stages B and C, searching the B-C pressure; `ve` is the equivalent at pin.
// Returns the least total motive in `best`; err 1 on a pump error.
void OptimizeTwoStage(DesignContext& ctx, float ve, float pin, float pout, float t, LoadVector& loads, float& best,
                      int16_t& err);

// Stages A, B and C, searching the A-B pressure with the two stage search at each candidate.
void OptimizeThreeStage(DesignContext& ctx, float pin, float pout, float t, LoadVector& loads, float& best,
                        int16_t& err);

// Stages AA, A, B and C: the A-B pressure fixed at pfix, the AA-A pressure
// searched (or fixed when px_fixed is positive), then the two stage search.
void OptimizeFourStage(DesignContext& ctx, float pin, float pout, float t, float pfix, float px_fixed,
                       LoadVector& loads, float& best, int16_t& err);

}  // namespace kestrane
