#include <examples/gallery/pages.h>
#include <examples/gallery/picture_samples.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/appearance.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/pixels.h>

#include <filesystem>

namespace gallery {
namespace {

using namespace plix;

class GalleryTest : public HeadlessTest { };

/// The pages at one scale, light and dark.
template <typename Test> class GalleryLooks : public Test, public testing::WithParamInterface<Appearance> {
protected:
    void SetUp() override
    {
        setCurrentAppearance(this->GetParam());
        Test::SetUp();
    }
    void TearDown() override { setCurrentAppearance(Appearance::light); }
    testing::AssertionResult pagesMatch(std::string const& suffix)
    {
        auto all = testing::AssertionSuccess();
        for (auto const& page : pages()) {
            auto const look = std::string(page.name) + (this->GetParam() == Appearance::dark ? "_dark" : "");
            if (auto const one = matchesReference(render(page), "gallery/" + look + suffix); !one)
                all = (all ? testing::AssertionFailure() : all) << one.message() << '\n';
        }
        return all;
    }
};
using GalleryPages = GalleryLooks<HeadlessTest>;
using GalleryRetinaPages = GalleryLooks<RetinaTest>;

TEST_P(GalleryPages, LookAsTheirReferencesShow)
{
    EXPECT_TRUE(pagesMatch(""));
}

TEST_P(GalleryRetinaPages, LookAsTheirReferencesShow)
{
    EXPECT_TRUE(pagesMatch("@2x"));
}

auto const bothAppearances = testing::Values(Appearance::light, Appearance::dark);
std::string appearanceName(testing::TestParamInfo<Appearance> const& info)
{
    return info.param == Appearance::dark ? "Dark" : "Light";
}

INSTANTIATE_TEST_SUITE_P(Appearances, GalleryPages, bothAppearances, appearanceName);
INSTANTIATE_TEST_SUITE_P(Appearances, GalleryRetinaPages, bothAppearances, appearanceName);

TEST_F(GalleryTest, DumpsEveryPageAtBothScales)
{
    TestFolder const folder;
    ASSERT_TRUE(dump(folder / "pictures"));
    for (auto const& page : pages()) {
        auto const plain = NSBitmapImageRep::imageRepWithContentsOfFile(folder / "pictures/" + page.name + ".png");
        auto const doubled = NSBitmapImageRep::imageRepWithContentsOfFile(folder / "pictures/" + page.name + "@2x.png");
        ASSERT_TRUE(plain && doubled) << page.name;
        EXPECT_EQ(doubled->pixelsWide(), 2 * plain->pixelsWide()) << page.name;
        EXPECT_EQ(doubled->size(), plain->size()) << page.name;
    }
}

TEST_F(GalleryTest, SaysWhereItCannotWrite)
{
    TestFolder const folder;
    auto const file = folder.write("a file");
    EXPECT_FALSE(dump(file));
}

TEST_F(GalleryTest, ShowsEverySampleAtTheScaleAround)
{
    auto const samples = PictureSamples::make();
    EXPECT_EQ(samples.operations.size(), 14U);
    EXPECT_EQ(samples.badged.size(), 9U);
    for (auto const* image : samples.all())
        EXPECT_TRUE(image->isValid());
}

}
}
