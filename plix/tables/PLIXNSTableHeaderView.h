#pragma once

#include <plix/platform/appkit/NSTableHeaderView.h>

namespace plix {

class NSTableColumn;

/// The header of the library's tables: a double click on a divider makes the column before it as wide as its data needs. Ignores
/// the mouse while its table is disabled.
class PLIX_EXPORT PLIXNSTableHeaderView : public NSTableHeaderView {
    PLIX_CLASS(PLIXNSTableHeaderView, NSTableHeaderView);

public:
    PLIXNSTableHeaderView();
    ~PLIXNSTableHeaderView() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// True at first; else double clicks are as in any header.
    bool resizeColumnsOnDoubleClick() const { return m_resizeColumnsOnDoubleClick; }
    void setResizeColumnsOnDoubleClick(bool resizes) { m_resizeColumnsOnDoubleClick = resizes; }

    // NSView:
    void mouseDown(NSEvent&) override;

private:
    NSTableColumn* columnBeforeDivider(NSEvent const&) const;

    bool m_resizeColumnsOnDoubleClick { false };
};

}
