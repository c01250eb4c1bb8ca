// Drawing files: the .CAD reader and its failure messages, the writer, the stroke font and placeholders.
#include <gtest/gtest.h>

#include "drawing_support.h"
#include "properties/list_input.h"
#include "test_support.h"

namespace kestrane {
namespace {

using testing::ReadBytes;
using testing::ScratchFolder;
using testing::WriteBytes;

// 63 layer rows: layer 5 dimmed in red, layer 6 hidden, the rest visible in white.
std::string LayerRows() {
  std::string rows;
  for (int i = 1; i <= 63; ++i) {
    rows += i == 5 ? "1, 255\n" : i == 6 ? "2,0\n" : "0,16777215\n";
    rows += "Layer name, with a comma\n";
  }
  return rows;
}

// A small drawing: two lines (the second's fields over two lines), an arc, a leader, a text, a dimension and an
// angle; the slant stored as 0.
std::string SmallDrawing() {
  return "1, 3, 2.0, 0,0,0,0, 0.25\n"
         "2,1,1,1,1,1,\n"
         "1, 0, 1, 0, 2\n"
         "First title\n"
         "Second title\n" +
         LayerRows() +
         "1,2,3,4,5,6,1,1,1\n"
         "0.5, -0.5, 1E-3,\n"
         "1.25,0,0,2,5,0\n"
         "0,0,1,1,0.5,0,90,2,1,1\n"
         "0,0,1,1,0,0,1,1,1\n"
         "0,0,1,2,0.125,0,15,1,1,1,0,500\n"
         "HELLO, WORLD\n"
         "0,0,10,0,2,1,1,3,0\n"
         "A?\n"
         "0,0,0,90,2,2,1,0,0\n"
         "ANGLE\n";
}

class DrawingFile : public ScratchFolder {
 protected:
  // Loads `text` as a .CAD file; the notices shown are kept in ui.
  int16_t Load(const std::string& text) {
    path = dir / "TEST.CAD";
    WriteBytes(path, text);
    int16_t failed = -5;
    LoadDrawing(d, path, 0, failed, ui);
    return failed;
  }
  std::string Message(int number, const std::string& text) const {
    return "Drawing file read failed...ERROR: " + std::to_string(number) + ">>>  " + text + " <<<   " +
           path.string();
  }
  Drawing d;
  RecordingUi ui;
  std::filesystem::path path;
};

TEST_F(DrawingFile, ReadsEveryTableOfAHandWrittenFile) {
  ASSERT_EQ(Load(SmallDrawing()), 0);
  EXPECT_TRUE(ui.notices.empty());
  EXPECT_EQ(d.SheetNo, 3);
  EXPECT_FLOAT_EQ(d.DrawScale, 2.0f);
  EXPECT_FLOAT_EQ(d.TextHeight, 0.25f);
  EXPECT_EQ(d.Lines.count, 2);
  EXPECT_EQ(d.Dimensions.count, 1);
  EXPECT_EQ(d.DimMode, 1);
  EXPECT_FLOAT_EQ(d.SlantAngle, 15.0f);  // a stored 0
  EXPECT_EQ(d.MmRound, 1);
  EXPECT_EQ(d.titles[0], "First title");
  EXPECT_EQ(d.layers[5].state, 1);
  EXPECT_EQ(d.layers[5].colour, 255);
  EXPECT_EQ(d.layers[6].state, 2);
  EXPECT_EQ(d.layers[63].colour, 0xFFFFFF);
  EXPECT_FLOAT_EQ(d.Lines(1).basey, 6.0f);
  EXPECT_FLOAT_EQ(d.Lines(2).x2, 0.001f);
  EXPECT_FLOAT_EQ(d.Lines(2).y2, 1.25f);
  EXPECT_EQ(d.Lines(2).pen, 2);
  EXPECT_EQ(d.Lines(2).layer, 5);
  EXPECT_FLOAT_EQ(d.Arcs(1).a1, 90.0f);
  EXPECT_EQ(d.Leaders(1).arrow, 1);
  EXPECT_FLOAT_EQ(d.Texts(1).slant, 15.0f);
  EXPECT_EQ(d.Texts(1).width, 500);
  EXPECT_EQ(d.Texts(1).text, "HELLO, WORLD" + std::string(68, ' '));
  EXPECT_EQ(d.Dimensions(1).kind, 1);
  EXPECT_EQ(d.Dimensions(1).format, 3);
  EXPECT_EQ(d.Dimensions(1).label, "A?" + std::string(30, ' '));
  EXPECT_FLOAT_EQ(d.Angles(1).radius, 2.0f);
  EXPECT_EQ(d.Angles(1).label.size(), 32u);
}

TEST_F(DrawingFile, LongTextsAndTitlesAreCut) {
  std::string text = SmallDrawing();
  text.replace(text.find("First title"), 11, std::string(70, 'T'));
  text.replace(text.find("HELLO, WORLD"), 12, std::string(90, 'H'));
  text.replace(text.find("A?"), 2, std::string(40, 'L'));
  ASSERT_EQ(Load(text), 0);
  EXPECT_EQ(d.titles[0], std::string(60, 'T'));
  EXPECT_EQ(d.Texts(1).text, std::string(80, 'H'));
  EXPECT_EQ(d.Dimensions(1).label, std::string(32, 'L'));
}

TEST_F(DrawingFile, AFormatOtherThanOneLeavesSheetTenAndScaleOne) {
  d.Lines.count = 7;
  std::string text = SmallDrawing();
  text[0] = '2';
  EXPECT_EQ(Load(text), 1);
  ASSERT_EQ(ui.notices.size(), 1u);
  EXPECT_EQ(ui.notices[0], Message(0, ""));
  EXPECT_EQ(ui.notices[0], "Drawing file read failed...ERROR: 0>>>   <<<   " + path.string());
  EXPECT_EQ(d.SheetNo, 10);
  EXPECT_FLOAT_EQ(d.DrawScale, 1.0f);
  EXPECT_EQ(d.Lines.count, 7);  // the counts were never read
}

TEST_F(DrawingFile, ASheetOutsideOneToTenOrAScaleOfZeroFails) {
  for (const char* sheet : {"0", "11"}) {
    std::string text = SmallDrawing();
    text.replace(3, 1, sheet);
    EXPECT_EQ(Load(text), 1) << sheet;
    EXPECT_EQ(d.SheetNo, 10);
    EXPECT_FLOAT_EQ(d.DrawScale, 2.0f);
  }
  std::string text = SmallDrawing();
  text.replace(text.find("2.0"), 3, "0");
  EXPECT_EQ(Load(text), 1);
  EXPECT_EQ(d.SheetNo, 3);
  EXPECT_FLOAT_EQ(d.DrawScale, 1.0f);
  EXPECT_EQ(ui.notices.back(), Message(0, ""));
}

TEST_F(DrawingFile, ACountOverATablesMaximumFailsAtTheFirstRowBeyondIt) {
  std::string text = SmallDrawing();
  text.replace(text.find("2,1,1,1,1,1,"), 12, "2,1,1,1,1,6,");
  for (int i = 0; i < 4; ++i) text += "1,1,0,45,3,2,1,0,0\nMORE\n";
  text += "9,9,0,45,3,2,1,0,0\nSIXTH\n";
  EXPECT_EQ(Load(text), 1);
  EXPECT_EQ(ui.notices.back(), Message(9, "Subscript out of range"));
  EXPECT_EQ(d.Angles.count, 6);
  EXPECT_EQ(d.Angles(5).label, "MORE" + std::string(28, ' '));
  EXPECT_FLOAT_EQ(d.Angles(5).radius, 3.0f);
}

TEST_F(DrawingFile, ATruncatedFileKeepsTheRowsAndFieldsReadBeforeItsEnd) {
  std::string text = SmallDrawing();
  text.resize(text.find("1.25,0,0,2,5,0"));
  EXPECT_EQ(Load(text), 1);
  EXPECT_EQ(ui.notices.back(), Message(62, "Input past end of file"));
  EXPECT_FLOAT_EQ(d.Lines(1).basey, 6.0f);
  EXPECT_FLOAT_EQ(d.Lines(2).x2, 0.001f);
  EXPECT_EQ(d.Lines(2).pen, 0);
}

TEST_F(DrawingFile, TextInANumberFieldIsATypeMismatch) {
  std::string text = SmallDrawing();
  text.replace(text.find("1,2,3,4,5,6"), 11, "1,2,3,four,5,6");
  EXPECT_EQ(Load(text), 1);
  EXPECT_EQ(ui.notices.back(), Message(13, "Type mismatch"));
  EXPECT_FLOAT_EQ(d.Lines(1).x2, 3.0f);
  EXPECT_EQ(d.layers[5].colour, 255);
}

TEST_F(DrawingFile, AMissingFileIsReportedNotThrown) {
  path = dir / "NONE.CAD";
  int16_t failed = 0;
  LoadDrawing(d, path, 0, failed, ui);
  EXPECT_EQ(failed, 1);
  EXPECT_EQ(ui.notices.back(), Message(53, "File not found"));
}

// A drawing filled by program with values a short decimal form cannot hold.
Drawing Filled() {
  Drawing d;
  d.SheetNo = 4;
  d.DrawScale = 1.0f / 3.0f;
  d.TextHeight = 0.1f;
  d.DimMode = 2;
  d.SlantAngle = 12.5f;
  d.MmRound = 1;
  d.UseLayerColours = 1;
  d.titles = {"Title, with comma", ""};
  d.layers[7] = {1, 0x00ABCDEF};
  d.Lines.count = 2;
  d.Lines(1) = {1e-7f, -123456.789f, 3.3333333f, 0.1f, 2.0f / 3.0f, 7, 1, 2, 1};
  d.Lines(2) = {-0.0f, 1e30f, 5, 6, 7, 8, 9, 10, 0};
  d.Arcs.count = 1;
  d.Arcs(1) = {1, 2, 3, 4, 0.7f, -45.5f, 400.25f, 3, 4, 1};
  d.Leaders.count = 1;
  d.Leaders(1) = {1.1f, 2.2f, 3.3f, 4.4f, 5.5f, 6.6f, 8, 63, 1};
  d.Texts.count = 2;
  d.Texts(1) = {0.5f, 0.25f, 1, 2, 0.09375f, 90, 15, 1, 1, 5, 1, 500, FixedWidth("A, B  ||  C", kTextWidth)};
  d.Texts(2) = {0, 0, 0, 0, 0.1f, 0, 0, 2, 3, 1, 0, 250, FixedWidth("\xC3\x98 25 \xC2\xB0", kTextWidth)};
  d.Dimensions.count = 1;
  d.Dimensions(1) = {0, 0, 10.7f, 0, 2, 1, 7, 3, 1, FixedWidth("R.", kLabelWidth)};
  d.Angles.count = 1;
  d.Angles(1) = {1, 1, 10, 350, 2.5f, 2, 1, 1, 1, FixedWidth("", kLabelWidth)};
  return d;
}

void ExpectSameTables(const Drawing& a, const Drawing& b) {
  EXPECT_EQ(a.SheetNo, b.SheetNo);
  EXPECT_EQ(a.DrawScale, b.DrawScale);
  EXPECT_EQ(a.TextHeight, b.TextHeight);
  EXPECT_EQ(a.DimMode, b.DimMode);
  EXPECT_EQ(a.SlantAngle, b.SlantAngle);
  EXPECT_EQ(a.MmRound, b.MmRound);
  EXPECT_EQ(a.UseLayerColours, b.UseLayerColours);
  EXPECT_EQ(a.titles, b.titles);
  for (size_t i = 1; i < 64; ++i) {
    EXPECT_EQ(a.layers[i].state, b.layers[i].state);
    EXPECT_EQ(a.layers[i].colour, b.layers[i].colour);
  }
  const auto line = [](const LineRow& r) {
    return std::tie(r.x1, r.y1, r.x2, r.y2, r.basex, r.basey, r.pen, r.layer, r.scaled);
  };
  ASSERT_EQ(a.Lines.count, b.Lines.count);
  for (int i = 1; i <= a.Lines.count; ++i) EXPECT_EQ(line(a.Lines(i)), line(b.Lines(i))) << i;
  const auto arc = [](const ArcRow& r) {
    return std::tie(r.basex, r.basey, r.cx, r.cy, r.radius, r.a0, r.a1, r.pen, r.layer, r.scaled);
  };
  ASSERT_EQ(a.Arcs.count, b.Arcs.count);
  EXPECT_EQ(arc(a.Arcs(1)), arc(b.Arcs(1)));
  const auto leader = [](const LeaderRow& r) {
    return std::tie(r.x1, r.y1, r.x2, r.y2, r.basex, r.basey, r.pen, r.layer, r.arrow);
  };
  ASSERT_EQ(a.Leaders.count, b.Leaders.count);
  EXPECT_EQ(leader(a.Leaders(1)), leader(b.Leaders(1)));
  ASSERT_EQ(a.Texts.count, b.Texts.count);
  for (int i = 1; i <= a.Texts.count; ++i) {
    const TextRow& x = a.Texts(i);
    const TextRow& y = b.Texts(i);
    EXPECT_EQ(std::tie(x.basex, x.basey, x.x, x.y, x.height, x.angle, x.slant, x.pen, x.layer, x.justify, x.frame,
                       x.width, x.text),
              std::tie(y.basex, y.basey, y.x, y.y, y.height, y.angle, y.slant, y.pen, y.layer, y.justify, y.frame,
                       y.width, y.text));
  }
  const DimensionRow& m = a.Dimensions(1);
  const DimensionRow& n = b.Dimensions(1);
  EXPECT_EQ(std::tie(m.x1, m.y1, m.x2, m.y2, m.pen, m.layer, m.kind, m.format, m.textonly, m.label),
            std::tie(n.x1, n.y1, n.x2, n.y2, n.pen, n.layer, n.kind, n.format, n.textonly, n.label));
  const AngleRow& p = a.Angles(1);
  const AngleRow& q = b.Angles(1);
  EXPECT_EQ(std::tie(p.cx, p.cy, p.a0, p.a1, p.radius, p.pen, p.layer, p.kind, p.noangle, p.label),
            std::tie(q.cx, q.cy, q.a0, q.a1, q.radius, q.pen, q.layer, q.kind, q.noangle, q.label));
}

TEST_F(DrawingFile, WrittenDrawingReadsBackToTheSameTablesAndBytes) {
  const Drawing original = Filled();
  const auto first = dir / "FIRST.CAD";
  const auto second = dir / "SECOND.CAD";
  WriteDrawing(original, first);
  int16_t failed = 0;
  LoadDrawing(d, first, 0, failed, ui);
  ASSERT_EQ(failed, 0) << (ui.notices.empty() ? "" : ui.notices[0]);
  ExpectSameTables(original, d);
  WriteDrawing(d, second);
  EXPECT_EQ(ReadBytes(first), ReadBytes(second));
  EXPECT_NE(ReadBytes(first).find("\r\n\xD8 25 \xB0"), std::string::npos);  // Windows-1252 on disk
}

TEST_F(DrawingFile, WritingToAMissingFolderThrowsPathNotFound) {
  EXPECT_EQ(testing::ErrorNumberOf([&] { WriteDrawing(Filled(), dir / "no" / "X.CAD"); }), 76);
}

TEST_F(DrawingFile, FontBlocksComeInAnyOrderAndAFailureKeepsWhatWasRead) {
  std::string text;
  for (int code = 216; code >= 1; --code) {
    text += std::to_string(code) + "," + (code == 65 ? "2" : "1") + "\n0,0,7,8\n";
    if (code == 65) text += "1,2,\n3,4\n";
  }
  const auto font_path = dir / "DRAWTEXT.DTA";
  WriteBytes(font_path, text);
  DrawFont font;
  EXPECT_TRUE(LoadDrawingFont(font_path, font));
  ASSERT_EQ(font.glyphs[65].size(), 2u);
  EXPECT_FLOAT_EQ(font.glyphs[65][1].x1, 1.0f);
  EXPECT_FLOAT_EQ(font.glyphs[65][1].y2, 4.0f);
  EXPECT_EQ(font.glyphs[1].size(), 1u);

  DrawFont partial;
  WriteBytes(font_path, "66,1\n0,0,1,1\n217,1\n0,0,1,1\n");
  EXPECT_FALSE(LoadDrawingFont(font_path, partial));
  EXPECT_EQ(partial.glyphs[66].size(), 1u);
  std::string sixteen = "67,16\n";
  for (int i = 0; i < 16; ++i) sixteen += "0,0,1,1\n";
  WriteBytes(font_path, sixteen);
  EXPECT_FALSE(LoadDrawingFont(font_path, partial));
  EXPECT_EQ(partial.glyphs[67].size(), 15u);
  EXPECT_FALSE(LoadDrawingFont(dir / "NONE.DTA", partial));
}

TEST(DrawingText, AKeyInTwoRowsChangesBothAndValuesAreFittedToTheField) {
  Drawing d;
  d.Texts.count = 3;
  d.Texts(1).text = FixedWidth("A?", kTextWidth);
  d.Texts(2).text = FixedWidth("B?", kTextWidth);
  d.Texts(3).text = FixedWidth("  A?", kTextWidth);
  d.Dimensions.count = 2;
  d.Dimensions(1).label = FixedWidth("a?", kLabelWidth);
  d.Dimensions(2).label = FixedWidth("A?", kLabelWidth);
  d.Texts(4).text = "A?";  // beyond the count: not live
  SetDrawingText(d, " A? ", std::string(40, '7'));
  EXPECT_EQ(d.Texts(1).text, std::string(40, '7') + std::string(40, ' '));
  EXPECT_EQ(d.Texts(3).text, d.Texts(1).text);
  EXPECT_EQ(d.Texts(2).text, FixedWidth("B?", kTextWidth));
  EXPECT_EQ(d.Dimensions(2).label, std::string(32, '7'));
  EXPECT_EQ(d.Dimensions(1).label, FixedWidth("a?", kLabelWidth));  // case counts
  EXPECT_EQ(d.Texts(4).text, "A?");
  SetDrawingText(d, "Z?", "x");  // nothing matches: nothing changes
  EXPECT_EQ(d.Texts(2).text, FixedWidth("B?", kTextWidth));
}

TEST(DrawingText, ClearDrawingEmptiesTheSixTables) {
  Drawing d = Filled();
  ClearDrawing(d);
  for (int count : {d.Lines.count, d.Arcs.count, d.Leaders.count, d.Texts.count, d.Dimensions.count, d.Angles.count}) {
    EXPECT_EQ(count, 0);
  }
  EXPECT_FLOAT_EQ(d.Lines(1).x2, 3.3333333f);  // rows stay, only the counts go
}

}  // namespace
}  // namespace kestrane
