#!/usr/bin/env python3
"""Fails where a header that applications or hosts include declares something that the shared library would hide, or an example
includes a header that is not installed.

    scripts/exports.py [--mark] [root]

With --mark it writes the marks.
"""

import os
import re
import sys

import sources

ROOTS = ("plix/plix.h", "plix/hosting.h", "plix/platform/foundation/plugin_module.h")
MARK = "PLIX_EXPORT"
# Declarations begin in the first column: namespaces are not indented.
TYPE = re.compile(r"^(?:class|struct)\s+(?:\[\[\w+\]\]\s+)?(?P<mark>PLIX_EXPORT\s+)?(?P<name>\w+)\b(?P<rest>[^;]*)$")
FUNCTION = re.compile(r"^(?!(?:inline|constexpr|template|using|typedef|static|friend|class|struct|enum|namespace|return)\b)[\w\[].*\w\(")
OPERATION = re.compile(r"^    (?!(?:friend|using|typedef|static_assert|template|Hook|PLIX_\w+)\b)[\w~\[][^{]*\)(?: const)?(?: noexcept)?(?: override| final)*;$")


def reached_headers(root):
    """The headers that the roots include, and those that these include."""
    waiting, reached = list(ROOTS), set()
    while waiting:
        path = waiting.pop()
        if path in reached or not os.path.exists(os.path.join(root, path)):
            continue
        reached.add(path)
        included = sources.includes_of(sources.lines_of(root, path))
        waiting += [name for _, mark, name in included if mark == "<" and name.startswith("plix/")]
    return sorted(reached)


def logic_headers(root):
    """Those of plix::logic, which are installed too."""
    lines = sources.lines_of(root, "plix/logic.cmake")
    return {f"plix/{line.strip().removesuffix('.cpp')}.h" for line in lines if line.strip().endswith(".cpp")}


def private_includes(root):
    """(path, line number, header) of what examples include and is not installed."""
    installed = set(reached_headers(root)) | logic_headers(root)
    for path in sources.sources_below(root, ("examples",)):
        for number, _, name in sources.includes_of(sources.lines_of(root, path)):
            if name.startswith("plix/") and name not in installed:
                yield path, number, name


def without_comments(lines):
    return [line.split("//")[0].rstrip() for line in lines]


def hidden_declarations(lines):
    """(line number, name) of each class with operations and each function that is not marked."""
    lines = without_comments(lines)
    is_template = False
    for number, line in enumerate(lines, 1):
        if line.startswith("template"):
            # What is on the line itself needs no mark either.
            is_template = line.endswith(">")
            continue
        if not line or line[0] in " #}":
            continue
        if found := TYPE.match(line):
            if not found["mark"] and not is_template and has_operations(lines, number):
                yield number, found["name"]
        elif re.match(r'extern (?!template|")', line):
            yield number, re.search(r"(\w+);", line)[1]
        elif FUNCTION.match(line) and MARK not in line and not is_template and is_declaration(lines, number):
            yield number, re.search(r"(\w+)\(", line)[1]
        is_template = False


def has_operations(lines, number):
    """Whether the type whose head is on this line declares a function that a source defines."""
    for line in lines[number:]:
        if line.startswith("}"):
            return False
        if OPERATION.match(line):
            return True
    return False


def is_declaration(lines, number):
    for line in lines[number - 1:]:
        if line.endswith(";"):
            return "{" not in line
        if line.endswith("{") or line.endswith("}"):
            return False
    return False


def marked(lines):
    """The lines with a mark on each declaration that lacks one, and with the header that defines the mark."""
    lines = list(lines)
    for number, _ in hidden_declarations(lines):
        line = lines[number - 1]
        begin = re.match(r"(?:class |struct |(?:\[\[\w+\]\] )?)", line).end()
        lines[number - 1] = line[:begin] + MARK + " " + line[begin:]
    include = "#include <plix/platform/base/export.h>"
    own = [number for number, line in enumerate(lines) if line.startswith("#include <plix/")]
    if include in lines:
        return lines
    if not own:
        return lines[:2] + [include, ""] + lines[2:]
    place = next((number for number in own if lines[number] > include), own[-1] + 1)
    return lines[:place] + [include] + lines[place:]


def mark(root):
    for path in reached_headers(root):
        lines = sources.lines_of(root, path)
        if any(hidden_declarations(lines)):
            with open(os.path.join(root, path), "w", encoding="utf-8", newline="") as file:
                file.write("\n".join(marked(lines)))
            print(f"exports: marked {path}; format it")


def main():
    arguments = [word for word in sys.argv[1:] if word != "--mark"]
    root = arguments[0] if arguments else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    if "--mark" in sys.argv:
        mark(root)
    headers = reached_headers(root)
    faults = [
        f"{path}:{number}: {name} is declared for all but not marked {MARK}"
        for path in headers
        for number, name in hidden_declarations(sources.lines_of(root, path))
    ]
    faults += [f"{path}:{number}: {name} is not installed" for path, number, name in private_includes(root)]
    if faults:
        faults.append("exports: scripts/exports.py --mark writes the marks")
    print("\n".join(faults) if faults else f"exports: {len(headers)} headers show what they declare")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
