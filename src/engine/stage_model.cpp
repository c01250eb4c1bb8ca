// The ejector stage model: vapor equivalent of a gas mixture, the flash at a condenser, the efficiency curve, and one stage's motive ratio, throat and size.
#include "engine/stage_model.h"

#include <cmath>
#include <vector>

#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kNoSaturation = 8999999488.0f;

bool IsMiscible(const DesignCase& dc, int load) { return dc.LOADS(kLoadMISCIBLE, load) >= 1; }

// The pool of miscible vapors condensing into one liquid: each member's
// outlet flow and the pool's partial pressure.
float MiscibleBalance(const DesignContext& ctx, LoadVector& loads, const LoadVector& vp, float p, float sumvp,
                      float ncmol) {
  const DesignCase& dc = ctx.dc;
  std::vector<int> members;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    if (IsMiscible(dc, load) && loads(load) > 0) members.push_back(load);
  }
  const float free = p - sumvp;
  if (members.empty() || !(free > 0)) return 0;
  const float a = ncmol;
  float s1 = a;
  for (int load : members) s1 += loads(load) / dc.LOADS(kLoadMW, load);
  float f = 0;
  for (int round = 0; round < 5000; ++round) {
    float r2 = a;
    for (int load : members) {
      const float m = loads(load) / dc.LOADS(kLoadMW, load);
      r2 += m / (1 + f / (vp(load) / free));
    }
    if (r2 > s1) ctx.ui.notice("POWER ERROR: SUM2 > SUM1 --->" + GeneralText(r2) + "  >  " + GeneralText(s1));
    const float next = (s1 - r2) / r2;
    const bool settled = std::fabs(next - f) <= 0.0000001f;
    f = next;
    if (settled) break;
  }
  float outlet_moles = 0;
  for (int load : members) {
    const float mw = dc.LOADS(kLoadMW, load);
    const float moles = loads(load) / mw / (1 + f / (vp(load) / free));
    loads(load) = moles * mw;
    outlet_moles += moles;
  }
  return free * outlet_moles / (a + outlet_moles);
}

}  // namespace

float VaporEquivalent(const DesignContext& ctx, const LoadVector& loads, float t) {
  const DesignCase& dc = ctx.dc;
  float ve = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    const float flow = loads(load);
    if (!(flow > 0.0001)) continue;
    const float mw = dc.LOADS(kLoadMW, load);
    if (Fix(mw * 1000) == 18000) {
      ve = static_cast<float>(ve + flow / (1.022957 + t / -3049.180328));
    } else {
      int16_t status = 0, xcol = 1;
      float ratio = 0;
      TableInterp(ctx.data.constants.MWTAB, 28, 2, mw, status, xcol, 2, ratio);
      ve = static_cast<float>(ve + (flow / ratio) * 0.8 / (1.0167 + t / -4189.189189));
    }
  }
  return ve;
}

LoadVector FillVaporPressures(const DesignContext& ctx, int row) {
  LoadVector vp = NewLoadVector();
  for (int load = 1; load <= kMaxLoads; ++load) vp(load) = ctx.dc.LOADS(row, load);
  return vp;
}

LoadVector VaporPressuresAt(const DesignContext& ctx, float t) {
  const DesignCase& dc = ctx.dc;
  LoadVector vp = NewLoadVector();
  const Steam steam = ctx.steam();
  const Vapors vapors = ctx.vapors();
  for (int v = 1; v <= dc.NLOADS; ++v) {
    if (dc.LOADCLASS(v) < 4) continue;
    float p = 0;
    if (v == 1) {
      int16_t failed = 0;
      SatPress(steam, t, p, failed);
    } else {
      int16_t flag = 0;
      Antoine(vapors, static_cast<int16_t>(dc.LOADS(kLoadID, v)), t, p, flag);
    }
    vp(v) = p;
  }
  return vp;
}

void FlashLoads(const DesignContext& ctx, LoadVector& loads, LoadVector& vp, float p, int flag) {
  const DesignCase& dc = ctx.dc;
  const int n = dc.NLOADS;
  // The load that stays in the gas even when absent: water, under its flag.
  const int key = (flag == 1 ? dc.KEEPWATERC : dc.KEEPWATERP) != 0 ? 1 : 0;

  for (int load = 1; load <= kMaxLoads; ++load) {
    if (!IsMiscible(dc, load) && !(loads(load) > 0.0001) && load != key) vp(load) = 0;
  }
  // Rank by flow / (MW * VP), ascending; equal ranks keep load order.
  std::vector<int> order;
  std::vector<float> rank;
  for (int load = 1; load <= n; ++load) {
    order.push_back(load);
    rank.push_back(vp(load) == 0 ? 0.0f : loads(load) / (dc.LOADS(kLoadMW, load) * vp(load)));
  }
  for (size_t pass = 0; pass + 1 < order.size(); ++pass) {
    for (size_t i = 0; i + 1 < order.size() - pass; ++i) {
      if (rank[i] > rank[i + 1]) {
        std::swap(rank[i], rank[i + 1]);
        std::swap(order[i], order[i + 1]);
      }
    }
  }

  std::vector<int> miscible;
  bool restart = true;
  while (restart) {
    restart = false;
    float ncmol = 0, ncmass = 0, sumvp = 0;
    bool pool = false;
    for (int load = 1; load <= n; ++load) {
      if (IsMiscible(dc, load)) {
        pool = true;
        continue;
      }
      if (!(loads(load) > 0) && load != key) continue;
      if (vp(load) == 0) {
        ncmol += loads(load) / dc.LOADS(kLoadMW, load);
        ncmass += loads(load);
      } else {
        sumvp += vp(load);
      }
    }
    const float poolp = pool ? MiscibleBalance(ctx, loads, vp, p, sumvp, ncmol) : 0.0f;
    for (int load : order) {
      if (IsMiscible(dc, load) || !(vp(load) > 0)) continue;
      if (!(loads(load) > 0) && load != key) continue;
      const float g = p - sumvp - poolp;
      const float sat = g != 0 ? ncmol * dc.LOADS(kLoadMW, load) * vp(load) / g : kNoSaturation;
      if (sat >= 0 && sat <= loads(load)) {
        loads(load) = sat;  // saturated in the gas
      } else if (sat > loads(load) && load == key) {
        loads(load) = sat;  // water evaporates to saturation
      } else {
        vp(load) = 0;  // it cannot condense: it joins the gas
        restart = true;
        break;
      }
    }
  }
}

float EfficiencyCurve(const DesignContext& ctx, float p, float cr) {
  const auto& lines = ctx.data.curves.EFFLINES;
  int j = 1;
  for (int k = 1; k <= 8; ++k) {
    if (lines(k, 1) <= p) j = k;
  }
  const double l = std::log(static_cast<double>(cr));
  auto line = [&](int k) {
    double sum = 0;
    for (int power = 4; power >= 0; --power) sum = sum * l + lines(k, 2 + power);
    return std::exp(sum);
  };
  if (j == 8) return static_cast<float>(line(8));
  return TwoPointLine(static_cast<float>(std::log(lines(j, 1) * 1000.0)), static_cast<float>(line(j)),
                      static_cast<float>(std::log(lines(j + 1, 1) * 1000.0)), static_cast<float>(line(j + 1)),
                      static_cast<float>(std::log(p * 1000.0)));
}

float MotiveCorrection(const DesignContext& ctx, float pdown, float pmotive) {
  if (pmotive == 100) return 1;
  const Steam steam = ctx.steam();
  // Isentropic drop of saturated steam from a pressure (mmHgA) to pdown.
  auto drop = [&](float p) {
    float t = 0, h = 0, s = 0, v = 0, moisture = 0, t2 = 0, h2 = 0;
    int16_t failed = 0;
    SteamFromPT(steam, p, t, h, s, v, moisture, failed);
    SteamFromPS(steam, pdown, t2, h2, s, v, moisture, failed);
    return h - h2;
  };
  const float d1 = drop(5931.4921704f);  // 100 psig
  // The correction credits motive steam up to 200 psig: a higher pressure counts as 200.
  const float capped = MinOf(pmotive, 200.0f);
  const float d2 = drop(static_cast<float>((capped + 14.696) * 51.7149));
  return Divide(d1, d2);
}

StageDesign DesignStage(const DesignContext& ctx, float pin, float pout, float pmotive, float /*tmotive*/, float ve) {
  StageDesign st;
  const float cr = pout / pin;
  st.EFF = EfficiencyCurve(ctx, pin, cr);
  JetBalanceData& jet = st.balance;
  jet.outletVelocity = 200;
  jet.motivePressure = 100;
  jet.motiveUnit = 4;
  jet.motiveTemp = 0;
  jet.suctionPressure = pin;
  jet.suctionUnit = 2;
  jet.suctionTemp = 0;
  jet.dischargeUnit = 2;
  jet.dischargePressure = pout;
  jet.target = st.EFF;
  jet.targetKind = 2;
  jet.suctionVelocity = 0;
  JetBalance(ctx.steam(), jet);
  const float f = MotiveCorrection(ctx, pout, pmotive);
  st.ML = f * jet.steamRatio;
  const float q = (st.ML * ve + ve) * jet.throatVolume;
  const float c = static_cast<float>(std::sqrt((jet.throatTemp + 460) * 64631.84 / 18));
  const float vth = MinOf(0.9f * c, jet.mixVelocity);
  st.THROAT = static_cast<float>(std::sqrt(q / 3600 / vth * 144 * 4 / 3.14159));
  st.THROAT = static_cast<float>(pout > 700 ? st.THROAT / 1.1 : st.THROAT / 1.05);
  st.ML *= ThroatCorrection(ctx, st.THROAT);
  st.SIZE = SizeFromThroat(ctx, st.THROAT);
  return st;
}

float ThroatCorrection(const DesignContext& ctx, float throat) {
  int16_t status = 0, xcol = 1;
  float correction = 0;
  TableInterp(ctx.data.constants.THROATCORR, 32, 2, throat, status, xcol, 2, correction);
  return correction;
}

float SizeFromThroat(const DesignContext& ctx, float throat) {
  const auto& sizes = ctx.data.constants.SIZETAB;
  if (throat > 3.56) {
    float size = static_cast<float>(385 * std::pow(throat / 3.85, 2) * 1.1);
    RoundTo(size, 10);
    return size;
  }
  for (int i = 1; i <= 32; ++i) {
    if (sizes(i, 2) >= throat) return sizes(i, 1);
  }
  return sizes(32, 1);
}

float MixTemperatureSource(const DesignContext& ctx, float pmotive, float tmotive, float p) {
  const Steam steam = ctx.steam();
  float t = tmotive, h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(steam, static_cast<float>((pmotive + 14.696) * 51.7144), t, h, s, v, moisture, failed);
  float tp = 0;
  SteamFromPH(steam, p, tp, h, s, v, moisture, failed);
  return tp;
}

}  // namespace kestrane
