// Ports for benchmarks: no one answers, nothing waits.
#pragma once

#include <string>

#include "core/ports.h"

namespace astel::bench {

class QuietDialogs : public Dialogs {
 public:
  std::string InputBox(const std::string&, const std::string&, const std::string&) override {
    return "";
  }
  void MessageBox(const std::string&, const std::string&) override {}
  bool YesNo(const std::string&, const std::string&) override { return false; }
  bool OkCancel(const std::string&, const std::string&) override { return false; }
};

class QuietEvents : public Events {
 public:
  void DoEvents() override {}
  void Sleep(int) override {}
};

}  // namespace astel::bench
