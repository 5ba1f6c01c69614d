// Everything the main window shows, as plain texts and flags: the window copies these into its
// controls after every tick, so every caption is computed (and tested) without a window.
#pragma once

#include <string>

#include "core/shared_state.h"

namespace astel {

inline constexpr const char* kProgramVersion = "6.12";

struct MainDisplay {
  std::string windowTitle;
  std::string label1;  // title and version

  // Place and time.
  std::string date, time, gmt, siderealTime;
  std::string latitude, longitude;
  std::string scopeType;

  // Catalog and search.
  std::string catalog, catalogPath, catalogNote;
  std::string simpleSearchCaption, nextMatchCaption;
  std::string writeMatchCaption, writeMatchToolTip;
  bool searchButtonsEnabled = true;
  bool bestOfEnabled = false;
  std::string bestOfToolTip;

  // The shown object.
  std::string name1, name2, name3, name4, name5;
  std::string magnitude;
  std::string rightAsc, declination, altitude, azimuth;
  std::string riseTime, transitTime, setTime;
  int list1Index = -1;

  // Telescope and options.
  bool motorControlVisible = false;
  bool commandButtonsEnabled = true;
  std::string nightVisionToolTip;
  std::string general, status;

  Colour backColor = 192, foreColor = 65535, accentColor = 255;
  bool timer1Enabled = false;
};

}  // namespace astel
