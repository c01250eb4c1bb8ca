// The condenser run: flows, heat loads, water balance and the sizing of one condenser of the train.
#include "condenser/condenser_design.h"

namespace kestrane {

void CondenserDesign(DesignContext& /*ctx*/, int /*nstages*/, int /*col*/, float /*dia1*/, float /*dia2*/,
                     int16_t& err, std::array<int16_t, 14>& warnings) {
  // The condenser design is not part of this program yet: the train's
  // condenser columns keep the pressures, temperatures and loads of the run.
  err = 0;
  warnings.fill(0);
}

}  // namespace kestrane
