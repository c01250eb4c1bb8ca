// Gas pressure loss in a vacuum line of straight pipe and fittings, by the HEI chart factors or the closed formula, stepped along the line.
#include "calculators/pressure_drop.h"

#include <cmath>

#include "case/case_file_io.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "properties/unit_factors.h"

namespace kestrane {

namespace {

struct Fitting {
  const char* label;
  double ld;
};

// Rows 1 to 13 of the internal table (row 0 is the straight pipe): fields 8 to 13, the two swing checks, fields 15 to 19.
constexpr Fitting kFittings[] = {
    {"# of Gate Valves full open....(L/D=  8)", 8},   {"# of 90 deg Elbows (CAST).....(L/D= 30)", 30},
    {"# of 45 deg Elbows (CAST).....(L/D= 16)", 16},  {"# of Std Tees thru flow.......(L/D= 20)", 20},
    {"# of Std Tees branch flow.....(L/D= 60)", 60},  {"# of Close Return Bends.......(L/D= 50)", 50},
    {"# of Swing Check Valves.......(L/D=  *)", 100}, {"# of Swing Check Valves.......(L/D=  *)", 50},
    {"# of Angle Valves.............(L/D=150)", 150}, {"# of Globe Valves.............(L/D=340)", 340},
    {"# of 90 deg Wld Elbows r/d=1.0(L/D= 20)", 20},  {"# of 90 deg Wld Elbows r/d=1.5(L/D= 16)", 16},
    {"# of 90 deg Wld Elbows r/d=2.0(L/D= 12)", 12}};

constexpr double kCtTemps[17] = {20, 30, 40, 50, 60, 80, 100, 150, 200, 300, 400, 500, 610, 700, 810, 910, 1000};
constexpr double kCt[4][17] = {
    {0.91, 0.925, 0.95, 0.96, 0.975, 1.025, 1.06, 1.145, 1.245, 1.43, 1.62, 1.815, 2.0, 2.2, 2.41, 2.61, 2.795},
    {0.875, 0.9, 0.91, 0.95, 0.975, 1.025, 1.075, 1.195, 1.32, 1.57, 1.815, 2.065, 2.335, 2.635, 2.92, 3.205, 3.49},
    {1.47, 1.495, 1.52, 1.545, 1.58, 1.63, 1.68, 1.84, 1.99, 2.3, 2.61, 2.905, 3.205, 3.5, 3.825, 4.16, 4.465},
    {1.195, 1.22, 1.245, 1.285, 1.32, 1.38, 1.445, 1.605, 1.78, 2.14, 2.51, 2.905, 3.315, 3.75, 4.16, 4.54, 4.925}};

std::string Line(const std::string& label, double value) {
  return "     " + label + FormatBySize(static_cast<float>(value), 10) + "\r\n";
}

// A fault of the arithmetic: a value that is not a finite number.
double Finite(double x) {
  if (!std::isfinite(x)) throw VbError(std::isnan(x) ? 5 : 6);
  return x;
}

bool ReadBoolean(CaseReader& in) {
  const std::string text = Trim(in.Text());
  if (text == "True" || text == "#TRUE#") return true;
  if (text == "False" || text == "#FALSE#") return false;
  if (IsNumeric(text)) return Val(text) != 0;
  throw VbError(13);
}

}  // namespace

std::string DpFieldCaption(const DpScreen& s, int field) {
  switch (field) {
    case 1: return s.standard ? "Mass flow (#/hr)" : "Mass flow (kg/hr)";
    case 2: return s.standard ? "Temperature (deg.F)" : "Temperature (deg.C)";
    case 3: return s.hei ? "Fluid: 0 = Air,  1 = Steam" : "Molecular weight";
    case 4: return "Viscosity (cP)";
    case 5: return "Initial Pressure (mmHgA)";
    case 6: return s.standard ? "Pipe inside diameter (in)" : "Pipe inside diameter (mm)";
    case 7: return s.standard ? "Length of Straight Pipe (ft)" : "Length of Straight Pipe (m)";
    default: {
      const int row = field <= 13 ? field - 7 : field == 14 ? 7 : field - 6;
      return kFittings[row - 1].label;
    }
  }
}

std::string DpCaption(const DpScreen& s) {
  if (s.file.empty()) return "Kestrane-Gas Pressure Drop Estimation ";
  return "Kestrane-Gas Pressure Drop Estimation   Current File:" + std::filesystem::path(s.file).filename().string();
}

void ResetDpVac(DpScreen& s) { s = DpScreen{}; }

void CT(double temperature, double& ct1, double& ct2, int fluid, int& out_of_range) {
  out_of_range = 0;
  int hi = 1;  // the segment ends at point hi (0-based)
  if (temperature < 20) {
    out_of_range = 1;
  } else if (temperature >= 1000) {
    out_of_range = 1;
    hi = 16;
  } else {
    while (!(kCtTemps[hi] > temperature)) ++hi;
  }
  const double x1 = kCtTemps[hi - 1], x2 = kCtTemps[hi];
  auto curve = [&](const double* y) {
    const double slope = (std::log(y[hi]) - std::log(y[hi - 1])) / (x2 - x1);
    const double intercept = std::log(y[hi - 1]) - x1 * slope;
    return std::exp(intercept + temperature * slope);
  };
  const int first = fluid == 1 ? 2 : 0;
  ct1 = curve(kCt[first]);
  ct2 = curve(kCt[first + 1]);
}

void CD(double diameter, double& cd1, double& cd2, int& out_of_range) {
  out_of_range = diameter < 1 || diameter > 80 ? 1 : 0;
  cd1 = LogLogLine(40, 0.001f, 2, 3400, static_cast<float>(diameter));
  cd2 = LogLogLine(44, 0.001f, 2, 2100, static_cast<float>(diameter));
}

void f(double flow, double& f1, double& f2, int& out_of_range) {
  out_of_range = flow < 10 || flow > 100000 ? 1 : 0;
  f1 = LogLogLine(21, 0.0001f, 21000, 100, static_cast<float>(flow));
  f2 = LogLogLine(80, 0.01f, 17000, 100, static_cast<float>(flow));
}

bool Calculate_DP(DpScreen& s, Ui& ui, bool quiet) {
  s.results.clear();
  s.velocity = s.equivalent_length = s.drop = 0;
  auto message = [&](const std::string& text) {
    if (!quiet) ui.notice(text);
  };
  try {
    const bool hei = s.hei;
    const bool steam = hei && Val(s.txtEV[3]) == 1;
    const bool metric = !s.standard;
    // A box holding a number beyond a Single's range is an overflow.
    auto field = [&](int i) {
      const double value = Val(s.txtEV[static_cast<size_t>(i)]);
      CSng(value);
      return value;
    };
    const double w = metric ? field(1) * kLbPerKg : field(1);
    const double t = metric ? field(2) * 1.8 + 32 : field(2);
    const double id = metric ? field(6) / 25.4 : field(6);
    const double mw = hei ? (steam ? 18 : 29) : field(3);
    const double mu = hei ? 0 : field(4);
    const double p0 = field(5);

    std::array<double, 14> quantity{}, length{}, ld{};
    quantity[0] = metric ? field(7) * 3.28084 : field(7);
    for (int k = 8; k <= 13; ++k) quantity[static_cast<size_t>(k - 7)] = field(k);
    quantity[id <= 6.625 ? 7 : 8] = field(14);
    for (int k = 15; k <= 19; ++k) quantity[static_cast<size_t>(k - 6)] = field(k);
    const double d = id / 12;
    ld[0] = Finite(1 / d);
    for (size_t r = 1; r < 14; ++r) ld[r] = kFittings[r - 1].ld;
    double lt = 0, fittings = 0;
    for (size_t r = 0; r < 14; ++r) {
      length[r] = ld[r] * quantity[r] * d;
      lt += length[r];
      fittings += quantity[r];
    }
    const double factor = metric ? 0.3048 : 1.0;
    s.equivalent_length = static_cast<float>(lt * factor);

    std::string out;
    static const char* kStandard[] = {"Flow (pph).............................", "Temperature (deg.F)....................",
                                      "Molecular Weight.......................", "Viscosity (cP).........................",
                                      "Initial Pressure (mmHgA)...............", "Pipe I.D. (in.)........................"};
    static const char* kMetric[] = {"Flow (kg/hr)...........................", "Temperature (deg.C)....................",
                                    nullptr, nullptr, nullptr, "Pipe I.D. (mm)........................."};
    for (int k = 1; k <= 6; ++k) {
      if (k == 4 && hei) continue;
      std::string label = metric && kMetric[k - 1] ? kMetric[k - 1] : kStandard[k - 1];
      if (k == 3 && hei) label = "Fluid: 0 = Air,  1 = Steam.............";
      out += Line(label, field(k));
    }
    const double q = Finite(((w / mw) * 10.73 * (t + 459.59)) / ((p0 / 51.7144) * 3600));
    const double v = Finite(q / (3.141592654 * d * d / 4));
    if (v > 500) {
      s.results = out;
      message("Error: Velocity beyond 500 fps!!!");
      return false;
    }
    s.velocity = static_cast<float>(metric ? v * 0.3048 : v);
    out += Line(metric ? "Velocity (m/s)........................." : "Velocity (fps).........................", s.velocity);
    if (fittings > 0) {
      out += "\r\n               Description                Quantity   Equiv. lg " + std::string(metric ? "(m)" : "(ft)") +
             "\r\n";
      for (size_t r = 0; r < 14; ++r) {
        if (!(length[r] > 0)) continue;
        if (r == 0) {
          out += "     " + std::string(metric ? "Length of Straight Pipe (m)............" : "Length of Straight Pipe (ft.)..........") +
                 std::string(10, ' ') + FormatBySize(static_cast<float>(length[r] * factor), 10) + "\r\n";
        } else {
          out += "     " + std::string(kFittings[r - 1].label) + FormatFixed(static_cast<float>(quantity[r]), 10.0f) +
                 FormatBySize(static_cast<float>(length[r] * factor), 10) + "\r\n";
        }
      }
      out += "     " + std::string(metric ? "Total equivalent pipe length (m)       " : "Total equivalent pipe length (ft)      ") +
             std::string(10, ' ') + FormatBySize(static_cast<float>(lt * factor), 10) + "\r\n";
    }

    double k = 0;
    if (hei) {
      double ct1 = 0, ct2 = 0, cd1 = 0, cd2 = 0, f1 = 0, f2 = 0;
      int flag = 0;
      CT(t, ct1, ct2, steam ? 1 : 0, flag);
      CD(id, cd1, cd2, flag);
      f(w, f1, f2, flag);  // the range flags are not acted upon
      k = Finite(cd1 * f1 * ct1 + cd2 * f2 * ct2);
    }

    // Stepping: halve the step until no step drops more than a tenth of the pressure it leaves.
    double drop = 0;
    for (int n = 1;; n *= 2) {
      if (n > 1000) {
        s.results = out;
        message("No solution found!!!  Pressure drop probably exceeds inlet pressure.....");
        return false;
      }
      const double step = lt / n;
      double p = p0;
      drop = 0;
      bool fine = true;
      for (int i = 0; i < n; ++i) {
        const double g = hei ? Finite((step * (k / (p / 25.4)) / 100) / 13.6 * 25.4)
                             : Finite(1.25 * (0.01919798 * (t + 460) * step * std::pow(w, 1.75) * std::pow(mu, 0.25)) /
                                      (std::pow(id, 4.75) * mw * p));
        if (Finite(g / std::fabs(p - g)) > 0.1) {
          fine = false;
          break;
        }
        drop += g;
        p = p0 - drop;
      }
      if (fine) break;
    }
    out += "\r\nTotal calculated pressure drop:" + FormatFixed(static_cast<float>(drop), 10.4f) + " mmHg\r\n";
    s.results = out;
    s.drop = static_cast<float>(drop);
    s.total = Trim(FormatFixed(s.drop, 10.4f));
    if (hei && w / id < 20) message("Warning: W/d < 20 !  RESULTS NOT VALID PER HEI!");
  } catch (const VbError&) {
    message("Error in pressure drop calculation.  Check input and retry.");
    return false;
  }
  return true;
}

bool ReadDpFile(const std::filesystem::path& path, DpScreen& s, Ui& ui) {
  try {
    CaseReader in(path);
    in.Text();  // the version
    s.hei = ReadBoolean(in);
    s.standard = ReadBoolean(in);
    for (int k = 1; k <= kDpFields; ++k) s.txtEV[static_cast<size_t>(k)] = in.Text();
  } catch (const VbError& e) {
    ui.notice(TrappedError("ReadDpFile", e));
    return false;
  }
  s.file = path.string();
  s.dirty = 0;
  return true;
}

bool WriteDpFile(const std::filesystem::path& path, DpScreen& s, Ui& ui) {
  try {
    CaseWriter out(path);
    out.Text("1.00");
    out.Text(s.hei ? "True" : "False");
    out.Text(s.standard ? "True" : "False");
    for (int k = 1; k <= kDpFields; ++k) out.Text(s.txtEV[static_cast<size_t>(k)]);
    out.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteDpFile", e));
    return false;
  }
  s.file = path.string();
  s.dirty = 0;
  return true;
}

StoreDecision CheckToStoreDpFile(DpScreen& s, Ui& ui) {
  if (s.dirty == 0) return StoreDecision::kUnchanged;
  return AskToStore(ui, std::filesystem::path(s.file).filename().string(), "\r\n\r\nDo you want to save changes?",
                    "DpVac", !s.file.empty(), [&] { return WriteDpFile(s.file, s, ui); });
}

}  // namespace kestrane
