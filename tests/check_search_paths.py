#!/usr/bin/env python3
"""Checks where programs look for libraries: in folders of their own only, bound at the start.

    check_search_paths.py READELF FILE...

An empty entry stands for the present folder, and so does any that is not absolute.
"""
import re
import subprocess
import sys


def faults(readelf, file):
    dynamic = subprocess.run([readelf, "-dW", file], check=True, capture_output=True, text=True).stdout
    for path in re.findall(r"\((?:RPATH|RUNPATH)\).*\[(.*)\]", dynamic):
        for entry in path.split(":"):
            if not entry.startswith(("$ORIGIN/", "/")):
                yield f"the entry \"{entry}\" in {path}"
    if "BIND_NOW" not in dynamic and "NOW" not in dynamic:
        yield "is not bound at the start"


found = [f"{file}: {fault}" for file in sys.argv[2:] for fault in faults(sys.argv[1], file)]
print("\n".join(found))
sys.exit(1 if found else 0)
