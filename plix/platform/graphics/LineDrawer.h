#pragma once

#include <plix/platform/graphics/geometry.h>
#include <plix/platform/graphics/set_text.h>
#include <plix/platform/graphics/text_placement.h>
#include <plix/platform/graphics/text_style.h>

#include <span>

// Private to plix/platform/graphics.

namespace plix {

class GlyphPainter;
class NSGraphicsContext;

/// Draws lines that have been set and placed. Their places are counted from an upper left corner, y downwards; the context may be
/// flipped or not.
class LineDrawer {
public:
    /// The corner is in user space.
    LineDrawer(NSGraphicsContext&, Point corner);

    /// `spans` are the paragraph's.
    void drawBackground(SetParagraph const&, SetLine const&, LinePlace const&, std::span<StyleSpan const> spans);
    void drawText(SetParagraph const&, SetLine const&, LinePlace const&, std::span<StyleSpan const> spans);

    /// A place of the text's in user space.
    Point userPoint(float x, float y) const;
    Rect userRect(float x, float y, float width, float height) const;

private:
    void drawRun(GlyphPainter&, SetParagraph const&, SetRun const&, LinePlace const&, TextStyle const&);
    void drawDecorations(SetRun const&, LinePlace const&, TextStyle const&);
    void drawRule(SetRun const&, LinePlace const&, float y, float thickness, NSColor const*);
    void drawAttachment(SetRun const&, LinePlace const&, TextStyle const&);
    void fill(Rect user, NSColor const*);

    NSGraphicsContext& m_context;
    Point m_corner;
    bool m_isFlipped;
};

}
