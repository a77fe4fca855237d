#pragma once

#include <plix/platform/graphics/attribute_names.h>
#include <plix/platform/graphics/set_text.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Private to plix/platform/graphics.

namespace plix {

class InlineObject;
class NSColor;
class NSFont;
class NSParagraphStyle;
class NSShadow;

/// A run's attributes, looked up once. The pointers live as long as the attributes; null where there is no such attribute, except
/// that there is always a font.
struct TextStyle {
    NSFont const* font { nullptr };
    NSColor const* foreground { nullptr };
    NSColor const* background { nullptr };
    NSColor const* underlineColor { nullptr };
    NSColor const* strikethroughColor { nullptr };
    NSShadow const* shadow { nullptr };
    NSParagraphStyle const* paragraph { nullptr };
    InlineObject* attachment { nullptr };
    float kern { 0 };
    float raise { 0 };
    int underline { 0 };
    int strikethrough { 0 };
    bool hasLigatures { true };

    /// Set like plain text in this font: nothing of it concerns more than paint.
    bool isPlainlySet() const { return !attachment && kern == 0 && raise == 0 && hasLigatures; }
};

TextStyle textStyle(Attributes const&);
ParagraphLayout const& paragraphLayout(TextStyle const&);

/// Bytes of a text that share their style, up to `endByte`.
struct StyleSpan {
    std::uint32_t endByte { 0 };
    TextStyle style;
};

/// A size that is finite and not below 0.
float usableLength(float);

/// Appends what decides how text of these spans is set, and nothing that only concerns paint: equal keys, equal lines.
void appendSettingKey(std::string& key, std::span<StyleSpan const>);

}
