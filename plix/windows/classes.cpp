#include <plix/windows/classes.h>

#include <plix/windows/PLIXWindow.h>

namespace plix {

void registerWindowClasses()
{
    PLIXWindow::staticClass();
}

}
