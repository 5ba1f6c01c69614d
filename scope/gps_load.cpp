#include "scope/gps_load.h"

#include "astro/time_scales.h"

namespace astel {

namespace {

constexpr int kReceiveBufferSize = 256;
// When nothing has arrived the loop rests this long, so that it does not spin on an idle line
// (4800 baud fills about 24 bytes of the kernel's 4 KB queue in that time).
constexpr int kIdlePauseMs = 50;

}  // namespace

void ApplyGpsFix(ScopeContext& context, const GpsFix& fix) {
  SharedState& state = context.state;
  if (!state.telescope.gpsLocationOnly) {
    ReadClock(state, context.clock);
    UpdateTimeScales(state);
    if (!context.clock.SetSystemTime(fix.utc)) {
      ReportClockRefused(context.dialogs, context.comm.Diagnostics());
    }
  }
  ApplyPlaceFix(state, PlaceOfGpsFix(fix));
}

LoadOutcome GpsLoad(ScopeContext& context, ExchangeMonitor& monitor) {
  SharedState& state = context.state;
  Dialogs& dialogs = context.dialogs;
  const int port = state.telescope.comPort;

  if (!state.time.realTimeMode) {
    dialogs.MessageBox("Must be in Real-Time Mode for GPS Operation");
    return LoadOutcome::kNotStarted;
  }
  const std::string prompt =
      "Disconnect Telescope. Configure GPS interface to send NMEA 0183 V2 data, then connect GPS "
      "to " +
      PortName(port) + ", using a special GPS data cable. Click 'OK' when ready";
  if (!dialogs.OkCancel(prompt, "Connect Up GPS Device")) return LoadOutcome::kNotStarted;

  monitor.busy = true;
  monitor.cancelRequested = false;
  if (!OpenScopePort(context.comm, dialogs, port, kModeGpsReceiver, true)) {
    monitor.busy = false;
    return LoadOutcome::kFailed;
  }
  context.comm.CommFlush(port);
  monitor.ShowStatus("No valid NMEA data yet seen. Verify GPS Configuration and Connection");

  NmeaFramer framer;
  bool found = false;
  while (!found) {
    std::string received;
    int count = context.comm.CommRead(port, received, kReceiveBufferSize);
    context.events.DoEvents();
    if (monitor.cancelRequested) {
      context.comm.CommClose(port);
      monitor.busy = false;
      return LoadOutcome::kCancelled;
    }
    if (count < 0) break;  // the line failed (receiver unplugged, line hung up): nothing more
    if (count == 0) {
      context.events.Sleep(kIdlePauseMs);
      continue;
    }
    for (char c : received) {
      auto sentence = framer.Feed(c);
      if (!sentence) continue;
      monitor.ShowStatus("Waiting for Valid Satellite Data Fix");
      auto fix = ParseGprmc(*sentence, state.time.yearText);
      if (!fix) {
        framer.Refused();
        continue;
      }
      ApplyGpsFix(context, *fix);
      monitor.ShowStatus("GPS Data Valid");
      found = true;
      break;
    }
  }
  context.comm.CommClose(port);
  monitor.busy = false;

  if (!found) {
    dialogs.MessageBox("GPS Reading Unsuccessful");
    return LoadOutcome::kFailed;
  }
  ReportPlaceLoaded(state, context.clock, dialogs, "Successful GPS Reading.",
                    !state.telescope.gpsLocationOnly);
  return LoadOutcome::kLoaded;
}

}  // namespace astel
