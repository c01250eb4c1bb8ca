// Drawings built by program: rows added to the entity tables, and the parts a general arrangement drawing is
// made of (centre lines, flanges, nozzles, notes, a title block). Lengths in drawing units: inches on the sheet
// at scale 1; every row is scaled by the drawing's scale, as texts always are.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "drawings/drawing.h"

namespace kestrane {

// A new drawing on `sheet` at `scale`: layer 1 visible, the other layers visible too, no rows.
Drawing NewDrawing(int16_t sheet, float scale, float text_height, int16_t dim_mode);

// One row each, appended; an error (VbError 9) when the table is full. Layer 1 unless told.
void AddLine(Drawing& d, float x1, float y1, float x2, float y2, int16_t pen, int16_t layer = 1);
void AddArc(Drawing& d, float cx, float cy, float radius, float a0, float a1, int16_t pen, int16_t layer = 1);
void AddLeader(Drawing& d, float x1, float y1, float x2, float y2, bool arrow, int16_t pen = 2);
void AddText(Drawing& d, float x, float y, float height, int16_t justify, const std::string& text, float angle = 0,
             int16_t pen = 2, int16_t frame = 0, int16_t width = 500);
void AddDimension(Drawing& d, float x1, float y1, float x2, float y2, int16_t kind, const std::string& label,
                  int16_t textonly = 0, int16_t format = 3);
void AddAngle(Drawing& d, float cx, float cy, float radius, float a0, float a1, int16_t kind, const std::string& label,
              int16_t noangle = 0);

// Parts.
// The outline of a rectangle.
void AddBox(Drawing& d, float x1, float y1, float x2, float y2, int16_t pen = 1);
// A centre line through two points, overshooting each end by `overshoot`, dash-dot.
void AddCentreLine(Drawing& d, float x1, float y1, float x2, float y2, float overshoot = 0.25f);
// A flange seen from the side: a plate `width` across and `thick` deep, centred on (x, y), its face turned to
// `angle` (0: the face looks right, 90: up).
void AddFlange(Drawing& d, float x, float y, float width, float thick, float angle);
// A nozzle from the shell at (x, y) out along `angle`: a pipe of `bore` for `length`, ending in a flange, with its
// centre line; its name (a placeholder such as "SUCTION?") noted beyond the flange.
void AddNozzle(Drawing& d, float x, float y, float angle, float length, float bore, const std::string& name);
// A note with a leader from (x, y) to the point it names.
void AddNote(Drawing& d, float x, float y, float to_x, float to_y, const std::string& text);
// The title block in the sheet's lower right corner: the maker, the drawing's description, sheet and scale.
void AddTitleBlock(Drawing& d, const std::string& maker, const std::string& description);
// The border 0.15 in. inside the sheet's edge.
void AddSheetBorder(Drawing& d);
// A process flow diagram's title block in the sheet's lower right corner: the maker, the title, the item and the
// description, one row each, the description cut to the block's width.
void AddDiagramTitleBlock(Drawing& d, const std::string& maker, const std::string& title, const std::string& item,
                          const std::string& description);

// Symbols of a process flow diagram, each about its centre (x, y), on `layer`.
// An ejector lying along the flow, `length` long: the suction chamber at the left end with the motive nozzle in
// it (the motive enters from the top, 0.35 length left of the centre), the converging diffuser, the throat and
// the diverging diffuser to the discharge at the right end.
void AddEjectorSymbol(Drawing& d, float x, float y, float length, float height, int16_t layer);
// A horizontal shell and tube condenser, `length` over its rounded heads: the shell, the tube sheets and the tube
// bundle as a zigzag from head to head.
void AddSurfaceCondenserSymbol(Drawing& d, float x, float y, float length, float diameter, int16_t layer);
// A vertical barometric condenser, `height` from the top to the tail leg's start at the bottom of its cone: the
// shell with three cascade trays.
void AddBarometricCondenserSymbol(Drawing& d, float x, float y, float width, float height, int16_t layer);
// A liquid ring pump: its casing, the eccentric rotor and six vanes.
void AddLiquidRingPumpSymbol(Drawing& d, float x, float y, float radius, int16_t layer);

// A stream through the points, its arrowhead at the last one.
using DrawingPoint = std::pair<float, float>;
void AddStreamArrow(Drawing& d, const std::vector<DrawingPoint>& points);

// The box round a text of lines joined by "||": `align` 1 to 9 places the box as a text's justification places
// the text, left to right by thirds (1..3 left), and by 1, 4, 7 its bottom, 2, 5, 8 its middle, 3, 6, 9 its top
// at y.
struct LabelBox {
  float x1, y1, x2, y2;
};
LabelBox StreamLabelBox(const Drawing& d, float x, float y, int16_t align, float height, const std::string& text);
// A stream label: the text in its box, placed as StreamLabelBox places it.
void AddStreamLabel(Drawing& d, float x, float y, int16_t align, float height, const std::string& text);

}  // namespace kestrane
