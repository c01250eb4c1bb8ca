// The printed "Preliminary Drawings": a heading, then each piece of equipment drawn in its cell of 2 by 3 a page.
#include "drawings/preliminary_drawings.h"

#include <vector>

#include "drawings/drawing_page.h"
#include "drawings/drawing_sets.h"
#include "engine/results.h"
#include "properties/numeric.h"

namespace kestrane {

namespace {

constexpr size_t kCellsPerPage = 6;

// The heading of a page: the maker and the title, then the case's item and the date, its description and the
// engineer, each placed as the reports place fields: the line never grows, so what would pass its end is cut off.
void Heading(PageSink& printer, const InputScreen& screen, const std::string& date_text) {
  printer.Print(" " + std::string(32, ' ') + "TESSEL CORPORATION" + std::string(31, ' ') + "Preliminary Drawings");
  std::string item = "Item:                                                       Date:     ";
  PlaceInField(-1, item, screen.txtHeadingInput[0], 7);
  PlaceInField(-1, item, date_text, 67);
  printer.Print(item);
  std::string description = "Description:                                                Engineer: ";
  PlaceInField(-1, description, screen.txtHeadingInput[1], 14);
  PlaceInField(-1, description, screen.txtHeadingInput[2], 71);
  printer.Print(description);
}

// Points the page's view window and the target's user scale at the cell of slot e (from 1), in a page of cells of
// aspect r: slots fill the columns 1 and 2 from the top row (3) down; a seventh starts a page at the top left.
void PlaceInCell(Drawing& d, DrawingSurface& target, float r, size_t e) {
  const size_t k = (e - 1) % kCellsPerPage;
  const float col = static_cast<float>(k % 2 + 1);
  const float row = static_cast<float>(3 - k / 2);
  const CellBox cell = CellOf(d, r);
  const float w = cell.w, h = cell.h, left = cell.left, right = cell.right, bottom = cell.bottom, top = cell.top;
  // The page's window puts the cell in its place; the upper rows move down to leave room for the heading.
  const float rise = h * 0.1f * (row - 1);
  d.ViewLeft = left - (col - 1) * w;
  d.ViewRight = (2 - col) * w + right;
  d.ViewBottom = bottom - (row - 1) * h + rise;
  d.ViewTop = (3 - row) * h + top + rise;
  target.ScaleHeight = (d.ViewTop - d.ViewBottom) * -1.0f;
  target.ScaleWidth = d.ViewRight - d.ViewLeft;
  target.ScaleTop = d.ViewTop;
  target.ScaleLeft = d.ViewLeft;
}

}  // namespace

void PrintDrawings(PageSink& printer, Drawing& d, const DesignContext& ctx, bool metric, const std::string& date_text) {
  DrawingSurface* const screen_target = d.Target;
  const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, metric);
  d.Printing = -1;
  printer.orientation = 1;
  printer.scale_mode = 5;  // inches
  // The aspect of a cell: the page holds 2 columns by 3 rows of drawings.
  const float r = (printer.Width() / 2) / (printer.Height() / 3);
  for (size_t first = 0; first == 0 || first < slots.size(); first += kCellsPerPage) {
    Heading(printer, ctx.screen, date_text);
    DrawingSurface* const page = printer.DrawingTarget();
    if (page != nullptr) page->DrawWidth = 3;
    for (size_t e = first + 1; e <= slots.size() && e <= first + kCellsPerPage; ++e) {
      int16_t failed = 0;
      LoadSlotDrawing(d, ctx, slots[e - 1], metric, failed);
      if (page == nullptr) continue;
      d.Target = page;
      PlaceInCell(d, *page, r, e);
      PrintAll(d);
    }
    printer.EndDoc();
  }
  if (DrawingSurface* const page = printer.DrawingTarget()) ResetPrinter(*page);
  printer.scale_mode = 1;
  d.Target = screen_target;
  d.Printing = 0;
}

}  // namespace kestrane
