#pragma once

#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/menu_layout.h>
#include <plix/platform/base/export.h>

namespace plix {

class NSMenu;
class NSMenuItem;

/// Draws an open menu, a part of it where it is higher than the screen.
class PLIX_EXPORT MenuView final : public NSView {
    PLIX_CLASS(MenuView, NSView);

public:
    MenuView();
    ~MenuView() override;
    bool init(Ref<NSMenu> const& menu, Ref<NSFont> const& font, float minimumWidth);

    /// Where the items of a menu go, as wide as it needs or at least so wide.
    static MenuLayout layoutOfMenu(NSMenu&, float minimumWidth);

    /// The menu whose items it draws.
    NSMenu& shownMenu() const { return *m_menu; }
    MenuLayout const& layout() const { return m_layout; }
    /// After items changed.
    void layOut();

    // The item under the pointer or the keyboard; -1 for none.
    long highlightedIndex() const { return m_highlighted; }
    /// -1 for none; scrolls there where that is asked for.
    enum class Reveal { no, yes };
    // Moving the highlight, to what can be chosen.
    void highlight(long index, Reveal);
    bool canHighlight(long index) const;
    /// Of the item at a point, in the view's coordinates; -1 where none can be chosen there.
    long indexAtPoint(Point) const;
    Rect rectOfItem(long index) const;

    // Scrolling.
    float scrolled() const { return m_scrolled; }
    void scrollTo(float offset);
    bool canScrollUp() const { return m_scrolled > 0; }
    bool canScrollDown() const { return m_scrolled < greatestOffset(); }
    /// -1 over the arrow at the top, 1 over that at the bottom, 0 elsewhere.
    int arrowAtPoint(Point) const;

    // NSView:
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    bool looksActive() const override { return true; }
    void drawRect(Rect) override;
    void setFrameSize(Size) override;

private:
    float greatestOffset() const;
    Rect itemArea() const;
    void drawItem(long index) const;

    Ref<NSMenu> m_menu;
    Ref<NSFont> m_font;
    MenuLayout m_layout;
    float m_minimumWidth { 0 };
    float m_scrolled { 0 };
    long m_highlighted { -1 };
};

}
