import unittest

import planted

import lint


class Lint(planted.PlantedTree):
    def faults_of(self, path, text):
        self.plant(path, text)
        return lint.Lint(self.root).check()

    def assertFault(self, path, text, line, words):
        faults = self.faults_of(path, text)
        self.assertEqual(len(faults), 1, faults)
        self.assertTrue(faults[0].startswith(f"{path}:{line}: "), faults)
        self.assertIn(words, faults[0])

    def test_this_project_has_no_fault(self):
        self.assertEqual(lint.Lint(planted.PROJECT).check(), [])

    def test_a_clean_source_has_none(self):
        self.plant("plix/format/a.h", "#pragma once\n\nint a();\n")
        self.assertEqual(self.faults_of("plix/format/a.cpp", "#include <plix/format/a.h>\n\nint a()\n{\n    return 1;\n}\n"), [])

    def test_a_tab(self):
        self.assertFault("plix/a.cpp", "int a;\n\tint b;\n", 2, "tab")

    def test_blanks_at_the_end_of_a_line(self):
        self.assertFault("plix/a.cpp", "int a; \n", 1, "blanks")

    def test_no_newline_at_the_end(self):
        self.assertFault("plix/a.cpp", "int a;", 1, "newline")

    def test_unfinished_work(self):
        for word in ("TO" "DO", "FIX" "ME", "X" "XX", "HA" "CK"):
            self.assertFault("plix/a.cpp", f"int a; // {word}: later\n", 1, word)

    def test_a_header_without_pragma_once(self):
        self.assertFault("plix/a.h", "int a;\n", 1, "#pragma once")

    def test_using_namespace_in_a_header(self):
        self.assertFault("plix/a.h", "#pragma once\nusing namespace std;\n", 2, "using namespace")

    def test_the_own_header_second(self):
        self.plant("plix/a.h", "#pragma once\n")
        self.assertFault("plix/a.cpp", "#include <string>\n#include <plix/a.h>\n", 1, "own header")

    def test_the_own_header_missing(self):
        self.plant("plix/a.h", "#pragma once\n")
        self.assertFault("plix/a.cpp", "int a;\n", 1, "own header")

    def test_a_file_that_is_too_long(self):
        self.assertEqual(self.faults_of("plix/a.cpp", "int a;\n" * 800), [])
        self.assertFault("plix/a.cpp", "int a;\n" * 801, 800, "801 lines")

    def test_a_function_that_is_too_long(self):
        self.assertEqual(self.faults_of("plix/a.cpp", "void a()\n{\n" + "    b();\n" * 60 + "}\n"), [])
        self.assertFault("plix/a.cpp", "void a()\n{\n" + "    b();\n" * 61 + "}\n", 2, "61 lines")

    def test_a_source_that_is_all_comments(self):
        self.assertEqual(self.faults_of("plix/a.cpp", "int a;\n" * 92 + "// why\n" * 8), [])
        self.assertFault("plix/a.cpp", "int a;\n" * 91 + "// what\n" * 9, 1, "comments")

    def test_what_clang_14_lacks(self):
        for line in ("#include <format>", "for (auto a : b | std::views::reverse) c(a);"):
            self.assertFault("plix/a.cpp", line + "\n", 1, "clang")

    def test_a_bare_destroy_call(self):
        self.assertEqual(self.faults_of("plix/platform/graphics/handles.cpp", "cairo_destroy(c);\n"), [])
        deleter = "void operator()(cairo_t* context) const { cairo_destroy(context); }\n"
        self.assertEqual(self.faults_of("plix/platform/graphics/b.cpp", deleter), [])
        self.assertFault("plix/platform/graphics/a.cpp", "cairo_surface_destroy(s);\n", 1, "Handle")

    def test_a_test_that_expects_nothing(self):
        good = "    TEST(Clock, Ticks)\n    {\n        EXPECT_TRUE(a());\n    }\n"
        self.assertEqual(self.faults_of("tests/a_test.cpp", good), [])
        self.assertFault("tests/a_test.cpp", good + "\n    TEST(Clock, MeetsExpectations)\n    {\n        a();\n    }\n", 6, "expects")

    def test_a_test_that_sleeps(self):
        self.assertFault("tests/a_test.cpp", "void wait() { usleep(10); }\n", 1, "sleep")

    def test_a_test_that_never_runs(self):
        self.assertFault("tests/a_test.cpp", "TEST(A, DISABLED" "_B) { EXPECT_TRUE(a()); }\n", 1, "never")


if __name__ == "__main__":
    unittest.main()
