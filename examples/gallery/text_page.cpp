#include "text_page.h"

#include <plix/platform/appkit/NSScrollView.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/NSTextView.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>

#include <cmath>

namespace gallery {

using namespace plix;

namespace {

constexpr float pageWidth = 560;
constexpr float pageHeight = 421;
constexpr float margin = 20;
constexpr float captionWidth = 150;
constexpr float fieldLeft = margin + captionWidth + 10;
// A higher view holds more than one line.
constexpr float highestLine = 30;
constexpr float fieldWidth = pageWidth - fieldLeft - margin;

class Rows final : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect dirty) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(dirty);
    }

    void addRow(std::string_view caption, NSView& view)
    {
        auto const label = NSTextField::labelWithString(caption);
        label->setAlignment(NSRightTextAlignment);
        float const height = view.frame().height;
        label->setFrame({ margin, m_y + (height > highestLine ? 3 : std::floor((height - 16) / 2)), captionWidth, 16 });
        addSubview(*label);
        view.setFrameOrigin({ fieldLeft, m_y });
        addSubview(view);
        m_y += view.frame().height + 10;
    }

private:
    float m_y { margin };
};

Ref<NSTextField> field(std::string_view text)
{
    auto made = make<NSTextField>(Rect { 0, 0, fieldWidth, 22 });
    made->cell()->setScrollable(true);
    made->setStringValue(text);
    return made;
}

Ref<NSTextField> sizedField(std::string_view text, NSControlSize size, float height)
{
    auto made = field(text);
    made->cell()->setControlSize(size);
    made->setFont(NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(size)));
    made->setFrameSize({ fieldWidth, height });
    return made;
}

Ref<NSScrollView> manyLines()
{
    auto scroll = make<NSScrollView>(Rect { 0, 0, fieldWidth, 90 });
    scroll->setBorderType(NSBezelBorder);
    scroll->setHasVerticalScroller(true);
    auto const text = make<NSTextView>(rectWith({}, scroll->contentSize()));
    text->setAllowsUndo(true);
    text->setTextContainerInset({ 0, 4 });
    text->setAutoresizingMask(NSViewWidthSizable);
    text->setString("Text of many lines wraps at the edge of its view and scrolls.\nThe second paragraph mixes English, "
                    "\u05E2\u05D1\u05E8\u05D9\u05EA and e\u0301\u0301 marks.\n\nThe fourth is the last but one.\nGoodbye.");
    text->setSelectedRange({ 0, 0 });
    scroll->setDocumentView(text);
    return scroll;
}

}

Ref<NSView> makeTextPage()
{
    auto page = make<Rows>(Rect { 0, 0, pageWidth, pageHeight });
    page->addRow("Field", *field("Some text"));
    auto const empty = field("");
    static_cast<NSTextFieldCell*>(empty->cell())->setPlaceholderString("What stands in for an empty text");
    page->addRow("Empty", *empty);
    auto const disabled = field("Can’t be changed now");
    disabled->setEnabled(false);
    page->addRow("Disabled", *disabled);
    auto const round = field("With round ends");
    round->setBezelStyle(NSTextFieldRoundedBezel);
    page->addRow("Round", *round);
    page->addRow("Small", *sizedField("Small", NSSmallControlSize, 19));
    page->addRow("Mini", *sizedField("Mini", NSMiniControlSize, 16));
    auto const right = field("1234.50");
    right->setAlignment(NSRightTextAlignment);
    page->addRow("Right", *right);
    auto const selectable = field("Can be selected and copied");
    selectable->setEditable(false);
    selectable->setSelectable(true);
    selectable->setBezeled(false);
    selectable->setDrawsBackground(false);
    selectable->setFrameSize({ fieldWidth, 16 });
    page->addRow("Selectable", *selectable);
    auto const wrapping = field("A field that wraps shows a text of several lines, as long as there is room for them.");
    wrapping->cell()->setWraps(true);
    wrapping->setFrameSize({ fieldWidth, 40 });
    page->addRow("Wrapping", *wrapping);
    page->addRow("Text view", *manyLines());
    return page;
}

}
