// Shell and tube layout: passes and lanes, the tube count formula, shell selection with its dome area, the vapor escape area, nozzles.
#include <cmath>

#include "condenser/condenser_state.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kPi = 3.14159f;
constexpr int kMaxShellGrowth = 200;  // 2 in. at a time: far beyond any shell made

float Interp(const Array2D<float>& table, float x) {
  int16_t status = 0, xcol = 1;
  float y = 0;
  TableInterp(table, static_cast<int16_t>(table.hi1()), 2, x, status, xcol, 2, y);
  return y;
}

// Lane widths of a layout, with the allowance for tubes beside the lanes.
void LaneWidths(const CondenserRun& run, float d, float passes, int lanes1, int lanes2, float& w1, float& w2) {
  w1 = 0.75f;
  w2 = 0.75f;
  const bool layout1 = run.layout == 1, layout3 = run.layout == 3;
  if ((layout1 || layout3) && !(layout1 && lanes2 == 0) && !(layout3 && lanes1 == 0)) {
    float& w = layout1 ? w2 : w1;
    w += run.TOD / 2;
    if (passes >= 6 && d <= 24) w += run.TOD / 4;
  }
}

// The terms of the tube count formula: NT = A d^2 + B d.
void TubeFormula(const CondenserRun& run, float d, float passes, int lanes1, int lanes2, double& a, double& b) {
  const auto& factors = run.ctx.data.constants.LANEFACTOR;
  const double g = run.layout % 2 == 1 ? 0.866 : 1.0;
  const float l1 = factors(std::min(lanes1 + 1, 8));
  const float l2 = factors(std::min(lanes2 + 1, 8));
  float w1 = 0, w2 = 0;
  LaneWidths(run, d, passes, lanes1, lanes2, w1, w2);
  const double pitch2 = static_cast<double>(run.pitch) * run.pitch;
  a = 0.7854 / (g * pitch2);
  b = -(l1 * w1 + l2 * w2) * (run.TOD / run.pitch) / (g * pitch2);
}

}  // namespace

void Warn(CondenserRun& run, int code) {
  // Codes by their fixed places in the list.
  switch (code) {
    case 1: run.warnings[0] = 1; break;
    case 2: run.warnings[1] = 2; break;
    case 3: run.warnings[2] = 3; break;
    case 4: run.warnings[3] = 4; break;
    case 9: run.warnings[7] = 9; break;
    case 11: run.warnings[9] = 11; break;
    case 12: run.warnings[10] = 12; break;
    case 13: run.warnings[11] = 13; break;
    case 14: run.warnings[12] = 14; break;
    case 15: run.warnings[13] = 15; break;
    default: break;
  }
}

PassLayout AdjustPasses(const CondenserRun& run, float passes) {
  const auto& table = run.shell_code == 6 ? run.ctx.data.constants.PASSTAB6 : run.ctx.data.constants.PASSTAB;
  float wanted = MinOf(passes, 16.0f);
  if (run.shell_code >= 2 && run.shell_code <= 4 && std::fmod(wanted, 2.0f) == 1) wanted += 1;
  PassLayout layout;
  for (int i = 1; i <= table.hi1(); ++i) {
    if (table(i, 1) >= wanted) {
      layout.passes = table(i, 1);
      layout.lanes1 = static_cast<int>(table(i, 2));
      layout.lanes2 = static_cast<int>(table(i, 3));
      return layout;
    }
  }
  const int last = table.hi1();
  layout.passes = table(last, 1);
  layout.lanes1 = static_cast<int>(table(last, 2));
  layout.lanes2 = static_cast<int>(table(last, 3));
  return layout;
}

float TubeCount(const CondenserRun& run, float d, float passes, int lanes1, int lanes2) {
  double a = 0, b = 0;
  TubeFormula(run, d, passes, lanes1, lanes2, a, b);
  float nt = CInt(a * d * d + b * d);
  if (passes > 1 && std::fmod(nt, 2.0f) != 0) nt += 1;
  return nt;
}

float TubeCircle(const CondenserRun& run, float tubes, float passes, int lanes1, int lanes2) {
  double a = 0, b = 0;
  TubeFormula(run, 0, passes, lanes1, lanes2, a, b);
  return static_cast<float>((-b + std::sqrt(4 * a * tubes + b * b)) / (2 * a));
}

void SelectShell(CondenserRun& run) {
  const auto& clearance = run.ctx.data.constants.CLEARANCE;
  // The tube limit comes from the tube count unless the tube side keeps the one of its previous call.
  const bool limit_known = run.tube_side && run.OTL >= 0.1;
  float otl = limit_known ? run.OTL : TubeCircle(run, run.TUBES, run.PASS, run.lanes1, run.lanes2) + run.TOD;
  float c = Interp(clearance, otl);
  Pipe pipe = PipeLookup(run.ctx, c + otl - 0.1f);
  run.OD = pipe.nominal;
  if ((run.OD < 25 && std::fmod(run.OD, 2.0f) == 1) || run.OD < 6) {
    RoundUpTo(run.OD, 2.0f);
    run.OD = MaxOf(run.OD, 6.0f);
    pipe = PipeByNominal(run.ctx, run.OD, PipeRules::kCondenser);
  }
  bool forced = run.forced_shell > 1;
  for (int growth = 0; growth < kMaxShellGrowth; ++growth) {
    if (forced) run.OD = run.forced_shell;
    if (forced || growth > 0) {
      pipe = PipeByNominal(run.ctx, run.OD, PipeRules::kCondenser);
      c = Interp(clearance, pipe.od);
    }
    run.shell_od = pipe.od;
    run.shell_wall = pipe.wall;
    run.OTL = (pipe.od - 2 * pipe.wall) - c;
    run.NMAX = TubeCount(run, run.OTL - run.TOD, run.PASS, run.lanes1, run.lanes2);
    const float per_tube = run.OTL * run.OTL * kPi / 4 / run.NMAX;
    run.DOMECALC = (run.NMAX - run.TUBES) * per_tube;
    if (run.DOMEOUT > 0) {
      run.DOMECALC -= run.DOMEOUT;
      run.DOMECALC -= run.TOD * 1.25f * 0.6f * run.OTL;
    }
    if (forced) {
      if (run.NMAX < run.TUBES || run.DOMECALC < 0) {
        // The forced shell no longer serves: drop it and grow from here.
        forced = false;
        run.forced_shell = 0;
        continue;
      }
      return;
    }
    if (run.NMAX >= run.TUBES && (run.DOME <= 0 || run.DOMECALC >= run.DOME)) return;
    run.OD += 2;
  }
}

void VaporEscapeArea(CondenserRun& run) {
  if (run.IHFLOW == 1) return;
  const DesignCase& dc = run.ctx.dc;
  float moles = 0;
  for (int v = 1; v <= dc.NLOADS; ++v) {
    const float w = dc.CNDLOAD(v, 2, run.c);
    if (w >= 0.0001) moles += w / dc.LOADS(kLoadMW, v);
  }
  float qv = static_cast<float>(moles * 10.73 * (run.T2 + 459.59) / (run.P2 / 51.7144) / 3600);
  if (run.IHFLOW == 2) qv /= 2;
  const float vacuum = static_cast<float>(29.92 - run.P2 / 25.4);
  run.RNFA = qv / Interp(run.ctx.data.constants.SLOTVELOCITY, vacuum) * 144;
  const float bore = run.shell_od - 2 * run.shell_wall;
  const float chord = bore - run.OTL * run.TOD / run.pitch;
  run.PCTCUT = run.RNFA / (bore * bore * kPi / 4 - run.TOD * run.TOD * kPi / 4 * run.NMAX) * 100;
  run.BSP = run.RNFA / chord;
}

float SizeNozzle(const CondenserRun& run, float flow, float& diameter, float vmax, float minimum) {
  Pipe pipe;
  pipe.nominal = diameter;
  const float velocity = PipeSize(run.ctx, flow, pipe, vmax, minimum, PipeRules::kCondenser);
  diameter = pipe.nominal;
  return velocity;
}

}  // namespace kestrane
