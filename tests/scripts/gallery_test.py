import unittest

import planted  # finds the scripts

import docs

# Public, and without a page.
EXCEPTIONS = {
    "AppearanceScope": "a guard, used by those who draw outside of views",
    "CGFunctionCallbacks": "the function that a CGFunction calls, shown there",
    "CurrentContext": "a guard, used by those who draw into bitmaps",
    "NSFileAttributes": "what NSFileManager answers, shown there",
    "NSFileCopyHandler": "hooks of NSFileManager",
    "NSUnarchiver": "the other half of NSArchiver, shown there",
    "Speech": "of the host, below NSSpeechSynthesizer",
}


class Gallery(unittest.TestCase):
    def test_every_public_class_has_a_page(self):
        pages = docs.gallery_pages()
        public = docs.public_classes()
        self.assertGreater(len(public), 120)
        self.assertEqual(sorted(public - pages - set(EXCEPTIONS)), [])

    def test_every_registered_class_has_a_page(self):
        registered = docs.registered_classes()
        self.assertGreater(len(registered), 70)
        self.assertEqual(sorted(registered - docs.gallery_pages() - set(EXCEPTIONS)), [])

    def test_exceptions_are_classes_without_a_page(self):
        pages = docs.gallery_pages()
        everything = docs.public_classes() | docs.registered_classes()
        self.assertEqual(sorted(set(EXCEPTIONS) & pages), [])
        self.assertEqual(sorted(set(EXCEPTIONS) - everything), [])

    def test_pages_are_named_after_what_is_there(self):
        words = docs.public_words()
        self.assertEqual(sorted(page for page in docs.gallery_pages() if docs.is_class_page(page) and page not in words), [])


if __name__ == "__main__":
    unittest.main()
