// The vacuum system specification sheet: one page stating a finished design, its performance, ejectors,
// condensers, materials and utilities, as 60 lines of 76 characters.
#pragma once

#include <string>
#include <vector>

#include "shell/page_sink.h"
#include "engine/design_context.h"

namespace kestrane {

// The sheet's 60 lines (index 0 is line 1) for the design in `ctx`, in the input screen's units. `case_file_name`
// is the case's file name, empty for an unsaved case; `date_text` the date as the reports print it. A run-time
// fault while the lines are built is told to the user and gives no lines.
std::vector<std::string> SpecSheetLines(const DesignContext& ctx, const std::string& case_file_name,
                                        const std::string& date_text);

// Prints lines 2 to 60 of the sheet as one page, without page head or foot: lines 2 to 56 in Courier New 12
// behind 3 blanks, the maker's lines 57 to 60 at size 10 behind 11 blanks; then the page ends.
void PrintSpecSheet(const std::vector<std::string>& lines, PageSink& printer);

}  // namespace kestrane
