"""Reads every #include and fails where one points up or sideways between the layers.

Usage: check_arrows.py [ROOT]
"""

import re
import sys

import sources

CONTROL = ["server", "objects", "view", "processing", "editor", "signal"]  # top to bottom
FOUNDATION = {"automation", "platform"}
# What programs share of the hosts' side.
SHARED = {"hosts/container", "hosts/binding"}
HOSTS = {"script": SHARED, "desktop": SHARED, "container": {"hosts/binding"}}
# What two companions have in common.
COMPANIONS = {name: {"companions/devices"} for name in ("velto", "rimbal")}
ANYTHING = {"tests", "bench"}

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(?:"([^"]+)"|<([^>]+)>|(\S+))', re.MULTILINE)
# Headers of an operating system, which platform/ alone includes. The programs that measure run others.
SYSTEM_HEADER = re.compile(r"(sys|arpa|net|netinet|linux)/.*|"
                           r"(unistd|fcntl|dlfcn|poll|pthread|pty|sched|signal|spawn|termios|windows|"
                           r"objbase|ole2|oleauto|shlobj)\.h")
SYSTEM_SWITCH = re.compile(r"\b_WIN32\b")


def layer(path):
    """`control/editor` for a file of control/editor/, `hosts/script` for one of hosts/script/ …"""
    parts = path.split("/")[:-1]
    if parts and parts[0] in ("control", "companions", "hosts"):
        return "/".join(parts[:2])
    return parts[0] if parts else ""


def below(source):
    """The layers that one layer may include, itself among them."""
    top, _, name = source.partition("/")
    if top == "platform":
        return {"platform"}
    if top == "automation":
        return FOUNDATION
    if top == "companions":
        shared = {"companions/contracts", "companions/formats", "companions/backends"} | COMPANIONS.get(name, set())
        return {source} | shared | FOUNDATION
    if top == "hosts":
        return {source} | HOSTS.get(name, set()) | FOUNDATION
    if top == "examples":
        return {"control/interfaces", "companions/contracts"} | FOUNDATION
    if top == "control":
        if name not in CONTROL + ["interfaces"]:
            return set()
        lower = CONTROL[CONTROL.index(name):] if name in CONTROL else []
        return ({f"control/{part}" for part in lower} |
                {"control/interfaces", "companions/contracts"} | FOUNDATION)
    return set()


def fault_of(source, include, files):
    """What is wrong with one include, or None. `include` is as written; `files` are all paths."""
    quoted, system, computed = include
    if computed:
        return "an include whose file cannot be told"
    path = quoted or system
    if system and SYSTEM_HEADER.fullmatch(system) and \
            source.split("/")[0] not in ANYTHING | {"platform"}:
        return f"<{system}> is the system's: only platform/ includes it"
    if path not in files:
        return f'"{path}" is no file of this repository, written from its root' if quoted else None
    if system:
        return f"<{path}> is a file of this repository: use quotes"
    own, other = layer(source), layer(path)
    if source.split("/")[0] in ANYTHING:
        return None
    if other not in below(own):
        return f"{own} must not know {other} ({path})"
    if other == "platform" and own != "platform" and path.count("/") > 1:
        return f"{path} is an adapter: only the headers directly in platform/ are for others"
    return None


def faults(root):
    """(file, line, message) of every fault."""
    texts = {name: text for name, text in sources.tracked(root)
             if name[name.rfind("."):] in sources.CPP}
    found = []
    for name, text in texts.items():
        for match in INCLUDE.finditer(text):
            message = fault_of(name, match.groups(), texts)
            if message:
                found.append((name, text.count("\n", 0, match.start()) + 1, message))
        if not name.startswith("platform/"):
            for match in SYSTEM_SWITCH.finditer(text):
                found.append((name, text.count("\n", 0, match.start()) + 1,
                              "the build chooses adapters, not the preprocessor"))
    return found


if __name__ == "__main__":
    sys.exit(sources.report(faults(sys.argv[1] if len(sys.argv) > 1 else "."),
                            "Arrows that point the wrong way"))
