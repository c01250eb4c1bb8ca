// Cost of one table lookup on the 28-point molecular weight table, as every stage sizing does it.
#include <benchmark/benchmark.h>

#include "properties/numeric.h"
#include "shell/constants.h"

namespace {

void BM_TableInterpMolecularWeight(benchmark::State& state) {
  kestrane::Constants c;
  kestrane::SetConstants(c);
  const float weights[] = {2.016f, 18.0f, 28.97f, 44.01f, 78.11f, 146.0f};
  size_t k = 0;
  for (auto _ : state) {
    int16_t status = 0;
    int16_t xcol = 1;
    float ratio = 0;
    kestrane::TableInterp(c.MWTAB, 28, 2, weights[k++ % 6], status, xcol, 2, ratio);
    benchmark::DoNotOptimize(ratio);
  }
}
BENCHMARK(BM_TableInterpMolecularWeight);

}  // namespace
