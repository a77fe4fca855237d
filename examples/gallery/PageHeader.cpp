#include "PageHeader.h"
#include "bars.h"

#include <plix/platform/appkit/NSSegmentedCell.h>
#include <plix/platform/appkit/NSSegmentedControl.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>

namespace gallery {

using namespace plix;

namespace {

constexpr float stepsWidth = 59;

}

PageHeader::PageHeader() = default;
PageHeader::~PageHeader() = default;

bool PageHeader::init(Rect frame)
{
    if (!NSView::init(frame))
        return false;
    auto const addLabel = [&](Rect place, Ref<NSFont> const& font) {
        auto label = NSTextField::labelWithString("");
        label->setFont(font);
        label->cell()->setLineBreakMode(NSLineBreakByTruncatingTail);
        label->setFrame(place);
        label->setAutoresizingMask(NSViewWidthSizable);
        addSubview(*label);
        return label;
    };
    float const width = frame.width - stepsWidth - 36;
    m_title = addLabel({ 14, 5, width, 19 }, NSFont::boldSystemFontOfSize(14));
    m_section = addLabel({ 14, 24, width, 15 }, NSFont::systemFontOfSize(NSFont::smallSystemFontSize()));
    m_steps = make<NSSegmentedControl>(Rect { frame.width - stepsWidth - 12, 11, stepsWidth, 22 });
    m_steps->setSegmentCount(2);
    static_cast<NSSegmentedCell*>(m_steps->cell())->setTrackingMode(NSSegmentSwitchTrackingMomentary);
    m_steps->setLabel("\u2039", 0);
    m_steps->setLabel("\u203A", 1);
    m_steps->setWidth(28, 0);
    m_steps->setWidth(28, 1);
    m_steps->setToolTip("The page before, the page after");
    m_steps->setAutoresizingMask(NSViewMinXMargin);
    m_steps->setTarget(*this, &PageHeader::stepped);
    addSubview(*m_steps);
    return true;
}

void PageHeader::show(std::string_view title, std::string_view section)
{
    m_title->setStringValue(title);
    m_section->setStringValue(section);
    m_section->setTextColor(Theme::current().color(ThemeRole::secondaryText));
}

void PageHeader::stepped()
{
    if (m_step)
        m_step(m_steps->selectedSegment() == 0 ? -1 : 1);
}

void PageHeader::drawRect(Rect)
{
    drawBar(bounds(), NSMaxYEdge);
}

}
