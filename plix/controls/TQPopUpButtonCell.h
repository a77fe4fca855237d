#pragma once

#include <plix/platform/appkit/NSPopUpButtonCell.h>

namespace plix {

/// A pop-up button's cell that draws a given attributed string in place of its usual inside, for rows of tables.
class PLIX_EXPORT TQPopUpButtonCell : public NSPopUpButtonCell {
    PLIX_CLASS(TQPopUpButtonCell, NSPopUpButtonCell);

public:
    TQPopUpButtonCell();
    ~TQPopUpButtonCell() override;
    bool init();
    bool init(std::string_view title, bool pullsDown);
    /// The display string is not archived.
    bool init(NSCoder&);

    /// Empty at first; null shows nothing. Copies share it.
    virtual Ref<NSAttributedString> displayAttributedString() const;
    void setDisplayAttributedString(Ref<NSAttributedString> const&);

    // NSCell:
    /// Leaves the ten points at the right end free.
    void drawInteriorWithFrame(Rect frame, NSView& controlView) override;
    /// Whatever the title, draws "Test" in white. Not called by this class, whose inside is drawn otherwise.
    Rect drawTitle(NSAttributedString const& title, Rect frame, NSView& controlView) override;

protected:
    void copyStateTo(NSObject& fresh) const override;

private:
    Ref<NSAttributedString> m_displayAttributedString;
};

}
