#include <plix/drawing/focused_image.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/NSImage.h>

#include <tests/support/HeadlessTest.h>
#include <tests/support/images.h>
#include <tests/support/pixels.h>

namespace plix {
namespace {

class FocusedImageTest : public HeadlessTest {
protected:
    /// In a context that counts as said, without a view.
    static bool standsUpright(bool isContextFlipped, bool isImageFlipped)
    {
        auto const image = imageOfDistinctPixels(10, 10);
        image->setFlipped(isImageFlipped);
        Pixels const drawn(*renderBitmap(
            { 20, 20 }, 1,
            [&] {
                auto const context = NSGraphicsContext::currentContext();
                if (isContextFlipped) {
                    context->translateBy(0, 20);
                    context->scaleBy(1, -1);
                    context->setFlipped(true);
                }
                EXPECT_EQ(isFocusFlipped(), isContextFlipped);
                drawUpright(*image, { 5, 5, 10, 10 });
            },
            colors::white));
        for (int y = 0; y < 10; ++y) {
            for (int x = 0; x < 10; ++x) {
                if (drawn.at(5 + x, 5 + y) != distinctPixel(x, y))
                    return false;
            }
        }
        return true;
    }
};

TEST_F(FocusedImageTest, StandsUprightWithoutAView)
{
    for (bool const isContextFlipped : { false, true }) {
        for (bool const isImageFlipped : { false, true })
            EXPECT_TRUE(standsUpright(isContextFlipped, isImageFlipped)) << isContextFlipped << ' ' << isImageFlipped;
    }
}

}
}
