#include <plix/platform/appkit/drag_operations.h>

#include <plix/platform/appkit/drag_operation.h>
#include <plix/platform/appkit/event_constants.h>

#include <array>

namespace plix {

unsigned dragOperationMask(unsigned sourceMask, unsigned modifierFlags)
{
    bool const hasShift = (modifierFlags & NSShiftKeyMask) != 0;
    bool const hasControl = (modifierFlags & NSControlKeyMask) != 0;
    if (hasShift && hasControl)
        return sourceMask & NSDragOperationLink;
    if (hasShift)
        return sourceMask & (NSDragOperationMove | NSDragOperationGeneric);
    if (hasControl || (modifierFlags & NSAlternateKeyMask) != 0)
        return sourceMask & NSDragOperationCopy;
    return sourceMask;
}

unsigned chosenDragOperation(unsigned answered, unsigned allowed)
{
    constexpr std::array order { NSDragOperationMove, NSDragOperationGeneric, NSDragOperationCopy, NSDragOperationLink,
        NSDragOperationPrivate, NSDragOperationDelete };
    for (auto const operation : order) {
        if (answered & allowed & operation)
            return operation;
    }
    return NSDragOperationNone;
}

}
