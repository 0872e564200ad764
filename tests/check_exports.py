#!/usr/bin/env python3
"""Holds that each scheme library exports its one entry point and nothing else but, if it takes 25
rows, that it reads the middle one only.

    check_exports.py NM FOLDER

Takes the libraries of every instruction set below FOLDER. Prints what breaks the rule and ends with
1 if anything does.
"""
import pathlib
import subprocess
import sys

SCHEMES = ("Kestrel64", "Kestrel32", "Heron32", "Plover")


def exported(nm, library):
    listed = subprocess.run([nm, "-D", "--defined-only", "--format=posix", library], check=True,
                            capture_output=True, text=True).stdout
    return [" ".join(line.split()[:2]) for line in listed.splitlines()]


def main():
    nm, folder = sys.argv[1], pathlib.Path(sys.argv[2])
    good = True
    for scheme in SCHEMES:
        libraries = sorted(folder.rglob(f"lib{scheme}.so"))
        if not libraries:
            print(f"no lib{scheme}.so below {folder}")
            good = False
        for library in libraries:
            symbols = exported(nm, library)
            promise = ["READS_MIDDLE_ROW_ONLY R"] if scheme.startswith("Kestrel") else []
            if symbols != [scheme.upper() + " T"] + promise:
                print(f"{library}: exports {symbols}")
                good = False
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
