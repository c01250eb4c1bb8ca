// The thermo compressor: one steam jet compressing low pressure steam with motive steam, its connections and body, and its result texts.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "engine/design_context.h"
#include "thermo/tc_input.h"

namespace kestrane {

// The discharge velocity iteration ends here at the latest, with a notice.
inline constexpr int kTcVelocityPasses = 1000;

// What the design decided besides STG column 1.
struct TcOutcome {
  int16_t TYPE = 1;      // body: 1, 9 below a compression ratio of 1.8, 8 below 1.2
  int passes = 0;        // discharge velocity passes
  bool settled = true;   // false when the iteration was stopped
  bool balanced = true;  // false when the final jet balance did not converge
  float compressionRatio = 0;
};

// Designs the compressor for the checked input into STG column 1.
TcOutcome DesignThermoCompressor(DesignContext& ctx, const TcInput& tcin);

// The body of a large or low ratio compressor: the A and B dimensions when
// the ejector bodies give none, and the length C over the diffuser of TYPE.
void TCDimensions(const DesignContext& ctx, int16_t type, float size, float throat, float dias, float diad, float diam,
                  float& dima, float& dimb, float& dimc);

// The compressor's model text, as the result frame and the sheets show it: "TC-", the size, "x" and the throat.
std::string TcModel(const DesignCase& dc);

// The result frame: captions, the model and the values, standard or metric.
struct TcResults {
  std::vector<std::string> captions;
  std::vector<std::string> values;
};
TcResults FillTCResults(const DesignCase& dc, bool metric);
std::string TcResultsText(const TcResults& results);

// The debugger grid of the tool: label and value of each row of STG column 1 it shows.
std::vector<std::pair<std::string, std::string>> TcDebuggerGrid(const DesignCase& dc);

}  // namespace kestrane
