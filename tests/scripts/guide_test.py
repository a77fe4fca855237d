import unittest

import planted

import guide


class GuidePages(planted.PlantedTree):
    PROGRAM = "#include <a.h>\n\nint main()\n{\n    if (a())\n        return 1;\n    return b();\n}\n"

    def setUp(self):
        super().setUp()
        self.plant("docs/snippets/one.cpp", self.PROGRAM)
        self.plant("docs/snippets/CMakeLists.txt", "find_package(plix REQUIRED)\nadd_executable(one one.cpp)\n")

    def faults_of(self, text):
        self.plant("docs/GUIDE.md", text + "\n[one.cpp](snippets/one.cpp)\n")
        return guide.Guide(self.root).check()

    def test_this_project_shows_what_is_compiled(self):
        self.assertEqual(guide.Guide(planted.PROJECT).check(), [])

    def test_a_block_that_is_in_a_program(self):
        self.assertEqual(self.faults_of("```cpp\nif (a())\n    return 1;\n```\n"), [])
        self.assertEqual(self.faults_of("```cpp\n    if (a())\n        return 1;\n```\n"), [])

    def test_a_block_that_is_in_none(self):
        fault = ["docs/GUIDE.md:3: this is in no program of docs/snippets"]
        self.assertEqual(self.faults_of("Text\n\n```cpp\nif (a())\n    return 2;\n```\n"), fault)
        self.assertEqual(self.faults_of("Text\n\n```cpp\nif (a())\nreturn 1;\n```\n"), fault)
        self.assertEqual(self.faults_of("Text\n\n```cpp\nif (a())\n    return b();\n```\n"), fault)

    def test_a_line_of_cmake(self):
        self.assertEqual(self.faults_of("```cmake\nadd_executable(one one.cpp)\n```\n"), [])
        self.assertEqual(self.faults_of("```cmake\nadd_executable(two two.cpp)\n```\n"),
                         ["docs/GUIDE.md:1: docs/snippets/CMakeLists.txt has no line 'add_executable(two two.cpp)'"])

    def test_a_link_to_what_is_not_there(self):
        self.assertEqual(self.faults_of("[two](two.md) [three](https://example.org)\n"), ["docs/GUIDE.md: there is no two.md"])

    def test_a_page_that_no_page_leads_to(self):
        self.plant("docs/guide/two.md", "Two\n")
        self.assertEqual(self.faults_of("Text\n"), ["docs/guide/two.md: no page leads here"])
        self.assertEqual(self.faults_of("[two](guide/two.md)\n"), [])

    def test_a_program_that_no_page_shows(self):
        self.plant("docs/snippets/two.cpp", "int main() { }\n")
        self.assertEqual(self.faults_of("Text\n"), ["docs/snippets/two.cpp: no page shows it"])


if __name__ == "__main__":
    unittest.main()
