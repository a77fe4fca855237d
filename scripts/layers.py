#!/usr/bin/env python3
"""Reads every #include and fails where one breaks the order of the house:

- a folder of plix/ includes only folders below it;
- other toolkits' headers stay in the examples that live in their windows;
- third-party headers stay in their rooms, and no file outside a room reaches one through the room's headers;
- no header that others may include names a third-party type;
- plix/plix.h includes the header of every class that has AppKit's prefix or the library's;
- what plix::logic is made of reaches nothing but the standard library and itself.

    scripts/layers.py [root]
"""

import os
import re
import sys

import sources

# From the ground up. A folder may include itself and those before it.
FLOORS = [
    "platform/base", "platform/foundation", "platform/graphics", "platform/host", "platform/appkit",
    "bitstream", "format", "system", "drawing",
    "controls", "tables",
    "inspector",
    "app", "speech", "windows",
    "resources",
]

DESKTOP = "platform/host/desktop"
# Third-party headers and the folders of plix/ that they may be included in.
ROOMS = [
    (r"cairo.*|pango/.*|fontconfig/.*|ft2build\.h|freetype.*|hb.*\.h|png\.h|jpeglib\.h|tiffio\.h|jerror\.h|gif_lib\.h|webp/.*|librsvg/.*",
     "platform/graphics"),
    (r"unicode/.*|pugixml\.hpp", "platform/foundation"),
    (r"SDL.*|X11/.*|xkbcommon/.*|pulse/.*|gst/.*|sndfile\.h|libspeechd\.h|speech-dispatcher/.*|dbus/.*", DESKTOP),
    (r"glib.*", "platform/graphics"),
    (r"glib.*", DESKTOP),
]

# Other toolkits' headers, and the one example (and what tests it) that each may be included in.
TOOLKITS = [
    (r"Qt\w+/.*|Q[A-Z]\w+", ("examples/embed_qt/", "tests/desktop/embedding/qt", "tests/embedding/qt")),
    (r"gtk/.*|gdk/.*", ("examples/embed_gtk/", "tests/desktop/embedding/gtk")),
]

PUBLIC_CLASS = re.compile(r"plix/.*/(CF|CG|NS|PLIX|TQ)[A-Za-z]+\.h$")

# Names that only third-party headers declare. `struct _cairo` and the like, declared forward, are not among them.
FOREIGN_TYPE = re.compile(r"\b(cairo_\w+_t|cairo_t|Pango[A-Z]\w+|Fc[A-Z]\w+|FT_\w+|hb_\w+_t|SDL_\w+|XEvent|Gst[A-Z]\w+|pa_\w+"
                          r"|SNDFILE|SPD\w+|UErrorCode|UCollator|pugi::\w+|icu::\w+|icu_\d+::\w+)\b")

STANDARD = set("""algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono cinttypes
climits clocale cmath compare complex concepts condition_variable coroutine csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib
cstring ctime cuchar cwchar cwctype deque exception execution filesystem forward_list fstream functional future initializer_list
iomanip ios iosfwd iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers numeric optional
ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream stack stdexcept
stop_token streambuf string string_view syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map
unordered_set utility valarray variant vector version""".split())
# The compiler's own, used where the machine has it.
STANDARD.add("emmintrin.h")

# The operating system's own headers, and the compiler's.
SYSTEM = re.compile(r"(arpa|linux|net|netinet|netpacket|sys)/\w+\.h$|(dirent|dlfcn|errno|execinfo|fcntl|fnmatch|ftw|glob|grp|"
                    r"iconv|ifaddrs|langinfo|limits|link|locale|malloc|math|mntent|netdb|poll|pthread|pwd|sched|semaphore|signal|"
                    r"spawn|stdlib|string|strings|syslog|termios|time|unistd|utime|wchar)\.h$|cxxabi\.h$|[ep]mmintrin\.h$|arm_neon\.h$")


def floor_of(path):
    """The folder of FLOORS that a path below plix/ belongs to; None at the top of plix/ itself."""
    inside = path.removeprefix("plix/")
    for floor in FLOORS:
        if inside.startswith(floor + "/"):
            return floor
    return None


def is_in(path, folder):
    return path.startswith(f"plix/{folder}/")


def rooms_of(name):
    return [room for pattern, room in ROOMS if re.fullmatch(pattern, name)]


class House:
    def __init__(self, root):
        self.root = root
        self.paths = sources.sources_below(root)
        self.lines = {path: sources.lines_of(root, path) for path in self.paths}
        self.includes = {path: list(sources.includes_of(lines)) for path, lines in self.lines.items()}
        self.faults = []
        self.reached = {}

    def fault(self, path, number, text):
        self.faults.append(f"{path}:{number}: {text}")

    def foreign_names_reached(self, path):
        """The third-party headers that a file of plix/ reaches through any number of headers."""
        if path not in self.reached:
            names, seen, waiting = set(), set(), [path]
            while waiting:
                current = waiting.pop()
                if current in seen:
                    continue
                seen.add(current)
                for _, _, name in self.includes.get(current, []):
                    if name.startswith("plix/"):
                        waiting.append(name)
                    elif rooms_of(name):
                        names.add(name)
            self.reached[path] = names
        return self.reached[path]

    def check_library_file(self, path):
        floor = floor_of(path)
        if floor is None and os.path.dirname(path) != "plix":
            self.fault(path, 1, "is in no folder of the house; add it to FLOORS")
        for number, mark, name in self.includes[path]:
            if mark == '"':
                self.fault(path, number, f'write <plix/...> instead of "{name}"')
            elif name.startswith("plix/"):
                self.check_own_include(path, number, name, floor)
            elif rooms := rooms_of(name):
                if not any(is_in(path, room) for room in rooms):
                    self.fault(path, number, f"<{name}> belongs in plix/{rooms[0]}/ only")
            elif name not in STANDARD and not SYSTEM.match(name):
                self.fault(path, number, f"<{name}> has no room in the house")

    def check_own_include(self, path, number, name, floor):
        if name not in self.lines:
            if not any(f"__has_include(<{name}>)" in line for line in self.lines[path]):
                self.fault(path, number, f"<{name}> does not exist")
            return
        target = floor_of(name)
        if floor is not None:
            if target is None:
                self.fault(path, number, f"<{name}> is for those outside")
            elif FLOORS.index(target) > FLOORS.index(floor):
                self.fault(path, number, f"plix/{floor} may not include plix/{target}, which is above it")
        if is_in(name, DESKTOP) and not is_in(path, "platform/host"):
            self.fault(path, number, "only the host includes its back ends")
        for foreign in self.foreign_names_reached(name):
            if not any(is_in(path, room) for room in rooms_of(foreign)):
                self.fault(path, number, f"<{name}> brings <{foreign}> out of its room")

    def check_public_header(self, path):
        if self.foreign_names_reached(path):
            return  # of a room, and the rule above keeps it there
        for number, line in enumerate(self.lines[path], 1):
            if found := FOREIGN_TYPE.search(line.split("//")[0]):
                self.fault(path, number, f"a public header names {found.group(0)}")

    def check_umbrella(self):
        umbrella = "plix/plix.h"
        if umbrella in self.lines:
            included = {name for _, _, name in self.includes[umbrella]}
            for path in self.paths:
                if PUBLIC_CLASS.match(path) and "/host/" not in path and path not in included:
                    self.fault(umbrella, 1, f"leaves out <{path}>")

    def check_outside(self, path):
        for number, mark, name in self.includes[path]:
            if mark == "<" and name.startswith("plix/") and name not in self.lines:
                self.fault(path, number, f"<{name}> does not exist")
            for pattern, places in TOOLKITS:
                if re.fullmatch(pattern, name) and not path.startswith(places) and not path.startswith("benchmarks/"):
                    self.fault(path, number, f"<{name}> belongs in {places[0]} only")
            if path.startswith("examples/") and rooms_of(name):
                self.fault(path, number, f"an example needs nothing but plix, not <{name}>")

    def logic_sources(self):
        """What plix/logic.cmake lists: whole folders by glob, and files."""
        listing = os.path.join(self.root, "plix/logic.cmake")
        if not os.path.exists(listing):
            return set()
        with open(listing, encoding="utf-8") as file:
            words = re.findall(r"[\w/*]+\.cpp", re.sub(r"#.*", "", file.read()))
        found = set()
        for word in words:
            pattern = re.compile(r"plix/" + word.replace(".", r"\.").replace("*", "[^/]*"))
            matches = {path for path in self.paths if pattern.fullmatch(path)}
            if not matches and "*" not in word:
                self.fault("plix/logic.cmake", 1, f"plix/{word} does not exist")
            found |= matches
        return found

    def check_logic(self):
        logic = self.logic_sources()
        seen, waiting = set(), sorted(logic)
        while waiting:
            path = waiting.pop()
            if path in seen:
                continue
            seen.add(path)
            for number, _, name in self.includes.get(path, []):
                if name.startswith("plix/"):
                    source = name.removesuffix(".h") + ".cpp"
                    if source in self.lines and source not in logic:
                        self.fault(path, number, f"plix::logic reaches <{name}>, whose source is not part of it")
                    waiting.append(name)
                elif name not in STANDARD and not SYSTEM.match(name):
                    self.fault(path, number, f"plix::logic needs nothing but the standard library, not <{name}>")

    def check(self):
        for path in self.paths:
            if path.startswith("plix/"):
                self.check_library_file(path)
                if path.endswith(".h"):
                    self.check_public_header(path)
            else:
                self.check_outside(path)
        self.check_umbrella()
        self.check_logic()
        return sorted(set(self.faults))


def main():
    root = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    faults = House(root).check()
    print("\n".join(faults) if faults else "layers: every include stays on its floor")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
