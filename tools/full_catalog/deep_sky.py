"""Messier, NGC and IC objects: OpenNGC positions and names, Stellarium magnitudes and numbers.

OpenNGC (as shipped by KStars) gives the position, the type, one magnitude (B where known) and
the common names. Stellarium's deep-sky catalog gives the V magnitude and the Messier and
Caldwell numbers of the same NGC/IC objects. The magnitude written is V when Stellarium knows
it, else OpenNGC's (B), else Stellarium's B, else unknown.
"""

import re

import showpieces
from entries import Entry, best_fitting, fill_names
from openngc import KSTARS_TYPE_WORDS, KSTARS_UNKNOWN_TYPE

# Stellarium's object types (Nebula::NebulaType), used where OpenNGC's type is unknown.
STELLARIUM_TYPE_WORDS = {0: "galaxy", 1: "galaxy", 2: "galaxy", 3: "galaxy", 4: "quasar",
                         5: "star cluster", 6: "open cluster", 7: "globular",
                         8: "association", 9: "star cloud", 10: "nebula", 11: "planetary",
                         12: "dark nebula", 13: "nebula", 14: "nebula", 15: "nebula",
                         16: "open cluster", 17: "nebula", 18: "SN remnant", 19: "nebula",
                         20: "nebula", 21: "galaxy", 22: "galaxy", 23: "dark nebula",
                         25: "quasar", 26: "planetary", 27: "planetary", 28: "star",
                         29: "star", 30: "star", 32: "SN remnant", 33: "galaxy group",
                         34: "galaxy"}
UNKNOWN_MAG = 99.0
NOTABLE_MAG = 10.0

# Where the sources mislead: OpenNGC gives IC 434 the names of the Flame Nebula (NGC 2024);
# IC 434 is the glowing rim that the Horsehead (B 33) stands against.
COMMON_NAME_OVERRIDES = {("IC", 434): ("Horsehead Nebula",)}

_STAR_LIKE = re.compile(r"^[a-z]{2,3} [A-Z][A-Za-z]{2}$")  # "gam Cyg": a star, not a name
# OpenNGC writes Greek letters as "tet Car Cluster"; the catalog's stars say "The Car".
_GREEK_PREFIX = re.compile(r"^(alp|bet|gam|del|eps|zet|eta|tet|iot|kap|lam|mu|nu|xi|omi|pi|rho|"
                           r"sig|tau|ups|phi|chi|psi|ome) (?=[A-Z])")


class DeepSky:
    def __init__(self, objects, stellarium_entries, well_known_names, constellations,
                 star_names):
        self.objects = objects
        self.constellations = constellations
        self.star_names = set(star_names)
        self.well_known = well_known_names
        self.openngc_messier = {o.messier for o in objects if o.messier}
        self.by_number = {}
        for e in stellarium_entries:
            for key in (("NGC", e.ngc), ("IC", e.ic), ("M", e.messier)):
                if key[1]:
                    self.by_number.setdefault(key, e)

    def _stellarium(self, obj):
        if obj.suffix or obj.ned:
            return None
        return self.by_number.get((obj.catalog, obj.number))

    def magnitude(self, obj):
        st = self._stellarium(obj)
        if st and st.v_mag < UNKNOWN_MAG:
            return st.v_mag
        if obj.b_mag is not None:
            return obj.b_mag
        if st and st.b_mag < UNKNOWN_MAG:
            return st.b_mag
        return None

    def type_word(self, obj):
        if obj.type_code != KSTARS_UNKNOWN_TYPE:
            return KSTARS_TYPE_WORDS.get(obj.type_code, "")
        st = self._stellarium(obj)
        return STELLARIUM_TYPE_WORDS.get(st.type_code, "") if st else ""

    def common_names(self, obj):
        """Names that fit, best first: OpenNGC's, then Stellarium's well-known ones."""
        key = (obj.catalog, obj.number)
        raw = COMMON_NAME_OVERRIDES.get(key)
        if raw is None:
            raw = list(obj.common_names) + self.well_known.get(key, [])
            if obj.messier:
                raw += self.well_known.get(("M", obj.messier), [])
        candidates = []
        for name in raw:
            if name in self.star_names or _STAR_LIKE.match(name):
                continue
            name = _GREEK_PREFIX.sub(lambda m: "The " if m.group(1) == "tet" else
                                     m.group(1).capitalize() + " ", name)
            if name not in candidates:
                candidates.append(name)
        return best_fitting(candidates)

    def messier_number(self, obj):
        if obj.messier:
            return obj.messier
        # Stellarium fills the gap OpenNGC leaves (M102 = NGC 5866); its numbers for objects
        # OpenNGC lists apart (IC 4703, the nebula of M16) are not taken.
        st = self._stellarium(obj)
        if st and obj.catalog == "NGC" and st.messier not in self.openngc_messier:
            return st.messier
        return 0

    def caldwell_number(self, obj):
        st = self._stellarium(obj)
        return st.caldwell if st else 0

    def entry(self, obj):
        mag = self.magnitude(obj)
        type_word = self.type_word(obj)
        constellation = self.constellations.full_name(obj.ra_hours, obj.dec_deg)
        common = self.common_names(obj)
        messier = self.messier_number(obj)
        caldwell = self.caldwell_number(obj)
        designation = obj.designation() if obj.catalog != "M" else ""
        whole = not (obj.suffix or obj.ned)  # marks go to whole objects, not their parts
        if messier:
            mark = showpieces.messier_mark(messier, mag)
            items = [f"M{messier}", designation] + common[:1] + [constellation, type_word]
            items += common[1:]
        else:
            mark = showpieces.ngc_ic_mark((obj.catalog, obj.number), type_word, mag,
                                          caldwell) if whole else ""
            items = [designation] + common[:1] + [constellation, type_word]
            items += [f"Caldwell {caldwell}" if caldwell else ""] + common[1:]
        entry = Entry(fill_names(items, mark), obj.ra_hours, obj.dec_deg, mag, mark)
        # The objects people type in by number: named, marked, Caldwell, or magnitude 10 or
        # brighter.
        notable = bool(common or mark or caldwell or (mag is not None and mag <= NOTABLE_MAG))
        return entry, messier, notable
