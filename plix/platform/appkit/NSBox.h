#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/border_type.h>
#include <plix/platform/appkit/box_layout.h>

#include <string>
#include <string_view>

namespace plix {

class NSCell;

/// What a box looks like: with a frame, or a line that separates.
enum NSBoxType : int { NSBoxPrimary = 0, NSBoxSecondary = 1, NSBoxSeparator = 2, NSBoxOldStyle = 3, NSBoxCustom = 4 };

/// A frame with a title around other views, or a line between them (NSBoxSeparator), horizontal or vertical as the longer side is.
/// What is added goes into the content view, which the box keeps in its place.
class PLIX_EXPORT NSBox : public NSView {
    PLIX_CLASS(NSBox, NSView);

public:
    NSBox();
    ~NSBox() override;
    bool init();
    bool init(Rect frame);
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    // Looks.
    NSBoxType boxType() const { return m_type; }
    void setBoxType(NSBoxType);
    NSBorderType borderType() const { return m_borderType; }
    void setBorderType(NSBorderType);
    NSTitlePosition titlePosition() const { return m_shape.titlePosition; }
    void setTitlePosition(NSTitlePosition);
    std::string const& title() const;
    void setTitle(std::string_view);
    NSFont* titleFont() const;
    void setTitleFont(Ref<NSFont> const&);
    NSCell& titleCell() const { return *m_titleCell; }
    /// Behind the content of a custom box; null for none.
    void setFillColor(Ref<NSColor> const&);

    // Places, in the box's coordinates; margins lie between frame and content.
    Size contentViewMargins() const { return m_shape.margins; }
    void setContentViewMargins(Size);
    NSView* contentView() const { return m_contentView.get(); }
    /// Null leaves the box empty.
    void setContentView(NSView*);
    Rect borderRect() const;
    Rect titleRect() const;
    /// Resizes the box, its origin kept, so that it fits around the content's subviews.
    void sizeToFit() override;
    /// Moves and resizes the box so that its content view has this rectangle of the superview.
    void setFrameFromContentFrame(Rect);

    // NSView:
    void addSubview(NSView&) override;
    void resizeSubviewsWithOldSize(Size) override;
    void drawRect(Rect) override;

protected:
    std::vector<Ref<NSView>> archivedSubviews() const override { return {}; }

private:
    void makeTitleCell();
    BoxShape shape() const;
    void layOut();

    Ref<NSCell> m_titleCell;
    Ref<NSView> m_contentView;
    Ref<NSColor> m_fillColor;
    NSBoxType m_type { NSBoxPrimary };
    NSBorderType m_borderType { NSGrooveBorder };
    BoxShape m_shape;
};

}
