"""Fails on words that this repository does not hold: text that needs a paper which the reader does
not have, paths of one machine, and work put off.

Usage: check_words.py [ROOT]
"""

import re
import sys

import sources

# One letter of each is in brackets, so that this file does not hold them either.
EVERYWHERE = [
    (re.compile(r"\b[P]art [0-9]+\.[0-9]+"), "explain it here instead"),
    (re.compile(r"\b[t]he spec(ification)?\b|\bas [s]pecified\b", re.IGNORECASE),
     "explain it here instead"),
    (re.compile(r"(?<![\w.])/[w]ork/"), "a path of one machine"),
]
IN_CODE = [
    (re.compile(r"\b([T]ODO|[F]IXME|[p]laceholders?)\b", re.IGNORECASE), "work put off"),
]
CODE = sources.CPP | {".py", ".lua", ".cmake", ".sh", ".idl"}


def faults(root):
    """(file, line, message) of every fault."""
    found = []
    for name, text in sources.tracked(root):
        is_code = name[name.rfind("."):] in CODE or name.endswith("CMakeLists.txt")
        # Line breaks count as blanks, and comment marks after them.
        flat = re.sub(r"\n[ \t]*(//|#|--|\*|>)?[ \t]*",
                      lambda gap: " " + " " * (len(gap.group()) - 1), text)
        for pattern, reason in EVERYWHERE + (IN_CODE if is_code else []):
            squeezed = re.compile(pattern.pattern.replace(" ", " +"), pattern.flags)
            for match in squeezed.finditer(flat):
                found.append((name, text.count("\n", 0, match.start()) + 1,
                              f'"{" ".join(match.group().split())}": {reason}'))
    return found


if __name__ == "__main__":
    sys.exit(sources.report(faults(sys.argv[1] if len(sys.argv) > 1 else "."),
                            "Words that do not belong here"))
