// The thorough interstage search: all interstage pressures of a two, three or four stage train searched together over their whole feasible range.
//
// The method: a grid over the whole feasible range, then a compass search
// from the best point of the grid. What a train costs is not a smooth function
// of its pressures: throats and model sizes come from tables, a stage's jet
// balance fails past a compression it cannot reach, and the A-B floor cuts the
// range. A golden section or a derivative-based minimiser assumes one smooth
// valley along each line and stops at the first kink or jump, which is how the
// original stepping search ends early. The grid, evenly spaced in the logarithm
// of pressure (compression ratios multiply), finds the right valley; the
// compass search needs only comparisons, so kinks do not mislead it, and
// halving its step settles the pressures to a few parts in ten thousand. The
// grid and the order of the moves are fixed, so the search is deterministic.
#include "engine/thorough_search.h"

#include <cmath>
#include <limits>

#include "engine/optimiser.h"
#include "engine/stage_model.h"
#include "properties/steam.h"

namespace kestrane {

namespace {

// Grid points along each interstage pressure, by their number (1 to 3).
constexpr std::array<int, 4> kGridPoints = {0, 40, 20, 12};
// The compass search ends when its step is below this factor of pressure (0.02 %).
constexpr double kFinestStep = 0.0002;
// No search tries more trains than this after its grid.
constexpr int kMaxRefineTrains = 600;

using Pressures = std::array<float, 3>;

float MarginOf(int col) { return col == kStageB ? kMarginB : kMarginA; }

// The feasible box of the interstage pressures and its order rule.
struct Range {
  int count = 0;         // interstage pressures
  float pin = 0, pout = 0;
  int floor_index = -1;  // which pressure is the A-B one, bound below by the floor
  float floor = 0;

  float Low(int j) const { return j == floor_index && floor > pin ? floor : pin; }

  // Every pressure above its lower bound, in order, and below the discharge.
  bool Holds(const Pressures& p) const {
    float below = pin;
    for (int j = 0; j < count; ++j) {
      const float p_j = p[static_cast<size_t>(j)];
      if (!(p_j > below) || p_j < Low(j)) return false;
      below = p_j;
    }
    return below < pout;
  }
};

// One candidate and its cost.
struct Candidate {
  Pressures p{};
  TrainTrial train;
  float cost = std::numeric_limits<float>::infinity();
};

struct Search {
  const DesignContext& ctx;
  int stages;
  float pin, pout, t;
  const LoadVector& loads;
  Range range;

  Candidate Try(const Pressures& p) const {
    Candidate c;
    c.p = p;
    c.train = TryTrain(ctx, stages, pin, pout, t, loads, p);
    c.cost = TrainObjective(ctx, c.train);
    return c;
  }

  // The grid: for each pressure, points evenly spaced in log between its lower
  // bound (the floor itself when it binds, else just above the suction) and
  // the discharge. The first of the equal best is kept.
  Candidate Grid() const {
    const int k = kGridPoints[static_cast<size_t>(range.count)];
    std::array<std::array<float, 64>, 3> levels{};
    for (int j = 0; j < range.count; ++j) {
      const double lo = std::log(range.Low(j)), hi = std::log(pout);
      const bool on_floor = j == range.floor_index && range.floor > pin;
      for (int i = 0; i < k; ++i) {
        const double f = on_floor ? static_cast<double>(i) / k : static_cast<double>(i + 1) / (k + 1);
        levels[static_cast<size_t>(j)][static_cast<size_t>(i)] = static_cast<float>(std::exp(lo + f * (hi - lo)));
      }
      if (on_floor) levels[static_cast<size_t>(j)][0] = range.floor;
    }
    // Every combination in turn, the last pressure counting fastest.
    Candidate best;
    std::array<size_t, 3> index{};
    for (;;) {
      Pressures p{};
      for (size_t j = 0; j < static_cast<size_t>(range.count); ++j) p[j] = levels[j][index[j]];
      if (range.Holds(p)) {
        Candidate c = Try(p);
        if (c.cost < best.cost) best = std::move(c);
      }
      int j = range.count - 1;
      while (j >= 0 && ++index[static_cast<size_t>(j)] == static_cast<size_t>(k)) index[static_cast<size_t>(j--)] = 0;
      if (j < 0) return best;
    }
  }

  // Compass search: each pressure in turn moved down and up by the step
  // factor (stopping at the floor), the first better train taken; the step
  // halves when no move is better.
  Candidate Refine(Candidate best) const {
    const int k = kGridPoints[static_cast<size_t>(range.count)];
    double step = std::log(pout / pin) / (k + 1);
    int tried = 0;
    while (step > kFinestStep && tried < kMaxRefineTrains) {
      bool moved = false;
      for (int j = 0; j < range.count && !moved; ++j) {
        for (int dir : {-1, 1}) {
          Pressures p = best.p;
          float& p_j = p[static_cast<size_t>(j)];
          p_j = std::max(static_cast<float>(p_j * std::exp(dir * step)), range.Low(j));
          if (p_j == best.p[static_cast<size_t>(j)] || !range.Holds(p)) continue;
          Candidate c = Try(p);
          ++tried;
          if (c.cost < best.cost) {
            best = std::move(c);
            moved = true;
            break;
          }
        }
      }
      if (!moved) step *= 0.5;
    }
    return best;
  }
};

void StoreTrain(DesignCase& dc, const TrainTrial& train) {
  for (int c = 1; c <= train.stages; ++c) {
    StoreStage(dc, c, train.stage[static_cast<size_t>(c)]);
    StoreLoads(dc, c, train.loads[static_cast<size_t>(c)]);
  }
  const float pb = train.stage[kStageB].pout;
  dc.CND(kCondC2, kCndPIN) = pb;
  dc.CND(kCondC2, kCndPOUT) = static_cast<float>(pb * 0.95);
  if (train.stages == 3 || (train.stages == 4 && dc.HASC1 > 0)) {
    const float pa = train.stage[kStageA].pout;
    dc.CND(kCondC1, kCndPIN) = pa;
    dc.CND(kCondC1, kCndPOUT) = static_cast<float>(pa * 0.95);
  }
}

}  // namespace

TrainTrial TryTrain(const DesignContext& ctx, int stages, float pin, float pout, float t, const LoadVector& loads,
                    const Pressures& interstage) {
  const DesignCase& dc = ctx.dc;
  TrainTrial train;
  train.stages = stages;
  LoadVector gas = loads;
  float ps = pin, ts = t;
  float ve = VaporEquivalent(ctx, gas, t);
  for (int k = 0; k < stages; ++k) {
    const int col = stages - k;
    const bool last = col == kStageC;
    const float pd = last ? pout : interstage[static_cast<size_t>(k)];
    train.loads[static_cast<size_t>(col)] = gas;
    const StageTrial& st = train.stage[static_cast<size_t>(col)] = TryStage(ctx, ps, pd, ve, ts, MarginOf(col), last);
    train.motive += st.motive;
    train.size += st.design.SIZE;
    train.failed = train.failed || st.design.balance.failed != 0;
    if (last) break;
    // An intercondenser follows stage A (C1) and stage B (C2); none follows stage AA.
    const bool c1 = col == kStageA;
    const bool condenser = c1 ? dc.HASC1 > 0 : col == kStageB && dc.HASC2 > 0;
    const NextLoad next = NextStageLoad(ctx, gas, pd, st.motive, st.td, condenser, c1 ? kLoadVPC1 : kLoadVPC2,
                                        c1 ? dc.TSATC1 : dc.TSATC2);
    ps = next.p2;
    ve = next.ve2;
    ts = next.t2;
  }
  return train;
}

float TrainObjective(const DesignContext& ctx, const TrainTrial& train) {
  const float cost = ctx.screen.OptionOptimize[1] != 0 ? train.size : train.motive;
  if (train.failed || !std::isfinite(cost)) return std::numeric_limits<float>::infinity();
  return cost;
}

float InterstageFloor(const DesignContext& ctx) {
  float p = 0;
  int16_t failed = 0;
  SatPress(ctx.steam(), ctx.dc.TWMAX(18) + 6, p, failed);
  return failed ? 0.0f : p;
}

TrainTrial ThoroughTrain(const DesignContext& ctx, int stages, float pin, float pout, float t, const LoadVector& loads,
                         bool& found) {
  Range range;
  range.count = stages - 1;
  range.pin = pin;
  range.pout = pout;
  if (stages >= 3) {
    range.floor_index = stages - 3;  // the discharge of stage A
    range.floor = InterstageFloor(ctx);
  }
  const Search search{ctx, stages, pin, pout, t, loads, range};
  const Candidate best = search.Refine(search.Grid());
  found = std::isfinite(best.cost);
  return best.train;
}

bool StageBalanceFails(const DesignContext& ctx, int c) {
  const DesignCase& dc = ctx.dc;
  const float pin = dc.STG(c, kStgPIN), pout = dc.STG(c, kStgPOUT);
  if (!(pin > 0 && pout > 0) || (dc.USELRVP == 1 && c == kStageC)) return false;
  return DesignStage(ctx, pin, pout, dc.PMOTIVE, dc.TMOTIVE, dc.STG(c, kStgVE)).balance.failed != 0;
}

TrainTrial StoredTrain(const DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  TrainTrial train;
  train.stages = dc.NSTAGES;
  for (int c = 1; c <= dc.NSTAGES; ++c) {
    train.motive += dc.STG(c, kStgMOTIVE);
    train.size += dc.STG(c, kStgSIZE);
    train.failed = train.failed || !(dc.STG(c, kStgPOUT) > 0) || StageBalanceFails(ctx, c);
  }
  return train;
}

bool ImproveByThoroughSearch(DesignContext& ctx, float pin, float pout, float t) {
  DesignCase& dc = ctx.dc;
  const int n = dc.NSTAGES;
  if (n < 2 || n > 4 || dc.USELRVP == 1) return false;
  const TrainTrial original = StoredTrain(ctx);
  bool found = false;
  // The first stage's suction loads, as the original search stored them.
  const TrainTrial best = ThoroughTrain(ctx, n, pin, pout, t, LoadsOf(dc, n), found);
  if (!found || !(TrainObjective(ctx, best) < TrainObjective(ctx, original))) return false;
  StoreTrain(dc, best);
  return true;
}

}  // namespace kestrane
