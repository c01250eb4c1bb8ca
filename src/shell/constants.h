// The fixed design tables: ejector and condenser curves, materials, pipes, barometric, ejector body and layout tables.
#pragma once

#include <string>

#include "properties/arrays.h"

namespace kestrane {

// The program's version, shown as "2.01" and written first in every case file.
inline constexpr float PROGVERSION = 2.01f;
// The version as the programs show it: "2.01".
std::string ProgramVersionText();

// Curve tables set at start-up under "Setting Mollier Data......".
// Each is T(point, column), read through TableInterp.
struct Curves {
  Array2D<float> VELOCITYCURVE;  // 17 x 2: inHg, maximum vapor velocity ft/s
  Array2D<float> CONDCURVEA;     // 23 x 2: percent inerts, water vapor condensing film
  Array2D<float> CONDCURVEB;     // 11 x 2: inert mole fraction, other vapors' condensing film
  Array2D<float> EFFLINES;       // 8 x 6: suction pressure, a0..a4 of the efficiency polynomial
};

inline constexpr int kMaterialCount = 36;

// Constants and tables set at start-up under "Setting program constants.........".
struct Constants {
  Array1D<std::string> STAGENAME;     // 1..5: "C", "B", "A", "AA", "AAA"
  Array1D<std::string> MATERIALNAME;  // 1..36, blank padded to 16 characters
  Array1D<float> CONDUCTIVITY;        // 1..36, Btu/hr-ft-F
  Array1D<float> BWGWALL;             // 1..18, tube wall by gauge, inches
  Array2D<float> PIPETAB;             // 20 x 3: nominal, wall, inside diameter
  Array2D<float> MWTAB;               // 28 x 2: molecular weight, entrainment ratio
  Array2D<float> SIZETAB;             // 32 x 4: size, throat, suction, discharge
  Array2D<float> THROATCORR;          // 32 x 2: throat, motive correction
  Array2D<float> DYNHEAD;             // 14 x 3: motive ratio, suction and discharge head fraction
  Array2D<float> BAROTAB;             // 39 x 12: barometric condensers
  Array2D<float> BAROWATER;           // 28 x 2: shell size, gpm
  Array2D<float> BAROLOAD;            // 27 x 5: shell size, P1, capacity at P1, P2, capacity at P2
  Array2D<float> BAROVIN;             // 24 x 2: inlet velocity, pressure mmHgA
  Array2D<float> BAROVOUT;            // 18 x 2: outlet velocity, pressure mmHgA
  Array2D<float> EJECTORBODY;         // 32 x 5: size, A, B, C, D
  Array2D<float> STDCONDENSER;        // 52 x 10: OD, TL, passes, dims 1..7
  Array2D<float> ODTOY;               // 10 x 2: shell OD, head depth Y
  Array2D<float> SHELLFRICTION;       // 9 x 2: Reynolds number, friction factor
  Array2D<float> PASSTAB;             // 11 x 3: passes, lanes one way, lanes the other
  Array2D<float> PASSTAB6;            // 8 x 3: the same for shell code 6
  Array1D<float> LANEFACTOR;          // 1..8, by lane count + 1
  Array2D<float> CLEARANCE;           // 12 x 2: tube limit, clearance
  Array2D<float> SLOTVELOCITY;        // 14 x 2: vacuum inHg, slot velocity ft/s
};

// Fills the curve tables.
void SetCurves(Curves& curves);

// Fills the constants and design tables.
void SetConstants(Constants& constants);

}  // namespace kestrane
