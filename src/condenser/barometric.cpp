// The barometric (direct contact) condenser: shell size by four rules and its dimensions from the table of standard condensers.
#include <cmath>
#include <string>

#include "condenser/condenser_state.h"
#include "properties/numeric.h"

namespace kestrane {

namespace {

constexpr float kCastIron = 20;  // material code of cast iron

float Interp(const Array2D<float>& table, float x, int16_t xcol, int16_t ycol) {
  int16_t status = 0;
  float y = 0;
  TableInterp(table, static_cast<int16_t>(table.hi1()), static_cast<int16_t>(table.hi2()), x, status, xcol, ycol, y);
  return y;
}

// The shell size from water flow, vapor nozzles, load and the inlet nozzle.
float BarometricSize(CondenserRun& run) {
  const auto& c = run.ctx.data.constants;
  float sw = 0;
  for (int i = 1; i <= c.BAROWATER.hi1(); ++i) {
    if (c.BAROWATER(i, 2) >= run.GPMUSE) {
      sw = c.BAROWATER(i, 1);
      break;
    }
  }
  float si = 0, so = 0;
  SizeNozzle(run, run.QVO, si, Interp(c.BAROVIN, run.P2, 2, 1), 1.5f);
  SizeNozzle(run, run.QVO, so, Interp(c.BAROVOUT, run.P2, 2, 1), 1.5f);
  // Every vapor mole counted as a mole of water.
  const float load = 18 * run.mol_in + run.W1;
  float sl = 0;
  for (int i = 1; i <= c.BAROLOAD.hi1(); ++i) {
    const auto& t = c.BAROLOAD;
    if (TwoPointLine(t(i, 2), t(i, 3), t(i, 4), t(i, 5), run.P1) >= load) {
      sl = t(i, 1);
      break;
    }
  }
  float sd = 0;
  for (int i = 1; i <= c.BAROTAB.hi1(); ++i) {
    if (c.BAROTAB(i, 2) >= run.DIAVI) {
      sd = c.BAROTAB(i, 1);
      break;
    }
  }
  return MaxOf(sw, si, so, sl, sd);
}

void StoreDimensions(CondenserRun& run, const std::array<float, 12>& row) {
  run.baro[1] = row[5];
  run.baro[2] = row[6];
  run.baro[3] = row[7];
  run.baro[4] = row[8];
  run.baro[5] = row[7] + row[8];
  run.baro[6] = row[4];
  run.baro[7] = row[9];
}

std::array<float, 12> Row(const Array2D<float>& t, int i) {
  std::array<float, 12> row{};
  for (int k = 1; k <= 11; ++k) row[static_cast<size_t>(k)] = t(i, k);
  return row;
}

// Dimensions for the chosen size; false after its message when there are none. `nozzles` stays
// true when the nozzles were resized to the table's and need sizing again.
bool BarometricDimensions(CondenserRun& run, bool& nozzles) {
  const auto& t = run.ctx.data.constants.BAROTAB;
  run.baro.fill(0);
  nozzles = true;
  int r1 = 0, r2 = 0;
  for (int i = 1; i <= t.hi1(); ++i) {
    if (t(i, 1) == run.OD) {
      if (r1 == 0) r1 = i;
      r2 = i;
    }
  }
  const bool interp = r1 == 0;
  int rp = 0;
  if (!interp) {
    int rv = 0, ro = 0;
    for (int i = r1; i <= r2; ++i) {
      if (rv == 0 && t(i, 2) >= run.DIAVI) rv = i;
      if (ro == 0 && t(i, 3) >= run.DIAVO) ro = i;
    }
    rp = std::max(rv == 0 ? r2 : rv, ro == 0 ? r2 : ro);
  }
  const bool cast = run.process_material == kCastIron;
  auto walk = [&](const char* failure) -> int {
    for (int i = std::max(r1, rp); i <= r2; ++i) {
      const bool fits = !(run.DIAVI > t(i, 2) || run.DIAWI > t(i, 10) || run.DIAWO > t(i, 11));
      if (fits || rp > 0) return i;
    }
    run.ctx.ui.notice(failure);
    return 0;
  };
  if (cast) {
    if (interp || t(std::max(r1, rp), 12) != 1) {
      run.ctx.ui.notice(" BAROMETRIC SIZE NOT AVAILABLE IN CAST IRON!");
      return false;
    }
    const int i = walk(" UNABLE TO DEVELOP CAST IRON BAROMETRIC DIMENSIONS!");
    if (i == 0) return false;
    StoreDimensions(run, Row(t, i));
    run.DIAVI = t(i, 2);
    run.DIAVO = t(i, 3);
    nozzles = false;
    return true;
  }
  if (!interp) {
    const int i = walk(" UNABLE TO DEVELOP FABRICATED BAROMETRIC DIMENSIONS!");
    if (i == 0) return false;
    StoreDimensions(run, Row(t, i));
    if (rp > 0) {
      run.DIAVI = t(i, 2);
      run.DIAVO = t(i, 3);
      run.DIAWI = t(i, 10);
      run.DIAWO = t(i, 11);
    }
    return true;
  }
  // A size between the table's rows: every column interpolated on a quarter inch.
  std::array<float, 12> row{};
  for (int k = 2; k <= 11; ++k) {
    row[static_cast<size_t>(k)] = Interp(t, run.OD, 1, static_cast<int16_t>(k));
    RoundTo(row[static_cast<size_t>(k)], 0.25f);
  }
  std::array<float, 12> limits = row;
  for (int i = 1; i <= t.hi1(); ++i) {
    if (t(i, 1) >= run.OD) {
      limits = Row(t, i);
      break;
    }
  }
  const bool exceeds = run.DIAVI > limits[2] || run.DIAWI > limits[10] || run.DIAWO > limits[11];
  if (exceeds && !nozzles) {
    run.ctx.ui.notice(" UNABLE TO INTERPOLATE BAROMETRIC DIMENSIONS!");
    return false;
  }
  StoreDimensions(run, row);
  run.DIAVI = limits[2];
  run.DIAVO = limits[3];
  run.DIAWI = limits[10];
  run.DIAWO = limits[11];
  return true;
}

}  // namespace

void SizeBarometric(CondenserRun& run) {
  run.OD = BarometricSize(run);
  if (run.in[1] > 0) run.in[1] = run.OD;
  if (run.OD > 120) {
    run.OD = 0;
    run.ctx.ui.notice("Design beyond size limits and may require multiple condensers.\r\n\r\nSuggest design "
                      "requirements be forwarded to Tessel Corporation for evaluation.");
  }
  if (!(run.OD > 0)) return;
  bool nozzles = true;
  if (!BarometricDimensions(run, nozzles)) {
    run.baro.fill(0);
    return;
  }
  if (nozzles) {
    Warn(run, 13);
    run.FPSVI = SizeNozzle(run, run.QVI, run.DIAVI, 0, 1.5f);
    run.FPSVO = SizeNozzle(run, run.QVO, run.DIAVO, 0, 1.5f);
    const float qw = run.GPMUSE / 7.48f / 60;
    run.FPSWI = SizeNozzle(run, qw, run.DIAWI, 0, 1.25f);
    run.FPSWO = SizeNozzle(run, (run.GPMUSE + run.WCOND / 500) / 7.48f / 60, run.DIAWO, 0, 1.25f);
  }
}

}  // namespace kestrane
