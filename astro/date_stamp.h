// Fourteen-character date-time stamps "hhmmssMMDDYYYY" shifted by whole hours, minutes and seconds
// with calendar carries; used to move a clock reading between GMT and local time.
#pragma once

#include <string>
#include <string_view>

namespace astel {

// Month length under the program's leap rule: every fourth year, but not 2100.
int DaysInMonthOf(int month, int year);

std::string AddToStamp(std::string_view stamp, int hours, int minutes, int seconds);
std::string SubtractFromStamp(std::string_view stamp, int hours, int minutes, int seconds);

}  // namespace astel
