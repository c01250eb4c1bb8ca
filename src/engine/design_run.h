// The design run: from a checked case record to a whole train with its condensers, connections, utilities and annual cost.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/design_context.h"

namespace kestrane {

// The run proper on a checked record. Sets LRVPERR; notices and status texts
// go to the Ui. A stage or condenser that cannot be designed does not stop the
// run: it returns one text per error flag the run ended with, empty when clean.
std::vector<std::string> DesignSystem(DesignContext& ctx);

// What the design window shows after "Design System".
struct DesignOutcome {
  int16_t input_error = 0;  // the input check refused the case: no run
  bool results = false;     // results are shown (no pump error)
  std::string lblMessage;   // "LRVP Error" after a pump error
  // One short text per error flag the run ended with: the pump error, each
  // condenser that ended with its error flag, each stage whose jet balance did
  // not converge, each run-time error trapped in a step. Empty when clean.
  std::vector<std::string> errors;
};

// The menu entry: the input check, then the run when it passes.
DesignOutcome RunDesign(DesignContext& ctx, InputScreen& screen);

}  // namespace kestrane
