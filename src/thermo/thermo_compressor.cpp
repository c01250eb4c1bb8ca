// The thermo compressor design: the discharge velocity iteration, the final balance, connections, body type and dimensions.
#include "thermo/thermo_compressor.h"

#include <cmath>

#include "engine/stage_model.h"
#include "engine/stage_results.h"
#include "properties/jet_balance.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr double kMmHgPerPsi = 51.7144;

float VolumeAt(const Steam& steam, float p, float t) {
  float h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(steam, p, t, h, s, v, moisture, failed);
  return v;
}

}  // namespace

TcOutcome DesignThermoCompressor(DesignContext& ctx, const TcInput& tcin) {
  DesignCase& dc = ctx.dc;
  const Steam steam = ctx.steam();
  TcOutcome outcome;

  const auto ps = static_cast<float>(tcin.PSUCT * kMmHgPerPsi);
  const auto pd = static_cast<float>(tcin.PDISCH * kMmHgPerPsi);
  const float cr = pd / ps;
  const float eff_target = EfficiencyCurve(ctx, ps, cr);

  float tsuct = tcin.TSUCT;
  if (!(tsuct > 0)) {
    SteamRowValues row;
    int16_t failed = 0;
    SteamRow(steam, ps, row, failed);
    tsuct = row(2);
  }
  const auto pmotive_mmhg = static_cast<float>((tcin.PMOTIVE + 14.696) * kMmHgPerPsi);

  JetBalanceData jet;
  jet.motivePressure = tcin.PMOTIVE;
  jet.motiveUnit = 4;
  jet.motiveTemp = tcin.TMOTIVE;
  jet.suctionPressure = ps;
  jet.suctionUnit = 2;
  jet.suctionTemp = tsuct;
  jet.dischargeUnit = 2;
  jet.dischargePressure = pd;
  jet.suctionVelocity = 0;

  // The discharge velocity: the balance, the throat, the discharge pipe, until the pipe's velocity agrees.
  float vd = 250.0f, throat = 0, vm = 0, vs = 0, vdis = 0, m = 0;
  Pipe discharge;
  for (;;) {
    ++outcome.passes;
    jet.outletVelocity = vd;
    jet.target = eff_target;
    jet.targetKind = 2;
    jet.motivePressure = tcin.PMOTIVE;
    jet.suctionPressure = ps;
    jet.dischargePressure = pd;
    JetBalance(steam, jet);
    m = jet.steamRatio;
    const float c = static_cast<float>(std::sqrt((jet.throatTemp + 460) * (64631.84 / 18)));
    const float vth = MinOf(0.9f * c, jet.mixVelocity);
    const float motive = tcin.LOADTC * m;
    const float total = motive + tcin.LOADTC;
    const float q = jet.throatVolume * total;
    throat = static_cast<float>(std::pow(q / 3600 / vth * 144 * 4 / 3.14159, 0.5));
    vm = VolumeAt(steam, pmotive_mmhg, tcin.TMOTIVE);
    vs = VolumeAt(steam, ps, tsuct);
    vdis = VolumeAt(steam, pd, jet.dischargeTemp);
    const float limit = outcome.passes == 1 ? MinOf(250.0f, 0.25f * vth) : vd * 1.05f;
    const float vdnew = PipeSize(ctx, vdis * total / 3600, discharge, limit, 2.0f);
    const float ratio = std::fabs(vd / vdnew);
    if (ratio >= 0.95 - 0.000001 && ratio <= 1.05 + 0.000001) break;
    vd = vdnew;
    if (outcome.passes >= kTcVelocityPasses) {
      outcome.settled = false;
      ctx.ui.notice("The discharge velocity of the thermo compressor did not settle in " +
                    std::to_string(kTcVelocityPasses) + " passes; the design of the last pass is shown.");
      break;
    }
  }

  // The final balance at the design ratio: the calculated ratio, corrected for the throat, plus 7.5 %.
  jet.target = ThroatCorrection(ctx, throat) * m * 1.075f;
  jet.targetKind = 1;
  jet.motivePressure = tcin.PMOTIVE;
  jet.suctionPressure = ps;
  jet.dischargePressure = pd;
  JetBalance(steam, jet);
  m = jet.steamRatio;
  outcome.compressionRatio = jet.compressionRatio;
  outcome.balanced = jet.failed == 0;

  const float motive = tcin.LOADTC * m;
  const float total = motive + tcin.LOADTC;
  Pipe diad;
  const float veld = PipeSize(ctx, vdis * total / 3600, diad, vd * 1.05f, 2.0f);
  Pipe dias;
  float vels = PipeSize(ctx, tcin.LOADTC * vs / 3600, dias, veld * 1.05f, 2.0f);
  if (dias.nominal + 2.0f < diad.nominal) {
    dias = Pipe{diad.nominal - 2.0f, 0, 0};
    vels = PipeSize(ctx, tcin.LOADTC * vs / 3600, dias, veld * 1.05f, 2.0f);
  }
  Pipe diam;
  const float velm = PipeSize(ctx, motive * vm / 3600, diam, 105.0f, 0.5f);

  auto stg = [&dc](int row) -> float& { return dc.STG(1, row); };
  stg(kStgPIN) = tcin.PSUCT;
  stg(kStgPOUT) = tcin.PDISCH;
  stg(kStgMOTIVE) = motive;
  stg(kStgML) = m;
  stg(kStgSIZE) = SizeFromThroat(ctx, throat);
  stg(kStgTHROAT) = throat;
  stg(kStgVE) = 0;
  stg(kStgDIAS) = dias.nominal;
  stg(kStgVELS) = vels;
  stg(kStgDIAD) = diad.nominal;
  stg(kStgVELD) = veld;
  stg(kStgTS) = tsuct;
  stg(kStgTD) = jet.dischargeTemp;
  stg(kStgDIAM) = diam.nominal;
  stg(kStgEFF) = jet.efficiency;
  stg(kStgBTU35) = throat;
  stg(kStgEFFCURVE) = eff_target;
  stg(kStgMLCURVE) = 0;
  stg(kStgVELM) = velm;

  outcome.TYPE = 1;
  if (outcome.compressionRatio < 1.8f) outcome.TYPE = 9;
  if (outcome.compressionRatio < 1.2f) outcome.TYPE = 8;

  // The ejector body of this size, read with the throat without its 10 % margin in both throat places.
  const float size = stg(kStgSIZE);
  if (!(size > 130 && (outcome.TYPE == 8 || outcome.TYPE == 9))) {
    stg(kStgTHROAT) = throat / 1.1f;
    stg(kStgBTU35) = throat / 1.1f;
    EjectorDimensions(ctx, 1);
    stg(kStgTHROAT) = throat;
    stg(kStgBTU35) = throat;
  }
  float dima = stg(kStgDIMA), dimb = stg(kStgDIMB), dimc = stg(kStgDIMC);
  TCDimensions(ctx, outcome.TYPE, size, throat / 1.1f, dias.nominal, diad.nominal, diam.nominal, dima, dimb, dimc);
  stg(kStgDIMA) = dima;
  stg(kStgDIMB) = dimb;
  stg(kStgDIMC) = dimc;
  return outcome;
}

void TCDimensions(const DesignContext& ctx, int16_t type, float size, float throat, float dias, float diad, float diam,
                  float& dima, float& dimb, float& dimc) {
  const Pipe pipe = PipeByNominal(ctx, diad);
  const float b = pipe.od - 2 * pipe.wall;  // inside diameter of the discharge
  const float d = throat;
  if (!(size <= 130 && dima > 0 && dimb > 0)) {
    dima = static_cast<float>((dias + 4) * 0.5 + 6);
    dimb = static_cast<float>(dias * 0.5 + 4 + 2);
    if (diam >= 3.0f) dimb += 4;
  }
  float l0 = 0, l1 = 0, l2 = 0, l3 = 0;
  if (type == 8) {
    l1 = static_cast<float>((d * 2.33 - d) / 13.856 * 12);
    l2 = 2 * d;
  } else if (type == 9) {
    l0 = static_cast<float>((d * 1.204 - d) / 0.664 * 12);
    l1 = static_cast<float>((d * 1.774 - d * 1.204) / 7.2 * 12);
    l2 = static_cast<float>(d * 0.2245);
  }
  if (type == 8 || type == 9) l3 = static_cast<float>((b - d) / 1.36 * 12);
  dimc = static_cast<float>(l0 + l1 + l2 + l3 + (dias * 0.5 + 3) + dimb);
  RoundTo(dimc, 1.0f);
  dimc -= dimb;
}

}  // namespace kestrane
