#pragma once

#include <plix/platform/base/ObjectValue.h>
#include <plix/platform/base/export.h>

namespace plix {

class NSTabView;
class NSTabViewItem;

/// The item with that identifier, which is to be there: an unknown one raises NSRangeException.
PLIX_EXPORT NSTabViewItem* tabViewItemWithIdentifier(NSTabView const&, ObjectValue const& identifier);

}
