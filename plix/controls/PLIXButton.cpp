#include <plix/controls/PLIXButton.h>

#include <plix/platform/appkit/NSEvent.h>

namespace plix {

PLIX_DESCRIBE(PLIXButton)
{
}

bool PLIXButton::performKeyEquivalent(NSEvent& event)
{
    return event.type() != NSKeyUp && Base::performKeyEquivalent(event);
}

}
