"""Compares the results of package_files here and in Wine, and prints a row of a table for each.

  compare_sounds.py HERE WINE

The files `written.*` are compared byte for byte or, where the table below allows it, by what is decoded
from them; all others are what was read from the same file.
"""

import array
import pathlib
import sys
import wave

# The codings that are computed in floating point with other instructions: the largest difference between
# decoded 16-bit samples that their encoders may make.
ALLOWED = {"mp3": 4, "ogg": 64, "opus": 400}


# Where decoders are not equal to the last bit on 32 bits: they have other vector code there.
ALLOWED_READING = {"opus": 1}


def samples(path):
    with wave.open(str(path)) as sound:
        return array.array("h", sound.readframes(sound.getnframes()))


def difference(one, other):
    """The largest of all samples, or None where the lengths differ."""
    a, b = samples(one), samples(other)
    return max((abs(x - y) for x, y in zip(a, b)), default=0) if len(a) == len(b) else None


def verdict(here, wine):
    if not here.exists() and not wine.exists():
        return True, "refused by both"
    if not here.exists() or not wine.exists():
        return False, "only one of them has it"
    if here.read_bytes() == wine.read_bytes():
        return True, "equal"
    if here.suffix == ".wav" and here.stem != "written":
        apart = difference(here, wine)
        fine = apart is not None and apart <= ALLOWED_READING.get(here.stem, -1)
        return fine, f"samples read differ by up to {apart}"
    decoded = [folder / f"decoded.{here.suffix[1:]}.wav" for folder in (here.parent, wine.parent)]
    apart = difference(*decoded)
    fine = apart is not None and apart <= ALLOWED.get(here.suffix[1:], -1)
    return fine, f"other bytes; decoded samples differ by up to {apart}"


def main():
    here, wine = map(pathlib.Path, sys.argv[1:])
    failures = 0
    names = {path.name for folder in (here, wine) for path in folder.iterdir()}
    for name in sorted(name for name in names if not name.startswith("decoded.")):
        fine, text = verdict(here / name, wine / name)
        failures += not fine
        print(f"| {name} | {text}{'' if fine else ' **(unexpected)**'} |")
    sys.exit(1 if failures or not names else 0)


main()
