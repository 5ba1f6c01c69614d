// Cost of the Sun, Moon and planet positions, and of the per-tick refresh of a shown body.
// The date advances one second per iteration, as it does on the real clock, so caches that hold
// only for an unchanged date do not flatter the figures.
#include <benchmark/benchmark.h>

#include "astro/solar_system.h"

namespace {

constexpr double kStartJd = 2460409.262;  // 2024 April 8, 18:17 GMT
constexpr double kOneSecond = 1.0 / 86400;

void BM_ComputeBody(benchmark::State& state) {
  const int kind = static_cast<int>(state.range(0));
  double jd = kStartJd;
  for (auto _ : state) {
    benchmark::DoNotOptimize(astel::ComputeBody(kind, jd));
    jd += kOneSecond;
  }
  state.SetLabel(astel::BodyName(kind));
}
BENCHMARK(BM_ComputeBody)->DenseRange(0, astel::kBodyCount - 1)->Unit(benchmark::kMicrosecond);

void BM_SunLongitudeForPhase(benchmark::State& state) {
  double jd = kStartJd;
  for (auto _ : state) {
    benchmark::DoNotOptimize(astel::SunLongitudeForPhase(jd));
    jd += kOneSecond;
  }
}
BENCHMARK(BM_SunLongitudeForPhase)->Unit(benchmark::kMicrosecond);

// What the 900 ms tick spends on the shown body when it is the Moon: position, phase, names.
void BM_UpdateSelectedBodyMoon(benchmark::State& state) {
  astel::SharedState shared;
  shared.time.julianDate = kStartJd;
  astel::SelectBody(shared, astel::kMoon);
  for (auto _ : state) {
    astel::UpdateSelectedBody(shared);
    benchmark::DoNotOptimize(shared.object.Name3);
    shared.time.julianDate += kOneSecond;
  }
}
BENCHMARK(BM_UpdateSelectedBodyMoon)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
