// A design study of 10,000 points of the slowest example (three stages, three surface condensers) on one and on two workers.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "case/jet_file.h"
#include "bench_data.h"
#include "study/study.h"

namespace {

using namespace kestrane;

// The data, and the slowest example as the study's base.
struct Loaded : BenchData {
  InputScreen base = NewCase();
  Loaded() { ok = ok && ReadCase(data.paths.examples / "SOLVENT-LOADS-THREE-STAGE.JET", base, ui); }
};

long MaxResidentKb() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

// 100 suction pressures by 100 motive pressures; the counters give points a second and the growth of the
// largest resident size over the study (the result table included).
void BM_Study(benchmark::State& state) {
  static Loaded d;
  if (!d.ok) return state.SkipWithError("data files not found beside the program");
  const std::vector<StudyVariable> vary = {{"PSUCT", StudyRange(15, 25, 100, false)},
                                           {"PMOTIVE", StudyRange(100, 150, 100, false)}};
  StudyOptions options;
  options.jobs = static_cast<int>(state.range(0));
  size_t points = 0;
  const long before = MaxResidentKb();
  for (auto _ : state) {
    const std::vector<StudyPoint> result = RunStudy(d.data, d.base, 0, vary, options);
    points += result.size();
    benchmark::DoNotOptimize(result.back().summary.motive_steam_lb_hr);
  }
  state.counters["points_per_s"] = benchmark::Counter(static_cast<double>(points), benchmark::Counter::kIsRate);
  state.counters["rss_growth_mb"] = static_cast<double>(MaxResidentKb() - before) / 1024.0;
}
BENCHMARK(BM_Study)->Arg(1)->Arg(2)->Iterations(1)->Unit(benchmark::kSecond)->UseRealTime();

}  // namespace
