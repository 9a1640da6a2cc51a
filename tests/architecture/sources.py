"""Which files the checks read."""

import pathlib
import subprocess

CPP = {".cpp", ".h"}


def tracked(root):
    """Paths from `root` of what git tracks or is about to; yields (posix path, text)."""
    listed = subprocess.run(
        ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
        cwd=root, check=True, capture_output=True).stdout.decode()
    for name in sorted(set(listed.split("\0")) - {""}):
        path = pathlib.Path(root, name)
        try:
            yield name, path.read_text(encoding="utf-8")
        except (UnicodeDecodeError, FileNotFoundError, IsADirectoryError):
            continue  # sounds and pictures; deleted and not yet committed


def report(faults, what):
    """Prints the faults as compilers do; the exit code."""
    for file, line, message in faults:
        print(f"{file}:{line}: {message}")
    print(f"{what}: {len(faults)} faults" if faults else f"{what}: none")
    return 1 if faults else 0
