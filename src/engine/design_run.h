// The design run: from a checked case record to a whole train with its condensers, connections, utilities and annual cost.
#pragma once

#include <cstdint>
#include <string>

#include "engine/design_context.h"

namespace kestrane {

// The run proper on a checked record. Sets LRVPERR; notices and status texts go to the Ui.
void DesignSystem(DesignContext& ctx);

// What the design window shows after "Design System".
struct DesignOutcome {
  int16_t input_error = 0;  // the input check refused the case: no run
  bool results = false;     // results are shown (no pump error)
  std::string lblMessage;   // "LRVP Error" after a pump error
};

// The menu entry: the input check, then the run when it passes.
DesignOutcome RunDesign(DesignContext& ctx, InputScreen& screen);

}  // namespace kestrane
