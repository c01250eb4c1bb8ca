// The head, the text file name and the text file of the quotation request sheets.
#include "documents/request_sheet.h"

#include "documents/page_frame.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/vb_file.h"

namespace kestrane {

void PlaceMainInput(RequestLines& sheet, size_t units_line, bool metric, std::span<const std::string> standard,
                    std::span<const std::string> metric_boxes, float last_spec) {
  PlaceInField(-1, sheet(units_line), metric ? "Metric" : "Standard", 17);
  for (size_t k = 0; k < standard.size(); ++k) {
    const float spec = k + 1 == standard.size() ? last_spec : 12.2f;
    PlaceNumber(sheet(units_line + 1 + k), BoxNumber(standard[k]), spec, 1, 50);
    PlaceNumber(sheet(units_line + 1 + k), BoxNumber(metric_boxes[k]), spec, 1, 69);
  }
}

void PlaceRequestHead(RequestLines& sheet, std::string_view title, std::string_view request,
                      const UserInfo& user, const std::string& date_text, const RequestCase& request_case) {
  auto put = [&sheet](size_t n, std::string_view text) { sheet(n) = TemplateLine(text, kRequestWidth); };
  put(1, std::string(26, ' ') + std::string(kMakerName));
  put(2, title);
  put(4, "   To:         Tessel Corporation                   Fax: " + std::string(kMakerFax));
  put(5, "   Attention:  Application Engineering              Date:");
  put(7, "   From:                                            Phone:");
  put(8, "                                                    Fax:");
  put(9, "                                                    Name:");
  put(11, "   Email:");
  put(12, "   ____________________________________________________________________");
  put(13, request);
  put(14, "   Item:                                              User:");
  put(15, "   Description:                                       File:");

  // The rows by their numbers, as the sheet has always taken them.
  for (int row = 1; row <= 4; ++row) PlaceInField(-1, sheet(static_cast<size_t>(6 + row)), Trim(user(row)), 11);
  PlaceInField(-1, sheet(7), Trim(user(5)), 59);
  PlaceInField(-1, sheet(8), Trim(user(6)), 59);
  PlaceInField(-1, sheet(9), Trim(user(8)), 59);
  if (!Trim(user(7)).empty()) PlaceInField(-1, sheet(11), Trim(user(7)), 11);

  PlaceInField(-1, sheet(5), date_text, 59);
  PlaceInField(-1, sheet(14), Trim(request_case.headings[0]), 17);
  PlaceInField(-1, sheet(14), Trim(request_case.headings[2]), 61);
  PlaceInField(-1, sheet(15), Trim(request_case.headings[1]), 17);
  PlaceInField(-1, sheet(15), CaseStem(request_case.file_name), 61);
}

std::filesystem::path SheetTextPath(const std::string& case_path, std::string_view extension,
                                    const std::filesystem::path& fallback_folder) {
  if (!case_path.empty()) {
    const std::filesystem::path path(case_path);
    std::string name = UCase(path.filename().string());
    const size_t at = name.find(extension);
    if (at != std::string::npos) return path.parent_path() / name.replace(at, extension.size(), ".TXT");
  }
  return fallback_folder / "OUT.TXT";
}

std::vector<std::string> SheetTail(int spacers) {
  std::vector<std::string> tail = {" "};
  tail.insert(tail.end(), static_cast<size_t>(spacers), "  ");
  for (size_t i = 0; i < kMakerLines.size(); ++i) tail.push_back(MakerLine(i));
  return tail;
}

bool WriteSheetFile(const std::vector<std::string>& lines, const std::vector<std::string>& tail,
                    const std::filesystem::path& path, Ui& ui) {
  try {
    TextOutput file(path);
    file.PrintLine(" ");
    for (const std::string& line : lines) file.PrintLine("   " + line);
    for (const std::string& line : tail) file.PrintLine(line);
    file.Commit();
  } catch (...) {
    const VbError e = CaughtError();
    ui.notice("The text file " + path.string() + " could not be written: error" + Str(e.number()) + " " +
              e.description());
    return false;
  }
  return true;
}

}  // namespace kestrane
