// The drawing files of the equipment and the texts of the design put into their placeholders.
#include "drawings/drawing_sets.h"

#include "drawings/format_inches.h"
#include "engine/stage_results.h"

namespace kestrane {

namespace {

// Millimetres in an inch.
constexpr float kMmPerInch = 25.4f;

// A nozzle connection above this size, inches, is flanged: its drawing's "NPT" note reads "150#RF".
constexpr float kLargestThreadedNozzle = 2.0f;

// A length as the drawings show it: feet, inches and fractions; in metric units whole millimetres.
std::string DimensionText(float value, bool metric) {
  if (metric) {
    const float mm = value * kMmPerInch;  // the single float product, rounded half to even
    return std::to_string(CInt(mm)) + "mm";
  }
  int16_t format = 3;
  return FormatInches(value, format, 0);
}

// A nozzle size: inches and fraction, never feet, in either units (nozzle sizes are nominal inch sizes).
std::string NozzleText(float value) {
  int16_t format = 3;
  return FormatInches(value, format, 1);
}

// The connection standard of a nozzle too large to be threaded; a smaller one keeps the drawing's note.
void FlangedNote(Drawing& d, float nozzle) {
  if (nozzle > kLargestThreadedNozzle) SetDrawingText(d, "NPT", "150#RF");
}

}  // namespace

std::string ModelCode(const DesignContext& ctx, int condenser) { return CondenserModel(ctx, condenser); }

std::string CondenserDrawingFile(const DesignContext& ctx, int condenser) {
  // The model code ends in the head letters: inlet "A" or "B", "E", return "L" or "M".
  const std::string code = ModelCode(ctx, condenser);
  const std::string heads = code.substr(code.size() - 3);
  if (ctx.dc.CNDTS == 1) return "V" + heads + ".CAD";  // vertical, whatever the passes
  const bool odd = CInt(ctx.dc.CND(condenser, kCndPASS)) % 2 != 0;
  return "N" + heads + (odd ? "O" : "E") + ".CAD";
}

void LoadJetDrawing(Drawing& d, const DesignContext& ctx, int stage, bool metric, const std::string& description,
                    int16_t& failed) {
  LoadDrawing(d, ctx.data.paths.DataFile(kJetDrawingFile), 0, failed, ctx.ui);
  const auto stg = [&](int row) { return ctx.dc.STG(stage, row); };
  SetDrawingText(d, "A?", DimensionText(stg(kStgDIMA), metric));
  SetDrawingText(d, "B?", DimensionText(stg(kStgDIMB), metric));
  SetDrawingText(d, "C?", DimensionText(stg(kStgDIMC), metric));
  SetDrawingText(d, "SUCTION?", NozzleText(stg(kStgDIAS)));
  SetDrawingText(d, "DISCHARGE?", NozzleText(stg(kStgDIAD)));
  SetDrawingText(d, "MOTIVE?", NozzleText(stg(kStgDIAM)));
  FlangedNote(d, stg(kStgDIAM));
  SetDrawingText(d, "DESCRIPTION?", description);
}

void LoadCondenserDrawing(Drawing& d, const DesignContext& ctx, int condenser, int16_t& failed) {
  const bool metric = ctx.screen.Metric();
  LoadDrawing(d, ctx.data.paths.DataFile(CondenserDrawingFile(ctx, condenser)), 0, failed, ctx.ui);
  const auto cnd = [&](int row) { return ctx.dc.CND(condenser, row); };
  // "A?" to "G?": dim #1 to dim #7.
  for (int k = 0; k < 7; ++k) {
    SetDrawingText(d, std::string(1, static_cast<char>('A' + k)) + "?", DimensionText(cnd(kCndDIM1 + k), metric));
  }
  const int vapor_in = kCndDIM1 + 7, vapor_out = kCndDIM1 + 8, condensate = kCndDIM1 + 9, water = kCndDIM1 + 10;
  SetDrawingText(d, "VI?", NozzleText(cnd(vapor_in)));
  SetDrawingText(d, "VO?", NozzleText(cnd(vapor_out)));
  // Both water nozzles show the one size.
  SetDrawingText(d, "WI?", NozzleText(cnd(water)));
  SetDrawingText(d, "WO?", NozzleText(cnd(water)));
  SetDrawingText(d, "CO?", NozzleText(cnd(condensate)));
  FlangedNote(d, cnd(condensate));
  SetDrawingText(d, "DESCRIPTION?", CondenserDescription(ctx, condenser, metric));
}

void LoadBarometricDrawing(Drawing& d, const DesignContext& ctx, int condenser, int16_t& failed) {
  const bool metric = ctx.screen.Metric();
  LoadDrawing(d, ctx.data.paths.DataFile(kBarometricDrawingFile), 0, failed, ctx.ui);
  const auto cnd = [&](int row) { return ctx.dc.CND(condenser, row); };
  // No "E?": BARO E is not shown.
  SetDrawingText(d, "A?", DimensionText(cnd(kCndBAROA), metric));
  SetDrawingText(d, "B?", DimensionText(cnd(kCndBAROB), metric));
  SetDrawingText(d, "C?", DimensionText(cnd(kCndBAROC), metric));
  SetDrawingText(d, "D?", DimensionText(cnd(kCndBAROD), metric));
  SetDrawingText(d, "F?", DimensionText(cnd(kCndBAROF), metric));
  SetDrawingText(d, "G?", DimensionText(cnd(kCndBAROG), metric));
  SetDrawingText(d, "VI?", NozzleText(cnd(kCndDIAVI)));
  SetDrawingText(d, "VO?", NozzleText(cnd(kCndDIAVO)));
  SetDrawingText(d, "WI?", NozzleText(cnd(kCndDIAWI)));
  SetDrawingText(d, "WO?", NozzleText(cnd(kCndDIAWO)));
  // Named by its shell diameter in millimetres.
  SetDrawingText(d, "DESCRIPTION?", Trim(GeneralText(cnd(kCndOD)) + " MM"));
}

void LoadPumpDrawing(Drawing& d, const DesignContext& ctx, int stage, int16_t& failed) {
  const bool metric = ctx.screen.Metric();
  LoadDrawing(d, ctx.data.paths.DataFile(kPumpDrawingFile), 0, failed, ctx.ui);
  const PumpRecord* pump = DesignedPump(ctx);
  const PumpOutline outline = pump != nullptr ? pump->outline : PumpOutline{};
  SetDrawingText(d, "A?", DimensionText(outline.A, metric));
  SetDrawingText(d, "C?", DimensionText(outline.C, metric));
  SetDrawingText(d, "W?", DimensionText(outline.W, metric));
  // These three in feet and inches in either units.
  SetDrawingText(d, "SLC?", DimensionText(outline.SLC, false));
  SetDrawingText(d, "VI?", DimensionText(ctx.dc.STG(stage, kStgDIAS), false));
  SetDrawingText(d, "VO?", DimensionText(ctx.dc.STG(stage, kStgDIAD), false));
  SetDrawingText(d, "DESCRIPTION?", EjectorModel(ctx, stage));
}

void LoadSlotDrawing(Drawing& d, const DesignContext& ctx, const EquipmentSlot& slot, bool metric, int16_t& failed) {
  switch (slot.kind) {
    case EquipmentSlot::kEjector: LoadJetDrawing(d, ctx, slot.index, metric, slot.caption, failed); break;
    case EquipmentSlot::kSurface: LoadCondenserDrawing(d, ctx, slot.index, failed); break;
    case EquipmentSlot::kBarometric: LoadBarometricDrawing(d, ctx, slot.index, failed); break;
    case EquipmentSlot::kPump: LoadPumpDrawing(d, ctx, slot.index, failed); break;
  }
}

}  // namespace kestrane
