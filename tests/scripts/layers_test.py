import unittest

import planted

import layers


class Layers(planted.PlantedTree):
    def faults(self):
        return layers.House(self.root).check()

    def test_this_project_keeps_its_floors(self):
        self.assertEqual(layers.House(planted.PROJECT).check(), [])

    def test_each_floor_may_include_itself_and_those_below(self):
        for floor in layers.FLOORS:
            self.plant(f"plix/{floor}/one.h", "#pragma once\n")
        for index, floor in enumerate(layers.FLOORS):
            lines = "".join(f"#include <plix/{below}/one.h>\n" for below in layers.FLOORS[: index + 1])
            self.plant(f"plix/{floor}/two.cpp", lines)
        self.assertEqual(self.faults(), [])

    def test_no_floor_may_include_one_above(self):
        for floor in layers.FLOORS:
            self.plant(f"plix/{floor}/one.h", "#pragma once\n")
        for index, floor in enumerate(layers.FLOORS):
            for above in layers.FLOORS[index + 1 :]:
                self.plant(f"plix/{floor}/two.cpp", f"\n#include <plix/{above}/one.h>\n")
                fault = f"plix/{floor}/two.cpp:2: plix/{floor} may not include plix/{above}, which is above it"
                self.assertEqual(self.faults(), [fault])
            self.plant(f"plix/{floor}/two.cpp", "")

    def test_a_third_party_header_outside_its_room(self):
        rooms = {"cairo.h": "platform/graphics", "pango/pangocairo.h": "platform/graphics", "unicode/ucol.h": "platform/foundation",
                 "pugixml.hpp": "platform/foundation", "SDL.h": "platform/host/desktop", "X11/Xlib.h": "platform/host/desktop",
                 "gst/gst.h": "platform/host/desktop", "sndfile.h": "platform/host/desktop"}
        for header, room in rooms.items():
            self.plant(f"plix/{room}/a.cpp", f"#include <{header}>\n")
            self.assertEqual(self.faults(), [], header)
            self.plant(f"plix/{room}/a.cpp", "")
            self.plant("plix/platform/appkit/a.cpp", f"#include <{header}>\n")
            self.assertEqual(len(self.faults()), 1, header)
            self.plant("plix/platform/appkit/a.cpp", "")

    def test_a_third_party_header_reached_through_a_header_of_its_room(self):
        self.plant("plix/platform/graphics/inner.h", "#pragma once\n#include <cairo.h>\n")
        self.plant("plix/platform/graphics/outer.h", "#pragma once\n#include <plix/platform/graphics/inner.h>\n")
        self.plant("plix/platform/graphics/user.cpp", "#include <plix/platform/graphics/outer.h>\n")
        self.assertEqual(self.faults(), [])
        self.plant("plix/platform/appkit/user.cpp", "#include <plix/platform/graphics/outer.h>\n")
        self.assertEqual(self.faults(),
                         ["plix/platform/appkit/user.cpp:1: <plix/platform/graphics/outer.h> brings <cairo.h> out of its room"])

    def test_a_public_header_that_names_a_third_party_type(self):
        self.plant("plix/platform/graphics/good.h", "#pragma once\nstruct _cairo;\n// cairo_t is inside\n_cairo* context();\n")
        self.assertEqual(self.faults(), [])
        self.plant("plix/platform/graphics/bad.h", "#pragma once\nstruct _cairo;\ncairo_t* context();\n")
        self.assertEqual(self.faults(), ["plix/platform/graphics/bad.h:3: a public header names cairo_t"])

    def test_a_header_that_has_no_room(self):
        self.plant("plix/platform/host/a.cpp", "#include <vector>\n#include <sys/stat.h>\n#include <boost/any.hpp>\n")
        self.assertEqual(self.faults(), ["plix/platform/host/a.cpp:3: <boost/any.hpp> has no room in the house"])

    def test_a_folder_that_is_in_no_list(self):
        self.plant("plix/attic/a.cpp", "")
        self.assertEqual(len(self.faults()), 1)

    def test_quotes_and_headers_that_are_not_there(self):
        self.plant("plix/format/a.cpp", '#include "b.h"\n#include <plix/format/c.h>\n')
        self.assertEqual(len(self.faults()), 2)

    def test_the_back_ends_are_the_hosts_alone(self):
        self.plant("plix/platform/host/desktop/window.h", "#pragma once\n")
        self.plant("plix/platform/host/Host.cpp", "#include <plix/platform/host/desktop/window.h>\n")
        self.assertEqual(self.faults(), [])
        self.plant("plix/platform/appkit/a.cpp", "#include <plix/platform/host/desktop/window.h>\n")
        self.assertEqual(len(self.faults()), 1)

    def test_logic_that_reaches_what_is_not_logic(self):
        self.plant("plix/logic.cmake", "file(GLOB PLIX_LOGIC_SOURCES platform/base/*.cpp)\nlist(APPEND x drawing/plan.cpp)\n")
        self.plant("plix/platform/base/a.cpp", "#include <string>\n")
        self.plant("plix/drawing/values.h", "#pragma once\n")
        self.plant("plix/drawing/plan.cpp", "#include <plix/drawing/values.h>\n")
        self.assertEqual(self.faults(), [])
        self.plant("plix/drawing/values.cpp", "#include <plix/drawing/values.h>\n")
        self.assertEqual(len(self.faults()), 1)

    def test_a_logic_source_that_is_not_there(self):
        self.plant("plix/logic.cmake", "list(APPEND x drawing/plan.cpp)\n")
        self.assertEqual(self.faults(), ["plix/logic.cmake:1: plix/drawing/plan.cpp does not exist"])

    def test_the_umbrella_includes_every_class(self):
        self.plant("plix/platform/appkit/NSView.h", "#pragma once\n")
        self.plant("plix/platform/appkit/NSView_internal.h", "#pragma once\n")
        self.plant("plix/plix.h", "#pragma once\n#include <plix/platform/appkit/NSView.h>\n")
        self.assertEqual(self.faults(), [])
        self.plant("plix/tables/PLIXTableView.h", "#pragma once\n")
        self.assertEqual(self.faults(), ["plix/plix.h:1: leaves out <plix/tables/PLIXTableView.h>"])

    def test_an_example_needs_nothing_but_the_library(self):
        self.plant("examples/a.cpp", "#include <cairo.h>\n")
        self.assertEqual(len(self.faults()), 1)

    def test_other_toolkits_stay_in_the_examples_that_live_in_them(self):
        self.plant("examples/embed_qt/a.cpp", "#include <QtWidgets/QWidget>\n")
        self.plant("examples/embed_gtk/a.cpp", "#include <gtk/gtk.h>\n")
        self.assertEqual(self.faults(), [])
        self.plant("examples/embed/a.cpp", "#include <QtWidgets/QWidget>\n#include <gtk/gtk.h>\n")
        self.assertEqual(len(self.faults()), 2)


if __name__ == "__main__":
    unittest.main()
