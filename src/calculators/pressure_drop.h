// Gas pressure loss in a vacuum line of straight pipe and fittings, by the HEI chart factors or the closed formula, stepped along the line.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "case/jet_file.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kDpFields = 19;

// The window: method, unit system and the fields txtEV(1..19) as typed, the results box and the total.
struct DpScreen {
  bool hei = true;       // HEI chart factors (air or steam), else the closed formula
  bool standard = true;  // standard units, else metric
  std::array<std::string, kDpFields + 1> txtEV;  // 1..19
  std::string results;
  std::string total;
  // The last calculation's values as singles, in the units the results box
  // shows: velocity ft/s (m/s metric), total equivalent length ft (m), drop mmHg.
  float velocity = 0, equivalent_length = 0, drop = 0;
  std::string file;
  int16_t dirty = 0;
};

// The caption of field 1..19 for the method and unit system (UnitsCheck for fields 1, 2, 6, 7).
std::string DpFieldCaption(const DpScreen& screen, int field);
std::string DpCaption(const DpScreen& screen);

// New: HEI, every field and the results empty, no file.
void ResetDpVac(DpScreen& screen);

// The chart factors of the HEI method.
void CT(double temperature, double& ct1, double& ct2, int fluid, int& out_of_range);
void CD(double diameter, double& cd1, double& cd2, int& out_of_range);
void f(double flow, double& f1, double& f2, int& out_of_range);

// Calculate: writes the results box and the total; false after a message (none in quiet mode).
bool Calculate_DP(DpScreen& screen, Ui& ui, bool quiet = false);

// The TDP file. A read error shows its text and keeps the fields read so far.
bool ReadDpFile(const std::filesystem::path& path, DpScreen& screen, Ui& ui);
bool WriteDpFile(const std::filesystem::path& path, DpScreen& screen, Ui& ui);
StoreDecision CheckToStoreDpFile(DpScreen& screen, Ui& ui);

}  // namespace kestrane
