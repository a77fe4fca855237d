#pragma once

#include "folder_entry.h"

#include <plix/platform/appkit/NSView.h>

#include <optional>

namespace browser {

/// The picture for an entry, as large as the view; nothing at first.
class IconView : public plix::NSView {
    PLIX_CLASS(IconView, plix::NSView);

public:
    using plix::NSView::init;

    void showEntry(FolderEntry const*);

    bool isFlipped() const override { return true; }
    void drawRect(plix::Rect) override;

private:
    std::optional<EntryKind> m_kind;
    bool m_isLink { false };
};

}
