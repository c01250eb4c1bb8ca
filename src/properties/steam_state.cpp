// Steam states from pressure with temperature, enthalpy or entropy, and the volume of superheated steam.
#include <cmath>
#include <string>

#include "properties/steam.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

// The first superheat temperature, which also stands as a plain constant.
constexpr float kFirstTableTemp = 120;
// Absolute temperature of the last table column (1600 F) and the top of the extension.
constexpr float kLastTableRankine = 2059.7f;
constexpr float kExtensionTopRankine = 2459.7f;

std::string LimitMessage(const char* what, float value) {
  return what + Str(value) + " IS BEYOND LIMITS OF STEAM DATA...ABORTED\r\n";
}

// Enthalpy above the last table column at absolute temperature m, by the
// specific heat polynomial from the last table enthalpy h0.
float ExtendedEnthalpy(float h0, float m) {
  const double t0 = kLastTableRankine;
  const double c = (m - 459.7) * (-0.25 / 360) + ((0.25 / 360) * 1600 + 0.29);
  return static_cast<float>(h0 + 0.44586 * (m - t0) - (3.4943E-05 / 2) * (static_cast<double>(m) * m - t0 * t0) +
                            (6.3889E-08 / 3) * (std::pow(static_cast<double>(m), 3) - std::pow(t0, 3)) + c);
}

// Entropy above the last table column from the mean specific heat.
float ExtendedEntropy(float h, float h0, float s0, float m) {
  const float cp = (h - h0) / (m - kLastTableRankine);
  const double e = (m - 459.7) * (-0.0008 / 480) + 0.0015;
  return static_cast<float>(cp * std::log(static_cast<double>(m) / kLastTableRankine) + s0 + e);
}

// Bisection on absolute temperature between 1600 F and 2000 F. `above(m)` is
// true when the wanted value lies above the trial at midpoint m; `close(m)`
// ends the search. Returns false when the bounds close (or no longer move)
// before that, which is the limit error.
template <typename Above, typename Close>
bool Bisect(float tolerance, float& m, Above above, Close close) {
  float lower = kLastTableRankine;
  float upper = kExtensionTopRankine;
  bool first = true;
  while (true) {
    if (!first) {
      if (above(m)) {
        lower = m;
      } else {
        upper = m;
      }
    }
    first = false;
    const float mid = (upper - lower) / 2 + lower;
    // Single bounds stop halving once they are neighbours; that too is closed.
    if (std::fabs(upper - lower) <= tolerance || mid == lower || mid == upper) return false;
    m = mid;
    if (close(m)) return true;
  }
}

}  // namespace

void SteamFromPT(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed) {
  const SteamTable& tb = steam.table;
  failed = 0;
  SteamRowValues row;
  SteamRow(steam, p, row, failed);
  if (failed) return;
  if (t != 0) {
    const int n = static_cast<int>(Int((tb.STEAMNC - 7) / 2.0));
    if (t < -125 || t > tb.STEAMTEMP(n) * 10) {
      steam.ui.notice(LimitMessage("TEMPERATURE OF", t));
      failed = 1;
      return;
    }
    if (t + 0.01 < row(2)) {
      steam.ui.notice("Input conditions " + Str(t) + " is WET...changed to saturation and continued...\r\n");
      t = 0;
    }
  }
  if (t == 0) {
    t = row(2);
    h = row(6);
    s = row(7);
    v = row(3);
    return;
  }
  if (t >= row(2) && t < kFirstTableTemp) {
    const float fraction = (t - row(2)) / (kFirstTableTemp - row(2));
    h = (row(8) - row(6)) * fraction + row(6);
    s = (row(9) - row(7)) * fraction + row(7);
    moisture = 0;
  } else {
    float lower_t = row(2), lower_h = row(6), lower_s = row(7);
    float upper_t = lower_t, upper_h = lower_h, upper_s = lower_s;
    bool found = false;
    for (int c = 8, k = 1; c <= tb.STEAMNC; c += 2, ++k) {
      if (!(row(c) > 0)) continue;
      const float tk = tb.STEAMTEMP(k) * 10;
      if (tk > t) {
        upper_t = tk;
        upper_h = row(c);
        upper_s = row(c + 1);
        found = true;
        break;
      }
      lower_t = tk;
      lower_h = row(c);
      lower_s = row(c + 1);
    }
    if (!found) {
      upper_t = lower_t;
      upper_h = lower_h;
      upper_s = lower_s;
    }
    const float fraction = upper_t == lower_t ? 0.0f : (t - lower_t) / (upper_t - lower_t);
    h = (upper_h - lower_h) * fraction + lower_h;
    s = (upper_s - lower_s) * fraction + lower_s;
    moisture = 0;
  }
  SteamVolume(p, t, v, row(3), row(2), failed);
}

namespace {

// State from pressure and a given enthalpy or entropy. Columns of the given
// property sit at an offset `gx` (0 enthalpy, 1 entropy) in each pair of the
// row, the other property beside them.
enum class Given { kEnthalpy, kEntropy };

void StateFromProperty(const Steam& steam, Given given, float p, float& t, float& x, float& y, float& v,
                       float& moisture, int16_t& failed) {
  const SteamTable& tb = steam.table;
  const bool by_h = given == Given::kEnthalpy;
  const int gx = by_h ? 0 : 1;   // given property's column in a pair
  const int gy = 1 - gx;         // the other property's column in a pair
  const int beside = gy - gx;    // from a given column to the other one of the same pair
  failed = 0;
  SteamRowValues row;
  SteamRow(steam, p, row, failed);
  if (failed) return;
  const char* name = by_h ? "ENTHALPY OF" : "ENTROPY OF";
  if (by_h ? (x < -210.34 || x > 1858.99) : (x < -0.4538 || x > 4.07026)) {
    steam.ui.notice(LimitMessage(name, x));
    failed = 1;
    return;
  }
  const float x_in = x;
  const int last_x = tb.STEAMNC - 1 + gx;

  if (x <= row(6 + gx)) {  // wet
    const float q = (x - row(4 + gx)) / (row(6 + gx) - row(4 + gx));
    moisture = (1 - q) * 100;
    t = row(2);
    y = (row(6 + gy) - row(4 + gy)) * q + row(4 + gy);
    v = q * row(3);
    return;
  }
  if (x < row(8 + gx)) {  // between saturation and the first table temperature
    const float f = (x - row(6 + gx)) / (row(8 + gx) - row(6 + gx));
    t = (tb.STEAMTEMP(1) * 10 - row(2)) * f + row(2);
    y = (row(8 + gy) - row(6 + gy)) * f + row(6 + gy);
    moisture = 0;
  } else {
    // An enthalpy equal to the first column fails without a message; the
    // entropy walk handles that case.
    if (by_h && x <= row(8)) {
      failed = 1;
      return;
    }
    if (x > row(last_x)) x = row(last_x);
    bool hit = false;
    for (int c = last_x, k = kSteamTemperatures; c >= 8 + gx; c -= 2, --k) {
      if (row(c) == 0) {
        // The column above is the first one with data at this pressure.
        const float f = (x - row(6 + gx)) / (row(c + 2) - row(6 + gx));
        t = (tb.STEAMTEMP(k + 1) * 10 - row(2)) * f + row(2);
        y = (row(c + 2 + beside) - row(6 + gy)) * f + row(6 + gy);
      } else if (x > row(c)) {
        const float f = (row(c + 2) - x) / (row(c + 2) - row(c));
        y = row(c + 2 + beside) - (row(c + 2 + beside) - row(c + beside)) * f;
        t = tb.STEAMTEMP(k + 1) * 10 - (tb.STEAMTEMP(k + 1) - tb.STEAMTEMP(k)) * 10 * f;
      } else if (x == row(c)) {
        y = row(c + beside);
        t = tb.STEAMTEMP(k) * 10;
      } else {
        continue;
      }
      moisture = 0;
      hit = true;
      break;
    }
    if (!hit) {
      failed = 1;
      return;
    }
  }

  if (x_in > row(last_x)) {
    // Above the table: bisection on the specific heat polynomial from the last columns.
    const float h0 = row(tb.STEAMNC - 1);
    const float s0 = row(tb.STEAMNC);
    x = x_in;
    float m = 0;
    float trial = x;
    float trial_h = h0;
    const bool ok = by_h ? Bisect(
                               0.001f, m, [&](float) { return x > trial; },
                               [&](float mid) {
                                 trial = ExtendedEnthalpy(h0, mid);
                                 return std::fabs(trial / x - 1) <= 0.00001;
                               })
                         : Bisect(
                               0.0001f, m, [&](float) { return x > trial; },
                               [&](float mid) {
                                 trial_h = ExtendedEnthalpy(h0, mid);
                                 trial = ExtendedEntropy(trial_h, h0, s0, mid);
                                 return std::fabs(trial - x) <= 0.00001;
                               });
    if (!ok) {
      steam.ui.notice(LimitMessage(name, x));
      failed = 1;
      return;
    }
    t = m - 459.7f;
    // The entropy adds to the last table entropy, which the walk left in y.
    y = by_h ? ExtendedEntropy(x, h0, y, m) : trial_h;
  }
  SteamVolume(p, t, v, row(3), row(2), failed);
}

}  // namespace

void SteamFromPH(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed) {
  StateFromProperty(steam, Given::kEnthalpy, p, t, h, s, v, moisture, failed);
}

void SteamFromPS(const Steam& steam, float p, float& t, float& h, float& s, float& v, float& moisture,
                 int16_t& failed) {
  StateFromProperty(steam, Given::kEntropy, p, t, s, h, v, moisture, failed);
}

void SteamVolume(float p, float t, float& v, float vsat, float tsat, int16_t& /*failed*/) {
  if (p < 10.343) {
    v = static_cast<float>((t + 459.69) / (tsat + 459.69) * vsat);
    return;
  }
  // Keyes: the intermediate terms are singles, the powers doubles.
  const float a = static_cast<float>(p / 51.7149 / 14.696);
  const float T = static_cast<float>((t - 32) * (5.0 / 9.0) + 273.16);
  const float u = 1 / T;
  const double ud = u;
  const float g1 = static_cast<float>(82.546 * ud - 1.6246 * std::pow(10.0, 5) * std::pow(ud, 2));
  const float g2 = static_cast<float>(0.21828 - 1.2697 * std::pow(10.0, 5) * std::pow(ud, 2));
  const float g3 = static_cast<float>(3.635 / std::pow(10.0, 4) - 6.768 * std::pow(10.0, 64) * std::pow(ud, 24));
  const float b0 = static_cast<float>(1.89 - 2641.62 * ud * std::pow(10.0, 80870 * std::pow(ud, 2)));
  const double b0d = b0;
  const double ad = a;
  const float b = static_cast<float>(b0d + std::pow(b0d, 2) * g1 * ud * ad + std::pow(b0d, 4) * g2 * std::pow(ud, 3) * std::pow(ad, 3) -
                                     std::pow(b0d, 13) * g3 * std::pow(ud, 12) * std::pow(ad, 12));
  v = static_cast<float>((4.55504 * T / a + b) / 62.43);
}

}  // namespace kestrane
