// What a print command of a design sends, in its order: the sheets, the preliminary drawings, the flow diagram.
#pragma once

#include <string>
#include <vector>

#include "documents/design_reports.h"
#include "engine/design_context.h"
#include "shell/page_sink.h"

namespace kestrane {

// Prints `reports` for the design of `ctx` on `printer`: the sheets as prepared, then the preliminary drawings of
// the equipment and the process flow diagram when asked, in the design's units, dated `date_text`.
void PrintDesignReports(const std::vector<Report>& reports, const DesignSheets& sheets, const DesignContext& ctx,
                        const std::string& date_text, PageSink& printer);

// Prints a thermo compressor's two sheets, the specification sheet with the ejector drawing of its stage on its
// page (`model` the compressor's model text, `metric` the input's units).
void PrintTcReports(const TcSheets& sheets, const DesignContext& ctx, bool metric, const std::string& model,
                    PageSink& printer);

}  // namespace kestrane
