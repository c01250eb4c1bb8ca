// The design run: from a checked case record to a whole train with its condensers, connections, utilities and annual cost.
#include "engine/design_run.h"

#include <array>
#include <cmath>
#include <exception>

#include "case/check_input.h"
#include "engine/advisories.h"
#include "condenser/condenser_design.h"
#include "engine/optimiser.h"
#include "engine/results.h"
#include "engine/run_errors.h"
#include "engine/stage_model.h"
#include "engine/stage_results.h"
#include "engine/thorough_search.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr float kAfterCondenserLoss = 25.0f;  // mmHg the last stage discharges through the after condenser
constexpr float kRunningHours = 8000;

// Every value of the record that a run computes: the stage and condenser
// tables, their loads and the totals, for the check that no step leaves one
// infinite or not a number.
ResultCells RecordCells(DesignCase& dc) {
  ResultCells cells;
  for (int c = 1; c <= kStageColumns; ++c) {
    for (int r = 1; r <= kStageRows; ++r) cells.push_back(&dc.STG(c, r));
  }
  for (int col = 1; col <= kCondenserColumns; ++col) {
    for (int r = 1; r <= kCondenserRows; ++r) cells.push_back(&dc.CND(col, r));
  }
  for (int k = 1; k <= 12; ++k) cells.push_back(&dc.TOTALS(k));
  for (int load = 1; load <= kMaxLoads; ++load) {
    for (int c = 1; c <= kStageColumns; ++c) cells.push_back(&dc.STGLOAD(load, c));
    for (int col = 1; col <= kCondenserColumns; ++col) {
      cells.push_back(&dc.CNDLOAD(load, 1, col));
      cells.push_back(&dc.CNDLOAD(load, 2, col));
    }
  }
  return cells;
}

LoadVector FlowsOfLoads(const DesignCase& dc) {
  LoadVector loads = NewLoadVector();
  for (int load = 1; load <= kMaxLoads; ++load) loads(load) = dc.LOADS(kLoadPPH, load);
  return loads;
}

float Sum(const DesignCase& dc, const LoadVector& loads) {
  float sum = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) sum += loads(load);
  return sum;
}

void CopyCondenserLoads(DesignCase& dc, int inout, int col, const LoadVector& loads) {
  for (int load = 1; load <= kMaxLoads; ++load) dc.CNDLOAD(load, inout, col) = loads(load);
}

// A condenser ahead of the first stage: its loads, pressures and the flashed load.
float Precondenser(DesignContext& ctx, int col, int vp_row, float tsat, float& pin, float& tin, LoadVector& loads) {
  DesignCase& dc = ctx.dc;
  CopyCondenserLoads(dc, 1, col, loads);
  dc.CND(col, kCndPIN) = pin;
  pin = static_cast<float>(pin * 0.95);
  LoadVector vp = FillVaporPressures(ctx, vp_row);
  FlashLoads(ctx, loads, vp, pin, 1);
  const float ve = VaporEquivalent(ctx, loads, tsat);
  dc.CND(col, kCndPOUT) = pin;
  dc.CND(col, kCndTSAT) = tsat;
  tin = tsat;
  CopyCondenserLoads(dc, 2, col, loads);
  return ve;
}

// Advice on the precondenser of a one or two stage train.
void PrecondenserAdvice(DesignContext& ctx, float pin) {
  DesignCase& dc = ctx.dc;
  LoadVector loads = FlowsOfLoads(dc);
  const float t0 = Sum(dc, loads);
  const float ve0 = VaporEquivalent(ctx, loads, dc.TSUCT);
  const bool one = dc.NSTAGES == 1;
  const int vp_row = one ? kLoadVPC2 : kLoadVPC1;
  const float tsat = one ? dc.TSATC2 : dc.TSATC1;
  int16_t& selected = one ? dc.HASC2 : dc.HASC1;
  LoadVector vp = FillVaporPressures(ctx, vp_row);
  FlashLoads(ctx, loads, vp, static_cast<float>(pin * 0.95), 1);
  const float ve1 = VaporEquivalent(ctx, loads, tsat);
  const float t1 = Sum(dc, loads);
  if (std::fabs(t0 - t1) < 0.1) {
    if (selected > 0) {
      selected = 0;
      ctx.ui.notice("The precondenser doesn't reduce the load since nothing condenses.... continuing without a "
                    "precondenser...\r\nSuggest you check the cooling water temperature or eliminate the "
                    "precondenser.  \r\n\r\n");
    }
    return;
  }
  const float r = 100 * ve1 / ve0;
  if (r > 50.0f && selected > 0) {
    ctx.ui.notice("The precondenser reduces the condensible vapor equivalent load by less than 50%.\r\nSuggest you "
                  "review a design without the precondenser.\r\n\r\n");
  } else if (r <= 50.0f && selected == 0) {
    ctx.ui.notice("You may wish to consider a precondenser which will lower vacuum system utility requirements.\r\n"
                  "  Select the precondenser option from the main input menu.\r\n\r\n");
  }
}

// The intercondenser between two stages: in = suction load of the stage before plus its motive, out = next stage's.
void Intercondenser(DesignCase& dc, int col, float tsat, int stage_before, int stage_after) {
  dc.CND(col, kCndTSAT) = tsat;
  for (int load = 1; load <= kMaxLoads; ++load) {
    dc.CNDLOAD(load, 1, col) = dc.STGLOAD(load, stage_before);
    dc.CNDLOAD(load, 2, col) = dc.STGLOAD(load, stage_after);
  }
  dc.CNDLOAD(1, 1, col) += dc.STG(stage_before, kStgMOTIVE);
}

void AnnualCosts(DesignContext& ctx) {
  DesignCase& dc = ctx.dc;
  const InputScreen& screen = ctx.screen;
  const bool metric = screen.OptionUnits[1] != 0;
  float steam_price = static_cast<float>(Val(screen.txtCost[0]));
  if (metric) steam_price = static_cast<float>(steam_price / 2.205);
  dc.TOTALS(kTotalSteamCost) = dc.TOTALS(kTotalMotive) * kRunningHours / 1000 * steam_price;
  float water = 0;
  for (int col = 1; col <= kCondenserColumns; ++col) water += dc.CND(col, kCndGPMUSE);
  if (dc.USELRVP == 1) water += dc.LRVPRES(4, 1);
  dc.TOTALS(kTotalWater) = water;
  float water_price = static_cast<float>(Val(screen.txtCost[2]));
  if (metric) water_price = static_cast<float>(water_price / 264.173 * 1000);
  dc.TOTALS(kTotalWaterCost) = water * 60 * kRunningHours / 1000 * water_price;
  dc.TOTALS(kTotalPower) = CInt(dc.LRVPRES(3, 1) * 0.7457);
  const float power_price = static_cast<float>(Val(screen.txtCost[1]));
  dc.TOTALS(kTotalPowerCost) = static_cast<float>(dc.TOTALS(kTotalPower) * kRunningHours * power_price / 0.9);
  dc.TOTALS(kTotalAnnualCost) =
      dc.TOTALS(kTotalWaterCost) + dc.TOTALS(kTotalSteamCost) + dc.TOTALS(kTotalPowerCost);
}

void VaporRangeWarnings(DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  const bool metric = ctx.screen.OptionUnits[1] != 0;
  std::string message;
  for (int load = 1; load <= std::min<int>(10, dc.NLOADS); ++load) {
    if (dc.VPRANGE(load, 1) == 0 && dc.VPRANGE(load, 2) == 0 && dc.VPRANGE(load, 3) == 0) continue;
    const auto id = static_cast<int>(dc.LOADS(kLoadID, load));
    const std::string name = VaporName(ctx.data.vapors, ctx.data.user_vapors, id);
    float low_c = 0, high_c = 0;
    if (id > 0) {
      low_c = ctx.data.vapors.PSATDATA(id, 5);
      high_c = ctx.data.vapors.PSATDATA(id, 6);
    } else if (id < 0) {
      low_c = ctx.data.user_vapors.UDVDATA(-id, 2);
      high_c = ctx.data.user_vapors.UDVDATA(-id, 6);
    } else {
      // Water: the saturation line of the steam table.
      const SteamTable& tb = ctx.data.steam;
      low_c = Convert(Quantity::kTemperature, tb.STEAMTBL(1, 2), true);
      high_c = Convert(Quantity::kTemperature, tb.STEAMTBL(tb.STEAMNP, 2), true);
    }
    const auto shown = [&](float c) { return metric ? c : static_cast<float>(c * 1.8 + 32); };
    message += " Warning: vapor pressure data for " + name + " beyond normal range of stored properties..." +
               " Temperature range= " + FormatFixed(shown(low_c), 8.0f) + " to " + FormatFixed(shown(high_c), 8.0f) +
               (metric ? " deg.C" : " deg.F") + "\r\n";
  }
  if (message.empty()) return;
  message += "\r\nSuggest that you review the accuracy of the suspect vapor pressures. "
             "This can be done by running the Vapor Pressure option from the main screen.  This will enable "
             " you to review the calculated vapor pressures over a temperature range for comparison to your in-house "
             "data.";
  ctx.ui.notice(message);
}

}  // namespace

TrainEnds TrainEndsOf(const DesignCase& dc) {
  return TrainEnds{dc.PSUCT, dc.PDISCH + (dc.HASAC > 0 && dc.NSTAGES > 0 ? kAfterCondenserLoss : 0.0f), dc.TSUCT,
                   FlowsOfLoads(dc)};
}

void DesignStages(DesignContext& ctx, float& pin, float pout, float& tin, LoadVector& loads) {
  DesignCase& dc = ctx.dc;
  Ui& ui = ctx.ui;
  float best = 0;
  int16_t err = 0;
  const bool thorough = ctx.search == InterstageSearch::kThorough;
  switch (dc.NSTAGES) {
    case 1: {
      ui.status("Calculating.....single stage design... ");
      if (dc.HASC2 > 0) Precondenser(ctx, kCondC2, kLoadVPC2, dc.TSATC2, pin, tin, loads);
      DesignSingleStage(ctx, pin, pout, tin, loads);
      return;
    }
    case 2: {
      ui.status("Calculating.....two stage design... ");
      const float ve = dc.HASC1 > 0 ? Precondenser(ctx, kCondC1, kLoadVPC1, dc.TSATC1, pin, tin, loads)
                                    : VaporEquivalent(ctx, loads, tin);
      OptimizeTwoStage(ctx, ve, pin, pout, tin, loads, best, err);
      break;
    }
    case 3:
      ui.status("Calculating.....three stage design... ");
      OptimizeThreeStage(ctx, pin, pout, tin, loads, best, err);
      break;
    case 4:
      OptimizeFourStage(ctx, pin, pout, tin, ctx.PINTERFIX, 0, loads, best, err);
      break;
    default:
      return;
  }
  if (thorough && dc.LRVPERR == 0) ImproveByThoroughSearch(ctx, pin, pout, tin);
}

std::vector<std::string> DesignSystem(DesignContext& ctx) {
  DesignCase& dc = ctx.dc;
  Ui& ui = ctx.ui;
  RunErrors errors(ui);
  const ResultCells cells = RecordCells(dc);
  const auto stage = [&](int c) { return "stage " + ctx.data.constants.STAGENAME(c); };
  const auto condenser = [](int col) { return std::string("condenser ") + CondenserName(col); };

  ui.status("Calculating..... ");
  TrainEnds ends = TrainEndsOf(dc);
  float pout = ends.pout;
  float& pin = ends.pin;
  float& tin = ends.tin;
  LoadVector& loads = ends.loads;
  dc.LRVPERR = 0;

  if (dc.NSTAGES < 3) errors.Step("the precondenser advice", cells, [&] { PrecondenserAdvice(ctx, pin); });

  // A fault inside the search leaves the best stages found before it.
  errors.Step(dc.NSTAGES == 1 ? "the design of stage C" : "the interstage pressure search", cells,
              [&] { DesignStages(ctx, pin, pout, tin, loads); });
  if (dc.LRVPERR == 1) {
    ui.notice("Error encountered in liquid ring vacuum pump design.\r\nThe conditions may be beyond the capacity of a "
              "vacuum pump.\r\nSuggestions:\r\n-If cooling water is hot, try cold water (~50F) to prove if conditions "
              "are beyond the limits of the vacuum pump.\r\n-Disable the vacuum pump option and run as ejector(s) "
              "only.");
    errors.Add("LRVP Error: no liquid ring vacuum pump could be designed for these conditions");
    return errors.texts();
  }

  // A search whose every candidate was worse than its starting best, or that a fault stopped, stored no stage.
  for (int c = dc.NSTAGES; c >= 1; --c) {
    if (!(dc.STG(c, kStgPOUT) > 0)) {
      errors.Add("Stage " + ctx.data.constants.STAGENAME(c) + ": the search stored no design for it");
    }
  }

  float total_motive = 0;
  for (int c = 1; c <= dc.NSTAGES; ++c) total_motive += dc.STG(c, kStgMOTIVE);
  dc.TOTALS(kTotalMotive) = total_motive;

  if (dc.HASAC > 0) {
    errors.Step("the loads of " + condenser(kCondAC), cells, [&] {
      if (dc.NSTAGES > 0) {
        dc.CND(kCondAC, kCndPIN) = pout;
        dc.CND(kCondAC, kCndTSAT) = dc.TSATAC;
        for (int load = 1; load <= kMaxLoads; ++load) loads(load) = dc.STGLOAD(load, kStageC);
        loads(1) += dc.STG(kStageC, kStgMOTIVE);
        CopyCondenserLoads(dc, 1, kCondAC, loads);
        pout -= kAfterCondenserLoss;
      } else {
        dc.CND(kCondAC, kCndPIN) = pin;
      }
      LoadVector vp = FillVaporPressures(ctx, kLoadVPAC);
      FlashLoads(ctx, loads, vp, pout, 1);
      dc.CND(kCondAC, kCndPOUT) = pout;
      CopyCondenserLoads(dc, 2, kCondAC, loads);
    });
  }
  if (dc.NSTAGES >= 3) Intercondenser(dc, kCondC1, dc.TSATC1, kStageA, kStageB);
  if (dc.NSTAGES >= 2) Intercondenser(dc, kCondC2, dc.TSATC2, kStageB, kStageC);

  ui.status("Calculating.....condenser heat loads... ");
  const int16_t present[] = {dc.HASAC, dc.HASC2, dc.HASC1};  // by column 1, 2, 3
  for (int col = 1; col <= kCondenserColumns; ++col) {
    if (present[col - 1] <= 0) continue;
    float q = 0;
    for (int load = 1; load <= kMaxLoads; ++load) {
      const float in = dc.CNDLOAD(load, 1, col), out = dc.CNDLOAD(load, 2, col);
      if (in >= 0.0001 || out >= 0.0001) q += (in - out) * dc.LATENT(load);
    }
    dc.CND(col, kCndQNOSUB) = q;
  }

  // Each stage is finished on its own: a stage that cannot be finished stops only itself.
  if (dc.NSTAGES > 0) {
    ui.status("Calculating.....velocities... ");
    for (int c = 1; c <= dc.NSTAGES; ++c) {
      errors.Step("the connections of " + stage(c), cells, [&] { StageVelocities(ctx, c); });
    }
  }
  ui.status("Calculating.....efficiencies... ");
  for (int c = 1; c <= dc.NSTAGES; ++c) {
    errors.Step("the efficiency of " + stage(c), cells, [&] { StageEfficiencies(ctx, c); });
  }
  for (int c = 1; c <= dc.NSTAGES; ++c) {
    int16_t unbalanced = 0;
    errors.Step("the efficiency curve of " + stage(c), cells, [&] { unbalanced = StageCurves(ctx, c); });
    if (unbalanced != 0) {
      errors.Add("Stage " + ctx.data.constants.STAGENAME(c) + ": the jet balance did not converge from " +
                 Trim(GeneralText(dc.STG(c, kStgPIN))) + " to " + Trim(GeneralText(dc.STG(c, kStgPOUT))) +
                 " mmHgA; its last motive ratio stands");
    }
  }
  float dia1 = 0, dia2 = 0;
  errors.Step("the vapor lines of the condensers", cells,
              [&] { CondenserLines(ctx, dc.TSUCT, dc.NSTAGES, dia1, dia2); });
  for (int c = 1; c <= dc.NSTAGES; ++c) {
    if (dc.USELRVP == 1 && c == kStageC) continue;
    errors.Step("the ejector dimensions of " + stage(c), cells, [&] { EjectorDimensions(ctx, c); });
  }

  SetCondenserInputs(ctx);
  int n = 0;
  for (int col : {kCondC1, kCondC2, kCondAC}) {
    if (present[col - 1] <= 0) continue;
    ++n;
    ui.status("Calculating.....condenser #" + Str(n));
    int16_t cnd_err = 0;
    std::array<int16_t, 14> warnings{};
    std::string reason;
    // The condenser run traps its own faults; the step only makes sure that nothing else gets out.
    errors.Step(condenser(col), cells,
                [&] { CondenserDesign(ctx, dc.NSTAGES, col, dia1, dia2, cnd_err, warnings, &reason); });
    if (cnd_err != 0) {
      errors.Add("Condenser " + std::string(CondenserName(col)) + " ended with its error flag: " + reason);
    }
    // The outline belongs to a surface condenser whose shell was sized.
    if (dc.CNDTYPE == 1 && dc.CND(col, kCndOD) > 0) {
      errors.Step("the outline of " + condenser(col), cells, [&] { CondenserOutline(ctx, col); });
    }
  }

  errors.Step("the annual costs", cells, [&] { AnnualCosts(ctx); });
  errors.Step("the vapor pressure warnings", cells, [&] { VaporRangeWarnings(ctx); });
  return errors.texts();
}

DesignOutcome RunDesign(DesignContext& ctx, InputScreen& screen) {
  DesignOutcome outcome;
  const Steam steam = ctx.steam();
  const Vapors vapors = ctx.vapors();
  outcome.input_error = CheckInput(screen, ctx.dc, ctx.PINTERFIX, CheckServices{steam, vapors, ctx.ui});
  if (outcome.input_error != 0) return outcome;
  // The stage counts designed by the thorough search, on copies: for the
  // thorough search's automatic count, and for the advice on the design. A
  // count the user chose is designed thoroughly by the run itself.
  const bool thorough = ctx.search == InterstageSearch::kThorough;
  const bool automatic = ctx.dc.STAGEOPT == 0;
  const std::vector<StageCountTrial> counts =
      ctx.compare || (thorough && automatic) ? TryStageCounts(ctx, screen, thorough && !automatic ? ctx.dc.NSTAGES : 0)
                                             : std::vector<StageCountTrial>{};
  if (thorough && automatic) {
    std::string chosen = ChooseStageCount(ctx, counts);
    if (!chosen.empty()) outcome.advisories.push_back(std::move(chosen));
  }
  outcome.errors = DesignSystem(ctx);
  if (ctx.dc.LRVPERR == 0) {
    outcome.results = true;
    // Advice never stops a design: a run-time error while it is worked out leaves it unsaid.
    try {
      for (std::string& text : DesignAdvisories(ctx, counts)) outcome.advisories.push_back(std::move(text));
    } catch (const std::exception&) {
    }
  } else {
    outcome.lblMessage = "LRVP Error";
  }
  return outcome;
}

}  // namespace kestrane
