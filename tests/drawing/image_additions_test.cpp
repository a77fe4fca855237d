#include <plix/drawing/image_additions.h>

#include <plix/platform/foundation/NSBundle.h>

#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

#include <filesystem>

namespace plix {
namespace {

class Furniture : public NSObject {
    PLIX_CLASS(Furniture, NSObject);
};

PLIX_DESCRIBE(Furniture)
{
    description.bundle("test furniture");
}

class ImageAdditions : public testing::Test {
protected:
    ImageAdditions() { NSBundle::registerBundle("test furniture", *m_bundle); }

    TestFolder const m_folder;
    Ref<NSBundle> m_bundle { make<NSBundle>(std::vector<std::string> { m_folder.path() }) };
};

TEST_F(ImageAdditions, FindTheFileOfExactlyThatNameFirst)
{
    writePNG(bitmapOfColor(2, 2, colors::red), m_folder / "lamp");
    writePNG(bitmapOfColor(3, 3, colors::green), m_folder / "lamp.png");
    EXPECT_EQ(imageNamed("lamp", &Furniture::staticClass())->size(), (Size { 2, 2 }));
    EXPECT_EQ(imageNamed("lamp.png", &Furniture::staticClass())->size(), (Size { 3, 3 }));
}

TEST_F(ImageAdditions, GoOnToTheTypesWhereThatFileDoesNotLoad)
{
    m_folder.write("chair", "no picture");
    writePNG(bitmapOfColor(3, 3, colors::green), m_folder / "chair.png");
    EXPECT_EQ(imageNamed("chair", &Furniture::staticClass())->size(), (Size { 3, 3 }));
}

TEST_F(ImageAdditions, SkipFilesThatDoNotLoad)
{
    auto const& types = NSImage::imageUnfilteredFileTypes();
    ASSERT_GT(types.size(), 1U);
    m_folder.write("table." + types.front(), "no picture");
    writePNG(bitmapOfColor(4, 4, colors::green), m_folder / ("table." + types.back()));
    EXPECT_EQ(imageNamed("table", &Furniture::staticClass())->size(), (Size { 4, 4 }));
}

TEST_F(ImageAdditions, GiveANewImageAtEachCall)
{
    writePNG(bitmapOfColor(2, 2, colors::red), m_folder / "bed.png");
    EXPECT_NE(imageNamed("bed", &Furniture::staticClass()), imageNamed("bed", &Furniture::staticClass()));
    auto const before = imageNamed("bed", &Furniture::staticClass());
    writePNG(bitmapOfColor(3, 3, colors::blue), m_folder / "bed.png");
    EXPECT_EQ(imageNamed("bed", &Furniture::staticClass())->size(), (Size { 3, 3 }));
    EXPECT_EQ(before->size(), (Size { 2, 2 }));
}

TEST_F(ImageAdditions, AnswerNullWhereThereIsNone)
{
    EXPECT_EQ(imageNamed("no such thing", &Furniture::staticClass()), nullptr);
    EXPECT_EQ(imageNamed("", &Furniture::staticClass()), nullptr);
    EXPECT_EQ(imageNamed("lamp", nullptr), nullptr);
}

TEST_F(ImageAdditions, MakeNoPictureOfAnotherSystem)
{
    auto const image = imageOfColor({ 2, 2 }, colors::red);
    test(*image);
    EXPECT_EQ(picHandle(*image), nullptr);
}

}
}
