#include <plix/platform/graphics/NSBitmapImageRep.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/FocusLock.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/TestFolder.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>
#include <tests/support/test_data.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace plix {
namespace {

std::vector<std::uint8_t> bytesOfFile(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), {} };
}

std::vector<std::string> allPictures()
{
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::directory_iterator(testDataPath("pictures")))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::vector<Ref<NSImageRep>> decoded(std::vector<std::uint8_t> const& bytes)
{
    return NSImageRep::imageRepsWithData(*make<NSData>(bytes));
}

/// The test pictures are 16 x 16: quarters in red, green, blue and white (or clear).
testing::AssertionResult showsQuarters(Pixels const& pixels, ColorComponents last, float tolerance)
{
    struct Quarter {
        PixelRect area;
        ColorComponents color;
    };
    Quarter const quarters[] { { { 0, 0, 8, 8 }, colors::red }, { { 8, 0, 8, 8 }, colors::green }, { { 0, 8, 8, 8 }, colors::blue },
        { { 8, 8, 8, 8 }, last } };
    for (auto const& quarter : quarters) {
        if (auto const result = areaNear(pixels, quarter.area, quarter.color, tolerance); !result)
            return result;
    }
    return testing::AssertionSuccess();
}

TEST(ImageFiles, OfEveryKindShowTheirPicture)
{
    struct Row {
        char const* name;
        bool isClear { false };
        float tolerance { 1.0F / 255 };
    };
    constexpr float lossy = 6.0F / 255;
    Row const rows[] { { "rgb.png" }, { "rgb16.png" }, { "palette.png" }, { "interlaced.png" }, { "clear32.png", true },
        { "rgba16.png", true }, { "palette-clear.png", true }, { "rgb.jpg", false, lossy }, { "progressive.jpg", false, lossy },
        { "cmyk.jpg", false, lossy }, { "rgb.tif" }, { "rgba.tif", true }, { "rgb16.tif" }, { "cmyk.tif" }, { "palette.tif" },
        { "jpeg.tif", false, lossy }, { "big-endian.tif" }, { "rgb.gif" }, { "clear.gif", true }, { "interlaced.gif" },
        { "animated.gif" }, { "rgb.bmp" }, { "palette.bmp" }, { "rle.bmp" }, { "clear.bmp", true }, { "core.bmp" },
        { "fields.bmp" } };
    for (auto const& row : rows) {
        auto const rep = NSBitmapImageRep::imageRepWithContentsOfFile(testDataPath(std::string("pictures/") + row.name));
        ASSERT_TRUE(rep) << row.name;
        EXPECT_EQ(rep->pixelsWide(), 16) << row.name;
        EXPECT_EQ(rep->pixelsHigh(), 16) << row.name;
        EXPECT_EQ(rep->size(), (Size { 16, 16 })) << row.name;
        EXPECT_TRUE(showsQuarters(rep, row.isClear ? colors::clear : colors::white, row.tolerance)) << row.name;
    }
}

TEST(ImageFiles, InGreysShowTheirPicture)
{
    for (char const* name : { "gray.png", "gray.jpg" }) {
        auto const rep = NSBitmapImageRep::imageRepWithContentsOfFile(testDataPath(std::string("pictures/") + name));
        ASSERT_TRUE(rep) << name;
        auto const color = rep->colorAtX(12, 4)->components();
        EXPECT_EQ(color.red, color.green) << name;
        EXPECT_EQ(color.red, color.blue) << name;
        EXPECT_TRUE(pixelNear(rep, 12, 12, colors::white)) << name;
        EXPECT_GT(color.red, rep->colorAtX(4, 4)->redComponent()) << name;
    }
    auto const mono = NSBitmapImageRep::imageRepWithContentsOfFile(testDataPath("pictures/mono.bmp"));
    ASSERT_TRUE(mono);
    EXPECT_EQ(countPixels(mono, colors::black) + countPixels(mono, colors::white), 256);
}

TEST(ImageFiles, WithSeveralPagesGiveARepresentationForEach)
{
    auto const reps = NSImageRep::imageRepsWithContentsOfFile(testDataPath("pictures/pages.tif"));
    ASSERT_EQ(reps.size(), 2U);
    EXPECT_EQ(reps[0]->pixelsWide(), 16);
    EXPECT_EQ(reps[1]->pixelsWide(), 32);
}

#ifdef PLIX_SVG
TEST(ImageFiles, DrawnAsVectorsAreSharpAtEveryScale)
{
    auto const image = make<NSImage>(std::string_view(testDataPath("pictures/quarters.svg")));
    ASSERT_TRUE(image);
    EXPECT_EQ(image->size(), (Size { 16, 16 }));
    for (float const scale : { 1.0F, 3.0F }) {
        auto const bitmap = renderBitmap({ 16, 16 }, scale, [&] {
            image->drawInRect({ 0, 0, 16, 16 }, {}, NSCompositeSourceOver, 1);
        });
        int const half = static_cast<int>(8 * scale);
        EXPECT_TRUE(areaNear(bitmap, { 0, 0, half, half }, colors::red));
        EXPECT_TRUE(areaNear(bitmap, { half, 0, half, half }, colors::green));
        EXPECT_TRUE(areaNear(bitmap, { 0, half, half, half }, colors::blue));
    }
    EXPECT_TRUE(showsQuarters(image, colors::white, 1.0F / 255));
    EXPECT_TRUE(image->TIFFRepresentation());
}

TEST(ImageFiles, DrawnAsVectorsReadNothingElse)
{
    TestFolder const folder;
    writePNG(bitmapOfColor(4, 4, colors::red), folder / "secret.png");
    auto const path = folder.write("outside.svg",
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' width='4' height='4'>"
        "<image width='4' height='4' xlink:href='secret.png'/><image width='4' height='4' xlink:href='file://"
            + folder / "secret.png" + "'/></svg>");
    auto const image = make<NSImage>(std::string_view(path));
    ASSERT_TRUE(image);
    EXPECT_FALSE(hasInk(image, { 0, 0, 4, 4 }, colors::clear));
}
#endif

TEST(ImageFiles, AreWrittenAndReadBackTheSame)
{
    auto const rep = make<NSBitmapImageRep>(9, 7);
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x)
            rep->setColor(*NSColor::colorWithDeviceRed(static_cast<float>(x) / 8, static_cast<float>(y) / 6, 0.5F, 1), x, y);
    }
    for (auto const type : { NSPNGFileType, NSTIFFFileType, NSBMPFileType }) {
        auto const back = NSBitmapImageRep::imageRepWithData(*rep->representationUsingType(type));
        ASSERT_TRUE(back) << type;
        EXPECT_EQ(countDifferences(rep, back, 0), 0) << type;
    }
    EXPECT_EQ(rep->representationUsingType(NSGIFFileType), nullptr);
}

TEST(ImageFiles, WithoutAlphaShowWhiteThrough)
{
    auto const rep = bitmapOfColor(16, 16, { 1, 0, 0, 0.5F });
    for (auto const type : { NSJPEGFileType, NSBMPFileType }) {
        auto const back = NSBitmapImageRep::imageRepWithData(*rep->representationUsingType(type));
        EXPECT_FALSE(back->hasAlpha()) << type;
        EXPECT_TRUE(areaNear(back, { 0, 0, 16, 16 }, { 1, 0.5F, 0.5F, 1 }, 4.0F / 255)) << type;
    }
}

TEST(ImageFiles, KeepTheirScale)
{
    auto const rep = bitmapOfColor(8, 8, colors::red);
    rep->setSize({ 4, 4 });
    for (auto const type : { NSPNGFileType, NSTIFFFileType, NSBMPFileType, NSJPEGFileType }) {
        auto const back = NSBitmapImageRep::imageRepWithData(*rep->representationUsingType(type));
        EXPECT_EQ(back->size(), (Size { 4, 4 })) << type;
        EXPECT_EQ(back->pixelsWide(), 8) << type;
    }
}

TEST(NSImage, TIFFRepresentationHoldsEveryBitmap)
{
    auto const image = make<NSImage>();
    image->addRepresentation(bitmapOfDistinctPixels(6, 4));
    auto const doubled = bitmapOfColor(12, 8, { 0, 0, 1, 0.5F });
    doubled->setSize({ 6, 4 });
    image->addRepresentation(doubled);
    auto const back = make<NSImage>(*image->TIFFRepresentation());
    ASSERT_EQ(back->representations().size(), 2U);
    EXPECT_EQ(back->size(), (Size { 6, 4 }));
    EXPECT_EQ(back->representations()[1]->size(), (Size { 6, 4 }));
    EXPECT_EQ(countDifferences(as<NSBitmapImageRep>(back->representations()[0]), bitmapOfDistinctPixels(6, 4), 0), 0);
    EXPECT_EQ(countDifferences(as<NSBitmapImageRep>(back->representations()[1]), doubled, 0), 0);
    EXPECT_EQ(make<NSImage>(Size { 4, 4 })->TIFFRepresentation(), nullptr);
    EXPECT_EQ(make<NSImage>(Size {})->TIFFRepresentation(), nullptr);
}

TEST(NSImage, TIFFRepresentationShowsWhatWasDrawnInto)
{
    auto const image = make<NSImage>();
    image->addRepresentation(bitmapOfColor(4, 4, colors::red));
    {
        FocusLock const focus(image);
        NSColor::blueColor()->set();
        NSRectFill({ 0, 0, 4, 2 });
    }
    auto const back = make<NSImage>(*image->TIFFRepresentation());
    EXPECT_TRUE(areaNear(back, { 0, 0, 4, 2 }, colors::red));
    EXPECT_TRUE(areaNear(back, { 0, 2, 4, 2 }, colors::blue));
}

TEST(ImageFiles, ShareThePixelsOfAnEarlierDecoding)
{
    TestFolder const folder;
    writePNG(bitmapOfColor(4, 4, colors::red), folder / "lamp.png");
    auto const first = NSBitmapImageRep::imageRepWithContentsOfFile(folder / "lamp.png");
    auto const second = NSBitmapImageRep::imageRepWithContentsOfFile(folder / "lamp.png");
    EXPECT_NE(first, second);
    EXPECT_EQ(first->pixels().pixels, second->pixels().pixels);
    second->setColor(*NSColor::blueColor(), 0, 0);
    EXPECT_TRUE(pixelNear(first, 0, 0, colors::red));
    EXPECT_TRUE(pixelNear(NSBitmapImageRep::imageRepWithContentsOfFile(folder / "lamp.png"), 0, 0, colors::red));
}

// What is damaged.

TEST(HostileImages, CutOffAnywhereAreRefusedOrDecoded)
{
    for (auto const& name : allPictures()) {
        auto const whole = bytesOfFile(testDataPath("pictures/" + name));
        ASSERT_FALSE(decoded(whole).empty() && name.ends_with("svg") == false) << name;
        for (std::size_t length = 0; length<whole.size(); length += whole.size()> 400 ? 7 : 1) {
            for (auto const& rep : decoded({ whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length) }))
                EXPECT_EQ(rep->size().width > 0, true) << name;
        }
    }
}

TEST(HostileImages, WithoutTheirPixelsAreRefused)
{
    for (auto const& name : allPictures()) {
        auto const whole = bytesOfFile(testDataPath("pictures/" + name));
        // Half of the file; multiple pages may keep the first.
        if (name == "pages.tif" || name == "animated.gif")
            continue;
        EXPECT_TRUE(decoded({ whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(whole.size() / 2) }).empty()) << name;
    }
}

TEST(HostileImages, WithAnyByteChangedNeverDoHarm)
{
    for (auto const& name : allPictures()) {
        auto const whole = bytesOfFile(testDataPath("pictures/" + name));
        for (std::size_t at = 0; at<whole.size(); at += whole.size()> 400 ? 3 : 1) {
            for (std::uint8_t const value : { 0, 1, 0x7F, 0x80, 0xFF }) {
                auto changed = whole;
                changed[at] = value;
                for (auto const& rep : decoded(changed))
                    EXPECT_LE(static_cast<long>(rep->pixelsWide()) * rep->pixelsHigh(), NSBitmapImageRep::maximumPixels);
            }
        }
    }
}

TEST(HostileImages, WithTheWrongMagicAreRefused)
{
    for (auto const& name : allPictures()) {
        auto bytes = bytesOfFile(testDataPath("pictures/" + name));
        bytes[0] = 'x';
        bytes[1] = 'y';
        if (!name.ends_with("svg")) {
            EXPECT_TRUE(decoded(bytes).empty()) << name;
        }
    }
    EXPECT_TRUE(decoded({}).empty());
    EXPECT_TRUE(decoded({ 'B', 'M' }).empty());
    EXPECT_TRUE(decoded(std::vector<std::uint8_t>(1000, 0)).empty());
}

/// Sizes as they lie in each format's header.
struct SizeField {
    char const* name;
    std::size_t widthAt;
    std::size_t heightAt;
    int bytes;
    bool isBigEndian;
};

std::vector<std::uint8_t> withSize(SizeField const& field, std::uint32_t width, std::uint32_t height)
{
    auto bytes = bytesOfFile(testDataPath(std::string("pictures/") + field.name));
    auto const write = [&](std::size_t at, std::uint32_t value) {
        for (int i = 0; i < field.bytes; ++i) {
            int const shift = 8 * (field.isBigEndian ? field.bytes - 1 - i : i);
            bytes[at + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> shift);
        }
    };
    write(field.widthAt, width);
    write(field.heightAt, height);
    return bytes;
}

/// Where a 16-bit size of 16 x 16 follows the start-of-frame marker.
std::size_t frameHeaderOf(std::vector<std::uint8_t> const& jpeg)
{
    for (std::size_t i = 0; i + 9 < jpeg.size(); ++i) {
        if (jpeg[i] == 0xFF && (jpeg[i + 1] == 0xC0 || jpeg[i + 1] == 0xC2))
            return i + 5;
    }
    return 0;
}

/// Where the value of a tag of 16 bits lies in a little-endian file.
std::size_t tagValue(std::vector<std::uint8_t> const& tiff, std::uint16_t tag)
{
    std::size_t const directory = tiff[4] | static_cast<std::size_t>(tiff[5]) << 8U;
    for (std::size_t entry = directory + 2; entry + 12 <= tiff.size(); entry += 12) {
        if ((tiff[entry] | tiff[entry + 1] << 8) == tag)
            return entry + 8;
    }
    return 0;
}

TEST(HostileImages, WithEnormousOrNoSizesAreRefusedBeforeAnythingIsAllocated)
{
    auto const jpeg = frameHeaderOf(bytesOfFile(testDataPath("pictures/rgb.jpg")));
    auto const tiff = bytesOfFile(testDataPath("pictures/rgb.tif"));
    ASSERT_GT(jpeg, 0U);
    ASSERT_GT(tagValue(tiff, 256), 0U);
    SizeField const fields[] { { "rgb.png", 16, 20, 4, true }, { "rgb.jpg", jpeg + 2, jpeg, 2, true },
        { "rgb.tif", tagValue(tiff, 256), tagValue(tiff, 257), 2, false }, { "rgb.gif", 6, 8, 2, false },
        { "rgb.bmp", 18, 22, 4, false } };
    std::pair<std::uint32_t, std::uint32_t> const sizes[]
        = { { 60000, 60000 }, { 32767, 32767 }, { 0, 16 }, { 16, 0 }, { 0, 0 }, { 65535, 1 } };
    for (auto const& field : fields) {
        ASSERT_FALSE(decoded(withSize(field, 16, 16)).empty()) << field.name;
        for (auto const& [width, height] : sizes)
            EXPECT_TRUE(decoded(withSize(field, width, height)).empty()) << field.name << " " << width << " x " << height;
    }
    for (auto const& [width, height] :
        { std::pair { 0xFFFFFFFFU, 0xFFFFFFFFU }, { 0x80000000U, 0x80000000U }, { 0x40000000U, 4U } }) {
        EXPECT_TRUE(decoded(withSize(fields[0], width, height)).empty());
        EXPECT_TRUE(decoded(withSize(fields[4], width, height)).empty());
    }
}

TEST(HostileImages, DrawnAsVectorsAreBounded)
{
    auto const svg = [](std::string const& text) { return decoded({ text.begin(), text.end() }); };
    EXPECT_TRUE(svg("<svg xmlns='http://www.w3.org/2000/svg' width='60000' height='60000'/>").empty());
    EXPECT_TRUE(svg("<svg xmlns='http://www.w3.org/2000/svg' width='0' height='0'/>").empty());
    EXPECT_TRUE(svg("<svg").empty());
    EXPECT_TRUE(svg("<svg xmlns='http://www.w3.org/2000/svg'><g>").empty());
    std::string entities = "<!DOCTYPE svg [<!ENTITY a 'aaaaaaaaaa'>";
    for (char c = 'b'; c < 'k'; ++c) {
        char const before = static_cast<char>(c - 1);
        entities += std::string("<!ENTITY ") + c + " '";
        for (int i = 0; i < 10; ++i)
            entities += std::string("&") + before + ";";
        entities += "'>";
    }
    svg(entities + "]><svg xmlns='http://www.w3.org/2000/svg' width='4' height='4'><text>&j;</text></svg>");
}

}
}
