// The ejector stage model: vapor equivalent of a gas mixture, the flash at a condenser, the efficiency curve, and one stage's motive ratio, throat and size.
#pragma once

#include <cstdint>

#include "engine/design_context.h"
#include "properties/jet_balance.h"

namespace kestrane {

// Water vapor equivalent (lb/hr) of the loads at temperature t (degF).
float VaporEquivalent(const DesignContext& ctx, const LoadVector& loads, float t);

// Vapor pressures of the loads at one condenser: row 3 (C1), 4 (C2) or 5 (AC) of LOADS.
LoadVector FillVaporPressures(const DesignContext& ctx, int row);

// Vapor pressures (mmHgA) of the loads at t (degF): water from the steam table, the vapors by Antoine, gases 0.
LoadVector VaporPressuresAt(const DesignContext& ctx, float t);

// Dalton's law at total pressure p (mmHgA): the vapor that leaves a condenser.
// flag 1 keeps water in the gas as a direct contact condenser does
// (KEEPWATERC), any other flag as a pump's seal water does (KEEPWATERP).
void FlashLoads(const DesignContext& ctx, LoadVector& loads, LoadVector& vp, float p, int flag);

// Attainable efficiency (percent) at suction pressure p (mmHgA) and compression ratio cr.
float EfficiencyCurve(const DesignContext& ctx, float p, float cr);

// Correction of the motive ratio from 100 psig steam to the real motive
// pressure, for a stage discharging at pdown (mmHgA).
float MotiveCorrection(const DesignContext& ctx, float pdown, float pmotive);

// One stage sized for its load.
struct StageDesign {
  float ML = 0;      // motive to load ratio
  float THROAT = 0;  // inches
  float SIZE = 0;    // model size
  float EFF = 0;     // efficiency of the curve, percent
  JetBalanceData balance;  // the search at 100 psig
};
StageDesign DesignStage(const DesignContext& ctx, float pin, float pout, float pmotive, float tmotive, float ve);

// Correction of the motive ratio for the throat diameter (inches): small jets do worse than the balance says.
float ThroatCorrection(const DesignContext& ctx, float throat);

// Model size from throat diameter.
float SizeFromThroat(const DesignContext& ctx, float throat);

// Temperature (degF) of the motive steam throttled to pressure p (mmHgA).
float MixTemperatureSource(const DesignContext& ctx, float pmotive, float tmotive, float p);

}  // namespace kestrane
