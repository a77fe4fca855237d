#include <plix/platform/appkit/NSTabViewItem.h>

#include <plix/platform/appkit/NSTabView.h>
#include <plix/platform/base/utf16.h>
#include <plix/platform/foundation/NSCoder.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace plix {

namespace {

/// A truncated label keeps room for about two letters and the ellipsis.
constexpr float leastLabelInFontSizes = 2.5F;

}

PLIX_DESCRIBE(NSTabViewItem)
{
    description.outlet<NSView>(
        "initialFirstResponder", [](NSTabViewItem& item, Ref<NSView> const& view) { item.setInitialFirstResponder(view.get()); });
}

NSTabViewItem::NSTabViewItem() = default;
NSTabViewItem::~NSTabViewItem() = default;

bool NSTabViewItem::init()
{
    return NSTabViewItem::init(ObjectValue());
}

bool NSTabViewItem::init(ObjectValue identifier)
{
    m_identifier = std::move(identifier);
    m_view = make<NSView>(Rect {});
    return true;
}

bool NSTabViewItem::init(NSCoder& coder)
{
    if (!NSTabViewItem::init(coder.decodeObjectForKey("identifier")))
        return false;
    m_label = validUTF8(coder.decodeStringForKey("label"));
    m_color = coder.decodeForKey<NSColor>("color");
    coder.read("view", [this](ObjectValue const& value) { m_view = value.as<NSView>(); });
    m_initialFirstResponder = coder.decodeForKey<NSView>("initialFirstResponder").get();
    return initWithCoder();
}

void NSTabViewItem::encodeWithCoder(NSCoder& coder) const
{
    Base::encodeWithCoder(coder);
    coder.encodeObject(m_identifier, "identifier");
    coder.encodeObject(m_label, "label");
    coder.encodeObject(m_color, "color");
    coder.encodeObject(m_view, "view");
    auto* const first = initialFirstResponder();
    coder.encodeObject(Ref<NSView>(m_view && first && first->isDescendantOf(*m_view) ? first : nullptr), "initialFirstResponder");
}

void NSTabViewItem::setIdentifier(ObjectValue identifier)
{
    m_identifier = std::move(identifier);
}

void NSTabViewItem::setLabel(std::string_view label)
{
    auto text = validUTF8(label);
    if (text == m_label)
        return;
    m_label = std::move(text);
    labelChanged();
}

NSColor* NSTabViewItem::color() const
{
    return m_color.get();
}

void NSTabViewItem::setColor(Ref<NSColor> const& color)
{
    m_color = color;
}

void NSTabViewItem::setView(Ref<NSView> const& view)
{
    if (m_view == view)
        return;
    auto const before = std::exchange(m_view, view);
    if (Ref<NSTabView> const holder { tabView() })
        holder->paneChanged(Badge<NSTabViewItem> {}, *this, before);
}

void NSTabViewItem::setInitialFirstResponder(NSView* view)
{
    m_initialFirstResponder = view;
}

NSTabView* NSTabViewItem::tabView() const
{
    return m_tabView.get();
}

void NSTabViewItem::setTabView(Badge<NSTabView>, NSTabView* tabView)
{
    m_tabView = tabView;
}

void NSTabViewItem::labelChanged()
{
    if (auto* const holder = tabView())
        holder->labelChanged(Badge<NSTabViewItem> {});
}

Ref<NSFont> NSTabViewItem::font() const
{
    auto const* holder = tabView();
    if (holder && holder->font())
        return holder->font();
    return NSFont::systemFontOfSize(NSFont::systemFontSizeForControlSize(holder ? holder->controlSize() : NSRegularControlSize));
}

Size NSTabViewItem::sizeOfLabel(bool computeMin) const
{
    auto const labelFont = font();
    // An empty label is as high as another.
    auto const size = sizeWithAttributes(m_label.empty() ? " " : m_label, { { NSFontAttributeName, labelFont } });
    float const width = m_label.empty() ? 0 : std::ceil(size.width);
    float const least = std::ceil(labelFont->pointSize() * leastLabelInFontSizes);
    return { computeMin ? std::min(width, least) : width, std::ceil(size.height) };
}

void NSTabViewItem::drawLabel(bool shouldTruncateLabel, Rect inRect)
{
    auto const* holder = tabView();
    auto const style = NSParagraphStyle::defaultParagraphStyle()->mutableCopy();
    style->setLineBreakMode(shouldTruncateLabel ? NSLineBreakByTruncatingTail : NSLineBreakByClipping);
    drawInRect(m_label, inRect,
        { { NSFontAttributeName, font() },
            { NSForegroundColorAttributeName,
                holder ? holder->labelColor(Badge<NSTabViewItem> {}, *this) : NSColor::controlTextColor() },
            { NSParagraphStyleAttributeName, style } });
}

}
