// Drawings built by program: rows added to the entity tables, and the parts a general arrangement drawing is
// made of (centre lines, flanges, nozzles, notes, a title block). Lengths in drawing units: inches on the sheet
// at scale 1; every row is scaled by the drawing's scale, as texts always are.
#pragma once

#include <string>

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

}  // namespace kestrane
