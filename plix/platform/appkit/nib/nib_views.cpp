#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/appkit/nib/nib_words.h>

#include <plix/platform/appkit/NSBox.h>
#include <plix/platform/appkit/NSProgressIndicator.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/border_type.h>
#include <plix/platform/appkit/view_geometry.h>
#include <plix/platform/graphics/control_size.h>

namespace plix {

namespace {

constexpr NibWord autoresizingBits[] = {
    { "flexibleMinX", NSViewMinXMargin },
    { "widthSizable", NSViewWidthSizable },
    { "flexibleMaxX", NSViewMaxXMargin },
    { "flexibleMinY", NSViewMinYMargin },
    { "heightSizable", NSViewHeightSizable },
    { "flexibleMaxY", NSViewMaxYMargin },
};
constexpr NibWord borderTypes[]
    = { { "none", NSNoBorder }, { "line", NSLineBorder }, { "bezel", NSBezelBorder }, { "groove", NSGrooveBorder } };
constexpr NibWord boxTypes[] = { { "primary", NSBoxPrimary }, { "secondary", NSBoxSecondary }, { "separator", NSBoxSeparator },
    { "oldStyle", NSBoxOldStyle }, { "custom", NSBoxCustom } };
constexpr NibWord titlePositions[] = { { "noTitle", NSNoTitle }, { "aboveTop", NSAboveTop }, { "atTop", NSAtTop },
    { "belowTop", NSBelowTop }, { "aboveBottom", NSAboveBottom }, { "atBottom", NSAtBottom }, { "belowBottom", NSBelowBottom } };
constexpr NibWord progressStyles[] = { { "bar", NSProgressIndicatorBarStyle }, { "spinning", NSProgressIndicatorSpinningStyle } };

}

void readNibView(NibReading& reading)
{
    reading.flag("hidden", "hidden");
    reading.flag("autoresizesSubviews", "autoresizesSubviews");
    reading.choice("focusRingType", "focusRingType", nibFocusRingTypes);
    reading.text("toolTip", "toolTip", "ibShadowedToolTip");
    reading.rect("frame", "frame");
    reading.rect("bounds", "bounds");
    reading.mask("autoresizingMask", "autoresizingMask", autoresizingBits);
    reading.objects("subviews", "subviews", "NSView");
}

void readNibControl(NibReading& reading)
{
    reading.object("cell", "cell", "NSCell");
    reading.flag("ignoresMultiClick", "ignoresMultiClick");
    // A control's tag is its cell's, which is read already.
    reading.integer("tag", "tag");
}

void readNibImageView(NibReading& reading)
{
    reading.flag("allowsCutCopyPaste", "allowsCutCopyPaste");
}

void readNibBox(NibReading& reading)
{
    reading.choice("boxType", "boxType", boxTypes);
    reading.choice("borderType", "borderType", borderTypes);
    reading.choice("titlePosition", "titlePosition", titlePositions);
    reading.text("title", "title");
    reading.font("titleFont", "titleFont");
    reading.color("fillColor", "fillColor");
    reading.size("contentViewMargins", "contentViewMargins");
    reading.object("contentView", "contentView", "NSView");
}

void readNibSplitView(NibReading& reading)
{
    reading.flag("vertical", "vertical");
    if (reading.word("dividerStyle") == "paneSplitter")
        reading.set("paneSplitter", true);
}

void readNibProgressIndicator(NibReading& reading)
{
    reading.number("minValue", "minValue");
    reading.number("maxValue", "maxValue");
    reading.number("doubleValue", "doubleValue");
    reading.choice("style", "style", progressStyles);
    reading.choice("controlSize", "controlSize", nibControlSizes);
    reading.flag("indeterminate", "indeterminate");
    reading.flag("bezeled", "bezeled");
    reading.flag("displayedWhenStopped", "displayedWhenStopped");
}

void readNibScroller(NibReading& reading)
{
    reading.number("doubleValue", "floatValue");
    reading.number("knobProportion", "knobProportion");
}

void readNibScrollView(NibReading& reading)
{
    reading.set("borderType", NSBezelBorder);
    reading.choice("borderType", "borderType", borderTypes);
    reading.set("hasVerticalScroller", reading.flagValue("hasVerticalScroller", true));
    reading.set("hasHorizontalScroller", reading.flagValue("hasHorizontalScroller", true));
    reading.flag("autohidesScrollers", "autohidesScrollers");
    reading.flag("scrollsDynamically", "scrollsDynamically");
    auto const steps = [&](std::string_view horizontal, std::string_view vertical, std::string_view key) {
        auto const x = reading.numberValue(horizontal);
        auto const y = reading.numberValue(vertical);
        if (x && y)
            reading.set(key, NSStringFromSize({ static_cast<float>(*x), static_cast<float>(*y) }));
    };
    steps("horizontalLineScroll", "verticalLineScroll", "lineScroll");
    steps("horizontalPageScroll", "verticalPageScroll", "pageScroll");
    reading.object("contentView", "contentView", "NSClipView");
    reading.object("horizontalScroller", "horizontalScroller", "NSScroller");
    reading.object("verticalScroller", "verticalScroller", "NSScroller");
    reading.object("headerView", "headerView", "NSTableHeaderView");
}

void readNibClipView(NibReading& reading)
{
    reading.color("backgroundColor", "backgroundColor");
    reading.flag("drawsBackground", "drawsBackground");
    reading.flag("copiesOnScroll", "copiesOnScroll");
    // What is scrolled is the one view in it.
    auto const subviews = reading.value("subviews");
    auto const* views = std::get_if<NibValue::Array>(&subviews.value);
    if (views && !views->empty()) {
        reading.set("documentView", views->front());
        reading.set("subviews", NibValue { NibValue::Array(views->begin() + 1, views->end()) });
    }
}

void readNibTextView(NibReading& reading)
{
    reading.flag("editable", "editable");
    reading.flag("selectable", "selectable");
    reading.flag("allowsUndo", "allowsUndo");
    reading.flag("drawsBackground", "drawsBackground");
    reading.color("backgroundColor", "backgroundColor");
    reading.size("minSize", "minSize");
    reading.size("maxSize", "maxSize");
    reading.color("insertionPointColor", "insertionPointColor");
    reading.attributedText("textStorage", "textStorage");
}

}
