#include <plix/controls/TQSplitView.h>

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

}
