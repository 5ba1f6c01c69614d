#!/usr/bin/python3
"""Builds data/FULL.OBC, the program's default catalog, from star and deep-sky data shipped in
Debian's kstars-data and stellarium-data packages, then checks the result.

    apt-get install -y kstars-data stellarium-data
    /usr/bin/python3 tools/full_catalog/generate.py [--output PATH]

Sections in file order: header, planet records, Messier objects, NGC/IC objects, double stars,
other bright stars. Every object appears once.
"""

import argparse
import os
import sys

sys.dont_write_bytecode = True  # leave no cache files in the source tree

import check_examples  # noqa: E402 (after the line above on purpose)
import deep_sky
import kstars_stars
import obc_record
import openngc
import showpieces
import star_catalog
import star_entries
import stellarium_dso
import stellarium_stars
from constellations import Constellations
from ordering import deferred_number_keys

KSTARS = "/usr/share/kstars"
STELLARIUM = "/usr/share/stellarium"
SOURCES = {
    "openngc": f"{KSTARS}/OpenNGC.kscat",
    "named_stars": f"{KSTARS}/namedstars.dat",
    "unnamed_stars": f"{KSTARS}/unnamedstars.dat",
    "cross_id": f"{STELLARIUM}/stars/default/cross-id.dat",
    "designations": f"{STELLARIUM}/stars/default/name.fab",
    "proper_motions": f"{STELLARIUM}/stars/default/hip_pm.dat",
    "doubles": f"{STELLARIUM}/stars/default/wds_hip_part.dat",
    "star_names": f"{STELLARIUM}/skycultures/western/star_names.fab",
    "constellation_names": f"{STELLARIUM}/skycultures/western/constellation_names.eng.fab",
    "constellation_spans": f"{STELLARIUM}/data/constellations_spans.dat",
    "dso_catalog": f"{STELLARIUM}/nebulae/default/catalog.dat",
    "dso_names": f"{STELLARIUM}/nebulae/default/names.dat",
}
HEADER_NAME = "FULL.OBC"
HEADER_YEAR = "2000"
HEADER_TEXT = "Planets, Messier, NGC/IC (OpenNGC CC-BY-SA-4.0), HR stars; see SOURCES.md"
REPO_ROOT = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", ".."))


def _sorted_by_number(items, number_of):
    """items sorted by their catalog number, a number after the longer numbers it begins."""
    keys = deferred_number_keys([number_of(item) for item in items])
    return sorted(items, key=lambda item: keys[number_of(item)] + item[0].sort_key)


def _deep_sky_sections(constellations, star_names):
    objects = openngc.read_objects(SOURCES["openngc"])
    sky = deep_sky.DeepSky(objects, stellarium_dso.read_catalog(SOURCES["dso_catalog"]),
                           stellarium_dso.read_well_known_names(SOURCES["dso_names"]),
                           constellations, star_names)
    messier, groups = [], {}
    for obj in objects:
        entry, number, notable = sky.entry(obj)
        entry.sort_key = (obj.suffix, obj.ned)  # a component follows its main object
        if number:
            messier.append((entry, number))
        else:
            groups.setdefault((not notable, obj.catalog), []).append((entry, obj.number))
    if sorted(n for _, n in messier) != list(range(1, 111)):
        raise ValueError("the Messier list is incomplete")
    # Notable objects first, so that "IC 434" finds IC 434 before the faint IC 4340.
    ngc_ic = []
    for key in sorted(groups, key=lambda k: (k[0], k[1] != "NGC")):
        ngc_ic += _sorted_by_number(groups[key], lambda item: item[1])
    return ([e for e, _ in _sorted_by_number(messier, lambda item: item[1])],
            [e for e, _ in ngc_ic])


def _star_sections(constellations):
    stars, unmatched = star_catalog.build_bright_stars(
        kstars_stars.read_stars([SOURCES["named_stars"], SOURCES["unnamed_stars"]]),
        stellarium_stars.read_cross_ids(SOURCES["cross_id"]),
        stellarium_stars.read_proper_motions(SOURCES["proper_motions"]),
        stellarium_stars.read_designations(SOURCES["designations"]),
        stellarium_stars.read_proper_names(SOURCES["star_names"]),
        set(constellations.full_names))
    doubles, singles = star_entries.star_entries(
        stars, constellations, stellarium_stars.read_double_stars(SOURCES["doubles"]))

    def by_hr(entries):
        return [e for e, _ in _sorted_by_number([(e, e.sort_key[0]) for e in entries],
                                                lambda item: item[1])]
    # The showpiece doubles lead their section, so that a search such as "Alp* Lib" meets
    # Zubenelgenubi before Alp Col, whose last letter could pass for the start of "Lib".
    marked = [e for e in doubles if e.mark]
    return (by_hr(marked) + by_hr([e for e in doubles if not e.mark]), by_hr(singles),
            unmatched, stars)


def build():
    constellations = Constellations(SOURCES["constellation_spans"],
                                    SOURCES["constellation_names"])
    doubles, singles, unmatched, stars = _star_sections(constellations)
    messier, ngc_ic = _deep_sky_sections(constellations, [s.proper_name for s in stars])
    lines = [obc_record.header_line(HEADER_NAME, HEADER_YEAR, HEADER_TEXT)]
    planets = [obc_record.planet_line(n, alt, ratio, showpieces.FIRST_PASS)
               for n, _, alt, ratio in showpieces.PLANETS]
    lines += planets
    sections = {"planets": len(planets)}
    for name, entries in (("messier", messier), ("ngc_ic", ngc_ic), ("double_stars", doubles),
                          ("stars", singles)):
        lines += [obc_record.object_line(e.names, e.ra_hours, e.dec_deg, e.mag, e.mark)
                  for e in entries]
        sections[name] = len(entries)
    return lines, sections, unmatched


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--output", default=os.path.join(REPO_ROOT, "data", "FULL.OBC"))
    args = parser.parse_args()
    missing = [p for p in SOURCES.values() if not os.path.exists(p)]
    if missing:
        sys.exit("missing source files (apt-get install -y kstars-data stellarium-data): " +
                 ", ".join(missing))
    lines, sections, unmatched = build()
    data = obc_record.encode(lines)
    with open(args.output, "wb") as f:
        f.write(data)
    marks = {m: sum(1 for line in lines[1:] if line[11] == m) for m in "&^"}
    print(f"wrote {args.output}: {len(data)} bytes, {len(lines)} lines")
    for name, count in sections.items():
        print(f"  {name:13s} {count:6d}")
    print(f"  marks: '&' {marks['&']}, '^' {marks['^']}")
    print(f"  HR stars left out for want of a KStars position: {len(unmatched)}")
    return check_examples.main([args.output])


if __name__ == "__main__":
    sys.exit(main())
