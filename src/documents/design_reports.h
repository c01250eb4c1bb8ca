// The sheets of a design that a print command sends: built once, the data sheet's text written beside the case,
// then printed as often as asked.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "shell/page_sink.h"
#include "documents/print_commands.h"
#include "engine/design_context.h"
#include "thermo/tc_input.h"

namespace kestrane {

struct DesignSheets {
  std::vector<std::string> spec;  // the specification sheet's lines, when asked
  std::vector<std::string> data;  // the design data sheet's lines, when asked
  std::filesystem::path data_text;  // where the data sheet's text was written; empty when it was not
};

// Builds the sheets among `reports` for the design of `ctx`, dated `date_text`. The data sheet's text goes beside
// the case (NAME.TXT), or to OUT.TXT in `text_folder` for a case never saved, unless a fault left it without lines;
// a failed write is told through the context's Ui. Reports that are drawings are left to the drawing prints.
DesignSheets PrepareDesignSheets(const std::vector<Report>& reports, const DesignContext& ctx,
                                 const std::string& date_text, const std::filesystem::path& text_folder);

// Prints the sheets in the order of the reports: the specification sheet, then the data sheet.
void PrintDesignSheets(const DesignSheets& sheets, PageSink& printer);

// The two sheets of a thermo compressor design: the specification sheet with its drawing, and the data sheet,
// whose text goes beside the case (NAME.TXT) or to OUT.TXT in `text_folder`.
struct TcSheets {
  std::vector<std::string> spec;
  std::vector<std::string> data;
  std::filesystem::path data_text;  // where the data sheet's text was written; empty when it was not
};

// `tcres` is the checked input the design ran on.
TcSheets PrepareTcSheets(const TcInput& tcres, const DesignContext& ctx, const TCInputScreen& screen,
                         const std::string& date_text, const std::filesystem::path& text_folder);

// Prints the specification sheet with the compressor's drawing on its page (`drawing`, when set, prints it), then
// the data sheet.
void PrintTcSheets(const TcSheets& sheets, PageSink& printer, const std::function<void(PageSink&)>& drawing);

}  // namespace kestrane
