#include <plix/platform/graphics/text_style.h>

#include <plix/platform/graphics/FontFace.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSParagraphStyle.h>
#include <plix/platform/graphics/NSShadow.h>
#include <plix/platform/graphics/inline_object.h>

#include <algorithm>
#include <cmath>

namespace plix {

namespace {

constexpr float raisePerSuperscript = 0.33F;
constexpr float largestLength = 1e6F;

NSFont const& defaultFont()
{
    static auto const& s_font = *new Ref<NSFont>(NSFont::userFontOfSize(0));
    return *s_font;
}

template <typename T> T* objectIn(ObjectValue const& value)
{
    return dynamic_cast<T*>(value.object());
}

float finite(double value)
{
    return std::isfinite(value) ? static_cast<float>(std::clamp(value, -1e6, 1e6)) : 0;
}

void apply(TextStyle& style, std::string_view name, ObjectValue const& value)
{
    if (name == NSFontAttributeName) {
        if (auto const* font = objectIn<NSFont>(value))
            style.font = font;
    } else if (name == NSForegroundColorAttributeName) {
        style.foreground = objectIn<NSColor>(value);
    } else if (name == NSParagraphStyleAttributeName) {
        style.paragraph = objectIn<NSParagraphStyle>(value);
    } else if (name == NSBackgroundColorAttributeName) {
        style.background = objectIn<NSColor>(value);
    } else if (name == NSShadowAttributeName) {
        style.shadow = objectIn<NSShadow>(value);
    } else if (name == NSUnderlineStyleAttributeName) {
        style.underline = value.intValue();
    } else if (name == NSUnderlineColorAttributeName) {
        style.underlineColor = objectIn<NSColor>(value);
    } else if (name == NSStrikethroughStyleAttributeName) {
        style.strikethrough = value.intValue();
    } else if (name == NSStrikethroughColorAttributeName) {
        style.strikethroughColor = objectIn<NSColor>(value);
    } else if (name == NSAttachmentAttributeName) {
        style.attachment = objectIn<InlineObject>(value);
    } else if (name == NSKernAttributeName) {
        style.kern = finite(value.doubleValue());
    } else if (name == NSLigatureAttributeName) {
        style.hasLigatures = value.intValue() != 0;
    } else if (name == NSBaselineOffsetAttributeName) {
        style.raise += finite(value.doubleValue());
    }
}

template <typename T> void append(std::string& key, T const& value)
{
    key.append(reinterpret_cast<char const*>(&value), sizeof value);
}

void appendParagraph(std::string& key, ParagraphLayout const& layout)
{
    for (int const number : { static_cast<int>(layout.alignment), static_cast<int>(layout.lineBreakMode),
             static_cast<int>(layout.baseWritingDirection), static_cast<int>(layout.tabStops.size()) })
        append(key, number);
    for (float const length : { layout.lineSpacing, layout.paragraphSpacing, layout.paragraphSpacingBefore, layout.headIndent,
             layout.firstLineHeadIndent, layout.tailIndent, layout.minimumLineHeight, layout.maximumLineHeight,
             layout.lineHeightMultiple, layout.defaultTabInterval })
        append(key, length);
    for (auto const& stop : layout.tabStops) {
        append(key, stop.location);
        append(key, stop.type);
    }
}

}

float usableLength(float length)
{
    return length > 0 ? std::min(length, largestLength) : 0;
}

TextStyle textStyle(Attributes const& attributes)
{
    TextStyle style;
    for (auto const& [name, value] : attributes)
        apply(style, name, value);
    if (!style.font)
        style.font = &defaultFont();
    auto const superscript = attributes.find(NSSuperscriptAttributeName);
    if (superscript != attributes.end())
        style.raise += static_cast<float>(std::clamp(superscript->second.intValue(), -8, 8)) * style.font->pointSize()
            * raisePerSuperscript;
    return style;
}

ParagraphLayout const& paragraphLayout(TextStyle const& style)
{
    static auto const& s_default = *new Ref<NSParagraphStyle>(NSParagraphStyle::defaultParagraphStyle());
    return style.paragraph ? style.paragraph->layout() : s_default->layout();
}

void appendSettingKey(std::string& key, std::span<StyleSpan const> spans)
{
    ParagraphLayout const* previous = nullptr;
    for (auto const& span : spans) {
        auto const& style = span.style;
        append(key, span.endByte);
        append(key, style.font->face().identifier());
        append(key, style.kern);
        append(key, style.raise);
        key.push_back(static_cast<char>((style.hasLigatures ? 1 : 0) | (style.attachment ? 2 : 0)));
        if (style.attachment) {
            auto const size = style.attachment->inlineSize();
            append(key, size);
            append(key, style.attachment->inlineBaselineOffset());
        }
        auto const& layout = paragraphLayout(style);
        bool const isSame = previous == &layout;
        key.push_back(isSame ? 's' : 'p');
        if (!isSame)
            appendParagraph(key, layout);
        previous = &layout;
    }
}

}
