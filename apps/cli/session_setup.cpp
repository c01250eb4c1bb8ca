// The command line's session: program paths, the fixed date, JSON output.
#include <cstdio>

#include "cli.h"
#include "properties/user_vapors.h"

namespace kestrane::cli {

namespace {

bool IsCalendarDay(int y, int m, int d) {
  if (y < 1 || m < 1 || m > 12 || d < 1) return false;
  static const int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
  return d <= days[m - 1] + (m == 2 && leap ? 1 : 0);
}

}  // namespace

std::unique_ptr<Session> MakeSession(const GlobalOptions& options) {
  ProgramPaths paths = PathsForProgram(ExecutableDirectory());
  if (!options.pgmfiles.empty()) paths.pgmfiles = options.pgmfiles;
  auto session = std::make_unique<Session>(paths);
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

bool LoadSteamTable(Session& session, Ui& ui) {
  return ReadSteamData(session.data.paths.DataFile(kSteamFile), session.data.steam, ui);
}

bool LoadVapors(Session& session, Ui& ui) {
  AppData& data = session.data;
  if (!ReadPsat(data.paths.DataFile(kVaporFile), data.vapors, ui)) return false;
  ReadUDV(data.paths.DataFile(kUserVaporFile), data.user_vapors, ui);
  return true;
}

bool LoadDesignData(Session& session, Ui& ui) {
  if (!LoadSteamTable(session, ui) || !LoadVapors(session, ui)) return false;
  SetCurves(session.data.curves);
  SetConstants(session.data.constants);
  ReadPumps(session.data.paths.DataFile(kPumpFile), session.data.pumps, ui);
  SetPumpTables(session.data.pumps.tables);
  return true;
}

void PrintJson(const nlohmann::json& doc) { std::cout << doc.dump(2) << '\n'; }

}  // namespace kestrane::cli
