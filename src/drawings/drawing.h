// The drawing engine's state: sheet, layer and pen tables, the six entity tables, the font, the view and its
// surface; loading, placeholders, view commands and rendering of a drawing.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/drawing_surface.h"
#include "properties/stroke_font.h"
#include "properties/vb.h"
#include "shell/ui.h"

namespace kestrane {

// Sheet sizes in inches before DrawScale, sheets 1..10 (index 0 unused).
struct SheetSize {
  float width, height;
};
extern const std::array<SheetSize, 11> kSheets;

// Pens 1..8 (index 0 unused): palette colour number and line style.
struct Pen {
  int16_t colour, style;
};
extern const std::array<Pen, 9> kPens;

struct LayerRow {
  int16_t state = 0;  // 0 visible, 1 dimmed to grey, 2 or more hidden
  SurfaceColour colour = 0;
};

struct LineRow {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0, basex = 0, basey = 0;
  int16_t pen = 0, layer = 0, scaled = 0;
};
struct ArcRow {
  float basex = 0, basey = 0, cx = 0, cy = 0, radius = 0, a0 = 0, a1 = 0;
  int16_t pen = 0, layer = 0, scaled = 0;
};
struct LeaderRow {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0, basex = 0, basey = 0;
  int16_t pen = 0, layer = 0, arrow = 0;
};
// Widths of a text and of a dimension label, in characters.
inline constexpr size_t kTextWidth = 80;
inline constexpr size_t kLabelWidth = 32;

struct TextRow {
  float basex = 0, basey = 0, x = 0, y = 0, height = 0, angle = 0, slant = 0;
  int16_t pen = 0, layer = 0, justify = 0, frame = 0, width = 0;
  std::string text;  // 80 characters, blank padded
};
struct DimensionRow {
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  int16_t pen = 0, layer = 0, kind = 0, format = 0, textonly = 0;
  std::string label;  // 32 characters, blank padded
};
struct AngleRow {
  float cx = 0, cy = 0, a0 = 0, a1 = 0, radius = 0;
  int16_t pen = 0, layer = 0, kind = 0, noangle = 0;
  std::string label;  // 32 characters, blank padded
};

// An entity table: rows 1..Max (row 0 unused), the first `count` live. Rows past the count keep what an earlier
// drawing left in them. A row beyond Max is error 9, subscript out of range.
template <typename Row, int Max>
struct EntityTable {
  static constexpr int kMax = Max;
  std::vector<Row> rows = std::vector<Row>(Max + 1);
  int16_t count = 0;
  Row& operator()(int i) { return rows[Checked(i)]; }
  const Row& operator()(int i) const { return rows[Checked(i)]; }
  static size_t Checked(int i) {
    if (i < 0 || i > Max) throw VbError(9);
    return static_cast<size_t>(i);
  }
};

// The drawing: loaded from a .CAD file or filled by program; one drawing at a time per state.
struct Drawing {
  int16_t SheetNo = 10;
  float DrawScale = 1.0f;
  float TextHeight = 0;
  int16_t DimMode = 0;
  float SlantAngle = 15.0f;
  int16_t MmRound = 0;
  int16_t UseLayerColours = 0;
  std::array<std::string, 2> titles;  // 60 characters at most, read and kept, not used
  std::array<LayerRow, 64> layers{};  // 1..63

  EntityTable<LineRow, 1500> Lines;
  EntityTable<ArcRow, 500> Arcs;
  EntityTable<LeaderRow, 60> Leaders;
  EntityTable<TextRow, 200> Texts;
  EntityTable<DimensionRow, 30> Dimensions;
  EntityTable<AngleRow, 5> Angles;

  // The view window and the window the last command asked for, in drawing units.
  float ViewLeft = 0, ViewBottom = 0, ViewRight = 0, ViewTop = 0, ViewWidth = 0, ViewHeight = 0;
  float ReqX1 = 0, ReqY1 = 0, ReqX2 = 0, ReqY2 = 0;
  // A view event waiting: set by the window, run by ViewEvent; a set RedrawAbort stops the redraw in progress.
  int16_t RedrawAbort = 0, ViewCode = 0, ClickButton = 0;
  float ClickX = 0, ClickY = 0;

  // What the drawing renders with: the stroke font, the surface, the print flag (0 or -1), and the window's
  // pending events, run between rows of a redraw (none: nothing runs).
  const DrawFont* font = nullptr;
  DrawingSurface* Target = nullptr;
  int16_t Printing = 0;
  std::function<void()> ProcessEvents;
};

// Loads a .CAD file into the drawing. `failed` is 0, or 1 after a failure, told through `ui` as
// "Drawing file read failed...ERROR: " number ">>>  " text " <<<   " path; the tables keep what was read.
void LoadDrawing(Drawing& d, const std::filesystem::path& path, int16_t reserved, int16_t& failed, Ui& ui);

// Writes the drawing as a .CAD file that LoadDrawing reads back to the same tables; whole, through a temporary
// name. Throws VbError when it cannot be written.
void WriteDrawing(const Drawing& d, const std::filesystem::path& path);

// Replaces every dimension label, then every text, whose trimmed value equals the trimmed key.
void SetDrawingText(Drawing& d, const std::string& key, const std::string& value);

// Empties the six entity tables.
void ClearDrawing(Drawing& d);

// The width and height of the drawing's sheet in drawing units (DrawScale times the sheet's inches).
SheetSize ScaledSheet(const Drawing& d);

// The view.
void ApplyView(Drawing& d);
// The whole sheet with a margin of 2 % on the side that fills the surface, set as the view without drawing.
void FitView(Drawing& d);
// FitView, then the redraw.
void ZoomFit(Drawing& d);
void ViewCommand(Drawing& d, int16_t op);
void ZoomAt(Drawing& d, float x, float y, int16_t button);
void ViewEvent(Drawing& d);

// Redraws everything: the sheet edge, then the rows table by table, giving way when RedrawAbort is set.
void DrawAll(Drawing& d);

// Draws the drawing on a printer surface as the prints do (Printing set by the caller): the sheet's edge in black,
// then the rows in the order of the redraw, lines and arcs in the palette colour of their pen's number (pen 1 as
// 2), the other rows in 2; the print rules then make lines, texts and dimensions black.
void PrintAll(Drawing& d);

// One row each; `colour` above 0 overrides the colour with that palette number; `erase` 1 draws in the
// background colour.
void DrawLine(Drawing& d, int i, int16_t colour, int16_t erase);
void DrawArc(Drawing& d, int i, int16_t colour, int16_t erase);
void DrawTextEntity(Drawing& d, int i, int16_t colour, int16_t erase);
void DrawLeader(Drawing& d, int i, int16_t colour, int16_t erase);
void DrawDimension(Drawing& d, int i, int16_t colour, int16_t erase);
void DrawAngleDimension(Drawing& d, int i, int16_t colour, int16_t erase);

// Strokes a text with the drawing's font on its surface (`visible` is set as the renderer sets it).
void StrokeText(Drawing& d, float x, float y, float height, int16_t justify, int16_t width, float angle, float slant,
                int16_t frame, bool dimmed, const std::string& text, float scale, int16_t& visible, int16_t nogreek,
                int16_t erase);

// The four corners of a text's box (bottom-left, bottom-right, top-right, top-left) and its longest line length.
struct TextBoxResult {
  std::array<float, 4> x{}, y{};
  int longest = 0;
};
TextBoxResult TextBox(const Drawing& d, float x, float y, float height, int16_t justify, float angle, int16_t width,
                      const std::string& text);

// Sets a printer surface back to the default page coordinates after a drawing print.
void ResetPrinter(DrawingSurface& printer);

}  // namespace kestrane
