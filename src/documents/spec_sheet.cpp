// The specification sheet's lines: templates, the load sums, each field at its column in standard or metric units.
#include "documents/spec_sheet.h"

#include <array>

#include "documents/page_frame.h"
#include "engine/results.h"
#include "properties/arrays.h"
#include "properties/numeric.h"
#include "properties/unit_factors.h"
#include "pump/pump_selection.h"

namespace kestrane {

namespace {

constexpr int kLines = 60;
constexpr int kWidth = 76;
constexpr std::string_view kRule = " ________________________________________________________________________";
constexpr std::string_view kStageLine = "   ____________________Stage Ejector.       Size_______________________";
constexpr std::string_view kWaterLine = "   Water_______  gpm  In/Out______/_____ degF   Pressure Drop______ psi";

// Places of the tube record among the condenser options: tube outside diameter (in.) and gauge.
constexpr int kCndOptTubeOD = 3;
constexpr int kCndOptBWG = 4;

using Sheet = std::vector<std::string>;

std::string& Line(Sheet& sheet, int n) { return sheet[static_cast<size_t>(n - 1)]; }

// A blank at `column`, where a shorter metric unit word leaves a letter of the standard one.
void Blank(std::string& line, int column) { line[static_cast<size_t>(column - 1)] = ' '; }

// The value in the sheet's units: as it stands, or through the input screen's metric pair conversion.
float Shown(Quantity q, float value, bool metric) { return metric ? Convert(q, value, true) : value; }

// A flow in gpm, or in M3/h by the sheet's factor.
float ShownWater(float gpm, bool metric) { return metric ? static_cast<float>(gpm / kGpmPerM3h) : gpm; }

Sheet Templates() {
  Sheet sheet(kLines);
  const auto put = [&sheet](std::initializer_list<int> lines, std::string_view text) {
    for (int n : lines) Line(sheet, n) = TemplateLine(text, kWidth);
  };
  put({1, 2, 5, 9, 10, 12, 19, 22, 26, 29, 33, 35, 36, 57}, "");
  put({3}, std::string(26, ' ') + std::string(kMakerName));
  put({4}, "                   VACUUM SYSTEM SPECIFICATION SHEET");
  put({6}, "   Item:                                              Date:");
  put({7}, "                                                      User:");
  put({8}, "   Description:                                       File:");
  put({11, 18, 21, 25, 28, 32, 39, 51}, kRule);
  put({13}, "   Absolute pressure maintained at ejector suction inlet_________ mmHgA");
  put({14}, "   Temp @ Suction Inlet_______ degF           Steam Press________  psig");
  put({15}, "   Non-condensibles___________ #/hr   ___ MW  Steam Temp_________  degF");
  put({16}, "   Condensible Vapors_________ #/hr   ___ MW  Water Temp_________  degF");
  put({17}, "   Steam______________________ #/hr           Disch Press________ mmHgA");
  put({20, 27, 34}, kStageLine);
  put({23, 30}, "   Surface Intercondenser, Size________________ Surface___________ sqft");
  put({24, 31, 38}, kWaterLine);
  put({37}, "   Surface Aftercondenser, Size________________ Surface___________ sqft");
  put({40}, "                *** CONDENSER MATERIALS & DESIGN ***");
  put({41}, "                                                 PROCESS    WATER");
  put({42}, "   Process Side______________   Design Press  FV& ______   ______  psig");
  put({43}, "   Tube Sheets_______________   Hydro Test Press  ______   ______  psig");
  put({44}, "   Water Side________________   Design Temp       ______   ______  degF");
  put({45}, "   Tubes ____________________   O.D.____________ in  BWG______ avg wall");
  put({46}, "                      *** EJECTOR MATERIALS ***");
  put({47}, "   Suction Chamber and Diffuser________________________________________");
  put({48}, "   Steam Nozzle________________________________________________________");
  put({49}, "   Steam Chest_________________________________________________________");
  put({50}, "   Nozzle Plate________________________________________________________");
  put({52}, "   Tessel Designation: ________________________________________________");
  put({53}, "   Utilities: Steam________ #/hr, Water_______  gpm, Power__________ KW");
  put({54}, "   Total annual utility cost: $ _______________________________________");
  put({55}, "   Construction Code Ejectors: ________________________________________");
  put({56}, "   Construction Code Condensers: ______________________________________");
  for (size_t i = 0; i < kMakerLines.size(); ++i) {
    Line(sheet, 58 + static_cast<int>(i)) = TemplateLine(kMakerLines[i], kWidth);
  }
  return sheet;
}

// The loads by kind, lb/hr, and their moles: non-condensibles, condensible vapors other than steam, and steam.
struct LoadSums {
  float NC = 0, NCMOL = 0, CV = 0, CVMOL = 0, ST = 0, STMOL = 0;
};

// A zero molecular weight, like a zero sum of moles under a load sum, is the run-time fault (division by zero)
// it always was, not an infinite number on the sheet.
LoadSums SumLoads(const DesignCase& dc) {
  LoadSums s;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    const float m = dc.LOADS(kLoadPPH, load), mw = dc.LOADS(kLoadMW, load);
    const bool counted = m > 9.9999997e-05f;
    if (!(dc.LOADS(kLoadVPC1, load) > 0) && !(dc.LOADS(kLoadVPC2, load) > 0) && !(dc.LOADS(kLoadVPAC, load) > 0)) {
      s.NC += m;
      if (counted) s.NCMOL += Divide(m, mw);
      continue;
    }
    s.CV += m;
    if (counted) s.CVMOL += Divide(m, mw);
    if (CInt(mw) == 18) {
      s.ST += m;
      if (counted) s.STMOL += Divide(m, mw);
    }
  }
  s.CV -= s.ST;
  s.CVMOL -= s.STMOL;
  return s;
}

void Head(Sheet& sheet, const DesignContext& ctx, const std::string& case_file_name, const std::string& date_text) {
  // A count beyond five is the subscript fault the handler tells.
  static const Array1D<std::string_view> kCounts(1, {"One  ", "Two  ", "Three", "Four ", "Five "});
  const InputScreen& screen = ctx.screen;
  const DesignCase& dc = ctx.dc;
  PlaceInField(-1, Line(sheet, 6), Trim(screen.txtHeadingInput[0]), 17);
  PlaceInField(-1, Line(sheet, 6), date_text, 61);
  PlaceInField(-1, Line(sheet, 7), Trim(screen.txtHeadingInput[2]), 61);
  PlaceInField(-1, Line(sheet, 8), Trim(screen.txtHeadingInput[1]), 17);
  PlaceInField(-1, Line(sheet, 8), CaseStem(case_file_name), 61);
  std::string title = dc.PRECOND != 0 ? "Precondenser and " : "";
  if (dc.NSTAGES > 0) title += Trim(kCounts(dc.NSTAGES));
  PlaceInField(0, Line(sheet, 10), title + " Stage Vacuum System Performance", 38);
}

void Performance(Sheet& sheet, const DesignContext& ctx, const LoadSums& sums, bool metric) {
  const DesignCase& dc = ctx.dc;
  // With a precondenser before a short train the system's suction is the precondenser's inlet.
  float p = dc.PSUCT;
  if (dc.PRECOND != 0 && dc.NSTAGES >= 0 && dc.NSTAGES <= 2) p = dc.CND(dc.NSTAGES + 1, kCndPIN);
  std::string& l13 = Line(sheet, 13);
  if (dc.PRECOND != 0) PlaceInField(-1, l13, "precond", 36);
  PlaceNumber(l13, Shown(Quantity::kPressureMmHg, p, metric), metric ? 12.2f : 12.1f, 1, 65);

  std::string& l14 = Line(sheet, 14);
  PlaceNumber(l14, Shown(Quantity::kTemperature, dc.TSUCT, metric), 12.1f, 1, 30);
  PlaceNumber(l14, Shown(Quantity::kPressurePsig, dc.PMOTIVE, metric), metric ? 12.2f : 12.1f, 1, 65);

  std::string& l15 = Line(sheet, 15);
  if (sums.NC > 0) {
    PlaceNumber(l15, Shown(Quantity::kFlow, sums.NC, metric), 12.1f, 1, 30);
    PlaceNumber(l15, Divide(sums.NC, sums.NCMOL), 12.1f, 1, 41);
  }
  PlaceNumber(l15, Shown(Quantity::kTemperature, dc.TMOTIVE, metric), 12.1f, 1, 65);

  std::string& l16 = Line(sheet, 16);
  if (sums.CV > 0) {
    PlaceNumber(l16, Shown(Quantity::kFlow, sums.CV, metric), 12.1f, 1, 30);
    PlaceNumber(l16, Divide(sums.CV, sums.CVMOL), 12.1f, 1, 41);
  }
  const float water = BoxNumber(ctx.screen.txtInput[5]);
  if (water > 0) PlaceNumber(l16, Shown(Quantity::kTemperature, water, metric), 12.1f, 1, 65);

  std::string& l17 = Line(sheet, 17);
  PlaceNumber(l17, Shown(Quantity::kFlow, sums.ST, metric), 12.1f, 1, 30);
  PlaceNumber(l17, Shown(Quantity::kPressureMmHg, dc.PDISCH, metric), 12.1f, 1, 65);

  if (!metric) return;
  PlaceInField(1, l13, "KPaA", 71);
  Blank(l13, 67);
  PlaceInField(1, l14, "C", 35);
  PlaceInField(1, l14, "Barg", 71);
  if (sums.NC > 0) PlaceInField(1, l15, "kg/h", 35);
  PlaceInField(1, l15, "C", 71);
  if (sums.CV > 0) PlaceInField(1, l16, "kg/h", 35);
  if (water > 0) PlaceInField(1, l16, "C", 71);
  PlaceInField(1, l17, "kg/h", 35);
  PlaceInField(1, l17, "KPaA", 71);
  Blank(l17, 67);
}

void Ejectors(Sheet& sheet, const DesignContext& ctx) {
  static const Array1D<std::string_view> kOrdinals(1, {"1st   ", "2nd   ", "3rd   ", "4th   ", "5th   "});
  const int nstages = ctx.dc.NSTAGES;
  // Stages 4 and 5 share the template on line 19; the fifth's fields stand on the rule above it, as they always did.
  struct StageLine {
    int stage, line;
  };
  for (const StageLine s : {StageLine{5, 18}, StageLine{4, 19}, StageLine{3, 20}, StageLine{2, 27}, StageLine{1, 34}}) {
    if (nstages < s.stage) continue;
    if (s.stage >= 4) Line(sheet, 19) = TemplateLine(kStageLine, kWidth);
    std::string& line = Line(sheet, s.line);
    PlaceInField(-1, line, "(1)-100%", 4);
    PlaceInField(-1, line, std::string(kOrdinals(nstages - s.stage + 1)), 14);
    PlaceInField(0, line, EjectorModel(ctx, s.stage), 60);
  }
}

// The after condenser's, the second's and the first's blocks; whether the last one written is barometric.
bool Condensers(Sheet& sheet, const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  struct Block {
    int col, line;
    int16_t present;
  };
  bool barometric = false;
  for (const Block b : {Block{kCondAC, 37, dc.HASAC}, Block{kCondC2, 30, dc.HASC2}, Block{kCondC1, 23, dc.HASC1}}) {
    std::string& name = Line(sheet, b.line);
    if (b.present == 0) {
      PlaceInField(1, name, "____________________NONE_____________________", 71);
      continue;
    }
    if (b.col > dc.NSTAGES) PlaceInField(-1, name, "Precondenser, Size__", 12);
    barometric = dc.CND(b.col, kCndIHFLOW) == 4.0f;
    if (barometric) {
      PlaceInField(-1, name, "Barometric Condenser, Size__", 4);
      PlaceInField(1, name, "NA", 66);
    } else if (metric) {
      PlaceNumber(name, dc.CND(b.col, kCndAREA) * kM2PerFt2Sheet, 12.1f, 1, 66);
      PlaceInField(1, name, " sqM", 71);
      Blank(name, 68);
    } else {
      PlaceNumber(name, dc.CND(b.col, kCndAREA), 12.1f, 1, 66);
    }
    PlaceInField(0, name, CondenserDescription(ctx, b.col, metric), 40);

    std::string& water = Line(sheet, b.line + 1);
    PlaceNumber(water, ShownWater(dc.CND(b.col, kCndGPMUSE), metric), metric ? 6.1f : 6.0f, 1, 15);
    PlaceNumber(water, Shown(Quantity::kTemperature, dc.CND(b.col, kCndWATERIN), metric), 12.1f, 1, 34);
    PlaceNumber(water, Shown(Quantity::kTemperature, dc.CND(b.col, kCndWATEROUT), metric), 12.1f, -1, 36);
    PlaceNumber(water, Shown(Quantity::kPressurePsig, dc.CND(b.col, kCndDELTAP), metric), 12.2f, 1, 67);
    if (metric) {
      PlaceInField(1, water, "M3/h", 20);
      PlaceInField(1, water, "C", 45);
      PlaceInField(1, water, "bar", 71);
    }

    std::string& kind = Line(sheet, b.line - 1);
    PlaceInField(-1, kind, "(1)-100%", 4);
    const char* arrangement = CInt(dc.CND(b.col, kCndIVERT)) == 1 ? "VERTICAL    " : "HORIZONTAL  ";
    PlaceInField(-1, kind, barometric ? "BAROMETRIC  " : arrangement, 14);
  }
  return barometric;
}

// Materials and design conditions of the condensers; the water columns and the tubes read NA for a barometric
// condenser.
void CondenserMaterials(Sheet& sheet, const DesignContext& ctx, bool barometric, bool metric) {
  const InputScreen& screen = ctx.screen;
  const auto design = [&screen](size_t k, double factor = 1.0) { return BoxNumber(screen.txtDesign[k], factor); };
  const auto pressure = [metric](float psig) { return Shown(Quantity::kPressurePsig, psig, metric); };
  // A design temperature of 0 reads 0.0 in degC as well.
  const auto temperature = [metric](float f) { return f == 0 ? 0.0f : Shown(Quantity::kTemperature, f, metric); };
  std::string& l42 = Line(sheet, 42);
  std::string& l43 = Line(sheet, 43);
  std::string& l44 = Line(sheet, 44);
  std::string& l45 = Line(sheet, 45);

  PlaceInField(1, l42, std::string(ListText(screen, kProcessSideMaterial)), 29);
  PlaceNumber(l42, pressure(design(2)), 7.1f, 1, 56);
  PlaceInField(1, l43, barometric ? "NA" : std::string(ListText(screen, kTubeSheetMaterial)), 29);
  PlaceNumber(l43, pressure(design(2, 1.5)), 7.1f, 1, 56);
  PlaceInField(1, l44, std::string(ListText(screen, kWaterSideMaterial)), 29);
  PlaceNumber(l44, temperature(design(3)), 7.1f, 1, 56);
  PlaceInField(1, l45, barometric ? "NA" : std::string(ListText(screen, kTubeMaterial)), 29);
  if (barometric) {
    for (std::string* line : {&l42, &l43, &l44}) PlaceInField(1, *line, "NA          ", 65);
    PlaceInField(1, l45, "NA          ", 48);
    PlaceInField(1, l45, "NA          ", 62);
    PlaceInField(-1, Line(sheet, 46), "Nozzle(s)", 12);
  } else {
    // The water side's pressures stand in psig in both units.
    PlaceNumber(l42, design(0), 7.1f, 1, 65);
    PlaceNumber(l43, design(0, 1.5), 7.1f, 1, 65);
    PlaceNumber(l44, temperature(design(1)), 7.1f, 1, 65);
    PlaceNumber(l45, ctx.dc.CNDOPT(kCndOptTubeOD), 12.3f, 1, 48);
    PlaceNumber(l45, ctx.dc.CNDOPT(kCndOptBWG), 12.0f, 1, 62);
  }
  if (metric) {
    PlaceInField(1, l42, "barg", 71);
    PlaceInField(1, l43, "barg", 71);
    PlaceInField(1, l44, "C", 71);
  }
}

// The liquid ring pump in place of the last stage and the after condenser: its power, seal water, motor, speed and
// electric supply.
void PumpLines(Sheet& sheet, const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  for (int n : {35, 37, 38}) Line(sheet, n) = std::string(kWidth, ' ');
  std::string& stage = Line(sheet, 34);
  stage.replace(29, 8, 8, ' ');
  PlaceInField(-1, stage, "LRVP.", 30);

  const float power = metric ? kKwPerHp : 1.0f;
  std::string brake = metric ? "Brake horsepower_____________ KW         Seal Flow_____________ M3/h"
                             : "Brake horsepower_____________ hp         Seal Flow______________ gpm";
  PlaceNumber(brake, dc.LRVPRES(kLrvpPower, 1) * power, 6.1f, 1, 29);
  PlaceNumber(brake, ShownWater(dc.LRVPRES(kLrvpSeal, 1), metric), 6.1f, 1, metric ? 63 : 64);
  PlaceInField(-1, Line(sheet, 35), brake, 4);

  const float motor_hp = dc.LRVPRES(kLrvpMotor, 1);
  const PumpRecord* pump = DesignedPump(ctx);
  std::string motor = metric ? "Motor horsepower_____________ KW         Pump Speed_____________ rpm"
                             : "Motor horsepower_____________ hp         Pump Speed_____________ rpm";
  PlaceNumber(motor, motor_hp * power, 6.0f, 1, 29);
  PlaceNumber(motor, pump ? pump->speed : 0.0f, 6.0f, 1, 64);
  PlaceInField(-1, Line(sheet, 36), motor, 4);

  std::string supply = "Electric Supply_____________________________________________________";
  const char* mains = dc.CYCLES != 0     ? "380 Volts, 50 Cycle"
                      : motor_hp < 50.0f ? "230/460 Volt, 60 Cycle"
                                         : "460 Volt, 60 Cycle";
  PlaceInField(0, supply, mains, 42);
  PlaceInField(-1, Line(sheet, 37), supply, 4);
}

// Ejector materials, the designation of the train, utilities, annual cost and construction codes.
void Rest(Sheet& sheet, const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  const InputScreen& screen = ctx.screen;
  PlaceInField(1, Line(sheet, 47), std::string(ListText(screen, kSuctionChamberMaterial)), 71);
  PlaceInField(1, Line(sheet, 48), std::string(ListText(screen, kSteamNozzleMaterial)), 71);
  PlaceInField(1, Line(sheet, 49), std::string(ListText(screen, kSteamChestMaterial)), 71);
  PlaceInField(1, Line(sheet, 50), std::string(ListText(screen, kNozzlePlateMaterial)), 71);

  std::string designation;
  for (const EquipmentSlot& slot : EquipmentSlots(ctx, metric)) {
    designation += (designation.empty() ? "" : "-") + slot.caption;
  }
  PlaceInField(-1, Line(sheet, 52), designation, 24);

  std::string& l53 = Line(sheet, 53);
  PlaceNumber(l53, Shown(Quantity::kFlow, dc.TOTALS(kTotalMotive), metric), 12.0f, 1, 27);
  PlaceNumber(l53, ShownWater(dc.TOTALS(kTotalWater), metric), 12.0f, 1, 46);
  PlaceNumber(l53, dc.TOTALS(kTotalPower), 12.0f, 1, 68);
  if (metric) {
    PlaceInField(1, l53, "kg/h", 32);
    PlaceInField(1, l53, "M3/h", 51);
  }
  PlaceNumber(Line(sheet, 54), dc.TOTALS(kTotalAnnualCost), 12.0f, -1, 32);
  PlaceInField(-1, Line(sheet, 55), std::string(ListText(screen, kJetCode)), 32);
  PlaceInField(-1, Line(sheet, 56), std::string(ListText(screen, kCNDCode)), 34);
}

}  // namespace

std::vector<std::string> SpecSheetLines(const DesignContext& ctx, const std::string& case_file_name,
                                        const std::string& date_text) {
  try {
    const DesignCase& dc = ctx.dc;
    const bool metric = ctx.screen.Metric();
    Sheet sheet = Templates();
    Head(sheet, ctx, case_file_name, date_text);
    Performance(sheet, ctx, SumLoads(dc), metric);
    Ejectors(sheet, ctx);
    const bool barometric = Condensers(sheet, ctx, metric);
    if (dc.HASAC != 0 || dc.HASC2 != 0 || dc.HASC1 != 0) CondenserMaterials(sheet, ctx, barometric, metric);
    Rest(sheet, ctx, metric);
    if (dc.USELRVP == 1) PumpLines(sheet, ctx, metric);
    return sheet;
  } catch (...) {
    ctx.ui.notice(TrappedError("PrintSpecSheet", CaughtError()));
    return {};
  }
}

void PrintSpecSheet(const std::vector<std::string>& lines, PageSink& printer) {
  printer.font.name = "Courier New";
  printer.font.size = 12;
  printer.font.bold = false;
  for (size_t n = 2; n <= lines.size(); ++n) {
    if (n == 57) printer.font.size = 10;
    printer.Print(std::string(n < 57 ? 3 : 11, ' '), lines[n - 1]);
  }
  printer.EndDoc();
}

}  // namespace kestrane
