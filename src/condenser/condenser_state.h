// The working record of one condenser run: its fixed parameters, loads, water data, step curve and sizes.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "engine/design_context.h"
#include "engine/stage_results.h"

namespace kestrane {

inline constexpr int kMaxSteps = 50;
inline constexpr int kPoolSlot = 61;  // the pooled miscible liquid

// The step curve: per step boundary i = 0..NSTEPS and vapor slot 1..61.
struct StepCurve {
  int NSTEPS = 0;
  std::array<float, kMaxSteps + 1> TCSTEP{};
  std::array<float, kMaxSteps + 1> LMTDSTEP{};
  Array2D<float> WSTEP{1, kPoolSlot, 0, kMaxSteps};
  Array2D<float> VPSTEP{1, kPoolSlot, 0, kMaxSteps};
  Array2D<float> QSTEP{1, kPoolSlot, 0, kMaxSteps};
  Array2D<float> YSTEP{1, kPoolSlot, 0, kMaxSteps};
  Array2D<float> HSTEP{1, kPoolSlot, 0, kMaxSteps};
  Array2D<float> ASTEP{1, kPoolSlot, 0, kMaxSteps};
  std::array<float, kPoolSlot + 1> LATENT{};  // latent heats by slot; 61 is the pool's mean
};

// One condenser run.
struct CondenserRun {
  DesignContext& ctx;
  int c = 0;        // condenser column: 3 C1, 2 C2, 1 AC
  int nstages = 0;
  bool tube_side = false;  // condensing in the tubes, water in the shell
  bool direct = false;     // direct contact (barometric)

  // Fixed parameters of all condensers.
  float TOD = 0.75f, pitch = 0.9375f, WALL = 0, kwall = 0, allowable_dp = 7.0f, tube_design_t = 250;
  int layout = 1, shell_code = 1, water_material = 1, process_material = 1, steps = 50;

  // The condenser's input row: OD, TL, TUBES, PASS, WATER IN, WATER OUT, GPM, FF, IHFLOW, surface, MARGIN.
  std::array<float, 12> in{};

  // Gas and loads.
  float P1 = 0, P2 = 0, T1 = 0, T2 = 0;
  float W1 = 0, W2 = 0, PPH_NC = 0, PPH_CVIN = 0, PPH_CVOUT = 0, WCOND = 0;
  float mol_in = 0, mol_out = 0, mol_nc = 0, mol_cvin = 0, mol_cvout = 0;
  float NC_MOL_WGT = 0, MW1 = 0, MW_CV = 0, MW2 = 0, QVO = 0, QVI = 0, DOMEVMAX = 0, VELSLOT = 0;
  float DIAVI = 0, DIAVO = 0, DIAWI = 0, DIAWO = 0, DIACOUT = 0, FPSVI = 0, FPSVO = 0, FPSWI = 0, FPSWO = 0;
  float Q_TOTAL = 0, QSTEAM = 0, QVAP = 0, QSUB = 0, QUSE = 0, GPMREQ = 0, GPMUSE = 0;
  float CTSTEAM = 0, CTOTHER = 0, T1F = 0, T2F = 0, TCOND = 0;

  // Water.
  float WATER_IN = 0, WATER_OUT = 0, GPM = 0, FF = 0, MARGIN = 1, VIF = 0.8f;
  int IHFLOW = 0;
  float CP = 0, SG = 0, K = 0, MU = 0;

  // Tubes and shell.
  float ID = 0, WALL_RESIST = 0, surface_per_ft = 0, tube_flow_factor = 0, tube_area = 0;
  float OD = 0, shell_od = 0, shell_wall = 0, OTL = 0, NMAX = 0, TL = 0, TUBES = 0, PASS = 0;
  // The shell kept through the sizing loop (nominal in.; 0 none): cleared at each pass restart; with
  // condensing in the tubes the first shell of a pass is kept until it no longer holds the tubes.
  float forced_shell = 0;
  int lanes1 = 0, lanes2 = 0;
  float TWALL = 0;
  float VEL = 0, VTUBES = 0, HT = 0, AREA = 0, AREQ = 0, AREQSUB = 0, AREQSTM = 0, AREQVAP = 0;
  float UD = 0, USTM = 0, UVAP = 0, HSTM = 0, HVAP = 0, WLMTD = 0, WLMTDSTM = 0, WLMTDVAP = 0, FFACT = 0;
  float DOME = 0, DOMEOUT = 0, DOMECALC = 0, BAFFLES = 0, BSP = 0, PCTCUT = 0, PCTQ = 0, RNFA = 0, DELTAP = 0;
  std::array<float, 8> baro{};  // BARO A .. BARO G, 1-based

  StepCurve curve;
  std::array<int16_t, 14>& warnings;

  CondenserRun(DesignContext& context, std::array<int16_t, 14>& w) : ctx(context), warnings(w) {}
  DesignCase& dc() { return ctx.dc; }
};

// Records a warning code in its fixed place of the list.
void Warn(CondenserRun& run, int code);

// The stopping of a condenser run: after a message, the run ends with its error flag.
struct CondenserStop {
  std::string reason;  // what stopped it, in a few words
};

// Geometry of the shell and tube layout.
struct PassLayout {
  float passes = 1;
  int lanes1 = 0, lanes2 = 0;
};
PassLayout AdjustPasses(const CondenserRun& run, float passes);
// Tubes that fit a circle of diameter d through the outer tube centres.
float TubeCount(const CondenserRun& run, float d, float passes, int lanes1, int lanes2);
// The circle through the outer tube centres that holds a tube count.
float TubeCircle(const CondenserRun& run, float tubes, float passes, int lanes1, int lanes2);
// Shell selection for TUBES with the domes DOME and DOMEOUT. A forced shell (forced_shell above 1) stands
// unless it no longer holds TUBES or its dome area goes negative; then it is dropped (set to 0) and the
// shell grows from it. With condensing in the tubes a tube limit OTL from the previous call stands.
void SelectShell(CondenserRun& run);
// Vapor escape area of shell side condensing.
void VaporEscapeArea(CondenserRun& run);
// A nozzle for a flow (ft3/s): the given diameter, or the size for vmax, at least minimum.
float SizeNozzle(const CondenserRun& run, float flow, float& diameter, float vmax, float minimum);

// The sizing loop of a surface condenser.
void RateSurfaceCondenser(CondenserRun& run);
// Water side pressure drop (psi) with the water in the tubes.
float WaterInTubesPressureDrop(const CondenserRun& run);
// The barometric condenser's size and dimensions.
void SizeBarometric(CondenserRun& run);
// The condensing curve; false when nothing condenses (after its message).
bool CondensingCurve(CondenserRun& run);

}  // namespace kestrane
