#pragma once

#include <plix/platform/appkit/NSTabViewItem.h>

namespace plix {

/// A tab with an image before its label, and a pane that a PLIXTabView sizes its window by.
class PLIX_EXPORT PLIXTabViewItem : public NSTabViewItem {
    PLIX_CLASS(PLIXTabViewItem, NSTabViewItem);

public:
    PLIXTabViewItem();
    ~PLIXTabViewItem() override;
    using NSTabViewItem::init;
    bool init();
    /// Clears what this class adds.
    bool initWithCoder() override;

    /// Drawn as a square as high as the label; null for none.
    NSImage* image() const;
    void setImage(Ref<NSImage> const&);
    /// The pane, as large as its own frame. Shown when the item is selected the next time; null for the item's view.
    NSView* customView() const { return m_customView.get(); }
    void setCustomView(Ref<NSView> const&);
    /// False at first. Kept for those who ask.
    bool resizable() const { return m_resizable; }
    void setResizable(bool resizable) { m_resizable = resizable; }

    // NSTabViewItem:
    void drawLabel(bool shouldTruncateLabel, Rect inRect) override;
    Size sizeOfLabel(bool computeMin) const override;

private:
    void drawImage(Rect) const;

    Ref<NSImage> m_image;
    Ref<NSView> m_customView;
    bool m_resizable { false };
};

}
