// The condenser run: flows, heat loads, water balance and the sizing of one condenser of the train.
#include "condenser/condenser_design.h"

#include <cfenv>
#include <cmath>

#include "condenser/condenser_state.h"
#include "engine/run_errors.h"
#include "engine/stage_results.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/water_properties.h"

namespace kestrane {

namespace {

constexpr int kMaxRestarts = 20;  // the pinch rule lowers the outlet each time; far fewer suffice

enum class Outcome { kStored, kNothing, kRestart };

// Stops the run after showing its message once, where the original would ask again for the same data.
[[noreturn]] void StopWith(CondenserRun& run, const std::string& message, const std::string& reason) {
  if (!message.empty()) run.ctx.ui.notice(message);
  throw CondenserStop{reason};
}

float RoundedPipe(const CondenserRun& run, float nominal) {
  return PipeByNominal(run.ctx, nominal, PipeRules::kCondenser).nominal;
}

// Vapor nozzles from the stages around the condenser, or the fallbacks.
void VaporNozzles(CondenserRun& run, float dia1, float dia2) {
  const DesignCase& dc = run.ctx.dc;
  // The gas comes from the discharge of the stage ahead (column c) and goes to the suction of the next (c - 1).
  run.DIAVI = run.c <= run.nstages ? RoundedPipe(run, dc.STG(run.c, kStgDIAD)) : dia1;
  if (run.IHFLOW == 2) run.DIAVI = PipeLookup(run.ctx, run.DIAVI / 1.4142f).nominal;
  run.DIAVO = run.c > 1 && run.c - 1 <= run.nstages ? RoundedPipe(run, dc.STG(run.c - 1, kStgDIAS)) : dia2;
}

void WaterData(CondenserRun& run) {
  run.WATER_IN = run.in[5];
  run.WATER_OUT = run.in[6];
  run.GPM = run.in[7];
  run.FF = run.in[8];
  const auto flow = static_cast<int>(run.in[9]);
  run.IHFLOW = run.tube_side || flow < 0 || flow > 2 ? 0 : flow;
  run.MARGIN = run.in[11] > 0 ? run.in[11] : 1.0f;
  run.VIF = run.tube_side ? 1.0f : (run.IHFLOW == 0 ? 0.8f : 0.4f);
}

void WaterChecks(CondenserRun& run) {
  if (CInt(run.WATER_IN) == 0) {
    StopWith(run, "Inlet liquid temp must be input........", "no cooling water inlet temperature");
  }
  if (CInt(run.WATER_OUT) == 0 && CInt(run.GPM) <= 0) {
    StopWith(run, "Outlet liquid temp or GPM must be input", "no water outlet temperature or flow");
  }
  if (run.WATER_OUT > 0 && !(run.WATER_OUT > run.WATER_IN)) {
    StopWith(run, "Outlet liquid temp <= Inlet temp? why?.", "water outlet not above its inlet");
  }
}

// The water balance; kRestart when the pinch rule lowered the outlet temperature.
Outcome WaterBalance(CondenserRun& run) {
  DesignCase& dc = run.ctx.dc;
  for (int round = 1; round <= 2; ++round) {
    const float tw = run.WATER_OUT > 0 ? (run.WATER_IN + run.WATER_OUT) / 2 : 0.0f;
    int16_t err = 0;
    WaterProperties(tw, run.CP, run.SG, run.K, run.MU, err);
    if (err) StopWith(run, "", "mean water temperature outside 35 to 720 F");
    if (run.GPM > 0 && run.WATER_OUT > 0) {
      const float qliq = run.GPM * 500 * run.SG * run.CP * (run.WATER_OUT - run.WATER_IN);
      if (run.direct) run.QSUB = run.WCOND * (run.TCOND - run.WATER_OUT);
      const float ratio = qliq / (run.Q_TOTAL + run.QSUB);
      if (!(ratio >= 0.98 && ratio <= 1.02)) {
        StopWith(run, "Qliquid vs Qvapor differs by > 2% !!!..QLIQUID=0   QVAPOR=0",
                 "water and vapor heat differ by more than 2%");
      }
    } else if (run.GPM > 0) {
      if (run.direct) {
        const float m = run.GPM * 500 * run.SG * run.CP;
        run.WATER_OUT = (run.TCOND * run.WCOND + run.Q_TOTAL + run.WATER_IN * m) / (m + run.WCOND);
        run.QSUB = run.WCOND * (run.TCOND - run.WATER_OUT);
      } else {
        run.WATER_OUT = (run.Q_TOTAL + run.QSUB) / (run.GPM * 500 * run.CP * run.SG) + run.WATER_IN;
      }
    }
  }
  if (run.WATER_IN > run.T2) {
    StopWith(run,
             "The water outlet is hotter that the saturation temp!\r\nIts hard to do certain things....this is too "
             "hard...",
             "cooling water inlet above the condensing temperature");
  }
  const float a = run.CTSTEAM != 0 ? run.CTSTEAM : run.CTOTHER;
  if (!(a < run.T2)) {
    if (a - run.WATER_OUT < 5) {
      // The outlet of this condenser is lowered for good and the run starts again.
      dc.CNDIN(run.c, 6) -= 5 - (a - run.WATER_OUT);
      return Outcome::kRestart;
    }
    if (run.WATER_OUT + 5 > run.T2 && run.IHFLOW == 2) Warn(run, 15);
  }
  const auto required = [&] { return (run.Q_TOTAL + run.QSUB) / ((run.WATER_OUT - run.WATER_IN) * 500 * run.CP * run.SG); };
  run.GPMREQ = required();
  if (!(run.GPM > 0) && run.direct) {
    run.QSUB = run.WCOND * (run.TCOND - run.WATER_OUT);
    run.GPMREQ = required();
  }
  run.QUSE = run.Q_TOTAL + run.QSUB;
  run.GPMUSE = run.GPMREQ;
  if (run.GPMREQ / 1.02 < run.GPM) {
    run.GPMUSE = run.GPM;
    // With a flow given the duty of the heat balance is not reported, as it always was.
    if (dc.CNDIN(run.c, 6) > 1) run.QUSE = 0;
  }
  return Outcome::kStored;
}

void WaterNozzles(CondenserRun& run) {
  const float qw = run.GPMUSE / 7.48f / 60;
  if (run.direct) {
    run.FPSWI = SizeNozzle(run, qw, run.DIAWI, 8.0f, 1.25f);
    const float out = (run.GPMUSE + run.WCOND / 500) / 7.48f / 60;
    if (out > 0) {
      run.FPSWO = SizeNozzle(run, out, run.DIAWO, 4.0f, 1.25f);
    } else {
      run.DIAWO = run.FPSWO = 0;
    }
    return;
  }
  float limit = 8.0f;
  if (run.tube_side && run.water_material >= 3 && run.water_material <= 5) {
    limit = static_cast<float>(std::sqrt(1500 / (run.SG * 62.4)));
  }
  run.FPSWI = SizeNozzle(run, qw, run.DIAWI, limit, 1.5f);
  run.DIAWO = run.DIAWI;
  run.FPSWO = run.FPSWI;
}

void SizeLimitMessage(CondenserRun& run) {
  const char* first = run.direct ? "Design beyond size limits and may require multiple condensers."
                                 : "Design beyond size limits and may require multiple condensers. ";
  run.ctx.ui.notice(std::string(first) +
                    "\r\n\r\nSuggest design requirements be forwarded to Tessel Corporation for evaluation.");
}

void Store(CondenserRun& run) {
  DesignCase& dc = run.ctx.dc;
  const int c = run.c;
  auto set = [&](int row, float value) { dc.CND(c, row) = value; };
  const std::pair<int, float> fields[] = {
      {kCndWLMTD, run.WLMTD},       {kCndOD, run.OD},           {kCndTL, run.TL},
      {kCndAREA, run.AREA},         {kCndGPMUSE, run.GPMUSE},   {kCndWATERIN, run.WATER_IN},
      {kCndWATEROUT, run.WATER_OUT}, {kCndDELTAP, run.DELTAP},  {kCndUD, run.UD},
      {kCndUSTM, run.USTM},         {kCndUVAP, run.UVAP},       {kCndHT, run.HT},
      {kCndHSTM, run.HSTM},         {kCndHVAP, run.HVAP},       {kCndAREQSTM, run.AREQSTM},
      {kCndAREQVAP, run.AREQVAP},   {kCndVEL, run.VEL},         {kCndFPSWI, run.FPSWI},
      {kCndFFACT, run.FFACT},       {kCndDOME, run.DOME},       {kCndDOMECALC, run.DOMECALC},
      {kCndDIAVI, run.DIAVI},       {kCndDIAVO, run.DIAVO},     {kCndDIAWI, run.DIAWI},
      {kCndDIAWO, run.DIAWO},       {kCndPASS, run.PASS},       {kCndDIACOUT, run.DIACOUT},
      {kCndISTANDARD, 0},           {kCndAREQSUB, run.AREQSUB}, {kCndBAFFLES, run.BAFFLES},
      {kCndBSP, run.BSP},           {kCndCTOTHER, run.CTOTHER}, {kCndCTSTEAM, run.CTSTEAM},
      {kCndDOMEOUT, run.DOMEOUT},   {kCndDOMEVMAX, run.DOMEVMAX}, {kCndFF, run.FF},
      {kCndWALL, run.WALL},         {kCndIVERT, run.tube_side ? 1.0f : 0.0f},
      {kCndMWCV, run.MW_CV},        {kCndNCMOLWGT, run.NC_MOL_WGT}, {kCndPCTCUT, run.PCTCUT},
      {kCndPCTQ, run.PCTQ},         {kCndPPHCVIN, run.PPH_CVIN}, {kCndPPHCVOUT, run.PPH_CVOUT},
      {kCndPPHNC, run.PPH_NC},      {kCndQTOTAL, run.Q_TOTAL},  {kCndQSTEAM, run.QSTEAM},
      {kCndQSUB, run.QSUB},         {kCndQUSE, run.QUSE},       {kCndQVAP, run.QVAP},
      {kCndRNFA, run.RNFA},         {kCndIHFLOW, 0},            {kCndMODEL, 0},
      {kCndSTEPS, static_cast<float>(run.steps)}, {kCndT1, run.T1}, {kCndT1F, run.T1F},
      {kCndT2F, run.T2F},           {kCndTCOND, run.TCOND},     {kCndTMSHL, 0},
      {kCndTMTUBE, 0},              {kCndTOD, run.TOD},         {kCndTUBES, run.TUBES},
      {kCndVELSLOT, run.VELSLOT},   {kCndVIF, run.VIF},         {kCndVTUBES, run.VTUBES},
      {kCndWALL2, run.WALL},        {kCndWALLRESIST, run.WALL_RESIST}, {kCndWLMTDSTM, run.WLMTDSTM},
      {kCndWLMTDVAP, run.WLMTDVAP}, {kCndFPSVI, run.FPSVI},     {kCndFPSVO, run.FPSVO},
      {kCndFPSWI2, run.FPSWI},      {kCndFPSWO, run.FPSWO}};
  for (const auto& [row, value] : fields) {
    // The original stopped on the arithmetic fault behind a value like this one.
    if (!std::isfinite(value)) throw ArithmeticError();
  }
  for (const auto& [row, value] : fields) set(row, value);
  for (int row = kCndBAROA; row <= kCondenserRows; ++row) set(row, 0);
  if (run.direct) {
    for (int k = 1; k <= 7; ++k) set(kCndBAROA + k - 1, run.baro[static_cast<size_t>(k)]);
  }
}

Outcome Run(CondenserRun& run, float dia1, float dia2) {
  DesignCase& dc = run.ctx.dc;
  const auto& constants = run.ctx.data.constants;
  const int c = run.c;
  run.in = {};
  for (int k = 1; k <= 11; ++k) run.in[static_cast<size_t>(k)] = dc.CNDIN(c, k);

  // Fixed parameters: 3/4 in. 18 BWG 304SS tubes on a 15/16 in. triangular pitch.
  run.WALL = constants.BWGWALL(CInt(18 - 6.0));
  run.kwall = constants.CONDUCTIVITY(3);

  // Loads.
  const int vp_row = c == kCondC1 ? kLoadVPC1 : c == kCondC2 ? kLoadVPC2 : kLoadVPAC;
  run.W1 = dc.CNDLOAD(1, 1, c);
  run.W2 = dc.CNDLOAD(1, 2, c);
  for (int v = 2; v <= dc.NLOADS; ++v) {
    const float mw = dc.LOADS(kLoadMW, v);
    const float win = dc.CNDLOAD(v, 1, c), wout = dc.CNDLOAD(v, 2, c);
    const float mol_in = win > 0 ? win / mw : 0.0f, mol_out = wout > 0 ? wout / mw : 0.0f;
    run.mol_in += mol_in;
    run.mol_out += mol_out;
    if (dc.LOADS(vp_row, v) > 0) {
      run.PPH_CVIN += win;
      run.PPH_CVOUT += wout;
      run.mol_cvin += mol_in;
      run.mol_cvout += mol_out;
    } else {
      run.PPH_NC += win;
      run.mol_nc += mol_in;
    }
  }
  run.WCOND = (run.W1 - run.W2) + run.PPH_CVIN - run.PPH_CVOUT;
  run.NC_MOL_WGT = Divide(run.PPH_NC, run.mol_nc);
  run.MW1 = (run.PPH_NC + run.PPH_CVIN + run.W1) / (run.W1 / 18 + run.mol_in);
  run.MW_CV = run.mol_cvin > 0 ? run.PPH_CVIN / run.mol_cvin : 0.0f;
  run.MW2 = (run.PPH_NC + run.PPH_CVOUT + run.W2) / (run.W2 / 18 + run.mol_out);

  run.P1 = dc.CND(c, kCndPIN);
  run.P2 = dc.CND(c, kCndPOUT);
  run.T2 = dc.CND(c, kCndTSAT);
  run.T1 = c <= run.nstages ? dc.STG(c, kStgTD) : dc.TSUCT;
  run.QVO = static_cast<float>(((run.W2 + run.PPH_NC + run.PPH_CVOUT) / run.MW2) * ((run.T2 + 459.59) * 10.73) /
                               ((run.P2 / 51.7144) * 3600));
  run.QVI = static_cast<float>(((run.W1 + run.PPH_NC + run.PPH_CVIN) / run.MW1) * ((run.T1 + 459.59) * 10.73) /
                               ((run.P1 / 51.7144) * 3600));
  run.DOMEVMAX = MaxVelocity(run.ctx, run.P1, run.T1, run.MW1);
  run.VELSLOT = 0.8f * run.DOMEVMAX;
  VaporNozzles(run, dia1, dia2);

  for (int v = 1; v <= dc.NLOADS; ++v) {
    const float diff = dc.CNDLOAD(v, 1, c) - dc.CNDLOAD(v, 2, c);
    if (!(std::fabs(diff) >= 0.0001)) continue;
    run.Q_TOTAL += diff * dc.LATENT(v);
    if (v == 1) run.QSTEAM = diff * dc.LATENT(v);
  }
  run.QVAP = run.Q_TOTAL - run.QSTEAM;

  if (!CondensingCurve(run)) return Outcome::kNothing;
  run.QSUB = run.tube_side ? (run.TCOND - run.T2) * run.WCOND : 0.0f;

  WaterData(run);
  VaporNozzles(run, dia1, dia2);
  run.ID = run.TOD - 2 * run.WALL;
  run.WALL_RESIST = static_cast<float>(run.TOD * std::log(run.TOD / run.ID) / (2 * run.kwall * 12));
  run.surface_per_ft = static_cast<float>((run.TOD / 12) * 3.141592741013);
  run.tube_flow_factor = static_cast<float>(std::pow(run.ID / 12, 2) * 3.14159 / 4 * 7.48 * 60);
  run.tube_area = static_cast<float>(3.14159 / 4 * run.ID * run.ID);
  WaterChecks(run);
  if (WaterBalance(run) == Outcome::kRestart) return Outcome::kRestart;

  if (run.direct) {
    run.OD = run.in[1];
    if (!(run.QSUB > 0)) Warn(run, 12);
  } else {
    RateSurfaceCondenser(run);
  }
  WaterNozzles(run);
  if (run.direct) {
    run.DELTAP = run.allowable_dp;
  } else if (!run.tube_side) {
    run.DELTAP = WaterInTubesPressureDrop(run);
  }
  const float qc = run.WCOND / 500 / 7.48f / 60;
  if (qc > 0) {
    SizeNozzle(run, qc, run.DIACOUT, 1.5f, 1.5f);
  } else {
    run.DIACOUT = 0;
  }
  run.FPSVI = SizeNozzle(run, run.QVI, run.DIAVI, run.DOMEVMAX, 0);
  run.FPSVO = SizeNozzle(run, run.QVO * (run.IHFLOW == 2 ? 0.5f : 1.0f), run.DIAVO, run.DOMEVMAX, 0);

  if (run.direct) {
    SizeBarometric(run);
  } else {
    if (run.AREA < run.AREQ + run.AREQSUB) Warn(run, 1);
    if (run.in[1] > 0 && CInt(run.forced_shell) != CInt(run.OD)) Warn(run, 2);
    if (run.DOME > run.DOMECALC) Warn(run, 3);
  }
  if (run.T1 > run.tube_design_t) Warn(run, 9);
  if (run.DELTAP > 15) Warn(run, 11);
  if (run.direct && run.WATER_IN + 0.666666 * (run.WATER_OUT - run.WATER_IN) > run.T2) Warn(run, 14);
  if (!run.direct && run.OD > 120) {
    run.OD = 0;
    SizeLimitMessage(run);
  }
  Store(run);
  return Outcome::kStored;
}

}  // namespace

void SetCondenserInputs(DesignContext& ctx) {
  DesignCase& dc = ctx.dc;
  const float fouling = static_cast<float>(Val(ctx.screen.txtInput[7]));
  const int water_out_limit[] = {0, 16, 17, 18};  // TWMAX place by column AC, C2, C1
  for (int col = 1; col <= kCondenserColumns; ++col) {
    for (int k = 1; k <= 11; ++k) dc.CNDIN(col, k) = 0;
    dc.CNDIN(col, 5) = dc.TWATERIN;
    dc.CNDIN(col, 6) = dc.TWMAX(water_out_limit[col]);
    dc.CNDIN(col, 8) = fouling;
    dc.CNDIN(col, 11) = 1;
  }
}

void CondenserDesign(DesignContext& ctx, int nstages, int col, float dia1, float dia2, int16_t& err,
                     std::array<int16_t, 14>& warnings, std::string* reason) {
  err = 0;
  warnings.fill(0);
  if (reason != nullptr) reason->clear();
  std::string why;
  std::feclearexcept(FE_ALL_EXCEPT);
  try {
    for (int attempt = 0; attempt < kMaxRestarts; ++attempt) {
      CondenserRun run(ctx, warnings);
      run.c = col;
      run.nstages = nstages;
      run.tube_side = ctx.dc.CNDTYPE == 1 && ctx.dc.CNDTS == 1;
      run.direct = ctx.dc.CNDTYPE == 2;
      if (Run(run, dia1, dia2) != Outcome::kRestart) return;
    }
    // The outlet temperature keeps falling against the pinch: end here rather than go on for ever.
    err = 1;
    why = "the water outlet temperature did not settle against the pinch";
    ctx.ui.notice("Error during Condenser Calculation: the water outlet temperature did not settle after " +
                  std::to_string(kMaxRestarts) + " restarts.");
  } catch (const CondenserStop& stop) {
    err = 1;
    why = stop.reason;
  } catch (const std::exception&) {
    // A run-time error, or any other failure under the run time's number for a fault of its own.
    const VbError e = CaughtError();
    err = 1;
    why = FaultText(e);
    ctx.ui.notice("Error during Condenser Calculation: Error # " + GeneralText(e.number()));
  }
  if (reason != nullptr) *reason = why;
}

}  // namespace kestrane
