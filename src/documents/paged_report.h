// A report of any length over pages that each open with the page head and close with the page foot.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "shell/page_sink.h"

namespace kestrane {

// A report built in memory: what its page heads show, its lines and the font size they print at.
struct PagedReport {
  std::string title, file_name, date_text, prefix;  // as PageHeader takes them
  float size = 10;                                   // points of the body lines
  std::vector<std::string> lines;
  // The heads of a table that ends the report, lines [table_from, table_from + table_heads) of `lines`: each
  // page the table runs on to opens with them again.
  size_t table_from = 0, table_heads = 0;
};

// Whether a line at the body font still ends above the page foot, which starts an inch above the page's
// lower edge. Positions in twips.
bool LineFitsAboveFoot(const PageSink& printer, float size_pt);

// Prints the report portrait, in twips: the head, a blank line, then the lines one under the other; a line
// that would reach into the foot goes to a new page after the foot of the page before.
void PrintPaged(PageSink& printer, const PagedReport& report);

}  // namespace kestrane
