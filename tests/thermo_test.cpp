// The thermo compressor: input screen and check, TTC files, the design and its results.
#include <gtest/gtest.h>

#include <cmath>

#include "case/input_screen.h"
#include "engine/stage_model.h"
#include "engine/stage_results.h"
#include "properties/numeric.h"
#include "test_support.h"
#include "thermo/tc_file.h"
#include "thermo/thermo_compressor.h"

using namespace kestrane;
using kestrane::testing::ErrorNumberOf;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

TCInputScreen Screen(std::array<std::string, kTcInputs> values) {
  TCInputScreen s;
  s.txtInput = values;
  return s;
}

class Thermo : public ::testing::Test {
 protected:
  Thermo() : design_screen(NewCase()), ctx{dc, kestrane::testing::ShippedData(), design_screen, pinterfix, ui} {}

  Steam steam() const { return ctx.steam(); }
  // Checks the boxes; the notice (empty when none) and the error flag.
  int16_t Check(const TCInputScreen& s) {
    ui.notices.clear();
    return CheckTCInput(s, dc, tcin, steam(), ui);
  }
  std::string Notice() const { return ui.notices.empty() ? "" : ui.notices.back(); }
  TcOutcome Design(const std::array<std::string, kTcInputs>& values) {
    EXPECT_EQ(Check(Screen(values)), 0) << Notice();
    return DesignThermoCompressor(ctx, tcin);
  }
  float Stg(int row) const { return dc.STG(1, row); }
  bool StandardPipe(float nominal) const {
    const auto& pipes = ctx.data.constants.PIPETAB;
    for (int i = 1; i <= pipes.hi1(); ++i) {
      if (pipes(i, 1) == nominal) return true;
    }
    return false;
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen design_screen;
  float pinterfix = 0;
  DesignContext ctx;
  TcInput tcin;
};

class TcFiles : public kestrane::testing::ScratchFolder {};

}  // namespace

// --- Input check -------------------------------------------------------------

TEST_F(Thermo, SuctionAboveTwentyFivePsiaIsRefusedWithTheTextThatNamesTen) {
  EXPECT_EQ(Check(Screen({"26", "0", "30", "150", "0", "1000"})), 1);
  EXPECT_EQ(Notice(), "Suction pressure outside the range: (3.8 - 10. psia)\r\n");
  EXPECT_EQ(Check(Screen({"3.7", "0", "30", "150", "0", "1000"})), 1);
  EXPECT_EQ(Check(Screen({"25", "0", "30", "150", "0", "1000"})), 0) << Notice();
  EXPECT_EQ(Check(Screen({"3.8", "0", "30", "150", "0", "1000"})), 0) << Notice();
}

TEST_F(Thermo, EveryErrorIsCollectedInOneNotice) {
  EXPECT_EQ(Check(Screen({"2", "600", "50", "30", "0", "0"})), 1);
  EXPECT_EQ(Notice(),
            "Suction pressure outside the range: (3.8 - 10. psia)\r\n"
            "Suction temperature outside the range: (Tsat - 500 degF)\r\n"
            "Discharge pressure outside the range: (45 psia)\r\n"
            "Motive pressure outside the range: (50 - 250 psig)\r\n"
            "The load (#/hr of steam) must be greater than zero!\r\n");
  EXPECT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(Check(Screen({"10", "0", "9", "150", "0", "10"})), 1);
  EXPECT_EQ(Notice(), "Discharge pressure must be greater than suction pressure!\r\n");
  // A discharge equal to the suction passes.
  EXPECT_EQ(Check(Screen({"10", "0", "10", "150", "0", "10"})), 0) << Notice();
}

TEST_F(Thermo, ZeroTemperaturesBecomeSaturationAndSuctionBelowItIsRefused) {
  ASSERT_EQ(Check(Screen({"14.696", "0", "20", "100", "0", "10"})), 0) << Notice();
  EXPECT_NEAR(tcin.TSUCT, 212.0, 0.3);
  EXPECT_NEAR(tcin.TMOTIVE, 337.9, 0.5);  // saturation at 100 psig
  EXPECT_TRUE(ui.notices.empty());
  EXPECT_EQ(Check(Screen({"14.696", "200", "20", "100", "0", "10"})), 1);
  EXPECT_EQ(Notice(), "Suction temperature outside the range: (Tsat - 500 degF)\r\n");
}

TEST_F(Thermo, MotiveBelowSaturationRunsWithTheWarningAndKeepsTheTemperature) {
  EXPECT_EQ(Check(Screen({"10", "0", "15", "150", "300", "1000"})), 0);
  EXPECT_EQ(Notice(), "Motive temperature less than saturation! Changed to saturation and continuing.\r\n");
  EXPECT_EQ(tcin.TMOTIVE, 300.0f);
  const TcOutcome outcome = DesignThermoCompressor(ctx, tcin);
  EXPECT_GT(Stg(kStgMOTIVE), 0.0f);
  EXPECT_TRUE(outcome.settled);
}

TEST_F(Thermo, APassingCheckClearsTheStageTableAndFillsTheInputRecord) {
  dc.STG(3, 20) = 5;
  dc.STG(5, 60) = 7;
  ASSERT_EQ(Check(Screen({"10", "250", "15", "150", "400", "1000"})), 0);
  EXPECT_EQ(dc.STG(3, 20), 0.0f);
  EXPECT_EQ(dc.STG(5, 60), 0.0f);
  EXPECT_EQ(tcin.PSUCT, 10.0f);
  EXPECT_EQ(tcin.TSUCT, 250.0f);
  EXPECT_EQ(tcin.PDISCH, 15.0f);
  EXPECT_EQ(tcin.PMOTIVE, 150.0f);
  EXPECT_EQ(tcin.TMOTIVE, 400.0f);
  EXPECT_EQ(tcin.LOADTC, 1000.0f);
}

// --- Screen model -------------------------------------------------------------

TEST(TcScreen, MetricPairsConvertAndZeroTemperaturesStayZero) {
  TCInputScreen s;
  EditTcInput(s, 0, true, "1");
  EXPECT_EQ(s.txtInput[0], FormatFixed(14.5037994385f, 12.4f));
  EditTcInput(s, 1, true, "0");
  EXPECT_EQ(s.txtInput[1], FormatFixed(0.0f, 12.4f));
  EditTcInput(s, 4, false, "212");
  EXPECT_EQ(s.txtInputA[4], FormatFixed(100.0f, 12.4f));
  EditTcInput(s, 5, false, "2204.5993805");
  EXPECT_EQ(s.txtInputA[5], FormatFixed(1000.0f, 12.4f));
  EditTcInput(s, 3, false, "");
  EXPECT_EQ(s.txtInputA[3], "");
  EXPECT_EQ(s.TCDIRTY, 1);
}

TEST(TcScreen, ClearingGivesANewCaseInStandardUnits) {
  TCInputScreen s;
  s.txtInput[2] = "15";
  s.TCCASENAME = "A.TTC";
  s.TCDIRTY = 1;
  SelectTcUnits(s, 1);
  SelectTcList(s, kTcJetCode, 2);
  EXPECT_EQ(TcTitle(s), "Kestrane-Thermo Compressor Design       Current File:A.TTC");
  ClearTCInput(s);
  EXPECT_EQ(s.txtInput[2], "");
  EXPECT_EQ(s.OptionUnits, (std::array<int16_t, 2>{-1, 0}));
  EXPECT_EQ(s.lists[kTcJetCode], 0);
  EXPECT_EQ(s.TCDIRTY, 0);
  EXPECT_EQ(TcTitle(s), "Kestrane-Thermo Compressor Design ");
  EXPECT_EQ(TcListDefinition(kTcJetCode).entries[1], "ASME Sect. VIII, Div I");
  EXPECT_EQ(kTcInputCaptions[1], "Suction Temperature (0=D&&S)");
  EXPECT_EQ(TcHint(5), "The load must be greater than 0.");
  EXPECT_EQ(ErrorNumberOf([&] { SelectTcList(s, kTcSteamChest, 1); }), 380);
}

// --- TTC files ---------------------------------------------------------------

TEST_F(TcFiles, EveryExampleRoundTripsUnchanged) {
  int count = 0;
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".TTC") continue;
    ++count;
    RecordingUi ui;
    TCInputScreen s;
    ASSERT_TRUE(OpenTCFile(entry.path(), s, ui)) << entry.path();
    EXPECT_EQ(s.TCCASENAME, entry.path().filename().string());
    const fs::path copy = dir / entry.path().filename();
    ASSERT_TRUE(SaveTCFileAs(copy, s, ui));
    EXPECT_TRUE(ReadBytes(copy) == ReadBytes(entry.path())) << entry.path();
    TCInputScreen again;
    ASSERT_TRUE(ReadTCFile(copy, again, ui));
    EXPECT_EQ(again.txtHeadingInput, s.txtHeadingInput);
    EXPECT_EQ(again.txtInput, s.txtInput);
    EXPECT_EQ(again.txtInputA, s.txtInputA);
    EXPECT_EQ(again.OptionUnits, s.OptionUnits);
    EXPECT_EQ(again.lists, s.lists);
  }
  EXPECT_GE(count, 3);
}

TEST_F(TcFiles, OfTwoUnitButtonsBothOnTheSecondWins) {
  std::string text = "2.01\r\nI\r\nD\r\nE\r\n";
  for (int i = 0; i < 12; ++i) text += "1\r\n";
  text += "5\r\n7\r\n0\r\n0\r\n0\r\n0\r\n2\r\n";
  WriteBytes(dir / "BOTH.TTC", text);
  RecordingUi ui;
  TCInputScreen s;
  ASSERT_TRUE(ReadTCFile(dir / "BOTH.TTC", s, ui));
  EXPECT_EQ(s.OptionUnits, (std::array<int16_t, 2>{0, -1}));
  EXPECT_TRUE(s.Metric());
  EXPECT_EQ(s.lists[kTcJetCode], 2);
}

TEST_F(TcFiles, ADamagedFileIsReportedAndKeepsWhatWasRead) {
  WriteBytes(dir / "BAD.TTC", "2.01\r\nItem\r\nDesc\r\nEng\r\n12\r\n0.8274\r\n");
  RecordingUi ui;
  TCInputScreen s;
  s.TCDIRTY = 1;
  EXPECT_FALSE(ReadTCFile(dir / "BAD.TTC", s, ui));
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0].rfind("ReadTCFile Error: 62 ", 0), 0u) << ui.notices[0];
  EXPECT_EQ(s.txtHeadingInput[2], "Eng");
  EXPECT_EQ(s.txtInput[0], "12");
  EXPECT_EQ(s.txtInputA[0], "0.8274");
  EXPECT_EQ(s.TCDIRTY, 1);
}

TEST_F(TcFiles, AFailedWriteIsReportedAndKeepsThePreviousFile) {
  RecordingUi ui;
  TCInputScreen s;
  s.txtHeadingInput[0] = "first";
  ASSERT_TRUE(WriteTCFile(dir / "KEEP.TTC", s, ui));
  const std::string before = ReadBytes(dir / "KEEP.TTC");
  // The temporary name is taken by a folder: the write cannot go through.
  fs::create_directory(fs::path(dir / "KEEP.TTC") += ".tmp" + std::to_string(::getpid()));
  s.txtHeadingInput[0] = "second";
  s.TCDIRTY = 1;
  EXPECT_FALSE(WriteTCFile(dir / "KEEP.TTC", s, ui));
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0], "WriteTCFile Error: 75 Path/File access error");
  EXPECT_EQ(ReadBytes(dir / "KEEP.TTC"), before);
  EXPECT_EQ(s.TCDIRTY, 1);
}

TEST_F(TcFiles, ChangedInputAsksBeforeItIsLost) {
  RecordingUi ui;
  TCInputScreen s;
  EXPECT_EQ(CheckToStoreTCFile(s, ui), StoreDecision::kUnchanged);
  s.TCDIRTY = 1;
  EXPECT_EQ(CheckToStoreTCFile(s, ui), StoreDecision::kDeclined);
  EXPECT_EQ(ui.questions.back(), "Thermo Compressor: Save file?");
  ui.answer = true;
  EXPECT_EQ(CheckToStoreTCFile(s, ui), StoreDecision::kNeedsName);
  s.TCUSERCASE = (dir / "C.TTC").string();
  s.TCCASENAME = "C.TTC";
  EXPECT_EQ(CheckToStoreTCFile(s, ui), StoreDecision::kSaved);
  EXPECT_EQ(ui.questions.back(), "Thermo Compressor: The file \"C.TTC\" has been changed!\r\nDo you want to save changes?");
  EXPECT_TRUE(fs::exists(dir / "C.TTC"));
  EXPECT_EQ(s.TCDIRTY, 0);
}

// --- Design ------------------------------------------------------------------

TEST_F(Thermo, BodyTypeFollowsTheCompressionRatio) {
  EXPECT_EQ(Design({"10", "0", "17.9", "150", "0", "1000"}).TYPE, 9);
  EXPECT_EQ(Design({"10", "0", "11.9", "150", "0", "1000"}).TYPE, 8);
  EXPECT_EQ(Design({"10", "0", "18", "150", "0", "1000"}).TYPE, 1);
  EXPECT_EQ(Design({"10", "0", "12", "150", "0", "1000"}).TYPE, 9);
}

TEST_F(Thermo, MotiveRatioRisesWithTheCompressionRatio) {
  float last = 0;
  for (const char* pd : {"11", "13", "16", "20", "25", "30"}) {
    Design({"10", "0", pd, "150", "0", "2000"});
    EXPECT_GT(Stg(kStgML), last) << pd;
    last = Stg(kStgML);
    EXPECT_FLOAT_EQ(Stg(kStgMOTIVE), 2000 * Stg(kStgML));
  }
}

TEST_F(Thermo, ExamplesGiveSaneTemperaturesAndStandardConnections) {
  for (const char* file : {"TC-LOW-RATIO.TTC", "TC-MEDIUM-RATIO.TTC", "TC-METRIC-HIGH-RATIO.TTC"}) {
    SCOPED_TRACE(file);
    TCInputScreen s;
    ASSERT_TRUE(OpenTCFile(kExamples / file, s, ui));
    ASSERT_EQ(Check(s), 0) << Notice();
    const TcOutcome outcome = DesignThermoCompressor(ctx, tcin);
    EXPECT_TRUE(outcome.settled);
    EXPECT_LT(outcome.passes, 20);
    // The mixture leaves hotter than the suction and cooler than the motive steam.
    EXPECT_GT(Stg(kStgTD), Stg(kStgTS));
    EXPECT_LT(Stg(kStgTD), tcin.TMOTIVE);
    // Saturated suction: the suction temperature is the saturation at the suction pressure.
    float t = 0, h = 0, e = 0, v = 0, moisture = 0;
    int16_t failed = 0;
    SteamFromPT(steam(), tcin.PSUCT * 51.7144f, t, h, e, v, moisture, failed);
    if (s.txtInput[1] == "0" || Val(s.txtInput[1]) == 0) {
      EXPECT_NEAR(Stg(kStgTS), t, 0.05);
    }
    for (int row : {kStgDIAS, kStgDIAD, kStgDIAM}) EXPECT_TRUE(StandardPipe(Stg(row))) << row << " " << Stg(row);
    EXPECT_GE(Stg(kStgDIAS) + 2.0f, Stg(kStgDIAD));
    EXPECT_EQ(Stg(kStgBTU35), Stg(kStgTHROAT));
    EXPECT_EQ(Stg(kStgSIZE), SizeFromThroat(ctx, Stg(kStgTHROAT)));
    EXPECT_EQ(Stg(kStgPIN), tcin.PSUCT);
    EXPECT_EQ(Stg(kStgPOUT), tcin.PDISCH);
    EXPECT_GT(Stg(kStgDIMC), 0.0f);
  }
}

TEST_F(Thermo, LargeLowRatioBodiesTakeTheFallbackDimensions) {
  const TcOutcome outcome = Design({"20", "0", "23", "150", "0", "20000"});
  ASSERT_EQ(outcome.TYPE, 8);
  ASSERT_GT(Stg(kStgSIZE), 130.0f);
  const float dias = Stg(kStgDIAS);
  EXPECT_EQ(Stg(kStgDIMA), (dias + 4) * 0.5f + 6);
  EXPECT_EQ(Stg(kStgDIMB), dias * 0.5f + 6 + (Stg(kStgDIAM) >= 3 ? 4 : 0));
  // C over the type 8 diffuser: cone, throat of two diameters, and the taper to the discharge pipe.
  const float d = Stg(kStgTHROAT) / 1.1f;
  const Pipe pipe = PipeByNominal(ctx, Stg(kStgDIAD));
  const float b = pipe.od - 2 * pipe.wall;
  const double c = (d * 2.33 - d) / 13.856 * 12 + 2 * d + (b - d) / 1.36 * 12 + (dias * 0.5 + 3) + Stg(kStgDIMB);
  EXPECT_NEAR(Stg(kStgDIMC), std::floor(c + 0.5) - Stg(kStgDIMB), 1e-3);
}

// --- Results -----------------------------------------------------------------

TEST_F(Thermo, ResultsShowTheModelMotiveAndConnections) {
  Design({"10", "0", "15", "150", "0", "3000"});
  const TcResults standard = FillTCResults(dc, false);
  ASSERT_EQ(standard.captions.size(), 5u);
  EXPECT_EQ(standard.captions[1], "Motive (#/hr)");
  EXPECT_EQ(standard.values[0].rfind("TC-" + Trim(GeneralText(Stg(kStgSIZE))) + "x", 0), 0u);
  EXPECT_EQ(standard.values[1], FormatFixed(Stg(kStgMOTIVE), 12.0f));
  EXPECT_EQ(standard.values[4], FormatFixed(Stg(kStgDIAM), 12.2f));
  const TcResults metric = FillTCResults(dc, true);
  EXPECT_EQ(metric.captions[1], "Motive (kg/hr)");
  EXPECT_EQ(metric.values[1], FormatFixed(Stg(kStgMOTIVE) / 2.2045993805f, 12.0f));
  const auto grid = TcDebuggerGrid(dc);
  ASSERT_EQ(grid.size(), 17u);
  EXPECT_EQ(grid[2].first, "Motive FLow (#/hr)         ");
  EXPECT_EQ(grid[2].second, FormatFixed(Stg(kStgMOTIVE), 12.4f));
  EXPECT_EQ(grid[16].first, "Motive Vel (fps)           ");
  EXPECT_NE(TcResultsText(standard).find("Suction Dia. (in.)"), std::string::npos);
}
