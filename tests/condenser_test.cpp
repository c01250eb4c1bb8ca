// Condensers: heat balance and physical ranges on the examples, the run's messages and rules, layout and barometric sizing.
#include <gtest/gtest.h>

#include <cmath>

#include "case/jet_file.h"
#include "condenser/condenser_design.h"
#include "condenser/condenser_state.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "properties/water_properties.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

class Condensers : public ::testing::Test {
 protected:
  Condensers() : screen(NewCase()), ctx{dc, kestrane::testing::ShippedData(), screen, pinterfix, ui} {}

  bool Design(const std::string& file, bool tube_side = false) {
    dc = DesignCase();
    InputScreen read = NewCase();
    RecordingUi read_ui;
    if (!OpenCase(kExamples / file, read, read_ui)) return false;
    screen = read;
    // Condensing in the tubes, chosen on the input screen as a user would.
    if (tube_side) SelectOption(screen, screen.OptionCondenserType, 1);
    outcome = RunDesign(ctx, screen);
    return outcome.input_error == 0;
  }
  std::vector<int> Present() const {
    std::vector<int> cols;
    if (dc.HASC1) cols.push_back(kCondC1);
    if (dc.HASC2) cols.push_back(kCondC2);
    if (dc.HASAC) cols.push_back(kCondAC);
    return cols;
  }
  int16_t Redesign(int col, std::array<int16_t, 14>& warnings) {
    int16_t err = 0;
    CondenserDesign(ctx, dc.NSTAGES, col, 0, 0, err, warnings, &reason);
    return err;
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
  std::string reason = "not set";  // what ended the last Redesign
  DesignOutcome outcome;             // of the last Design
};

// Water side heat over the duty of a condenser.
float HeatBalance(const DesignCase& dc, int col) {
  float cp = 0, sg = 0, k = 0, mu = 0;
  int16_t err = 0;
  WaterProperties((dc.CND(col, kCndWATERIN) + dc.CND(col, kCndWATEROUT)) / 2, cp, sg, k, mu, err);
  const float water_heat =
      dc.CND(col, kCndGPMUSE) * 500 * sg * cp * (dc.CND(col, kCndWATEROUT) - dc.CND(col, kCndWATERIN));
  return water_heat / dc.CND(col, kCndQUSE);
}

const char* kSurfaceExamples[] = {"AUTOMATIC-SURFACE.JET", "FOUR-STAGE-SURFACE.JET", "METRIC-TWO-STAGE.JET",
                                  "SOLVENT-LOADS-THREE-STAGE.JET", "TWO-STAGE-PRECONDENSER.JET"};

}  // namespace

TEST_F(Condensers, SurfaceCondensersBalanceTheirHeatAndStayInPhysicalRanges) {
  for (const char* file : kSurfaceExamples) {
    ASSERT_TRUE(Design(file)) << file;
    EXPECT_TRUE(ui.notices.empty()) << file << ": " << (ui.notices.empty() ? "" : ui.notices[0]);
    for (int col : Present()) {
      const auto cnd = [&](int row) { return dc.CND(col, row); };
      float cp = 0, sg = 0, k = 0, mu = 0;
      int16_t err = 0;
      WaterProperties((cnd(kCndWATERIN) + cnd(kCndWATEROUT)) / 2, cp, sg, k, mu, err);
      const float water_heat = cnd(kCndGPMUSE) * 500 * sg * cp * (cnd(kCndWATEROUT) - cnd(kCndWATERIN));
      EXPECT_NEAR(water_heat / cnd(kCndQUSE), 1.0, 0.02) << file << " column " << col;
      EXPECT_GE(cnd(kCndPCTQ), 0.99) << file << " column " << col;
      EXPECT_LE(cnd(kCndPCTQ), 1.01) << file << " column " << col;
      EXPECT_GE(cnd(kCndAREA), cnd(kCndAREQSTM) + cnd(kCndAREQVAP) + cnd(kCndAREQSUB) - 1e-3) << file << " " << col;
      EXPECT_GT(cnd(kCndUD), 20) << file << " column " << col;
      EXPECT_LT(cnd(kCndUD), 400) << file << " column " << col;
      EXPECT_GT(cnd(kCndVEL), 0.5) << file << " column " << col;
      EXPECT_LT(cnd(kCndVEL), 10) << file << " column " << col;
      // A standard shell: an even size below 25 in.
      EXPECT_EQ(std::fmod(cnd(kCndOD), 2.0f), 0) << file << " column " << col;
      EXPECT_GT(cnd(kCndDELTAP), 0);
      EXPECT_EQ(cnd(kCndQNOSUB), cnd(kCndQTOTAL)) << "the driver's heat load and the run's agree";
      EXPECT_GT(cnd(kCndTCOND), cnd(kCndTSAT));
      EXPECT_GT(cnd(kCndDIM1), 0) << "an outline for a sized shell";
    }
    EXPECT_GT(dc.TOTALS(kTotalWater), 0);
  }
}

TEST_F(Condensers, BarometricCondensersTakeTheirDimensionsFromTheTable) {
  ASSERT_TRUE(Design("THREE-STAGE-DIRECT-CONTACT.JET"));
  const auto& baro = kestrane::testing::ShippedData().constants.BAROTAB;
  for (int col : Present()) {
    const float od = dc.CND(col, kCndOD);
    ASSERT_GT(od, 0);
    bool row_found = false;
    for (int i = 1; i <= baro.hi1(); ++i) {
      if (baro(i, 1) == od && baro(i, 5) == dc.CND(col, kCndBAROA) && baro(i, 4) == dc.CND(col, kCndBAROF)) {
        row_found = true;
        EXPECT_EQ(dc.CND(col, kCndBAROE), baro(i, 7) + baro(i, 8));
      }
    }
    EXPECT_TRUE(row_found) << col;
    EXPECT_EQ(dc.CND(col, kCndDELTAP), 7.0f);
    EXPECT_GT(dc.CND(col, kCndQSUB), 0) << "direct contact subcools the condensate";
    EXPECT_EQ(dc.CND(col, kCndAREA), 0);
  }
}

TEST_F(Condensers, NothingCondensingShowsItsMessageOnceAndChangesNoResult) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  const float od = dc.CND(kCondAC, kCndOD);
  // Only air reaches the after condenser.
  for (int v = 1; v <= kMaxLoads; ++v) {
    dc.CNDLOAD(v, 1, kCondAC) = v == 2 ? 25.0f : 0.0f;
    dc.CNDLOAD(v, 2, kCondAC) = dc.CNDLOAD(v, 1, kCondAC);
  }
  ui.notices.clear();
  std::array<int16_t, 14> warnings{};
  EXPECT_EQ(Redesign(kCondAC, warnings), 0);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"ERROR: NOTHING CONDENSING !!!!!!!!!!!!!!!!"});
  EXPECT_EQ(dc.CND(kCondAC, kCndOD), od);
}

TEST_F(Condensers, APinchCloseToTheOnsetLowersTheWaterOutletForGood) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  const float onset = dc.CND(kCondC2, kCndCTSTEAM);
  ASSERT_GT(onset, 0);
  dc.CNDIN(kCondC2, 6) = onset - 2;
  std::array<int16_t, 14> warnings{};
  ui.notices.clear();
  EXPECT_EQ(Redesign(kCondC2, warnings), 0);
  EXPECT_NEAR(dc.CNDIN(kCondC2, 6), onset - 5, 1e-3);
  EXPECT_NEAR(dc.CND(kCondC2, kCndWATEROUT), onset - 5, 1e-3);
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(Condensers, AGivenFlowThatBalancesReportsNoDuty) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  dc.CNDIN(kCondC2, 7) = dc.CND(kCondC2, kCndGPMUSE) * 1.005f;
  std::array<int16_t, 14> warnings{};
  EXPECT_EQ(Redesign(kCondC2, warnings), 0);
  EXPECT_EQ(dc.CND(kCondC2, kCndQUSE), 0);
  EXPECT_EQ(dc.CND(kCondC2, kCndUD), 0);
  dc.CNDIN(kCondC2, 7) = dc.CND(kCondC2, kCndGPMUSE) * 1.2f;
  ui.notices.clear();
  EXPECT_EQ(Redesign(kCondC2, warnings), 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"Qliquid vs Qvapor differs by > 2% !!!..QLIQUID=0   QVAPOR=0"});
}

TEST_F(Condensers, BadWaterDataIsReportedOnceAndEndsTheRun) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  std::array<int16_t, 14> warnings{};
  dc.CNDIN(kCondAC, 5) = 0;
  ui.notices.clear();
  EXPECT_EQ(Redesign(kCondAC, warnings), 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"Inlet liquid temp must be input........"});
  EXPECT_EQ(reason, "no cooling water inlet temperature");
  dc.CNDIN(kCondAC, 5) = 85;
  dc.CNDIN(kCondAC, 6) = 80;
  ui.notices.clear();
  EXPECT_EQ(Redesign(kCondAC, warnings), 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"Outlet liquid temp <= Inlet temp? why?."});
  EXPECT_EQ(reason, "water outlet not above its inlet");
  dc.CNDIN(kCondAC, 6) = 115;
  EXPECT_EQ(Redesign(kCondAC, warnings), 0);
  EXPECT_EQ(reason, "") << "a run that ends well has no reason";
}

TEST_F(Condensers, AnArithmeticFaultIsTrappedWithItsErrorNumber) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  // No gas at all: the mean molecular weight of nothing.
  for (int v = 2; v <= kMaxLoads; ++v) dc.CNDLOAD(v, 1, kCondC2) = dc.CNDLOAD(v, 2, kCondC2) = 0;
  std::array<int16_t, 14> warnings{};
  ui.notices.clear();
  EXPECT_EQ(Redesign(kCondC2, warnings), 1);
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0], "Error during Condenser Calculation: Error # 6");
  EXPECT_EQ(reason, "Error # 6 Overflow");
}

TEST_F(Condensers, ResultsShowTheCondensersModelAndWater) {
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET"));
  const DesignContext& c = ctx;
  const auto results = FillResults(c, false);
  ASSERT_EQ(results.condensers.columns.size(), 3u);
  const std::string model = results.condensers.columns[0][0];
  EXPECT_EQ(model, GeneralText(dc.CND(kCondC1, kCndOD)) + "x" + GeneralText(dc.CND(kCondC1, kCndTL)) + "BEM");
  EXPECT_EQ(results.condensers.columns[2][2], FormatFixed(dc.CND(kCondAC, kCndGPMUSE), 6.1f));
}

// --- Layout -------------------------------------------------------------------

TEST_F(Condensers, PassesAndTubeCountsFollowTheirTables) {
  std::array<int16_t, 14> warnings{};
  CondenserRun run(ctx, warnings);
  PassLayout p = AdjustPasses(run, 3);
  EXPECT_EQ(p.passes, 3);
  EXPECT_EQ(p.lanes1, 2);
  p = AdjustPasses(run, 7);
  EXPECT_EQ(p.passes, 8) << "no 7 pass row";
  EXPECT_EQ(AdjustPasses(run, 20).passes, 16);
  run.shell_code = 3;
  EXPECT_EQ(AdjustPasses(run, 3).passes, 4) << "shell codes 2 to 4 take even passes";
  run.shell_code = 1;
  // The circle for a tube count holds that many tubes.
  for (float tubes : {20.0f, 100.0f, 500.0f}) {
    const float d = TubeCircle(run, tubes, 1, 0, 0);
    EXPECT_NEAR(TubeCount(run, d, 1, 0, 0), tubes, 1) << tubes;
  }
  // More passes take room for lanes.
  EXPECT_LT(TubeCount(run, 10, 4, 3, 0), TubeCount(run, 10, 1, 0, 0));
}

TEST_F(Condensers, BarometricSizeBetweenRowsIsInterpolatedAndCastIronIsLimited) {
  std::array<int16_t, 14> warnings{};
  CondenserRun run(ctx, warnings);
  run.P1 = 100;
  run.P2 = 95;
  run.GPMUSE = 13000;  // size 104 by water flow, between the table's 96 and nothing
  run.QVO = 1;
  run.QVI = 1;
  SizeBarometric(run);
  EXPECT_EQ(run.OD, 104);
  for (int k = 1; k <= 7; ++k) EXPECT_EQ(std::fmod(run.baro[static_cast<size_t>(k)], 0.25f), 0) << k;
  EXPECT_GT(run.baro[6], 292) << "F grows beyond the 96 in. row";

  CondenserRun cast(ctx, warnings);
  cast.process_material = 20;
  cast.P1 = 100;
  cast.P2 = 95;
  cast.GPMUSE = 300;  // size 18: not made in cast iron
  cast.QVO = 1;
  cast.QVI = 1;
  ui.notices.clear();
  SizeBarometric(cast);
  EXPECT_EQ(cast.OD, 18);
  EXPECT_EQ(ui.notices, std::vector<std::string>{" BAROMETRIC SIZE NOT AVAILABLE IN CAST IRON!"});
  for (int k = 1; k <= 7; ++k) EXPECT_EQ(cast.baro[static_cast<size_t>(k)], 0);
}

// --- Condensing in the tubes ----------------------------------------------------

namespace {

// The checks every condenser designed with condensing in the tubes must pass.
void ExpectTubeSideDesign(const DesignCase& dc, int col, const std::string& where) {
  const auto cnd = [&](int row) { return dc.CND(col, row); };
  EXPECT_EQ(cnd(kCndIVERT), 1) << where;
  EXPECT_GT(cnd(kCndQTOTAL), 0) << where;
  EXPECT_GT(cnd(kCndQSUB), 0) << where << ": the condensate is subcooled in the tubes";
  EXPECT_EQ(cnd(kCndQUSE), cnd(kCndQTOTAL) + cnd(kCndQSUB)) << where;
  // The water in the shell carries the duty, subcooling included.
  EXPECT_NEAR(HeatBalance(dc, col), 1.0, 0.002) << where;
  const float required = cnd(kCndAREQSTM) + cnd(kCndAREQVAP) + cnd(kCndAREQSUB);
  EXPECT_GT(cnd(kCndAREQSUB), 0) << where;
  EXPECT_GE(cnd(kCndAREA), required) << where << ": the surface covers what the duty needs";
  EXPECT_NEAR(cnd(kCndAREA), cnd(kCndTL) * cnd(kCndTUBES) * 0.75f / 12 * 3.14159265f, 1e-3) << where;
  EXPECT_EQ(std::fmod(cnd(kCndTL), 2.0f), 0) << where;
  EXPECT_GE(cnd(kCndPCTQ), 0.99) << where;
  EXPECT_LE(cnd(kCndPCTQ), 1.01) << where;
  EXPECT_GT(cnd(kCndOD), 0) << where;
  EXPECT_LE(cnd(kCndOD), 120) << where;
  EXPECT_EQ(std::fmod(cnd(kCndOD), 2.0f), 0) << where;
  EXPECT_GE(cnd(kCndDOMECALC), 0) << where << ": the kept shell holds its tubes";
  EXPECT_GT(cnd(kCndVEL), 0) << where;
  EXPECT_GT(cnd(kCndDELTAP), 0) << where << ": the shell side drop of the water";
  EXPECT_GT(cnd(kCndUD), 20) << where;
  EXPECT_LT(cnd(kCndUD), 400) << where;
}

}  // namespace

TEST_F(Condensers, TubeSideExampleDesignsEveryCondenser) {
  ASSERT_TRUE(Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET"));
  ASSERT_EQ(dc.CNDTS, 1);
  EXPECT_EQ(outcome.errors, std::vector<std::string>{});
  EXPECT_TRUE(ui.notices.empty()) << (ui.notices.empty() ? "" : ui.notices[0]);
  ASSERT_EQ(Present(), (std::vector<int>{kCondC2, kCondAC}));
  for (int col : Present()) ExpectTubeSideDesign(dc, col, "column " + std::to_string(col));
}

TEST_F(Condensers, ThreeStageSolventCaseDesignsAllCondensersWithCondensingInTheTubes) {
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET", true));
  ASSERT_EQ(dc.CNDTYPE, 1);
  ASSERT_EQ(dc.CNDTS, 1);
  EXPECT_EQ(outcome.errors, std::vector<std::string>{});
  EXPECT_TRUE(outcome.results);
  ASSERT_EQ(Present(), (std::vector<int>{kCondC1, kCondC2, kCondAC}));
  for (int col : Present()) {
    ExpectTubeSideDesign(dc, col, "column " + std::to_string(col));
    EXPECT_GT(dc.CND(col, kCndPPHCVIN), 0) << col << ": the solvent vapors reach every condenser";
  }
  EXPECT_GT(dc.TOTALS(kTotalWater), 0);
}

TEST_F(Condensers, AKeptShellThatLosesItsDomeIsWarned) {
  ASSERT_TRUE(Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET"));
  // The closing tests fill the kept shell with tubes: no room is left for the inlet dome.
  std::array<int16_t, 14> warnings{};
  ASSERT_EQ(Redesign(kCondC2, warnings), 0) << reason;
  EXPECT_GT(dc.CND(kCondC2, kCndDOME), dc.CND(kCondC2, kCndDOMECALC));
  EXPECT_EQ(warnings[2], 3);
  EXPECT_EQ(warnings[0], 0) << "the area is not short";
  EXPECT_EQ(warnings[1], 0) << "no shell was asked for";
  // Condensing on the shell side has no dome: the same loads give no such warning.
  dc.CNDTS = 0;
  warnings.fill(0);
  ASSERT_EQ(Redesign(kCondC2, warnings), 0) << reason;
  EXPECT_EQ(dc.CND(kCondC2, kCndDOME), 0);
  EXPECT_EQ(warnings[2], 0);
}

TEST_F(Condensers, AForcedShellStandsWhileItHoldsTheTubesAndIsDroppedWhenItDoesNot) {
  std::array<int16_t, 14> warnings{};
  CondenserRun run(ctx, warnings);
  run.tube_side = true;
  run.PASS = 1;
  run.TUBES = 100;
  SelectShell(run);
  const float first = run.OD;
  const float room = run.DOMECALC;
  ASSERT_GE(run.NMAX, run.TUBES);
  EXPECT_EQ(run.forced_shell, 0) << "nothing forced, nothing kept by the selection itself";

  // The same shell forced: a dome it cannot give does not grow it while it holds the tubes.
  run.forced_shell = first;
  run.DOME = room + 50;
  SelectShell(run);
  EXPECT_EQ(run.OD, first);
  EXPECT_EQ(run.forced_shell, first);
  EXPECT_LT(run.DOMECALC, run.DOME);
  EXPECT_GE(run.DOMECALC, 0);

  // Without the forcing the dome grows the shell.
  run.forced_shell = 0;
  run.OTL = 0;
  SelectShell(run);
  EXPECT_GT(run.OD, first);
  EXPECT_GE(run.DOMECALC, run.DOME);

  // More tubes than the forced shell holds: the forcing is dropped and the shell grows to hold them.
  run.forced_shell = first;
  run.DOME = 0;
  run.TUBES = 4 * 100;
  SelectShell(run);
  EXPECT_EQ(run.forced_shell, 0);
  EXPECT_GT(run.OD, first);
  EXPECT_GE(run.NMAX, run.TUBES);
  EXPECT_GE(run.DOMECALC, 0);
}
