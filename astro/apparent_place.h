// The small reductions that turn a geometric ecliptic position into the apparent place of date:
// ecliptic precession from J2000, nutation, annual aberration and the change to the equator.
// Full-precision pi is used here; the program's truncated constants belong to its own formulas.
#pragma once

namespace astel {

struct EclipticPoint {
  double lonDeg = 0;  // longitude, [0, 360)
  double latDeg = 0;  // latitude
};

struct EquatorialPoint {
  double raHours = 0;  // [0, 24)
  double decDegrees = 0;
};

// Nutation and obliquity for a dynamical time (JDE), in degrees.
struct Nutation {
  double longitudeDeg = 0;      // nutation in longitude
  double trueObliquityDeg = 0;  // mean obliquity plus nutation in obliquity
};
Nutation NutationAt(double jde);

// Dynamical time (JDE) for a universal-time Julian date, with libnova's delta-T. Its table ends in
// 2010 and its extrapolation runs high (134 s in 2024 where 69 s was observed); the Moon, the
// fastest body, moves 0.55" per second of time, so that is about half an arc-minute today.
double DynamicalTime(double julianDate);

// Centuries of 36525 days from J2000.0.
double CenturiesSinceJ2000(double jde);

// A position on the mean ecliptic and equinox of J2000 carried to the mean ecliptic and equinox of
// `jde` (rigorous rotation, IAU 1976 angles).
EclipticPoint PrecessEclipticFromJ2000(EclipticPoint j2000, double jde);

// Annual aberration of a body at `point` (ecliptic of date) seen from the Earth, given the Sun's
// true geometric longitude; returns the shifted point. Uses the Earth's orbital eccentricity and
// perihelion so that it is good to a small fraction of an arc-second.
EclipticPoint AddAnnualAberration(EclipticPoint point, double sunLongitudeDeg, double jde);

// Ecliptic of date to equator of date for the given obliquity.
EquatorialPoint EquatorialFromEcliptic(EclipticPoint point, double obliquityDeg);

// An angle in degrees brought into [0, 360).
double NormalizeDegrees(double angle);

}  // namespace astel
