#pragma once

#include <plix/platform/appkit/Forward.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/geometry.h>
#include <plix/platform/host/Display.h>

namespace plix {

/// The pointer's shape.
class PLIX_EXPORT NSCursor : public NSObject {
    PLIX_CLASS(NSCursor, NSObject);

public:
    NSCursor();
    ~NSCursor() override;
    /// The hot spot in points from the image's top left.
    bool init(Ref<NSImage> const&, Point hotSpot);

    // Those of the machine's theme.
    static NSCursor& arrowCursor();
    static NSCursor& IBeamCursor();
    static NSCursor& crosshairCursor();
    static NSCursor& pointingHandCursor();
    static NSCursor& openHandCursor();
    static NSCursor& closedHandCursor();
    static NSCursor& resizeLeftRightCursor();
    static NSCursor& resizeLeftCursor();
    static NSCursor& resizeRightCursor();
    static NSCursor& resizeUpDownCursor();
    static NSCursor& resizeUpCursor();
    static NSCursor& resizeDownCursor();
    static NSCursor& disappearingItemCursor();
    static NSCursor& operationNotAllowedCursor();

    // The cursor that is shown now, and becoming it.
    static NSCursor& currentCursor();
    void set();
    /// Sets the cursor; pop() brings the one before back.
    void push();
    static void pop();
    static void hide();
    static void unhide();
    static void setHiddenUntilMouseMoves(bool);

    // What it looks like: an image and the point of it that points, or a shape of the theme's.
    NSImage* image() const { return m_image.get(); }
    Point hotSpot() const { return m_hotSpot; }
    CursorShape shape() const { return m_shape; }

private:
    static NSCursor& standardCursor(CursorShape);
    static void apply();

    Ref<NSImage> m_image;
    Point m_hotSpot;
    CursorShape m_shape { CursorShape::arrow };
};

}
