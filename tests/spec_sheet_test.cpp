// The specification sheet on designs of the examples: template texts and values at their columns in standard and
// metric units, the stage and condenser lines of each kind of train, the pump lines, and the printed page.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "case/jet_file.h"
#include "documents/page_frame.h"
#include "documents/spec_sheet.h"
#include "documents/text_pages.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "properties/text_codec.h"
#include "pump/pump_selection.h"
#include "design_support.h"
#include "test_support.h"

using namespace kestrane;
namespace fs = std::filesystem;

namespace {

const char* const kDesignedExamples[] = {
    "AUTOMATIC-SURFACE.JET",          "FOUR-STAGE-SURFACE.JET",    "LRVP-ONLY-50HZ.JET",     "METRIC-TWO-STAGE.JET",
    "ONE-STAGE-NO-CONDENSERS.JET",    "SOLVENT-LOADS-THREE-STAGE.JET", "THREE-STAGE-DIRECT-CONTACT.JET",
    "TWO-STAGE-LRVP.JET",             "TWO-STAGE-PRECONDENSER.JET", "TWO-STAGE-SURFACE-TUBE-SIDE.JET"};
const std::string kDate = "Nov 05, 2026";

// The text of `line` from `column` (counted from 1) on, `length` characters long.
std::string At(const std::string& line, int column, size_t length) {
  return line.substr(static_cast<size_t>(column - 1), length);
}

// The text of a list box's selection on the input screen.
std::string Selected(const InputScreen& screen, ListBox box) {
  return std::string(ListBoxDefinition(box).entries[static_cast<size_t>(screen.lists[static_cast<size_t>(box)])]);
}

bool PartOfField(char c) { return c != ' ' && c != '_' && c != '/'; }

// The field ending exactly at `column`: what stands there back to a blank, an underscore or a slash; empty when
// the field goes on past the column.
std::string EndingAt(const std::string& line, int column) {
  if (static_cast<size_t>(column) < line.size() && PartOfField(line[static_cast<size_t>(column)])) return "";
  size_t start = static_cast<size_t>(column);
  while (start > 0 && PartOfField(line[start - 1])) --start;
  return line.substr(start, static_cast<size_t>(column) - start);
}

// The field starting exactly at `column`, up to a blank, an underscore or a slash.
std::string StartingAt(const std::string& line, int column) {
  const size_t start = static_cast<size_t>(column - 1);
  if (start > 0 && PartOfField(line[start - 1])) return "";
  size_t end = start;
  while (end < line.size() && PartOfField(line[end])) ++end;
  return line.substr(start, end - start);
}

// The number ending at `column`; NaN when none stands there.
double NumberEndingAt(const std::string& line, int column) {
  const std::string field = EndingAt(line, column);
  return field.empty() ? std::nan("") : std::stod(field);
}

// A text of the sheet's templates at its line and column.
struct SheetText {
  int line, column;
  std::string_view text;
};
const char* const kStageLineText = "   ____________________Stage Ejector.       Size_______________________";
const SheetText kTemplateTexts[] = {
    {3, 27, "TESSEL CORPORATION"},
    {4, 20, "VACUUM SYSTEM SPECIFICATION SHEET"},
    {6, 4, "Item:"},
    {6, 55, "Date:"},
    {7, 55, "User:"},
    {8, 4, "Description:"},
    {11, 2, "________________________________________________________________________"},
    {13, 4, "Absolute pressure maintained at"},
    {14, 4, "Temp @ Suction Inlet"},
    {14, 47, "Steam Press"},
    {15, 4, "Non-condensibles"},
    {17, 47, "Disch Press"},
    {40, 17, "*** CONDENSER MATERIALS & DESIGN ***"},
    {41, 50, "PROCESS    WATER"},
    {46, 23, "*** EJECTOR MATERIALS ***"},
    {52, 4, "Tessel Designation:"},
    {53, 4, "Utilities: Steam"},
    {54, 4, "Total annual utility cost: $"},
    {53, 70, "KW"}};

// A unit word of the performance and utility lines in both units, at the column where the longer one starts.
struct UnitWord {
  int line, column;
  std::string_view standard, metric;
};
const UnitWord kUnitWords[] = {{13, 67, "mmHgA", " KPaA"}, {14, 32, "degF", "degC"}, {14, 68, "psig", "Barg"},
                               {15, 68, "degF", "degC"},   {17, 32, "#/hr", "kg/h"}, {17, 67, "mmHgA", " KPaA"},
                               {53, 29, "#/hr", "kg/h"},   {53, 48, " gpm", "M3/h"}};

class SpecSheet : public kestrane::testing::ExampleDesign {
 protected:
  // Designs an example as its file has it; `metric` then picks the units of the sheet.
  void Design(const std::string& file, bool metric) {
    DesignExample(file);
    SelectOption(screen, screen.OptionUnits, metric ? 1 : 0);
  }
  std::vector<std::string> Sheet() { return SpecSheetLines(ctx, screen.CASENAME, kDate); }
  // The sheet as the design now stands gives no lines and tells the user `notice` alone.
  void ExpectFault(const std::string& notice) {
    ui.notices.clear();
    EXPECT_TRUE(Sheet().empty());
    EXPECT_EQ(ui.notices, std::vector<std::string>{notice});
  }
};

// --- Every example -------------------------------------------------------------------

TEST_F(SpecSheet, EveryExampleHasItsTemplateTextsAtTheirColumnsInBothUnits) {
  for (const char* example : kDesignedExamples) {
    for (bool metric : {false, true}) {
      SCOPED_TRACE(std::string(example) + (metric ? " metric" : " standard"));
      Design(example, metric);
      const std::vector<std::string> s = Sheet();
      ASSERT_EQ(s.size(), 60u);
      for (const std::string& line : s) EXPECT_EQ(ToCodePoints(line).size(), 76u) << line;
      EXPECT_EQ(s[0], std::string(76, ' '));
      for (const SheetText& t : kTemplateTexts) {
        EXPECT_EQ(At(s[static_cast<size_t>(t.line - 1)], t.column, t.text.size()), t.text) << "line " << t.line;
      }
      for (size_t i = 0; i < kMakerLines.size(); ++i) EXPECT_EQ(Trim(s[57 + i]), kMakerLines[i]);
      // The unit words: the metric ones overwrite the standard ones, a shorter one with a blank before it.
      for (const UnitWord& u : kUnitWords) {
        const std::string_view word = metric ? u.metric : u.standard;
        EXPECT_EQ(At(s[static_cast<size_t>(u.line - 1)], u.column, word.size()), word) << "line " << u.line;
      }
    }
  }
}

TEST_F(SpecSheet, HeadNamesTheCaseTheUserTheFileStemAndTheDate) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  screen.txtHeadingInput = {"  EJ-106 ", "Four stages for deep vacuum", " J. Engineer"};
  const std::vector<std::string> s = SpecSheetLines(ctx, "DEEP.VACUUM.JET", kDate);
  EXPECT_EQ(At(s[5], 17, 7), "EJ-106 ");
  EXPECT_EQ(At(s[5], 61, 12), kDate);
  EXPECT_EQ(At(s[6], 61, 12), "J. Engineer ");
  EXPECT_EQ(At(s[7], 17, 27), "Four stages for deep vacuum");
  EXPECT_EQ(At(s[7], 60, 6), " DEEP ");
  EXPECT_EQ(Trim(s[9]), "Four Stage Vacuum System Performance");
  EXPECT_EQ(At(s[9], 38 - 36 / 2, 4), "Four");
  // An unsaved case has no file name.
  EXPECT_EQ(At(SpecSheetLines(ctx, "", kDate)[7], 55, 22), "File:" + std::string(17, ' '));
}

// --- Values against the design record ------------------------------------------------------

TEST_F(SpecSheet, PerformanceAndUtilitiesAreTheRecordsValuesRightAlignedAtTheirColumns) {
  for (bool metric : {false, true}) {
    SCOPED_TRACE(metric ? "metric" : "standard");
    Design("SOLVENT-LOADS-THREE-STAGE.JET", metric);
    const std::vector<std::string> s = Sheet();
    const double lb = metric ? 2.2045993805 : 1.0;
    EXPECT_NEAR(NumberEndingAt(s[12], 65), metric ? dc.PSUCT / 7.5 : dc.PSUCT, metric ? 0.0051 : 0.051);
    EXPECT_NEAR(NumberEndingAt(s[13], 30), metric ? (dc.TSUCT - 32) / 1.8 : dc.TSUCT, 0.051);
    EXPECT_NEAR(NumberEndingAt(s[13], 65), metric ? dc.PMOTIVE / 14.5038 : dc.PMOTIVE, metric ? 0.0051 : 0.051);
    EXPECT_NEAR(NumberEndingAt(s[16], 65), metric ? dc.PDISCH / 7.5 : dc.PDISCH, 0.051);

    // Steam is load 1; the rest with a vapor pressure are condensible vapors, those without non-condensibles.
    double nc = 0, nc_mol = 0, cv = 0, cv_mol = 0;
    for (int load = 2; load <= dc.NLOADS; ++load) {
      const double m = dc.LOADS(kLoadPPH, load), mw = dc.LOADS(kLoadMW, load);
      (dc.LOADS(kLoadVPC1, load) > 0 ? cv : nc) += m;
      (dc.LOADS(kLoadVPC1, load) > 0 ? cv_mol : nc_mol) += m / mw;
    }
    ASSERT_GT(cv, 0);
    EXPECT_NEAR(NumberEndingAt(s[14], 30), nc / lb, 0.051);
    EXPECT_NEAR(NumberEndingAt(s[14], 41), nc / nc_mol, 0.051);
    EXPECT_NEAR(NumberEndingAt(s[15], 30), cv / lb, 0.051);
    EXPECT_NEAR(NumberEndingAt(s[15], 41), cv / cv_mol, 0.051);
    EXPECT_NEAR(NumberEndingAt(s[16], 30), dc.LOADS(kLoadPPH, 1) / lb, 0.051);
    EXPECT_EQ(At(s[14], 32, 4), metric ? "kg/h" : "#/hr");

    EXPECT_NEAR(NumberEndingAt(s[52], 27), dc.TOTALS(kTotalMotive) / lb, 0.51);
    EXPECT_NEAR(NumberEndingAt(s[52], 46), dc.TOTALS(kTotalWater) / (metric ? 4.4029 : 1.0), 0.51);
    EXPECT_NEAR(NumberEndingAt(s[52], 68), dc.TOTALS(kTotalPower), 0.51);
    // The cost follows the dollar sign.
    EXPECT_EQ(At(s[53], 31, 1), "$");
    EXPECT_NEAR(std::stod(At(s[53], 32, 12)), dc.TOTALS(kTotalAnnualCost), 0.51);
    const std::string jet_code = Selected(screen, kJetCode), cnd_code = Selected(screen, kCNDCode);
    EXPECT_EQ(At(s[54], 31, jet_code.size() + 2), " " + jet_code + "_");
    EXPECT_EQ(At(s[55], 33, cnd_code.size() + 2), " " + cnd_code + "_");
  }
}

TEST_F(SpecSheet, SurfaceCondenserBlocksShowTheCondenserTableInBothUnits) {
  for (bool metric : {false, true}) {
    SCOPED_TRACE(metric ? "metric" : "standard");
    Design("FOUR-STAGE-SURFACE.JET", metric);
    ASSERT_TRUE(dc.HASC1 && dc.HASC2 && dc.HASAC);
    const std::vector<std::string> s = Sheet();
    for (const auto& [col, n] : {std::pair{kCondAC, 37}, std::pair{kCondC2, 30}, std::pair{kCondC1, 23}}) {
      SCOPED_TRACE(n);
      const std::string& name = s[static_cast<size_t>(n - 1)];
      const std::string& water = s[static_cast<size_t>(n)];
      const std::string& kind = s[static_cast<size_t>(n - 2)];
      EXPECT_EQ(At(name, 4, 8), "Surface ");
      EXPECT_NEAR(NumberEndingAt(name, 66), dc.CND(col, kCndAREA) * (metric ? 0.092903 : 1.0), 0.051);
      EXPECT_EQ(At(name, 67, 5), metric ? "  sqM" : " sqft");
      const std::string model = CondenserDescription(ctx, col, metric);
      EXPECT_EQ(At(name, 40 - static_cast<int>(model.size()) / 2, model.size()), model);
      EXPECT_NEAR(NumberEndingAt(water, 15), dc.CND(col, kCndGPMUSE) / (metric ? 4.4029 : 1.0), metric ? 0.051 : 0.51);
      const auto temperature = [metric](double f) { return metric ? (f - 32) / 1.8 : f; };
      EXPECT_NEAR(NumberEndingAt(water, 34), temperature(dc.CND(col, kCndWATERIN)), 0.051);
      EXPECT_NEAR(std::stod(StartingAt(water, 36)), temperature(dc.CND(col, kCndWATEROUT)), 0.051);
      EXPECT_NEAR(NumberEndingAt(water, 67), dc.CND(col, kCndDELTAP) / (metric ? 14.5038 : 1.0), 0.0051);
      EXPECT_EQ(At(water, 17, 4), metric ? "M3/h" : " gpm");
      EXPECT_EQ(At(water, 42, 4), metric ? "degC" : "degF");
      EXPECT_EQ(At(water, 69, 3), metric ? "bar" : "psi");
      EXPECT_EQ(At(kind, 4, 20), "(1)-100%  HORIZONTAL");
    }
    // The tubes of every condenser: 3/4 in. 18 BWG.
    EXPECT_EQ(EndingAt(s[44], 48), "0.750");
    EXPECT_EQ(EndingAt(s[44], 62), "18");
    EXPECT_EQ(EndingAt(s[44], 29), Selected(screen, kTubeMaterial));
    EXPECT_EQ(At(s[41], 68, 4), metric ? "barg" : "psig");
    EXPECT_EQ(At(s[43], 68, 4), metric ? "degC" : "degF");
  }
}

TEST_F(SpecSheet, CondensingInTheTubesReadsVertical) {
  Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET", false);
  const std::vector<std::string> s = Sheet();
  EXPECT_EQ(At(s[35], 4, 18), "(1)-100%  VERTICAL");
  EXPECT_EQ(At(s[28], 4, 18), "(1)-100%  VERTICAL");
}

TEST_F(SpecSheet, DesignConditionsAndHydroTestOfTheMaterialsBlock) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  screen.txtDesign = {"50", "120", "15", "0"};
  std::vector<std::string> s = Sheet();
  EXPECT_EQ(EndingAt(s[41], 56), "15.0");
  EXPECT_EQ(EndingAt(s[41], 65), "50.0");
  EXPECT_EQ(EndingAt(s[42], 56), "22.5");
  EXPECT_EQ(EndingAt(s[42], 65), "75.0");
  EXPECT_EQ(EndingAt(s[43], 56), "0.0");
  EXPECT_EQ(EndingAt(s[43], 65), "120.0");
  SelectOption(screen, screen.OptionUnits, 1);
  s = Sheet();
  EXPECT_EQ(EndingAt(s[41], 56), "1.0");   // 15 psig in bar
  EXPECT_EQ(EndingAt(s[42], 56), "1.6");   // 22.5 psig
  // The water side's pressures stay in psig; only its temperature turns to degC.
  EXPECT_EQ(EndingAt(s[41], 65), "50.0");
  EXPECT_EQ(EndingAt(s[42], 65), "75.0");
  EXPECT_EQ(EndingAt(s[43], 56), "0.0");   // a temperature of 0 stays 0.0
  EXPECT_EQ(EndingAt(s[43], 65), "48.9");  // 120 degF
}

// --- Ejector lines ------------------------------------------------------------------------

TEST_F(SpecSheet, TwoStagesLeaveTheThirdStageLineAsTemplateAndCountFromTheSuction) {
  Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET", false);
  ASSERT_EQ(dc.NSTAGES, 2);
  const std::vector<std::string> s = Sheet();
  EXPECT_EQ(s[18], std::string(76, ' '));
  EXPECT_EQ(s[19], TemplateLine(kStageLineText, 76));
  EXPECT_EQ(At(s[26], 4, 13), "(1)-100%__1st");
  EXPECT_EQ(At(s[33], 4, 13), "(1)-100%__2nd");
  for (const auto& [c, n] : {std::pair{2, 27}, std::pair{1, 34}}) {
    const std::string model = EjectorModel(ctx, c);
    EXPECT_EQ(model.substr(0, 2), c == 2 ? "B-" : "C-");
    EXPECT_EQ(At(s[static_cast<size_t>(n - 1)], 60 - static_cast<int>(model.size()) / 2, model.size()), model);
  }
  EXPECT_EQ(Trim(s[9]), "Two Stage Vacuum System Performance");
}

TEST_F(SpecSheet, FourStagesUseLineNineteenAndAFifthStandsOnTheRuleAbove) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  std::vector<std::string> s = Sheet();
  EXPECT_EQ(s[17], TemplateLine(" ________________________________________________________________________", 76));
  EXPECT_EQ(At(s[18], 4, 34), "(1)-100%__1st_______Stage Ejector.");
  EXPECT_EQ(At(s[19], 4, 13), "(1)-100%__2nd");
  EXPECT_EQ(At(s[26], 4, 13), "(1)-100%__3rd");
  EXPECT_EQ(At(s[33], 4, 13), "(1)-100%__4th");

  // Five stages, which the design never makes: the first one's fields go to line 18.
  dc.NSTAGES = 5;
  s = Sheet();
  EXPECT_EQ(At(s[17], 1, 17), " __(1)-100%__1st_");
  EXPECT_EQ(At(s[18], 4, 34), "(1)-100%__2nd_______Stage Ejector.");
  EXPECT_EQ(At(s[33], 4, 13), "(1)-100%__5th");
  EXPECT_EQ(Trim(s[9]), "Five Stage Vacuum System Performance");
}

TEST_F(SpecSheet, NoStagesBehindAPrecondenserLeaveTheStageLinesAndNameEveryCondenserAPrecondenser) {
  Design("TWO-STAGE-PRECONDENSER.JET", false);
  dc.NSTAGES = 0;
  dc.HASAC = 1;
  const std::vector<std::string> s = Sheet();
  ASSERT_EQ(s.size(), 60u);
  EXPECT_EQ(Trim(s[9]), "Precondenser and  Stage Vacuum System Performance");
  // The suction is the inlet of the condenser in column 1.
  EXPECT_NEAR(NumberEndingAt(s[12], 65), dc.CND(kCondAC, kCndPIN), 0.051);
  for (int n : {20, 27, 34}) EXPECT_EQ(s[static_cast<size_t>(n - 1)], TemplateLine(kStageLineText, 76)) << n;
  for (int n : {23, 30, 37}) EXPECT_EQ(At(s[static_cast<size_t>(n - 1)], 4, 28), "Surface Precondenser, Size__") << n;
}

TEST_F(SpecSheet, DesignationJoinsTheTrainInTheOrderOfFlow) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  const std::vector<std::string> s = Sheet();
  const std::string expected = EjectorModel(ctx, 4) + "-" + EjectorModel(ctx, 3) + "-" +
                               CondenserDescription(ctx, kCondC1, false) + "-" + EjectorModel(ctx, 2) + "-" +
                               CondenserDescription(ctx, kCondC2, false) + "-" + EjectorModel(ctx, 1) + "-" +
                               CondenserDescription(ctx, kCondAC, false);
  const size_t room = 76 - 23;  // what the line holds from column 24 on
  EXPECT_EQ(At(s[51], 24, std::min(room, expected.size())), expected.substr(0, room));
  EXPECT_EQ(expected.substr(0, 3), "AA-");
}

// --- Condenser kinds ------------------------------------------------------------------------

TEST_F(SpecSheet, MissingCondensersReadNoneAndLeaveNoMaterials) {
  Design("ONE-STAGE-NO-CONDENSERS.JET", false);
  const std::vector<std::string> s = Sheet();
  for (int n : {37, 30, 23}) {
    EXPECT_EQ(At(s[static_cast<size_t>(n - 1)], 27, 45), "____________________NONE_____________________");
    const char* name = n == 37 ? "Surface Aftercondenser," : "Surface Intercondenser,";
    EXPECT_EQ(At(s[static_cast<size_t>(n - 1)], 4, 23), name);
    EXPECT_EQ(s[static_cast<size_t>(n - 2)], std::string(76, ' '));
  }
  EXPECT_EQ(s[41], TemplateLine("   Process Side______________   Design Press  FV& ______   ______  psig", 76));
  EXPECT_EQ(s[44], TemplateLine("   Tubes ____________________   O.D.____________ in  BWG______ avg wall", 76));
  // The ejector materials stand with or without condensers.
  EXPECT_EQ(EndingAt(s[47], 71), Selected(screen, kSteamNozzleMaterial));
}

TEST_F(SpecSheet, WithoutAnAfterCondenserItsLineReadsNone) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  dc.HASAC = 0;
  const std::vector<std::string> s = Sheet();
  EXPECT_EQ(At(s[36], 27, 45), "____________________NONE_____________________");
  EXPECT_EQ(s[35], std::string(76, ' '));
  EXPECT_EQ(s[37], TemplateLine("   Water_______  gpm  In/Out______/_____ degF   Pressure Drop______ psi", 76));
  EXPECT_EQ(EndingAt(s[44], 48), "0.750") << "the other condensers still have their materials";
}

TEST_F(SpecSheet, BarometricFirstIntercondenserReadsNaInTheWaterColumnsAndTubes) {
  for (bool metric : {false, true}) {
    SCOPED_TRACE(metric ? "metric" : "standard");
    Design("THREE-STAGE-DIRECT-CONTACT.JET", metric);
    ASSERT_TRUE(dc.HASC1);
    // The sheet knows a barometric condenser by the 4 in its flow arrangement row, which the condenser run leaves
    // at 0: the mark is set here.
    dc.CND(kCondC1, kCndIHFLOW) = 4;
    const std::vector<std::string> s = Sheet();
    EXPECT_EQ(At(s[22], 4, 28), "Barometric Condenser, Size__");
    EXPECT_EQ(EndingAt(s[22], 66), "NA");
    EXPECT_EQ(At(s[21], 4, 20), "(1)-100%  BAROMETRIC");
    const double gpm = dc.CND(kCondC1, kCndGPMUSE);
    EXPECT_NEAR(NumberEndingAt(s[23], 15), metric ? gpm / 4.4029 : gpm, metric ? 0.051 : 0.51);
    for (size_t i : {41u, 42u, 43u}) EXPECT_EQ(EndingAt(s[i], 65), "NA") << i + 1;
    EXPECT_EQ(EndingAt(s[42], 29), "NA");
    EXPECT_EQ(EndingAt(s[44], 29), "NA");
    EXPECT_EQ(EndingAt(s[44], 48), "NA");
    EXPECT_EQ(EndingAt(s[44], 62), "NA");
    EXPECT_EQ(At(s[45], 12, 9), "Nozzle(s)");
    EXPECT_EQ(At(s[45], 23, 25), "*** EJECTOR MATERIALS ***");
    // The process column keeps its values.
    EXPECT_FALSE(EndingAt(s[41], 56).empty());
    EXPECT_EQ(EndingAt(s[41], 29), Selected(screen, kProcessSideMaterial));
  }
}

TEST_F(SpecSheet, PrecondenserIsNamedInTheTitleTheSuctionAndItsBlock) {
  Design("TWO-STAGE-PRECONDENSER.JET", false);
  ASSERT_NE(dc.PRECOND, 0);
  ASSERT_TRUE(dc.HASC1);
  const std::vector<std::string> s = Sheet();
  EXPECT_EQ(Trim(s[9]), "Precondenser and Two Stage Vacuum System Performance");
  EXPECT_EQ(At(s[12], 33, 18), "at precond suction");
  // The system's suction is the precondenser's inlet.
  EXPECT_NEAR(NumberEndingAt(s[12], 65), dc.CND(kCondC1, kCndPIN), 0.051);
  EXPECT_EQ(At(s[22], 4, 28), "Surface Precondenser, Size__");
}

// --- The pump --------------------------------------------------------------------------------

TEST_F(SpecSheet, PumpLinesReplaceTheLastStageAndTheAfterCondenser) {
  for (bool metric : {false, true}) {
    SCOPED_TRACE(metric ? "metric" : "standard");
    Design("TWO-STAGE-LRVP.JET", metric);
    ASSERT_EQ(dc.USELRVP, 1);
    const PumpRecord* pump = DesignedPump(ctx);
    ASSERT_NE(pump, nullptr);
    const std::vector<std::string> s = Sheet();
    EXPECT_EQ(At(s[33], 24, 14), "Stage LRVP.   ");
    const double kw = metric ? 0.7457 : 1.0;
    EXPECT_EQ(At(s[34], 4, 16), "Brake horsepower");
    EXPECT_NEAR(NumberEndingAt(s[34], 32), dc.LRVPRES(kLrvpPower, 1) * kw, 0.051);
    EXPECT_EQ(At(s[34], 33, 3), metric ? " KW" : " hp");
    EXPECT_NEAR(NumberEndingAt(s[34], metric ? 66 : 67), dc.LRVPRES(kLrvpSeal, 1) / (metric ? 4.4029 : 1.0), 0.051);
    EXPECT_EQ(metric ? At(s[34], 67, 5) : At(s[34], 68, 4), metric ? " M3/h" : " gpm");
    EXPECT_NEAR(NumberEndingAt(s[35], 32), dc.LRVPRES(kLrvpMotor, 1) * kw, 0.51);
    EXPECT_NEAR(NumberEndingAt(s[35], 67), pump->speed, 0.51);
    EXPECT_EQ(At(s[35], 68, 4), " rpm");
    EXPECT_EQ(At(s[36], 4, 15), "Electric Supply");
    const std::string mains = dc.LRVPRES(kLrvpMotor, 1) < 50 ? "230/460 Volt, 60 Cycle" : "460 Volt, 60 Cycle";
    EXPECT_EQ(At(s[36], 45 - static_cast<int>(mains.size()) / 2, mains.size()), mains);
    EXPECT_EQ(s[37], std::string(76, ' '));
  }
}

TEST_F(SpecSheet, PumpOnFiftyCycleMainsReadsThreeHundredEightyVolts) {
  Design("LRVP-ONLY-50HZ.JET", false);
  const std::vector<std::string> s = Sheet();
  EXPECT_EQ(At(s[36], 45 - 19 / 2, 19), "380 Volts, 50 Cycle");
}

// --- Faults and printing -------------------------------------------------------------------------

TEST_F(SpecSheet, RunTimeFaultIsToldAndGivesNoLines) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET", false);
  ASSERT_GT(dc.LOADS(kLoadVPC1, 2), 0);
  dc.LOADS(kLoadMW, 2) = 1e6f;  // a condensible whose molecular weight no 16-bit integer holds
  ExpectFault("PrintSpecSheet Error: 6 Overflow");
}

TEST_F(SpecSheet, ADesignConditionNoSingleCanHoldIsAnOverflowNotAnInfiniteNumber) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  // The second fits a Single, its hydro test pressure half as much again does not.
  for (const char* typed : {"1e39", "3e38"}) {
    SCOPED_TRACE(typed);
    screen.txtDesign = {"50", "120", typed, "0"};
    ExpectFault("PrintSpecSheet Error: 6 Overflow");
  }
}

TEST_F(SpecSheet, MoreStagesThanTheSheetHasWordsForAreASubscriptFault) {
  Design("FOUR-STAGE-SURFACE.JET", false);
  for (int16_t stages : {6, 7}) {
    dc.NSTAGES = stages;
    ExpectFault("PrintSpecSheet Error: 9 Subscript out of range");
  }
}

TEST_F(SpecSheet, NonCondensiblesTooSmallToCountTheirMolesAreADivisionByZero) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET", false);
  // Every non-condensible load at a rate that adds to the sum but not to the moles.
  int tiny = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    if (dc.LOADS(kLoadVPC1, load) > 0 || dc.LOADS(kLoadVPC2, load) > 0 || dc.LOADS(kLoadVPAC, load) > 0) continue;
    dc.LOADS(kLoadPPH, load) = 5e-05f;
    ++tiny;
  }
  ASSERT_GT(tiny, 0);
  ExpectFault("PrintSpecSheet Error: 11 Division by zero");
}

TEST_F(SpecSheet, PrintedPageHasLinesTwoToSixtyBehindTheirIndentsAndNoPageHead) {
  Design("THREE-STAGE-DIRECT-CONTACT.JET", false);
  const std::vector<std::string> s = Sheet();
  TextPages pages;
  PrintSpecSheet(s, pages);
  EXPECT_EQ(pages.pages(), 1);
  EXPECT_EQ(pages.font.size, 10);
  std::vector<std::string> printed;
  std::string text = pages.text();
  ASSERT_EQ(text.find('\f'), std::string::npos);
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find('\n', at);
    printed.push_back(text.substr(at, end - at));
    at = end + 1;
  }
  ASSERT_EQ(printed.size(), 59u);
  for (size_t n = 2; n <= 60; ++n) {
    EXPECT_EQ(printed[n - 2], std::string(n <= 56 ? 3 : 11, ' ') + s[n - 1]) << "line " << n;
  }
  EXPECT_EQ(At(printed[1], 30, 18), "TESSEL CORPORATION");
  // Nothing to print ends no page.
  TextPages none;
  PrintSpecSheet({}, none);
  EXPECT_EQ(none.pages(), 0);
}

}  // namespace
