// The printed "Preliminary Drawings": every piece of equipment of a design drawn in a cell of the page.
#pragma once

#include <string>

#include "drawings/drawing.h"
#include "engine/design_context.h"
#include "shell/page_sink.h"

namespace kestrane {

// The heading, then the drawing of each slot of the design in a cell of 2 columns by 3 rows, six to a page; a
// seventh goes on a page of its own with its own heading. The drawings go on the printer's drawing target (none:
// the headings alone); the drawing's target is restored afterwards.
void PrintDrawings(PageSink& printer, Drawing& d, const DesignContext& ctx, bool metric, const std::string& date_text);

}  // namespace kestrane
