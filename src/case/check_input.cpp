// The input check: the screen becomes the case record, limits are enforced and the number of stages chosen.
#include "case/check_input.h"

#include <cmath>
#include <string>

#include "case/input_limits.h"
#include "properties/vb.h"
#include "properties/water_properties.h"

namespace kestrane {

namespace {

float Number(const std::string& text) { return CSng(Val(text)); }

constexpr std::string_view kCompressionMessage =
    "Error: The compression range of the first stage ejector exceeds the capability of this program. Consult "
    "Tessel Corporation.  To avoid this error, either increase the suction pressure or decrease the cooling water "
    "temperature.";
constexpr std::string_view kNoGasMessage = "NOTE: A minimum of 1 non-condensible load is required!";

void Add(std::string& notices, std::string_view message) {
  notices += message;
  notices += "\r\n";
}

// The boxes the check reads as Singles (and the vapor IDs as 16-bit integers):
// a number beyond their range is error 6, refused here with the box named
// before any of them is read.
void RefuseOverflowingBoxes(InputScreen& screen, std::string& notices) {
  static const char* const kMainBoxes[] = {"suction pressure",  "suction temperature", "discharge pressure",
                                           "motive pressure",   "motive temperature",  "cooling water inlet temperature",
                                           "cooling water outlet temperature", "fouling factor"};
  const auto check = [&](BoxRef box, const std::string& what, bool integer) {
    const std::string notice = OverflowNotice(what, screen.Box(box), integer);
    if (notice.empty()) return;
    Add(notices, notice);
    RefuseBox(screen, box, notice);
  };
  for (int i = 0; i < static_cast<int>(screen.txtInput.size()); ++i) {
    check({BoxGroup::kInput, i}, kMainBoxes[i], false);
  }
  const auto costs = CostCaptions(screen.Metric());
  for (int i = 0; i < static_cast<int>(screen.txtCost.size()); ++i) {
    check({BoxGroup::kCost, i}, Trim(costs[static_cast<size_t>(i)]), false);
  }
  for (int row = 0; row <= 9; ++row) {
    const std::string load = " of " + std::string(row == 0 ? "the water load" : "condensible load " + std::to_string(row + 1));
    check({BoxGroup::kCpph, row}, "flow" + load, false);
    if (row > 0) check({BoxGroup::kCID, row}, "vapor ID" + load, true);
  }
  for (int row = 0; row <= 9; ++row) {
    const std::string load = " of non-condensible load " + std::to_string(row + 1);
    check({BoxGroup::kNCpph, row}, "flow" + load, false);
    check({BoxGroup::kNCMW, row}, "molecular weight" + load, false);
  }
}

// The stage count asked for, and whether the suction pressure suits it.
bool ChosenCountFits(int16_t stages, float psuct, bool pump, std::string& notices) {
  const char* words[] = {"", "single", "two", "three", "four"};
  bool fits = false;
  switch (stages) {
    case 4: fits = psuct >= 1 && psuct <= 5; break;
    case 3: fits = psuct >= 5 && psuct <= 50; break;
    case 2: fits = psuct >= 10 && psuct <= 200; break;
    case 1: fits = pump ? psuct >= 25 : psuct >= 80; break;
    default: break;
  }
  if (!fits) {
    Add(notices, std::string("Suction pressure outside the range of ") + words[stages] +
                     " stage system.... program will select the number of stages!!!");
  }
  return fits;
}

int16_t AutomaticStages(float psuct, std::string& notices) {
  if (psuct < 5) return 4;
  if (psuct <= 25) {
    if (psuct > 12) Add(notices, "Selecting 3 stage system automatically... but suggest 2 stage system be reviewed!");
    return 3;
  }
  if (psuct <= 100) {
    if (psuct > 80) Add(notices, "Selecting 2 stage system automatically... but suggest 1 stage system be reviewed!");
    return 2;
  }
  if (psuct <= 200) Add(notices, "Selecting 1 stage system automatically... but suggest 2 stage system be reviewed!");
  return 1;
}

// Saturation pressures of water at the three condenser temperatures, with their range flags.
void WaterLoad(DesignCase& dc, float pph, const Steam& steam) {
  dc.LOADS(kLoadID, 1) = 0;
  dc.LOADS(kLoadPPH, 1) = pph;
  dc.LOADS(kLoadMW, 1) = 18.0f;
  dc.LOADCLASS(1) = 4;
  dc.LATENT(1) = 1100.0f;
  const float temps[] = {dc.TSATC1, dc.TSATC2, dc.TSATAC};
  for (int k = 0; k < 3; ++k) {
    float p = 0;
    int16_t failed = 0;
    SatPress(steam, temps[k], p, failed);
    dc.LOADS(kLoadVPC1 + k, 1) = p;
    dc.VPRANGE(1, k + 1) = failed;
  }
}

}  // namespace

void CheckRc(float psuct, float tw, int16_t& err, const Steam& steam, std::string& notices) {
  if (psuct == 0) return;
  float pw = 0;
  int16_t failed = 0;
  SatPress(steam, tw + 16, pw, failed);
  const double ratio = std::sqrt(pw / psuct);
  if (ratio > 12) {
    err = 1;
    Add(notices, kCompressionMessage);
  }
}

int16_t CheckInput(InputScreen& screen, DesignCase& dc, float& pinterfix, const CheckServices& services) {
  std::string notices;
  int16_t err = 0;
  const auto& in = screen.txtInput;

  screen.refused.clear();
  RefuseOverflowingBoxes(screen, notices);
  if (!notices.empty()) {
    services.ui.notice(notices);
    return 1;
  }

  // Main values and their limits.
  const float values[] = {Number(in[0]), Number(in[1]), Number(in[2]), Number(in[3]), Number(in[4]), Number(in[5])};
  dc.PSUCT = values[0];
  dc.TSUCT = values[1];
  dc.PDISCH = values[2];
  dc.PMOTIVE = values[3];
  dc.TMOTIVE = values[4];
  dc.TWATERIN = values[5];
  for (int row : {0, 1, 2, 3, 5}) {
    const InputLimit limit = *MainInputLimit(row);
    if (values[row] < limit.low || values[row] > limit.high) {
      Add(notices, limit.message);
      RefuseBox(screen, {BoxGroup::kInput, row}, limit.message);
    }
  }
  const float w = Number(in[6]);
  if (w > 0 && w < dc.TWATERIN + 15) {
    Add(notices, kWaterOutletMessage);
    RefuseBox(screen, {BoxGroup::kInput, 6}, kWaterOutletMessage);
  }

  dc.CNDTYPE = 1;
  dc.CNDTS = screen.OptionCondenserType[1] != 0 ? 1 : 0;
  if (screen.OptionCondenserType[2] != 0) dc.CNDTYPE = 2;
  if (screen.OptionCondenserType[3] != 0) dc.CNDTYPE = 0;
  const float fouling = Number(in[7]);
  if (dc.CNDTYPE == 1 && (fouling < kFoulingLimit.low || fouling > kFoulingLimit.high)) {
    Add(notices, kFoulingLimit.message);
    RefuseBox(screen, {BoxGroup::kInput, 7}, kFoulingLimit.message);
  }
  if (!notices.empty()) {
    services.ui.notice(notices);
    return 1;
  }

  dc.PRECOND = screen.chkboxPreCondenser == 1 ? -1 : 0;
  if (dc.PRECOND != 0 && dc.CNDTYPE == 0) {
    Add(notices, "Warning: Precondenser option cannot be used unless type of condenser (S&T or Direct Contact) is "
                 "selected.");
  }
  if (dc.PSUCT < 13 && dc.CNDTYPE > 0) {
    CheckRc(dc.PSUCT, dc.TWATERIN, err, services.steam, notices);
    if (err != 0) {
      // Either a higher suction pressure or colder water brings the compression back in range.
      RefuseBox(screen, {BoxGroup::kInput, 0}, kCompressionMessage);
      RefuseBox(screen, {BoxGroup::kInput, 5}, kCompressionMessage);
    }
  }

  dc.USELRVP = screen.chkboxLRVP == 1 ? 1 : 0;
  dc.CYCLES = screen.OptionCycles[1] != 0 ? 1 : 0;
  dc.STAGEOPT = 0;
  for (int index = 1; index <= 4; ++index) {
    if (screen.OptionStages[static_cast<size_t>(index)] != 0) dc.STAGEOPT = static_cast<int16_t>(5 - index);
  }

  ClearLoadTables(dc);

  // Condenser temperatures and water outlet limits.
  dc.HASC1 = dc.HASC2 = dc.HASAC = 1;
  dc.TSATC1 = dc.TWATERIN + (screen.OptionOptimize[0] != 0 ? 10 : 15);
  dc.TSATC2 = dc.TWATERIN + 20;
  dc.TSATAC = dc.TWATERIN + 30;
  dc.TWMAX(16) = dc.TWATERIN + 30;
  dc.TWMAX(17) = dc.TWATERIN + 20;
  dc.TWMAX(18) = dc.TWATERIN + (dc.PSUCT < 13 ? 10 : 15);
  if (w > 0) {
    for (int k = 16; k <= 18; ++k) dc.TWMAX(k) = std::min(dc.TWMAX(k), w);
  }
  if (dc.USELRVP == 1) dc.HASAC = 0;
  if (dc.CNDTYPE == 0) dc.HASC1 = dc.HASC2 = dc.HASAC = 0;

  // Loads: water first, then condensibles, then non-condensibles.
  WaterLoad(dc, Number(screen.txtCpph[0]), services.steam);
  dc.NLOADS = 1;
  const float temps[] = {dc.TSATC1, dc.TSATC2, dc.TSATAC};
  for (size_t row = 1; row <= 9; ++row) {
    const float flow = Number(screen.txtCpph[row]);
    const int16_t id = CInt(Val(screen.txtCID[row]));
    if (!(flow > 0) || id == 0) continue;
    const bool known = id > 0 ? id <= services.vapors.data.NPSAT : -id <= services.vapors.user.NUDV;
    if (!known) {
      const std::string notice = "Condensible load " + std::to_string(row + 1) + ": vapor ID " + std::to_string(id) +
                                 " is not in the vapor data base.";
      Add(notices, notice);
      RefuseBox(screen, {BoxGroup::kCID, static_cast<int>(row)}, notice);
      err = 1;
      continue;
    }
    const int load = ++dc.NLOADS;
    dc.LOADS(kLoadID, load) = id;
    dc.LOADS(kLoadPPH, load) = flow;
    for (int k = 0; k < 3; ++k) {
      float p = 0;
      int16_t flag = 0;
      Antoine(services.vapors, id, temps[k], p, flag);
      dc.LOADS(kLoadVPC1 + k, load) = p;
      dc.VPRANGE(load, k + 1) = flag;
    }
    dc.LOADCLASS(load) = 5;
    if (id > 0) {
      dc.LATENT(load) = services.vapors.data.PSATDATA(id, 7);
      dc.LOADS(kLoadMW, load) = services.vapors.data.PSATDATA(id, 1);
    } else {
      dc.LATENT(load) = 250.0f;
      dc.LOADS(kLoadMW, load) = services.vapors.user.UDVDATA(-id, 8);
    }
  }
  bool any_gas = false;
  for (size_t row = 0; row <= 9; ++row) {
    const float flow = Number(screen.txtNCpph[row]);
    const float mw = Number(screen.txtNCMW[row]);
    if (!(flow > 0) || !(mw > 0)) continue;
    const int load = ++dc.NLOADS;
    dc.LOADS(kLoadID, load) = 0;
    dc.LOADS(kLoadPPH, load) = flow;
    dc.LOADS(kLoadMW, load) = mw;
    any_gas = true;
  }
  if (!any_gas) {
    Add(notices, kNoGasMessage);
    RefuseBox(screen, {BoxGroup::kNCpph, 0}, kNoGasMessage);
    RefuseBox(screen, {BoxGroup::kNCMW, 0}, kNoGasMessage);
    err = 1;
  }

  // Condenser option block.
  const float cndopt[25] = {0, 0, 0.75f, 18, 0.9375f, 1, 3, 75, 250, 0, 75, 250, 0, 2, 1, 1, 1, 1, 1, 0, 0, 0,
                            dc.CNDTYPE == 2 ? 4.0f : 0.0f, 50, 7};
  for (int k = 1; k <= 25; ++k) dc.CNDOPT(k) = cndopt[k - 1];
  dc.CNDOPT2.Clear();
  dc.CNDOPT2(1) = 1;
  dc.CNDOPT2(2) = 1;
  float cp = 0, sg = 0, kw = 0, mu = 0;
  int16_t water_err = 0;
  WaterProperties(dc.TWATERIN, cp, sg, kw, mu, water_err);
  dc.CNDOPT2(3) = cp;
  dc.CNDOPT2(4) = sg;
  dc.CNDOPT2(5) = kw;

  dc.LRVPMLMIN = 1.1f;
  dc.LRVPFACTOR = 1.0f;
  dc.KEEPWATER = (dc.CNDTYPE == 2 || dc.USELRVP == 1) ? 1 : 0;
  dc.KEEPWATERC = dc.CNDTYPE == 2 ? 1 : 0;
  dc.KEEPWATERP = dc.USELRVP == 1 ? 1 : 0;

  ClearResultTables(dc);

  // Stage count: the one asked for when the suction pressure suits it, else automatic.
  const bool pump = dc.USELRVP == 1;
  if (dc.STAGEOPT != 0 && ChosenCountFits(dc.STAGEOPT, dc.PSUCT, pump, notices)) {
    dc.NSTAGES = dc.STAGEOPT;
  } else {
    dc.STAGEOPT = 0;
    dc.NSTAGES = AutomaticStages(dc.PSUCT, notices);
  }
  if (dc.NSTAGES == 2 && dc.PRECOND == 0) dc.HASC1 = 0;
  if (dc.NSTAGES == 1) {
    dc.HASC1 = 0;
    if (dc.PRECOND == 0) dc.HASC2 = 0;
  }
  if (dc.NSTAGES > 3) {
    int16_t failed = 0;
    SatPress(services.steam, dc.TSATC1 + 15, pinterfix, failed);
  }
  for (size_t row = 1; row <= 3; ++row) {
    std::string& design = screen.txtDesign[row];
    if (Trim(design).empty() || !IsNumeric(design)) design = "0";
  }
  if (!notices.empty()) services.ui.notice(notices);
  return err;
}

}  // namespace kestrane
