// The search of the vapor grids: the next row whose text columns hold a text, upper-cased, backward or forward.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "properties/vapors.h"

namespace kestrane {

struct VaporSearchResult {
  int row = 0;          // 1-based row found, 0 when none
  std::string message;  // the report shown beside the search box
};

// Searches the rows after `current` (forward) or before it (backward); row 0
// as current starts a forward search at the first row.
VaporSearchResult SearchVaporRows(const std::vector<std::vector<std::string>>& rows, std::string_view text,
                                  int current, bool forward);

// The text columns of the built-in vapor grid, row by row: formula and name, trimmed.
std::vector<std::vector<std::string>> VaporGridText(const VaporData& data);

// The user defined vapors as the text columns of their grid (the name), row r for ID -r.
std::vector<std::vector<std::string>> UserVaporGridText(const UserVapors& user);

}  // namespace kestrane
