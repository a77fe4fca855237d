#include <examples/gallery/FixedWorld.h>
#include <examples/gallery/pages.h>

#include <plix/platform/foundation/NSCalendarDate.h>
#include <plix/platform/foundation/NSFileManager.h>
#include <plix/platform/foundation/NSUserDefaults.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/TestSurroundings.h>
#include <tests/support/pixels.h>

#include <algorithm>

namespace gallery {
namespace {

using namespace plix;

class FixedWorldTest : public HeadlessTest {
protected:
    FixedWorldTest()
    {
        m_surroundings.locale = "de_DE";
        m_surroundings.languages = { "de_DE" };
        m_surroundings.timeZone = "JST-9";
        m_surroundings.config = m_folder.path();
    }
    TestFolder m_folder;
    TestSurroundings m_surroundings;
};

TEST_F(FixedWorldTest, IsTheSameEverywhereAndGoes)
{
    std::string folder;
    {
        FixedWorld const world;
        folder = world.folder();
        EXPECT_TRUE(NSFileManager::defaultManager().fileExistsAtPath(folder));
        EXPECT_EQ(NSCalendarDate::calendarDate().descriptionWithCalendarFormat("%A %d %B %Y %H:%M:%S %z"),
            "Saturday 12 July 2008 15:23:45 +0000");
    }
    EXPECT_FALSE(NSFileManager::defaultManager().fileExistsAtPath(folder));
    EXPECT_EQ(NSCalendarDate(NSDate::dateWithTimeIntervalSince1970(0)).descriptionWithCalendarFormat("%A %H"), "Donnerstag 09");
    EXPECT_EQ(NSDate::date(), machine().headlessClock().now());
}

TEST_F(FixedWorldTest, LeavesTheUsersDefaultsAsTheyWere)
{
    NSUserDefaults::standardUserDefaults().registerDefaults({ { "cups", 2 } });
    NSUserDefaults::standardUserDefaults().setObject("Assam", "tea");
    {
        FixedWorld const world;
        EXPECT_EQ(NSUserDefaults::standardUserDefaults().objectForKey("tea"), ObjectValue());
        NSUserDefaults::standardUserDefaults().setObject("Sencha", "tea");
    }
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().objectForKey("tea"), "Assam");
    EXPECT_EQ(NSUserDefaults::standardUserDefaults().integerForKey("cups"), 2);
}

TEST_F(FixedWorldTest, PicturesAreDumpedAlikeForEveryUser)
{
    auto const all = pages();
    for (std::string const name : { "NSDatePicker", "PLIXProgressWindow" }) {
        auto const page = std::find_if(all.begin(), all.end(), [&](Page const& it) { return it.name == name; });
        ASSERT_NE(page, all.end()) << name;
        ASSERT_TRUE(dump(m_folder / "pictures", { page, 1 }));
        auto const dumped = NSBitmapImageRep::imageRepWithContentsOfFile(m_folder / "pictures/" + name + ".png");
        ASSERT_TRUE(dumped) << name;
        EXPECT_TRUE(matchesReference(dumped, "gallery/" + name));
    }
}

}
}
