// A design's print job: sheets, drawings and flow diagram on one printer.
#include "design_prints.h"

#include <algorithm>

#include "drawings/drawing_page.h"
#include "drawings/drawing_sets.h"
#include "drawings/preliminary_drawings.h"
#include "drawings/flow_diagram.h"

namespace kestrane {

void PrintDesignReports(const std::vector<Report>& reports, const DesignSheets& sheets, const DesignContext& ctx,
                        const std::string& date_text, PageSink& printer) {
  const auto asked = [&reports](Report r) { return std::find(reports.begin(), reports.end(), r) != reports.end(); };
  PrintDesignSheets(sheets, printer);
  const bool metric = ctx.screen.Metric();
  Drawing d;
  d.font = &ctx.data.font;
  if (asked(Report::kDrawings)) PrintDrawings(printer, d, ctx, metric, date_text);
  if (asked(Report::kFlowDiagram)) {
    BuildFlowDiagram(d, ctx, metric);
    PrintDrawingPage(printer, d);
  }
}

void PrintTcReports(const TcSheets& sheets, const DesignContext& ctx, bool metric, const std::string& model,
                    PageSink& printer) {
  Drawing d;
  d.font = &ctx.data.font;
  PrintTcSheets(sheets, printer, [&](PageSink& page) {
    int16_t failed = 0;
    LoadJetDrawing(d, ctx, 1, metric, model, failed);
    if (failed == 0) PrintSheetDrawing(page, d);
  });
}

}  // namespace kestrane
