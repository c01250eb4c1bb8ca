// Liquid ring pump selection for the last stage of a train: every catalogue pump tried for one duty, those that do it kept and sorted by power.
#include "pump/pump_selection.h"

#include <algorithm>
#include <cmath>
#include <map>

#include "engine/stage_model.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/water_properties.h"

namespace kestrane {

namespace {

constexpr float kLoadLimitAcfm = 5000.0f;
constexpr float kAcfmFactor = 1.0f;  // design constant on the required volume
constexpr int kRoundsLimit = 100;

// Flow and molecular weight of a load vector (loads of 0.0001 lb/hr and less left out).
struct GasSum {
  float w = 0, moles = 0;
  float mw() const { return moles > 0 ? w / moles : 0.0f; }
};

GasSum SumLoads(const DesignCase& dc, const LoadVector& loads) {
  GasSum sum;
  for (int v = 1; v <= dc.NLOADS; ++v) {
    if (!(loads(v) > 0.0001f) || !(dc.LOADS(kLoadMW, v) > 0)) continue;
    sum.w += loads(v);
    sum.moles += loads(v) / dc.LOADS(kLoadMW, v);
  }
  return sum;
}

// What the loads leave as gas at temperature t and pressure p (split type 2), and the heat (Btu/hr) of what condenses.
struct RingSplit {
  LoadVector left;
  float q = 0;
};

RingSplit SplitInRing(const DesignContext& ctx, const LoadVector& loads, float t, float p) {
  RingSplit split{loads, 0};
  LoadVector vp = VaporPressuresAt(ctx, t);
  FlashLoads(ctx, split.left, vp, p, 2);
  for (int v = 1; v <= ctx.dc.NLOADS; ++v) {
    split.q += std::max(0.0f, (loads(v) - split.left(v)) * ctx.dc.LATENT(v));
  }
  return split;
}

// The seal liquid: water at the inlet temperature.
struct SealLiquid {
  float cp = 1, sg = 1, k = 0, mu = 1;
};

// Correction factors of one pump at vacuum v (inHg) and discharge pd (psig).
struct Corrections {
  float capacity = 1, power = 1;
};

float SeriesFactor(const Array2D<float>& table, const PumpTables& t, float v, float pd) {
  Array2D<float> across(4, 2);
  const auto rows = static_cast<int16_t>(table.hi1());
  for (int16_t col = 2; col <= 5; ++col) {
    int16_t status = 0, xcol = 1;
    float factor = 0;
    TableInterp(table, rows, 5, v, status, xcol, col, factor);
    across(col - 1, 1) = t.discharge(col - 1);
    across(col - 1, 2) = factor;
  }
  int16_t status = 0, xcol = 1;
  float factor = 0;
  TableInterp(across, 4, 2, pd, status, xcol, 2, factor);
  return factor;
}

Corrections CorrectionsFor(const PumpRecord& pump, const PumpTables& t, float p, float pd) {
  Corrections c;
  const float v = std::fabs(29.92f - p / 25.4f);
  if (pump.PTYPE == 1 || pump.PTYPE == 2) {
    const bool second = pump.PSERIES == 2;
    c.capacity = SeriesFactor(second ? t.capacity2 : t.capacity1, t, v, pd);
    c.power = SeriesFactor(second ? t.power2 : t.power1, t, v, pd);
  } else {
    int16_t status = 0, xcol = 1;
    TableInterp(t.other, static_cast<int16_t>(t.other.hi1()), 2, pd, status, xcol, 2, c.capacity);
    c.power = TwoPointLine(12.5f, 0.95f, 20.0f, 1.12f, pd + 14.7f);
  }
  return c;
}

// The seal water temperature rise (degF) that carries off the pump's power and the heat of the vapors condensed at discharge.
float SealRise(const DesignContext& ctx, const LoadVector& loads, float bhp, float seal, const SealLiquid& liquid,
               float pd) {
  const float tw = ctx.dc.TWATERIN;
  const auto split_p = static_cast<float>((pd + 14.696) * 51.7311609);
  float dt = 10.0f;
  for (int round = 1; round <= kRoundsLimit; ++round) {
    const RingSplit split = SplitInRing(ctx, loads, tw + dt, split_p);
    const float dtn = (bhp * 2540 + split.q) / (seal * 500 * liquid.cp * liquid.sg);
    if (std::fabs(dtn - dt) <= 0.1f) break;
    dt = (dt + dtn) / 2;
  }
  return dt;
}

// The volume of air saturated with water vapor at 59 F over the same air dry, at the suction p (mmHgA).
float SaturatedToDryVolume(const DesignContext& ctx, float p) {
  const auto s0 = static_cast<float>((1.0 / 60 * 379 / 29 * 760 / p) * (528.0 / 520));
  float pw = 0;
  int16_t failed = 0;
  SatPress(ctx.steam(), 59.0f, pw, failed);
  float m = p - pw > 0 ? static_cast<float>(18.0 / 29 * pw / (p - pw)) : 0.0f;
  m = std::max(m, 0.0f);
  const auto s1 = static_cast<float>(((m / 18 + 1.0 / 29) / 60 * 379 * 760 / p) * (519.0 / 520));
  return s1 / s0;
}

// The capacity factor of condensation in the ring: the dry volume the pump must move, against the wet
// volume the load makes at the suction; `cf` is SaturatedToDryVolume at p. 0.01 when the ring's heat
// balance does not settle.
float CondensationFactor(const DesignContext& ctx, const LoadVector& loads, float p, float cf, float acfm, float bhp,
                         float pfactor, float seal, const SealLiquid& liquid) {
  const float tw = ctx.dc.TWATERIN;
  float dr = 10.0f;
  RingSplit split;
  for (int round = 1;; ++round) {
    split = SplitInRing(ctx, loads, tw + dr, p);
    const float dn = (bhp / pfactor * 2540 + split.q) / (seal * 500 * liquid.cp * liquid.sg);
    if (dn < -25 || round > kRoundsLimit) return 0.01f;
    if (std::fabs(dn - dr) <= 0.5f) break;
    dr = (dr + dn) / 2;
  }
  const GasSum left = SumLoads(ctx.dc, split.left);
  if (!(left.moles > 0)) return 3.0f;  // everything condenses: the most the ring gains
  const auto va = static_cast<float>(((left.w / 60) * 379 / left.mw() * 760 / p) * (tw + 460 + dr) / 520);
  const float ve = va / cf;
  return std::clamp(acfm / ve, 0.5f, 3.0f);
}

// The exchange sort of the kept columns by brake power, all rows moving together.
void SortByPower(Array2D<float>& res, int kept) {
  for (int i = 1; i < kept; ++i) {
    for (int j = i + 1; j <= kept; ++j) {
      if (res(kLrvpPower, j) < res(kLrvpPower, i)) {
        for (int row = 1; row <= res.hi1(); ++row) std::swap(res(row, i), res(row, j));
      }
    }
  }
}

}  // namespace

int16_t AnalysePump(DesignContext& ctx, float p, float pd, const LoadVector& loads, int16_t pump, int16_t& count) {
  DesignCase& dc = ctx.dc;
  const PumpData& catalogue = ctx.data.pumps;
  Array2D<float>& res = dc.LRVPRES;
  res.Clear();
  count = 0;
  const float tlrvp = dc.TSATC2;
  const bool chosen = pump >= 1 && pump <= 88;

  const GasSum gas = SumLoads(dc, loads);
  float acfm = 0;
  if (gas.moles > 0) acfm = ((gas.w / 60) * 379 / gas.mw()) * 760 / p * (tlrvp + 460) / 520 * kAcfmFactor;
  if (acfm > kLoadLimitAcfm) return 2;

  SealLiquid liquid;
  int16_t err = 0;
  WaterProperties(dc.TWATERIN, liquid.cp, liquid.sg, liquid.k, liquid.mu, err);
  // The seal liquid is water, whose viscosity factor is 1; another liquid would take
  // 0.0155 (SG 62.4)^0.84 MU^0.16 + 0.5.
  const float viscf = 1.0f;
  const int cycles = dc.CYCLES == 1 ? 50 : 60;
  const float cf = SaturatedToDryVolume(ctx, p);  // the same for every pump
  const int option = dc.SEALOPTION >= 1 && dc.SEALOPTION <= 3 ? dc.SEALOPTION : 1;

  int kept = 0;
  std::map<int, int> tried_of_class;
  const int first = chosen ? pump : 1;
  const int last = chosen ? pump : kPumps;
  for (int i = first; i <= last && catalogue.loaded && pd <= 10; ++i) {
    const PumpRecord& rec = catalogue.pumps[static_cast<size_t>(i)];
    if (rec.PFLAG == 1 && dc.USELRVP == 1 && !chosen) continue;
    if (static_cast<int>(rec.PCYCLES) != cycles || p < rec.PCURVE(1, 1)) continue;
    ctx.ui.progress("Checking LRVP: " + Trim(rec.MODEL));

    const float compression = 14.7f - p / 51.7f + pd;
    if ((rec.PTYPE == 1 && compression > 20) || (rec.PTYPE == 2 && compression > 25)) continue;
    if (++tried_of_class[rec.PTYPE] > kPumps) continue;

    const Corrections c = CorrectionsFor(rec, catalogue.tables, p, pd);
    int16_t status = 0, xcol = 1;
    float cap = 0;
    TableInterp(rec.PCURVE, kCurvePoints, 4, p, status, xcol, 2, cap);
    cap *= c.capacity;
    const float bhp = rec.PCURVE(1, 4) * c.power * viscf;
    float maxbhp = rec.PMAXBHP * c.power * viscf;
    float seal = rec.SEALGPM[static_cast<size_t>(option)];
    if (chosen && dc.SEALFLOW > 0) seal = dc.SEALFLOW;
    if (!(seal > 0)) continue;  // a ring without seal water cannot run
    if (rec.MODEL.size() >= 4 && rec.MODEL.substr(1, 2) == "PH" && rec.MODEL[3] == '9') {
      if (dc.PUMPCODE == 11) {
        maxbhp *= 1.05f;
      } else if (dc.PUMPCODE2 == 1) {
        maxbhp *= 1.03f;
      }
    }

    const float dt = SealRise(ctx, loads, bhp, seal, liquid, pd);
    const float fc = CondensationFactor(ctx, loads, p, cf, acfm, bhp, c.power, seal, liquid);
    if (!chosen && acfm / fc > cap / 1.1f) continue;

    const float ts = dc.TWATERIN + dt;
    float psat = 0;
    int16_t failed = 0;
    SatPress(ctx.steam(), ts, psat, failed);
    if (p - psat <= 5) continue;

    ++kept;
    res(kLrvpPump, kept) = static_cast<float>(i);
    res(kLrvpCapacity, kept) = cap;
    res(kLrvpPower, kept) = bhp;
    res(kLrvpSeal, kept) = seal;
    res(kLrvpAcfm, kept) = acfm;
    res(kLrvpSealOut, kept) = ts;
    res(kLrvpLowMargin, kept) = p - psat <= 10 ? 1.0f : 0.0f;
    res(kLrvpHighRise, kept) = dt > 20 ? 1.0f : 0.0f;
    res(kLrvpRatio, kept) = cap / (acfm / fc);
    res(kLrvpPowerFactor, kept) = c.power;
    res(kLrvpCapacityFactor, kept) = c.capacity;
    res(kLrvpSealPsat, kept) = psat;
    res(14, kept) = 0;
    res(kLrvpMaxPower, kept) = maxbhp;
    res(kLrvpCondensation, kept) = fc;
  }

  ctx.ui.progress("Analyzing Vacuum Pump Selections...... ");
  SortByPower(res, kept);
  count = static_cast<int16_t>(kept);
  if (kept == 0) return 1;

  const int motor = catalogue.pumps[static_cast<size_t>(CInt(res(kLrvpPump, 1)))].MOTORIDX;
  if (motor >= 1 && motor <= kPumps && motor <= catalogue.tables.motors.size()) {
    res(kLrvpMotor, 1) = catalogue.tables.motors(motor);
  }
  return 0;
}

}  // namespace kestrane
