// The thermo compressor's result frame and debugger grid, read from STG column 1.
#include <algorithm>

#include "properties/numeric.h"
#include "properties/text_codec.h"
#include "properties/vb.h"
#include "thermo/thermo_compressor.h"
#include "properties/unit_factors.h"

namespace kestrane {

std::string TcModel(const DesignCase& dc) {
  // "TC", "-" where an ejector names its stage, the size, "x" and the throat.
  return "TC-" + Trim(GeneralText(dc.STG(1, kStgSIZE))) + "x" + Format(dc.STG(1, kStgTHROAT), "0.00");
}

TcResults FillTCResults(const DesignCase& dc, bool metric) {
  TcResults r;
  r.captions = {"Model                ", metric ? "Motive (kg/hr)" : "Motive (#/hr)", "Suction Dia. (in.)",
                "Discharge Dia. (in.)", "Motive Dia. (in.)"};
  const float motive = dc.STG(1, kStgMOTIVE) / (metric ? kLbPerKgSingle : 1.0f);
  r.values = {TcModel(dc), FormatFixed(motive, 12.0f), FormatFixed(dc.STG(1, kStgDIAS), 12.2f),
              FormatFixed(dc.STG(1, kStgDIAD), 12.2f), FormatFixed(dc.STG(1, kStgDIAM), 12.2f)};
  return r;
}

std::string TcResultsText(const TcResults& results) {
  size_t width = 0;
  for (const auto& caption : results.captions) width = std::max(width, ToCodePoints(caption).size());
  std::string text;
  for (size_t row = 0; row < results.captions.size(); ++row) {
    std::string line = results.captions[row];
    line.append(width - ToCodePoints(line).size(), ' ');
    std::string cell(14, ' ');
    PlaceInField(1, cell, Trim(results.values[row]), 14);
    text += RTrim(line + cell) + "\n";
  }
  return text;
}

std::vector<std::pair<std::string, std::string>> TcDebuggerGrid(const DesignCase& dc) {
  static const std::pair<const char*, int> kRows[] = {
      {"Suction Pressure (psia)    ", kStgPIN},  {"Discharge Pressure (psia)  ", kStgPOUT},
      {"Motive FLow (#/hr)         ", kStgMOTIVE}, {"M/L Ratio                  ", kStgML},
      {"Size                       ", kStgSIZE}, {"Throat                     ", kStgTHROAT},
      {"DIM A                      ", kStgDIMA}, {"DIM B                      ", kStgDIMB},
      {"DIM C                      ", kStgDIMC}, {"Suction Dia (in.)          ", kStgDIAS},
      {"Suction Vel (fps)          ", kStgVELS}, {"Discharge Dia (in.)        ", kStgDIAD},
      {"Discharge Vel (fps)        ", kStgVELD}, {"Suction Temp (degF)        ", kStgTS},
      {"Discharge Temp (degF)      ", kStgTD},   {"Motive Dia (in.)           ", kStgDIAM},
      {"Motive Vel (fps)           ", kStgVELM}};
  std::vector<std::pair<std::string, std::string>> grid;
  for (const auto& [label, row] : kRows) grid.emplace_back(label, FormatFixed(dc.STG(1, row), 12.4f));
  return grid;
}

}  // namespace kestrane
