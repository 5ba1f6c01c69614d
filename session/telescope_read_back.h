// The object entry's "load from the telescope": the position read back in the protocol of the
// selected telescope's family. The DataEntry window shows `monitor.status` in its Label3 and sets
// `monitor.cancelRequested` when it is closed during the reading.
#pragma once

#include "catalog/scope_read_back.h"
#include "scope/exchange_monitor.h"
#include "scope/scope_link.h"

namespace astel {

class TelescopeReadBack : public ScopeReadBack {
 public:
  TelescopeReadBack(ScopeContext& context, ExchangeMonitor& monitor)
      : context_(context), monitor_(monitor) {}

  // NexStar (type 1): CelestronLoad; LX200 (type 4): MeadeLoad; any other family has no
  // read-back and gets "Function not Available".
  bool ReadPosition(SharedState& state) override;

 private:
  ScopeContext& context_;
  ExchangeMonitor& monitor_;
};

}  // namespace astel
