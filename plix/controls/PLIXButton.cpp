#include <plix/controls/PLIXButton.h>

#include <plix/platform/appkit/NSEvent.h>
#include <plix/platform/foundation/NSCoder.h>

namespace plix {

PLIX_DESCRIBE(PLIXButton)
{
}

bool PLIXButton::init(NSCoder& coder)
{
    return Base::init(coder);
}

bool PLIXButton::performKeyEquivalent(NSEvent& event)
{
    return event.type() != NSKeyUp && Base::performKeyEquivalent(event);
}

}
