// Pages of a long report: where a page is full, and the head, table heads and foot of every page.
#include "documents/paged_report.h"

#include "documents/page_frame.h"

namespace kestrane {

bool LineFitsAboveFoot(const PageSink& printer, float size_pt) {
  return printer.CurrentY() + LineHeightTwips(size_pt) <= printer.Height() - kFootAboveEdgeTwips;
}

void PrintPaged(PageSink& printer, const PagedReport& report) {
  printer.scale_mode = 1;
  printer.orientation = 1;
  size_t heads_shown = 0;  // table heads printed so far, repeated on each later page
  const auto open_page = [&] {
    PageHeader(printer, report.title, report.file_name, report.date_text, report.prefix);
    printer.font.size = report.size;
    printer.Print("");
    for (size_t i = 0; i < heads_shown; ++i) printer.Print(report.lines[report.table_from + i]);
  };
  open_page();
  for (size_t i = 0; i < report.lines.size(); ++i) {
    if (!LineFitsAboveFoot(printer, report.size)) {
      PageFooter(printer);
      open_page();
    }
    printer.Print(report.lines[i]);
    if (i >= report.table_from && i < report.table_from + report.table_heads) heads_shown = i - report.table_from + 1;
  }
  PageFooter(printer);
}

}  // namespace kestrane
