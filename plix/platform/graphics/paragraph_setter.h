#pragma once

#include <plix/platform/graphics/set_text.h>
#include <plix/platform/graphics/text_style.h>

#include <span>
#include <string_view>

// Private to plix/platform/graphics.

namespace plix {

/// A paragraph to be set: valid UTF-8 without the line end that closes it; spans that cover it, at least one.
struct ParagraphText {
    std::string_view text;
    std::span<StyleSpan const> spans;
    ParagraphLayout const& layout;
};

/// Shapes the text and breaks it into lines no longer than `width`, which is below 0 where there is no limit. A truncating
/// paragraph is one line. There is always at least one line. Tables are used where they give the same.
SetParagraph setParagraph(ParagraphText const&, float width);
/// The same without tables: what the others must agree with.
SetParagraph setParagraphFully(ParagraphText const&, float width);

/// What the setting of text has taken so far, for tests and measurements.
struct SettingCounts {
    long shapings { 0 }; ///< texts and parts of texts that HarfBuzz was given
    long tableSettings { 0 }; ///< texts that were set from tables
};
SettingCounts& settingCounts();

}
