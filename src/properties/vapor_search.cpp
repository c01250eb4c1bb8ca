// The search of the vapor grids: the next row whose text columns hold a text, upper-cased, backward or forward.
#include "properties/vapor_search.h"

#include "properties/vb.h"

namespace kestrane {

VaporSearchResult SearchVaporRows(const std::vector<std::vector<std::string>>& rows, std::string_view text,
                                  int current, bool forward) {
  VaporSearchResult result;
  const std::string wanted = UCase(Trim(text));
  if (wanted.empty()) {
    result.message = "Type a text to search for.";
    return result;
  }
  const int count = static_cast<int>(rows.size());
  const int step = forward ? 1 : -1;
  for (int row = current + step; row >= 1 && row <= count; row += step) {
    for (const std::string& cell : rows[static_cast<size_t>(row - 1)]) {
      if (UCase(cell).find(wanted) != std::string::npos) {
        result.row = row;
        result.message = "\"" + Trim(text) + "\" found in row " + std::to_string(row) + ".";
        return result;
      }
    }
  }
  result.message = "\"" + Trim(text) + "\" not found " + (forward ? "below" : "above") + " the current row.";
  return result;
}

std::vector<std::vector<std::string>> VaporGridText(const VaporData& data) {
  std::vector<std::vector<std::string>> rows;
  rows.reserve(static_cast<size_t>(data.NPSAT));
  for (int i = 1; i <= data.NPSAT; ++i) rows.push_back({Trim(data.PSATFORMULA(i)), Trim(data.PSATNAME(i))});
  return rows;
}

std::vector<std::vector<std::string>> UserVaporGridText(const UserVapors& user) {
  std::vector<std::vector<std::string>> rows;
  for (int i = 1; i <= user.NUDV; ++i) rows.push_back({Trim(user.UDVNAME(i))});
  return rows;
}

}  // namespace kestrane
