// Tests of design studies: the inputs they set, ranges and grids, points equal to single designs, any number of workers.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "design_support.h"
#include "study/study.h"
#include "test_support.h"

namespace kestrane::testing {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = KESTRANE_SOURCE_DIR;

InputScreen Example(const std::string& file) {
  InputScreen screen = NewCase();
  RecordingUi ui;
  EXPECT_TRUE(OpenCase(kSource / "usrfiles" / file, screen, ui));
  return screen;
}

// The design of a screen in a fresh session, as the design command runs one case.
struct Single {
  DesignCase dc;
  RecordingUi ui;
  DesignOutcome outcome;
  DesignSummary summary;
};
std::unique_ptr<Single> DesignAlone(InputScreen screen, InterstageSearch search = InterstageSearch::kOriginal) {
  auto s = std::make_unique<Single>();
  float pinterfix = 0;
  DesignContext ctx{s->dc, ShippedData(), screen, pinterfix, s->ui, search};
  s->outcome = RunDesign(ctx, screen);
  if (s->outcome.results) s->summary = SummarizeDesign(ctx);
  return s;
}

void ExpectSameDesign(const StudyPoint& p, const Single& s) {
  EXPECT_EQ(p.input_error, s.outcome.input_error);
  EXPECT_EQ(p.results, s.outcome.results);
  EXPECT_EQ(p.errors, s.outcome.errors);
  EXPECT_EQ(p.notices, s.ui.notices);
  EXPECT_EQ(p.NSTAGES, s.dc.NSTAGES);
  EXPECT_EQ(p.summary.motive_steam_lb_hr, s.summary.motive_steam_lb_hr);
  EXPECT_EQ(p.summary.water_gpm, s.summary.water_gpm);
  EXPECT_EQ(p.summary.annual_cost.total, s.summary.annual_cost.total);
  ASSERT_EQ(p.summary.stages.size(), s.summary.stages.size());
  for (size_t i = 0; i < p.summary.stages.size(); ++i) {
    EXPECT_EQ(p.summary.stages[i].motive_lb_hr, s.summary.stages[i].motive_lb_hr);
    EXPECT_EQ(p.summary.stages[i].discharge_mmhga, s.summary.stages[i].discharge_mmhga);
  }
  ASSERT_EQ(p.summary.condensers.size(), s.summary.condensers.size());
  for (size_t i = 0; i < p.summary.condensers.size(); ++i) {
    EXPECT_EQ(p.summary.condensers[i].area_ft2, s.summary.condensers[i].area_ft2);
  }
}

TEST(StudyInputs, SetTheBoxesAndChoicesTheyName) {
  InputScreen s = NewCase();
  ASSERT_TRUE(SetStudyInput(s, "PSUCT", 12.5f));
  EXPECT_EQ(s.txtInput[0], "12.5");
  ASSERT_TRUE(SetStudyInput(s, "FOULING", 0.001f));
  EXPECT_EQ(s.txtInput[7], "0.001");
  ASSERT_TRUE(SetStudyInput(s, "CPPH1", 40));
  ASSERT_TRUE(SetStudyInput(s, "NCPPH10", 7));
  EXPECT_EQ(s.txtCpph[0], "40");
  EXPECT_EQ(s.txtNCpph[9], "7");
  ASSERT_TRUE(SetStudyInput(s, "WATERCOST", 0.2f));
  EXPECT_EQ(s.txtCost[2], "0.2");
  ASSERT_TRUE(SetStudyInput(s, "NSTAGES", 3));
  EXPECT_EQ(s.OptionStages, (std::array<int16_t, 5>{0, 0, -1, 0, 0}));  // the option of three stages
  ASSERT_TRUE(SetStudyInput(s, "NSTAGES", 0));
  EXPECT_EQ(s.OptionStages, (std::array<int16_t, 5>{-1, 0, 0, 0, 0}));
  ASSERT_TRUE(SetStudyInput(s, "CONDENSER", 3));
  EXPECT_EQ(s.OptionCondenserType, (std::array<int16_t, 4>{0, 0, -1, 0}));
  ASSERT_TRUE(SetStudyInput(s, "CONDENSER", 0));
  EXPECT_EQ(s.OptionCondenserType, (std::array<int16_t, 4>{0, 0, 0, -1}));
  ASSERT_TRUE(SetStudyInput(s, "LRVP", 1));
  EXPECT_EQ(s.chkboxLRVP, 1);
  for (const auto& [name, value] : std::vector<std::pair<const char*, float>>{
           {"NSTAGES", 5}, {"NSTAGES", 2.5f}, {"LRVP", 2}, {"CPPH11", 1}, {"CPPH0", 1}, {"CPPH01", 1}, {"PSUCTION", 1}}) {
    EXPECT_FALSE(SetStudyInput(s, name, value)) << name << " " << value;
  }
  // Every input reads back the value set, the choices by their numbers.
  for (const StudyInputName& n : StudyInputNames()) {
    for (float v : {1.0f, 0.0f}) {
      ASSERT_TRUE(SetStudyInput(s, n.name, v)) << n.name;
      EXPECT_EQ(StudyInputValue(s, n.name), v) << n.name;
    }
  }
  for (float n : {1.0f, 2.0f, 3.0f, 4.0f}) {
    SetStudyInput(s, "NSTAGES", n);
    SetStudyInput(s, "CONDENSER", n - 1);
    EXPECT_EQ(StudyInputValue(s, "NSTAGES"), n);
    EXPECT_EQ(StudyInputValue(s, "CONDENSER"), n - 1);
  }
  EXPECT_EQ(StudyInputValue(Example("SOLVENT-LOADS-THREE-STAGE.JET"), "PSUCT"), 20.0f);
}

TEST(StudyInputs, RangesIncludeBothEndsLinearlyOrInTheLogarithm) {
  EXPECT_EQ(StudyRange(10, 40, 4, false), (std::vector<float>{10, 20, 30, 40}));
  const std::vector<float> log = StudyRange(1, 100, 3, true);
  ASSERT_EQ(log.size(), 3u);
  EXPECT_FLOAT_EQ(log[1], 10);
  EXPECT_EQ(log[2], 100);
  EXPECT_EQ(StudyRange(5, 9, 1, false), (std::vector<float>{5}));
  EXPECT_EQ(ParseStudyValues("100:150:3"), (std::vector<float>{100, 125, 150}));
  EXPECT_EQ(ParseStudyValues("1,2, 4"), (std::vector<float>{1, 2, 4}));
  EXPECT_EQ(ParseStudyValues("-5:5:3"), (std::vector<float>{-5, 0, 5}));
  for (const char* bad : {"1:2", "1:2:0", "1:2:x", "0:10:3:log", "1:2:3:lin", "a,b", "1:2:3:log:5", "1:2:99999999"}) {
    EXPECT_THROW(ParseStudyValues(bad), std::invalid_argument) << bad;
  }
}

TEST(StudyInputs, TheGridVariesTheFirstInputSlowest) {
  const auto grid = StudyGrid({{"PSUCT", {1, 2}}, {"NSTAGES", {3, 4, 0}}});
  EXPECT_EQ(grid, (std::vector<std::vector<float>>{{1, 3}, {1, 4}, {1, 0}, {2, 3}, {2, 4}, {2, 0}}));
  EXPECT_EQ(StudyGrid({{"PSUCT", {}}}).size(), 0u);
}

TEST(Study, APointIsTheDesignOfItsInputs) {
  const InputScreen base = Example("SOLVENT-LOADS-THREE-STAGE.JET");
  const auto points = RunStudy(ShippedData(), base, 0, {{"PSUCT", {15}}, {"PMOTIVE", {120}}});
  ASSERT_EQ(points.size(), 1u);
  InputScreen screen = base;
  screen.txtInput[0] = "15";
  screen.txtInput[3] = "120";
  const auto alone = DesignAlone(screen);
  ASSERT_TRUE(alone->outcome.results);
  ExpectSameDesign(points[0], *alone);
  // And the point's inputs did change the design.
  EXPECT_NE(points[0].summary.motive_steam_lb_hr, DesignAlone(base)->summary.motive_steam_lb_hr);
}

TEST(Study, OneWorkerAndManyGiveTheSamePointsInTheSameOrder) {
  const InputScreen base = Example("FOUR-STAGE-SURFACE.JET");
  const std::vector<StudyVariable> vary = {{"PSUCT", StudyRange(0.2f, 2, 5, true)}, {"TWATERIN", {70, 85, 90}}};
  StudyOptions one, many;
  one.jobs = 1;
  many.jobs = 4;
  const auto a = RunStudy(ShippedData(), base, 0, vary, one);
  const auto b = RunStudy(ShippedData(), base, 0, vary, many);
  ASSERT_EQ(a.size(), 15u);
  ASSERT_EQ(b.size(), a.size());
  for (size_t i = 0; i < a.size(); ++i) {
    EXPECT_EQ(a[i].values, b[i].values);
    EXPECT_EQ(a[i].summary.motive_steam_lb_hr, b[i].summary.motive_steam_lb_hr) << i;
    EXPECT_EQ(a[i].notices, b[i].notices) << i;
    EXPECT_EQ(a[i].NSTAGES, b[i].NSTAGES) << i;
  }
  EXPECT_EQ(StudyCsv(vary, a), StudyCsv(vary, b));
}

TEST(Study, EveryPointStartsFromTheSessionsFixedInterstagePressure) {
  // A four stage design fixes the A-B pressure, which a three stage design after it in the same session takes as
  // its start: a point designed after a four stage point equals the design alone in a fresh session.
  InputScreen base = Example("FOUR-STAGE-SURFACE.JET");
  StudyOptions one;
  one.jobs = 1;
  const auto after = RunStudy(ShippedData(), base, 0, {{"PSUCT", {5}}, {"NSTAGES", {4, 3}}}, one);
  ASSERT_EQ(after[0].NSTAGES, 4);
  ASSERT_EQ(after[1].NSTAGES, 3);
  ASSERT_TRUE(SetStudyInput(base, "PSUCT", 5));
  ASSERT_TRUE(SetStudyInput(base, "NSTAGES", 3));
  ExpectSameDesign(after[1], *DesignAlone(base));
  // The session's pressure is every point's start, and it matters.
  InputScreen three = Example("SOLVENT-LOADS-THREE-STAGE.JET");
  ASSERT_TRUE(SetStudyInput(three, "PSUCT", 12));
  const auto fixed = RunStudy(ShippedData(), three, 30, {{"NSTAGES", {3, 3}}});
  const auto free = RunStudy(ShippedData(), three, 0, {{"NSTAGES", {3}}});
  EXPECT_EQ(fixed[0].summary.motive_steam_lb_hr, fixed[1].summary.motive_steam_lb_hr);
  EXPECT_GT(fixed[0].summary.motive_steam_lb_hr, 1.1f * free[0].summary.motive_steam_lb_hr);
}

TEST(Study, ARefusedPointCarriesItsNoticesAndAPumpErrorItsFlag) {
  const InputScreen base = Example("TWO-STAGE-LRVP.JET");
  const auto points = RunStudy(ShippedData(), base, 0, {{"PSUCT", {-5, 50}}});
  ASSERT_EQ(points.size(), 2u);
  EXPECT_EQ(points[0].input_error, 1);
  EXPECT_FALSE(points[0].results);
  ASSERT_FALSE(points[0].notices.empty());
  InputScreen refused = base;
  refused.txtInput[0] = "-5";
  EXPECT_EQ(points[0].notices, DesignAlone(refused)->ui.notices);
  EXPECT_TRUE(points[1].results);

  const InputScreen beyond = Example("LRVP-BEYOND-LIMITS.JET");
  const auto pump = RunStudy(ShippedData(), beyond, 0, {{"TWATERIN", {85}}});
  const auto alone = DesignAlone(beyond);
  ASSERT_NE(alone->dc.LRVPERR, 0);
  EXPECT_EQ(pump[0].LRVPERR, alone->dc.LRVPERR);
  EXPECT_EQ(pump[0].errors, alone->outcome.errors);
  EXPECT_FALSE(pump[0].errors.empty());
  // A choice out of its range is refused with a notice of its own.
  const auto choice = RunStudy(ShippedData(), base, 0, {{"NSTAGES", {7}}});
  EXPECT_EQ(choice[0].input_error, 1);
  EXPECT_EQ(choice[0].notices, (std::vector<std::string>{"NSTAGES cannot be 7."}));
}

TEST(Study, TheThoroughSearchDesignsEachPointAsTheDesignCommandWithItDoes) {
  // 86 and 88 F water: the original search stops at a poor interstage pressure there.
  InputScreen base = Example("AIR-ONLY-100-LB-HR.JET");
  ASSERT_TRUE(SetStudyInput(base, "NSTAGES", 3));
  const std::vector<StudyVariable> vary = {{"TWATERIN", {86, 88}}};
  StudyOptions thorough;
  thorough.search = InterstageSearch::kThorough;
  const auto better = RunStudy(ShippedData(), base, 0, vary, thorough);
  const auto original = RunStudy(ShippedData(), base, 0, vary);
  for (size_t i = 0; i < 2; ++i) {
    InputScreen screen = base;
    ASSERT_TRUE(SetStudyInput(screen, "TWATERIN", vary[0].values[i]));
    ExpectSameDesign(better[i], *DesignAlone(screen, InterstageSearch::kThorough));
    ExpectSameDesign(original[i], *DesignAlone(screen));
    EXPECT_LT(better[i].summary.motive_steam_lb_hr, 0.9f * original[i].summary.motive_steam_lb_hr);
  }
}

TEST(Study, APointKeepsTheAdviceOnItsOwnDesign) {
  // 5 mmHgA with 110 F water: three stages cannot balance stage A.
  InputScreen base = Example("AIR-ONLY-100-LB-HR.JET");
  ASSERT_TRUE(SetStudyInput(base, "NSTAGES", 3));
  const auto points = RunStudy(ShippedData(), base, 0, {{"PSUCT", {5}}, {"TWATERIN", {110}}});
  ASSERT_FALSE(points[0].errors.empty());
  ASSERT_FALSE(points[0].advisories.empty());
  EXPECT_NE(StudyCsv({{"PSUCT", {5}}, {"TWATERIN", {110}}}, points).find(points[0].advisories[0]), std::string::npos);
}

TEST(Study, ACancelledStudyLeavesThePointsNotStartedUndone) {
  const InputScreen base = Example("FOUR-STAGE-SURFACE.JET");
  std::atomic<bool> cancel{false};
  StudyOptions options;
  options.jobs = 1;
  options.cancel = &cancel;
  size_t calls = 0;
  options.progress = [&](size_t done, size_t total) {
    ++calls;
    EXPECT_EQ(total, 10u);
    if (done == 3) cancel = true;
  };
  const auto points = RunStudy(ShippedData(), base, 0, {{"TWATERIN", StudyRange(70, 90, 10, false)}}, options);
  EXPECT_EQ(calls, 3u);
  EXPECT_TRUE(points[2].results);
  EXPECT_EQ(points[3].input_error, -1);
  EXPECT_FALSE(points[9].results);
}

TEST(Study, SteamPerPoundOfAirFallsAsSuctionPressureRisesForEachStageCount) {
  // The README's first example: an air load, one to four stages.
  const InputScreen base = Example("FOUR-STAGE-SURFACE.JET");
  const std::vector<float> suction = {2, 5, 10, 20, 40};
  const auto points = RunStudy(ShippedData(), base, 0, {{"NSTAGES", {3, 4}}, {"PSUCT", suction}});
  const StudyOutput& per_lb = *std::find_if(StudyOutputs().begin(), StudyOutputs().end(),
                                            [](const StudyOutput& o) { return o.name == "steam_per_lb_load"; });
  for (size_t s = 0; s < 2; ++s) {
    float before = 1e30f;
    for (size_t i = 0; i < suction.size(); ++i) {
      const StudyPoint& p = points[s * suction.size() + i];
      ASSERT_TRUE(p.results) << p.values[0] << " stages at " << p.values[1];
      const float v = *per_lb.value(p);
      EXPECT_LT(v, before) << p.values[0] << " stages at " << p.values[1] << " mmHgA";
      before = v;
    }
  }
}

TEST(Study, TheTableHasAHeadAndALinePerPointWithTheVariedValuesFirst) {
  const InputScreen base = Example("TWO-STAGE-LRVP.JET");
  const std::vector<StudyVariable> vary = {{"PSUCT", {40, 60}}};
  const auto points = RunStudy(ShippedData(), base, 0, vary);
  const std::string csv = StudyCsv(vary, points);
  EXPECT_EQ(csv.rfind("PSUCT,input_error,errors,LRVPERR,steam_lb_hr,", 0), 0u);
  EXPECT_EQ(std::count(csv.begin(), csv.end(), '\n'), 3);
  EXPECT_NE(csv.find("\n40,0,\"\",0,"), std::string::npos);
  EXPECT_NE(csv.find("\n60,0,\"\",0,"), std::string::npos);
  const StudyOutput& pump = StudyOutputs().back();
  EXPECT_EQ(pump.name, "pump_bhp");
  EXPECT_GT(*pump.value(points[0]), 0);
}

// --- The command ------------------------------------------------------------------------------------------------

TEST(StudyCommand, PrintsAPointPerCombinationThatEqualsItsDesign) {
  const std::string file = Quoted(kSource / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET");
  const CliRun r = Kestrane("study " + file + " --vary PSUCT=10:30:3 --vary NSTAGES=2,3 --format json --jobs 2");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  ASSERT_EQ(doc["points"].size(), 6u);
  EXPECT_EQ(doc["points"][1]["inputs"]["PSUCT"], 10);
  EXPECT_EQ(doc["points"][1]["inputs"]["NSTAGES"], 3);
  EXPECT_EQ(doc["points"][2]["inputs"]["PSUCT"], 20);
  // The base case itself (20 mmHgA, three stages) as the design command gives it.
  const CliRun design = Kestrane("design " + file + " --json");
  const auto d = nlohmann::json::parse(design.out);
  ASSERT_EQ(d["results"]["stages"].size(), 3u);
  EXPECT_EQ(doc["points"][3]["outputs"]["steam_lb_hr"], d["results"]["motive_steam_lb_hr"]);
  EXPECT_EQ(doc["points"][3]["outputs"]["annual_cost_usd_yr"], d["results"]["annual_cost"]["total_usd_yr"]);
}

TEST(StudyCommand, RefusesUnknownNamesAndBadRangesAndListsTheNamesInItsHelp) {
  const std::string file = Quoted(kSource / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET");
  const CliRun unknown = Kestrane("study " + file + " --vary SUCTION=1:2:3");
  EXPECT_EQ(unknown.exit_code, 2);
  EXPECT_NE(unknown.err.find("no input is named SUCTION"), std::string::npos);
  const CliRun range = Kestrane("study " + file + " --vary PSUCT=0:10:3:log");
  EXPECT_EQ(range.exit_code, 2);
  EXPECT_NE(range.err.find("above zero"), std::string::npos);
  const CliRun three = Kestrane("study " + file + " --vary PSUCT=1 --vary TSUCT=1 --vary PDISCH=1");
  EXPECT_EQ(three.exit_code, 2);
  const CliRun help = Kestrane("study --help");
  for (const StudyInputName& n : StudyInputNames()) EXPECT_NE(help.out.find("  " + n.name + " "), std::string::npos) << n.name;
}

}  // namespace
}  // namespace kestrane::testing
