"""Readers for Stellarium's deep-sky catalog (nebulae/default/catalog.dat) and its names.

catalog.dat is gzip-compressed Qt QDataStream data (big-endian; floating-point values written as
8-byte doubles): a QString version ("3.16") and edition, then one record per object:
  uint32 id; double ra, dec (radians, J2000); double bMag, vMag (99 = unknown); uint32 type;
  QString morphological type; double major, minor axis; int32 orientation;
  double redshift, its error, parallax, its error, distance, its error;
  uint32 NGC, IC, M, C (Caldwell), B, Sh2, VdB, RCW, LDN, LBN, Cr, Mel, PGC, UGC (0 = none);
  QString Ced; uint32 Arp, VV; QString PK, PNG, SNRG, ACO, HCG, ESO, VdBH;
  uint32 DWB, Tr, St, Ru, VdBHa.
A QString is a uint32 byte length (0xFFFFFFFF for a null string) followed by UTF-16BE text.
Only the magnitudes, the type and the catalog numbers are used here.
"""

import gzip
import re
import struct
from dataclasses import dataclass

from obc_record import plain_ascii

SUPPORTED_VERSION = "3.16"
UNKNOWN = 99.0
NUMBERED_CATALOGS = ("NGC", "IC", "M", "C", "B", "Sh2", "VdB", "RCW", "LDN", "LBN", "Cr", "Mel",
                     "PGC", "UGC")


@dataclass(frozen=True)
class DsoEntry:
    b_mag: float
    v_mag: float
    type_code: int
    ngc: int
    ic: int
    messier: int
    caldwell: int


class _Stream:
    def __init__(self, data):
        self.data = data
        self.pos = 0

    def take(self, fmt):
        values = struct.unpack_from(fmt, self.data, self.pos)
        self.pos += struct.calcsize(fmt)
        return values

    def qstring(self):
        (length,) = self.take(">I")
        if length == 0xFFFFFFFF:
            return ""
        text = self.data[self.pos:self.pos + length].decode("utf-16-be")
        self.pos += length
        return text


def read_catalog(path):
    with gzip.open(path) as f:
        stream = _Stream(f.read())
    version, _edition = stream.qstring(), stream.qstring()
    if version != SUPPORTED_VERSION:
        raise ValueError(f"{path}: catalog version {version}, reader written for "
                         f"{SUPPORTED_VERSION}")
    entries = []
    while stream.pos < len(stream.data):
        stream.take(">I")  # running id
        _ra, _dec, b_mag, v_mag = stream.take(">dddd")
        (type_code,) = stream.take(">I")
        stream.qstring()  # morphological type
        stream.take(">ddi")  # axes, orientation
        stream.take(">6d")  # redshift, parallax, distance and their errors
        numbers = dict(zip(NUMBERED_CATALOGS, stream.take(f">{len(NUMBERED_CATALOGS)}I")))
        stream.qstring()  # Ced
        stream.take(">II")  # Arp, VV
        for _ in range(7):  # PK, PNG, SNRG, ACO, HCG, ESO, VdBH
            stream.qstring()
        stream.take(">5I")  # DWB, Tr, St, Ru, VdBHa
        entries.append(DsoEntry(b_mag, v_mag, type_code, numbers["NGC"], numbers["IC"],
                                numbers["M"], numbers["C"]))
    return entries


_NAME_ROW = re.compile(r'^(?P<cat>\S+)\s+(?P<id>\S+)\s+_\("(?P<name>[^"]+)"\)\s*'
                       r'(?:#(?P<src>.*))?$')


def read_well_known_names(path):
    """names.dat rows 'CAT  ID  _("name") # sources'; only names whose sources include WK (a
    name in common use among amateurs) are kept, keyed by ('NGC', 1952) and the like."""
    names = {}
    with open(path, encoding="utf-8") as f:
        for row in f:
            m = _NAME_ROW.match(row.strip())
            if not m or not m.group("id").isdigit():
                continue
            sources = [s.strip() for s in (m.group("src") or "").split(",")]
            if "WK" in sources:
                key = (m.group("cat"), int(m.group("id")))
                names.setdefault(key, []).append(plain_ascii(m.group("name")))
    return names
