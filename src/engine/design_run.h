// The design run: from a checked case record to a whole train with its condensers, connections, utilities and annual cost.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/design_context.h"

namespace kestrane {

// Where the stages of a checked record start and end: the suction pressure
// and temperature, the loads, and the last stage's discharge (mmHgA), through
// the after condenser when there is one.
struct TrainEnds {
  float pin = 0, pout = 0, tin = 0;
  LoadVector loads;
};
TrainEnds TrainEndsOf(const DesignCase& dc);

// The stages of a checked record: the precondenser of a one or two stage
// train, then the interstage search that ctx.search names. pin and tin come
// back as the first stage's suction (after a precondenser).
void DesignStages(DesignContext& ctx, float& pin, float pout, float& tin, LoadVector& loads);

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
  // Plain advice on the design beyond the program's notices (advisories.h):
  // a failed or overloaded stage, unusual steam, a better stage count or search.
  std::vector<std::string> advisories;
};

// The menu entry: the input check, then the run when it passes, then the
// advisories. Under the thorough search an automatic stage count is chosen
// by comparing the stage counts that suit the suction pressure.
DesignOutcome RunDesign(DesignContext& ctx, InputScreen& screen);

}  // namespace kestrane
