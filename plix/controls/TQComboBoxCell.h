#pragma once

#include <plix/platform/appkit/NSComboBoxCell.h>

namespace plix {

/// A combo box's cell for rows of tables: no bezel, the text, and a small knob in the place of the button.
class PLIX_EXPORT TQComboBoxCell : public NSComboBoxCell {
    PLIX_CLASS(TQComboBoxCell, NSComboBoxCell);

public:
    bool init();
    bool init(std::string_view text);
    bool init(NSCoder&);

    // NSComboBoxCell:
    /// The ten points at the right end.
    Rect buttonRectForBounds(Rect bounds) const override;
    void drawWithFrame(Rect frame, NSView& controlView) override;
};

}
