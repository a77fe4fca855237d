#include <tests/support/TabTest.h>

namespace plix {

PLIX_DESCRIBE(TabDelegate)
{
    description.fillsHooks<NSTabViewDelegate>();
}

}
