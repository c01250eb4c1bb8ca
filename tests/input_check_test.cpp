// The design input screen and the input check: limits, stage choice, condensers, loads and the record it fills.
#include <gtest/gtest.h>

#include "case/check_input.h"
#include "properties/vapor_search.h"
#include "properties/water_properties.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

// The shipped data with one user vapor: 20/40, 50/200, 80/700, MW 58.
struct Data {
  const SteamTable& steam = kestrane::testing::ShippedData().steam;
  const VaporData& vapors = kestrane::testing::ShippedData().vapors;
  UserVapors user;
  Data() {
    user.NUDV = 1;
    const float row[] = {-1, 20, 40, 50, 200, 80, 700, 58, 0};
    for (int c = 1; c <= 9; ++c) user.UDVDATA(1, c) = row[c - 1];
    user.UDVNAME(1) = "Mine";
  }
};

Data& Shipped() {
  static Data data;
  return data;
}

class InputCheck : public ::testing::Test {
 protected:
  InputCheck() : steam{Shipped().steam, ui}, vapors{Shipped().vapors, Shipped().user, ui} {
    screen = NewCase();
    screen.txtInput = {"50", "100", "770", "150", "0", "85", "", "0.002"};
    screen.txtCpph[0] = "40";
    screen.txtNCpph[0] = "20";
    screen.txtNCMW[0] = "29";
  }
  int16_t Check() { return CheckInput(screen, dc, pinterfix, CheckServices{steam, vapors, ui}); }
  // The one box of notices, or "" when none.
  std::string Box() const { return ui.notices.empty() ? "" : ui.notices.back(); }

  RecordingUi ui;
  Steam steam;
  Vapors vapors;
  InputScreen screen;
  DesignCase dc;
  float pinterfix = 0;
};

}  // namespace

TEST_F(InputCheck, DischargeOf750IsRefusedWithTheMessageThatNames700) {
  screen.txtInput[2] = "750";
  EXPECT_EQ(Check(), 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"Discharge pressure outside the range: (700 - 900 mmHga)\r\n"});
}

TEST_F(InputCheck, LimitNoticesAreCollectedInOneBoxAndStopTheCheck) {
  screen.txtInput[0] = "0.5";
  screen.txtInput[3] = "300";
  screen.txtInput[6] = "90";  // below water in + 15
  SelectOption(screen, screen.OptionCondenserType, 0);
  screen.txtInput[7] = "0.2";
  dc.STG(1, 1) = 7;
  EXPECT_EQ(Check(), 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"Suction pressure outside the range: (1 - 500 mmHga)\r\n"
                                                 "Motive pressure outside the range: (50 - 250 psig)\r\n"
                                                 "Cooling Water Outlet Temperature is outside allowed range\r\n"
                                                 "Overall fouling factor outside the range.\r\n"});
  EXPECT_EQ(dc.STG(1, 1), 7) << "stopped before the tables are cleared";
}

TEST_F(InputCheck, FoulingIsCheckedOnlyForShellAndTubeCondensers) {
  screen.txtInput[7] = "0";
  SelectOption(screen, screen.OptionCondenserType, 2);
  EXPECT_EQ(Check(), 0);
  SelectOption(screen, screen.OptionCondenserType, 1);
  EXPECT_EQ(Check(), 1);
}

TEST_F(InputCheck, AutomaticStageChoiceFollowsSuctionPressureWithItsAdvice) {
  struct Case {
    const char* psuct;
    int stages;
    const char* advice;
  };
  const Case cases[] = {
      {"4.9", 4, ""},
      {"5", 3, ""},
      {"12", 3, ""},
      {"25", 3, "Selecting 3 stage system automatically... but suggest 2 stage system be reviewed!\r\n"},
      {"80", 2, ""},
      {"100", 2, "Selecting 2 stage system automatically... but suggest 1 stage system be reviewed!\r\n"},
      {"150", 1, "Selecting 1 stage system automatically... but suggest 2 stage system be reviewed!\r\n"},
      {"250", 1, ""}};
  for (const Case& c : cases) {
    ui.notices.clear();
    screen.txtInput[0] = c.psuct;
    screen.txtInput[5] = "60";  // cold water keeps the first stage's compression in range
    EXPECT_EQ(Check(), 0) << c.psuct << Box();
    EXPECT_EQ(dc.NSTAGES, c.stages) << c.psuct;
    EXPECT_EQ(Box(), c.advice) << c.psuct;
  }
}

TEST_F(InputCheck, AChosenCountOutsideItsRangeFallsBackToAutomatic) {
  SelectOption(screen, screen.OptionStages, 1);  // 4 stages at 50 mmHgA
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(dc.STAGEOPT, 0);
  EXPECT_EQ(dc.NSTAGES, 2);
  EXPECT_EQ(Box(), "Suction pressure outside the range of four stage system.... program will select the number of "
                   "stages!!!\r\n");
  ui.notices.clear();
  SelectOption(screen, screen.OptionStages, 3);  // 2 stages
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(dc.STAGEOPT, 2);
  EXPECT_EQ(dc.NSTAGES, 2);
  EXPECT_EQ(Box(), "");
}

TEST_F(InputCheck, SingleStageNeedsEightyWithoutAPumpAndTwentyFiveWithOne) {
  screen.txtInput[0] = "30";
  SelectOption(screen, screen.OptionStages, 4);
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(dc.NSTAGES, 2);
  EXPECT_NE(Box().find("single stage system"), std::string::npos);
  ui.notices.clear();
  screen.chkboxLRVP = 1;
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(dc.NSTAGES, 1);
  EXPECT_EQ(dc.USELRVP, 1);
}

TEST_F(InputCheck, ANonCondensibleLoadIsRequiredEvenWhenAllElseIsGood) {
  screen.txtNCpph[0] = "";
  screen.txtNCpph[1] = "5";  // a flow without molecular weight does not count
  EXPECT_EQ(Check(), 1);
  EXPECT_EQ(Box(), "NOTE: A minimum of 1 non-condensible load is required!\r\n");
  EXPECT_EQ(dc.NLOADS, 1);
}

TEST_F(InputCheck, CondensersFollowTheTrainAndTheOptions) {
  SelectOption(screen, screen.OptionStages, 3);  // 2 stages
  Check();
  EXPECT_EQ(std::tuple(dc.HASC1, dc.HASC2, dc.HASAC), std::tuple(int16_t{0}, int16_t{1}, int16_t{1}));
  screen.chkboxPreCondenser = 1;
  Check();
  EXPECT_EQ(dc.PRECOND, -1);
  EXPECT_EQ(std::tuple(dc.HASC1, dc.HASC2, dc.HASAC), std::tuple(int16_t{1}, int16_t{1}, int16_t{1}));
  screen.txtInput[0] = "150";
  SelectOption(screen, screen.OptionStages, 4);  // 1 stage with the precondenser
  Check();
  EXPECT_EQ(std::tuple(dc.HASC1, dc.HASC2, dc.HASAC), std::tuple(int16_t{0}, int16_t{1}, int16_t{1}));
  screen.chkboxPreCondenser = 0;
  screen.chkboxLRVP = 1;
  Check();
  EXPECT_EQ(std::tuple(dc.HASC1, dc.HASC2, dc.HASAC), std::tuple(int16_t{0}, int16_t{0}, int16_t{0}));
  SelectOption(screen, screen.OptionCondenserType, 3);
  screen.chkboxPreCondenser = 1;
  ui.notices.clear();
  Check();
  EXPECT_EQ(dc.CNDTYPE, 0);
  EXPECT_NE(Box().find("Warning: Precondenser option cannot be used unless type of condenser (S&T or Direct "
                       "Contact) is selected.\r\n"),
            std::string::npos);
}

TEST_F(InputCheck, CondenserTemperaturesAndWaterLimits) {
  Check();
  EXPECT_FLOAT_EQ(dc.TSATC1, 95);
  EXPECT_FLOAT_EQ(dc.TSATC2, 105);
  EXPECT_FLOAT_EQ(dc.TSATAC, 115);
  EXPECT_FLOAT_EQ(dc.TWMAX(16), 115);
  EXPECT_FLOAT_EQ(dc.TWMAX(17), 105);
  EXPECT_FLOAT_EQ(dc.TWMAX(18), 100);
  SelectOption(screen, screen.OptionOptimize, 1);
  screen.txtInput[0] = "10";
  screen.txtInput[5] = "60";
  screen.txtInput[6] = "80";
  Check();
  EXPECT_FLOAT_EQ(dc.TSATC1, 75) << "+15 when capital costs are minimised";
  EXPECT_FLOAT_EQ(dc.TWMAX(16), 80) << "cut to the outlet limit";
  EXPECT_FLOAT_EQ(dc.TWMAX(17), 80);
  EXPECT_FLOAT_EQ(dc.TWMAX(18), 70) << "+10 below 13 mmHgA";
}

TEST_F(InputCheck, LoadTableHoldsWaterCondensiblesAndGases) {
  screen.txtCID[1] = "3";  // ethanol
  screen.txtCpph[1] = "10";
  screen.txtCID[2] = "-1";
  screen.txtCpph[2] = "5";
  screen.txtCID[3] = "13";
  screen.txtCpph[3] = "0";  // no flow: skipped
  screen.txtNCpph[2] = "3";
  screen.txtNCMW[2] = "28";
  EXPECT_EQ(Check(), 0);
  ASSERT_EQ(dc.NLOADS, 5);
  float p = 0;
  int16_t failed = 0;
  SatPress(steam, dc.TSATC2, p, failed);
  EXPECT_EQ(dc.LOADS(kLoadVPC2, 1), p);
  EXPECT_EQ(dc.LOADS(kLoadMW, 1), 18.0f);
  EXPECT_EQ(dc.LATENT(1), 1100.0f);
  EXPECT_EQ(dc.LOADCLASS(1), 4);
  EXPECT_EQ(dc.LOADS(kLoadID, 2), 3);
  EXPECT_EQ(dc.LOADS(kLoadMW, 2), Shipped().vapors.PSATDATA(3, 1));
  EXPECT_EQ(dc.LATENT(2), Shipped().vapors.PSATDATA(3, 7));
  int16_t flag = 0;
  Antoine(vapors, 3, dc.TSATAC, p, flag);
  EXPECT_EQ(dc.LOADS(kLoadVPAC, 2), p);
  EXPECT_EQ(dc.LOADCLASS(2), 5);
  EXPECT_EQ(dc.LOADS(kLoadID, 3), -1);
  EXPECT_EQ(dc.LATENT(3), 250.0f);
  EXPECT_EQ(dc.LOADS(kLoadMW, 3), 58.0f);
  EXPECT_EQ(dc.LOADS(kLoadMW, 4), 29.0f);
  EXPECT_EQ(dc.LOADS(kLoadVPC1, 4), 0.0f);
  EXPECT_EQ(dc.LOADCLASS(4), 0);
  EXPECT_EQ(dc.LOADS(kLoadMW, 5), 28.0f);
}

TEST_F(InputCheck, RangeFlagsMarkVaporPressuresOutsideTheirData) {
  screen.txtCID[1] = "60";  // ammonia: its data end far below condenser temperatures
  screen.txtCpph[1] = "1";
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(Shipped().vapors.PSATNAME(60).substr(0, 7), "Ammonia");
  EXPECT_EQ(dc.VPRANGE(2, 1), 1);
  EXPECT_EQ(dc.VPRANGE(1, 1), 0);
}

TEST_F(InputCheck, AnUnknownVaporIdRefusesTheInput) {
  screen.txtCID[1] = "1999";
  screen.txtCpph[1] = "10";
  EXPECT_EQ(Check(), 1);
  EXPECT_EQ(Box(), "Condensible load 2: vapor ID 1999 is not in the vapor data base.\r\n");
}

TEST_F(InputCheck, FirstStageCompressionBeyondTwelveIsRefused) {
  screen.txtInput[0] = "1";
  screen.txtInput[5] = "125";
  EXPECT_EQ(Check(), 1);
  EXPECT_NE(Box().find("Error: The compression range of the first stage ejector exceeds the capability of this "
                       "program. Consult Tessel Corporation.  To avoid"),
            std::string::npos);
  ui.notices.clear();
  screen.txtInput[5] = "60";
  EXPECT_EQ(Check(), 0);
  SelectOption(screen, screen.OptionCondenserType, 3);
  screen.txtInput[5] = "125";
  EXPECT_EQ(Check(), 0) << "no condensers, no check";
}

TEST_F(InputCheck, FourStagesFixTheInterstagePressureAndThreeKeepIt) {
  screen.txtInput[0] = "2";
  screen.txtInput[5] = "60";
  Check();
  ASSERT_EQ(dc.NSTAGES, 4);
  float expected = 0;
  int16_t failed = 0;
  SatPress(steam, dc.TSATC1 + 15, expected, failed);
  EXPECT_EQ(pinterfix, expected);
  screen.txtInput[0] = "10";
  Check();
  EXPECT_EQ(dc.NSTAGES, 3);
  EXPECT_EQ(pinterfix, expected);
}

TEST_F(InputCheck, OptionBlockFlagsAndClearedResults) {
  dc.STG(3, 3) = 5;
  dc.TOTALS(1) = 9;
  dc.LRVPERR = 2;
  SelectOption(screen, screen.OptionCondenserType, 2);
  screen.txtDesign[1] = "";
  screen.txtDesign[3] = "abc";
  EXPECT_EQ(Check(), 0);
  EXPECT_EQ(dc.STG(3, 3), 0);
  EXPECT_EQ(dc.TOTALS(1), 0);
  EXPECT_EQ(dc.LRVPERR, 0);
  EXPECT_EQ(dc.CNDOPT(3), 0.75f);
  EXPECT_EQ(dc.CNDOPT(5), 0.9375f);
  EXPECT_EQ(dc.CNDOPT(23), 4.0f) << "direct contact";
  EXPECT_EQ(dc.CNDOPT(25), 7.0f);
  float cp = 0, sg = 0, k = 0, mu = 0;
  int16_t err = 0;
  WaterProperties(85, cp, sg, k, mu, err);
  EXPECT_EQ(dc.CNDOPT2(1), 1);
  EXPECT_EQ(dc.CNDOPT2(3), cp);
  EXPECT_EQ(dc.CNDOPT2(4), sg);
  EXPECT_EQ(dc.KEEPWATER, 1);
  EXPECT_EQ(dc.KEEPWATERC, 1);
  EXPECT_EQ(dc.KEEPWATERP, 0);
  EXPECT_EQ(dc.LRVPMLMIN, 1.1f);
  EXPECT_EQ(screen.txtDesign[1], "0");
  EXPECT_EQ(screen.txtDesign[3], "0");
  EXPECT_EQ(screen.txtDesign[0], "75");
}

TEST(WaterProperties, AgreeWithHandbookValuesForCoolingWater) {
  // Liquid water at 60 F: cp 1.00 Btu/lb-F, SG 0.999, k 0.34 Btu/hr-ft-F, viscosity 1.12 cP.
  float cp = 0, sg = 0, k = 0, mu = 0;
  int16_t err = 1;
  WaterProperties(60, cp, sg, k, mu, err);
  EXPECT_EQ(err, 0);
  EXPECT_NEAR(cp, 1.00, 0.01);
  EXPECT_NEAR(sg, 0.999, 0.002);
  EXPECT_NEAR(k, 0.34, 0.015);
  EXPECT_NEAR(mu, 1.12, 0.03);
  WaterProperties(200, cp, sg, k, mu, err);
  EXPECT_NEAR(mu, 0.305, 0.01);  // 0.305 cP at 200 F
  EXPECT_NEAR(sg, 0.963, 0.003);
  WaterProperties(30, cp, sg, k, mu, err);
  EXPECT_EQ(err, 1);
  EXPECT_NEAR(mu, 0.305, 0.01) << "outputs stay";
}

// --- The screen -------------------------------------------------------------

TEST(InputScreenModel, NewCaseDefaultsAndListsByPosition) {
  const InputScreen s = NewCase();
  EXPECT_EQ(s.txtCost, (std::array<std::string, 3>{"5", "0.03", "0.1"}));
  EXPECT_EQ(s.txtDesign, (std::array<std::string, 4>{"75", "200", "20", "300"}));
  EXPECT_EQ(s.txtInput[7], "0.002");
  EXPECT_EQ(s.txtInputA[7], "0.0004");
  EXPECT_EQ(s.txtCID[0], "WATER");
  EXPECT_EQ(s.OptionStages[0], -1);
  EXPECT_EQ(s.OptionCondenserType[0], -1);
  EXPECT_EQ(s.CASEDIRTY, 0);
  EXPECT_EQ(ListBoxDefinition(kTubeMaterial).entries[static_cast<size_t>(s.lists[kTubeMaterial])], "304SS");
  EXPECT_EQ(ListBoxDefinition(kCNDCode).entries.size(), 6u);
  EXPECT_EQ(ListBoxDefinition(kTubeSheetMaterial).entries.back(), "ALLOY 20");
  EXPECT_EQ(ListBoxDefinition(kInletHead).entries[1], "Channel");
}

TEST(InputScreenModel, AnyEditMarksTheCaseChangedAndCaptionsFollowTheUnits) {
  InputScreen s = NewCase();
  EditBox(s, {BoxGroup::kInput, 0}, "50");
  EXPECT_EQ(s.CASEDIRTY, 1);
  EXPECT_EQ(CostCaptions(false)[0], "Cost of steam ($/1000 lbs.)");
  EXPECT_EQ(CostCaptions(true)[2], "Cost of water ($/metric ton)");
  EXPECT_EQ(CostCaptions(true)[1], "Cost of electricity ($/KW hr) ");
  EXPECT_EQ(InputCaption("A.JET"), "Kestrane-System Design           Current File:A.JET");
}

TEST_F(InputCheck, LeavingABoxChecksItAndUpdatesItsPair) {
  screen.txtNCpph[3] = "";
  EXPECT_TRUE(ChkTxtInput(screen, {BoxGroup::kNCpph, 3}, steam, ui));
  EXPECT_EQ(screen.txtNCpph[3], "0");
  EXPECT_EQ(screen.txtNCpphA[3], "      0.0000");
  const BoxRef suction{BoxGroup::kInput, 0};
  screen.txtInput[0] = "";
  EXPECT_FALSE(ChkTxtInput(screen, suction, steam, ui)) << "an empty suction box is 0, below its range";
  screen.txtInput[0] = "75";
  EXPECT_TRUE(ChkTxtInput(screen, suction, steam, ui));
  EXPECT_EQ(screen.txtInputA[0], "     10.0000");
  screen.txtInput[0] = "1,000";
  EXPECT_FALSE(ChkTxtInput(screen, suction, steam, ui));
  screen.txtInput[0] = "600";
  EXPECT_FALSE(ChkTxtInput(screen, suction, steam, ui));
  EXPECT_EQ(ui.notices.back(), "Suction pressure outside the range: (1 - 500 mmHga)");

  // Metric side: 8 kPa is 60 mmHg; the fouling factor has six decimals.
  screen.txtInputA[0] = "8";
  EXPECT_TRUE(ChkTxtInput(screen, {BoxGroup::kInputA, 0}, steam, ui));
  EXPECT_EQ(screen.txtInput[0], "     60.0000");
  screen.txtInput[7] = "0.002";
  EXPECT_TRUE(ChkTxtInput(screen, {BoxGroup::kInput, 7}, steam, ui));
  EXPECT_EQ(screen.txtInputA[7], "    0.000410");
  screen.txtCpph[0] = "100";
  EXPECT_TRUE(ChkTxtInput(screen, {BoxGroup::kCpph, 0}, steam, ui));
  EXPECT_EQ(screen.txtCpphA[0], "     45.3597");

  // A number beyond a Single's range is refused before its pair is written.
  const std::string pair = screen.txtNCpphA[0];
  screen.txtNCpph[0] = "3.5e38";
  EXPECT_FALSE(ChkTxtInput(screen, {BoxGroup::kNCpph, 0}, steam, ui));
  EXPECT_EQ(ui.notices.back(), "Run-time error 6: Overflow in the box (3.5e38).");
  EXPECT_EQ(screen.txtNCpphA[0], pair);
}

TEST_F(InputCheck, MotiveTemperatureMustBeZeroOrSuperheated) {
  const BoxRef motive{BoxGroup::kInput, 4};
  screen.txtInput[3] = "150";  // saturated near 366 F
  screen.txtInput[4] = "300";
  EXPECT_FALSE(ChkTxtInput(screen, motive, steam, ui));
  EXPECT_NE(ui.notices.back().find("above the saturation temperature"), std::string::npos);
  screen.txtInput[4] = "400";
  EXPECT_TRUE(ChkTxtInput(screen, motive, steam, ui));
  screen.txtInput[4] = "0";
  EXPECT_TRUE(ChkTxtInput(screen, motive, steam, ui));
  EXPECT_EQ(screen.txtInputA[4], "      0.0000") << "0 stays 0: dry and saturated";
}

// --- The boxes a check refuses, for the window to mark ----------------------------------------------------

namespace {

// The refused boxes as "group:index notice" lines, in the order the check refused them.
std::vector<std::string> RefusedLines(const InputScreen& screen) {
  std::vector<std::string> lines;
  for (const RefusedBox& r : screen.refused) {
    lines.push_back(std::to_string(static_cast<int>(r.box.group)) + ":" + std::to_string(r.box.index) + " " + r.notice);
  }
  return lines;
}

std::string Line(BoxGroup group, int index, std::string_view notice) {
  return std::to_string(static_cast<int>(group)) + ":" + std::to_string(index) + " " + std::string(notice);
}

}  // namespace

TEST_F(InputCheck, TheLimitCheckNamesEachRefusedBoxWithItsNoticeInTheNoticesOrder) {
  screen.txtInput[0] = "0.5";
  screen.txtInput[3] = "300";
  screen.txtInput[6] = "90";
  SelectOption(screen, screen.OptionCondenserType, 0);
  screen.txtInput[7] = "0.2";
  EXPECT_EQ(Check(), 1);
  const std::vector<std::string> expected = {
      Line(BoxGroup::kInput, 0, "Suction pressure outside the range: (1 - 500 mmHga)"),
      Line(BoxGroup::kInput, 3, "Motive pressure outside the range: (50 - 250 psig)"),
      Line(BoxGroup::kInput, 6, "Cooling Water Outlet Temperature is outside allowed range"),
      Line(BoxGroup::kInput, 7, "Overall fouling factor outside the range.")};
  EXPECT_EQ(RefusedLines(screen), expected);
  // The notice box is the refused notices, a line each, as before.
  std::string box;
  for (const RefusedBox& r : screen.refused) box += r.notice + "\r\n";
  EXPECT_EQ(ui.notices, std::vector<std::string>{box});
}

TEST_F(InputCheck, OverflowingBoxesAreRefusedByTheirOwnBoxIncludingVaporIds) {
  screen.txtCpph[2] = "1e39";
  screen.txtCID[3] = "40000";
  screen.txtNCMW[4] = "-4e38";
  EXPECT_EQ(Check(), 1);
  const std::vector<std::string> expected = {
      Line(BoxGroup::kCpph, 2, "Run-time error 6: Overflow in the flow of condensible load 3 (1e39)."),
      Line(BoxGroup::kCID, 3, "Run-time error 6: Overflow in the vapor ID of condensible load 4 (40000)."),
      Line(BoxGroup::kNCMW, 4, "Run-time error 6: Overflow in the molecular weight of non-condensible load 5 (-4e38).")};
  EXPECT_EQ(RefusedLines(screen), expected);
}

TEST_F(InputCheck, RefusalsLaterInTheCheckNameTheirBoxes) {
  // An unknown vapor and no gas load: the ID box, and the first gas row's flow and weight.
  screen.txtCID[1] = "1999";
  screen.txtCpph[1] = "10";
  screen.txtNCpph[0] = "";
  EXPECT_EQ(Check(), 1);
  const std::string gas = "NOTE: A minimum of 1 non-condensible load is required!";
  EXPECT_EQ(RefusedLines(screen),
            (std::vector<std::string>{
                Line(BoxGroup::kCID, 1, "Condensible load 2: vapor ID 1999 is not in the vapor data base."),
                Line(BoxGroup::kNCpph, 0, gas), Line(BoxGroup::kNCMW, 0, gas)}));
  // Too much compression for the first stage: suction pressure and water temperature, either may change.
  screen.txtCID[1] = "3";
  screen.txtNCpph[0] = "20";
  screen.txtInput[0] = "1";
  screen.txtInput[5] = "125";
  EXPECT_EQ(Check(), 1);
  ASSERT_EQ(screen.refused.size(), 2u);
  EXPECT_EQ(screen.refused[0].box, (BoxRef{BoxGroup::kInput, 0}));
  EXPECT_EQ(screen.refused[1].box, (BoxRef{BoxGroup::kInput, 5}));
  EXPECT_EQ(screen.refused[0].notice.rfind("Error: The compression range of the first stage ejector", 0), 0u);
}

TEST_F(InputCheck, ACheckThatPassesOrOnlyAdvisesLeavesNoBoxRefused) {
  screen.txtInput[2] = "750";
  EXPECT_EQ(Check(), 1);
  EXPECT_EQ(screen.refused.size(), 1u);
  screen.txtInput[2] = "770";
  screen.txtInput[0] = "150";  // the stage advice is a notice, not a refusal
  screen.chkboxPreCondenser = 1;
  SelectOption(screen, screen.OptionCondenserType, 3);  // and so is the precondenser warning
  EXPECT_EQ(Check(), 0);
  EXPECT_NE(Box().find("Precondenser option"), std::string::npos);
  EXPECT_TRUE(screen.refused.empty());
}

TEST_F(InputCheck, ALeaveCheckMarksItsBoxAndItsPairUntilAValueInEitherPasses) {
  const BoxRef suction{BoxGroup::kInput, 0}, suction_kpa{BoxGroup::kInputA, 0};
  screen.txtInput[0] = "600";
  EXPECT_FALSE(ChkTxtInput(screen, suction, steam, ui));
  EXPECT_EQ(RefusalOf(screen, suction), "Suction pressure outside the range: (1 - 500 mmHga)");
  EXPECT_EQ(RefusalOf(screen, suction_kpa), RefusalOf(screen, suction)) << "the pair shows the same value";
  EXPECT_EQ(RefusalOf(screen, {BoxGroup::kInput, 1}), "");
  screen.txtInput[0] = "1,5";
  EXPECT_FALSE(ChkTxtInput(screen, suction, steam, ui));
  EXPECT_EQ(RefusalOf(screen, suction), "Please enter a number (without commas) in this box.") << "the latest refusal only";
  screen.txtInputA[0] = "8";
  EXPECT_TRUE(ChkTxtInput(screen, suction_kpa, steam, ui));
  EXPECT_EQ(RefusalOf(screen, suction), "");
  EXPECT_TRUE(screen.refused.empty());
}

TEST_F(InputCheck, ABoxRefusedByTheInputCheckStaysMarkedUntilANewValuePasses) {
  screen.txtInput[3] = "300";
  EXPECT_EQ(Check(), 1);
  ASSERT_NE(RefusalOf(screen, {BoxGroup::kInputA, 3}), "");
  // A refused value left as it is stays marked; a new value that fails its leave check too.
  EXPECT_FALSE(ChkTxtInput(screen, {BoxGroup::kInput, 3}, steam, ui));
  screen.txtInput[3] = "150";
  EXPECT_TRUE(ChkTxtInput(screen, {BoxGroup::kInput, 3}, steam, ui));
  EXPECT_EQ(RefusalOf(screen, {BoxGroup::kInput, 3}), "");
  // A vapor ID has no leave check: the same text keeps the mark, a new one lifts it and is an edit.
  screen.txtCID[2] = "1999";
  screen.txtCpph[2] = "5";
  EXPECT_EQ(Check(), 1);
  const BoxRef id{BoxGroup::kCID, 2};
  screen.CASEDIRTY = 0;
  EditVaporId(screen, 2, "1999");
  EXPECT_NE(RefusalOf(screen, id), "");
  EXPECT_EQ(screen.CASEDIRTY, 0);
  EditVaporId(screen, 2, "3");
  EXPECT_EQ(RefusalOf(screen, id), "");
  EXPECT_EQ(screen.txtCID[2], "3");
  EXPECT_EQ(screen.CASEDIRTY, 1);
  EXPECT_EQ(screen.Box(id), "3");
}

TEST(InputScreenModel, TheCaptionBesideAVaporIdNamesTheVaporTheCheckWouldRead) {
  const VaporData& data = Shipped().vapors;
  const UserVapors& user = Shipped().user;
  EXPECT_EQ(VaporIdCaption(data, user, 1, "3"), Trim(data.PSATNAME(3)));
  EXPECT_EQ(VaporIdCaption(data, user, 1, " 2.6 "), Trim(data.PSATNAME(3))) << "rounded as the check rounds";
  EXPECT_EQ(VaporIdCaption(data, user, 1, "-1"), "Mine");
  EXPECT_EQ(VaporIdCaption(data, user, 0, "WATER"), "WATER");
  EXPECT_EQ(VaporIdCaption(data, user, 1, ""), "");
  EXPECT_EQ(VaporIdCaption(data, user, 1, "  "), "");
  for (const char* none : {"1999", "-2", "0", "abc", "40000"}) {
    EXPECT_EQ(VaporIdCaption(data, user, 1, none), "No vapor has this ID.") << none;
  }
}

TEST(InputScreenModel, UserVaporsAreSearchedByNameAsTheBuiltInGridIs) {
  UserVapors user = Shipped().user;
  user.NUDV = 2;
  user.UDVNAME(2) = "Blend B             ";
  const auto rows = UserVaporGridText(user);
  EXPECT_EQ(rows, (std::vector<std::vector<std::string>>{{"Mine"}, {"Blend B"}}));
  EXPECT_EQ(SearchVaporRows(rows, "blend", 0, true).row, 2);
  EXPECT_EQ(SearchVaporRows(rows, "MINE", 2, false).row, 1);
}
