#include <plix/platform/base/utf16.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSFontManager.h>
#include <plix/platform/graphics/paragraph_setter.h>

#include <gtest/gtest.h>

namespace plix {
namespace {

class RandomText {
public:
    unsigned below(unsigned limit)
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return static_cast<unsigned>(m_state >> 33) % limit;
    }
    /// Mostly letters, digits and what stands between words; sometimes anything of ASCII, or Latin letters and punctuation.
    std::string next()
    {
        static constexpr char common[] = "abcdefghijklmnopqrstuvwxyz ABCDEFGHIJKLMNOPQRSTUVWXYZ 0123456789 .,-";
        static constexpr char32_t punctuation[] { 0x2013, 0x2014, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2026, 0x20AC, 0x2122 };
        unsigned const kind = below(4);
        std::string text;
        for (unsigned length = 1 + below(24); length > 0; --length) {
            if (kind < 2)
                text += common[below(sizeof common - 1)];
            else if (kind == 2)
                text += static_cast<char>(0x20 + below(95));
            else if (below(12) == 0)
                appendUTF8(text, punctuation[below(10)]);
            else
                appendUTF8(text, below(3) == 0 ? 0xA0 + below(0x60) : 0x41 + below(58));
        }
        return text;
    }

private:
    unsigned long long m_state { 20 };
};

void expectSameSetting(SetParagraph const& simple, SetParagraph const& full, std::string const& text)
{
    ASSERT_EQ(simple.lines.size(), full.lines.size()) << text;
    ASSERT_EQ(simple.glyphs.size(), full.glyphs.size()) << text;
    for (std::size_t i = 0; i < full.lines.size(); ++i) {
        ASSERT_NEAR(simple.lines[i].width, full.lines[i].width, 1.0 / 64) << text;
        ASSERT_EQ(simple.lines[i].firstByte, full.lines[i].firstByte) << text;
        ASSERT_EQ(simple.lines[i].endByte, full.lines[i].endByte) << text;
        ASSERT_EQ(simple.lines[i].ascent, full.lines[i].ascent);
        ASSERT_EQ(simple.lines[i].descent, full.lines[i].descent);
        ASSERT_FALSE(full.lines[i].isRightToLeft);
    }
    for (std::size_t i = 0; i < full.glyphs.size(); ++i) {
        ASSERT_EQ(simple.glyphs[i].glyph, full.glyphs[i].glyph) << text;
        ASSERT_NEAR(simple.glyphs[i].x, full.glyphs[i].x, 1.0 / 64) << text;
        ASSERT_NEAR(simple.glyphs[i].y, full.glyphs[i].y, 1.0 / 64) << text;
    }
}

struct Case {
    char const* font;
    float size;
};

class SimpleText : public testing::TestWithParam<Case> { };

TEST_P(SimpleText, TablesGiveWhatShapingGives)
{
    auto const font = NSFont::fontWithName(GetParam().font, GetParam().size);
    ASSERT_TRUE(font);
    TextStyle style;
    style.font = font.get();
    RandomText random;
    long const tablesBefore = settingCounts().tableSettings;
    constexpr int texts = 14'500;
    for (int i = 0; i < texts; ++i) {
        auto const text = random.next();
        StyleSpan const spans[] { { static_cast<std::uint32_t>(text.size()), style } };
        ParagraphText const paragraph { text, spans, paragraphLayout(style) };
        expectSameSetting(setParagraph(paragraph, -1), setParagraphFully(paragraph, -1), text);
        if (HasFatalFailure())
            return;
    }
    EXPECT_GT(settingCounts().tableSettings - tablesBefore, texts / 4);
}

TEST_P(SimpleText, BreaksLinesWherePangoDoes)
{
    auto const font = NSFont::fontWithName(GetParam().font, GetParam().size);
    ASSERT_TRUE(font);
    TextStyle style;
    style.font = font.get();
    RandomText random;
    auto layout = paragraphLayout(style);
    for (int i = 0; i < 600; ++i) {
        std::string text;
        for (unsigned words = 1 + random.below(12); words > 0; --words)
            text += random.next() + (random.below(8) == 0 ? "  " : " ");
        layout.lineBreakMode = random.below(4) == 0 ? NSLineBreakByCharWrapping : NSLineBreakByWordWrapping;
        layout.firstLineHeadIndent = random.below(3) == 0 ? 20 : 0;
        auto const width = static_cast<float>(random.below(5) == 0 ? random.below(20) : 20 + random.below(600));
        StyleSpan const spans[] { { static_cast<std::uint32_t>(text.size()), style } };
        ParagraphText const paragraph { text, spans, layout };
        expectSameSetting(setParagraph(paragraph, width), setParagraphFully(paragraph, width), text + std::to_string(width));
        if (HasFatalFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(Fonts, SimpleText,
    testing::Values(Case { "Inter-Regular", 13 }, Case { "Inter-Regular", 11 }, Case { "Inter-Bold", 13 },
        Case { "Inter-Italic", 17.5F }, Case { "InterDisplay-Regular", 24 }, Case { "DejaVuSans", 12 },
        Case { "DejaVuSansMono", 10 }));

}
}
