// The printed pages of the user vapor window: one vapor with its pressure curve, and all vapors in a table.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "shell/page_sink.h"
#include "properties/vapors.h"

namespace kestrane {

inline constexpr std::string_view kUserVaporReportTitle = "Kestrane User Defined Vapor Pressure";

// Print Current: the name, ID, molecular weight and type of the vapor in `row` (1 to NUDV), its valid range
// and the table of its curve as Graph draws it, temperatures in degF when `fahrenheit`, else degC. A curve
// that cannot be fitted leaves the table without rows, after AntoineUser's notice. Nothing prints for a row
// that holds no vapor.
void PrintUserVapor(PageSink& printer, const Vapors& vapors, int16_t row, bool fahrenheit,
                    const std::string& date_text);

// Print All: a row per vapor with its ID, name, molecular weight, type and three points in degC and mmHgA.
void PrintAllUserVapors(PageSink& printer, const UserVapors& user, const std::string& date_text);

}  // namespace kestrane
