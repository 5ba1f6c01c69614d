"""Readers for Stellarium's star identification files (all keyed by Hipparcos number)."""

import re
from collections import defaultdict
from dataclasses import dataclass

from obc_record import GREEK_LETTERS, plain_ascii



@dataclass(frozen=True)
class CrossId:
    hip: int
    component: str  # "" or "A", "B", ... for Hipparcos entries that cover several stars
    hd: int  # 0 when unknown
    hr: int  # 0 when the star is not in the Bright Star Catalogue


@dataclass(frozen=True)
class Designation:
    text: str  # "Gam1 And", "61 Cyg A", "g UMa"
    kind: str  # "bayer" or "flamsteed"
    letter: str  # Bayer letter, "" for Flamsteed
    index: int  # superscript ("1" in Gam1), 0 when none
    component: str  # trailing component letter ("A" in 61_Cyg_A), "" when none


def _rows(path):
    with open(path, encoding="utf-8") as f:
        for line in f:
            if line.strip() and not line.startswith("#"):
                yield line.rstrip("\n")


def read_cross_ids(path):
    """cross-id.dat: HIP, component, SAO, HD, HR separated by tabs."""
    ids = []
    for row in _rows(path):
        hip, component, _, hd, hr = (row.split("\t") + [""] * 5)[:5]
        ids.append(CrossId(int(hip), component.strip(), int(hd or 0), int(hr or 0)))
    return ids


_DESIGNATION = re.compile(r"^(?P<head>[^_]+)_(?P<con>[A-Za-z]{2,3})(?:_(?P<comp>[A-Z0-9]))?$")
_BAYER = re.compile(r"^(?P<letter>[α-ω]|[A-Za-z])(?P<index>\d*)$")


def parse_designation(raw):
    """'γ1_And' -> Gam1 And, '61_Cyg_A' -> 61 Cyg A, 'g_UMa' -> g UMa; None if unreadable."""
    m = _DESIGNATION.match(raw)
    if not m:
        return None
    head, con, comp = m.group("head"), m.group("con"), m.group("comp") or ""
    tail = f" {con}" + (f" {comp}" if comp else "")
    if head.isdigit():
        return Designation(f"{int(head)}{tail}", "flamsteed", "", 0, comp)
    b = _BAYER.match(head)
    if not b:
        return None
    letter = GREEK_LETTERS.get(b.group("letter"), b.group("letter"))
    index = int(b.group("index") or 0)
    return Designation(f"{letter}{b.group('index')}{tail}", "bayer", letter, index, comp)


def read_designations(path):
    """name.fab: 'HIP|designation' lines; several lines may share one HIP."""
    by_hip = defaultdict(list)
    for row in _rows(path):
        hip, raw = row.split("|", 1)
        designation = parse_designation(raw.strip())
        if designation:
            by_hip[int(hip)].append(designation)
    return by_hip


_PROPER = re.compile(r'_\("(?P<name>[^"]+)"\)')


def read_proper_names(path):
    """star_names.fab: the first name listed for a HIP is the one in common use."""
    names = {}
    for row in _rows(path):
        hip, rest = row.split("|", 1)
        m = _PROPER.search(rest)
        if m and int(hip) not in names:
            names[int(hip)] = plain_ascii(m.group("name"))
    return names


def read_double_stars(path):
    """wds_hip_part.dat: HIP, WDS designation, year, position angle, separation (arcsec)."""
    doubles = {}
    for row in _rows(path):
        parts = row.split("\t")
        if len(parts) == 5:
            doubles[int(parts[0])] = (parts[1], float(parts[4]))
    return doubles


def read_proper_motions(path):
    """hip_pm.dat: HIP, proper motion in RA (x cos dec) and Dec, mas per year."""
    motions = {}
    for row in _rows(path):
        hip, pm_ra, pm_dec = row.split()
        motions[int(hip)] = (float(pm_ra), float(pm_dec))
    return motions
