#pragma once

#include <plix/platform/base/Badge.h>
#include <plix/platform/base/Class.h>
#include <plix/platform/graphics/Forward.h>
#include <plix/platform/graphics/compositing.h>
#include <plix/platform/graphics/geometry.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace plix {

class FocusLock;

/// A picture with a size in points and any number of representations, of which the one that fits the pixels best is drawn.
///
/// Drawing into it (FocusLock) goes to a representation of its own at the greatest backing scale around. The coordinates there
/// begin at the lower left corner, y upwards; in a flipped image at the upper left, y downwards. What is drawn out of it lands in
/// the user space of the context as its rows lie: a picture upright in an unflipped view is upside down in a flipped one, unless it
/// is marked flipped before its representations are drawn or its content is drawn into it. compositeToPoint stays upright
/// everywhere.
class PLIX_EXPORT NSImage : public NSObject {
    PLIX_CLASS(NSImage, NSObject);

public:
    NSImage();
    ~NSImage() override;

    bool init() { return true; }
    bool init(Size size);
    /// Of a file's bytes; nil where no picture is found or it is refused.
    bool init(NSData const& fileContents);
    /// Of a file, with "name@2x.ext" beside it where that exists.
    bool init(std::string_view path);
    /// Holds its pictures' pixels.
    bool init(NSCoder&);
    void encodeWithCoder(NSCoder&) const override;

    /// The image of that name: one that was given the name, else one found in a registered folder, the application's or the
    /// library's resources; kept under its name from then on. With or without an extension. Null where there is none.
    static Ref<NSImage> imageNamed(std::string_view name);
    /// Searched by imageNamed before the bundles, the latest first.
    static void addResourceFolder(std::string_view path);
    /// False where another image has the name. An empty name takes the name away.
    bool setName(std::string_view name);
    std::string const& name() const { return m_name; }
    /// The file name extensions that can be read, the best first.
    static std::vector<std::string> const& imageUnfilteredFileTypes();
    static std::vector<std::string> const& imageFileTypes() { return imageUnfilteredFileTypes(); }
    /// Device pixels a point for images that are drawn into: at least this. The screens' greatest one. 1 at first.
    static void setDefaultBackingScale(float);
    static float defaultBackingScale();
    /// What a lockFocus at this moment would take: the default, or the current context's scale where that is greater.
    static float backingScaleForDrawing();
    /// An image whose whole content is this bitmap, as if it had been drawn into. Null for null.
    static Ref<NSImage> imageDrawnInto(Ref<NSBitmapImageRep> const&);

    /// In points. An image made without size takes that of its first representation.
    Size size() const;
    /// Other than the representations': they are drawn scaled to it where scalesWhenResized(). Of an image that was drawn into,
    /// what was drawn is dropped at a new size.
    void setSize(Size);
    bool isValid() const;
    bool isFlipped() const { return m_isFlipped; }
    /// Counts for what is drawn into the image afterwards; see above.
    void setFlipped(bool);
    bool scalesWhenResized() const { return m_scalesWhenResized; }
    void setScalesWhenResized(bool);
    /// Drawn below the representations; clear at first.
    NSColor* backgroundColor() const { return m_backgroundColor.get(); }
    void setBackgroundColor(Ref<NSColor> const&);

    // The forms that it has, of which the one that fits best is drawn.
    std::vector<Ref<NSImageRep>> const& representations() const { return m_representations; }
    void addRepresentation(Ref<NSImageRep> const&);
    void addRepresentations(std::vector<Ref<NSImageRep>> const&);
    void removeRepresentation(NSImageRep const&);
    /// For this many device pixels a point: the smallest with at least as many, else the greatest. Null without representations.
    NSImageRep* bestRepresentationForScale(float pixelsPerPoint) const;
    /// Drops what was made from representations that are still there, so that they are drawn anew.
    void recache();

    /// The whole image, or the part `from` of it (points of the image; the zero rectangle for all), drawn into a rectangle of user
    /// space. What lies beside the part does not bleed in. A side of 0 or below draws nothing.
    void drawInRect(Rect rect, Rect from, NSCompositingOperation, float fraction) const;
    /// Likewise at the part's own size.
    void drawAtPoint(Point point, Rect from, NSCompositingOperation, float fraction) const;
    /// The lower left corner at a point of user space; upright and at its own size, whatever the transform, and up from the point
    /// on the screen, in flipped views too. On whole device pixels.
    void compositeToPoint(Point point, NSCompositingOperation, float fraction = 1) const;
    void compositeToPoint(Point point, Rect from, NSCompositingOperation, float fraction = 1) const;
    /// Source over with a fraction.
    void dissolveToPoint(Point point, float fraction) const;
    void dissolveToPoint(Point point, Rect from, float fraction) const;

    /// All bitmap representations as one TIFF file's bytes, or, where it has none, the image drawn into one; null of an image
    /// without size or content.
    Ref<NSData> TIFFRepresentation() const;
    /// The image as pixels at that many device pixels a point; its own representation where that fits, else one drawn for it. Null
    /// of an image without size.
    Ref<NSBitmapImageRep> bitmapAtScale(float pixelsPerPoint) const;
    /// The same number means the same picture; it changes when the image may look different.
    std::uint64_t contentStamp() const;

    // Called by FocusLock.
    void lockFocus(Badge<FocusLock> const&);
    void unlockFocus(Badge<FocusLock> const&);

private:
    struct Focus;

    NSBitmapImageRep* makeFocusable(float scale);
    NSImageRep* representationToDraw(float pixelsPerPoint) const;
    void copyStateTo(NSObject& fresh) const override;

    Size m_size;
    bool m_hasSize { false };
    bool m_isFlipped { false };
    bool m_scalesWhenResized { false };
    std::string m_name;
    Ref<NSColor> m_backgroundColor;
    std::vector<Ref<NSImageRep>> m_representations;
    /// What drawing went into, once there was any: it stands for the whole image, its rows as they were drawn.
    Ref<NSBitmapImageRep> m_cache;
    std::vector<std::unique_ptr<Focus>> m_focus;
    /// The image drawn at a scale that no representation has, while the content stays.
    mutable Ref<NSBitmapImageRep> m_rendition;
    mutable std::uint64_t m_renditionStamp { 0 };
};

}
