// The design data sheet: the quotation request stating a case's inputs and results, printed and written as text.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "shell/page_sink.h"
#include "engine/design_context.h"
#include "shell/user_info.h"

namespace kestrane {

// The 66 lines of the sheet (76 characters each; element 0 is line 1) for a designed case: the sender from `user`,
// the case and its main input as typed on both unit sides, utility costs, choices, loads, design conditions,
// materials, codes and the results. A run-time fault while the lines are built (a box whose number no Single can
// hold) is told to the user and gives no lines.
std::vector<std::string> DataSheetLines(const DesignContext& ctx, const UserInfo& user, const std::string& date_text);

// The sheet's text file: the case's path with its file name upper-cased and its first ".JET" made ".TXT"
// (/cases/pump.jet gives /cases/PUMP.TXT); the folder keeps its spelling, since on this system an upper-cased
// folder would be another, most often missing, folder. A case not saved, or whose name holds no ".JET", writes
// OUT.TXT in `fallback_folder`.
std::filesystem::path DataSheetTextPath(const std::string& case_path, const std::filesystem::path& fallback_folder);

// Prints the sheet on one page: a line " ", lines 1 to 12 behind three blanks in Courier New 12, the rest behind
// eleven blanks at 10 points so that the form fits the page; then the page ends.
void PrintDataSheet(const std::vector<std::string>& lines, PageSink& printer);

// Writes the sheet's text file whole: " ", each line behind three blanks, " " and the maker's three lines; CR LF,
// Windows-1252. A failed write shows a notice naming the file and the reason and returns false.
bool WriteSheetText(const std::vector<std::string>& lines, const std::filesystem::path& path, Ui& ui);

}  // namespace kestrane
