// Writes the example design, thermo compressor and calculator cases of usrfiles/ through the case file writers, so that they stand exactly as the program saves them.
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "case/jet_file.h"
#include "calculators/nupreir.h"
#include "calculators/pressure_drop.h"
#include "thermo/tc_file.h"

namespace {

using kestrane::InputScreen;

struct Example {
  const char* file;
  std::function<void(InputScreen&)> fill;
};

// The main values in standard units: suction mmHgA and degF, discharge mmHgA,
// motive psig and degF (0 saturated), water in and out limit degF.
void Main(InputScreen& s, const char* psuct, const char* tsuct, const char* pdisch, const char* pmotive,
          const char* tmotive, const char* water_in, const char* water_out = "") {
  const char* values[] = {psuct, tsuct, pdisch, pmotive, tmotive, water_in, water_out};
  for (size_t i = 0; i < 7; ++i) s.txtInput[i] = values[i];
}

void Heading(InputScreen& s, const char* item, const char* description, const char* engineer) {
  s.txtHeadingInput = {item, description, engineer};
}

void Condensers(InputScreen& s, int type) {
  s.OptionCondenserType = {0, 0, 0, 0};
  s.OptionCondenserType[static_cast<size_t>(type)] = -1;
}

void Stages(InputScreen& s, int option) {
  s.OptionStages = {0, 0, 0, 0, 0};
  s.OptionStages[static_cast<size_t>(option)] = -1;
}

void Condensible(InputScreen& s, size_t row, const char* id, const char* pph) {
  s.txtCID[row] = id;
  s.txtCpph[row] = pph;
}

void Gas(InputScreen& s, size_t row, const char* pph, const char* mw) {
  s.txtNCpph[row] = pph;
  s.txtNCMW[row] = mw;
}

const std::vector<Example> kExamples = {
    {"AUTOMATIC-SURFACE.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-101", "Vacuum distillation overhead, automatic stages", "AE");
       Main(s, "50", "100", "770", "150", "0", "85");
       Condensible(s, 0, "WATER", "80");
       Gas(s, 0, "25", "29");
     }},
    {"ONE-STAGE-NO-CONDENSERS.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-102", "Single stage deaerator vent, no condensers", "AE");
       Main(s, "150", "120", "770", "125", "0", "85");
       Condensers(s, 3);
       Stages(s, 4);
       Condensible(s, 0, "WATER", "20");
       Gas(s, 0, "15", "29");
     }},
    {"TWO-STAGE-SURFACE-TUBE-SIDE.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-103", "Two stages, condensing in the tubes, toluene", "AE");
       Main(s, "60", "110", "770", "150", "0", "80");
       Condensers(s, 1);
       Stages(s, 3);
       Condensible(s, 0, "WATER", "40");
       Condensible(s, 1, "13", "30");
       Gas(s, 0, "15", "29");
     }},
    {"TWO-STAGE-PRECONDENSER.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-104", "Two stages with a precondenser, ethanol and water", "AE");
       Main(s, "40", "120", "770", "150", "0", "65");
       Stages(s, 3);
       s.chkboxPreCondenser = 1;
       Condensible(s, 0, "WATER", "200");
       Condensible(s, 1, "3", "100");
       Gas(s, 0, "10", "29");
     }},
    {"THREE-STAGE-DIRECT-CONTACT.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-105", "Three stages with barometric condensers", "AE");
       Main(s, "15", "100", "770", "150", "0", "85");
       Condensers(s, 2);
       Stages(s, 2);
       Condensible(s, 0, "WATER", "60");
       Gas(s, 0, "12", "29");
     }},
    {"FOUR-STAGE-SURFACE.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-106", "Four stages for deep vacuum", "AE");
       Main(s, "2", "90", "770", "150", "0", "80");
       Stages(s, 1);
       Condensible(s, 0, "WATER", "5");
       Gas(s, 0, "4", "29");
     }},
    {"AIR-ONLY-100-LB-HR.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-120", "100 lb/hr of air alone at 10 mmHgA, a base for studies", "AE");
       Main(s, "10", "70", "770", "100", "0", "85");
       Gas(s, 0, "100", "29");
     }},
    {"TWO-STAGE-LRVP.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-107", "Two stages, liquid ring pump as last stage", "AE");
       Main(s, "30", "100", "770", "150", "0", "75");
       Stages(s, 3);
       s.chkboxLRVP = 1;
       Condensible(s, 0, "WATER", "40");
       Gas(s, 0, "20", "29");
     }},
    {"LRVP-ONLY-50HZ.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-110", "Liquid ring pump alone on 50 Hz power", "AE");
       Main(s, "80", "90", "770", "150", "0", "68");
       Stages(s, 4);
       s.chkboxLRVP = 1;
       s.OptionCycles = {0, -1};
       Condensible(s, 0, "WATER", "60");
       Gas(s, 0, "25", "29");
     }},
    {"LRVP-BEYOND-LIMITS.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-111", "Pump alone at 30 mmHgA with hot water: no pump can do it", "AE");
       Main(s, "30", "100", "770", "150", "0", "95");
       Stages(s, 4);
       s.chkboxLRVP = 1;
       Condensible(s, 0, "WATER", "20");
       Gas(s, 0, "10", "29");
     }},
    {"SOLVENT-LOADS-THREE-STAGE.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-108", "Solvent recovery: methanol, acetone and toluene with nitrogen", "AE");
       Main(s, "20", "95", "770", "125", "0", "80", "110");
       Stages(s, 2);
       Condensible(s, 0, "WATER", "30");
       Condensible(s, 1, "2", "25");
       Condensible(s, 2, "8", "40");
       Condensible(s, 3, "13", "15");
       Gas(s, 0, "30", "28.01");
       Gas(s, 1, "5", "29");
     }},
    {"METRIC-TWO-STAGE.JET",
     [](InputScreen& s) {
       Heading(s, "EJ-109", "Two stages entered in metric units", "AE");
       kestrane::SelectOption(s, s.OptionUnits, 1);
       const char* metric[] = {"8", "40", "102.7", "10", "0", "29", "", "0.0004"};
       for (size_t i = 0; i < 8; ++i) s.txtInputA[i] = metric[i];
       s.txtCost = {"5.5", "0.08", "0.05"};
       s.txtCpphA[0] = "25";
       s.txtNCpphA[0] = "10";
       s.txtNCMW[0] = "29";
       s.txtDesignA = {"5", "95", "1.5", "150"};
     }},
};

// Thermo compressor cases: suction psia and degF (0 saturated), discharge psia,
// motive psig and degF, load lb/hr; metric ones in bar (a), degC, bar (g), kg/hr.
struct TcExample {
  const char* file;
  const char* heading[3];
  bool metric;
  const char* values[6];
};

const std::vector<TcExample> kTcExamples = {
    {"TC-LOW-RATIO.TTC", {"TC-201", "Flash steam 20 psia recompressed to 23 psia", "AE"}, false,
     {"20", "0", "23", "150", "0", "5000"}},
    {"TC-MEDIUM-RATIO.TTC", {"TC-202", "Evaporator vapor 10 psia to 15 psia, superheated motive", "AE"}, false,
     {"10", "0", "15", "150", "400", "3000"}},
    {"TC-METRIC-HIGH-RATIO.TTC", {"TC-203", "Dryer exhaust 0.4 bar (a) to 1.2 bar (a), metric entry", "AE"}, true,
     {"0.4", "0", "1.2", "10", "0", "1000"}},
};

bool WriteTcExamples(const std::filesystem::path& folder, kestrane::Ui& ui) {
  for (const TcExample& example : kTcExamples) {
    kestrane::TCInputScreen screen;
    for (size_t i = 0; i < 3; ++i) screen.txtHeadingInput[i] = example.heading[i];
    if (example.metric) kestrane::SelectTcUnits(screen, 1);
    for (int row = 0; row < kestrane::kTcInputs; ++row) {
      kestrane::EditTcInput(screen, row, example.metric, example.values[row]);
    }
    if (!kestrane::WriteTCFile(folder / example.file, screen, ui)) return false;
  }
  return true;
}

// Pressure drop cases, one per method, and a calculator sheet.
bool WriteCalculatorExamples(const std::filesystem::path& folder, kestrane::Ui& ui) {
  kestrane::DpScreen hei;
  // 150 lb/hr of air at 100 F and 50 mmHgA through 40 ft of 6 in. line with elbows, a tee and a check valve.
  const char* hei_fields[] = {"150", "100", "0", "", "50", "6.065", "40", "1", "4", "0", "1", "0", "0", "1", "0", "0",
                              "0", "0", "0"};
  for (int k = 1; k <= kestrane::kDpFields; ++k) hei.txtEV[static_cast<size_t>(k)] = hei_fields[k - 1];
  kestrane::DpScreen tessel;
  tessel.hei = false;
  // 80 lb/hr of a solvent-laden gas (MW 45, 0.012 cP) at 120 F and 100 mmHgA through 25 m of 100 mm line, metric.
  tessel.standard = false;
  const char* tessel_fields[] = {"36.3", "48.9", "45", "0.012", "100", "100", "25", "1", "0", "0", "0", "0", "0", "0",
                                 "0", "0", "2", "3", "0"};
  for (int k = 1; k <= kestrane::kDpFields; ++k) tessel.txtEV[static_cast<size_t>(k)] = tessel_fields[k - 1];
  kestrane::NupreirScreen sheet;
  sheet.variables[0] = {"W", "150"};
  sheet.variables[1] = {"MW", "29"};
  sheet.variables[2] = {"P", "50"};
  sheet.variables[3] = {"T", "100"};
  sheet.expression = "(W/60*379/MW)*(760/P)*((T+460)/520)";
  if (!kestrane::Evaluate(sheet, ui)) return false;
  kestrane::PreCalc(sheet);
  sheet.expression = "sqr(2)*sin(45)";
  if (!kestrane::Evaluate(sheet, ui)) return false;
  kestrane::PreCalc(sheet);
  return kestrane::WriteDpFile(folder / "LINE-LOSS-HEI.TDP", hei, ui) &&
         kestrane::WriteDpFile(folder / "LINE-LOSS-FORMULA-METRIC.TDP", tessel, ui) &&
         kestrane::WriteGoFigure(folder / "INLET-VOLUME.GFR", sheet, ui);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: make_example_cases FOLDER\n");
    return 2;
  }
  const std::filesystem::path folder = argv[1];
  kestrane::RecordingUi ui;
  for (const Example& example : kExamples) {
    InputScreen screen = kestrane::NewCase();
    example.fill(screen);
    kestrane::RecomputePairs(screen);
    if (!kestrane::WriteCase(folder / example.file, screen, ui)) {
      std::fprintf(stderr, "%s: %s\n", example.file, ui.notices.back().c_str());
      return 1;
    }
  }
  if (!WriteTcExamples(folder, ui) || !WriteCalculatorExamples(folder, ui)) {
    std::fprintf(stderr, "%s\n", ui.notices.back().c_str());
    return 1;
  }
  return 0;
}
