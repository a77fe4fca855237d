#include <plix/tables/CellWidths.h>

#include <plix/platform/appkit/NSTextFieldCell.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/platform/graphics/text_line.h>
#include <plix/tables/plain_cells.h>

#include <cmath>
#include <utility>

namespace plix {

namespace {

// What is longer may be wrapped or cut by the cell.
constexpr float longestPlainLine = 30000.0F;

/// Without controls, line ends among them.
bool isPlainLine(std::string_view text)
{
    bool isASCII = true;
    for (auto const character : text) {
        auto const byte = static_cast<unsigned char>(character);
        if (byte < 0x20 || byte == 0x7F)
            return false;
        isASCII = isASCII && byte < 0x80;
    }
    if (isASCII)
        return true;
    auto const has = [&](std::string_view separator) { return text.find(separator) != std::string_view::npos; };
    return !has("\u0085") && !has("\u2028") && !has("\u2029");
}

}

CellWidths::CellWidths(NSCell& cell)
    : m_cell(cell)
    , m_value(cell.objectValue())
    , m_measuresText(showsPlainText(cell))
{
    if (!m_measuresText)
        return;
    m_font = cell.font();
    cell.setObjectValue("");
    m_margin = cell.cellSize().width;
}

CellWidths::~CellWidths()
{
    m_cell->setObjectValue(std::move(m_value));
}

float CellWidths::widthOf(ObjectValue value)
{
    // Who is asked for values may change the cell.
    auto const* text = m_measuresText && m_cell->font() == m_font.get() ? value.string() : nullptr;
    if (text && isPlainLine(*text)) {
        float const width = std::ceil(widthOfTextLine(*text, *m_font));
        if (width < longestPlainLine)
            return width + m_margin;
    }
    m_cell->setObjectValue(std::move(value));
    return m_cell->cellSize().width;
}

}
