// Catalog scans: a search that matches nothing, beside the bare line count of the same file read
// the same way (the floor; target: within 5 times it), and Save Matches of "*" over the whole
// catalog (every record accepted, placed and written; target: at most 100 ms). Each runs on the
// shipped FULL.OBC when it is there and on a synthetic catalog of 23,000 records.
#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "astro/time_scales.h"
#include "bench/quiet_ports.h"
#include "catalog/catalog_reader.h"
#include "catalog/catalog_record.h"
#include "catalog/catalog_select.h"
#include "catalog/matches_file.h"
#include "catalog/search.h"
#include "core/location.h"
#include "core/text_format.h"

namespace astel {
namespace {

constexpr int kSyntheticRecords = 23000;

using bench::QuietDialogs;
using bench::QuietEvents;
class QuietWindow : public SearchWindow {
 public:
  void Show(const std::string&) override {}
  void SetProgress(const std::string&) override {}
  void Hide() override {}
};
class QuietShell : public Shell {
 public:
  bool OpenDocument(const std::string&, const std::string&) override { return true; }
  bool StartProgram(const std::string&, const std::string&) override { return true; }
};

// Every prompt answered at once and nothing drawn, so only the scan is timed.
struct QuietPorts {
  QuietDialogs dialogs;
  QuietEvents events;
  QuietWindow window;
  QuietShell shell;
  CatalogPorts ports{dialogs, events, window, shell};
};

// A folder holding the catalog under test and the matches file it writes.
struct Workspace {
  std::string dir, file;
  Workspace(const std::string& source) {
    std::string pattern = (std::filesystem::temp_directory_path() / "astel_benchXXXXXX").string();
    dir = std::string(::mkdtemp(pattern.data())) + "/";
    file = "BENCH.OBC";
    if (source.empty()) {
      std::ofstream out(dir + file, std::ios::binary);
      out << ComposeHeader("BENCH", 2000, "synthetic") << "\r\n";
      for (int i = 0; i < kSyntheticRecords; ++i) {
        RecordFields f;
        f.names = {"NGC " + std::to_string(i), "IC " + std::to_string(i % 5000), "Anonymous",
                   "Constellatn", "galaxy"};
        const double ra = 24.0 * i / kSyntheticRecords, dec = -80 + 160.0 * (i % 997) / 997;
        f.raHours = static_cast<int>(ra);
        f.raMinutes = (ra - f.raHours) * 60;
        f.decSign = dec < 0 ? -1 : 1;
        f.decDegrees = static_cast<int>(dec);
        f.decMinutes = std::abs(dec - f.decDegrees) * 60;
        f.magnitudeText = FormatFixed(5 + (i % 130) / 10.0, "0.00");
        out << ComposeRecord(f) << "\r\n";
      }
    } else {
      std::filesystem::copy_file(source, dir + file);
    }
  }
  ~Workspace() {
    std::error_code ec;
    std::filesystem::remove_all(dir, ec);
  }
};

std::string FullCatalog() {
  const std::string path = std::string(ASTEL_SOURCE_DATA_DIR) + "/FULL.OBC";
  return std::filesystem::exists(path) ? path : "";
}

SharedState Observer(const Workspace& w) {
  SharedState s;
  s.files.installDir = w.dir;
  SetHomeLatitude(s.place, 40.75);
  SetHomeLongitude(s.place, 74.0);
  s.place.gmtOffset = 5;
  FillDateTables(s.time);
  s.time.year = 2026, s.time.month = 11, s.time.day = 22, s.time.hour = 21;
  s.time.hourText = "21", s.time.minuteText = "00", s.time.secondText = "00";
  UpdateTimeScales(s);
  OpenCatalog(s, w.dir, w.file);
  return s;
}

void RawLineCount(benchmark::State& bench, const std::string& source) {
  Workspace w(source);
  std::string record;
  std::int64_t lines = 0;
  for (auto _ : bench) {
    CatalogReader reader;
    reader.Open(w.dir + w.file);
    lines = 0;
    while (reader.Next(record))
      ++lines;
    benchmark::DoNotOptimize(lines);
  }
  bench.counters["lines"] = static_cast<double>(lines);
}

void ScanNoMatch(benchmark::State& bench, const std::string& source) {
  Workspace w(source);
  SharedState s = Observer(w);
  QuietPorts quiet;
  CatalogPorts& ports = quiet.ports;
  SearchRequest request;
  request.text = "Zzyzx Qq";
  for (auto _ : bench)
    benchmark::DoNotOptimize(StartSearch(s, ports, request));
  bench.counters["records"] = s.search.recordsRead;
}

void SaveMatchesOfEverything(benchmark::State& bench, const std::string& source) {
  Workspace w(source);
  SharedState s = Observer(w);
  QuietPorts quiet;
  CatalogPorts& ports = quiet.ports;
  SearchRequest request;
  request.text = "*";
  for (auto _ : bench) {
    StartSearch(s, ports, request);
    WriteMatchButtonClick(s, ports);
  }
  bench.counters["matches"] = s.search.matchCount;
}

void RegisterAll() {
  struct Source {
    const char* label;
    std::string path;
  };
  std::vector<Source> sources = {{"synthetic23000", ""}};
  if (!FullCatalog().empty()) sources.push_back({"FULL.OBC", FullCatalog()});
  for (const Source& src : sources) {
    const std::string path = src.path;
    benchmark::RegisterBenchmark(("RawLineCount/" + std::string(src.label)).c_str(),
                                 [path](benchmark::State& b) { RawLineCount(b, path); })
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("ScanNoMatch/" + std::string(src.label)).c_str(),
                                 [path](benchmark::State& b) { ScanNoMatch(b, path); })
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark(("SaveMatchesOfEverything/" + std::string(src.label)).c_str(),
                                 [path](benchmark::State& b) { SaveMatchesOfEverything(b, path); })
        ->Unit(benchmark::kMillisecond);
  }
}

}  // namespace
}  // namespace astel

int main(int argc, char** argv) {
  astel::RegisterAll();
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  return 0;
}
