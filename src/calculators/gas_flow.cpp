// Gas volume and mass: a gas flow between mass and volume at its molecular weight, pressure and temperature, each in the unit chosen.
#include "calculators/gas_flow.h"

#include <cmath>

#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/unit_factors.h"

namespace kestrane {

namespace {

constexpr double kMmHgPerPsi = 51.7145;
constexpr double kNm3hPerNcfm = 1.699006;

std::string Box(double value) { return Trim(FormatFixed(static_cast<float>(value), 10.2f)); }

template <size_t N>
void ClearInactive(std::array<std::string, N>& boxes, int active) {
  for (size_t i = 0; i < N; ++i) {
    if (static_cast<int>(i) != active) boxes[i].clear();
  }
}

}  // namespace

const std::array<std::string_view, 5> kPressureUnits = {"mmHgA", "psig", "psia", "bar A", "kPa"};
const std::array<std::string_view, 2> kTemperatureUnits = {"degF", "degC"};
const std::array<std::string_view, 2> kMassFlowUnits = {"#/hr", "kg/hr"};
const std::array<std::string_view, 4> kVolFlowUnits = {"ACFM", "SCFM", "NCFM", "NM3/hr"};

void SelectGasOption(GasFlowScreen& s, GasGroup group, int index) {
  switch (group) {
    case GasGroup::kPressure: s.OptionPressure = index; ClearInactive(s.txtPressure, index); break;
    case GasGroup::kTemperature: s.OptionTemperature = index; ClearInactive(s.txtTemperature, index); break;
    case GasGroup::kMassFlow: s.OptionMassFlow = index; ClearInactive(s.txtMassFlow, index); break;
    case GasGroup::kVolFlow: s.OptionVolFlow = index; ClearInactive(s.txtVolFlow, index); break;
  }
}

void SelectMassOrVolume(GasFlowScreen& s, int index) {
  s.OptionMassVolume = index;
  ClearInactive(s.txtMassFlow, index == 0 ? s.OptionMassFlow : -1);
  ClearInactive(s.txtVolFlow, index == 1 ? s.OptionVolFlow : -1);
}

bool GasBoxEnabled(const GasFlowScreen& s, GasGroup group, int index) {
  switch (group) {
    case GasGroup::kPressure: return index == s.OptionPressure;
    case GasGroup::kTemperature: return index == s.OptionTemperature;
    case GasGroup::kMassFlow: return s.OptionMassVolume == 0 && index == s.OptionMassFlow;
    case GasGroup::kVolFlow: return s.OptionMassVolume == 1 && index == s.OptionVolFlow;
  }
  return false;
}

void UpdateGasUnits(GasFlowScreen& s, GasGroup group) {
  switch (group) {
    case GasGroup::kPressure: {
      const double v = Val(s.txtPressure[static_cast<size_t>(s.OptionPressure)]);
      double mmhg = v;
      switch (s.OptionPressure) {
        case 1: mmhg = (v + 14.696) * kMmHgPerPsi; break;
        case 2: mmhg = v * kMmHgPerPsi; break;
        case 3: mmhg = v * kPsiPerBar * kMmHgPerPsi; break;
        case 4: mmhg = v * 7.5; break;
        default: break;
      }
      const double psia = mmhg / kMmHgPerPsi;
      const double values[] = {mmhg, psia - 14.696, psia, psia / kPsiPerBar, mmhg / 7.5};
      for (size_t i = 0; i < 5; ++i) {
        if (static_cast<int>(i) != s.OptionPressure) s.txtPressure[i] = Box(values[i]);
      }
      break;
    }
    case GasGroup::kTemperature: {
      const double v = Val(s.txtTemperature[static_cast<size_t>(s.OptionTemperature)]);
      if (s.OptionTemperature == 0) {
        s.txtTemperature[1] = Box((v - 32) / 1.8);
      } else {
        s.txtTemperature[0] = Box(v * 1.8 + 32);
      }
      break;
    }
    case GasGroup::kMassFlow: {
      const double v = Val(s.txtMassFlow[static_cast<size_t>(s.OptionMassFlow)]);
      if (s.OptionMassFlow == 0) {
        s.txtMassFlow[1] = Box(v / kLbPerKg);
      } else {
        s.txtMassFlow[0] = Box(v * kLbPerKg);
      }
      break;
    }
    case GasGroup::kVolFlow: break;  // the volume boxes follow from the calculation
  }
}

bool GasMassVolCalcs(GasFlowScreen& s) {
  s.message.clear();
  const double mw = Val(s.txtMW), p = Val(s.txtPressure[0]), t = Val(s.txtTemperature[0]);
  if (mw == 0 || p == 0 || t + 460 == 0) {
    s.message = "Enter the molecular weight, the pressure and the temperature (none of them 0) and calculate again.";
    return false;
  }
  if (s.OptionMassVolume == 0) {
    const double w = Val(s.txtMassFlow[0]);
    const double acfm = (w / 60 * 379 / mw) * (760 / p) * ((t + 460) / 520);
    const double scfm = acfm * (520 / (t + 460)) * p / 760;
    const double ncfm = acfm * (492 / (t + 460)) * p / 760;
    const double values[] = {acfm, scfm, ncfm, ncfm * kNm3hPerNcfm};
    for (size_t i = 0; i < 4; ++i) s.txtVolFlow[i] = Box(values[i]);
    return true;
  }
  // CalcVolFlow: the active volume box back to ACFM.
  const double v = Val(s.txtVolFlow[static_cast<size_t>(s.OptionVolFlow)]);
  double acfm = v;
  switch (s.OptionVolFlow) {
    case 1: acfm = v / ((520 / (t + 460)) * p / 760); break;
    case 2: acfm = v / ((492 / (t + 460)) * p / 760); break;
    case 3: acfm = v / kNm3hPerNcfm / ((492 / (t + 460)) * p / 760); break;
    default: acfm = static_cast<float>(v); break;  // the ACFM box is read as a single
  }
  const double w = (acfm * 60 / 379) * mw * (p / 760) / ((t + 460) / 520);
  s.txtMassFlow[0] = Box(w);
  s.txtMassFlow[1] = Box(w / kLbPerKg);
  return true;
}

}  // namespace kestrane
