// The drawing files the program ships: rebuilt byte for byte from their authored source, each equipment drawing
// holding exactly the placeholders its loader fills, and the test sheet holding every kind of row the engine draws.
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <set>
#include <string>

#include "design_support.h"
#include "drawings/drawing.h"
#include "drawings/drawing_sets.h"
#include "engine/results.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace kestrane {
namespace {

const fs::path kShipped = fs::path(KESTRANE_SOURCE_DIR) / "pgmfiles";

std::string Trimmed(const std::string& s) {
  const size_t first = s.find_first_not_of(' '), last = s.find_last_not_of(' ');
  return first == std::string::npos ? "" : s.substr(first, last - first + 1);
}

Drawing Loaded(const std::string& name) {
  Drawing d;
  RecordingUi ui;
  int16_t failed = 0;
  LoadDrawing(d, kShipped / name, 0, failed, ui);
  EXPECT_EQ(failed, 0) << name << ": " << (ui.notices.empty() ? "" : ui.notices.front());
  return d;
}

// The keys a loader can fill: trimmed dimension labels and texts ending in "?", and the fixed texts that are
// replaced too ("NPT" and the tail leg sheet's "?1" to "?6"), each as often as it stands.
std::multiset<std::string> PlaceholderKeys(const Drawing& d) {
  std::multiset<std::string> keys;
  auto take = [&keys](const std::string& field) {
    const std::string t = Trimmed(field);
    const bool numbered = t.size() == 2 && t[0] == '?' && t[1] >= '1' && t[1] <= '6';
    if ((!t.empty() && t.back() == '?') || t == "NPT" || numbered) keys.insert(t);
  };
  for (int i = 1; i <= d.Dimensions.count; ++i) take(d.Dimensions(i).label);
  for (int i = 1; i <= d.Texts.count; ++i) take(d.Texts(i).text);
  return keys;
}

// The placeholders of each equipment drawing, as its loader fills them.
std::map<std::string, std::multiset<std::string>> ExpectedKeys() {
  std::map<std::string, std::multiset<std::string>> files = {
      {"NJET.CAD", {"A?", "B?", "C?", "SUCTION?", "DISCHARGE?", "MOTIVE?", "NPT", "DESCRIPTION?"}},
      {"NBARO.CAD", {"A?", "B?", "C?", "D?", "F?", "G?", "VI?", "VO?", "WI?", "WO?", "DESCRIPTION?"}},
      {"NLRVP.CAD", {"A?", "C?", "W?", "SLC?", "VI?", "VO?", "DESCRIPTION?"}},
      {"KSII.CAD", {"?1", "?2", "?3", "?4", "?5", "?6"}},
  };
  for (const std::string name : {"VAEL", "VAEM", "VBEL", "VBEM", "NAELO", "NAEMO", "NBELO", "NBEMO", "NAELE",
                                 "NAEME", "NBELE", "NBEME"})
    files[name + ".CAD"] = {"A?", "B?", "C?", "D?", "E?", "F?", "G?", "VI?", "VO?", "WI?", "WO?", "CO?", "NPT",
                            "DESCRIPTION?"};
  return files;
}

// The x of the text that is exactly `key`.
float TextX(const Drawing& d, const std::string& key) {
  for (int i = 1; i <= d.Texts.count; ++i)
    if (Trimmed(d.Texts(i).text) == key) return d.Texts(i).x;
  ADD_FAILURE() << "no text " << key;
  return 0;
}

TEST(DrawingFiles, TheGeneratorRebuildsEveryShippedDrawingByteForByte) {
  const fs::path out = fs::temp_directory_path() / ("kestrane_drawings_" + std::to_string(::getpid()));
  fs::remove_all(out);
  fs::create_directories(out);
  const fs::path tool = fs::path(KESTRANE_CLI).parent_path() / "make_drawings";
  ASSERT_EQ(testing::Run(testing::Quoted(tool) + " " + testing::Quoted(out)).exit_code, 0);
  int compared = 0;
  for (const auto& entry : fs::directory_iterator(out)) {
    SCOPED_TRACE(entry.path().filename().string());
    ASSERT_TRUE(fs::exists(kShipped / entry.path().filename())) << "a drawing the program does not ship";
    EXPECT_EQ(testing::ReadBytes(entry.path()), testing::ReadBytes(kShipped / entry.path().filename()));
    ++compared;
  }
  EXPECT_GE(compared, 1);
  fs::remove_all(out);
}

TEST(DrawingFiles, EachEquipmentDrawingHoldsExactlyThePlaceholdersItsLoaderFills) {
  for (const auto& [name, keys] : ExpectedKeys()) {
    SCOPED_TRACE(name);
    const Drawing d = Loaded(name);
    EXPECT_EQ(PlaceholderKeys(d), keys);
    // A dimension placeholder shows the design's value alone, not the length of its drawn line.
    for (int i = 1; i <= d.Dimensions.count; ++i) {
      if (Trimmed(d.Dimensions(i).label).back() == '?') {
        EXPECT_EQ(d.Dimensions(i).textonly, 1) << d.Dimensions(i).label;
      }
    }
  }
}

TEST(DrawingFiles, EveryShippedDrawingLoadsAndTheEquipmentDrawingsPrintReadably) {
  int loaded = 0;
  for (const auto& entry : fs::directory_iterator(kShipped)) {
    if (entry.path().extension() != ".CAD") continue;
    const std::string name = entry.path().filename().string();
    SCOPED_TRACE(name);
    const Drawing d = Loaded(name);
    ++loaded;
    if (name == "TESTSHEET.CAD") continue;
    EXPECT_TRUE(ExpectedKeys().count(name)) << "a drawing no loader opens";
    // One small sheet at full scale, the maker in the title block, and texts of 0.10 to 0.14 in, which stay
    // legible when a drawing prints in a sixth of a page.
    EXPECT_EQ(d.SheetNo, 1);
    EXPECT_EQ(d.DrawScale, 1.0f);
    EXPECT_GE(d.TextHeight, 0.1f);
    EXPECT_LE(d.TextHeight, 0.14f);
    bool maker = false;
    for (int i = 1; i <= d.Texts.count; ++i) {
      maker = maker || Trimmed(d.Texts(i).text) == "TESSEL CORPORATION";
      EXPECT_GE(d.Texts(i).height, 0.1f) << d.Texts(i).text;
      EXPECT_LE(d.Texts(i).height, 0.14f) << d.Texts(i).text;
    }
    EXPECT_TRUE(maker);
  }
  EXPECT_EQ(loaded, 17);
}

TEST(DrawingFiles, HorizontalCondensersTakeTheWaterOutAtTheInletHeadForEvenPassesAndAtTheReturnHeadForOdd) {
  for (const std::string type : {"NAEL", "NAEM", "NBEL", "NBEM"}) {
    SCOPED_TRACE(type);
    const Drawing even = Loaded(type + "E.CAD"), odd = Loaded(type + "O.CAD");
    // The inlet head lies left of the vapour inlet, the return head right of the vapour outlet.
    EXPECT_LT(TextX(even, "WI?"), TextX(even, "VI?"));
    EXPECT_LT(TextX(even, "WO?"), TextX(even, "VI?"));
    EXPECT_LT(TextX(odd, "WI?"), TextX(odd, "VI?"));
    EXPECT_GT(TextX(odd, "WO?"), TextX(odd, "VO?"));
  }
}

TEST(DrawingFiles, TheTestSheetHoldsEveryKindOfRow) {
  Drawing d;
  RecordingUi ui;
  int16_t failed = 0;
  LoadDrawing(d, kShipped / "TESTSHEET.CAD", 0, failed, ui);
  ASSERT_EQ(failed, 0) << (ui.notices.empty() ? "" : ui.notices.front());
  std::set<int> pens, justify, kinds, angle_kinds, layer_states, text_angles;
  for (int i = 1; i <= d.Lines.count; ++i) pens.insert(d.Lines(i).pen);
  for (int i = 1; i <= d.Texts.count; ++i) {
    justify.insert(d.Texts(i).justify);
    text_angles.insert(static_cast<int>(d.Texts(i).angle));
  }
  for (int i = 1; i <= d.Dimensions.count; ++i) kinds.insert(d.Dimensions(i).kind);
  for (int i = 1; i <= d.Angles.count; ++i) angle_kinds.insert(d.Angles(i).kind);
  for (int i = 1; i <= d.Lines.count; ++i) layer_states.insert(d.layers.at(static_cast<size_t>(d.Lines(i).layer)).state);
  EXPECT_EQ(pens, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8}));
  EXPECT_EQ(justify, (std::set<int>{1, 2, 3, 4, 5, 6, 7, 8, 9}));
  EXPECT_EQ(kinds, (std::set<int>{1, 2, 3, 4, 5, 6, 7}));
  EXPECT_EQ(angle_kinds, (std::set<int>{0, 1}));
  EXPECT_EQ(layer_states, (std::set<int>{0, 1, 2}));
  EXPECT_GE(text_angles.size(), 8u);
  EXPECT_GT(d.Arcs.count, 0);
  EXPECT_GT(d.Leaders.count, 0);
}

}  // namespace
}  // namespace kestrane

namespace kestrane {
namespace {

class ShippedDrawingsOfDesigns : public testing::ExampleDesign {};

// Every drawing that a designed example opens, from the files the program ships: no placeholder is left, in
// either unit system.
TEST_F(ShippedDrawingsOfDesigns, EveryPlaceholderOfEveryDrawingADesignOpensIsFilled) {
  AppData data = testing::ShippedData();
  data.paths.pgmfiles = kShipped;
  int drawings = 0;
  for (const auto& entry : fs::directory_iterator(fs::path(KESTRANE_SOURCE_DIR) / "usrfiles")) {
    if (entry.path().extension() != ".JET" || entry.path().filename() == "LRVP-BEYOND-LIMITS.JET") continue;
    SCOPED_TRACE(entry.path().filename().string());
    DesignExample(entry.path().filename().string());
    const DesignContext shipped{dc, data, screen, pinterfix, ui};
    for (bool metric : {false, true}) {
      for (const EquipmentSlot& slot : EquipmentSlots(shipped, metric)) {
        Drawing d;
        int16_t failed = 0;
        LoadSlotDrawing(d, shipped, slot, metric, failed);
        ASSERT_EQ(failed, 0) << slot.caption;
        ++drawings;
        for (int i = 1; i <= d.Texts.count; ++i) {
          EXPECT_EQ(Trim(d.Texts(i).text).find('?'), std::string::npos) << slot.caption << ": " << d.Texts(i).text;
        }
        for (int i = 1; i <= d.Dimensions.count; ++i) {
          EXPECT_EQ(Trim(d.Dimensions(i).label).find('?'), std::string::npos) << slot.caption;
        }
      }
    }
  }
  EXPECT_GT(drawings, 40);
}

}  // namespace
}  // namespace kestrane
