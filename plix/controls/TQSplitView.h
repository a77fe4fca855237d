#pragma once

#include <plix/platform/appkit/NSSplitView.h>

namespace plix {

/// A split view whose dividers are as thick as the host says: 7 points at first. The thickness is not archived.
class PLIX_EXPORT TQSplitView : public NSSplitView {
    PLIX_CLASS(TQSplitView, NSSplitView);

public:
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);

    float dividerThickness() const override { return m_dividerThickness; }
    /// Stores the value only: panes are laid out with it the next time, dividers drawn.
    void setDividerThickness(float thickness) { m_dividerThickness = thickness; }

private:
    static constexpr float usualThickness = 7;
    float m_dividerThickness { usualThickness };
};

}
