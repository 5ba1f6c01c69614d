#include "scope/position_readback.h"

#include <cmath>

#include "scope/lx200_protocol.h"
#include "scope/nexstar_protocol.h"
#include "scope/scope_query.h"

namespace astel {

namespace {

// Ends a load that failed: its message (none when the window was closed), the port closed.
bool Fail(ScopeContext& context, std::string_view message) {
  if (!message.empty()) context.dialogs.MessageBox(std::string(message));
  context.comm.CommClose(context.state.telescope.comPort);
  return false;
}

bool FailQuery(ScopeContext& context, QueryResult result, bool reportWriteFailure) {
  const int port = context.state.telescope.comPort;
  if (result == QueryResult::kWriteFailed && reportWriteFailure) {
    return Fail(context, PortMessage(kUnableToWriteCom, port));
  }
  return Fail(context, "");
}

void Finish(ScopeContext& context) {
  context.state.telescope.positionFromScope = true;
  context.comm.CommFlush(context.state.telescope.comPort);
  context.comm.CommClose(context.state.telescope.comPort);
}

}  // namespace

bool CelestronLoad(ScopeContext& context, ExchangeMonitor& monitor, bool startedByUser) {
  SharedState& state = context.state;
  const int port = state.telescope.comPort;
  if (!OpenScopePort(context.comm, context.dialogs, port, kModeTelescope, true)) return false;
  context.comm.CommFlush(port);
  std::string status(kNoScopeResponseYet);
  if (state.telescope.scopeCode == 103) {
    status += std::string(kLineBreak) + "Nexstar 60/80/114 must be in 'RS-232 Mode'";
  }
  monitor.ShowStatus(status);

  std::string reply;
  QueryResult result = RunRepeatedQuery(
      context, port, monitor, FixedQuery(kNexStarAlignedQuery, kNexStarAlignedReplyLength), reply);
  if (result != QueryResult::kAnswered) return FailQuery(context, result, startedByUser);
  if (reply.size() < 2 || reply[1] != '#') return Fail(context, kInvalidScopeResponse);
  if (reply[0] != '\x01') return Fail(context, "Scope is Not Aligned");

  RepeatedQuery position = FixedQuery(kNexStarPositionQuery, kNexStarPositionReplyLength);
  position.complete = [](const std::string& r) {
    return static_cast<int>(r.size()) >= kNexStarPositionReplyLength;
  };
  result = RunRepeatedQuery(context, port, monitor, position, reply);
  if (result != QueryResult::kAnswered) return FailQuery(context, result, startedByUser);
  auto decoded = DecodeCelestronPosition(reply);
  if (!decoded) return Fail(context, kInvalidScopeResponse);

  ObjectState& object = state.object;
  object.objRaHours = static_cast<int>(std::trunc(decoded->raHours));
  object.objRaMinutes = (decoded->raHours - object.objRaHours) * 60;
  object.objDecDegrees = static_cast<int>(std::trunc(decoded->decDegrees));
  object.objDecMinutes = std::fabs(decoded->decDegrees - object.objDecDegrees) * 60;
  object.objDecSign = object.objDecDegrees == 0 && decoded->decDegrees < 0 ? -1 : 1;
  Finish(context);
  return true;
}

bool MeadeLoad(ScopeContext& context, ExchangeMonitor& monitor) {
  SharedState& state = context.state;
  const int port = state.telescope.comPort;
  if (!OpenScopePort(context.comm, context.dialogs, port, kModeTelescope, true)) return false;
  context.comm.CommFlush(port);
  monitor.ShowStatus(std::string(kNoScopeResponseYet) + std::string(kLineBreak));

  std::string raReply;
  RepeatedQuery ra = FixedQuery(kLx200RaQuery, kLx200RaReplyLength);
  ra.waitingText = "Waiting for Scope Right Ascension.";
  ra.complete = [](const std::string& r) {
    return static_cast<int>(r.size()) == kLx200RaReplyLength;
  };
  QueryResult result = RunRepeatedQuery(context, port, monitor, ra, raReply);
  if (result != QueryResult::kAnswered) return FailQuery(context, result, true);
  if (raReply[7] != '#') return Fail(context, kInvalidScopeResponse);

  std::string decReply;
  RepeatedQuery dec = FixedQuery(kLx200DecQuery, kLx200DecReplyLength);
  dec.waitingText = "Waiting for Scope Declination.";
  dec.complete = [](const std::string& r) {
    return static_cast<int>(r.size()) == kLx200DecReplyLength;
  };
  result = RunRepeatedQuery(context, port, monitor, dec, decReply);
  if (result != QueryResult::kAnswered) return FailQuery(context, result, true);
  if (decReply[6] != '#') return Fail(context, kInvalidScopeResponse);

  MeadeRa raValue = DecodeMeadeRa(raReply);
  MeadeDec decValue = DecodeMeadeDec(decReply);
  ObjectState& object = state.object;
  object.objRaHours = raValue.hours;
  object.objRaMinutes = raValue.minutes;
  object.objDecDegrees = decValue.degrees;
  object.objDecMinutes = decValue.minutes;
  object.objDecSign = decValue.sign;
  Finish(context);
  return true;
}

}  // namespace astel
