#include <plix/platform/appkit/NSScrollView.h>

#include <plix/platform/appkit/LongDocument.h>
#include <plix/platform/appkit/NSClipView.h>
#include <plix/platform/appkit/NSScroller.h>
#include <plix/platform/appkit/ScrollHeader.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/scroll_layout.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>

namespace plix {

PLIX_DESCRIBE(NSScrollView)
{
    description.action("scrollLineUp:", &NSScrollView::scrollLineUp)
        .action("scrollLineDown:", &NSScrollView::scrollLineDown)
        .action("scrollPageUp:", &NSScrollView::scrollPageUp)
        .action("scrollPageDown:", &NSScrollView::scrollPageDown)
        .action("pageUp:", &NSScrollView::scrollPageUp)
        .action("pageDown:", &NSScrollView::scrollPageDown)
        .action("scrollToBeginningOfDocument:", &NSScrollView::scrollToBeginningOfDocument)
        .action("scrollToEndOfDocument:", &NSScrollView::scrollToEndOfDocument);
}

NSScrollView::NSScrollView() = default;
NSScrollView::~NSScrollView() = default;

bool NSScrollView::init()
{
    return NSScrollView::init(Rect {});
}

bool NSScrollView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    NSScrollView::setContentView(make<NSClipView>(Rect {}));
    return true;
}

bool NSScrollView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    NSScrollView::setContentView(make<NSClipView>(Rect {}));
    coder.read("borderType", [&](ObjectValue const& value) { m_borderType = static_cast<NSBorderType>(value.intValue()); });
    coder.read("hasVerticalScroller", [&](ObjectValue const& value) { setHasVerticalScroller(value.boolValue()); });
    coder.read("hasHorizontalScroller", [&](ObjectValue const& value) { setHasHorizontalScroller(value.boolValue()); });
    coder.read("autohidesScrollers", [&](ObjectValue const& value) { m_autohidesScrollers = value.boolValue(); });
    coder.read("scrollsDynamically", [&](ObjectValue const& value) { m_scrollsDynamically = value.boolValue(); });
    coder.read("lineScroll", [&](ObjectValue const& value) { m_lineScroll = NSSizeFromString(value.description()); });
    coder.read("pageScroll", [&](ObjectValue const& value) { m_pageScroll = NSSizeFromString(value.description()); });
    coder.read("contentView", [&](ObjectValue const& value) {
        if (auto const clip = value.as<NSClipView>())
            setContentView(clip);
    });
    takeScroller(coder, "verticalScroller", m_hasVerticalScroller, m_verticalScroller);
    takeScroller(coder, "horizontalScroller", m_hasHorizontalScroller, m_horizontalScroller);
    tile();
    return true;
}

void NSScrollView::takeScroller(NSCoder& coder, std::string_view key, bool isWanted, Ref<NSScroller>& slot)
{
    auto const scroller = isWanted ? coder.decodeForKey<NSScroller>(key) : nullptr;
    if (!scroller)
        return;
    // One that hid itself may come in sight here.
    scroller->setHidden(false);
    setScroller(slot, scroller);
}

void NSScrollView::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_borderType, "borderType");
    coder.encodeBool(m_hasVerticalScroller, "hasVerticalScroller");
    coder.encodeBool(m_hasHorizontalScroller, "hasHorizontalScroller");
    coder.encodeBool(m_autohidesScrollers, "autohidesScrollers");
    coder.encodeBool(m_scrollsDynamically, "scrollsDynamically");
    coder.encodeObject(NSStringFromSize(m_lineScroll), "lineScroll");
    coder.encodeObject(NSStringFromSize(m_pageScroll), "pageScroll");
    coder.encodeObject(m_contentView, "contentView");
}

// MARK: parts

static ScrollViewShape shapeFor(Size size, bool hasHorizontalScroller, bool hasVerticalScroller, NSBorderType border)
{
    ScrollViewShape shape;
    shape.bounds = rectWith({}, size);
    shape.border = border;
    shape.scrollerWidth = NSScroller::scrollerWidth();
    shape.hasHorizontalScroller = hasHorizontalScroller;
    shape.hasVerticalScroller = hasVerticalScroller;
    return shape;
}

Size NSScrollView::frameSizeForContentSize(Size content, bool hasHorizontalScroller, bool hasVerticalScroller, NSBorderType border)
{
    float const frame = 2 * borderThickness(border);
    return { content.width + frame + (hasVerticalScroller ? NSScroller::scrollerWidth() : 0),
        content.height + frame + (hasHorizontalScroller ? NSScroller::scrollerWidth() : 0) };
}

Size NSScrollView::contentSizeForFrameSize(Size frame, bool hasHorizontalScroller, bool hasVerticalScroller, NSBorderType border)
{
    return scrollViewLayout(shapeFor(frame, hasHorizontalScroller, hasVerticalScroller, border)).content.size();
}

void NSScrollView::setContentView(Ref<NSClipView> const& clipView)
{
    if (m_contentView == clipView || !clipView)
        return;
    Ref<NSView> const document(documentView());
    if (m_contentView) {
        m_contentView->setDocumentView(nullptr);
        m_contentView->removeFromSuperview();
    }
    m_contentView = clipView;
    addSubview(*clipView, NSWindowBelow, nullptr);
    if (document && !clipView->documentView())
        clipView->setDocumentView(document);
    tile();
}

Size NSScrollView::contentSize() const
{
    return m_contentView->frame().size();
}

NSView* NSScrollView::documentView() const
{
    return m_contentView ? m_contentView->documentView() : nullptr;
}

void NSScrollView::setDocumentView(Ref<NSView> const& view)
{
    m_contentView->setDocumentView(view);
    tile();
}

Rect NSScrollView::documentVisibleRect() const
{
    return m_contentView->documentVisibleRect();
}

NSCursor* NSScrollView::documentCursor() const
{
    return m_contentView->documentCursor();
}

void NSScrollView::setDocumentCursor(Ref<NSCursor> const& cursor)
{
    m_contentView->setDocumentCursor(cursor);
}

NSColor* NSScrollView::backgroundColor() const
{
    return m_contentView->backgroundColor();
}

void NSScrollView::setBackgroundColor(Ref<NSColor> const& color)
{
    m_contentView->setBackgroundColor(color);
}

bool NSScrollView::drawsBackground() const
{
    return m_contentView->drawsBackground();
}

void NSScrollView::setDrawsBackground(bool draws)
{
    m_contentView->setDrawsBackground(draws);
}

void NSScrollView::setBorderType(NSBorderType type)
{
    if (m_borderType == type)
        return;
    m_borderType = type;
    setNeedsDisplay(true);
    tile();
}

// MARK: scrollers

Ref<NSScroller> NSScrollView::makeScroller(Axis axis)
{
    // Born in its direction, which a scroller tells from its sides.
    float const width = NSScroller::scrollerWidthForControlSize(m_controlSize);
    auto scroller = make<NSScroller>(axis == Axis::vertical ? Rect { 0, 0, width, 100 } : Rect { 0, 0, 100, width });
    scroller->setControlSize(m_controlSize);
    return scroller;
}

void NSScrollView::setScroller(Ref<NSScroller>& slot, Ref<NSScroller> const& scroller)
{
    if (slot == scroller)
        return;
    if (slot)
        slot->removeFromSuperview();
    slot = scroller;
    if (slot) {
        slot->setTarget(*this, &NSScrollView::scrollerMoved);
        addSubview(*slot);
    }
    tile();
}

void NSScrollView::setVerticalScroller(Ref<NSScroller> const& scroller)
{
    m_hasVerticalScroller = m_hasVerticalScroller && scroller;
    setScroller(m_verticalScroller, scroller);
}

void NSScrollView::setHorizontalScroller(Ref<NSScroller> const& scroller)
{
    m_hasHorizontalScroller = m_hasHorizontalScroller && scroller;
    setScroller(m_horizontalScroller, scroller);
}

void NSScrollView::setHasVerticalScroller(bool has)
{
    if (m_hasVerticalScroller == has)
        return;
    m_hasVerticalScroller = has;
    if (has && !m_verticalScroller)
        setScroller(m_verticalScroller, makeScroller(Axis::vertical));
    tile();
}

void NSScrollView::setHasHorizontalScroller(bool has)
{
    if (m_hasHorizontalScroller == has)
        return;
    m_hasHorizontalScroller = has;
    if (has && !m_horizontalScroller)
        setScroller(m_horizontalScroller, makeScroller(Axis::horizontal));
    tile();
}

void NSScrollView::setAutohidesScrollers(bool autohides)
{
    if (m_autohidesScrollers == autohides)
        return;
    m_autohidesScrollers = autohides;
    tile();
}

void NSScrollView::setScrollsDynamically(bool scrolls)
{
    m_scrollsDynamically = scrolls;
}

void NSScrollView::setControlSize(NSControlSize size)
{
    if (m_controlSize == size)
        return;
    m_controlSize = size;
    for (auto const& scroller : { m_verticalScroller, m_horizontalScroller }) {
        if (scroller)
            scroller->setControlSize(size);
    }
    tile();
}

void NSScrollView::setHorizontalLineScroll(float distance)
{
    m_lineScroll.width = distance;
}

void NSScrollView::setVerticalLineScroll(float distance)
{
    m_lineScroll.height = distance;
}

void NSScrollView::setLineScroll(float distance)
{
    m_lineScroll = { distance, distance };
}

void NSScrollView::setHorizontalPageScroll(float overlap)
{
    m_pageScroll.width = overlap;
}

void NSScrollView::setVerticalPageScroll(float overlap)
{
    m_pageScroll.height = overlap;
}

void NSScrollView::setPageScroll(float overlap)
{
    m_pageScroll = { overlap, overlap };
}

// MARK: layout

ScrollViewLayout NSScrollView::layout() const
{
    auto shape = shapeFor(bounds().size(), m_hasHorizontalScroller && m_horizontalScroller,
        m_hasVerticalScroller && m_verticalScroller, m_borderType);
    shape.scrollerWidth = NSScroller::scrollerWidthForControlSize(m_controlSize);
    shape.autohidesScrollers = m_autohidesScrollers;
    if (auto const* document = documentView())
        shape.documentSize = document->frame().size();
    if (auto const* source = dynamic_cast<ScrollHeader const*>(documentView())) {
        if (auto const* header = source->headerView())
            shape.headerHeight = header->frame().height;
        shape.hasCornerView = source->cornerView() != nullptr;
    }
    return scrollViewLayout(shape);
}

void NSScrollView::placeScroller(NSScroller* scroller, bool isShown, Rect frame)
{
    if (!scroller)
        return;
    scroller->setHidden(!isShown);
    if (isShown)
        scroller->setFrame(frame);
}

void NSScrollView::placeHeader(ScrollViewLayout const& layout)
{
    auto const* source = dynamic_cast<ScrollHeader const*>(documentView());
    NSView* const header = source && !layout.header.isEmpty() ? source->headerView() : nullptr;
    NSView* const corner = source && !layout.cornerView.isEmpty() ? source->cornerView() : nullptr;
    if (header && !m_headerClipView) {
        m_headerClipView = make<NSClipView>(layout.header);
        m_headerClipView->setDrawsBackground(false);
        addSubview(*m_headerClipView);
    }
    if (m_headerClipView) {
        m_headerClipView->setHidden(!header);
        m_headerClipView->setFrame(layout.header);
        m_headerClipView->setDocumentView(header);
    }
    if (m_cornerView && m_cornerView != corner)
        m_cornerView->removeFromSuperview();
    m_cornerView = corner;
    if (corner) {
        corner->setFrame(layout.cornerView);
        if (corner->superview() != this)
            addSubview(*corner);
    }
}

void NSScrollView::tile()
{
    if (m_isTiling || !m_contentView)
        return;
    m_isTiling = true;
    // A document that follows the clip view's size may need other scrollers afterwards. It is asked once more and no oftener, since
    // one that shrinks when it is given less room would never be content.
    for (int pass = 0; pass < 2; ++pass) {
        auto const parts = layout();
        m_isTiledWithVertical = parts.showsVerticalScroller;
        m_isTiledWithHorizontal = parts.showsHorizontalScroller;
        m_contentView->setFrame(parts.content);
        placeScroller(m_verticalScroller.get(), parts.showsVerticalScroller, parts.verticalScroller);
        placeScroller(m_horizontalScroller.get(), parts.showsHorizontalScroller, parts.horizontalScroller);
        placeHeader(parts);
    }
    m_isTiling = false;
    followClipView();
}

void NSScrollView::resizeSubviewsWithOldSize(Size)
{
    tile();
}

void NSScrollView::reflectScrolledClipView(NSView& clipView)
{
    if (m_isTiling || &clipView != m_contentView.get())
        return;
    auto const parts = layout();
    if (parts.showsVerticalScroller != m_isTiledWithVertical || parts.showsHorizontalScroller != m_isTiledWithHorizontal)
        tile();
    else
        followClipView();
}

void NSScrollView::followClipView()
{
    reflect(m_verticalScroller.get(), Axis::vertical);
    reflect(m_horizontalScroller.get(), Axis::horizontal);
    if (m_headerClipView && !m_headerClipView->isHidden())
        m_headerClipView->scrollToPoint({ m_contentView->bounds().x, m_headerClipView->bounds().y });
}

void NSScrollView::reflect(NSScroller* scroller, Axis axis)
{
    if (!scroller)
        return;
    Rect const document = m_contentView->documentRect();
    Rect const visible = m_contentView->bounds();
    auto const direction = m_contentView->isFlipped() ? ScrollDirection::fromStart : ScrollDirection::fromEnd;
    auto const* whole = axis == Axis::vertical ? dynamic_cast<LongDocument const*>(documentView()) : nullptr;
    bool const isStretch = whole && whole->documentLength() > static_cast<double>(document.height);
    auto const reading = isStretch ? scrollerReading(0, whole->documentLength(),
                             whole->documentOffset() + static_cast<double>(visible.y), visible.height, direction)
        : axis == Axis::vertical
        ? scrollerReading(document.y, document.height, visible.y, visible.height, direction)
        : scrollerReading(document.x, document.width, visible.x, visible.width, ScrollDirection::fromStart);
    scroller->setEnabled(reading.isScrollable);
    // A knob that waits for its release keeps the value that the person gives it.
    if (m_scrollsDynamically || scroller->hitPart() != NSScrollerKnob)
        scroller->setFloatValue(reading.value, reading.knobProportion);
}

// MARK: drawing

bool NSScrollView::isOpaque() const
{
    return m_contentView && m_contentView->isOpaque();
}

void NSScrollView::drawRect(Rect)
{
    auto const& theme = Theme::current();
    auto const parts = layout();
    theme.drawScrollerCorner(parts.scrollerCorner);
    theme.drawBorder(m_borderType, bounds());
}

}
