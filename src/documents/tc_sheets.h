// The thermo compressor's specification sheet (with room for its drawing) and its quotation request data sheet.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "shell/page_sink.h"
#include "shell/user_info.h"
#include "thermo/tc_input.h"

namespace kestrane {

// The 33 lines of the specification sheet (element 0 is line 1) of a designed compressor: the case, the size,
// motive steam, suction, load and discharge from `tcres` (the checked input the design ran on) and from STG
// column 1, in metric units with a unit word at column 71 when the screen's metric option is on; materials and
// code from the screen's lists.
std::vector<std::string> TcSpecSheetLines(const TcInput& tcres, const DesignCase& dc, const TCInputScreen& screen,
                                          const std::string& date_text);

// The 35 lines of the data sheet: the sender from `user`, the case, the six input boxes as typed on both unit
// sides, materials, code, the model and the motive flow. A box whose number no Single can hold raises VbError 6.
std::vector<std::string> TcDataSheetLines(const DesignCase& dc, const TCInputScreen& screen, const UserInfo& user,
                                          const std::string& date_text);

// The sheets' text file: as the design data sheet's, with the first ".TTC" of the upper-cased file name made
// ".TXT"; OUT.TXT in `fallback_folder` for a case not saved or a name with no ".TTC".
std::filesystem::path TcSheetTextPath(const std::string& case_path, const std::filesystem::path& fallback_folder);

// Prints the specification sheet: lines 2 to 33 behind three blanks in Courier New 10, 21 blank lines of room for
// the drawing, three lines of two blanks and the maker's lines; then `drawing`, when set, puts the preliminary
// drawing onto the same page, and the page ends.
void PrintTcSpecSheet(const std::vector<std::string>& lines, PageSink& printer,
                      const std::function<void(PageSink&)>& drawing);

// Prints the data sheet: " ", each line behind three blanks in Courier New 12, " ", three lines of two blanks and
// the maker's lines; then the page ends.
void PrintTcDataSheet(const std::vector<std::string>& lines, PageSink& printer);

// Writes the data sheet's text file whole, as printed: " ", the lines behind three blanks, " ", three lines of two
// blanks and the maker's lines; CR LF, Windows-1252. A failed write shows a notice naming the file and the reason
// and returns false.
bool WriteTcSheetText(const std::vector<std::string>& lines, const std::filesystem::path& path, Ui& ui);

}  // namespace kestrane
