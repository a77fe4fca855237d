#include <plix/format/string_additions.h>

#include <plix/platform/foundation/NSCharacterSet.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

TEST(FileExtension, HasThreeOrFourLettersOrDigits)
{
    struct Row {
        char const* path;
        char const* extension;
        char const* withoutExtension;
    };
    for (auto const& row : {
             Row { "photo.jpeg", "jpeg", "photo" },
             Row { "photo.JPG", "JPG", "photo" },
             Row { "archive.gz", "", "archive.gz" },
             Row { "a.tar_", "", "a.tar_" },
             Row { "noext", "", "noext" },
             Row { "a.b.mp3", "mp3", "a.b" },
             Row { "page.xhtml", "", "page.xhtml" },
             Row { "/d.txt/name", "", "/d.txt/name" },
             Row { "/d/name.txt", "txt", "/d/name" },
             Row { ".txt", "", ".txt" },
             Row { "name.", "", "name." },
             Row { "name.a b", "", "name.a b" },
             Row { "", "", "" },
             Row { "n.\xC3\xA4\xC3\xB6\xC3\xBC", "\xC3\xA4\xC3\xB6\xC3\xBC", "n" },
             Row { "n.\xF0\x9D\x90\x80\xF0\x9D\x90\x81", "\xF0\x9D\x90\x80\xF0\x9D\x90\x81", "n" }, // two letters, four units
             Row { "n.\xF0\x9F\x8D\x8E\xF0\x9F\x8D\x8E", "", "n.\xF0\x9F\x8D\x8E\xF0\x9F\x8D\x8E" }, // no letters
             Row { "n.ab\xFF", "", "n.ab\xFF" },
         }) {
        EXPECT_EQ(fileExtension(row.path), row.extension) << row.path;
        EXPECT_EQ(stringByDeletingFileExtension(row.path), row.withoutExtension) << row.path;
    }
}

TEST(WithoutCharactersInSet, RemovesEveryOne)
{
    auto const blanks = NSCharacterSet::whitespaceCharacterSet();
    EXPECT_EQ(withoutCharactersInSet("  a b\t\tc ", blanks), "abc");
    EXPECT_EQ(withoutCharactersInSet("   ", blanks), "");
    EXPECT_EQ(withoutCharactersInSet("", blanks), "");
    EXPECT_EQ(withoutCharactersInSet("abc", blanks), "abc");
    EXPECT_EQ(withoutCharactersInSet("a\xC2\xA0"
                                     "b",
                  blanks),
        "ab");
    auto const vowels = NSCharacterSet::characterSetWithCharactersInString("aeiou\xC3\xA4");
    EXPECT_EQ(withoutCharactersInSet("a\xC3\xA4qua\xF0\x9F\x8D\x8E\xFFring", vowels), "q\xF0\x9F\x8D\x8E\xFFrng");
    EXPECT_EQ(withoutCharactersInSet("abc", NSCharacterSet()), "abc");
}

}
}
