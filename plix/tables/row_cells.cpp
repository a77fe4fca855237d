#include <plix/tables/row_cells.h>

#include <plix/controls/TQPopUpButtonCell.h>
#include <plix/format/attributed_string_additions.h>
#include <plix/platform/appkit/NSMenuItem.h>
#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSColor.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/NSFontManager.h>
#include <plix/platform/graphics/NSMutableAttributedString.h>
#include <plix/system/identity.h>
#include <plix/tables/SelectedTexts.h>
#include <plix/tables/table_shadows.h>

namespace plix {

namespace {

/// Up to this version selected text keeps its weight, and pop-ups have no shadow.
constexpr std::uint32_t lastVersionWithPlainSelection = 0x103F;
constexpr float popUpFontSize = 11.0F;

void dressPopUp(TQPopUpButtonCell& cell, RowState state)
{
    auto const* item = cell.selectedItem();
    auto const font = NSFont::systemFontOfSize(popUpFontSize);
    auto const text = make<NSMutableAttributedString>(item ? std::string_view(item->title()) : std::string_view(),
        Attributes { { NSFontAttributeName, font }, { NSForegroundColorAttributeName, NSColor::blackColor() } });
    if (state == RowState::selected) {
        replaceAttribute(*text, NSForegroundColorAttributeName, NSColor::whiteColor());
        if (!hasPlainSelection()) {
            text->addAttribute(NSShadowAttributeName, standardTableShadow(), { 0, text->length() });
            replaceAttribute(*text, NSFontAttributeName, boldFont(font));
        }
    }
    cell.setDisplayAttributedString(text);
}

}

bool hasPlainSelection()
{
    return PLIXSystemVersion() <= lastVersionWithPlainSelection;
}

Ref<NSFont> boldFont(Ref<NSFont> const& font)
{
    return font ? NSFontManager::sharedFontManager().convertFontToHaveTrait(*font, NSBoldFontMask) : nullptr;
}

DressedCell::DressedCell(NSCell& cell, RowState state, SelectedTexts& texts)
    : m_cell(cell)
{
    if (auto* popUp = dynamic_cast<TQPopUpButtonCell*>(&cell))
        dressPopUp(*popUp, state);
    else if (state == RowState::selected && dynamic_cast<NSTextFieldCell*>(&cell))
        dressText(texts);
}

void DressedCell::dressText(SelectedTexts& texts)
{
    auto& cell = static_cast<NSTextFieldCell&>(*m_cell);
    auto const text = texts.textOf(cell);
    if (!text)
        return;
    m_isDressed = true;
    m_font = cell.font();
    m_textColor = cell.textColor();
    cell.setObjectValue(text);
}

DressedCell::~DressedCell()
{
    if (!m_isDressed)
        return;
    auto& cell = static_cast<NSTextFieldCell&>(*m_cell);
    cell.setFont(m_font);
    cell.setTextColor(m_textColor);
}

}
