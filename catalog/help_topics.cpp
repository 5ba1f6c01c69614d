#include "catalog/help_topics.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "core/text_format.h"

namespace astel {

namespace {

constexpr HelpTopic kTopics[] = {
    {"Add (button)",
     "Adds the object now shown to the end of the current catalog, after asking for "
     "confirmation. Use it after entering an object with the 'Object' button, so that it can be "
     "found by name later."},
    {"Altitude",
     "The angle of the object above the horizon, in degrees and minutes; negative values are "
     "below the horizon. It includes atmospheric refraction and follows the clock."},
    {"A.U.",
     "The astronomical unit, the mean distance between the Earth and the Sun, about 149.6 "
     "million km. The distances of the Sun, Moon and planets are shown in A.U."},
    {"Asteroids",
     "Small rocky bodies orbiting the Sun, most of them between Mars and Jupiter. The brightest, "
     "such as Ceres and Vesta, can be seen in binoculars; their changing positions come in "
     "Transient Catalogs."},
    {"Auxiliary Catalogs",
     "Any catalog file other than the default FULL.OBC, chosen with the 'Catalog' button. It "
     "can be one you created yourself with 'New Catalog' and filled with the 'Add' button, or "
     "one made with a text editor in the same fixed columns."},
    {"Azimuth",
     "The direction of the object along the horizon, in degrees measured from due north "
     "through east: north 0, east 90, south 180, west 270."},
    {"Best of the Sky (button)",
     "ASTEL+S will suggest the best objects for observing in small telescopes, based on your "
     "location and the time. First, any planets, then Messier objects, then NGC/IC objects, and "
     "finally Double Stars"},
    {"Catalog",
     "A plain text file with the extension .OBC holding one object per line: up to five names, "
     "the position, the magnitude and the epoch, in fixed columns. The default catalog is "
     "FULL.OBC in the program folder."},
    {"Catalog Epoch",
     "The year for which a catalog's coordinates are given, usually 2000. ASTEL+S precesses "
     "every position from its epoch to the current date before it is shown or sent to the "
     "telescope."},
    {"Catalog Search (simple)",
     "Performs a search that returns the first item in the current catalog for which one of its "
     "names matches the search name entered. Each object can have up to 5 names in the catalog, "
     "some of which may be blank. A single Wild Card Character '*' may be used at the beginning "
     "or in the middle of the string. Partial strings are automatically matched, for example "
     "'M1' also matches M10, M11, etc. Spaces are ignored, except for a single space at the end "
     "to disallow partial matches ('M1 ' matches only itself). Pressing the 'Next Match' button "
     "will allow you to find the second, third match, etc."},
    {"Catalog Search (detailed)",
     "Like the simple search, but also asks for a second name that the object must carry, a "
     "minimum altitude (0 to 89 degrees) and the faintest magnitude to accept (below 19). Only "
     "objects that are high enough now and bright enough are shown; Cancel skips a limit."},
    {"Clipboard",
     "Double-click the catalog name or one of the object's names on the main window to copy it "
     "to the clipboard, ready to paste into another program."},
    {"Color",
     "Click the program's title line to change the background colour of the main window. Night "
     "Vision switches to red colours for use at the telescope."},
    {"COM port",
     "The serial port the telescope is connected to, numbered 1 to 4. On Linux port n is the "
     "device named in the environment variable ASTEL_COMn, otherwise /dev/ttyUSB(n-1) when it "
     "exists, otherwise /dev/ttyS(n-1). Your user needs access to the device (usually the "
     "'dialout' group)."},
    {"Comets",
     "Icy bodies on long orbits that grow a coma and a tail near the Sun. Their positions change "
     "quickly, so they are followed with a Transient Catalog rather than the fixed catalog."},
    {"Date",
     "The date used for every computation. It follows the computer clock in real-time "
     "operation; click 'Date' to set another date, which leaves real-time operation."},
    {"Daylight Savings Time",
     "Summer time, when clocks run one hour ahead. ASTEL+S reads it from the computer's time "
     "zone setting and allows for it when converting local time to GMT."},
    {"Distance",
     "For the Sun, the Moon and the planets, the distance from the centre of the Earth in "
     "astronomical units (A.U.) at the time shown."},
    {"Elongation",
     "The angle between the Moon and the Sun as seen from the Earth. An evening elongation means "
     "the Moon is east of the Sun and seen after sunset; a morning elongation, before sunrise."},
    {"Geocentric Positions",
     "Positions as seen from the centre of the Earth. Catalog and planet positions are "
     "geocentric; for everything but the Moon the difference from your own place is far too "
     "small to matter."},
    {"GMT",
     "Greenwich Mean Time (Universal Time), the local time at longitude 0. ASTEL+S converts your "
     "local time to GMT with the time zone, and all positions are computed from it."},
    {"GOTO (button)",
     "Sends the position of the object shown to your GoTo telescope over the serial port, so "
     "that the telescope slews to it. Select the telescope type and port first with 'Scope'."},
    {"GOTO Scope Type",
     "The family of your computerised telescope: Celestron NexStar, the earlier NexStar and "
     "Tasco StarGuide protocols, or Meade LX200. Choose it with the 'Scope' button; it decides "
     "the commands sent over the serial port."},
    {"GPS Device",
     "A hand-held GPS receiver with an NMEA 0183 serial output (4800 baud). Through 'Load' "
     "ASTEL+S can take your latitude, longitude and the time from it and set the computer "
     "clock."},
    {"GPS Telescope",
     "Telescopes with a built-in GPS, such as Celestron GPS models and some Meade models, can "
     "give ASTEL+S your location and the time through 'Load'."},
    {"IC (Index Catalog) Object",
     "An object of the Index Catalogue, the two supplements to the NGC published in 1895 and "
     "1908. Search for them as 'IC' followed by the number, for example IC 434."},
    {"Latitude",
     "Your position north or south of the equator in degrees and minutes. It is kept in the "
     "location file and can be set by hand or from a GPS."},
    {"Load (button)",
     "Loads a saved location file (*.HOM) with its place, time zone, telescope and options, or "
     "takes the location and time from a GPS device or a GPS telescope."},
    {"Longitude",
     "Your position east or west of Greenwich in degrees and minutes. Together with the time it "
     "gives the local sidereal time."},
    {"Magnitude",
     "The brightness of an object: smaller numbers are brighter, and each step is about 2.5 "
     "times fainter. The faintest stars seen by eye under a dark sky are about magnitude 6; 99 "
     "in a catalog means unknown."},
    {"Messier Object",
     "One of the 110 bright nebulae, clusters and galaxies listed by Charles Messier in the 18th "
     "century, the classic targets for small telescopes. Search for them as M1 to M110."},
    {"Mouse Pointer (arrow)",
     "Resting the mouse pointer on a button or label shows a short tip about it. In Motor "
     "Control the mouse can also drive the telescope by dragging."},
    {"Next Match (button)",
     "Shows the next object that matches the current search, or the next 'Best of the Sky' "
     "suggestion. When there are no more, a message says so."},
    {"Night Vision",
     "Turns the program's windows to dark red so that your eyes stay adapted to the dark. Click "
     "it again to return to the normal colours."},
    {"NGC Object",
     "An object of the New General Catalogue of nebulae and star clusters (J. L. E. Dreyer, "
     "1888), which also lists many galaxies. Search for them as 'NGC' followed by the number, "
     "for example NGC 7009."},
    {"Observing Log",
     "Writes your notes about the object shown, with the date, time and place, to the file "
     "ASTELLOG.TXT in the program folder. When a script runs, its commands are logged there "
     "too."},
    {"Planet (scroll)",
     "The list of the Sun, the Moon and the planets. Click a name to show its position, "
     "distance, altitude and rise and set times for the current time."},
    {"Precession",
     "The slow wobble of the Earth's axis, which shifts the coordinates of every star by about "
     "50 arc-seconds a year. ASTEL+S carries catalog positions from their epoch to the current "
     "date."},
    {"Previous Match (button)",
     "Steps back to the previous object of the current search, without searching the catalog "
     "again."},
    {"Real-Time Operation",
     "The date and time follow the computer clock and the display is updated every second. "
     "Setting a date or time by hand leaves real-time operation; 'Back to Real Time' returns to "
     "it."},
    {"Refraction (atmospheric)",
     "The air bends starlight so that objects near the horizon appear higher than they are, by "
     "about half a degree at the horizon. The altitudes shown include this correction."},
    {"Save (button)",
     "Saves the current location, time zone, telescope and options in a location file (*.HOM) "
     "in the program folder; ASTEL.HOM is read at start-up."},
    {"Save Matches (button)",
     "Runs the current search to the end of the catalog and writes every matching object, with "
     "its altitude, azimuth, magnitude and position, to MATCHES.TXT in the program folder, then "
     "offers to show the list. After that the button opens the list directly."},
    {"Scripts",
     "Commands given on the command line, separated by ';', run one after another without "
     "questions: for example astel 'CAT=FULL.OBC;FIND=M31;GOTO=1'. Each command and its outcome "
     "is written to the observing log."},
    {"Sidereal Time",
     "The right ascension that is on your meridian now. An object transits, standing highest, "
     "when the sidereal time equals its right ascension."},
    {"Size",
     "The apparent size of an object in the sky, given in arc-minutes or arc-seconds. Large "
     "faint objects need low magnification and a dark sky."},
    {"SkyChart",
     "Opens the free planetarium program SkyChart (Cartes du Ciel), when it is installed and "
     "on the program path, with a chart centred on the object shown."},
    {"Star Names",
     "Stars are found by their proper names (Mizar), their Bayer letter and constellation "
     "(Gam Per, Alp* Lib), their Flamsteed number (61 Cyg) or their catalog numbers such as "
     "HR 2491."},
    {"Time",
     "The local time used for every computation. It follows the computer clock in real-time "
     "operation; click 'Time' to set another time."},
    {"Time Zone",
     "The difference between your local time and GMT in hours. ASTEL+S takes it from the "
     "computer's time zone setting unless the location file keeps its own."},
    {"Topocentric position",
     "The position as seen from your place on the Earth's surface rather than from its centre. "
     "It differs noticeably only for the Moon, by up to about one degree."},
    {"Transient Catalog",
     "Transient Catalogs contain hourly positions for a single object. ASTEL+S automatically "
     "loads the correct one. The catalog cannot be searched. Typically the object is a comet or "
     "asteroid of unusual interest. When the last position in a transient Catalog is outdated, "
     "the catalog should be deleted. Such catalogs are computed from the object's published "
     "orbital elements, for example with the transient_catalog tool that comes with ASTEL+S, and "
     "copied into the program folder."},
    {"Wild Card Character",
     "A single '*' in a search name stands for any run of characters: 'Alp* Lib' finds Alp1 Lib "
     "and Alp2 Lib, '*Cyg' finds every name containing Cyg. A double '**' forces a long-name "
     "search in catalogs that use long names."},
};

}  // namespace

std::span<const HelpTopic> HelpTopics() {
  return kTopics;
}

std::string HelpText(const std::string& title) {
  for (const HelpTopic& t : kTopics) {
    if (title == t.title) return t.text;
  }
  return "";
}

std::string DocumentationAddress(const SharedState& state) {
  std::string dir = state.files.installDir;
  if (!dir.empty() && dir.back() != '/') dir += '/';
  return dir + "ASTEL.HTM";
}

std::vector<std::string> HelpPages(const std::string& installDir) {
  std::vector<std::string> pages;
  std::error_code ec;
  for (const auto& entry : std::filesystem::directory_iterator(installDir, ec)) {
    const std::string name = entry.path().filename().string();
    const std::string upper = ToUpperLatin1(name);
    // The pattern "*.HTM*": any name with ".HTM" after its first character, in any case.
    const std::size_t dot = upper.find(".HTM", 1);
    if (dot != std::string::npos && entry.is_regular_file(ec)) {
      pages.push_back(name);
    }
  }
  std::sort(pages.begin(), pages.end());
  return pages;
}

}  // namespace astel
