// The binary steam table: reading it, one row at a pressure, saturation pressure from temperature.
#include <vector>

#include "properties/binary_file.h"
#include "properties/steam.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr char kReadError[] =
    "An error has occurred reading the steam data file (MOLVB.DTA).  Check to make sure this file is in the "
    "'pgmfiles' directory of the Kestrane program.  If not, try re-installing Kestrane.  If the problem "
    "persists, contact Tessel Corporation.";

constexpr size_t kHeaderBytes = 4 + 4 * kSteamTemperatures;
constexpr size_t kRecordBytes = 4 * kSteamColumns;  // always 75 singles, whatever STEAMNC says

}  // namespace

bool ReadSteamData(const std::filesystem::path& path, SteamTable& table, Ui& ui) {
  const std::vector<char> bytes = ReadFileBytes(path);
  int16_t np = 0, nc = 0;
  if (bytes.size() >= kHeaderBytes) {
    np = LittleInt16(bytes, 0);
    nc = LittleInt16(bytes, 2);
  }
  // Counts not above 0 are the original's test; counts the table cannot hold
  // or a file shorter than its counts say are refused the same way.
  const bool fits = np > 0 && nc > 0 && np <= kSteamMaxPressures && nc <= kSteamColumns &&
                    bytes.size() >= kHeaderBytes + static_cast<size_t>(np) * kRecordBytes;
  if (!fits) {
    ui.notice(kReadError);
    return false;
  }
  table.STEAMNP = np;
  table.STEAMNC = nc;
  for (int k = 1; k <= kSteamTemperatures; ++k) table.STEAMTEMP(k) = LittleSingle(bytes, 4 + 4 * static_cast<size_t>(k - 1));
  for (int i = 1; i <= np; ++i) {
    const size_t record = kHeaderBytes + static_cast<size_t>(i - 1) * kRecordBytes;
    for (int c = 1; c <= kSteamColumns; ++c) {
      table.STEAMTBL(i, c) = LittleSingle(bytes, record + 4 * static_cast<size_t>(c - 1));
    }
  }
  return true;
}

void SteamRow(const Steam& steam, float p, SteamRowValues& row, int16_t& failed) {
  const SteamTable& tb = steam.table;
  const auto& T = tb.STEAMTBL;
  const float P = static_cast<float>(p / 51.7149);
  if (P < T(1, 1) || P > T(tb.STEAMNP, 1)) {
    steam.ui.notice("PRESSURE OF" + Str(p) + " IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n");
    failed = 1;
    return;
  }
  for (int i = 1; i <= tb.STEAMNP; ++i) {
    if (P == T(i, 1)) {
      for (int c = 1; c <= tb.STEAMNC; ++c) row(c) = T(i, c);
      return;
    }
    if (T(i, 1) > P) {
      const float fraction = (P - T(i - 1, 1)) / (T(i, 1) - T(i - 1, 1));
      for (int c = 1; c <= tb.STEAMNC; ++c) {
        // No superheat value at the higher pressure: the cell stays blank.
        if (c >= 8 && T(i, c) == 0) {
          row(c) = 0;
        } else {
          row(c) = (T(i, c) - T(i - 1, c)) * fraction + T(i - 1, c);
        }
      }
      return;
    }
  }
  steam.ui.notice("Mollier: PRESSURE ERROR (FATAL)\r\n");
  failed = 1;
}

void SatPress(const Steam& steam, float t, float& p, int16_t& failed) {
  const SteamTable& tb = steam.table;
  const auto& T = tb.STEAMTBL;
  failed = 0;
  if (t < T(1, 2) || t > T(tb.STEAMNP, 2)) {
    failed = 1;
    return;
  }
  for (int i = 1; i <= tb.STEAMNP; ++i) {
    if (t == T(i, 2)) {
      p = static_cast<float>(T(i, 1) * 51.7149);
      return;
    }
    if (t < T(i, 2)) {
      const float psia = (T(i, 1) - T(i - 1, 1)) * ((t - T(i - 1, 2)) / (T(i, 2) - T(i - 1, 2))) + T(i - 1, 1);
      p = static_cast<float>(psia * 51.7149);
      return;
    }
  }
  steam.ui.notice("Mollier: SATPRESS ERROR (MOST FATAL)\r\n");
  failed = 1;
}

}  // namespace kestrane
