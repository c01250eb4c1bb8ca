// The command line's session: program paths, the fixed date, JSON output.
#include <cstdio>

#include "case/jet_file.h"
#include "cli.h"
#include "properties/user_vapors.h"
#include "properties/vb.h"

namespace kestrane::cli {

namespace {

bool IsCalendarDay(int y, int m, int d) {
  if (y < 1 || m < 1 || m > 12 || d < 1) return false;
  static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  return d <= days[m - 1] + (m == 2 && leap ? 1 : 0);
}

}  // namespace

CLI::Validator SingleNumber() {
  return CLI::Validator(
      [](std::string& text) -> std::string {
        if (!IsPlainNumber(text)) return "\"" + text + "\" is not a number";
        if (!FitsSingle(Val(text))) {
          return "\"" + text + "\" lies beyond the largest number the program holds (3.402823E+38)";
        }
        return {};
      },
      "NUMBER");
}

std::unique_ptr<Session> MakeSession(const GlobalOptions& options) {
  const std::filesystem::path program = ExecutableDirectory();
  auto session = std::make_unique<Session>(options.pgmfiles.empty() ? PathsForProgram(program)
                                                                    : PathsForDataFolder(program, options.pgmfiles));
  if (!options.date.empty()) {
    int y = 0, m = 0, d = 0;
    char tail = 0;
    if (std::sscanf(options.date.c_str(), "%4d-%2d-%2d%c", &y, &m, &d, &tail) != 3 || !IsCalendarDay(y, m, d)) {
      throw CLI::ValidationError("--date", "'" + options.date + "' is not a date of the form YYYY-MM-DD");
    }
    session->fixed_today = VbDate{y, m, d};
  }
  return session;
}

void LoadSteamTable(Session& session, RecordingUi& ui) {
  const std::filesystem::path file = session.data.paths.DataFile(kSteamFile);
  if (!ReadSteamData(file, session.data.steam, ui)) FailToRead("The steam table", file, ui);
}

void LoadVapors(Session& session, RecordingUi& ui) {
  AppData& data = session.data;
  const std::filesystem::path file = data.paths.DataFile(kVaporFile);
  if (!ReadPsat(file, data.vapors, ui)) FailToRead("The vapor data base", file, ui);
  ReadUDV(data.paths.UserDataFile(kUserVaporFile), data.user_vapors, ui);
}

void LoadDesignData(Session& session, RecordingUi& ui) {
  LoadSteamTable(session, ui);
  LoadVapors(session, ui);
  SetCurves(session.data.curves);
  SetConstants(session.data.constants);
  ReadPumps(session.data.paths.DataFile(kPumpFile), session.data.pumps, ui);
  SetPumpTables(session.data.pumps.tables);
  ReadPricing(session.data.paths, session.data.pricing);
}

DesignOutcome DesignCaseFile(Session& session, const std::string& file, InputScreen& screen, CliUi& ui,
                             const std::string& verb) {
  if (!OpenCase(file, screen, ui)) FailToRead("The case", file, ui);
  DesignContext ctx{session.design, session.data, screen, session.PINTERFIX, ui};
  DesignOutcome outcome;
  try {
    outcome = RunDesign(ctx, screen);
  } catch (const VbError& e) {
    Fail(kExitDesignError, "The case could not be designed: " + RunTimeErrorText(e), ui);
  }
  if (outcome.input_error != 0) Refuse("The input was refused: nothing was " + verb + "ed.", ui);
  if (!outcome.results) {
    Fail(kExitDesignError, "The design has no results to " + verb + " (" + outcome.lblMessage + ").", ui);
  }
  return outcome;
}

namespace {
bool json_printed = false;
}  // namespace

void PrintJson(const nlohmann::json& doc) {
  std::cout << JsonText(doc) << '\n';
  json_printed = true;
}

bool JsonPrinted() { return json_printed; }

}  // namespace kestrane::cli
