#pragma once

#include <plix/platform/base/Class.h>
#include <plix/platform/base/Weak.h>
#include <plix/platform/graphics/geometry.h>

namespace plix {

class NSLayoutManager;

/// The area that text is laid out in. y grows downwards from its upper edge.
class PLIX_EXPORT NSTextContainer : public NSObject {
    PLIX_CLASS(NSTextContainer, NSObject);

public:
    /// Practically without bounds.
    bool init() { return init(Size { 1e7F, 1e7F }); }
    bool init(Size containerSize);

    // The room for text, in points.
    Size containerSize() const { return m_size; }
    void setContainerSize(Size);
    /// Kept free at both ends of each line; 5 at first.
    float lineFragmentPadding() const { return m_padding; }
    void setLineFragmentPadding(float);
    /// Kept for the view whose container it is.
    bool widthTracksTextView() const { return m_widthTracksTextView; }
    void setWidthTracksTextView(bool flag) { m_widthTracksTextView = flag; }
    bool heightTracksTextView() const { return m_heightTracksTextView; }
    void setHeightTracksTextView(bool flag) { m_heightTracksTextView = flag; }

    NSLayoutManager* layoutManager() const { return m_layoutManager.get(); }
    /// For the layout manager that takes it in.
    void setLayoutManager(NSLayoutManager*);

private:
    Size m_size;
    float m_padding { 5 };
    bool m_widthTracksTextView { false };
    bool m_heightTracksTextView { false };
    Weak<NSLayoutManager> m_layoutManager;
};

}
