// The engineering calculators on the command line: convert, dp, tailleg, gasflow and nupreir.
#include <strings.h>

#include <cctype>
#include <cstdio>
#include <filesystem>

#include "calculators/conversions.h"
#include "calculators/gas_flow.h"
#include "calculators/nupreir.h"
#include "calculators/pressure_drop.h"
#include "calculators/tail_leg.h"
#include "cli.h"
#include "properties/numeric.h"
#include "properties/text_codec.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

// A box of a window as a JSON number, null when the window left it empty.
nlohmann::json BoxNumber(const std::string& text) {
  return Trim(text).empty() ? nlohmann::json(nullptr) : JsonSingle(static_cast<float>(Val(text)));
}

// --- convert --------------------------------------------------------------------

struct ConvertArgs {
  std::vector<std::string> words;  // "list", or CATEGORY FROM TO VALUE
  bool json = false;
};

// A category or unit by number, by name or by short name, ignoring case.
int Pick(const std::string& word, const std::vector<std::string>& names) {
  if (IsNumeric(word)) return static_cast<int>(Val(word));
  for (size_t i = 0; i < names.size(); ++i) {
    if (strcasecmp(names[i].c_str(), word.c_str()) == 0) return static_cast<int>(i + 1);
  }
  return 0;
}

int ConvertList(const CvrtTable& table, const CliUi& ui, bool json) {
  if (json) {
    nlohmann::json categories = nlohmann::json::array();
    for (const auto& c : table.categories) {
      nlohmann::json units = nlohmann::json::array();
      for (size_t u = 0; u < c.units.size(); ++u) {
        units.push_back({{"number", u + 1}, {"short_name", c.units[u].short_name}, {"name", c.units[u].name}});
      }
      categories.push_back({{"number", c.number}, {"name", CategoryName(c.number)}, {"units", units}});
    }
    PrintJson({{"categories", categories}, {"notices", ui.notices}});
    return kExitDone;
  }
  for (const auto& c : table.categories) {
    std::printf("%d %s\n", c.number, CategoryName(c.number).c_str());
    for (size_t u = 0; u < c.units.size(); ++u) {
      std::printf("   %2zu %-12s %s\n", u + 1, c.units[u].short_name.c_str(), c.units[u].name.c_str());
    }
  }
  return kExitDone;
}

int Convert(const GlobalOptions& options, const ConvertArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  CvrtTable table;
  const std::filesystem::path file = session->data.paths.DataFile(kCvrtFile);
  if (!ReadCvrt(file, table, ui)) FailToRead("The unit conversion table", file, ui);
  if (args.words.size() == 1 && args.words[0] == "list") return ConvertList(table, ui, args.json);
  if (args.words.size() != 4 || !IsPlainNumber(args.words[3])) {
    Fail(kExitUsage, "usage: convert list | convert CATEGORY FROM TO VALUE", ui);
  }
  std::vector<std::string> categories;
  for (const auto& c : table.categories) categories.push_back(CategoryName(c.number));
  const int ci = Pick(args.words[0], categories);
  const CvrtCategory* category = ci >= 1 && ci <= static_cast<int>(table.categories.size())
                                     ? &table.categories[static_cast<size_t>(ci - 1)]
                                     : nullptr;
  if (category == nullptr) Fail(kExitUsage, "No category " + args.words[0] + " (see convert list)", ui);
  std::vector<std::string> units;
  for (const auto& u : category->units) units.push_back(u.short_name);
  const int from = Pick(args.words[1], units), to = Pick(args.words[2], units);
  const int count = static_cast<int>(units.size());
  if (from < 1 || from > count || to < 1 || to > count) {
    Fail(kExitUsage, "No such unit in " + CategoryName(category->number) + " (see convert list)", ui);
  }
  const double value = Val(args.words[3]);
  const std::string shown = CVRT(*category, from, to, value);
  const std::string& to_unit = units[static_cast<size_t>(to - 1)];
  if (args.json) {
    // The conversion works in doubles: its numbers are doubles, the value in the unit `from`, the result in `to`.
    PrintJson({{"category", CategoryName(category->number)},
               {"from", units[static_cast<size_t>(from - 1)]},
               {"to", to_unit},
               {"value", value},
               {"result", ConvertUnits(*category, from, to, value)},
               {"result_text", shown},
               {"notices", ui.notices}});
  } else {
    std::printf("%s %s\n", shown.c_str(), to_unit.c_str());
  }
  return kExitDone;
}

// --- dp -----------------------------------------------------------------------

struct DpArgs {
  std::string file;
  bool json = false;
};

int Dp(const DpArgs& args) {
  CliUi ui(args.json);
  DpScreen screen;
  if (!ReadDpFile(args.file, screen, ui)) FailToRead("The pressure drop case", args.file, ui);
  const bool done = Calculate_DP(screen, ui);
  if (!args.json) {
    std::printf("%s", screen.results.c_str());
    return done ? kExitDone : kExitRefused;
  }
  if (!done) Refuse("The pressure drop of " + args.file + " could not be calculated.", ui);
  const bool metric = !screen.standard;
  PrintJson({{"case", args.file},
             {"method", screen.hei ? "HEI" : "formula"},
             {"units", metric ? "metric" : "standard"},
             {metric ? "velocity_m_s" : "velocity_ft_s", JsonSingle(screen.velocity)},
             {metric ? "equivalent_length_m" : "equivalent_length_ft", JsonSingle(screen.equivalent_length)},
             {"pressure_drop_mmhg", JsonSingle(screen.drop)},
             {"results_lines", BoxLines(screen.results)},
             {"notices", ui.notices}});
  return kExitDone;
}

// --- tailleg --------------------------------------------------------------------

struct TailLegArgs {
  std::vector<std::string> values;  // receiver and condenser pressures (mmHgA), specific gravity
  bool json = false;
};

int TailLeg(const TailLegArgs& args) {
  CliUi ui(args.json);
  TailLegScreen screen;
  for (size_t i = 0; i < 3; ++i) screen.txtTailLeg[i] = args.values[i];
  if (!CalculateTailLeg(screen)) {
    // The window keeps its answers silently; here the absorbed error is said.
    Fail(kExitRefused, RunTimeErrorText(VbError(screen.error)), ui);
  }
  if (args.json) {
    // The answers are the window's "33.9 feet" and "10.3 meters", to the nearest 0.1.
    PrintJson({{"receiver_mmhga", BoxNumber(screen.txtTailLeg[0])},
               {"condenser_mmhga", BoxNumber(screen.txtTailLeg[1])},
               {"specific_gravity", BoxNumber(screen.txtTailLeg[2])},
               {"height_ft", BoxNumber(screen.lblAns[0])},
               {"height_m", BoxNumber(screen.lblAns[1])},
               {"notices", ui.notices}});
  } else {
    std::printf("Min Height\n%s\n%s\n", screen.lblAns[0].c_str(), screen.lblAns[1].c_str());
  }
  return kExitDone;
}

// --- gasflow --------------------------------------------------------------------

struct GasArgs {
  std::string mw, pressure = "760", temperature, pressure_unit = "mmHgA", temperature_unit = "degF",
                  mass_unit = "#/hr";
  std::string mass, acfm, scfm, ncfm, nm3h;
  bool json = false;
};

template <size_t N>
int UnitIndex(const std::array<std::string_view, N>& units, const std::string& unit) {
  for (size_t i = 0; i < N; ++i) {
    if (strcasecmp(std::string(units[i]).c_str(), unit.c_str()) == 0) return static_cast<int>(i);
  }
  throw CLI::ValidationError("unit", "unknown unit " + unit);
}

// A unit as the end of a JSON key: "#/hr" lb_hr, "bar A" bar_a, "NM3/hr" nm3_hr.
std::string UnitKey(std::string_view unit) {
  std::string key;
  for (char c : unit) {
    if (c == '#') {
      key += "lb";
    } else if (std::isalnum(static_cast<unsigned char>(c))) {
      key += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    } else if (!key.empty() && key.back() != '_') {
      key += '_';
    }
  }
  return key;
}

// The window's groups of boxes, one box a unit, as the command shows them.
struct GasBoxes {
  const char* label;  // the text heading
  const char* key;    // the JSON key before the unit
  const std::string* boxes;
  const std::string_view* units;
  size_t count;
};

void PrintGasFlow(const GasFlowScreen& s, bool json, const CliUi& ui) {
  const GasBoxes groups[] = {
      {"Pressure", "pressure", s.txtPressure.data(), kPressureUnits.data(), kPressureUnits.size()},
      {"Temperature", "temperature", s.txtTemperature.data(), kTemperatureUnits.data(), kTemperatureUnits.size()},
      {"Mass flow", "mass_flow", s.txtMassFlow.data(), kMassFlowUnits.data(), kMassFlowUnits.size()},
      {"Volumetric flow", "volume_flow", s.txtVolFlow.data(), kVolFlowUnits.data(), kVolFlowUnits.size()}};
  if (json) {
    nlohmann::json doc{{"molecular_weight", BoxNumber(s.txtMW)}, {"notices", ui.notices}};
    for (const GasBoxes& g : groups) {
      for (size_t i = 0; i < g.count; ++i) doc[std::string(g.key) + "_" + UnitKey(g.units[i])] = BoxNumber(g.boxes[i]);
    }
    PrintJson(doc);
    return;
  }
  auto show = [](const std::string& text) { return Trim(FormatFixed(static_cast<float>(Val(text)), 10.2f)); };
  std::printf("Molecular weight  %s\n", show(s.txtMW).c_str());
  for (const GasBoxes& g : groups) {
    for (size_t i = 0; i < g.count; ++i) {
      std::printf("%-18s%s %s\n", g.label, show(g.boxes[i]).c_str(), std::string(g.units[i]).c_str());
    }
  }
}

int GasFlow(const GasArgs& a) {
  CliUi ui(a.json);
  GasFlowScreen s;
  s.txtMW = a.mw;
  SelectGasOption(s, GasGroup::kPressure, UnitIndex(kPressureUnits, a.pressure_unit));
  s.txtPressure[static_cast<size_t>(s.OptionPressure)] = a.pressure;
  UpdateGasUnits(s, GasGroup::kPressure);
  SelectGasOption(s, GasGroup::kTemperature, UnitIndex(kTemperatureUnits, a.temperature_unit));
  s.txtTemperature[static_cast<size_t>(s.OptionTemperature)] = a.temperature;
  UpdateGasUnits(s, GasGroup::kTemperature);
  const std::string* volumes[] = {&a.acfm, &a.scfm, &a.ncfm, &a.nm3h};
  int given = a.mass.empty() ? 0 : 1;
  for (int i = 0; i < 4; ++i) given += volumes[i]->empty() ? 0 : 1;
  if (given != 1) Fail(kExitUsage, "Give exactly one of --mass, --acfm, --scfm, --ncfm, --nm3h.", ui);
  if (!a.mass.empty()) {
    SelectMassOrVolume(s, 0);
    SelectGasOption(s, GasGroup::kMassFlow, UnitIndex(kMassFlowUnits, a.mass_unit));
    s.txtMassFlow[static_cast<size_t>(s.OptionMassFlow)] = a.mass;
    UpdateGasUnits(s, GasGroup::kMassFlow);
  } else {
    SelectMassOrVolume(s, 1);
    for (int i = 0; i < 4; ++i) {
      if (volumes[i]->empty()) continue;
      SelectGasOption(s, GasGroup::kVolFlow, i);
      s.txtVolFlow[static_cast<size_t>(i)] = *volumes[i];
    }
  }
  if (!GasMassVolCalcs(s)) Fail(kExitRefused, s.message, ui);
  PrintGasFlow(s, a.json, ui);
  return kExitDone;
}

// --- nupreir --------------------------------------------------------------------

struct NupreirArgs {
  std::string expression;
  std::vector<std::string> vars;
  bool radians = false;
  bool json = false;
};

int NupreirCommand(const NupreirArgs& a) {
  CliUi ui(a.json);
  NupreirScreen s;
  s.radians = a.radians;
  s.expression = a.expression;
  if (a.vars.size() > kNupreirVariables) Fail(kExitUsage, "At most " + std::to_string(kNupreirVariables) + " variables.", ui);
  for (size_t i = 0; i < a.vars.size(); ++i) {
    const size_t eq = a.vars[i].find('=');
    if (eq == std::string::npos) Fail(kExitUsage, "A variable is given as NAME=VALUE: " + a.vars[i], ui);
    s.variables[i] = {a.vars[i].substr(0, eq), a.vars[i].substr(eq + 1)};
  }
  if (!Evaluate(s, ui)) {
    // The window shows why in a message box, or beeps at an empty expression.
    Refuse(Trim(s.expression).empty() ? "The expression is empty." : "The expression could not be evaluated.", ui);
  }
  const std::vector<std::string> lines = BoxLines(s.results);
  if (a.json) {
    PrintJson({{"expression", s.expression},
               {"angles", s.radians ? "radians" : "degrees"},
               {"lines", lines},
               {"value", JsonSingle(s.value)},
               {"notices", ui.notices}});
  } else {
    for (const std::string& line : lines) std::printf("%s\n", line.c_str());
  }
  return kExitDone;
}

}  // namespace

void AddCalculatorCommands(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto convert_args = std::make_shared<ConvertArgs>();
  auto* convert = app.add_subcommand("convert", "Unit conversions: convert list, or convert CATEGORY FROM TO VALUE");
  convert->add_option("WORDS", convert_args->words,
                      "list, or CATEGORY FROM TO VALUE: the category and units by number or name, VALUE in the unit FROM")
      ->required();
  convert->add_flag("--json", convert_args->json,
                    "Print category, from, to, value (in FROM), result (in TO) and result_text as JSON; with list, the units");
  convert->callback([&options, &exit_code, convert_args] { exit_code = Convert(options, *convert_args); });

  auto dp_args = std::make_shared<DpArgs>();
  auto* dp = app.add_subcommand("dp", "Gas pressure drop of a line: prints the results box");
  dp->add_option("CASE", dp_args->file, "Pressure drop case file (.TDP)")->required();
  dp->add_flag("--json", dp_args->json,
               "Print the velocity, the equivalent length, the pressure drop (mmHg) and the results lines as JSON");
  dp->callback([&exit_code, dp_args] { exit_code = Dp(*dp_args); });

  auto tail = std::make_shared<TailLegArgs>();
  auto* tailleg = app.add_subcommand("tailleg", "Tail leg height for a condensate receiver and condenser");
  tailleg->add_option("VALUES", tail->values,
                      "RECEIVER pressure (mmHgA), CONDENSER pressure (mmHgA), SG the condensate's specific gravity (water = 1)")
      ->required()
      ->expected(3)
      ->check(SingleNumber());
  tailleg->add_flag("--json", tail->json, "Print the pressures, the gravity and the height in ft and m as JSON");
  tailleg->callback([&exit_code, tail] { exit_code = TailLeg(*tail); });

  auto gas = std::make_shared<GasArgs>();
  auto* gasflow = app.add_subcommand("gasflow", "Gas mass flow to volume flows, or a volume flow to mass flow");
  gasflow->add_option("--mw", gas->mw, "Molecular weight, lb/lb-mol")->required()->check(SingleNumber());
  gasflow->add_option("--pressure", gas->pressure, "Pressure, in the --pressure-unit (default 760 mmHgA)")->check(SingleNumber());
  gasflow->add_option("--pressure-unit", gas->pressure_unit, "mmHgA (default), psig, psia, \"bar A\" or kPa");
  gasflow->add_option("--temperature", gas->temperature, "Temperature, in the --temperature-unit (default degF)")
      ->required()
      ->check(SingleNumber());
  gasflow->add_option("--temperature-unit", gas->temperature_unit, "degF (default) or degC");
  gasflow->add_option("--mass", gas->mass, "Mass flow, in the --mass-unit (default #/hr, lb/hr)")->check(SingleNumber());
  gasflow->add_option("--mass-unit", gas->mass_unit, "#/hr (lb/hr, the default) or kg/hr");
  gasflow->add_option("--acfm", gas->acfm, "Actual volume flow, ft3/min at the pressure and temperature")->check(SingleNumber());
  gasflow->add_option("--scfm", gas->scfm, "Standard volume flow, ft3/min at 60 F and 760 mmHg")->check(SingleNumber());
  gasflow->add_option("--ncfm", gas->ncfm, "Normal volume flow, ft3/min at 32 F and 760 mmHg")->check(SingleNumber());
  gasflow->add_option("--nm3h", gas->nm3h, "Normal volume flow, m3/hr at 0 C and 760 mmHg")->check(SingleNumber());
  gasflow->add_flag("--json", gas->json, "Print every pressure, temperature, mass and volume flow as JSON, the unit in each key");
  gasflow->callback([&exit_code, gas] { exit_code = GasFlow(*gas); });

  auto nup = std::make_shared<NupreirArgs>();
  auto* nupreir = app.add_subcommand("nupreir", "Nupreir expression evaluator: prints the lines the results box gains");
  nupreir->add_option("EXPR", nup->expression, "Expression (numbers without units; angles in degrees unless --radians)")->required();
  nupreir->add_option("--var", nup->vars, "Variable NAME=VALUE, the value a number or an expression (up to five)");
  nupreir->add_flag("--radians", nup->radians, "Angles in radians (default degrees)");
  nupreir->add_flag("--json", nup->json, "Print the expression, the results lines and the value as JSON");
  nupreir->callback([&exit_code, nup] { exit_code = NupreirCommand(*nup); });
}

}  // namespace kestrane::cli
