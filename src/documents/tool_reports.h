// The printed pages of the gas pressure loss tool and the Nupreir calculator.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "calculators/nupreir.h"
#include "shell/page_sink.h"

namespace kestrane {

inline constexpr std::string_view kPressureDropReportTitle = "Kestrane Gas Pressure Drop Estimation";

// The gas pressure loss page: the results box line by line. `file` is the tool's current TDP file (its name
// goes into the head), empty for a case not saved.
void PrintPressureDrop(PageSink& printer, const std::string& results_box, const std::string& file,
                       const std::string& date_text);

// The Nupreir page: the variable rows that hold a name or a value, the equations (the expression box's text)
// and the results box. `file` is the current GFR file, empty for none.
void PrintNupreir(PageSink& printer, const std::array<NupreirVariable, kNupreirVariables>& variables,
                  const std::string& equations, const std::string& results, const std::string& file,
                  const std::string& date_text);

}  // namespace kestrane
