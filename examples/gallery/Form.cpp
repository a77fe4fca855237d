#include "Form.h"

#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSGraphics.h>

namespace gallery {

using namespace plix;

void Form::drawRect(Rect dirty)
{
    NSColor::windowBackgroundColor()->set();
    NSRectFill(dirty);
}

void Form::addRow(std::string_view caption, std::vector<Ref<NSView>> const& controls)
{
    auto const label = NSTextField::labelWithString(caption);
    label->setAlignment(NSRightTextAlignment);
    label->setFrame({ 20, m_y + 5, captionWidth, 16 });
    addSubview(*label);
    float x = left;
    for (auto const& control : controls) {
        control->setFrameOrigin({ x, m_y + 13 - control->frame().height / 2 });
        addSubview(*control);
        x = control->frame().maxX() + 10;
    }
    m_y += 36;
}

void Form::addGap()
{
    m_y += 12;
}

void Form::addStatus(std::string_view text)
{
    m_status = NSTextField::labelWithString(text);
    m_status->setTextColor(NSColor::disabledControlTextColor());
    m_status->setFrame({ 20, bounds().height - 30, bounds().width - 40, 16 });
    addSubview(*m_status);
}

void Form::setStatus(std::string_view text)
{
    m_status->setStringValue(text);
}

}
