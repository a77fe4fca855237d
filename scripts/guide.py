#!/usr/bin/env python3
"""Fails where the guide shows what is not compiled, or leads nowhere.

    scripts/guide.py [root]

Each block of C++ in docs/ is somewhere in docs/snippets, line by line; each line of a block of CMake is in docs/snippets/CMakeLists.txt. Links and
pictures lead to files that are there, and every page is reached from the first.
"""

import os
import re
import sys
import textwrap

BLOCK = re.compile(r"^```(\w+)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"\]\(([^)\s]+)\)")
PROGRAM = re.compile(r"\[[^\]]*\]\((?:\.\./)*snippets/(\w+)\.cpp\)")


def read(root, path):
    with open(os.path.join(root, path), encoding="utf-8") as file:
        return file.read()


def files_below(root, folder, ending):
    paths = []
    for directory, _, files in os.walk(os.path.join(root, folder)):
        paths += [os.path.relpath(os.path.join(directory, name), root) for name in files if name.endswith(ending)]
    return sorted(paths)


def lines_of(text):
    return [line.rstrip() for line in textwrap.dedent(text).strip("\n").split("\n")]


def is_within(block, program):
    """Whether the program has the block's lines one after another, all moved by the same indentation."""
    for begin in range(len(program) - len(block) + 1):
        if lines_of("\n".join(program[begin : begin + len(block)])) == block:
            return True
    return False


class Guide:
    def __init__(self, root):
        self.root = root
        self.pages = files_below(root, "docs", ".md")
        self.programs = {path: read(root, path).split("\n") for path in files_below(root, "docs/snippets", ".cpp")}
        self.build = {line.strip() for path in files_below(root, "docs/snippets", "CMakeLists.txt") for line in read(root, path).split("\n")}
        self.faults = []

    def check(self):
        self.reached = set()
        shown = set()
        for page in self.pages:
            text = read(self.root, page)
            self.check_blocks(page, text)
            self.check_links(page, text)
            shown.update(f"docs/snippets/{name}.cpp" for name in PROGRAM.findall(text))
        for page in self.pages:
            if page.startswith("docs/guide/") and page not in self.reached:
                self.faults.append(f"{page}: no page leads here")
        self.faults += [f"{path}: no page shows it" for path in self.programs if path not in shown]
        return self.faults

    def check_blocks(self, page, text):
        for block in BLOCK.finditer(text):
            number = text.count("\n", 0, block.start()) + 1
            language, lines = block[1], lines_of(block[2])
            if language == "cpp" and not any(is_within(lines, program) for program in self.programs.values()):
                self.faults.append(f"{page}:{number}: this is in no program of docs/snippets")
            if language == "cmake":
                missing = [line for line in lines if line.strip() not in self.build]
                self.faults += [f"{page}:{number}: docs/snippets/CMakeLists.txt has no line '{line}'" for line in missing]

    def check_links(self, page, text):
        for target in LINK.findall(text):
            if "://" in target or target.startswith("#"):
                continue
            path = os.path.normpath(os.path.join(os.path.dirname(page), target.split("#")[0]))
            if not os.path.exists(os.path.join(self.root, path)):
                self.faults.append(f"{page}: there is no {target}")
            self.reached.add(path)


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    guide = Guide(root)
    faults = guide.check()
    print("\n".join(faults) if faults else f"guide: {len(guide.pages)} pages show what is compiled")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
