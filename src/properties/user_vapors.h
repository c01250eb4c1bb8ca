// User defined vapors: the UDV.DTA file and the editing rules of the user vapor window.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "properties/vapors.h"

namespace kestrane {

enum class UserVaporsRead { kRead, kMissing, kFailed };

// Reads UDV.DTA: a line with the count, then per vapor the nine numbers of
// UDVDATA each followed by a comma, and the name to the end of the line.
// A missing file means no user vapors. A damaged one is reported; the vapors
// before the damage are kept and the file is left as it is.
UserVaporsRead ReadUDV(const std::filesystem::path& path, UserVapors& user, Ui& ui);

// Writes UDV.DTA whole, to a temporary name then renamed; false (with a notice) when it cannot.
bool WriteUDV(const std::filesystem::path& path, const UserVapors& user, Ui& ui);

// The state of the user vapor window.
struct UdvScreen {
  enum class Mode { kBrowse, kEdit };
  Mode mode = Mode::kBrowse;
  bool fahrenheit = false;           // temperatures shown and entered in degF
  std::array<std::string, 9> TextUDV;  // 0 ID, 1 T1, 2 P1, 3 T2, 4 P2, 5 T3, 6 P3, 7 MW, 8 name
  bool alcohol = false;
  int focus = 0;
};

// Add Vapor: with 50 vapors a beep and nothing else (false); otherwise the
// edit state with a new row -NUDV.
bool UdvAdd(UdvScreen& screen, UserVapors& user, Ui& ui);

// Edit Vapor: the edit state for vapor `id` (-row); a beep when it names no row.
bool UdvEdit(UdvScreen& screen, const UserVapors& user, int id, Ui& ui);

// Delete Vapor after the user confirms: later vapors move up with new IDs and the file is written.
bool UdvDelete(UserVapors& user, int id, const std::filesystem::path& path, Ui& ui);

// The check on leaving edit field 1 to 7: empty passes; a temperature (1, 3, 5)
// must be a number other than 0, a pressure or molecular weight (2, 4, 6, 7) above 0.
bool UdvFieldAccepted(int index, const std::string& text);

// Checks the edit fields and stores them as their row, then writes the file.
// Returns false (failed) after its message when the fields are refused.
bool ValidateUDV(const UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui);

// Update: ValidateUDV, and on success back to browsing.
bool UdvUpdate(UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui);

// Abort Change: reads the file again and goes back to browsing.
void UdvAbortChange(UdvScreen& screen, UserVapors& user, const std::filesystem::path& path, Ui& ui);

// The unit of the temperatures shown: "°C", or "°F" when `fahrenheit`.
std::string TemperatureUnitText(bool fahrenheit);

// The grid's heads and rows in the unit shown: ID#, Name, MW, T1, P1, T2, P2, T3, P3, Alcohol=1.
std::array<std::string, 10> UdvGridHeads(bool fahrenheit);
std::vector<std::array<std::string, 10>> UdvGridRows(const UserVapors& user, bool fahrenheit);

// The vapor pressure curve of Graph: T1 to T3 + 0.1 degC in 40 steps.
struct UdvCurvePoint {
  int number = 0;
  float temperature = 0;  // in the unit shown, rounded to 0.001
  float pressure = 0;     // mmHgA
};
struct UdvCurve {
  std::string title;     // "-1 ID# : name   (MW:58.08)"
  std::string subtitle;  // "T-min=... °C    T-max=... °C"
  std::string x_axis;    // "Temperature °C"
  std::string y_axis;    // "Vapor Pressure (mmHgA)"
  std::vector<UdvCurvePoint> points;  // empty when the points cannot be fitted
};
UdvCurve UdvGraph(const Vapors& vapors, int16_t row, bool fahrenheit);

}  // namespace kestrane
