// The drawing files the program ships: rebuilt byte for byte from their authored source, and the test sheet
// holding every kind of row the engine draws.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "drawings/drawing.h"
#include "test_support.h"

namespace fs = std::filesystem;

namespace kestrane {
namespace {

const fs::path kShipped = fs::path(KESTRANE_SOURCE_DIR) / "pgmfiles";

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
