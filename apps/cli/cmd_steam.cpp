// kestrane steam pt|ph|ps P X and steam sat T: steam states from the steam table.
#include "cli.h"
#include "properties/steam.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

enum class StateFrom { kTemperature, kEnthalpy, kEntropy };

struct SteamArgs {
  float p = 0;
  float x = 0;
  bool json = false;
};

int RunState(const GlobalOptions& options, StateFrom from, const SteamArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadSteamTable(*session, ui);
  const Steam steam{session->data.steam, ui};
  float t = 0, h = 0, s = 0, v = 0, moisture = 0;
  int16_t failed = 0;
  switch (from) {
    case StateFrom::kTemperature:
      t = args.x;
      SteamFromPT(steam, args.p, t, h, s, v, moisture, failed);
      break;
    case StateFrom::kEnthalpy:
      h = args.x;
      SteamFromPH(steam, args.p, t, h, s, v, moisture, failed);
      break;
    case StateFrom::kEntropy:
      s = args.x;
      SteamFromPS(steam, args.p, t, h, s, v, moisture, failed);
      break;
  }
  if (args.json) {
    nlohmann::json doc;
    doc["t"] = JsonSingle(t);
    doc["h"] = JsonSingle(h);
    doc["s"] = JsonSingle(s);
    doc["v"] = JsonSingle(v);
    doc["moisture"] = JsonSingle(moisture);
    doc["failed"] = failed;
    doc["notices"] = ui.notices;
    PrintJson(doc);
  } else if (!failed) {
    std::cout << "t         " << GeneralText(t) << " degF\n"
              << "h         " << GeneralText(h) << " Btu/lb\n"
              << "s         " << GeneralText(s) << " Btu/lb-F\n"
              << "v         " << GeneralText(v) << " ft3/lb\n"
              << "moisture  " << GeneralText(moisture) << " %\n";
  }
  return failed ? kExitRefused : kExitDone;
}

int RunSat(const GlobalOptions& options, const SteamArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadSteamTable(*session, ui);
  float p = 0;
  int16_t failed = 0;
  SatPress(Steam{session->data.steam, ui}, args.x, p, failed);
  if (args.json) {
    nlohmann::json doc;
    doc["p"] = JsonSingle(p);
    doc["failed"] = failed;
    doc["notices"] = ui.notices;
    PrintJson(doc);
  } else if (failed) {
    std::cerr << "Temperature " << GeneralText(args.x) << " degF lies outside the steam table's saturation line\n";
  } else {
    std::cout << "p         " << GeneralText(p) << " mmHgA\n";
  }
  return failed ? kExitRefused : kExitDone;
}

}  // namespace

void AddSteamCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto* group = app.add_subcommand("steam", "Steam states from the steam table (P in mmHgA, T in degF)");
  group->require_subcommand(1);
  struct Form {
    const char* name;
    const char* help;
    const char* x_name;
    const char* x_help;
    StateFrom from;
  };
  static const Form forms[] = {
      {"pt", "State from pressure and temperature (0 for saturated vapor)", "T", "Temperature, degF (0 for saturated vapor)",
       StateFrom::kTemperature},
      {"ph", "State from pressure and enthalpy (Btu/lb)", "H", "Enthalpy, Btu/lb", StateFrom::kEnthalpy},
      {"ps", "State from pressure and entropy (Btu/lb-F)", "S", "Entropy, Btu/lb-F", StateFrom::kEntropy}};
  for (const Form& form : forms) {
    auto args = std::make_shared<SteamArgs>();
    auto* cmd = group->add_subcommand(form.name, form.help);
    cmd->add_option("P", args->p, "Pressure, mmHgA")->required()->check(SingleNumber());
    cmd->add_option(form.x_name, args->x, form.x_help)->required()->check(SingleNumber());
    cmd->add_flag("--json", args->json,
                  "Print t (degF), h (Btu/lb), s (Btu/lb-F), v (ft3/lb), moisture (%), failed and notices as JSON");
    const StateFrom from = form.from;
    cmd->callback([&options, &exit_code, args, from] { exit_code = RunState(options, from, *args); });
  }
  auto args = std::make_shared<SteamArgs>();
  auto* sat = group->add_subcommand("sat", "Saturation pressure (mmHgA) at a temperature");
  sat->add_option("T", args->x, "Temperature, degF")->required()->check(SingleNumber());
  sat->add_flag("--json", args->json, "Print p (mmHgA), failed and notices as JSON");
  sat->callback([&options, &exit_code, args] { exit_code = RunSat(options, *args); });
}

}  // namespace kestrane::cli
