// The drawing of each piece of equipment of a design: which .CAD file stands for it and the design's figures put
// into its placeholders.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "drawings/drawing.h"
#include "engine/design_context.h"
#include "engine/results.h"

namespace kestrane {

// The drawings of an ejector, a barometric condenser and a liquid ring pump.
inline constexpr std::string_view kJetDrawingFile = "NJET.CAD";
inline constexpr std::string_view kBarometricDrawingFile = "NBARO.CAD";
inline constexpr std::string_view kPumpDrawingFile = "NLRVP.CAD";

// The model text of a surface condenser: OD "x" TL and its head letters ("12x96BEM").
std::string ModelCode(const DesignContext& ctx, int condenser);

// The drawing file of a surface condenser: by its vertical arrangement (CNDTS 1) and head letters, and for a
// horizontal one by odd or even passes ("NBEME.CAD").
std::string CondenserDrawingFile(const DesignContext& ctx, int condenser);

// The loaders: each loads its file (a failure shown by LoadDrawing and told in `failed`) and fills the
// placeholders in their order, on whatever the tables hold. Lengths show in feet and inches, or in mm when metric;
// nozzles always in inches. The condenser, barometric and pump loaders take the metric flag from the input screen.
void LoadJetDrawing(Drawing& d, const DesignContext& ctx, int stage, bool metric, const std::string& description,
                    int16_t& failed);
void LoadCondenserDrawing(Drawing& d, const DesignContext& ctx, int condenser, int16_t& failed);
void LoadBarometricDrawing(Drawing& d, const DesignContext& ctx, int condenser, int16_t& failed);
void LoadPumpDrawing(Drawing& d, const DesignContext& ctx, int stage, int16_t& failed);

// The loader of the slot's kind, with the slot's stage or condenser; an ejector's description is the caption.
void LoadSlotDrawing(Drawing& d, const DesignContext& ctx, const EquipmentSlot& slot, bool metric, int16_t& failed);

}  // namespace kestrane
