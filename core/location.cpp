#include "core/location.h"

#include <cmath>

namespace astel {

namespace {

void Derive(double radians, int& degrees, double& minutes, int& sign, std::string& signText) {
  const double value = radians * kDegreesPerRadianExact;
  degrees = static_cast<int>(std::trunc(value));
  sign = (value < 0 && degrees == 0) ? -1 : 1;
  signText = value < 0 ? "-" : "";
  minutes = std::fabs(value - degrees) * 60;
  if (minutes >= 59.95) {
    minutes = 0;
    degrees += value >= 0 ? 1 : -1;
  }
}

}  // namespace

void DeriveLocationFields(PlaceState& p) {
  Derive(p.homeLatitude, p.latitudeDegrees, p.latitudeMinutes, p.latitudeSign, p.latitudeSignText);
  Derive(p.homeLongitude, p.longitudeDegrees, p.longitudeMinutes, p.longitudeSign,
         p.longitudeSignText);
}

bool ComputeUsDateOrder(const PlaceState& p) {
  const int lat = p.latitudeDegrees, lon = p.longitudeDegrees;
  return (lat >= 32 && lon > 55) || (lat >= 24 && lon > 55 && lon < 115);
}

void SetHomeLatitude(PlaceState& p, double degrees) {
  p.homeLatitude = degrees / kDegreesPerRadianExact;
  DeriveLocationFields(p);
}

void SetHomeLongitude(PlaceState& p, double degrees) {
  p.homeLongitude = degrees / kDegreesPerRadianExact;
  DeriveLocationFields(p);
}

}  // namespace astel
