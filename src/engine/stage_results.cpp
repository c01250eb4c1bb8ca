// Finishing a train: pipe connections and velocities, recalculated efficiencies, ejector bodies, condenser vapor lines and outlines.
#include "engine/stage_results.h"

#include <array>
#include <cmath>

#include "engine/stage_model.h"
#include "properties/jet_balance.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kEfficiencyFailed = 99000000512.0f;

float Interp(const Array2D<float>& table, float x, int16_t ycol) {
  int16_t status = 0, xcol = 1;
  float y = 0;
  TableInterp(table, static_cast<int16_t>(table.hi1()), static_cast<int16_t>(table.hi2()), x, status, xcol, ycol, y);
  return y;
}

// Saturated steam volume and temperature at p (mmHgA).
void SaturatedSteam(const DesignContext& ctx, float p, float& vsat, float& tsat) {
  float t = 0, h = 0, s = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(ctx.steam(), p, t, h, s, vsat, moisture, failed);
  tsat = t;
}

// Moles and mass of a condenser's loads, in (1) or out (2).
void CondenserGas(const DesignCase& dc, int inout, int col, float& moles, float& mass) {
  moles = 0;
  mass = 0;
  for (int load = 1; load <= kMaxLoads; ++load) {
    const float flow = dc.CNDLOAD(load, inout, col);
    if (!(flow > 0)) continue;
    moles += flow / dc.LOADS(kLoadMW, load);
    mass += flow;
  }
}

// Pipe connection of a condenser's gas at p and t: its nominal size.
float GasLine(const DesignContext& ctx, float moles, float mass, float p, float t, float vmax_factor) {
  const float flow = static_cast<float>(moles * 10.73 * (t + 459.59) / (p / 51.7144) / 3600);
  const float vmax = MaxVelocity(ctx, p, t, mass / moles) * vmax_factor;
  Pipe pipe;
  PipeSize(ctx, flow, pipe, vmax, 1.5f);
  return pipe.nominal;
}

}  // namespace

Pipe PipeLookup(const DesignContext& ctx, float dia) {
  const auto& pipes = ctx.data.constants.PIPETAB;
  Pipe pipe;
  if (dia > 23.25) {
    pipe.nominal = dia + 1;
    RoundUpTo(pipe.nominal, 2.0f);
    pipe.wall = 0.5f;
    pipe.od = pipe.nominal;
    return pipe;
  }
  for (int i = 1; i <= 20; ++i) {
    if (pipes(i, 3) >= dia) {
      pipe.nominal = pipes(i, 1);
      pipe.wall = pipes(i, 2);
      pipe.od = pipes(i, 3) + 2 * pipe.wall;
      return pipe;
    }
  }
  return pipe;
}

Pipe PipeByNominal(const DesignContext& ctx, float nominal, PipeRules rules) {
  const auto& pipes = ctx.data.constants.PIPETAB;
  Pipe pipe;
  pipe.nominal = nominal;
  const int16_t wanted = CInt(nominal * 100.0);
  if (wanted > 2400 || (rules == PipeRules::kCondenser && wanted >= 2400)) {
    pipe.od = nominal;
    pipe.wall = 0.5f;
    return pipe;
  }
  for (int i = 1; i <= 20; ++i) {
    if (CInt(pipes(i, 1) * 100.0) >= wanted) {
      pipe.nominal = pipes(i, 1);
      pipe.wall = pipes(i, 2);
      pipe.od = pipes(i, 3) + 2 * pipe.wall;
      return pipe;
    }
  }
  return pipe;
}

float PipeSize(const DesignContext& ctx, float flow, Pipe& pipe, float vmax, float minsize, PipeRules rules) {
  if (minsize <= 0) minsize = 0.5f;
  const bool given = rules == PipeRules::kEjector ? Int(pipe.nominal * 100) > 0 : CInt(pipe.nominal * 100.0) > 0;
  if (given) {
    pipe = PipeByNominal(ctx, pipe.nominal, rules);
  } else {
    const float dia = static_cast<float>(std::sqrt(Divide(flow * 144.0 * 4, 3.14159 * vmax)));
    pipe = PipeLookup(ctx, dia);
    if (pipe.nominal < minsize) pipe = PipeByNominal(ctx, minsize, rules);
  }
  const float id = (pipe.od - 2 * pipe.wall) / 12;
  return static_cast<float>(flow / (3.14159 * id * id / 4));
}

float MaxVelocity(const DesignContext& ctx, float p, float t, float mw) {
  const float x = static_cast<float>(p / 25.4);
  float v = Interp(ctx.data.curves.VELOCITYCURVE, x, 2);
  v = static_cast<float>(v * std::pow((t + 460) / 530.0, 0.4) * std::pow(18 / mw, 0.4));
  if (v < 100.0f) v = 100.0f;
  if (v > 400.0f) v = 400.0f;
  return v;
}

void ConnectionsFromSize(const DesignContext& ctx, float size, float& suction, float& discharge) {
  const auto& sizes = ctx.data.constants.SIZETAB;
  suction = 0;
  discharge = 0;
  for (int i = 1; i <= 32; ++i) {
    if (Fix(sizes(i, 1) * 10) == Fix(size * 10)) {
      suction = sizes(i, 3);
      discharge = sizes(i, 4);
      return;
    }
  }
}

void StageVelocities(DesignContext& ctx, int c) {
  DesignCase& dc = ctx.dc;
  const auto& head = ctx.data.constants.DYNHEAD;
  const float pin = dc.STG(c, kStgPIN);
  if (!(pin > 0)) return;
  const float pout = dc.STG(c, kStgPOUT);
  const float motive = dc.STG(c, kStgMOTIVE);
  const float ml = dc.STG(c, kStgML);
  const float ts = dc.STG(c, kStgTS);
  const float td = dc.STG(c, kStgTD);
  float molin = 0, massin = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    const float flow = dc.STGLOAD(load, c);
    if (!(flow > 0.0001)) continue;
    molin += flow / dc.LOADS(kLoadMW, load);
    massin += flow;
  }
  const float molout = molin + motive / 18;
  const float massout = massin + motive;
  float vsat = 0, tsat = 0;
  SaturatedSteam(ctx, pin, vsat, tsat);
  const float v = static_cast<float>((ts + 459.59) / (tsat + 459.59) * (18 / (massin / molin)) * vsat);

  const bool pump = dc.USELRVP == 1 && c == kStageC;
  float vmaxs = 0, vmaxd = 0, factor = 1.0f;
  if (pump) {
    vmaxs = vmaxd = 50.0f;
    factor = dc.LRVPFACTOR;
  } else if (CInt(ml * 100.0) > 0) {
    const float hs = Interp(head, ml, 2);
    vmaxs = static_cast<float>(std::sqrt(pin * hs / 51.7144 * 144 * v * 64.4));
    float vsat_d = 0, tsat_d = 0;
    SaturatedSteam(ctx, pout, vsat_d, tsat_d);
    const float vd = static_cast<float>((td + 459.59) / (tsat_d + 459.59) * (18 / (massout / molout)) * vsat_d);
    const float hd = Interp(head, ml, 3);
    vmaxd = static_cast<float>(std::sqrt(pout * hd / 51.7144 * 144 * vd * 64.4));
  }
  const float fs = static_cast<float>((ts + 459.59) * molin * 10.73 / (pin / 51.7144) * factor / 3600);
  const float fd = static_cast<float>((td + 459.59) * molout * 10.73 / (pout / 51.7144) * factor / 3600);
  Pipe suction, discharge;
  if (!pump) ConnectionsFromSize(ctx, dc.STG(c, kStgSIZE), suction.nominal, discharge.nominal);
  const float vels = PipeSize(ctx, fs, suction, vmaxs, 1.5f);
  const float veld = pump ? 0.0f : PipeSize(ctx, fd, discharge, vmaxd, 1.5f);  // a pump's discharge is its own
  dc.VELFLAG(c, 6) = vels > vmaxs ? 1 : 0;
  dc.VELFLAG(c, 7) = veld > vmaxd ? 1 : 0;
  dc.STG(c, kStgDIAS) = suction.nominal;
  dc.STG(c, kStgVELS) = vels;
  dc.STG(c, kStgDIAD) = discharge.nominal;
  dc.STG(c, kStgVELD) = veld;
  dc.STG(c, kStgVMAXS) = vmaxs;
  dc.STG(c, kStgVMAXD) = vmaxd;
  if (pump) return;
  float tm = dc.TMOTIVE, h = 0, s = 0, vm = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(ctx.steam(), static_cast<float>((dc.PMOTIVE + 14.696) * 51.7144), tm, h, s, vm, moisture, failed);
  Pipe motive_pipe;
  dc.STG(c, kStgVELM) = PipeSize(ctx, motive * factor * vm / 3600, motive_pipe, 120.0f, 0.25f);
  dc.STG(c, kStgDIAM) = motive_pipe.nominal;
}

void StageEfficiencies(DesignContext& ctx, int c) {
  DesignCase& dc = ctx.dc;
  const float pin = dc.STG(c, kStgPIN), pout = dc.STG(c, kStgPOUT);
  if (!(pin > 0 && pout > 0) || (dc.USELRVP == 1 && c == kStageC)) return;
  JetBalanceData jet;
  jet.outletVelocity = dc.STG(c, kStgVELD);
  jet.motivePressure = dc.PMOTIVE;
  jet.motiveUnit = 4;
  jet.motiveTemp = dc.TMOTIVE;
  jet.suctionPressure = pin;
  jet.suctionUnit = 2;
  jet.suctionTemp = 0;  // saturated, as the stage was sized
  jet.dischargeUnit = 2;
  jet.dischargePressure = pout;
  jet.target = dc.STG(c, kStgML);
  jet.targetKind = 1;
  JetBalance(ctx.steam(), jet);
  dc.STG(c, kStgEFF) = jet.failed ? kEfficiencyFailed : jet.entropyIndex;
  const float q = (dc.STG(c, kStgVE) + dc.STG(c, kStgMOTIVE)) * jet.throatVolume;
  const float sonic = static_cast<float>(std::sqrt((jet.throatTemp + 460) * 64631.84 / 18));
  const float vth = MinOf(0.9f * sonic, jet.mixVelocity);
  dc.STG(c, kStgBTU35) = static_cast<float>(std::sqrt(q / 3600 / vth * 144 * 4 / 3.14159));
}

int16_t StageCurves(DesignContext& ctx, int c) {
  DesignCase& dc = ctx.dc;
  const float pin = dc.STG(c, kStgPIN), pout = dc.STG(c, kStgPOUT);
  if (!(pin > 0 && pout > 0) || (dc.USELRVP == 1 && c == kStageC)) return 0;
  dc.PSUCT = pin;
  // The curve's efficiency and the motive ratio it gives, as the stage model computes them.
  const StageDesign curve = DesignStage(ctx, pin, pout, dc.PMOTIVE, dc.TMOTIVE, dc.STG(c, kStgVE));
  dc.STG(c, kStgEFFCURVE) = curve.EFF;
  dc.STG(c, kStgMLCURVE) = curve.ML;
  return curve.balance.failed;
}

void EjectorDimensions(DesignContext& ctx, int stage) {
  DesignCase& dc = ctx.dc;
  const auto& bodies = ctx.data.constants.EJECTORBODY;
  const float size = dc.STG(stage, kStgSIZE);
  const float diam = dc.STG(stage, kStgDIAM);
  float a = 0, b = 0, c = 0;
  bool found = false;
  if (size <= 130) {
    for (int i = 1; i <= 32; ++i) {
      if (CInt(size * 100.0) == CInt(bodies(i, 1) * 100.0)) {
        a = bodies(i, 2);
        b = bodies(i, 3);
        c = bodies(i, 4);
        if (diam >= 3) {
          b += 4;
          c += 4;
        }
        found = true;
        break;
      }
    }
  }
  if (!found) {
    const float l = dc.STG(stage, kStgTHROAT);
    const float t35 = dc.STG(stage, kStgBTU35);
    const float s = dc.STG(stage, kStgDIAS);
    const Pipe discharge = PipeByNominal(ctx, dc.STG(stage, kStgDIAD));
    const float d = discharge.od - 2 * discharge.wall;
    a = static_cast<float>((s + 4) * 0.5 + 6);
    b = static_cast<float>(s * 0.5 + 6 + (diam >= 3 ? 4 : 0));
    float e1 = 0, e2 = 0, e3 = 0;
    if (stage <= 3) {
      e1 = static_cast<float>((l * 1.776 - l * 1.472) / 1.95 * 12);
      e2 = static_cast<float>((l * 1.472 - l) / 0.664 * 12);
      e3 = static_cast<float>((t35 - l) * 12 / 0.664);
    } else {
      e1 = static_cast<float>((l * 2.143 - l * 1.464) / 1.88 * 12);
      e2 = static_cast<float>((l * 1.464 - l) / 0.692 * 12);
      e3 = static_cast<float>((t35 - l) * 12 / 0.692);
    }
    const float e4 = static_cast<float>((t35 - l) * 12 / 1.5);
    const float e5 = t35 * 5 - e3 - e4;
    const float e6 = static_cast<float>((d - l) / 1.5 * 12);
    c = static_cast<float>(e2 + e1 + e5 + e6 + (s * 0.5 + 3) + b);
    RoundTo(c, 1.0f);
  }
  c = c - b;
  dc.STG(stage, kStgDIMA) = a;
  dc.STG(stage, kStgDIMB) = b;
  dc.STG(stage, kStgDIMC) = c;
}

void CondenserLines(const DesignContext& ctx, float t, int n, float& dia1, float& dia2) {
  const DesignCase& dc = ctx.dc;
  int col = 0;
  if (n == 2 && dc.HASC1 > 0) col = kCondC1;
  if (n == 1 && dc.HASC2 > 0) col = kCondC2;
  if (n == 0 && dc.HASAC > 0) col = kCondAC;
  float moles = 0, mass = 0;
  if (col != 0) {
    CondenserGas(dc, 1, col, moles, mass);
    if (moles > 0) dia1 = GasLine(ctx, moles, mass, dc.CND(col, kCndPIN), t, 1.0f);
  }
  if (dc.HASAC > 0) {
    CondenserGas(dc, 2, kCondAC, moles, mass);
    if (moles > 0) dia2 = GasLine(ctx, moles, mass, dc.CND(kCondAC, kCndPOUT), dc.TSATAC, 0.75f);
  }
}

std::string CondenserModel(const DesignContext& ctx, int col) {
  return Trim(GeneralText(ctx.dc.CND(col, kCndOD))) + "x" + Trim(GeneralText(ctx.dc.CND(col, kCndTL))) +
         HeadLetters(ctx.screen);
}

void CondenserOutline(DesignContext& ctx, int col) {
  DesignCase& dc = ctx.dc;
  if (dc.CND(col, kCndIHFLOW) == 4) return;
  const float od = dc.CND(col, kCndOD), tl = dc.CND(col, kCndTL);
  const float diavi = dc.CND(col, kCndDIAVI), diavo = dc.CND(col, kCndDIAVO), diawi = dc.CND(col, kCndDIAWI);
  const float diacout = dc.CND(col, kCndDIACOUT);
  const float passes = dc.CND(col, kCndPASS);
  const bool vertical = dc.CND(col, kCndIVERT) != 1;
  const bool head_a = ctx.screen.lists[kInletHead] == 1;
  const bool return_l = ctx.screen.lists[kReturnHead] == 1;
  std::array<float, 12> dim{};  // 1..11
  dim[8] = diavi;
  dim[9] = diavo;
  dim[10] = diacout;
  dim[11] = diawi;

  if (dc.CND(col, kCndISTANDARD) == 1) {
    const auto& table = ctx.data.constants.STDCONDENSER;
    bool found = false;
    for (int i = 1; i <= table.hi1() && !found; ++i) {
      if (table(i, 1) == od && table(i, 2) == tl && table(i, 3) == passes) {
        for (int k = 1; k <= 7; ++k) dim[static_cast<size_t>(k)] = table(i, 3 + k);
        found = true;
      }
    }
    if (!found) return;  // no standard condenser of this shape: nothing is stored
  } else {
    auto round_up = [](float v, float m) {
      RoundUpTo(v, m);
      return v;
    };
    auto round = [](float v) {
      RoundTo(v, 1.0f);
      return v;
    };
    const float tli = round_up(tl * 12, 1.0f);
    const float g = MinOf(round_up(od / 40, 0.25f), 1.0f);
    const float gg = round_up(g * 1.5f, 0.25f);
    const float y = od > 24 ? od / 6 + 2 : Interp(ctx.data.constants.ODTOY, od, 2);
    dim[6] = round_up(tli - 24, 1.0f);
    dim[4] = round(od * 0.5f + 6);
    if (!vertical) {
      float x = 0;
      if (head_a) {
        x = diavi + 8 + 2 * g + gg;
        dim[3] = round(diavi * 0.5f + 4 + g + gg);
      } else {
        dim[3] = round(diavi * 0.5f + y + 2);
        x = dim[3] + g + 4 + diavi * 0.5f;
      }
      dim[5] = round(dim[3] + 10);
      const float z = return_l ? diavo + 8 + 2 * g + gg + 10 : diavo + 6 + g + y + 2 + 10;
      dim[6] = round(diavo * 0.5f + diawi * 0.5f + 8 + 2 * g + 2);
      dim[1] = round(x + z + tli);
      dim[2] = round(dim[1] - dim[3] - dim[5] - dim[6]);
      dim[7] = round(2 * g + diavi * 0.5f + 4 + diawi * 0.5f + 4 + 2);
    } else {
      const float step = od < 18 ? 3.0f : od < 25 ? 5.0f : od < 66 ? 10.0f : 5.0f;
      dim[7] = round(od * 0.5f + step);
      dim[5] = round(od * 0.5f + 10);
      float x = 0;
      if (head_a && diacout <= 2) {
        x = diawi + 8 + 2 * g + gg;
        dim[3] = round(diawi * 0.5f + 4 + g + gg);
      } else {
        dim[3] = round(diawi * 0.5f + y + 2);
        x = diawi * 0.5f + 4 + g + dim[3];
      }
      const float w = diawi * 0.5f + 4 + g;
      dim[2] = round(tli - 4 - 2 * g - diavi * 0.5f + w);
      float end = x;
      if (!return_l && std::fmod(passes, 2.0f) == 1) end = y + g + 2;
      dim[1] = x + tli + end;  // not rounded
    }
  }
  for (int k = 1; k <= 11; ++k) dc.CND(col, kCndDIM1 + k - 1) = dim[static_cast<size_t>(k)];
}

}  // namespace kestrane
