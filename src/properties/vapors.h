// Vapor pressures: the built-in vapor data base, user defined vapors, and the Antoine equation for both.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "properties/arrays.h"
#include "shell/ui.h"

namespace kestrane {

inline constexpr int kMaxVapors = 2000;
inline constexpr int kMaxUserVapors = 50;
inline constexpr int kUserVaporNameLength = 20;
inline constexpr std::string_view kVaporFile = "PSAT.DTA";
inline constexpr std::string_view kUserVaporFile = "UDV.DTA";

// The built-in vapors; the ID is the row number.
struct VaporData {
  int16_t NPSAT = 0;
  Array1D<float> PSATID{kMaxVapors};
  Array1D<std::string> PSATFORMULA{kMaxVapors};  // 15 characters, blank padded
  Array1D<std::string> PSATNAME{kMaxVapors};     // 50 characters, blank padded
  // 1 molecular weight, 2-4 Antoine A, B, C (log10 mmHg, degC), 5-6 valid
  // range degC, 7 latent heat Btu/lb.
  Array2D<float> PSATDATA{kMaxVapors, 7};
};

// User defined vapors, ID -row. Columns: 1 ID, 2-7 T1, P1, T2, P2, T3, P3
// (degC, mmHgA, temperatures rising), 8 molecular weight, 9 alcohol mark.
struct UserVapors {
  int16_t NUDV = 0;
  Array2D<float> UDVDATA{kMaxUserVapors, 9};
  Array1D<std::string> UDVNAME{kMaxUserVapors};  // 20 characters, blank padded
};

// The vapor tables and where messages go.
struct Vapors {
  const VaporData& data;
  const UserVapors& user;
  Ui& ui;
};

// Reads the vapor data base; false, with a notice, when the file is missing or damaged.
bool ReadPsat(const std::filesystem::path& path, VaporData& data, Ui& ui);

// Vapor pressure (mmHgA) of vapor `id` at `temperature` degF. flag 0 valid,
// 1 outside the vapor's range (the pressure is still computed) or an unknown
// ID (the pressure stays), 2 a user vapor whose points cannot be fitted.
// IDs of 0 and below are user defined vapors.
void Antoine(const Vapors& vapors, int16_t id, float temperature, float& pressure, int16_t& flag);

// The same for the user defined vapor in row `index`, its Antoine constants
// fitted from its three points on every call.
void AntoineUser(const Vapors& vapors, int16_t index, float temperature, float& pressure, int16_t& flag);

// The name of a load's vapor, trimmed: a row of the data base (ID > 0), a user defined vapor
// (ID < 0), "WATER" for ID 0; empty for an ID that names no vapor.
std::string VaporName(const VaporData& data, const UserVapors& user, int id);

// A name cut or padded to its fixed width.
std::string FixedText(std::string_view text, size_t width);

}  // namespace kestrane
