// One query of a telescope exchange, sent again and again until the telescope answers: the
// program has no retry limit here, so a silent telescope is left by closing the window.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"

namespace astel {

struct RepeatedQuery {
  std::function<std::string()> command;  // built again each round, as the clock moves on
  int writeCount = 0;                    // the count the write must return
  int pauseBeforeMs = 5;
  int pauseAfterMs = 50;  // before the reply is read
  int replyLength = 1;    // asked of CommRead
  // False sends the query again; unset: any reply will do.
  std::function<bool(const std::string& reply)> complete;
  std::string waitingText;  // status shown once anything has arrived; empty: none
};

// A fixed query of the read-back kind: the command as it stands, 5 ms before it and 50 ms before
// reading up to replyLength characters.
RepeatedQuery FixedQuery(std::string_view command, int replyLength);

enum class QueryResult { kAnswered, kWriteFailed, kCancelled };

// Rounds of: events, cancel check, pause, write, pause, read. The port stays open whatever the
// result; the caller closes it and says what failed.
QueryResult RunRepeatedQuery(ScopeContext& context, int comPort, ExchangeMonitor& monitor,
                             const RepeatedQuery& query, std::string& reply);

}  // namespace astel
