// The results of a design by name: the named JSON against the record's tables, the added screen blocks, and the
// text results lined up.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <regex>

#include <nlohmann/json.hpp>

#include "engine/design_summary.h"
#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::testing::CliRun;
using kestrane::testing::Kestrane;

namespace {

class DesignResults : public kestrane::testing::ScratchFolder {
 protected:
  void SetUp() override {
    ScratchFolder::SetUp();
    kestrane::testing::CopyProgramData(dir);
  }
  std::string Pgm() const { return "--pgmfiles '" + dir.string() + "' "; }
  static fs::path Example(const std::string& name) { return fs::path(KESTRANE_SOURCE_DIR) / "usrfiles" / name; }
  nlohmann::json Design(const std::string& name) const {
    const CliRun r = Kestrane(Pgm() + "design '" + Example(name).string() + "' --json");
    EXPECT_NE(r.exit_code, 2) << name << ": " << r.err;
    return nlohmann::json::parse(r.out);
  }
  static std::vector<std::string> Examples() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(fs::path(KESTRANE_SOURCE_DIR) / "usrfiles")) {
      if (entry.path().extension() == ".JET") names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
};

// Condenser names to their column in the CND arrays.
const std::map<std::string, int> kCondenserColumn = {{"AC", 0}, {"C2", 1}, {"C1", 2}};

TEST_F(DesignResults, NamedFieldsEqualThePositionalTablesTheyComeFrom) {
  const std::vector<std::string> examples = Examples();
  ASSERT_GE(examples.size(), 10u);
  int with_pump = 0, with_condensers = 0;
  for (const std::string& name : examples) {
    SCOPED_TRACE(name);
    const nlohmann::json doc = Design(name);
    const nlohmann::json& r = doc["results"];
    const nlohmann::json& totals = doc["TOTALS"];
    EXPECT_EQ(r["annual_cost"]["total_usd_yr"], totals[0]);
    EXPECT_EQ(r["annual_cost"]["steam_usd_yr"], totals[9]);
    EXPECT_EQ(r["annual_cost"]["water_usd_yr"], totals[10]);
    EXPECT_EQ(r["annual_cost"]["power_usd_yr"], totals[11]);
    EXPECT_EQ(r["motive_steam_lb_hr"], totals[5]);
    EXPECT_EQ(r["water_gpm"], totals[6]);
    EXPECT_EQ(r["power_kw"], totals[7]);
    if (doc["results_text"].get<std::string>().empty()) {
      EXPECT_TRUE(r["stages"].empty()) << "no results, no stages";
      continue;
    }

    // Stages from the highest down to C.
    const int n = doc["NSTAGES"];
    ASSERT_EQ(r["stages"].size(), static_cast<size_t>(n));
    for (int k = 0; k < n; ++k) {
      const nlohmann::json& st = r["stages"][static_cast<size_t>(k)];
      const nlohmann::json& stg = doc["STG"][static_cast<size_t>(n - 1 - k)];
      EXPECT_EQ(st["suction_mmhga"], stg[0]);
      EXPECT_EQ(st["discharge_mmhga"], stg[1]);
      EXPECT_EQ(st["motive_lb_hr"], stg[2]);
      EXPECT_EQ(st["connections_in"]["suction"], stg[44]);
      EXPECT_EQ(st["connections_in"]["discharge"], stg[46]);
      EXPECT_EQ(st["connections_in"]["motive"], stg[52]);
      EXPECT_NEAR(st["compression_ratio"].get<double>(), stg[1].get<double>() / stg[0].get<double>(), 1e-5);
      EXPECT_NE(doc["results_text"].get<std::string>().find(st["model"].get<std::string>()), std::string::npos)
          << "the model reads as on the screen";
    }
    EXPECT_EQ(r["stages"][0]["name"], std::string(n == 1 ? "C" : n == 2 ? "B" : n == 3 ? "A" : "AA"));

    // Condensers exactly those the train has, in the order of flow.
    std::vector<std::string> present;
    if (doc["HASC1"] == 1) present.push_back("C1");
    if (doc["HASC2"] == 1) present.push_back("C2");
    if (doc["HASAC"] == 1) present.push_back("AC");
    ASSERT_EQ(r["condensers"].size(), present.size());
    for (size_t k = 0; k < present.size(); ++k) {
      const nlohmann::json& c = r["condensers"][k];
      ASSERT_EQ(c["name"], present[k]);
      const nlohmann::json& cnd = doc["CND"][static_cast<size_t>(kCondenserColumn.at(present[k]))];
      EXPECT_EQ(c["inlet_mmhga"], cnd[0]);
      EXPECT_EQ(c["outlet_mmhga"], cnd[1]);
      EXPECT_EQ(c["vent_f"], cnd[2]);
      EXPECT_EQ(c["area_ft2"], cnd[80]);
      EXPECT_EQ(c["water_gpm"], cnd[81]);
      EXPECT_EQ(c["water_in_f"], cnd[82]);
      EXPECT_EQ(c["water_out_f"], cnd[83]);
      EXPECT_EQ(c["water_dp_psi"], cnd[84]);
      EXPECT_EQ(c["duty_btu_hr"], cnd[104]);
      EXPECT_GT(c["duty_btu_hr"].get<double>(), 0);
      ++with_condensers;
    }

    // Loads in the record's order.
    ASSERT_EQ(r["loads"].size(), doc["NLOADS"].get<size_t>());
    for (size_t k = 0; k < r["loads"].size(); ++k) {
      const nlohmann::json& l = r["loads"][k];
      EXPECT_EQ(l["vapor_id"].get<double>(), doc["LOADS"][k][0].get<double>());
      EXPECT_EQ(l["flow_lb_hr"], doc["LOADS"][k][1]);
      EXPECT_EQ(l["mw"], doc["LOADS"][k][2]);
      EXPECT_FALSE(l["name"].get<std::string>().empty());
    }
    EXPECT_EQ(r["loads"][0]["name"], "WATER");

    // The pump against its duty.
    if (!r["pump"].is_null()) {
      ++with_pump;
      EXPECT_EQ(r["pump"]["model"], doc["pump_model"]);
      EXPECT_EQ(r["pump"]["capacity_acfm"], doc["LRVPRES"][1]);
      EXPECT_EQ(r["pump"]["duty_acfm"], doc["LRVPRES"][4]);
      EXPECT_EQ(r["pump"]["capacity_ratio"], doc["LRVPRES"][9]);
      EXPECT_NEAR(r["pump"]["condensed_duty_acfm"].get<double>(),
                  r["pump"]["capacity_acfm"].get<double>() / r["pump"]["capacity_ratio"].get<double>(), 1e-3);
      EXPECT_TRUE(r["stages"].back()["pump"].get<bool>());
    }
  }
  EXPECT_GE(with_pump, 2) << "the examples hold pump trains";
  EXPECT_GE(with_condensers, 8);
}

TEST_F(DesignResults, LoadsAreNamedByTheirVapors) {
  const nlohmann::json doc = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  std::vector<std::string> names, kinds;
  for (const auto& l : doc["results"]["loads"]) {
    names.push_back(l["name"]);
    kinds.push_back(l["kind"]);
  }
  const std::vector<std::string> expected_names = {"WATER",   "Methanol",        "Acetone",
                                                   "Toluene", "NON-CONDENSIBLE", "NON-CONDENSIBLE"};
  EXPECT_EQ(names, expected_names);
  EXPECT_EQ(kinds.front(), "water vapor");
  EXPECT_EQ(kinds[1], "condensible");
  EXPECT_EQ(kinds.back(), "non-condensible");
}

TEST_F(DesignResults, CondensersSayWhereTheyStandAndWhatTheyAre) {
  const nlohmann::json pre = Design("TWO-STAGE-PRECONDENSER.JET")["results"]["condensers"];
  ASSERT_FALSE(pre.empty());
  EXPECT_EQ(pre[0]["name"], "C1");
  EXPECT_EQ(pre[0]["role"], "precondenser");
  const nlohmann::json three = Design("SOLVENT-LOADS-THREE-STAGE.JET")["results"]["condensers"];
  ASSERT_EQ(three.size(), 3u);
  EXPECT_EQ(three[0]["role"], "intercondenser");
  EXPECT_EQ(three[2]["role"], "after condenser");
  EXPECT_EQ(three[0]["type"], "surface");
  const nlohmann::json direct = Design("THREE-STAGE-DIRECT-CONTACT.JET")["results"]["condensers"];
  ASSERT_FALSE(direct.empty());
  for (const auto& c : direct) EXPECT_EQ(c["type"], "direct contact");
}

TEST_F(DesignResults, AnUnreadableCaseHasTheShapeOfAGoodOneWithItsInputError) {
  const nlohmann::json good = Design("SOLVENT-LOADS-THREE-STAGE.JET");
  const std::string missing = (dir / "NO-SUCH-CASE.JET").string();
  const CliRun r = Kestrane(Pgm() + "design '" + missing + "' --json");
  EXPECT_EQ(r.exit_code, 2);
  const nlohmann::json bad = nlohmann::json::parse(r.out);
  for (const auto& [key, value] : good.items()) {
    ASSERT_TRUE(bad.contains(key)) << key;
    EXPECT_EQ(bad[key].type(), value.type()) << key;
  }
  for (const auto& [key, value] : good["results"].items()) EXPECT_TRUE(bad["results"].contains(key)) << key;
  EXPECT_NE(bad["input_error"], 0);
  EXPECT_NE(bad["error"].get<std::string>().find(missing), std::string::npos) << "the error names the file";
  EXPECT_TRUE(bad["results"]["stages"].empty());
  EXPECT_FALSE(bad["notices"].empty()) << "the read error's notice stands";

  const CliRun text = Kestrane(Pgm() + "design '" + missing + "'");
  EXPECT_EQ(text.exit_code, 2);
  EXPECT_NE(text.err.find(missing), std::string::npos) << text.err;
}

// The text of each block: every cell right-aligned under its head and at least two blanks from its neighbour.
TEST_F(DesignResults, TextColumnsLineUpUnderTheirHeadsAndNeverTouch) {
  int rows_checked = 0;
  for (const std::string& name : Examples()) {
    SCOPED_TRACE(name);
    const CliRun r = Kestrane(Pgm() + "design '" + Example(name).string() + "'");
    std::istringstream in(r.out);
    std::vector<std::string> block;
    std::string line;
    const auto check = [&rows_checked](const std::vector<std::string>& lines) {
      // A block with heads: title, head line (led by the captions' blanks), rows.
      if (lines.size() < 3 || lines[1].find_first_not_of(' ') < 8) return;
      // A head may hold single blanks ("C (LRVP)"); two blanks part one head from the next.
      std::vector<size_t> ends;
      const std::regex head(R"(\S+( \S+)*)");
      for (auto it = std::sregex_iterator(lines[1].begin(), lines[1].end(), head); it != std::sregex_iterator(); ++it) {
        ends.push_back(static_cast<size_t>(it->position() + it->length()));
      }
      for (size_t k = 2; k < lines.size(); ++k) {
        const std::string& row = lines[k];
        for (size_t e = 0; e < ends.size(); ++e) {
          ASSERT_GE(row.size(), ends[e]) << row;
          EXPECT_NE(row[ends[e] - 1], ' ') << "right-aligned under its head: " << row;
          if (e == 0) continue;
          const std::string region = row.substr(ends[e - 1], ends[e] - ends[e - 1]);
          EXPECT_EQ(region.rfind("  ", 0), 0u) << "cell '" << region << "' touches its neighbour in: " << row;
        }
        ++rows_checked;
      }
    };
    while (std::getline(in, line)) {
      if (line.empty()) {
        check(block);
        block.clear();
      } else {
        block.push_back(line);
      }
    }
    check(block);
  }
  EXPECT_GT(rows_checked, 100);
}

TEST(SummaryBlocks, MetricShowsKilopascalsKilowattsAndCelsius) {
  using namespace kestrane;
  DesignSummary s;
  s.stages.push_back({"C", "C-4", false, 100, 75, 750, 10, 2, 1.5f, 0.5f});
  CondenserSummary c;
  c.name = "AC";
  c.role = "after condenser";
  c.duty_btu_hr = 3412.1416f * 50;
  c.inlet_mmhga = 795;
  c.outlet_mmhga = 770;
  c.vent_f = 212;
  s.condensers.push_back(c);
  s.pump.present = true;
  s.pump.capacity_acfm = 100;
  s.pump.duty_acfm = 80;
  s.pump.condensed_duty_acfm = 50;
  s.pump.capacity_ratio = 2;
  s.loads.push_back({0, "WATER", "water vapor", 22.045993805f, 18});

  const auto find = [](const std::vector<ResultsBlock>& blocks, const std::string& title) {
    for (const auto& b : blocks) {
      if (b.title == title) return b;
    }
    ADD_FAILURE() << "no block " << title;
    return ResultsBlock{};
  };
  const std::vector<ResultsBlock> metric = SummaryBlocks(s, true);
  const ResultsBlock stages = find(metric, "Stage Pressures");
  EXPECT_EQ(stages.captions[0], "Suction (KpaA)");
  EXPECT_EQ(Trim(stages.columns[0][0]), "10.00");
  EXPECT_EQ(Trim(stages.columns[0][1]), "100.00");
  EXPECT_EQ(Trim(stages.columns[0][2]), "10.00") << "a ratio has no unit";
  const ResultsBlock duties = find(metric, "Condenser Duties");
  EXPECT_EQ(duties.captions[1], "Duty (KW)");
  EXPECT_EQ(Trim(duties.columns[0][1]), "50.0");
  EXPECT_EQ(Trim(duties.columns[0][4]), "100.0");
  const ResultsBlock pump = find(metric, "Pump Capacity");
  EXPECT_EQ(Trim(pump.columns[0][0]), "169.9");
  EXPECT_EQ(Trim(pump.columns[0][3]), "2.00");
  EXPECT_EQ(Trim(find(metric, "Loads").columns[1][0]), "10.0");

  const std::vector<ResultsBlock> standard = SummaryBlocks(s, false);
  EXPECT_EQ(Trim(find(standard, "Stage Pressures").columns[0][0]), "75.00");
  EXPECT_EQ(Trim(find(standard, "Condenser Duties").columns[0][1]), "170607");
  EXPECT_EQ(Trim(find(standard, "Condenser Duties").columns[0][4]), "212.0");
  EXPECT_EQ(Trim(find(standard, "Pump Capacity").columns[0][0]), "100.0");
}

TEST(SummaryBlocks, NoCondensersOrPumpGiveNoSuchBlocks) {
  using namespace kestrane;
  DesignSummary s;
  s.stages.push_back({"C", "C-4", false, 100, 75, 750, 10, 2, 1.5f, 0.5f});
  std::vector<std::string> titles;
  for (const auto& b : SummaryBlocks(s, false)) titles.push_back(b.title);
  const std::vector<std::string> expected = {"Annual Utility Cost", "Stage Pressures", "Loads"};
  EXPECT_EQ(titles, expected);
}

}  // namespace
