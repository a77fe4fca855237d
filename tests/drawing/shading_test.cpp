#include <plix/drawing/PLIXShading.h>

#include <plix/platform/graphics/CGFunction.h>
#include <plix/platform/graphics/CGShading.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>

#include <tests/support/pixels.h>

#include <cmath>
#include <vector>

namespace plix {
namespace {

Ref<PLIXShading> redToBlue()
{
    auto shading = make<PLIXShading>();
    shading->setStartColorComponents({ 1, 0, 0, 1 });
    shading->setEndColorComponents({ 0, 0, 1, 1 });
    return shading;
}

TEST(PLIXShading, BeginsWithClearColorsUpTheMiddleOfTheUnitSquare)
{
    auto const shading = make<PLIXShading>();
    EXPECT_EQ(shading->startColorComponents(), PLIXShading::Components {});
    EXPECT_EQ(shading->endColorComponents(), PLIXShading::Components {});
    EXPECT_EQ(shading->startPoint(), (Point { 0.5F, 0 }));
    EXPECT_EQ(shading->endPoint(), (Point { 0.5F, 1 }));
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(shading->colorSpace()), 3U);
    EXPECT_EQ(shading->numColorComponents(), 0U);
}

TEST(PLIXShading, FreshlyMadePaintsTransparentBlack)
{
    auto const bitmap = renderBitmap(
        { 4, 4 }, 1,
        [] {
            auto const context = NSGraphicsContext::currentContext();
            context->setCompositingOperation(NSCompositeCopy);
            context->scaleBy(4, 4);
            make<PLIXShading>()->drawShading();
        },
        colors::white);
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 4, 4 }, colors::clear));
}

TEST(PLIXShading, InterpolatesEveryComponentAndClampsNothing)
{
    auto const shading = redToBlue();
    renderBitmap({ 1, 1 }, 1, [&] { shading->drawShading(); });
    EXPECT_EQ(shading->numColorComponents(), 4U);
    struct Row {
        float place;
        PLIXShading::Components expected;
    };
    constexpr Row rows[] {
        { 0, { 1, 0, 0, 1 } },
        { 0.5F, { 0.5F, 0, 0.5F, 1 } },
        { 1, { 0, 0, 1, 1 } },
        { 2, { -1, 0, 2, 1 } },
        { -1, { 2, 0, -1, 1 } },
    };
    for (auto const& row : rows) {
        PLIXShading::Components out {};
        PLIXShadingStandardShadingFunction(shading.get(), &row.place, out.data());
        EXPECT_EQ(out, row.expected) << row.place;
    }
}

TEST(PLIXShading, UsesTwoValuesOfAGreySpace)
{
    auto const shading = make<PLIXShading>();
    shading->setColorSpace(CGColorSpaceCreateDeviceGray());
    shading->setStartColorComponents({ 1, 0.5F, 7, 7 });
    shading->setEndColorComponents({ 0, 0.5F, 9, 9 });
    auto const bitmap = renderBitmap({ 2, 8 }, 1, [&] {
        NSGraphicsContext::currentContext()->scaleBy(2, 8);
        shading->drawShading();
    });
    EXPECT_EQ(shading->numColorComponents(), 2U);
    for (int y = 0; y < 8; ++y) {
        float const white = 1 - (7.5F - static_cast<float>(y)) / 8;
        EXPECT_TRUE(areaNear(bitmap, { 0, y, 2, 1 }, { white, white, white, 0.5F }, 1.0F / 255));
    }
    PLIXShading::Components out { 3, 3, 3, 3 };
    float const place = 0.5F;
    PLIXShadingStandardShadingFunction(shading.get(), &place, out.data());
    EXPECT_EQ(out, (PLIXShading::Components { 0.5F, 0.5F, 3, 3 }));
}

TEST(PLIXShading, PaintsEveryRowAsTheFunctionSays)
{
    auto const shading = redToBlue();
    shading->setStartPoint({ 0, 100 });
    shading->setEndPoint({ 0, 0 });
    for (float const scale : { 1.0F, 2.0F }) {
        auto const bitmap = renderBitmap({ 5, 100 }, scale, [&] { shading->drawShading(); });
        int const rows = bitmap->pixelsHigh();
        for (int y = 0; y < rows; ++y) {
            float const place = (static_cast<float>(y) + 0.5F) / static_cast<float>(rows);
            EXPECT_TRUE(areaNear(bitmap, { 0, y, bitmap->pixelsWide(), 1 }, { 1 - place, 0, place, 1 }, 1.0F / 255));
        }
    }
}

TEST(PLIXShading, PaintsEveryColumnOfALyingAxis)
{
    auto const shading = redToBlue();
    shading->setStartPoint({ 10, 3 });
    shading->setEndPoint({ 60, 3 });
    auto const bitmap = renderBitmap({ 70, 4 }, 1, [&] { shading->drawShading(); });
    EXPECT_TRUE(areaNear(bitmap, { 0, 0, 10, 4 }, colors::clear));
    EXPECT_TRUE(areaNear(bitmap, { 60, 0, 10, 4 }, colors::clear));
    for (int x = 10; x < 60; ++x) {
        float const place = (static_cast<float>(x) - 9.5F) / 50;
        EXPECT_TRUE(areaNear(bitmap, { x, 0, 1, 4 }, { 1 - place, 0, place, 1 }, 1.0F / 255));
    }
}

TEST(PLIXShading, PaintsNothingBeyondItsEnds)
{
    auto const shading = redToBlue();
    shading->setStartPoint({ 0, 10 });
    shading->setEndPoint({ 0, 30 });
    auto const bitmap = renderBitmap({ 3, 40 }, 1, [&] { shading->drawShading(); });
    EXPECT_EQ(inkBounds(bitmap, colors::clear), (PixelRect { 0, 10, 3, 20 }));
    EXPECT_TRUE(pixelNear(bitmap, 0, 29, { 0.975F, 0, 0.025F, 1 }, 1.0F / 255));
    EXPECT_TRUE(pixelNear(bitmap, 0, 10, { 0.025F, 0, 0.975F, 1 }, 1.0F / 255));
}

TEST(PLIXShading, PaintsASlantingAxisWithinTheToleranceOfOneStep)
{
    auto const shading = redToBlue();
    shading->setStartPoint({ 10, 5 });
    shading->setEndPoint({ 50, 35 });
    auto const bitmap = renderBitmap({ 60, 40 }, 1, [&] { shading->drawShading(); });
    for (int y = 0; y < 40; ++y) {
        for (int x = 0; x < 60; ++x) {
            double const place = ((x + 0.5 - 10) * 40 + (39.5 - y - 5) * 30) / 2500;
            if (place < -0.02 || place > 1.02) {
                EXPECT_EQ(bitmap->pixelAtX(x, y), 0U) << x << ", " << y;
            }
            if (place > 0.02 && place < 0.98) {
                auto const red = static_cast<float>(1 - place);
                EXPECT_TRUE(pixelNear(bitmap, x, y, { red, 0, 1 - red, 1 }, 2.0F / 255));
            }
        }
    }
}

TEST(PLIXShading, KeepsToTheClipAndTheStatesOperation)
{
    auto const shading = redToBlue();
    shading->setEndColorComponents({ 1, 0, 0, 1 });
    auto const bitmap = renderBitmap(
        { 20, 20 }, 1,
        [&] {
            auto const context = NSGraphicsContext::currentContext();
            GraphicsState const saved(context);
            NSBezierPath::bezierPathWithOvalInRect({ 2, 2, 16, 16 })->addClip();
            context->scaleBy(20, 20);
            context->setAlpha(0.5F);
            shading->drawShading();
        },
        colors::white);
    EXPECT_TRUE(pixelNear(bitmap, 3, 3, colors::white));
    EXPECT_TRUE(pixelNear(bitmap, 10, 10, { 1, 0.5F, 0.5F, 1 }));
}

TEST(PLIXShading, ChangesNothingBeyondItsEndsUnderEveryOperation)
{
    for (int operation = 0; operation <= NSCompositePlusLighter; ++operation) {
        auto const shading = redToBlue();
        shading->setStartPoint({ 0, 4 });
        shading->setEndPoint({ 0, 12 });
        auto const bitmap = renderBitmap({ 6, 16 }, 1,
            [&] {
                NSGraphicsContext::currentContext()->setCompositingOperation(static_cast<NSCompositingOperation>(operation));
                shading->drawShading();
            },
            { 0, 1, 0, 0.5F });
        EXPECT_TRUE(areaNear(bitmap, { 0, 0, 6, 4 }, { 0, 1, 0, 0.5F })) << operation;
        EXPECT_TRUE(areaNear(bitmap, { 0, 12, 6, 4 }, { 0, 1, 0, 0.5F })) << operation;
        // What shows between them: the source's alpha is 1, the destination's a half.
        constexpr float shown[] { 0, 1, 1, 0.5F, 0.5F, 0.5F, 1, 0.5F, 0, 1, 0.5F, 1, 1, 1 };
        EXPECT_NEAR(static_cast<float>(bitmap->pixelAtX(3, 8) >> 24U) / 255, shown[operation], 0.01) << operation;
    }
}

TEST(PLIXShading, HoldsItsSpaceOnceAndGivesItBack)
{
    auto const space = CGColorSpaceCreateWithName(kCGColorSpaceUserRGB);
    auto shading = make<PLIXShading>();
    shading->setColorSpace(space);
    EXPECT_EQ(space->retainCount(), 2U);
    shading->setColorSpace(nullptr);
    EXPECT_EQ(space->retainCount(), 1U);
    shading->setColorSpace(space);
    shading->setColorSpace(shading->colorSpace());
    EXPECT_EQ(space->retainCount(), 2U);
    shading = nullptr;
    EXPECT_EQ(space->retainCount(), 1U);
}

TEST(PLIXShading, KeepsItsOwnSpaceAliveWhenItIsSetAgain)
{
    auto const shading = make<PLIXShading>();
    shading->setColorSpace(shading->colorSpace());
    EXPECT_EQ(shading->colorSpace()->retainCount(), 1U);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(shading->colorSpace()), 3U);
}

TEST(PLIXShading, DrawsNothingWithoutSpaceContextOrAxis)
{
    auto const shading = redToBlue();
    shading->drawShading();
    auto const bitmap = renderBitmap({ 4, 4 }, 1, [&] {
        shading->setEndPoint(shading->startPoint());
        shading->drawShading();
        shading->setEndPoint({ 9, 9 });
        shading->setColorSpace(nullptr);
        shading->drawShading();
    });
    EXPECT_EQ(shading->numColorComponents(), 1U);
    EXPECT_FALSE(hasInk(bitmap, { 0, 0, 4, 4 }, colors::clear));
}

TEST(PLIXShading, HandsItsComponentsOutToBeChanged)
{
    auto const shading = redToBlue();
    shading->endColorComponents()[1] = 1;
    shading->startColorComponents() = { 0, 1, 0, 1 };
    shading->endColorComponents()[2] = 0;
    auto const bitmap = renderBitmap({ 1, 1 }, 1, [&] { shading->drawShading(); });
    EXPECT_TRUE(pixelNear(bitmap, 0, 0, colors::green));
}

struct Host {
    std::vector<float> places;
    int releases { 0 };

    static void evaluate(void* info, float const* in, float* out)
    {
        static_cast<Host*>(info)->places.push_back(*in);
        out[0] = *in * *in;
        out[1] = 3; // beyond the range
    }
    static void release(void* info) { ++static_cast<Host*>(info)->releases; }
};

TEST(CGShading, AsksAHostsOwnFunctionAlongTheAxis)
{
    Host host;
    constexpr float domain[] { 0, 1 };
    constexpr float range[] { 0, 1, 0, 1 };
    CGFunctionCallbacks const callbacks { 0, Host::evaluate, Host::release };
    auto const bitmap = renderBitmap({ 3, 10 }, 1, [&] {
        auto const function = CGFunctionCreate(&host, 1, domain, 2, range, &callbacks);
        auto const shading = CGShadingCreateAxial(CGColorSpaceCreateDeviceGray(), { 0, 0 }, { 0, 10 }, function, false, false);
        CGContextDrawShading(NSGraphicsContext::currentContext()->graphicsPort(), shading);
        EXPECT_EQ(host.releases, 0);
    });
    EXPECT_EQ(host.releases, 1);
    ASSERT_EQ(host.places.size(), 10U);
    for (int y = 0; y < 10; ++y) {
        float const place = (9.5F - static_cast<float>(y)) / 10;
        EXPECT_NEAR(host.places[static_cast<std::size_t>(y)], place, 1e-5);
        EXPECT_TRUE(areaNear(bitmap, { 0, y, 3, 1 }, { place * place, place * place, place * place, 1 }, 1.0F / 255));
    }
}

TEST(CGShading, ExtendsWhereItIsAsked)
{
    Host host;
    constexpr float domain[] { 0, 1 };
    constexpr float range[] { 0, 1, 0, 1 };
    CGFunctionCallbacks const callbacks { 0, Host::evaluate, nullptr };
    auto const draw = [&](bool start, bool end) {
        return renderBitmap({ 1, 30 }, 1, [&] {
            auto const function = CGFunctionCreate(&host, 1, domain, 2, range, &callbacks);
            auto const shading = CGShadingCreateAxial(CGColorSpaceCreateDeviceGray(), { 0, 10 }, { 0, 20 }, function, start, end);
            CGContextDrawShading(NSGraphicsContext::currentContext()->graphicsPort(), shading);
        });
    };
    EXPECT_EQ(inkBounds(draw(true, false), colors::clear), (PixelRect { 0, 10, 1, 20 }));
    EXPECT_EQ(inkBounds(draw(false, true), colors::clear), (PixelRect { 0, 0, 1, 20 }));
    EXPECT_TRUE(areaNear(draw(true, true), { 0, 0, 1, 10 }, colors::white));
}

TEST(CGShading, IsRefusedWhereItsPartsDoNotFit)
{
    constexpr float domain[] { 0, 1 };
    CGFunctionCallbacks const callbacks { 0, Host::evaluate, nullptr };
    CGFunctionCallbacks const later { 1, Host::evaluate, nullptr };
    CGFunctionCallbacks const none { 0, nullptr, nullptr };
    Host host;
    auto const function = CGFunctionCreate(&host, 1, domain, 2, nullptr, &callbacks);
    EXPECT_TRUE(function);
    EXPECT_EQ(CGFunctionCreate(&host, 1, domain, 2, nullptr, &later), nullptr);
    EXPECT_EQ(CGFunctionCreate(&host, 1, domain, 2, nullptr, &none), nullptr);
    EXPECT_EQ(CGFunctionCreate(&host, 0, domain, 2, nullptr, &callbacks), nullptr);
    EXPECT_EQ(CGFunctionCreate(&host, 1, nullptr, 2, nullptr, &callbacks), nullptr);
    EXPECT_EQ(CGShadingCreateAxial(CGColorSpaceCreateDeviceRGB(), {}, { 1, 1 }, function, false, false), nullptr);
    EXPECT_EQ(CGShadingCreateAxial(nullptr, {}, { 1, 1 }, function, false, false), nullptr);
    EXPECT_EQ(CGShadingCreateAxial(CGColorSpaceCreateDeviceGray(), {}, { 1, 1 }, nullptr, false, false), nullptr);
    CGContextDrawShading(nullptr, nullptr);
}

TEST(CGFunction, KeepsInputsInTheDomainAndOutputsInTheRange)
{
    Host host;
    constexpr float domain[] { 0.25F, 0.5F };
    constexpr float range[] { 0, 0.2F, 0, 1 };
    CGFunctionCallbacks const callbacks { 0, Host::evaluate, nullptr };
    auto const function = CGFunctionCreate(&host, 1, domain, 2, range, &callbacks);
    float out[2] {};
    for (float const in : { -1.0F, 0.3F, 9.0F, std::nanf("") })
        function->evaluate(&in, out);
    EXPECT_EQ(host.places, (std::vector<float> { 0.25F, 0.3F, 0.5F, 0.25F }));
    float const high = 9;
    function->evaluate(&high, out);
    EXPECT_EQ(out[0], 0.2F);
    EXPECT_EQ(out[1], 1);
}

TEST(CGColorSpace, IsKnownByItsNames)
{
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateWithName("kCGColorSpaceUserRGB")), 3U);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateWithName("kCGColorSpaceGenericRGB")), 3U);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(CGColorSpaceCreateWithName("kCGColorSpaceUserGray")), 1U);
    EXPECT_EQ(CGColorSpaceCreateWithName("kCGColorSpaceOfNobody"), nullptr);
    EXPECT_EQ(CGColorSpaceGetNumberOfComponents(nullptr), 0U);
}

}
}
