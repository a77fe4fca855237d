#include "EntriesView.h"

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/appkit/key_equivalent.h>

namespace browser {

using namespace plix;

PLIX_DESCRIBE(EntriesView)
{
    description.action("copy:", &EntriesView::copy).action("paste:", &EntriesView::paste);
}

bool EntriesView::performKeyEquivalent(NSEvent& event)
{
    if (!isKeyEquivalent(event, ",", NSCommandKeyMask))
        return PLIXTableView::performKeyEquivalent(event);
    m_commands.preferences();
    return true;
}

void EntriesView::keyDown(NSEvent& event)
{
    auto const key = event.characterIgnoringModifiers();
    auto const modifiers = event.modifierFlags();
    if (key == NSUpArrowFunctionKey && (modifiers & NSAlternateKeyMask) != 0)
        m_commands.leave();
    else if (key == U'i' && (modifiers & NSControlKeyMask) != 0)
        m_commands.info();
    else if (key == U't' && (modifiers & NSControlKeyMask) != 0)
        m_commands.total();
    else if (key == U'c' && (modifiers & NSControlKeyMask) != 0)
        copy(nullptr); // its character is that of the Enter key
    else
        PLIXTableView::keyDown(event);
}

}
