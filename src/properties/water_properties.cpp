// Properties of liquid water for cooling and seal water: specific heat, specific gravity, conductivity, viscosity.
#include "properties/water_properties.h"

#include <cmath>

namespace kestrane {

void WaterProperties(float t, float& cp, float& sg, float& k, float& mu, int16_t& err) {
  err = 0;
  if (t < 35 || t > 720) {
    err = 1;
    return;
  }
  const double tr = t + 459.69;
  const double x = tr / 1165.2;
  cp = static_cast<float>(tr * tr * 5.65e-07 + (1.207 - tr * 0.00087) + 0.0528 / (1 - x));
  sg = static_cast<float>((57 + tr * 0.03337 - tr * tr * 4e-05 - 838.1 / (1227.2 - tr)) / 62.424);
  k = static_cast<float>(0.143 + std::pow(1 - x, 0.6666667) * (1 - 1.05 * std::pow(1 - x, 0.75)) * (2.86 / 3));
  mu = static_cast<float>(std::exp(1037700 / (tr * tr) - 2.9868 - 389 / tr));
}

}  // namespace kestrane
