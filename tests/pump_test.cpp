// The liquid ring pump: the catalogue file and its tools, the selection, and trains with a pump as last stage.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

#include "case/jet_file.h"
#include "engine/design_run.h"
#include "engine/results.h"
#include "properties/water_properties.h"
#include "pump/pump_data.h"
#include "pump/pump_selection.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ReadBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kSourceDir = KESTRANE_SOURCE_DIR;
const fs::path kExamples = kSourceDir / "usrfiles";

// One pump of the readable catalogue: its first row's fields and its curve.
struct CsvPump {
  std::map<std::string, std::string> fields;
  std::vector<std::array<float, 3>> curve;  // suction, capacity, bhp
};

std::vector<CsvPump> ReadCatalogueCsv() {
  std::ifstream in(kSourceDir / "tools" / "lrvp_sample_catalogue.csv");
  std::string line;
  std::getline(in, line);
  std::vector<std::string> names;
  std::stringstream head(line);
  for (std::string name; std::getline(head, name, ',');) names.push_back(name);
  std::vector<CsvPump> pumps;
  while (std::getline(in, line)) {
    std::map<std::string, std::string> row;
    std::stringstream cells(line);
    size_t k = 0;
    for (std::string cell; std::getline(cells, cell, ',');) row[names.at(k++)] = cell;
    if (pumps.empty() || pumps.back().fields["model"] != row["model"]) pumps.push_back({row, {}});
    pumps.back().curve.push_back(
        {std::stof(row["suction_mmHgA"]), std::stof(row["capacity_acfm"]), std::stof(row["bhp"])});
  }
  return pumps;
}

std::string Quiet(const std::string& command) { return command + " > /dev/null"; }

// A design context over the shipped data, with a record of water and air loads as the input check leaves it.
class PumpSelection : public ::testing::Test {
 protected:
  PumpSelection() : screen(NewCase()), ctx{dc, kestrane::testing::ShippedData(), screen, pinterfix, ui} {
    dc.NLOADS = 2;
    dc.LOADS(kLoadMW, 1) = 18;
    dc.LOADCLASS(1) = 4;
    dc.LATENT(1) = 1100;
    dc.LOADS(kLoadMW, 2) = 29;
    dc.LOADCLASS(2) = 1;
    dc.USELRVP = 1;
    dc.KEEPWATERP = 1;
    dc.TWATERIN = 75;
    dc.TSATC2 = 80;
  }
  LoadVector Loads(float water, float air) {
    LoadVector loads = NewLoadVector();
    loads(1) = water;
    loads(2) = air;
    return loads;
  }
  int16_t Analyse(float p, float pd, const LoadVector& loads, int16_t pump = 0) {
    return AnalysePump(ctx, p, pd, loads, pump, count);
  }
  const PumpRecord& Kept(int k) const {
    return ctx.data.pumps.pumps[static_cast<size_t>(CInt(dc.LRVPRES(kLrvpPump, k)))];
  }
  bool Checked(const std::string& model) const {
    return std::find(ui.progresses.begin(), ui.progresses.end(), "Checking LRVP: " + model) != ui.progresses.end();
  }

  RecordingUi ui;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  DesignContext ctx;
  int16_t count = 0;
};

// Example cases run through the whole design.
class PumpTrain : public PumpSelection {
 protected:
  DesignOutcome Design(const std::string& file) {
    InputScreen read = NewCase();
    EXPECT_TRUE(OpenCase(kExamples / file, read, ui));
    screen = read;
    dc = DesignCase();
    return RunDesign(ctx, screen);
  }
  // An example with boxes typed anew, designed in a fresh record with the interface's record cleared.
  DesignOutcome DesignEdited(const std::string& file, const std::function<void(InputScreen&)>& edit) {
    InputScreen read = NewCase();
    EXPECT_TRUE(OpenCase(kExamples / file, read, ui));
    edit(read);
    ui = RecordingUi();
    screen = read;
    dc = DesignCase();
    return RunDesign(ctx, screen);
  }
  // How many times the catalogue was searched for a pump in the last design.
  long Selections() const {
    return std::count(ui.progresses.begin(), ui.progresses.end(), "Analyzing Vacuum Pump Selections...... ");
  }
};

// The two stage pump example at another cooling water temperature (degF).
std::function<void(InputScreen&)> CoolingWater(const char* twater) {
  return [twater](InputScreen& s) { s.txtInput[5] = twater; };
}

}  // namespace

// --- The catalogue file -------------------------------------------------------

TEST(PumpCatalogue, SampleGeneratorReproducesTheCommittedCsvByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_lrvp_" + std::to_string(::getpid()) + ".csv");
  ASSERT_EQ(std::system(Quiet("/usr/bin/python3 '" + (kSourceDir / "tools" / "make_lrvp_sample.py").string() +
                                "' '" + out.string() + "'")
                            .c_str()),
            0);
  EXPECT_TRUE(ReadBytes(out) == ReadBytes(kSourceDir / "tools" / "lrvp_sample_catalogue.csv"));
  fs::remove(out);
}

TEST(PumpCatalogue, BinaryWriterReproducesTheCommittedFileByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_vpx_" + std::to_string(::getpid()) + ".DTA");
  ASSERT_EQ(std::system(Quiet("/usr/bin/python3 '" + (kSourceDir / "tools" / "make_vpx.py").string() + "' '" +
                                (kSourceDir / "tools" / "lrvp_sample_catalogue.csv").string() + "' '" +
                                out.string() + "'")
                            .c_str()),
            0);
  const std::string written = ReadBytes(out);
  EXPECT_EQ(written.size(), 89u * 450u);
  EXPECT_TRUE(written == ReadBytes(kSourceDir / "pgmfiles" / "VPX.DTA"));
  fs::remove(out);
}

TEST(PumpCatalogue, LoaderReadsBackEveryPumpOfTheReadableCatalogue) {
  const std::vector<CsvPump> csv = ReadCatalogueCsv();
  ASSERT_EQ(csv.size(), 89u);
  PumpData data;
  RecordingUi ui;
  ASSERT_TRUE(ReadPumps(kSourceDir / "pgmfiles" / "VPX.DTA", data, ui));
  EXPECT_TRUE(ui.notices.empty());
  for (size_t p = 1; p <= 89; ++p) {
    const CsvPump& want = csv[p - 1];
    const PumpRecord& got = data.pumps[p];
    SCOPED_TRACE(want.fields.at("model"));
    EXPECT_EQ(got.MODEL.size(), 12u);
    EXPECT_EQ(Trim(got.MODEL), want.fields.at("model"));
    EXPECT_EQ(got.PCYCLES, std::stof(want.fields.at("frequency")));
    EXPECT_EQ(got.PTYPE, std::stoi(want.fields.at("class")));
    EXPECT_EQ(got.PSERIES, std::stoi(want.fields.at("series")));
    EXPECT_EQ(got.PFLAG, std::stoi(want.fields.at("flag")));
    EXPECT_EQ(got.MOTORIDX, std::stoi(want.fields.at("motor_index")));
    EXPECT_EQ(got.SEALGPM[1], std::stof(want.fields.at("seal1_gpm")));
    EXPECT_EQ(got.SEALGPM[3], std::stof(want.fields.at("seal3_gpm")));
    EXPECT_EQ(got.PMAXBHP, std::stof(want.fields.at("max_bhp")));
    EXPECT_EQ(got.points, static_cast<int16_t>(want.curve.size()));
    EXPECT_EQ(got.PCURVE(1, 4), want.curve[0][2]);
    for (size_t k = 0; k < 25; ++k) {
      const bool used = k < want.curve.size();
      EXPECT_EQ(got.PCURVE(static_cast<int>(k + 1), 1), used ? want.curve[k][0] : 0.0f);
      EXPECT_EQ(got.PCURVE(static_cast<int>(k + 1), 2), used ? want.curve[k][1] : 0.0f);
      EXPECT_EQ(got.PCURVE(static_cast<int>(k + 1), 3), 0.0f);
    }
  }
}

TEST(PumpCatalogue, SampleCoversBothFrequenciesBothClassesAndTheRangeOfSizes) {
  const PumpData& data = kestrane::testing::ShippedData().pumps;
  ASSERT_TRUE(data.loaded);
  std::map<std::pair<int, int>, int> lines;
  float smallest = 1e9f, largest = 0;
  for (size_t p = 1; p <= 89; ++p) {
    const PumpRecord& r = data.pumps[p];
    ++lines[{static_cast<int>(r.PCYCLES), r.PTYPE}];
    const int last = r.points;
    smallest = std::min(smallest, r.PCURVE(last, 2));
    largest = std::max(largest, r.PCURVE(last, 2));
    // Curves rise in suction pressure and capacity; power never exceeds the maximum.
    for (int k = 2; k <= last; ++k) {
      EXPECT_GT(r.PCURVE(k, 1), r.PCURVE(k - 1, 1)) << r.MODEL;
      EXPECT_GE(r.PCURVE(k, 2), r.PCURVE(k - 1, 2)) << r.MODEL;
    }
    EXPECT_LE(r.PCURVE(1, 4), r.PMAXBHP) << r.MODEL;
    EXPECT_GT(r.SEALGPM[1], r.SEALGPM[2]) << r.MODEL;
    EXPECT_GT(r.SEALGPM[2], r.SEALGPM[3]) << r.MODEL;
    // The motor covers the pump's maximum power.
    EXPECT_GE(data.tables.motors(r.MOTORIDX), r.PMAXBHP) << r.MODEL;
  }
  for (int hz : {50, 60}) {
    for (int cls : {1, 2}) EXPECT_GE((lines[{hz, cls}]), 20) << hz << " Hz class " << cls;
  }
  EXPECT_LE(smallest, 12.0f);
  EXPECT_GE(largest, 4000.0f);
}

TEST(PumpCatalogue, AMissingFileIsReportedAndLeavesNoPumps) {
  PumpData data;
  RecordingUi ui;
  EXPECT_FALSE(ReadPumps(fs::temp_directory_path() / "no-such-folder" / "VPX.DTA", data, ui));
  EXPECT_FALSE(data.loaded);
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_NE(ui.notices[0].find("VPX.DTA"), std::string::npos);
}

TEST(PumpCatalogue, CorrectionTablesStartAtOneAndWorsenWithDischargeAndVacuum) {
  PumpTables t;
  SetPumpTables(t);
  for (const Array2D<float>* table : {&t.capacity1, &t.capacity2, &t.power1, &t.power2}) {
    for (int row = 1; row <= table->hi1(); ++row) {
      EXPECT_EQ((*table)(row, 2), 1.0f);  // no correction at the atmosphere
      if (row > 1) {
        EXPECT_GT((*table)(row, 1), (*table)(row - 1, 1));
      }
    }
  }
  // Down to 26 inHg vacuum; deeper, the power factors settle at 1.
  for (int row = 1; t.capacity1(row, 1) <= 26; ++row) {
    for (int col = 3; col <= 5; ++col) {
      EXPECT_LE(t.capacity1(row, col), t.capacity1(row, col - 1));  // less capacity against more back pressure
      EXPECT_GE(t.power1(row, col), t.power1(row, col - 1));       // and more power
    }
  }
  // Deeper vacuum, more capacity lost at the highest discharge.
  EXPECT_LT(t.capacity1(t.capacity1.hi1(), 5), t.capacity1(1, 5));
  EXPECT_EQ(t.discharge(1), 0.0f);
  EXPECT_EQ(t.discharge(4), 10.0f);
}

// --- Selection ---------------------------------------------------------------

TEST_F(PumpSelection, AboveFiveThousandAcfmNoPumpIsTried) {
  // 1000 lb/hr of air at 30 mmHgA is about 5,700 ACFM.
  EXPECT_EQ(Analyse(30, 0, Loads(0, 1000)), 2);
  EXPECT_EQ(count, 0);
  EXPECT_TRUE(ui.progresses.empty());
  // Just under the limit the catalogue is searched.
  EXPECT_NE(Analyse(30, 0, Loads(0, 850)), 2);
  EXPECT_FALSE(ui.progresses.empty());
}

TEST_F(PumpSelection, SuctionBelowEveryCurveKeepsNone) {
  EXPECT_EQ(Analyse(15, 0, Loads(1, 1)), 1);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(dc.LRVPRES(kLrvpPump, 1), 0.0f);
  // Two-stage pumps start at 20 mmHgA: they are tried at 22, single-stage ones (from 30) are not.
  Analyse(22, 0, Loads(1, 1));
  EXPECT_TRUE(Checked("LT-0012.0-60"));
  EXPECT_FALSE(Checked("LS-0012.0-60"));
}

TEST_F(PumpSelection, OnlyRecordsOfTheCasesFrequencyAreConsidered) {
  dc.CYCLES = 1;
  ASSERT_EQ(Analyse(100, 0, Loads(10, 5)), 0);
  ASSERT_GT(count, 5);
  for (int k = 1; k <= count; ++k) EXPECT_EQ(Kept(k).PCYCLES, 50.0f);
  for (const auto& text : ui.progresses) EXPECT_EQ(text.find("-60"), std::string::npos) << text;
  dc.CYCLES = 0;
  ASSERT_EQ(Analyse(100, 0, Loads(10, 5)), 0);
  for (int k = 1; k <= count; ++k) EXPECT_EQ(Kept(k).PCYCLES, 60.0f);
}

TEST_F(PumpSelection, KeptPumpsCoverTheLoadAndComeSortedByPower) {
  ASSERT_EQ(Analyse(60, 0, Loads(20, 10)), 0);
  ASSERT_GT(count, 2);
  for (int k = 1; k <= count; ++k) {
    const float need = dc.LRVPRES(kLrvpAcfm, k) / dc.LRVPRES(kLrvpCondensation, k);
    EXPECT_GE(dc.LRVPRES(kLrvpCapacity, k), need * 1.1f * 0.9999f) << Kept(k).MODEL;
    EXPECT_NEAR(dc.LRVPRES(kLrvpRatio, k), dc.LRVPRES(kLrvpCapacity, k) / need, 1e-4);
    if (k > 1) {
      EXPECT_GE(dc.LRVPRES(kLrvpPower, k), dc.LRVPRES(kLrvpPower, k - 1));
    }
  }
  // The ACFM of the load: (W/60) 379/MW 760/P (T + 460)/520 with T the C2 temperature.
  const double moles = 20.0 / 18 + 10.0 / 29;
  EXPECT_NEAR(dc.LRVPRES(kLrvpAcfm, 1), moles / 60 * 379 * 760 / 60 * (80 + 460) / 520.0, 1e-3);
  // The motor of the first pump comes from the motor table.
  EXPECT_EQ(dc.LRVPRES(kLrvpMotor, 1), ctx.data.pumps.tables.motors(Kept(1).MOTORIDX));
  EXPECT_EQ(ui.progresses.back(), "Analyzing Vacuum Pump Selections...... ");
}

TEST_F(PumpSelection, SealWaterRiseCarriesThePumpsPowerWhenNothingCondenses) {
  // Air alone: the seal water takes the brake power only, 2540 Btu/hr per hp.
  ASSERT_EQ(Analyse(100, 0, Loads(0, 20)), 0);
  for (int k = 1; k <= count; ++k) {
    const float rise = dc.LRVPRES(kLrvpSealOut, k) - dc.TWATERIN;
    float cp = 0, sg = 0, kk = 0, mu = 0;
    int16_t err = 0;
    WaterProperties(dc.TWATERIN, cp, sg, kk, mu, err);
    const float expected = dc.LRVPRES(kLrvpPower, k) * 2540 / (dc.LRVPRES(kLrvpSeal, k) * 500 * cp * sg);
    EXPECT_NEAR(rise, expected, 0.15) << Kept(k).MODEL;
    EXPECT_EQ(dc.LRVPRES(kLrvpHighRise, k), rise > 20 ? 1.0f : 0.0f);
  }
  // Condensing water vapor in the ring heats the seal water more.
  const float dry_rise = dc.LRVPRES(kLrvpSealOut, 1);
  const auto pump = static_cast<int16_t>(CInt(dc.LRVPRES(kLrvpPump, 1)));
  ASSERT_EQ(Analyse(100, 0, Loads(30, 20), pump), 0);
  EXPECT_GT(dc.LRVPRES(kLrvpSealOut, 1), dry_rise + 1);
}

TEST_F(PumpSelection, CondensationInTheRingRaisesTheCapacityFactor) {
  ASSERT_EQ(Analyse(100, 0, Loads(0, 20)), 0);
  const float dry = dc.LRVPRES(kLrvpCondensation, 1);
  // Dry air takes up the seal water's vapor: it needs more volume than it brings.
  EXPECT_GT(dry, 0.5f);
  EXPECT_LT(dry, 1.0f);
  // Water vapor that condenses in the ring frees capacity.
  ASSERT_EQ(Analyse(100, 0, Loads(40, 20)), 0);
  EXPECT_GT(dc.LRVPRES(kLrvpCondensation, 1), 1.5f * dry);
  EXPECT_LE(dc.LRVPRES(kLrvpCondensation, 1), 3.0f);
}

TEST_F(PumpSelection, CompressionClassesLimitTheDischarge) {
  // At 50 mmHgA and 6.5 psig the single-stage limit of 20 is passed, the two-stage one of 25 is not.
  Analyse(50, 6.5f, Loads(2, 2));
  for (int k = 1; k <= count; ++k) EXPECT_NE(Kept(k).PTYPE, 1) << Kept(k).MODEL;
  EXPECT_GT(count, 0);
  // Above 10 psig nothing is tried at all.
  ui.progresses.clear();
  EXPECT_EQ(Analyse(200, 10.5f, Loads(2, 2)), 1);
  EXPECT_TRUE(ui.progresses.size() == 1u);  // only the closing text
}

TEST_F(PumpSelection, SealWaterNearBoilingRejectsThePump) {
  dc.TWATERIN = 95;
  Analyse(60, 0, Loads(5, 5));
  for (int k = 1; k <= count; ++k) {
    const float margin = 60 - dc.LRVPRES(kLrvpSealPsat, k);
    EXPECT_GT(margin, 5) << Kept(k).MODEL;
    EXPECT_EQ(dc.LRVPRES(kLrvpLowMargin, k), margin <= 10 ? 1.0f : 0.0f);
  }
  // 30 mmHgA is below what seal water of 95 F and more can hold.
  EXPECT_EQ(Analyse(30, 0, Loads(5, 5)), 1);
}

TEST_F(PumpSelection, AnExplicitPumpIsKeptEvenWhenTooSmall) {
  // The smallest pump against a load many times its capacity.
  EXPECT_EQ(Analyse(100, 0, Loads(0, 40), 1), 0);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(dc.LRVPRES(kLrvpPump, 1), 1.0f);
  EXPECT_LT(dc.LRVPRES(kLrvpRatio, 1), 0.5f);
  // A fixed seal flow replaces the catalogue's for the chosen pump only.
  dc.SEALFLOW = 4;
  Analyse(100, 0, Loads(0, 40), 1);
  EXPECT_EQ(dc.LRVPRES(kLrvpSeal, 1), 4.0f);
  Analyse(100, 0, Loads(0, 4));
  EXPECT_EQ(dc.LRVPRES(kLrvpSeal, 1), Kept(1).SEALGPM[1]);
  dc.SEALOPTION = 3;
  Analyse(100, 0, Loads(0, 4));
  EXPECT_EQ(dc.LRVPRES(kLrvpSeal, 1), Kept(1).SEALGPM[3]);
}

TEST_F(PumpSelection, APumpFlaggedForExplicitChoiceIsLeftOutOfAPumpTrain) {
  const std::string flagged = "LX-0250.0-60";
  Analyse(100, 0, Loads(10, 10));
  EXPECT_FALSE(Checked(flagged));
  dc.USELRVP = 0;
  Analyse(100, 0, Loads(10, 10));
  EXPECT_TRUE(Checked(flagged));
}

// --- Trains with a pump ------------------------------------------------------------

TEST_F(PumpTrain, TwoStagesWithAPumpSettleTheInterstageOnThePumpsBand) {
  const DesignOutcome outcome = Design("TWO-STAGE-LRVP.JET");
  ASSERT_TRUE(outcome.results) << (ui.notices.empty() ? "" : ui.notices.back());
  EXPECT_EQ(dc.LRVPERR, 0);
  EXPECT_NE(std::find(ui.statuses.begin(), ui.statuses.end(), "Optimizing Interstage Pressure..."),
            ui.statuses.end());
  // Stage C is the pump: no motive, its catalogue index as size, its capacity ratio as ML.
  EXPECT_EQ(dc.STG(kStageC, kStgMOTIVE), 0.0f);
  EXPECT_EQ(dc.STG(kStageC, kStgSIZE), dc.LRVPRES(kLrvpPump, 1));
  EXPECT_EQ(dc.STG(kStageC, kStgML), dc.LRVPRES(kLrvpRatio, 1));
  EXPECT_GE(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 0.99f);
  EXPECT_LT(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 1.15f);
  // The pump takes the gas from the intercondenser, 5 % below the B discharge.
  EXPECT_NEAR(dc.STG(kStageC, kStgPIN), dc.STG(kStageB, kStgPOUT) * 0.95f, 1e-3);
  EXPECT_EQ(dc.STG(kStageC, kStgDIAD), 0.0f);
  EXPECT_GT(dc.STG(kStageC, kStgDIAS), 0.0f);
  // The capacity covers the volume the load needs, after condensation in the ring.
  EXPECT_GE(dc.LRVPRES(kLrvpCapacity, 1),
            dc.LRVPRES(kLrvpAcfm, 1) / dc.LRVPRES(kLrvpCondensation, 1) * dc.LRVPMLMIN * 0.99f);
  // Annual costs with the pump's water and power.
  float gpm = 0;
  for (int col = 1; col <= 3; ++col) gpm += dc.CND(col, kCndGPMUSE);
  EXPECT_FLOAT_EQ(dc.TOTALS(kTotalWater), gpm + dc.LRVPRES(kLrvpSeal, 1));
  EXPECT_EQ(dc.TOTALS(kTotalPower), CInt(dc.LRVPRES(kLrvpPower, 1) * 0.7457f));
  EXPECT_FLOAT_EQ(dc.TOTALS(kTotalMotive), dc.STG(kStageB, kStgMOTIVE));
  const float water_price = Val(screen.txtCost[2]), power_price = Val(screen.txtCost[1]);
  EXPECT_NEAR(dc.TOTALS(kTotalWaterCost), dc.TOTALS(kTotalWater) * 60 * 8000 / 1000 * water_price, 0.01);
  EXPECT_NEAR(dc.TOTALS(kTotalPowerCost), dc.TOTALS(kTotalPower) * 8000 * power_price / 0.9, 0.01);
}

TEST_F(PumpTrain, APumpAloneIsTheLeastPowerOfThoseKept) {
  const DesignOutcome outcome = Design("LRVP-ONLY-50HZ.JET");
  ASSERT_TRUE(outcome.results);
  ASSERT_EQ(dc.NSTAGES, 1);
  const PumpRecord& pump = Kept(1);
  EXPECT_EQ(pump.PCYCLES, 50.0f);
  // The whole catalogue again at the same duty: the pump chosen has the least power of those kept.
  const float chosen_power = dc.LRVPRES(kLrvpPower, 1);
  const LoadVector loads = [&] {
    LoadVector l = NewLoadVector();
    for (int v = 1; v <= kMaxLoads; ++v) l(v) = dc.STGLOAD(v, kStageC);
    return l;
  }();
  ASSERT_EQ(Analyse(dc.STG(kStageC, kStgPIN), dc.STG(kStageC, kStgPOUT) / 51.7144f - 14.696f, loads), 0);
  EXPECT_GT(count, 1);
  for (int k = 1; k <= count; ++k) EXPECT_GE(dc.LRVPRES(kLrvpPower, k), chosen_power);
  const ResultsScreen results = FillResults(ctx, false);
  ASSERT_TRUE(results.show_pump);
  EXPECT_EQ(results.pump.columns[0][0], Trim(pump.MODEL));
  EXPECT_NE(ResultsText(results).find("Liquid Ring Vacuum Pump"), std::string::npos);
  EXPECT_EQ(results.ejectors.columns[0][0], "C-" + Trim(GeneralText(dc.STG(kStageC, kStgSIZE))).substr(0, 1) + "LRVP");
  EXPECT_EQ(DebuggerGrid(ctx)[0][kStageC], " <-LRVP---->");
}

TEST_F(PumpTrain, ConditionsNoPumpCanMeetEndWithTheLrvpErrorAndTheProgramGoesOn) {
  const DesignOutcome outcome = Design("LRVP-BEYOND-LIMITS.JET");
  EXPECT_FALSE(outcome.results);
  EXPECT_EQ(outcome.lblMessage, "LRVP Error");
  EXPECT_EQ(dc.LRVPERR, 1);
  ASSERT_FALSE(ui.notices.empty());
  EXPECT_EQ(ui.notices.back(),
            "Error encountered in liquid ring vacuum pump design.\r\nThe conditions may be beyond the capacity of a "
            "vacuum pump.\r\nSuggestions:\r\n-If cooling water is hot, try cold water (~50F) to prove if conditions "
            "are beyond the limits of the vacuum pump.\r\n-Disable the vacuum pump option and run as ejector(s) "
            "only.");
  // The next run in the same session designs normally.
  const DesignOutcome next = Design("TWO-STAGE-LRVP.JET");
  EXPECT_TRUE(next.results);
  EXPECT_EQ(dc.LRVPERR, 0);
}

TEST_F(PumpTrain, WithoutACatalogueAPumpTrainEndsWithTheLrvpError) {
  AppData empty = kestrane::testing::ShippedData();
  empty.pumps.loaded = false;
  DesignContext bare{dc, empty, screen, pinterfix, ui};
  InputScreen read = NewCase();
  ASSERT_TRUE(OpenCase(kExamples / "TWO-STAGE-LRVP.JET", read, ui));
  screen = read;
  const DesignOutcome outcome = RunDesign(bare, screen);
  EXPECT_EQ(outcome.lblMessage, "LRVP Error");
  EXPECT_EQ(dc.LRVPERR, 1);
}

TEST_F(PumpTrain, EveryExampleWithAPumpAddedEndsCleanly) {
  for (const auto& entry : fs::directory_iterator(kExamples)) {
    if (entry.path().extension() != ".JET") continue;
    InputScreen read = NewCase();
    ASSERT_TRUE(OpenCase(entry.path(), read, ui));
    read.chkboxLRVP = 1;
    screen = read;
    dc = DesignCase();
    const DesignOutcome outcome = RunDesign(ctx, screen);
    SCOPED_TRACE(entry.path().filename().string());
    if (outcome.input_error != 0) continue;  // some suctions are too deep for a pump train
    if (dc.LRVPERR != 0) {
      EXPECT_EQ(outcome.lblMessage, "LRVP Error");
      continue;
    }
    EXPECT_EQ(dc.STG(kStageC, kStgMOTIVE), 0.0f);
    EXPECT_GE(dc.STG(kStageC, kStgSIZE), 1.0f);
    for (int c = 1; c <= dc.NSTAGES; ++c) {
      for (int r = 1; r <= kStageRows; ++r) EXPECT_TRUE(std::isfinite(dc.STG(c, r))) << c << " " << r;
    }
    for (int k = 1; k <= 12; ++k) EXPECT_TRUE(std::isfinite(dc.TOTALS(k)));
    // The two stage search loads the pump into its band; a pump alone has at least the selection's margin.
    if (dc.NSTAGES >= 2) {
      EXPECT_GE(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 0.99f);
      EXPECT_LT(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 1.15f);
    } else {
      EXPECT_GE(dc.STG(kStageC, kStgML), 1.1f * 0.9999f);
    }
  }
}

// Warm cooling water leaves the pump little margin to its seal water's vapor pressure: below the
// start pressure the pump fails, the bisection closes on the pump's lowest inlet, and after its 50
// rounds the upper end climbs 1 mmHg a round until the pump holds again.
TEST_F(PumpTrain, WarmWaterTrainsClimbUntilThePumpHolds) {
  for (const char* twater : {"90", "105", "120"}) {
    SCOPED_TRACE(std::string("cooling water ") + twater + " F");
    const DesignOutcome outcome = DesignEdited("TWO-STAGE-LRVP.JET", CoolingWater(twater));
    EXPECT_EQ(dc.LRVPERR, 0);
    EXPECT_TRUE(outcome.results) << outcome.lblMessage;
    EXPECT_GE(dc.STG(kStageC, kStgSIZE), 1.0f);
    EXPECT_GT(dc.STG(kStageC, kStgML), 0.0f);
    EXPECT_GT(dc.STG(kStageB, kStgMOTIVE), 0.0f);
    // The seal water stays more than 5 mmHg below the pump's suction: the pump holds.
    EXPECT_GT(dc.STG(kStageC, kStgPIN) - dc.LRVPRES(kLrvpSealPsat, 1), 5.0f);
    // The pump's suction is that of the intercondenser behind stage B.
    EXPECT_NEAR(dc.STG(kStageC, kStgPIN), dc.STG(kStageB, kStgPOUT) * 0.95f, 1e-3);
    // More than the 50 rounds of one bisection, far from endless.
    EXPECT_GT(Selections(), 51);
    EXPECT_LT(Selections(), 500);
  }
}

// The climb ends at the first pressure where the pump holds, even when its capacity ratio is
// then outside the band: 90 F water leaves the pump below it, 120 F far above it.
TEST_F(PumpTrain, TheClimbEndsWhereThePumpFirstHoldsWhateverItsRatio) {
  DesignEdited("TWO-STAGE-LRVP.JET", CoolingWater("90"));
  ASSERT_EQ(dc.LRVPERR, 0);
  EXPECT_LT(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 0.99f);
  // Half a millimetre of mercury a round: the climb stopped within one step of the pump's limit.
  const float margin90 = dc.STG(kStageC, kStgPIN) - dc.LRVPRES(kLrvpSealPsat, 1);
  EXPECT_LT(margin90, 6.5f);
  DesignEdited("TWO-STAGE-LRVP.JET", CoolingWater("120"));
  ASSERT_EQ(dc.LRVPERR, 0);
  EXPECT_GE(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 1.15f);
}

// The cold water example needs no climb: its pump settles in the band by bisection alone.
TEST_F(PumpTrain, ColdWaterSettlesInTheBandWithoutClimbing) {
  DesignEdited("TWO-STAGE-LRVP.JET", CoolingWater("75"));
  ASSERT_EQ(dc.LRVPERR, 0);
  EXPECT_GE(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 0.99f);
  EXPECT_LT(dc.STG(kStageC, kStgML), dc.LRVPMLMIN * 1.15f);
  EXPECT_LT(Selections(), 51);
}

// A pump alone sets no suction or discharge temperature: the record's cleared ones stand, and its
// suction pipe is sized for the gas at that temperature.
TEST_F(PumpTrain, APumpAloneLeavesTheStageTemperaturesAndItsSuctionPipeFollows) {
  const DesignOutcome outcome = Design("LRVP-ONLY-50HZ.JET");
  ASSERT_TRUE(outcome.results);
  ASSERT_EQ(dc.NSTAGES, 1);
  EXPECT_EQ(dc.STG(kStageC, kStgTS), 0.0f);
  EXPECT_EQ(dc.STG(kStageC, kStgTD), 0.0f);
  EXPECT_EQ(dc.STG(kStageC, kStgDIAS), 4.0f);
  EXPECT_EQ(dc.STG(kStageC, kStgDIAD), 0.0f);
  EXPECT_LE(dc.STG(kStageC, kStgVELS), 50.0f);
  // Behind stage B the pump takes the intercondenser's temperature.
  Design("TWO-STAGE-LRVP.JET");
  ASSERT_EQ(dc.LRVPERR, 0);
  EXPECT_EQ(dc.STG(kStageC, kStgTS), dc.TSATC2);
  EXPECT_EQ(dc.STG(kStageC, kStgTD), dc.LRVPRES(kLrvpSealOut, 1));
}
