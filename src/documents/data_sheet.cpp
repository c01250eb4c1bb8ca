// The design data sheet: its 66 template lines filled from the input screen, the case record and the results.
#include "documents/data_sheet.h"

#include <array>
#include <utility>

#include "documents/page_frame.h"
#include "documents/request_sheet.h"
#include "engine/results.h"
#include "properties/numeric.h"
#include "properties/vb.h"

namespace kestrane {

namespace {

constexpr size_t kDataSheetLines = 66;

// The fixed lines below the head; the others start blank.
const std::pair<size_t, std::string_view> kTemplates[] = {
    {16, "   ============================ MAIN  INPUT ==========================="},
    {17, "   Input Units:                            Standard            Metric"},
    {18, "   Suction Pressure___________________"},
    {19, "   Suction Temp_______________________"},
    {20, "   Discharge Pressure_________________"},
    {21, "   Motive Pressure____________________"},
    {22, "   Motive Temp (0=D&S)________________"},
    {23, "   Cooling/Seal Water Inlet Temp______"},
    {24, "   Maximum Water Outlet Temp__________"},
    {25, "   Overall Fouling Factor_____________"},
    {26, "   Cost of steam ($/1000 lbs.)_________________________"},
    {27, "   Cost of electricity ($/KW hr)_______________________"},
    {28, "   Cost of water ($/1000 gallons)______________________"},
    {29, "   Condenser Type:_____________________________________"},
    {30, "   Number of Stages:___________________________________"},
    {31, "   Use precondenser:___________________________________"},
    {32, "   Use liquid ring vacuum pump for last stage:_________"},
    {33, "   Cycles:_____________________________________________"},
    {34, "   Optimize:___________________________________________"},
    {35, "   ============================= LOAD INPUT ==========================="},
    {36, "   CONDENSIBLE LOADS:"},
    {37, "   ID#     #/hr     kg/h  MW Vpr Name   T1    P1    T2    P2    T3    P3 ALC"},
    {38, "                          18 WATER"},
    {48, "   NON-CONDENSIBLE LOAD:           (#/hr)            (kg/h)       AV.MW"},
    {49, "   ======================= DESIGN REQUIREMENTS ========================"},
    {50, "                     ------ PROCESS ------   ------- WATER -------"},
    {51, "   Design Press            psig       Barg         psig       Barg"},
    {52, "   Hydro Test Press        psig       Barg         psig       Barg"},
    {53, "   Design Temp             degF       degC         degF       degC"},
    {54, "   =========================== MATERIALS =============================="},
    {55, "   Suction Chamber/Diff._________________  Process Side________________"},
    {56, "   Steam Nozzle__________________________  Tube Sheets_________________"},
    {57, "   Steam Chest___________________________  Water Side__________________"},
    {58, "   Nozzle Plate__________________________  Tubes_______________________"},
    {59, "   LRVP__________________________________"},
    {60, "   Code: Ejectors: ____________________________________________________"},
    {61, "   Code: Condensers: __________________________________________________"},
    {63, "   ============================== RESULTS ============================="},
    {64, "   Tessel Designation: ________________________________________________"},
    {65, "   Utilities: Steam________ #/hr, Water_______ gpm, Electric______ KWhr"},
    {66, "   Total annual utility cost: $ _______________________________________"},
};

// A load rate: one decimal, none above 1000.
void PlaceRate(std::string& line, float rate, int16_t column) {
  PlaceNumber(line, rate, rate > 1000.0f ? 10.0f : 10.1f, 1, column);
}

// The index of the option that is on, -1 when none is.
template <size_t N>
int Selected(const std::array<int16_t, N>& options) {
  for (size_t i = 0; i < N; ++i) {
    if (options[i] != 0) return static_cast<int>(i);
  }
  return -1;
}

void PlaceInputAndCosts(RequestLines& sheet, const InputScreen& screen) {
  // The last main input, the fouling factor, takes four decimals.
  PlaceMainInput(sheet, 17, screen.Metric(), screen.txtInput, screen.txtInputA, 12.4f);
  for (size_t k = 0; k < screen.txtCost.size(); ++k) {
    PlaceNumber(sheet(26 + k), BoxNumber(screen.txtCost[k]), 12.2f, -1, 58);
  }
}

void PlaceChoices(RequestLines& sheet, const InputScreen& screen) {
  const int type = Selected(screen.OptionCondenserType);
  if (type == 0 || type == 1) {
    PlaceInField(-1, sheet(29), "Shell & Tube", 58);
    PlaceInField(-1, sheet(29), type == 0 ? "(shell side condensing)" : "(tube side condensing)", 26);
    PlaceInField(-1, sheet(29), "(" + HeadLetters(screen) + ")", 71);
  } else {
    PlaceInField(-1, sheet(29), type == 2 ? "Direct Contact" : "None", 58);
  }
  static const std::array<const char*, 5> kStageWords = {"Automatic", "Four", "Three", "Two", "One"};
  const int stages = Selected(screen.OptionStages);
  if (stages >= 0) PlaceInField(-1, sheet(30), kStageWords[static_cast<size_t>(stages)], 58);
  PlaceInField(-1, sheet(31), screen.chkboxPreCondenser == 1 ? "Yes" : "No", 58);
  PlaceInField(-1, sheet(32), screen.chkboxLRVP == 1 ? "Yes" : "No", 58);
  PlaceInField(-1, sheet(33), screen.OptionCycles[1] != 0 ? "50 cycle" : "60 cycle", 58);
  PlaceInField(-1, sheet(34), screen.OptionOptimize[1] != 0 ? "Capital Cost" : "Utilities", 58);
}

// The molecular weight the design took for a condensible vapor: that of the first load of this ID, 0 when the
// check made no load of it.
float LoadMW(const DesignCase& dc, int16_t id) {
  for (int load = 2; load <= dc.NLOADS; ++load) {
    if (dc.LOADS(kLoadID, load) == id) return dc.LOADS(kLoadMW, load);
  }
  return 0;
}

// A user defined vapor's name and its seven values T1 P1 T2 P2 T3 P3 MW, each in its own format, six columns
// apart from column 40; the last, its MW, is overwritten by the alcohol mark at column 76.
void PlaceUserVapor(std::string& line, const AppData& data, int16_t id) {
  const int row = -id;
  PlaceInField(-1, line, FixedText(VaporName(data.vapors, data.user_vapors, id), 8), 30);
  for (int k = 0; k < 7; ++k) {
    const float value = data.user_vapors.UDVDATA(row, 2 + k);
    const float spec = value >= 100.0f ? 5.0f : value >= 0.01f ? 5.2f : 5.4f;
    PlaceInField(-1, line, FormatFixed(value, spec), static_cast<int16_t>(40 + 6 * k));
  }
  PlaceInField(-1, line, FormatFixed(data.user_vapors.UDVDATA(row, 9), 3.0f), 76);
}

void PlaceLoads(RequestLines& sheet, const DesignContext& ctx) {
  const InputScreen& screen = ctx.screen;
  for (size_t row = 0; row < screen.txtCID.size(); ++row) {
    std::string& line = sheet(38 + row);
    const int16_t id = CInt(Val(screen.txtCID[row]));
    PlaceNumber(line, id, 3.0f, 1, 6);
    if (row > 0 && id == 0) continue;
    PlaceRate(line, BoxNumber(screen.txtCpph[row]), 15);
    PlaceRate(line, BoxNumber(screen.txtCpphA[row]), 24);
    if (row > 0) PlaceNumber(line, LoadMW(ctx.dc, id), 6.0f, 1, 28);
    // Names of the data base up to the one before its last, as the sheet has always shown them.
    if (id >= 1 && id < ctx.data.vapors.NPSAT) {
      PlaceInField(-1, line, FixedText(VaporName(ctx.data.vapors, ctx.data.user_vapors, id), 15), 30);
    } else if (id < 0 && -id <= ctx.data.user_vapors.NUDV) {
      PlaceUserVapor(line, ctx.data, id);
    }
  }

  // Non-condensibles: the loads with no vapor pressure at any condenser.
  const DesignCase& dc = ctx.dc;
  float nc = 0, ncmol = 0;
  for (int load = 1; load <= dc.NLOADS; ++load) {
    if (dc.LOADS(kLoadVPC1, load) > 0 || dc.LOADS(kLoadVPC2, load) > 0 || dc.LOADS(kLoadVPAC, load) > 0) continue;
    const float rate = dc.LOADS(kLoadPPH, load);
    nc += rate;
    if (rate > 9.9999997e-05f) ncmol += rate / dc.LOADS(kLoadMW, load);
  }
  PlaceRate(sheet(48), nc, 35);
  PlaceRate(sheet(48), Convert(Quantity::kFlow, nc, true), 53);
  PlaceNumber(sheet(48), nc > 0 && ncmol > 0 ? nc / ncmol : 0.0f, 6.0f, 1, 65);
}

// Design pressure, hydro test pressure and design temperature, process and water side, in both unit sets.
void PlaceDesign(RequestLines& sheet, const InputScreen& screen) {
  enum : size_t { kWaterPressure, kWaterTemperature, kProcessPressure, kProcessTemperature };
  const auto place = [&](size_t n, size_t process, size_t water, double factor) {
    PlaceNumber(sheet(n), BoxNumber(screen.txtDesign[process], factor), 10.1f, 1, 26);
    PlaceNumber(sheet(n), BoxNumber(screen.txtDesignA[process], factor), 10.1f, 1, 37);
    PlaceNumber(sheet(n), BoxNumber(screen.txtDesign[water], factor), 10.1f, 1, 50);
    PlaceNumber(sheet(n), BoxNumber(screen.txtDesignA[water], factor), 10.1f, 1, 61);
  };
  place(51, kProcessPressure, kWaterPressure, 1.0);
  place(52, kProcessPressure, kWaterPressure, 1.5);
  place(53, kProcessTemperature, kWaterTemperature, 1.0);
}

void PlaceMaterials(RequestLines& sheet, const DesignContext& ctx) {
  const InputScreen& screen = ctx.screen;
  static const std::array<std::pair<ListBox, ListBox>, 4> kMaterials = {{
      {kSuctionChamberMaterial, kProcessSideMaterial},
      {kSteamNozzleMaterial, kTubeSheetMaterial},
      {kSteamChestMaterial, kWaterSideMaterial},
      {kNozzlePlateMaterial, kTubeMaterial},
  }};
  for (size_t k = 0; k < kMaterials.size(); ++k) {
    PlaceInField(1, sheet(55 + k), std::string(ListText(screen, kMaterials[k].first)), 42);
    PlaceInField(1, sheet(55 + k), std::string(ListText(screen, kMaterials[k].second)), 71);
  }
  if (ctx.dc.USELRVP == 1) PlaceInField(1, sheet(59), std::string(ListText(screen, kLRVPMaterial)), 42);
  PlaceInField(-1, sheet(60), std::string(ListText(screen, kJetCode)), 20);
  PlaceInField(-1, sheet(61), std::string(ListText(screen, kCNDCode)), 22);
}

void PlaceResults(RequestLines& sheet, const DesignContext& ctx) {
  // The designation leaves out the equipment at the suction end.
  const std::vector<EquipmentSlot> slots = EquipmentSlots(ctx, ctx.screen.Metric());
  std::string designation;
  for (size_t k = 1; k < slots.size(); ++k) designation += (k > 1 ? "-" : "") + slots[k].caption;
  PlaceInField(-1, sheet(64), designation, 24);
  const DesignCase& dc = ctx.dc;
  PlaceNumber(sheet(65), dc.TOTALS(kTotalMotive), 12.0f, 1, 27);
  PlaceNumber(sheet(65), dc.TOTALS(kTotalWater), 12.0f, 1, 46);
  PlaceNumber(sheet(65), dc.TOTALS(kTotalPower), 12.0f, 1, 66);
  PlaceNumber(sheet(66), dc.TOTALS(kTotalAnnualCost), 12.0f, -1, 32);
}

}  // namespace

std::vector<std::string> DataSheetLines(const DesignContext& ctx, const UserInfo& user, const std::string& date_text) {
  try {
    const InputScreen& screen = ctx.screen;
    RequestLines sheet(kDataSheetLines);
    PlaceRequestHead(sheet, "                   VACUUM SYSTEM DESIGN PROGRAM DATA",
                     "   Please provide a vacuum system quotation based on the following:", user, date_text,
                     {screen.txtHeadingInput, screen.CASENAME});
    for (const auto& [n, text] : kTemplates) sheet(n) = TemplateLine(text, kRequestWidth);
    PlaceInputAndCosts(sheet, screen);
    PlaceChoices(sheet, screen);
    PlaceLoads(sheet, ctx);
    PlaceDesign(sheet, screen);
    PlaceMaterials(sheet, ctx);
    PlaceResults(sheet, ctx);
    return sheet.lines;
  } catch (...) {
    ctx.ui.notice(TrappedError("PrintDataSheet", CaughtError()));
    return {};
  }
}

std::filesystem::path DataSheetTextPath(const std::string& case_path, const std::filesystem::path& fallback_folder) {
  return SheetTextPath(case_path, ".JET", fallback_folder);
}

void PrintDataSheet(const std::vector<std::string>& lines, PageSink& printer) {
  printer.font = PrintFont{"Courier New", 12, false};
  printer.Print(" ");
  for (size_t k = 0; k < lines.size(); ++k) {
    // From line 13 on the form is printed smaller and further in, so that it fits the page.
    if (k == 12) printer.font.size = 10;
    printer.Print(std::string(k < 12 ? 3 : 11, ' ') + lines[k]);
  }
  printer.EndDoc();
}

bool WriteSheetText(const std::vector<std::string>& lines, const std::filesystem::path& path, Ui& ui) {
  return WriteSheetFile(lines, SheetTail(0), path, ui);
}

}  // namespace kestrane
