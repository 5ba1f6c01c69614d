"""Constellation of a J2000 position, by the IAU boundaries.

The boundaries are drawn along right ascension and declination of the equinox B1875.0, so the
position is precessed to 1875 (IAU 1976 precession) and looked up in Stellarium's table of
boundary spans (data/constellations_spans.dat, Roman 1987: "RA from, RA to, lowest declination,
constellation", the first row that contains the point wins).
"""

import math

B1875_JD = 2405889.258550475
J2000_JD = 2451545.0
ARCSEC = math.pi / (180.0 * 3600.0)


def precess_from_j2000(ra_hours, dec_deg, target_jd):
    t = (target_jd - J2000_JD) / 36525.0
    zeta = (2306.2181 * t + 0.30188 * t * t + 0.017998 * t ** 3) * ARCSEC
    z = (2306.2181 * t + 1.09468 * t * t + 0.018203 * t ** 3) * ARCSEC
    theta = (2004.3109 * t - 0.42665 * t * t - 0.041833 * t ** 3) * ARCSEC
    ra = math.radians(ra_hours * 15.0)
    dec = math.radians(dec_deg)
    a = math.cos(dec) * math.sin(ra + zeta)
    b = math.cos(theta) * math.cos(dec) * math.cos(ra + zeta) - math.sin(theta) * math.sin(dec)
    c = math.sin(theta) * math.cos(dec) * math.cos(ra + zeta) + math.cos(theta) * math.sin(dec)
    ra_out = (math.degrees(math.atan2(a, b) + z) / 15.0) % 24.0
    return ra_out, math.degrees(math.asin(max(-1.0, min(1.0, c))))


def _hours(text):
    h, m, s = (float(x) for x in text.split(":"))
    return h + m / 60.0 + s / 3600.0


def _degrees(text):
    sign = -1.0 if text.startswith("-") else 1.0
    d, m = (float(x) for x in text.lstrip("+-").split(":"))
    return sign * (d + m / 60.0)


class Constellations:
    def __init__(self, spans_path, names_path):
        self.spans = []
        with open(spans_path, encoding="ascii") as f:
            for row in f:
                parts = row.split()
                if len(parts) == 4:
                    self.spans.append((_hours(parts[0]), _hours(parts[1]), _degrees(parts[2]),
                                       parts[3]))
        self.full_names = {}
        with open(names_path, encoding="utf-8") as f:
            for row in f:
                parts = row.rstrip("\n").split("\t")
                if len(parts) >= 2 and not row.startswith("#"):
                    self.full_names[parts[0]] = parts[1].strip('"')
        if len(self.full_names) != 88 or not self.spans:
            raise ValueError("constellation tables are incomplete")

    def abbreviation(self, ra_hours, dec_deg):
        ra, dec = precess_from_j2000(ra_hours, dec_deg, B1875_JD)
        for ra_from, ra_to, dec_low, abbr in self.spans:
            if dec >= dec_low and ra_from <= ra < ra_to:
                return abbr
        raise ValueError(f"no constellation for {ra_hours} h {dec_deg} deg")

    def full_name(self, ra_hours, dec_deg):
        return self.full_names[self.abbreviation(ra_hours, dec_deg)]
