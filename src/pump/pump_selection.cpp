// Liquid ring pump selection for the last stage of a train.
#include "pump/pump_selection.h"

namespace kestrane {

int16_t AnalysePump(DesignContext& ctx, float /*p*/, float /*pd*/, const LoadVector& /*loads*/, int16_t /*pump*/,
                    int16_t& count) {
  // The pump catalogue is not part of this program yet: no pump can be kept.
  ctx.dc.LRVPRES.Clear();
  count = 0;
  return 1;
}

}  // namespace kestrane
