#include <plix/platform/graphics/NSLayoutManager.h>

#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSTextContainer.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/TextLayout.h>

#include <algorithm>

namespace plix {

PLIX_DESCRIBE(NSLayoutManager)
{
}

NSLayoutManager::NSLayoutManager()
    : m_layout(std::make_unique<TextLayout>())
{
}

NSLayoutManager::~NSLayoutManager()
{
    for (auto const& container : m_containers)
        container->setLayoutManager(nullptr);
}

void NSLayoutManager::setTextStorage(NSTextStorage* storage)
{
    m_storage = storage;
    m_layout->setString(storage);
}

void NSLayoutManager::addTextContainer(Ref<NSTextContainer> const& container)
{
    if (!container)
        return;
    m_containers.push_back(container);
    container->setLayoutManager(this);
    textContainerChangedGeometry(*container);
}

void NSLayoutManager::removeTextContainerAtIndex(long index)
{
    if (index < 0 || index >= static_cast<long>(m_containers.size()))
        return;
    m_containers[static_cast<std::size_t>(index)]->setLayoutManager(nullptr);
    m_containers.erase(m_containers.begin() + index);
    if (!m_containers.empty())
        textContainerChangedGeometry(*m_containers[0]);
}

bool NSLayoutManager::laysOutIn(NSTextContainer const& container) const
{
    return !m_containers.empty() && m_containers[0].get() == &container;
}

void NSLayoutManager::textStorageEdited(NSRange range, long changeInLength)
{
    m_layout->stringEdited(range, changeInLength);
}

void NSLayoutManager::textContainerChangedGeometry(NSTextContainer const& container)
{
    if (!laysOutIn(container))
        return;
    m_layout->setLineFragmentPadding(container.lineFragmentPadding());
    m_layout->setWidth(container.containerSize().width);
}

NSRange NSLayoutManager::glyphRangeForTextContainer(NSTextContainer const& container)
{
    if (!laysOutIn(container) || m_layout->isEmpty())
        return {};
    long const lines = m_layout->linesWithin(container.containerSize().height);
    return lines > 0 ? NSRange { 0, m_layout->line(lines - 1).range.end() } : NSRange {};
}

Rect NSLayoutManager::usedRectForTextContainer(NSTextContainer const& container)
{
    return laysOutIn(container) ? m_layout->usedRectWithin(container.containerSize().height) : Rect {};
}

long NSLayoutManager::numberOfGlyphs()
{
    return m_storage ? m_storage->length() : 0;
}

NSRange NSLayoutManager::glyphRangeForBoundingRect(Rect bounds, NSTextContainer const& container)
{
    auto const all = glyphRangeForTextContainer(container);
    if (all.length == 0 || bounds.isEmpty())
        return {};
    auto const first = m_layout->line(m_layout->lineAtY(bounds.y)).range;
    auto const last = m_layout->line(m_layout->lineAtY(bounds.maxY())).range;
    return NSIntersectionRange(NSUnionRange(first, last), all);
}

Rect NSLayoutManager::boundingRectForGlyphRange(NSRange range, NSTextContainer const& container)
{
    Rect bounds;
    if (laysOutIn(container)) {
        for (auto const& rect : m_layout->rectsOfRange(range))
            bounds = NSUnionRect(bounds, rect);
    }
    return bounds;
}

Rect NSLayoutManager::lineFragmentRectForGlyphAtIndex(long index, NSRange& effectiveRange)
{
    auto const line = m_layout->line(m_layout->lineOfIndex(index));
    effectiveRange = line.range;
    return line.fragment;
}

Rect NSLayoutManager::lineFragmentUsedRectForGlyphAtIndex(long index, NSRange& effectiveRange)
{
    auto const line = m_layout->line(m_layout->lineOfIndex(index));
    effectiveRange = line.range;
    return line.used;
}

Rect NSLayoutManager::extraLineFragmentRect()
{
    auto const line = m_layout->line(m_layout->numberOfLines() - 1);
    return line.range.length == 0 ? line.fragment : Rect {};
}

Point NSLayoutManager::locationForGlyphAtIndex(long index)
{
    auto const line = m_layout->line(m_layout->lineOfIndex(index));
    return { m_layout->caretRect(index).x, line.baseline - line.fragment.y };
}

long NSLayoutManager::glyphIndexForPoint(Point point, NSTextContainer const& container, float& fractionOfDistanceThroughGlyph)
{
    fractionOfDistanceThroughGlyph = 0;
    if (!laysOutIn(container) || m_layout->isEmpty())
        return 0;
    auto const position = m_layout->positionAt(point);
    auto const rects = m_layout->rectsOfRange({ position.index, 1 });
    if (!rects.empty() && rects[0].width > 0)
        fractionOfDistanceThroughGlyph = std::clamp((point.x - rects[0].x) / rects[0].width, 0.0F, 1.0F);
    return position.index;
}

long NSLayoutManager::glyphIndexForPoint(Point point, NSTextContainer const& container)
{
    float fraction = 0;
    return glyphIndexForPoint(point, container, fraction);
}

std::vector<Rect> NSLayoutManager::rectArrayForCharacterRange(NSRange range, NSTextContainer const& container)
{
    return laysOutIn(container) ? m_layout->selectionRects(range) : std::vector<Rect> {};
}

void NSLayoutManager::drawBackgroundForGlyphRange(NSRange range, Point origin)
{
    drawLinesOf(range, origin, Part::backgrounds);
}

void NSLayoutManager::drawGlyphsForGlyphRange(NSRange range, Point origin)
{
    drawLinesOf(range, origin, Part::text);
}

void NSLayoutManager::drawLinesOf(NSRange range, Point origin, Part part)
{
    if (range.length <= 0)
        return;
    auto const layoutPart = part == Part::text ? TextLayout::Part::text : TextLayout::Part::backgrounds;
    long const last = m_layout->lineOfIndex(range.end() - 1) + 1;
    auto const used = m_containers.empty() ? m_layout->usedRect() : usedRectForTextContainer(*m_containers.front());
    m_layout->drawLines(m_layout->lineOfIndex(range.location), last, origin, used.height, layoutPart);
}

float NSLayoutManager::defaultLineHeightForFont(NSFont const& font) const
{
    return font.defaultLineHeightForFont();
}

}
