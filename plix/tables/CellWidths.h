#pragma once

#include <plix/platform/base/ObjectValue.h>

namespace plix {

class NSCell;
class NSFont;

/// How wide one cell is for many values, for the scope that this lives in; then the cell has the value again that it had. Plain
/// text in a cell that is known to be as wide as its text and a margin is measured without going through the cell.
class CellWidths {
public:
    explicit CellWidths(NSCell&);
    ~CellWidths();
    CellWidths(CellWidths const&) = delete;
    CellWidths& operator=(CellWidths const&) = delete;

    /// The width of the cell's cellSize() with this value.
    float widthOf(ObjectValue);

private:
    Ref<NSCell> m_cell;
    ObjectValue m_value;
    Ref<NSFont> m_font;
    bool m_measuresText { false };
    float m_margin { 0 };
};

}
