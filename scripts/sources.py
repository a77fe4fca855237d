"""What the checks of the tree share: its sources and their includes."""

import os
import re

FOLDERS = ("plix", "plugins", "examples", "tests", "benchmarks", "fuzz", "soak", "scripts")
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')


def sources_below(root, folders=FOLDERS):
    """The paths of all sources and headers below the folders, relative to the root, sorted."""
    paths = []
    for folder in folders:
        for directory, _, files in os.walk(os.path.join(root, folder)):
            paths += [os.path.relpath(os.path.join(directory, name), root) for name in files if name.endswith((".cpp", ".h"))]
    return sorted(paths)


def lines_of(root, path):
    with open(os.path.join(root, path), encoding="utf-8", newline="") as file:
        return file.read().split("\n")


def includes_of(lines):
    """(line number, "<" or '"', name) of each include."""
    for number, line in enumerate(lines, 1):
        if found := INCLUDE.match(line):
            yield number, found.group(1), found.group(2)
