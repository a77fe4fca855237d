#include "layout_pages.h"
#include "Canvas.h"
#include "Transcript.h"
#include "page_parts.h"

#include <plix/platform/appkit/Theme.h>
#include <plix/platform/graphics/NSBezierPath.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSFontManager.h>
#include <plix/platform/graphics/NSGraphics.h>
#include <plix/platform/graphics/NSImage.h>
#include <plix/platform/graphics/NSLayoutManager.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/platform/graphics/NSMutableParagraphStyle.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/NSTextContainer.h>
#include <plix/platform/graphics/NSTextStorage.h>
#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/inline_object.h>
#include <plix/platform/graphics/string_drawing.h>

#include <algorithm>
#include <array>

namespace gallery {

using namespace plix;

namespace {

constexpr Size half { 254, 110 };

constexpr char const* pangram = "The quick brown fox jumps over the lazy dog.";

Attributes plain(float size = 13)
{
    return { { NSFontAttributeName, NSFont::systemFontOfSize(size) }, { NSForegroundColorAttributeName, NSColor::textColor() } };
}

Attributes with(char const* name, ObjectValue value)
{
    auto attributes = plain();
    attributes[name] = std::move(value);
    return attributes;
}

Attributes styled(std::function<void(NSMutableParagraphStyle&)> const& set)
{
    auto const style = make<NSMutableParagraphStyle>();
    set(*style);
    return with(NSParagraphStyleAttributeName, style);
}

Rect inner(Rect bounds)
{
    return NSInsetRect(bounds, 8, 6);
}

// MARK: fonts

Ref<NSView> makeNSFontPage()
{
    auto const lines = drawing("fonts of the interface", { 520, 132 }, [](Rect bounds) {
        float top = bounds.maxY() - 6;
        for (auto const& font : { NSFont::systemFontOfSize(0), NSFont::boldSystemFontOfSize(0), NSFont::labelFontOfSize(0),
                 NSFont::userFixedPitchFontOfSize(0), NSFont::systemFontOfSize(24) }) {
            top -= font->defaultLineHeightForFont();
            drawAtPoint(font->displayName() + " at " + valueText(font->pointSize())
                    + (font->pointSize() < 20 ? std::string(": ") + pangram : ""),
                { 8, top }, { { NSFontAttributeName, font }, { NSForegroundColorAttributeName, NSColor::textColor() } });
        }
    });
    auto const metrics = drawing("ascender, capitals, small letters, baseline, descender", { 520, 76 }, [](Rect bounds) {
        auto const font = NSFont::systemFontOfSize(48);
        float const baseline = 20;
        for (float const height : { font->ascender(), font->capHeight(), font->xHeight(), 0.F, font->descender() }) {
            Theme::current().color(ThemeRole::errorText)->colorWithAlphaComponent(0.8F)->set();
            NSRectFill({ 0, baseline + height, bounds.width, 1 });
        }
        drawAtPoint("Typography", { 120, baseline + font->descender() },
            { { NSFontAttributeName, font }, { NSForegroundColorAttributeName, NSColor::textColor() } });
    });
    auto const transcript = make<Transcript>();
    RUN(auto const font = NSFont::fontWithName("Inter-Bold", 20));
    SHOW(font->displayName());
    SHOW(font->familyName());
    SHOW(font->isFixedPitch());
    SHOW(font == NSFont::boldSystemFontOfSize(20));
    SHOW(NSFont::fontWithName("Papyrus of Atlantis", 12));
    SHOW(NSFont::systemFontSizeForControlSize(NSSmallControlSize));
    return tiledPage({ lines, metrics }, transcript);
}

Ref<NSView> makeNSFontManagerPage()
{
    auto const transcript = make<Transcript>();
    RUN(auto& fonts = NSFontManager::sharedFontManager());
    RUN(auto const regular = NSFont::systemFontOfSize(13));
    SHOW(fonts.weightOfFont(*regular));
    SHOW(fonts.traitsOfFont(*regular));
    RUN(auto const bold = fonts.convertFontToHaveTrait(*regular, NSBoldFontMask));
    SHOW(bold->fontName());
    SHOW(fonts.weightOfFont(*bold));
    SHOW((fonts.traitsOfFont(*bold) & NSBoldFontMask) != 0);
    SHOW(fonts.convertFontToNotHaveTrait(*bold, NSBoldFontMask) == regular);
    SHOW(fonts.convertFontToSize(*bold, 40)->pointSize());
    SHOW(fonts.convertFontToFamily(*regular, "DejaVu Sans Mono")->fontName());
    SHOW(fonts.convertFontToFamily(*regular, "No Such Family") == regular);
    SHOW(fonts.fontWithFamily("DejaVu Sans", NSBoldFontMask, 9, 13)->fontName());
    SHOW(fonts.fontWithFamily("No Such Family", 0, 5, 13));
    SHOW(std::ranges::is_sorted(fonts.availableFonts()));
    return transcript;
}

// MARK: texts

Ref<NSView> makeNSAttributedStringPage()
{
    auto const shown = [](char const* caption, std::string_view text, Attributes const& attributes) {
        auto const string = make<NSAttributedString>(text, attributes);
        return drawing(caption, { 165, 52 }, [string](Rect bounds) { string->drawInRect(inner(bounds)); });
    };
    auto const shadow = make<NSShadow>();
    shadow->setShadowOffset({ 2, -2 });
    shadow->setShadowBlurRadius(2);
    auto const transcript = make<Transcript>();
    RUN(auto const text = make<NSAttributedString>("Tea", plain()));
    SHOW(text->string());
    SHOW(text->length());
    SHOW(text->attribute(NSFontAttributeName, 0).as<NSFont>()->pointSize());
    SHOW(text->attribute(NSShadowAttributeName, 2));
    SHOW(text->attribute(NSFontAttributeName, 3));
    SHOW(text->isEqualToAttributedString(*make<NSAttributedString>("Tea")));
    SHOW(make<NSAttributedString>("")->size());
    return tiledPage(
        {
            shown("font", "Strong tea", with(NSFontAttributeName, NSFont::boldSystemFontOfSize(20))),
            shown("colours", "Green on yellow",
                { { NSFontAttributeName, NSFont::systemFontOfSize(13) },
                    { NSForegroundColorAttributeName, NSColor::colorWithCalibratedRed(0, 0.45F, 0.2F, 1) },
                    { NSBackgroundColorAttributeName, NSColor::yellowColor() } }),
            shown("underlined", "Quite important", with(NSUnderlineStyleAttributeName, NSUnderlineStyleDouble)),
            shown("struck through", "No more coffee", with(NSStrikethroughStyleAttributeName, NSUnderlineStyleSingle)),
            shown("spaced", "Wide open", with(NSKernAttributeName, 4)),
            shown("with a shadow", "Late light", with(NSShadowAttributeName, shadow)),
        },
        transcript);
}

Ref<NSView> makeNSMutableAttributedStringPage()
{
    auto const text = make<NSMutableAttributedString>("Milk or sugar?", plain(22));
    text->addAttribute(NSForegroundColorAttributeName, NSColor::colorWithCalibratedRed(0.25F, 0.5F, 0.9F, 1), { 0, 4 });
    text->addAttribute(NSFontAttributeName, NSFont::boldSystemFontOfSize(30), { 8, 5 });
    text->addAttribute(NSSuperscriptAttributeName, 1, { 13, 1 });
    auto const shown = drawing("runs of attributes", { 520, 56 }, [text](Rect bounds) { text->drawInRect(inner(bounds)); });
    auto const transcript = make<Transcript>();
    SHOW(text->runs().size());
    RUN(NSRange range);
    SHOW(text->attributesAtIndex(9, range).size());
    SHOW(range);
    RUN(auto const other = copyOf(*text));
    RUN(other->replaceCharactersInRange({ 0, 4 }, "Cream"));
    SHOW(other->string());
    SHOW(other->attribute(NSForegroundColorAttributeName, 4) == text->attribute(NSForegroundColorAttributeName, 0));
    RUN(other->deleteCharactersInRange({ 5, 9 }));
    RUN(other->appendAttributedString(*make<NSAttributedString>(" it is")));
    SHOW(other->string());
    SHOW(other->length());
    RUN(other->removeAttribute(NSForegroundColorAttributeName, { 0, 5 }));
    SHOW(other->attribute(NSForegroundColorAttributeName, 0));
    SHOW(text->string());
    return tiledPage({ shown }, transcript);
}

Ref<NSView> makeNSParagraphStylePage()
{
    std::vector<Ref<NSView>> tiles;
    auto const add = [&](char const* caption, std::function<void(NSMutableParagraphStyle&)> const& set) {
        tiles.push_back(drawing(
            caption, { 165, 72 }, [attributes = styled(set)](Rect bounds) { drawInRect(pangram, inner(bounds), attributes); }));
    };
    for (auto const& [caption, alignment] :
        { std::pair { "left", NSLeftTextAlignment }, { "centre", NSCenterTextAlignment }, { "right", NSRightTextAlignment } })
        add(caption, [alignment = alignment](NSMutableParagraphStyle& style) { style.setAlignment(alignment); });
    for (auto const& [caption, mode] : { std::pair { "by characters", NSLineBreakByCharWrapping },
             { "truncated in the middle", NSLineBreakByTruncatingMiddle }, { "clipped", NSLineBreakByClipping } })
        add(caption, [mode = mode](NSMutableParagraphStyle& style) { style.setLineBreakMode(mode); });
    auto const transcript = make<Transcript>();
    RUN(auto const style = NSParagraphStyle::defaultParagraphStyle());
    SHOW(style->alignment() == NSNaturalTextAlignment);
    SHOW(style->lineBreakMode() == NSLineBreakByWordWrapping);
    SHOW(style->tabStops().size());
    SHOW(style->tabStops().back().location);
    SHOW(style->mutableCopy()->isEqual(style.get()));
    return tiledPage(tiles, transcript);
}

Ref<NSView> makeNSMutableParagraphStylePage()
{
    std::vector<Ref<NSView>> tiles;
    auto const add = [&](char const* caption, std::string_view text, std::function<void(NSMutableParagraphStyle&)> const& set) {
        tiles.push_back(drawing(caption, half,
            [attributes = styled(set), text = std::string(text)](Rect bounds) { drawInRect(text, inner(bounds), attributes); }));
    };
    std::string const two = std::string(pangram) + "\n" + pangram;
    add("a first line set in", two, [](NSMutableParagraphStyle& style) { style.setFirstLineHeadIndent(24); });
    add("the others set in", two, [](NSMutableParagraphStyle& style) { style.setHeadIndent(24); });
    add("spaced lines and paragraphs", two, [](NSMutableParagraphStyle& style) {
        style.setLineSpacing(4);
        style.setParagraphSpacing(10);
    });
    add("set in at the end", two, [](NSMutableParagraphStyle& style) { style.setTailIndent(-60); });
    add("tab stops", "Assam\t4.50\t2 cups\nSencha\t12.25\t10 cups\nRooibos\t3\t1 cup", [](NSMutableParagraphStyle& style) {
        style.setTabStops({ { 110, NSDecimalTabStopType }, { 220, NSRightTabStopType } });
        style.setLineSpacing(4);
    });
    add("higher lines", two, [](NSMutableParagraphStyle& style) { style.setLineHeightMultiple(1.4F); });
    return tiledPage(tiles);
}

Ref<NSView> makeStringDrawingPage()
{
    auto const transcript = make<Transcript>();
    RUN(Attributes const look { { NSFontAttributeName, NSFont::systemFontOfSize(13) } });
    SHOW(sizeWithAttributes("Tea", look).width < sizeWithAttributes("Tea time", look).width);
    SHOW(sizeWithAttributes("Tea\nTime", look).height == 2 * sizeWithAttributes("Tea", look).height);
    SHOW(sizeWithAttributes("", look));
    SHOW(sizeForWidth(pangram, 100, look).width <= 100);
    return tiledPage(
        {
            drawing("drawAtPoint", { 254, 88 },
                [](Rect) {
                    drawAtPoint("At a point", { 20, 40 }, plain(20));
                    NSColor::redColor()->set();
                    NSRectFill({ 18, 38, 4, 4 });
                }),
            drawing("drawInRect", { 254, 88 },
                [](Rect bounds) {
                    auto const place = NSInsetRect(bounds, 50, 14);
                    NSColor::gridColor()->set();
                    NSFrameRect(place);
                    drawInRect(std::string(pangram) + " " + pangram, place, plain());
                }),
            drawing("from right to left", { 254, 88 },
                [](Rect bounds) { drawInRect("שלום, עולם – ABC 123", inner(bounds), plain(18)); }),
            drawing("shaped and combined", { 254, 88 },
                [](Rect bounds) { drawInRect("Ελληνικά, кириллица,\nﬁn, e\u0301, ñ, Å", inner(bounds), plain(18)); }),
        },
        transcript);
}

// MARK: layout

/// Lines of the text in the container, with what they cover.
/// Below the top of what is not flipped.
void drawLayout(NSLayoutManager& manager, NSTextContainer& container, Rect bounds)
{
    auto const glyphs = manager.glyphRangeForTextContainer(container);
    auto const used = manager.usedRectForTextContainer(container);
    NSColor::redColor()->colorWithAlphaComponent(0.12F)->set();
    Point const origin { 8, bounds.height - 8 - used.height };
    NSRectFillUsingOperation(rectWith(origin, used.size()), NSCompositeSourceOver);
    manager.drawBackgroundForGlyphRange(glyphs, origin);
    manager.drawGlyphsForGlyphRange(glyphs, origin);
}

Ref<NSView> makeNSLayoutManagerPage()
{
    auto const storage = make<NSTextStorage>(std::string(pangram) + "\nTea.", plain());
    auto const manager = make<NSLayoutManager>();
    auto const container = make<NSTextContainer>(Size { 150, 1000 });
    storage->addLayoutManager(manager);
    manager->addTextContainer(container);
    auto const shown = drawing("its lines", { 254, 80 }, [=](Rect bounds) { drawLayout(*manager, *container, bounds); });
    shown->keepAlive(storage);
    auto const transcript = make<Transcript>();
    SHOW(manager->numberOfGlyphs());
    SHOW(manager->glyphRangeForTextContainer(*container));
    RUN(NSRange line);
    SHOW(manager->lineFragmentRectForGlyphAtIndex(0, line).origin());
    SHOW(line);
    SHOW(manager->lineFragmentRectForGlyphAtIndex(line.end(), line).y > 0);
    SHOW(line);
    SHOW(manager->glyphIndexForPoint({ 0, 0 }, *container));
    SHOW(manager->glyphIndexForPoint({ 0, 500 }, *container));
    RUN(storage->replaceCharactersInRange({ 0, 44 }, "Short"));
    SHOW(manager->glyphRangeForTextContainer(*container));
    RUN(storage->replaceCharactersInRange({ 0, 5 }, pangram));
    return tiledPage({ shown }, transcript);
}

Ref<NSView> makeNSTextContainerPage()
{
    std::vector<Ref<NSView>> tiles;
    for (auto const& [caption, size, padding] : { std::tuple { "wide", Size { 238, 100 }, 5.F }, { "narrow", { 110, 100 }, 5.F },
             { "with padding", { 200, 100 }, 40.F }, { "too low for all", { 90, 30 }, 5.F } }) {
        auto const storage = make<NSTextStorage>(pangram, plain());
        auto const manager = make<NSLayoutManager>();
        auto const container = make<NSTextContainer>(size);
        container->setLineFragmentPadding(padding);
        storage->addLayoutManager(manager);
        manager->addTextContainer(container);
        tiles.push_back(drawing(caption, { 254, 80 }, [=](Rect bounds) { drawLayout(*manager, *container, bounds); }));
        tiles.back()->keepAlive(storage);
    }
    auto const transcript = make<Transcript>();
    SHOW(make<NSTextContainer>()->containerSize());
    SHOW(make<NSTextContainer>()->lineFragmentPadding());
    SHOW(make<NSTextContainer>()->layoutManager() == nullptr);
    return tiledPage(tiles, transcript);
}

Ref<NSView> makeNSTextStoragePage()
{
    class Counting : public NSLayoutManager {
    public:
        void textStorageEdited(NSRange range, long changeInLength) override
        {
            ++edits;
            last = range;
            change = changeInLength;
            NSLayoutManager::textStorageEdited(range, changeInLength);
        }
        int edits { 0 };
        NSRange last;
        long change { 0 };
    };
    auto const transcript = make<Transcript>();
    RUN(auto const storage = make<NSTextStorage>("Tea for two"));
    RUN(auto const manager = make<Counting>());
    RUN(storage->addLayoutManager(manager));
    SHOW(manager->textStorage() == storage.get());
    RUN(storage->replaceCharactersInRange({ 8, 3 }, "twelve"));
    SHOW(manager->edits);
    SHOW(manager->last);
    SHOW(manager->change);
    transcript->addHeading("Several edits told at once");
    RUN(storage->beginEditing());
    RUN(storage->replaceCharactersInRange({ 0, 3 }, "Coffee"));
    RUN(storage->deleteCharactersInRange({ 6, 4 }));
    SHOW(manager->edits);
    RUN(storage->endEditing());
    SHOW(manager->edits);
    SHOW(manager->change);
    SHOW(storage->string());
    return transcript;
}

Ref<NSView> makeInlineObjectPage()
{
    class Cup : public NSObject, public InlineObject {
    public:
        Size inlineSize() const override { return { side, side }; }
        Point inlineBaselineOffset() const override { return { 0, -side / 6 }; }
        void drawInline(Rect frame) override { icon(Icon::star, side)->drawInRect(frame, {}, NSCompositeSourceOver, 1); }
        float side { 16 };
    };
    auto const text = make<NSMutableAttributedString>("A small ", plain(18));
    for (float const side : { 16.F, 32.F, 48.F }) {
        auto const cup = make<Cup>();
        cup->side = side;
        text->appendAttributedString(*attributedStringWithAttachment(cup));
        text->appendAttributedString(*make<NSAttributedString>(side < 32 ? ", a larger "
                : side < 48                                              ? ", the largest "
                                                                         : ".",
            plain(18)));
    }
    auto const transcript = make<Transcript>();
    SHOW(text->length());
    SHOW(text->containsAttachments());
    SHOW(text->attribute(NSAttachmentAttributeName, 8).isNil());
    SHOW(text->attribute(NSAttachmentAttributeName, 0).isNil());
    SHOW(text->size().height >= 48);
    transcript->addNote("An object stands in a line of text in place of the character U+FFFC. NSTextAttachment is such an object.");
    return tiledPage(
        { drawing("objects in a line", { 520, 70 }, [text](Rect bounds) { text->drawInRect(inner(bounds)); }) }, transcript);
}

constexpr Page all[] {
    { "NSFont", "NSFont", textSection, "layout_pages.cpp", makeNSFontPage },
    { "NSFontManager", "NSFontManager", textSection, "layout_pages.cpp", makeNSFontManagerPage },
    { "NSAttributedString", "NSAttributedString", textSection, "layout_pages.cpp", makeNSAttributedStringPage },
    { "NSMutableAttributedString", "NSMutableAttributedString", textSection, "layout_pages.cpp",
        makeNSMutableAttributedStringPage },
    { "NSParagraphStyle", "NSParagraphStyle", textSection, "layout_pages.cpp", makeNSParagraphStylePage },
    { "NSMutableParagraphStyle", "NSMutableParagraphStyle", textSection, "layout_pages.cpp", makeNSMutableParagraphStylePage },
    { "string_drawing", "Drawing strings", textSection, "layout_pages.cpp", makeStringDrawingPage },
    { "NSLayoutManager", "NSLayoutManager", textSection, "layout_pages.cpp", makeNSLayoutManagerPage },
    { "NSTextContainer", "NSTextContainer", textSection, "layout_pages.cpp", makeNSTextContainerPage },
    { "NSTextStorage", "NSTextStorage", textSection, "layout_pages.cpp", makeNSTextStoragePage },
    { "InlineObject", "InlineObject", textSection, "layout_pages.cpp", makeInlineObjectPage },
};

}

std::span<Page const> layoutPages()
{
    return all;
}

}
