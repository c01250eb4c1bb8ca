// The engineering calculators on the command line: convert, dp, tailleg, gasflow and nupreir.
#include <cstdio>
#include <iostream>

#include "calculators/conversions.h"
#include "calculators/gas_flow.h"
#include "calculators/nupreir.h"
#include "calculators/pressure_drop.h"
#include "calculators/tail_leg.h"
#include "cli.h"
#include "properties/numeric.h"
#include "properties/vb.h"
#include <strings.h>

namespace kestrane::cli {

namespace {

// --- convert --------------------------------------------------------------------

struct ConvertArgs {
  std::vector<std::string> words;  // "list", or CATEGORY FROM TO VALUE
};

// A category or unit by number, by name or by short name, ignoring case.
int Pick(const std::string& word, const std::vector<std::string>& names) {
  if (IsNumeric(word)) return static_cast<int>(Val(word));
  for (size_t i = 0; i < names.size(); ++i) {
    if (strcasecmp(names[i].c_str(), word.c_str()) == 0) return static_cast<int>(i + 1);
  }
  return 0;
}

int Convert(const GlobalOptions& options, const ConvertArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(false);
  CvrtTable table;
  if (!ReadCvrt(session->data.paths.DataFile(kCvrtFile), table, ui)) return kExitUsage;
  if (args.words.size() == 1 && args.words[0] == "list") {
    for (const auto& c : table.categories) {
      std::printf("%d %s\n", c.number, CategoryName(c.number).c_str());
      for (size_t u = 0; u < c.units.size(); ++u) {
        std::printf("   %2zu %-12s %s\n", u + 1, c.units[u].short_name.c_str(), c.units[u].name.c_str());
      }
    }
    return kExitDone;
  }
  if (args.words.size() != 4 || !IsPlainNumber(args.words[3])) {
    std::cerr << "usage: convert list | convert CATEGORY FROM TO VALUE\n";
    return kExitUsage;
  }
  std::vector<std::string> categories;
  for (const auto& c : table.categories) categories.push_back(CategoryName(c.number));
  const int ci = Pick(args.words[0], categories);
  const CvrtCategory* category = ci >= 1 && ci <= static_cast<int>(table.categories.size())
                                     ? &table.categories[static_cast<size_t>(ci - 1)]
                                     : nullptr;
  if (category == nullptr) {
    std::cerr << "No category " << args.words[0] << " (see convert list)\n";
    return kExitUsage;
  }
  std::vector<std::string> units;
  for (const auto& u : category->units) units.push_back(u.short_name);
  const int from = Pick(args.words[1], units), to = Pick(args.words[2], units);
  const int count = static_cast<int>(units.size());
  if (from < 1 || from > count || to < 1 || to > count) {
    std::cerr << "No such unit in " << CategoryName(category->number) << " (see convert list)\n";
    return kExitUsage;
  }
  std::printf("%s %s\n", CVRT(*category, from, to, Val(args.words[3])).c_str(),
              category->units[static_cast<size_t>(to - 1)].short_name.c_str());
  return kExitDone;
}

// --- dp -----------------------------------------------------------------------

int Dp(const std::string& file) {
  CliUi ui(false);
  DpScreen screen;
  if (!ReadDpFile(file, screen, ui)) return kExitUsage;
  const bool done = Calculate_DP(screen, ui);
  std::printf("%s", screen.results.c_str());
  return done ? kExitDone : kExitRefused;
}

// --- tailleg --------------------------------------------------------------------

int TailLeg(const std::vector<std::string>& values) {
  TailLegScreen screen;
  for (size_t i = 0; i < 3; ++i) screen.txtTailLeg[i] = values[i];
  if (!CalculateTailLeg(screen)) {
    // The window keeps its answers silently; here the absorbed error is said.
    std::cerr << RunTimeErrorText(VbError(screen.error)) << '\n';
    return kExitRefused;
  }
  std::printf("Min Height\n%s\n%s\n", screen.lblAns[0].c_str(), screen.lblAns[1].c_str());
  return kExitDone;
}

// --- gasflow --------------------------------------------------------------------

struct GasArgs {
  std::string mw, pressure = "760", temperature, pressure_unit = "mmHgA", temperature_unit = "degF",
                  mass_unit = "#/hr";
  std::string mass, acfm, scfm, ncfm, nm3h;
};

template <size_t N>
int UnitIndex(const std::array<std::string_view, N>& units, const std::string& unit) {
  for (size_t i = 0; i < N; ++i) {
    if (strcasecmp(std::string(units[i]).c_str(), unit.c_str()) == 0) return static_cast<int>(i);
  }
  throw CLI::ValidationError("unit", "unknown unit " + unit);
}

int GasFlow(const GasArgs& a) {
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
  if (given != 1) {
    std::cerr << "Give exactly one of --mass, --acfm, --scfm, --ncfm, --nm3h.\n";
    return kExitUsage;
  }
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
  if (!GasMassVolCalcs(s)) {
    std::cerr << s.message << '\n';
    return kExitRefused;
  }
  auto show = [](const std::string& text) { return Trim(FormatFixed(static_cast<float>(Val(text)), 10.2f)); };
  std::printf("Molecular weight  %s\n", show(s.txtMW).c_str());
  for (size_t i = 0; i < 5; ++i) std::printf("Pressure          %s %s\n", show(s.txtPressure[i]).c_str(), std::string(kPressureUnits[i]).c_str());
  for (size_t i = 0; i < 2; ++i) std::printf("Temperature       %s %s\n", show(s.txtTemperature[i]).c_str(), std::string(kTemperatureUnits[i]).c_str());
  for (size_t i = 0; i < 2; ++i) std::printf("Mass flow         %s %s\n", show(s.txtMassFlow[i]).c_str(), std::string(kMassFlowUnits[i]).c_str());
  for (size_t i = 0; i < 4; ++i) std::printf("Volumetric flow   %s %s\n", show(s.txtVolFlow[i]).c_str(), std::string(kVolFlowUnits[i]).c_str());
  return kExitDone;
}

// --- nupreir --------------------------------------------------------------------

struct NupreirArgs {
  std::string expression;
  std::vector<std::string> vars;
  bool radians = false;
};

int NupreirCommand(const NupreirArgs& a) {
  CliUi ui(false);
  NupreirScreen s;
  s.radians = a.radians;
  s.expression = a.expression;
  if (a.vars.size() > kNupreirVariables) {
    std::cerr << "At most " << kNupreirVariables << " variables.\n";
    return kExitUsage;
  }
  for (size_t i = 0; i < a.vars.size(); ++i) {
    const size_t eq = a.vars[i].find('=');
    if (eq == std::string::npos) {
      std::cerr << "A variable is given as NAME=VALUE: " << a.vars[i] << '\n';
      return kExitUsage;
    }
    s.variables[i] = {a.vars[i].substr(0, eq), a.vars[i].substr(eq + 1)};
  }
  if (!Evaluate(s, ui)) return kExitRefused;
  std::string lines = s.results;
  for (size_t at; (at = lines.find("\r\n")) != std::string::npos;) lines.replace(at, 2, "\n");
  std::printf("%s", lines.c_str());
  return kExitDone;
}

}  // namespace

void AddCalculatorCommands(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto convert_args = std::make_shared<ConvertArgs>();
  auto* convert = app.add_subcommand("convert", "Unit conversions: convert list, or convert CATEGORY FROM TO VALUE");
  convert->add_option("WORDS", convert_args->words, "list, or CATEGORY FROM TO VALUE (numbers or names)")->required();
  convert->callback([&options, &exit_code, convert_args] { exit_code = Convert(options, *convert_args); });

  auto dp_file = std::make_shared<std::string>();
  auto* dp = app.add_subcommand("dp", "Gas pressure drop of a line: prints the results box");
  dp->add_option("CASE", *dp_file, "Pressure drop case file (.TDP)")->required();
  dp->callback([&exit_code, dp_file] { exit_code = Dp(*dp_file); });

  auto tail = std::make_shared<std::vector<std::string>>();
  auto* tailleg = app.add_subcommand("tailleg", "Tail leg height for a condensate receiver and condenser");
  tailleg->add_option("VALUES", *tail, "RECEIVER (mmHgA) CONDENSER (mmHgA) SG")->required()->expected(3)->check(SingleNumber());
  tailleg->callback([&exit_code, tail] { exit_code = TailLeg(*tail); });

  auto gas = std::make_shared<GasArgs>();
  auto* gasflow = app.add_subcommand("gasflow", "Gas mass flow to volume flows, or a volume flow to mass flow");
  gasflow->add_option("--mw", gas->mw, "Molecular weight")->required()->check(SingleNumber());
  gasflow->add_option("--pressure", gas->pressure, "Pressure (default 760 mmHgA)")->check(SingleNumber());
  gasflow->add_option("--pressure-unit", gas->pressure_unit, "mmHgA, psig, psia, \"bar A\" or kPa");
  gasflow->add_option("--temperature", gas->temperature, "Temperature")->required()->check(SingleNumber());
  gasflow->add_option("--temperature-unit", gas->temperature_unit, "degF or degC");
  gasflow->add_option("--mass", gas->mass, "Mass flow")->check(SingleNumber());
  gasflow->add_option("--mass-unit", gas->mass_unit, "#/hr or kg/hr");
  gasflow->add_option("--acfm", gas->acfm, "Actual cubic feet per minute")->check(SingleNumber());
  gasflow->add_option("--scfm", gas->scfm, "Standard cubic feet per minute (60 F, 760 mmHg)")->check(SingleNumber());
  gasflow->add_option("--ncfm", gas->ncfm, "Normal cubic feet per minute (32 F, 760 mmHg)")->check(SingleNumber());
  gasflow->add_option("--nm3h", gas->nm3h, "Normal cubic meters per hour")->check(SingleNumber());
  gasflow->callback([&exit_code, gas] { exit_code = GasFlow(*gas); });

  auto nup = std::make_shared<NupreirArgs>();
  auto* nupreir = app.add_subcommand("nupreir", "Nupreir expression evaluator: prints the lines the results box gains");
  nupreir->add_option("EXPR", nup->expression, "Expression")->required();
  nupreir->add_option("--var", nup->vars, "Variable NAME=VALUE (up to five)");
  nupreir->add_flag("--radians", nup->radians, "Angles in radians (default degrees)");
  nupreir->callback([&exit_code, nup] { exit_code = NupreirCommand(*nup); });
}

}  // namespace kestrane::cli
