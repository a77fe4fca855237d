#pragma once

#include <plix/platform/base/Ref.h>
#include <plix/platform/graphics/Forward.h>

namespace plix {

class NSCell;
class SelectedTexts;

/// How the library's tables and outlines dress the cells that they draw.

enum class RowState { unselected, selected };

/// On old systems selected text keeps its weight, and pop-ups have no shadow.
bool hasPlainSelection();
/// The font's bold relative; null for null.
Ref<NSFont> boldFont(Ref<NSFont> const&);

/// A cell with its value dressed for its row, for the scope that this lives in: in selected rows text is bold and white with a
/// shadow. The cell's own font and text colour are put back afterwards; the dressed value stays.
class DressedCell {
public:
    DressedCell(NSCell&, RowState, SelectedTexts&);
    ~DressedCell();
    DressedCell(DressedCell const&) = delete;
    DressedCell& operator=(DressedCell const&) = delete;

private:
    void dressText(SelectedTexts&);

    Ref<NSCell> m_cell;
    bool m_isDressed { false };
    Ref<NSFont> m_font;
    Ref<NSColor> m_textColor;
};

}
