// The thermo compressor sheets on designs of the example cases: their lines, their printing and their text file.
#include <gtest/gtest.h>

#include "case/input_screen.h"
#include "documents/page_frame.h"
#include "documents/tc_sheets.h"
#include "properties/numeric.h"
#include "sheet_support.h"
#include "test_support.h"
#include "thermo/tc_file.h"
#include "thermo/thermo_compressor.h"

using namespace kestrane;
using namespace kestrane::testing;
namespace fs = std::filesystem;

namespace {

class TcSheets : public ::testing::Test {
 protected:
  TcSheets() : design_screen(NewCase()), ctx{dc, ShippedData(), design_screen, pinterfix, ui} {}

  // Opens, checks and designs an example case.
  void Design(const char* example) {
    screen = TCInputScreen{};
    ASSERT_TRUE(OpenTCFile(kExampleCases / example, screen, ui));
    ASSERT_EQ(CheckTCInput(screen, dc, tcin, ctx.steam(), ui), 0);
    DesignThermoCompressor(ctx, tcin);
  }
  std::vector<std::string> Spec() const { return TcSpecSheetLines(tcin, dc, screen, kSheetDate); }
  std::vector<std::string> Data() const {
    UserInfo user(kUserInfoRows);
    for (int r = 1; r <= kUserInfoRows; ++r) user(r) = "Row " + std::to_string(r);
    return TcDataSheetLines(dc, screen, user, kSheetDate);
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen design_screen;
  float pinterfix = 0;
  DesignContext ctx;
  TCInputScreen screen;
  TcInput tcin;
};

class TcSheetOutput : public ScratchFolder {};

// Lines "line 1" to "line n".
std::vector<std::string> Numbered(int n) {
  std::vector<std::string> lines;
  for (int k = 1; k <= n; ++k) lines.push_back("line " + std::to_string(k));
  return lines;
}

}  // namespace

// --- Specification sheet --------------------------------------------------------------------

TEST_F(TcSheets, SpecSheetStatesTheCaseTheSizeAndThePerformanceInStandardUnits) {
  Design("TC-MEDIUM-RATIO.TTC");
  const auto lines = Spec();
  ExpectSheetShape(lines, 33u);
  EXPECT_EQ(lines[3].substr(0, 54), "                 THERMO COMPRESSOR SPECIFICATION SHEET");
  EXPECT_EQ(At(lines[5], 4, 12), "Item:       ");
  EXPECT_EQ(FieldStartingAt(lines[5], 17), "TC-202");
  EXPECT_EQ(At(lines[5], 55, 18), "Date: Nov 05, 2026");
  EXPECT_EQ(At(lines[6], 55, 9), "User: AE ");
  EXPECT_EQ(At(lines[7], 17, 15), "Evaporator vapo");
  // A long description runs over the "File:" label up to the name.
  EXPECT_EQ(At(lines[7], 55, 22), "uperheTC-MEDIUM-RATIO ");
  // The size line centred on column 38.
  const std::string size = "Size: " + TcModel(dc);
  ASSERT_EQ(size.substr(0, 9), "Size: TC-");
  EXPECT_EQ(lines[9], std::string(38 - size.size() / 2 - 1, ' ') + size +
                         std::string(76 - (38 - size.size() / 2 - 1) - size.size(), ' '));

  // As typed: motive 150 psig at 400 degF, suction 10 psia saturated, 3000 #/hr, discharge 15 psia.
  EXPECT_EQ(FieldEndingAt(lines[11], 65), "150.0");
  EXPECT_EQ(At(lines[11], 66, 6), "  psig");
  EXPECT_EQ(FieldEndingAt(lines[12], 65), "400.00");
  EXPECT_EQ(FieldEndingAt(lines[15], 65), "10.00");
  EXPECT_NEAR(tcin.TSUCT, 193.2f, 0.2f);  // saturation at 10 psia
  EXPECT_EQ(FieldEndingAt(lines[16], 65), Format(tcin.TSUCT, "0.00"));
  EXPECT_EQ(FieldEndingAt(lines[17], 65), "3000.00");
  EXPECT_EQ(FieldEndingAt(lines[18], 65), "15.00");
  EXPECT_EQ(FieldEndingAt(lines[13], 65), Format(dc.STG(1, kStgMOTIVE), "0.00"));
  EXPECT_EQ(FieldEndingAt(lines[19], 65), Format(dc.STG(1, kStgTD), "0.00"));
  EXPECT_EQ(At(lines[19], 66, 6), "  degF");

  EXPECT_EQ(lines[23].substr(0, 71), "   Suction Chamber and Diffuser_______________________________CAST IRON");
  EXPECT_EQ(lines[24].substr(0, 71), "   Steam Nozzle___________________________________________________416SS");
  EXPECT_EQ(At(lines[29], 32, 16), "Tessel Standard_");
  EXPECT_EQ(lines[32].substr(0, 52), "                         *** PRELIMINARY DRAWING ***");
}

TEST_F(TcSheets, SpecSheetMaterialsAndCodeFollowTheLists) {
  Design("TC-MEDIUM-RATIO.TTC");
  screen.lists = {2, 2, 0, 1, 1};
  const auto lines = Spec();
  EXPECT_EQ(At(lines[23], 57, 15), "STAINLESS STEEL");
  EXPECT_EQ(FieldEndingAt(lines[24], 71), "316SS");
  EXPECT_EQ(FieldEndingAt(lines[25], 71), "STEEL");
  EXPECT_EQ(FieldEndingAt(lines[26], 71), "304SS");
  EXPECT_EQ(At(lines[29], 32, 23), "ASME Sect. VIII, Div I_");
}

TEST_F(TcSheets, MetricSpecSheetConvertsAndWritesTheUnitWordAtColumnSeventyOne) {
  Design("TC-METRIC-HIGH-RATIO.TTC");
  ASSERT_TRUE(screen.Metric());
  const auto lines = Spec();
  // Typed in metric: motive 10 bar(g), suction 0.4 bar(a), discharge 1.2 bar(a), 1000 kg/h.
  EXPECT_EQ(FieldEndingAt(lines[11], 65), "10.00");
  EXPECT_EQ(At(lines[11], 66, 6), "  barg");
  EXPECT_EQ(FieldEndingAt(lines[15], 65), "0.40");
  EXPECT_EQ(At(lines[15], 66, 6), "  bara");
  EXPECT_EQ(FieldEndingAt(lines[18], 65), "1.20");
  EXPECT_EQ(At(lines[18], 66, 6), "  bara");
  EXPECT_EQ(FieldEndingAt(lines[17], 65), "1000.00");
  EXPECT_EQ(At(lines[17], 66, 6), "  kg/h");
  EXPECT_EQ(At(lines[13], 66, 6), "  kg/h");
  // Temperatures in degC: the "C" over the template's "F".
  for (size_t k : {12u, 16u, 19u}) EXPECT_EQ(At(lines[k], 66, 6), "  degC") << k + 1;
  EXPECT_NEAR(std::stof(FieldEndingAt(lines[16], 65)), (tcin.TSUCT - 32) / 1.8f, 0.006f);
  EXPECT_NEAR(std::stof(FieldEndingAt(lines[19], 65)), (dc.STG(1, kStgTD) - 32) / 1.8f, 0.006f);
}

// --- Data sheet -------------------------------------------------------------------------------

TEST_F(TcSheets, DataSheetAsksForAQuotationWithTheInputOnBothUnitSidesAndTheResult) {
  Design("TC-METRIC-HIGH-RATIO.TTC");
  const auto lines = Data();
  ExpectSheetShape(lines, 35u);
  EXPECT_EQ(lines[1].substr(0, 54), "                 THERMO COMPRESSOR DESIGN PROGRAM DATA");
  EXPECT_EQ(lines[12].substr(0, 71), "   Please provide a thermo compressor quotation based on the following:");
  EXPECT_EQ(At(lines[4], 53, 18), "Date: Nov 05, 2026");
  EXPECT_EQ(At(lines[6], 4, 12), "From:  Row 1");
  EXPECT_EQ(At(lines[6], 53, 11), "Phone:Row 5");
  EXPECT_EQ(At(lines[10], 4, 12), "Email: Row 7");
  EXPECT_EQ(FieldStartingAt(lines[13], 17), "TC-203");
  EXPECT_EQ(At(lines[13], 55, 8), "User: AE");
  EXPECT_EQ(At(lines[14], 61, 16), "TC-METRIC-HIGH-R");
  EXPECT_EQ(FieldStartingAt(lines[17], 17), "Metric");
  // The six boxes as typed, standard at 50 and metric at 69.
  EXPECT_EQ(FieldEndingAt(lines[18], 50), "5.80");
  EXPECT_EQ(FieldEndingAt(lines[18], 69), "0.40");
  EXPECT_EQ(FieldEndingAt(lines[19], 50), "0.00");
  EXPECT_EQ(FieldEndingAt(lines[21], 50), "145.04");
  EXPECT_EQ(FieldEndingAt(lines[21], 69), "10.00");
  EXPECT_EQ(FieldEndingAt(lines[23], 50), "2204.60");
  EXPECT_EQ(FieldEndingAt(lines[23], 69), "1000.00");
  EXPECT_EQ(lines[26].substr(0, 71), "   Suction Chamber/Diff.______________________________________CAST IRON");
  EXPECT_EQ(lines[30].substr(0, 71), "   Code of Construction:________________________________Tessel Standard");
  EXPECT_EQ(FieldEndingAt(lines[33], 71), TcModel(dc));
  EXPECT_EQ(FieldEndingAt(lines[34], 66), Format(dc.STG(1, kStgMOTIVE), "0"));
  EXPECT_EQ(At(lines[34], 67, 5), " #/hr");
}

// --- Print and text file ----------------------------------------------------------------------------

TEST(TcSheetTextPath, IsTheCaseUpperCasedWithTtcMadeTxtOrOutTxt) {
  EXPECT_EQ(TcSheetTextPath("/home/ann/tc/steam-1.ttc", "/prog"), fs::path("/home/ann/tc/STEAM-1.TXT"));
  EXPECT_EQ(TcSheetTextPath("", "/prog"), fs::path("/prog/OUT.TXT"));
  EXPECT_EQ(TcSheetTextPath("/home/ann/tc/steam-1.jet", "/prog"), fs::path("/prog/OUT.TXT"));
}

TEST(TcSheetPrint, SpecSheetLeavesRoomForTheDrawingWhichLandsOnTheSamePage) {
  RecordingPrinter printer;
  size_t printed_before_drawing = 0;
  int drawings = 0;
  PrintTcSpecSheet(Numbered(33), printer, [&](PageSink& p) {
    ++drawings;
    printed_before_drawing = printer.printed.size();
    EXPECT_EQ(printer.ended, 0);
    // At 12 points the text runs a little past the page's foot (under 2 %): the page shrinks to hold it.
    EXPECT_GT(p.CurrentY(), p.Height());
    EXPECT_LT(p.CurrentY(), p.Height() * 1.02f);
  });
  EXPECT_EQ(drawings, 1);
  ASSERT_EQ(printer.printed.size(), 32u + 21u + 3u + 3u);
  EXPECT_EQ(printed_before_drawing, printer.printed.size());
  EXPECT_EQ(printer.printed[0].text, "   line 2");
  EXPECT_EQ(printer.printed[31].text, "   line 33");
  EXPECT_EQ(printer.printed[32].text, " ");
  EXPECT_EQ(printer.printed[52].text, " ");
  EXPECT_EQ(printer.printed[53].text, "  ");
  EXPECT_EQ(printer.printed[55].text, "  ");
  EXPECT_EQ(printer.printed[58].text, MakerLine(2));
  for (const auto& line : printer.printed) EXPECT_EQ(line.font, "Courier New");
  EXPECT_EQ(printer.ended, 1);

  RecordingPrinter without;
  PrintTcSpecSheet(Numbered(33), without, nullptr);
  EXPECT_EQ(without.printed.size(), 59u);
  EXPECT_EQ(without.ended, 1);
}

TEST_F(TcSheetOutput, DataSheetPrintsAndWritesTheSameLines) {
  const std::vector<std::string> lines = {"first", "second"};
  std::vector<std::string> expected = {" ", "   first", "   second", " ", "  ", "  ", "  "};
  for (size_t i = 0; i < 3; ++i) expected.push_back(MakerLine(i));

  RecordingPrinter printer;
  PrintTcDataSheet(lines, printer);
  std::vector<std::string> printed;
  for (const auto& line : printer.printed) {
    printed.push_back(line.text);
    EXPECT_EQ(line.size, 12);
  }
  EXPECT_EQ(printed, expected);
  EXPECT_EQ(printer.ended, 1);

  RecordingUi ui;
  ASSERT_TRUE(WriteTcSheetText(lines, dir / "TC.TXT", ui));
  std::string bytes;
  for (const auto& line : expected) bytes += line + "\r\n";
  EXPECT_EQ(ReadBytes(dir / "TC.TXT"), bytes);

  const fs::path blocker = dir / "blocker";
  WriteBytes(blocker, "x");
  EXPECT_FALSE(WriteTcSheetText(lines, blocker / "TC.TXT", ui));
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_NE(ui.notices[0].find((blocker / "TC.TXT").string()), std::string::npos);
}
