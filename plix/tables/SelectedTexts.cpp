#include <plix/tables/SelectedTexts.h>

#include <plix/format/attributed_string_additions.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/tables/plain_cells.h>
#include <plix/tables/row_cells.h>
#include <plix/tables/table_shadows.h>

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace plix {

namespace {

constexpr std::size_t largestCount = 1024;

/// What a plain text's look depends on.
struct PlainText {
    std::string_view text;
    NSFont const* font { nullptr };
    NSTextAlignment alignment {};
    NSLineBreakMode lineBreakMode {};
    bool isBold { false };
    friend bool operator==(PlainText const&, PlainText const&) = default;
};

struct PlainTextHash {
    std::size_t operator()(PlainText const& plain) const
    {
        return std::hash<std::string_view> {}(plain.text) ^ std::hash<NSFont const*> {}(plain.font);
    }
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
        Ref<NSFont> font;
        Ref<NSAttributedString> plain; ///< has the key's text
        Ref<NSAttributedString> dressed;
    };
    std::unordered_map<PlainText, Entry, PlainTextHash> places;
};

SelectedTexts::SelectedTexts() = default;
SelectedTexts::~SelectedTexts() = default;

std::size_t SelectedTexts::count() const
{
    return m_entries ? m_entries->places.size() : 0;
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
    auto& places = m_entries->places;
    PlainText key { *text, cell.font(), cell.alignment(), cell.lineBreakMode(), isBold };
    if (auto const found = places.find(key); found != places.end())
        return found->second.dressed;
    if (places.size() >= largestCount)
        places.clear();
    auto const plain = cell.attributedStringValue();
    if (!plain || plain->length() == 0)
        return nullptr;
    auto const made = dressed(*plain, cell.font(), isBold);
    auto const kept = make<NSAttributedString>(*text);
    if (kept->string() != *text)
        return made; // bytes that are no text
    key.text = kept->string();
    places.emplace(key, Entries::Entry { cell.font(), kept, made });
    return made;
}

}
