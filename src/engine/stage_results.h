// Finishing a train: pipe connections and velocities, recalculated efficiencies, ejector bodies, condenser vapor lines and outlines.
#pragma once

#include <cstdint>
#include <string>

#include "engine/design_context.h"

namespace kestrane {

// A standard pipe: nominal size, outside diameter and wall, inches.
struct Pipe {
  float nominal = 0;
  float od = 0;
  float wall = 0;
};

// The ejector and the condenser routines read the pipe table with two small
// differences: a given size counts when Int(size * 100) (ejector) or
// CInt(size * 100) (condenser) is above 0, and a nominal 24 is the table's row
// (ejector) or a plain 24 in. pipe with a 0.5 in. wall (condenser).
enum class PipeRules { kEjector, kCondenser };

// The next standard pipe at or above an inside diameter (inches).
Pipe PipeLookup(const DesignContext& ctx, float dia);
// A pipe of a given nominal size.
Pipe PipeByNominal(const DesignContext& ctx, float nominal, PipeRules rules = PipeRules::kEjector);

// The pipe for a flow (ft3/s): the given nominal size, or the size that keeps
// the velocity at vmax, at least `minsize` (0.5 when not positive). Returns
// the velocity (ft/s) through it.
float PipeSize(const DesignContext& ctx, float flow, Pipe& pipe, float vmax, float minsize,
               PipeRules rules = PipeRules::kEjector);

// Allowed vapor velocity (ft/s) at p (mmHgA), t (degF) and molecular weight, within 100..400.
float MaxVelocity(const DesignContext& ctx, float p, float t, float mw);

// Suction and discharge connections of a model size from the size table; 0 when no row matches.
void ConnectionsFromSize(const DesignContext& ctx, float size, float& suction, float& discharge);

// Each of these finishes one stage column c of a train; the run calls it for
// the stages in turn, and a stage it cannot finish stops only that stage.

// Suction, discharge and motive connections of the stage, their velocities and limits.
void StageVelocities(DesignContext& ctx, int c);
// The efficiency of the stage as designed (EFF) and the throat it gives (BTU35).
void StageEfficiencies(DesignContext& ctx, int c);
// The efficiency curve's values of the stage (EFFCURVE, MLCURVE). Overwrites
// PSUCT with the stage's suction pressure, as the program always did, so a
// run leaves the last stage's there. Returns the failed flag of the jet
// balance's search at the stage's pressures: the very search that sized the
// stage, whose motive ratio then stands unconverged.
int16_t StageCurves(DesignContext& ctx, int c);

// Ejector body dimensions A, B, C into STG rows 8 to 10.
void EjectorDimensions(DesignContext& ctx, int stage);

// Vapor connections of the precondenser line and of the after condenser outlet.
void CondenserLines(const DesignContext& ctx, float t, int n, float& dia1, float& dia2);

// Condenser model name: OD x TL, inlet head "A" (channel) or "B", "E", return head "L" or "M".
std::string CondenserModel(const DesignContext& ctx, int col);

// Outline dimensions of a surface condenser into CND dim #1 to dim #11.
void CondenserOutline(DesignContext& ctx, int col);

}  // namespace kestrane
