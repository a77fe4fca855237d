#include <plix/controls/TQSplitView.h>

#include <plix/platform/foundation/NSCoder.h>

namespace plix {

PLIX_DESCRIBE(TQSplitView)
{
}

// Whatever the base answers, the view is there.
bool TQSplitView::init()
{
    Base::init();
    m_dividerThickness = usualThickness;
    return true;
}

bool TQSplitView::init(Rect frame)
{
    if (!Base::init(frame))
        return false;
    m_dividerThickness = usualThickness;
    return true;
}

bool TQSplitView::init(NSCoder& coder)
{
    if (!Base::init(coder))
        return false;
    m_dividerThickness = usualThickness;
    return true;
}

}
