#pragma once

namespace plix {

/// The platform's operations with the platform's numbers. S is the source, D the destination, both premultiplied.
enum NSCompositingOperation : int {
    NSCompositeClear = 0, ///< 0
    NSCompositeCopy = 1, ///< S
    NSCompositeSourceOver = 2, ///< S + D (1 - Sa)
    NSCompositeSourceIn = 3, ///< S Da
    NSCompositeSourceOut = 4, ///< S (1 - Da)
    NSCompositeSourceAtop = 5, ///< S Da + D (1 - Sa)
    NSCompositeDestinationOver = 6, ///< S (1 - Da) + D
    NSCompositeDestinationIn = 7, ///< D Sa
    NSCompositeDestinationOut = 8, ///< D (1 - Sa)
    NSCompositeDestinationAtop = 9, ///< S (1 - Da) + D Sa
    NSCompositeXOR = 10, ///< S (1 - Da) + D (1 - Sa)
    NSCompositePlusDarker = 11, ///< alpha min(1, Sa + Da); colour as far below it as S and D are below theirs together, at least 0
    NSCompositeHighlight = 12, ///< as source over
    NSCompositePlusLighter = 13, ///< min(1, S + D)
};

enum NSImageInterpolation : int {
    NSImageInterpolationDefault = 0, ///< good: what is made smaller is averaged
    NSImageInterpolationNone = 1, ///< the nearest pixel
    NSImageInterpolationLow = 2, ///< between the four nearest pixels
    NSImageInterpolationHigh = 3,
};

}
