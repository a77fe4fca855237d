#include <plix/format/view_additions.h>

#include <plix/platform/appkit/NSView.h>

namespace plix {

NSResponder* nextResponderOfClass(NSView const& view, Class const& wanted)
{
    for (auto* responder = view.nextResponder(); responder; responder = responder->nextResponder()) {
        if (responder->isMemberOfClass(wanted))
            return responder;
    }
    for (auto* responder = view.nextResponder(); responder; responder = responder->nextResponder()) {
        if (responder->isKindOfClass(wanted))
            return responder;
    }
    return nullptr;
}

}
