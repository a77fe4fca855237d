#include "allocations.h"
#include "bench.h"
#include "text_peer.h"

#include <plix/platform/graphics/NSAttributedString.h>
#include <plix/platform/graphics/NSBitmapImageRep.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSGraphicsContext.h>
#include <plix/platform/graphics/TextLayout.h>
#include <plix/platform/graphics/string_drawing.h>
#include <plix/platform/graphics/text_line.h>

#include <cstdint>
#include <string>
#include <vector>

namespace plix::bench {

namespace {

constexpr int textCount = 1000;
constexpr int textLength = 20;

struct Place {
    float x;
    float y;
};

constexpr Place placeOf(int index)
{
    return { static_cast<float>(5 + index % 7 * 140), static_cast<float>(2 + index / 7 * 11 % 770) };
}

/// Texts that nobody has seen: letters of both cases, digits, blanks and a little punctuation in any order.
class Texts {
public:
    std::vector<std::string> next()
    {
        static constexpr char alphabet[] = "abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 .,-";
        std::vector<std::string> texts(textCount);
        for (auto& text : texts) {
            for (int i = 0; i < textLength; ++i)
                text += alphabet[below(sizeof alphabet - 1)];
        }
        return texts;
    }

private:
    unsigned below(unsigned limit)
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<unsigned>(m_state >> 33) % limit;
    }

    unsigned long long m_state { 9 };
};

/// Pixels to draw into, like a window's.
struct Canvas {
    std::vector<std::uint32_t> pixels = std::vector<std::uint32_t>(1000 * 800);
    Ref<NSGraphicsContext> context;

    Canvas()
    {
        PixelBuffer buffer;
        buffer.pixels = reinterpret_cast<std::uint8_t*>(pixels.data());
        buffer.stride = 4000;
        buffer.width = 1000;
        buffer.height = 800;
        context = make<NSGraphicsContext>(buffer);
        context->translateBy(0, 800);
        context->scaleBy(1, -1);
        context->setFlipped(true);
    }
    void clear() const
    {
        context->setFillColor(*NSColor::whiteColor());
        NSRectFill({ 0, 0, 1000, 800 });
    }
};

Attributes labelAttributes()
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(13) }, { NSForegroundColorAttributeName, NSColor::blackColor() } };
}

}

PLIX_FIGURE("text.draw_new")
{
    Texts source;
    std::vector<std::string> texts;
    Canvas const canvas;
    CurrentContext const current(canvas.context);
    PangoPeer peer;
    auto const attributes = labelAttributes();
    figure.wantRatio(3);
    figure.timeAgainst("a fresh PangoLayout for each text",
        { [&] {
             for (int i = 0; i < textCount; ++i)
                 drawAtPoint(texts[static_cast<std::size_t>(i)], { placeOf(i).x, placeOf(i).y }, attributes);
         },
            [&] {
                texts = source.next();
                canvas.clear();
            } },
        { [&] {
             for (int i = 0; i < textCount; ++i)
                 peer.draw(texts[static_cast<std::size_t>(i)], placeOf(i).x, placeOf(i).y);
         },
            [&] {
                texts = source.next();
                peer.clear();
            } });
}

PLIX_FIGURE("text.measure_again")
{
    auto const texts = Texts().next();
    PangoPeer peer;
    auto const attributes = labelAttributes();
    figure.wantRatio(20);
    figure.timeAgainst("a fresh PangoLayout for each text", { [&] {
        for (auto const& text : texts)
            keep(sizeWithAttributes(text, attributes));
    } },
        { [&] {
            for (auto const& text : texts)
                keep(peer.measure(text));
        } });
}

PLIX_FIGURE("text.draw_again")
{
    auto const texts = Texts().next();
    Canvas const canvas;
    CurrentContext const current(canvas.context);
    PangoPeer peer;
    auto const attributes = labelAttributes();
    canvas.clear();
    peer.clear();
    figure.timeAgainst("a fresh PangoLayout for each text", { [&] {
        for (int i = 0; i < textCount; ++i)
            drawAtPoint(texts[static_cast<std::size_t>(i)], { placeOf(i).x, placeOf(i).y }, attributes);
    } },
        { [&] {
            for (int i = 0; i < textCount; ++i)
                peer.draw(texts[static_cast<std::size_t>(i)], placeOf(i).x, placeOf(i).y);
        } });
}

PLIX_FIGURE("text.again_allocations")
{
    auto const texts = Texts().next();
    Canvas const canvas;
    CurrentContext const current(canvas.context);
    auto const attributes = labelAttributes();
    auto const pass = [&] {
        for (auto const& text : texts) {
            keep(sizeWithAttributes(text, attributes));
            drawAtPoint(text, { 20, 20 }, attributes);
            drawInRect(text, { 20, 40, 300, 20 }, attributes);
            drawInRect(text, { 20, 60, 60, 20 }, attributes);
        }
    };
    for (int i = 0; i < 3; ++i)
        pass();
    auto const before = allocationCount();
    pass();
    figure.count(static_cast<double>(allocationCount() - before));
}

PLIX_FIGURE("text.draw_line_new")
{
    Texts source;
    std::vector<std::string> texts;
    Canvas const canvas;
    CurrentContext const current(canvas.context);
    auto const font = NSFont::systemFontOfSize(13);
    auto const color = NSColor::blackColor();
    auto const prepare = [&] {
        texts = source.next();
        canvas.clear();
    };
    figure.time(
        { [&] {
             for (int i = 0; i < textCount; ++i)
                 drawTextLine(texts[static_cast<std::size_t>(i)], { placeOf(i).x, placeOf(i).y, 110, 16 }, { *font, color.get() });
         },
            prepare });
}

PLIX_FIGURE("text.lay_out_megabyte")
{
    std::string text;
    while (text.size() < (1U << 20U))
        text += "The quick brown fox jumps over the lazy dog; pack my box with five dozen liquor jugs, please.\n";
    auto const string = make<NSAttributedString>(text, labelAttributes());
    figure.setRuns(5);
    figure.time({ [&] {
        TextLayout layout;
        layout.setWidth(400);
        layout.setString(string.get());
        keep(layout.usedRect());
    } });
}

}
