// The interstage pressure searches: one to four stages, each searched for the least total motive steam.
#include "engine/optimiser.h"

#include <cmath>

#include "engine/pump_search.h"
#include "engine/stage_model.h"
#include "engine/stage_trial.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// A search that has not settled after this many candidates takes its best so far.
constexpr int kMaxCandidates = 2000;

}  // namespace

float LastStageMotive(float ml, float ve) {
  const float motive = ml * ve * kMarginC;
  return motive < kMotiveFloor ? kFlooredMotive : motive;
}

void DesignSingleStage(DesignContext& ctx, float pin, float pout, float t, LoadVector& loads) {
  DesignCase& dc = ctx.dc;
  const float ve = VaporEquivalent(ctx, loads, t);
  if (dc.USELRVP == 1) {
    PumpSingleStage(ctx, pin, pout, ve, loads);
    return;
  }
  const StageTrial c = TryStage(ctx, pin, pout, ve, t, kMarginC, true);
  StoreStage(dc, kStageC, c);
  StoreLoads(dc, kStageC, loads);
}

void OptimizeTwoStage(DesignContext& ctx, float ve, float pin, float pout, float t, LoadVector& loads, float& best,
                      int16_t& err) {
  DesignCase& dc = ctx.dc;
  if (dc.USELRVP == 1) {
    PumpTwoStage(ctx, ve, pin, pout, t, loads, best, err);
    return;
  }
  const Steam steam = ctx.steam();
  err = 0;
  best = kNoBest;
  StoreLoads(dc, kStageB, loads);
  dc.STG(kStageB, kStgPIN) = pin;

  float p0 = static_cast<float>(std::sqrt(pout / pin) * pin);
  RoundTo(p0, 1.0f);
  if (dc.HASC2 > 0) {
    float pc2 = 0;
    int16_t failed = 0;
    SatPress(steam, dc.TSATC2 + 15, pc2, failed);
    RoundTo(pc2, 1.0f);
    p0 = MaxOf(p0, pc2);
  }
  float s = 10.0f;
  float pb = p0 - s;
  int trend = 0;
  for (int candidate = 0; candidate < kMaxCandidates; ++candidate) {
    pb += s;
    while (pb <= 0) {
      pb -= s;
      s = s > 0 ? -1.0f : 1.0f;
      if (pb <= 0) pb = 10.0f;
      pb += s;
    }
    loads = LoadsOf(dc, kStageB);
    const StageTrial b = TryStage(ctx, pin, pb, ve, t, kMarginB, false);
    const NextLoad next = NextStageLoad(ctx, loads, pb, b.motive, b.td, dc.HASC2 > 0, kLoadVPC2, dc.TSATC2);
    const StageTrial c = TryStage(ctx, next.p2, pout, next.ve2, next.t2, kMarginC, true);
    const float total = c.motive + b.motive;
    const float ratio = best / total;
    bool improved = false;
    if (total < best) {
      best = total;
      StoreStage(dc, kStageC, c);
      StoreStage(dc, kStageB, b);
      StoreLoads(dc, kStageC, loads);
      dc.CND(kCondC2, kCndPIN) = pb;
      dc.CND(kCondC2, kCndPOUT) = static_cast<float>(pb * 0.95);
      improved = true;
      --trend;
    } else {
      ++trend;
    }
    if (s == 0) return;
    if (ratio > 0.97 && ratio < 1.03) return;  // the curve is flat
    if (improved) continue;
    if (trend < 0) return;  // the minimum is passed after a gain
    if (s < 0) return;
    pb = p0;  // back to the start and downward
    s = -s;
  }
}

void OptimizeThreeStage(DesignContext& ctx, float pin, float pout, float t, LoadVector& loads, float& best,
                        int16_t& err) {
  DesignCase& dc = ctx.dc;
  const Steam steam = ctx.steam();
  StoreLoads(dc, kStageA, loads);
  dc.STG(kStageA, kStgPIN) = pin;
  best = kNoBest;

  float pm = 0;
  int16_t failed = 0;
  SatPress(steam, dc.TWMAX(18) + 6, pm, failed);
  const float pf = failed ? 0.0f : pm;
  const float pg = static_cast<float>(std::pow(pout / pin, 0.333) * pin);
  float p0 = (failed || dc.HASC1 == 0 || pg > pm) ? pg : pm;
  RoundTo(p0, 1.0f);
  float s = p0 < 15 ? 4.0f : 16.0f;
  // A fixed A-B pressure left by a four stage run earlier in this session is used as it stands.
  if (ctx.PINTERFIX > 0) {
    s = 0;
    p0 = ctx.PINTERFIX;
  }
  const float ve = VaporEquivalent(ctx, loads, t);

  float pa = p0 - s;
  float pbest = p0;
  int trend = 0;
  for (int candidate = 0;; ++candidate) {
    pa += s;
    while (!(pa > 0 && pa >= pf)) {
      if (pa >= pf) {
        pa -= s;
        s = s > 0 ? -1.0f : 1.0f;
        if (pa <= 0) pa = 10.0f;
        pa += s;
      } else {
        s = 1;
        pa = pf > 0 ? pf : 10.0f;
        break;
      }
    }
    // After the floor rule, which would otherwise set the search going again for ever.
    if (candidate >= kMaxCandidates) {
      if (!(best < kNoBest)) return;  // no candidate was ever stored: there is no best to recompute
      s = 0;
      pa = pbest;
    }
    loads = LoadsOf(dc, kStageA);
    const StageTrial a = TryStage(ctx, pin, pa, ve, t, kMarginA, false);
    const NextLoad next = NextStageLoad(ctx, loads, pa, a.motive, a.td, dc.HASC1 > 0, kLoadVPC1, dc.TSATC1);
    float best_two = 0;
    OptimizeTwoStage(ctx, next.ve2, next.p2, pout, next.t2, loads, best_two, err);
    if (err == 1) return;
    const float total = a.motive + best_two;
    const float ratio = best / total;
    bool improved = false;
    if (total < best) {
      best = total;
      pbest = pa;
      StoreStage(dc, kStageA, a);
      dc.CND(kCondC1, kCndPIN) = pa;
      dc.CND(kCondC1, kCndPOUT) = static_cast<float>(pa * 0.95);
      improved = true;
      --trend;
    } else {
      ++trend;
    }
    // The round with no step recomputes the best, restoring stages B and C.
    if (CInt(s) == 0) return;
    if (!(ratio > 0.97 && ratio < 1.03)) {
      if (improved) continue;
      if (!(trend < 0 || s < 0)) {
        s = -s;
        pa = std::fabs(s) > 2 ? p0 : pbest;
        continue;
      }
    }
    // Closing in: halve the step around the best, or end on it.
    if ((ratio > 0.99995 && ratio < 1.00005) || std::fabs(s) <= 1) {
      s = 0;
      pa = pbest;
    } else {
      trend = 0;
      pa = pbest;
      s = static_cast<float>(std::fabs(s) * 0.5);
    }
  }
}

void OptimizeFourStage(DesignContext& ctx, float pin, float pout, float t, float pfix, float px_fixed,
                       LoadVector& loads, float& best, int16_t& err) {
  DesignCase& dc = ctx.dc;
  err = 0;
  StoreLoads(dc, kStageAA, loads);
  dc.STG(kStageAA, kStgPIN) = pin;

  float p0 = static_cast<float>(std::sqrt(pfix / pin) * pin);
  RoundTo(p0, 1.0f);
  float s = 1.0f;
  if (px_fixed > 0) {
    s = 0;
    p0 = px_fixed;
  }
  const float ve = VaporEquivalent(ctx, loads, t);

  float pair_best = kNoBest;
  float px = p0 - s;
  float px_best = p0;
  int trend = 0;
  StageTrial a;
  for (int candidate = 0;; ++candidate) {
    px += s;
    while (px <= 0) {
      px -= s;
      s = s > 0 ? -1.0f : 0.1f;
      if (px <= 0) px = 1.0f;
      px += s;
    }
    // After the rule for pressures at or below 0, which would otherwise set the search going again.
    if (candidate >= kMaxCandidates) {
      if (!(pair_best < kNoBest)) break;  // no pair was ever stored: there is no best to recompute
      s = 0;
      px = px_best;
    }
    loads = LoadsOf(dc, kStageAA);
    const StageTrial aa = TryStage(ctx, pin, px, ve, t, kMarginA, false);
    loads(1) += aa.motive;
    const float extra = static_cast<float>(aa.motive * 0.1);
    loads(1) += extra;
    const float ve2 = VaporEquivalent(ctx, loads, aa.td);
    loads(1) -= extra;
    a = TryStage(ctx, px, pfix, ve2, aa.td, kMarginA, false);
    const float total = aa.motive + a.motive;
    const float ratio = pair_best / total;
    bool improved = false;
    if (total < pair_best) {
      pair_best = total;
      px_best = px;
      StoreStage(dc, kStageAA, aa);
      StoreStage(dc, kStageA, a);
      StoreLoads(dc, kStageA, loads);
      improved = true;
      --trend;
    } else {
      ++trend;
    }
    if (s == 0) break;
    if (!(ratio > 0.99995 && ratio < 1.00005)) {
      if (improved) continue;
      if (!(trend < 0 || s < 0)) {
        s = -s;
        px = std::fabs(s) > 0.51 ? p0 : px_best;
        continue;
      }
    }
    if (std::fabs(s) > 0.51) {
      s = 0.5f;
    } else {
      s = 0;
    }
    px = px_best;
  }

  // Stage A's motive joins the gas for stages B and C.
  loads(1) += a.motive;
  NextLoad next;
  if (dc.HASC1 > 0) {
    next.p2 = static_cast<float>(pfix * 0.95);
    LoadVector vp = FillVaporPressures(ctx, kLoadVPC1);
    FlashLoads(ctx, loads, vp, next.p2, 1);
    next.ve2 = VaporEquivalent(ctx, loads, dc.TSATC1);
    next.t2 = dc.TSATC1;
    dc.CND(kCondC1, kCndPIN) = pfix;
    dc.CND(kCondC1, kCndPOUT) = next.p2;
  } else {
    next.p2 = pfix;
    const float extra = static_cast<float>(a.motive * 0.1);
    loads(1) += extra;
    next.ve2 = VaporEquivalent(ctx, loads, a.td);
    loads(1) -= extra;
    next.t2 = a.td;
  }
  float best_two = 0;
  OptimizeTwoStage(ctx, next.ve2, next.p2, pout, next.t2, loads, best_two, err);
  best = pair_best + best_two;
}

}  // namespace kestrane
