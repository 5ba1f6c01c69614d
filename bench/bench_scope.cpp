// Time from GotoScope's call to the last byte's arrival at a simulated mount on a
// pseudo-terminal. The NexStar command is paced by design (5 ms before the command and before
// each of its ten characters, about 55 ms); everything beyond the pacing is our overhead. The
// LX200 commands are not paced, so their figure is the overhead alone.
#include <benchmark/benchmark.h>

#include <chrono>
#include <sstream>
#include <thread>

#include "scope/comm_io.h"
#include "scope/goto_scope.h"
#include "tests/support/fake_ports.h"
#include "tests/support/scope_simulator.h"

namespace {

using namespace astel;
using namespace astel::testing;

void GotoToLastByte(benchmark::State& benchState, int scopeType, std::size_t commandBytes) {
  ScopeSimulator sim(scopeType);
  if (!sim.Start()) {
    benchState.SkipWithError("no pseudo-terminal");
    return;
  }
  FakeEvents events;  // really sleeps: the pacing is part of what is measured
  ScriptedDialogs dialogs;
  std::ostringstream diagnostics;
  CommPorts comm(events, diagnostics, [&](int) { return sim.DevicePath(); });
  SharedState state;
  state.telescope.comPort = 1;
  state.telescope.scopeType = static_cast<std::int16_t>(scopeType);
  state.object.objRaHours = 5;
  state.object.objRaMinutes = 34.5;
  state.object.objDecDegrees = -5;
  state.object.objDecMinutes = 23;

  for (auto _ : benchState) {
    sim.ClearRecords();
    const auto start = std::chrono::steady_clock::now();
    if (!GotoScope(state, comm, dialogs, events)) {
      benchState.SkipWithError("GoTo failed");
      return;
    }
    std::vector<ReceivedByte> bytes;
    for (int tries = 0; tries < 1000; ++tries) {
      bytes = sim.Received();
      if (bytes.size() >= commandBytes) break;
      std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    if (bytes.size() < commandBytes) {
      benchState.SkipWithError("the mount did not receive the whole command");
      return;
    }
    benchState.SetIterationTime(
        std::chrono::duration<double>(bytes[commandBytes - 1].at - start).count());
  }
}

void BM_GotoNexStarToLastByte(benchmark::State& state) {
  GotoToLastByte(state, 1, 10);
}
void BM_GotoLx200ToLastByte(benchmark::State& state) {
  GotoToLastByte(state, 4, 30);
}

BENCHMARK(BM_GotoNexStarToLastByte)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(40);
BENCHMARK(BM_GotoLx200ToLastByte)->UseManualTime()->Unit(benchmark::kMillisecond)->Iterations(200);

}  // namespace

BENCHMARK_MAIN();
