#include <examples/gallery/pages.h>
#include <examples/gallery/picture_samples.h>

#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/TestFolder.h>
#include <tests/support/pixels.h>

#include <filesystem>

namespace gallery {
namespace {

using namespace plix;

class GalleryTest : public HeadlessTest { };
class GalleryRetinaTest : public RetinaTest { };

TEST_F(GalleryTest, PagesLookAsTheirReferencesShow)
{
    for (auto const& page : pages())
        EXPECT_TRUE(matchesReference(render(page), std::string("gallery/") + page.name));
}

TEST_F(GalleryRetinaTest, PagesLookAsTheirReferencesShow)
{
    for (auto const& page : pages())
        EXPECT_TRUE(matchesReference(render(page), std::string("gallery/") + page.name + "@2x"));
}

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
