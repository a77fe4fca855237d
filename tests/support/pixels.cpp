#include <tests/support/pixels.h>

#include <plix/platform/base/NSData.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fnmatch.h>
#include <fstream>
#include <iomanip>
#include <sstream>

namespace plix {

namespace {

constexpr float referenceTolerance = 24.0F / 255;
/// Of a thousand pixels so many may differ by more.
constexpr int toleratedPerThousand = 2;

int channelDifference(std::uint32_t a, std::uint32_t b)
{
    int largest = 0;
    for (unsigned shift = 0; shift < 32; shift += 8)
        largest = std::max(largest, std::abs(static_cast<int>(a >> shift & 255U) - static_cast<int>(b >> shift & 255U)));
    return largest;
}

bool isNear(std::uint32_t a, std::uint32_t b, float tolerance)
{
    return channelDifference(a, b) <= static_cast<int>(std::lround(tolerance * 255));
}

std::uint32_t pixelOf(ColorComponents const& color)
{
    auto const byte = [&](float value) { return static_cast<std::uint32_t>(std::lround(value * color.alpha * 255)); };
    return static_cast<std::uint32_t>(std::lround(color.alpha * 255)) << 24U | byte(color.red) << 16U | byte(color.green) << 8U
        | byte(color.blue);
}

std::string text(std::uint32_t pixel)
{
    std::ostringstream stream;
    stream << "0x" << std::hex << std::setw(8) << std::setfill('0') << pixel;
    return stream.str();
}

PixelRect within(PixelRect area, Pixels const& pixels)
{
    int const left = std::clamp(area.x, 0, pixels.width());
    int const top = std::clamp(area.y, 0, pixels.height());
    return { left, top, std::clamp(area.x + area.width, left, pixels.width()) - left,
        std::clamp(area.y + area.height, top, pixels.height()) - top };
}

template <typename Visit> void forEach(Pixels const& pixels, PixelRect area, Visit visit)
{
    auto const part = within(area, pixels);
    for (int y = part.y; y < part.y + part.height; ++y) {
        for (int x = part.x; x < part.x + part.width; ++x)
            visit(x, y, pixels.at(x, y));
    }
}

std::filesystem::path referencePath(std::string_view name)
{
    return std::filesystem::path(PLIX_TESTS_FOLDER) / "references" / (std::string(name) + ".png");
}

Ref<NSBitmapImageRep> copyOfPixels(Pixels const& pixels)
{
    auto rep = make<NSBitmapImageRep>(pixels.width(), pixels.height());
    auto const target = rep->mutablePixels();
    forEach(pixels, pixels.all(), [&](int x, int y, std::uint32_t pixel) {
        std::memcpy(target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride + 4L * x, &pixel, 4);
    });
    return rep;
}

void writeDifference(Pixels const& a, Pixels const& b, std::string const& path)
{
    auto map = make<NSBitmapImageRep>(std::max(a.width(), b.width()), std::max(a.height(), b.height()));
    auto const target = map->mutablePixels();
    for (int y = 0; y < target.height; ++y) {
        for (int x = 0; x < target.width; ++x) {
            bool const differs = !isNear(a.at(x, y), b.at(x, y), pixelTolerance);
            std::uint32_t const pixel = differs ? 0xFFFF0000U : 0xFFFFFFFFU;
            std::memcpy(target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride + 4L * x, &pixel, 4);
        }
    }
    writePNG(map, path);
}

}

Pixels::Pixels(NSImage const& image)
    : Pixels(image.bitmapAtScale(1))
{
}

Pixels::Pixels(Ref<NSImage> const& image)
    : Pixels(image ? image->bitmapAtScale(1) : nullptr)
{
}

std::uint32_t Pixels::at(int x, int y) const
{
    if (x < 0 || y < 0 || x >= m_buffer.width || y >= m_buffer.height)
        return 0;
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, m_buffer.pixels + static_cast<std::ptrdiff_t>(y) * m_buffer.stride + 4L * x, 4);
    return m_buffer.hasAlpha ? pixel : pixel | 0xFF000000U;
}

ColorComponents Pixels::colorAt(int x, int y) const
{
    auto const pixel = at(x, y);
    auto const alpha = static_cast<float>(pixel >> 24U);
    auto const channel = [&](unsigned shift) { return alpha > 0 ? static_cast<float>(pixel >> shift & 255U) / alpha : 0; };
    return { channel(16), channel(8), channel(0), alpha / 255 };
}

testing::AssertionResult pixelNear(Pixels const& pixels, int x, int y, ColorComponents expected, float tolerance)
{
    auto const found = pixels.at(x, y);
    if (isNear(found, pixelOf(expected), tolerance))
        return testing::AssertionSuccess() << "pixel (" << x << ", " << y << ") is " << text(found);
    return testing::AssertionFailure() << "pixel (" << x << ", " << y << ") is " << text(found) << ", expected "
                                       << text(pixelOf(expected));
}

testing::AssertionResult areaNear(Pixels const& pixels, PixelRect area, ColorComponents expected, float tolerance)
{
    auto const wanted = pixelOf(expected);
    int wrong = 0;
    std::string first;
    for (int y = area.y; y < area.y + area.height; ++y) {
        for (int x = area.x; x < area.x + area.width; ++x) {
            if (!isNear(pixels.at(x, y), wanted, tolerance) && wrong++ == 0)
                first = "(" + std::to_string(x) + ", " + std::to_string(y) + ") is " + text(pixels.at(x, y));
        }
    }
    if (wrong == 0)
        return testing::AssertionSuccess();
    return testing::AssertionFailure() << wrong << " pixels are not " << text(wanted) << "; the first: " << first;
}

int countPixels(Pixels const& pixels, PixelRect area, ColorComponents color, float tolerance)
{
    auto const wanted = pixelOf(color);
    return countPixels(pixels, area, [&](std::uint32_t pixel) { return isNear(pixel, wanted, tolerance); });
}

int countPixels(Pixels const& pixels, PixelRect area, FunctionRef<bool(std::uint32_t)> condition)
{
    int count = 0;
    forEach(pixels, area, [&](int, int, std::uint32_t pixel) { count += condition(pixel) ? 1 : 0; });
    return count;
}

int countPixels(Pixels const& pixels, ColorComponents color, float tolerance)
{
    return countPixels(pixels, pixels.all(), color, tolerance);
}

int countPixels(Pixels const& pixels, FunctionRef<bool(std::uint32_t)> condition)
{
    return countPixels(pixels, pixels.all(), condition);
}

bool hasInk(Pixels const& pixels, PixelRect area, ColorComponents ground)
{
    constexpr float visible = 12.0F / 255;
    auto const part = within(area, pixels);
    return countPixels(pixels, area, ground, visible) < part.width * part.height;
}

PixelRect inkBounds(Pixels const& pixels, ColorComponents ground)
{
    auto const paper = pixelOf(ground);
    int left = pixels.width();
    int top = pixels.height();
    int right = 0;
    int bottom = 0;
    forEach(pixels, pixels.all(), [&](int x, int y, std::uint32_t pixel) {
        if (isNear(pixel, paper, pixelTolerance))
            return;
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x + 1);
        bottom = std::max(bottom, y + 1);
    });
    return right > left ? PixelRect { left, top, right - left, bottom - top } : PixelRect {};
}

int countDifferences(Pixels const& a, Pixels const& b, float tolerance)
{
    int count = 0;
    for (int y = 0; y < std::max(a.height(), b.height()); ++y) {
        for (int x = 0; x < std::max(a.width(), b.width()); ++x)
            count += isNear(a.at(x, y), b.at(x, y), tolerance) ? 0 : 1;
    }
    return count;
}

Ref<NSBitmapImageRep> renderBitmap(Size points, float scale, FunctionRef<void()> draw, ColorComponents ground)
{
    auto rep = make<NSBitmapImageRep>(
        static_cast<int>(std::ceil(points.width * scale)), static_cast<int>(std::ceil(points.height * scale)));
    rep->setPixelsPerPoint({ scale, scale });
    auto const context = NSGraphicsContext::graphicsContextWithBitmapImageRep(rep);
    {
        CurrentContext const current(context);
        if (ground.alpha > 0) {
            GraphicsState const saved;
            NSColor::colorWithCalibratedRed(ground.red, ground.green, ground.blue, ground.alpha)->set();
            NSRectFill(rectWith({}, points));
        }
        draw();
    }
    context->flushGraphics();
    return rep;
}

/// Whether the environment asks for the reference to be written: of all, or of those that one of its patterns fits.
static bool isToBeWritten(std::string const& name)
{
    char const* const update = std::getenv("PLIX_UPDATE_REFERENCES");
    if (!update || std::string_view(update) == "1")
        return update;
    std::istringstream patterns(update);
    for (std::string pattern; std::getline(patterns, pattern, ',');) {
        if (::fnmatch(pattern.c_str(), name.c_str(), 0) == 0)
            return true;
    }
    return false;
}

testing::AssertionResult matchesReference(Pixels const& pixels, std::string_view name)
{
    auto const path = referencePath(name);
    if (isToBeWritten(std::string(name))) {
        std::filesystem::create_directories(path.parent_path());
        writePNG(pixels, path.string());
        return testing::AssertionSuccess() << "wrote " << path.string();
    }
    auto const reference = NSBitmapImageRep::imageRepWithContentsOfFile(path.string());
    auto const output = std::filesystem::current_path() / "test_output" / std::string(name);
    auto const writeOutput = [&] {
        std::filesystem::create_directories(output.parent_path());
        writePNG(pixels, output.string() + ".png");
    };
    if (!reference) {
        writeOutput();
        return testing::AssertionFailure() << "there is no reference " << path.string() << "; PLIX_UPDATE_REFERENCES=" << name
                                           << " writes it";
    }
    Pixels const expected(reference);
    bool const hasSameSize = expected.width() == pixels.width() && expected.height() == pixels.height();
    int const different = countDifferences(pixels, expected, referenceTolerance);
    if (hasSameSize && different * 1000 <= toleratedPerThousand * pixels.width() * pixels.height())
        return testing::AssertionSuccess();
    writeOutput();
    writeDifference(pixels, expected, output.string() + ".difference.png");
    return testing::AssertionFailure() << different << " pixels differ from " << path.string() << "; see " << output.string()
                                       << ".png and .difference.png";
}

void writePNG(Pixels const& pixels, std::string const& path)
{
    auto const rep = copyOfPixels(pixels);
    auto const data = rep->representationUsingType(NSPNGFileType);
    auto const bytes = data->bytes();
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<char const*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

}
