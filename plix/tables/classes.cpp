#include <plix/tables/classes.h>

#include <plix/tables/PLIXImageAndTextCell.h>
#include <plix/tables/PLIXNSTableHeaderView.h>
#include <plix/tables/PLIXOutlineView.h>
#include <plix/tables/PLIXTableView.h>

namespace plix {

void registerTableClasses()
{
    PLIXImageAndTextCell::staticClass();
    PLIXNSTableHeaderView::staticClass();
    PLIXOutlineView::staticClass();
    PLIXTableView::staticClass();
}

}
