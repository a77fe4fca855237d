#include <plix/tables/classes.h>

#include <plix/tables/PLIXImageAndTextCell.h>

namespace plix {

void registerTableClasses()
{
    PLIXImageAndTextCell::staticClass();
}

}
