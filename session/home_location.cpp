#include "session/home_location.h"

#include "astro/time_scales.h"
#include "core/desktop_shortcut.h"
#include "core/home_file.h"
#include "core/install_dir.h"
#include "core/location.h"
#include "scope/scope_models.h"

namespace astel {

namespace {

constexpr Colour kOldDefaultBackground = 128;
constexpr Colour kWhite = 16777215;

void ApplyColours(SharedState& s, const HomeFileRecord& r) {
  Colour back = static_cast<Colour>(r.backColor), fore = static_cast<Colour>(r.foreColor);
  if (back == kOldDefaultBackground) {
    back = 192;
    fore = 65535;
  }
  DisplayState& d = s.display;
  if (d.nightVision) {
    d.dayBackColor = back;  // put back when night vision ends
    d.dayForeColor = fore;
    return;
  }
  d.backColor = back;
  d.foreColor = fore;
  if (d.backColor == kWhite) d.accentColor = kWhite;
}

}  // namespace

std::string HomeFileUnreadableMessage(const SharedState& s) {
  return "Unable to read Home Location file " + s.files.installDir + s.files.homeFileName +
         "\n\rDid you extract that file into the install directory?";
}

std::optional<double> ReadHomeFile(SharedState& s, HomeFileContext& context) {
  s.files.installDir = WithTrailingSlash(s.files.installDir);
  std::optional<HomeFileRecord> record = LoadHomeFile(s.files.installDir + s.files.homeFileName);
  if (!record) return std::nullopt;
  const HomeFileRecord& r = *record;

  s.place.homeLatitude = r.homeLatitude;
  s.place.homeLongitude = r.homeLongitude;
  s.place.gmtOffset = r.gmtOffset;
  s.place.useStoredGmtOffset = r.useStoredGmtOffset;
  s.place.locationOption = r.locationOption;
  s.telescope.scopeCode = r.scopeCode;
  s.telescope.comPort = r.comPort;
  s.telescope.gpsLocationOnly = r.gpsLocationOnly;
  s.program.homeFileVersion = r.version;
  s.telescope.scopeType = static_cast<std::int16_t>(ScopeTypeFromCode(r.scopeCode));

  if (r.IsOldLayout()) {
    context.windows.OpenScopeSelection();
    context.dialogs.MessageBox(
        "Make telescope selection and Com port selection. Then save options to avoid seeing "
        "this again");
    s.telescope.scopeHasGps = false;
    CreateDesktopShortcut(context.desktopDir, context.executablePath, s.files.installDir,
                          context.dialogs);
  } else {
    ApplyStoredScopeCode(s.telescope);
  }
  s.time.firstStartDate = r.firstStartDate;
  // Never cleared during a run: an old file's changes stay to be saved.
  if (r.version < kHomeFileVersion) s.program.configChanged = true;

  DeriveLocationFields(s.place);
  if (s.place.useStoredGmtOffset) {
    s.place.zoneBiasHours = s.place.gmtOffset;
  } else {
    s.place.gmtOffset = CurrentZoneOffset(s, context.clock);
  }
  ReadClock(s, context.clock);
  UpdateTimeScales(s);
  s.time.riseSetCurrent = false;

  ApplyColours(s, r);
  s.place.usDateOrder = ComputeUsDateOrder(s.place);
  s.form.timer1Enabled = true;
  return r.firstStartDate;
}

bool WriteHomeFile(SharedState& s, Dialogs& dialogs) {
  s.files.homeFileName = HomeFileNameWithExtension(s.files.homeFileName);
  s.files.installDir = WithTrailingSlash(s.files.installDir);
  const std::string path = s.files.installDir + s.files.homeFileName;
  std::string error = SaveHomeFile(path, HomeFileRecordFromState(s));
  if (!error.empty()) {
    dialogs.MessageBox("Unable to write Home Location file " + path + "\n\r" + error);
    return false;
  }
  return true;
}

void SaveButton(SharedState& s, Dialogs& dialogs) {
  std::string name =
      dialogs.InputBox("Enter new file name or click 'OK' to keep the name unchanged",
                       "Save Parameters in Home File", s.files.homeFileName);
  if (name.empty()) return;
  s.files.homeFileName = name;
  WriteHomeFile(s, dialogs);
}

void OfferSaveOnExit(SharedState& s, Dialogs& dialogs) {
  if (!s.program.configChanged) return;
  // Line feed before carriage return, as the message has always had it.
  const std::string prompt = s.program.homeFileVersion < kHomeFileVersion
                                 ? "ASTEL has been updated, \n\rOld Location File Should be Saved."
                                 : "Do you want to save current configuration changes?";
  std::string name = dialogs.InputBox(prompt, "Save Parameters in Home File", s.files.homeFileName);
  if (name.empty()) return;
  s.files.homeFileName = name;
  WriteHomeFile(s, dialogs);
}

bool LoadSelectedHomeFile(SharedState& s, HomeFileContext& context,
                          const std::string& selectedName) {
  if (selectedName.empty()) {
    context.dialogs.MessageBox("No File Selected!");
    return false;
  }
  const std::string previousName = s.files.homeFileName;
  s.files.homeFileName = selectedName;
  std::optional<double> firstStart = ReadHomeFile(s, context);
  if (!firstStart) {
    context.dialogs.MessageBox(HomeFileUnreadableMessage(s));
    s.files.homeFileName = previousName;
    return false;
  }
  if (*firstStart < kFirstStartUnset) {
    s.time.firstStartDate = s.time.julianDate;
    WriteHomeFile(s, context.dialogs);
  }
  return true;
}

}  // namespace astel
