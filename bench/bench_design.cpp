// Cost of one stage sizing and of whole designs of the example cases: three stages, four stages, trains with a liquid ring pump, and the thorough search (median of nine runs).
#include <benchmark/benchmark.h>

#include "case/jet_file.h"
#include "engine/design_run.h"
#include "engine/stage_model.h"
#include "bench_data.h"

namespace {

using namespace kestrane;

using Loaded = BenchData;

Loaded& Data() {
  static Loaded loaded;
  return loaded;
}

void BM_DesignStage(benchmark::State& state) {
  Loaded& d = Data();
  if (!d.ok) return state.SkipWithError("data files not found beside the program");
  DesignCase dc;
  InputScreen screen = NewCase();
  float pinterfix = 0;
  DesignContext ctx{dc, d.data, screen, pinterfix, d.ui};
  for (auto _ : state) benchmark::DoNotOptimize(DesignStage(ctx, 50, 200, 150, 0, 100).ML);
}
BENCHMARK(BM_DesignStage)->Unit(benchmark::kMicrosecond);

void BM_DesignCase(benchmark::State& state, const char* file, InterstageSearch search) {
  Loaded& d = Data();
  if (!d.ok) return state.SkipWithError("data files not found beside the program");
  InputScreen screen = NewCase();
  if (!ReadCase(d.data.paths.examples / file, screen, d.ui)) return state.SkipWithError("example case not found");
  for (auto _ : state) {
    DesignCase dc;
    InputScreen s = screen;
    float pinterfix = 0;
    RecordingUi ui;  // fresh each run: the progress texts would pile up
    DesignContext ctx{dc, d.data, s, pinterfix, ui, search};
    RunDesign(ctx, s);
    benchmark::DoNotOptimize(dc.TOTALS(1));
  }
}
constexpr InterstageSearch kOriginal = InterstageSearch::kOriginal;
constexpr InterstageSearch kThorough = InterstageSearch::kThorough;
BENCHMARK_CAPTURE(BM_DesignCase, three_stage_three_surface_condensers, "SOLVENT-LOADS-THREE-STAGE.JET", kOriginal)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DesignCase, three_stage_direct_contact, "THREE-STAGE-DIRECT-CONTACT.JET", kOriginal)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DesignCase, four_stage, "FOUR-STAGE-SURFACE.JET", kOriginal)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DesignCase, two_stage_liquid_ring_pump, "TWO-STAGE-LRVP.JET", kOriginal)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DesignCase, liquid_ring_pump_alone, "LRVP-ONLY-50HZ.JET", kOriginal)->Unit(benchmark::kMillisecond);
// The thorough search: the four stage case searches three pressures; the automatic one compares two stage counts.
BENCHMARK_CAPTURE(BM_DesignCase, thorough_four_stage, "FOUR-STAGE-SURFACE.JET", kThorough)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(BM_DesignCase, thorough_three_stage_three_surface_condensers, "SOLVENT-LOADS-THREE-STAGE.JET",
                  kThorough)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(BM_DesignCase, thorough_automatic_stages, "AUTOMATIC-SURFACE.JET", kThorough)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(9)
    ->ReportAggregatesOnly(true);
}  // namespace
