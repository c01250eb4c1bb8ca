// Steam table file, steam states against IAPWS-IF97, the state routines' rules, units, nozzles and the jet balance.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <sstream>
#include <vector>

#include "properties/jet_balance.h"
#include "properties/steam.h"
#include "shell/startup.h"
#include "test_support.h"

using namespace kestrane;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;
namespace fs = std::filesystem;

namespace {

const fs::path kSourceDir = KESTRANE_SOURCE_DIR;
const fs::path kTableFile = kSourceDir / "pgmfiles" / "MOLVBLG.DTA";

constexpr char kReadError[] =
    "An error has occurred reading the steam data file (MOLVB.DTA).  Check to make sure this file is in the "
    "'pgmfiles' directory of the Kestrane program.  If not, try re-installing Kestrane.  If the problem "
    "persists, contact Tessel Corporation.";

// Output of a command, or empty when it could not run.
std::string CommandOutput(const std::string& command) {
  std::string out;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (!pipe) return out;
  char buf[4096];
  size_t n = 0;
  while ((n = std::fread(buf, 1, sizeof buf, pipe)) > 0) out.append(buf, n);
  if (::pclose(pipe) != 0) out.clear();
  return out;
}

class SteamTableTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    table_ = new SteamTable;
    RecordingUi ui;
    ASSERT_TRUE(ReadSteamData(kTableFile, *table_, ui));
  }
  static void TearDownTestSuite() { delete table_; }
  Steam steam() { return Steam{*table_, ui}; }
  static SteamTable* table_;
  RecordingUi ui;
};
SteamTable* SteamTableTest::table_ = nullptr;

struct State {
  float t = 0, h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = -1;
};

}  // namespace

// --- The table file -------------------------------------------------------

TEST(SteamTableFile, GeneratorReproducesTheCommittedFileByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_steam_" + std::to_string(::getpid()) + ".DTA");
  const std::string cmd = "/usr/bin/python3 '" + (kSourceDir / "tools" / "make_steam_table.py").string() + "' '" +
                          out.string() + "' && echo done";
  ASSERT_EQ(CommandOutput(cmd), "done\n") << "the generator needs /usr/bin/python3 with python3-iapws";
  EXPECT_TRUE(ReadBytes(out) == ReadBytes(kTableFile));
  fs::remove(out);
}

TEST_F(SteamTableTest, TableCoversTheDutyWithItsFixedLayout) {
  const SteamTable& tb = *table_;
  EXPECT_EQ(tb.STEAMNP, 147);
  EXPECT_EQ(tb.STEAMNC, 75);
  EXPECT_EQ(fs::file_size(kTableFile), 4u + 136u + 147u * 300u);
  EXPECT_FLOAT_EQ(tb.STEAMTEMP(1), 12.0f);
  EXPECT_FLOAT_EQ(tb.STEAMTEMP(34), 160.0f);
  EXPECT_LE(tb.STEAMTBL(1, 1), 0.01f);
  EXPECT_GE(tb.STEAMTBL(147, 1), 1000.0f);
  int below_atmosphere = 0;
  for (int i = 1; i <= 147; ++i) {
    if (i > 1) {
      EXPECT_GT(tb.STEAMTBL(i, 1), tb.STEAMTBL(i - 1, 1)) << i;
    }
    if (tb.STEAMTBL(i, 1) < 15) ++below_atmosphere;
    for (int k = 1; k <= 34; ++k) {
      const bool superheated = tb.STEAMTEMP(k) * 10 > tb.STEAMTBL(i, 2);
      EXPECT_EQ(tb.STEAMTBL(i, 6 + 2 * k) > 0, superheated) << "pressure " << i << " column " << k;
    }
  }
  EXPECT_GE(below_atmosphere, 90) << "denser where vacuum work happens";
  for (int k = 2; k <= 34; ++k) EXPECT_GT(tb.STEAMTEMP(k), tb.STEAMTEMP(k - 1));
}

TEST(SteamTableFile, MissingEmptyOrShortFilesGiveTheReadErrorNotice) {
  const fs::path dir = fs::temp_directory_path() / ("kestrane_steamfile_" + std::to_string(::getpid()));
  fs::create_directories(dir);
  const std::string full = ReadBytes(kTableFile);
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"empty", ""},
      {"zero counts", std::string(4 + 136 + 300, '\0')},
      {"short", full.substr(0, full.size() - 1)},
      {"too many pressures", std::string("\x94\x00\x4b\x00", 4) + full.substr(4)}};
  for (const auto& [name, bytes] : cases) {
    WriteBytes(dir / "MOLVBLG.DTA", bytes);
    SteamTable table;
    RecordingUi ui;
    EXPECT_FALSE(ReadSteamData(dir / "MOLVBLG.DTA", table, ui)) << name;
    ASSERT_EQ(ui.notices.size(), 1u) << name;
    EXPECT_EQ(ui.notices[0], kReadError) << name;
  }
  SteamTable table;
  RecordingUi ui;
  EXPECT_FALSE(ReadSteamData(dir / "none.DTA", table, ui));
  EXPECT_EQ(ui.notices, std::vector<std::string>{kReadError});
  fs::remove_all(dir);
}

TEST(SteamTableFile, StartUpEndsAfterTheSteamStepWithoutATable) {
  const fs::path dir = fs::temp_directory_path() / ("kestrane_nosteam_" + std::to_string(::getpid()));
  fs::create_directories(dir / "pgmfiles");
  Session session(PathsForProgram(dir));
  RecordingUi ui;
  EXPECT_FALSE(RunStartSequence(session, ui));
  EXPECT_EQ(ui.statuses, std::vector<std::string>{"Reading Steam Data...."});
  EXPECT_EQ(ui.notices, std::vector<std::string>{kReadError});
  fs::remove_all(dir);
}

// --- Against IAPWS-IF97 ----------------------------------------------------

TEST_F(SteamTableTest, AgreesWithIapwsIf97) {
  const std::string ref =
      CommandOutput("/usr/bin/python3 '" + (kSourceDir / "tests" / "steam_reference.py").string() + "'");
  ASSERT_FALSE(ref.empty()) << "the reference needs /usr/bin/python3 with python3-iapws";
  std::istringstream lines(ref);
  std::string kind;
  double worst_sat = 0, worst_satvap = 0, worst_h = 0, worst_s = 0, worst_v = 0;
  int sat_n = 0, satvap_n = 0, pt_n = 0, v_n = 0;
  while (lines >> kind) {
    if (kind == "sat") {
      double t, p;
      lines >> t >> p;
      float mm = 0;
      int16_t failed = 0;
      SatPress(steam(), static_cast<float>(t), mm, failed);
      ASSERT_EQ(failed, 0) << t;
      worst_sat = std::max(worst_sat, std::fabs(mm / 51.7149 / p - 1));
      ++sat_n;
    } else if (kind == "satvap") {
      double p, t, h;
      lines >> p >> t >> h;
      State st;
      SteamFromPT(steam(), static_cast<float>(p * 51.7149), st.t, st.h, st.s, st.v, st.moisture, st.failed);
      ASSERT_EQ(st.failed, 0) << p;
      worst_satvap = std::max(worst_satvap, std::fabs(st.h - h));
      EXPECT_NEAR(st.t, t, 0.1) << p;
      ++satvap_n;
    } else if (kind == "pt") {
      double p, t, h, s, v;
      lines >> p >> t >> h >> s >> v;
      State st;
      st.t = static_cast<float>(t);
      SteamFromPT(steam(), static_cast<float>(p * 51.7149), st.t, st.h, st.s, st.v, st.moisture, st.failed);
      ASSERT_EQ(st.failed, 0) << p << " " << t;
      worst_h = std::max(worst_h, std::fabs(st.h - h));
      worst_s = std::max(worst_s, std::fabs(st.s - s));
      if (p >= 0.2 && t <= 1000) {
        worst_v = std::max(worst_v, std::fabs(st.v / v - 1));
        ++v_n;
      }
      ++pt_n;
    }
  }
  EXPECT_GT(sat_n, 90);
  EXPECT_GT(satvap_n, 10);
  EXPECT_GT(pt_n, 500);
  EXPECT_GT(v_n, 300);
  EXPECT_LT(worst_sat, 0.005) << "saturation pressure, 35 to 500 F";
  EXPECT_LT(worst_satvap, 1.0) << "saturated vapor enthalpy, Btu/lb";
  EXPECT_LT(worst_h, 2.0) << "superheated enthalpy, Btu/lb";
  EXPECT_LT(worst_s, 0.003) << "superheated entropy, Btu/lb-F";
  EXPECT_LT(worst_v, 0.015) << "superheated volume by the Keyes equation";
  std::printf("worst against IF97: saturation pressure %.4f %%, saturated vapor h %.3f Btu/lb, h %.3f Btu/lb, "
              "s %.5f Btu/lb-F, v %.3f %%\n",
              worst_sat * 100, worst_satvap, worst_h, worst_s, worst_v * 100);
}

// --- State routines --------------------------------------------------------

TEST_F(SteamTableTest, ZeroTemperatureMeansSaturatedVapor) {
  State st;
  st.moisture = 42;  // left alone
  SteamFromPT(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 0);
  EXPECT_NEAR(st.t, 211.95, 0.05);
  EXPECT_NEAR(st.h, 1150.3, 0.2);
  EXPECT_NEAR(st.v, 26.80, 0.02);
  EXPECT_EQ(st.moisture, 42);
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(SteamTableTest, TemperatureJustBelowSaturationIsTakenAsSuperheated) {
  State sat;
  SteamFromPT(steam(), 760, sat.t, sat.h, sat.s, sat.v, sat.moisture, sat.failed);
  State near;
  near.t = sat.t - 0.005f;
  SteamFromPT(steam(), 760, near.t, near.h, near.s, near.v, near.moisture, near.failed);
  EXPECT_EQ(near.failed, 0);
  EXPECT_TRUE(ui.notices.empty());
  EXPECT_FLOAT_EQ(near.t, sat.t - 0.005f) << "not changed to saturation";
  EXPECT_EQ(near.moisture, 0);
  EXPECT_NEAR(near.h, sat.h, 0.01);
}

TEST_F(SteamTableTest, WetTemperatureIsChangedToSaturationWithANotice) {
  State st;
  st.t = 100;
  SteamFromPT(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 0);
  EXPECT_EQ(ui.notices,
            std::vector<std::string>{"Input conditions  100 is WET...changed to saturation and continued...\r\n"});
  EXPECT_NEAR(st.t, 211.95, 0.05);
}

TEST_F(SteamTableTest, LimitsGiveTheirNoticesAndFail) {
  State st;
  st.t = 1600.5f;
  SteamFromPT(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  st.t = -126;
  SteamFromPT(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  st.h = 1859;
  SteamFromPH(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  st.s = -0.5f;
  SteamFromPS(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  st.t = 0;
  SteamFromPT(steam(), 60000, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  EXPECT_EQ(ui.notices, (std::vector<std::string>{
                            "TEMPERATURE OF 1600.5 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n",
                            "TEMPERATURE OF-126 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n",
                            "ENTHALPY OF 1859 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n",
                            "ENTROPY OF-0.5 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n",
                            "PRESSURE OF 60000 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n"}));
}

TEST_F(SteamTableTest, WetEnthalpyGivesQualityTimesVaporVolume) {
  SteamRowValues row;
  int16_t failed = 0;
  SteamRow(steam(), 760, row, failed);
  State st;
  st.h = (row(4) + row(6)) / 2;
  SteamFromPH(steam(), 760, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 0);
  EXPECT_NEAR(st.moisture, 50, 0.01);
  EXPECT_FLOAT_EQ(st.t, row(2));
  EXPECT_NEAR(st.v, row(3) / 2, 1e-4) << "the liquid's volume is not counted";
  EXPECT_NEAR(st.s, (row(5) + row(7)) / 2, 1e-5);
  State ps;
  ps.s = st.s;
  SteamFromPS(steam(), 760, ps.t, ps.h, ps.s, ps.v, ps.moisture, ps.failed);
  EXPECT_NEAR(ps.h, st.h, 0.01);
  EXPECT_NEAR(ps.moisture, 50, 0.01);
}

TEST_F(SteamTableTest, EnthalpyAndEntropyInvertTemperatureAcrossTheTable) {
  const float pressures[] = {1.0f, 25.4f, 100, 760, 5171.49f, 20000, 51714.9f};
  const float temperatures[] = {0, 150, 233, 415, 777, 1250, 1590};
  for (float p : pressures) {
    for (float t0 : temperatures) {
      State pt;
      pt.t = t0;
      SteamFromPT(steam(), p, pt.t, pt.h, pt.s, pt.v, pt.moisture, pt.failed);
      if (pt.failed) continue;  // wet at this pressure
      State ph;
      ph.h = pt.h;
      SteamFromPH(steam(), p, ph.t, ph.h, ph.s, ph.v, ph.moisture, ph.failed);
      EXPECT_EQ(ph.failed, 0);
      EXPECT_NEAR(ph.t, pt.t, 0.05) << p << " " << t0;
      EXPECT_NEAR(ph.s, pt.s, 2e-5) << p << " " << t0;
      State ps;
      ps.s = pt.s;
      SteamFromPS(steam(), p, ps.t, ps.h, ps.s, ps.v, ps.moisture, ps.failed);
      EXPECT_EQ(ps.failed, 0);
      EXPECT_NEAR(ps.t, pt.t, 0.1) << p << " " << t0;
      EXPECT_NEAR(ps.h, pt.h, 0.02) << p << " " << t0;
    }
  }
}

TEST_F(SteamTableTest, EnthalpyAboveTheLastColumnExtendsByTheSpecificHeatPolynomial) {
  SteamRowValues row;
  int16_t failed = 0;
  SteamRow(steam(), 51714.9f, row, failed);  // 1000 psia: 1600 F lies below the enthalpy limit
  ASSERT_LT(row(74), 1858.99f);
  State st;
  st.h = 1858;
  SteamFromPH(steam(), 51714.9f, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 0);
  EXPECT_EQ(st.h, 1858.0f) << "the input enthalpy is restored";
  // IAPWS-IF97 (python3-iapws) puts 1858 Btu/lb at 1000 psia at 1614.25 F with s = 1.85444 Btu/lb-F.
  EXPECT_NEAR(st.t, 1614.25, 3);
  EXPECT_NEAR(st.s, 1.85444, 0.002);
  EXPECT_GT(st.s, row(75));
  // The entropy routine finds the same state back.
  State ps;
  ps.s = st.s;
  SteamFromPS(steam(), 51714.9f, ps.t, ps.h, ps.s, ps.v, ps.moisture, ps.failed);
  EXPECT_EQ(ps.failed, 0);
  EXPECT_NEAR(ps.t, st.t, 0.5);
  EXPECT_NEAR(ps.h, st.h, 0.3);
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(SteamTableTest, EntropyBeyondTheExtensionClosesTheBoundsWithTheLimitNotice) {
  State st;
  st.s = 3;
  SteamFromPS(steam(), 51714.9f, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 1);
  EXPECT_EQ(ui.notices, std::vector<std::string>{"ENTROPY OF 3 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n"});
}

TEST_F(SteamTableTest, SaturatedRegionBelowTheFirstFilledColumnInterpolatesFromSaturation) {
  // At 1000 psia saturation lies near 545 F, between the 500 and 550 F columns.
  SteamRowValues row;
  int16_t failed = 0;
  SteamRow(steam(), 51714.9f, row, failed);
  ASSERT_EQ(row(8), 0);
  State st;
  st.h = (row(6) + row(44)) / 2;  // column 44 holds 550 F
  ASSERT_GT(row(44), 0);
  ASSERT_EQ(row(42), 0);
  SteamFromPH(steam(), 51714.9f, st.t, st.h, st.s, st.v, st.moisture, st.failed);
  EXPECT_EQ(st.failed, 0);
  EXPECT_NEAR(st.t, (row(2) + 550) / 2, 1e-3);
  EXPECT_NEAR(st.s, (row(7) + row(45)) / 2, 1e-5);
}

TEST_F(SteamTableTest, RowBetweenPressuresIsLinearAndBlankWhereTheHigherPressureHasNoValue) {
  const SteamTable& tb = *table_;
  // Find two neighbouring pressures where a superheat column turns blank.
  for (int i = 2; i <= tb.STEAMNP; ++i) {
    for (int c = 8; c <= 74; c += 2) {
      if (tb.STEAMTBL(i - 1, c) > 0 && tb.STEAMTBL(i, c) == 0) {
        const float P = (tb.STEAMTBL(i - 1, 1) + tb.STEAMTBL(i, 1)) / 2;
        SteamRowValues row;
        int16_t failed = 0;
        SteamRow(steam(), static_cast<float>(P * 51.7149), row, failed);
        EXPECT_EQ(failed, 0);
        EXPECT_EQ(row(c), 0) << i << " " << c;
        EXPECT_NEAR(row(2), (tb.STEAMTBL(i - 1, 2) + tb.STEAMTBL(i, 2)) / 2, 1e-3);
        return;
      }
    }
  }
  FAIL() << "no column turns blank";
}

TEST_F(SteamTableTest, SaturationPressureOutsideTheTableFailsWithoutNotice) {
  float p = -1;
  int16_t failed = 0;
  SatPress(steam(), 600, p, failed);
  EXPECT_EQ(failed, 1);
  EXPECT_EQ(p, -1);
  SatPress(steam(), -20, p, failed);
  EXPECT_EQ(failed, 1);
  EXPECT_TRUE(ui.notices.empty());
  SatPress(steam(), table_->STEAMTBL(1, 2), p, failed);
  EXPECT_EQ(failed, 0);
  EXPECT_FLOAT_EQ(p, static_cast<float>(table_->STEAMTBL(1, 1) * 51.7149));
}

TEST(SteamVolume, BelowPointTwoPsiaScalesFromSaturationAsAnIdealGas) {
  float v = 0;
  int16_t failed = 7;
  SteamVolume(10.0f, 200, v, 1000, 50, failed);
  EXPECT_FLOAT_EQ(v, static_cast<float>((200 + 459.69) / (50 + 459.69) * 1000));
  EXPECT_EQ(failed, 7) << "the flag is not touched";
}

TEST(PressureUnits, EveryUnitRoundTripsAndUnknownCodesGiveZero) {
  EXPECT_FLOAT_EQ(PressToMmHg(0, 4), static_cast<float>(14.696 * 51.7149));
  EXPECT_FLOAT_EQ(PressToMmHg(1000, 1), 1);
  EXPECT_FLOAT_EQ(PressToMmHg(29.92f, 3), 759.968f);
  EXPECT_FLOAT_EQ(PressToMmHg(0, 6), 762);
  EXPECT_FLOAT_EQ(PressToMmHg(0, 7), 750.0553f);
  for (int16_t unit = 1; unit <= 7; ++unit) {
    const float mm = 123.456f;
    EXPECT_NEAR(PressToMmHg(PressFromMmHg(mm, unit), unit), mm, 1e-3) << unit;
  }
  EXPECT_EQ(PressToMmHg(100, 8), 0);
  EXPECT_EQ(PressFromMmHg(100, 0), 0);
}

TEST_F(SteamTableTest, NozzleFlowAndDiameterAreInverse) {
  float diameter = 0.5f, flow = 0;
  SteamNozzle(steam(), 100, 0, diameter, flow);
  EXPECT_GT(flow, 500);
  EXPECT_LT(flow, 1500);
  float d = 0;
  SteamNozzle(steam(), 100, 0, d, flow);
  EXPECT_NEAR(d, 0.5f, 1e-5);
  // Superheat lowers the flow through the same throat.
  float hot = 0;
  diameter = 0.5f;
  SteamNozzle(steam(), 100, 500, diameter, hot);
  EXPECT_LT(hot, flow);
}

TEST(NozzleAreaRatio, UsesItsOwnPsiFactor) {
  // R = 114.696 / (50 / 51.7144) = 118.627; (10^(0.36 log R - 0.2))^2 = 12.398
  EXPECT_NEAR(NozzleAreaRatio(100, 50), 12.398, 0.005);
}

// --- Jet balance -----------------------------------------------------------

namespace {

JetBalanceData TypicalStage() {
  JetBalanceData jet;
  jet.outletVelocity = 200;
  jet.motivePressure = 100;
  jet.motiveUnit = 4;
  jet.suctionPressure = 50;
  jet.suctionUnit = 2;
  jet.dischargePressure = 200;
  jet.dischargeUnit = 2;
  jet.target = 70;
  return jet;
}

}  // namespace

TEST_F(SteamTableTest, SearchFindsTheRatioThatDirectModeConfirms) {
  JetBalanceData search = TypicalStage();
  JetBalance(steam(), search);
  ASSERT_EQ(search.failed, 0);
  EXPECT_GT(search.steamRatio, 0.2);
  EXPECT_LT(search.steamRatio, 10);
  EXPECT_NEAR(search.efficiency, 70, 70 * 0.0005);

  JetBalanceData direct = TypicalStage();
  direct.targetKind = 1;
  direct.target = search.steamRatio;
  JetBalance(steam(), direct);
  ASSERT_EQ(direct.failed, 0);
  EXPECT_NEAR(direct.efficiency, search.efficiency, 1e-3);

  // And back: direct at a ratio gives an efficiency the search turns into that ratio.
  for (float r : {0.8f, 1.7f, 3.1f}) {
    JetBalanceData d = TypicalStage();
    d.targetKind = 1;
    d.target = r;
    JetBalance(steam(), d);
    JetBalanceData s = TypicalStage();
    s.target = d.efficiency;
    JetBalance(steam(), s);
    ASSERT_EQ(s.failed, 0) << r;
    EXPECT_NEAR(s.steamRatio, r, r * 0.001) << r;
  }
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(SteamTableTest, BalanceGivesPressuresBackInTheirUnitsAndTheThroatInTheSuctionUnit) {
  JetBalanceData jet = TypicalStage();
  jet.suctionUnit = 3;  // in Hg abs
  jet.suctionPressure = 50 / 25.4f;
  JetBalance(steam(), jet);
  ASSERT_EQ(jet.failed, 0);
  EXPECT_NEAR(jet.motivePressure, 100, 1e-4);
  EXPECT_NEAR(jet.suctionPressure, 50 / 25.4f, 1e-5);
  EXPECT_NEAR(jet.dischargePressure, 200, 1e-4);
  EXPECT_NEAR(jet.compressionRatio, 4, 1e-4);
  EXPECT_NEAR(jet.throatPressure, 200 * 0.56 / 25.4, 1e-4);
  EXPECT_GT(jet.nozzleVelocity, 3000);
  EXPECT_GT(jet.throatVolume, 0);
  EXPECT_GT(jet.entropyIndex, 0);
}

TEST_F(SteamTableTest, SuctionVelocityCountsInDirectModeOnly) {
  JetBalanceData still = TypicalStage();
  still.targetKind = 1;
  still.target = 1.5f;
  JetBalance(steam(), still);
  JetBalanceData moving = still;
  moving.motivePressure = 100;
  moving.suctionPressure = 50;
  moving.dischargePressure = 200;
  moving.suctionVelocity = 300;
  JetBalance(steam(), moving);
  EXPECT_GT(moving.mixVelocity, still.mixVelocity);

  JetBalanceData searched = TypicalStage();
  searched.suctionVelocity = 300;
  JetBalance(steam(), searched);
  JetBalanceData plain = TypicalStage();
  JetBalance(steam(), plain);
  EXPECT_EQ(searched.steamRatio, plain.steamRatio);
}

TEST_F(SteamTableTest, UnreachableEfficiencyFailsQuietlyWithPressuresRestored) {
  JetBalanceData jet = TypicalStage();
  jet.target = 0.5f;  // needs an enormous ratio
  JetBalance(steam(), jet);
  EXPECT_EQ(jet.failed, 1);
  EXPECT_GT(jet.steamRatio, 100) << "the last ratio stands";
  EXPECT_NEAR(jet.motivePressure, 100, 1e-4);
  EXPECT_NEAR(jet.suctionPressure, 50, 1e-4);
  EXPECT_TRUE(ui.notices.empty());
}
