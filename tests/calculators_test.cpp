// The engineering calculators: Nupreir, conversions, tail leg, gas volume and mass, gas pressure drop.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>

#include "calculators/conversions.h"
#include "calculators/gas_flow.h"
#include "calculators/nupreir.h"
#include "calculators/pressure_drop.h"
#include "calculators/tail_leg.h"
#include "properties/numeric.h"
#include "shell/forms.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kSource = KESTRANE_SOURCE_DIR;

// The value and the lines one evaluation appends, or the error text.
struct Outcome {
  bool ok = false;
  std::string lines, error;
};

Outcome Calc(const std::string& expr, std::vector<NupreirVariable> vars = {}, bool radians = false) {
  NupreirScreen s;
  s.expression = expr;
  s.radians = radians;
  for (size_t i = 0; i < vars.size(); ++i) s.variables[i] = vars[i];
  RecordingUi ui;
  Outcome o;
  o.ok = Evaluate(s, ui);
  o.lines = s.results;
  if (!ui.notices.empty()) o.error = ui.notices.back();
  return o;
}

// The value at the end of the last line.
std::string ValueOf(const Outcome& o) {
  const size_t eq = o.lines.rfind(" = ");
  return eq == std::string::npos ? "" : o.lines.substr(eq + 3, o.lines.size() - eq - 5);
}

std::string Value(const std::string& expr, bool radians = false) { return ValueOf(Calc(expr, {}, radians)); }

const CvrtTable& Table() {
  static const CvrtTable table = [] {
    CvrtTable t;
    RecordingUi ui;
    ReadCvrt(kSource / "pgmfiles" / "CVRT.DTA", t, ui);
    return t;
  }();
  return table;
}

int UnitOf(const CvrtCategory& c, const std::string& short_name) {
  for (size_t i = 0; i < c.units.size(); ++i) {
    if (c.units[i].short_name == short_name) return static_cast<int>(i + 1);
  }
  ADD_FAILURE() << "no unit " << short_name;
  return 1;
}

double Convert(int category, const std::string& from, const std::string& to, double x) {
  const CvrtCategory& c = *Table().Find(category);
  return ConvertUnits(c, UnitOf(c, from), UnitOf(c, to), x);
}

class CalculatorFiles : public kestrane::testing::ScratchFolder {};

}  // namespace

// --- Nupreir -----------------------------------------------------------------

TEST(Nupreir, OperatorsGroupFromTheLeftAndSignsAfterOperatorsAreUnary) {
  EXPECT_EQ(Value("2^3^2"), "64");
  EXPECT_EQ(Value("-2^2"), "4");
  EXPECT_EQ(Value("2*-3"), "-6");
  EXPECT_EQ(Value("2--3"), "5");
  EXPECT_EQ(Value("10-4-3"), "3");
  EXPECT_EQ(Value("8/4/2"), "1");
  EXPECT_EQ(Value("1+2*3"), "7");
  EXPECT_EQ(Value("7\\2"), "0");
  EXPECT_EQ(Value("7%2"), "0");
  EXPECT_EQ(Value("(1+2)"), "3");
  EXPECT_EQ(Value("(1+2)*(3+4)"), "21");
  // A sign right behind ")" is not an operator.
  EXPECT_EQ(Calc("(1+1)-1").error, "Error evaluating '(1+1)-1' as a constant.");
  EXPECT_EQ(Calc("2*-3").lines, "\r\n2 * - 3 = -6\r\n");
}

TEST(Nupreir, ParenthesisErrorsNameTheTextAndKeepTheResults) {
  Outcome o = Calc("(1+2)+(3+4)");
  EXPECT_FALSE(o.ok);
  EXPECT_EQ(o.error, "Too many )s in '1+2)+(3+4'");
  EXPECT_EQ(o.lines, "");
  EXPECT_EQ(Calc("(1+2").error, "Missing ) in '(1+2'");
  EXPECT_EQ(Calc("(a)+b", {{"a", "1"}, {"b", "2"}}).error, "Error evaluating '(a)+b' as a constant.");
  EXPECT_EQ(Calc("foo(1)").error, "Error evaluating 'foo(1)' as a constant.");
  EXPECT_EQ(Calc("1/0").error, "Division by zero");
  EXPECT_EQ(Calc("ln(0)").error, "Invalid procedure call or argument");
  EXPECT_EQ(Calc("sqr(-1)").error, "Invalid procedure call or argument");
  try {
    Nupreir calc(false);
    calc.EvaluateExpr("2)");
    ADD_FAILURE();
  } catch (const VbError& e) {
    EXPECT_EQ(e.number(), kTooManyClosing);
  }
}

TEST(Nupreir, ExpressionsTooDeepOrTooLongEndInAMessageNotACrash) {
  const std::string deep = std::string(60000, '-') + "1";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(Calc(deep).error, "Out of stack space");
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60)) << "it used to run for a minute, then crash";
  EXPECT_EQ(Calc(std::string(Nupreir::kMaxLength + 1, '1')).error, "Out of stack space");
  // Within the bounds the recursion works as written.
  EXPECT_EQ(Value(std::string(998, '-') + "1"), "1");
  EXPECT_EQ(Value(std::string(997, '-') + "1"), "-1");
  std::string sum = "1";
  for (int i = 1; i < 900; ++i) sum += "+1";
  EXPECT_EQ(Value(sum), "900");
  // After a refusal the same calculator works again: the depth is counted back.
  Nupreir calc(false);
  EXPECT_THROW(calc.EvaluateExpr(deep), VbError);
  EXPECT_EQ(calc.EvaluateExpr("2*3"), 6.0f);
}

TEST(Nupreir, PiIsTheDoublesTextAndConstantsAreSinglesWithTheirFaults) {
  EXPECT_EQ(Calc("pi").lines, "\r\npi = \r\n3.141592654 = 3.141593\r\n");
  EXPECT_EQ(Calc("1e39").error, "Overflow");
  EXPECT_EQ(Calc("2*x", {{"x", "1e39"}}).error, "Overflow");
  EXPECT_EQ(Calc("1,000+1").error, "Error evaluating '1,000' as a constant.");
}

TEST(Nupreir, FunctionsWorkInDegreesOrRadiansWhateverTheCase) {
  EXPECT_EQ(Value("sin(90)"), "1");
  EXPECT_EQ(Value("SIN(90)"), "1");
  EXPECT_EQ(Value("cos(60)"), "0.5");
  EXPECT_EQ(Value("atn(1)"), "45");
  EXPECT_EQ(Value("asn(1)"), "90");
  EXPECT_EQ(Value("asn(-1)"), "90");  // the sign is not applied at -1
  EXPECT_EQ(Value("asn(0.5)"), "30");
  EXPECT_EQ(Value("sin(pi/2)", true), "1");
  EXPECT_EQ(Value("log(1000)"), "3");
  EXPECT_EQ(Value("exp(0)"), "1");
  EXPECT_EQ(Value("sqr(16)"), "4");
  EXPECT_FLOAT_EQ(ASN(1), 1.570796327f);
  EXPECT_FLOAT_EQ(ASN(-1), 1.570796327f);
}

TEST(Nupreir, VariablesAreCaseInsensitiveAndEvaluatedValuesStoredAsText) {
  EXPECT_EQ(Value("PI"), Value("pi"));
  const Outcome o = Calc("r*2", {{"a", "2*pi"}, {"R", "a/2"}});
  ASSERT_TRUE(o.ok) << o.error;
  EXPECT_EQ(o.lines, "\r\nr*2 = \r\n3.141593 * 2 = 6.283186\r\n");
  const Outcome twice = Calc("pi", {{"PI", "3"}});
  EXPECT_FALSE(twice.ok);
  EXPECT_EQ(twice.error, "This key is already associated with an element of this collection");
  const Outcome numeric = Calc("1", {{"12", "3"}});
  EXPECT_FALSE(numeric.ok);
  EXPECT_EQ(numeric.error, "Variable name must not be fully numeric: 12");
  // A name without a value is skipped, and then unknown.
  EXPECT_EQ(Calc("x", {{"x", ""}}).error, "Error evaluating 'x' as a constant.");
}

TEST(Nupreir, AnEmptyExpressionBeepsAndAddsNothing) {
  NupreirScreen s;
  s.expression = "   ";
  RecordingUi ui;
  EXPECT_FALSE(Evaluate(s, ui));
  EXPECT_EQ(ui.beeps, 1);
  EXPECT_TRUE(s.results.empty());
}

TEST(Nupreir, HistoryKeepsTwentyNewestFirstWithoutRepeatingTheTop) {
  NupreirScreen s;
  for (int i = 1; i <= 25; ++i) {
    s.expression = " " + std::to_string(i) + " ";
    PreCalc(s);
  }
  ASSERT_EQ(s.history.size(), 20u);
  EXPECT_EQ(s.history.front(), "25");
  EXPECT_EQ(s.history.back(), "6");
  s.expression = "25";
  PreCalc(s);
  EXPECT_EQ(s.history.size(), 20u);
  EXPECT_EQ(s.history[1], "24");
}

TEST_F(CalculatorFiles, GoFigureSheetsRoundTripAndADamagedOneKeepsWhatWasRead) {
  RecordingUi ui;
  NupreirScreen s;
  ASSERT_TRUE(ReadGoFigure(kSource / "usrfiles" / "INLET-VOLUME.GFR", s, ui));
  EXPECT_EQ(s.variables[0].name, "W");
  EXPECT_EQ(s.history.size(), 2u);
  EXPECT_NE(s.results.find("= 534.8223\r\n"), std::string::npos);
  ASSERT_TRUE(WriteGoFigure(dir / "COPY.GFR", s, ui));
  EXPECT_TRUE(ReadBytes(dir / "COPY.GFR") == ReadBytes(kSource / "usrfiles" / "INLET-VOLUME.GFR"));
  EXPECT_EQ(s.dirty, 0);
  WriteBytes(dir / "BAD.GFR", "1.00\r\n1\r\nx\r\n5\r\n");
  NupreirScreen bad;
  EXPECT_FALSE(ReadGoFigure(dir / "BAD.GFR", bad, ui));
  EXPECT_EQ(ui.notices.back(), "ReadGoFigure Error: 62 Input past end of file");
  EXPECT_TRUE(bad.radians);
  EXPECT_EQ(bad.variables[0].name, "x");
  EXPECT_EQ(bad.variables[0].value, "5");
}

// --- Conversions -------------------------------------------------------------

TEST(Conversions, GeneratorReproducesTheCommittedTableByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_cvrt_" + std::to_string(::getpid()) + ".DTA");
  const std::string cmd = "/usr/bin/python3 '" + (kSource / "tools" / "make_cvrt.py").string() + "' '" + out.string() + "'";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  EXPECT_TRUE(ReadBytes(out) == ReadBytes(kSource / "pgmfiles" / "CVRT.DTA"));
  fs::remove(out);
}

TEST(Conversions, EveryUnitGoesToEveryOtherAndBack) {
  ASSERT_GE(Table().categories.size(), 15u);
  for (const CvrtCategory& c : Table().categories) {
    const int n = static_cast<int>(c.units.size());
    for (int a = 1; a <= n; ++a) {
      for (int b = 1; b <= n; ++b) {
        const double x = 123.456;
        const double back = ConvertUnits(c, b, a, ConvertUnits(c, a, b, x));
        EXPECT_NEAR(back, x, 1e-9 * x) << CategoryName(c.number) << " " << c.units[a - 1].short_name << " "
                                       << c.units[b - 1].short_name;
      }
    }
  }
}

TEST(Conversions, FactorsAgreeWithPublishedValues) {
  EXPECT_NEAR(Convert(1, "atm", "mmHgA", 1), 760.0, 1e-3);
  EXPECT_NEAR(Convert(1, "torr", "mmHgA", 1), 1.0, 2e-7);
  EXPECT_NEAR(Convert(1, "micron", "mmHgA", 1000), 1.0, 1e-12);
  EXPECT_NEAR(Convert(1, "psig", "psia", 0), 14.6959488, 1e-6);
  EXPECT_NEAR(Convert(1, "inHgA", "mmHgA", 1), 25.4, 1e-9);
  EXPECT_NEAR(Convert(1, "inHg vac", "mmHgA", 29.92), 0.032, 0.01);
  EXPECT_NEAR(Convert(1, "bar g", "kPa", 0), 101.325, 1e-9);
  EXPECT_NEAR(Convert(2, "degF", "degC", 212), 100.0, 1e-9);
  EXPECT_NEAR(Convert(2, "degC", "degF", -40), -40.0, 1e-9);
  EXPECT_NEAR(Convert(2, "degR", "K", 491.67), 273.15, 1e-9);
  EXPECT_NEAR(Convert(3, "lb/hr", "kg/hr", 1), 0.45359237, 1e-12);
  EXPECT_NEAR(Convert(4, "gpm", "m3/hr", 1), 0.2271247, 1e-7);
  EXPECT_NEAR(Convert(10, "hp", "kW", 1), 0.7456999, 1e-7);
  EXPECT_NEAR(Convert(12, "Btu/hr-ft2-F", "W/m2-K", 1), 5.678263, 1e-6);
  EXPECT_NEAR(Convert(13, "hr-ft2-F/Btu", "m2-K/W", 1), 0.1761102, 1e-7);
  EXPECT_NEAR(Convert(15, "lb/ft-hr", "cP", 1), 0.4133789, 1e-7);
  EXPECT_NEAR(Convert(18, "Btu/lb-F", "kJ/kg-K", 1), 4.1868, 1e-9);
}

TEST(Conversions, TheShownFormDependsOnTheSizeOfTheResult) {
  CvrtCategory same{99, {{"unit", "u", 1, 1, 0, 0}}};
  EXPECT_EQ(CVRT(same, 1, 1, 999.99), "999.9900");
  EXPECT_EQ(CVRT(same, 1, 1, 1000), "1000.00");
  EXPECT_EQ(CVRT(same, 1, 1, 6894688.35), "6894688.35") << "a Double result keeps its own digits";
  EXPECT_EQ(CVRT(same, 1, 1, 0.5), "0.500000000");
  EXPECT_EQ(CVRT(same, 1, 1, 1), "1.000000");
  EXPECT_EQ(CVRT(same, 1, 1, -5000), "-5000.000000000");  // a negative result counts as small
}

TEST_F(CalculatorFiles, AMissingOrDamagedConversionFileIsReported) {
  const std::string message =
      "An error has occurred reading the conversion data file (CVRT.DTA).  Check to make sure this file is in the "
      "'pgmfiles' directory of the Kestrane program.  If not, try re-installing Kestrane.  If the problem persists, "
      "contact Tessel Corporation.";
  RecordingUi ui;
  CvrtTable t;
  EXPECT_FALSE(ReadCvrt(dir / "CVRT.DTA", t, ui));
  EXPECT_EQ(ui.notices.back(), message);
  WriteBytes(dir / "CVRT.DTA", "1,\"Meter\",\"m\",1,1,0,0\r\n1,\"Foot\",\"ft\",x,1,0,0\r\n");
  EXPECT_FALSE(ReadCvrt(dir / "CVRT.DTA", t, ui));
  EXPECT_EQ(ui.notices.size(), 2u);
  WriteBytes(dir / "CVRT.DTA", "1,\"Meter\",\"m\",1,1,0,0\n2,\"Foot\",\"ft\",0.3048,1,0,0\n");
  ASSERT_TRUE(ReadCvrt(dir / "CVRT.DTA", t, ui));
  EXPECT_EQ(t.categories.size(), 2u);
  EXPECT_EQ(t.lines, 2);
  EXPECT_EQ(CVRT(t.categories[1], 1, 1, 3), "3.000000");
}

TEST_F(CalculatorFiles, AConversionFileWhoseFirstCategoryIsNumberedZeroStartsItsCategoryThere) {
  RecordingUi ui;
  CvrtTable t;
  WriteBytes(dir / "CVRT.DTA", "0,\"Meter\",\"m\",1,1,0,0\r\n0,\"Foot\",\"ft\",0.3048,1,0,0\r\n1,\"Gram\",\"g\",1,1,0,0\r\n");
  ASSERT_TRUE(ReadCvrt(dir / "CVRT.DTA", t, ui));
  ASSERT_EQ(t.categories.size(), 2u);
  EXPECT_EQ(t.categories[0].number, 0);
  EXPECT_EQ(t.categories[0].units.size(), 2u);
  EXPECT_EQ(t.categories[1].units.size(), 1u);
}

// --- Tail leg ----------------------------------------------------------------

TEST(TailLeg, AtmosphereOverFullVacuumNeedsAboutThirtyFourFeetOfWater) {
  TailLegScreen s;
  s.txtTailLeg = {"760", "0", "1"};
  ASSERT_TRUE(CalculateTailLeg(s));
  EXPECT_EQ(s.lblAns[0], "33.9 feet");
  EXPECT_EQ(s.lblAns[1], "10.3 meters");
  s.txtTailLeg = {"100", "200", "1.2"};
  ASSERT_TRUE(CalculateTailLeg(s));
  EXPECT_EQ(s.lblAns[0], "-3.7 feet");  // shown as it comes
  s.txtTailLeg = {"760", "0", "0"};
  EXPECT_FALSE(CalculateTailLeg(s));
  EXPECT_EQ(s.lblAns[0], "-3.7 feet");
}

TEST(TailLeg, BoxesLightUpWhileFocusedAndTheReceiverStartsAtOneAtmosphere) {
  EXPECT_EQ(FocusLook(true).backcolor, 10);
  EXPECT_TRUE(FocusLook(true).select_all);
  EXPECT_EQ(FocusLook(false).backcolor, 15);
  EXPECT_FALSE(FocusLook(false).select_all);
  TailLegScreen fresh;
  EXPECT_EQ(fresh.txtTailLeg[0], "760");
}

// --- Gas volume and mass -----------------------------------------------------

TEST(GasFlow, AirAtSixtyFAndOneAtmosphereIsTheSameInActualAndStandardFeet) {
  GasFlowScreen s;
  s.txtMW = "29";
  s.txtTemperature[0] = "60";
  s.txtMassFlow[0] = "100";
  ASSERT_TRUE(GasMassVolCalcs(s));
  EXPECT_EQ(s.txtVolFlow[0], "21.78");
  EXPECT_EQ(s.txtVolFlow[1], "21.78");
  // Back from the standard volume to the mass.
  SelectMassOrVolume(s, 1);
  SelectGasOption(s, GasGroup::kVolFlow, 1);
  s.txtVolFlow[1] = "21.78";
  ASSERT_TRUE(GasMassVolCalcs(s));
  EXPECT_NEAR(Val(s.txtMassFlow[0]), 100.0, 0.02);  // from the rounded 21.78
  EXPECT_NEAR(Val(s.txtMassFlow[1]), 45.36, 0.02);
}

TEST(GasFlow, UnitBoxesFollowTheActiveOneAndGaugeAddsTheAtmosphere) {
  GasFlowScreen s;
  SelectGasOption(s, GasGroup::kPressure, 1);
  EXPECT_EQ(s.txtPressure[0], "");  // the boxes not active are emptied
  EXPECT_TRUE(GasBoxEnabled(s, GasGroup::kPressure, 1));
  EXPECT_FALSE(GasBoxEnabled(s, GasGroup::kPressure, 0));
  s.txtPressure[1] = "0";
  UpdateGasUnits(s, GasGroup::kPressure);
  EXPECT_EQ(s.txtPressure[0], "760.00");
  EXPECT_EQ(s.txtPressure[2], "14.70");
  EXPECT_EQ(s.txtPressure[4], "101.33");
  SelectGasOption(s, GasGroup::kTemperature, 1);
  s.txtTemperature[1] = "100";
  UpdateGasUnits(s, GasGroup::kTemperature);
  EXPECT_EQ(s.txtTemperature[0], "212.00");
  EXPECT_FALSE(GasBoxEnabled(s, GasGroup::kVolFlow, 0));  // mass flow is entered
}

TEST(GasFlow, MissingInputsAreSaidAndNothingChanges) {
  GasFlowScreen s;
  s.txtMassFlow[0] = "100";
  EXPECT_FALSE(GasMassVolCalcs(s));
  EXPECT_FALSE(s.message.empty());
  EXPECT_EQ(s.txtVolFlow[0], "");
}

// --- Gas pressure drop -------------------------------------------------------

namespace {

DpScreen Line(bool hei, std::vector<std::string> fields) {
  DpScreen s;
  s.hei = hei;
  for (size_t k = 0; k < fields.size(); ++k) s.txtEV[k + 1] = fields[k];
  return s;
}

}  // namespace

TEST(PressureDrop, SwingCheckValvesChangeAtSixAndFiveEighthsInches) {
  RecordingUi ui;
  for (const auto& [id, ld, metric] : {std::tuple{"6.625", 100.0, false}, std::tuple{"6.626", 50.0, false},
                                        std::tuple{"168.27", 100.0, true}, std::tuple{"168.3", 50.0, true}}) {
    DpScreen s = Line(true, {"100", "100", "0", "", "100", id, "0", "0", "0", "0", "0", "0", "0", "1"});
    s.standard = !metric;
    ASSERT_TRUE(Calculate_DP(s, ui)) << id;
    const double d = Val(id) / (metric ? 25.4 : 1) / 12;
    const std::string expected =
        FormatBySize(static_cast<float>(ld * d * (metric ? 0.3048 : 1)), 10);
    EXPECT_NE(s.results.find("# of Swing Check Valves.......(L/D=  *)         1" + expected), std::string::npos)
        << id << "\n" << s.results;
  }
}

TEST(PressureDrop, TheFormulaMethodTakesOneStepWhenTheDropIsSmall) {
  RecordingUi ui;
  DpScreen s = Line(false, {"50", "100", "29", "0.018", "100", "4", "100"});
  ASSERT_TRUE(Calculate_DP(s, ui));
  const double g = 1.25 * (0.01919798 * 560 * 100 * std::pow(50.0, 1.75) * std::pow(0.018, 0.25)) /
                   (std::pow(4.0, 4.75) * 29 * 100);
  EXPECT_EQ(s.total, Trim(FormatFixed(static_cast<float>(g), 10.4f)));
  EXPECT_NE(s.results.find("Total calculated pressure drop:" + FormatFixed(static_cast<float>(g), 10.4f) + " mmHg"),
            std::string::npos);
  // No fittings and no straight pipe: no table, no drop.
  DpScreen empty = Line(false, {"50", "100", "29", "0.018", "100", "4", "0"});
  ASSERT_TRUE(Calculate_DP(empty, ui));
  EXPECT_EQ(empty.results.find("Description"), std::string::npos);
  EXPECT_EQ(empty.total, "0.0000");
}

TEST(PressureDrop, ChartFactorsFollowTheirCurvesAndExtrapolatePastThem) {
  double a = 0, b = 0;
  int out = 0;
  CT(60, a, b, 0, out);
  EXPECT_NEAR(a, 0.975, 1e-12);
  EXPECT_EQ(out, 0);
  CT(60, a, b, 1, out);
  EXPECT_NEAR(b, 1.32, 1e-12);
  CT(1200, a, b, 0, out);
  EXPECT_EQ(out, 1);
  EXPECT_GT(a, 2.795);  // the last segment continued
  CT(10, a, b, 0, out);
  EXPECT_EQ(out, 1);
  EXPECT_LT(a, 0.91);
  CD(0.5, a, b, out);
  EXPECT_EQ(out, 1);
  f(5, a, b, out);
  EXPECT_EQ(out, 1);
  // Fluid code 2 is air: the same result as code 0.
  RecordingUi ui;
  DpScreen air = Line(true, {"100", "100", "0", "", "50", "4", "100"});
  DpScreen two = Line(true, {"100", "100", "2", "", "50", "4", "100"});
  DpScreen steam = Line(true, {"100", "100", "1", "", "50", "4", "100"});
  ASSERT_TRUE(Calculate_DP(air, ui) && Calculate_DP(two, ui) && Calculate_DP(steam, ui));
  EXPECT_EQ(air.total, two.total);
  EXPECT_NE(air.total, steam.total);
}

TEST(PressureDrop, FailuresAreSaidUnlessQuiet) {
  RecordingUi ui;
  DpScreen fast = Line(false, {"5000", "100", "29", "0.018", "10", "2", "10"});
  EXPECT_FALSE(Calculate_DP(fast, ui));
  EXPECT_EQ(ui.notices.back(), "Error: Velocity beyond 500 fps!!!");
  DpScreen choked = Line(false, {"50", "100", "29", "0.018", "20", "8", "100000"});
  EXPECT_FALSE(Calculate_DP(choked, ui));
  EXPECT_EQ(ui.notices.back(), "No solution found!!!  Pressure drop probably exceeds inlet pressure.....");
  DpScreen zero = Line(false, {"100", "100", "29", "0.018", "50", "0", "10"});
  EXPECT_FALSE(Calculate_DP(zero, ui));
  EXPECT_EQ(ui.notices.back(), "Error in pressure drop calculation.  Check input and retry.");
  const size_t shown = ui.notices.size();
  EXPECT_FALSE(Calculate_DP(zero, ui, true));
  EXPECT_EQ(ui.notices.size(), shown);
  DpScreen thin = Line(true, {"30", "100", "0", "", "50", "4", "10"});
  EXPECT_TRUE(Calculate_DP(thin, ui));
  EXPECT_EQ(ui.notices.back(), "Warning: W/d < 20 !  RESULTS NOT VALID PER HEI!");
}

TEST_F(CalculatorFiles, PressureDropCasesRoundTripWithTheirFlags) {
  RecordingUi ui;
  for (const char* name : {"LINE-LOSS-HEI.TDP", "LINE-LOSS-FORMULA-METRIC.TDP"}) {
    DpScreen s;
    ASSERT_TRUE(ReadDpFile(kSource / "usrfiles" / name, s, ui)) << name;
    ASSERT_TRUE(WriteDpFile(dir / name, s, ui));
    EXPECT_TRUE(ReadBytes(dir / name) == ReadBytes(kSource / "usrfiles" / name)) << name;
    EXPECT_EQ(DpCaption(s), std::string("Kestrane-Gas Pressure Drop Estimation   Current File:") + name);
  }
  DpScreen metric;
  ASSERT_TRUE(ReadDpFile(kSource / "usrfiles" / "LINE-LOSS-FORMULA-METRIC.TDP", metric, ui));
  EXPECT_FALSE(metric.hei);
  EXPECT_FALSE(metric.standard);
  EXPECT_EQ(DpFieldCaption(metric, 6), "Pipe inside diameter (mm)");
  EXPECT_EQ(DpFieldCaption(metric, 3), "Molecular weight");
  EXPECT_EQ(DpFieldCaption(metric, 14), "# of Swing Check Valves.......(L/D=  *)");
  WriteBytes(dir / "BAD.TDP", "1.00\r\nMaybe\r\n");
  DpScreen bad;
  EXPECT_FALSE(ReadDpFile(dir / "BAD.TDP", bad, ui));
  EXPECT_EQ(ui.notices.back(), "ReadDpFile Error: 13 Type mismatch");
  bad.dirty = 1;
  bad.file = (dir / "X.TDP").string();
  EXPECT_EQ(CheckToStoreDpFile(bad, ui), StoreDecision::kDeclined);
  EXPECT_EQ(ui.questions.back(), "DpVac: The file \"X.TDP\" has been changed!\r\n\r\nDo you want to save changes?");
  ResetDpVac(bad);
  EXPECT_TRUE(bad.hei);
  EXPECT_EQ(DpCaption(bad), "Kestrane-Gas Pressure Drop Estimation ");
}
