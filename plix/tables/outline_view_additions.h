#pragma once

namespace plix {

class NSOutlineView;

/// Clears the flag of any outline by which it draws disclosure triangles of its own.
void zapIndentationMarker(NSOutlineView&);

}
