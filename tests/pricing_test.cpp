// Tests of the price data (reading, the look-up rule, silent failure) and of the price build-up on designed examples.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <nlohmann/json.hpp>
#include <numeric>

#include "design_support.h"
#include "pricing/price_buildup.h"
#include "properties/list_input.h"
#include "shell/price_files.h"
#include "test_support.h"

namespace kestrane::testing {
namespace {

namespace fs = std::filesystem;

const fs::path kSource = KESTRANE_SOURCE_DIR;
constexpr const char* kPriceFiles[] = {"KSConfig.DTA", "MULTIPLE.PRC", "TUBE.PRC", "JETPRC.PRC"};

void WriteText(const fs::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

// --- The price files --------------------------------------------------------------------------------------------

TEST(PriceData, GeneratorReproducesTheCommittedFilesByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_prices_" + std::to_string(::getpid()));
  fs::remove_all(out);
  const std::string cmd = "/usr/bin/python3 '" + (kSource / "tools" / "make_prices.py").string() + "' '" + out.string() + "'";
  ASSERT_EQ(std::system(cmd.c_str()), 0);
  for (const char* name : kPriceFiles) {
    EXPECT_TRUE(ReadBytes(out / name) == ReadBytes(kSource / "pgmfiles" / name)) << name;
  }
  fs::remove_all(out);
}

TEST(PriceData, ShippedFilesTurnPricingOnWithEverySectionAndMultiplier) {
  const PriceData& p = ShippedData().pricing;
  ASSERT_EQ(p.PRICEMODE, 1) << p.off_reason;
  EXPECT_EQ(p.folder, kSource / "pgmfiles");
  for (const PriceSection& s : PriceSections()) {
    const Array2D<float>& t = p.Table(s.name);
    EXPECT_EQ(t.hi1(), s.rows) << s.name;
    EXPECT_GT(t(s.rows, 1), 0) << s.name << ": the last row read holds its key";
  }
  EXPECT_EQ(PriceSections().size(), 36u);
  EXPECT_GT(p.BLABOR, 0);
  EXPECT_GT(p.DLR, 1);
  // The stainless multipliers price above steel, and 316 above 304.
  EXPECT_GT(p.AMF304, p.AMFSTEEL);
  EXPECT_GT(p.AMF316, p.AMF304);
  // The last tube price is the titanium group's hours per tube of 1-1/2 in.
  EXPECT_GT(p.TUBEPRC(8, 6, 5), 0);
}

TEST(PriceData, MaterialCodesTakeTheirMultipliers) {
  const PriceData& p = ShippedData().pricing;
  EXPECT_EQ(MaterialMultiplier(p, 1), p.AMFCI);
  EXPECT_EQ(MaterialMultiplier(p, 2), p.AMFSTEEL);
  EXPECT_EQ(MaterialMultiplier(p, 3), p.AMF304);
  EXPECT_EQ(MaterialMultiplier(p, 4), p.AMF316);
  EXPECT_EQ(MaterialMultiplier(p, 5), p.AMFCASTSTL);
  EXPECT_EQ(MaterialMultiplier(p, 6), p.AMFCAST316);
  EXPECT_EQ(MaterialMultiplier(p, 0), 0);
  EXPECT_EQ(MaterialMultiplier(p, 7), 0);
}

class PriceFolder : public ScratchFolder {
 protected:
  void SetUp() override {
    ScratchFolder::SetUp();
    for (const char* name : kPriceFiles) fs::copy_file(kSource / "pgmfiles" / name, dir / name);
  }
  PriceData Read() {
    PriceData p;
    p.PRICEMODE = 7;  // whatever stood before is replaced
    ReadPricing(PathsForDataFolder(dir, dir), p);
    return p;
  }
};

TEST_F(PriceFolder, TheKeyIsFoundAnywhereInARecordAndTheFirstRecordHoldingItWins) {
  WriteText(dir / "M.PRC", "\"XAMF304Y\",2.5\r\n\"AMF304\",9\r\n\"A, B\",4\r\n");
  float v = 0;
  ASSERT_TRUE(MultiplierLookup(dir / "M.PRC", "AMF304", v));
  EXPECT_EQ(v, 2.5f);
  ASSERT_TRUE(MultiplierLookup(dir / "M.PRC", "A, B", v));  // a quoted key keeps its comma
  EXPECT_EQ(v, 4.0f);
  v = -1;
  EXPECT_FALSE(MultiplierLookup(dir / "M.PRC", "", v));  // an empty key is the error flag
  EXPECT_FALSE(MultiplierLookup(dir / "M.PRC", "BLABOR", v));
  EXPECT_FALSE(MultiplierLookup(dir / "NONE.PRC", "AMF304", v));
  EXPECT_EQ(v, -1);
}

TEST_F(PriceFolder, AnyFailureLeavesPricingOffSilently) {
  ASSERT_EQ(Read().PRICEMODE, 1);
  const std::string tables = ReadBytes(dir / "JETPRC.PRC");
  const std::string tubes = ReadBytes(dir / "TUBE.PRC");
  const std::string multipliers = ReadBytes(dir / "MULTIPLE.PRC");
  struct Damage {
    const char* what;
    const char* file;
    std::string text;
  } damages[] = {
      {"a section cut short", "JETPRC.PRC", tables.substr(0, tables.size() - 200)},
      {"a section missing", "JETPRC.PRC", [&] {
         std::string t = tables;
         t.replace(t.find("DATA PCTSTLCF"), 13, "DATA PCTSTLCX");
         return t;
       }()},
      {"text in a number", "TUBE.PRC", "x" + tubes},
      {"too few tube prices", "TUBE.PRC", tubes.substr(0, tubes.size() / 2)},
      {"a multiplier missing", "MULTIPLE.PRC", multipliers.substr(0, multipliers.find("\"BLABOR\""))},
      {"pricing set off", "KSConfig.DTA", "0,\"\"\r\n"},
      {"a mode of no meaning", "KSConfig.DTA", "3,\"\"\r\n"},
      {"a folder without the files", "KSConfig.DTA", "1,\"elsewhere/\"\r\n"},
      {"an empty configuration", "KSConfig.DTA", ""},
  };
  for (const Damage& d : damages) {
    const std::string good = ReadBytes(dir / d.file);
    WriteText(dir / d.file, d.text);
    const PriceData p = Read();
    EXPECT_EQ(p.PRICEMODE, 0) << d.what;
    EXPECT_FALSE(p.off_reason.empty()) << d.what;
    EXPECT_TRUE(p.tables.empty()) << d.what;
    WriteText(dir / d.file, good);
  }
  fs::remove(dir / "JETPRC.PRC");
  EXPECT_EQ(Read().PRICEMODE, 0);
}

TEST_F(PriceFolder, ARelativePriceFolderStandsUnderTheDataFolderAndAnAbsoluteOneWhereItSays) {
  fs::create_directories(dir / "prices");
  for (const char* name : {"MULTIPLE.PRC", "TUBE.PRC", "JETPRC.PRC"}) fs::rename(dir / name, dir / "prices" / name);
  WriteText(dir / "KSConfig.DTA", "2,\"prices/\"\r\n");
  PriceData p = Read();
  EXPECT_EQ(p.PRICEMODE, 2) << p.off_reason;
  EXPECT_EQ(p.folder, dir / "prices");
  EXPECT_EQ(p.PRICEPATH, "prices/");
  WriteText(dir / "KSConfig.DTA", "2,\"" + (dir / "prices").string() + "/\"\r\n");
  p = Read();
  EXPECT_EQ(p.PRICEMODE, 2) << p.off_reason;
  // The file names are appended to the folder as written: without its separator nothing is found.
  WriteText(dir / "KSConfig.DTA", "2,\"prices\"\r\n");
  EXPECT_EQ(Read().PRICEMODE, 0);
}

TEST_F(PriceFolder, ListFieldsReadQuotedTextWithItsCommasAndPlainTextTrimmed) {
  WriteText(dir / "L.TXT", "\"a, b\" , 12 ,  plain text  \r\n\"\",7\r\n");
  ListInput in(dir / "L.TXT");
  EXPECT_EQ(in.Text(), "a, b");
  EXPECT_EQ(in.Integer(), 12);
  EXPECT_EQ(in.Text(), "plain text");
  EXPECT_EQ(in.Text(), "");
  EXPECT_EQ(in.Single(), 7.0f);
  EXPECT_TRUE(in.Eof());
}

// --- The build-up -----------------------------------------------------------------------------------------------

class PriceBuild : public ExampleDesign {
 protected:
  const PriceData& p = ShippedData().pricing;

  static void ExpectCostOfItsHoursAndMaterials(const PriceItem& item, float blabor) {
    EXPECT_NEAR(item.COST, blabor * item.HOURS + item.MATL, 1e-4 * item.COST) << item.name;
  }
  // An item by name; a failure when the build-up has none.
  static const PriceItem& Item(const PriceBuildUp& b, const std::string& name) {
    for (const PriceItem& item : b.items) {
      if (item.name == name) return item;
    }
    ADD_FAILURE() << "no item " << name;
    return b.total;
  }
  int Row(const char* table, float key) {
    const Array2D<float>& t = p.Table(table);
    for (int r = 1; r <= t.hi1(); ++r) {
      if (std::fabs(t(r, 1) - key) < 0.001f) return r;
    }
    return 0;
  }
};

TEST_F(PriceBuild, EveryItemCostsItsLaborAndMaterialsAndTheTotalIsTheirSum) {
  for (const char* file : {"FOUR-STAGE-SURFACE.JET", "TWO-STAGE-SURFACE-TUBE-SIDE.JET", "METRIC-TWO-STAGE.JET"}) {
    DesignExample(file);
    const PriceBuildUp b = PriceDesign(ctx);
    ASSERT_TRUE(b.complete) << file;
    ASSERT_FALSE(b.items.empty());
    PriceItem sum;
    for (const PriceItem& item : b.items) {
      ExpectCostOfItsHoursAndMaterials(item, p.BLABOR);
      EXPECT_GT(item.MATL, 0) << file << " " << item.name;
      EXPECT_GT(item.HOURS, 0) << file << " " << item.name;
      EXPECT_GT(item.WEIGHT, 0) << file << " " << item.name;
      sum.MATL += item.MATL;
      sum.HOURS += item.HOURS;
      sum.COST += item.COST;
      sum.WEIGHT += item.WEIGHT;
    }
    EXPECT_FLOAT_EQ(b.total.MATL, sum.MATL);
    EXPECT_FLOAT_EQ(b.total.HOURS, sum.HOURS);
    EXPECT_FLOAT_EQ(b.total.COST, sum.COST);
    EXPECT_FLOAT_EQ(b.total.WEIGHT, sum.WEIGHT);
    EXPECT_FLOAT_EQ(b.price, b.total.COST * p.DLR);
  }
}

TEST_F(PriceBuild, ItemsComeAsStagesFromTheSuctionThenCondensersThenTheirTubes) {
  DesignExample("FOUR-STAGE-SURFACE.JET");
  const PriceBuildUp b = PriceDesign(ctx);
  std::vector<std::string> names;
  for (const PriceItem& item : b.items) names.push_back(item.name);
  EXPECT_EQ(names, (std::vector<std::string>{"AA", "A", "B", "C", "C1", "C2", "AC", "TUBES C1", "TUBES C2",
                                             "TUBES AC"}));
  const std::vector<std::string> lines = PriceBreakdownLines(b);
  EXPECT_EQ(lines.back(), kTubePremiumNote);
  EXPECT_NE(std::find_if(lines.begin(), lines.end(), [](const std::string& l) { return l.rfind("TOTAL", 0) == 0; }),
            lines.end());
}

TEST_F(PriceBuild, ARepeatedBodyTakesNinetyFivePercentOfItsTableMaterialsAndHours) {
  DesignExample("FOUR-STAGE-SURFACE.JET");  // cast iron bodies
  const float size = dc.STG(kStageAA, kStgSIZE);
  std::vector<EjectorBody> bodies;
  const PriceItem first = EjectorItem(ctx, kStageAA, bodies);
  ASSERT_EQ(bodies.size(), 1u);
  EXPECT_EQ(bodies[0].code, 1);
  const PriceItem repeat = EjectorItem(ctx, kStageAA, bodies);
  const int r = Row("CASTJETS", size);
  ASSERT_GT(r, 0);
  const Array2D<float>& cast = p.Table("CASTJETS");
  EXPECT_NEAR(first.MATL - repeat.MATL, 0.05f * cast(r, 3) * p.AMFCI, 0.01f);
  EXPECT_NEAR(first.HOURS - repeat.HOURS, 0.05f * cast(r, 4), 0.001f);
  EXPECT_EQ(first.WEIGHT, repeat.WEIGHT);
  ExpectCostOfItsHoursAndMaterials(repeat, p.BLABOR);
  // Another body of the same size is no repeat.
  std::vector<EjectorBody> steel = {{size, 2}};
  EXPECT_EQ(EjectorItem(ctx, kStageAA, steel).COST, first.COST);
}

TEST_F(PriceBuild, AConnectionWithinOneInchOfTheStandardIsTheStandardAndALargerOneAddsTheRowDifference) {
  DesignExample("FOUR-STAGE-SURFACE.JET");
  const int r = Row("CSTC", dc.STG(kStageAA, kStgSIZE));
  ASSERT_GT(r, 0);
  const float standard = p.Table("CSTC")(r, 11);  // the standard motive connection
  ASSERT_EQ(standard, 1.0f);
  dc.PMOTIVE = 100;  // class 150 flanges
  auto price_with_motive = [&](float nominal) {
    dc.STG(kStageAA, kStgDIAM) = nominal;
    std::vector<EjectorBody> bodies;
    return EjectorItem(ctx, kStageAA, bodies);
  };
  const PriceItem at_standard = price_with_motive(1.0f);
  EXPECT_EQ(price_with_motive(2.0f).COST, at_standard.COST);
  const PriceItem larger = price_with_motive(2.5f);
  // 2.5 in is flanged, the 1 in standard threaded: the flanged row's values less the threaded row's.
  const Array2D<float>& a = p.Table("CSTA");
  int high = 0, low = 0;
  for (int i = 1; i <= a.hi1(); ++i) {
    if (a(i, 2) == 150 && a(i, 1) == 2.5f) high = i;
    if (a(i, 2) == 150 && a(i, 1) == 1.0f) low = i;
  }
  ASSERT_TRUE(high > 0 && low > 0);
  EXPECT_NEAR(larger.MATL - at_standard.MATL, (a(high, 3) - a(low, 6)) * p.AMFCI, 0.01f);
  EXPECT_NEAR(larger.HOURS - at_standard.HOURS, a(high, 4) - a(low, 7), 0.001f);
  EXPECT_NEAR(larger.WEIGHT - at_standard.WEIGHT, a(high, 5) - a(low, 8), 0.001f);
  ExpectCostOfItsHoursAndMaterials(larger, p.BLABOR);
  // A motive pressure beyond class 150 needs the heavier flange, and its weeks; threaded, the row of its class
  // adds only the weeks.
  dc.PMOTIVE = 600;
  const PriceItem heavy = price_with_motive(2.5f);
  EXPECT_GT(heavy.COST, larger.COST);
  EXPECT_GT(heavy.weeks, larger.weeks);
  const PriceItem threaded = price_with_motive(1.0f);
  EXPECT_EQ(threaded.COST, at_standard.COST);
  EXPECT_GT(threaded.weeks, at_standard.weeks);
  dc.PMOTIVE = 5000;  // beyond every flange class: no row
  EXPECT_FALSE(price_with_motive(1.0f).complete);
}

TEST_F(PriceBuild, A316StainlessTrainCostsMoreThanTheSameTrainInCarbonSteel) {
  auto total = [&](int16_t chamber, int16_t alloy) {
    DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");
    screen.lists[kSuctionChamberMaterial] = chamber;
    for (ListBox box : {kNozzlePlateMaterial, kProcessSideMaterial, kWaterSideMaterial, kSteamNozzleMaterial}) {
      screen.lists[box] = alloy;
    }
    screen.lists[kTubeMaterial] = alloy == 2 ? 2 : 1;  // 316SS, else 304SS
    const PriceBuildUp b = PriceDesign(ctx);
    EXPECT_TRUE(b.complete);
    return b;
  };
  const PriceBuildUp steel = total(1, 0);
  const PriceBuildUp stainless = total(2, 2);
  EXPECT_GT(stainless.total.COST, steel.total.COST);
  EXPECT_GT(stainless.total.MATL, steel.total.MATL);
  // Item by item too: the bodies, the condensers and the tubes.
  for (const char* name : {"A", "B", "C", "C1", "C2", "AC", "TUBES C1"}) {
    EXPECT_GT(Item(stainless, name).COST, Item(steel, name).COST) << name;
  }
  EXPECT_NE(Item(stainless, "C1").description.find("X316SS"), std::string::npos);
  EXPECT_NE(Item(stainless, "A").description.find("316SS"), std::string::npos);
}

TEST_F(PriceBuild, ABiggerCondenserOfTheSameFamilyCostsMore) {
  DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");
  ASSERT_GT(dc.CND(kCondC1, kCndOD), dc.CND(kCondC2, kCndOD));
  const PriceItem c1 = CondenserItem(ctx, kCondC1), c2 = CondenserItem(ctx, kCondC2);
  EXPECT_GT(c1.COST, c2.COST);
  EXPECT_GT(c1.WEIGHT, c2.WEIGHT);
  // Longer, of the same shell: base plus the slope per foot beyond six.
  const float tl = dc.CND(kCondC2, kCndTL);
  dc.CND(kCondC2, kCndTL) = tl + 4;
  const PriceItem longer = CondenserItem(ctx, kCondC2);
  const Array2D<float>& t = p.Table("XALLSTL");
  const int r = Row("XALLSTL", dc.CND(kCondC2, kCndOD));
  EXPECT_NEAR(longer.MATL - c2.MATL, 4 * t(r, 6), 0.01f);
  EXPECT_NEAR(longer.WEIGHT - c2.WEIGHT, 4 * t(r, 8), 0.01f);
  ExpectCostOfItsHoursAndMaterials(longer, p.BLABOR);
}

TEST_F(PriceBuild, ChannelHeadsAndAHigherDesignPressureAddToACondenser) {
  DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");
  const PriceItem bonnets = CondenserItem(ctx, kCondC2);
  screen.lists[kInletHead] = 1;
  const PriceItem one = CondenserItem(ctx, kCondC2);
  screen.lists[kReturnHead] = 1;
  const PriceItem two = CondenserItem(ctx, kCondC2);
  const int r = Row("XSTLCHAN", dc.CND(kCondC2, kCndOD));
  const float channel = p.Table("XSTLCHAN")(r, 3);
  EXPECT_NEAR(one.MATL - bonnets.MATL, channel, 0.01f);
  EXPECT_NEAR(two.MATL - bonnets.MATL, 2 * channel, 0.01f);
  screen.lists[kInletHead] = screen.lists[kReturnHead] = 0;
  screen.txtDesign[0] = "150";
  const PriceItem heavy = CondenserItem(ctx, kCondC2);
  EXPECT_GT(heavy.MATL, bonnets.MATL);
  screen.txtDesign[0] = "1000";  // beyond the table
  EXPECT_FALSE(CondenserItem(ctx, kCondC2).complete);
}

TEST_F(PriceBuild, ACondenserAbove42InchesOrOfAnotherMaterialIsNotComplete) {
  DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");
  dc.CND(kCondC1, kCndOD) = 44;
  PriceBuildUp b = PriceDesign(ctx);
  EXPECT_FALSE(b.complete);
  EXPECT_FALSE(Item(b, "C1").complete);
  EXPECT_TRUE(Item(b, "C2").complete);
  std::vector<std::string> lines = PriceBreakdownLines(b);
  const auto has = [&](std::string_view text) {
    return std::any_of(lines.begin(), lines.end(), [&](const std::string& l) { return l.find(text) != std::string::npos; });
  };
  EXPECT_TRUE(has(kNotComplete));
  for (std::string_view l : kPricingIncompleteLines) EXPECT_TRUE(has(l)) << l;
  EXPECT_FALSE(has("TOTAL"));

  DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");
  screen.lists[kProcessSideMaterial] = 1;  // 304SS with a 316SS water side: no family
  screen.lists[kWaterSideMaterial] = 2;
  b = PriceDesign(ctx);
  EXPECT_FALSE(b.complete);
  for (const char* name : {"C1", "C2", "AC"}) EXPECT_FALSE(Item(b, name).complete) << name;
}

TEST_F(PriceBuild, TubesWeighTheirMetalRingAndCostTheirMillPriceWithTheFiftyPercentPremium) {
  DesignExample("SOLVENT-LOADS-THREE-STAGE.JET");  // 304SS tubes, 3/4 in BWG 18
  const PriceItem tubes = TubeItem(ctx, kCondC1);
  const float od = 0.75f, bore = 0.75f - 2 * 0.049f;
  const float n = dc.CND(kCondC1, kCndTUBES), tl = dc.CND(kCondC1, kCndTL);
  const float area = od * od * 3.1416f / 4 - bore * bore * 3.1416f / 4;
  EXPECT_NEAR(tubes.WEIGHT, area * tl * 12 * n * 499 / 1728, 0.01f);  // 304SS at 499 lb/ft3
  // Group 4 (304), the 3/4 in column, BWG 18 the third price.
  EXPECT_NEAR(tubes.MATL, p.TUBEPRC(4, 2, 3) * 1.5f * n * tl, 0.01f);
  EXPECT_NEAR(tubes.HOURS, p.TUBEPRC(4, 2, 5) * n, 0.001f);
  ExpectCostOfItsHoursAndMaterials(tubes, p.BLABOR);
  screen.lists[kTubeMaterial] = 11;  // titanium
  EXPECT_GT(TubeItem(ctx, kCondC1).MATL, tubes.MATL);
  dc.CND(kCondC1, kCndTOD) = 0.5f;  // no price column
  EXPECT_FALSE(TubeItem(ctx, kCondC1).complete);
}

TEST_F(PriceBuild, ALiquidRingPumpStandsUnpricedAndOutsideTheTotal) {
  DesignExample("TWO-STAGE-LRVP.JET");
  const PriceBuildUp b = PriceDesign(ctx);
  const PriceItem& pump = Item(b, "C");
  EXPECT_FALSE(pump.priced);
  EXPECT_EQ(pump.COST, 0);
  EXPECT_TRUE(b.complete);
  EXPECT_TRUE(b.pump);
  const std::vector<std::string> lines = PriceBreakdownLines(b);
  EXPECT_EQ(lines.back(), kPumpNotPricedNote);
}

TEST_F(PriceBuild, ADirectContactTrainPricesItsBarometricCondensersWithoutTubes) {
  DesignExample("THREE-STAGE-DIRECT-CONTACT.JET");
  const PriceBuildUp b = PriceDesign(ctx);
  EXPECT_TRUE(b.complete);
  EXPECT_FALSE(b.tubes);
  EXPECT_NE(Item(b, "C1").description.find("BALLSTL"), std::string::npos);
  for (const PriceItem& item : b.items) EXPECT_EQ(item.name.rfind("TUBES", 0), std::string::npos);
}

TEST_F(PriceBuild, StagesOutsideTheTrainGiveZeros) {
  DesignExample("TWO-STAGE-SURFACE-TUBE-SIDE.JET");
  std::vector<EjectorBody> bodies;
  for (int column : {0, 3, 4, 5, 6}) {
    const PriceItem item = EjectorItem(ctx, column, bodies);
    EXPECT_EQ(item.COST, 0) << column;
    EXPECT_EQ(item.WEIGHT, 0) << column;
  }
  EXPECT_TRUE(bodies.empty());
}

// --- The command ------------------------------------------------------------------------------------------------

TEST(PriceCommand, PrintsTheBuildUpAndItsJsonItems) {
  const std::string file = Quoted(kSource / "usrfiles" / "FOUR-STAGE-SURFACE.JET");
  const CliRun text = Kestrane("price " + file);
  ASSERT_EQ(text.exit_code, 0) << text.err;
  EXPECT_NE(text.out.find("TOTAL"), std::string::npos);
  EXPECT_NE(text.out.find(kTubePremiumNote), std::string::npos);
  const CliRun json = Kestrane("price " + file + " --json");
  ASSERT_EQ(json.exit_code, 0) << json.err;
  const auto doc = nlohmann::json::parse(json.out);
  ASSERT_EQ(doc["items"].size(), 10u);
  double cost = 0;
  for (const auto& item : doc["items"]) {
    for (const char* key : {"name", "MATL", "HOURS", "COST", "WEIGHT"}) EXPECT_TRUE(item.contains(key)) << key;
    cost += item["COST"].get<double>();
  }
  EXPECT_NEAR(doc["total"]["COST"].get<double>(), cost, 1e-3 * cost);
  EXPECT_EQ(doc["items"][0]["name"], "AA");
}

class PriceCommandData : public DataFolder {};

TEST_F(PriceCommandData, AnIncompletePriceExitsOneWithTheThreeLines) {
  // A case whose condensers are 304 on the process side and 316 on the water side.
  const fs::path source = kSource / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET";
  InputScreen screen = NewCase();
  RecordingUi ui;
  ASSERT_TRUE(OpenCase(source, screen, ui));
  screen.lists[kProcessSideMaterial] = 1;
  screen.lists[kWaterSideMaterial] = 2;
  ASSERT_TRUE(WriteCase(dir / "MIXED.JET", screen, ui));
  const CliRun r = Kestrane(Pgm() + "price " + Quoted(dir / "MIXED.JET"));
  EXPECT_EQ(r.exit_code, 1);
  EXPECT_NE(r.out.find(kNotComplete), std::string::npos);
  for (std::string_view l : kPricingIncompleteLines) EXPECT_NE(r.out.find(l), std::string::npos) << l;
  const CliRun json = Kestrane(Pgm() + "price " + Quoted(dir / "MIXED.JET") + " --json");
  EXPECT_EQ(json.exit_code, 1);
  const auto doc = nlohmann::json::parse(json.out);
  EXPECT_FALSE(doc["complete"].get<bool>());
  EXPECT_EQ(doc["error"].size(), 3u);
}

TEST_F(PriceCommandData, ADamagedPriceFileTurnsPricingOffAndLeavesTheDesignAsItWas) {
  const std::string file = Quoted(kSource / "usrfiles" / "SOLVENT-LOADS-THREE-STAGE.JET");
  const CliRun before = Kestrane(Pgm() + "design " + file + " --json");
  ASSERT_EQ(before.exit_code, 0);
  WriteText(dir / "JETPRC.PRC", "DATA CSTC\r\n1,2,x\r\n");
  const CliRun after = Kestrane(Pgm() + "design " + file + " --json");
  EXPECT_EQ(after.exit_code, 0);
  EXPECT_EQ(after.out, before.out);
  EXPECT_TRUE(after.err.empty()) << after.err;  // no message
  const CliRun price = Kestrane(Pgm() + "price " + file);
  EXPECT_EQ(price.exit_code, 2);
  EXPECT_NE(price.err.find("Pricing is off"), std::string::npos);
  EXPECT_NE(price.err.find("JETPRC.PRC"), std::string::npos);
  const CliRun startup = Kestrane(Pgm() + "startup");
  EXPECT_NE(startup.out.find("Pricing:          off"), std::string::npos);
}

}  // namespace
}  // namespace kestrane::testing
