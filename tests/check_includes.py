#!/usr/bin/env python3
"""Holds the rules of what may include what: the path of a file tells what it may touch.

    check_includes.py ROOT

Prints every line that breaks a rule and ends with 1 if there is one.
"""
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+([<"])([^">]+)[">]', re.MULTILINE)
FORM = "panel/window/main_window.h"
RECORD = "core/model/experiment_state.h"
ENTRY_POINTS = "schemes/scheme_entry_points.h"

# The folders of core, each above those before it.
CORE = ["core/model", "core/run", "core/setup", "core/picture", "core/analysis"]
# The libraries, and what each may include besides itself.
BELOW = {
    "schemes": [],
    "core": [],
    "loading": ["core"],
    "panel": ["core", "loading"],
    "lab": ["core", "loading", "panel"],
    "batch": ["core", "loading"],
    "web": ["core"],
    "main.cpp": ["core", "loading", "panel", "lab"],
}
WITH_QT = ("panel", "lab", "main.cpp")
MAY_CALL_SCHEMES = ("core/run", "loading", "web")


def library(name):
    return name.split("/")[0]


def folder(name):
    return name.rpartition("/")[0]


class Tree:
    def __init__(self, root):
        self.texts = {}
        for top in ("src", "tests", "bench", "tools"):
            for path in sorted((root / top).rglob("*")):
                if path.suffix in (".h", ".cpp"):
                    name = path.relative_to(root / "src" if top == "src" else root)
                    self.texts[name.as_posix()] = path.read_text(encoding="utf-8")
        self.source = [n for n in self.texts if not n.startswith(("tests/", "bench/", "tools/"))]
        self.cmake = "\n".join(p.read_text(encoding="utf-8")
                               for p in (root / "src").rglob("CMakeLists.txt"))
        self.findings = []

    def includes(self, name):
        """The quoted headers by their whole names, wherever the compiler finds them."""
        own = folder(name) + "/"
        files = [file for mark, file in INCLUDE.findall(self.texts[name]) if mark == '"']
        return [next((place + file for place in ("", own, "tools/", "tests/")
                      if place + file in self.texts), file) for file in files]

    def report(self, name, what):
        self.findings.append(f"{name}: {what}")


def check_names_resolve(tree):
    for name in tree.texts:
        for file in tree.includes(name):
            if file not in tree.texts:
                tree.report(name, f'no such project header: "{file}"')


def check_sources_are_listed(tree):
    for name in tree.source:
        if library(name) != "schemes" and name.endswith(".cpp") and name not in tree.cmake:
            tree.report(name, "stands in no CMakeLists.txt")


def check_libraries(tree):
    for name in tree.source:
        for header in tree.includes(name):
            mine, other = library(name), library(header)
            if mine not in BELOW:
                tree.report(name, "stands in no known library")
            elif other == "schemes" and mine != "schemes":
                if header != ENTRY_POINTS or not name.startswith(MAY_CALL_SCHEMES):
                    tree.report(name, f'includes "{header}" of the schemes')
            elif other != mine and other not in BELOW[mine]:
                tree.report(name, f'includes "{header}" of a library that is not below')


def check_order_in_core(tree):
    for name in tree.source:
        if library(name) != "core":
            continue
        for header in tree.includes(name):
            if folder(header) in CORE and CORE.index(folder(header)) > CORE.index(folder(name)):
                tree.report(name, f'includes "{header}" of a folder above')


def check_qt(tree):
    for name in tree.source:
        if name.startswith(WITH_QT):
            continue
        for mark, header in INCLUDE.findall(tree.texts[name]):
            if mark == "<" and re.match(r"Q(t|[A-Z])", header):
                tree.report(name, f"takes in <{header}>")


def check_widgets(tree):
    """Widgets know the toolkit, not the experiment."""
    for name in tree.source:
        if folder(name) == "panel/widgets":
            for header in tree.includes(name):
                if header == RECORD or (library(header) == "panel" and
                                        folder(header) != "panel/widgets"):
                    tree.report(name, f'a widget includes "{header}"')


def check_form(tree):
    for name in tree.source:
        own = name == "main.cpp" or folder(name) in ("panel/window", "lab")
        if FORM in tree.includes(name) and not own:
            tree.report(name, f'"{FORM}" is for the window itself and main only')


def cycle_in(graph):
    """The nodes of one cycle, or nothing."""
    done = set()

    def walk(node, path):
        if node in path:
            return path[path.index(node):] + [node]
        if node in done:
            return None
        for other in sorted(graph.get(node, ())):
            found = walk(other, path + [node])
            if found:
                return found
        done.add(node)
        return None

    for start in sorted(graph):
        found = walk(start, [])
        if found:
            return found
    return None


def check_no_cycle(tree):
    files = {name: {h for h in tree.includes(name) if h in tree.texts} for name in tree.texts}
    folders = {}
    for name in tree.source:
        others = {folder(h) for h in files[name]} - {folder(name)}
        folders.setdefault(folder(name), set()).update(others)
    for graph in (files, folders):
        found = cycle_in(graph)
        if found:
            tree.report(found[0], "a cycle: " + " -> ".join(found))


def main():
    tree = Tree(pathlib.Path(sys.argv[1]))
    for check in (check_names_resolve, check_sources_are_listed, check_libraries,
                  check_order_in_core, check_qt, check_widgets, check_form, check_no_cycle):
        check(tree)
    for finding in tree.findings:
        print(finding)
    return 1 if tree.findings else 0


if __name__ == "__main__":
    sys.exit(main())
