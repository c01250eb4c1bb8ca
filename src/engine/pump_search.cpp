// The liquid ring pump as last stage: alone, or behind stage B with the B-C pressure bisected until the pump is loaded as it should be.
#include "engine/pump_search.h"

#include <algorithm>
#include <cmath>

#include "engine/optimiser.h"
#include "engine/stage_trial.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "pump/pump_selection.h"

namespace kestrane {

namespace {

// The bisection of the B-C pressure: after this many rounds a pump that holds ends it, and a
// pump that fails moves the upper end up 1 mmHg a round until it holds.
constexpr int kBisectRounds = 50;
// The trial of a two-stage pump as alternative ends after this many rounds, whatever the pump does.
constexpr int kAlternativeRounds = 20;
constexpr int kAlternativesLooked = 10;

float DischargePsig(float pout) { return static_cast<float>(pout / 51.7144 - 14.696); }

// Stage C as the pump: no motive, its capacity ratio as ML, its catalogue index as SIZE.
void StorePump(DesignCase& dc, float pin, float pout, float ve, const LoadVector& loads) {
  dc.STG(kStageC, kStgPIN) = pin;
  dc.STG(kStageC, kStgPOUT) = pout;
  dc.STG(kStageC, kStgMOTIVE) = 0;
  dc.STG(kStageC, kStgML) = dc.LRVPRES(kLrvpRatio, 1);
  dc.STG(kStageC, kStgSIZE) = CInt(dc.LRVPRES(kLrvpPump, 1));
  dc.STG(kStageC, kStgTHROAT) = 0;
  dc.STG(kStageC, kStgVE) = ve;
  for (int k = 1; k <= 7; ++k) dc.VELFLAG(kStageC, k) = 0;
  StoreLoads(dc, kStageC, loads);
}

// Stage B at one B-C pressure and the pump behind it.
struct PumpTrial {
  float pb = 0;
  StageTrial b;
  NextLoad next;
  LoadVector loads = NewLoadVector();
  int16_t err = 0, count = 0;
  Array2D<float> res{68, 89};
  float ratio() const { return err == 0 ? res(kLrvpRatio, 1) : 0.0f; }
};

struct PumpSearch {
  DesignContext& ctx;
  float pin, pout, ve, t, pl;
};

PumpTrial Candidate(const PumpSearch& s, float pb, int16_t pump) {
  DesignCase& dc = s.ctx.dc;
  PumpTrial trial;
  trial.pb = pb;
  trial.loads = LoadsOf(dc, kStageB);
  trial.b = TryStage(s.ctx, s.pin, pb, s.ve, s.t, kMarginB, false);
  trial.next = NextStageLoad(s.ctx, trial.loads, pb, trial.b.motive, trial.b.td, dc.HASC2 > 0, kLoadVPC2, dc.TSATC2);
  trial.err = AnalysePump(s.ctx, trial.next.p2, DischargePsig(s.pout), trial.loads, pump, trial.count);
  trial.res = dc.LRVPRES;
  return trial;
}

// How a bisection ends once its rounds are spent.
enum class RoundsSpent {
  kClimb,  // a failing pump raises the upper end 1 mmHg a round until it holds
  kStop,   // the trial ends where it stands
};

// Bisects the B-C pressure for one pump between its lowest inlet and the pressure of `trial`
// until its capacity ratio lies in the band. gave_up when the upper end of a climb reaches the
// discharge pressure with the pump still failing.
PumpTrial Bisect(const PumpSearch& s, PumpTrial trial, int16_t pump, int limit, RoundsSpent spent, bool& gave_up) {
  const DesignCase& dc = s.ctx.dc;
  const float low = dc.LRVPMLMIN * 0.99f, high = dc.LRVPMLMIN * 1.15f;
  auto in_band = [&](const PumpTrial& tr) { return tr.err == 0 && tr.ratio() >= low && tr.ratio() < high; };
  gave_up = false;
  if (in_band(trial)) return trial;

  float pe = std::max(s.ctx.data.pumps.pumps[static_cast<size_t>(pump)].PCURVE(1, 1), s.pl);
  if (dc.HASC2 > 0) pe /= 0.95f;
  const float pfloor = pe;
  float ps = trial.pb;
  for (int rounds = 1;; ++rounds) {
    const float pb = (pe + ps) / 2;
    trial = Candidate(s, pb, pump);
    if (trial.err == 0 && std::fabs(ps - pe) < 0.2f) break;
    if (pb < pfloor) {
      pe = std::max(pe, pfloor);
      ps = std::max(ps, pfloor);
    }
    if (rounds >= limit) {
      if (trial.err == 0 || spent == RoundsSpent::kStop) break;
      ps += 1;
      // Above the discharge there is no train: the pump fails at every pressure it can have.
      if (ps >= s.pout) {
        gave_up = true;
        break;
      }
      continue;
    }
    if (trial.err == 0 && trial.ratio() < low) {
      pe = std::max(pb, s.pl);
      continue;
    }
    if (in_band(trial)) break;
    ps = pb;
  }
  return trial;
}

// A two-stage pump among the first pumps kept, when the best is a single-stage one; 0 when none.
int16_t TwoStageAlternative(const PumpData& pumps, const PumpTrial& first) {
  const auto index = [&](int k) { return static_cast<size_t>(CInt(first.res(kLrvpPump, k))); };
  if (pumps.pumps[index(1)].PTYPE != 1) return 0;
  for (int k = 2; k <= std::min<int>(first.count, kAlternativesLooked); ++k) {
    if (pumps.pumps[index(k)].PTYPE == 2) return static_cast<int16_t>(index(k));
  }
  return 0;
}

}  // namespace

bool PumpSingleStage(DesignContext& ctx, float pin, float pout, float ve, const LoadVector& loads) {
  int16_t count = 0;
  if (AnalysePump(ctx, pin, DischargePsig(pout), loads, 0, count) > 0) {
    ctx.dc.LRVPERR = 1;
    return false;
  }
  // The pump alone keeps the suction and discharge temperatures the record holds.
  StorePump(ctx.dc, pin, pout, ve, loads);
  return true;
}

void PumpTwoStage(DesignContext& ctx, float ve, float pin, float pout, float t, LoadVector& loads, float& best,
                  int16_t& err) {
  DesignCase& dc = ctx.dc;
  err = 0;
  best = kNoBest;
  StoreLoads(dc, kStageB, loads);
  dc.STG(kStageB, kStgPIN) = pin;

  // The start: the geometric mean, but not below the pressure at which the seal water would cavitate.
  float pc2 = 0;
  int16_t failed = 0;
  SatPress(ctx.steam(), dc.TWMAX(17) + 6, pc2, failed);
  const float pg = static_cast<float>(std::sqrt(pout / pin) * pin);
  float p0 = (failed || dc.HASC2 == 0 || pg > pc2) ? pg : pc2;
  RoundTo(p0, 1.0f);
  if (p0 < pc2) {
    ctx.ui.notice("Spec d interstage B-C too low (min= Tsat(C2) +15deg).  This is to avoid cavitation problems.");
    p0 = pc2;
    ctx.ui.notice("Continuing and will calculate interstage pressure...");
  }
  float pl = pin * 1.2f;
  if (dc.HASC2 > 0) pl /= 0.95f;

  const PumpSearch search{ctx, pin, pout, ve, t, pl};
  const PumpTrial first = Candidate(search, p0, 0);
  if (first.err > 0) {
    err = 1;
    dc.LRVPERR = 1;
    return;
  }
  ctx.ui.status("Optimizing Interstage Pressure...");
  const auto chosen = static_cast<int16_t>(CInt(first.res(kLrvpPump, 1)));
  const int16_t alternative = TwoStageAlternative(ctx.data.pumps, first);

  bool gave_up = false;
  PumpTrial selected = Bisect(search, first, chosen, kBisectRounds, RoundsSpent::kClimb, gave_up);
  if (!gave_up && alternative > 0) {
    const PumpTrial start = Candidate(search, p0, alternative);
    bool unused = false;
    const PumpTrial alt = Bisect(search, start, alternative, kAlternativeRounds, RoundsSpent::kStop, unused);
    if (alt.err == 0 && alt.ratio() >= dc.LRVPMLMIN * 0.99f && selected.b.motive > alt.b.motive) {
      selected = Bisect(search, start, alternative, kBisectRounds, RoundsSpent::kClimb, gave_up);
    }
  }
  if (gave_up || selected.err > 0) {
    err = 1;
    dc.LRVPERR = 1;
    return;
  }

  best = selected.b.motive;
  dc.LRVPRES = selected.res;
  StoreStage(dc, kStageB, selected.b);
  StorePump(dc, selected.next.p2, pout, selected.next.ve2, selected.loads);
  dc.STG(kStageC, kStgTS) = selected.next.t2;
  dc.STG(kStageC, kStgTD) = selected.res(kLrvpSealOut, 1);  // the gas leaves at the seal water's temperature
  loads = selected.loads;
  dc.CND(kCondC2, kCndPIN) = selected.pb;
  dc.CND(kCondC2, kCndPOUT) = static_cast<float>(selected.pb * 0.95);
}

}  // namespace kestrane
