#pragma once

#include <plix/platform/appkit/NSView.h>

namespace plix {

class NSTextFieldCell;

}

namespace browser {

/// The headings above the columns of the list, or an empty stretch of them.
class ListHeaderView : public plix::NSView {
    PLIX_CLASS(ListHeaderView, plix::NSView);

public:
    ListHeaderView();
    ~ListHeaderView() override;
    enum class Titles { shown, none };

    bool init(Titles titles);

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    plix::Ref<plix::NSTextFieldCell> m_cell;
    Titles m_titles { Titles::shown };
};

}
