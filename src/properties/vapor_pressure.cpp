// Vapor pressures: reading the vapor data base, and the Antoine equation for built-in and user defined vapors.
#include <cmath>
#include <vector>

#include "properties/binary_file.h"
#include "properties/numeric.h"
#include "properties/temperature_units.h"
#include "properties/text_codec.h"
#include "properties/vapors.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr size_t kRecordBytes = 97;

// 10 ^ (A - B / (C + t)), the Antoine equation in mmHg and degC.
float AntoinePressure(float a, float b, float c, float t) {
  return static_cast<float>(std::pow(10.0, static_cast<double>(a - Divide(b, c + t))));
}

void ReportTrapped(Ui& ui, const char* prefix, const VbError& e) {
  ui.notice(prefix + GeneralText(e.number()) + " " + e.description());
}

}  // namespace

std::string FixedText(std::string_view text, size_t width) {
  std::u32string points = ToCodePoints(text);
  points.resize(width, U' ');
  return FromCodePoints(points);
}

std::string VaporName(const VaporData& data, const UserVapors& user, int id) {
  if (id == 0) return "WATER";
  if (id > 0) return id <= data.NPSAT ? Trim(data.PSATNAME(id)) : std::string();
  return -id <= user.NUDV ? Trim(user.UDVNAME(-id)) : std::string();
}

bool ReadPsat(const std::filesystem::path& path, VaporData& data, Ui& ui) {
  const std::vector<char> bytes = ReadFileBytes(path);
  const int16_t n = bytes.size() >= 2 ? LittleInt16(bytes, 0) : int16_t{0};
  if (n <= 0 || n > kMaxVapors || bytes.size() < 2 + static_cast<size_t>(n) * kRecordBytes) {
    ui.notice("An error has occurred reading the vapor pressure data file (" + path.filename().string() +
              ").  Check to make sure this file is in the 'pgmfiles' directory of the Kestrane program.  If not, "
              "try re-installing Kestrane.");
    return false;
  }
  data.NPSAT = n;
  for (int i = 1; i <= n; ++i) {
    const size_t at = 2 + static_cast<size_t>(i - 1) * kRecordBytes;
    data.PSATID(i) = LittleSingle(bytes, at);
    data.PSATFORMULA(i) = Cp1252ToUtf8(std::string_view(&bytes[at + 4], 15));
    data.PSATNAME(i) = Cp1252ToUtf8(std::string_view(&bytes[at + 19], 50));
    for (int c = 1; c <= 7; ++c) data.PSATDATA(i, c) = LittleSingle(bytes, at + 69 + 4 * static_cast<size_t>(c - 1));
  }
  return true;
}

void Antoine(const Vapors& vapors, int16_t id, float temperature, float& pressure, int16_t& flag) {
  flag = 0;
  if (id <= 0) {
    AntoineUser(vapors, static_cast<int16_t>(-id), temperature, pressure, flag);
    return;
  }
  try {
    // The data base's rows end at NPSAT; a row beyond is out of range.
    if (id > vapors.data.NPSAT) throw VbError(9);
    const float tc = CelsiusOf(temperature);
    const auto& d = vapors.data.PSATDATA;
    pressure = AntoinePressure(d(id, 2), d(id, 3), d(id, 4), tc);
    if (tc < d(id, 5) || tc > d(id, 6)) flag = 1;
  } catch (const VbError& e) {
    ReportTrapped(vapors.ui, "Error in Antoine (vapor pressure) calculations! ", e);
    flag = 1;
  }
}

void AntoineUser(const Vapors& vapors, int16_t index, float temperature, float& pressure, int16_t& flag) {
  flag = 0;
  try {
    if (index < 1 || index > vapors.user.NUDV) throw VbError(9);
    const float tc = CelsiusOf(temperature);
    const auto& u = vapors.user.UDVDATA;
    const float t1 = u(index, 2), p1 = u(index, 3), t2 = u(index, 4), p2 = u(index, 5), t3 = u(index, 6),
                p3 = u(index, 7);
    pressure = p3;
    // Each test value and each constant is rounded to a single.
    const double l23 = Log10(Divide(p2, p3));
    const double l12 = Log10(Divide(p1, p2));
    const float test_u = static_cast<float>(l23 * (t1 - t2));
    const float test_v = static_cast<float>(l12 * (t2 - t3));
    if (test_u == test_v) {
      flag = 2;
      vapors.ui.notice("The ratio of p2/p3 and p1/p2 cannot be the same!");
      return;
    }
    const float r = static_cast<float>(Divide(l23 * (t1 - t2), l12 * (t2 - t3)));
    const float c = Divide(t1 - r * t3, r - 1);
    const float b = static_cast<float>(Divide(l23, static_cast<double>(Divide(1.0f, t3 + c) - Divide(1.0f, t2 + c))));
    const float a = static_cast<float>(Log10(p2) + Divide(b, t2 + c));
    pressure = AntoinePressure(a, b, c, tc);
    if (tc < t1 || tc > t3) flag = 1;
  } catch (const VbError& e) {
    ReportTrapped(vapors.ui, "Error in Antoine with User Defined Vapors! ", e);
    flag = 1;
  }
}

}  // namespace kestrane
