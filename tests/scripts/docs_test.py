import unittest

import planted

import docs


class Docs(planted.PlantedTree):
    def header(self, text):
        self.plant("a.h", text)
        header = docs.Header.__new__(docs.Header)
        header.lines = text.split("\n")
        return header

    def test_a_comment_counts_for_its_block(self):
        header = self.header("class A {\npublic:\n    // Size.\n    int width();\n    int height();\n\n    int depth();\n};\n")
        self.assertTrue(header.has_comment(4))
        self.assertTrue(header.has_comment(5))
        self.assertFalse(header.has_comment(7))

    def test_the_comment_of_a_class_is_none_of_its_first_members(self):
        header = self.header("/// A thing.\nclass A {\n    int width();\npublic:\n    int height();\n};\n")
        self.assertFalse(header.has_comment(3))
        self.assertFalse(header.has_comment(5))

    def test_getters_and_setters_have_one_subject(self):
        self.assertEqual({docs.subject(name) for name in ("isEnabled", "setEnabled", "Enabled")}, {"enabled"})
        self.assertEqual(docs.subject("settle"), "settle")

    def test_blocks_become_groups(self):
        lines = ["    // Size.", "    int width();", "", "    int depth();"]
        self.assertEqual(docs.filtered_header(lines, {}),
                         ["    /// @name Size.", "    /// @{", "    int width();", "    /// @}", "", "    int depth();"])

    def test_a_class_gets_its_pictures(self):
        lines = ["/// A thing.", "class PLIX_EXPORT A : public B {", "class B;"]
        self.assertEqual(docs.filtered_header(lines, {"A": ["things"], "B": ["others"]}),
                         ["/// A thing.", "/// @image html gallery_things.png", "class PLIX_EXPORT A : public B {", "class B;"])

    def test_pages_name_pictures_without_folders(self):
        self.assertEqual(docs.filtered_page("![A](../../tests/references/guide/a@2x.png) [a](../snippets/a.cpp) [b](b.md)"),
                         "![A](a@2x.png) `a` [b](b.md)")

    def test_pictures_are_of_pages_that_the_gallery_has(self):
        shown = {page for pages in docs.pictures().values() for page in pages}
        self.assertGreater(len(shown), 5)
        self.assertEqual(shown - docs.gallery_pages(), set())

    def test_a_class_shows_its_own_page_first(self):
        shown = docs.pictures()
        self.assertEqual(shown["NSButton"], ["NSButton", "buttons", "live"])
        self.assertEqual(shown["NSActionCell"], ["NSActionCell"])

    def test_a_class_with_a_page_is_not_said_to_have_none(self):
        class Nothing:
            compounds = {"plix::NSButton": None, "plix::NSThing": None}

            @staticmethod
            def seen_classes():
                return ["NSThing", "NSOther"]

        lines = docs.own_lines
        docs.own_lines = lambda: {"NSButton": ["-"], "NSThing": ["nowhere"], "NSGone": ["buttons"]}
        try:
            faults = [fault.partition(": ")[2] for fault in docs.missing_pictures(Nothing)]
        finally:
            docs.own_lines = lines
        self.assertEqual(faults, ["NSOther has no picture", "NSButton has a page, and is said to have none",
                                  "the gallery has no page nowhere", "there is no class NSGone"])


if __name__ == "__main__":
    unittest.main()
