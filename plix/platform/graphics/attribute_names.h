#pragma once

#include <plix/platform/base/ObjectValue.h>

#include <map>
#include <string>

namespace plix {

/// Names to values. Fonts, colours, paragraph styles, shadows and attachments are held as objects, the others as numbers.
using Attributes = ObjectValue::Dictionary;

inline char const NSFontAttributeName[] = "NSFont"; ///< NSFont; without it the user font at 12 points
inline char const NSForegroundColorAttributeName[] = "NSColor"; ///< NSColor; without it black
inline char const NSBackgroundColorAttributeName[] = "NSBackgroundColor"; ///< NSColor; without it nothing is filled
inline char const NSParagraphStyleAttributeName[] = "NSParagraphStyle"; ///< NSParagraphStyle; of a paragraph its first character's
inline char const NSShadowAttributeName[] = "NSShadow"; ///< NSShadow
inline char const NSAttachmentAttributeName[] = "NSAttachment"; ///< an object that is an InlineObject, on NSAttachmentCharacter
inline char const NSUnderlineStyleAttributeName[] = "NSUnderline"; ///< integer, see NSUnderlineStyle
inline char const NSUnderlineColorAttributeName[] = "NSUnderlineColor"; ///< NSColor; without it the foreground's
inline char const NSStrikethroughStyleAttributeName[] = "NSStrikethrough"; ///< integer, see NSUnderlineStyle
inline char const NSStrikethroughColorAttributeName[] = "NSStrikethroughColor"; ///< NSColor; without it the foreground's
inline char const NSKernAttributeName[] = "NSKern"; ///< points added between characters, beyond the font's own kerning
inline char const NSLigatureAttributeName[] = "NSLigature"; ///< integer; 0 switches ligatures off
inline char const NSBaselineOffsetAttributeName[] = "NSBaselineOffset"; ///< points upwards
inline char const NSSuperscriptAttributeName[] = "NSSuperScript"; ///< integer; above 0 raised, below 0 lowered
inline char const NSObliquenessAttributeName[] = "NSObliqueness"; ///< kept, not drawn
inline char const NSLinkAttributeName[] = "NSLink"; ///< string; kept for the view that shows it
inline char const NSToolTipAttributeName[] = "NSToolTip"; ///< string; kept for the view that shows it
inline char const NSCursorAttributeName[] = "NSCursor"; ///< NSCursor; kept for the view that shows it

/// How text is underlined.
enum NSUnderlineStyle : int {
    NSUnderlineStyleNone = 0,
    NSUnderlineStyleSingle = 1,
    NSUnderlineStyleThick = 2,
    NSUnderlineStyleDouble = 9,
};

/// The character that stands for an attachment: U+FFFC.
inline constexpr char32_t NSAttachmentCharacter = 0xFFFC;

}
