// Drawing sets: the file of each piece of equipment, its placeholders filled from designs of the examples in both
// units, the printed preliminary drawings in their cells of the page, and the tail leg print-out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <deque>
#include <map>
#include <set>

#include "case/jet_file.h"
#include "drawing_support.h"
#include "drawings/drawing_builder.h"
#include "drawings/drawing_sets.h"
#include "drawings/format_inches.h"
#include "drawings/preliminary_drawings.h"
#include "drawings/tail_leg_print.h"
#include "engine/design_run.h"
#include "sheet_support.h"
#include "test_support.h"

namespace kestrane {
namespace {

using testing::At;
using testing::kExampleCases;
using testing::kSheetDate;

const std::vector<std::string> kKeys = {
    "A?", "B?", "C?", "D?", "E?", "F?", "G?", "SUCTION?", "DISCHARGE?", "MOTIVE?",
    "NPT", "DESCRIPTION?", "VI?", "VO?", "WI?", "WO?", "CO?", "W?", "SLC?"};
const char* const kDrawingFiles[] = {"NJET.CAD",  "NBARO.CAD", "NLRVP.CAD", "VAEL.CAD",  "VAEM.CAD",  "VBEL.CAD",
                                     "VBEM.CAD",  "NAELO.CAD", "NAEMO.CAD", "NBELO.CAD", "NBEMO.CAD", "NAELE.CAD",
                                     "NAEME.CAD", "NBELE.CAD", "NBEME.CAD"};

// A drawing on sheet 1 (9.75 by 6.75 in) that holds every key twice, as dimension i and text i (from 1), and names
// its own file in the text after them; a frame of lines round it.
Drawing KeyDrawing(const std::string& file) {
  Drawing d = NewDrawing(1, 1.0f, 0.125f, 0);
  AddBox(d, 0.25f, 0.25f, 9.5f, 6.5f);
  for (size_t i = 0; i < kKeys.size(); ++i) {
    const float y = 0.3f * static_cast<float>(i + 1);
    AddDimension(d, 0.5f, y, 3.0f, y, 1, kKeys[i], 1);
    AddText(d, 5.0f, y, 0.1f, 1, kKeys[i]);
  }
  AddText(d, 5.0f, 6.3f, 0.1f, 1, file);
  return d;
}

// Length forms worked out here from the rules: feet and inches (feet from 24 in, never with `nofeet`), and whole
// millimetres of the single float product, half to even.
std::string Inches(float value, int16_t nofeet) {
  int16_t format = 3;
  return FormatInches(value, format, nofeet);
}
std::string Dimension(float value, bool metric) {
  if (!metric) return Inches(value, 0);
  const float mm = value * 25.4f;
  return std::to_string(static_cast<int>(std::nearbyint(mm))) + "mm";
}

class DrawingSets : public testing::ScratchFolder {
 protected:
  void SetUp() override {
    ScratchFolder::SetUp();
    for (const char* file : kDrawingFiles) WriteDrawing(KeyDrawing(file), dir / file);
    data = testing::ShippedData();
    data.paths.pgmfiles = dir;
    screen = NewCase();
  }

  void Design(const std::string& example) {
    dc = DesignCase{};
    screen = NewCase();
    ASSERT_TRUE(OpenCase(kExampleCases / example, screen, ui));
    ASSERT_EQ(RunDesign(ctx, screen).input_error, 0);
    ui.notices.clear();
  }

  void SetMetric(bool metric) { screen.OptionUnits = {static_cast<int16_t>(!metric), static_cast<int16_t>(metric)}; }

  // What the drawing shows for key `key`: the dimension and the text that held it, which must agree.
  std::string Shown(const std::string& key) const {
    const size_t i = static_cast<size_t>(std::find(kKeys.begin(), kKeys.end(), key) - kKeys.begin()) + 1;
    const std::string label = Trim(d.Dimensions(static_cast<int>(i)).label);
    EXPECT_EQ(label, Trim(d.Texts(static_cast<int>(i)).text)) << key;
    return label;
  }
  // The file the drawing came from.
  std::string File() const { return Trim(d.Texts(static_cast<int>(kKeys.size()) + 1).text); }

  AppData data;
  DesignCase dc;
  InputScreen screen;
  float pinterfix = 0;
  RecordingUi ui;
  DesignContext ctx{dc, data, screen, pinterfix, ui};
  Drawing d;
};

// --- The file of a surface condenser --------------------------------------------------------------------------------

TEST_F(DrawingSets, TheModelCodeIsShellAndTubeLengthWithTheHeadLetters) {
  dc.CND(kCondAC, kCndOD) = 12;
  dc.CND(kCondAC, kCndTL) = 96;
  screen.lists[kInletHead] = 0;
  screen.lists[kReturnHead] = 0;
  EXPECT_EQ(ModelCode(ctx, kCondAC), "12x96BEM");
  screen.lists[kInletHead] = 1;
  screen.lists[kReturnHead] = 1;
  EXPECT_EQ(ModelCode(ctx, kCondAC), "12x96AEL");
}

TEST_F(DrawingSets, TheCondenserFileFollowsArrangementHeadsAndOddOrEvenPasses) {
  struct Choice {
    int16_t cndts;
    float passes;
    int16_t inlet_a, return_l;
    const char* file;
  };
  const Choice choices[] = {
      {1, 1, 1, 1, "VAEL.CAD"},  {1, 2, 1, 0, "VAEM.CAD"},  {1, 1, 0, 1, "VBEL.CAD"},  {1, 2, 0, 0, "VBEM.CAD"},
      {0, 1, 1, 1, "NAELO.CAD"}, {0, 3, 1, 0, "NAEMO.CAD"}, {0, 1, 0, 1, "NBELO.CAD"}, {0, 1, 0, 0, "NBEMO.CAD"},
      {0, 2, 1, 1, "NAELE.CAD"}, {0, 4, 1, 0, "NAEME.CAD"}, {0, 2, 0, 1, "NBELE.CAD"}, {0, 2, 0, 0, "NBEME.CAD"},
      // A vertical condenser whatever its passes; passes are CInt, half to even: 2.5 is 2, 3.5 is 4.
      {1, 1, 0, 0, "VBEM.CAD"},  {1, 3, 1, 1, "VAEL.CAD"},  {0, 2.5f, 0, 0, "NBEME.CAD"}, {0, 3.5f, 0, 0, "NBEME.CAD"},
      {0, 1.4f, 0, 0, "NBEMO.CAD"},
  };
  dc.CND(kCondC1, kCndOD) = 8;
  dc.CND(kCondC1, kCndTL) = 72;
  for (const Choice& c : choices) {
    SCOPED_TRACE(c.file);
    dc.CNDTS = c.cndts;
    dc.CND(kCondC1, kCndPASS) = c.passes;
    screen.lists[kInletHead] = c.inlet_a;
    screen.lists[kReturnHead] = c.return_l;
    EXPECT_EQ(CondenserDrawingFile(ctx, kCondC1), c.file);
  }
}

// --- Placeholders ---------------------------------------------------------------------------------------------------

TEST_F(DrawingSets, EjectorLengthsShowInFeetAndInchesOrWholeMillimetresAndNozzlesAlwaysInInches) {
  dc.STG(1, kStgDIMA) = 38.625f;
  dc.STG(1, kStgDIMB) = 39.5f;
  dc.STG(1, kStgDIMC) = 2.5f;
  dc.STG(1, kStgDIAS) = 30;
  dc.STG(1, kStgDIAD) = 1.5f;
  dc.STG(1, kStgDIAM) = 2.0f;
  int16_t failed = -1;
  LoadJetDrawing(d, ctx, 1, false, "EJ-4", failed);
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(File(), "NJET.CAD");
  EXPECT_EQ(Shown("A?"), "3'-2 5/8\"");
  EXPECT_EQ(Shown("B?"), "3'-3 1/2\"");
  EXPECT_EQ(Shown("C?"), "2 1/2\"");
  EXPECT_EQ(Shown("SUCTION?"), "30\"");  // a nozzle never in feet
  EXPECT_EQ(Shown("DISCHARGE?"), "1 1/2\"");
  EXPECT_EQ(Shown("MOTIVE?"), "2\"");
  EXPECT_EQ(Shown("NPT"), "NPT");  // 2.0 in is still threaded
  EXPECT_EQ(Shown("DESCRIPTION?"), "EJ-4");
  EXPECT_EQ(Shown("D?"), "D?");

  // 39.5 x 25.4 = 1003.3; 2.5 x 25.4 as a single is 63.5 exactly, which rounds to 64 (as a double it would be 63).
  dc.STG(1, kStgDIMA) = 7.5f;  // 190.5 as a single: half to even gives 190
  dc.STG(1, kStgDIAM) = 2.5f;
  LoadJetDrawing(d, ctx, 1, true, "EJ-4", failed);
  EXPECT_EQ(Shown("A?"), "190mm");
  EXPECT_EQ(Shown("B?"), "1003mm");
  EXPECT_EQ(Shown("C?"), "64mm");
  EXPECT_EQ(Shown("DISCHARGE?"), "1 1/2\"");
  EXPECT_EQ(Shown("MOTIVE?"), "2 1/2\"");
  EXPECT_EQ(Shown("NPT"), "150#RF");
}

TEST_F(DrawingSets, BothWaterNozzlesShowOneSizeAndALargeCondensateOutletIsFlanged) {
  for (int row = 17; row <= 27; ++row) dc.CND(kCondC2, row) = static_cast<float>(row);
  dc.CND(kCondC2, 26) = 2.0f;  // condensate outlet
  dc.CND(kCondC2, kCndOD) = 10;
  dc.CND(kCondC2, kCndTL) = 10;
  dc.CND(kCondC2, kCndPASS) = 2;
  SetMetric(true);  // taken from the input screen
  int16_t failed = -1;
  LoadCondenserDrawing(d, ctx, kCondC2, failed);
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(File(), "NBEME.CAD");
  EXPECT_EQ(Shown("A?"), "432mm");  // 17 x 25.4 = 431.8
  EXPECT_EQ(Shown("G?"), "584mm");  // 23 x 25.4 = 584.2
  EXPECT_EQ(Shown("VI?"), "24\"");
  EXPECT_EQ(Shown("VO?"), "25\"");
  EXPECT_EQ(Shown("WI?"), "27\"");
  EXPECT_EQ(Shown("WO?"), "27\"");
  EXPECT_EQ(Shown("CO?"), "2\"");
  EXPECT_EQ(Shown("NPT"), "NPT");
  EXPECT_EQ(Shown("DESCRIPTION?"), "254x3048BEM");  // the metric model text
  EXPECT_EQ(Shown("SUCTION?"), "SUCTION?");

  dc.CND(kCondC2, 26) = 2.5f;
  SetMetric(false);
  LoadCondenserDrawing(d, ctx, kCondC2, failed);
  EXPECT_EQ(Shown("A?"), "17\"");
  EXPECT_EQ(Shown("G?"), "23\"");
  EXPECT_EQ(Shown("CO?"), "2 1/2\"");
  EXPECT_EQ(Shown("NPT"), "150#RF");
  EXPECT_EQ(Shown("DESCRIPTION?"), "10x10BEM");
}

TEST_F(DrawingSets, AFailedLoadIsToldAndTheSubstitutionsStillRunOnWhatTheTablesHold) {
  int16_t failed = 0;
  LoadDrawing(d, dir / "NBARO.CAD", 0, failed, ui);
  std::filesystem::remove(dir / "NJET.CAD");
  dc.STG(2, kStgDIMA) = 36;
  LoadJetDrawing(d, ctx, 2, false, "EJ-2", failed);
  EXPECT_EQ(failed, 1);
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0].rfind("Drawing file read failed...ERROR: ", 0), 0u) << ui.notices[0];
  EXPECT_NE(ui.notices[0].find((dir / "NJET.CAD").string()), std::string::npos);
  EXPECT_EQ(File(), "NBARO.CAD");
  EXPECT_EQ(Shown("A?"), "3'-0\"");
  EXPECT_EQ(Shown("DESCRIPTION?"), "EJ-2");
}

// The form each key shows after the slot's loader ran; the keys the equipment's drawing has not stay as drawn.
std::map<std::string, std::string> Expected(const DesignContext& ctx, const EquipmentSlot& slot, bool metric) {
  std::map<std::string, std::string> e;
  for (const std::string& key : kKeys) e[key] = key;
  const DesignCase& dc = ctx.dc;
  const auto stg = [&](int row) { return dc.STG(slot.index, row); };
  const auto cnd = [&](int row) { return dc.CND(slot.index, row); };
  switch (slot.kind) {
    case EquipmentSlot::kEjector:
      e["A?"] = Dimension(stg(8), metric);
      e["B?"] = Dimension(stg(9), metric);
      e["C?"] = Dimension(stg(10), metric);
      e["SUCTION?"] = Inches(stg(45), 1);
      e["DISCHARGE?"] = Inches(stg(47), 1);
      e["MOTIVE?"] = Inches(stg(53), 1);
      if (stg(53) > 2.0f) e["NPT"] = "150#RF";
      e["DESCRIPTION?"] = slot.caption;
      break;
    case EquipmentSlot::kSurface:
      for (int k = 0; k < 7; ++k) e[std::string(1, static_cast<char>('A' + k)) + "?"] = Dimension(cnd(17 + k), metric);
      e["VI?"] = Inches(cnd(24), 1);
      e["VO?"] = Inches(cnd(25), 1);
      e["WI?"] = Inches(cnd(27), 1);
      e["WO?"] = Inches(cnd(27), 1);
      e["CO?"] = Inches(cnd(26), 1);
      if (cnd(26) > 2.0f) e["NPT"] = "150#RF";
      e["DESCRIPTION?"] = slot.caption;
      break;
    case EquipmentSlot::kBarometric:
      e["A?"] = Dimension(cnd(152), metric);
      e["B?"] = Dimension(cnd(153), metric);
      e["C?"] = Dimension(cnd(154), metric);
      e["D?"] = Dimension(cnd(155), metric);
      e["F?"] = Dimension(cnd(157), metric);
      e["G?"] = Dimension(cnd(158), metric);
      e["VI?"] = Inches(cnd(99), 1);
      e["VO?"] = Inches(cnd(100), 1);
      e["WI?"] = Inches(cnd(101), 1);
      e["WO?"] = Inches(cnd(102), 1);
      e["DESCRIPTION?"] = Trim(GeneralText(cnd(79))) + " MM";
      break;
    case EquipmentSlot::kPump:
      // The catalogue holds no outlines: they read as 0.
      e["A?"] = e["C?"] = e["W?"] = metric ? "0mm" : "\"";
      e["SLC?"] = "\"";
      e["VI?"] = Inches(stg(45), 0);
      e["VO?"] = Inches(stg(47), 0);
      e["DESCRIPTION?"] = slot.caption;
      break;
  }
  return e;
}

TEST_F(DrawingSets, EverySlotOfTheExamplesShowsItsDesignValuesInBothUnits) {
  std::set<int> kinds;
  for (const char* example :
       {"AUTOMATIC-SURFACE.JET", "FOUR-STAGE-SURFACE.JET", "LRVP-ONLY-50HZ.JET", "METRIC-TWO-STAGE.JET",
        "ONE-STAGE-NO-CONDENSERS.JET", "SOLVENT-LOADS-THREE-STAGE.JET", "THREE-STAGE-DIRECT-CONTACT.JET",
        "TWO-STAGE-LRVP.JET", "TWO-STAGE-PRECONDENSER.JET", "TWO-STAGE-SURFACE-TUBE-SIDE.JET"}) {
    Design(example);
    for (bool metric : {false, true}) {
      SetMetric(metric);
      for (const EquipmentSlot& slot : EquipmentSlots(ctx, metric)) {
        SCOPED_TRACE(std::string(example) + (metric ? " metric " : " ") + slot.caption);
        d = Drawing{};
        int16_t failed = -1;
        LoadSlotDrawing(d, ctx, slot, metric, failed);
        EXPECT_EQ(failed, 0);
        kinds.insert(slot.kind);
        const char* fixed[] = {"", "NJET.CAD", nullptr, "NBARO.CAD", "NLRVP.CAD"};
        EXPECT_EQ(File(), slot.kind == EquipmentSlot::kSurface ? CondenserDrawingFile(ctx, slot.index)
                                                                : std::string(fixed[slot.kind]));
        for (const auto& [key, text] : Expected(ctx, slot, metric)) {
          EXPECT_EQ(Shown(key), text) << key;
        }
      }
    }
  }
  EXPECT_EQ(kinds, (std::set<int>{1, 2, 3, 4}));
  EXPECT_TRUE(ui.notices.empty());
}

TEST_F(DrawingSets, TheBarometricDrawingLeavesE) {
  Design("THREE-STAGE-DIRECT-CONTACT.JET");
  const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, false);
  const auto baro = std::find_if(slots.begin(), slots.end(),
                                 [](const EquipmentSlot& s) { return s.kind == EquipmentSlot::kBarometric; });
  ASSERT_NE(baro, slots.end());
  dc.CND(baro->index, kCndBAROE) = 40;
  int16_t failed = 0;
  LoadBarometricDrawing(d, ctx, baro->index, failed);
  EXPECT_EQ(Shown("E?"), "E?");
  EXPECT_NE(Shown("F?"), "F?");
}

// --- The printed preliminary drawings -------------------------------------------------------------------------------

// The user scale and draw width of the page when a box (a sheet's outline) was drawn, and its colour.
struct CellBox {
  float left, top, width, height;
  int16_t draw_width;
  SurfaceColour colour;
};
class PageSurface : public testing::RecordingSurface {
 public:
  PageSurface() : RecordingSurface(8.5f, 11.0f) {}
  void Box(float x1, float y1, float x2, float y2, SurfaceColour colour) override {
    cells.push_back({ScaleLeft, ScaleTop, ScaleWidth, ScaleHeight, DrawWidth, colour});
    RecordingSurface::Box(x1, y1, x2, y2, colour);
  }
  std::vector<CellBox> cells;
};

// A printer whose pages are drawing surfaces, a new one after each page ends.
class DrawingPrinter : public testing::RecordingPrinter {
 public:
  DrawingSurface* DrawingTarget() override { return &surfaces.back(); }
  std::deque<PageSurface> surfaces = std::deque<PageSurface>(1);

 protected:
  void EndPage(float bottom) override {
    RecordingPrinter::EndPage(bottom);
    surfaces.emplace_back();
  }
};

// The page window of the cell of slot e, for a drawing on sheet 1 (9.75 by 6.75 in) and a Letter page in portrait:
// cells of aspect r = 4.25 / (11/3) = 1.1590909; the sheet widened to w = 9.75, h = w/r = 8.4117647 about its
// centre (4.875, 3.375), so left 0 and top 7.5808824. The page spans 2w by 3h; a cell in column 2 moves the window
// left by w, a cell in row r below the top lowers it by (3 - r)h, less the heading's room 0.1h(r - 1).
struct CellWindow {
  float left, top;
};
const CellWindow kCellWindows[] = {
    {0, 9.2632353f},       // 1: column 1, row 3: 7.5808824 + 0.2 x 8.4117647
    {-9.75f, 9.2632353f},  // 2: column 2, row 3
    {0, 16.833824f},       // 3: column 1, row 2: 8.4117647 + 7.5808824 + 0.1 x 8.4117647
    {-9.75f, 16.833824f},  // 4: column 2, row 2
    {0, 24.404412f},       // 5: column 1, row 1: 2 x 8.4117647 + 7.5808824
    {-9.75f, 24.404412f},  // 6: column 2, row 1
};
constexpr float kPageWidth = 19.5f;         // 2w
constexpr float kPageHeight = -25.235294f;  // -3h

class PreliminaryDrawings : public DrawingSets {
 protected:
  void SetUp() override {
    DrawingSets::SetUp();
    d.font = &font;
    d.Target = &screen_surface;
  }
  void DesignWithHeading(const std::string& example) {
    Design(example);
    screen.txtHeadingInput = {"V-101", "Overhead vacuum", "JQP"};
  }
  void ExpectCell(const CellBox& box, size_t e) const {
    SCOPED_TRACE("cell of slot " + std::to_string(e));
    const CellWindow& w = kCellWindows[(e - 1) % 6];
    EXPECT_NEAR(box.left, w.left, 1e-4);
    EXPECT_NEAR(box.top, w.top, 1e-4);
    EXPECT_NEAR(box.width, kPageWidth, 1e-4);
    EXPECT_NEAR(box.height, kPageHeight, 1e-4);
    EXPECT_EQ(box.draw_width, 3);
    EXPECT_EQ(box.colour, QBColor(0));
  }
  void ExpectHeading(const std::vector<testing::PrintedLine>& printed, size_t first) const {
    ASSERT_GE(printed.size(), first + 3);
    EXPECT_EQ(printed[first].text, " " + std::string(32, ' ') + "TESSEL CORPORATION" + std::string(31, ' ') +
                                       "Preliminary Drawings");
    const std::string& item = printed[first + 1].text;
    ASSERT_EQ(item.size(), 70u);
    EXPECT_EQ(At(item, 1, 12), "Item: V-101 ");
    EXPECT_EQ(At(item, 61, 6), "Date: ");
    // The date starts at 67 of a line of 70, which never grows: its first four characters show.
    EXPECT_EQ(At(item, 67, 4), "Nov ");
    const std::string& description = printed[first + 2].text;
    ASSERT_EQ(description.size(), 70u);
    EXPECT_EQ(At(description, 1, 29), "Description: Overhead vacuum ");
    // The engineer would start at 71, past the line's end.
    EXPECT_EQ(At(description, 61, 10), "Engineer: ");
    EXPECT_EQ(description.find("JQP"), std::string::npos);
  }

  testing::RecordingSurface screen_surface;
  DrawFont font = testing::CodeFont();
};

TEST_F(PreliminaryDrawings, SixSlotsFillOnePageInTheirCellsDrawnInBlack) {
  DesignWithHeading("SOLVENT-LOADS-THREE-STAGE.JET");
  ASSERT_EQ(EquipmentSlots(ctx, false).size(), 6u);
  DrawingPrinter printer;
  PrintDrawings(printer, d, ctx, false, kSheetDate);
  EXPECT_EQ(printer.ended, 1);
  ASSERT_EQ(printer.printed.size(), 3u);
  ExpectHeading(printer.printed, 0);
  const PageSurface& page = printer.surfaces[0];
  ASSERT_EQ(page.cells.size(), 6u);
  for (size_t e = 1; e <= 6; ++e) ExpectCell(page.cells[e - 1], e);
  // Frame lines, texts and dimensions all print black.
  ASSERT_GT(page.lines.size(), 6u * 4u);
  for (const auto& line : page.lines) EXPECT_EQ(line.colour, 0);
  EXPECT_TRUE(ui.notices.empty());
  // The printer's page is back in twips, the drawing back on its screen.
  EXPECT_EQ(printer.surfaces.back().ScaleHeight, 15120.0f);
  EXPECT_EQ(printer.surfaces.back().DrawWidth, 1);
  EXPECT_EQ(printer.scale_mode, 1);
  EXPECT_EQ(d.Target, &screen_surface);
  EXPECT_EQ(d.Printing, 0);
}

TEST_F(PreliminaryDrawings, ASeventhSlotGoesOnASecondPageWithItsOwnHeadingAtTheTopLeft) {
  DesignWithHeading("FOUR-STAGE-SURFACE.JET");
  ASSERT_EQ(EquipmentSlots(ctx, true).size(), 7u);
  SetMetric(true);
  DrawingPrinter printer;
  PrintDrawings(printer, d, ctx, true, kSheetDate);
  EXPECT_EQ(printer.ended, 2);
  ASSERT_EQ(printer.printed.size(), 6u);
  ExpectHeading(printer.printed, 0);
  ExpectHeading(printer.printed, 3);
  EXPECT_EQ(printer.printed[3].page, 1);
  ASSERT_EQ(printer.surfaces.size(), 3u);
  ASSERT_EQ(printer.surfaces[0].cells.size(), 6u);
  ASSERT_EQ(printer.surfaces[1].cells.size(), 1u);
  ExpectCell(printer.surfaces[1].cells[0], 7);
  // The last drawing loaded is the seventh slot's, the after condenser in metric units.
  const EquipmentSlot last = EquipmentSlots(ctx, true).back();
  EXPECT_EQ(Trim(d.Texts(12).text), last.caption);
  EXPECT_EQ(d.Target, &screen_surface);
}

TEST_F(PreliminaryDrawings, APrinterOfTextAloneGetsTheHeadingsAndTheDrawingKeepsItsScreen) {
  DesignWithHeading("FOUR-STAGE-SURFACE.JET");
  testing::RecordingPrinter printer;
  PrintDrawings(printer, d, ctx, false, kSheetDate);
  EXPECT_EQ(printer.ended, 2);
  EXPECT_EQ(printer.printed.size(), 6u);
  EXPECT_EQ(d.Target, &screen_surface);
  EXPECT_TRUE(screen_surface.lines.empty());
}

// --- The tail leg print-out -----------------------------------------------------------------------------------------

class TailLegPrint : public testing::ScratchFolder {
 protected:
  // A drawing on sheet 1 with the six placeholders as texts and one row in each table, each table's rows on a layer
  // of its own colour (1 lines ... 6 angles), so that the colours drawn tell the tables' order.
  void SetUp() override {
    ScratchFolder::SetUp();
    Drawing k = NewDrawing(1, 1.0f, 0.125f, 0);
    k.UseLayerColours = 1;
    for (int layer = 1; layer <= 6; ++layer) k.layers[static_cast<size_t>(layer)].colour = layer;
    AddLine(k, 1, 1, 8, 1, 1, 1);
    AddArc(k, 5, 3, 1, 0, 180, 1, 2);
    AddLeader(k, 2, 2, 3, 3, true);
    k.Leaders(1).layer = 3;
    for (int i = 1; i <= 6; ++i) {
      AddText(k, 0.5f, 6.5f - 0.3f * static_cast<float>(i), 0.1f, 1, "?" + std::to_string(i));
      k.Texts(i).layer = 4;
    }
    AddDimension(k, 1, 5, 4, 5, 1, "X", 1);
    k.Dimensions(1).layer = 5;
    AddAngle(k, 7, 4, 1, 0, 90, 0, "");
    k.Angles(1).layer = 6;
    WriteDrawing(k, dir / "KSII.CAD");
    d.font = &font;
  }
  void Print(const std::filesystem::path& path) {
    PrintTailLeg(printer, d, path, {" 760 ", "0", "1"}, {"33.9 feet", "10.3 meters"}, kSheetDate, ui);
  }

  Drawing d;
  DrawFont font = testing::CodeFont();
  DrawingPrinter printer;
  RecordingUi ui;
};

TEST_F(TailLegPrint, ThePlaceholdersTakeTheValuesTheAnswersAndTheDate) {
  Print(dir / "KSII.CAD");
  const auto text = [&](int i) { return RTrim(d.Texts(i).text); };
  EXPECT_EQ(text(1), " Condensate Receiver Pressure: 760 mmHgA");
  EXPECT_EQ(text(2), " Condenser Pressure:           0 mmHgA");
  EXPECT_EQ(text(3), " Condensate specific gravity:  1");
  EXPECT_EQ(text(4), "33.9 feet");
  EXPECT_EQ(text(5), "10.3 meters");
  EXPECT_EQ(text(6), "Nov 05, 2026");
}

TEST_F(TailLegPrint, TheSheetIsFittedToThePageAndTheTablesDrawnLinesArcsLeadersTextsDimensionsAngles) {
  printer.SetCurrentY(2);
  Print(dir / "KSII.CAD");
  const PageSurface& page = printer.surfaces[0];
  // Sheet 1, 9.75 by 6.75, on a page of aspect 8.5/11: the width fills it, the height grows to 12.617647 about 3.375.
  EXPECT_FLOAT_EQ(page.ScaleLeft, 0);
  EXPECT_FLOAT_EQ(page.ScaleWidth, 9.75f);
  EXPECT_NEAR(page.ScaleTop, 9.6838235f, 1e-4);
  EXPECT_NEAR(page.ScaleHeight, -12.617647f, 1e-4);
  std::vector<SurfaceColour> order;
  for (const auto& line : page.lines) {
    if (order.empty() || order.back() != line.colour) order.push_back(line.colour);
  }
  // On paper lines, texts and dimensions print black (0); arcs, leaders and angles keep their layer's colour.
  EXPECT_EQ(order, (std::vector<SurfaceColour>{0, 2, 3, 0, 6}));
  EXPECT_TRUE(page.boxes.empty());  // no sheet edge
  // The page was ended: the printer's position is back at the top.
  EXPECT_EQ(printer.CurrentY(), 0);
}

TEST_F(TailLegPrint, ADrawingThatCannotBeReadIsToldAndNothingPrints) {
  printer.SetCurrentY(2);
  Print(dir / "MISSING.CAD");
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0].rfind("Drawing file read failed...ERROR: ", 0), 0u);
  EXPECT_TRUE(printer.surfaces[0].lines.empty());
  EXPECT_EQ(printer.CurrentY(), 2);
}

}  // namespace
}  // namespace kestrane
