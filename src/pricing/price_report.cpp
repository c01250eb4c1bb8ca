// The pricing breakdown printed through the paged report: a head per page, the item table's heads repeated.
#include "pricing/price_report.h"

#include <filesystem>

#include "documents/paged_report.h"

namespace kestrane {

void PrintPriceBreakdown(PageSink& printer, const PriceBuildUp& price, const std::string& case_file,
                         const std::string& date_text) {
  PagedReport report;
  report.title = kPriceReportTitle;
  if (!case_file.empty()) report.file_name = std::filesystem::path(case_file).filename().string();
  report.date_text = date_text;
  report.size = 9;  // the table's 89 columns across a portrait page
  report.lines = PriceBreakdownLines(price);
  report.table_from = 0;
  report.table_heads = 2;
  PrintPaged(printer, report);
}

}  // namespace kestrane
