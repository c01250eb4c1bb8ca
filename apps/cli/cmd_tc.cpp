// kestrane tc CASE.TTC: checks and designs a thermo compressor case.
#include <cstdio>

#include "case/input_screen.h"
#include "cli.h"
#include "thermo/tc_file.h"
#include "thermo/thermo_compressor.h"

namespace kestrane::cli {

namespace {

struct TcArgs {
  std::string file;
  bool json = false;
  bool grid = false;
};

int Tc(const GlobalOptions& options, const TcArgs& args) {
  auto session = MakeSession(options);
  CliUi ui(args.json);
  LoadDesignData(*session, ui);
  TCInputScreen screen;
  if (!OpenTCFile(args.file, screen, ui)) FailToRead("The case", args.file, ui);
  DesignCase& dc = session->design;
  TcInput tcin;
  const int16_t err = CheckTCInput(screen, dc, tcin, Steam{session->data.steam, ui}, ui);
  TcOutcome outcome;
  std::string text;
  if (err == 0) {
    const InputScreen design_screen = NewCase();
    DesignContext ctx{dc, session->data, design_screen, session->PINTERFIX, ui};
    try {
      outcome = DesignThermoCompressor(ctx, tcin);
      text = TcResultsText(FillTCResults(dc, screen.Metric()));
    } catch (const VbError& e) {
      Fail(kExitDesignError, "The thermo compressor could not be designed: " + RunTimeErrorText(e), ui);
    }
  }
  // A velocity iteration that did not settle, or a balance that did not converge, shows the last pass: a design error.
  std::vector<std::string> errors;
  if (err == 0 && !outcome.settled) errors.push_back("The discharge velocity did not settle.");
  if (err == 0 && !outcome.balanced) errors.push_back("The jet balance of the compressor did not converge: its results are those of the last trial.");
  const int done = err != 0 ? kExitRefused : errors.empty() ? kExitDone : kExitDesignError;
  if (args.json) {
    nlohmann::json doc{{"case", args.file}, {"input_error", err}, {"notices", ui.notices}};
    if (err == 0) {
      doc["STG"] = nlohmann::json::array();
      for (int r = 1; r <= kStageRows; ++r) doc["STG"].push_back(JsonSingle(dc.STG(1, r)));
      doc["TYPE"] = outcome.TYPE;
      doc["compressionRatio"] = JsonSingle(outcome.compressionRatio);
      doc["settled"] = outcome.settled;
      doc["errors"] = errors;
      doc["results_text"] = text;
    }
    PrintJson(doc);
    return done;
  }
  if (err != 0) return kExitRefused;
  std::printf("%s", text.c_str());
  for (const std::string& error : errors) std::fprintf(stderr, "Design error: %s\n", error.c_str());
  if (args.grid) {
    for (const auto& [label, value] : TcDebuggerGrid(dc)) std::printf("%s%s\n", label.c_str(), value.c_str());
  }
  return done;
}

}  // namespace

void AddTcCommand(CLI::App& app, const GlobalOptions& options, int& exit_code) {
  auto args = std::make_shared<TcArgs>();
  auto* tc = app.add_subcommand("tc", "Check and design a thermo compressor case");
  tc->add_option("CASE", args->file, "Thermo compressor case file (.TTC)")->required();
  tc->add_flag("--json", args->json, "Print the check, STG column 1 and the body type as JSON");
  tc->add_flag("--grid", args->grid, "Print the debugger grid as well");
  tc->callback([&options, &exit_code, args] { exit_code = Tc(options, *args); });
}

}  // namespace kestrane::cli
