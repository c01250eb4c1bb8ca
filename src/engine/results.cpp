// The results screen as data: utilities, ejectors and condensers in standard or metric units, and the debugger grid.
#include "engine/results.h"

#include <array>

#include "engine/stage_results.h"
#include "properties/numeric.h"
#include "properties/text_codec.h"
#include "properties/vb.h"
#include "properties/vb_file.h"
#include "pump/pump_selection.h"
#include "properties/unit_factors.h"

namespace kestrane {

std::vector<int> CondensersPresent(const DesignCase& dc) {
  std::vector<int> cols;
  if (dc.HASC1 > 0) cols.push_back(kCondC1);
  if (dc.HASC2 > 0) cols.push_back(kCondC2);
  if (dc.HASAC > 0) cols.push_back(kCondAC);
  return cols;
}

const char* CondenserName(int col) {
  static const char* const kNames[] = {"", "AC", "C2", "C1"};
  return kNames[col];
}

const PumpRecord* DesignedPump(const DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  const int chosen = CInt(dc.LRVPRES(kLrvpPump, 1));
  if (dc.USELRVP != 1 || dc.LRVPERR != 0 || chosen < 1 || chosen > kPumps) return nullptr;
  return &ctx.data.pumps.pumps[static_cast<size_t>(chosen)];
}

namespace {

// degC of a degF value, as the input screen pairs its temperatures.
float Celsius(float f) { return Convert(Quantity::kTemperature, f, true); }

// Names of the condenser table rows from 78 on, as the grid shows them.
const char* const kCondenserRowNames[] = {
    "WLMTD",      "OD",       "TL",       "AREA",      "GPMUSE",   "WATER IN", "WATER OUT", "DELTAP",   "UD",
    "USTM",       "UVAP",     "HT",       "HSTM",      "HVAP",     "AREQSTM",  "AREQVAP",   "VEL",      "FPSWI",
    "FFACT",      "DOME",     "DOMECALC", "DIAVI",     "DIAVO",    "DIAWI",    "DIAWO",     "PASS",     "DIACOUT",
    "Q NO SUB",   "ISTANDARD", "AREQSUB", "BAFFLES",   "BSP",      "CTOTHER",  "CTSTEAM",   "DOMEOUT",  "DOMEVMAX",
    "FF",         "WALL",     "IVERT",    "MW CV",     "NC MOL WGT", "PCTCUT", "PCTQ",      "PPH CVIN", "PPH CVOUT",
    "PPH NC",     "Q TOTAL",  "QSTEAM",   "QSUB",      "QUSE",     "QVAP",     "RNFA",      "IHFLOW",   "MODEL",
    "STEPS",      "T1",       "T1F",      "T2F",       "TCOND",    "TMSHL",    "TMTUBE",    "TOD",      "TUBES",
    "VELSLOT",    "VIF",      "VTUBES",   "WALL",      "WALL RESIST", "WLMTDSTM", "WLMTDVAP", "FPSVI",  "FPSVO",
    "FPSWI",      "FPSWO",    "BARO A",   "BARO B",    "BARO C",   "BARO D",   "BARO E",    "BARO F",   "BARO G"};

std::string Pair(float a, float b) { return FormatFixed(a, 5.1f) + "/" + FormatFixed(b, 5.1f); }

}  // namespace

std::string EjectorModel(const DesignContext& ctx, int c) {
  std::string model = ctx.data.constants.STAGENAME(c) + "-" + Trim(GeneralText(ctx.dc.STG(c, kStgSIZE)));
  if (ctx.dc.USELRVP == 1 && c == kStageC) {
    model.resize(std::max<size_t>(model.size(), 7), ' ');
    PlaceInField(-1, model, "LRVP", 4);
  }
  return model;
}

std::string CondenserDescription(const DesignContext& ctx, int col, bool metric) {
  if (!metric) return CondenserModel(ctx, col);
  // The same rule with the shell and tube length in millimetres.
  return std::to_string(CInt(ctx.dc.CND(col, kCndOD) * 25.4)) + "x" +
         std::to_string(CInt(ctx.dc.CND(col, kCndTL) * 304.8)) + HeadLetters(ctx.screen);
}

std::vector<EquipmentSlot> EquipmentSlots(const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  std::vector<EquipmentSlot> slots;
  auto stage = [&](int c) {
    const auto kind = (c == kStageC && dc.USELRVP != 0) ? EquipmentSlot::kPump : EquipmentSlot::kEjector;
    slots.push_back({kind, c, EjectorModel(ctx, c)});
  };
  auto condenser = [&](int col) {
    const auto kind = dc.CNDTYPE == 2 ? EquipmentSlot::kBarometric : EquipmentSlot::kSurface;
    slots.push_back({kind, col, CondenserDescription(ctx, col, metric)});
  };
  if (dc.NSTAGES == 4) stage(4);
  if (dc.NSTAGES >= 3) stage(3);
  if (dc.HASC1 > 0) condenser(kCondC1);
  if (dc.NSTAGES >= 2) stage(2);
  if (dc.HASC2 > 0) condenser(kCondC2);
  if (dc.NSTAGES >= 1) stage(1);
  if (dc.HASAC > 0) condenser(kCondAC);
  return slots;
}

ResultsScreen FillResults(const DesignContext& ctx, bool metric) {
  const DesignCase& dc = ctx.dc;
  ResultsScreen r;

  r.utilities.title = "Utilities";
  if (metric) {
    r.utilities.captions = {"Total Motive Steam (kg/h)", "Total Water (M3/hr)", "Total Power (KW)"};
  } else {
    r.utilities.captions = {"Total Motive Steam (#/hr)", "Total Water (gpm)", "Total Power (KW)"};
  }
  const float motive = dc.TOTALS(kTotalMotive) / (metric ? kLbPerKgSingle : 1.0f);
  const float water = dc.TOTALS(kTotalWater) * (metric ? kM3hPerGpm : 1.0f);
  r.utilities.heads = {""};
  r.utilities.columns = {{FormatFixed(motive, 8.0f), FormatFixed(water, 8.0f), FormatFixed(dc.TOTALS(kTotalPower), 8.0f)}};

  r.ejectors.title = "Ejectors";
  r.ejectors.captions = {"Model                ", metric ? "Motive (kg/hr)" : "Motive (#/hr)", "Suction Dia. (in.)",
                         "Discharge Dia. (in.)", "Motive Dia. (in.)"};
  for (int c = dc.NSTAGES; c >= 1; --c) {
    r.ejectors.heads.push_back(ctx.data.constants.STAGENAME(c));
    r.ejectors.columns.push_back({EjectorModel(ctx, c), FormatFixed(dc.STG(c, kStgMOTIVE) / (metric ? kLbPerKgSingle : 1.0f), 12.0f),
                                  FormatFixed(dc.STG(c, kStgDIAS), 12.2f), FormatFixed(dc.STG(c, kStgDIAD), 12.2f),
                                  FormatFixed(dc.STG(c, kStgDIAM), 12.2f)});
  }

  r.condensers.title = "Condensers";
  if (metric) {
    r.condensers.captions = {"Model                    ", "Surface (sq.M.)", "Water Flow (M3/hr)",
                             "Water Inlet / Outlet (degC)", "Water Pressure Drop (bar)"};
  } else {
    r.condensers.captions = {"Model                    ", "Surface (sq.ft.)", "Water Flow (gpm)",
                             "Water Inlet / Outlet (degF)", "Water Pressure Drop (psi)"};
  }
  const std::vector<int> present = CondensersPresent(dc);
  r.show_condensers = !present.empty();
  for (int col : present) {
    const std::string model = CondenserDescription(ctx, col, metric);
    const float in = dc.CND(col, kCndWATERIN), out = dc.CND(col, kCndWATEROUT);
    r.condensers.heads.push_back(CondenserName(col));
    r.condensers.columns.push_back(
        {model, FormatFixed(dc.CND(col, kCndAREA) * (metric ? kM2PerFt2 : 1.0f), 6.1f),
         FormatFixed(dc.CND(col, kCndGPMUSE) * (metric ? kM3hPerGpm : 1.0f), 6.1f),
         FormatFixed(metric ? Celsius(in) : in, 6.1f) + " / " + FormatFixed(metric ? Celsius(out) : out, 6.1f),
         FormatFixed(dc.CND(col, kCndDELTAP) / (metric ? kPsiPerBarSingle : 1.0f), 6.1f)});
  }

  const PumpRecord* designed = DesignedPump(ctx);
  r.show_pump = designed != nullptr;
  if (r.show_pump) {
    const PumpRecord& pump = *designed;
    const float power = metric ? kKwPerHp : 1.0f;
    r.pump.title = "Liquid Ring Vacuum Pump";
    r.pump.captions = {"Model                ",
                       metric ? "Capacity (M3/hr)" : "Capacity (ACFM)",
                       metric ? "Brake Power (KW)" : "Brake Power (hp)",
                       metric ? "Motor (KW)" : "Motor (hp)",
                       metric ? "Seal Water (M3/hr)" : "Seal Water (gpm)",
                       metric ? "Seal Water Out (degC)" : "Seal Water Out (degF)"};
    r.pump.heads = {""};
    const float seal_out = dc.LRVPRES(kLrvpSealOut, 1);
    r.pump.columns = {{Trim(pump.MODEL),
                       FormatFixed(dc.LRVPRES(kLrvpCapacity, 1) * (metric ? kM3hPerCfm : 1.0f), 8.0f),
                       FormatFixed(dc.LRVPRES(kLrvpPower, 1) * power, 8.1f),
                       FormatFixed(dc.LRVPRES(kLrvpMotor, 1) * power, 8.1f),
                       FormatFixed(dc.LRVPRES(kLrvpSeal, 1) * (metric ? kM3hPerGpm : 1.0f), 8.1f),
                       FormatFixed(metric ? Celsius(seal_out) : seal_out, 8.1f)}};
  }
  return r;
}

std::string BlockText(const ResultsBlock& b) {
  constexpr size_t kMinimumWidth = 14;  // a column's width on the screen
  const auto width_of = [](const std::string& text) { return ToCodePoints(text).size(); };
  size_t width = 0;
  for (const auto& caption : b.captions) width = std::max(width, width_of(caption));
  // Each column as wide as its widest text and two blanks, so that no text runs into its neighbour.
  std::vector<size_t> widths;
  for (size_t c = 0; c < b.columns.size(); ++c) {
    size_t w = kMinimumWidth;
    if (c < b.heads.size()) w = std::max(w, width_of(b.heads[c]) + 2);
    for (const auto& cell : b.columns[c]) w = std::max(w, width_of(Trim(cell)) + 2);
    widths.push_back(w);
  }
  const auto cell = [](const std::string& text, size_t w) {
    const std::string shown = Trim(text);
    return std::string(w - ToCodePoints(shown).size(), ' ') + shown;
  };
  std::string text = b.title + "\n";
  std::string heads(width, ' ');
  bool any_head = false;
  for (size_t c = 0; c < b.heads.size() && c < widths.size(); ++c) {
    heads += cell(b.heads[c], widths[c]);
    any_head = any_head || !b.heads[c].empty();
  }
  if (any_head) text += RTrim(heads) + "\n";
  for (size_t row = 0; row < b.captions.size(); ++row) {
    std::string line = b.captions[row];
    line.append(width - width_of(b.captions[row]), ' ');
    for (size_t c = 0; c < b.columns.size(); ++c) line += cell(b.columns[c][row], widths[c]);
    text += RTrim(line) + "\n";
  }
  return text + "\n";
}

std::string ResultsText(const ResultsScreen& screen) {
  std::string text = BlockText(screen.utilities) + BlockText(screen.ejectors);
  if (screen.show_condensers) text += BlockText(screen.condensers);
  if (screen.show_pump) text += BlockText(screen.pump);
  return text;
}

std::string CondenserRowLabel(int row) {
  static const char* const kDims[] = {" 17 dim #1 ", " 18 dim #2 ", " 19 dim #3 ", " 120dim #4 ",
                                      " 21 dim #5 ", " 22 dim #6 ", " 23 dim #7 ", " 24 dim #8 ",
                                      " 25 dim #9 ", " 26 dim #10", " 27 dim #11"};
  if (row >= 17 && row <= 27) return kDims[row - 17];  // row 20 reads " 120dim #4 ", as it always did
  std::string number = std::to_string(row);
  number.insert(0, 3 - number.size(), ' ');
  const char* name = "";
  if (row == 1) name = "PIN";
  if (row == 2) name = "POUT";
  if (row == 3) name = "TSAT";
  if (row >= 78 && row <= 158) name = kCondenserRowNames[row - 78];
  return number + " " + name;
}

std::vector<std::vector<std::string>> DebuggerGrid(const DesignContext& ctx) {
  const DesignCase& dc = ctx.dc;
  // Columns: jets (label, C .. AAA), condenser summary (label, AC, C2, C1), condenser table (label, AC, C2, C1).
  constexpr size_t kColumns = 14;
  std::vector<std::vector<std::string>> grid(161, std::vector<std::string>(kColumns));
  const char* cond_titles[] = {" <------ AC ------>", " <------ C2 ------>", " <------ C1 ------>"};
  grid[0] = {"", " <-C------->", " <-B------->", " <-A------->", " <-AA------>", " <-AAA----->"};
  if (dc.USELRVP == 1) grid[0][kStageC] = " <-LRVP---->";  // the pump's column
  grid[0].resize(kColumns);
  for (size_t k = 0; k < 3; ++k) grid[0][7 + k] = grid[0][11 + k] = cond_titles[k];
  size_t row = 1;
  size_t cond_row_at = 1;
  auto stage_row = [&](const std::string& label, auto value) {
    if (row >= grid.size()) return;
    grid[row][0] = label;
    for (int c = 1; c <= dc.NSTAGES; ++c) grid[row][static_cast<size_t>(c)] = value(c);
    ++row;
  };
  auto cond_row = [&](const std::string& label, auto value) {
    if (cond_row_at >= grid.size()) return;
    grid[cond_row_at][6] = label;
    for (int col = 1; col <= kCondenserColumns; ++col) grid[cond_row_at][static_cast<size_t>(6 + col)] = value(col);
    ++cond_row_at;
  };
  const auto v = [&](int r) { return [&dc, r](int c) { return FormatFixed(dc.STG(c, r), 12.4f); }; };
  const auto pair = [&](int a, int b) { return [&dc, a, b](int c) { return Pair(dc.STG(c, a), dc.STG(c, b)); }; };

  // The train in the order of flow, precondenser first.
  std::string train;
  const char* stages[] = {"", ">C<  ", ">B<  ", ">A<  ", ">AA<  ", ">AAA<  "};
  if (dc.NSTAGES == 2 && dc.HASC1 > 0) train += " C1   ";
  if (dc.NSTAGES == 1 && dc.HASC2 > 0) train += " C2   ";
  for (int c = dc.NSTAGES; c >= 1; --c) {
    train += stages[c];
    if (c == kStageA && dc.HASC1 > 0) train += " C1   ";
    if (c == kStageB && dc.HASC2 > 0) train += " C2   ";
  }
  if (dc.HASAC > 0) train += " AC ";
  grid[row++][0] = train;
  grid[row][0] = "Total Motive: ";
  grid[row++][1] = FormatFixed(dc.TOTALS(kTotalMotive), 12.1f);

  stage_row("Size ", v(kStgSIZE));
  stage_row("Motive (#/hr)  ", v(kStgMOTIVE));
  stage_row("P in/out (mm)     ", pair(kStgPIN, kStgPOUT));
  stage_row("M/L Ratio (over size (LRVP))", v(kStgML));
  stage_row("Throat dia (in)  ", v(kStgTHROAT));
  stage_row("VE (#/hr)  ", v(kStgVE));
  stage_row("DIA S/D (in)     ", pair(kStgDIAS, kStgDIAD));
  stage_row("VEL S/D (fps)     ", pair(kStgVELS, kStgVELD));
  stage_row("Vmax S/D (fps)     ", pair(kStgVMAXS, kStgVMAXD));
  stage_row("Temp S/D (degF)     ", pair(kStgTS, kStgTD));
  stage_row("DIA Motive (in)  ", v(kStgDIAM));
  stage_row("Vel Motive (fps)  ", v(kStgVELM));
  stage_row("BTU 3-5 Eff. ", v(kStgEFF));
  stage_row("BTU35 THR.(in.)  ", v(kStgBTU35));
  stage_row("*Eff-Curve  ", v(kStgEFFCURVE));
  stage_row("*M/L calc curve  ", v(kStgMLCURVE));
  for (int load = 1; load <= dc.NLOADS; ++load) {
    stage_row(" Load#" + std::to_string(load) + "    (" + FormatFixed(dc.LOADS(kLoadMW, load), 5.1f) + ")  ",
              [&dc, load](int c) { return FormatFixed(dc.STGLOAD(load, c), 12.1f); });
  }
  stage_row("QT", [&dc](int c) {
    float sum = 0;
    for (int load = 1; load <= dc.NLOADS; ++load) sum += dc.STGLOAD(load, c);
    return FormatFixed(sum, 12.1f);
  });
  cond_row("P in/out (mm)      ", [&dc](int col) { return Pair(dc.CND(col, kCndPIN), dc.CND(col, kCndPOUT)); });
  cond_row("Sat. Temp.", [&dc](int col) { return FormatFixed(dc.CND(col, kCndTSAT), 12.1f); });
  for (int load = 1; load <= dc.NLOADS; ++load) {
    cond_row("Loads in/out#" + std::to_string(load), [&dc, load](int col) {
      return FormatFixed(dc.CNDLOAD(load, 1, col), 0.1f) + "/" + FormatFixed(dc.CNDLOAD(load, 2, col), 0.1f);
    });
  }
  cond_row("*** Q (100%)", [&dc](int col) { return FormatFixed(dc.CND(col, kCndQNOSUB), 12.1f); });

  for (int r = 1; r <= kCondenserRows; ++r) {
    auto& cells = grid[static_cast<size_t>(r)];
    cells[10] = CondenserRowLabel(r);
    for (int col = 1; col <= kCondenserColumns; ++col) cells[static_cast<size_t>(10 + col)] = FormatFixed(dc.CND(col, r), 12.4f);
  }
  return grid;
}

bool WriteGridCsv(const std::vector<std::vector<std::string>>& grid, const std::filesystem::path& path, Ui& ui) {
  try {
    TextOutput file(path);
    for (const auto& row : grid) {
      std::string line;
      for (size_t k = 0; k < row.size(); ++k) line += (k ? "," : "") + row[k];
      file.PrintLine(line + " ");
    }
    file.Commit();
  } catch (const VbError& e) {
    ui.notice(TrappedError("WriteFile Routine", e));
    return false;
  }
  return true;
}

std::filesystem::path GridCsvPath() { return std::filesystem::temp_directory_path() / "OUT.CSV"; }

}  // namespace kestrane
