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
// centre line; its name (a placeholder such as "SUCTION?") noted beyond the flange, and its service (such as
// "VAPOR IN"), when given, on a line of its own past the name.
void AddNozzle(Drawing& d, float x, float y, float angle, float length, float bore, const std::string& name,
               const std::string& service = "");
// A note at (x, y) with a leader to the point it names, its arrow head there; the text stands on the far side of
// (x, y) from that point.
void AddNote(Drawing& d, float x, float y, float to_x, float to_y, const std::string& text);
// The sheet's border and the title block in its lower right corner: the maker, the drawing's description, and a
// bottom row stating the drawing preliminary beside `note` (such as "NOT TO SCALE" or a date).
void AddTitleBlock(Drawing& d, const std::string& maker, const std::string& description,
                   const std::string& note = "NOT TO SCALE");

// A text-only linear dimension between two points of the outline, its line set off by `offset` to the left of the
// direction p1 to p2, with extension lines from both points; `label` stands alone (a placeholder such as "A?").
void AddMeasure(Drawing& d, float x1, float y1, float x2, float y2, float offset, const std::string& label);

// Parts drawn along an axis: the axis starts at (x, y) and points to `angle` degrees; a point lies `u` along it and
// `v` across it, positive to the axis's left. `dir` +1 or -1 says which way along the axis a part faces.
struct Axis {
  float x = 0, y = 0, angle = 0;
};
void AxisPoint(const Axis& a, float u, float v, float& x, float& y);
// A cylinder from u1 to u2 of `diameter`: its sides and both ends.
void AddCylinder(Drawing& d, const Axis& a, float u1, float u2, float diameter, int16_t pen = 1);
// A cone (reducer) from u1 at diameter d1 to u2 at d2: its two sloping sides.
void AddCone(Drawing& d, const Axis& a, float u1, float d1, float u2, float d2, int16_t pen = 1);
// A pair of body flanges bolted at u, each `thick`, standing out 0.15 past the vessel of `diameter`.
void AddBodyFlange(Drawing& d, const Axis& a, float u, float diameter, float thick);
// A 2:1 dished head whose tangent line lies at u, bulging toward `dir`: crown and knuckle arcs.
void AddDishedHead(Drawing& d, const Axis& a, float u, float diameter, float dir);
// An exchanger head bolted at u, facing `dir`: a flanged barrel of `length` closed by a flat bolted cover
// (channel with removable cover) or, without `cover`, by a dished end (bonnet).
void AddExchangerHead(Drawing& d, const Axis& a, float u, float diameter, float length, float dir, bool cover);
// The tube bundle between u1 and u2 seen through the shell: `tubes` dashed lines over 80 % of `diameter`.
void AddTubeBundle(Drawing& d, const Axis& a, float u1, float u2, float diameter, int tubes);
// A saddle under a horizontal shell at x: a web tapering from `width` at its base plate on `floor` up to a wear
// plate under the shell's bottom, with the anchor bolt's centre line.
void AddSaddle(Drawing& d, float x, float shell_bottom, float floor, float width);
// A support lug on a vertical shell's wall at (x, y), reaching `reach` toward `dir`: a top plate over a gusset,
// with the bolt hole's centre line.
void AddLug(Drawing& d, float x, float y, float reach, float dir);
// A foot-mounted motor seen from the side, its shaft on the left at (x, y): frame with cooling fins, fan cover,
// terminal box and feet down to `floor`.
void AddMotor(Drawing& d, float x, float y, float length, float diameter, float floor);
// A base plate of structural channel from x1 to x2, its top at `top`, `depth` deep: the web hidden behind.
void AddBasePlate(Drawing& d, float x1, float x2, float top, float depth);
// A break in a long pipe of `bore` at (x, y) on a vertical run: the pipe's two ends cut by zigzags 0.3 apart.
void AddPipeBreak(Drawing& d, float x, float y, float bore);
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
