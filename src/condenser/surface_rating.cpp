// Surface condenser rating: the sizing loop over passes, tubes and length, film coefficients, the stepwise rating and the water side pressure drop.
#include <array>
#include <cmath>
#include <vector>

#include "condenser/condenser_state.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/water_properties.h"

namespace kestrane {

namespace {

constexpr float kPi = 3.14159f;
constexpr int kMaxRounds = 500;  // the loop settles in far fewer; a bound keeps any data from looping

struct Water {
  float cp = 0, sg = 0, k = 0, mu = 0;
};

Water WaterAt(float t) {
  Water w;
  int16_t err = 0;
  WaterProperties(t, w.cp, w.sg, w.k, w.mu, err);
  if (err) throw VbError(5);
  return w;
}

// Grashof number of the water between bulk (tb) and wall (tw).
double Grashof(double d, const Water& bulk, const Water& wall, float tb, float tw) {
  const double rb = bulk.sg * 62.4, rw = wall.sg * 62.4;
  const double beta = Divide(rb - rw, static_cast<double>(tb - tw)) * (-2 / (rb + rw));
  return rb * rb * d * d * d * 4.17e8 * beta * std::fabs(tw - tb) / std::pow(bulk.mu * 2.42, 2);
}

// Nusselt number of water flowing in tubes.
double TubeNusselt(double re, double pr, double d, double tlt, const Water& bulk, const Water& wall, float tb,
                   float tw) {
  const auto turbulent = [&](double r) {
    return 0.025 * std::pow(r, 0.79) * std::pow(pr, 0.42) * std::pow(bulk.mu / wall.mu, 0.11);
  };
  const auto laminar = [&](double r) {
    const double m = 0.5 / (1 + 0.5 * std::pow(wall.mu / bulk.mu, 0.25));
    double z = d / tlt;
    if (tlt / d < 40) z += 0.0006 * std::pow(r, 0.75) * std::exp(-7e-7 * std::pow(tlt / d, 4));
    const double x = r + 5 * std::sqrt(Grashof(d, bulk, wall, tb, tw) / (z * pr));
    return 1.45 * std::pow((kPi / 4) * x * pr * z, m) + 20 * std::pow(m, 4) + 2;
  };
  if (re >= 10000) return turbulent(re);
  if (re <= 2000) return laminar(re);
  const double f = 1.25 - re / 8000;
  return (1 - f) * turbulent(10000) + f * laminar(2000);
}

// Friction pressure drop (psi) of water in the tubes.
double TubeFriction(double g, double d, double tl, double pr, double re, const Water& bulk, const Water& wall,
                    float tb, float tw) {
  double f = 0;
  if (re > 2200) {
    f = (0.264 * std::pow(re, -0.42) + 0.0035) * std::pow(wall.mu / bulk.mu, 0.14);
  } else {
    const double l = Log10(bulk.mu / wall.mu);
    const double b = std::pow((bulk.mu / wall.mu) * Grashof(d, bulk, wall, tb, tw) * pr, 0.33);
    if (re <= 1300) {
      const double s = -0.28 * std::pow(l, 0.5);
      f = (16 / re) * std::pow(10.0, s) * (1 + std::exp(-214 / b));
    } else {
      const double e = re < 2000 ? 1.0 : 1 + std::exp(-6400000 / (re * re));
      const double s = -0.28 * std::pow(l, e / 2) / e;
      const double c = re < 2000 ? 0.0 : 1e-11 * re * re * re;
      f = (16 / re) * std::pow(10.0, s) * (1 + std::exp(-214 / b - c));
    }
  }
  return (g * g / (bulk.sg * 124.8 * 4.17e8)) * (4 * f * tl / d) / 144;
}

// Shell side friction factor: log-log lines between the table's points.
float ShellFriction(const CondenserRun& run, float re) {
  const auto& t = run.ctx.data.constants.SHELLFRICTION;
  int i = 2;
  while (i < t.hi1() && !(t(i, 1) > re)) ++i;
  return LogLogLine(t(i - 1, 1), t(i - 1, 2), t(i, 1), t(i, 2), re);
}

// Baffles of tube side condensing, water in the shell at `velocity` ft/s.
void Baffles(CondenserRun& run, float velocity) {
  const float bore = run.shell_od - 2 * run.shell_wall;
  run.RNFA = run.GPMUSE * 0.32f / velocity;
  const float chord = bore - (run.OTL * run.TOD) / run.pitch;
  run.PCTCUT = (run.RNFA / (bore * bore * kPi / 4 - run.TOD * run.TOD * kPi / 4 * run.TUBES)) * 100;
  run.BSP = run.RNFA / chord + 0.25f;
  RoundTo(run.BSP, 0.125f);
  run.BSP = MaxOf(run.BSP, 2.0f);
}

// What the sizing loop takes from the condensing curve, which stays fixed while it runs: the heat of each
// step (its slots summed in slot order) and the slots that condense in it, in slot order.
struct StepHeat {
  std::array<float, kMaxSteps + 1> qstep{};
  std::array<std::vector<int>, kMaxSteps + 1> slots;
};

StepHeat HeatOfSteps(const StepCurve& cv) {
  StepHeat heat;
  for (int i = 1; i <= cv.NSTEPS; ++i) {
    float qstep = 0;
    for (int v = 1; v <= kPoolSlot; ++v) qstep += cv.QSTEP(v, i);
    heat.qstep[static_cast<size_t>(i)] = qstep;
    for (int v = 1; v <= kPoolSlot; ++v) {
      if (cv.QSTEP(v, i) >= 0.0001) heat.slots[static_cast<size_t>(i)].push_back(v);
    }
  }
  return heat;
}

// The stepwise rating: area per step and vapor, the weighted LMTD and the coefficients.
void RateSteps(CondenserRun& run, const StepHeat& heat, bool& pctq_reported) {
  StepCurve& cv = run.curve;
  const float f = run.tube_side ? 0.85f : 1.0f;
  float tprev = run.WATER_OUT;
  float sumall = 0, sums = 0, sumv = 0;
  run.AREQ = run.AREQSTM = run.AREQVAP = 0;
  float qsum = 0;
  for (int i = 1; i <= cv.NSTEPS; ++i) {
    const float qstep = heat.qstep[static_cast<size_t>(i)];
    const float tn = tprev - qstep / (run.GPMREQ * 500 * run.CP * run.SG);
    const float d1 = cv.TCSTEP[static_cast<size_t>(i - 1)] - tprev;
    const float d2 = cv.TCSTEP[static_cast<size_t>(i)] - tn;
    const float lmtd = std::fabs(d1 - d2) <= 0.01 ? d1 : static_cast<float>((d1 - d2) / std::log(Divide(d1, d2)));
    if (!std::isfinite(lmtd)) throw VbError(5);
    cv.LMTDSTEP[static_cast<size_t>(i)] = lmtd;
    for (const int v : heat.slots[static_cast<size_t>(i)]) {
      const float q = cv.QSTEP(v, i);
      const float u = run.MARGIN / (1 / (f * cv.HSTEP(v, i)) + run.FF + run.WALL_RESIST + 1 / run.HT);
      float& area = cv.ASTEP(v, i);
      area = q / (u * lmtd);
      sumall += q / lmtd;
      run.AREQ += area;
      if (v == 1) {
        sums += q / lmtd;
        run.AREQSTM += area;
      } else {
        sumv += q / lmtd;
        run.AREQVAP += area;
      }
    }
    qsum += qstep;
    tprev = tn;
  }
  run.WLMTD = run.Q_TOTAL / sumall;
  run.USTM = run.WLMTDSTM = run.HSTM = 0;
  if (run.QSTEAM > 0) {
    run.WLMTDSTM = run.QSTEAM / sums;
    run.USTM = run.QSTEAM / (run.WLMTDSTM * run.AREQSTM);
    run.HSTM = 1 / (1 / run.USTM - run.WALL_RESIST - run.FF - 1 / run.HT);
  }
  float qv = run.Q_TOTAL - run.QSTEAM;
  if (qv < 0.5) qv = 0;
  run.UVAP = run.WLMTDVAP = run.HVAP = 0;
  if (qv > 0) {
    run.WLMTDVAP = qv / sumv;
    run.UVAP = qv / (run.WLMTDVAP * run.AREQVAP);
    run.HVAP = 1 / (1 / run.UVAP - run.WALL_RESIST - run.FF - 1 / run.HT);
  }
  run.PCTQ = qsum / run.Q_TOTAL;
  if (!(run.PCTQ >= 0.99 && run.PCTQ <= 1.01) && !pctq_reported) {
    run.ctx.ui.notice("**** POSSIBLE ERROR ---> %QSUM");
    pctq_reported = true;
  }
}

}  // namespace

float WaterInTubesPressureDrop(const CondenserRun& run) {
  const float tw = (run.WATER_IN + run.WATER_OUT) / 2;
  const Water bulk = WaterAt(tw);
  const Water wall = WaterAt(run.TWALL);
  const double d = run.ID / 12;
  const double g = (run.GPMUSE * 500 * bulk.sg * run.PASS / run.TUBES) / (d * d * kPi / 4);
  const double re = g * d / (bulk.mu * 2.42);
  const double pr = bulk.cp * bulk.mu * 2.42 / bulk.k;
  const double pt = TubeFriction(g, d, run.TL, pr, re, bulk, wall, tw, run.TWALL);
  const double head = bulk.sg * 62.4 / 64.4 / 144;
  const double rl = run.VEL * run.VEL * 1.15 * head;
  const double nl = run.FPSWI * run.FPSWI * head;
  const double hl = run.FPSWI * run.FPSWI * (((2 * run.PASS + 1) / 3) * 0.3) * head;
  return static_cast<float>((rl + pt) * run.PASS + nl + hl);
}

void RateSurfaceCondenser(CondenserRun& run) {
  const float tspec = run.in[2], nspec = run.in[3], pspec = run.in[4], sspec = run.in[10];
  const bool in_tubes = !run.tube_side;

  float nv = (run.QVI / (run.tube_area / 144)) / run.VELSLOT;
  RoundUpTo(nv, 2.0f);
  run.DOME = run.DOMEOUT = 0;
  if (run.tube_side) {
    run.DOME = static_cast<float>(((run.W1 + run.PPH_NC + run.PPH_CVIN) * 10.73 * (run.T1 + 459.59) * run.VIF) /
                                  (((run.MW1 * 25) * run.P1 / 51.7144) * run.DOMEVMAX));
    const float vout = MaxVelocity(run.ctx, run.P2, run.T2, run.MW2);
    run.DOMEOUT = static_cast<float>(((run.W2 + run.PPH_NC + run.PPH_CVOUT) * 10.73 * (run.T2 + 459.59) * run.VIF) /
                                     (((run.MW2 * 25) * run.P2 / 51.7144) * vout));
    const Pipe outlet = PipeByNominal(run.ctx, run.DIAVO, PipeRules::kCondenser);
    const float bore = outlet.od - 2 * outlet.wall;
    run.DOMEOUT = MaxOf(run.DOMEOUT, bore * bore * kPi / 4 / 2);
    const float cv = static_cast<float>(run.WCOND / (run.SG * 500) / 7.48 / 60);
    run.DOMEOUT += (cv / 18) * 1728 + 18;
    if (run.VIF >= 0.8) run.DOMEOUT = 0;
  }
  run.PASS = in_tubes ? (pspec >= 1 ? pspec : 1.0f) : 1.0f;

  float lm = 0, uc = 0, tlt = 0, tw = 0;
  Water bulk, wall;
  int counter = 0;
  bool pctq_reported = false;
  const StepHeat heat = HeatOfSteps(run.curve);
  enum class Next { kPassRestart, kTubeRestart, kLengthRestart, kFinish } next = Next::kPassRestart;
  for (int round = 0; round < kMaxRounds && next != Next::kFinish; ++round) {
    if (next == Next::kPassRestart) {
      counter = 0;
      tlt = 0;
      run.forced_shell = 0;
      run.TUBES = 0;
      run.TL = 0;
      run.VEL = 5.0f;
      const PassLayout layout = AdjustPasses(run, run.PASS);
      run.PASS = layout.passes;
      run.lanes1 = layout.lanes1;
      run.lanes2 = layout.lanes2;
    }
    if (next != Next::kLengthRestart) {
      if (in_tubes) {
        if (run.TUBES == 0) {
          run.TUBES = run.GPMUSE * run.PASS / (run.tube_flow_factor * run.VEL);
          RoundUpTo(run.TUBES, 2 * run.PASS);
        }
        run.VEL = run.GPMUSE * run.PASS / (run.tube_flow_factor * run.TUBES);
        run.VTUBES = 0;
      } else {
        if (run.TUBES == 0) {
          run.TUBES = nv;
          RoundUpTo(run.TUBES, 2.0f);
        }
        run.VTUBES = run.QVI / ((run.tube_area * run.TUBES) / 144);
      }
      // Mean water temperature and the wall's, first 10 F above the water, then from the coefficients.
      ++counter;
      tw = (run.WATER_IN + run.WATER_OUT) / 2;
      run.TWALL = counter == 1 ? tw + 10 : (run.TCOND - tw) * (uc / run.HT) + tw;
      bulk = WaterAt(tw);
      wall = WaterAt(run.TWALL);
      run.CP = bulk.cp;
      run.SG = bulk.sg;
      run.K = bulk.k;
      run.MU = bulk.mu;
    }

    SelectShell(run);
    // Condensing in the tubes keeps the pass's first shell: the closing tests fill it with tubes rather than
    // grow it again for the dome those tubes take.
    if (run.tube_side && !(run.forced_shell > 1)) run.forced_shell = run.OD;
    const float shell_bore = run.shell_od - 2 * run.shell_wall;
    if (run.tube_side) {
      Baffles(run, 3.0f);
      const float length = run.TL > 0 ? run.TL : (run.AREQ + run.AREQSUB) / (run.surface_per_ft * run.TUBES);
      float water_nozzle = 0;
      SizeNozzle(run, run.GPMUSE / 7.48f / 60, water_nozzle, 8.0f, 1.5f);
      const float dn = PipeByNominal(run.ctx, water_nozzle, PipeRules::kCondenser).od;
      run.BAFFLES = Fix((length * 12 - dn - 12) / (run.BSP + 0.1875f) + 1);
      if (run.PCTCUT > 40) Warn(run, 4);
    } else if (run.IHFLOW != 1) {
      VaporEscapeArea(run);
      if (run.PCTCUT > 30) Warn(run, 4);
    }

    const double pr = bulk.cp * bulk.mu * 2.42 / bulk.k;
    if (in_tubes) {
      const double d = run.ID / 12;
      const double g = (run.GPMUSE * 500 * bulk.sg * run.PASS / run.TUBES) / (d * d * kPi / 4);
      const double re = g * d / (bulk.mu * 2.42);
      tlt = run.TL > 0 ? run.TL : tlt;
      if (tlt <= 1) tlt = 10;
      run.HT = static_cast<float>(TubeNusselt(re, pr, d, tlt, bulk, wall, tw, run.TWALL) * bulk.k / d);
      run.HT = run.ID * run.HT / run.TOD;
    } else {
      const double gap = run.pitch - run.TOD;
      const double as = gap * shell_bore * run.BSP / (run.pitch * 144);
      const double g = run.GPMUSE * 500 * bulk.sg / as;
      run.VEL = static_cast<float>((g / (bulk.sg * 62.4)) / 3600);
      double de = 0;
      if (run.layout == 1 || run.layout == 3) {
        const double half_pi = 1.570796370506;
        de = 4 * (0.5 * run.pitch * 0.86 * run.pitch - half_pi * run.TOD * run.TOD / 4) / (half_pi * run.TOD) / 12;
      } else {
        const double pi = 3.141592741013;
        de = 4 * (run.pitch * run.pitch - pi * run.TOD * run.TOD / 4) / (pi * run.TOD) / 12;
      }
      const double re = g * de / (bulk.mu * 2.42);
      const double phi = std::pow(bulk.mu / wall.mu, 0.14);
      run.HT = static_cast<float>(0.36 * std::pow(re, 0.55) * std::pow(pr, 0.3333) * phi * bulk.k / de);
      const float crossings = static_cast<float>(CInt(run.TL * 12 / run.BSP) + 1);
      const double g6 = g * 0.6;
      run.DELTAP = static_cast<float>(ShellFriction(run, static_cast<float>(re * 0.6)) * g6 * g6 * (shell_bore / 12) *
                                      crossings / (3600.0 * 3600 * 64.4 * 62.4 * bulk.sg * de * phi));
    }

    RateSteps(run, heat, pctq_reported);

    if (run.tube_side) {
      const float tb = (run.QSUB / (run.Q_TOTAL + run.QSUB)) * (run.WATER_OUT - run.WATER_IN) + run.WATER_IN;
      const float d1 = run.TCOND - tb, d2 = run.T2 - run.WATER_IN;
      // The common logarithm here, as the program always had it.
      lm = std::fabs(d1 - d2) < 0.001 ? d1 : static_cast<float>((d1 - d2) / Log10(Divide(d1, d2)));
      run.AREQSUB = run.QSUB / (lm * 50);
    } else {
      run.AREQSUB = 0;
      lm = 0;
    }

    const bool length_free = in_tubes ? !(run.TL > 0) : !(tspec > 0);
    if (length_free) {
      run.TL = (run.AREQ + run.AREQSUB) / (run.surface_per_ft * run.TUBES);
      RoundUpTo(run.TL, 2.0f);
      run.AREA = run.TL * run.TUBES * run.surface_per_ft;
      if (std::fabs(run.TL - tlt) > 1) {
        tlt = run.TL;
        next = Next::kLengthRestart;
        continue;
      }
    } else {
      run.AREA = run.TL * run.TUBES * run.surface_per_ft;
    }
    tlt = run.TL;

    run.UD = run.QUSE / (run.WLMTD * run.AREA);
    uc = (run.Q_TOTAL / (run.WLMTD * run.AREQ)) / run.MARGIN;
    const float uf = (run.Q_TOTAL / ((run.AREA - run.AREQSUB) * run.WLMTD)) / run.MARGIN;
    run.FFACT = 1 / uf - 1 / uc + run.FF;
    if (run.tube_side) {
      run.WLMTD = (run.Q_TOTAL + run.QSUB) / (run.Q_TOTAL / run.WLMTD + run.QSUB / lm);
      run.UD = run.QUSE / (run.WLMTD * run.AREA);
    }

    if (counter < 3) {
      next = Next::kTubeRestart;
      continue;
    }
    float nmax = run.NMAX;
    RoundTo(nmax, 2.0f);
    if (nmax > run.NMAX) nmax -= 2;
    run.NMAX = nmax;

    bool test_ratio = true;
    if (in_tubes) {
      if (!(pspec > 0) && (run.AREA < run.AREQ || (!(tspec > 0) && run.TL > run.OD))) {
        if (run.PASS < 16) {
          run.PASS += 1;
          next = Next::kPassRestart;
          continue;
        }
      }
    } else {
      if (run.TUBES > run.NMAX) {
        run.TUBES = run.NMAX;
        next = Next::kTubeRestart;
        continue;
      }
      if (nspec > 0) {
        next = Next::kFinish;
        test_ratio = false;
      } else if (run.TUBES < run.NMAX) {
        run.TUBES = run.NMAX;
        next = Next::kTubeRestart;
        continue;
      }
    }
    if (!test_ratio) break;

    const float r = std::fabs(run.AREA / (run.AREQ + run.AREQSUB));
    const bool done = in_tubes ? ((r >= 0.99 && r <= 1.01) || nspec > 0 || sspec > 0)
                               : (r >= 0.99 || run.forced_shell > 1 || nspec > 0);
    if (done) break;
    const float dn = ((run.AREQ + run.AREQSUB) / run.AREA) * run.TUBES - run.TUBES;
    if ((dn >= 0 && std::fabs(dn) < 2 * run.PASS) || run.TUBES + dn < 6) break;
    run.TUBES += dn;
    RoundUpTo(run.TUBES, 2 * run.PASS);
    next = Next::kTubeRestart;
  }

  // Grow the shell until the vapor finds its way out.
  if (run.PCTCUT > 35) {
    while (run.OD < 200 && run.PCTCUT > 35) {
      run.OD += 2;
      if (run.OD == 22) run.OD += 2;
      const Pipe pipe = PipeByNominal(run.ctx, run.OD, PipeRules::kCondenser);
      run.shell_od = pipe.od;
      run.shell_wall = pipe.wall;
      if (run.tube_side) {
        Baffles(run, 6.0f);
      } else {
        VaporEscapeArea(run);
      }
    }
  }
}

}  // namespace kestrane
