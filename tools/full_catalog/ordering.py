"""Order of records inside a section, chosen for the program's name matcher.

The matcher compares a search text with each 12-character name field after dropping spaces, and
accepts the field when either one is a prefix of the other: "M3" finds M3, M30 and M31, and
"M31" finds M31 but also M3 (the name runs out first, which the matcher takes as a match). The
first record in file order wins. Plain number order would make "M42" stop at M4 and "NGC 7009"
at NGC 7, so numbers whose digits begin a longer number of the same catalog follow the last of
those longer numbers: ... M29, M2, M30 ... M39, M3, M40 ... The shorter number is then reached
as the first match by typing a trailing space ("M3 "), which makes the matcher refuse longer
names.
"""


def deferred_number_keys(numbers):
    """Sort key per number: (largest number of the catalog that starts with its digits, fewer
    digits last). Keeps number order except that a number comes after all its extensions."""
    by_text = sorted({str(n) for n in numbers})
    last_extension = {}
    for text in by_text:
        last_extension[text] = int(text)
    for text in by_text:
        for cut in range(1, len(text)):
            prefix = text[:cut]
            if prefix in last_extension:
                last_extension[prefix] = max(last_extension[prefix], int(text))
    return {int(t): (last_extension[t], -len(t)) for t in by_text}
