// The one set of program-wide values. main() owns the only instance and passes it by reference;
// every procedure of the program reads and writes the names below. Booleans are bool in memory;
// the 16-bit -1/0 form lives only in the home file.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace astel {

inline constexpr int kMaxScriptLines = 25;
inline constexpr char kDegreeSign = '\xB0';  // Latin-1 degree sign, byte 176

// Colours are 0x00BBGGRR values.
using Colour = std::uint32_t;

// Files and folders. Folders end in "/" once the first home-file read has run.
struct FileState {
  std::string homeFileName = "ASTEL.HOM";
  std::string catalogFileName = "FULL.OBC";
  std::string matchesFileName = "MATCHES.TXT";
  std::string logFileName = "ASTELLOG.TXT";
  std::string installDir;
  std::string catalogDirectory;
  std::string skyChartDir;
  bool skyChartInstalled = false;
};

// The observer's place and time zone. Latitude positive north, longitude positive west.
struct PlaceState {
  double homeLatitude = 0;   // radians
  double homeLongitude = 0;  // radians
  int latitudeDegrees = 0;   // whole degrees, signed
  double latitudeMinutes = 0;
  int latitudeSign = 1;  // -1 only when latitudeDegrees is 0 and the latitude is negative
  std::string latitudeSignText;
  int longitudeDegrees = 0;
  double longitudeMinutes = 0;
  int longitudeSign = 1;
  std::string longitudeSignText;
  double gmtOffset = 0;  // hours added to local time to give GMT
  bool useStoredGmtOffset = false;
  double zoneBiasHours = 0;  // standard offset of the computer's zone, positive west
  bool locationOption = false;
  bool usDateOrder = false;
};

// The displayed moment and the time scales derived from it.
struct TimeState {
  int day = 1, month = 1, year = 2000;
  int hour = 0, minute = 0;
  double second = 0;
  std::string dayText = "01", monthText = "01", yearText = "2000";
  std::string hourText = "00", minuteText = "00", secondText = "00";
  bool realTimeMode = true;
  bool riseSetCurrent = false;
  double gmtHour = 0;  // fractional for half-hour zones
  std::string gmtTimeText = "00:00";
  std::string gmtDaySign = " ";
  bool gmtNextDay = false, gmtPrevDay = false;
  int roundedYear = 2000;
  bool isLeapYear = false;
  double julianDate = 0;
  double localSiderealTime = 0;  // hours, [0, 24)
  int lstHours = 0, lstMinutes = 0, lstSeconds = 0;
  std::string zoneLetter1 = "U", zoneLetter2 = "N", zoneLetter3 = "K";
  double firstStartDate = 0;  // Julian date; below 1000000 means never set
  // Indexed by month 1..12; entry 0 is unused.
  std::array<std::int16_t, 13> daysBeforeMonth{};
  std::array<std::int16_t, 13> daysInMonth{};
};

// The telescope and the serial port it hangs on.
struct TelescopeState {
  int scopeCode = 0;           // family * 100 + model; 10000 = no GoTo telescope
  std::int16_t scopeType = 0;  // family 0..4
  int comPort = 1;
  bool scopeHasGps = false;
  bool gpsLocationOnly = false;
  bool scopeNoDstShift = false;
  bool scopeLoadEnabled = false;
  bool positionFromScope = false;  // the shown position was read back from the telescope
};

// Colours of our windows and the night-vision tables.
struct DisplayState {
  Colour backColor = 192;
  Colour foreColor = 65535;
  Colour accentColor = 255;
  bool nightVision = false;
  std::array<Colour, 26> savedSysColors{};
  std::array<int, 26> sysColorIndex{};
  std::array<Colour, 25> nightColors{};
  Colour dayForeColor = 65535, dayBackColor = 192, dayAccentColor = 255;
};

// The shown (selected) object and everything computed for it.
struct ObjectState {
  std::string Name1, Name2, Name3, Name4, Name5;
  int objRaHours = 0;
  double objRaMinutes = 0;
  int objDecDegrees = 0;
  double objDecMinutes = 0;
  int objDecSign = 1;  // the sign to use when objDecDegrees is 0
  std::string magnitudeText;
  double magnitude = 99;
  double sourceEpoch = 2000, targetEpoch = 2000;  // years
  int objectKind = -1;  // -1 catalog object, 0 Sun, 1 Mercury, 2 Venus, 3 Moon, 4 Mars, ... 9 Pluto
  double distanceAu = 0;  // Sun, Moon and planets

  // Horizontal coordinates.
  double altitude = 0, altitudeCopy = 0, altitudeMinutes = 0;
  std::string altitudeDegText = " 0", altitudeMinText = " 0";
  double azimuth = 0, azimuthMinutes = 0;
  double refraction = 0;  // arc-minutes

  // Rise, transit and set.
  std::string riseText, riseLabel = "RiseTime = ";
  std::string transitText, transitLabel = "TransitTime = ";
  std::string setText, setLabel = "SetTime = ";

  // Moon phase.
  double moonLongitude = 0, sunLongitude = 0;  // ecliptic, degrees
  std::string moonPhaseName = "        ";
  std::string elongationText = "            ";
  std::string elongationDegreesText, elongationLabel;
};

// The position records of the open transient catalog with their GMT Julian dates, as last read;
// the file's size and modification time tell whether it must be read again.
struct TransientRecords {
  std::string path;
  std::int64_t modified = 0;
  std::uintmax_t size = 0;
  std::vector<std::pair<double, std::string>> byTime;
};

// The catalog search and its match history.
struct SearchState {
  std::string searchText, lastSearchText;
  std::string secondName, lastSecondName;
  float minAltitude = -90;
  double faintestMagnitude = 100;
  bool longNameSearch = false;
  bool catalogHasLongNames = false;
  bool transientCatalog = false;
  bool bestOfSkyMode = false;
  bool secondPassPending = false;
  bool savingMatches = false;
  bool catalogOpen = false;
  bool endOfCatalog = false;
  int foundState = 0;  // 0 nothing found, 1 a match is shown, 2 a record was just accepted
  std::int32_t recordsRead = 0;
  int progressCounter = 0;
  bool cancelRequested = false;
  std::vector<std::string> matchHistory = std::vector<std::string>(25);
  int matchCount = 0, matchIndex = 0;
  std::string catalogDescription;     // header line of the open catalog
  std::int64_t catalogOffset = 0;     // byte offset after the last record read, while catalogOpen
  bool matchesFileComplete = false;   // the scan reached the end: WriteMatchButton views the file
  bool transientReported = false;     // the "no positions" message was shown for this catalog
  TransientRecords transientRecords;  // so that the tick reads the file only when it changes
};

// The command-line script.
struct ScriptState {
  bool scriptMode = false;
  std::array<std::string, kMaxScriptLines + 1> scriptLines{};  // index 1..25
  std::int16_t scriptLineIndex = 0, scriptLineCount = 0;
  bool scriptRunning = false;
  std::int16_t commandStatus = 0;  // 0 running, 1 exit time reached, 2 the command failed
  bool exitTimeSet = false;
  std::int16_t exitHour = 0, exitMinute = 0;
  std::int16_t waitDay = 0;    // DATE: the day of month on which the next WAIT ends; 0 none
  bool stopRequested = false;  // the window is closing: a WAIT or SLEEP gives up
  std::string message;
};

// Main-window controls whose captions and states other procedures set.
struct MainWindowControls {
  std::string generalHint;  // the General label
  std::string catalogNote;  // long-name or transient caption
  std::string catalogPath;  // "Catalog = " + path
  std::string statusText;   // "Processing Command..." while a script runs
  std::string simpleSearchCaption = "Simple Search";
  std::string nextMatchCaption = "Next Match";
  std::string writeMatchCaption = "Save Matches";
  std::string writeMatchToolTip =
      "Save all matches to a text file, and go to the final matching object";
  bool searchButtonsEnabled = true;
  bool commandButtonsEnabled = true;  // off while the motors run
  bool timer1Enabled = false;
  int list1Index = -1;  // selected Solar System body, -1 none
};

struct ProgramState {
  double homeFileVersion = 0;
  bool configChanged = false;
  std::string lastLoggedName;
};

struct SharedState {
  FileState files;
  PlaceState place;
  TimeState time;
  TelescopeState telescope;
  DisplayState display;
  ObjectState object;
  SearchState search;
  ScriptState script;
  MainWindowControls form;
  ProgramState program;
};

}  // namespace astel
