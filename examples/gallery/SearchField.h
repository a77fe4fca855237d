#pragma once

#include <plix/platform/appkit/NSTextField.h>

namespace plix {

class NSButton;

}

namespace gallery {

/// A round field with a lens, and a button that empties it while there is something in it.
class SearchField final : public plix::NSTextField {
public:
    SearchField();
    ~SearchField() override;
    bool init(plix::Rect frame);

    /// Empties the field and tells its delegate as if it had been typed.
    void clear();
    plix::NSButton& clearButton() const { return *m_clearButton; }

    // NSTextField, NSControl:
    plix::Class const* ownCellClass() const override;
    void textDidChange(plix::NSNotification const&) override;
    void setStringValue(std::string_view) override;

private:
    void updateButton();

    plix::Ref<plix::NSButton> m_clearButton;
};

}
