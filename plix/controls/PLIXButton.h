#pragma once

#include <plix/platform/appkit/NSButton.h>

namespace plix {

/// A button whose key equivalent fires when the key goes down, never a second time when it comes up.
class PLIX_EXPORT PLIXButton : public NSButton {
    PLIX_CLASS(PLIXButton, NSButton);

public:
    using NSButton::init;
    bool init(NSCoder&);

    // NSView:
    bool performKeyEquivalent(NSEvent&) override;
};

}
