// Drawings on printed pages: a whole drawing alone on a page, a drawing in a cell of a page, the drawing on a
// specification sheet.
#pragma once

#include "drawings/drawing.h"
#include "shell/page_sink.h"

namespace kestrane {

// Prints the drawing's whole sheet on one page of `printer` (landscape when the sheet is wider than high), fitted
// with its proportions kept, black lines and texts; the page ends. Nothing but the page end on a text-only sink.
void PrintDrawingPage(PageSink& printer, Drawing& d);

// The window of a drawing in a cell of aspect `r` (width over height): the whole sheet about its centre, widened
// to the cell's aspect; in drawing units.
struct CellBox {
  float w, h, left, right, bottom, top;
};
CellBox CellOf(const Drawing& d, float r);

// Prints a loaded drawing on the present page of a sheet that holds text above it: in the middle of the page's
// width, in the lower part of its height, a cell of a sixth of the page, black on paper. The caller ends the page.
void PrintSheetDrawing(PageSink& printer, Drawing& d);

}  // namespace kestrane
