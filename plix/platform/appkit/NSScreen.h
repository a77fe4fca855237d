#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/geometry.h>

#include <vector>

namespace plix {

/// A screen as it was when it was asked for. Points, y upwards; the first screen's lower left corner is the origin.
class PLIX_EXPORT NSScreen : public NSObject {
    PLIX_CLASS(NSScreen, NSObject);

public:
    /// The first has the origin; never empty. The same objects until the screens change.
    static std::vector<Ref<NSScreen>> const& screens();
    /// The screen of the key window, else the first.
    static NSScreen& mainScreen();
    static NSScreen& deepestScreen() { return mainScreen(); }
    /// The screen that holds most of the rectangle, or null where none holds any of it.
    static NSScreen* screenForRect(Rect);

    /// In points, y upwards; the first screen's lower left corner is the origin.
    Rect frame() const { return m_frame; }
    /// Without panels and docks.
    Rect visibleFrame() const { return m_visibleFrame; }
    float backingScaleFactor() const { return m_backingScale; }
    float userSpaceScaleFactor() const { return 1; }
    int depth() const { return 24; }

    // NSObject:
    bool isEqual(NSObject const* other) const override;
    std::size_t hash() const override;

private:
    Rect m_frame;
    Rect m_visibleFrame;
    float m_backingScale { 1 };
};

}
