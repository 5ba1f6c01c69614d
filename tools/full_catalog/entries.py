"""One catalog object before it becomes a line, and the naming rules shared by all sections."""

from dataclasses import dataclass

from obc_record import NAME_WIDTH


@dataclass
class Entry:
    names: list  # up to five, most important first; Name1 is the displayed name
    ra_hours: float
    dec_deg: float
    mag: float  # None when unknown
    mark: str = ""
    sort_key: tuple = ()


def fill_names(items, mark=""):
    """First five distinct non-empty names. A marked record keeps column 12 for its mark, so a
    Name1 longer than 11 characters trades places with the first name that fits."""
    names = []
    for item in items:
        if item and item not in names:
            names.append(item)
    names = names[:5]
    if mark and len(names[0]) > NAME_WIDTH - 1:
        short = next((n for n in names if len(n) <= NAME_WIDTH - 1), None)
        if short is None:
            raise ValueError(f"no name of a marked object fits 11 characters: {names}")
        names.remove(short)
        names.insert(0, short)
    return names


_SHORT_WORDS = (("Nebula", "Neb"), ("Galaxy", "Gal"), ("Cluster", "Cl"), ("Globular", "Glob"))
_GENERIC = {"Neb", "Gal", "Cl", "Glob", "Galaxies", "Cloud", "Star"}


def fit_steps(name):
    """The ways of fitting a common name into 12 characters, mildest first: as it is; generic
    words abbreviated; trailing generic words dropped; cut at 12 characters."""
    steps = [name]
    for word, short in _SHORT_WORDS:
        name = name.replace(word, short)
    steps.append(name)
    words = name.split()
    while len(" ".join(words)) > NAME_WIDTH and len(words) > 1 and words[-1] in _GENERIC:
        words.pop()
    steps.append(" ".join(words))
    steps.append(steps[-1][:NAME_WIDTH].rstrip())
    return steps


def shorten(name):
    return next(step for step in fit_steps(name) if len(step) <= NAME_WIDTH)


def best_fitting(names):
    """The names that fit, best first: the mildest fitting step of any name wins."""
    ranked = []
    for order, name in enumerate(names):
        for rank, step in enumerate(fit_steps(name)):
            if len(step) <= NAME_WIDTH:
                ranked.append((rank, order, step))
                break
    result = []
    for _, _, step in sorted(ranked):
        if step not in result:
            result.append(step)
    return result
