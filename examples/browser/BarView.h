#pragma once

#include <plix/platform/appkit/NSView.h>

namespace browser {

/// A strip at an edge of the window, with a line towards the content.
class BarView : public plix::NSView {
    PLIX_CLASS(BarView, plix::NSView);

public:
    enum class Edge { top, bottom };

    bool init(plix::Rect frame, Edge edge);
    /// A large folder in the bar's left end.
    void setShowsFolder(bool shows) { m_showsFolder = shows; }

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    Edge m_edge { Edge::top };
    bool m_showsFolder { false };
};

}
