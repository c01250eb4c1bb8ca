// Gas volume and mass: a gas flow between mass and volume at its molecular weight, pressure and temperature, each in the unit chosen.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kestrane {

inline constexpr std::string_view kGasFlowNote =
    "This program will calculate either the mass flow or volumetric flow of a gas.  Simply enter the molecular "
    "weight, pressure, temperature and either the mass flow or the volumetric flow and then choose \"Calculate\".  "
    "Units of the input values can be selected by clicking the button next to the appropriate unit in each category.";

enum class GasGroup { kPressure, kTemperature, kMassFlow, kVolFlow };

// The window: one box per unit; the option of each group picks the box that takes typing.
struct GasFlowScreen {
  std::string txtMW;
  std::array<std::string, 5> txtPressure{"760"};  // mmHgA, psig, psia, bar A, kPa
  std::array<std::string, 2> txtTemperature;      // degF, degC
  std::array<std::string, 2> txtMassFlow;         // #/hr, kg/hr
  std::array<std::string, 4> txtVolFlow;          // ACFM, SCFM, NCFM, NM3/hr
  int OptionPressure = 0, OptionTemperature = 0, OptionMassFlow = 0, OptionVolFlow = 0;
  int OptionMassVolume = 0;  // 0 "Enter Mass Flow", 1 "Enter Volumetric Flow"
  std::string message;       // what the window says when it cannot calculate
};

extern const std::array<std::string_view, 5> kPressureUnits;
extern const std::array<std::string_view, 2> kTemperatureUnits;
extern const std::array<std::string_view, 2> kMassFlowUnits;
extern const std::array<std::string_view, 4> kVolFlowUnits;

// Chooses the active unit of a group (or, for the flows, which flow is entered); the boxes of the group that are not active are emptied.
void SelectGasOption(GasFlowScreen& screen, GasGroup group, int index);
void SelectMassOrVolume(GasFlowScreen& screen, int index);

// Whether a box takes typing: the active box of its group, and of the flows only the group being entered.
bool GasBoxEnabled(const GasFlowScreen& screen, GasGroup group, int index);

// Leaving the active box of a group: its value goes to the group's other boxes (FormatFixed 10.2, trimmed).
void UpdateGasUnits(GasFlowScreen& screen, GasGroup group);

// Calculate: the volume flows from the mass flow, or the mass flow from the active volume flow.
// False, with `message` set and the boxes kept, when an input is missing or zero.
bool GasMassVolCalcs(GasFlowScreen& screen);

}  // namespace kestrane
