// The input check: the screen becomes the case record, limits are enforced and the number of stages chosen.
#pragma once

#include <cstdint>

#include "case/design_case.h"
#include "case/input_screen.h"
#include "properties/steam.h"
#include "properties/vapors.h"

namespace kestrane {

// What the input check reads besides the screen.
struct CheckServices {
  const Steam& steam;
  const Vapors& vapors;
  Ui& ui;
};

// Reads the screen into the record, clears the results and chooses the stage
// count; design boxes 1 to 3 left empty or not numeric become "0". The
// notices gathered on the way are shown together in one box, a line each.
// Returns ERR: 1 when the input is refused and no run may follow.
// `pinterfix` is the fixed pressure between stages A and B, set for four stages.
int16_t CheckInput(InputScreen& screen, DesignCase& dc, float& pinterfix, const CheckServices& services);

// The first stage compression check: with water at tw + 16 degF the
// compression from psuct must not exceed 12. Appends its notice and sets err.
void CheckRc(float psuct, float tw, int16_t& err, const Steam& steam, std::string& notices);

}  // namespace kestrane
