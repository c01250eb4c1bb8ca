// Steam properties from the binary steam table: states from pressure with temperature, enthalpy or entropy, saturation, volume, units, nozzles.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string_view>

#include "properties/arrays.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kSteamMaxPressures = 147;
inline constexpr int kSteamColumns = 75;
inline constexpr int kSteamTemperatures = 34;
inline constexpr std::string_view kSteamFile = "MOLVBLG.DTA";

// The steam table by rising pressure. Columns: 1 psia, 2 saturation degF,
// 3 saturated vapor ft3/lb, 4-5 saturated liquid h and s, 6-7 saturated vapor
// h and s, then h and s at each superheat temperature (0 below saturation).
struct SteamTable {
  Array2D<float> STEAMTBL{kSteamMaxPressures, kSteamColumns};
  Array1D<float> STEAMTEMP{kSteamTemperatures};  // degF / 10
  int16_t STEAMNP = 0;
  int16_t STEAMNC = 0;
};

// The steam table and where its messages go.
struct Steam {
  const SteamTable& table;
  Ui& ui;
};

// One interpolated row of the table, columns 1..75.
class SteamRowValues {
 public:
  float& operator()(int c) { return cells_[Index(c)]; }
  float operator()(int c) const { return cells_[Index(c)]; }

 private:
  static size_t Index(int c) {
    if (c < 1 || c > kSteamColumns) throw VbError(9);
    return static_cast<size_t>(c);
  }
  std::array<float, kSteamColumns + 1> cells_{};
};

// Reads the table file. When its counts are not above 0 (or it is missing,
// short or larger than the table), shows the read error notice and returns
// false: the program cannot go on.
bool ReadSteamData(const std::filesystem::path& path, SteamTable& table, Ui& ui);

// The row at pressure p (mmHgA), interpolated linearly between table pressures.
void SteamRow(const Steam& steam, float p, SteamRowValues& row, int16_t& failed);

// State from pressure (mmHgA) and temperature (degF); t = 0 means saturated
// vapor and returns the saturation temperature.
void SteamFromPT(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed);

// State from pressure (mmHgA) and enthalpy (Btu/lb).
void SteamFromPH(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed);

// State from pressure (mmHgA) and entropy (Btu/lb-F).
void SteamFromPS(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed);

// Saturation pressure (mmHgA) at temperature t (degF).
void SatPress(const Steam& steam, float t, float& p, int16_t& failed);

// Volume of superheated steam, ft3/lb: the Keyes equation, or the ideal gas
// from saturation below 0.2 psia. `failed` is not touched.
void SteamVolume(float p, float t, float& v, float vsat, float tsat, int16_t& failed);

// Pressure unit codes: 1 microns Hg, 2 mm Hg, 3 in Hg abs, 4 psig, 5 psia,
// 6 in Hg vacuum, 7 bar gauge. Any other code converts to 0.
float PressToMmHg(float value, int16_t unit);
float PressFromMmHg(float value, int16_t unit);

// Steam flow through a nozzle of given throat diameter (diameter above 0), or
// the diameter for a given flow. Pressure psig, temperature degF (0 saturated).
void SteamNozzle(const Steam& steam, float pressure, float temperature, float& diameter, float& flow);

// Nozzle area ratio for motive pressure (psig) and suction pressure (mmHgA).
float NozzleAreaRatio(float motive, float suction);

}  // namespace kestrane
