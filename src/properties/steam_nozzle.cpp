// Steam nozzle flow or throat diameter, and the nozzle area ratio of a jet.
#include <cmath>

#include "properties/numeric.h"
#include "properties/steam.h"

namespace kestrane {

void SteamNozzle(const Steam& steam, float pressure, float temperature, float& diameter, float& flow) {
  const float P = static_cast<float>(pressure + 14.696);
  const float p_mm = static_cast<float>(P * 51.7149);
  int16_t failed = 0;
  SteamRowValues row;
  SteamRow(steam, p_mm, row, failed);
  const float t = temperature == 0 ? row(2) : temperature;
  float v = 0;
  SteamVolume(p_mm, t, v, row(3), row(2), failed);
  if (diameter > 0) {
    flow = static_cast<float>(std::pow(static_cast<double>(diameter), 2) * 865.822025537491 * std::sqrt(P / v));
  } else {
    diameter = static_cast<float>(std::pow((flow / 892.6 / 0.97) / std::sqrt(P / v), 0.5));
  }
}

float NozzleAreaRatio(float motive, float suction) {
  // 51.7144 here, not the 51.7149 of the steam routines.
  const float r = static_cast<float>((motive + 14.696) / (suction / 51.7144));
  return static_cast<float>(std::pow(std::pow(10.0, 0.36 * Log10(r) - 0.2), 2));
}

}  // namespace kestrane
