// The pricing breakdown as printed pages: the build-up's lines under the page head, over as many pages as they take.
#pragma once

#include <string>
#include <string_view>

#include "pricing/price_buildup.h"
#include "shell/page_sink.h"

namespace kestrane {

inline constexpr std::string_view kPriceReportTitle = "Kestrane Pricing Breakdown";

// Prints the breakdown of `price`; `case_file` names the case in the head (empty for a case not saved). The item
// table's two head lines open every page it runs on to.
void PrintPriceBreakdown(PageSink& printer, const PriceBuildUp& price, const std::string& case_file,
                         const std::string& date_text);

}  // namespace kestrane
