// The tail leg height: how tall a condensate leg must be so that the receiver's pressure cannot flood the condenser.
#include "calculators/tail_leg.h"

#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

bool CalculateTailLeg(TailLegScreen& screen) {
  screen.error = 0;
  try {
    const double pr = Val(screen.txtTailLeg[0]) / 51.7145;  // psi
    const double pc = Val(screen.txtTailLeg[1]) / 51.7145;
    const double g = Val(screen.txtTailLeg[2]);
    // The head of condensate (62.4 lb/ft3 times the gravity) that balances the pressure difference, ft.
    const double h = Divide((pr - pc) * 144, g * 62.4);
    // Rounded by the single precision rounding routine; the meters from the unrounded height.
    float feet = CSng(h);
    float meters = CSng(h * 0.3048);
    RoundTo(feet, 0.1f);
    RoundTo(meters, 0.1f);
    screen.lblAns = {Trim(GeneralText(feet)) + " feet", Trim(GeneralText(meters)) + " meters"};
    return true;
  } catch (const VbError& e) {
    screen.error = static_cast<int16_t>(e.number());
    return false;
  }
}

}  // namespace kestrane
