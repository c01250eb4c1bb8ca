// The kestrane command: global options and the dispatch to the command groups.
#include <iostream>

#include "cli.h"
#include "properties/vb.h"
#include "shell/constants.h"

int main(int argc, char** argv) {
  using namespace kestrane;
  CLI::App app{"Kestrane designs steam jet vacuum systems and answers the engineering calculations around them."};
  app.set_version_flag("--version", "Kestrane " + Trim(GeneralText(PROGVERSION)), "Print the program version and exit");
  app.require_subcommand(1);

  cli::GlobalOptions options;
  app.add_option("--pgmfiles", options.pgmfiles, "Folder of the program's data files (default: pgmfiles beside the program)");
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

  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForAllHelp& e) {
    return app.exit(e);
  } catch (const CLI::CallForVersion& e) {
    return app.exit(e);
  } catch (const CLI::ParseError& e) {
    app.exit(e);
    return cli::kExitUsage;
  } catch (const VbError& e) {
    // An arithmetic or data fault that no routine traps: report it, never crash.
    std::cerr << "Run-time error " << e.number() << ": " << e.description() << '\n';
    return cli::kExitUsage;
  }
  return exit_code;
}
