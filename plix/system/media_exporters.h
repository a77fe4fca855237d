#pragma once

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>

#include <vector>

namespace plix {

/// The machine's components that write files of media, in an order that stays the same: each with "name", "component" (an NSData of
/// the 4 bytes of its reference) and, as numbers, the four-character codes "type" ('spit'), "subtype" (the kind of file) and
/// "manufacturer". Components that can't be read are left out; none where the machine has no media services.
PLIX_EXPORT std::vector<ObjectValue::Dictionary> availableComponents();

/// The first of them with that subtype; nil where there is none.
PLIX_EXPORT ObjectValue componentWithSubType(long subtype);

/// For finding out whether a movie's progress is told: logs its name. Answers 0.
PLIX_EXPORT int testMovieProgressProc();

}
