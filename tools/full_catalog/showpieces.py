"""Best-of-the-Sky marks and the planet records: the rules, and the short hand lists they need.

Column 12 of a record carries "&" for the first pass (planets and Messier objects) and "^" for
the second (NGC/IC showpieces and double stars), so the suggestions come planets first, then
Messier objects, then NGC/IC objects, and double stars last, in file order within each pass.
"""

FIRST_PASS = "&"
SECOND_PASS = "^"

# Planet records: (number, name, minimum altitude in degrees, largest ratio of the current
# distance to the smallest distance the body reaches). The limits keep a planet out while it is
# low in the murk or far away and small; a ratio above the body's whole range means "always".
#   Mercury: low above the horizon is all one gets; ratio 2 leaves out the months around
#            superior conjunction (range 0.55 to 1.45 AU).
#   Venus:   ratio 5 (1.3 AU) leaves out the small gibbous disk near superior conjunction.
#   Moon:    any distance (99).
#   Mars:    ratio 4 (1.5 AU) keeps the disk at 6" or more.
#   Jupiter, Saturn, Uranus, Neptune: their distance never varies by a factor of 2, so ratio 2
#            means always; the fainter Uranus and Neptune must stand higher.
# No Sun (never suggest pointing a telescope at it) and no Pluto (too faint for a small
# telescope).
PLANETS = (
    (1, "Mercury", 5, 2),
    (2, "Venus", 10, 5),
    (3, "Moon", 10, 99),
    (4, "Mars", 15, 4),
    (5, "Jupiter", 15, 2),
    (6, "Saturn", 15, 2),
    (7, "Uranus", 20, 2),
    (8, "Neptune", 20, 2),
)

# Messier objects: those at magnitude 8.5 or brighter show well in a small telescope; M40 (a
# faint pair of stars) and M73 (four stars) pass that test but are no showpieces.
MESSIER_MAG_LIMIT = 8.5
MESSIER_LEFT_OUT = {40, 73}
# Fainter Messier objects with high surface brightness or famous company.
MESSIER_ADDED = {57, 63, 65, 66, 87, 97}

# NGC/IC objects (Messier objects excluded): Caldwell objects at magnitude 9.0 or brighter, or
# Caldwell planetary nebulae at 10.0 or brighter (small and of high surface brightness); and
# other star clusters at magnitude 6.0 or brighter. Other nebulae are left to the hand list:
# the magnitude listed for a reflection nebula is often that of the star lighting it.
CALDWELL_MAG_LIMIT = 9.0
CALDWELL_PLANETARY_MAG_LIMIT = 10.0
BRIGHT_MAG_LIMIT = 6.0
BRIGHT_TYPES = {"open cluster", "globular"}
# Fine objects those limits miss (edge-on and bright galaxies whose listed magnitude undersells
# them, small bright planetaries); and objects they let in that are no sight of their own in a
# small telescope: large faint nebulae, and IC 4703, the nebula of M16, listed apart.
NGC_IC_ADDED = {("NGC", 891), ("NGC", 4565), ("NGC", 4631), ("NGC", 3628), ("NGC", 7331),
                ("NGC", 7789), ("NGC", 6210), ("NGC", 6572), ("NGC", 2392), ("NGC", 7662)}
NGC_IC_LEFT_OUT = {("NGC", 1499), ("IC", 4703)}

# Double stars a small telescope splits well, by designation as written in the catalog.
DOUBLE_STARS = (
    "Bet1 Cyg",  # Albireo
    "Zet UMa",  # Mizar
    "Eps1 Lyr",  # the Double Double
    "Eps2 Lyr",
    "Gam1 And",  # Almach
    "Alp2 CVn",  # Cor Caroli
    "61 Cyg A",
    "Bet Mon",
    "Gam2 Del",
    "Eta Cas",
    "Alp Gem",  # Castor
    "Gam1 Leo",  # Algieba
    "Eps Boo",  # Izar
    "Gam2 Ari",  # Mesarthim
    "Alp1 Her",  # Rasalgethi
    "Del Cep",
    "Iot Cnc A",
    "Bet1 Sco",  # Acrab
    "Zet Ori",  # Alnitak
    "Sig Ori",
    "Gam Vir",  # Porrima
    "Nu1 Dra",
    "Zet1 Aqr",
    "Bet Cep",
    "Alp1 Cen",
    "Alp1 Cru",  # Acrux
    "Alp UMi",  # Polaris
    "Bet Ori",  # Rigel
    "Gam Lep",
    "70 Oph",
    "Xi Boo",
    "Alp2 Lib",  # Zubenelgenubi
    "The1 Ser",  # Alya
    "Eta Per",
    "Zet1 Lyr",
    "Del Ori",  # Mintaka
    "Iot Ori",
    "Alp Psc",  # Alrescha
    "Bet Lyr",  # Sheliak
)


def messier_mark(number, mag):
    if number in MESSIER_ADDED:
        return FIRST_PASS
    if number in MESSIER_LEFT_OUT or mag is None or mag > MESSIER_MAG_LIMIT:
        return ""
    return FIRST_PASS


def ngc_ic_mark(key, type_word, mag, caldwell):
    if key in NGC_IC_LEFT_OUT:
        return ""
    if key in NGC_IC_ADDED:
        return SECOND_PASS
    if mag is None:
        return ""
    if caldwell and (mag <= CALDWELL_MAG_LIMIT or
                     (type_word == "planetary" and mag <= CALDWELL_PLANETARY_MAG_LIMIT)):
        return SECOND_PASS
    if type_word in BRIGHT_TYPES and mag <= BRIGHT_MAG_LIMIT:
        return SECOND_PASS
    return ""
