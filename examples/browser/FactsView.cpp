#include "FactsView.h"

#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSTextField.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSFont.h>

#include <algorithm>

namespace browser {

using namespace plix;

namespace {

constexpr float lineHeight = 19;
constexpr float labelWidth = 68;
constexpr float gap = 8;

}

PLIX_DESCRIBE(FactsView)
{
}

void FactsView::setFacts(std::vector<FileFact> facts)
{
    if (facts == m_facts)
        return;
    m_facts = std::move(facts);
    while (!subviews().empty())
        Ref<NSView>(subviews().back())->removeFromSuperview();
    float top = 0;
    for (auto const& fact : m_facts) {
        addLine(fact, top);
        top += lineHeight;
    }
    setFrameSize({ frame().width, top });
}

void FactsView::setFact(FileFact fact)
{
    auto facts = m_facts;
    auto const found = std::ranges::find(facts, fact.label, &FileFact::label);
    if (found == facts.end())
        facts.push_back(std::move(fact));
    else
        *found = std::move(fact);
    setFacts(std::move(facts));
}

void FactsView::addLine(FileFact const& fact, float top)
{
    auto const font = NSFont::systemFontOfSize(NSFont::smallSystemFontSize());
    auto const label = NSTextField::labelWithString(fact.label + ":");
    label->setFont(font);
    label->setAlignment(NSRightTextAlignment);
    label->setTextColor(Theme::current().color(ThemeRole::secondaryText));
    label->setFrame({ 0, top, labelWidth, lineHeight - 3 });
    auto const value = NSTextField::labelWithString(fact.value);
    value->setFont(font);
    value->setSelectable(true);
    value->setToolTip(fact.value);
    value->cell()->setLineBreakMode(fact.label == "Where" ? NSLineBreakByTruncatingHead : NSLineBreakByTruncatingTail);
    value->setFrame({ labelWidth + gap, top, bounds().width - labelWidth - gap, lineHeight - 3 });
    value->setAutoresizingMask(NSViewWidthSizable);
    addSubview(*label);
    addSubview(*value);
}

}
