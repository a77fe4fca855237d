#pragma once

#include <plix/platform/appkit/NSTextFieldCell.h>

namespace gallery {

/// Leaves room for a lens before the text and a button behind it.
class SearchFieldCell final : public plix::NSTextFieldCell {
    PLIX_CLASS(SearchFieldCell, plix::NSTextFieldCell);

public:
    static constexpr float lensWidth = 16;
    static constexpr float buttonWidth = 14;

    using NSTextFieldCell::init;

    // NSTextFieldCell:
    void drawWithFrame(plix::Rect frame, plix::NSView& controlView) override;

protected:
    plix::CellInsets frameInsets() const override;
};

}
