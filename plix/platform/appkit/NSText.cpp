#include <plix/platform/appkit/NSText.h>

#include <plix/platform/graphics/NSColor.h>

namespace plix {

PLIX_DESCRIBE(NSText)
{
    description.hookOutlet("delegate", &NSText::takeHooks).action("selectAll:", &NSText::selectAll);
}

NSText::NSText() = default;
NSText::~NSText() = default;

void NSText::setEditable(bool isEditable)
{
    m_isEditable = isEditable;
    if (isEditable)
        m_isSelectable = true;
}

void NSText::setSelectable(bool isSelectable)
{
    m_isSelectable = isSelectable;
    if (!isSelectable)
        m_isEditable = false;
}

void NSText::setFieldEditor(bool isFieldEditor)
{
    m_isFieldEditor = isFieldEditor;
}

void NSText::setDrawsBackground(bool draws)
{
    if (m_drawsBackground == draws)
        return;
    m_drawsBackground = draws;
    setNeedsDisplay(true);
}

void NSText::setBackgroundColor(Ref<NSColor> const& color)
{
    if (m_backgroundColor == color)
        return;
    m_backgroundColor = color;
    setNeedsDisplay(true);
}

void NSText::takeHooks(HookSource const& source)
{
    m_delegate = source;
}

}
