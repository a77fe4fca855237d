#include <plix/platform/appkit/nib/NibReading.h>
#include <plix/platform/appkit/nib/nib_kinds.h>
#include <plix/platform/appkit/nib/nib_words.h>

#include <plix/platform/appkit/NSImageCell.h>
#include <plix/platform/appkit/NSView.h>
#include <plix/platform/appkit/button_constants.h>
#include <plix/platform/appkit/button_layout.h>
#include <plix/platform/appkit/cell_constants.h>
#include <plix/platform/appkit/event_constants.h>
#include <plix/platform/graphics/paragraph_layout.h>

namespace plix {

namespace {

constexpr NibWord alignments[] = { { "left", NSLeftTextAlignment }, { "right", NSRightTextAlignment },
    { "center", NSCenterTextAlignment }, { "justified", NSJustifiedTextAlignment }, { "natural", NSNaturalTextAlignment } };
constexpr NibWord lineBreakModes[] = {
    { "wordWrapping", NSLineBreakByWordWrapping },
    { "charWrapping", NSLineBreakByCharWrapping },
    { "clipping", NSLineBreakByClipping },
    { "truncatingHead", NSLineBreakByTruncatingHead },
    { "truncatingTail", NSLineBreakByTruncatingTail },
    { "truncatingMiddle", NSLineBreakByTruncatingMiddle },
};
constexpr NibWord fieldBezels[] = { { "square", NSTextFieldSquareBezel }, { "round", NSTextFieldRoundedBezel } };
constexpr NibWord buttonBezels[] = {
    { "rounded", NSRoundedBezelStyle },
    { "regularSquare", NSRegularSquareBezelStyle },
    { "thickSquare", NSThickSquareBezelStyle },
    { "thickerSquare", NSThickerSquareBezelStyle },
    { "disclosure", NSDisclosureBezelStyle },
    { "shadowlessSquare", NSShadowlessSquareBezelStyle },
    { "circular", NSCircularBezelStyle },
    { "texturedSquare", NSTexturedSquareBezelStyle },
    { "helpButton", NSHelpButtonBezelStyle },
    { "smallSquare", NSSmallSquareBezelStyle },
    { "texturedRounded", NSTexturedRoundedBezelStyle },
    { "roundedRect", NSRoundRectBezelStyle },
    { "recessed", NSRecessedBezelStyle },
    { "roundedDisclosure", NSRoundedDisclosureBezelStyle },
    { "inline", NSRecessedBezelStyle },
};
constexpr NibWord imagePositions[]
    = { { "only", NSImageOnly }, { "left", NSImageLeft }, { "leading", NSImageLeft }, { "right", NSImageRight },
          { "trailing", NSImageRight }, { "below", NSImageBelow }, { "above", NSImageAbove }, { "overlaps", NSImageOverlaps } };
constexpr NibWord highlightBits[] = {
    { "pushIn", NSPushInCellMask },
    { "lightByBackground", NSChangeBackgroundCellMask },
    { "lightByGray", NSChangeGrayCellMask },
    { "lightByContents", NSContentsCellMask },
};
constexpr NibWord stateBits[] = {
    { "changeBackground", NSChangeBackgroundCellMask },
    { "changeGray", NSChangeGrayCellMask },
    { "changeContents", NSContentsCellMask },
};
constexpr NibWord imageBehaviors[] = { { "doesNotDimImage", 1 } };
constexpr NibWord imageScalings[] = { { "proportionallyDown", NSScaleProportionally },
    { "proportionallyUpOrDown", NSScaleProportionally }, { "axesIndependently", NSScaleToFit }, { "none", NSScaleNone } };
constexpr NibWord imageAlignments[] = {
    { "center", NSImageAlignCenter },
    { "top", NSImageAlignTop },
    { "topLeft", NSImageAlignTopLeft },
    { "topRight", NSImageAlignTopRight },
    { "left", NSImageAlignLeft },
    { "bottom", NSImageAlignBottom },
    { "bottomLeft", NSImageAlignBottomLeft },
    { "bottomRight", NSImageAlignBottomRight },
    { "right", NSImageAlignRight },
};
constexpr NibWord imageFrames[] = { { "none", NSImageFrameNone }, { "photo", NSImageFramePhoto },
    { "grayBezel", NSImageFrameGrayBezel }, { "groove", NSImageFrameGroove }, { "button", NSImageFrameButton } };

}

void readNibCell(NibReading& reading)
{
    reading.font("font", "font");
    reading.object("formatter", "formatter", "NSFormatter");
    reading.choice("state", "state", nibStates);
    reading.choice("alignment", "alignment", alignments);
    reading.choice("lineBreakMode", "lineBreakMode", lineBreakModes);
    reading.choice("controlSize", "controlSize", nibControlSizes);
    reading.choice("focusRingType", "focusRingType", nibFocusRingTypes);
    for (auto const* flag : { "enabled", "allowsMixedState", "editable", "selectable", "allowsEditingTextAttributes",
             "sendsActionOnEndEditing", "refusesFirstResponder", "scrollable" })
        reading.flag(flag, flag);
    auto const border = reading.word("borderStyle");
    if (border == "border" || border == "borderAndBezel")
        reading.set("bordered", true);
    if (border == "bezel" || border == "borderAndBezel")
        reading.set("bezeled", true);
    reading.text("title", "contents");
}

void readNibActionCell(NibReading& reading)
{
    reading.integer("tag", "tag");
}

void readNibTextFieldCell(NibReading& reading)
{
    reading.color("textColor", "textColor");
    reading.color("backgroundColor", "backgroundColor");
    reading.text("placeholderString", "placeholderString");
    reading.choice("bezelStyle", "bezelStyle", fieldBezels);
    reading.flag("drawsBackground", "drawsBackground");
}

void readNibButtonCell(NibReading& reading)
{
    // A button's title is no value of its cell, which has none but its state.
    reading.set("contents", "");
    reading.set("title", "");
    reading.set("lineBreakMode", NSLineBreakByTruncatingTail);
    reading.text("title", "title");
    reading.text("alternateTitle", "alternateTitle");
    reading.attributedText("attributedTitle", "attributedTitle");
    reading.image("image", "image");
    reading.image("alternateImage", "alternateImage");
    reading.color("backgroundColor", "backgroundColor");
    reading.code("keyEquivalent", "keyEquivalent");
    reading.mask("keyEquivalentModifierMask", "keyEquivalentModifierMask", nibModifiers);
    reading.mask("behavior", "highlightsBy", highlightBits);
    reading.mask("behavior", "showsStateBy", stateBits);
    if (auto const kept = reading.maskValue("behavior", imageBehaviors))
        reading.set("imageDimsWhenDisabled", *kept == 0);
    reading.choice("bezelStyle", "bezelStyle", buttonBezels);
    reading.choice("imagePosition", "imagePosition", imagePositions);
    reading.flag("transparent", "transparent");
    reading.flag("showsBorderOnlyWhileMouseInside", "showsBorderOnlyWhileMouseInside");
    auto const type = reading.word("type");
    if (type == "check" || type == "radio")
        reading.set("indicator", static_cast<int>(type == "check" ? ButtonFace::checkBox : ButtonFace::radio));
}

void readNibImageCell(NibReading& reading)
{
    reading.set("type", NSImageCellType);
    reading.set("contents", ObjectValue());
    reading.image("image", "contents");
    reading.choice("imageAlignment", "imageAlignment", imageAlignments);
    reading.choice("imageScaling", "imageScaling", imageScalings);
    reading.choice("imageFrameStyle", "imageFrameStyle", imageFrames);
}

}
