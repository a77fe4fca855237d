#include <plix/platform/appkit/NSBox.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

#include <cmath>

namespace plix {

namespace {

constexpr float titleFontSize = 11;
/// Left and right of the title the border is interrupted.
constexpr float titlePadding = 3;

}

PLIX_DESCRIBE(NSBox)
{
}

NSBox::NSBox() = default;
NSBox::~NSBox() = default;

bool NSBox::init()
{
    return NSBox::init(Rect {});
}

bool NSBox::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    makeTitleCell();
    auto const content = make<NSView>(Rect {});
    setContentView(content.get());
    return true;
}

bool NSBox::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    makeTitleCell();
    coder.read("boxType", [&](ObjectValue const& value) { m_type = static_cast<NSBoxType>(value.intValue()); });
    coder.read("borderType", [&](ObjectValue const& value) { m_borderType = static_cast<NSBorderType>(value.intValue()); });
    coder.read(
        "titlePosition", [&](ObjectValue const& value) { m_shape.titlePosition = static_cast<NSTitlePosition>(value.intValue()); });
    coder.read("title", [&](ObjectValue const& value) { m_titleCell->setStringValue(value.description()); });
    coder.read("titleFont", [&](ObjectValue const& value) { m_titleCell->setFont(value.as<NSFont>()); });
    coder.read("fillColor", [&](ObjectValue const& value) { m_fillColor = value.as<NSColor>(); });
    coder.read(
        "contentViewMargins", [&](ObjectValue const& value) { setContentViewMargins(NSSizeFromString(value.description())); });
    coder.read("contentView", [&](ObjectValue const& value) { setContentView(value.as<NSView>().get()); });
    return true;
}

void NSBox::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeInt(m_type, "boxType");
    coder.encodeInt(m_borderType, "borderType");
    coder.encodeInt(m_shape.titlePosition, "titlePosition");
    coder.encodeObject(title(), "title");
    coder.encodeObject(Ref<NSFont>(titleFont()), "titleFont");
    coder.encodeObject(m_fillColor, "fillColor");
    coder.encodeObject(NSStringFromSize(m_shape.margins), "contentViewMargins");
    coder.encodeObject(m_contentView, "contentView");
}

void NSBox::makeTitleCell()
{
    auto const cell = make<NSTextFieldCell>("Title");
    cell->setFont(NSFont::systemFontOfSize(titleFontSize));
    cell->setLineBreakMode(NSLineBreakByTruncatingTail);
    m_titleCell = cell;
}

void NSBox::setBoxType(NSBoxType type)
{
    if (m_type == type)
        return;
    m_type = type;
    layOut();
}

void NSBox::setBorderType(NSBorderType type)
{
    if (m_borderType == type)
        return;
    m_borderType = type;
    layOut();
}

void NSBox::setTitlePosition(NSTitlePosition position)
{
    if (m_shape.titlePosition == position)
        return;
    m_shape.titlePosition = position;
    layOut();
}

std::string const& NSBox::title() const
{
    return m_titleCell->stringValue();
}

void NSBox::setTitle(std::string_view title)
{
    if (title == m_titleCell->stringValue())
        return;
    m_titleCell->setStringValue(title);
    layOut();
}

NSFont* NSBox::titleFont() const
{
    return m_titleCell->font();
}

void NSBox::setTitleFont(Ref<NSFont> const& font)
{
    m_titleCell->setFont(font);
    layOut();
}

void NSBox::setFillColor(Ref<NSColor> const& color)
{
    m_fillColor = color;
    setNeedsDisplay(true);
}

void NSBox::setContentViewMargins(Size margins)
{
    m_shape.margins = { std::isfinite(margins.width) ? margins.width : 0, std::isfinite(margins.height) ? margins.height : 0 };
    layOut();
}

void NSBox::setContentView(NSView* view)
{
    Ref<NSView> const content(view);
    if (m_contentView)
        m_contentView->removeFromSuperview();
    m_contentView = content;
    if (content)
        Base::addSubview(*content);
    layOut();
}

void NSBox::addSubview(NSView& view)
{
    if (m_contentView)
        m_contentView->addSubview(view);
    else
        setContentView(&view);
}

BoxShape NSBox::shape() const
{
    auto shape = m_shape;
    shape.borderThickness = m_borderType == NSNoBorder                    ? 0
        : m_borderType == NSBezelBorder || m_borderType == NSGrooveBorder ? 2
                                                                          : 1;
    shape.titleSize = {};
    if (m_shape.titlePosition != NSNoTitle && !title().empty()) {
        auto const size = m_titleCell->cellSize();
        shape.titleSize = { std::ceil(size.width) + 2 * titlePadding, std::ceil(size.height) };
    }
    return shape;
}

Rect NSBox::borderRect() const
{
    return boxLayout(bounds(), shape()).border;
}

Rect NSBox::titleRect() const
{
    return boxLayout(bounds(), shape()).title;
}

void NSBox::layOut()
{
    if (m_contentView)
        m_contentView->setFrame(m_type == NSBoxSeparator ? Rect {} : boxLayout(bounds(), shape()).content);
    setNeedsDisplay(true);
}

void NSBox::resizeSubviewsWithOldSize(Size)
{
    layOut();
}

void NSBox::sizeToFit()
{
    if (!m_contentView || m_contentView->subviews().empty())
        return;
    Rect around = m_contentView->subviews().front()->frame();
    for (auto const& view : m_contentView->subviews())
        around = NSUnionRect(around, view->frame());
    // What is inside moves to the content's corner.
    auto const inside = m_contentView->subviews();
    for (auto const& view : inside)
        view->setFrameOrigin({ view->frame().x - around.x, view->frame().y - around.y });
    bool const resizes = m_contentView->autoresizesSubviews();
    m_contentView->setAutoresizesSubviews(false);
    setFrameSize(boxSizeAround(around.size(), shape()));
    m_contentView->setAutoresizesSubviews(resizes);
}

void NSBox::setFrameFromContentFrame(Rect content)
{
    auto const size = boxSizeAround(content.size(), shape());
    auto const inside = boxLayout({ 0, 0, size.width, size.height }, shape()).content;
    setFrame({ content.x - inside.x, content.y - inside.y, size.width, size.height });
}

void NSBox::drawRect(Rect)
{
    auto const& theme = Theme::current();
    if (m_type == NSBoxSeparator) {
        theme.drawSeparator(bounds());
        return;
    }
    auto const layout = boxLayout(bounds(), shape());
    BoxLook const look { m_borderType, m_type == NSBoxCustom ? m_fillColor.get() : nullptr, m_type == NSBoxPrimary };
    bool const interrupts = titlePosition() == NSAtTop || titlePosition() == NSAtBottom;
    theme.drawBox(layout.border, look, interrupts ? layout.title : Rect {});
    if (!layout.title.isEmpty())
        m_titleCell->drawInteriorWithFrame(NSInsetRect(layout.title, titlePadding, 0), *this);
}

}
