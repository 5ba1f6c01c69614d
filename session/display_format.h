// The texts of the main window's labels whose layout is the program's own choice.
#pragma once

#include <string>

#include "core/shared_state.h"

namespace astel {

std::string DateCaption(const TimeState& time, bool usDateOrder);
std::string TimeCaption(const TimeState& time);
std::string GmtCaption(const TimeState& time, const PlaceState& place);
std::string SiderealCaption(const TimeState& time);
std::string LatitudeCaption(const PlaceState& place);
std::string LongitudeCaption(const PlaceState& place);
std::string ScopeTypeCaption(const TelescopeState& telescope);
std::string RightAscensionCaption(const ObjectState& object);
std::string DeclinationCaption(const ObjectState& object);
std::string AltitudeCaption(const ObjectState& object);
std::string AzimuthCaption(const ObjectState& object);
std::string MagnitudeCaption(const ObjectState& object);

// The declination as "+dd° mm'" with the sign of -0 degrees kept.
std::string DeclinationText(const ObjectState& object);

}  // namespace astel
