// The seven pressure units of the screens, to and from mm Hg absolute.
#include "properties/steam.h"

namespace kestrane {

float PressToMmHg(float value, int16_t unit) {
  switch (unit) {
    case 1: return static_cast<float>(value / 1000.0);
    case 2: return value;
    case 3: return static_cast<float>(value * 25.4);
    case 4: return static_cast<float>((value + 14.696) * 51.7149);
    case 5: return static_cast<float>(value * 51.7149);
    case 6: return static_cast<float>((30 - value) * 25.4);
    case 7: return static_cast<float>((value + 1) * 750.0553);
    default: return 0;
  }
}

float PressFromMmHg(float value, int16_t unit) {
  switch (unit) {
    case 1: return static_cast<float>(value * 1000.0);
    case 2: return value;
    case 3: return static_cast<float>(value / 25.4);
    case 4: return static_cast<float>(value / 51.7149 - 14.696);
    case 5: return static_cast<float>(value / 51.7149);
    case 6: return static_cast<float>(30 - value / 25.4);
    case 7: return static_cast<float>(value / 750.0553 - 1);
    default: return 0;
  }
}

}  // namespace kestrane
