#include <plix/tables/SelectedTexts.h>

#include <plix/format/attributed_string_additions.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/base/RecentlyUsed.h>
#include <plix/platform/base/hash_of.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/tables/plain_cells.h>
#include <plix/tables/row_cells.h>
#include <plix/tables/table_shadows.h>

#include <string>
#include <string_view>

namespace plix {

namespace {

struct TextSetting {
    NSTextAlignment alignment {};
    NSLineBreakMode lineBreakMode {};
    bool isBold { false };
    friend bool operator==(TextSetting const&, TextSetting const&) = default;
};

/// What a plain text's look depends on.
struct PlainText {
    std::string_view text;
    NSFont const* font { nullptr };
    TextSetting setting;
    friend bool operator==(PlainText const&, PlainText const&) = default;
};

struct PlainTextHash {
    std::size_t operator()(PlainText const& plain) const { return hashOf(plain.text, plain.font); }
};

/// White, with the shadow, and bold where that is wanted.
Ref<NSAttributedString> dressed(NSAttributedString const& plain, NSFont* cellFont, bool isBold)
{
    auto text = plain.mutableCopy();
    text->addAttribute(NSShadowAttributeName, standardTableShadow(), { 0, text->length() });
    if (isBold) {
        auto const own = attribute(plain, NSFontAttributeName).as<NSFont>();
        if (auto const bold = boldFont(own ? own : Ref<NSFont>(cellFont)))
            replaceAttribute(*text, NSFontAttributeName, bold);
    }
    // White whether or not the table is active.
    replaceAttribute(*text, NSForegroundColorAttributeName, NSColor::whiteColor());
    return text;
}

}

struct SelectedTexts::Entries {
    struct Entry {
        std::string text;
        Ref<NSFont> font;
        TextSetting setting;
        Ref<NSAttributedString> dressed;

        PlainText key() const { return { text, font.get(), setting }; }
    };
    RecentlyUsed<Entry, PlainTextHash> texts;

    void shrinkTo(std::size_t count)
    {
        while (texts.size() > count)
            texts.dropOldest();
    }
};

SelectedTexts::SelectedTexts() = default;
SelectedTexts::~SelectedTexts() = default;

std::size_t SelectedTexts::count() const
{
    return m_entries ? m_entries->texts.size() : 0;
}

void SelectedTexts::keepAtMost(std::size_t count)
{
    m_largestCount = count;
    if (m_entries)
        m_entries->shrinkTo(count);
}

Ref<NSAttributedString> SelectedTexts::textOf(NSTextFieldCell const& cell)
{
    bool const isBold = !hasPlainSelection();
    auto const* text = showsPlainText(cell) ? cell.objectValue().string() : nullptr;
    if (text && text->empty())
        return nullptr;
    if (!text) {
        auto const plain = cell.attributedStringValue();
        return plain && plain->length() > 0 ? dressed(*plain, cell.font(), isBold) : nullptr;
    }
    if (!m_entries)
        m_entries = std::make_unique<Entries>();
    auto& texts = m_entries->texts;
    TextSetting const setting { cell.alignment(), cell.lineBreakMode(), isBold };
    if (auto const* const found = texts.find({ *text, cell.font(), setting }))
        return found->dressed;
    auto const plain = cell.attributedStringValue();
    if (!plain || plain->length() == 0)
        return nullptr;
    auto made = dressed(*plain, cell.font(), isBold);
    texts.add({ *text, Ref<NSFont>(cell.font()), setting, made });
    m_entries->shrinkTo(m_largestCount);
    return made;
}

}
