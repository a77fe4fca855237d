#!/usr/bin/env python3
"""Writes the reference of classes and functions, or fails where a header leaves something unsaid.

    scripts/docs.py check                       every public symbol is documented, every view has a picture
    scripts/docs.py site FOLDER PICTURES        HTML, with the gallery's pictures from a folder
    scripts/docs.py filter HEADER               what doxygen reads in a header's place

Public is what the headers declare that plix.h and hosting.h name. A symbol is documented by a comment of its own, or with others:
- trivial members by a comment above them in their block, which goes from one blank line to the next;
- an operation that overrides another, by that one; overloads together, and a setter with its getter;
- fields and constants by their type; constructors, init() and operators by the class; delegates and cell classes, which many classes
  have, by HookSource and NSControl.
"""

import glob
import os
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as xml

import exports
import sources

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
PICTURES = "docs/pictures.txt"
HEADING = re.compile(r"^\s*// (?:--- )?(?P<text>.*?)(?: ---)?$")
STANDARD = re.compile(r"(set|take)?(Delegate|DataSource|Hooks)$|\w*[hH]ooks$|\w*DataSourceHooks$|delegate$|dataSource$|cellClass$|fillFrom$|init$|staticClass$")
# Bases of what is seen on a screen.
SEEN = ("plix::NSView", "plix::NSCell", "plix::NSWindow")

SETTINGS = """
PROJECT_NAME = plix
PROJECT_BRIEF = "User-interface classes and utilities in AppKit's shapes"
QUIET = YES
GENERATE_LATEX = NO
JAVADOC_AUTOBRIEF = YES
MACRO_EXPANSION = YES
EXPAND_ONLY_PREDEF = YES
PREDEFINED = PLIX_EXPORT= "PLIX_CLASS(a,b)=private:" "PLIX_ABSTRACT_CLASS(a,b)=private:" DOXYGEN=1
EXCLUDE_SYMBOLS = plix::detail std std::*
FULL_PATH_NAMES = YES
STRIP_FROM_PATH = .
SORT_MEMBER_DOCS = NO
BUILTIN_STL_SUPPORT = YES
WARN_IF_UNDOCUMENTED = NO
HAVE_DOT = NO
CLASS_GRAPH = NO
TOC_INCLUDE_HEADINGS = 3
"""


def doxygen(settings):
    with tempfile.NamedTemporaryFile("w", suffix=".doxyfile") as file:
        file.write(SETTINGS + settings)
        file.flush()
        run = subprocess.run(["doxygen", file.name], cwd=ROOT, stderr=subprocess.PIPE, stdout=subprocess.DEVNULL, text=True)
    faults = [line for line in run.stderr.split("\n") if "warning:" in line or "error:" in line]
    if run.returncode:
        faults.append(f"doxygen ended with {run.returncode}")
    return [line.replace(ROOT + "/", "") for line in faults]


def text_of(element, name):
    found = element.find(name)
    return "".join(found.itertext()).strip() if found is not None else ""


def is_described(element):
    return bool(text_of(element, "briefdescription") or text_of(element, "detaileddescription"))


def subject(name):
    """What a getter and its setter have in common."""
    return re.sub(r"^(set|is|has|take)(?=[A-Z])", "", name).lower()


class Header:
    """The lines of a header, to find the heading that a declaration stands under."""

    known = {}

    def __init__(self, path):
        with open(os.path.join(ROOT, path), encoding="utf-8") as file:
            self.lines = file.read().split("\n")

    @classmethod
    def at(cls, path):
        if path not in cls.known:
            cls.known[path] = cls(path)
        return cls.known[path]

    def has_comment(self, number):
        """Whether a comment stands above the declaration in its block."""
        for line in reversed(self.lines[: number - 1]):
            text = line.strip()
            if not text or text.startswith(("class ", "struct ", "enum ", "namespace ")) or text in ("public:", "protected:", "private:"):
                return False
            if text.startswith("//"):
                return True
        return False


class Reference:
    """What doxygen read, as XML."""

    def __init__(self, folder):
        self.compounds = {}
        for path in sorted(glob.glob(os.path.join(folder, "*.xml"))):
            for compound in xml.parse(path).getroot().iter("compounddef"):
                if compound.get("kind") in ("class", "struct", "namespace") and compound.get("prot") != "private":
                    self.compounds[compound.find("compoundname").text] = compound

    def undocumented(self):
        faults = set()
        for name, compound in self.compounds.items():
            parent = name.rpartition("::")[0]
            if not name.startswith("plix") or "plix::detail" in name or "::Internals" in name or (parent and parent not in self.compounds):
                continue
            is_type = compound.get("kind") != "namespace"
            if is_type and not is_described(compound):
                faults.add((*self.place(compound), name))
            for member in self.unsaid_members(compound):
                faults.add((*self.place(member), f"{name}::{member.find('name').text}"))
        named = named_headers()
        return sorted(fault for fault in faults if fault[0] in named)

    @staticmethod
    def place(element):
        location = element.find("location")
        return location.get("file").replace(ROOT + "/", ""), int(location.get("line"))

    def unsaid_members(self, compound):
        name = compound.find("compoundname").text
        is_type = compound.get("kind") != "namespace"
        members = [member for member in compound.iter("memberdef") if member.get("prot") == "public" and member.get("kind") != "friend"]
        described = {subject(member.find("name").text) for member in members if is_described(member)}
        for member in members:
            own = member.find("name").text
            is_special = own == name.split("::")[-1] or own.startswith(("operator", "~")) or STANDARD.match(own)
            is_field = is_type and member.get("kind") == "variable" and is_described(compound) and not self.is_hook(member)
            if is_described(member) or member.find("reimplements") is not None or subject(own) in described or is_special or is_field:
                continue
            path, line = self.place(member)
            if not Header.at(path).has_comment(line):
                yield member

    @staticmethod
    def is_hook(member):
        return text_of(member, "type").startswith("Hook")

    def bases_of(self, name):
        compound = self.compounds.get(name)
        for base in compound.findall("basecompoundref") if compound is not None else []:
            yield base.text
            yield from self.bases_of(base.text)

    def seen_classes(self):
        """Names of classes that draw something, without their namespace."""
        return sorted(name[6:] for name in self.compounds
                      if name.startswith("plix::") and "::" not in name[6:] and "<" not in name
                      and (name in SEEN or any(base in SEEN for base in self.bases_of(name))))


def own_lines():
    """What pictures.txt says: pages of the gallery for a class, none for "-"."""
    pages = {}
    with open(os.path.join(ROOT, PICTURES), encoding="utf-8") as file:
        for line in file:
            words = line.split("#")[0].split()
            if words:
                pages[words[0]] = words[1:]
    return pages


def gallery_pages():
    """The names of all pages of the gallery: those of classes, and of sheets in lower case."""
    names = set()
    for path in glob.glob(os.path.join(ROOT, "examples/gallery/*.cpp")):
        with open(path, encoding="utf-8") as file:
            names.update(re.findall(r'^    \{ "(\w+)", "[^"]+", \w+Section, ', file.read(), re.MULTILINE))
    return names


def is_class_page(name):
    """Topics are in lower case, but for abbreviations: "image_views", "CSV", "XML_path"."""
    return name[0].isupper() and "_" not in name and not name.isupper()


def pictures():
    """Which pages of the gallery show a class: its own, and those that pictures.txt adds."""
    pages = {name: [name] for name in gallery_pages() if is_class_page(name)}
    for name, added in own_lines().items():
        pages[name] = pages.get(name, []) + [page for page in added if page != "-"]
    return pages


def declared_types(headers):
    for header in headers:
        for line in sources.lines_of(ROOT, header):
            found = re.match(r"(class|struct) (?:PLIX_EXPORT )?(\w+)\b[^;]*$", line)
            if found:
                yield found[1], found[2]


def public_classes():
    """Classes, and structures with a prefix, of the headers that plix.h names; no delegates and data sources."""
    named = [header for _, _, header in sources.includes_of(sources.lines_of(ROOT, "plix/plix.h"))]
    return {name for kind, name in declared_types(named)
            if (kind == "class" or re.match(r"(NS|PLIX|TQ|CF|CG)[A-Z]", name)) and not re.search(r"(Delegate|DataSource)$", name)}


def public_words():
    """Every word of the headers that hosts may include."""
    return {word for header in exports.reached_headers(ROOT) for line in sources.lines_of(ROOT, header) for word in re.findall(r"\w+", line)}


def registered_classes():
    """What interface files and NSClassFromString() know."""
    names = set()
    for path in glob.glob(os.path.join(ROOT, "plix/**/classes.cpp"), recursive=True):
        with open(path, encoding="utf-8") as file:
            names.update(re.findall(r"^    (\w+)::staticClass\(\)", file.read(), re.MULTILINE))
    return names


def missing_pictures(reference):
    lines, shown, pages = own_lines(), pictures(), gallery_pages()
    for name in reference.seen_classes():
        if name not in shown:
            yield f"{PICTURES}: {name} has no picture"
    for name, added in lines.items():
        if f"plix::{name}" not in reference.compounds:
            yield f"{PICTURES}: there is no class {name}"
        if name in pages and "-" in added:
            yield f"{PICTURES}: {name} has a page, and is said to have none"
        for page in added:
            if page != "-" and page not in pages:
                yield f"{PICTURES}: the gallery has no page {page}"
            elif page == name:
                yield f"{PICTURES}: {name} shows its own page without being told"


def named_headers():
    return {name for path in exports.ROOTS for _, _, name in sources.includes_of(sources.lines_of(ROOT, path))}


def inputs():
    return " ".join(exports.reached_headers(ROOT))


def check():
    with tempfile.TemporaryDirectory() as folder:
        faults = doxygen(f"INPUT = {inputs()}\nOUTPUT_DIRECTORY = {folder}\nGENERATE_HTML = NO\nGENERATE_XML = YES\nXML_PROGRAMLISTING = NO\n")
        reference = Reference(os.path.join(folder, "xml"))
    faults += [f"{path}:{line}: {name} is not documented" for path, line, name in reference.undocumented()]
    faults += missing_pictures(reference)
    print("\n".join(faults) if faults else f"docs: {len(reference.compounds)} classes and namespaces say what they are")
    return 1 if faults else 0


def site(folder, images):
    os.makedirs(folder, exist_ok=True)
    own = os.path.join(ROOT, "scripts/docs.py")
    # The guide has pictures of the same names.
    gallery = os.path.join(os.path.abspath(folder), "gallery")
    os.makedirs(gallery, exist_ok=True)
    for path in glob.glob(os.path.join(images, "*.png")):
        shutil.copy(path, os.path.join(gallery, "gallery_" + os.path.basename(path)))
    pages = "README.md docs docs/guide CONTRIBUTING.md CHANGELOG.md"
    faults = doxygen(f"""INPUT = {pages} {inputs()}
OUTPUT_DIRECTORY = {folder}
FILE_PATTERNS = *.md *.h
USE_MDFILE_AS_MAINPAGE = README.md
FILTER_PATTERNS = "*.h=python3 -B {own} filter" "*.md=python3 -B {own} filter"
IMAGE_PATH = {gallery} tests/references/guide docs/images
GENERATE_TREEVIEW = YES
HTML_DYNAMIC_SECTIONS = YES
""")
    print("\n".join(faults + [f"docs: {folder}/html/index.html"]))
    return 1 if faults else 0


def filtered_header(lines, pages):
    """Blocks under a heading become doxygen's groups, and a class gets its pictures."""
    result, is_open = [], False
    for number, line in enumerate(lines):
        heading = HEADING.match(line)
        ends = not line.strip() or line.startswith("}") or line.strip() in ("public:", "protected:", "private:")
        if is_open and (ends or heading):
            result.append("    /// @}")
            is_open = False
        found = re.match(r"(?:class|struct) (?:PLIX_EXPORT )?(\w+)\b[^;]*$", line)
        if found:
            result += [f"/// @image html gallery_{page}.png" for page in pages.get(found[1], [])]
        if heading and not line.lstrip().startswith("///") and number + 1 < len(lines) and lines[number + 1].strip():
            result += [f"    /// @name {heading['text']}", "    /// @{"]
            is_open = True
        else:
            result.append(line)
    return result


def filtered_page(text):
    """Pictures by their names, and links between pages as doxygen knows them."""
    text = re.sub(r"\]\((?:\.\./)*(?:[\w.-]+/)*([\w@.-]+\.png)\)", r"](\1)", text)
    return re.sub(r"\[([^\]]*)\]\((?:\.\./)*snippets/?[\w.]*\)", r"`\1`", text)


def show_filtered(path):
    with open(path, encoding="utf-8") as file:
        text = file.read()
    sys.stdout.write(filtered_page(text) if path.endswith(".md") else "\n".join(filtered_header(text.split("\n"), pictures())))
    return 0


def main():
    actions = {"check": check, "site": site, "filter": show_filtered}
    return actions[sys.argv[1]](*sys.argv[2:])


if __name__ == "__main__":
    sys.exit(main())
