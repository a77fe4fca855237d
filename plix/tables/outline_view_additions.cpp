#include <plix/tables/outline_view_additions.h>

#include <plix/platform/appkit/NSOutlineView.h>

namespace plix {

void zapIndentationMarker(NSOutlineView& outline)
{
    outline.setDrawsIndentationMarkers(false);
}

}
