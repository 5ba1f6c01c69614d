#include "catalog/catalog_select.h"

#include "catalog/best_of_sky.h"
#include "catalog/catalog_reader.h"
#include "catalog/catalog_record.h"
#include "catalog/search.h"
#include "catalog/transient_catalog.h"
#include "core/file_write.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr std::size_t kCatalogLabelWidth = 22;

}  // namespace

std::string CatalogLabel(const std::string& fileName) {
  return ToLowerLatin1(fileName).substr(0, kCatalogLabelWidth);
}

bool OpenCatalog(SharedState& state, const std::string& directory, const std::string& fileName) {
  const std::string path = CatalogPath(directory, fileName);
  std::string line;
  if (fileName.empty() || !ReadFirstLine(path, line)) return false;
  const CatalogHeader header = ParseHeader(line);

  state.files.catalogDirectory = directory;
  state.files.catalogFileName = fileName;
  SearchState& q = state.search;
  CloseSearch(q);
  q.catalogDescription = header.text;
  q.catalogHasLongNames = header.longNames;
  q.transientCatalog = header.transient;
  q.transientReported = false;
  q.longNameSearch = false;

  MainWindowControls& form = state.form;
  form.catalogNote = header.longNames   ? kLongNameCaption
                     : header.transient ? kTransientCaption
                                        : "";
  if (!header.transient) {  // a transient catalog leaves the search buttons as they were
    form.searchButtonsEnabled = true;
    form.simpleSearchCaption = "Simple Search";
  }
  form.catalogPath = "Catalog = " + path;
  return true;
}

bool SelectCatalogFile(SharedState& state, Dialogs& dialogs, const std::string& directory,
                       const std::string& fileName) {
  if (OpenCatalog(state, directory, fileName)) return true;
  dialogs.MessageBox("Cannot Open Catalog " + fileName);
  return false;
}

bool OpenDefaultCatalog(SharedState& state, Dialogs& dialogs, const std::string& directory) {
  return SelectCatalogFile(state, dialogs, directory, kDefaultCatalogName);
}

DefaultCatalogButton DefaultCatalogButtonState(const SharedState& state) {
  if (ToUpperLatin1(state.files.catalogFileName) == kDefaultCatalogName) return {false, " "};
  return {true, "Click to return to default catalog 'full.obc'"};
}

std::string WithCatalogExtension(const std::string& name) {
  if (name.size() >= 4 && ToUpperLatin1(name.substr(name.size() - 4)) == ".OBC") return name;
  const std::size_t dot = name.rfind('.');
  const std::size_t slash = name.rfind('/');
  if (dot != std::string::npos && (slash == std::string::npos || dot > slash))
    return name.substr(0, dot + 1) + "OBC";
  return name + ".OBC";
}

bool NewCatalog(SharedState& state, Dialogs& dialogs, const std::string& directory) {
  std::string name =
      dialogs.InputBox("Enter new Catalog file name or click 'OK' to keep the old one",
                       "Create New Catalog File", state.files.catalogFileName);
  if (name.empty()) return false;
  name = WithCatalogExtension(name);
  const std::string path = CatalogPath(directory, name);
  std::string existing;
  if (ReadFirstLine(path, existing)) return OpenCatalog(state, directory, name);

  std::string title = "Catalog Epoch";
  int epoch = 0;
  for (;;) {
    const std::string answer = dialogs.InputBox("Specify Catalog Epoch (1900-2100)", title, "");
    if (answer.empty()) return false;
    const double year = LeadingNumber(answer);
    if (StartsWithNumber(answer) && year >= 1900 && year <= 2100) {
      epoch = static_cast<int>(year);
      break;
    }
    title = "Set Catalog Epoch";
  }
  std::string base = name.substr(0, name.rfind('.'));
  if (const std::size_t slash = base.rfind('/'); slash != std::string::npos)
    base.erase(0, slash + 1);
  const std::string header =
      ComposeHeader(ToUpperLatin1(base), epoch, "ASTEL+S catalog, epoch " + std::to_string(epoch)) +
      "\r\n";
  if (!ReplaceFile(path, header).empty()) {
    dialogs.MessageBox("Cannot Create Catalog " + path);
    return false;
  }
  return OpenCatalog(state, directory, name);
}

}  // namespace astel
