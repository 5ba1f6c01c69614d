// Doubles of the ports the catalog code talks to, beside the shared scripted dialogs, and a
// catalog in a temporary folder with an observer for whom the altitudes are easy to predict: on
// the equator with sidereal time 0h, an object at 0h right ascension and declination d stands on
// the meridian at 90 - |d| degrees (plus refraction). The date's epoch is 2000, so catalog
// positions are not precessed. The clock and place texts are those of a New York evening.
#pragma once

#include <gtest/gtest.h>

#include "astro/coordinates.h"
#include "catalog/catalog_select.h"
#include "catalog/search.h"
#include "catalog/search_ports.h"
#include "catalog_files.h"
#include "tests/support/fake_ports.h"

namespace astel::testing {

using Names = std::vector<std::string>;

// The fixture is also the Searching window, recording what it shows.
class SearchTest : public ::testing::Test, public SearchWindow {
 protected:
  void Show(const std::string& caption) override {
    captions.push_back(caption);
    visible = true;
  }
  void SetProgress(const std::string& text) override { progress.push_back(text); }
  void Hide() override { visible = false; }

  void SetUp() override {
    state.files.installDir = state.files.catalogDirectory = Dir(dir);
    state.files.catalogFileName = "TEST.OBC";
    TimeState& t = state.time;
    t.roundedYear = 2000, t.day = 22, t.month = 11, t.year = 2026, t.gmtNextDay = true;
    t.hourText = "21", t.minuteText = "05", t.secondText = "09", t.gmtTimeText = "02:05";
    PlaceState& p = state.place;
    p.latitudeDegrees = 40, p.latitudeMinutes = 44.52, p.longitudeDegrees = 73;
    p.longitudeMinutes = 59.43, p.homeLongitude = 1.29;  // west
  }

  // Writes the current catalog file and opens it.
  void UseCatalog(const std::vector<std::string>& records, char kind = ' ',
                  const std::string& end = "\r\n") {
    const std::string name = state.files.catalogFileName;
    WriteCatalog(File(dir, name), records, kind, end);
    ASSERT_TRUE(OpenCatalog(state, Dir(dir), name));
  }

  // Queues the answers to the prompts, then runs the search.
  bool Simple(std::deque<std::string> answers) {
    dialogs.answers = std::move(answers);
    return SimpleSearch(state, ports);
  }
  bool Detailed(std::deque<std::string> answers) {
    dialogs.answers = std::move(answers);
    return DetailedSearch(state, ports);
  }

  // The object's Name1 without its padding.
  std::string Shown() const {
    return state.object.Name1.substr(0, state.object.Name1.find_last_not_of(' ') + 1);
  }

  std::string Matches() const { return ReadFile(File(dir, "MATCHES.TXT")); }

  // The shown object, then every further match until NextMatch says no more (at most 50).
  std::vector<std::string> ShownAndNextMatches() {
    std::vector<std::string> shown = {Shown()};
    while (shown.size() < 50 && NextMatch(state, ports))
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
  ScriptedDialogs dialogs;
  FakeEvents events;
  RecordingShell shell;
  CatalogPorts ports{dialogs, events, *this, shell};
  std::vector<std::string> captions, progress;
  bool visible = false;
};

}  // namespace astel::testing
