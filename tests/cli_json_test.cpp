// The command's JSON: singles in their shortest form, and the calculators' values named with their units.
#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstring>
#include <functional>
#include <filesystem>
#include <limits>
#include <map>
#include <nlohmann/json.hpp>

#include "case/jet_file.h"
#include "cli/json_text.h"
#include "engine/design_run.h"
#include "test_support.h"

namespace fs = std::filesystem;
using kestrane::cli::JsonSingle;
using kestrane::cli::JsonText;
using kestrane::testing::CliRun;
using kestrane::testing::Kestrane;
using kestrane::testing::Quoted;

namespace {

const fs::path kExamples = fs::path(KESTRANE_SOURCE_DIR) / "usrfiles";

// The significant digits of a number's text: "0.0250" and "2.5e-2" both "25".
std::string SignificantDigits(const std::string& text) {
  std::string digits;
  for (char c : text.substr(0, text.find_first_of("eE"))) {
    if (c >= '0' && c <= '9') digits += c;
  }
  digits.erase(0, std::min(digits.find_first_not_of('0'), digits.size()));
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
  return digits.empty() ? "0" : digits;
}

// The standard library's shortest text of a single: the fewest digits that read back to it.
std::string Shortest(float value) {
  char text[32];
  return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

std::string SingleText(float value) { return JsonText(JsonSingle(value)); }

// Every number with a fraction or exponent in a JSON text, as written, by its JSON pointer.
class NumberTexts : public nlohmann::json_sax<nlohmann::json> {
 public:
  std::map<std::string, std::string> floats;
  std::map<std::string, bool> nulls;

  bool null() override { return Value([&](const std::string& at) { nulls[at] = true; }); }
  bool boolean(bool) override { return Value({}); }
  bool number_integer(number_integer_t) override { return Value({}); }
  bool number_unsigned(number_unsigned_t) override { return Value({}); }
  bool number_float(number_float_t, const string_t& text) override {
    return Value([&](const std::string& at) { floats[at] = text; });
  }
  bool string(string_t&) override { return Value({}); }
  bool binary(binary_t&) override { return Value({}); }
  bool start_object(std::size_t) override { return Open(false); }
  bool key(string_t& name) override {
    levels_.back().key = name;
    return true;
  }
  bool end_object() override { return Close(); }
  bool start_array(std::size_t) override { return Open(true); }
  bool end_array() override { return Close(); }
  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception& e) override {
    ADD_FAILURE() << e.what();
    return false;
  }

 private:
  struct Level {
    bool array;
    size_t index = 0;
    std::string key;
  };
  std::string Here() const {
    std::string at;
    for (const Level& l : levels_) at += "/" + (l.array ? std::to_string(l.index) : l.key);
    return at;
  }
  bool Value(const std::function<void(const std::string&)>& keep) {
    if (keep) keep(Here());
    if (!levels_.empty() && levels_.back().array) ++levels_.back().index;
    return true;
  }
  bool Open(bool array) {
    levels_.push_back(Level{array, 0, {}});
    return true;
  }
  bool Close() {
    levels_.pop_back();
    if (!levels_.empty() && levels_.back().array) ++levels_.back().index;
    return true;
  }
  std::vector<Level> levels_;
};

NumberTexts NumbersOf(const std::string& json) {
  NumberTexts texts;
  EXPECT_TRUE(nlohmann::json::sax_parse(json, &texts));
  return texts;
}

}  // namespace

// --- The text of a single --------------------------------------------------------

TEST(JsonNumbers, ASingleIsWrittenWithTheFewestDigitsThatReadBackToIt) {
  const float denormal = std::numeric_limits<float>::denorm_min();
  const struct {
    float value;
    const char* text;
  } cases[] = {{0.1f, "0.1"},
               {-0.1f, "-0.1"},
               {28.01f, "28.01"},
               {212.0f, "212.0"},
               {16777217.0f, "16777216.0"},  // 2^24 + 1 is no single: it is 2^24
               {16777218.0f, "16777218.0"},
               {1.0000001f, "1.0000001"},
               {1e10f, "1e+10"},
               {denormal, "1e-45"},
               {std::numeric_limits<float>::min(), "1.1754944e-38"},
               {std::numeric_limits<float>::max(), "3.4028235e+38"},
               {-std::numeric_limits<float>::max(), "-3.4028235e+38"},
               {-0.0f, "-0.0"}};
  for (const auto& c : cases) {
    EXPECT_EQ(SingleText(c.value), c.text);
    EXPECT_EQ(std::strtof(SingleText(c.value).c_str(), nullptr), c.value) << c.text;
  }
}

TEST(JsonNumbers, NonFiniteSinglesAreNullSoTheDocumentStaysJson) {
  for (float value : {std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                      std::numeric_limits<float>::quiet_NaN()}) {
    EXPECT_EQ(SingleText(value), "null");
    const nlohmann::json doc{{"x", JsonSingle(value)}};
    EXPECT_TRUE(nlohmann::json::parse(JsonText(doc))["x"].is_null());
  }
}

TEST(JsonNumbers, SinglesAcrossTheirWholeRangeReadBackWithNoDigitToSpare) {
  // Every 9973rd bit pattern of the finite singles, both signs: 429 000 values
  // from the denormals to the largest. A double's own shortest text is not always
  // the single's: the double nearest "4.346272e-39" prints with 17 digits in
  // nlohmann's dump.
  int checked = 0;
  for (uint64_t bits = 0; bits < 0xFF800000u; bits += 9973) {
    if (bits >= 0x7F800000u && bits < 0x80000000u) continue;  // infinity and NaNs
    const auto pattern = static_cast<uint32_t>(bits);
    float value = 0;
    std::memcpy(&value, &pattern, sizeof value);
    const std::string text = SingleText(value);
    ASSERT_EQ(std::strtof(text.c_str(), nullptr), value) << text;
    ASSERT_EQ(SignificantDigits(text), SignificantDigits(Shortest(value))) << text;
    ++checked;
  }
  EXPECT_GT(checked, 420000);
}

TEST(JsonDocuments, AreLaidOutAsTheLibraryLaysThemOutWithShorterFloats) {
  const nlohmann::json doc = {{"text", "a \"quoted\" °C line\r\n\t"},
                              {"empty_list", nlohmann::json::array()},
                              {"empty_object", nlohmann::json::object()},
                              {"nested", {{"flags", {true, false, nullptr}}, {"counts", {-3, 0, 65535}}}},
                              {"whole", 100.0},
                              {"half", 2.5},
                              {"rows", {{1, 2.25}, {"x", {{"y", -0.5}}}}}};
  EXPECT_EQ(JsonText(doc), doc.dump(2));
  EXPECT_EQ(JsonText(nlohmann::json::array()), "[]");
  EXPECT_EQ(JsonText(7), "7");
  // The floats the library writes long.
  const double nearest = 4.346272e-39;
  EXPECT_EQ(nlohmann::json(nearest).dump(), "4.3462720000000003e-39");
  EXPECT_EQ(JsonText(nearest), "4.346272e-39");
  EXPECT_EQ(JsonText(0.1), "0.1");
}

// --- The design's JSON -------------------------------------------------------------

class DesignJson : public kestrane::testing::DataFolder {};

TEST_F(DesignJson, EveryNumberOfTheExamplesIsTheDesignsSingleInItsShortestForm) {
  int cases = 0;
  for (const char* example : {"SOLVENT-LOADS-THREE-STAGE.JET", "FOUR-STAGE-SURFACE.JET", "TWO-STAGE-LRVP.JET",
                              "THREE-STAGE-DIRECT-CONTACT.JET", "METRIC-TWO-STAGE.JET", "TWO-STAGE-PRECONDENSER.JET"}) {
    SCOPED_TRACE(example);
    const CliRun r = Kestrane(Pgm() + "design " + Quoted(kExamples / example) + " --json");
    ASSERT_EQ(r.exit_code, 0) << r.err;
    const NumberTexts numbers = NumbersOf(r.out);

    // The same case designed here: the record the command wrote.
    kestrane::RecordingUi ui;
    kestrane::DesignCase dc;
    kestrane::InputScreen screen = kestrane::NewCase();
    ASSERT_TRUE(kestrane::OpenCase(kExamples / example, screen, ui));
    float pinterfix = 0;
    kestrane::DesignContext ctx{dc, kestrane::testing::ShippedData(), screen, pinterfix, ui};
    ASSERT_EQ(kestrane::RunDesign(ctx, screen).input_error, 0);

    const auto expect_single = [&](const std::string& at, float value) {
      if (!std::isfinite(value)) {
        EXPECT_TRUE(numbers.nulls.count(at)) << at;
        return;
      }
      const auto found = numbers.floats.find(at);
      ASSERT_NE(found, numbers.floats.end()) << at;
      EXPECT_EQ(std::strtof(found->second.c_str(), nullptr), value) << at << " " << found->second;
    };
    for (int c = 1; c <= kestrane::kStageColumns; ++c) {
      for (int row = 1; row <= kestrane::kStageRows; ++row) {
        expect_single("/STG/" + std::to_string(c - 1) + "/" + std::to_string(row - 1), dc.STG(c, row));
      }
    }
    for (int c = 1; c <= kestrane::kCondenserColumns; ++c) {
      for (int row = 1; row <= kestrane::kCondenserRows; ++row) {
        expect_single("/CND/" + std::to_string(c - 1) + "/" + std::to_string(row - 1), dc.CND(c, row));
      }
    }
    for (int k = 1; k <= 12; ++k) expect_single("/TOTALS/" + std::to_string(k - 1), dc.TOTALS(k));

    // No number carries a digit more than its single needs.
    for (const auto& [at, text] : numbers.floats) {
      const float value = std::strtof(text.c_str(), nullptr);
      EXPECT_EQ(SignificantDigits(text), SignificantDigits(Shortest(value))) << at << " " << text;
    }
    EXPECT_GT(numbers.floats.size(), 100u);
    ++cases;
  }
  EXPECT_EQ(cases, 6);
}

// --- The calculators' JSON ----------------------------------------------------------

class CalculatorJson : public kestrane::testing::DataFolder {};

TEST_F(CalculatorJson, ConvertNamesTheCategoryTheUnitsTheValueAndTheResult) {
  const CliRun r = Kestrane(Pgm() + "convert Temperature degF degC 212 --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["category"], "Temperature");
  EXPECT_EQ(doc["from"], "degF");
  EXPECT_EQ(doc["to"], "degC");
  EXPECT_EQ(doc["value"], 212.0);
  EXPECT_NEAR(doc["result"].get<double>(), 100.0, 1e-9);
  EXPECT_EQ(doc["result_text"], "100.0000");
  EXPECT_TRUE(doc["notices"].empty());
  EXPECT_EQ(Kestrane(Pgm() + "convert Temperature degF degC 212").out, "100.0000 degC\n") << "text mode as before";

  const auto list = nlohmann::json::parse(Kestrane(Pgm() + "convert list --json").out);
  ASSERT_GE(list["categories"].size(), 2u);
  EXPECT_EQ(list["categories"][1]["name"], "Temperature");
  EXPECT_EQ(list["categories"][1]["units"][1]["short_name"], "degC");

  const CliRun bad = Kestrane(Pgm() + "convert Pressure furlong psia 1 --json");
  EXPECT_EQ(bad.exit_code, 2);
  const auto error = nlohmann::json::parse(bad.out);
  EXPECT_EQ(error["error"], "No such unit in Pressure (see convert list)");
  EXPECT_EQ(error["exit_code"], 2);
}

TEST_F(CalculatorJson, TailLegGivesTheHeightInFeetAndMeters) {
  const CliRun r = Kestrane(Pgm() + "tailleg 760 0 1 --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["height_ft"].get<float>(), 33.9f);
  EXPECT_EQ(doc["height_m"].get<float>(), 10.3f);
  EXPECT_EQ(doc["receiver_mmhga"], 760.0);
  EXPECT_EQ(doc["specific_gravity"], 1.0);
  const CliRun zero = Kestrane(Pgm() + "tailleg 760 0 0 --json");
  EXPECT_EQ(zero.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(zero.out)["error"], "Run-time error 11: Division by zero");
  EXPECT_EQ(zero.err, "Run-time error 11: Division by zero\n");
}

TEST_F(CalculatorJson, GasFlowGivesEveryFormWithItsUnitInTheKey) {
  const std::string args = "gasflow --mw 29 --temperature 60 --mass 100";
  const CliRun r = Kestrane(Pgm() + args + " --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  const std::map<std::string, float> expected = {
      {"molecular_weight", 29},        {"pressure_mmhga", 760},       {"pressure_psig", 0},
      {"pressure_psia", 14.7f},        {"pressure_bar_a", 1.01f},     {"pressure_kpa", 101.33f},
      {"temperature_degf", 60},        {"temperature_degc", 15.56f},  {"mass_flow_lb_hr", 100},
      {"mass_flow_kg_hr", 45.36f},     {"volume_flow_acfm", 21.78f},  {"volume_flow_scfm", 21.78f},
      {"volume_flow_ncfm", 20.61f},    {"volume_flow_nm3_hr", 35.01f}};
  for (const auto& [key, value] : expected) EXPECT_EQ(doc[key].get<float>(), value) << key;
  EXPECT_EQ(doc.size(), expected.size() + 1) << "and the notices";
  EXPECT_EQ(Kestrane(Pgm() + args).out,
            "Molecular weight  29.00\nPressure          760.00 mmHgA\nPressure          0.00 psig\n"
            "Pressure          14.70 psia\nPressure          1.01 bar A\nPressure          101.33 kPa\n"
            "Temperature       60.00 degF\nTemperature       15.56 degC\nMass flow         100.00 #/hr\n"
            "Mass flow         45.36 kg/hr\nVolumetric flow   21.78 ACFM\nVolumetric flow   21.78 SCFM\n"
            "Volumetric flow   20.61 NCFM\nVolumetric flow   35.01 NM3/hr\n");

  // From a volume flow the window fills the mass flows only: the other volumes stay empty.
  const auto back = nlohmann::json::parse(Kestrane(Pgm() + "gasflow --mw 29 --temperature 60 --acfm 21.78 --json").out);
  EXPECT_NEAR(back["mass_flow_lb_hr"].get<double>(), 100, 0.02) << "21.78 ACFM is 100 lb/hr to the box's two decimals";
  EXPECT_TRUE(back["volume_flow_scfm"].is_null());
  const CliRun refused = Kestrane(Pgm() + "gasflow --mw 0 --temperature 60 --mass 100 --json");
  EXPECT_EQ(refused.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(refused.out)["error"].get<std::string>().find("Enter the molecular weight"), 0u);
}

TEST_F(CalculatorJson, PressureDropGivesItsTotalsAndTheResultsLines) {
  for (const char* example : {"LINE-LOSS-HEI.TDP", "LINE-LOSS-FORMULA-METRIC.TDP"}) {
    SCOPED_TRACE(example);
    const std::string args = "dp " + Quoted(kExamples / example);
    const CliRun r = Kestrane(Pgm() + args + " --json");
    ASSERT_EQ(r.exit_code, 0) << r.err;
    const auto doc = nlohmann::json::parse(r.out);
    // The lines are the text mode's output, line by line.
    std::string text;
    for (const auto& line : doc["results_lines"]) text += line.get<std::string>() + "\r\n";
    EXPECT_EQ(text, Kestrane(Pgm() + args).out);
    // The totals round to what the box shows.
    const bool metric = doc["units"] == "metric";
    char drop[32];
    std::snprintf(drop, sizeof drop, "%10.4f mmHg", doc["pressure_drop_mmhg"].get<double>());
    EXPECT_NE(text.find(std::string("Total calculated pressure drop:") + drop), std::string::npos) << drop;
    const double length = doc[metric ? "equivalent_length_m" : "equivalent_length_ft"].get<double>();
    char total[16];
    std::snprintf(total, sizeof total, metric ? "%.2f" : "%.1f", length);
    EXPECT_NE(text.find(std::string("Total equivalent pipe length (") + (metric ? "m)" : "ft)")), std::string::npos);
    EXPECT_NE(text.find(total), std::string::npos) << total;
    EXPECT_GT(doc[metric ? "velocity_m_s" : "velocity_ft_s"].get<double>(), 1.0);
    EXPECT_EQ(doc["method"], metric ? "formula" : "HEI");
  }
}

TEST_F(CalculatorJson, NupreirGivesItsLinesAndTheSingleItCalculated) {
  const CliRun r = Kestrane(Pgm() + "nupreir 'a*2' --var a=2*pi --json");
  ASSERT_EQ(r.exit_code, 0) << r.err;
  const auto doc = nlohmann::json::parse(r.out);
  EXPECT_EQ(doc["lines"], nlohmann::json({"", "a*2 = ", "6.283185 * 2 = 12.56637"}));
  EXPECT_EQ(doc["value"].get<float>(), 2 * 6.283185f);
  EXPECT_EQ(doc["angles"], "degrees");
  const auto radians = nlohmann::json::parse(Kestrane(Pgm() + "nupreir 'sin(pi/2)' --radians --json").out);
  EXPECT_EQ(radians["value"], 1.0);
  EXPECT_EQ(radians["angles"], "radians");

  // A refusal: the window's message is the notice; text mode shows only that, as before.
  const CliRun bad = Kestrane(Pgm() + "nupreir '(1+2)+(3+4)' --json");
  EXPECT_EQ(bad.exit_code, 1);
  const auto error = nlohmann::json::parse(bad.out);
  EXPECT_EQ(error["notices"], nlohmann::json({"Too many )s in '1+2)+(3+4'"}));
  EXPECT_EQ(error["exit_code"], 1);
  EXPECT_FALSE(error["error"].get<std::string>().empty());
  EXPECT_EQ(Kestrane(Pgm() + "nupreir '(1+2)+(3+4)'").err, "Too many )s in '1+2)+(3+4'\n");
}
