#!/usr/bin/env python3
"""Fails where a source breaks a rule of style that a machine can see. CONTRIBUTING.md says what the rules are for.

    scripts/lint.py [root]
"""

import os
import re
import sys

import sources

LONGEST_FILE = 800
LONGEST_FUNCTION = 60
LARGEST_COMMENT_SHARE = 0.08
# In a short file one explained constant would be too much.
SHORTEST_FILE_WITH_A_COMMENT_SHARE = 100

UNFINISHED = re.compile(r"\b(TODO|FIXME|XXX|HACK)\b")
SLEEP = re.compile(r"\b(sleep|usleep|nanosleep|sleep_for|sleep_until)\s*\(")
TEST_BEGINS = re.compile(r"^\s*TEST(_F|_P)?\(")
EXPECTS = re.compile(r"expect|assert|fail|succeed", re.IGNORECASE)
BARE_DESTROY = re.compile(r"\b(cairo(_\w+)?_destroy|g_object_unref|pango\w+_(free|unref)|SDL_Destroy\w+|Fc\w+Destroy)\s*\(")
# What clang 14 can't compile.
TOO_NEW = re.compile(r"\bviews::\w+|#include <(format|source_location|print|expected)>")
STRING = re.compile(r'"(?:[^"\\]|\\.)*"')


class Lint:
    def __init__(self, root):
        self.root = root
        self.faults = []

    def check(self):
        paths = sources.sources_below(self.root)
        known = set(paths)
        for path in paths:
            self.path = path
            self.lines = sources.lines_of(self.root, path)
            self.check_lines()
            self.check_length()
            if path.endswith(".h"):
                self.check_header()
            elif path.removesuffix(".cpp") + ".h" in known:
                self.check_own_include_first()
            if path.startswith("tests/"):
                self.check_tests()
            else:
                self.check_functions()
            if path.startswith("plix/") and path.endswith(".cpp"):
                self.check_comment_share()
        return self.faults

    def fault(self, number, text):
        self.faults.append(f"{self.path}:{number}: {text}")

    def check_lines(self):
        handles = "handle" in os.path.basename(self.path).lower()
        for number, line in enumerate(self.lines, 1):
            if "\t" in line:
                self.fault(number, "a tab")
            if "\r" in line:
                self.fault(number, "a carriage return")
            if line != line.rstrip():
                self.fault(number, "blanks at the end of the line")
            if found := UNFINISHED.search(line):
                self.fault(number, f"{found.group(0)}: finish it")
            if found := TOO_NEW.search(line):
                self.fault(number, f"{found.group(0)}: clang 14 has it not")
            is_deleter = handles or "operator()(" in line
            if self.path.startswith("plix/") and not is_deleter and (found := BARE_DESTROY.search(line)):
                self.fault(number, f"{found.group(1)}: hold it in a Handle")

    def check_length(self):
        if self.lines[-1] != "" or (len(self.lines) > 1 and self.lines[-2] == ""):
            self.fault(len(self.lines), "a file ends with one newline")
        if len(self.lines) - 1 > LONGEST_FILE:
            self.fault(LONGEST_FILE, f"{len(self.lines) - 1} lines; look for the room that is missing")

    def check_header(self):
        if self.lines[0] != "#pragma once":
            self.fault(1, "a header begins with #pragma once")
        for number, line in enumerate(self.lines, 1):
            if re.match(r"\s*using\s+namespace\b", line):
                self.fault(number, "using namespace in a header")

    def check_own_include_first(self):
        header = self.path.removesuffix(".cpp") + ".h"
        for number, mark, name in sources.includes_of(self.lines):
            is_own = name == header or (mark == '"' and name in (os.path.basename(header), header))
            if not is_own:
                self.fault(number, f"the source's own header comes first: {header}")
            return
        self.fault(1, f"does not include its own header {header}")

    def check_functions(self):
        """A brace alone on its line begins a function; clang-format puts the others behind what they belong to."""
        begins = {}
        for number, line in enumerate(self.lines, 1):
            text = line.lstrip()
            indent = len(line) - len(text)
            if text == "{":
                begins[indent] = number
            elif text.startswith("}") and indent in begins:
                length = number - begins.pop(indent) - 1
                if length > LONGEST_FUNCTION:
                    self.fault(number - length - 1, f"a function of {length} lines")

    def check_comment_share(self):
        count = len(self.lines) - 1
        comments = sum(1 for line in self.lines if re.match(r"\s*//", line))
        if count >= SHORTEST_FILE_WITH_A_COMMENT_SHARE and comments > count * LARGEST_COMMENT_SHARE:
            self.fault(1, f"{comments} of {count} lines are comments; say why, not what")

    def check_tests(self):
        may_wait = self.path.startswith(("tests/support/", "tests/desktop/"))
        for number, line in enumerate(self.lines, 1):
            if not may_wait and SLEEP.search(STRING.sub("", line)):
                self.fault(number, "a test waits for a condition, it does not sleep")
            if "DISABLED_" in line:
                self.fault(number, "a test that never runs")
        if self.path.endswith(".cpp"):
            self.check_that_tests_expect()

    def check_that_tests_expect(self):
        begin, indent = None, 0
        for number, line in enumerate(self.lines, 1):
            if begin is None and TEST_BEGINS.match(line):
                begin, indent = number, len(line) - len(line.lstrip())
            elif begin is not None and line.rstrip() == " " * indent + "}":
                # The name of the test is on the first line and says nothing of what it does.
                if not EXPECTS.search("\n".join(self.lines[begin:number])):
                    self.fault(begin, "a test that expects nothing")
                begin = None


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    faults = Lint(root).check()
    print("\n".join(faults) if faults else "lint: nothing found")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
