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


if __name__ == "__main__":
    unittest.main()
