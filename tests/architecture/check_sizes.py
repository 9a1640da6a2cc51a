"""Fails on source files that are too long to be read in one sitting, and on tests that outgrow the code
that they test.

Usage: check_sizes.py [ROOT]
"""

import sys

import sources

LONGEST = 600  # lines
MOST_TESTS = 40  # lines of tests and their scripts for every 100 lines outside tests/


def lines_of(root):
    """Path → number of lines, for every source file."""
    return {name: text.count("\n") for name, text in sources.tracked(root)
            if name[name.rfind("."):] in sources.CPP | {".lua"}}


def faults(root):
    """(file, line, message) of every file that is too long."""
    return [(name, count, f"{count} lines; at most {LONGEST}: its second duty moves out")
            for name, count in lines_of(root).items() if count > LONGEST]


def shares(root):
    """Lines of tests and lines outside tests/."""
    lines = lines_of(root)
    tests = sum(count for name, count in lines.items() if name.startswith("tests/"))
    product = sum(count for name, count in lines.items()
                  if not name.startswith("tests/") and not name.endswith(".lua"))
    return tests, product


if __name__ == "__main__":
    ROOT = sys.argv[1] if len(sys.argv) > 1 else "."
    tests, product = shares(ROOT)
    found = faults(ROOT)
    if tests * 100 > product * MOST_TESTS:
        found.append(("tests", 1, f"{tests} lines for {product} outside: "
                                  f"at most {MOST_TESTS} for every 100"))
    print(f"Tests: {tests * 100 / max(product, 1):.1f} lines for every 100 outside")
    sys.exit(sources.report(found, "Sizes"))
