import unittest

import planted

import exports


class Exports(planted.PlantedTree):
    def hidden_in(self, text):
        return [name for _, name in exports.hidden_declarations(text.split("\n"))]

    def test_what_this_project_declares_for_all_is_shown(self):
        for path in exports.reached_headers(planted.PROJECT):
            found = list(exports.hidden_declarations(exports.sources.lines_of(planted.PROJECT, path)))
            self.assertEqual(found, [], path)

    def test_examples_include_what_is_installed(self):
        self.assertEqual(list(exports.private_includes(planted.PROJECT)), [])

    def test_an_example_that_includes_what_is_not_installed(self):
        self.plant("plix/plix.h", "#include <plix/a.h>\n")
        self.plant("plix/a.h", "int a();\n")
        self.plant("plix/logic.cmake", "list(APPEND SOURCES\n    format/b.cpp\n)\n")
        self.plant("examples/one.cpp", "#include <plix/a.h>\n#include <plix/format/b.h>\n#include <plix/c.h>\n#include <vector>\n")
        self.assertEqual(list(exports.private_includes(self.root)), [("examples/one.cpp", 3, "plix/c.h")])

    def test_more_than_a_hundred_headers_are_reached(self):
        self.assertGreater(len(exports.reached_headers(planted.PROJECT)), 100)

    def test_headers_reached_through_others(self):
        self.plant("plix/plix.h", "#include <plix/a.h>\n#include <vector>\n")
        self.plant("plix/a.h", "#include <plix/b.h>\n")
        self.plant("plix/b.h", "int b();\n")
        self.plant("plix/c.h", "int c();\n")
        self.assertEqual(exports.reached_headers(self.root), ["plix/a.h", "plix/b.h", "plix/plix.h"])

    def test_a_function_that_is_not_marked(self):
        self.assertEqual(self.hidden_in("int a();\n"), ["a"])
        self.assertEqual(self.hidden_in("std::vector<Ref<A>> a(int b,\n    int c);\n"), ["a"])
        self.assertEqual(self.hidden_in("PLIX_EXPORT int a();\n[[nodiscard]] PLIX_EXPORT int a();\n"), [])

    def test_a_global_object_that_is_not_marked(self):
        self.assertEqual(self.hidden_in("extern Global<A> a;\nPLIX_EXPORT extern Global<A> b;\nextern template class C<int>;\n"), ["a"])

    def test_what_a_header_defines_needs_no_mark(self):
        self.assertEqual(self.hidden_in("inline int a() { return 1; }\nconstexpr int b() { return 1; }\n"), [])
        self.assertEqual(self.hidden_in("template <typename T> int a();\ntemplate <typename T>\nint b();\n"), [])
        self.assertEqual(self.hidden_in("template <typename T>\nint a();\nint b();\n"), ["b"])

    def test_a_class_with_operations_that_is_not_marked(self):
        self.assertEqual(self.hidden_in("class A : public B {\npublic:\n    void a() const;\n};\n"), ["A"])
        self.assertEqual(self.hidden_in("struct A {\n    A();\n};\n"), ["A"])
        self.assertEqual(self.hidden_in("class PLIX_EXPORT A {\n    void a();\n};\n"), [])

    def test_a_class_that_is_whole_in_its_header_needs_no_mark(self):
        self.assertEqual(self.hidden_in("struct A {\n    int a { 0 };\n    int b() const { return a; }\n};\n"), [])
        self.assertEqual(self.hidden_in("struct A {\n    Hook<void(int)> a;\n};\nclass B;\nenum class C { D };\n"), [])
        self.assertEqual(self.hidden_in("struct A {\n    template <typename T> void a(T& b) { F(b); }\n};\n"), [])

    def test_marks_what_lacks_one(self):
        text = "#pragma once\n\n#include <plix/a.h>\n#include <plix/z.h>\n\nclass A : public B {\n    void a();\n};\n[[noreturn]] int c();\n"
        marked = "#pragma once\n\n#include <plix/a.h>\n#include <plix/platform/base/export.h>\n#include <plix/z.h>\n\n" \
            "class PLIX_EXPORT A : public B {\n    void a();\n};\n[[noreturn]] PLIX_EXPORT int c();\n"
        self.assertEqual("\n".join(exports.marked(text.split("\n"))), marked)
        self.assertEqual("\n".join(exports.marked(marked.split("\n"))), marked)

    def test_brings_the_mark_where_nothing_was_included(self):
        lines = exports.marked("#pragma once\n\n#include <vector>\n\nint a();\n".split("\n"))
        self.assertEqual(lines[2:5], ["#include <plix/platform/base/export.h>", "", "#include <vector>"])


if __name__ == "__main__":
    unittest.main()
