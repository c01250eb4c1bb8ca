// Properties of liquid water for cooling and seal water: specific heat, specific gravity, conductivity, viscosity.
#pragma once

#include <cstdint>

namespace kestrane {

// At T degF (35 to 720): CP Btu/lb-F, SG, K Btu/hr-ft-F, MU centipoise.
// Outside the range ERR is 1 and the outputs stay as they were.
void WaterProperties(float t, float& cp, float& sg, float& k, float& mu, int16_t& err);

}  // namespace kestrane
