// What every report shares: the maker's lines, the page head and foot, the date form and the line tools.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "shell/page_sink.h"
#include "properties/vb.h"

namespace kestrane {

// The maker as the sheets name it.
inline constexpr std::string_view kMakerName = "TESSEL CORPORATION";

// The maker's address, telephone and fax, e-mail and web lines. Sample texts of this program's own: a company
// puts its own here.
inline constexpr std::array<std::string_view, 3> kMakerLines = {
    "4100 Harbor Industrial Way, Baytown, Texas 77520, U.S.A.",
    "Telephone (281) 555-0142      Fax (281) 555-0143",
    "E-mail: applications@tessel.example        Web: www.tessel.example",
};
// The maker's fax number alone, for the sheets that ask for a quotation.
inline constexpr std::string_view kMakerFax = "(281) 555-0143";

// The blanks before each maker line in the page foot, which centre it on the page.
inline constexpr std::array<int, 3> kMakerIndents = {20, 24, 15};

// Maker line `i` (0 to 2) behind its indent, as the page foot and the sheets print it.
std::string MakerLine(size_t i);

// Today's date as every report prints it: "Nov 05, 2026".
inline std::string ReportDate(const VbDate& today) { return FormatDate(today); }

// A report line from its template: the text padded with blanks to `width` characters (never cut).
std::string TemplateLine(std::string_view text, int width);

// Writes a number in the line by FormatFixed with `spec` (12.1: width 12, one decimal), placed as PlaceInField
// places a text: alignment 1 ends at `column`, -1 starts there, 0 centres on it.
void PlaceNumber(std::string& line, float value, float spec, int16_t alignment, int16_t column);

// A box's text read back as a number, times `factor`, as the Single a sheet writes: a number beyond a Single's
// range is error 6.
float BoxNumber(const std::string& text, double factor = 1.0);

// A case file's name up to its first "." (the whole name when the "." stands first or there is none), trimmed.
std::string CaseStem(std::string_view file_name);

// The head of a page: two blank lines, the maker's name and the title centred on column 40 in bold, then the
// file name and the date behind `prefix`.
void PageHeader(PageSink& printer, std::string_view title, std::string_view file_name, std::string_view date_text,
                std::string_view prefix);

// Where the page foot starts: an inch above the page's lower edge, in twips.
inline constexpr float kFootAboveEdgeTwips = 1440.0f;

// The foot of a page an inch above its lower edge: the maker's three lines centred; then the page ends.
void PageFooter(PageSink& printer);

}  // namespace kestrane
