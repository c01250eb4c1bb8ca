// One drawing on one printed page.
#include "drawings/drawing_page.h"

namespace kestrane {

void PrintDrawingPage(PageSink& printer, Drawing& d) {
  const SheetSize& sheet = kSheets.at(static_cast<size_t>(d.SheetNo));
  const float w = d.DrawScale * sheet.width, h = d.DrawScale * sheet.height;
  printer.orientation = w > h ? 2 : 1;
  printer.scale_mode = 5;
  DrawingSurface* surface = printer.DrawingTarget();
  if (surface != nullptr) {
    DrawingSurface* const target = d.Target;
    const int16_t printing = d.Printing;
    d.Target = surface;
    d.Printing = -1;
    surface->DrawWidth = 3;
    // Fitted as on screen, with its margin, and drawn in the print colours.
    FitView(d);
    printer.Touch();
    PrintAll(d);
    ResetPrinter(*surface);
    d.Target = target;
    d.Printing = printing;
  }
  printer.EndDoc();
}

CellBox CellOf(const Drawing& d, float r) {
  const SheetSize sheet = ScaledSheet(d);
  const float cx = sheet.width / 2, cy = sheet.height / 2;
  float w = sheet.width, h = sheet.height;
  if (h > w / r) {
    w = r * h;
  } else {
    h = w / r;
  }
  return {w, h, cx - w / 2, cx + w / 2, cy - h / 2, cy + h / 2};
}

void PrintSheetDrawing(PageSink& printer, Drawing& d) {
  DrawingSurface* const page = printer.DrawingTarget();
  if (page == nullptr) return;
  DrawingSurface* const target = d.Target;
  d.Target = page;
  d.Printing = -1;
  page->DrawWidth = 3;
  printer.scale_mode = 5;
  // The page holds cells of 2 columns by 3 rows; the drawing takes the one at the middle of the lower part.
  const float r = (printer.Width() / 2) / (printer.Height() / 3);
  const CellBox cell = CellOf(d, r);
  const SheetSize sheet = ScaledSheet(d);
  d.ViewLeft = sheet.width * 0.5f + (cell.left - cell.w);
  d.ViewRight = sheet.width * 0.5f + cell.right;
  d.ViewBottom = sheet.height * 0.75f + (cell.bottom - cell.h);
  d.ViewTop = sheet.height * 0.75f + (cell.h + cell.top);
  page->ScaleHeight = (d.ViewTop - d.ViewBottom) * -1.0f;
  page->ScaleWidth = d.ViewRight - d.ViewLeft;
  page->ScaleTop = d.ViewTop;
  page->ScaleLeft = d.ViewLeft;
  printer.Touch();
  PrintAll(d);
  d.Printing = 0;
  ResetPrinter(*page);
  printer.scale_mode = 1;
  d.Target = target;
}

}  // namespace kestrane
