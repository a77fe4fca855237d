#include "theme_pages.h"
#include "page_parts.h"

#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSCell.h>
#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSTableHeaderCell.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/Theme.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/button_layout.h>
#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/attribute_names.h>

#include <cmath>
#include <string_view>

namespace gallery {

using namespace plix;

namespace {

/// A grid of parts with their names.
class Parts : public NSView {
public:
    using NSView::init;
    bool isFlipped() const override { return true; }
    bool isOpaque() const override { return true; }
    void drawRect(Rect) override
    {
        NSColor::windowBackgroundColor()->set();
        NSRectFill(bounds());
        m_count = 0;
        drawParts();
    }

protected:
    /// The place of the next part; its name stands below.
    Rect part(std::string_view name)
    {
        constexpr long columns = 5;
        Rect const place { 20 + static_cast<float>(m_count % columns) * 106, 20 + static_cast<float>(m_count / columns) * 62, 96,
            26 };
        ++m_count;
        auto const caption = make<NSAttributedString>(name,
            Attributes { { NSFontAttributeName, NSFont::systemFontOfSize(11) },
                { NSForegroundColorAttributeName, Theme::current().color(ThemeRole::secondaryText) } });
        caption->drawAtPoint({ place.x + (place.width - caption->size().width) / 2, place.maxY() + 3 });
        return place;
    }
    Rect square(std::string_view name, float side)
    {
        auto const place = part(name);
        return { std::floor(place.midX() - side / 2), std::floor(place.midY() - side / 2), side, side };
    }

    virtual void drawParts() = 0;

private:
    long m_count { 0 };
};

/// Every part that controls are put together from, drawn straight by the theme: a part, its name below.
Ref<NSView> makeThemePage()
{
    class ThemeParts : public Parts {
    public:
        using Parts::init;
        void drawParts() override
        {
            auto const& theme = Theme::current();
            ButtonLook const plain { .control = {}, .style = NSRoundedBezelStyle };
            ButtonLook const lit { .control = {}, .style = NSRoundedBezelStyle, .isDefault = true };
            theme.drawButtonBezel(part("button"), plain);
            theme.drawButtonBezel(part("default button"), lit);
            theme.drawIndicator(square("check box", 16), ButtonFace::checkBox, NSOnState, plain);
            theme.drawIndicator(square("radio button", 16), ButtonFace::radio, NSOnState, plain);
            theme.drawDisclosureTriangle(square("triangle", 14), true, ControlLook {});
            theme.drawFieldBezel(part("field"), FieldShape::square, {}, NSColor::controlBackgroundColor().get());
            theme.drawFieldBezel(part("round field"), FieldShape::round, {}, NSColor::controlBackgroundColor().get());
            theme.drawFocusRing(part("focus ring"), FieldShape::square);
            theme.drawPopUpArrows(square("arrows", 14), false, NSColor::controlTextColor());
            theme.drawComboButton(square("combo button", 20), plain, true, false);
            theme.drawStepper(square("stepper", 22), {}, 0);
            theme.drawBorder(NSBezelBorder, part("border"));
            theme.drawBox(part("box"), { .border = NSGrooveBorder, .isShaded = true }, {});
            theme.drawSeparator(part("separator"));
            theme.drawSplitDivider(NSInsetRect(part("split divider"), 0, 9), false, false);
            theme.drawImageFrame(square("photo frame", 26), NSImageFramePhoto, {});
            theme.drawTabPane(part("tab pane"), FieldShape::round, true);
            theme.drawTab(part("tab"), { .control = {}, .style = NSRoundedBezelStyle, .isOn = true });
            theme.drawProgressSlot(NSInsetRect(part("progress slot"), 0, 7), true);
            theme.drawProgressBar(NSInsetRect(part("progress"), 0, 7), {});
            theme.drawProgressWheel(square("wheel", 24), 0.25, true, {});
            theme.drawMenuBackground(part("menu"));
            theme.drawMenuHighlight(part("menu highlight"));
            theme.drawMenuState(square("check mark", 16), NSOnState, {});
            theme.drawSubmenuArrow(square("submenu", 14), {});
            theme.drawMenuSeparator(part("menu separator"));
            theme.drawHeaderBackground(part("header"));
            auto const between = part("drop between");
            theme.drawDropMarker(between.x, between.maxX(), between.midY());
            theme.drawScrollerCorner(square("scroller corner", 15));
            theme.fill(part("line"), ThemeRole::line);
            theme.drawHeaderCell(part("chosen header"), HeaderShade::chosen);
            theme.drawTabOverflow(part("more tabs"), plain);
            theme.drawRowDropHighlight(part("row drop"));
        }
    };
    return make<ThemeParts>(Rect { 0, 0, 560, 460 });
}

constexpr Page familyPages[] {
    { "Theme", "What controls are drawn with", controlsSection, "theme_pages.cpp", makeThemePage },
};

}

std::span<Page const> themePages()
{
    return familyPages;
}

}
