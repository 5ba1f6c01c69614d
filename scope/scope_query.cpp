#include "scope/scope_query.h"

namespace astel {

RepeatedQuery FixedQuery(std::string_view command, int replyLength) {
  RepeatedQuery query;
  query.command = [text = std::string(command)] { return text; };
  query.writeCount = static_cast<int>(command.size());
  query.replyLength = replyLength;
  return query;
}

QueryResult RunRepeatedQuery(ScopeContext& context, int comPort, ExchangeMonitor& monitor,
                             const RepeatedQuery& query, std::string& reply) {
  reply.clear();
  for (;;) {
    context.events.DoEvents();
    if (monitor.cancelRequested) return QueryResult::kCancelled;
    context.events.Sleep(query.pauseBeforeMs);
    if (context.comm.CommWrite(comPort, query.command()) != query.writeCount) {
      return QueryResult::kWriteFailed;
    }
    context.events.Sleep(query.pauseAfterMs);
    context.comm.CommRead(comPort, reply, query.replyLength);
    if (reply.empty()) continue;
    if (!query.waitingText.empty()) monitor.ShowStatus(query.waitingText);
    if (query.complete && !query.complete(reply)) continue;
    return QueryResult::kAnswered;
  }
}

}  // namespace astel
