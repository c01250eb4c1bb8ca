// The energy and momentum balance of a steam jet: efficiency at a given steam ratio, or the ratio that reaches an efficiency.
#pragma once

#include <cstdint>

#include "properties/steam.h"

namespace kestrane {

// Arguments and results of JetBalance. Pressures are in their own unit codes
// (see PressToMmHg); they are converted to mm Hg on entry and back on exit,
// so a caller's values come back through that round trip.
struct JetBalanceData {
  float outletVelocity = 0;  // ft/s
  float motivePressure = 0;
  int16_t motiveUnit = 4;
  float motiveTemp = 0;  // degF, 0 saturated
  float suctionPressure = 0;
  int16_t suctionUnit = 2;
  float suctionTemp = 0;  // degF, 0 saturated
  int16_t dischargeUnit = 2;
  float dischargePressure = 0;
  float target = 0;          // steam ratio (targetKind 1) or efficiency in percent to reach
  int16_t targetKind = 0;    // 1: target is the steam ratio
  float suctionVelocity = 0;  // ft/s, counted in the mixed velocity only when targetKind is 1

  float steamRatio = 0;  // lb motive per lb load
  float efficiency = 0;  // percent
  float compressionWork = 0;
  float dischargeTemp = 0;
  float throatPressure = 0;  // in the suction unit
  float throatTemp = 0;
  float throatMoisture = 0;
  float throatVolume = 0;
  float compressionRatio = 0;
  float nozzleVelocity = 0;
  float mixVelocity = 0;
  float entropyIndex = 0;
  int16_t failed = 0;
};

// Direct mode (targetKind 1): one balance at the given ratio. Search mode:
// the ratio whose efficiency reaches the target, failing without a message
// past 1000 rounds or a ratio above 100 (the last ratio stands).
void JetBalance(const Steam& steam, JetBalanceData& jet);

}  // namespace kestrane
