#pragma once

#include <plix/platform/base/export.h>
#include <plix/platform/graphics/appearance.h>
#include <plix/platform/graphics/color_components.h>

#include <cstddef>

namespace plix {

/// What the look has colours for beyond the named system colours.
enum class ThemeRole {
    secondaryText, ///< beside the main text: sizes, counts, hints
    placeholderText,
    errorText,
    line, ///< around scroll views and boxes, between areas
    fieldBorder,
    fieldBorderTop,
    fieldShade, ///< the first line inside a field's top edge
    fieldDisabled, ///< a field's background while it is disabled
    headerBackground,
    headerDivider,
    headerText,
    headerChosen, ///< over the background of the column that is sorted by
    headerPressed,
    barBackground, ///< of status and path bars
    scrollerSlot,
    scrollerEdge,
    scrollerKnob,
    scrollerKnobHovered,
    scrollerKnobPressed,
    scrollerKnobDisabled,
    buttonTop, ///< a push button's face, from top to bottom
    buttonBottom,
    buttonBorder,
    buttonEdge, ///< its lower border, which is darker
    buttonHoveredTop,
    buttonHoveredBottom,
    buttonPressedTop,
    buttonPressedBottom,
    buttonDisabled,
    buttonDisabledBorder,
    buttonText,
    buttonDisabledText,
    buttonOnTop, ///< a button that is on, and the face of checked boxes
    buttonOnBottom,
    buttonOnBorder,
    buttonOnText,
    menuBackground,
    menuBorder,
    menuText,
    menuDisabledText,
    menuKeyText,
    menuHighlightText,
    iconFolder,
    iconFolderEdge,
    iconFolderOnSelection,
    iconFolderEdgeOnSelection,
    iconPaper,
    iconPaperEdge,
    iconBadge, ///< marks on icons: links that lead nowhere
    count
};

inline constexpr auto themeRoleCount = static_cast<std::size_t>(ThemeRole::count);

PLIX_EXPORT ColorComponents themeColor(ThemeRole, Appearance);

/// The contrast of two opaque colours as WCAG 2.1 defines it: 1 for equal ones, 21 for black on white.
PLIX_EXPORT float contrastRatio(ColorComponents const&, ColorComponents const&);

}
