#include <tests/support/CountingView.h>

namespace plix {

PLIX_DESCRIBE(CountingView)
{
}

}
