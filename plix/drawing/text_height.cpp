#include <plix/drawing/text_height.h>

#include <plix/platform/base/Global.h>
#include <plix/platform/graphics/NSLayoutManager.h>
#include <plix/platform/graphics/NSTextContainer.h>
#include <plix/platform/graphics/NSTextStorage.h>

namespace plix {

namespace {

constexpr float greatestHeight = 10000;

constinit Global<NSTextStorage> s_textStorage;
constinit Global<NSTextContainer> s_textContainer;
constinit Global<NSLayoutManager> s_layoutManager;

void makeTextObjects()
{
    if (!s_textStorage)
        s_textStorage = make<NSTextStorage>();
    if (!s_textContainer) {
        s_textContainer = make<NSTextContainer>(Size { 1, 1 });
        s_textContainer->setLineFragmentPadding(0);
    }
    if (!s_layoutManager) {
        s_layoutManager = make<NSLayoutManager>();
        s_layoutManager->addTextContainer(s_textContainer);
        s_textStorage->addLayoutManager(s_layoutManager);
    }
}

}

float PLIXAttributedStringHeightForWidth(NSAttributedString const& string, float width)
{
    makeTextObjects();
    s_textContainer->setContainerSize({ width, greatestHeight });
    s_textStorage->setAttributedString(string);
    s_layoutManager->setTypesetterBehavior(NSTypesetterBehavior_10_2_WithCompatibility);
    s_layoutManager->glyphRangeForTextContainer(*s_textContainer);
    return s_layoutManager->usedRectForTextContainer(*s_textContainer).height;
}

}
