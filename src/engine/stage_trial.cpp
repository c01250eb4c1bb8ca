// One stage as the interstage searches try it, and the load it hands to the next stage.
#include "engine/stage_trial.h"

#include "engine/optimiser.h"

namespace kestrane {

StageTrial TryStage(const DesignContext& ctx, float pin, float pout, float ve, float ts, float margin, bool last) {
  const DesignCase& dc = ctx.dc;
  StageTrial trial;
  trial.pin = pin;
  trial.pout = pout;
  trial.ve = ve;
  trial.ts = ts;
  trial.design = DesignStage(ctx, pin, pout, dc.PMOTIVE, dc.TMOTIVE, ve);
  const float ml = trial.design.ML;
  trial.motive = last ? LastStageMotive(ml, ve) : ml * ve * margin;
  const float tmix = MixTemperatureSource(ctx, dc.PMOTIVE, dc.TMOTIVE, pout);
  trial.td = (ml * tmix + ts) / (ml + 1);
  return trial;
}

void StoreStage(DesignCase& dc, int col, const StageTrial& trial) {
  dc.STG(col, kStgPIN) = trial.pin;
  dc.STG(col, kStgPOUT) = trial.pout;
  dc.STG(col, kStgMOTIVE) = trial.motive;
  dc.STG(col, kStgML) = trial.design.ML;
  dc.STG(col, kStgSIZE) = trial.design.SIZE;
  dc.STG(col, kStgTHROAT) = trial.design.THROAT;
  dc.STG(col, kStgVE) = trial.ve;
  dc.STG(col, kStgTS) = trial.ts;
  dc.STG(col, kStgTD) = trial.td;
  for (int k = 1; k <= 7; ++k) dc.VELFLAG(col, k) = 0;
}

void StoreLoads(DesignCase& dc, int col, const LoadVector& loads) {
  for (int load = 1; load <= kMaxLoads; ++load) dc.STGLOAD(load, col) = loads(load);
}

LoadVector LoadsOf(const DesignCase& dc, int col) {
  LoadVector loads = NewLoadVector();
  for (int load = 1; load <= kMaxLoads; ++load) loads(load) = dc.STGLOAD(load, col);
  return loads;
}

NextLoad NextStageLoad(const DesignContext& ctx, LoadVector& loads, float pc, float motive, float td, bool condenser,
                       int vp_row, float tsat) {
  NextLoad next;
  loads(1) += motive;
  if (condenser) {
    next.p2 = static_cast<float>(pc * 0.95);
    LoadVector vp = FillVaporPressures(ctx, vp_row);
    FlashLoads(ctx, loads, vp, next.p2, 1);
    next.ve2 = VaporEquivalent(ctx, loads, tsat);
    next.t2 = tsat;
  } else {
    next.p2 = pc;
    const float extra = static_cast<float>(motive * 0.1);
    loads(1) += extra;
    next.ve2 = VaporEquivalent(ctx, loads, td);
    loads(1) -= extra;
    next.t2 = td;
  }
  return next;
}

}  // namespace kestrane
