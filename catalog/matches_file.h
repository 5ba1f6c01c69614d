// The matches file (installDir + matchesFileName, "MATCHES.TXT"): rewritten at the start of every
// fresh scan, one or two CRLF-ended lines appended per accepted object, viewed through the Shell.
#pragma once

#include <string>

#include "catalog/search_ports.h"
#include "core/shared_state.h"

namespace astel {

std::string MatchesFilePath(const SharedState& state);

// The four header lines (each ending in CRLF) for the current search, place and time.
std::string MatchesHeader(const SharedState& state);

// " 7. ", "42. ", "123.": the match number in four characters.
std::string MatchNumberText(int n);

// The lines for the shown object as match number n (CRLF-ended): two lines for a catalog object,
// one for a Sun, Moon or planet.
std::string MatchLines(const SharedState& state, int n);

// A number without the runtime's leading blank: 20, 45.5, -3.
std::string PlainNumber(double value);

// Appends to the matches file through a buffer; flushed when destroyed or on Flush. Write errors
// are remembered, never thrown: a full disk costs the list, not the search.
class MatchesWriter {
 public:
  MatchesWriter() = default;
  ~MatchesWriter();
  MatchesWriter(const MatchesWriter&) = delete;
  MatchesWriter& operator=(const MatchesWriter&) = delete;

  // truncate: start the file afresh. False when it cannot be opened.
  bool Open(const std::string& path, bool truncate);
  void Write(const std::string& text);
  void Flush();
  void Close();
  bool Failed() const { return failed_; }

 private:
  int fd_ = -1;
  std::string buffer_;
  bool failed_ = false;
};

// WriteMatchButton: after a finished scan, opens the file ("View Matches"); otherwise runs the
// current search to the end writing every match, then offers to show the file.
void WriteMatchButtonClick(SharedState& state, CatalogPorts& ports);

}  // namespace astel
