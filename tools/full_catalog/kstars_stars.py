"""Reader for KStars' binary star files (namedstars.dat, unnamedstars.dat).

Layout, as the files describe themselves:
  124 bytes  text header ("KStars Star Data v1.0 ...")
  2 bytes    "SK" (little-endian file), 1 byte format version
  uint16     number of field descriptors, then per field 16 bytes:
             name[10], int8 size, uint8 type, int32 scale
  uint32     number of index entries (HTM trixels), then per entry uint32 trixel id,
             uint32 file offset of its first record, uint32 record count
  5 bytes    faintest magnitude (int16, x100), HTM level (uint8), most stars in a trixel (uint16)
  records    fixed size, one per star, in the order of the field descriptors.
The fields are RA (hours x 1e6), Dec (degrees x 1e5), dRA and dDec (proper motion, mas/yr x 10),
parallax (mas x 10), HD number, mag (V x 100), B-V index (x 100), spectral type (2 chars),
flags, unused: 32 bytes. Stars near trixel edges may be stored more than once; copies are dropped.
"""

import struct
from dataclasses import dataclass

HEADER_TEXT_BYTES = 124
DESCRIPTOR = struct.Struct("<10sbBi")
INDEX_ENTRY = struct.Struct("<III")
USED_FIELDS = ("RA", "Dec", "dRA", "dDec", "parallax", "HD", "mag")
RECORD = struct.Struct("<iiiiiihh2sBB")


@dataclass(frozen=True)
class KStar:
    ra_hours: float
    dec_deg: float
    pm_ra_tenth_mas: int  # proper motion as stored, tenths of mas per year
    pm_dec_tenth_mas: int
    hd: int  # 0 when the file gives none
    v_mag: float


def _fields(data):
    if data[HEADER_TEXT_BYTES:HEADER_TEXT_BYTES + 2] != b"SK":
        raise ValueError("not a little-endian KStars star file")
    count = struct.unpack_from("<H", data, HEADER_TEXT_BYTES + 3)[0]
    offset = HEADER_TEXT_BYTES + 5
    fields = []
    for _ in range(count):
        name, size, kind, scale = DESCRIPTOR.unpack_from(data, offset)
        fields.append((name.rstrip(b"\0").decode("ascii"), size, scale))
        offset += DESCRIPTOR.size
    return fields, offset


def read_star_file(path):
    with open(path, "rb") as f:
        data = f.read()
    fields, offset = _fields(data)
    names = tuple(name for name, _, _ in fields)
    if names[:len(USED_FIELDS)] != USED_FIELDS or sum(s for _, s, _ in fields) != RECORD.size:
        raise ValueError(f"{path}: unexpected star record fields {names}")
    scale = {name: s for name, _, s in fields}
    entries = struct.unpack_from("<I", data, offset)[0]
    offset += 4
    stars = []
    for i in range(entries):
        _, first, count = INDEX_ENTRY.unpack_from(data, offset + i * INDEX_ENTRY.size)
        for k in range(count):
            ra, dec, dra, ddec, _, hd, mag, _, _, _, _ = RECORD.unpack_from(
                data, first + k * RECORD.size)
            stars.append(KStar(ra / scale["RA"], dec / scale["Dec"], dra, ddec, hd,
                               mag / scale["mag"]))
    return stars


def read_stars(paths):
    """All stars of the given files, each once."""
    seen = set()
    unique = []
    for path in paths:
        for star in read_star_file(path):
            key = (round(star.ra_hours, 6), round(star.dec_deg, 5), star.v_mag)
            if key not in seen:
                seen.add(key)
                unique.append(star)
    return unique
