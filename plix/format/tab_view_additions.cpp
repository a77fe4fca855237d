#include <plix/format/tab_view_additions.h>

#include <plix/platform/appkit/NSTabView.h>

namespace plix {

NSTabViewItem* tabViewItemWithIdentifier(NSTabView const& tabView, ObjectValue const& identifier)
{
    long const index = tabView.indexOfTabViewItemWithIdentifier(identifier);
    // Not found is a positive number, so that this passes it on to the range check; which is meant.
    return index < 0 ? nullptr : tabView.tabViewItemAtIndex(index);
}

}
