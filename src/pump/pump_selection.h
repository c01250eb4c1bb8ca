// Liquid ring pump selection for the last stage of a train.
#pragma once

#include <cstdint>

#include "engine/design_context.h"

namespace kestrane {

// Rows of LRVPRES, one column per pump kept.
enum LrvpRow : int {
  kLrvpPump = 1,             // catalogue index
  kLrvpCapacity = 2,         // corrected capacity, ACFM
  kLrvpPower = 3,            // corrected brake power, hp
  kLrvpSeal = 4,             // seal water, gpm
  kLrvpAcfm = 5,             // volume the load needs at the suction
  kLrvpSealOut = 7,          // seal water outlet, degF
  kLrvpLowMargin = 8,        // 1: seal outlet within 10 mmHg of the suction pressure
  kLrvpHighRise = 9,         // 1: seal water rises more than 20 F
  kLrvpRatio = 10,           // capacity over need
  kLrvpPowerFactor = 11,
  kLrvpCapacityFactor = 12,
  kLrvpSealPsat = 13,        // vapor pressure at the seal outlet, mmHgA
  kLrvpMaxPower = 15,        // hp
  kLrvpMotor = 16,           // motor of the first pump, hp
  kLrvpCondensation = 18,    // capacity factor of condensation in the ring
};

// Tries the pump catalogue for suction p (mmHgA), discharge pd (psig) and the
// loads, keeping the pumps that do the job in LRVPRES sorted by power.
// Outcome: 0 at least one pump kept, 1 none kept, 2 load too large.
// `pump` restricts the trial to one catalogue row (0: all); `count` returns the pumps kept.
int16_t AnalysePump(DesignContext& ctx, float p, float pd, const LoadVector& loads, int16_t pump, int16_t& count);

}  // namespace kestrane
