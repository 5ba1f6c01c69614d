// Writes a transient catalog: hourly geocentric positions (J2000) of one asteroid, computed with
// libnova's elliptic-orbit routines from the osculating elements in KStars' asteroids.dat (JPL
// Small-Body Database export, Debian package kstars-data).
//
//   transient_catalog ELEMENTS NAME START DAYS OUT
//   transient_catalog /usr/share/kstars/asteroids.dat "1 Ceres" 2026-11-15 106 data/CERES.OBC
//
// The positions are two-body motion from the elements' epoch; planetary perturbations are left
// out, which is fine for finding a bright asteroid a few years from that epoch.
#include <libnova/asteroid.h>
#include <libnova/elliptic_motion.h>
#include <libnova/julian_day.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "catalog/catalog_record.h"
#include "catalog/transient_catalog.h"
#include "core/text_format.h"

namespace {

constexpr double kMjdOffset = 2400000.5;

// The quoted or null values of the JSON array that starts at `from`.
std::vector<std::string> ArrayValues(const std::string& text, std::size_t from) {
  std::vector<std::string> values;
  std::size_t i = from + 1;
  while (i < text.size() && text[i] != ']') {
    if (text[i] == '"') {
      const std::size_t end = text.find('"', i + 1);
      values.push_back(text.substr(i + 1, end - i - 1));
      i = end + 1;
    } else if (text.compare(i, 4, "null") == 0) {
      values.emplace_back();
      i += 4;
    } else {
      ++i;
    }
  }
  return values;
}

struct Elements {
  std::string fullName;
  double h = 0, g = 0.15, epochMjd = 0, e = 0, a = 0, i = 0, node = 0, peri = 0, meanAnomaly = 0;
};

bool FindElements(const std::string& text, const std::string& name, Elements& out) {
  // Rows look like ["     1 Ceres (A801 AA)","N","3.33","0.12",...]; the name is matched as
  // "number name" after the padding, followed by a blank.
  std::size_t at = 0;
  while ((at = text.find(name + " ", at)) != std::string::npos) {
    const std::size_t row = text.rfind('[', at);
    if (row != std::string::npos && text.find(']', row) > at &&
        text.find_first_not_of(' ', row + 2) == at) {
      const std::vector<std::string> v = ArrayValues(text, row);
      if (v.size() < 17) return false;
      // full_name neo H G diameter extent albedo rot_per orbit_id epoch_mjd e a q i om w ma
      out.fullName = v[0];
      out.h = std::stod(v[2]);
      if (!v[3].empty()) out.g = std::stod(v[3]);
      out.epochMjd = std::stod(v[9]);
      out.e = std::stod(v[10]);
      out.a = std::stod(v[11]);
      out.i = std::stod(v[13]);
      out.node = std::stod(v[14]);
      out.peri = std::stod(v[15]);
      out.meanAnomaly = std::stod(v[16]);
      return true;
    }
    ++at;
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 6) {
    std::cerr << "usage: transient_catalog ELEMENTS NAME START(YYYY-MM-DD) DAYS OUT\n";
    return 2;
  }
  std::ifstream in(argv[1], std::ios::binary);
  std::stringstream buffer;
  buffer << in.rdbuf();
  Elements el;
  if (!in || !FindElements(buffer.str(), argv[2], el)) {
    std::cerr << "no elements for " << argv[2] << " in " << argv[1] << "\n";
    return 1;
  }
  int year = 0, month = 0, day = 0;
  if (std::sscanf(argv[3], "%d-%d-%d", &year, &month, &day) != 3) {
    std::cerr << "bad start date " << argv[3] << "\n";
    return 2;
  }
  const int days = std::stoi(argv[4]);

  ln_ell_orbit orbit{};
  orbit.a = el.a;
  orbit.e = el.e;
  orbit.i = el.i;
  orbit.w = el.peri;
  orbit.omega = el.node;
  orbit.n = ln_get_ell_mean_motion(el.a);
  const double epochJd = el.epochMjd + kMjdOffset;
  orbit.JD = epochJd - el.meanAnomaly / orbit.n;  // time of perihelion

  // "1 Ceres (A801 AA)" -> number "1", name "Ceres".
  std::string shortName = argv[2];
  const std::string number = shortName.substr(0, shortName.find(' '));
  shortName = shortName.substr(shortName.find(' ') + 1);

  const double start = astel::JulianDateOf(year, month, day, 0);
  std::string text;
  int lastYear = year;
  for (int hour = 0; hour < days * 24; ++hour) {
    const double jd = start + hour / 24.0;
    ln_date date;
    ln_get_date(jd + 1e-6, &date);  // a hair past the hour, so 23:59:59.99 never appears
    ln_equ_posn equ;
    ln_get_ell_body_equ_coords(jd, &orbit, &equ);
    const double distance = ln_get_ell_body_earth_dist(jd, &orbit);
    const double magnitude = ln_get_asteroid_mag(jd, &orbit, el.h, el.g);

    astel::RecordFields f;
    f.names = {
        astel::FormatFixed(date.years % 100, "00") + "-" + astel::FormatFixed(date.months, "00") +
            "-" + astel::FormatFixed(date.days, "00") + " " + astel::FormatFixed(date.hours, "00") +
            "h",
        shortName, "(" + number + ") asteroid", astel::FormatFixed(distance, "0.000") + " AU", ""};
    const double raHours = equ.ra / 15;
    f.raHours = static_cast<int>(raHours);
    f.raMinutes = (raHours - f.raHours) * 60;
    f.decSign = equ.dec < 0 ? -1 : 1;
    const double size = equ.dec < 0 ? -equ.dec : equ.dec;
    f.decDegrees = static_cast<int>(size) * f.decSign;
    f.decMinutes = (size - static_cast<int>(size)) * 60;
    f.magnitudeText = astel::FormatFixed(magnitude, "0.00");
    f.epochText = "2000";
    std::string line = astel::ComposeRecord(f);
    line.replace(astel::kTimeColumn, 9,
                 astel::TransientTimeText(date.years, date.months, date.days, date.hours));
    line[astel::kKindColumn] = 'T';
    text += line + "\r\n";
    lastYear = date.years;
  }
  // The header's year is that of the last position: the catalog is obsolete after that year.
  const std::string description = "(" + number + ") " + shortName +
                                  " hourly J2000, two-body from JPL elements MJD " +
                                  astel::FormatFixed(el.epochMjd, "0");
  text = astel::ComposeHeader(astel::ToUpperLatin1(shortName), lastYear, description, 'T') +
         "\r\n" + text;
  std::ofstream out(argv[5], std::ios::binary);
  out << text;
  if (!out) {
    std::cerr << "cannot write " << argv[5] << "\n";
    return 1;
  }
  std::cerr << "wrote " << days * 24 << " positions of " << el.fullName << " to " << argv[5]
            << "\n";
  return 0;
}
