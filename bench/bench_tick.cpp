// One whole main-window tick: clock, time scales, zone label, the shown body recomputed, altitude
// and azimuth, rise/transit/set once a minute, and every caption. Target: at most 50 us with the
// Moon selected.
#include <benchmark/benchmark.h>

#include "astro/solar_system.h"
#include "astro/time_scales.h"
#include "bench/quiet_ports.h"
#include "core/location.h"
#include "session/main_window.h"

namespace {

// A clock that moves one second per call, as real time does between ticks.
class SteppingClock : public astel::Clock {
 public:
  astel::LocalDateTime Now() override {
    astel::LocalDateTime t = now;
    if (++now.second == 60) {
      now.second = 0;
      if (++now.minute == 60) now.minute = 0;
    }
    return t;
  }
  astel::ZoneInfo Zone() override { return {}; }
  bool SetSystemTime(const astel::UtcDateTime&) override { return false; }
  astel::LocalDateTime now{2026, 11, 22, 21, 0, 0};
};

void SetUpState(astel::SharedState& state, int body) {
  astel::FillDateTables(state.time);
  astel::SetHomeLatitude(state.place, 51.4767);
  astel::SetHomeLongitude(state.place, 0.0);
  if (body >= 0) astel::SelectBody(state, body);
}

void BM_TickWithBody(benchmark::State& bench) {
  astel::SharedState state;
  SteppingClock clock;
  astel::bench::QuietDialogs dialogs;
  SetUpState(state, static_cast<int>(bench.range(0)));
  astel::MainWindowLogic logic(state, clock, dialogs);
  for (auto _ : bench) {
    logic.Tick();
    benchmark::DoNotOptimize(logic.Display().altitude.data());
  }
}
BENCHMARK(BM_TickWithBody)
    ->Arg(astel::kMoon)
    ->Arg(astel::kSun)
    ->Arg(astel::kJupiter)
    ->Unit(benchmark::kMicrosecond);

void BM_TickWithCatalogObject(benchmark::State& bench) {
  astel::SharedState state;
  SteppingClock clock;
  astel::bench::QuietDialogs dialogs;
  SetUpState(state, -1);
  state.object.Name1 = "M31";
  state.object.objRaHours = 0;
  state.object.objRaMinutes = 42.7;
  state.object.objDecDegrees = 41;
  state.object.objDecMinutes = 16;
  astel::MainWindowLogic logic(state, clock, dialogs);
  for (auto _ : bench) {
    logic.Tick();
    benchmark::DoNotOptimize(logic.Display().altitude.data());
  }
}
BENCHMARK(BM_TickWithCatalogObject)->Unit(benchmark::kMicrosecond);

// The shipped comet-or-asteroid catalog open: the position served for each tick's hour.
void BM_TickWithTransientCatalog(benchmark::State& bench) {
  astel::SharedState state;
  SteppingClock clock;
  astel::bench::QuietDialogs dialogs;
  SetUpState(state, -1);
  state.files.catalogDirectory = std::string(ASTEL_SOURCE_DATA_DIR) + "/";
  state.files.catalogFileName = "CERES.OBC";
  state.search.transientCatalog = true;
  state.object.objectKind = -1;
  astel::MainWindowLogic logic(state, clock, dialogs);
  for (auto _ : bench) {
    logic.Tick();
    benchmark::DoNotOptimize(logic.Display().altitude.data());
  }
  if (state.search.foundState != 1) bench.SkipWithError("no Ceres position for the bench's date");
}
BENCHMARK(BM_TickWithTransientCatalog)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
