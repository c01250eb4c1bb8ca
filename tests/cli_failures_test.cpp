// How the command reports failures, refuses numbers it cannot hold and keeps the user's own data.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "case/jet_file.h"
#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::testing::Kestrane;
using kestrane::testing::Quoted;
using kestrane::testing::ReadBytes;
using kestrane::testing::WriteBytes;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";
const fs::path kShipped = fs::path(KESTRANE_CLI).parent_path() / "pgmfiles";

// A scratch data folder with the shipped data, and cases made from the examples.
class Failures : public kestrane::testing::DataFolder {
 protected:
  // An example case with some boxes changed, saved in the scratch folder.
  fs::path CaseWith(const std::string& example, const std::function<void(kestrane::InputScreen&)>& change) {
    kestrane::RecordingUi ui;
    kestrane::InputScreen screen = kestrane::NewCase();
    EXPECT_TRUE(kestrane::ReadCase(kExamples / example, screen, ui));
    change(screen);
    const fs::path file = dir / ("CHANGED-" + std::to_string(++cases_) + ".JET");
    EXPECT_TRUE(kestrane::WriteCase(file, screen, ui));
    return file;
  }

 private:
  int cases_ = 0;
};

}  // namespace

TEST_F(Failures, EveryCaseOfADesignCommandGetsItsResultWhenOneFails) {
  const fs::path good = kExamples / "SOLVENT-LOADS-THREE-STAGE.JET";
  const fs::path missing = dir / "NO-SUCH-CASE.JET";
  const auto r = Kestrane(Pgm() + "design " + Quoted(good) + " " + Quoted(missing) + " " + Quoted(good) + " --json");
  EXPECT_EQ(r.exit_code, 2);
  const auto docs = nlohmann::json::parse(r.out);
  ASSERT_EQ(docs.size(), 3u);
  EXPECT_EQ(docs[0]["TOTALS"], docs[2]["TOTALS"]);
  EXPECT_GT(docs[0]["TOTALS"][5].get<double>(), 600) << "motive steam, lb/hr";
  EXPECT_EQ(docs[1]["case"], missing.string());
  EXPECT_FALSE(docs[1]["error"].get<std::string>().empty());
  EXPECT_TRUE(docs[0]["errors"].empty());
}

TEST_F(Failures, EveryJsonCommandPrintsItsErrorAsJson) {
  // Unreadable data files.
  const fs::path empty = dir / "empty";
  fs::create_directories(empty);
  for (const std::string& command : std::vector<std::string>{"steam pt 760 0 --json", "vapor pressure 3 100 --json", "udv list --json",
                                    "design " + Quoted(kExamples / "TWO-STAGE-LRVP.JET") + " --json"}) {
    const auto r = Kestrane("--pgmfiles " + Quoted(empty) + " " + command);
    EXPECT_EQ(r.exit_code, 2) << command;
    const auto doc = nlohmann::json::parse(r.out);
    EXPECT_FALSE(doc["error"].get<std::string>().empty()) << command;
    EXPECT_FALSE(doc["notices"].empty()) << command << ": the read error notice comes along";
  }
  // A refusal of the user vapor checks, and usage errors.
  const auto refused = Kestrane(Pgm() + "udv edit -9 --p1 5 --json");
  EXPECT_EQ(refused.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(refused.out)["error"], "There is no user defined vapor -9.");
  const auto usage = Kestrane(Pgm() + "stage 50 200 abc 0 100 --json");
  EXPECT_EQ(usage.exit_code, 2);
  EXPECT_NE(nlohmann::json::parse(usage.out)["error"].get<std::string>().find("PMOTIVE"), std::string::npos);
}

TEST_F(Failures, BadNumbersOnTheCommandLineAreUsageErrorsThatNameTheArgument) {
  const struct {
    std::string args, named;
  } bad[] = {{"gasflow --mw 29 --temperature 60 --mass abc", "--mass"},
             {"stage 50 200 150 0 1e40", "VE"},
             {"steam sat nan", "T"},
             {"vapor pressure 65539 100", "ID"},
             {"vapor table 3 32 1,000 10", "TMAX"},
             {"tailleg 760 0 x", "VALUES"}};
  for (const auto& b : bad) {
    const auto r = Kestrane(Pgm() + b.args);
    EXPECT_EQ(r.exit_code, 2) << b.args;
    EXPECT_EQ(r.err.find(b.named), 0u) << b.args << ": " << r.err;
    EXPECT_TRUE(r.out.empty()) << b.args;
  }
}

TEST_F(Failures, DesignsThatEndWithAnErrorFlagExitWithThree) {
  const auto pump = Kestrane(Pgm() + "design " + Quoted(kExamples / "LRVP-BEYOND-LIMITS.JET"));
  EXPECT_EQ(pump.exit_code, 3);
  EXPECT_NE(pump.out.find("LRVP Error"), std::string::npos);
  EXPECT_NE(pump.err.find("Design error: "), std::string::npos);

  // Discharge below suction: the balance cannot converge.
  const auto stage = Kestrane(Pgm() + "stage 200 50 150 0 100 --json");
  EXPECT_EQ(stage.exit_code, 3);
  const auto doc = nlohmann::json::parse(stage.out);
  EXPECT_NE(doc["failed"], 0);
  EXPECT_EQ(doc["errors"].size(), 1u);
  EXPECT_EQ(Kestrane(Pgm() + "stage 50 200 150 0 100").exit_code, 0);
  const auto overflow = Kestrane(Pgm() + "stage 50 200 150 0 3e38 --json");
  EXPECT_EQ(overflow.exit_code, 3);
  EXPECT_EQ(nlohmann::json::parse(overflow.out)["error"], "The stage could not be designed: Run-time error 6: Overflow");
}

TEST_F(Failures, CaseNumbersBeyondTheirRangeAreRefusedByTheCheck) {
  const fs::path hot = CaseWith("SOLVENT-LOADS-THREE-STAGE.JET", [](auto& s) { s.txtInput[4] = "1e400"; });
  const fs::path costly = CaseWith("SOLVENT-LOADS-THREE-STAGE.JET", [](auto& s) { s.txtCost[0] = "1E+39"; });
  const fs::path heavy = CaseWith("SOLVENT-LOADS-THREE-STAGE.JET", [](auto& s) { s.txtNCpph[0] = "3.5e38"; });
  const fs::path id = CaseWith("SOLVENT-LOADS-THREE-STAGE.JET", [](auto& s) { s.txtCID[1] = "65539"; });
  for (const fs::path& file : {hot, costly, heavy, id}) {
    const auto r = Kestrane(Pgm() + "design " + Quoted(file) + " --json");
    EXPECT_EQ(r.exit_code, 1) << file;
    const auto doc = nlohmann::json::parse(r.out);
    EXPECT_EQ(doc["input_error"], 1);
    ASSERT_EQ(doc["notices"].size(), 1u) << file;
    EXPECT_EQ(doc["notices"][0].get<std::string>().find("Run-time error 6: Overflow in the "), 0u) << doc["notices"][0];
    EXPECT_EQ(r.out.find("INF"), std::string::npos);
  }
  const auto notice = nlohmann::json::parse(Kestrane(Pgm() + "check " + Quoted(id) + " --json").out)["notices"][0];
  EXPECT_EQ(notice, "Run-time error 6: Overflow in the vapor ID of condensible load 2 (65539).\r\n");

  // A vapor ID is a 16-bit integer: 3.7 rounds to 4, never truncates to 3.
  const fs::path fraction = CaseWith("SOLVENT-LOADS-THREE-STAGE.JET", [](auto& s) { s.txtCID[1] = "3.7"; });
  const auto check = nlohmann::json::parse(Kestrane(Pgm() + "check " + Quoted(fraction) + " --json").out);
  EXPECT_EQ(check["LOADS"][1]["ID"], 4);
}

TEST_F(Failures, ThermoCompressorNumbersBeyondTheirRangeAreRefusedByTheCheck) {
  std::string bytes = ReadBytes(kExamples / "TC-LOW-RATIO.TTC");
  // The load is the fifteenth line: version, three headings, then pairs of boxes.
  size_t at = 0;
  for (int line = 0; line < 14; ++line) at = bytes.find("\r\n", at) + 2;
  bytes.replace(at, bytes.find("\r\n", at) - at, "1E+39");
  WriteBytes(dir / "HUGE-LOAD.TTC", bytes);
  const auto r = Kestrane(Pgm() + "tc " + Quoted(dir / "HUGE-LOAD.TTC") + " --json");
  EXPECT_EQ(r.exit_code, 1);
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["notices"][0], "Run-time error 6: Overflow in the load (1E+39).\r\n");
  EXPECT_EQ(r.out.find("INF"), std::string::npos);
}

TEST_F(Failures, APressureLossWithAnImpossiblePipeGivesItsMessageNotInfinity) {
  std::string bytes = ReadBytes(kExamples / "LINE-LOSS-HEI.TDP");
  // After the version and the two flags, the sixth field is the pipe's inside diameter.
  size_t at = 0;
  for (int line = 0; line < 3 + 5; ++line) at = bytes.find("\r\n", at) + 2;
  bytes.replace(at, bytes.find("\r\n", at) - at, "1E+39");
  WriteBytes(dir / "HUGE-PIPE.TDP", bytes);
  const auto r = Kestrane("dp " + Quoted(dir / "HUGE-PIPE.TDP"));
  EXPECT_EQ(r.exit_code, 1);
  EXPECT_EQ(r.err, "Error in pressure drop calculation.  Check input and retry.\n");
  EXPECT_EQ(r.out.find("INF"), std::string::npos);
}

TEST_F(Failures, ATailLegThatCannotBeCalculatedSaysWhichErrorItAbsorbed) {
  const auto tiny = Kestrane("tailleg 760 0 1e-40");
  EXPECT_EQ(tiny.exit_code, 1);
  EXPECT_EQ(tiny.err, "Run-time error 6: Overflow\n");
  EXPECT_TRUE(tiny.out.empty());
  EXPECT_EQ(Kestrane("tailleg 760 0 0").err, "Run-time error 11: Division by zero\n");
}

TEST_F(Failures, AUserVaporBeyondASinglesRangeIsRefusedAndTheFileKept) {
  ASSERT_EQ(Kestrane(Pgm() + "udv add --name Mine --mw 58 --t1 20 --p1 40 --t2 50 --p2 200 --t3 80 --p3 700").exit_code, 0);
  const std::string before = ReadBytes(dir / "UDV.DTA");
  const auto r = Kestrane(Pgm() + "udv edit -1 --t3 1e40 --json");
  EXPECT_EQ(r.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(r.out)["notices"][0], "Run-time error 6: Overflow");
  EXPECT_EQ(ReadBytes(dir / "UDV.DTA"), before);
  EXPECT_EQ(before.find("INF"), std::string::npos);
}

TEST_F(Failures, TheUsersVaporsLiveInTheUsersDataFolderSeededFromTheShippedCopy) {
  // No --pgmfiles: the program's own data beside it, the user's in XDG_DATA_HOME,
  // a folder made on first use even for a file with no shipped copy.
  const auto info = Kestrane("userinfo set --name 'Ann Lee'");
  ASSERT_EQ(info.exit_code, 0) << info.err;
  EXPECT_TRUE(fs::exists(dir / "data" / "kestrane" / "USERINFO.DTA"));
  EXPECT_FALSE(fs::exists(kShipped / "USERINFO.DTA"));
  const std::string shipped = ReadBytes(kShipped / "UDV.DTA");
  const auto add = Kestrane("udv add --name Mine --mw 58 --t1 20 --p1 40 --t2 50 --p2 200 --t3 80 --p3 700 --json");
  ASSERT_EQ(add.exit_code, 0) << add.err;
  const fs::path mine = dir / "data" / "kestrane" / "UDV.DTA";
  const std::string now = ReadBytes(mine);
  EXPECT_NE(now.find("Mine"), std::string::npos);
  const int shipped_count = std::stoi(shipped);
  EXPECT_EQ(std::stoi(now), shipped_count + 1) << "the shipped vapors come along";
  EXPECT_EQ(ReadBytes(kShipped / "UDV.DTA"), shipped) << "the shipped copy is never written";
}

TEST_F(Failures, ADamagedVaporFileIsKeptBesideTheOneWrittenAfterIt) {
  const std::string damaged = "3\r\n-1,20,40,50,200,80,700,58,0,Good one\r\n-2,20,forty\r\n";
  WriteBytes(dir / "UDV.DTA", damaged);
  const auto r = Kestrane(Pgm() + "udv add --name New --mw 58 --t1 20 --p1 40 --t2 50 --p2 200 --t3 80 --p3 700 --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto notices = nlohmann::json::parse(r.out)["notices"];
  ASSERT_EQ(notices.size(), 2u);
  EXPECT_EQ(notices[1], "The file UDV.DTA could not be read whole; it is kept as it was in UDV.DTA.bak.");
  EXPECT_EQ(ReadBytes(dir / "UDV.DTA.bak"), damaged);
  const std::string written = ReadBytes(dir / "UDV.DTA");
  EXPECT_NE(written.find("Good one"), std::string::npos);
  EXPECT_NE(written.find("New"), std::string::npos);
  // The next run reads the new file whole: no further copy.
  EXPECT_TRUE(nlohmann::json::parse(Kestrane(Pgm() + "udv list --json").out)["notices"].empty());
}

TEST_F(Failures, AMisspeltCommandIsNamedWithTheCommandMeant) {
  const struct {
    std::string args, error;
  } typed[] = {
      {"desing " + Quoted(kExamples / "TWO-STAGE-LRVP.JET"), "Unknown command 'desing'. Did you mean 'design'?"},
      {"vapor presure 3 100", "Unknown command 'vapor presure'. Did you mean 'vapor pressure'?"},
      {"udv lsit", "Unknown command 'udv lsit'. Did you mean 'udv list'?"},
      {"steam stat 212", "Unknown command 'steam stat'. Did you mean 'steam sat'?"},
      {"--date 2026-01-02 nupreri 1+1", "Unknown command 'nupreri'. Did you mean 'nupreir'?"},
      {"tabel 3 32 212 10", "Unknown command 'tabel'. Did you mean 'vapor table'?"},
      {"vapor frob", "Unknown command 'vapor frob'. The vapor commands are: list, pressure, table."},
      {"frobnicate",
       "Unknown command 'frobnicate'. The commands are: startup, userinfo, steam, vapor, udv, check, design, stage, tc, "
       "convert, dp, tailleg, gasflow, nupreir, print, drawing, price, study."}};
  for (const auto& t : typed) {
    const auto r = Kestrane(Pgm() + t.args);
    EXPECT_EQ(r.exit_code, 2) << t.args;
    EXPECT_EQ(r.err, t.error + "\n") << t.args;
    EXPECT_TRUE(r.out.empty()) << t.args;
    const auto json = Kestrane(Pgm() + t.args + " --json");
    EXPECT_EQ(json.exit_code, 2);
    const auto doc = nlohmann::json::parse(json.out);
    EXPECT_EQ(doc["error"], t.error);
    EXPECT_EQ(doc["exit_code"], 2);
  }
  // A known command with a missing argument keeps its own message.
  EXPECT_EQ(Kestrane(Pgm() + "tc").err.find("CASE is required"), 0u);
}

TEST_F(Failures, AFileThatCannotBeReadIsNamedInTheError) {
  const fs::path nowhere = dir / "nowhere";
  const fs::path folder = dir / "a folder";
  fs::create_directories(folder);
  const struct {
    std::string args;
    fs::path file;
  } reads[] = {{"check " + Quoted(nowhere / "A.JET"), nowhere / "A.JET"},
               {"tc " + Quoted(nowhere / "A.TTC"), nowhere / "A.TTC"},
               {"dp " + Quoted(nowhere / "A.TDP"), nowhere / "A.TDP"},
               {"dp " + Quoted(folder), folder},
               {"check " + Quoted(folder), folder}};
  for (const auto& read : reads) {
    for (const std::string json : {"", " --json"}) {
      const auto r = Kestrane(Pgm() + read.args + json);
      EXPECT_EQ(r.exit_code, 2) << read.args;
      EXPECT_NE(r.err.find(read.file.string() + " could not be read."), std::string::npos) << read.args << ": " << r.err;
      if (!json.empty()) {
        EXPECT_NE(nlohmann::json::parse(r.out)["error"].get<std::string>().find(read.file.string()), std::string::npos);
      }
    }
  }
  // The program's data files and the user's vapors, each gone or unreadable in turn.
  const struct {
    const char* name;
    std::string args;
  } data[] = {{"CVRT.DTA", "convert list"},
              {"MOLVBLG.DTA", "startup"},
              {"PSAT.DTA", "startup"},
              {"PSAT.DTA", "vapor list"},
              {"UDV.DTA", "udv list"}};
  for (const auto& d : data) {
    const fs::path file = dir / d.name;
    const std::string kept = fs::exists(file) ? ReadBytes(file) : "";
    fs::remove(file);
    fs::create_directories(file);  // a folder where the file belongs: there, but not a file to read
    const auto r = Kestrane(Pgm() + d.args + " --json");
    EXPECT_EQ(r.exit_code, 2) << d.args;
    EXPECT_NE(r.err.find(file.string() + " could not be read."), std::string::npos) << d.args << ": " << r.err;
    EXPECT_NE(nlohmann::json::parse(r.out)["error"].get<std::string>().find(file.string()), std::string::npos) << d.args;
    fs::remove(file);
    if (!kept.empty()) WriteBytes(file, kept);
  }
}
