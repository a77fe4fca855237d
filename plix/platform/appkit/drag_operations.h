#pragma once

namespace plix {

/// What of a source's operations the held modifiers leave: Shift moves, Control copies, both link; Alternate copies too. Where that
/// leaves nothing the answer is 0.
unsigned dragOperationMask(unsigned sourceMask, unsigned modifierFlags);

/// The one operation that comes of a destination's answer and what is allowed; of several the first of move, generic, copy, link,
/// private, delete. 0 for none.
unsigned chosenDragOperation(unsigned answered, unsigned allowed);

}
