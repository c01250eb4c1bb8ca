// The design case record: the inputs as the design run sees them and the result tables it fills.
#pragma once

#include <cstdint>
#include <string>

#include "properties/arrays.h"

namespace kestrane {

inline constexpr int kMaxLoads = 60;
inline constexpr int kStageColumns = 5;   // 1 "C", 2 "B", 3 "A", 4 "AA", 5 "AAA"
inline constexpr int kStageRows = 60;
inline constexpr int kCondenserColumns = 3;  // 1 "AC", 2 "C2", 3 "C1"
inline constexpr int kCondenserRows = 160;

// Stage columns from the atmospheric end.
enum StageColumn : int { kStageC = 1, kStageB = 2, kStageA = 3, kStageAA = 4, kStageAAA = 5 };
// Condenser columns; a run designs them in the order C1, C2, AC.
enum CondenserColumn : int { kCondAC = 1, kCondC2 = 2, kCondC1 = 3 };

// Rows of LOADS (0-based).
enum LoadRow : int {
  kLoadID = 0,
  kLoadPPH = 1,
  kLoadMW = 2,
  kLoadVPC1 = 3,
  kLoadVPC2 = 4,
  kLoadVPAC = 5,
  kLoadMISCIBLE = 7
};

// Rows of STG.
enum StageRow : int {
  kStgPIN = 1,
  kStgPOUT = 2,
  kStgMOTIVE = 3,
  kStgML = 4,
  kStgSIZE = 5,
  kStgTHROAT = 6,
  kStgVE = 7,
  kStgDIMA = 8,
  kStgDIMB = 9,
  kStgDIMC = 10,
  kStgDIAS = 45,
  kStgVELS = 46,
  kStgDIAD = 47,
  kStgVELD = 48,
  kStgTS = 49,
  kStgTD = 50,
  kStgVMAXS = 51,
  kStgVMAXD = 52,
  kStgDIAM = 53,
  kStgEFF = 54,
  kStgBTU35 = 55,
  kStgEFFCURVE = 56,
  kStgMLCURVE = 57,
  kStgVELM = 58
};

// Rows of CND. WALL (115, 144) and FPSWI (95, 150) stand twice in the table, both written.
enum CondenserRow : int {
  kCndPIN = 1,
  kCndPOUT = 2,
  kCndTSAT = 3,
  kCndDIM1 = 17,  // dim #1 to dim #11 in rows 17 to 27
  kCndWLMTD = 78,
  kCndOD = 79,
  kCndTL = 80,
  kCndAREA = 81,
  kCndGPMUSE = 82,
  kCndWATERIN = 83,
  kCndWATEROUT = 84,
  kCndDELTAP = 85,
  kCndUD = 86,
  kCndUSTM = 87,
  kCndUVAP = 88,
  kCndHT = 89,
  kCndHSTM = 90,
  kCndHVAP = 91,
  kCndAREQSTM = 92,
  kCndAREQVAP = 93,
  kCndVEL = 94,
  kCndFPSWI = 95,
  kCndFFACT = 96,
  kCndDOME = 97,
  kCndDOMECALC = 98,
  kCndDIAVI = 99,
  kCndDIAVO = 100,
  kCndDIAWI = 101,
  kCndDIAWO = 102,
  kCndPASS = 103,
  kCndDIACOUT = 104,
  kCndQNOSUB = 105,
  kCndISTANDARD = 106,
  kCndAREQSUB = 107,
  kCndBAFFLES = 108,
  kCndBSP = 109,
  kCndCTOTHER = 110,
  kCndCTSTEAM = 111,
  kCndDOMEOUT = 112,
  kCndDOMEVMAX = 113,
  kCndFF = 114,
  kCndWALL = 115,
  kCndIVERT = 116,
  kCndMWCV = 117,
  kCndNCMOLWGT = 118,
  kCndPCTCUT = 119,
  kCndPCTQ = 120,
  kCndPPHCVIN = 121,
  kCndPPHCVOUT = 122,
  kCndPPHNC = 123,
  kCndQTOTAL = 124,
  kCndQSTEAM = 125,
  kCndQSUB = 126,
  kCndQUSE = 127,
  kCndQVAP = 128,
  kCndRNFA = 129,
  kCndIHFLOW = 130,
  kCndMODEL = 131,
  kCndSTEPS = 132,
  kCndT1 = 133,
  kCndT1F = 134,
  kCndT2F = 135,
  kCndTCOND = 136,
  kCndTMSHL = 137,
  kCndTMTUBE = 138,
  kCndTOD = 139,
  kCndTUBES = 140,
  kCndVELSLOT = 141,
  kCndVIF = 142,
  kCndVTUBES = 143,
  kCndWALL2 = 144,
  kCndWALLRESIST = 145,
  kCndWLMTDSTM = 146,
  kCndWLMTDVAP = 147,
  kCndFPSVI = 148,
  kCndFPSVO = 149,
  kCndFPSWI2 = 150,
  kCndFPSWO = 151,
  kCndBAROA = 152,
  kCndBAROB = 153,
  kCndBAROC = 154,
  kCndBAROD = 155,
  kCndBAROE = 156,
  kCndBAROF = 157,
  kCndBAROG = 158
};

// Places of TOTALS.
enum TotalsPlace : int {
  kTotalAnnualCost = 1,
  kTotalMotive = 6,
  kTotalWater = 7,
  kTotalPower = 8,
  kTotalSteamCost = 10,
  kTotalWaterCost = 11,
  kTotalPowerCost = 12
};

// One design case. PINTERFIX, which outlives a case, is kept by the Session;
// the case file (USERCASE, CASENAME, CASEDIRTY) by the input screen.
struct DesignCase {
  // Inputs, in standard units: mmHgA, degF, psig, lb/hr.
  float PSUCT = 0;
  float TSUCT = 0;
  float PDISCH = 0;
  float PMOTIVE = 0;
  float TMOTIVE = 0;  // 0: dry and saturated
  float TWATERIN = 0;
  int16_t STAGEOPT = 0;  // 0 automatic, else 1 to 4
  int16_t NSTAGES = 0;
  int16_t CNDTYPE = 0;  // 0 none, 1 shell and tube, 2 direct contact
  int16_t CNDTS = 0;    // 1: condensing in the tubes
  int16_t PRECOND = 0;  // -1 when a precondenser is asked
  int16_t USELRVP = 0;  // 1: liquid ring pump as last stage
  int16_t CYCLES = 0;   // 0 for 60 cycles, 1 for 50
  int16_t HASC1 = 0, HASC2 = 0, HASAC = 0;
  float TSATC1 = 0, TSATC2 = 0, TSATAC = 0;
  Array1D<float> TWMAX{18};  // 16, 17, 18: water outlet limits of AC, C2, C1
  int16_t KEEPWATER = 0, KEEPWATERC = 0, KEEPWATERP = 0;
  float LRVPFACTOR = 1.0f;
  float LRVPMLMIN = 1.1f;
  // Pump options without an input of their own: the seal water option (1..3,
  // picks the catalogue's seal flow), a seal flow in gpm that replaces the
  // catalogue's for an explicitly chosen pump (0: none), and the two pump
  // codes that raise the maximum power of some models.
  int16_t SEALOPTION = 1;
  float SEALFLOW = 0;
  int16_t PUMPCODE = 0, PUMPCODE2 = 0;

  // Loads: load 1 is water vapor.
  int16_t NLOADS = 0;
  Array2D<float> LOADS{0, 7, 1, kMaxLoads};  // LOADS(row, load)
  Array1D<float> LATENT{kMaxLoads};
  Array1D<int16_t> LOADCLASS{kMaxLoads};
  Array2D<int16_t> VPRANGE{kMaxLoads, 3};

  // Load distribution, lb/hr.
  Array2D<float> STGLOAD{kMaxLoads, kStageColumns};              // (load, stage column)
  Array3D<float> CNDLOAD{kMaxLoads, 2, kCondenserColumns};       // (load, 1 in / 2 out, condenser column)

  // Results.
  Array2D<float> STG{kStageColumns, kStageRows};
  Array2D<int16_t> VELFLAG{kStageColumns, 7};  // 6: suction, 7: discharge velocity over its limit
  Array2D<float> CND{kCondenserColumns, kCondenserRows};
  Array1D<float> TOTALS{12};
  Array2D<float> LRVPRES{68, 89};  // (row, pump kept)
  int16_t LRVPERR = 0;             // 0 good, 1 error reported, 2 no pump found

  // Condenser input rows (1 AC, 2 C2, 3 C1): OD, TL, TUBES, PASS, WATER IN,
  // WATER OUT, GPM, FF, IHFLOW, surface, MARGIN; 0 means not specified.
  Array2D<float> CNDIN{kCondenserColumns, 11};

  // Condenser option block.
  Array1D<float> CNDOPT{25};
  Array1D<float> CNDOPT2{11};
};

// Clears LOADS, LATENT, LOADCLASS, VPRANGE, STGLOAD and CNDLOAD for all loads.
void ClearLoadTables(DesignCase& dc);

// Clears STG, CND, LRVPRES, TOTALS and sets LRVPERR to 0.
void ClearResultTables(DesignCase& dc);

}  // namespace kestrane
