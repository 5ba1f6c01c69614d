// The main window's Date and Time buttons: chains of input boxes that leave real time for a
// fictitious moment (for planning), or go back to real time when the first question is cancelled.
// An out-of-range answer asks the same question again; there are no error messages.
#pragma once

#include "core/ports.h"
#include "core/shared_state.h"
#include "session/main_window.h"

namespace astel {

// DateButton: month, day of month, year (a 29 February asks for a leap year), then the shown
// object is recomputed for the new date.
void DateButtonClick(SharedState& state, Dialogs& dialogs, MainWindowLogic& window);

// TimeButton: hour, minutes, seconds. Cancel on the minutes or seconds is accepted as 0 with an
// empty text, as it always was.
void TimeButtonClick(SharedState& state, Dialogs& dialogs, MainWindowLogic& window);

// "JulianDate = " and the Julian date with five decimals: the title of the first question.
std::string JulianDateTitle(const TimeState& time);

}  // namespace astel
