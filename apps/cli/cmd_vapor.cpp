// kestrane vapor list|pressure|table: the vapor data base and vapor pressures.
#include <cstdio>

#include "cli.h"
#include "properties/vapor_table.h"
#include "properties/user_vapors.h"
#include "properties/numeric.h"
#include "properties/temperature_units.h"
#include "properties/vapor_search.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

struct VaporArgs {
  std::string search;
  int id = 0;
  float temperature = 0;
  float tmin = 0, tmax = 0, step = 0;
  std::string unit = "F";  // the temperatures given and shown: F (the program's own) or C
  bool json = false;

  bool Celsius() const { return unit == "C"; }
  // The unit as the headings name it, and as the JSON keys end.
  std::string UnitName() const { return Celsius() ? "degC" : "degF"; }
  std::string KeySuffix() const { return Celsius() ? "_c" : "_f"; }
};

// The column width of a temperature of the list, its heading with the unit included.
constexpr int kListTemperatureWidth = 11;

std::string Row(int id, const std::string& formula, const std::string& name, float mw, float tmin, float tmax) {
  char buf[160];
  std::snprintf(buf, sizeof buf, "%5d  %-15s %-50s %9s %*s %*s", id, formula.c_str(), name.c_str(),
                FormatFixed(mw, 9.3f).c_str(), kListTemperatureWidth, FormatFixed(tmin, 8.1f).c_str(),
                kListTemperatureWidth, FormatFixed(tmax, 8.1f).c_str());
  return buf;
}

int List(const GlobalOptions& options, const VaporArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadVapors(*session, ui);
  const VaporData& d = session->data.vapors;
  std::vector<int> rows;
  if (args.search.empty()) {
    for (int i = 1; i <= d.NPSAT; ++i) rows.push_back(i);
  } else {
    const auto grid = VaporGridText(d);
    for (int at = 0;;) {
      const VaporSearchResult hit = SearchVaporRows(grid, args.search, at, true);
      if (hit.row == 0) break;
      rows.push_back(hit.row);
      at = hit.row;
    }
  }
  // The data base holds a vapor's range in degC.
  const auto shown = [&args](float celsius) { return args.Celsius() ? celsius : FahrenheitOf(celsius); };
  if (args.json) {
    nlohmann::json doc;
    doc["NPSAT"] = d.NPSAT;
    doc["vapors"] = nlohmann::json::array();
    for (int i : rows) {
      doc["vapors"].push_back({{"id", i},
                               {"formula", Trim(d.PSATFORMULA(i))},
                               {"name", Trim(d.PSATNAME(i))},
                               {"mw", JsonSingle(d.PSATDATA(i, 1))},
                               {"antoine", {JsonSingle(d.PSATDATA(i, 2)), JsonSingle(d.PSATDATA(i, 3)), JsonSingle(d.PSATDATA(i, 4))}},
                               {"tmin" + args.KeySuffix(), JsonSingle(shown(d.PSATDATA(i, 5)))},
                               {"tmax" + args.KeySuffix(), JsonSingle(shown(d.PSATDATA(i, 6)))},
                               {"latent", JsonSingle(d.PSATDATA(i, 7))}});
    }
    doc["notices"] = ui.notices;
    PrintJson(doc);
    return kExitDone;
  }
  std::printf("%5s  %-15s %-50s %9s %*s %*s\n", "ID", "Formula", "Name", "MW", kListTemperatureWidth,
              ("Tmin " + args.UnitName()).c_str(), kListTemperatureWidth, ("Tmax " + args.UnitName()).c_str());
  for (int i : rows) {
    std::printf("%s\n", Row(i, Trim(d.PSATFORMULA(i)), Trim(d.PSATNAME(i)), d.PSATDATA(i, 1), shown(d.PSATDATA(i, 5)),
                            shown(d.PSATDATA(i, 6))).c_str());
  }
  if (rows.empty()) std::fprintf(stderr, "No vapor matches \"%s\".\n", args.search.c_str());
  return kExitDone;
}

int Pressure(const GlobalOptions& options, const VaporArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadVapors(*session, ui);
  const Vapors vapors{session->data.vapors, session->data.user_vapors, ui};
  const size_t loading_notices = ui.notices.size();
  float pressure = 0;
  int16_t flag = 0;
  Antoine(vapors, static_cast<int16_t>(args.id), args.Celsius() ? FahrenheitOf(args.temperature) : args.temperature,
          pressure, flag);
  const bool refused = flag == 2 || ui.notices.size() > loading_notices;
  if (args.json) {
    nlohmann::json doc;
    doc["t" + args.KeySuffix()] = JsonSingle(args.temperature);
    doc["pressure"] = JsonSingle(pressure);
    doc["flag"] = flag;
    doc["notices"] = ui.notices;
    PrintJson(doc);
  } else if (!refused) {
    std::printf("pressure  %s mmHgA\n", GeneralText(pressure).c_str());
    if (flag == 1) {
      std::printf("note      %s %s lies outside the vapor's stored range\n", GeneralText(args.temperature).c_str(),
                  args.UnitName().c_str());
    }
  }
  return refused ? kExitRefused : kExitDone;
}

int Table(const GlobalOptions& options, const VaporArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  if (!VaporTableRange(args.tmin, args.tmax, args.step)) {
    Fail(kExitUsage, "The table runs from TMIN up to TMAX (not below TMIN) in steps above 0, at most 10000 rows.", ui);
  }
  LoadVapors(*session, ui);
  const Vapors vapors{session->data.vapors, session->data.user_vapors, ui};
  std::vector<VaporTableRow> rows;
  const bool done =
      VaporPressureTable(vapors, static_cast<int16_t>(args.id), args.tmin, args.tmax, args.step, rows, args.Celsius());
  if (args.json) {
    nlohmann::json doc;
    doc["rows"] = nlohmann::json::array();
    for (const auto& row : rows) {
      doc["rows"].push_back(
          {{"t" + args.KeySuffix(), JsonSingle(row.t)}, {"pressure", JsonSingle(row.pressure)}, {"flag", row.flag}});
    }
    doc["notices"] = ui.notices;
    PrintJson(doc);
  } else {
    std::printf("%12s %16s %5s\n", ("T (" + args.UnitName() + ")").c_str(), "P (mmHgA)", "flag");
    for (const auto& row : rows) {
      std::printf("%12s %16s %5d\n", GeneralText(row.t).c_str(), GeneralText(row.pressure).c_str(), row.flag);
    }
  }
  return done ? kExitDone : kExitRefused;
}

// The --unit option of a vapor command: the temperatures it takes and shows, F or C (either case).
void AddUnitOption(CLI::App* command, VaporArgs& args) {
  command->add_option("--unit", args.unit, "Temperature unit, F (degF, the default) or C (degC)")
      ->transform(CLI::IsMember({"F", "C"}, CLI::ignore_case));
}

}  // namespace

void AddVaporCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* group = app.add_subcommand("vapor", "The vapor data base and vapor pressures (IDs below 0: user defined)");
  group->require_subcommand(1);
  auto args = std::make_shared<VaporArgs>();

  auto* list = group->add_subcommand("list", "List the vapors of the data base: molecular weight and the range of the vapor's data");
  list->add_option("--search", args->search, "Only the vapors whose formula or name holds this text");
  AddUnitOption(list, *args);
  list->add_flag("--json", args->json, "Print the vapors as JSON (tmin_f and tmax_f, or tmin_c and tmax_c)");
  list->callback([&options, &exit_code, args] { exit_code = List(options, *args); });

  auto* pressure = group->add_subcommand("pressure", "Vapor pressure (mmHgA) of a vapor at a temperature (degF, or degC with --unit C)");
  pressure->add_option("ID", args->id, "Vapor ID (no unit; below 0: user defined)")->required()->check(CLI::Range(-32768, 32767));
  pressure->add_option("TEMP", args->temperature, "Temperature, degF (degC with --unit C)")->required()->check(SingleNumber());
  AddUnitOption(pressure, *args);
  pressure->add_flag("--json", args->json, "Print the temperature (t_f or t_c), pressure (mmHgA), flag and notices as JSON");
  pressure->callback([&options, &exit_code, args] { exit_code = Pressure(options, *args); });

  auto* table = group->add_subcommand("table", "Vapor pressures (mmHgA) of a vapor over a temperature range (degF, or degC with --unit C)");
  table->add_option("ID", args->id, "Vapor ID (no unit; below 0: user defined)")->required()->check(CLI::Range(-32768, 32767));
  table->add_option("TMIN", args->tmin, "First temperature, degF (degC with --unit C)")->required()->check(SingleNumber());
  table->add_option("TMAX", args->tmax, "Last temperature, degF (degC with --unit C)")->required()->check(SingleNumber());
  table->add_option("STEP", args->step, "Temperature step, degF (degC with --unit C)")->required()->check(SingleNumber());
  AddUnitOption(table, *args);
  table->add_flag("--json", args->json, "Print the rows (t_f or t_c, pressure in mmHgA, flag) as JSON");
  table->callback([&options, &exit_code, args] { exit_code = Table(options, *args); });
}

}  // namespace kestrane::cli
