#include <plix/controls/TQSplitView.h>

#include <plix/platform/foundation/NSCoder.h>

namespace plix {

PLIX_DESCRIBE(TQSplitView)
{
}

bool TQSplitView::init()
{
    return Base::init();
}

bool TQSplitView::init(Rect frame)
{
    return Base::init(frame);
}

bool TQSplitView::init(NSCoder& coder)
{
    return Base::init(coder);
}

}
