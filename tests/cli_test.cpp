// The kestrane command run as a user runs it.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include <nlohmann/json.hpp>

#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::testing::CliRun;
using kestrane::testing::Kestrane;

namespace {

// A scratch folder used as the program's data folder.
class CommandLine : public kestrane::testing::DataFolder {};

}  // namespace

TEST(CommandLineVersion, PrintsTheProgramVersion) {
  const CliRun r = Kestrane("--version");
  EXPECT_EQ(r.exit_code, 0);
  EXPECT_EQ(r.out, "Kestrane 2.01\n");
}

TEST(CommandLineHelp, ListsTheCommands) {
  const CliRun r = Kestrane("--help");
  EXPECT_EQ(r.exit_code, 0);
  EXPECT_NE(r.out.find("userinfo"), std::string::npos);
  EXPECT_NE(r.out.find("--pgmfiles"), std::string::npos);
  EXPECT_NE(r.out.find("--date"), std::string::npos);
}

namespace {

// The commands a help text lists under "Subcommands:".
std::vector<std::string> SubcommandsOf(const std::string& help) {
  std::vector<std::string> names;
  const size_t at = help.find("Subcommands:\n");
  if (at == std::string::npos) return names;
  std::istringstream lines(help.substr(at + 13));
  for (std::string line; std::getline(lines, line) && line.rfind("  ", 0) == 0;) {
    names.push_back(line.substr(2, line.find(' ', 2) - 2));
  }
  return names;
}

}  // namespace

TEST(CommandLineHelp, EveryNumberACommandTakesNamesItsUnit) {
  // Each argument or option a number is checked for: its help line, or the one
  // it wraps onto, names a unit (or says the value is relative to water, or in a unit option's unit).
  const char* units[] = {"mmHgA", "degF", "degC", "psig", "Btu/lb", "lb/hr", "lb/lb-mol", "ft3/min", "m3/hr",
                         "water = 1", "-unit"};
  std::vector<std::string> commands;
  for (const std::string& name : SubcommandsOf(Kestrane("--help").out)) {
    const auto subs = SubcommandsOf(Kestrane(name + " --help").out);
    if (subs.empty()) commands.push_back(name);
    for (const std::string& sub : subs) commands.push_back(name + " " + sub);
  }
  ASSERT_GE(commands.size(), 20u);
  int numbers = 0;
  for (const std::string& command : commands) {
    std::istringstream lines(Kestrane(command + " --help").out);
    std::vector<std::string> all;
    for (std::string line; std::getline(lines, line);) all.push_back(line);
    for (size_t i = 0; i < all.size(); ++i) {
      if (all[i].find(":NUMBER") == std::string::npos) continue;
      const std::string help = all[i] + (i + 1 < all.size() ? all[i + 1] : "");
      bool named = false;
      for (const char* unit : units) named = named || help.find(unit) != std::string::npos;
      EXPECT_TRUE(named) << command << ": " << all[i];
      ++numbers;
    }
  }
  EXPECT_GE(numbers, 25);
  // The user vapor fields are taken as text and checked by the vapor window's rules.
  const CliRun udv = Kestrane("udv add --help");
  EXPECT_NE(udv.out.find("T1, the lowest temperature, degC (degF with --fahrenheit)"), std::string::npos);
  EXPECT_NE(udv.out.find("Molecular weight, lb/lb-mol"), std::string::npos);
}

TEST(CommandLineUsage, UnknownCommandsAndBadDatesAreUsageErrors) {
  EXPECT_EQ(Kestrane("frobnicate").exit_code, 2);
  EXPECT_EQ(Kestrane("").exit_code, 2);
  const CliRun bad_date = Kestrane("--date 2026-02-30 startup");
  EXPECT_EQ(bad_date.exit_code, 2);
  EXPECT_NE(bad_date.err.find("2026-02-30"), std::string::npos);
  EXPECT_EQ(Kestrane("--date tomorrow startup").exit_code, 2);
}

TEST_F(CommandLine, StartupShowsTheProgressTextsAndTheFixedDate) {
  const CliRun r = Kestrane(Pgm() + "--date 2026-11-05 startup");
  EXPECT_EQ(r.exit_code, 0);
  EXPECT_EQ(r.out.find("Reading Steam Data....\nSetting Mollier Data......\n"), 0u);
  EXPECT_NE(r.out.find("ENGINEERING ANSWERS FOR YOUR VACUUM SYSTEM NEEDS\n"), std::string::npos);
  EXPECT_NE(r.out.find("Today:            Nov 05, 2026"), std::string::npos);
  EXPECT_NE(r.out.find("User information: missing"), std::string::npos);
  EXPECT_NE(r.err.find("kestrane userinfo set"), std::string::npos) << "a missing file says where to enter it";
}

TEST_F(CommandLine, StartupJsonCarriesStatusesAndNotices) {
  const CliRun r = Kestrane(Pgm() + "--date 2026-01-09 startup --json");
  EXPECT_EQ(r.exit_code, 0);
  EXPECT_NE(r.out.find("\"today\": \"Jan 09, 2026\""), std::string::npos);
  EXPECT_NE(r.out.find("\"userinfo\": \"missing\""), std::string::npos);
  EXPECT_NE(r.out.find("\"Reading LRVP Data.....................\""), std::string::npos);
  EXPECT_NE(r.out.find("\"notices\": ["), std::string::npos);
  EXPECT_TRUE(r.err.empty()) << r.err;
}

TEST_F(CommandLine, UserInfoSetThenShowRoundTrips) {
  CliRun set = Kestrane(Pgm() + "userinfo set --name 'Ann Lee' --company 'Acme Vacuum' --email ann@example.com");
  ASSERT_EQ(set.exit_code, 0) << set.err;
  EXPECT_EQ(kestrane::testing::ReadBytes(dir / "USERINFO.DTA"), "Ann Lee\r\nAcme Vacuum\r\n\r\n\r\n\r\n\r\n\r\nann@example.com\r\n");

  // A later set changes only the rows it names.
  set = Kestrane(Pgm() + "userinfo set --phone '555 0100'");
  ASSERT_EQ(set.exit_code, 0) << set.err;
  const CliRun show = Kestrane(Pgm() + "userinfo show");
  EXPECT_EQ(show.exit_code, 0);
  EXPECT_NE(show.out.find("User Name:         Ann Lee\n"), std::string::npos) << show.out;
  EXPECT_NE(show.out.find("Phone Number:      555 0100\n"), std::string::npos) << show.out;
  EXPECT_NE(show.out.find("Email:             ann@example.com\n"), std::string::npos) << show.out;
  EXPECT_TRUE(show.err.empty());
}

TEST_F(CommandLine, UserInfoShowOfAMissingFileSaysSoAndShowsEmptyRows) {
  const CliRun r = Kestrane(Pgm() + "userinfo show --json");
  EXPECT_EQ(r.exit_code, 0);
  EXPECT_NE(r.out.find("\"USERINFO\": [\n    \"\",\n    \"\""), std::string::npos) << r.out;
  EXPECT_NE(r.out.find("No user information is on file"), std::string::npos);
}

TEST_F(CommandLine, UserInfoSetIntoAFolderThatDoesNotExistIsAFileError) {
  const CliRun r = Kestrane("--pgmfiles '" + (dir / "missing").string() + "' userinfo set --name x");
  EXPECT_EQ(r.exit_code, 2);
  EXPECT_NE(r.err.find("WriteUserInfo Error: 76 Path not found"), std::string::npos) << r.err;
}

TEST_F(CommandLine, SteamAtOneAtmosphereIsSaturatedAt212F) {
  const CliRun r = Kestrane(Pgm() + "steam pt 760 0 --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_NEAR(doc["t"].get<double>(), 212.0, 0.1);
  EXPECT_NEAR(doc["h"].get<double>(), 1150.3, 0.2);
  EXPECT_NEAR(doc["v"].get<double>(), 26.8, 0.05);
  EXPECT_EQ(doc["failed"], 0);
  EXPECT_TRUE(doc["notices"].empty());
}

TEST_F(CommandLine, SteamStatesAndSaturationFromEachForm) {
  const CliRun ph = Kestrane(Pgm() + "steam ph 760 1000 --json");
  ASSERT_EQ(ph.exit_code, 0);
  EXPECT_NEAR(nlohmann::json::parse(ph.out)["moisture"].get<double>(), 15.5, 0.1);
  const CliRun ps = Kestrane(Pgm() + "steam ps 760 1.7566");
  ASSERT_EQ(ps.exit_code, 0);
  EXPECT_EQ(ps.out.find("t         212"), 0u) << ps.out;
  const CliRun sat = Kestrane(Pgm() + "steam sat 212 --json");
  ASSERT_EQ(sat.exit_code, 0);
  EXPECT_NEAR(nlohmann::json::parse(sat.out)["p"].get<double>(), 760.7, 0.1);
}

TEST_F(CommandLine, SteamBeyondTheTableIsRefusedWithItsNotice) {
  const CliRun r = Kestrane(Pgm() + "steam pt 0.1 300");
  EXPECT_EQ(r.exit_code, 1);
  EXPECT_EQ(r.err, "PRESSURE OF 0.1 IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n\n");
  const CliRun json = Kestrane(Pgm() + "steam sat 700 --json");
  EXPECT_EQ(json.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(json.out)["failed"], 1);
}

TEST_F(CommandLine, AMissingSteamTableEndsCleanlyWithItsNotice) {
  fs::remove(dir / "MOLVBLG.DTA");
  for (const char* args : {"steam pt 760 0", "startup"}) {
    const CliRun r = Kestrane(Pgm() + args);
    EXPECT_EQ(r.exit_code, 2) << args;
    EXPECT_NE(r.err.find("An error has occurred reading the steam data file (MOLVB.DTA)."), std::string::npos)
        << args;
  }
}

TEST_F(CommandLine, VaporListSearchFindsEthanol) {
  const CliRun r = Kestrane(Pgm() + "vapor list --search ETHANOL --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_GE(doc["NPSAT"].get<int>(), 1000);
  bool found = false;
  for (const auto& v : doc["vapors"]) found = found || v["name"] == "Ethanol";
  EXPECT_TRUE(found);
  const CliRun text = Kestrane(Pgm() + "vapor list --search ethanol");
  EXPECT_NE(text.out.find(" Ethanol "), std::string::npos);
}

TEST_F(CommandLine, VaporPressureOfAnUnknownIdIsReportedAndEndsCleanly) {
  const CliRun r = Kestrane(Pgm() + "vapor pressure 1999 100 --json");
  EXPECT_EQ(r.exit_code, 1);
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["flag"], 1);
  EXPECT_EQ(doc["notices"][0], "Error in Antoine (vapor pressure) calculations! 9 Subscript out of range");
  const CliRun good = Kestrane(Pgm() + "vapor pressure 3 122 --json");
  EXPECT_EQ(good.exit_code, 0);
  EXPECT_NEAR(nlohmann::json::parse(good.out)["pressure"].get<double>(), 221, 221 * 0.02);
  const CliRun table = Kestrane(Pgm() + "vapor table 3 32 212 90 --json");
  ASSERT_EQ(table.exit_code, 0);
  const auto rows = nlohmann::json::parse(table.out)["rows"];
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[2]["flag"], 1) << "212 F lies above ethanol's range";
  EXPECT_EQ(Kestrane(Pgm() + "vapor table 3 100 50 10").exit_code, 2);
}

TEST_F(CommandLine, VaporCommandsTakeAndShowTemperaturesInTheUnitAsked) {
  // 50 degC is 122 degF: the same pressure, the temperature under a key that names its unit.
  const auto f = nlohmann::json::parse(Kestrane(Pgm() + "vapor pressure 3 122 --json").out);
  const auto c = nlohmann::json::parse(Kestrane(Pgm() + "vapor pressure 3 50 --unit C --json").out);
  EXPECT_EQ(c["pressure"], f["pressure"]);
  EXPECT_EQ(f["t_f"], 122.0);
  EXPECT_EQ(c["t_c"], 50.0);
  EXPECT_FALSE(c.contains("t_f"));
  const CliRun below = Kestrane(Pgm() + "vapor pressure 3 0 --unit c");
  EXPECT_NE(below.out.find("note      0 degC lies outside"), std::string::npos) << below.out;

  // A degC table steps in degC: 0.1 degC steps reach 100 degC in 1001 rows.
  const auto table = nlohmann::json::parse(Kestrane(Pgm() + "vapor table 3 0 100 0.1 --unit C --json").out)["rows"];
  ASSERT_EQ(table.size(), 1001u);
  EXPECT_NEAR(table[1000]["t_c"].get<double>(), 100, 1e-4);
  EXPECT_EQ(table[500]["pressure"], f["pressure"]);
  const CliRun text = Kestrane(Pgm() + "vapor table 3 32 212 90");
  EXPECT_EQ(text.out.find("    T (degF)"), 0u) << text.out;
  EXPECT_EQ(Kestrane(Pgm() + "vapor table 3 0 100 50 --unit C").out.find("    T (degC)"), 0u);

  // The list names its unit; the data base's degC range is shown in degF unless degC is asked.
  const CliRun list = Kestrane(Pgm() + "vapor list --search ethanol");
  EXPECT_NE(list.out.find("Tmin degF   Tmax degF"), std::string::npos) << list.out;
  EXPECT_NE(Kestrane(Pgm() + "vapor list --search ethanol --unit C").out.find("Tmin degC   Tmax degC"), std::string::npos);
  const auto in_f = nlohmann::json::parse(Kestrane(Pgm() + "vapor list --search ethanol --json").out)["vapors"][0];
  const auto in_c = nlohmann::json::parse(Kestrane(Pgm() + "vapor list --search ethanol --unit C --json").out)["vapors"][0];
  EXPECT_EQ(in_f["name"], in_c["name"]);
  EXPECT_NEAR(in_f["tmin_f"].get<double>(), in_c["tmin_c"].get<double>() * 1.8 + 32, 1e-4);
  EXPECT_NEAR(in_f["tmax_f"].get<double>(), in_c["tmax_c"].get<double>() * 1.8 + 32, 1e-4);

  const CliRun kelvin = Kestrane(Pgm() + "vapor pressure 3 300 --unit K");
  EXPECT_EQ(kelvin.exit_code, 2);
  EXPECT_EQ(kelvin.err.find("--unit"), 0u) << kelvin.err;
}

namespace {

std::string AddArgs(const std::string& name, int k) {
  return "udv add --name '" + name + "' --mw 50 --t1 20 --p1 40 --t2 50 --p2 200 --t3 80 --p3 " +
         std::to_string(700 + k);
}

}  // namespace

TEST_F(CommandLine, UdvDeleteOfTheThirdOfFiveRenumbersTheRest) {
  for (int k = 1; k <= 5; ++k) ASSERT_EQ(Kestrane(Pgm() + AddArgs("Vapor " + std::to_string(k), k)).exit_code, 0);
  const CliRun unconfirmed = Kestrane(Pgm() + "udv delete -3");
  EXPECT_EQ(unconfirmed.exit_code, 1);
  EXPECT_NE(unconfirmed.err.find("Confirm Delete?"), std::string::npos);
  ASSERT_EQ(Kestrane(Pgm() + "udv delete -3 --yes").exit_code, 0);
  const auto doc = nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out);
  ASSERT_EQ(doc["NUDV"], 4);
  const char* names[] = {"Vapor 1", "Vapor 2", "Vapor 4", "Vapor 5"};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(doc["vapors"][i]["id"], -(i + 1));
    EXPECT_EQ(doc["vapors"][i]["name"], names[i]);
  }
  EXPECT_EQ(doc["vapors"][3]["UDVDATA"][0], -4.0);
}

TEST_F(CommandLine, UdvAddCutsLongNamesAndRefusesEqualPressures) {
  ASSERT_EQ(Kestrane(Pgm() + AddArgs("A name that is far too long to keep", 0)).exit_code, 0);
  const auto doc = nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out);
  EXPECT_EQ(doc["vapors"][0]["name"], "A name that is far t");
  const CliRun equal = Kestrane(Pgm() + "udv add --name Same --mw 50 --t1 20 --p1 40 --t2 50 --p2 40 --t3 80 --p3 700");
  EXPECT_EQ(equal.exit_code, 1);
  EXPECT_EQ(equal.err, "ERROR: Pressures may not be equal!\nThe vapor was refused; " + (dir / "UDV.DTA").string() +
                           " is unchanged.\n");
  const CliRun zero = Kestrane(Pgm() + "udv add --name Zero --mw 50 --t1 0 --p1 40 --t2 50 --p2 200 --t3 80 --p3 700");
  EXPECT_EQ(zero.exit_code, 1);
  EXPECT_NE(zero.err.find("T1"), std::string::npos);
  EXPECT_EQ(nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out)["NUDV"], 1) << "refusals store nothing";
  // Degrees F are stored as degrees C.
  ASSERT_EQ(Kestrane(Pgm() + "udv edit -1 --fahrenheit --t1 68 --t2 122 --t3 176").exit_code, 0);
  const auto edited = nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out);
  EXPECT_NEAR(edited["vapors"][0]["UDVDATA"][1].get<double>(), 20, 1e-4);
}

TEST_F(CommandLine, ADamagedUdvFileIsReportedAndLeftAloneUntilAChange) {
  const std::string damaged = "2\r\n-1,20,40,50,200,80,700,50,0,Good\r\n-2,20,x,50,200,80,700,50,0,Bad\r\n";
  kestrane::testing::WriteBytes(dir / "UDV.DTA", damaged);
  const CliRun list = Kestrane(Pgm() + "udv list");
  EXPECT_EQ(list.exit_code, 0);
  EXPECT_NE(list.err.find("damaged at line 3"), std::string::npos) << list.err;
  EXPECT_NE(list.out.find("Good"), std::string::npos);
  EXPECT_EQ(Kestrane(Pgm() + "vapor pressure -1 100").exit_code, 0);
  EXPECT_EQ(kestrane::testing::ReadBytes(dir / "UDV.DTA"), damaged);
  ASSERT_EQ(Kestrane(Pgm() + AddArgs("New", 0)).exit_code, 0);
  const auto doc = nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out);
  EXPECT_EQ(doc["NUDV"], 2);
  EXPECT_EQ(doc["vapors"][1]["name"], "New");
  EXPECT_TRUE(doc["notices"].empty());
}

TEST_F(CommandLine, CheckReportsTheRecordOfAnExampleCase) {
  const fs::path example = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET";
  const CliRun r = Kestrane(Pgm() + "check '" + example.string() + "' --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["input_error"], 0);
  EXPECT_EQ(doc["NSTAGES"], 3);
  EXPECT_EQ(doc["STAGEOPT"], 3);
  EXPECT_EQ(doc["HASC1"], 1);
  EXPECT_EQ(doc["NLOADS"], 6);
  EXPECT_EQ(doc["LOADS"][1]["ID"], 2.0);
  EXPECT_EQ(doc["LOADS"][4]["MW"].get<float>(), 28.01f);
  EXPECT_NE(r.out.find("\"MW\": 28.01,"), std::string::npos) << "the single in its shortest form";
}

TEST_F(CommandLine, CheckRefusesBadInputWithStatusOne) {
  const std::string good = kestrane::testing::ReadBytes(fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / "AUTOMATIC-SURFACE.JET");
  std::string bad = good;
  bad.replace(bad.find("770"), 3, "750");
  kestrane::testing::WriteBytes(dir / "BAD.JET", bad);
  const CliRun r = Kestrane(Pgm() + "check '" + (dir / "BAD.JET").string() + "' --json");
  EXPECT_EQ(r.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(r.out)["notices"][0], "Discharge pressure outside the range: (700 - 900 mmHga)\r\n");
}

TEST_F(CommandLine, CheckOfAMissingDamagedOrForeignFileIsAFileError) {
  kestrane::testing::WriteBytes(dir / "HALF.JET", "2.01\r\nonly a heading\r\n");
  for (const std::string name : {"NONE.JET", "HALF.JET", "PSAT.DTA", "MOLVBLG.DTA"}) {
    const CliRun r = Kestrane(Pgm() + "check '" + (dir / name).string() + "'");
    EXPECT_EQ(r.exit_code, 2) << name;
    EXPECT_EQ(r.err.rfind("ReadFile Routine Error: ", 0), 0u) << name << ": " << r.err;
  }
}

TEST_F(CommandLine, DesignJsonHoldsTheRecordAndTheResults) {
  const fs::path example = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET";
  const CliRun r = Kestrane(Pgm() + "design '" + example.string() + "' --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  for (const char* key : {"input_error", "notices", "status", "NSTAGES", "HASC1", "HASC2", "HASAC", "LRVPERR", "NLOADS",
                          "STG", "CND", "TOTALS", "STGLOAD", "CNDLOAD", "LOADS", "results_text"}) {
    EXPECT_TRUE(doc.contains(key)) << key;
  }
  EXPECT_EQ(doc["NSTAGES"], 3);
  ASSERT_EQ(doc["STG"].size(), 5u);
  EXPECT_EQ(doc["STG"][0].size(), 60u);
  ASSERT_EQ(doc["CND"].size(), 3u);
  EXPECT_EQ(doc["CND"][2].size(), 160u);
  EXPECT_EQ(doc["TOTALS"].size(), 12u);
  EXPECT_EQ(doc["STGLOAD"].size(), doc["NLOADS"].get<size_t>());
  double motive = 0;
  for (int c = 0; c < 3; ++c) motive += doc["STG"][c][2].get<double>();
  EXPECT_NEAR(doc["TOTALS"][5].get<double>(), motive, 1e-3);
  EXPECT_NE(doc["results_text"].get<std::string>().find("Ejectors"), std::string::npos);
}

TEST_F(CommandLine, SeveralCasesRunInOneSessionAndTheGridPrints) {
  const fs::path examples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";
  const CliRun r = Kestrane(Pgm() + "design '" + (examples / "FOUR-STAGE-SURFACE.JET").string() + "' '" +
                            (examples / "SOLVENT-LOADS-THREE-STAGE.JET").string() + "' --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto docs = nlohmann::json::parse(r.out);
  ASSERT_EQ(docs.size(), 2u);
  EXPECT_EQ(docs[1]["STG"][2][1], docs[0]["PINTERFIX"]) << "the four stage pressure carries to the next case";
  const CliRun grid = Kestrane(Pgm() + "design '" + (examples / "AUTOMATIC-SURFACE.JET").string() + "' --grid");
  EXPECT_EQ(grid.exit_code, 0);
  EXPECT_NE(grid.out.find(" 120dim #4 "), std::string::npos);
}

TEST_F(CommandLine, StageSizesOneEjector) {
  const CliRun r = Kestrane(Pgm() + "stage 50 200 150 0 100 --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_GT(doc["ML"].get<double>(), 0.5);
  EXPECT_GT(doc["THROAT"].get<double>(), 0.3);
  EXPECT_EQ(doc["failed"], 0);
  EXPECT_NEAR(doc["compressionRatio"].get<double>(), 4.0, 1e-4);
}

TEST_F(CommandLine, DesignOfAPumpTrainShowsThePumpAndCarriesItsTableRows) {
  const fs::path examples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";
  const CliRun text = Kestrane(Pgm() + "design '" + (examples / "TWO-STAGE-LRVP.JET").string() + "'");
  ASSERT_EQ(text.exit_code, 0) << text.err;
  EXPECT_NE(text.out.find("Liquid Ring Vacuum Pump"), std::string::npos);
  EXPECT_NE(text.out.find("Seal Water (gpm)"), std::string::npos);
  const CliRun r = Kestrane(Pgm() + "design '" + (examples / "TWO-STAGE-LRVP.JET").string() + "' '" +
                            (examples / "LRVP-BEYOND-LIMITS.JET").string() + "' --json");
  EXPECT_EQ(r.exit_code, 3) << "a pump error is a design error";
  const auto docs = nlohmann::json::parse(r.out);
  ASSERT_EQ(docs.size(), 2u);
  EXPECT_EQ(docs[0]["LRVPERR"], 0);
  EXPECT_TRUE(docs[0]["errors"].empty());
  EXPECT_FALSE(docs[1]["errors"].empty());
  ASSERT_EQ(docs[0]["LRVPRES"].size(), 18u);
  EXPECT_EQ(docs[0]["LRVPRES"][0], docs[0]["STG"][0][4]) << "stage C's size is the pump's index";
  EXPECT_EQ(docs[0]["pump_model"].get<std::string>().substr(0, 3), "LT-");
  EXPECT_EQ(docs[1]["LRVPERR"], 1);
  EXPECT_EQ(docs[1]["lblMessage"], "LRVP Error");
  EXPECT_TRUE(docs[1]["pump_model"].is_null());
}

TEST_F(CommandLine, TcDesignsAThermoCompressorCaseAndRefusesABadOne) {
  const fs::path example = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / "TC-MEDIUM-RATIO.TTC";
  const CliRun r = Kestrane(Pgm() + "tc '" + example.string() + "' --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["input_error"], 0);
  ASSERT_EQ(doc["STG"].size(), 60u);
  EXPECT_EQ(doc["TYPE"], 9);
  EXPECT_EQ(doc["STG"][0].get<double>(), 10.0);
  EXPECT_GT(doc["STG"][2].get<double>(), 0.0);
  const CliRun text = Kestrane(Pgm() + "tc '" + example.string() + "' --grid");
  EXPECT_NE(text.out.find("Motive FLow (#/hr)"), std::string::npos);
  std::string bad = "2.01\r\nI\r\nD\r\nE\r\n26\r\n\r\n0\r\n\r\n30\r\n\r\n150\r\n\r\n0\r\n\r\n100\r\n\r\n-1\r\n0\r\n";
  bad += "0\r\n0\r\n0\r\n0\r\n0\r\n";
  kestrane::testing::WriteBytes(dir / "BAD.TTC", bad);
  const CliRun refused = Kestrane(Pgm() + "tc '" + (dir / "BAD.TTC").string() + "'");
  EXPECT_EQ(refused.exit_code, 1);
  EXPECT_NE(refused.err.find("Suction pressure outside the range: (3.8 - 10. psia)"), std::string::npos);
}

TEST_F(CommandLine, CalculatorCommandsPrintWhatTheirWindowsShow) {
  const CliRun convert = Kestrane(Pgm() + "convert Temperature degF degC 212");
  EXPECT_EQ(convert.exit_code, 0) << convert.err;
  EXPECT_EQ(convert.out, "100.0000 degC\n");
  const CliRun list = Kestrane(Pgm() + "convert list");
  EXPECT_NE(list.out.find("Fouling factor"), std::string::npos);
  EXPECT_EQ(Kestrane(Pgm() + "convert Pressure furlong psia 1").exit_code, 2);
  const CliRun tail = Kestrane(Pgm() + "tailleg 760 0 1");
  EXPECT_EQ(tail.out, "Min Height\n33.9 feet\n10.3 meters\n");
  const CliRun gas = Kestrane(Pgm() + "gasflow --mw 29 --temperature 60 --mass 100");
  EXPECT_NE(gas.out.find("Volumetric flow   21.78 ACFM"), std::string::npos) << gas.out;
  EXPECT_NE(gas.out.find("Volumetric flow   21.78 SCFM"), std::string::npos);
  const CliRun nup = Kestrane(Pgm() + "nupreir 'a*2' --var a=2*pi");
  EXPECT_EQ(nup.exit_code, 0);
  EXPECT_EQ(nup.out, "\na*2 = \n6.283185 * 2 = 12.56637\n");
  const CliRun bad = Kestrane(Pgm() + "nupreir '(1+2)+(3+4)'");
  EXPECT_EQ(bad.exit_code, 1);
  EXPECT_NE(bad.err.find("Too many )s in '1+2)+(3+4'"), std::string::npos);
  const CliRun dp = Kestrane(Pgm() + "dp '" + (fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / "LINE-LOSS-HEI.TDP").string() + "'");
  EXPECT_EQ(dp.exit_code, 0);
  EXPECT_NE(dp.out.find("Total calculated pressure drop:"), std::string::npos);
}
