#!/usr/bin/env python3
"""Prints how many lines and branches of each folder of plix/ a run of the tests reached.

    scripts/coverage.py build/coverage [--files]       --files: also each file, the least reached first
"""

import collections
import concurrent.futures
import json
import os
import subprocess
import sys

PROJECT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def counts_in(data_file):
    """The records of gcov for one object file."""
    done = subprocess.run(["gcov", "--json-format", "--stdout", "--branch-probabilities", data_file], capture_output=True,
                          text=True, cwd=os.path.dirname(data_file), check=True)
    return [json.loads(line) for line in done.stdout.splitlines() if line.startswith("{")]


def path_in_project(record, name):
    path = os.path.relpath(os.path.join(record["current_working_directory"], name), PROJECT)
    return path if path.startswith("plix/") else None


class Coverage:
    """Header lines are compiled into many objects: a line or branch is reached if it is in any."""

    def __init__(self):
        self.lines = collections.defaultdict(dict)
        self.branches = collections.defaultdict(dict)

    def add(self, record):
        for file in record["files"]:
            path = path_in_project(record, file["file"])
            if not path:
                continue
            for line in file["lines"]:
                number = line["line_number"]
                self.lines[path][number] = self.lines[path].get(number, False) or line["count"] > 0
                # The way that an exception would take is none that the source shows.
                shown = [branch for branch in line["branches"] if not branch["throw"]]
                for index, branch in enumerate(shown if len(shown) > 1 else []):
                    key = (number, index)
                    self.branches[path][key] = self.branches[path].get(key, False) or branch["count"] > 0


def share(reached):
    values = list(reached)
    return f"{100 * sum(values) / len(values):6.1f} % of {len(values):6}" if values else " " * 18


def table(coverage, key_of):
    groups = collections.defaultdict(lambda: ([], []))
    for path in coverage.lines:
        for key in {key_of(path), "all"}:
            groups[key][0].extend(coverage.lines[path].values())
            groups[key][1].extend(coverage.branches[path].values())
    return groups


def print_table(groups, order):
    width = max(map(len, groups)) + 2
    print(f"{'':{width}}{'lines':>18}  {'branches':>18}")
    for key in sorted(groups, key=order):
        print(f"{key:{width}}{share(groups[key][0]):>18}  {share(groups[key][1]):>18}")


def main():
    build = os.path.abspath(sys.argv[1])
    data_files = [os.path.join(directory, name) for directory, _, names in os.walk(build) for name in names
                  if name.endswith(".gcno")]  # also of what no test is linked with
    if not data_files:
        print(f"coverage: nothing is built with counts in {sys.argv[1]}", file=sys.stderr)
        return 1
    coverage = Coverage()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for records in pool.map(counts_in, data_files):
            for record in records:
                coverage.add(record)
    if "--files" in sys.argv:
        groups = table(coverage, lambda path: path)
        print_table(groups, lambda key: sum(groups[key][0]) / max(1, len(groups[key][0])))
    print_table(table(coverage, os.path.dirname), lambda key: (key == "all", key))
    return 0


if __name__ == "__main__":
    sys.exit(main())
