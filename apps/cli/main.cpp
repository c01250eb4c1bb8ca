// The kestrane command: global options, the dispatch to the command groups, and the report of any failure.
#include <cstring>
#include <iostream>

#include "cli.h"
#include "properties/vb.h"
#include "shell/constants.h"

namespace {

// Whether the command line asks for JSON output: a failure is then a JSON object too.
bool JsonAsked(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--json") == 0) return true;
  }
  return false;
}

// The failure as a JSON object, with --json.
void PrintFailure(bool json, int exit_code, const std::string& error, const std::vector<std::string>& notices = {}) {
  if (json) kestrane::cli::PrintJson({{"error", error}, {"exit_code", exit_code}, {"notices", notices}});
}

// The failure on standard error (unless the notices told it already, in text
// mode), and as a JSON object with --json; its exit status.
int Report(bool json, int exit_code, const std::string& error, const std::vector<std::string>& notices = {},
           bool told = false) {
  if (!error.empty() && (json || !told)) std::cerr << error << '\n';
  PrintFailure(json, exit_code, error, notices);
  return exit_code;
}

}  // namespace

int main(int argc, char** argv) {
  using namespace kestrane;
  CLI::App app{"Kestrane designs steam jet vacuum systems and answers the engineering calculations around them."};
  app.set_version_flag("--version", "Kestrane " + ProgramVersionText(), "Print the program version and exit");
  app.require_subcommand(1);
  app.footer(
      "Exit status: 0 done, 1 the input was refused by a check, 2 a usage or file error, "
      "3 a design that ran but ended with an error (pump, condenser, or a stage whose balance failed).");

  cli::GlobalOptions options;
  app.add_option("--pgmfiles", options.pgmfiles,
                 "Folder of the program's data files, the user's own among them "
                 "(default: the shipped data in pgmfiles beside the program, or in ../share/kestrane when installed; "
                 "the user's in ~/.local/share/kestrane)");
  app.add_option("--date", options.date, "Fix today's date for reports, as YYYY-MM-DD");

  int exit_code = cli::kExitDone;
  cli::AddStartupCommand(app, options, exit_code);
  cli::AddUserInfoCommand(app, options, exit_code);
  cli::AddSteamCommand(app, options, exit_code);
  cli::AddVaporCommand(app, options, exit_code);
  cli::AddUdvCommand(app, options, exit_code);
  cli::AddCheckCommand(app, options, exit_code);
  cli::AddDesignCommands(app, options, exit_code);
  cli::AddTcCommand(app, options, exit_code);
  cli::AddCalculatorCommands(app, options, exit_code);
  cli::AddPrintCommand(app, options, exit_code);
  cli::AddDrawingCommand(app, options, exit_code);
  cli::AddPriceCommand(app, options, exit_code);
  cli::AddStudyCommand(app, options, exit_code);

  const bool json = JsonAsked(argc, argv);
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    // A misspelt command is named, with the command nearest to it.
    const std::string unknown = cli::UnknownCommandMessage(app, std::vector<std::string>(argv + 1, argv + argc));
    if (!unknown.empty()) return Report(json, cli::kExitUsage, unknown);
    app.exit(e);  // the message and the pointer to --help on standard error
    PrintFailure(json, cli::kExitUsage, e.what());
    return cli::kExitUsage;
  } catch (const cli::Failure& f) {
    return Report(json, f.exit_code, f.error, f.notices, f.told);
  } catch (const std::exception&) {
    // An arithmetic or data fault that no routine traps: report it, never crash.
    return Report(json, cli::kExitUsage, RunTimeErrorText(CaughtError()));
  }
  if (json && exit_code != cli::kExitDone && !cli::JsonPrinted()) {
    return Report(json, exit_code, "The command failed with exit status " + std::to_string(exit_code) + ".");
  }
  return exit_code;
}
