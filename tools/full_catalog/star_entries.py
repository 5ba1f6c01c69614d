"""Catalog entries for the bright stars: which count as double stars, and their names."""

import showpieces
from entries import Entry, fill_names

# A star counts as a double star when the Washington Double Star catalog lists its Hipparcos
# entry with a separation a small telescope can split (2" or more; 999.9 means not given), when
# its Hipparcos entry holds more than one Bright Star Catalogue star, or when it is on the hand
# list of showpiece doubles. The separation in wds_hip_part.dat is that of one pair of the
# system, not always the main pair, so it chooses the type but is not shown.
SPLITTABLE_ARCSEC = 2.0


def is_double(star, shared_hip, hand_listed):
    if hand_listed or shared_hip:
        return True
    return star.wds is not None and star.wds[1] >= SPLITTABLE_ARCSEC


def star_entries(stars, constellations, wds_by_hip):
    """Returns (double star entries, other star entries), each with its HR number as sort key."""
    components = {}
    for star in stars:
        components[star.hip] = components.get(star.hip, 0) + 1
    wanted = set(showpieces.DOUBLE_STARS)
    found = set()
    doubles, singles = [], []
    for star in stars:
        star.wds = wds_by_hip.get(star.hip)
        designations = {star.bayer, star.flamsteed} - {""}
        hand_listed = bool(designations & wanted)
        found |= designations & wanted
        double = is_double(star, components[star.hip] > 1, hand_listed)
        mark = showpieces.SECOND_PASS if hand_listed else ""
        items = [star.proper_name, star.bayer, star.flamsteed if not star.bayer else "",
                 f"HR {star.hr}", constellations.full_name(star.ra_hours, star.dec_deg),
                 "double star" if double else "star", star.flamsteed if star.bayer else ""]
        entry = Entry(fill_names(items, mark), star.ra_hours, star.dec_deg, star.v_mag, mark,
                      (star.hr,))
        (doubles if double else singles).append(entry)
    missing = wanted - found
    if missing:
        raise ValueError(f"hand-listed double stars not in the catalog: {sorted(missing)}")
    return doubles, singles
