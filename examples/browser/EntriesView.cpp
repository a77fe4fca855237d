#include "EntriesView.h"

#include <plix/platform/appkit/NSEvent.h>

namespace browser {

using namespace plix;

PLIX_DESCRIBE(EntriesView)
{
    description.action("copy:", &EntriesView::copy).action("paste:", &EntriesView::paste);
}

void EntriesView::keyDown(NSEvent& event)
{
    auto const key = event.characterIgnoringModifiers();
    auto const modifiers = event.modifierFlags();
    if (key == NSUpArrowFunctionKey && (modifiers & NSAlternateKeyMask) != 0)
        m_commands.leave();
    else if (key == U'i' && (modifiers & NSControlKeyMask) != 0)
        m_commands.info();
    else if (key == U'c' && (modifiers & NSControlKeyMask) != 0)
        copy(nullptr); // its character is that of the Enter key
    else
        PLIXTableView::keyDown(event);
}

}
