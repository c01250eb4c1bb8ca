// What the quotation request sheets share: the head with sender and case, the text file's name, the text file.
#pragma once

#include <array>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/ui.h"
#include "shell/user_info.h"

namespace kestrane {

// Width of a request sheet's template lines.
inline constexpr int kRequestWidth = 76;

// The case named at the head of a request sheet: the three heading fields (item, description, engineer) and the
// case file's name.
struct RequestCase {
  const std::array<std::string, 3>& headings;
  const std::string& file_name;
};

// A request sheet's lines, blank at first, by their numbers from 1.
struct RequestLines {
  explicit RequestLines(size_t count) : lines(count, std::string(kRequestWidth, ' ')) {}
  std::string& operator()(size_t n) { return lines.at(n - 1); }
  std::vector<std::string> lines;
};

// The unit word ("Standard" or "Metric") on `units_line`, and below it a line for each main input box: the standard
// and the metric box read back as numbers, ending at columns 50 and 69, by FormatFixed 12.2, the last row by
// `last_spec`.
void PlaceMainInput(RequestLines& sheet, size_t units_line, bool metric, std::span<const std::string> standard,
                    std::span<const std::string> metric_boxes, float last_spec);

// Lines 1 to 15 of a request sheet: the maker and `title`, the address to the maker
// with its fax and the date, the sender from the user information, the request, and the case (item and engineer,
// description and file name). The sender's rows are taken by their numbers: rows 1 to 4 as name and address
// lines, row 5 beside "Phone:", row 6 beside "Fax:", row 8 beside "Name:", row 7 beside "Email:".
void PlaceRequestHead(RequestLines& sheet, std::string_view title, std::string_view request,
                      const UserInfo& user, const std::string& date_text, const RequestCase& request_case);

// Where a sheet's text goes: the case's path with its file name upper-cased and the name's first `extension`
// (".JET", ".TTC") made ".TXT", in the case's own folder; with no case path or no `extension` in the name,
// OUT.TXT in `fallback_folder`. Only the name is upper-cased: the folder is left as it is spelt, since on this
// system a folder spelt otherwise is another folder.
std::filesystem::path SheetTextPath(const std::string& case_path, std::string_view extension,
                                    const std::filesystem::path& fallback_folder);

// What goes out after a sheet's lines: " ", `spacers` lines of two blanks, the maker's three lines.
std::vector<std::string> SheetTail(int spacers);

// Writes the text file whole: " ", each line behind three blanks, then `tail`; CR LF, Windows-1252. A failed
// write shows a notice naming the file and the reason and returns false; nothing is thrown.
bool WriteSheetFile(const std::vector<std::string>& lines, const std::vector<std::string>& tail,
                    const std::filesystem::path& path, Ui& ui);

}  // namespace kestrane
