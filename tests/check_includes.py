#!/usr/bin/env python3
"""Holds the rules of what may include what.

    check_includes.py ROOT

Prints every line that breaks a rule and ends with 1 if there is one.
"""
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^">]+)[">]', re.MULTILINE)
CONTROLS = "display/controls.h"
FORM = "panel/main_window.h"
SCHEMES = "schemes/"
ENTRY_POINTS = "schemes/scheme_entry_points.h"


def listed_sources(cmake_text, target):
    """The sources of a target, one a line between its add_library and the bracket that ends it."""
    body = re.search(r"add_library\(" + target + r" \w+\n(.*?)\)", cmake_text, re.DOTALL)
    return [line.strip() for line in body.group(1).splitlines() if line.strip()]


class Tree:
    def __init__(self, root):
        self.source = root / "src"
        self.texts = {}
        for folder in ("src", "tests", "bench", "tools"):
            for path in sorted((root / folder).rglob("*")):
                if path.suffix in (".h", ".cpp"):
                    name = path.relative_to(self.source if folder == "src" else root)
                    self.texts[name.as_posix()] = path.read_text(encoding="utf-8")
        cmake_text = (self.source / "CMakeLists.txt").read_text(encoding="utf-8")
        self.core = listed_sources(cmake_text, "core")
        self.window = listed_sources(cmake_text, "window")
        self.findings = []

    def includes(self, name):
        """The quoted headers by their whole names, wherever the compiler finds them."""
        folder = name.rpartition("/")[0]
        files = [file for mark, file in INCLUDE.findall(self.texts[name]) if mark == '"']
        return [next((place + file for place in ("", folder + "/", "tools/", "tests/")
                      if place + file in self.texts), file) for file in files]

    def project_includes(self, name):
        return [file for file in self.includes(name) if file in self.texts]

    def reached(self, name):
        """The project headers that a file takes in, directly or through others."""
        seen, waiting = set(), [name]
        while waiting:
            for file in self.project_includes(waiting.pop()):
                if file not in seen:
                    seen.add(file)
                    waiting.append(file)
        return seen

    def report(self, name, what):
        self.findings.append(f"{name}: {what}")


def check_names_resolve(tree):
    for name in tree.texts:
        for file in tree.includes(name):
            if file not in tree.texts:
                tree.report(name, f'no such project header: "{file}"')


def check_core_is_free_of_qt(tree):
    for source in tree.core:
        for file in {source} | tree.reached(source):
            for header in INCLUDE.findall(tree.texts[file]):
                if re.match(r"Q(t|[A-Z])", header[1]):
                    tree.report(source, f"is core, but takes in <{header[1]}> through {file}")


def check_core_includes_core(tree):
    """A header with a source of its own belongs to the target of that source."""
    window_headers = {source.replace(".cpp", ".h") for source in tree.window} | {CONTROLS}
    for source in tree.core:
        for header in sorted(window_headers & tree.reached(source)):
            tree.report(source, f'is core, but takes in "{header}" of the window')


def check_form(tree):
    for name in tree.texts:
        own = name in ("panel/main_window.cpp", "model/main.cpp", "model/start_up.cpp")
        outside = name.startswith(("tests/", "tools/", "bench/"))
        if FORM in tree.includes(name) and not own and not outside:
            tree.report(name, f'"{FORM}" is for start-up, main, tests, tools and benchmarks only')


def check_schemes_stand_alone(tree):
    for name in tree.texts:
        if not name.startswith(SCHEMES):
            continue
        for header in tree.includes(name):
            if not header.startswith(SCHEMES):
                tree.report(name, f'a scheme includes "{header}" of another folder')


def check_scheme_headers_stay_inside(tree):
    """The road to the libraries alone knows them, and only by their entry points."""
    for name in tree.texts:
        if name.startswith((SCHEMES, "tests/", "bench/", "tools/")):
            continue
        for header in tree.includes(name):
            known = header == ENTRY_POINTS and name.startswith("integration/")
            if header.startswith(SCHEMES) and not known:
                tree.report(name, f'includes "{header}" of the schemes')


def check_no_cycle(tree):
    for name in tree.texts:
        if name in tree.reached(name):
            tree.report(name, "takes itself in")


def check_listed_sources_exist(tree):
    for source in tree.core + tree.window:
        if source not in tree.texts:
            tree.report("CMakeLists.txt", f"no such source: {source}")


def main():
    tree = Tree(pathlib.Path(sys.argv[1]))
    check_listed_sources_exist(tree)
    if not tree.findings:
        for check in (check_names_resolve, check_core_is_free_of_qt, check_core_includes_core,
                      check_form, check_schemes_stand_alone, check_scheme_headers_stay_inside,
                      check_no_cycle):
            check(tree)
    for finding in tree.findings:
        print(finding)
    return 1 if tree.findings else 0


if __name__ == "__main__":
    sys.exit(main())
