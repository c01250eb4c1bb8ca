// The design data sheet: its lines on designs of the example cases, its printing and its text file.
#include <gtest/gtest.h>

#include <algorithm>

#include "case/jet_file.h"
#include "documents/data_sheet.h"
#include "documents/design_reports.h"
#include "documents/page_frame.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "sheet_support.h"
#include "test_support.h"

using namespace kestrane;
using namespace kestrane::testing;
namespace fs = std::filesystem;

namespace {

// The user information rows 1 to 8 as the user information window names them.
UserInfo Sender() {
  UserInfo user(kUserInfoRows);
  const char* const rows[] = {"Ann Smith", "Acme Chemicals", "12 Main St", "Suite 4",
                              "Springfield IL", "555-0100", "555-0101", "ann@acme.example"};
  for (int r = 1; r <= kUserInfoRows; ++r) user(r) = rows[r - 1];
  return user;
}

class DataSheet : public ::testing::Test {
 protected:
  // Opens and designs an example case; the sheet of the design.
  std::vector<std::string> Design(const char* example) {
    screen = NewCase();
    dc = DesignCase{};
    EXPECT_TRUE(OpenCase(kExampleCases / example, screen, ui)) << example;
    DesignContext ctx{dc, data, screen, pinterfix, ui};
    EXPECT_EQ(RunDesign(ctx, screen).input_error, 0) << example;
    return Lines();
  }
  // The sheet of the design as the screen now stands.
  std::vector<std::string> Lines() {
    DesignContext ctx{dc, data, screen, pinterfix, ui};
    return DataSheetLines(ctx, user, kSheetDate);
  }
  // The designation on line 64: from column 24 up to the template's underscores.
  static std::string Designation(const std::string& line) { return line.substr(23, line.find('_', 23) - 23); }

  AppData data = ShippedData();  // a copy: a test may add user vapors
  UserInfo user = Sender();
  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
};

class DataSheetOutput : public ScratchFolder {};

}  // namespace

// --- The lines ------------------------------------------------------------------------

TEST_F(DataSheet, HasSixtySixLinesOfSeventySixCharacters) {
  const auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  ExpectSheetShape(lines, 66u);
  EXPECT_EQ(lines[0].substr(0, 44), "                          TESSEL CORPORATION");
  EXPECT_EQ(lines[1].substr(0, 52), "                   VACUUM SYSTEM DESIGN PROGRAM DATA");
  EXPECT_EQ(lines[3].substr(0, 71),
            "   To:         Tessel Corporation                   Fax: " + std::string(kMakerFax));
  EXPECT_EQ(lines[12].substr(0, 67), "   Please provide a vacuum system quotation based on the following:");
  EXPECT_EQ(lines[36], "   ID#     #/hr     kg/h  MW Vpr Name   T1    P1    T2    P2    T3    P3 ALC");
  EXPECT_EQ(lines[61], std::string(76, ' '));
}

TEST_F(DataSheet, HeadTakesTheSenderRowsByTheirNumbersAndNamesTheCase) {
  const auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_EQ(At(lines[4], 53, 19), "Date: Nov 05, 2026 ");
  // Rows 1 to 4 down the From block; row 5 beside Phone, 6 beside Fax, 8 beside Name, 7 beside Email.
  EXPECT_EQ(At(lines[6], 4, 16), "From:  Ann Smith");
  EXPECT_EQ(At(lines[7], 11, 14), "Acme Chemicals");
  EXPECT_EQ(At(lines[8], 11, 10), "12 Main St");
  EXPECT_EQ(At(lines[9], 11, 8), "Suite 4 ");
  EXPECT_EQ(At(lines[6], 53, 21), "Phone:Springfield IL ");
  EXPECT_EQ(At(lines[7], 53, 14), "Fax:  555-0100");
  EXPECT_EQ(At(lines[8], 53, 22), "Name: ann@acme.example");
  EXPECT_EQ(At(lines[10], 4, 16), "Email: 555-0101 ");
  // Item and engineer, description and the file name up to its ".", which the line's end cuts.
  EXPECT_EQ(At(lines[13], 4, 20), "Item:        EJ-108 ");
  EXPECT_EQ(At(lines[13], 55, 9), "User: AE ");
  EXPECT_EQ(At(lines[14], 17, 16), "Solvent recovery");
  EXPECT_EQ(At(lines[14], 61, 16), "SOLVENT-LOADS-TH");

  // An empty e-mail row leaves the line's template.
  user(7) = "   ";
  EXPECT_EQ(Lines()[10], TemplateLine("   Email:", 76));
}

TEST_F(DataSheet, MainInputShowsBothUnitSidesAsTypedAndTheFoulingFactorWithFourDecimals) {
  auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_EQ(FieldStartingAt(lines[16], 17), "Standard");
  EXPECT_EQ(FieldEndingAt(lines[17], 50), "20.00");   // mmHgA
  EXPECT_EQ(FieldEndingAt(lines[17], 69), "2.67");    // kPa as typed: 2.6667
  EXPECT_EQ(FieldEndingAt(lines[19], 50), "770.00");
  EXPECT_EQ(FieldEndingAt(lines[19], 69), "102.67");
  EXPECT_EQ(FieldEndingAt(lines[24], 50), "0.0020");  // fouling 0.002
  EXPECT_EQ(FieldEndingAt(lines[24], 69), "0.0004");  // 0.000410
  EXPECT_EQ(FieldStartingAt(lines[25], 58), "5.00");
  EXPECT_EQ(FieldStartingAt(lines[26], 58), "0.03");
  EXPECT_EQ(FieldStartingAt(lines[27], 58), "0.10");

  // The boxes as they stand, not the record: a metric box typed apart from its pair shows its own number.
  screen.txtInputA[0] = "2.5";
  EXPECT_EQ(FieldEndingAt(Lines()[17], 69), "2.50");

  lines = Design("METRIC-TWO-STAGE.JET");
  EXPECT_EQ(FieldStartingAt(lines[16], 17), "Metric");
  EXPECT_EQ(FieldEndingAt(lines[17], 50), "60.00");
  EXPECT_EQ(FieldEndingAt(lines[17], 69), "8.00");
  EXPECT_EQ(FieldEndingAt(lines[20], 69), "10.00");  // motive bar(g)
}

TEST_F(DataSheet, ChoicesNameTheCondenserSideAndHeadsTheStagesAndTheOptions) {
  auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_EQ(At(lines[28], 26, 23), "(shell side condensing)");
  EXPECT_EQ(At(lines[28], 58, 19), "Shell & Tube (BEM) ");
  EXPECT_EQ(At(lines[29], 58, 6), "Three ");
  EXPECT_EQ(At(lines[30], 58, 3), "No ");
  EXPECT_EQ(At(lines[31], 58, 3), "No ");
  EXPECT_EQ(At(lines[32], 58, 9), "60 cycle ");
  EXPECT_EQ(At(lines[33], 58, 10), "Utilities ");
  // Channel heads at both ends.
  screen.lists[kInletHead] = 1;
  screen.lists[kReturnHead] = 1;
  screen.OptionOptimize = {0, -1};
  lines = Lines();
  EXPECT_EQ(At(lines[28], 71, 5), "(AEL)");
  EXPECT_EQ(At(lines[33], 58, 13), "Capital Cost ");

  lines = Design("TWO-STAGE-SURFACE-TUBE-SIDE.JET");
  EXPECT_EQ(At(lines[28], 26, 23), "(tube side condensing)_");
  EXPECT_EQ(At(lines[28], 58, 12), "Shell & Tube");
  EXPECT_EQ(At(lines[29], 58, 4), "Two ");

  lines = Design("THREE-STAGE-DIRECT-CONTACT.JET");
  EXPECT_EQ(lines[28], TemplateLine("   Condenser Type:_____________________________________  Direct Contact", 76));

  lines = Design("ONE-STAGE-NO-CONDENSERS.JET");
  EXPECT_EQ(lines[28], TemplateLine("   Condenser Type:_____________________________________  None", 76));

  lines = Design("TWO-STAGE-PRECONDENSER.JET");
  EXPECT_EQ(At(lines[30], 58, 4), "Yes ");

  lines = Design("LRVP-ONLY-50HZ.JET");
  ASSERT_NE(screen.OptionCycles[1], 0);
  EXPECT_EQ(At(lines[31], 58, 4), "Yes ");
  EXPECT_EQ(At(lines[32], 58, 9), "50 cycle ");
}

TEST_F(DataSheet, LoadRowsShowIdRatesMolecularWeightAndVaporName) {
  const auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  // The water row keeps its template's 18 and WATER.
  EXPECT_EQ(lines[37].substr(0, 34), "     0     30.0     13.6  18 WATER");
  // Methanol (ID 2), acetone (8) and toluene (13) with the molecular weights of the data base.
  EXPECT_EQ(lines[38].substr(0, 37), "     2     25.0     11.3  32 Methanol");
  EXPECT_EQ(lines[39].substr(0, 36), "     8     40.0     18.1  58 Acetone");
  EXPECT_EQ(lines[40].substr(0, 36), "    13     15.0      6.8  92 Toluene");
  // Nitrogen 30 #/hr of MW 28.01 and air 5 #/hr of MW 29: 35 #/hr, 15.9 kg/h, 35 / (30/28.01 + 5/29) = 28.1.
  EXPECT_EQ(FieldEndingAt(lines[47], 35), "35.0");
  EXPECT_EQ(FieldEndingAt(lines[47], 53), "15.9");
  EXPECT_EQ(FieldEndingAt(lines[47], 65), "28");
}

TEST_F(DataSheet, ALoadRowWithIdZeroIsBlankButForTheZero) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  screen.txtCID[2] = "0";  // acetone's row, its rates still typed
  const auto lines = Lines();
  EXPECT_EQ(lines[39], "     0" + std::string(70, ' '));
  EXPECT_EQ(lines[46], "     0" + std::string(70, ' '));  // an empty row
}

TEST_F(DataSheet, ARateOfExactlyOneThousandShowsOneDecimalAndAboveItNone) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  screen.txtCpph[1] = "1000.0";
  screen.txtCpphA[1] = "1000.1";
  const auto lines = Lines();
  EXPECT_EQ(FieldEndingAt(lines[38], 15), "1000.0");
  EXPECT_EQ(FieldEndingAt(lines[38], 24), "1000");
}

TEST_F(DataSheet, AUserVaporShowsItsNameCutToEightAndItsPointsSixColumnsApart) {
  // A user vapor: T1 P1 T2 P2 T3 P3 (degC, mmHgA), MW 86.2, an alcohol.
  UserVapors& udv = data.user_vapors;
  udv.NUDV = 1;
  const float values[] = {-1, 0.005f, 4.6f, 40, 55.3f, 90, 525, 86.2f, 1};
  for (int k = 1; k <= 9; ++k) udv.UDVDATA(1, k) = values[k - 1];
  udv.UDVNAME(1) = FixedText("HEPTANES BLEND", kUserVaporNameLength);

  screen = NewCase();
  ASSERT_TRUE(OpenCase(kExampleCases / "SOLVENT-LOADS-THREE-STAGE.JET", screen, ui));
  screen.txtCID[2] = "-1";
  DesignContext ctx{dc, data, screen, pinterfix, ui};
  ASSERT_EQ(RunDesign(ctx, screen).input_error, 0) << (ui.notices.empty() ? "" : ui.notices.back());
  const std::string line = Lines()[39];
  EXPECT_EQ(line.substr(0, 37), "    -1     40.0     18.1  86 HEPTANES");
  // 0.0050 by 5.4, 4.60 and the others by 5.2, 525 by 5.0; the MW's first digit at 76 gives way to the mark.
  EXPECT_EQ(At(line, 38, 39), "  0.00504.60  40.00 55.30 90.00 525   1");
}

TEST_F(DataSheet, DesignConditionsShowProcessAndWaterSidesInBothUnitsAndTheHydroTestAtOneAndAHalf) {
  const auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_EQ(lines[50].substr(0, 66), "   Design Press       20.0 psig   1.4 Barg    75.0 psig   5.2 Barg");
  EXPECT_EQ(lines[51].substr(0, 66), "   Hydro Test Press   30.0 psig   2.1 Barg   112.5 psig   7.8 Barg");
  EXPECT_EQ(lines[52].substr(0, 66), "   Design Temp       300.0 degF 148.9 degC   200.0 degF  93.3 degC");
}

TEST_F(DataSheet, MaterialsAndCodesFromTheListsAndThePumpMaterialOnlyWithAPump) {
  auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  EXPECT_EQ(lines[54].substr(0, 71), "   Suction Chamber/Diff._________CAST IRON Process Side___________STEEL");
  EXPECT_EQ(lines[57].substr(0, 71), "   Nozzle Plate______________________STEEL Tubes__________________304SS");
  EXPECT_EQ(lines[58], TemplateLine("   LRVP__________________________________", 76));
  EXPECT_EQ(At(lines[59], 20, 16), "Tessel Standard_");
  EXPECT_EQ(At(lines[60], 22, 16), "Tessel Standard_");

  screen.lists[kTubeMaterial] = 12;
  screen.lists[kCNDCode] = 5;
  lines = Lines();
  EXPECT_EQ(FieldEndingAt(lines[57], 71), "20");  // "ALLOY 20"
  EXPECT_EQ(At(lines[57], 64, 8), "ALLOY 20");
  EXPECT_EQ(At(lines[60], 22, 33), "API 660 & ASME Sect. VIII, Div I_");

  lines = Design("TWO-STAGE-LRVP.JET");
  EXPECT_EQ(lines[58].substr(0, 42), "   LRVP__________________________CAST IRON");
}

TEST_F(DataSheet, ResultsLeaveOutTheEquipmentAtTheSuctionEndAndShowTheTotals) {
  auto lines = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  // Stage A, the first intercondenser, B, the second, C and the after condenser: all but stage A.
  DesignContext ctx{dc, data, screen, pinterfix, ui};
  const auto slots = EquipmentSlots(ctx, false);
  ASSERT_EQ(slots.size(), 6u);
  EXPECT_EQ(slots[0].kind, EquipmentSlot::kEjector);
  EXPECT_EQ(Designation(lines[63]), slots[1].caption + "-" + slots[2].caption + "-" + slots[3].caption + "-" +
                                        slots[4].caption + "-" + slots[5].caption);
  EXPECT_EQ(Designation(lines[63]).find(slots[0].caption), std::string::npos);
  EXPECT_EQ(FieldEndingAt(lines[64], 27), Trim(FormatFixed(dc.TOTALS(kTotalMotive), 12.0f)));
  EXPECT_EQ(FieldEndingAt(lines[64], 46), Trim(FormatFixed(dc.TOTALS(kTotalWater), 12.0f)));
  EXPECT_EQ(FieldEndingAt(lines[64], 66), Trim(FormatFixed(dc.TOTALS(kTotalPower), 12.0f)));
  EXPECT_EQ(FieldStartingAt(lines[65], 32), Trim(FormatFixed(dc.TOTALS(kTotalAnnualCost), 12.0f)));
  EXPECT_EQ(At(lines[64], 28, 5), " #/hr");

  // Metric cases name their condensers in millimetres.
  lines = Design("METRIC-TWO-STAGE.JET");
  EXPECT_EQ(Designation(lines[63]), "203x2438BEM-C-1.5-152x1829BEM");
}

TEST_F(DataSheet, ABoxNoSingleCanHoldIsToldByTheSheetAndGivesNoLines) {
  Design("SOLVENT-LOADS-THREE-STAGE.JET");
  screen.txtCpphA[1] = "1e39";
  ui.notices.clear();
  EXPECT_TRUE(Lines().empty());
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0], "PrintDataSheet Error: 6 Overflow");

  // A design pressure a Single holds whose hydro test pressure, half as much again, it does not.
  screen.txtCpphA[1] = "25";
  screen.txtDesign[2] = "3e38";
  ui.notices.clear();
  EXPECT_TRUE(Lines().empty());
  EXPECT_EQ(ui.notices, std::vector<std::string>{"PrintDataSheet Error: 6 Overflow"});
}

// --- The text file and the print -----------------------------------------------------------

TEST(DataSheetTextPath, IsTheCaseUpperCasedBesideItWithJetMadeTxtOrOutTxt) {
  const fs::path fallback = "/prog";
  EXPECT_EQ(DataSheetTextPath("/home/ann/cases/Pump-1.jet", fallback), fs::path("/home/ann/cases/PUMP-1.TXT"));
  // Only the file name is upper-cased, and only its first ".JET" is changed.
  EXPECT_EQ(DataSheetTextPath("/home/ann/old.jet/a.Jet.jet", fallback), fs::path("/home/ann/old.jet/A.TXT.JET"));
  EXPECT_EQ(DataSheetTextPath("", fallback), fs::path("/prog/OUT.TXT"));
  EXPECT_EQ(DataSheetTextPath("/home/ann/cases/pump.ttc", fallback), fs::path("/prog/OUT.TXT"));
  EXPECT_EQ(DataSheetTextPath("/home/ann/cases.jet/pump", fallback), fs::path("/prog/OUT.TXT"));
}

TEST_F(DataSheetOutput, TheFileHoldsTheLinesBehindThreeBlanksBetweenABlankLineAndTheMakerLinesInCp1252CrLf) {
  const fs::path path = dir / "CASE.TXT";
  RecordingUi ui;
  ASSERT_TRUE(WriteSheetText({"Caf\xC3\xA9 line", "second"}, path, ui));
  EXPECT_TRUE(ui.notices.empty());
  std::string expected = " \r\n   Caf\xE9 line\r\n   second\r\n \r\n";
  for (size_t i = 0; i < 3; ++i) expected += MakerLine(i) + "\r\n";
  EXPECT_EQ(ReadBytes(path), expected);
  EXPECT_EQ(MakerLine(0), std::string(20, ' ') + std::string(kMakerLines[0]));
}

TEST_F(DataSheetOutput, AFailedWriteShowsANoticeNamingTheFileReturnsFalseAndLeavesNoTemporaryFile) {
  // A folder that is a plain file cannot hold the text file, whoever runs the test.
  const fs::path blocker = dir / "blocker";
  WriteBytes(blocker, "x");
  for (const fs::path& path : {blocker / "CASE.TXT", dir / "MISSING" / "CASE.TXT"}) {
    RecordingUi ui;
    bool written = true;
    EXPECT_NO_THROW(written = WriteSheetText({"line"}, path, ui));
    EXPECT_FALSE(written);
    ASSERT_EQ(ui.notices.size(), 1u);
    EXPECT_NE(ui.notices[0].find(path.string()), std::string::npos) << ui.notices[0];
  }
  // An upper-cased folder that does not exist fails the same way.
  RecordingUi ui;
  EXPECT_FALSE(WriteSheetText({"line"}, DataSheetTextPath((dir / "cases" / "a.jet").string(), dir), ui));
  EXPECT_NE(ui.notices.at(0).find("Path not found"), std::string::npos) << ui.notices[0];
  std::vector<fs::path> left;
  for (const auto& entry : fs::directory_iterator(dir)) left.push_back(entry.path().filename());
  EXPECT_EQ(left, std::vector<fs::path>{"blocker"});
}

TEST(DataSheetPrint, TwelveLinesAtTwelvePointsThenTheRestFurtherInAtTenOnOnePage) {
  std::vector<std::string> lines;
  for (int n = 1; n <= 66; ++n) lines.push_back("line " + std::to_string(n));
  RecordingPrinter printer;
  printer.font.size = 8;
  PrintDataSheet(lines, printer);
  ASSERT_EQ(printer.printed.size(), 67u);
  EXPECT_EQ(printer.printed[0].text, " ");
  EXPECT_EQ(printer.printed[0].size, 12);
  EXPECT_EQ(printer.printed[0].font, "Courier New");
  EXPECT_EQ(printer.printed[12].text, "   line 12");
  EXPECT_EQ(printer.printed[12].size, 12);
  EXPECT_EQ(printer.printed[13].text, "           line 13");
  EXPECT_EQ(printer.printed[13].size, 10);
  EXPECT_EQ(printer.printed[66].text, "           line 66");
  EXPECT_EQ(printer.printed[66].page, 0);
  EXPECT_EQ(printer.ended, 1);
}

TEST_F(DataSheetOutput, AnExampleWritesItsSheetBesideTheCase) {
  const fs::path case_path = dir / "Solvent.jet";
  fs::copy_file(kExampleCases / "SOLVENT-LOADS-THREE-STAGE.JET", case_path);
  RecordingUi ui;
  DesignCase dc;
  InputScreen screen = NewCase();
  ASSERT_TRUE(OpenCase(case_path, screen, ui));
  float pinterfix = 0;
  DesignContext ctx{dc, ShippedData(), screen, pinterfix, ui};
  ASSERT_EQ(RunDesign(ctx, screen).input_error, 0);
  const auto lines = DataSheetLines(ctx, Sender(), kSheetDate);
  const fs::path path = DataSheetTextPath(screen.USERCASE, "/nowhere");
  ASSERT_EQ(path, dir / "SOLVENT.TXT");
  ASSERT_TRUE(WriteSheetText(lines, path, ui));
  const std::string bytes = ReadBytes(path);
  EXPECT_EQ(bytes.substr(0, 3 + 3 + 76 + 2), " \r\n   " + lines[0] + "\r\n");
  size_t line_ends = 0;
  for (size_t at = bytes.find("\r\n"); at != std::string::npos; at = bytes.find("\r\n", at + 2)) ++line_ends;
  EXPECT_EQ(line_ends, 1u + 66u + 1u + 3u);
  EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), static_cast<std::ptrdiff_t>(line_ends));
}

TEST_F(DataSheetOutput, AFaultInTheDataSheetLeavesTheSpecificationSheetAndWritesNoText) {
  RecordingUi ui;
  DesignCase dc;
  InputScreen screen = NewCase();
  ASSERT_TRUE(OpenCase(kExampleCases / "SOLVENT-LOADS-THREE-STAGE.JET", screen, ui));
  screen.USERCASE.clear();  // OUT.TXT would go to the scratch folder
  float pinterfix = 0;
  DesignContext ctx{dc, ShippedData(), screen, pinterfix, ui};
  ASSERT_EQ(RunDesign(ctx, screen).input_error, 0);
  screen.txtCost[0] = "1e39";
  ui.notices.clear();
  const DesignSheets sheets = PrepareDesignSheets({Report::kSpecSheet, Report::kDataSheet}, ctx, kSheetDate, dir);
  EXPECT_EQ(sheets.spec.size(), 60u);
  EXPECT_TRUE(sheets.data.empty());
  EXPECT_TRUE(sheets.data_text.empty());
  EXPECT_FALSE(fs::exists(dir / "OUT.TXT"));
  EXPECT_EQ(ui.notices, std::vector<std::string>{"PrintDataSheet Error: 6 Overflow"});
}
