#include "astro/rise_transit_set.h"

#include <algorithm>
#include <cmath>

#include "astro/coordinates.h"
#include "core/text_format.h"

namespace astel {

namespace {

constexpr int kSunKind = 0;
constexpr int kMoonKind = 3;

bool IsSunOrMoon(int kind) {
  return kind == kSunKind || kind == kMoonKind;
}

// Hour angle at rising or setting, in hours. The first term is deliberately left undivided by
// sin p * sin c (exact only at a zenith distance of 90 degrees); the program has always used it so.
double HorizonHourAngleHours(const ObjectState& o, double p, double c) {
  // 34.4' of refraction, plus 15' for the upper limb of the Sun and the Moon.
  const double z0 = (IsSunOrMoon(o.objectKind) ? 90.82333 : 90.57333) / kDegreesPerRadian;
  double cosH = std::cos(z0) - (std::cos(p) * std::cos(c)) / (std::sin(p) * std::sin(c));
  cosH = std::isnan(cosH) ? 0 : std::clamp(cosH, -1.0, 1.0);
  double h = kPi / 2;
  if (cosH != 0) {
    h = std::atan(std::fabs(std::sqrt(1 - cosH * cosH) / cosH));
    if (cosH < 0) h = kPi - h;
  }
  return h * kDegreesPerRadian / 15;
}

// Sidereal hours to clock hours; the Moon runs late by about 50 minutes a day.
double SiderealToClockHours(const ObjectState& o, double d) {
  if (o.objectKind == kMoonKind) return d >= 0 ? 1.0366 * d : d + 0.0366 * (d + 24);
  return 0.9973 * d;
}

double ClockHoursNow(const TimeState& t) {
  return LeadingNumber(t.hourText) + LeadingNumber(t.minuteText) / 60 +
         LeadingNumber(t.secondText) / 3600;
}

double RightAscensionHours(const ObjectState& o) {
  return o.objRaHours + o.objRaMinutes / 60;
}

// "hh:mm" plus the day marker; the minutes are the whole minutes of the fraction.
std::string WholeMinuteTime(double hours, const std::string& marker) {
  const double whole = std::floor(hours);
  return FormatFixed(whole, "00") + ":" + FormatFixed(std::floor(60 * (hours - whole)), "00") +
         marker;
}

// "hh:mm" plus the day marker, the minutes rounded; a rounded 60 carries into the hour.
std::string RoundedMinuteTime(double hours, const std::string& marker) {
  long total = std::lround(hours * 60);
  total %= 1440;
  return FormatFixed(static_cast<double>(total / 60), "00") + ":" +
         FormatFixed(static_cast<double>(total % 60), "00") + marker;
}

}  // namespace

void UpdateRiseTransitSet(SharedState& state) {
  ObjectState& o = state.object;
  o.riseText.clear();
  o.transitText.clear();
  o.setText.clear();
  state.time.riseSetCurrent = true;

  const double dec = ObjectDeclinationDegrees(o) / kDegreesPerRadian;
  const double p = kPi / 2 - dec;
  const double c = kPi / 2 - state.place.homeLatitude;
  const double phi = state.place.homeLatitude;

  // North of the equator an object within phi of the north pole never sets and one within phi
  // of the south pole never rises. South of it the same holds with the poles exchanged: the
  // distance from the south pole is pi - p and the latitude's size is -phi.
  bool alwaysUp, neverRises;
  if (phi >= 0) {
    alwaysUp = p < phi;
    neverRises = !alwaysUp && kPi - phi < p;
  } else {
    alwaysUp = kPi - p < -phi;
    neverRises = !alwaysUp && p < -phi;
  }
  if (alwaysUp) {
    o.riseText = "Always Up";
    o.setText = "Never";
    o.riseLabel = "RiseTime = ";
    o.transitLabel = "TransitTime = ";
    o.setLabel = "SetTime = ";
  } else if (neverRises) {
    o.riseText = "Never Rises";
    o.riseLabel = "RiseTime = ";
    o.setText = "Never";
    o.transitLabel = "   ";
    o.setLabel = "SetTime = ";
  }

  if (!alwaysUp && !neverRises) {
    ComputeRise(state, p, c);
    ComputeTransit(state);
  }
  if (o.setText != "Never") ComputeSet(state, p, c);
}

void ComputeRise(SharedState& state, double p, double c) {
  ObjectState& o = state.object;
  const double lst = state.time.localSiderealTime;
  double r = RightAscensionHours(o) - HorizonHourAngleHours(o, p, c);
  if (r < 0) r += 24;
  const double t = ClockHoursNow(state.time);
  std::string marker = "  ";
  double riseTime;
  if (o.altitudeCopy >= 0) {
    const double d = SiderealToClockHours(o, lst - r);
    riseTime = t - d;
    o.riseLabel = "Rose At = ";
    if (riseTime >= 24) riseTime -= 24;
    if (riseTime < 0) {
      riseTime += 24;
      marker = " -";
    }
    if (riseTime > t + 0.01) marker = " -";  // it rose on the previous day
  } else {
    const double d = SiderealToClockHours(o, r - lst);
    riseTime = t + d;
    o.riseLabel = "NextRise = ";
    if (riseTime >= 24) {
      riseTime -= 24;
      marker = " +";
    }
    if (riseTime < 0) riseTime += 24;
    if (riseTime < t) marker = " +";  // it rises on the next day
  }
  o.riseText = WholeMinuteTime(riseTime, marker);
}

void ComputeTransit(SharedState& state) {
  ObjectState& o = state.object;
  const double t = ClockHoursNow(state.time);
  std::string marker = "  ";
  double d = RightAscensionHours(o) - state.time.localSiderealTime;
  if (d < -12) d += 24;
  if (d > 12) d -= 24;
  d = (o.objectKind == kMoonKind && d >= 0) ? 1.0366 * d : 0.9973 * d;
  o.transitLabel = d >= 0 ? "NextTransit = " : "LastTransit = ";
  double transitTime = t + d;
  if (transitTime >= 24) {
    transitTime -= 24;
    marker = " +";
  }
  if (transitTime < 0) {
    transitTime += 24;
    marker = " -";
  }
  o.transitText = RoundedMinuteTime(transitTime, marker);
}

void ComputeSet(SharedState& state, double p, double c) {
  ObjectState& o = state.object;
  const double lst = state.time.localSiderealTime;
  double s = RightAscensionHours(o) + HorizonHourAngleHours(o, p, c);
  if (s >= 24) s -= 24;
  std::string marker = "  ";
  const double t = ClockHoursNow(state.time);
  double setTime;
  if (o.altitudeCopy >= 0) {
    setTime = t + SiderealToClockHours(o, s - lst);
    if (setTime >= 24) {
      setTime -= 24;
      marker = " +";
    }
    if (setTime < 0) setTime += 24;
    if (setTime < t) marker = " +";  // it sets tomorrow
    o.setLabel = "Sets At = ";
  } else {
    setTime = t - SiderealToClockHours(o, lst - s);
    if (setTime >= 24) setTime -= 24;
    if (setTime < 0) setTime += 24;
    if (setTime > t) marker = " -";  // it set on the previous day
    o.setLabel = "Last Set = ";
  }
  o.setText = RoundedMinuteTime(setTime, marker);
}

}  // namespace astel
