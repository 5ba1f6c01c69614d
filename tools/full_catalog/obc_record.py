"""Fixed-column catalog lines: five 12-character names, position, magnitude, epoch.

Columns are counted from 1, as in the program's reader. A line starts as 100 spaces and every
field is written over its own columns, so unused columns stay blank.
"""

import unicodedata

LINE_WIDTH = 100
NAME_WIDTH = 12
NAME_COLUMNS = (1, 13, 25, 37, 49)
RA_POINT_COLUMN = 63
DEC_COLUMN = 70
MAG_COLUMN = 89
EPOCH_COLUMN = 97
KIND_COLUMN = 88
DESCRIPTION_COLUMN = 14  # after a blank that parts it from the year
UNKNOWN_MAGNITUDE = 99.0
LINE_END = b"\r\n"

# Greek letters as the three-letter forms of star designations (Alp, Bet, Gam, ...).
GREEK_LETTERS = {"α": "Alp", "β": "Bet", "γ": "Gam", "δ": "Del", "ε": "Eps", "ζ": "Zet",
                 "η": "Eta", "θ": "The", "ι": "Iot", "κ": "Kap", "λ": "Lam", "μ": "Mu",
                 "ν": "Nu", "ξ": "Xi", "ο": "Omi", "π": "Pi", "ρ": "Rho", "σ": "Sig",
                 "τ": "Tau", "υ": "Ups", "φ": "Phi", "χ": "Chi", "ψ": "Psi", "ω": "Ome"}

# Typographic characters that have a plain ASCII spelling.
_ASCII_SPELLING = {**GREEK_LETTERS, "\u2019": "'", "\u2018": "'", "\u201c": '"',
                   "\u201d": '"', "\u2013": "-", "\u2014": "-", "\u00df": "ss", "\u00e6": "ae",
                   "\u00c6": "AE", "\u00f8": "o"}


def plain_ascii(text):
    """Printable ASCII only: Greek letters spelled out, accents dropped, typographic quotes
    straightened, the rest removed.
    "&" and "^" are removed too: in column 12 they are Best-of-the-Sky marks, and the search for
    "*&" would find any name that happened to contain one."""
    text = "".join(_ASCII_SPELLING.get(c, c) for c in text)
    text = unicodedata.normalize("NFKD", text)
    kept = "".join(c for c in text if 32 <= ord(c) < 127 and c not in "&^")
    return " ".join(kept.split())


def put(line, column, text):
    """Write text over line (a list of characters) starting at a 1-based column."""
    start = column - 1
    if start + len(text) > LINE_WIDTH:
        raise ValueError(f"{text!r} at column {column} runs past column {LINE_WIDTH}")
    line[start:start + len(text)] = list(text)


def fixed(value, decimals):
    """Rounded text with at least one integer digit, e.g. fixed(9.5, 4) == '9.5000'."""
    text = f"{value:.{decimals}f}"
    return "0" + text[1:] if text.startswith("-0") and float(text) == 0 else text


def ra_text(hours):
    """Hours with four decimals; the point lands in column 63 in both widths."""
    text = fixed(hours % 24.0, 4)
    if float(text) >= 24.0:  # 23.99996 rounds up to the next day
        text = fixed(0.0, 4)
    return text


def ra_column(text):
    """'10.2500' starts in column 61 and '9.5000' in column 62."""
    return RA_POINT_COLUMN - text.index(".")


def dec_text(degrees):
    """Two integer digits at least, a leading '-' for any negative value ("-00.5000")."""
    magnitude = f"{abs(degrees):07.4f}"
    return ("-" if round(degrees, 4) < 0 else "") + magnitude


def magnitude_text(mag):
    """(column, text): '99' for unknown, '00.00' from column 89 at 10 and above, else '0.00'
    from column 90 (negative values keep their sign in front)."""
    if mag is None or mag >= UNKNOWN_MAGNITUDE:
        return MAG_COLUMN, "99"
    text = f"{mag:.2f}"
    return (MAG_COLUMN, text) if float(text) >= 10.0 else (MAG_COLUMN + 1, text)


def name_field(name, mark=""):
    """A name cut to 12 characters; with a mark the name gets 11 and the mark column 12."""
    if mark:
        if len(name) > NAME_WIDTH - 1:
            raise ValueError(f"marked name {name!r} is longer than {NAME_WIDTH - 1} characters")
        return name.ljust(NAME_WIDTH - 1) + mark
    return name[:NAME_WIDTH].ljust(NAME_WIDTH)


def object_line(names, ra_hours, dec_degrees, mag, mark="", epoch="2000"):
    if not 1 <= len(names) <= len(NAME_COLUMNS):
        raise ValueError(f"an object needs one to five names, got {names!r}")
    line = [" "] * LINE_WIDTH
    for index, (column, name) in enumerate(zip(NAME_COLUMNS, names)):
        put(line, column, name_field(name, mark if index == 0 else ""))
    ra = ra_text(ra_hours)
    put(line, ra_column(ra), ra)
    put(line, DEC_COLUMN, dec_text(dec_degrees))
    put(line, *magnitude_text(mag))
    put(line, EPOCH_COLUMN, epoch)
    return "".join(line)


def planet_line(number, min_altitude_deg, max_distance_ratio, mark="&"):
    line = [" "] * LINE_WIDTH
    put(line, 1, "!Planet=")
    put(line, 9, f"{number:02d}")
    put(line, 12, mark)
    put(line, 13, f"{min_altitude_deg:02d}")
    put(line, 25, f"{max_distance_ratio:02d}")
    return "".join(line)


def header_line(short_name, year, description):
    """Name in 1-8, year in 9-12, description from 14 up to 87; column 88 stays blank (not "L",
    not "T"), so the program treats the file as an ordinary short-name catalog."""
    if len(short_name) > 8 or len(year) != 4:
        raise ValueError("header needs a name of at most 8 characters and a 4-digit year")
    room = KIND_COLUMN - DESCRIPTION_COLUMN
    if len(description) > room:
        raise ValueError(f"header description is {len(description)} characters, room for {room}")
    line = [" "] * LINE_WIDTH
    put(line, 1, short_name)
    put(line, 9, year)
    put(line, DESCRIPTION_COLUMN, description)
    return "".join(line)


def encode(lines):
    """Latin-1 bytes with CR LF line ends, the line end of the program's own files."""
    return b"".join(line.encode("latin-1") + LINE_END for line in lines)
