#pragma once

#include <plix/platform/base/export.h>

namespace plix {

class NSView;

/// What a document view may bring along for its scroll view: a header that stays above the document and scrolls sideways with it,
/// and a view for the corner above the vertical scroller. Either may be null. The views belong to the document view. The scroll
/// view asks whenever it is tiled.
class PLIX_EXPORT ScrollHeader {
public:
    virtual ~ScrollHeader() = default;
    virtual NSView* headerView() const = 0;
    virtual NSView* cornerView() const = 0;
};

}
