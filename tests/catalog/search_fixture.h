// Doubles of the ports the catalog code talks to, beside the shared scripted dialogs, and a
// catalog in a temporary folder with an observer for whom the altitudes are easy to predict: on
// the equator with sidereal time 0h, an object at 0h right ascension and declination d stands on
// the meridian at 90 - |d| degrees (plus refraction). The date's epoch is 2000, so catalog
// positions are not precessed.
#pragma once

#include <gtest/gtest.h>

#include "astro/coordinates.h"
#include "catalog/catalog_select.h"
#include "catalog/scope_read_back.h"
#include "catalog/search.h"
#include "catalog/search_ports.h"
#include "catalog_files.h"
#include "tests/support/fake_ports.h"

namespace astel::testing {

class FakeSearchWindow : public SearchWindow {
 public:
  std::vector<std::string> captions, progress;
  bool visible = false;
  void Show(const std::string& caption) override {
    captions.push_back(caption);
    visible = true;
  }
  void SetProgress(const std::string& text) override { progress.push_back(text); }
  void Hide() override { visible = false; }
};

// A telescope that reports a fixed position of date, or fails.
class FakeScope : public ScopeReadBack {
 public:
  bool succeed = true;
  int calls = 0;
  double raHours = 0, decDegrees = 0;
  bool ReadPosition(SharedState& state) override {
    ++calls;
    if (succeed) SetObjectPosition(state.object, raHours, decDegrees);
    return succeed;
  }
};

// All the ports of a catalog call in one place.
struct CatalogRig {
  ScriptedDialogs dialogs;
  FakeEvents events;
  FakeSearchWindow window;
  RecordingShell shell;
  CatalogPorts ports{dialogs, events, window, shell};
};

using Names = std::vector<std::string>;

class SearchTest : public ::testing::Test {
 protected:
  void SetUp() override {
    state.files.installDir = Dir(dir);
    state.files.catalogDirectory = Dir(dir);
    state.files.catalogFileName = "TEST.OBC";
    state.time.roundedYear = 2000;
    state.time.localSiderealTime = 0;
    state.place.homeLatitude = 0;
  }

  void UseCatalog(const std::vector<std::string>& records, char kind = ' ',
                  const std::string& end = "\r\n") {
    WriteCatalog(File(dir, "TEST.OBC"), records, kind, end);
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), "TEST.OBC"));
  }

  // Queues the answers to the prompts, then runs the search.
  bool Simple(std::deque<std::string> answers) {
    rig.dialogs.answers = std::move(answers);
    return SimpleSearch(state, rig.ports);
  }
  bool Detailed(std::deque<std::string> answers) {
    rig.dialogs.answers = std::move(answers);
    return DetailedSearch(state, rig.ports);
  }

  // The object's Name1 without its padding.
  std::string Shown() const {
    std::string n = state.object.Name1;
    n.erase(n.find_last_not_of(' ') + 1);
    return n;
  }

  std::string Matches() const { return ReadFile(File(dir, "MATCHES.TXT")); }

  // The shown object, then every further match until NextMatch says no more (at most 50).
  std::vector<std::string> ShownAndNextMatches() {
    std::vector<std::string> shown = {Shown()};
    while (shown.size() < 50 && NextMatch(state, rig.ports))
      shown.push_back(Shown());
    return shown;
  }

  // A record at the given apparent altitude due south of the equatorial observer.
  std::string AtAltitude(const std::string& name, double apparentAltitude,
                         const std::string& mag = "5") {
    const Equatorial eq = AltAzToEquatorial(state, apparentAltitude, 180);
    return Rec(name, eq.raHours, eq.decDegrees, mag);
  }

  TempDir dir;
  SharedState state;
  CatalogRig rig;
};

}  // namespace astel::testing
