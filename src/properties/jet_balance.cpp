// The energy and momentum balance of a steam jet: efficiency at a given steam ratio, or the ratio that reaches an efficiency.
#include "properties/jet_balance.h"

#include <cmath>

#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// The states that stay fixed while the ratio changes.
struct JetStates {
  float h1 = 0, s1 = 0;  // motive
  float m2 = 0, d = 0;   // moisture (percent) and dryness after isentropic expansion to suction
  float hs = 0, ss = 0;  // load at suction
  float sm = 0;          // mixed stream entropy at discharge, from the last balance
};

// One balance at ratio r (all pressures in mm Hg).
void Balance(const Steam& steam, JetBalanceData& jet, JetStates& st, float r) {
  const float rd = r * st.d;
  if (jet.targetKind == 1) {
    jet.mixVelocity = (rd * jet.nozzleVelocity + jet.suctionVelocity) / (rd + 1);
  } else {
    jet.mixVelocity = rd * jet.nozzleVelocity / (rd + 1);
  }
  float hm = (st.h1 * r + st.hs) / (r + 1);
  float v = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPH(steam, jet.dischargePressure, jet.dischargeTemp, hm, st.sm, v, moisture, failed);
  float t = 0, hi = 0, sm = st.sm;
  SteamFromPS(steam, jet.suctionPressure, t, hi, sm, v, moisture, failed);
  jet.compressionWork = hm - hi;
  const float a = jet.mixVelocity * jet.mixVelocity * (st.d * r + 1) / 50100;
  const float b = jet.nozzleVelocity * jet.nozzleVelocity * ((st.m2 / 100) * r) / 50100;
  const float c = jet.outletVelocity * jet.outletVelocity * (r + 1) / 50100;
  const float e = b + a - c;
  jet.efficiency = Divide((r + 1) * jet.compressionWork, e) * 100;
}

}  // namespace

void JetBalance(const Steam& steam, JetBalanceData& jet) {
  jet.failed = 0;
  jet.motivePressure = PressToMmHg(jet.motivePressure, jet.motiveUnit);
  jet.suctionPressure = PressToMmHg(jet.suctionPressure, jet.suctionUnit);
  jet.dischargePressure = PressToMmHg(jet.dischargePressure, jet.dischargeUnit);

  JetStates st;
  float t = jet.motiveTemp, h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = 0;
  SteamFromPT(steam, jet.motivePressure, t, st.h1, st.s1, v, moisture, failed);
  s = st.s1;
  float h2 = 0;
  SteamFromPS(steam, jet.suctionPressure, t, h2, s, v, moisture, failed);
  st.m2 = moisture;
  st.d = 1 - st.m2 / 100;
  jet.nozzleVelocity = static_cast<float>(std::sqrt(static_cast<double>(st.h1 - h2)) * 223.7);
  t = jet.suctionTemp;
  SteamFromPT(steam, jet.suctionPressure, t, st.hs, st.ss, v, moisture, failed);

  float r = 0;
  bool ok = true;
  if (jet.targetKind == 1) {
    r = jet.target;
    Balance(steam, jet, st, r);
  } else {
    r = 0.5f;
    float step = 1;
    float direction = 1;
    int count = 0;
    while (true) {
      r += step * direction;
      if (!(r > 0)) {
        r -= step * direction;
        step *= 0.1f;
        continue;
      }
      ++count;
      Balance(steam, jet, st, r);
      const float q = jet.target / jet.efficiency;
      if (q > 1 && count == 1) direction = -1;
      if (q >= 1 && q < 1.0005) {
        ok = r <= 100;
        break;
      }
      if ((direction > 0 && q > 1) || (direction < 0 && q < 1)) {
        r -= step * direction;
        step *= 0.1f;
      }
      if (count > 1000 || r > 100) {
        ok = false;
        break;
      }
    }
  }
  jet.steamRatio = r;
  if (ok) {
    float sa = 0, sb = 0, ha = st.h1, hb = st.hs;
    SteamFromPH(steam, jet.dischargePressure, t, ha, sa, v, moisture, failed);
    SteamFromPH(steam, jet.dischargePressure, t, hb, sb, v, moisture, failed);
    const float f = static_cast<float>(((375 - jet.suctionTemp) / 305.0) * 0.1 + 0.9);
    jet.entropyIndex = ((st.ss - sb) / ((sa - st.s1) * r * f)) * 100;
    jet.compressionRatio = jet.dischargePressure / jet.suctionPressure;
    jet.throatPressure = MaxOf(jet.suctionPressure, jet.dischargePressure * 0.56f);
    float sm = st.sm;
    SteamFromPS(steam, jet.throatPressure, jet.throatTemp, h, sm, jet.throatVolume, jet.throatMoisture, failed);
    jet.throatPressure = PressFromMmHg(jet.throatPressure, jet.suctionUnit);
  } else {
    jet.failed = 1;
  }
  jet.motivePressure = PressFromMmHg(jet.motivePressure, jet.motiveUnit);
  jet.suctionPressure = PressFromMmHg(jet.suctionPressure, jet.suctionUnit);
  jet.dischargePressure = PressFromMmHg(jet.dischargePressure, jet.dischargeUnit);
}

}  // namespace kestrane
