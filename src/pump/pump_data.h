// Liquid ring pump data: the 89-pump catalogue read from VPX.DTA and the fixed correction tables.
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "properties/arrays.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kPumps = 89;
inline constexpr int kCurvePoints = 25;
inline constexpr std::string_view kPumpFile = "VPX.DTA";

// The pump's outline dimensions on its drawing, inches. VPX.DTA carries none, so they stand at 0 until a source
// of the pumps' outlines fills them.
struct PumpOutline {
  float A = 0, C = 0, W = 0, SLC = 0;
};

struct PumpRecord {
  std::string MODEL;  // 12 characters, blank padded
  float rated = 0;    // second catalogue value, carried
  float speed = 0;    // third catalogue value, carried
  int16_t points = 0; // fourth catalogue value, carried
  int16_t MOTORIDX = 0;
  float PCYCLES = 0;
  int16_t PTYPE = 0;
  int16_t PSERIES = 0;
  int16_t PFLAG = 0;
  std::array<float, 4> SEALGPM{};  // 1..3
  float PMAXBHP = 0;
  Array2D<float> PCURVE{kCurvePoints, 4};  // suction mmHgA, capacity, spare, brake power (row 1)
  PumpOutline outline;
};

// The fixed correction tables: T(row, column), column 1 vacuum inHg, 2..5 the four discharge points.
struct PumpTables {
  Array2D<float> capacity1, capacity2, power1, power2;
  Array1D<float> discharge{4};  // psig of the four columns
  Array2D<float> other;         // 11 x 2: discharge psig, capacity factor of other pump classes
  Array1D<float> motors;        // motor hp by MOTORIDX
};

struct PumpData {
  std::array<PumpRecord, kPumps + 1> pumps;  // 1..89
  bool loaded = false;
  PumpTables tables;
};

// Reads the 89 records; false, with a notice, when the file is missing or short.
bool ReadPumps(const std::filesystem::path& path, PumpData& data, Ui& ui);

// Fills the correction tables.
void SetPumpTables(PumpTables& tables);

}  // namespace kestrane
