"""Bright stars: KStars positions and V magnitudes joined with Stellarium's identifications.

KStars' records carry an HD number but no HIP number; Stellarium's files are keyed by HIP.
cross-id.dat links HIP (and a component letter where one Hipparcos entry covers several stars)
to HD and HR. A star is taken when it has an HR number, i.e. it is in the Bright Star Catalogue
(V about 6.5 and brighter). The KStars record of an HR star is found:
  1. by any HD number cross-id.dat gives for its HIP entry, when the record's proper motion
     agrees with the Hipparcos one (hip_pm.dat) within 30 mas/yr (a few cross-id.dat rows carry
     another star's HD number);
  2. failing that, by its Hipparcos proper motion, which KStars stores to 0.1 mas/yr, among
     records not yet taken (Albireo has no HD number in cross-id.dat and a wrong one in KStars).
When one Hipparcos entry holds several HR stars, exact HD matches are taken first and the
remaining records go to the remaining components by brightness (A brightest). Where KStars has
fewer records than components (Castor: one record for A and B), the records go to the
components in order A, B, ... and the rest are left out for want of a position.
"""

from collections import defaultdict
from dataclasses import dataclass

PM_TOLERANCE_TENTH_MAS = 1
HD_PM_AGREEMENT_TENTH_MAS = 300


@dataclass
class BrightStar:
    hr: int
    hip: int
    component: str
    ra_hours: float
    dec_deg: float
    v_mag: float
    bayer: str = ""
    flamsteed: str = ""
    proper_name: str = ""
    wds: tuple = None  # (WDS designation, separation in arcsec) or None


def _component_order(cross_id):
    return (cross_id.component or " ", cross_id.hr)


def _motion_agrees(star, motion):
    if motion is None:
        return True
    return (abs(star.pm_ra_tenth_mas - motion[0] * 10) <= HD_PM_AGREEMENT_TENTH_MAS and
            abs(star.pm_dec_tenth_mas - motion[1] * 10) <= HD_PM_AGREEMENT_TENTH_MAS)


def match_positions(kstars, cross_ids, proper_motions):
    """Returns ({HR: (HIP, KStar)}, [HR numbers left without a KStars record]). An HR number
    that cross-id.dat gives to two Hipparcos entries goes with the first that finds a record."""
    by_hd = defaultdict(list)
    by_motion = defaultdict(list)
    for index, star in enumerate(kstars):
        by_hd[star.hd].append(index)
        by_motion[(star.pm_ra_tenth_mas, star.pm_dec_tenth_mas)].append(index)
    hds_of_hip = defaultdict(set)
    hr_rows = defaultdict(list)
    for cid in cross_ids:
        if cid.hd:
            hds_of_hip[cid.hip].add(cid.hd)
        if cid.hr:
            hr_rows[cid.hip].append(cid)
    used = set()
    matched = {}
    found_in = {}
    unmatched = []
    for hip in sorted(hr_rows):
        rows = sorted({r.hr: r for r in hr_rows[hip] if r.hr not in matched}.values(),
                      key=_component_order)
        if not rows:
            continue
        candidates = [i for hd in sorted(hds_of_hip[hip]) for i in by_hd.get(hd, [])
                      if _motion_agrees(kstars[i], proper_motions.get(hip))]
        if len(set(candidates)) < len(rows) and hip in proper_motions:
            pm_ra, pm_dec = (round(v * 10) for v in proper_motions[hip])
            for d_ra in range(-PM_TOLERANCE_TENTH_MAS, PM_TOLERANCE_TENTH_MAS + 1):
                for d_dec in range(-PM_TOLERANCE_TENTH_MAS, PM_TOLERANCE_TENTH_MAS + 1):
                    candidates += by_motion.get((pm_ra + d_ra, pm_dec + d_dec), [])
        free = sorted({i for i in candidates if i not in used}, key=lambda i: kstars[i].v_mag)
        if len(free) >= len(rows):
            pending = []
            for row in rows:
                exact = [i for i in free if kstars[i].hd == row.hd and row.hd]
                if exact:
                    matched[row.hr] = exact[0]
                    free.remove(exact[0])
                else:
                    pending.append(row)
        else:
            pending = rows
        for row in pending:
            if free:
                matched[row.hr] = free.pop(0)
            else:
                unmatched.append(row.hr)
        for row in rows:
            if row.hr in matched:
                used.add(matched[row.hr])
                found_in[row.hr] = hip
    unmatched = sorted(set(unmatched) - set(matched))
    return {hr: (found_in[hr], kstars[i]) for hr, i in matched.items()}, unmatched


def _assign_designations(rows, designations, valid_constellations):
    """Spread a Hipparcos entry's designations over its HR components: a trailing component
    letter names its component; Bayer names that differ only in the superscript (Gam1, Gam2 And)
    go to the components in order; everything else belongs to the first component."""
    usable = [d for d in designations if d.text.split()[1] in valid_constellations]
    per_row = {r.hr: [] for r in rows}
    if len(rows) == 1:
        per_row[rows[0].hr] = usable
        return per_row
    letters = {r.component: r.hr for r in rows if r.component}
    superscripted = defaultdict(list)
    for d in usable:
        if d.component and d.component in letters:
            per_row[letters[d.component]].append(d)
        elif d.kind == "bayer" and d.index:
            superscripted[d.letter].append(d)
        else:
            per_row[rows[0].hr].append(d)
    for group in superscripted.values():
        group.sort(key=lambda d: d.index)
        for row, d in zip(rows if len(group) > 1 else rows[:1], group):
            per_row[row.hr].append(d)
    return per_row


def build_bright_stars(kstars, cross_ids, proper_motions, designations, proper_names,
                       valid_constellations):
    positions, unmatched = match_positions(kstars, cross_ids, proper_motions)
    rows_of_hip = defaultdict(dict)
    for cid in cross_ids:
        if cid.hr:
            rows_of_hip[cid.hip].setdefault(cid.hr, cid)
    stars = []
    for hip, rows_by_hr in rows_of_hip.items():
        rows = sorted(rows_by_hr.values(), key=_component_order)
        names = _assign_designations(rows, designations.get(hip, []), valid_constellations)
        for position, row in enumerate(rows):
            if positions.get(row.hr, (None,))[0] != hip:
                continue
            k = positions[row.hr][1]
            star = BrightStar(row.hr, hip, row.component, k.ra_hours, k.dec_deg, k.v_mag)
            for d in names[row.hr]:
                if d.kind == "bayer" and not star.bayer:
                    star.bayer = d.text
                elif d.kind == "flamsteed" and not star.flamsteed:
                    star.flamsteed = d.text
            if position == 0:
                star.proper_name = proper_names.get(hip, "")
            stars.append(star)
    return stars, unmatched
