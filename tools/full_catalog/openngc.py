"""Reader for the OpenNGC database as shipped by KStars (OpenNGC.kscat, SQLite).

Table cat: type (KStars object type), ra and dec (J2000, degrees), magnitude (the B magnitude
where OpenNGC gives one), name ("M 31", "NGC 7009", "IC 80 NED01"), long_name (common names and
other catalog numbers, comma separated), catalog_identifier ("NGC0224", "IC0080 NED01", "M 45").
"""

import re
import sqlite3
from dataclasses import dataclass

from obc_record import plain_ascii

# KStars object types (SkyObject::TYPE) and the word an observer would search for.
KSTARS_TYPE_WORDS = {0: "star", 3: "open cluster", 4: "globular", 5: "nebula", 6: "planetary",
                     7: "SN remnant", 8: "galaxy", 13: "asterism", 14: "galaxy group",
                     15: "dark nebula", 17: "double star"}
KSTARS_UNKNOWN_TYPE = 255

_OTHER_CATALOG = re.compile(r"^(PGC|UGC|UGC A|NGC|IC|MCG|ESO|CGCG|M)\s*\d|^\d+$")
_ID = re.compile(r"^(?P<cat>NGC|IC)(?P<num>\d{4})(?P<suffix>[A-Z]{0,2})(?: NED(?P<ned>\d+))?$")


@dataclass(frozen=True)
class NgcObject:
    catalog: str  # "NGC" or "IC"; "M" for the two Messier objects outside both (M40, M45)
    number: int
    suffix: str  # component letters ("A" in IC 186A, "NW" in IC 715NW), "" for none
    ned: int  # NED component number (IC 80 NED01), 0 for none
    messier: int  # 0 when none
    ra_hours: float
    dec_deg: float
    b_mag: float  # None when unknown
    type_code: int
    common_names: tuple

    def designation(self):
        """'NGC 224', 'IC 186A', 'IC 80 NED01', or 'NGC4567 NED1' where the long form would
        not fit 12 characters."""
        base = f"{self.catalog} {self.number}{self.suffix}"
        if not self.ned:
            return base
        long_form = f"{base} NED{self.ned:02d}"
        return long_form if len(long_form) <= 12 else f"{self.catalog}{self.number}" \
            f"{self.suffix} NED{self.ned}"


def _common_names(long_name):
    names = []
    for part in (long_name or "").split(","):
        text = plain_ascii(part)
        if text and not _OTHER_CATALOG.match(text):
            names.append(text)
    return tuple(names)


def read_objects(path):
    db = sqlite3.connect(f"file:{path}?mode=ro", uri=True)
    try:
        rows = db.execute("SELECT type, ra, dec, magnitude, name, long_name, catalog_identifier "
                          "FROM cat").fetchall()
    finally:
        db.close()
    objects = []
    for type_code, ra, dec, mag, name, long_name, ident in rows:
        messier = int(name[2:]) if name.startswith("M ") else 0
        m = _ID.match(ident)
        if m:
            catalog, number = m.group("cat"), int(m.group("num"))
            suffix, ned = m.group("suffix"), int(m.group("ned") or 0)
        elif messier:
            catalog, number, suffix, ned = "M", messier, "", 0
        else:
            raise ValueError(f"unreadable OpenNGC identifier {ident!r}")
        objects.append(NgcObject(catalog, number, suffix, ned, messier, ra / 15.0, dec, mag,
                                 type_code, _common_names(long_name)))
    return objects
