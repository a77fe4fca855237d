#pragma once

#include <plix/platform/appkit/border_type.h>
#include <plix/platform/appkit/scroller_geometry.h>
#include <plix/platform/appkit/theme_palette.h>
#include <plix/platform/base/Ref.h>
#include <plix/platform/base/export.h>
#include <plix/platform/graphics/control_size.h>
#include <plix/platform/graphics/geometry.h>

#include <array>

namespace plix {

class NSBezierPath;
class NSColor;
class NSImage;
class NSView;

/// In which state a control is drawn.
struct ControlLook {
    bool isEnabled { true };
    bool isHovered { false };
    bool isPressed { false };
    bool isFocused { false };
    /// The window takes the keyboard, or has a sheet that does.
    bool isWindowActive { true };
    friend bool operator==(ControlLook const&, ControlLook const&) = default;
};

/// The corners of a field.
enum class FieldShape { square, round };

enum class ButtonFace;
enum class HeaderShade;
enum NSBezelStyle : int;
enum NSImageFrameStyle : int;

/// How a button's face is drawn beyond its state.
struct ButtonLook {
    ControlLook control;
    NSBezelStyle style {};
    bool isOn { false };
    /// What Return presses: filled with the highlight colour.
    bool isDefault { false };
    /// Corners are square on the sides where another segment joins.
    bool joinsLeft { false };
    bool joinsRight { false };
    friend bool operator==(ButtonLook const&, ButtonLook const&) = default;
};

/// What a box looks like.
struct BoxLook {
    NSBorderType border {};
    /// Null: as the kind of box has it.
    NSColor* fill { nullptr };
    /// Whether what is inside is set off by a shade.
    bool isShaded { false };
};

/// What an item of a menu looks like.
struct MenuItemLook {
    bool isEnabled { true };
    bool isHighlighted { false };
};

/// Draws the chrome of all controls, so that they look like one family: light and dark by the current appearance, crisp at every
/// scale. Controls work out rectangles and states and hold no colours. Everything is drawn into the current context, in flipped
/// coordinates: the top is at the smallest y.
class PLIX_EXPORT Theme {
public:
    /// The theme of the current appearance.
    static Theme const& current();

    /// Under the current appearance; the same object each time.
    Ref<NSColor> const& color(ThemeRole) const;
    /// The row selection's background.
    Ref<NSColor> selectionColor(ControlLook const&) const;
    Ref<NSColor> selectionTextColor(ControlLook const&) const;

    /// How a view's window makes its controls look; a view without a window looks active.
    static ControlLook lookOfView(NSView const&);

    /// Over what is there, on whole pixels.
    void fill(Rect, NSColor const&) const;
    void fill(Rect, ThemeRole) const;
    /// Draws an image upright in whatever context; faded where it stands for something disabled.
    static void drawImage(NSImage const&, Rect, bool isEnabled);
    static Ref<NSBezierPath> roundedRect(Rect, float radius);

    // Borders and fields.
    void drawBorder(NSBorderType, Rect) const;
    /// The frame of a text field with its background; without one, what is behind shows through.
    void drawFieldBezel(Rect, FieldShape, ControlLook const&, NSColor const* background = nullptr) const;
    /// Just inside the rectangle.
    void drawFocusRing(Rect, FieldShape) const;

    // Buttons.
    void drawButtonBezel(Rect, ButtonLook const&) const;
    /// A check box or radio button.
    void drawIndicator(Rect, ButtonFace, int state, ButtonLook const&) const;
    /// What text and template images on that face are drawn in.
    Ref<NSColor> const& buttonTextColor(ButtonLook const&) const;
    /// A disclosure triangle, pointing right (off) or down (on).
    void drawDisclosureTriangle(Rect, bool isOpen, ControlLook const&) const;
    static void drawDisclosureTriangle(Rect, bool isOpen, NSColor const&);

    // Menus.
    void drawMenuBackground(Rect) const;
    /// Over a sheet's content, whose own colour may be that of the window behind: a line along all edges but the upper one.
    void drawSheetEdge(Rect) const;
    void drawMenuHighlight(Rect item) const;
    void drawMenuSeparator(Rect item) const;
    /// A check mark, or a dash for the mixed state, in the column before the titles.
    void drawMenuState(Rect column, int state, MenuItemLook const&) const;
    void drawSubmenuArrow(Rect, MenuItemLook const&) const;
    void drawMenuScrollArrow(Rect, bool pointsUp) const;
    Ref<NSColor> const& menuTextColor(MenuItemLook const&) const;
    Ref<NSColor> const& menuKeyColor(MenuItemLook const&) const;
    /// The two arrows of a pop-up button, or the one of a pull-down button or combo box.
    void drawPopUpArrows(Rect, bool pullsDown, Ref<NSColor> const&) const;

    // Images, boxes and dividers.
    void drawImageFrame(Rect, NSImageFrameStyle, ControlLook const&) const;
    /// The border is interrupted where the title stands. Looks alike in flipped and other coordinates.
    void drawBox(Rect border, BoxLook const&, Rect title) const;
    /// A line in the middle, along the longer side.
    void drawSeparator(Rect) const;
    void drawSplitDivider(Rect, bool isVertical, bool isPaneSplitter) const;

    // Tab views.
    /// The border around the panes; nothing for an empty rectangle.
    void drawTabPane(Rect border, FieldShape, bool isShaded) const;
    /// The face of one tab. It shares the line to the next one, which lies just outside the rectangle.
    void drawTab(Rect, ButtonLook const&) const;
    /// The button for the menu of tabs for which there is no room; nothing for an empty rectangle.
    void drawTabOverflow(Rect, ButtonLook const&) const;

    // Progress.
    void drawProgressSlot(Rect, bool isBezeled) const;
    void drawProgressBar(Rect done, ControlLook const&) const;
    /// Faint while it stands still.
    void drawProgressWheel(Rect, double seconds, bool turns, ControlLook const&) const;

    // Combo boxes and steppers.
    /// At the right end of a field, inside its border.
    void drawComboButton(Rect, ButtonLook const&, bool isBordered, bool isPressed) const;

    /// Two halves, up above down; the pressed one is 1 for up, -1 for down.
    void drawStepper(Rect, ControlLook const&, int pressedHalf) const;

    // Scrollers.
    static float scrollerWidth(NSControlSize);
    static ScrollerMetrics scrollerMetrics(NSControlSize);
    void drawScrollerSlot(ScrollerPlan const&, Rect bounds) const;
    void drawScrollerKnob(ScrollerPlan const&, ControlLook const&) const;
    void drawScrollerArrow(ScrollerPlan const&, NSScrollerPart arrow, ControlLook const&) const;
    void drawScrollerCorner(Rect) const;

    // Headers of lists.
    static constexpr float headerHeight() { return 22; }
    void drawHeaderBackground(Rect) const;
    /// A line at the right edge of a column's header.
    void drawHeaderDivider(Rect column) const;
    /// Background and divider of one column's header.
    void drawHeaderCell(Rect, HeaderShade) const;

    // Rows that something is dragged over.
    void drawRowDropHighlight(Rect row) const;
    void drawTableDropHighlight(Rect visible) const;
    /// A line from x to endX with a ring at its start, where something would go between rows.
    void drawDropMarker(float x, float endX, float y) const;

private:
    Theme();

    std::array<std::array<Ref<NSColor>, themeRoleCount>, 2> m_colors;
};

}
