#include <plix/tables/plain_cells.h>

#include <plix/platform/foundation/NSFormatter.h>
#include <plix/platform/graphics/NSFont.h>
#include <plix/tables/PLIXImageAndTextCell.h>

#include <typeinfo>

namespace plix {

bool showsPlainText(NSCell const& cell)
{
    bool const isKnown = typeid(cell) == typeid(NSTextFieldCell) || typeid(cell) == typeid(PLIXImageAndTextCell);
    return isKnown && cell.type() == NSTextCellType && cell.font() && !cell.formatter();
}

}
