// The tail leg height: how tall a condensate leg must be so that the receiver's pressure cannot flood the condenser.
#include "calculators/tail_leg.h"

#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

bool CalculateTailLeg(TailLegScreen& screen) {
  const double pr = Val(screen.txtTailLeg[0]) / 51.7145;  // psi
  const double pc = Val(screen.txtTailLeg[1]) / 51.7145;
  const double g = Val(screen.txtTailLeg[2]);
  if (g == 0) return false;  // the division fails; the answers stay
  const double h = (pr - pc) * 144 / (g * 62.4);
  // Rounded by the single precision rounding routine; the meters from the unrounded height.
  auto feet = static_cast<float>(h);
  auto meters = static_cast<float>(h * 0.3048);
  RoundTo(feet, 0.1f);
  RoundTo(meters, 0.1f);
  screen.lblAns[0] = Trim(GeneralText(feet)) + " feet";
  screen.lblAns[1] = Trim(GeneralText(meters)) + " meters";
  return true;
}

}  // namespace kestrane
