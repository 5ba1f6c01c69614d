#include "session/main_window.h"

#include "astro/coordinates.h"
#include "astro/rise_transit_set.h"
#include "astro/solar_system.h"
#include "astro/time_scales.h"
#include "catalog/best_of_sky.h"
#include "catalog/catalog_select.h"
#include "catalog/transient_catalog.h"
#include "session/display_format.h"

namespace astel {

namespace {

constexpr const char* kBestOfToolTip =
    "Click to have ASTEL suggest the best objects to view right now in a small telescope";
constexpr const char* kBestOfDisabledToolTip =
    "This button is only valid when the default FULL catalog is used ";
constexpr const char* kNightVisionOnToolTip = "Click to return the screen to normal colors";
constexpr const char* kNightVisionOffToolTip = "Click to darken the screen for night vision";
constexpr int kMotorControlFamily = 1;  // the only family whose motors are driven

}  // namespace

bool HasShownObject(const SharedState& s) {
  return s.object.objectKind >= 0 || s.object.Name1.find_first_not_of(' ') != std::string::npos;
}

void MainWindowLogic::Load() {
  SharedState& s = state_;
  if (s.object.objectKind >= 0) UpdateSelectedBody(s);
  if (s.search.transientCatalog && s.object.objectKind < 0) ReloadTransientPosition(s, dialogs_);
  if (HasShownObject(s)) {
    ComputeAltAz(s);
    if (!s.time.riseSetCurrent) UpdateRiseTransitSet(s);
  }
  if (!BestOfSkyAvailable(s.files.catalogFileName)) s.form.nextMatchCaption = "Next Match";
  s.form.timer1Enabled = true;
  FillDisplay();
}

void MainWindowLogic::Tick() {
  ReadClock(state_, clock_);
  UpdateTimeScales(state_);
  UpdateZoneLabel(state_, clock_);
  Load();
}

void MainWindowLogic::BackToRealTime() {
  SharedState& s = state_;
  s.time.realTimeMode = true;
  s.place.gmtOffset = CurrentZoneOffset(s, clock_);
  ReadClock(s, clock_);
  UpdateTimeScales(s);
  UpdateZoneLabel(s, clock_);
  s.time.riseSetCurrent = false;
  if (s.object.objectKind >= 0) SelectBody(s, s.object.objectKind);
  Load();
}

void MainWindowLogic::SelectSolarSystemBody(int kind) {
  if (kind < 0 || kind >= kBodyCount) return;
  SelectBody(state_, kind);
  state_.search.foundState = 1;  // a body counts as a selected object, for the log and GoTo
  Load();
}

void MainWindowLogic::FillDisplay() {
  const SharedState& s = state_;
  MainDisplay& d = display_;
  d.windowTitle = "ASTEL+S - Observing Assistant and GoTo Telescope Control";
  d.label1 = std::string("ASTEL+S  Version ") + kProgramVersion;

  d.date = DateCaption(s.time, s.place.usDateOrder);
  d.time = TimeCaption(s.time);
  d.gmt = GmtCaption(s.time, s.place);
  d.siderealTime = SiderealCaption(s.time);
  d.latitude = LatitudeCaption(s.place);
  d.longitude = LongitudeCaption(s.place);
  d.scopeType = ScopeTypeCaption(s.telescope);

  d.catalog = CatalogLabel(s.files.catalogFileName);
  d.catalogPath = s.form.catalogPath;
  d.catalogNote = s.form.catalogNote;
  d.simpleSearchCaption = s.form.simpleSearchCaption;
  d.nextMatchCaption = s.form.nextMatchCaption;
  d.writeMatchCaption = s.form.writeMatchCaption;
  d.writeMatchToolTip = s.form.writeMatchToolTip;
  d.searchButtonsEnabled = s.form.searchButtonsEnabled;
  d.bestOfEnabled = BestOfSkyAvailable(s.files.catalogFileName);
  d.bestOfToolTip = d.bestOfEnabled ? kBestOfToolTip : kBestOfDisabledToolTip;

  const ObjectState& o = s.object;
  const bool shown = HasShownObject(s);
  d.name1 = o.Name1;
  d.name2 = o.Name2;
  d.name3 = o.Name3;
  d.name4 = o.Name4;
  d.name5 = o.Name5;
  d.magnitude = shown ? MagnitudeCaption(o) : "Mag";
  d.rightAsc = shown ? RightAscensionCaption(o) : "RA";
  d.declination = shown ? DeclinationCaption(o) : "Dec";
  d.altitude = shown ? AltitudeCaption(o) : "Alt";
  d.azimuth = shown ? AzimuthCaption(o) : "Az";
  d.riseTime = shown ? o.riseLabel + o.riseText : "RiseTime = ";
  d.transitTime = shown ? o.transitLabel + o.transitText : "TransitTime = ";
  d.setTime = shown ? o.setLabel + o.setText : "SetTime = ";
  d.list1Index = s.form.list1Index;

  d.motorControlVisible = s.telescope.scopeType == kMotorControlFamily;
  d.commandButtonsEnabled = s.form.commandButtonsEnabled;
  d.nightVisionToolTip = s.display.nightVision ? kNightVisionOnToolTip : kNightVisionOffToolTip;
  d.general = s.form.generalHint;
  d.status = s.form.statusText;
  d.backColor = s.display.backColor;
  d.foreColor = s.display.foreColor;
  d.accentColor = s.display.accentColor;
  d.timer1Enabled = s.form.timer1Enabled;
}

}  // namespace astel
