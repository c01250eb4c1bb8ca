// The thorough interstage search, the automatic stage count it chooses, and the advisories on a design.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <string>

#include <nlohmann/json.hpp>

#include "case/check_input.h"
#include "case/jet_file.h"
#include "engine/advisories.h"
#include "engine/design_run.h"
#include "engine/optimiser.h"
#include "engine/stage_trial.h"
#include "engine/thorough_search.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ShippedData;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

// An example case as the program opens it, with some boxes typed anew.
InputScreen Example(const std::string& file, const std::function<void(InputScreen&)>& edit = {}) {
  InputScreen screen = NewCase();
  RecordingUi ui;
  EXPECT_TRUE(OpenCase(kExamples / file, screen, ui)) << file;
  if (edit) edit(screen);
  return screen;
}

// 100 lb/hr of air alone at `psuct` mmHgA, 100 psig saturated motive, cooling
// water in at `water` degF, surface condensers; `stages` 0 automatic, else 1 to 4.
InputScreen AirCase(const char* psuct, const char* water, int stages) {
  return Example("AUTOMATIC-SURFACE.JET", [&](InputScreen& s) {
    s.txtInput[0] = psuct;
    s.txtInput[3] = "100";
    s.txtInput[5] = water;
    s.txtCpph[0] = "0";
    s.txtNCpph[0] = "100";
    SelectOption(s, s.OptionStages, stages == 0 ? 0 : 5 - stages);
  });
}

// A case designed in process: its record, the run's outcome and what the user was told.
struct Designed {
  explicit Designed(InputScreen input, InterstageSearch search = InterstageSearch::kOriginal)
      : screen(std::move(input)), ctx{dc, ShippedData(), screen, pinterfix, ui, search} {
    outcome = RunDesign(ctx, screen);
  }
  float Motive() const { return dc.TOTALS(kTotalMotive); }
  bool Advises(const std::string& text) const {
    for (const std::string& a : outcome.advisories) {
      if (a.find(text) != std::string::npos) return true;
    }
    return false;
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
  DesignOutcome outcome;
};

using DesignPtr = std::unique_ptr<Designed>;
DesignPtr Design(InputScreen screen, InterstageSearch search = InterstageSearch::kOriginal) {
  return std::make_unique<Designed>(std::move(screen), search);
}

const char* const kEjectorExamples[] = {"AUTOMATIC-SURFACE.JET",         "FOUR-STAGE-SURFACE.JET",
                                        "METRIC-TWO-STAGE.JET",          "ONE-STAGE-NO-CONDENSERS.JET",
                                        "SOLVENT-LOADS-THREE-STAGE.JET", "THREE-STAGE-DIRECT-CONTACT.JET",
                                        "TWO-STAGE-PRECONDENSER.JET",    "TWO-STAGE-SURFACE-TUBE-SIDE.JET"};

}  // namespace

// ---- The thorough search against the original one

TEST(ThoroughSearch, NeverNeedsMoreSteamThanTheOriginalOnAnyExampleAtTheSameStageCount) {
  for (const char* file : kEjectorExamples) {
    // The stage count of the original design, chosen, so that both design the same train.
    const DesignPtr original = Design(Example(file));
    const int stages = original->dc.NSTAGES;
    const DesignPtr thorough = Design(Example(file, [&](InputScreen& s) {
      SelectOption(s, s.OptionStages, 5 - stages);
    }), InterstageSearch::kThorough);
    ASSERT_EQ(thorough->dc.NSTAGES, stages) << file;
    EXPECT_LE(thorough->Motive(), original->Motive()) << file;
    EXPECT_EQ(thorough->outcome.errors, original->outcome.errors) << file;
  }
}

TEST(ThoroughSearch, FindsTheLeastSteamOfAFineScanOfTheBToCPressure) {
  // The train handed on stage by stage with the original search's own
  // pieces, at 1500 B-C pressures evenly spaced in log: the thorough search
  // must do as well as the best of them.
  const DesignPtr d = Design(Example("TWO-STAGE-SURFACE-TUBE-SIDE.JET"), InterstageSearch::kThorough);
  const DesignCase& dc = d->dc;
  const float pin = dc.STG(kStageB, kStgPIN), pout = dc.STG(kStageC, kStgPOUT), t = dc.STG(kStageB, kStgTS);
  const LoadVector loads = LoadsOf(dc, kStageB);
  float scan_best = kNoBest;
  for (int i = 1; i < 1500; ++i) {
    const float pb = static_cast<float>(pin * std::pow(pout / pin, i / 1500.0));
    LoadVector gas = loads;
    const StageTrial b = TryStage(d->ctx, pin, pb, VaporEquivalent(d->ctx, gas, t), t, kMarginB, false);
    if (b.design.balance.failed) continue;
    const NextLoad next = NextStageLoad(d->ctx, gas, pb, b.motive, b.td, dc.HASC2 > 0, kLoadVPC2, dc.TSATC2);
    const StageTrial c = TryStage(d->ctx, next.p2, pout, next.ve2, next.t2, kMarginC, true);
    if (!c.design.balance.failed) scan_best = std::min(scan_best, b.motive + c.motive);
  }
  EXPECT_LE(d->Motive(), scan_best * 1.0005f);
  EXPECT_GE(d->Motive(), scan_best * 0.98f) << "the scan and the search price the same trains";
}

TEST(ThoroughSearch, ATrainTriedAtTheOriginalPressuresNeedsTheOriginalStagesSteam) {
  // The thorough search sizes and hands on the load exactly as the original:
  // same margins, floors of the last stage, intercondensers and flash.
  for (const char* file : {"THREE-STAGE-DIRECT-CONTACT.JET", "FOUR-STAGE-SURFACE.JET", "SOLVENT-LOADS-THREE-STAGE.JET",
                           "TWO-STAGE-PRECONDENSER.JET"}) {
    const DesignPtr d = Design(Example(file));
    const DesignCase& dc = d->dc;
    const int n = dc.NSTAGES;
    std::array<float, 3> interstage{};
    for (int k = 0; k + 1 < n; ++k) interstage[static_cast<size_t>(k)] = dc.STG(n - k, kStgPOUT);
    const TrainTrial train = TryTrain(d->ctx, n, dc.STG(n, kStgPIN), dc.STG(kStageC, kStgPOUT), dc.STG(n, kStgTS),
                                      LoadsOf(dc, n), interstage);
    for (int c = 1; c <= n; ++c) {
      EXPECT_FLOAT_EQ(train.stage[static_cast<size_t>(c)].motive, dc.STG(c, kStgMOTIVE)) << file << " stage " << c;
      EXPECT_FLOAT_EQ(train.stage[static_cast<size_t>(c)].pin, dc.STG(c, kStgPIN)) << file << " stage " << c;
    }
  }
}

TEST(ThoroughSearch, RemovesTheJumpsOfSteamAgainstWaterTemperatureAt10mmHgA) {
  // Three stages, 100 lb/hr of air, 100 psig motive: the original search
  // jumps by a third from one degree to the next; the thorough search's
  // steam rises smoothly with warmer water, as the condensers' pressures do.
  float worst_original_jump = 0, last = 0;
  for (int tw = 80; tw <= 100; tw += 2) {
    const std::string water = std::to_string(tw);
    const DesignPtr original = Design(AirCase("10", water.c_str(), 3));
    const DesignPtr thorough = Design(AirCase("10", water.c_str(), 3), InterstageSearch::kThorough);
    EXPECT_LE(thorough->Motive(), original->Motive()) << tw;
    if (last > 0) {
      worst_original_jump = std::max(worst_original_jump, std::fabs(original->Motive() / last - 1));
      EXPECT_GT(thorough->Motive(), last) << tw;
      EXPECT_LT(thorough->Motive(), last * 1.03f) << tw;
    }
    last = thorough->Motive();
  }
  EXPECT_GT(worst_original_jump, 0.25f) << "the sweep no longer shows the original search's jumps";
}

TEST(ThoroughSearch, KeepsTheAToBPressureAtOrAboveTheIntercondenserFloor) {
  // At 5 mmHgA with warm water the least steam lies below the floor
  // (saturated water at 116 degF, 78.4 mmHgA, with water in at 100 degF).
  for (const char* water : {"60", "90", "100"}) {
    const DesignPtr d = Design(AirCase("5", water, 3), InterstageSearch::kThorough);
    const float floor = InterstageFloor(d->ctx);
    ASSERT_GT(floor, 0);
    EXPECT_GE(d->dc.STG(kStageA, kStgPOUT), floor) << water;
    EXPECT_GE(d->dc.CND(kCondC1, kCndPIN), floor) << water;
    if (std::string(water) == "100") {
      EXPECT_NEAR(floor, 78.39f, 0.05f);
    }
  }
}

TEST(ThoroughSearch, OptimisingCapitalMinimisesTheSummedEjectorSizes) {
  const auto capital = [](InputScreen& s) { SelectOption(s, s.OptionOptimize, 1); };
  const auto sizes = [](const Designed& d) {
    float sum = 0;
    for (int c = 1; c <= d.dc.NSTAGES; ++c) sum += d.dc.STG(c, kStgSIZE);
    return sum;
  };
  const DesignPtr original = Design(Example("THREE-STAGE-DIRECT-CONTACT.JET", capital));
  const DesignPtr thorough = Design(Example("THREE-STAGE-DIRECT-CONTACT.JET", capital), InterstageSearch::kThorough);
  const DesignPtr by_steam = Design(Example("THREE-STAGE-DIRECT-CONTACT.JET"), InterstageSearch::kThorough);
  EXPECT_LE(sizes(*thorough), sizes(*original));
  EXPECT_LE(sizes(*thorough), sizes(*by_steam));
}

TEST(ThoroughSearch, StoresItsTrainOnlyWhenItBeatsTheOriginalOne) {
  const DesignPtr d = Design(AirCase("10", "86", 3));
  DesignCase& dc = d->dc;
  const float pin = dc.STG(kStageA, kStgPIN), pout = dc.STG(kStageC, kStgPOUT), t = dc.STG(kStageA, kStgTS);
  // An original train cheaper than any the search can find stands as it is.
  const DesignCase before = dc;
  for (int c = 1; c <= 3; ++c) dc.STG(c, kStgMOTIVE) *= 0.5f;
  const DesignCase halved = dc;
  EXPECT_FALSE(ImproveByThoroughSearch(d->ctx, pin, pout, t));
  for (int c = 1; c <= 3; ++c) EXPECT_EQ(dc.STG(c, kStgPOUT), halved.STG(c, kStgPOUT));
  // The original as designed is beaten, and the better train is stored whole.
  dc = before;
  ASSERT_TRUE(ImproveByThoroughSearch(d->ctx, pin, pout, t));
  float motive = 0;
  for (int c = 1; c <= 3; ++c) motive += dc.STG(c, kStgMOTIVE);
  EXPECT_LT(motive, 0.8f * before.TOTALS(kTotalMotive));
  EXPECT_EQ(dc.CND(kCondC1, kCndPIN), dc.STG(kStageA, kStgPOUT));
  EXPECT_EQ(dc.STG(kStageB, kStgPIN), static_cast<float>(dc.STG(kStageA, kStgPOUT) * 0.95));
  EXPECT_EQ(dc.CND(kCondC2, kCndPIN), dc.STG(kStageB, kStgPOUT));
}

TEST(ThoroughSearch, LeavesALiquidRingPumpTrainToThePumpSearch) {
  const DesignPtr original = Design(Example("TWO-STAGE-LRVP.JET"));
  const DesignPtr thorough = Design(Example("TWO-STAGE-LRVP.JET"), InterstageSearch::kThorough);
  for (int c = 1; c <= 2; ++c) {
    EXPECT_EQ(thorough->dc.STG(c, kStgPOUT), original->dc.STG(c, kStgPOUT));
    EXPECT_EQ(thorough->dc.STG(c, kStgMOTIVE), original->dc.STG(c, kStgMOTIVE));
  }
}

// ---- The original search stays as it was

TEST(OriginalSearch, DesignsTheRecordAsTheRunAloneWithTheSameNoticesAndCarriedPressure) {
  // The trials behind the advisories work on copies: the record, the notices
  // and the session's A-B pressure are those of the check and the run alone.
  for (const char* file : {"FOUR-STAGE-SURFACE.JET", "AUTOMATIC-SURFACE.JET", "TWO-STAGE-PRECONDENSER.JET"}) {
    const DesignPtr d = Design(Example(file));
    RecordingUi ui;
    DesignCase dc;
    InputScreen screen = Example(file);
    float pinterfix = 0;
    DesignContext ctx{dc, ShippedData(), screen, pinterfix, ui};
    ASSERT_EQ(CheckInput(screen, dc, pinterfix, CheckServices{ctx.steam(), ctx.vapors(), ui}), 0);
    DesignSystem(ctx);
    EXPECT_EQ(d->pinterfix, pinterfix) << file;
    EXPECT_EQ(d->ui.notices, ui.notices) << file;
    EXPECT_EQ(d->dc.NSTAGES, dc.NSTAGES) << file;
    for (int c = 1; c <= kStageColumns; ++c) {
      for (int r = 1; r <= kStageRows; ++r) EXPECT_EQ(d->dc.STG(c, r), dc.STG(c, r)) << file << " STG " << c << "," << r;
    }
    for (int k = 1; k <= 12; ++k) EXPECT_EQ(d->dc.TOTALS(k), dc.TOTALS(k)) << file;
  }
}

// ---- A failed stage

TEST(FailedStage, ThreeStagesAt5mmHgAWith110FWaterAreReportedAndAdvised) {
  const DesignPtr d = Design(AirCase("5", "110", 3));
  ASSERT_EQ(d->dc.NSTAGES, 3);
  ASSERT_FALSE(d->outcome.errors.empty()) << "the failed balance is an error flag: the command exits 3";
  EXPECT_NE(d->outcome.errors[0].find("Stage A: the jet balance did not converge"), std::string::npos);
  ASSERT_FALSE(d->outcome.advisories.empty());
  EXPECT_EQ(d->outcome.advisories[0].rfind("Stage A: its jet balance failed from 5.00 mmHgA to ", 0), 0u);
  EXPECT_TRUE(d->Advises("Stage A compresses 2"));
  EXPECT_TRUE(d->Advises("lb of motive steam per lb of load, far beyond the usual for three stages"));
  EXPECT_TRUE(d->Advises("Four stages with the thorough search would need "));
  for (const std::string& notice : d->ui.notices) {
    for (const std::string& advice : d->outcome.advisories) EXPECT_EQ(notice.find(advice), std::string::npos);
  }
}

TEST(FailedStage, TheThoroughSearchWithAutomaticStagesChoosesFourBalancedStages) {
  const DesignPtr d = Design(AirCase("5", "110", 0), InterstageSearch::kThorough);
  ASSERT_EQ(d->dc.NSTAGES, 4);
  EXPECT_TRUE(d->outcome.errors.empty());
  for (int c = 1; c <= 4; ++c) {
    EXPECT_FALSE(StageBalanceFails(d->ctx, c)) << c;
    EXPECT_LE(d->dc.STG(c, kStgPOUT) / d->dc.STG(c, kStgPIN), kMaxStageCompression) << c;
  }
  EXPECT_LT(d->Motive() / 100, 20.0f);
  ASSERT_FALSE(d->outcome.advisories.empty());
  EXPECT_EQ(d->outcome.advisories[0].rfind("Thorough search: four stages chosen for 5.00 mmHgA suction", 0), 0u);
  EXPECT_NE(d->outcome.advisories[0].find("three stages 1"), std::string::npos);
  EXPECT_NE(d->outcome.advisories[0].find("with a stage whose jet balance fails"), std::string::npos);
}

TEST(FailedStage, AChosenThreeStageTrainThatCannotBalanceKeepsTheOriginalAndItsErrorUnderTheThoroughSearch) {
  // At 5 mmHgA the A-B floor forces stage A beyond what it can do at every pressure.
  const DesignPtr original = Design(AirCase("5", "110", 3));
  const DesignPtr thorough = Design(AirCase("5", "110", 3), InterstageSearch::kThorough);
  EXPECT_EQ(thorough->dc.NSTAGES, 3);
  EXPECT_EQ(thorough->Motive(), original->Motive());
  EXPECT_EQ(thorough->outcome.errors, original->outcome.errors);
  EXPECT_TRUE(thorough->Advises("Four stages with the thorough search would need "));
}

// ---- The stage count under the thorough search

TEST(StageCount, TheThoroughAutomaticCountTakesTheLeastSteamOfTheCountsThatFit) {
  const DesignPtr d = Design(Example("AUTOMATIC-SURFACE.JET"), InterstageSearch::kThorough);
  float least = kNoBest;
  int fitting = 0;
  for (int n = 1; n <= 4; ++n) {
    const StageCountTrial t = TryStageCount(d->ctx, Example("AUTOMATIC-SURFACE.JET"), n, InterstageSearch::kThorough);
    if (!t.fits || t.failed) continue;
    ++fitting;
    least = std::min(least, t.motive);
  }
  EXPECT_EQ(fitting, 2) << "two and three stages suit 50 mmHgA";
  EXPECT_EQ(d->dc.NSTAGES, 3) << "the bands alone take two";
  EXPECT_FLOAT_EQ(d->Motive(), least);
  EXPECT_TRUE(d->Advises("the suction pressure bands alone would take two stages"));
}

TEST(StageCount, AChosenCountStandsUnderTheThoroughSearch) {
  const DesignPtr d = Design(Example("THREE-STAGE-DIRECT-CONTACT.JET"), InterstageSearch::kThorough);
  EXPECT_EQ(d->dc.NSTAGES, 3);
  EXPECT_FALSE(d->Advises("Thorough search:"));
}

TEST(StageCount, ACountOutsideItsSuctionBandIsNotOffered) {
  const DesignPtr d = Design(Example("AUTOMATIC-SURFACE.JET"));
  EXPECT_FALSE(TryStageCount(d->ctx, Example("AUTOMATIC-SURFACE.JET"), 4, InterstageSearch::kThorough).fits);
  EXPECT_FALSE(TryStageCount(d->ctx, Example("AUTOMATIC-SURFACE.JET"), 1, InterstageSearch::kThorough).fits);
}

// ---- Advisories

TEST(Advisories, ASoundDesignWithNoBetterCountGetsNone) {
  const DesignPtr d = Design(Example("TWO-STAGE-SURFACE-TUBE-SIDE.JET"));
  EXPECT_TRUE(d->outcome.errors.empty());
  EXPECT_TRUE(d->outcome.advisories.empty()) << d->outcome.advisories.front();
}

TEST(Advisories, TheOriginalSearchIsToldHowMuchTheThoroughOneWouldSave) {
  const DesignPtr original = Design(AirCase("10", "86", 3));
  const DesignPtr thorough = Design(AirCase("10", "86", 3), InterstageSearch::kThorough);
  const int saving = static_cast<int>(std::lround(100 * (1 - thorough->Motive() / original->Motive())));
  ASSERT_GE(saving, 10);
  EXPECT_TRUE(original->Advises("The thorough search would design these three stages with " +
                                std::to_string(std::lround(thorough->Motive())) + " lb/hr of motive steam, " +
                                std::to_string(saving) + " % less."));
  EXPECT_FALSE(thorough->Advises("The thorough search would"));
}

TEST(Advisories, ASavingUnderATenthIsNotTold) {
  // At 85 F the original search finds nearly the thorough one's pressures.
  const DesignPtr original = Design(AirCase("10", "85", 3));
  EXPECT_FALSE(original->Advises("The thorough search would"));
}

TEST(Advisories, AnOtherStageCountIsToldInTheCasesUnits) {
  const DesignPtr d = Design(Example("AUTOMATIC-SURFACE.JET"));
  EXPECT_TRUE(d->Advises("Three stages with the thorough search would need "));
  const DesignPtr metric = Design(Example("AUTOMATIC-SURFACE.JET", [](InputScreen& s) {
    SelectOption(s, s.OptionUnits, 1);
  }));
  EXPECT_TRUE(metric->Advises(" kg/hr of motive steam"));
}

// ---- The design command

namespace {

class DesignSearchCommand : public kestrane::testing::DataFolder {
 protected:
  // The case written as the program saves it, quoted for the shell.
  std::string Case(InputScreen screen) {
    RecordingUi ui;
    const fs::path file = dir / "CASE.JET";
    EXPECT_TRUE(WriteCase(file, screen, ui));
    return kestrane::testing::Quoted(file);
  }
};

}  // namespace

TEST_F(DesignSearchCommand, AFailedStageExits3WithItsAdvisoriesBesideTheNotices) {
  const auto r = kestrane::testing::Kestrane(Pgm() + "design " + Case(AirCase("5", "110", 3)) + " --json");
  EXPECT_EQ(r.exit_code, 3);
  const auto doc = nlohmann::json::parse(r.out);
  ASSERT_GE(doc["advisories"].size(), 3u);
  EXPECT_EQ(doc["advisories"][0].get<std::string>().rfind("Stage A: its jet balance failed", 0), 0u);
  for (const auto& notice : doc["notices"]) EXPECT_EQ(notice.get<std::string>().find("jet balance failed"), std::string::npos);
}

TEST_F(DesignSearchCommand, TheThoroughSearchDesignsTheFailedCaseWithFourBalancedStages) {
  const auto r =
      kestrane::testing::Kestrane(Pgm() + "design " + Case(AirCase("5", "110", 0)) + " --json --search thorough");
  EXPECT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["NSTAGES"], 4);
  EXPECT_TRUE(doc["errors"].empty());
  EXPECT_EQ(doc["advisories"][0].get<std::string>().rfind("Thorough search: four stages chosen", 0), 0u);
}

TEST_F(DesignSearchCommand, TextResultsEndWithTheAdvisories) {
  const auto r = kestrane::testing::Kestrane(Pgm() + "design " + Case(AirCase("5", "110", 3)));
  const size_t at = r.out.find("\nAdvisories\n- Stage A: its jet balance failed");
  ASSERT_NE(at, std::string::npos) << r.out;
  EXPECT_GT(at, r.out.find("Stage Pressures")) << "after the results' blocks";
  EXPECT_EQ(r.err.find("Advisories"), std::string::npos);
}

TEST_F(DesignSearchCommand, RefusesASearchItDoesNotKnow) {
  const auto r = kestrane::testing::Kestrane(Pgm() + "design " + Case(AirCase("10", "85", 3)) + " --search fast");
  EXPECT_EQ(r.exit_code, 2);
}
