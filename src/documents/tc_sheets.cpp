// The thermo compressor sheets: template lines filled from the checked input, STG column 1 and the input screen.
#include "documents/tc_sheets.h"

#include <utility>

#include "case/input_screen.h"
#include "documents/page_frame.h"
#include "documents/request_sheet.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include "thermo/thermo_compressor.h"

namespace kestrane {

namespace {

constexpr size_t kSpecSheetLines = 33;
constexpr size_t kTcDataSheetLines = 35;
constexpr std::string_view kRule = " ________________________________________________________________________";

const std::pair<size_t, std::string_view> kSpecTemplates[] = {
    {3, "                          TESSEL CORPORATION"},
    {4, "                 THERMO COMPRESSOR SPECIFICATION SHEET"},
    {6, "   Item:                                              Date:"},
    {7, "                                                      User:"},
    {8, "   Description:                                       File:"},
    {11, kRule},
    {12, "   Motive Steam Pressure_________________________________________  psig"},
    {13, "   Motive Steam Temperature______________________________________  degF"},
    {14, "   Motive Flow Rate______________________________________________  #/hr"},
    {16, "   Suction Pressure______________________________________________  psia"},
    {17, "   Suction Temperature___________________________________________  degF"},
    {18, "   Load (steam)__________________________________________________  #/hr"},
    {19, "   Discharge Pressure____________________________________________  psia"},
    {20, "   Discharge Temperature_________________________________________  degF"},
    {21, kRule},
    {23, "                              *** MATERIALS ***"},
    {24, "   Suction Chamber and Diffuser________________________________________"},
    {25, "   Steam Nozzle________________________________________________________"},
    {26, "   Steam Chest_________________________________________________________"},
    {27, "   Nozzle Plate________________________________________________________"},
    {28, kRule},
    {30, "   Construction Code Ejectors: ________________________________________"},
    {31, kRule},
    {33, "                         *** PRELIMINARY DRAWING ***"},
};

const std::pair<size_t, std::string_view> kDataTemplates[] = {
    {17, "   ============================ MAIN  INPUT ==========================="},
    {18, "   Input Units:                            Standard            Metric"},
    {19, "   Suction Pressure___________________"},
    {20, "   Suction Temperature (0=D&S)________"},
    {21, "   Discharge Pressure_________________"},
    {22, "   Motive Pressure____________________"},
    {23, "   Motive Temp (0=D&S)________________"},
    {24, "   Load (steam)_______________________"},
    {26, "   =========================== MATERIALS =============================="},
    {27, "   Suction Chamber/Diff._______________________________________________"},
    {28, "   Steam Nozzle________________________________________________________"},
    {29, "   Steam Chest_________________________________________________________"},
    {30, "   Nozzle Plate________________________________________________________"},
    {31, "   Code of Construction:_______________________________________________"},
    {33, "   ============================== RESULTS ============================="},
    {34, "   Size:_______________________________________________________________"},
    {35, "   Motive Steam Flow______________________________________________ #/hr"},
};

// The materials of the compressor, in the order both sheets list them.
constexpr TcList kTcMaterials[] = {kTcSuctionChamber, kTcSteamNozzle, kTcSteamChest, kTcNozzlePlate};

template <size_t N>
void PutTemplates(RequestLines& sheet, const std::pair<size_t, std::string_view> (&templates)[N]) {
  for (const auto& [n, text] : templates) sheet(n) = TemplateLine(text, kRequestWidth);
}

// A value of the performance block: its line, the value in standard units, its format, and in metric units the
// quantity it converts as and the unit word.
struct Performance {
  size_t line;
  float value;
  float spec;
  float metric_spec;
  Quantity quantity;
  const char* word;
};

}  // namespace

std::vector<std::string> TcSpecSheetLines(const TcInput& tcres, const DesignCase& dc, const TCInputScreen& screen,
                                          const std::string& date_text) {
  RequestLines sheet(kSpecSheetLines);
  PutTemplates(sheet, kSpecTemplates);
  PlaceInField(-1, sheet(6), Trim(screen.txtHeadingInput[0]), 17);
  PlaceInField(-1, sheet(6), date_text, 61);
  PlaceInField(-1, sheet(7), Trim(screen.txtHeadingInput[2]), 61);
  PlaceInField(-1, sheet(8), Trim(screen.txtHeadingInput[1]), 17);
  PlaceInField(-1, sheet(8), CaseStem(screen.TCCASENAME), 61);
  PlaceInField(0, sheet(10), "Size: " + Trim(TcModel(dc)), 38);

  const bool metric = screen.Metric();
  const Performance rows[] = {
      {12, tcres.PMOTIVE, 12.1f, 12.2f, Quantity::kPressurePsig, "barg"},
      {13, tcres.TMOTIVE, 12.2f, 12.2f, Quantity::kTemperature, "C"},
      {14, dc.STG(1, kStgMOTIVE), 12.2f, 12.2f, Quantity::kFlow, "kg/h"},
      {16, tcres.PSUCT, 12.2f, 12.2f, Quantity::kPressurePsig, "bara"},  // psia to bar absolute by the same factor
      {17, tcres.TSUCT, 12.2f, 12.2f, Quantity::kTemperature, "C"},
      {18, tcres.LOADTC, 12.2f, 12.2f, Quantity::kFlow, "kg/h"},
      {19, tcres.PDISCH, 12.2f, 12.2f, Quantity::kPressurePsig, "bara"},
      {20, dc.STG(1, kStgTD), 12.2f, 12.2f, Quantity::kTemperature, "C"},
  };
  for (const Performance& row : rows) {
    if (!metric) {
      PlaceNumber(sheet(row.line), row.value, row.spec, 1, 65);
      continue;
    }
    PlaceNumber(sheet(row.line), Convert(row.quantity, row.value, true), row.metric_spec, 1, 65);
    PlaceInField(1, sheet(row.line), row.word, 71);
  }

  for (size_t k = 0; k < std::size(kTcMaterials); ++k) {
    PlaceInField(1, sheet(24 + k), std::string(TcListText(screen, kTcMaterials[k])), 71);
  }
  PlaceInField(-1, sheet(30), std::string(TcListText(screen, kTcJetCode)), 32);
  return sheet.lines;
}

std::vector<std::string> TcDataSheetLines(const DesignCase& dc, const TCInputScreen& screen, const UserInfo& user,
                                          const std::string& date_text) {
  RequestLines sheet(kTcDataSheetLines);
  PlaceRequestHead(sheet, "                 THERMO COMPRESSOR DESIGN PROGRAM DATA",
                   "   Please provide a thermo compressor quotation based on the following:", user, date_text,
                   {screen.txtHeadingInput, screen.TCCASENAME});
  PutTemplates(sheet, kDataTemplates);
  PlaceMainInput(sheet, 18, screen.Metric(), screen.txtInput, screen.txtInputA, 12.2f);
  for (size_t k = 0; k < std::size(kTcMaterials); ++k) {
    PlaceInField(1, sheet(27 + k), std::string(TcListText(screen, kTcMaterials[k])), 71);
  }
  PlaceInField(1, sheet(31), std::string(TcListText(screen, kTcJetCode)), 71);
  PlaceInField(1, sheet(34), TcModel(dc), 71);
  PlaceNumber(sheet(35), dc.STG(1, kStgMOTIVE), 12.0f, 1, 66);
  return sheet.lines;
}

std::filesystem::path TcSheetTextPath(const std::string& case_path, const std::filesystem::path& fallback_folder) {
  return SheetTextPath(case_path, ".TTC", fallback_folder);
}

void PrintTcSpecSheet(const std::vector<std::string>& lines, PageSink& printer,
                      const std::function<void(PageSink&)>& drawing) {
  // 12 points, as the sheets print: the maker's lines then come below the drawing, which takes the lower middle
  // of the page; the page shrinks a little to hold them.
  printer.font = PrintFont{"Courier New", 12, false};
  for (size_t k = 1; k < lines.size(); ++k) printer.Print("   " + lines[k]);
  for (int k = 0; k < 21; ++k) printer.Print(" ");
  for (int k = 0; k < 3; ++k) printer.Print("  ");
  for (size_t i = 0; i < kMakerLines.size(); ++i) printer.Print(MakerLine(i));
  if (drawing) drawing(printer);
  printer.EndDoc();
}

void PrintTcDataSheet(const std::vector<std::string>& lines, PageSink& printer) {
  printer.font = PrintFont{"Courier New", 12, false};
  printer.Print(" ");
  for (const std::string& line : lines) printer.Print("   " + line);
  for (const std::string& line : SheetTail(3)) printer.Print(line);
  printer.EndDoc();
}

bool WriteTcSheetText(const std::vector<std::string>& lines, const std::filesystem::path& path, Ui& ui) {
  return WriteSheetFile(lines, SheetTail(3), path, ui);
}

}  // namespace kestrane
