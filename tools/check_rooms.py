# SPDX-License-Identifier: MIT
"""Compares the includes of the sources with the tables of rooms in ARCHITECTURE.md.

Every folder with sources is a row of the tables, and what its files include of other folders is
named in that row. No two rooms reach each other, and a portable room includes no Windows header.
Prints what does not hold and ends with 1.
"""

import re
import sys
from pathlib import Path

# Folders that make no part of the products.
APART = {"bench", "tests", "out", "packaging", "samples", "tools", "docs", "cmake"}
WINDOWS_HEADERS = re.compile(
    r"#\s*include <(windows|windowsx|ole\w*|oc?idl|obj\w+|unknwn|comm\w+|shl\w+|win\w+|rpc\w*)\.h>"
)


def read_tables(text):
    """The rooms as {name: (is portable, allowed rooms)}."""
    rooms = {}
    portable = False
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if cells[0] in ("Portable", "Windows"):
            portable = cells[0] == "Portable"
        room = re.fullmatch(r"`([\w/]+)/`", cells[0])
        if line.startswith("|") and room and len(cells) == 3:
            rooms[room[1]] = (portable, set(re.findall(r"`([\w/]+)`", cells[2])))
    return rooms


def sources(root):
    for path in sorted(root.rglob("*")):
        parts = path.relative_to(root).parts
        if path.suffix in (".cpp", ".h", ".rc", ".idl") and parts[0] not in APART:
            yield path


def complaints(root):
    """What does not hold, a line each."""
    rooms = read_tables((root / "ARCHITECTURE.md").read_text(encoding="utf-8"))
    used = {room: set() for room in rooms}
    for path in sources(root):
        room = path.parent.relative_to(root).as_posix()
        name = path.relative_to(root)
        if room not in rooms:
            yield f"{name}: no table has the room {room}"
            continue
        portable, allowed = rooms[room]
        text = path.read_text(encoding="utf-8")
        for include in re.findall(r'^\s*#\s*include "([^"]+)"', text, re.MULTILINE):
            target = Path(include).parent.as_posix()
            used[room].add(target)
            if target not in allowed | {room}:
                yield f"{name}: {room} may not include {include}"
        # A portable file can lie in a room of windows, but not the other way round.
        if portable and WINDOWS_HEADERS.search(text):
            yield f"{name}: a Windows header in a portable room"
    for room, (_, allowed) in rooms.items():
        for target in sorted(allowed - used[room] - {"idl"}):
            yield f"ARCHITECTURE.md: {room} does not include {target} any more"
    yield from circles({room: allowed for room, (_, allowed) in rooms.items()})


def circles(allowed):
    """Rooms that are reached from themselves."""
    for start in allowed:
        seen, ahead = set(), list(allowed[start])
        while ahead:
            room = ahead.pop()
            if room not in seen:
                seen.add(room)
                ahead.extend(allowed.get(room, ()))
        if start in seen:
            yield f"ARCHITECTURE.md: {start} is reached from itself"


def main():
    found = list(complaints(Path(__file__).resolve().parent.parent))
    print("\n".join(found) if found else "Every include is one that ARCHITECTURE.md shows.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
