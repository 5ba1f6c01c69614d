#!/usr/bin/python3
"""Checks a generated FULL.OBC: the fixed columns of every line, and that every example of the
search prompt finds what an observer means as its first match.

    /usr/bin/python3 tools/full_catalog/check_examples.py [data/FULL.OBC]

The examples are tried under two readings of the name match, and must pass both:
  prefix   - the search text, spaces dropped, is a prefix of a name field (a '*' matches any run
             of characters);
  program  - the program's matcher: also accepts a field that runs out while the text still has
             characters ("M31" stops at a field "M3"); a '*' needs the rest of the text further
             on in the same field (tried both requiring the whole rest and accepting a field that
             runs out part-way through it).
Exit status 0 when everything holds, 1 otherwise.
"""

import re
import sys

LINE = 100
NAME_STARTS = (1, 13, 25, 37, 49)
MARKS = "&^"

# (search text, description of what is meant, test on the names of the first match)
EXAMPLES = (
    ("M31", "Andromeda galaxy M31", lambda n: n[0] == "M31"),
    ("crab", "Crab Nebula M1", lambda n: n[0] == "M1"),
    ("Mizar", "Mizar (Zet UMa)", lambda n: "Mizar" in n and "Zet UMa" in n),
    ("Virgo", "an object in Virgo", lambda n: "Virgo" in n),
    ("galaxy", "a galaxy", lambda n: "galaxy" in n),
    ("NGC 7009", "Saturn Nebula NGC 7009", lambda n: "NGC 7009" in n),
    ("Gam Per", "Gamma Persei", lambda n: "Gam Per" in n),
    ("IC 434", "IC 434, the Horsehead region", lambda n: "IC 434" in n),
    ("61 Cyg", "61 Cygni", lambda n: "61 Cyg A" in n or "61 Cyg B" in n),
    ("HR 2491", "Sirius, HR 2491", lambda n: "HR 2491" in n and "Sirius" in n),
    ("Alp* Lib", "Alpha Librae", lambda n: "Alp1 Lib" in n or "Alp2 Lib" in n),
)


def search_text(typed):
    """As the search prepares it: upper case, spaces dropped except one in the last place."""
    kept = "".join(c for i, c in enumerate(typed) if c != " " or i == len(typed) - 1)
    return kept.upper()


def field_name(field, best_of_sky=False):
    return "".join(c for c in field if c != " " and (best_of_sky or c not in MARKS)).upper()


def prefix_match(field, text):
    name = field_name(field)
    pattern = "".join(".*" if c == "*" else re.escape(c) for c in text.replace(" ", ""))
    return bool(name) and re.match(pattern, name) is not None


def program_match(field, text, lenient_wildcard=False):
    """Matched characters, 0 for no match. Walks text and name together; a name that runs out
    first still matches. After a '*' the rest of the text must be found further on in the field:
    whole (strict reading), or up to where the field runs out (lenient reading)."""
    name = field_name(field)
    if not name:
        return 0
    return _walk(name, 0, text, may_run_out=True, lenient=lenient_wildcard)


def _walk(name, j, text, may_run_out, lenient):
    count = 0
    for i, c in enumerate(text):
        if j >= len(name):
            return count if may_run_out and count else 0
        if c == "*":
            rest = text[i + 1:].lstrip("*")
            if not rest:
                return count
            for k in range(j, len(name)):
                found = _walk(name, k, rest, may_run_out=lenient, lenient=lenient)
                if found:
                    return count + found
            return 0
        if name[j] != c:
            return 0
        count, j = count + 1, j + 1
    return count


def names_of(line):
    return [line[s - 1:s + 11].replace("&", " ").replace("^", " ").strip() for s in NAME_STARTS]


def first_match(lines, test):
    for number, line in enumerate(lines[1:], start=2):
        if line.startswith("!"):
            continue
        if any(test(line[s - 1:s + 11]) for s in NAME_STARTS):
            return number, line
    return None, None


def check_columns(lines):
    problems = []
    header = lines[0]
    if not header[8:12].isdigit() or header[87] != " ":
        problems.append("header: year must stand in columns 9-12 and column 88 must be blank")
    seen = {}
    for number, line in enumerate(lines, start=1):
        where = f"line {number}"
        if len(line) != LINE:
            problems.append(f"{where}: {len(line)} characters")
            continue
        if any(not 32 <= ord(c) < 127 for c in line):
            problems.append(f"{where}: character outside printable ASCII")
        if number == 1:
            continue
        if line.startswith("!Planet="):
            if not (line[8:10].isdigit() and 1 <= int(line[8:10]) <= 8 and line[11] == "&" and
                    line[12:14].isdigit() and line[24:26].isdigit()):
                problems.append(f"{where}: malformed planet record")
            continue
        if line[62] != ".":
            problems.append(f"{where}: right ascension point not in column 63")
        try:
            ra, dec = float(line[60:69]), float(line[69:78])
            mag = float(line[88:96])
        except ValueError:
            problems.append(f"{where}: unreadable number")
            continue
        if not (0 <= ra < 24 and -90 <= dec <= 90 and -2 <= mag <= 99):
            problems.append(f"{where}: position or magnitude out of range")
        if line[78:88].strip() or line[96:100] != "2000":
            problems.append(f"{where}: columns 79-88 must be blank and 97-100 hold 2000")
        if any(c in MARKS for c in line[:11] + line[12:60]):
            problems.append(f"{where}: mark character outside column 12")
        for name in names_of(line):
            if re.fullmatch(r"(M|NGC|IC|HR) ?\d+[A-Z]*( NED\d+)?", name) and name in seen:
                problems.append(f"{where}: {name} also on line {seen[name]}")
            seen.setdefault(name, number)
    messier = sorted(int(n[1:]) for n in seen if re.fullmatch(r"M\d+", n))
    if messier != list(range(1, 111)):
        problems.append("Messier objects M1-M110 are not all present once")
    return problems


def main(argv):
    path = argv[0] if argv else "data/FULL.OBC"
    with open(path, "rb") as f:
        data = f.read()
    lines = data.decode("latin-1").split("\r\n")
    if lines[-1] != "":
        print("file does not end in CR LF")
        return 1
    lines = lines[:-1]
    problems = check_columns(lines)
    for p in problems[:20]:
        print("COLUMNS:", p)
    readings = (
        ("prefix", lambda text: lambda f: prefix_match(f, text)),
        ("program", lambda text: lambda f: program_match(f, text, lenient_wildcard=False) > 0),
        ("program+", lambda text: lambda f: program_match(f, text, lenient_wildcard=True) > 0),
    )
    failures = 0
    print(f"{len(lines) - 1} records checked, {len(problems)} column problems")
    for typed, meant, wanted in EXAMPLES:
        text = search_text(typed)
        results = []
        for reading, make_test in readings:
            number, line = first_match(lines, make_test(text))
            ok = line is not None and wanted(names_of(line))
            failures += not ok
            results.append((reading, ok, number, line))
        shown = results[1][3] or ""
        verdict = "ok " if all(r[1] for r in results) else "BAD"
        where = ", ".join(f"{r}: line {n}" + ("" if ok else " WRONG") for r, ok, n, _ in results)
        print(f"{verdict} {typed!r:11} -> {' / '.join(n for n in names_of(shown) if n)}  "
              f"[{meant}; {where}]")
    return 0 if not problems and not failures else 1


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
