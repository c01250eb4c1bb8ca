// Cost of one jet balance search for a typical stage: 100 psig saturated motive, 50 to 200 mmHgA, 70 % efficiency.
#include <benchmark/benchmark.h>

#include "properties/jet_balance.h"
#include "shell/paths.h"

namespace {

void BM_JetBalanceSearch(benchmark::State& state) {
  kestrane::SteamTable table;
  kestrane::RecordingUi ui;
  const auto paths = kestrane::PathsForProgram(kestrane::ExecutableDirectory());
  if (!kestrane::ReadSteamData(paths.DataFile(kestrane::kSteamFile), table, ui)) {
    state.SkipWithError("steam table not found beside the program");
    return;
  }
  const kestrane::Steam steam{table, ui};
  for (auto _ : state) {
    kestrane::JetBalanceData jet;
    jet.outletVelocity = 200;
    jet.motivePressure = 100;
    jet.motiveUnit = 4;
    jet.suctionPressure = 50;
    jet.dischargePressure = 200;
    jet.target = 70;
    kestrane::JetBalance(steam, jet);
    benchmark::DoNotOptimize(jet.steamRatio);
  }
}
BENCHMARK(BM_JetBalanceSearch)->Unit(benchmark::kMicrosecond);

}  // namespace
