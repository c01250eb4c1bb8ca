// The condensing curve of a condenser: onset temperatures, up to 50 steps of falling temperature and pressure, heat and film coefficients per step.
#include <algorithm>
#include <cmath>

#include "condenser/condenser_state.h"
#include "engine/stage_model.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kLeastDrop = 0.0001f;

// What is left of the loads after the split at (t, p).
LoadVector Split(CondenserRun& run, const LoadVector& start, float t, float p) {
  LoadVector left = start;
  LoadVector vp = VaporPressuresAt(run.ctx, t);
  FlashLoads(run.ctx, left, vp, p, 1);
  return left;
}

LoadVector InletLoads(const CondenserRun& run) {
  LoadVector loads = NewLoadVector();
  for (int v = 1; v <= kMaxLoads; ++v) loads(v) = run.ctx.dc.CNDLOAD(v, 1, run.c);
  return loads;
}

bool Miscible(const DesignCase& dc, int v) { return dc.LOADS(kLoadMISCIBLE, v) >= 1; }

// The temperature from T2 up at which water (or the other vapors) no longer condense: at most
// 0.5 % of it condensed at the inlet pressure, found in steps of 10, 1 and 0.1 F.
float Onset(CondenserRun& run, const LoadVector& inlet, bool water, bool water_pooled, float total) {
  const DesignCase& dc = run.ctx.dc;
  auto fraction = [&](float t) {
    const LoadVector left = Split(run, inlet, t, run.P1);
    float rest = 0;
    if (water) {
      rest = left(1);
    } else {
      for (int v = water_pooled ? 1 : 2; v <= dc.NLOADS; ++v) {
        if (dc.LOADCLASS(v) != 0) rest += left(v);
      }
    }
    return (total - rest) / total;
  };
  float t = run.T2;
  const float top = run.ctx.data.steam.STEAMTBL(run.ctx.data.steam.STEAMNP, 2);
  for (float step : {10.0f, 1.0f, 0.1f}) {
    do {
      t += step;
    } while (fraction(t) > 0.005 && t < top);
    if (step > 0.1f) t -= step;
  }
  return t;
}

}  // namespace

bool CondensingCurve(CondenserRun& run) {
  const DesignCase& dc = run.ctx.dc;
  StepCurve& cv = run.curve;
  cv = StepCurve();
  const LoadVector inlet = InletLoads(run);

  const float tsat[] = {0, dc.TSATAC, dc.TSATC2, dc.TSATC1};
  run.T1F = tsat[run.c];
  run.T2F = 0;
  for (int up = run.c + 1; up <= 3; ++up) {
    if (CInt(tsat[up] * 10.0) != CInt(run.T1F * 10.0)) {
      run.T2F = tsat[up];
      break;
    }
  }

  // Onset temperatures of water and of the other vapors.
  const bool water_pooled = Miscible(dc, 1);
  float ws = 0, wo = 0;
  for (int v = 1; v <= dc.NLOADS; ++v) {
    if (dc.LOADCLASS(v) == 0) continue;
    if (v == 1 && !water_pooled) {
      ws += inlet(v);
    } else {
      wo += inlet(v);
    }
  }
  const LoadVector at_outlet = Split(run, inlet, run.T2, run.P2);
  const float dw = ws - (water_pooled ? 0 : at_outlet(1));
  float left_others = 0;
  for (int v = water_pooled ? 1 : 2; v <= dc.NLOADS; ++v) {
    if (dc.LOADCLASS(v) != 0) left_others += at_outlet(v);
  }
  const float d_other = wo - left_others;
  if ((!run.direct && dw + d_other <= 0) || (run.direct && dw + d_other == 0)) {
    run.ctx.ui.notice("ERROR: NOTHING CONDENSING !!!!!!!!!!!!!!!!");
    return false;
  }
  run.CTSTEAM = dw > 0 ? Onset(run, inlet, true, water_pooled, ws) : 0;
  run.CTOTHER = d_other > 0 ? Onset(run, inlet, false, water_pooled, wo) : 0;

  float ts = MaxOf(run.CTSTEAM, run.CTOTHER);
  if (ts > run.T1 + 0.2) {
    run.ctx.ui.notice("*Warning: The calculated initial condensing temperature," + Str(ts) +
                      " is greater than the specified inlet temperature.\r\nContinuing assuming that the inlet "
                      "temperature is the calculated condensing temperature!");
    ts = run.T1;
  }

  // One zone, or two split where the second kind of vapor starts to condense.
  const float steps = static_cast<float>(run.steps);
  int n1 = run.steps;
  float step1 = (ts - run.T2) / steps, step2 = step1;
  if (run.CTSTEAM != 0 && run.CTOTHER != 0) {
    const float tm = MinOf(run.CTSTEAM, run.CTOTHER);
    const float q = run.CTOTHER <= run.CTSTEAM ? run.QSTEAM : run.Q_TOTAL - run.QSTEAM;
    const float pm = run.P1 - (run.P1 - run.P2) * (q / run.Q_TOTAL);
    const LoadVector left = Split(run, inlet, tm, pm);
    float qm = 0;
    for (int v = 1; v <= dc.NLOADS; ++v) {
      if (left(v) >= kLeastDrop) qm += (inlet(v) - left(v)) * dc.LATENT(v);
    }
    n1 = CInt(qm * steps / run.Q_TOTAL);
    if (run.steps == 50) {
      n1 = std::clamp(n1, 5, 45);
    } else {
      n1 = std::clamp(n1, static_cast<int>(std::ceil(0.2 * steps)), static_cast<int>(0.8 * steps));
    }
    step1 = (ts - tm) / static_cast<float>(n1);
    step2 = (tm - run.T2) / static_cast<float>(run.steps - n1);
  }

  cv.NSTEPS = CInt(steps);
  const float dp = (run.P1 - run.P2) / steps;
  float p = run.P1, t = ts;
  cv.TCSTEP[0] = ts;
  for (int v = 1; v <= kMaxLoads; ++v) cv.WSTEP(v, 0) = inlet(v);
  for (int v = 1; v <= dc.NLOADS; ++v) cv.LATENT[static_cast<size_t>(v)] = dc.LATENT(v);
  LoadVector current = inlet;
  float msum = 0, tsum = 0;
  const auto& curves = run.ctx.data.curves;
  for (int i = 1; i <= cv.NSTEPS; ++i) {
    p -= dp;
    t -= i <= n1 ? step1 : step2;
    cv.TCSTEP[static_cast<size_t>(i)] = t;
    const LoadVector vp = VaporPressuresAt(run.ctx, t);
    for (int v = 1; v <= dc.NLOADS; ++v) cv.VPSTEP(v, i) = vp(v);
    const LoadVector before = current;
    current = Split(run, before, t, p);
    for (int v = 1; v <= kMaxLoads; ++v) cv.WSTEP(v, i) = current(v);

    // Heat of the step; miscible vapors pool in slot 61.
    float pool_drop = 0, pool_q = 0;
    for (int v = 1; v <= dc.NLOADS; ++v) {
      const float drop = before(v) - current(v);
      if (!(drop >= kLeastDrop)) continue;
      const float q = drop * dc.LATENT(v);
      if (Miscible(dc, v)) {
        pool_q += q;
        pool_drop += drop;
        if (v == 1) cv.QSTEP(1, i) = q;
      } else {
        cv.QSTEP(v, i) = q;
      }
    }
    if (pool_drop > 0) {
      cv.QSTEP(kPoolSlot, i) = pool_q;
      cv.LATENT[kPoolSlot] = pool_q / pool_drop;
    }

    // Film coefficients against the inert fraction at the start of the step.
    float total_moles = 0, pool_moles = 0;
    for (int v = 1; v <= dc.NLOADS; ++v) {
      if (before(v) > 0) {
        total_moles += before(v) / dc.LOADS(kLoadMW, v);
        if (Miscible(dc, v)) pool_moles += before(v) / dc.LOADS(kLoadMW, v);
      }
    }
    for (int v = 1; v <= dc.NLOADS; ++v) {
      if (Miscible(dc, v) || !(before(v) - current(v) > kLeastDrop)) continue;
      const float own = before(v) > 0 ? before(v) / dc.LOADS(kLoadMW, v) : 0.0f;
      const float y = (total_moles - own) / total_moles;
      cv.YSTEP(v, i) = y;
      int16_t status = 0, xcol = 1;
      float h = 0;
      if (v == 1) {
        TableInterp(curves.CONDCURVEA, 23, 2, y * 100, status, xcol, 2, h);
      } else {
        TableInterp(curves.CONDCURVEB, 11, 2, y, status, xcol, 2, h);
      }
      cv.HSTEP(v, i) = h;
    }
    if (pool_drop > kLeastDrop) {
      const float y = (total_moles - pool_moles) / total_moles;
      int16_t status = 0, xcol = 1;
      float h = 0;
      TableInterp(curves.CONDCURVEB, 11, 2, y, status, xcol, 2, h);
      cv.YSTEP(kPoolSlot, i) = y;
      cv.HSTEP(kPoolSlot, i) = h;
      if (water_pooled) {
        TableInterp(curves.CONDCURVEA, 23, 2, y * 100, status, xcol, 2, h);
        cv.HSTEP(1, i) = h;
      }
    }

    for (int v = 1; v <= kPoolSlot; ++v) {
      const float latent = cv.LATENT[static_cast<size_t>(v)];
      if (cv.QSTEP(v, i) > 0 && latent > 0) {
        const float mass = cv.QSTEP(v, i) / latent;
        msum += mass;
        tsum += mass * t;
      }
    }
  }
  run.TCOND = tsum / msum;
  return true;
}

}  // namespace kestrane
