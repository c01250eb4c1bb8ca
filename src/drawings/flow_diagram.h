// The process flow diagram of a design: its train drawn by program into the drawing's tables.
#pragma once

#include <cstdint>

#include "drawings/drawing.h"
#include "engine/design_context.h"

namespace kestrane {

// The layer of an equipment symbol: this plus the kind of its slot (ejector 11, surface condenser 12, barometric
// condenser 13, liquid ring pump 14); every other row stands on layer 1.
inline constexpr int16_t kSymbolLayerBase = 10;

// Clears the drawing and draws the train of the case's last good run on sheet 2 at scale 1, from the process
// inlet at the left to the discharge at the right: each ejector, condenser and pump in the order of the
// equipment slots with its name and model, the motive steam header, the cooling water and condensate of each
// condenser, a label of pressure, temperature and flow on every stream, and the title block; in metric units
// when asked.
void BuildFlowDiagram(Drawing& d, const DesignContext& ctx, bool metric);

}  // namespace kestrane
