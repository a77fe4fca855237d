#pragma once

#include <plix/platform/base/export.h>

namespace plix {

class Class;
class NSResponder;
class NSView;

/// The first responder behind the view in its chain that is of exactly this class, else the first that is of its kind; null where
/// there is neither. Never the view itself.
PLIX_EXPORT NSResponder* nextResponderOfClass(NSView const&, Class const&);

}
