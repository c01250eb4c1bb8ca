// The program's data for a benchmark, read from beside the benchmark's program as the program reads them.
#pragma once

#include "properties/steam.h"
#include "shell/app_data.h"
#include "shell/paths.h"
#include "shell/ui.h"

namespace kestrane {

struct BenchData {
  AppData data;
  RecordingUi ui;
  bool ok = false;
  BenchData() {
    data.paths = PathsForProgram(ExecutableDirectory());
    ok = ReadSteamData(data.paths.DataFile(kSteamFile), data.steam, ui) &&
         ReadPsat(data.paths.DataFile(kVaporFile), data.vapors, ui);
    SetCurves(data.curves);
    SetConstants(data.constants);
    ok = ok && ReadPumps(data.paths.DataFile(kPumpFile), data.pumps, ui);
    SetPumpTables(data.pumps.tables);
  }
};

}  // namespace kestrane
