#pragma once

namespace plix {

enum NSButtonType : int {
    NSMomentaryPushButton = 0,
    NSMomentaryLightButton = 0,
    NSPushOnPushOffButton = 1,
    NSToggleButton = 2,
    NSSwitchButton = 3,
    NSRadioButton = 4,
    NSMomentaryChangeButton = 5,
    NSOnOffButton = 6,
    NSMomentaryPushInButton = 7,
    NSMomentaryLight = 7,
};

enum NSBezelStyle : int {
    NSRoundedBezelStyle = 1,
    NSRegularSquareBezelStyle = 2,
    NSThickSquareBezelStyle = 3,
    NSThickerSquareBezelStyle = 4,
    NSDisclosureBezelStyle = 5,
    NSShadowlessSquareBezelStyle = 6,
    NSCircularBezelStyle = 7,
    NSTexturedSquareBezelStyle = 8,
    NSHelpButtonBezelStyle = 9,
    NSSmallSquareBezelStyle = 10,
    NSTexturedRoundedBezelStyle = 11,
    NSRoundRectBezelStyle = 12,
    NSRecessedBezelStyle = 13,
    NSRoundedDisclosureBezelStyle = 14,
};

enum NSCellImagePosition : int {
    NSNoImage = 0,
    NSImageOnly = 1,
    NSImageLeft = 2,
    NSImageRight = 3,
    NSImageBelow = 4,
    NSImageAbove = 5,
    NSImageOverlaps = 6,
};

/// How a button shows that it is pressed or on: any of these together.
enum NSCellMask : unsigned {
    NSNoCellMask = 0,
    NSContentsCellMask = 1, ///< the alternate title and image
    NSPushInCellMask = 2, ///< pushed in
    NSChangeGrayCellMask = 4, ///< lit
    NSChangeBackgroundCellMask = 8, ///< lit
};

enum NSImageScaling : int { NSScaleProportionally = 0, NSScaleToFit = 1, NSScaleNone = 2 };

}
