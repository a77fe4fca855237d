#pragma once

#include <plix/platform/appkit/NSTextAttachmentCell.h>

namespace plix {

/// An attachment's cell whose place against the baseline the host sets.
class PLIX_EXPORT PLIXTextAttachmentCell : public NSTextAttachmentCell {
    PLIX_CLASS(PLIXTextAttachmentCell, NSTextAttachmentCell);

public:
    bool init();
    bool init(std::string_view text);
    bool init(Ref<NSImage> const&);
    /// The offset and the flag are not archived.
    bool init(NSCoder&);

    /// In points, y upwards; (0, 0) at first.
    void plixSetCellBaselineOffset(Point offset) { m_cellBaselineOffset = offset; }
    /// While it is set, cellBaselineOffset() answers (0, 0); the offset is kept.
    void plixSetCenterCellBaselineOffset(bool centers) { m_centersCellBaselineOffset = centers; }
    Point cellBaselineOffset() const override { return m_centersCellBaselineOffset ? Point {} : m_cellBaselineOffset; }

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    Point m_cellBaselineOffset;
    bool m_centersCellBaselineOffset { false };
};

}
