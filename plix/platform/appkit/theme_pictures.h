#pragma once

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/base/FunctionRef.h>
#include <plix/platform/graphics/appearance.h>

#include <span>

namespace plix {

/// What makes two drawn faces look the same, pixel by pixel.
struct ThemePicture {
    enum class Kind { face, progressSlot, progressBar, box };
    Kind kind { Kind::face };
    /// Of what is no face: which of its looks.
    int variant { 0 };
    ButtonLook look {};
    /// Whether it is a check box or radio button, and which; else a bezel.
    ButtonFace face {};
    int state { 0 };
    Size size {};
    float scale { 1 };
    Appearance appearance {};
    friend bool operator==(ThemePicture const&, ThemePicture const&) = default;
};

/// Draws a face into a rectangle of the current context from the pixels that it had there last; `draw` is asked to draw it, into
/// (0, 0) of flipped coordinates, where there are none yet. Only faces of button size are kept. False, with
/// nothing drawn, where a picture would not look the same: off whole pixels, turned or scaled.
/// Of parts, given in the rectangle's coordinates, only these are drawn.
bool drawThemePicture(Rect, ThemePicture const& wanted, FunctionRef<void(Rect)> draw, std::span<Rect const> parts = {});

}
