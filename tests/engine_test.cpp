// The design engine: stage model, flash, searches, stage results, the run driver and the results screen.
#include <gtest/gtest.h>

#include <cmath>

#include "case/jet_file.h"
#include "engine/design_run.h"
#include "engine/optimiser.h"
#include "engine/results.h"
#include "engine/stage_model.h"
#include "engine/stage_results.h"
#include "properties/numeric.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

const AppData& Data() { return kestrane::testing::ShippedData(); }

class Engine : public ::testing::Test {
 protected:
  Engine() : screen(NewCase()), ctx{dc, Data(), screen, pinterfix, ui} {}

  // Loads and runs an example case; true when the input check passed.
  bool Design(const std::string& file) {
    InputScreen read = NewCase();
    if (!OpenCase(kExamples / file, read, ui)) return false;
    screen = read;
    return RunDesign(ctx, screen).input_error == 0;
  }
  // A record with water and air loads, as the input check leaves it.
  void WaterAndAir(float water, float air) {
    dc.NLOADS = 2;
    dc.LOADS(kLoadPPH, 1) = water;
    dc.LOADS(kLoadMW, 1) = 18;
    dc.LOADS(kLoadPPH, 2) = air;
    dc.LOADS(kLoadMW, 2) = 29;
    dc.LATENT(1) = 1100;
  }
  LoadVector Loads(std::initializer_list<float> flows) {
    LoadVector loads = NewLoadVector();
    int load = 1;
    for (float f : flows) loads(load++) = f;
    return loads;
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
};

}  // namespace

// --- Loads ------------------------------------------------------------------

TEST_F(Engine, VaporEquivalentIsOneForSteamAndPointEightForAirAtSeventyF) {
  WaterAndAir(100, 100);
  EXPECT_NEAR(VaporEquivalent(ctx, Loads({100, 0}), 70), 100.0, 1e-3);
  EXPECT_NEAR(VaporEquivalent(ctx, Loads({0, 100}), 70), 80.0, 1e-3);
  // Hotter gas is harder to entrain: more equivalent steam.
  EXPECT_GT(VaporEquivalent(ctx, Loads({100, 100}), 200), VaporEquivalent(ctx, Loads({100, 100}), 70));
  // Hydrogen (MW 2) entrains far worse than air per pound.
  dc.LOADS(kLoadMW, 2) = 2.016f;
  EXPECT_GT(VaporEquivalent(ctx, Loads({0, 10}), 70), 10 * 0.8 / 0.22);
}

TEST_F(Engine, FlashFollowsDaltonsLaw) {
  WaterAndAir(100, 29);  // one mole of air
  dc.LOADS(kLoadVPC2, 1) = 20;
  LoadVector loads = Loads({100, 29});
  LoadVector vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 1);
  // Water leaves at its partial pressure: 20 / (100 - 20) moles per mole of air.
  EXPECT_NEAR(loads(1), 0.25 * 18, 1e-4);
  EXPECT_EQ(loads(2), 29);

  // Too little water to saturate the gas: it stays as it came, and counts as gas.
  LoadVector dry = Loads({2, 29});
  vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, dry, vp, 100, 1);
  EXPECT_EQ(dry(1), 2);
  EXPECT_EQ(vp(1), 0);
}

TEST_F(Engine, KeptWaterEvaporatesToSaturationWhenAbsent) {
  WaterAndAir(0, 29);
  dc.LOADS(kLoadVPC2, 1) = 20;
  LoadVector loads = Loads({0, 29});
  LoadVector vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 1);
  EXPECT_EQ(loads(1), 0) << "no key without the flag";
  dc.KEEPWATERC = 1;
  vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 1);
  EXPECT_NEAR(loads(1), 4.5, 1e-4) << "a direct contact condenser saturates the gas";
  loads(1) = 0;
  vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 2);
  EXPECT_EQ(loads(1), 0) << "the pump flag is another";
}

TEST_F(Engine, AVaporThatCannotCondenseJoinsTheGasAndTheOthersAreRedone) {
  // Water condenses; a light solvent with little flow cannot and raises the gas moles.
  WaterAndAir(100, 29);
  dc.NLOADS = 3;
  dc.LOADS(kLoadPPH, 3) = 1;
  dc.LOADS(kLoadMW, 3) = 58;
  dc.LOADS(kLoadVPC2, 1) = 20;
  dc.LOADS(kLoadVPC2, 3) = 40;
  LoadVector loads = Loads({100, 29, 1});
  LoadVector vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 1);
  EXPECT_EQ(loads(3), 1);
  EXPECT_EQ(vp(3), 0);
  // The gas now holds 1 + 1/58 moles.
  EXPECT_NEAR(loads(1), (1 + 1.0 / 58) * 18 * 20 / 80, 1e-3);
}

TEST_F(Engine, MiscibleLoadsGoThroughTheirBalanceQuietly) {
  WaterAndAir(100, 29);
  dc.NLOADS = 3;
  dc.LOADS(kLoadPPH, 3) = 10;
  dc.LOADS(kLoadMW, 3) = 46;
  dc.LOADS(kLoadVPC2, 3) = 30;
  dc.LOADS(kLoadMISCIBLE, 3) = 1;
  dc.LOADS(kLoadVPC2, 1) = 20;
  LoadVector loads = Loads({100, 29, 10});
  LoadVector vp = FillVaporPressures(ctx, kLoadVPC2);
  FlashLoads(ctx, loads, vp, 100, 1);
  EXPECT_TRUE(std::isfinite(loads(1)));
  EXPECT_NEAR(loads(3), 10, 1e-4);
  EXPECT_LT(loads(1), 100) << "water still condenses beside the pool";
  EXPECT_TRUE(ui.notices.empty());
}

// --- Stage model ------------------------------------------------------------

TEST_F(Engine, EfficiencyCurveUsesItsLinesAndEnds) {
  const auto& lines = Data().curves.EFFLINES;
  auto line = [&](int k, double cr) {
    const double l = std::log(cr);
    double sum = 0;
    for (int p = 4; p >= 0; --p) sum = sum * l + lines(k, 2 + p);
    return std::exp(sum);
  };
  EXPECT_NEAR(EfficiencyCurve(ctx, 600, 1.3f), line(8, 1.3f), 1e-3);
  EXPECT_NEAR(EfficiencyCurve(ctx, 700, 1.2f), line(8, 1.2f), 1e-3) << "above 600 line 8 alone";
  EXPECT_NEAR(EfficiencyCurve(ctx, 90, 4), line(7, 4), 1e-3) << "exactly on line 7";
  const float between = EfficiencyCurve(ctx, 50, 4);
  EXPECT_GT(between, std::min(line(6, 4), line(7, 4)) - 1e-3);
  EXPECT_LT(between, std::max(line(6, 4), line(7, 4)) + 1e-3);
  EXPECT_TRUE(std::isfinite(EfficiencyCurve(ctx, 0.01f, 5))) << "extrapolates below line 1";
}

TEST_F(Engine, MotiveCorrectionIsOneAtHundredPsigAndCreditsHigherPressureUpTo200) {
  EXPECT_EQ(MotiveCorrection(ctx, 200, 100), 1.0f);
  const float f150 = MotiveCorrection(ctx, 200, 150);
  EXPECT_LT(f150, 1.0f);
  EXPECT_GT(MotiveCorrection(ctx, 200, 60), 1.0f);
  EXPECT_EQ(MotiveCorrection(ctx, 200, 250), MotiveCorrection(ctx, 200, 200));
  EXPECT_LT(MotiveCorrection(ctx, 200, 200), f150);
}

TEST_F(Engine, DesignStageSizesATypicalStage) {
  const StageDesign st = DesignStage(ctx, 50, 200, 150, 0, 100);
  EXPECT_EQ(st.balance.failed, 0);
  EXPECT_GT(st.ML, 0.5);
  EXPECT_LT(st.ML, 5);
  EXPECT_GT(st.THROAT, 0.3);
  EXPECT_EQ(st.SIZE, SizeFromThroat(ctx, st.THROAT));
  // Four times the load: about twice the throat, and a larger ejector needs a little less motive per load.
  const StageDesign big = DesignStage(ctx, 50, 200, 150, 0, 400);
  EXPECT_NEAR(big.THROAT / st.THROAT, 2.0, 0.15);
  EXPECT_LT(big.ML, st.ML);
  EXPECT_GT(big.ML, st.ML * 0.85);
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(Engine, SizeFromThroatPicksTheRowAtOrAboveAndScalesBeyondTheTable) {
  EXPECT_EQ(SizeFromThroat(ctx, 0.98f), 10);
  EXPECT_EQ(SizeFromThroat(ctx, 0.981f), 12);
  EXPECT_EQ(SizeFromThroat(ctx, 0.1f), 1);
  EXPECT_EQ(SizeFromThroat(ctx, 3.56f), 130);
  EXPECT_EQ(SizeFromThroat(ctx, 3.57f), 360) << "385 (3.57 / 3.85)^2 1.1 = 364, to 10";
}

// --- Stage results ----------------------------------------------------------

TEST_F(Engine, PipesAndConnections) {
  EXPECT_EQ(PipeLookup(ctx, 2.0f).nominal, 2.5f);
  EXPECT_FLOAT_EQ(PipeLookup(ctx, 2.0f).od, 2.875f);
  EXPECT_EQ(PipeLookup(ctx, 23.3f).nominal, 26.0f);
  EXPECT_EQ(PipeLookup(ctx, 23.3f).wall, 0.5f);
  EXPECT_FLOAT_EQ(PipeByNominal(ctx, 6).od, 6.625f);
  Pipe pipe;
  const float vel = PipeSize(ctx, 1.0f, pipe, 100, 1.5f);
  EXPECT_EQ(pipe.nominal, 1.5f) << "the minimum size";
  EXPECT_NEAR(vel, 1.0 / (3.14159 * std::pow(1.5 / 12, 2) / 4), 1e-2);
  float s = -1, d = -1;
  ConnectionsFromSize(ctx, 140, s, d);
  EXPECT_EQ(s, 0);
  EXPECT_EQ(d, 0);
  ConnectionsFromSize(ctx, 90, s, d);
  EXPECT_EQ(s, 8);
  EXPECT_EQ(d, 6);
}

TEST_F(Engine, MaxVelocityStaysWithinItsLimits) {
  for (float p : {1.0f, 25.4f, 100.0f, 400.0f, 800.0f}) {
    for (float mw : {2.0f, 18.0f, 29.0f, 150.0f}) {
      const float v = MaxVelocity(ctx, p, 100, mw);
      EXPECT_GE(v, 100) << p << " " << mw;
      EXPECT_LE(v, 400) << p << " " << mw;
    }
  }
  EXPECT_FLOAT_EQ(MaxVelocity(ctx, 254, 70, 18), 264.0f) << "10 inHg on the curve, standard gas";
}

TEST_F(Engine, EjectorBodiesComeFromTheTableOrTheFormula) {
  dc.STG(kStageB, kStgSIZE) = 10;
  dc.STG(kStageB, kStgDIAM) = 1;
  EjectorDimensions(ctx, kStageB);
  EXPECT_EQ(dc.STG(kStageB, kStgDIMA), 5.5f);
  EXPECT_EQ(dc.STG(kStageB, kStgDIMB), 5.3125f);
  EXPECT_EQ(dc.STG(kStageB, kStgDIMC), 32 - 5.3125f);
  dc.STG(kStageB, kStgDIAM) = 3;
  EjectorDimensions(ctx, kStageB);
  EXPECT_EQ(dc.STG(kStageB, kStgDIMB), 9.3125f);
  EXPECT_EQ(dc.STG(kStageB, kStgDIMC), 36 - 9.3125f);
  dc.STG(kStageA, kStgSIZE) = 360;
  dc.STG(kStageA, kStgTHROAT) = 3.57f;
  dc.STG(kStageA, kStgBTU35) = 4.0f;
  dc.STG(kStageA, kStgDIAS) = 10;
  dc.STG(kStageA, kStgDIAD) = 8;
  dc.STG(kStageA, kStgDIAM) = 2;
  EjectorDimensions(ctx, kStageA);
  EXPECT_EQ(dc.STG(kStageA, kStgDIMA), 13.0f);
  EXPECT_EQ(dc.STG(kStageA, kStgDIMB), 11.0f);
  EXPECT_GT(dc.STG(kStageA, kStgDIMC), 0);
  EXPECT_EQ(dc.STG(kStageA, kStgDIMC) + 11.0f, std::round(dc.STG(kStageA, kStgDIMC) + 11.0f));
}

TEST_F(Engine, StandardCondenserOutlinesComeFromTheirTable) {
  dc.CND(kCondC2, kCndOD) = 12;
  dc.CND(kCondC2, kCndTL) = 10;
  dc.CND(kCondC2, kCndPASS) = 2;
  dc.CND(kCondC2, kCndISTANDARD) = 1;
  dc.CND(kCondC2, kCndDIAVI) = 6;
  CondenserOutline(ctx, kCondC2);
  EXPECT_EQ(dc.CND(kCondC2, kCndDIM1), 146);
  EXPECT_EQ(dc.CND(kCondC2, kCndDIM1 + 6), 9);
  EXPECT_EQ(dc.CND(kCondC2, kCndDIM1 + 7), 6) << "dim #8 is the vapor inlet";
  EXPECT_EQ(CondenserModel(ctx, kCondC2), "12x10BEM");
  screen.lists[kInletHead] = 1;
  screen.lists[kReturnHead] = 1;
  EXPECT_EQ(CondenserModel(ctx, kCondC2), "12x10AEL");
}

// --- Searches and runs on the example cases ---------------------------------

TEST_F(Engine, EveryExampleWithoutAPumpDesignsToFiniteNumbers) {
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    const std::string name = entry.path().filename().string();
    if (entry.path().extension() != ".JET" || name.find("LRVP") != std::string::npos) continue;
    dc = DesignCase();
    pinterfix = 0;
    ASSERT_TRUE(Design(entry.path().filename().string())) << entry.path();
    ASSERT_EQ(dc.LRVPERR, 0);
    for (int c = 1; c <= dc.NSTAGES; ++c) {
      for (int r = 1; r <= kStageRows; ++r) EXPECT_TRUE(std::isfinite(dc.STG(c, r))) << entry.path() << " " << c << " " << r;
      const float ml = dc.STG(c, kStgML), ve = dc.STG(c, kStgVE), motive = dc.STG(c, kStgMOTIVE);
      const float margin = c == kStageC ? kMarginC : c == kStageB ? kMarginB : kMarginA;
      if (c == kStageC && ml * ve * margin < kMotiveFloor) {
        EXPECT_EQ(motive, kFlooredMotive) << entry.path();
      } else {
        EXPECT_EQ(motive, ml * ve * margin) << entry.path() << " stage " << c;
      }
      EXPECT_GT(dc.STG(c, kStgPOUT), dc.STG(c, kStgPIN)) << entry.path() << " stage " << c;
      if (c > 1) {
        // Each stage discharges into the next one's suction, through a condenser's 5 % at most.
        EXPECT_GE(dc.STG(c, kStgPOUT), dc.STG(c - 1, kStgPIN)) << entry.path() << " stage " << c;
        EXPECT_GE(dc.STG(c - 1, kStgPIN), dc.STG(c, kStgPOUT) * 0.95f - 1e-3f) << entry.path() << " stage " << c;
      }
    }
    for (int k = 1; k <= 12; ++k) EXPECT_TRUE(std::isfinite(dc.TOTALS(k))) << entry.path();
    float total = 0;
    for (int c = 1; c <= dc.NSTAGES; ++c) total += dc.STG(c, kStgMOTIVE);
    EXPECT_EQ(dc.TOTALS(kTotalMotive), total);
  }
}

TEST_F(Engine, TheChosenTwoStagePressureIsNotBeatenByMuchNearby) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  ASSERT_EQ(dc.NSTAGES, 2);
  const float pb = dc.STG(kStageB, kStgPOUT);
  // The two stage total at a B-C pressure, as the search evaluates it.
  auto total_at = [&](float p) {
    LoadVector loads = NewLoadVector();
    for (int load = 1; load <= kMaxLoads; ++load) loads(load) = dc.STGLOAD(load, kStageB);
    const float ve = dc.STG(kStageB, kStgVE);
    const StageDesign b = DesignStage(ctx, dc.STG(kStageB, kStgPIN), p, dc.PMOTIVE, dc.TMOTIVE, ve);
    const float mb = b.ML * ve * kMarginB;
    loads(1) += mb;
    const float p2 = static_cast<float>(p * 0.95);
    LoadVector vp = FillVaporPressures(ctx, kLoadVPC2);
    FlashLoads(ctx, loads, vp, p2, 1);
    const float ve2 = VaporEquivalent(ctx, loads, dc.TSATC2);
    const StageDesign c = DesignStage(ctx, p2, dc.STG(kStageC, kStgPOUT), dc.PMOTIVE, dc.TMOTIVE, ve2);
    return mb + LastStageMotive(c.ML, ve2);
  };
  const float chosen = total_at(pb);
  EXPECT_NEAR(chosen, dc.TOTALS(kTotalMotive), 1e-2);
  for (float p : {pb - 1, pb + 1}) EXPECT_GT(total_at(p), chosen * 0.97f) << p;
}

TEST_F(Engine, AFourStageRunFixesTheABPressureForALaterThreeStageRun) {
  ASSERT_TRUE(Design("FOUR-STAGE-SURFACE.JET"));
  ASSERT_EQ(dc.NSTAGES, 4);
  ASSERT_GT(pinterfix, 0);
  EXPECT_EQ(dc.STG(kStageA, kStgPOUT), pinterfix);
  const float fixed = pinterfix;
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET"));
  ASSERT_EQ(dc.NSTAGES, 3);
  EXPECT_EQ(dc.STG(kStageA, kStgPOUT), fixed) << "no search: the carried pressure stands";
  pinterfix = 0;
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET"));
  EXPECT_NE(dc.STG(kStageA, kStgPOUT), fixed);
}

TEST_F(Engine, TheAfterCondenserTakesTheTwentyFiveMillimetresBack) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  EXPECT_EQ(dc.STG(kStageC, kStgPOUT), dc.PDISCH + 25);
  EXPECT_EQ(dc.CND(kCondAC, kCndPIN), dc.PDISCH + 25);
  EXPECT_EQ(dc.CND(kCondAC, kCndPOUT), dc.PDISCH);
  ASSERT_TRUE(Design("ONE-STAGE-NO-CONDENSERS.JET"));
  EXPECT_EQ(dc.STG(kStageC, kStgPOUT), dc.PDISCH);
}

TEST_F(Engine, ARunShowsItsStatusTextsInOrder) {
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET"));
  EXPECT_EQ(ui.statuses, (std::vector<std::string>{
                             "Calculating..... ", "Calculating.....three stage design... ",
                             "Calculating.....condenser heat loads... ", "Calculating.....velocities... ",
                             "Calculating.....efficiencies... ", "Calculating.....condenser # 1",
                             "Calculating.....condenser # 2", "Calculating.....condenser # 3"}));
  EXPECT_EQ(dc.PSUCT, dc.STG(kStageA, kStgPIN)) << "the stage curves leave the last suction they worked on in PSUCT";
}

TEST_F(Engine, PrecondenserAdviceFollowsWhatCondenses) {
  // At 85 F water nothing condenses at 38 mmHg: the selected precondenser is dropped.
  InputScreen s = NewCase();
  RecordingUi read_ui;
  ASSERT_TRUE(OpenCase(kExamples / "TWO-STAGE-PRECONDENSER.JET", s, read_ui));
  s.txtInput[5] = "85";
  screen = s;
  ASSERT_EQ(RunDesign(ctx, screen).input_error, 0);
  EXPECT_EQ(dc.HASC1, 0);
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_EQ(ui.notices[0].substr(0, 60), "The precondenser doesn't reduce the load since nothing conde");
  EXPECT_EQ(ui.notices[0].substr(ui.notices[0].size() - 4), "\r\n\r\n");

  // Cold water and no precondenser asked: the advice suggests one.
  ui.notices.clear();
  s.txtInput[5] = "45";
  s.chkboxPreCondenser = 0;
  screen = s;
  ASSERT_EQ(RunDesign(ctx, screen).input_error, 0);
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_EQ(ui.notices[0], "You may wish to consider a precondenser which will lower vacuum system utility "
                           "requirements.\r\n  Select the precondenser option from the main input menu.\r\n\r\n");
}

TEST_F(Engine, AnnualSteamCostFollowsTheUnitsPrice) {
  ASSERT_TRUE(Design("AUTOMATIC-SURFACE.JET"));
  EXPECT_FLOAT_EQ(dc.TOTALS(kTotalSteamCost), dc.TOTALS(kTotalMotive) * 8000 / 1000 * 5);
  EXPECT_EQ(dc.TOTALS(kTotalAnnualCost),
            dc.TOTALS(kTotalWaterCost) + dc.TOTALS(kTotalSteamCost) + dc.TOTALS(kTotalPowerCost));
  ASSERT_TRUE(Design("METRIC-TWO-STAGE.JET"));
  EXPECT_NEAR(dc.TOTALS(kTotalSteamCost), dc.TOTALS(kTotalMotive) * 8 * (5.5 / 2.205), 0.01);
}

// --- Results ------------------------------------------------------------------

TEST_F(Engine, ResultsBlocksCarryTheirCaptionsAndFormats) {
  ASSERT_TRUE(Design("SOLVENT-LOADS-THREE-STAGE.JET"));
  const ResultsScreen standard = FillResults(ctx, false);
  EXPECT_EQ(standard.utilities.captions[0], "Total Motive Steam (#/hr)");
  EXPECT_EQ(standard.utilities.columns[0][0], FormatFixed(dc.TOTALS(kTotalMotive), 8.0f));
  ASSERT_EQ(standard.ejectors.columns.size(), 3u);
  EXPECT_EQ(standard.ejectors.heads, (std::vector<std::string>{"A", "B", "C"}));
  EXPECT_EQ(standard.ejectors.columns[0][0], "A-" + Trim(GeneralText(dc.STG(kStageA, kStgSIZE))));
  EXPECT_EQ(standard.ejectors.columns[2][2], FormatFixed(dc.STG(kStageC, kStgDIAS), 12.2f));
  EXPECT_EQ(standard.condensers.heads, (std::vector<std::string>{"C1", "C2", "AC"}));
  const ResultsScreen metric = FillResults(ctx, true);
  EXPECT_EQ(metric.utilities.captions[1], "Total Water (M3/hr)");
  EXPECT_EQ(metric.ejectors.captions[1], "Motive (kg/hr)");
  EXPECT_EQ(metric.condensers.captions[3], "Water Inlet / Outlet (degC)");
  const std::string text = ResultsText(standard);
  EXPECT_NE(text.find("Total Motive Steam (#/hr)"), std::string::npos);
  EXPECT_NE(text.find("Water Pressure Drop (psi)"), std::string::npos);
}

TEST_F(Engine, DebuggerGridHasItsRowsAndLabels) {
  ASSERT_TRUE(Design("TWO-STAGE-PRECONDENSER.JET"));
  const auto grid = DebuggerGrid(ctx);
  ASSERT_EQ(grid.size(), 161u);
  EXPECT_EQ(grid[0][1], " <-C------->");
  EXPECT_EQ(grid[0][13], " <------ C1 ------>");
  EXPECT_EQ(grid[1][0], " C1   >B<   C2   >C<   AC ");
  EXPECT_EQ(grid[20][10], " 120dim #4 ");
  EXPECT_EQ(grid[78][10], " 78 WLMTD");
  EXPECT_EQ(grid[105][10], "105 Q NO SUB");
  EXPECT_EQ(grid[158][10], "158 BARO G");
  EXPECT_EQ(grid[160][10], "160 ");
  EXPECT_EQ(grid[1][11], FormatFixed(dc.CND(kCondAC, 1), 12.4f));
  EXPECT_EQ(CondenserRowLabel(159), "159 ");
}

TEST(GridCsv, RowsAreCommaSeparatedAndClosedByABlank) {
  const fs::path path = fs::temp_directory_path() / ("kestrane_grid_" + std::to_string(::getpid()) + ".CSV");
  RecordingUi ui;
  ASSERT_TRUE(WriteGridCsv({{"a", "1"}, {"b", ""}}, path, ui));
  EXPECT_EQ(kestrane::testing::ReadBytes(path), "a,1 \r\nb, \r\n");
  fs::remove(path);
  EXPECT_EQ(GridCsvPath().filename(), "OUT.CSV");
}
