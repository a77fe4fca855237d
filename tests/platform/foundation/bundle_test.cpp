#include "../../support/TestFolder.h"
#include "../../support/TestSurroundings.h"

#include <plix/platform/base/NSLog.h>
#include <plix/platform/foundation/NSBundle.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace plix {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class OwnClass : public NSObject {
    PLIX_CLASS(OwnClass, NSObject);
};

PLIX_DESCRIBE(OwnClass)
{
}

class ForeignClass : public NSObject {
    PLIX_CLASS(ForeignClass, NSObject);
};

PLIX_DESCRIBE(ForeignClass)
{
    description.bundle("foreign");
}

class LibraryClass : public NSObject {
    PLIX_CLASS(LibraryClass, NSObject);
};

PLIX_DESCRIBE(LibraryClass)
{
    description.bundle("plix");
}

class NSBundleTest : public testing::Test {
protected:
    Ref<NSBundle> open() { return make<NSBundle>(std::vector<std::string> { folder / "one", folder / "two", folder / "none" }); }

    TestFolder folder;
    TestSurroundings set;
};

TEST_F(NSBundleTest, LooksIntoTheLanguagesFirst)
{
    for (auto const* file : { "one/x.txt", "two/x.txt", "two/de.lproj/x.txt", "one/en.lproj/x.txt", "one/pt.lproj/x.txt",
             "one/French.lproj/x.txt", "one/zh-Hant.lproj/x.txt", "one/Base.lproj/b.txt", "one/en.lproj/b.txt", "two/only.txt" })
        folder.write(file, file);
    auto const bundle = open();
    auto const found = [&](std::vector<std::string> languages, char const* name) {
        set.languages = std::move(languages);
        auto const path = bundle->pathForResource(name, "txt");
        return path ? path->substr(folder.path().size() + 1) : "nothing";
    };
    EXPECT_EQ(found({ "de_AT" }, "x"), "two/de.lproj/x.txt");
    EXPECT_EQ(found({ "pt_BR", "de" }, "x"), "one/pt.lproj/x.txt");
    EXPECT_EQ(found({ "fr_FR" }, "x"), "one/French.lproj/x.txt");
    EXPECT_EQ(found({ "zh_Hant_TW" }, "x"), "one/x.txt");
    EXPECT_EQ(found({ "zh_Hant" }, "x"), "one/zh-Hant.lproj/x.txt");
    EXPECT_EQ(found({ "fi" }, "x"), "one/x.txt");
    EXPECT_EQ(found({ "fi" }, "b"), "one/Base.lproj/b.txt");
    EXPECT_EQ(found({ "en_GB" }, "b"), "one/en.lproj/b.txt");
    EXPECT_EQ(found({ "fi" }, "only"), "two/only.txt");
    EXPECT_EQ(found({ "fi" }, "missing"), "nothing");
    set.languages = { "de", "pt_BR" };
    EXPECT_THAT(bundle->preferredLocalizations(), ElementsAre("de", "pt", "Base", "en"));
}

TEST_F(NSBundleTest, FindsByNameTypeAndDirectory)
{
    folder.write("one/deep/x.png");
    folder.write("one/y");
    auto const bundle = open();
    EXPECT_EQ(bundle->pathForResource("x", "png", "deep"), folder / "one/deep/x.png");
    EXPECT_EQ(bundle->pathForResource("x.png", "", "deep"), folder / "one/deep/x.png");
    EXPECT_EQ(bundle->pathForResource("x", ".png", "deep"), folder / "one/deep/x.png");
    EXPECT_EQ(bundle->pathForResource("y"), folder / "one/y");
    EXPECT_FALSE(bundle->pathForResource("x", "png"));
    EXPECT_FALSE(bundle->pathForResource(""));
    EXPECT_EQ(bundle->resourcePath(), folder / "one");
}

TEST_F(NSBundleTest, NamesDoNotLeadOut)
{
    folder.write("one/inside.txt");
    folder.write("secret.txt");
    auto const bundle = open();
    for (auto const* name : { "../secret.txt", "x/../../secret.txt", "/etc/passwd" })
        EXPECT_FALSE(bundle->pathForResource(name)) << name;
    EXPECT_FALSE(bundle->pathForResource("secret", "txt", ".."));
    EXPECT_FALSE(bundle->pathForResource("secret", "/../../secret.txt"));
    EXPECT_THAT(bundle->pathsForResourcesOfType("txt", ".."), IsEmpty());
}

TEST_F(NSBundleTest, ListsResourcesOfAType)
{
    for (auto const* file : { "one/b.txt", "one/a.txt", "one/c.png", "two/d.txt", "one/de.lproj/a.txt" })
        folder.write(file);
    set.languages = { "de" };
    EXPECT_THAT(open()->pathsForResourcesOfType("txt"),
        ElementsAre(folder / "one/de.lproj/a.txt", folder / "one/b.txt", folder / "two/d.txt"));
}

TEST_F(NSBundleTest, FindsImagesWithOrWithoutExtension)
{
    folder.write("one/images/badge.png");
    folder.write("one/icon.svg");
    folder.write("one/folder/x");
    auto const bundle = open();
    EXPECT_EQ(bundle->pathForImageResource("badge"), folder / "one/images/badge.png");
    EXPECT_EQ(bundle->pathForImageResource("badge.png"), folder / "one/images/badge.png");
    EXPECT_EQ(bundle->pathForImageResource("icon"), folder / "one/icon.svg");
    EXPECT_FALSE(bundle->pathForImageResource("folder"));
    EXPECT_FALSE(bundle->pathForImageResource("none"));
}

TEST_F(NSBundleTest, GivesTheUsersWords)
{
    folder.write("one/en.lproj/Localizable.strings", "\"day\" = \"day\"; \"OK\" = \"OK\";");
    folder.write("one/de.lproj/Localizable.strings", "\"day\" = \"Tag\";");
    folder.write("one/Other.strings", "<plist><dict><key>day</key><string>listed</string></dict></plist>");
    auto const bundle = open();
    EXPECT_EQ(bundle->localizedStringForKey("day"), "day");
    set.languages = { "de_DE" };
    EXPECT_EQ(bundle->localizedStringForKey("day"), "Tag");
    EXPECT_EQ(bundle->localizedStringForKey("OK"), "OK");
    EXPECT_EQ(bundle->localizedStringForKey("none", "value"), "value");
    EXPECT_EQ(bundle->localizedStringForKey("day", "", "Other"), "listed");
    EXPECT_EQ(bundle->localizedStringForKey("day", "", "NoTable"), "day");
    EXPECT_EQ(bundle->localizedStringForKey("day", "", "../one/de.lproj/Localizable"), "day");
}

TEST_F(NSBundleTest, ADamagedTableIsPassedOverWithALine)
{
    folder.write("one/Localizable.strings", "\"day\" = \"Tag\"");
    std::vector<std::string> log;
    auto const before = installLogSink([&](std::string_view line) { log.emplace_back(line); });
    auto const bundle = open();
    auto const text = bundle->localizedStringForKey("day");
    bundle->localizedStringForKey("day");
    installLogSink(before);
    EXPECT_EQ(text, "day");
    EXPECT_THAT(log, ElementsAre(HasSubstr("line 1: a semicolon is missing")));
}

TEST_F(NSBundleTest, IsFoundByItsPath)
{
    folder.write("A.bundle/Contents/Info.plist", "<plist><dict><key>CFBundleIdentifier</key><string>a.b</string></dict></plist>");
    folder.write("A.bundle/Contents/Resources/x");
    folder.write("B.bundle/Resources/x");
    folder.write("B.bundle/Info.plist", "damaged");
    auto const a = NSBundle::bundleWithPath(folder / "A.bundle/");
    ASSERT_TRUE(a);
    EXPECT_EQ(a, NSBundle::bundleWithPath(folder / "A.bundle"));
    EXPECT_EQ(a->bundlePath(), folder / "A.bundle");
    EXPECT_EQ(a->pathForResource("x"), folder / "A.bundle/Contents/Resources/x");
    EXPECT_EQ(a->bundleIdentifier(), "a.b");
    EXPECT_TRUE(a->objectForInfoDictionaryKey("none").isNil());
    auto const b = NSBundle::bundleWithPath(folder / "B.bundle");
    EXPECT_EQ(b->pathForResource("x"), folder / "B.bundle/Resources/x");
    EXPECT_EQ(b->bundleIdentifier(), std::nullopt);
    EXPECT_EQ(NSBundle::bundleWithPath(folder / "none"), nullptr);
}

TEST_F(NSBundleTest, ClassesHaveBundles)
{
    auto const foreign = open();
    EXPECT_EQ(&NSBundle::bundleForClass(OwnClass::staticClass()), &NSBundle::mainBundle());
    EXPECT_EQ(&NSBundle::bundleForClass(LibraryClass::staticClass()), &NSBundle::libraryBundle());
    EXPECT_EQ(&NSBundle::bundleForClass(ForeignClass::staticClass()), &NSBundle::mainBundle());
    NSBundle::registerBundle("foreign", *foreign);
    EXPECT_EQ(&NSBundle::bundleForClass(ForeignClass::staticClass()), foreign.get());
}

TEST_F(NSBundleTest, TheLibrarysResourcesAreThereWithoutInstallation)
{
    EXPECT_TRUE(NSBundle::libraryBundle().pathForImageResource("windowbackground"));
    EXPECT_FALSE(NSBundle::mainBundle().resourcePath().empty());
    EXPECT_EQ(NSLocalizedString("a key of nobody"), "a key of nobody");
}

}
}
